#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>

#include "commands.h"
#include "compare_word.h"
#include "lines.h"
#include "texts.h"
#include "type_lookup.h"
#include "value.h"

namespace kytm {

namespace {

/// Steps of work between two looks at the clock.
constexpr std::size_t kStride = 4096;

using Indices = std::vector<std::uint32_t>;

/// The order of the values of one column. The row's function is taken once.
class Column {
public:
    Column(char id, const Values& column, unsigned short word)
        : compare(Manager().CmpFuncPtrGet(id)), values(column), op(word) {}

    int Compare(std::uint32_t a, std::uint32_t b) const {
        int error = 0;
        return compare(KyFormMemory, 0, values[a], 0, values[b], op, 1, error);
    }

private:
    KyCompareFunc* compare;
    const Values& values;
    unsigned short op;
};

/// Reads each line into its value. Returns the numbers of the lines that could be read; the others are reported.
Indices ScanLines(char id, const std::vector<Line>& lines, const Values& values, const SortOptions& options,
                  TextForm& form, Progress& progress) {
    Scanner scanner(id, options.format ? options.format->c_str() : nullptr, form);
    Indices good;
    good.reserve(lines.size());
    for (std::uint32_t i = 0; i < lines.size(); ++i) {
        if (i % kStride == 0) progress.Say("scanning", i, lines.size());
        const char* fault = scanner.Scan(lines[i].text, values[i]);
        if (fault == nullptr) {
            good.push_back(i);
            continue;
        }
        progress.Wipe();
        Complain(PlaceOf(options.file, i) + ": " + Quoted(lines[i].text) + " does not scan as " + TypeName(id) + ": " +
                 fault);
    }
    return good;
}

/// Sorts stably, so that equal values stay in the order of the input in either direction.
void Sort(Indices::iterator begin, Indices::iterator end, const Column& column, bool reverse, Progress& progress) {
    const auto count = static_cast<std::size_t>(end - begin);
    const auto levels = static_cast<std::size_t>(std::numeric_limits<std::size_t>::digits);
    std::size_t expected = 0;
    for (std::size_t level = 1; level < levels && (count >> level) != 0; ++level) expected += count;
    std::size_t done = 0;
    std::stable_sort(begin, end, [&](std::uint32_t a, std::uint32_t b) {
        if (++done % kStride == 0) progress.Say("sorting", done, expected);
        return reverse ? column.Compare(b, a) < 0 : column.Compare(a, b) < 0;
    });
}

void WriteLines(const Indices& order, char id, const std::vector<Line>& lines, const Values& values,
                const SortOptions& options, const TextForm& form, Output& out, Progress& progress) {
    const char* format = options.format ? options.format->c_str() : nullptr;
    std::size_t done = 0;
    for (const std::uint32_t i : order) {
        if (++done % kStride == 0) progress.Say("writing", done, order.size());
        if (options.print) {
            out.Write(PrintValue(id, values[i], format, form));
        } else {
            out.Write(lines[i].text);
        }
        out.Write(lines[i].End());
    }
}

}  // namespace

ExitStatus SortLines(const SortOptions& options, Output& out) {
    const char id = FindUsableType(options.type);
    // A pattern matches many values that differ: that is no order, so nothing is read as a pattern here.
    unsigned short op = options.op ? ParseCompareWord(*options.op) : kDefaultCompareWord;
    if ((op & kDefaultCompareWord) == 0) op |= KyCmpExact;

    TextForm form = FormOfTexts(id, options.texts);

    Progress progress;
    const std::string text = ReadAll(options.file, progress);
    const std::vector<Line> lines = SplitLines(text);
    if (lines.size() > std::numeric_limits<std::uint32_t>::max()) throw Failure("too many lines");
    const Values values(id, static_cast<unsigned>(lines.size()));
    Indices order = ScanLines(id, lines, values, options, form, progress);
    const ExitStatus status = order.size() == lines.size() ? kDone : kBadInput;

    auto nulls = order.end();
    if (options.nullLast) {
        nulls = std::stable_partition(order.begin(), order.end(),
                                      [&](std::uint32_t i) { return Manager().IsNullValue(id, values[i]) == 0; });
    }
    const Column column(id, values, op);
    Sort(order.begin(), nulls, column, options.reverse, progress);
    if (options.unique) {
        const auto equal = [&](std::uint32_t a, std::uint32_t b) { return column.Compare(a, b) == 0; };
        order.erase(std::unique(order.begin(), order.end(), equal), order.end());
    }
    WriteLines(order, id, lines, values, options, form, out, progress);
    out.Flush();
    return status;
}

}  // namespace kytm
