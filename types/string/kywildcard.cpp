#include "kywildcard.h"

#include <array>
#include <cstring>
#include <memory>

#include "code_sets.h"
#include "kydiskform.h"
#include "kydiskform_table.h"
#include "kyistring_map_tables.h"
#include "kystring.h"
#include "wildcard_bytes.h"

namespace {

constexpr unsigned char kInDiskForm = 0x40;
constexpr unsigned char kIsKey = 0x80;

// Wildcards and escapes are ASCII: the conversion to disk form neither makes nor removes one.
constexpr bool ConversionKeepsAscii() {
    for (const unsigned char c : ky::kToDiskForm) {
        if (c < 0x80) return false;
    }
    return true;
}
static_assert(ConversionKeepsAscii());

template <class Unit, class Pattern, class Text>
int Matches(Pattern pattern, Text&& text) {
    return ky::Match<Unit>(pattern, text).ending == ky::Ending::match ? 1 : 0;
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
    return Matches<unsigned char>(ky::BytePattern<true>(pattern, ky::kNoLimit), ky::ByteText(text, ky::kNoLimit));
}

// --- in disk form ---

namespace {

/// A text in disk form: itself, or a converted copy.
class DiskText {
public:
    DiskText(char* text, unsigned char mode) : start(text) {
        if ((mode & kInDiskForm) != 0 || text == nullptr) return;
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

/// What each byte is compared by: its key, and its extra times 256.
using KeyMap = std::array<unsigned short, 256>;

template <class KeyOf>
constexpr KeyMap MakeKeyMap(KeyOf keyOf) {
    KeyMap map{};
    for (unsigned c = 0; c < 256; ++c) map[c] = keyOf(static_cast<unsigned char>(c));
    return map;
}

constexpr KeyMap kKeysOfDiskForm =
    MakeKeyMap([](unsigned char c) { return ky::DictionaryKeyOf(ky::kCaseIStringTables, c).Both(); });
constexpr KeyMap kKeysOfMemoryForm =
    MakeKeyMap([](unsigned char c) { return kKeysOfDiskForm[c < 0x80 ? c : ky::kToDiskForm[c - 0x80]]; });
constexpr KeyMap kKeysOfKeys = MakeKeyMap([](unsigned char c) { return static_cast<unsigned short>(c); });
constexpr KeyMap kKeysOfConvertedKeys =
    MakeKeyMap([](unsigned char c) { return static_cast<unsigned short>(c < 0x80 ? c : ky::kToDiskForm[c - 0x80]); });

const KeyMap& KeyMapOf(unsigned char mode) {
    if ((mode & kIsKey) != 0) return (mode & kInDiskForm) != 0 ? kKeysOfKeys : kKeysOfConvertedKeys;
    return (mode & kInDiskForm) != 0 ? kKeysOfDiskForm : kKeysOfMemoryForm;
}

struct MappedUnits {
    const KeyMap* map;
    unsigned operator()(unsigned char c) const { return (*map)[c]; }
};

/// A pattern for a text that is a key ends at its first any one.
class KeyPattern {
public:
    KeyPattern(const char* pattern, unsigned char mode, bool forKeys)
        : whole(pattern, ky::kNoLimit, {&KeyMapOf(mode)}), endsAtAnyOne(forKeys) {}
    ky::Token Next(unsigned& unit) {
        const ky::Token token = whole.Next(unit);
        return token == ky::Token::anyOne && endsAtAnyOne ? ky::Token::openEnd : token;
    }

private:
    ky::BytePattern<true, MappedUnits> whole;
    bool endsAtAnyOne;
};

class KeyText {
public:
    KeyText(const char* text, const KeyMap& keys) : at(text), map(keys) {}
    unsigned Next() {
        const unsigned unit = map[static_cast<unsigned char>(*at)];
        if (unit != 0) ++at;
        return unit;
    }
    std::span<const unsigned> Rest() {
        const std::size_t length = std::strlen(at);
        unsigned* units = rest.Reserve(length);
        for (std::size_t i = 0; i < length; ++i) units[i] = map[static_cast<unsigned char>(at[i])];
        rest.Take(length);
        return rest.Items();
    }

private:
    const char* at;
    const KeyMap& map;
    ky::SmallBuffer<unsigned, 256> rest;
};

bool HasSecondKey(unsigned unit) { return unit >> 8 >= ky::kFirstSecondKey; }

bool HoldsSecondKeys(KeyPattern pattern) {
    for (;;) {
        unsigned unit = 0;
        const ky::Token token = pattern.Next(unit);
        if (token == ky::Token::literal && HasSecondKey(unit)) return true;
        if (token != ky::Token::literal && token != ky::Token::anyOne && token != ky::Token::anyRun) return false;
    }
}

/// Character by character, since a pattern with second keys can end the match with success at every place that is
/// tried, and a text that ends before its pattern ends the match with failure.
int MatchesStepByStep(KeyPattern pattern, const char* text, const KeyMap& keys) {
    KeyPattern behindRun = pattern;
    const char* runEnd = nullptr;
    for (;;) {
        unsigned wanted = 0;
        const ky::Token token = pattern.Next(wanted);
        if (token == ky::Token::openEnd) return 1;
        if (token == ky::Token::broken) return 0;
        if (token == ky::Token::anyRun) {
            behindRun = pattern;
            runEnd = text;
            continue;
        }
        const unsigned unit = keys[static_cast<unsigned char>(*text)];
        if (unit == 0) return token == ky::Token::end ? 1 : 0;
        if (token == ky::Token::anyOne || unit == wanted) {
            ++text;
            continue;
        }
        // KEPT: that the second key follows isn't asked.
        if (HasSecondKey(wanted) && ((wanted ^ unit) & 0xFF) == 0) return 1;
        if (runEnd == nullptr) return 0;
        text = ++runEnd;
        pattern = behindRun;
    }
}

}  // namespace

int caseistrwild(char* pattern, char* text, unsigned char patternMode, unsigned char textMode) {
    const KeyPattern keyPattern(pattern, patternMode, (textMode & kIsKey) != 0);
    const KeyMap& keys = KeyMapOf(textMode);
    const char* keyText = text != nullptr ? text : "";
    if (HoldsSecondKeys(keyPattern)) return MatchesStepByStep(keyPattern, keyText, keys);
    return Matches<unsigned>(keyPattern, KeyText(keyText, keys));
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
