// The first-level order of single characters of the whole 16-bit plane beside the default order of the peer: they
// disagree about no pair but those of which a class of disagreement tells why.

#include <gtest/gtest.h>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <random>
#include <stdexcept>
#include <string>

#include "peers/peer_collator.h"
#include "support/fewer_cases.h"
#include "support/languages.h"

namespace {

constexpr unsigned short kLettersOnly = 0x10 | 0x20 | 0x40;
constexpr unsigned kPairs = 1000000 / kFewerCases;
constexpr unsigned char kClassOfSigns = 119;  ///< letters of no script

std::u16string AssignedCharacters() {
    std::u16string result;
    for (unsigned code = 1; code < 0x10000; ++code) {
        const int category = u_charType(static_cast<UChar32>(code));
        if (category == U_UNASSIGNED || category == U_SURROGATE || category == U_PRIVATE_USE_CHAR) continue;
        result.push_back(static_cast<char16_t>(code));
    }
    return result;
}

const KyCharProps& Record(char16_t unit) {
    return *KyLanguageContext::QueryCodeSet(KyCodeSetUnicode)->GetProperty(unit);
}

bool IsMark(int category) {
    return category == U_NON_SPACING_MARK || category == U_COMBINING_SPACING_MARK || category == U_ENCLOSING_MARK;
}

/// The compatibility decomposition, or canonical one; the character itself where it has none.
std::u16string Parts(char16_t unit) {
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2* form = unorm2_getNFKDInstance(&status);
    std::u16string parts(32, u'\0');
    const int length = unorm2_normalize(form, &unit, 1, parts.data(), static_cast<int>(parts.size()), &status);
    if (U_FAILURE(status)) throw std::runtime_error(u_errorName(status));
    parts.resize(static_cast<std::size_t>(length));
    return parts;
}

/// A symbol that stands for letters or digits: circled, squared, a radical.
bool IsMadeOfLetters(char16_t unit) {
    UErrorCode status = U_ZERO_ERROR;
    if (uscript_getScript(unit, &status) == USCRIPT_HAN) return true;
    const std::u16string parts = Parts(unit);
    return std::any_of(parts.begin(), parts.end(), [](char16_t part) { return u_isalnum(part) != 0; });
}

/// A letter by its category that is a sign, or a mark on nothing or on a lengthening stroke.
bool IsMarkAmongLetters(char16_t unit) {
    constexpr char16_t kTatweel = 0x0640;
    constexpr char16_t kTailFragment = 0xFE73;
    if (unit == kTailFragment || Record(unit).orderClass == kClassOfSigns || u_charType(unit) == U_MODIFIER_LETTER)
        return true;
    const std::u16string parts = Parts(unit);
    return parts.size() > 1 &&
           std::none_of(parts.begin(), parts.end(), [](char16_t part) { return part != kTatweel && u_isalpha(part); });
}

/// A symbol that stands for a word, which the peer has among the letters: two of Sindhi, two of New Tai Lue.
bool IsWord(char16_t unit) { return unit == 0x06FD || unit == 0x06FE || unit == 0x19DE || unit == 0x19DF; }

/// What a character is that may be apart from the peer's order; empty: nothing special.
std::string Peculiarity(char16_t unit) {
    const int category = u_charType(unit);
    if (IsMark(category)) return "combining marks";
    if (category == U_CONTROL_CHAR || category == U_FORMAT_CHAR) return "controls";
    if (category == U_OTHER_NUMBER || category == U_LETTER_NUMBER) return "numbers that are no digits";
    const unsigned short order = Record(unit).order;
    if (order >= 0x4000 && IsMarkAmongLetters(unit)) return "marks that are letters";
    if (order < 80) return "spaces";
    if (unit == 0xFFFD) return "the replacement character";
    if (order < 16128 && (IsMadeOfLetters(unit) || IsWord(unit))) return "symbols made of letters";
    return {};
}

std::string Reason(char16_t a, char16_t b) {
    const bool letterA = Record(a).order >= 0x4000;
    const bool letterB = Record(b).order >= 0x4000;
    const bool sameClass = Record(a).orderClass == Record(b).orderClass;
    if (letterA && letterB && !sameClass) return "scripts";
    for (const char16_t unit : {a, b}) {
        if (std::string reason = Peculiarity(unit); !reason.empty()) return reason;
    }
    if (sameClass && Record(a).orderClass == KyClassHan) return "Han characters";
    if (letterA && letterB) return "rare letters";
    if (u_isdigit(a) && u_isdigit(b)) return "digits of two scripts";
    return {};
}

TEST(PlanePeer, DisagreesOnlyWhereItIsExplained) {
    const peer::Collator collator("root");
    const std::u16string characters = AssignedCharacters();
    std::mt19937_64 random(20240507);
    peer::Tally tally;
    std::map<std::string, unsigned long> explained;
    for (unsigned i = 0; i < kPairs; ++i) {
        const std::u16string a(1, characters[random() % characters.size()]);
        const std::u16string b(1, characters[random() % characters.size()]);
        const int here = peer::Sign(CompareUnicode(KyLanguageNeutral, a, b, kLettersOnly));
        const int there = collator.Compare(a, b);
        tally.Add(here, there);
        if (here == there) continue;
        const std::string reason = Reason(a.front(), b.front());
        EXPECT_NE(reason, "") << peer::Utf8(a) << " | " << peer::Utf8(b);
        ++explained[reason];
    }
    std::printf("%lu pairs, %.2f %%\n", tally.pairs, tally.Agreement());
    for (const auto& [reason, count] : explained) std::printf("    %6lu %s\n", count, reason.c_str());
}

}  // namespace
