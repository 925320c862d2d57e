#include "kywildcard.h"

#include <cstring>
#include <memory>

#include "code_sets.h"
#include "dictionary_keys.h"
#include "kydiskform.h"
#include "kystring.h"
#include "wildcard_bytes.h"

namespace {

// Wildcards and escapes are ASCII: the conversion to disk form neither makes nor removes one.
constexpr bool ConversionKeepsAscii() {
    for (const unsigned char c : ky::kToDiskForm) {
        if (c < 0x80) return false;
    }
    return true;
}
static_assert(ConversionKeepsAscii());

template <class Pattern, class Text>
int Matches(Pattern pattern, Text&& text) {
    return ky::Match<unsigned char>(pattern, text).ending == ky::Ending::match ? 1 : 0;
}

}  // namespace

int strwc(char* pattern) {
    if (pattern == nullptr) return -1;
    const std::size_t at = std::strcspn(pattern, "*?\\");
    return pattern[at] != 0 ? static_cast<int>(at) : -1;
}

int istrwc(char* pattern, unsigned char) { return strwc(pattern); }
int caseistrwc(char* pattern, unsigned char) { return strwc(pattern); }

int strwild(char* pattern, char* text) {
    const bool beginsAlike = pattern != nullptr && text != nullptr && *pattern == *text;
    const std::size_t equal = beginsAlike ? ky::EqualLiterals(pattern, text) : 0;
    return Matches(ky::BytePattern<true>(pattern + equal, ky::kNoLimit), ky::ByteText(text + equal, ky::kNoLimit));
}

// --- in disk form ---

namespace {

/// A text in disk form: itself, or a converted copy.
class DiskText {
public:
    DiskText(char* text, unsigned char mode) : start(text) {
        if ((mode & ky::kModeDiskForm) != 0 || text == nullptr) return;
        copy.reset(new char[std::strlen(text) + 1]);
        start = copy.get();
        _KyEncodeString(reinterpret_cast<unsigned char*>(start), reinterpret_cast<unsigned char*>(text), 0);
    }
    char* Get() const { return start; }

private:
    std::unique_ptr<char[]> copy;
    char* start;
};

bool IsAscii(const char* text) {
    for (; text != nullptr && *text != 0; ++text) {
        if (static_cast<unsigned char>(*text) >= 0x80) return false;
    }
    return true;
}

}  // namespace

int istrwild(char* pattern, char* text, unsigned char patternMode, unsigned char textMode) {
    if (IsAscii(pattern)) return strwild(pattern, text);
    const DiskText diskPattern(pattern, patternMode);
    const DiskText diskText(text, textMode);
    return strwild(diskPattern.Get(), diskText.Get());
}

// --- by keys ---

namespace {

constexpr ky::DictionaryKey KeyOf(unsigned char c, unsigned char mode) {
    if ((mode & ky::kModeDiskForm) == 0) c = c < 0x80 ? c : ky::kToDiskForm[c - 0x80];
    if ((mode & ky::kModeKey) != 0) return {c, 0};
    return ky::DictionaryKeyOf(ky::kCaseIStringTables, c);
}

constexpr bool HasSecondKey(ky::DictionaryKey key) { return key.extra >= ky::kFirstSecondKey; }

/// A number for each key and extra, by the bytes that have them: the first of those in disk form.
constexpr ky::ByteMap NumbersOf(unsigned char mode) {
    ky::ByteMap numbers{};
    unsigned short keys[256]{};
    for (unsigned c = 0; c < 256; ++c) keys[c] = KeyOf(static_cast<unsigned char>(c), ky::kModeDiskForm).Both();
    for (unsigned c = 0; c < 256; ++c) {
        const unsigned short wanted = KeyOf(static_cast<unsigned char>(c), mode).Both();
        while (keys[numbers.of[c]] != wanted) ++numbers.of[c];
    }
    return numbers;
}
constexpr ky::ByteMap kNumbersOfDiskForm = NumbersOf(ky::kModeDiskForm);
constexpr ky::ByteMap kNumbersOfMemoryForm = NumbersOf(0);

const ky::ByteMap& NumberMapOf(unsigned char mode) {
    return (mode & ky::kModeDiskForm) != 0 ? kNumbersOfDiskForm : kNumbersOfMemoryForm;
}

bool HoldsSecondKeys(const char* pattern, unsigned char mode) {
    for (; *pattern != 0; ++pattern) {
        if (static_cast<unsigned char>(*pattern) >= 0x80 &&
            HasSecondKey(KeyOf(static_cast<unsigned char>(*pattern), mode)))
            return true;
    }
    return false;
}

/// Character by character, since a pattern with second keys can end the match with success at every place that is
/// tried, and a text that ends before its pattern ends the match with failure.
int MatchesStepByStep(const char* patternText, const char* text, unsigned char patternMode, unsigned char textMode) {
    ky::BytePattern<true> pattern(patternText, ky::kNoLimit);
    ky::BytePattern<true> behindRun = pattern;
    const char* runEnd = nullptr;
    for (;;) {
        unsigned char c = 0;
        const ky::Token token = pattern.Next(c);
        if (token == ky::Token::broken) return 0;
        if (token == ky::Token::anyRun) {
            behindRun = pattern;
            runEnd = text;
            continue;
        }
        // KEPT: also at the end of the key.
        if (token == ky::Token::anyOne && (textMode & ky::kModeKey) != 0) return 1;
        if (*text == 0) return token == ky::Token::end ? 1 : 0;
        const ky::DictionaryKey found = KeyOf(static_cast<unsigned char>(*text), textMode);
        const ky::DictionaryKey wanted = KeyOf(c, patternMode);
        if (token == ky::Token::anyOne || (token == ky::Token::literal && wanted.Both() == found.Both())) {
            ++text;
            continue;
        }
        // KEPT: that the second key follows isn't asked.
        if (token == ky::Token::literal && HasSecondKey(wanted) && wanted.key == found.key) return 1;
        if (runEnd == nullptr) return 0;
        text = ++runEnd;
        pattern = behindRun;
    }
}

}  // namespace

int caseistrwild(char* pattern, char* text, unsigned char patternMode, unsigned char textMode) {
    const char* const patternText = pattern != nullptr ? pattern : "";
    if (((patternMode | textMode) & ky::kModeKey) != 0 || HoldsSecondKeys(patternText, patternMode)) {
        return MatchesStepByStep(patternText, text != nullptr ? text : "", patternMode, textMode);
    }
    return Matches(ky::BytePattern<true>(patternText, ky::kNoLimit, &NumberMapOf(patternMode)),
                   ky::MappedText(text, NumberMapOf(textMode)));
}

// --- of texts in code sets ---

namespace {

bool IsWildcard(unsigned short order, unsigned short questionIsLiteral) {
    return order == KyString::GetAsterisk() || (questionIsLiteral == 0 && order == KyString::GetQuestion());
}

/// Code units in front of the first wildcard, or -1.
int FindWildcard(KyStringIterator& it, unsigned width, unsigned short questionIsLiteral, int maxChars) {
    const char* const start = it.Position();
    for (;;) {
        // A contraction moves on by several characters, an expansion by none while its orders last.
        const auto index = static_cast<int>(static_cast<std::size_t>(it.Position() - start) / width);
        if (index >= maxChars) return -1;
        const unsigned short order = it.GetNextOrder(0);
        if (order == 0) return -1;
        if (IsWildcard(order, questionIsLiteral)) return index;
    }
}

int FindWildcardByte(const char* text, unsigned short questionIsLiteral, int maxChars) {
    for (int i = 0; i < maxChars && text[i] != 0; ++i) {
        if (text[i] == '*' || (text[i] == '?' && questionIsLiteral == 0)) return i;
    }
    return -1;
}

}  // namespace

int KyStrWild(unsigned char codeSet, unsigned char language, char* text, unsigned short questionIsLiteral,
              short maxChars, short* bytePos, unsigned char format) {
    const unsigned width = ky::CharWidth(codeSet);
    int index = -1;
    if (text != nullptr && codeSet == KyCodeSetNative) {
        index = FindWildcardByte(text, questionIsLiteral, maxChars);
    } else if (text != nullptr) {
        KyStringIterator it(text, ky::TextCodeSet(codeSet), language, format);
        index = FindWildcard(it, width, questionIsLiteral, maxChars);
    }
    if (bytePos != nullptr) *bytePos = static_cast<short>(index < 0 ? -1 : index * static_cast<int>(width));
    return index;
}
