#ifndef ROW_PATCH_H
#define ROW_PATCH_H

#include "kytypes.h"

/// Gives a test a row to change; puts the row back as it was.
class RowPatch {
public:
    explicit RowPatch(KyTypeTab& patched) : row(patched), saved(patched) {}
    RowPatch(const RowPatch&) = delete;
    RowPatch& operator=(const RowPatch&) = delete;
    ~RowPatch() { row = saved; }

    KyTypeTab* operator->() const { return &row; }

private:
    KyTypeTab& row;
    KyTypeTab saved;
};

#endif
