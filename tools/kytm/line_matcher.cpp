#include "line_matcher.h"

#include "kytypes.h"
#include "terminal.h"
#include "texts.h"

namespace kytm {

namespace {

constexpr unsigned short kExactBits = KyCmpExact | KyCmpStringExact;

/// The pattern that matches this text alone.
std::string Escaped(std::string_view text) {
    std::string pattern;
    for (const char c : text) {
        if (c == '*' || c == '?' || c == '\\') pattern += '\\';
        pattern += c;
    }
    return pattern;
}

/// A backslash at the end of a pattern, with no other before it that takes its meaning.
bool EndsInEscape(std::string_view pattern) {
    const std::size_t last = pattern.find_last_not_of('\\');
    const std::size_t count = pattern.size() - (last == std::string_view::npos ? 0 : last + 1);
    return count % 2 != 0;
}

/// The pattern of all texts of which a part matches this one.
std::string Inside(std::string pattern, bool hasEscape) {
    // At the end of a pattern an escape stands for itself; before a star it would not.
    if (hasEscape && EndsInEscape(pattern)) pattern += '\\';
    return "*" + pattern + "*";
}

}  // namespace

LineMatcher::LineMatcher(const std::string& givenPattern, const TextOptions& options, unsigned short word,
                         bool anywhere)
    : form(options), op(word), isLiteralPart(false) {
    std::string wanted = givenPattern;
    const bool isLiteral = (op & kExactBits) != 0;
    const bool isBytes = form.TakesBytes();
    if (anywhere && isLiteral && isBytes) {
        isLiteralPart = true;
    } else if (anywhere) {
        if (isLiteral) wanted = Escaped(wanted);
        wanted = Inside(wanted, !isBytes);
        // What string-exact leaves out of account has to stay out when the bit goes.
        if ((op & KyCmpStringExact) != 0) op = 0;
        op = static_cast<unsigned short>(op & ~kExactBits);
    }
    if (const char* fault = form.Read(wanted); fault != nullptr) {
        throw Failure("the pattern " + Quoted(givenPattern) + " cannot be used: " + fault);
    }
    pattern = form.ToString();
}

const char* LineMatcher::Test(std::string_view text) {
    if (const char* fault = form.Read(text); fault != nullptr) return fault;
    const CodedText line = form.Result();
    if (isLiteralPart) {
        matches = text.find(pattern.StrGet()) != std::string_view::npos;
    } else {
        matches = KyStrCmp(line.codeSet, line.language, line.characters, pattern.CodeSetGet(), pattern.LanguageGet(),
                           pattern.StrGet(), op, -1, KyFormNative, nullptr) == 0;
    }
    return nullptr;
}

}  // namespace kytm
