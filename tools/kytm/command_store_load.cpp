#include <cerrno>
#include <cstring>
#include <fstream>
#include <optional>

#include "batch.h"
#include "command_store.h"
#include "csv_columns.h"
#include "store_objects.h"
#include "texts.h"

namespace kytm {

namespace {

/// Rows between two looks at the clock.
constexpr std::size_t kStride = 256;

/// The rows that do not scan, behind the header line, so that the file can be mended and loaded.
class RejectFile {
public:
    /// Makes an empty file.
    RejectFile(const std::string& aPath, const CsvRow& aHeader) : path(aPath), header(aHeader.source) {
        if (path.empty()) return;
        file.open(path, std::ios::binary | std::ios::trunc);
        Check();
    }

    bool IsWanted() const { return !path.empty(); }

    void Add(const CsvRow& row) {
        if (isEmpty) Write(header);
        isEmpty = false;
        Write(row.source);
    }

    void Close() {
        if (!IsWanted()) return;
        file.close();
        Check();
    }

private:
    std::string path;
    std::string header;
    std::ofstream file;
    bool isEmpty = true;

    void Write(const std::string& lines) {
        file << lines;
        if (!lines.ends_with('\n')) file << '\n';
        Check();
    }

    void Check() const {
        if (!file) throw Failure("cannot write " + Quoted(path, path.size()) + ": " + std::strerror(errno));
    }
};

class Load {
public:
    Load(const StoreLoadOptions& someOptions, engine::Store& aStore, std::size_t classAt)
        : options(someOptions),
          className(aStore.GetSchema().Classes()[classAt].name),
          reader(options.file),
          header(ReadHeader()),
          columns(aStore.GetSchema().Classes()[classAt], header.fields, Place(header)),
          rejects(options.reject, header),
          batch(aStore, classAt) {}

    ExitStatus Run(Output& out) {
        CsvRow row;
        std::size_t rows = 0;
        while (reader.Next(row)) {
            if (rows++ % kStride == 0) Say();
            const std::string fault = row.fault != nullptr ? row.fault : columns.Scan(row.fields);
            if (!fault.empty()) {
                ++rejected;
                progress.Wipe();
                Complain(Place(row) + ", " + fault);
                if (!rejects.IsWanted()) break;
                rejects.Add(row);
                continue;
            }
            batch.Add(columns.AttributeValues());
            if (batch.Count() == options.batch) Commit();
        }
        const bool stopped = rejected > 0 && !rejects.IsWanted();
        if (!stopped) Commit();
        rejects.Close();
        progress.Wipe();
        if (stopped) {
            Complain("the load stops here: " + Loaded());
            return kBadInput;
        }
        out.Write(Loaded() + (rejected > 0 ? ", " + std::to_string(rejected) + " rows rejected" : "") + "\n");
        return rejected > 0 ? kBadInput : kDone;
    }

private:
    const StoreLoadOptions& options;
    std::string className;
    CsvReader reader;
    CsvRow header;
    CsvColumns columns;
    RejectFile rejects;
    engine::Batch batch;
    Progress progress;
    std::size_t loaded = 0;
    std::size_t rejected = 0;

    CsvRow ReadHeader() {
        CsvRow row;
        if (!reader.Next(row)) throw Failure(Place(row) + ": there is no header line");
        if (row.fault != nullptr) throw Failure(Place(row) + ", " + row.fault);
        return row;
    }

    std::string Place(const CsvRow& row) const {
        const std::string name = IsStandardInput(options.file) ? "standard input" : options.file;
        return row.line == 0 ? name : name + ", line " + std::to_string(row.line);
    }

    std::string Loaded() const {
        return std::to_string(loaded) + (loaded == 1 ? " object of " : " objects of ") + className + " loaded";
    }

    void Say() {
        const bool sizeIsKnown = reader.SizeHint() != 0;
        progress.Say("loading", sizeIsKnown ? reader.BytesRead() : loaded + batch.Count(), reader.SizeHint());
    }

    void Commit() {
        const std::size_t count = batch.Count();
        if (count == 0) return;
        try {
            batch.Commit();
        } catch (const engine::StoreError& error) {
            throw Failure(std::string(error.what()) + "; the load stops here: " + Loaded());
        }
        loaded += count;
    }
};

}  // namespace

ExitStatus LoadStore(const StoreLoadOptions& options, Output& out) {
    engine::Store store(options.store, engine::Access::write);
    return Load(options, store, FindClass(store.GetSchema(), options.className)).Run(out);
}

}  // namespace kytm
