#ifndef KYTM_ROW_WRITER_H
#define KYTM_ROW_WRITER_H

/// Rows of values as a table, as CSV, as JSON.

#include <memory>
#include <string>
#include <vector>

#include "attribute_texts.h"
#include "command_store.h"
#include "terminal.h"

namespace kytm {

/// A row is `BeginRow`, `AddId` when the rows have identifiers, `Add` for each element of each attribute, `EndRow`.
class RowWriter {
public:
    virtual ~RowWriter() = default;

    virtual void BeginRow() = 0;
    virtual void AddId(std::string id) = 0;
    virtual void Add(const AttributeTexts& texts, void* value) = 0;
    virtual void EndRow() = 0;
    /// After the last row.
    virtual void Finish() = 0;
};

std::unique_ptr<RowWriter> MakeRowWriter(RowForm form, const std::vector<const engine::Attribute*>& attributes,
                                         bool withIds, Output& out);

}  // namespace kytm

#endif
