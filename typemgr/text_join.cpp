#include "text_join.h"

#include <algorithm>
#include <cstring>

#include "kystring.h"

namespace {

/// More than any string holds: what is gathered beyond this would be cut anyway.
constexpr std::size_t maxGatheredUnits = 0xFFFF;
constexpr unsigned short appendMode = 3;

}  // namespace

ky::TextJoin::TextJoin(KyString& target) : out(target), width(target.NullLen()) {}

void ky::TextJoin::AppendBytes(const char* bytes, std::size_t size) {
    const std::size_t room = maxGatheredUnits * width - gathered.size();
    gathered.insert(gathered.end(), bytes, bytes + std::min(size, room));
}

void ky::TextJoin::Append(const KyString& piece) {
    if (piece.CodeSetGet() == out.CodeSetGet()) {
        AppendBytes(piece.StrGet(), piece.Len() * width);
        return;
    }
    KyString mapped(out.CodeSetGet(), out.LanguageGet());
    mapped += piece;
    AppendBytes(mapped.StrGet(), mapped.Len() * width);
}

void ky::TextJoin::AppendCode(unsigned short code) {
    const char narrow = static_cast<char>(code);
    char wide[sizeof code];
    std::memcpy(wide, &code, sizeof code);
    AppendBytes(width == 1 ? &narrow : wide, width);
}

void ky::TextJoin::Finish() {
    if (gathered.empty()) return;
    const auto count = static_cast<unsigned short>(gathered.size() / width);
    out.BuildString(gathered.data(), out.CodeSetGet(), out.Len(), 0, count, 1, appendMode, 1);
}
