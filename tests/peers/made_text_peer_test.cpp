// KyStrCmp without case and accents beside the peer's collators at their first level, over texts made of all characters
// of a code set. They agree about every pair but those that hold what one of the classes of disagreement names.

#include <gtest/gtest.h>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "peers/peer_collator.h"
#include "peers/peer_languages.h"
#include "support/fewer_cases.h"
#include "support/languages.h"

namespace {

constexpr unsigned short kLettersOnly = 0x10 | 0x20 | 0x40;
constexpr unsigned kPairs = 300000 / kFewerCases;

/// Small letters and their marks one after the other.
std::u16string Decomposed(const std::u16string& text) {
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2* form = unorm2_getNFDInstance(&status);
    std::u16string result(4 * text.size() + 4, u'\0');
    const int length = unorm2_normalize(form, text.data(), static_cast<int>(text.size()), result.data(),
                                        static_cast<int>(result.size()), &status);
    if (U_FAILURE(status)) throw std::runtime_error(u_errorName(status));
    result.resize(static_cast<std::size_t>(length));
    for (char16_t& unit : result) unit = static_cast<char16_t>(u_tolower(unit));
    return result;
}

bool HasOneOf(const std::u16string& text, std::u16string_view characters) {
    return text.find_first_of(characters) != text.npos;
}

bool HasCategory(const std::u16string& text, int category) {
    return std::any_of(text.begin(), text.end(), [&](char16_t unit) { return u_charType(unit) == category; });
}

/// A contraction whose last letter carries a mark, which makes it another letter here.
bool HasMarkedContraction(const std::u16string& text, const char* contractions) {
    const std::u16string decomposed = Decomposed(text);
    std::istringstream pieces(contractions);
    for (std::string piece; pieces >> piece;) {
        const std::u16string plain = Decomposed(piece == "dž" ? u"dž" : std::u16string(piece.begin(), piece.end()));
        for (std::size_t at = decomposed.find(plain); at != decomposed.npos; at = decomposed.find(plain, at + 1)) {
            const std::size_t behind = at + plain.size();
            if (behind < decomposed.size() && u_charType(decomposed[behind]) == U_NON_SPACING_MARK) return true;
        }
    }
    return false;
}

/// The peer puts the script of these languages before Latin.
bool HasTwoScripts(const std::string& tag, const std::u16string& texts) {
    if (tag != "el" && tag != "ru" && tag != "uk") return false;
    std::set<unsigned> classes;
    for (const char16_t unit : texts) {
        const KyCharProps* record = KyLanguageContext::QueryCodeSet(KyCodeSetUnicode)->GetProperty(unit);
        if (record->order >= 0x4000) classes.insert(record->orderClass);
    }
    return classes.size() > 1;
}

/// Why the orders may disagree about a text; empty: they may not.
std::string Disagreement(const peer::Language& language, const std::u16string& text) {
    const std::string tag = language.tag;
    if (HasCategory(text, U_OTHER_NUMBER)) return "numbers that are no digits";
    if (HasOneOf(text, u"\u00A0")) return "spaces that do not break";
    if (HasCategory(text, U_MODIFIER_LETTER)) return "marks that are letters";
    if (HasOneOf(text, u"\u2122\u2116")) return "symbols made of letters";
    if (tag != "ca" && (text.find(u"l·") != text.npos || text.find(u"L·") != text.npos)) return "l and a point";
    if (HasMarkedContraction(text, language.contractions)) return "marks on contractions";
    if (tag == "tr" && HasOneOf(text, u"ÌÍÎÏ")) return "Turkish I with an accent";
    if (tag == "is" && HasOneOf(text, u"Åå")) return "Icelandic å";
    if (tag == "fi" && HasOneOf(text, u"Þþ")) return "Finnish þ";
    return {};
}

/// All characters of the code set but controls, letters more often than others.
std::u16string CharactersOf(const KyCodeSet& codeSet) {
    std::u16string result;
    for (unsigned short byte = 0x20; byte < 0x100; ++byte) {
        const auto unit = static_cast<char16_t>(codeSet.ToUnicode(byte));
        if (unit == 0 || u_iscntrl(unit) || u_charType(unit) == U_FORMAT_CHAR) continue;
        result.append(u_isalpha(unit) ? 3 : 1, unit);
    }
    return result;
}

class MadeTextPeer : public testing::TestWithParam<peer::Language> {};

TEST_P(MadeTextPeer, DisagreesOnlyWhereItIsExplained) {
    const peer::Language& peerLanguage = GetParam();
    if (peerLanguage.codeSet == nullptr) return;
    const KyLanguage* language = LanguageOf(peerLanguage.tag);
    const KyCodeSet* codeSet = CodeSetOf(peerLanguage.codeSet);
    ASSERT_NE(language, nullptr);
    ASSERT_NE(codeSet, nullptr);
    const peer::Collator collator(peerLanguage.locale);
    const std::u16string characters = CharactersOf(*codeSet);
    std::mt19937_64 random(20240507);
    const auto append = [&](std::u16string& text, std::size_t least, std::size_t most) {
        for (std::size_t i = least + random() % (most - least + 1); i != 0; --i) {
            text.push_back(characters[random() % characters.size()]);
        }
    };

    peer::Tally tally;
    unsigned long plain = 0;
    std::map<std::string, unsigned long> explained;
    for (unsigned i = 0; i < kPairs; ++i) {
        std::u16string a;
        append(a, 0, 3);
        std::u16string b = a;
        append(a, 0, 3);
        append(b, 1, 3);
        const int here = peer::Sign(CompareUnicode(language->Code(), a, b, kLettersOnly));
        const int there = collator.Compare(a, b);
        tally.Add(here, there);
        std::string reason = Disagreement(peerLanguage, a);
        if (reason.empty()) reason = Disagreement(peerLanguage, b);
        if (reason.empty() && HasTwoScripts(peerLanguage.tag, a + b)) reason = "scripts";
        if (reason.empty()) {
            ++plain;
            EXPECT_EQ(here, there) << peer::Utf8(a) << " | " << peer::Utf8(b);
        } else if (here != there) {
            ++explained[reason];
        }
    }
    std::printf("%-12s %s: %lu pairs, %.4f %%\n", peerLanguage.tag, codeSet->Name(), tally.pairs, tally.Agreement());
    for (const auto& [reason, count] : explained) std::printf("    %6lu %s\n", count, reason.c_str());
    EXPECT_GT(plain, kPairs / 6);
}

INSTANTIATE_TEST_SUITE_P(Languages, MadeTextPeer, testing::ValuesIn(peer::kLanguages),
                         [](const auto& instance) { return TestName(instance.param.tag); });

}  // namespace
