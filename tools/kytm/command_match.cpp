#include "commands.h"
#include "compare_word.h"
#include "line_matcher.h"
#include "lines.h"
#include "texts.h"

namespace kytm {

namespace {

/// Lines between two looks at the clock.
constexpr std::size_t kStride = 4096;

}  // namespace

ExitStatus MatchLines(const MatchOptions& options, Output& out) {
    LineMatcher matcher(options.pattern, options.texts, options.op ? ParseCompareWord(*options.op) : 0, options.find);
    Progress progress;
    const std::string text = ReadAll(options.file, progress);
    const std::vector<Line> lines = SplitLines(text);

    std::size_t found = 0;
    bool allRead = true;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i % kStride == 0) progress.Say("matching", i, lines.size());
        if (const char* fault = matcher.Test(lines[i].text); fault != nullptr) {
            allRead = false;
            progress.Wipe();
            Complain(PlaceOf(options.file, i) + ": " + Quoted(lines[i].text) + " cannot be read: " + fault);
            continue;
        }
        if (matcher.Matches() == options.invert) continue;
        ++found;
        if (options.count) continue;
        if (options.lineNumbers) out.Write(std::to_string(i + 1) + ":");
        out.Write(lines[i].text);
        out.Write(lines[i].End());
    }
    if (options.count) out.Write(std::to_string(found) + "\n");
    out.Flush();
    if (!allRead) return kFailed;
    return found != 0 ? kDone : kNoMatch;
}

}  // namespace kytm
