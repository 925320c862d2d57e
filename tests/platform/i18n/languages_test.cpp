#include "support/languages.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <map>
#include <ostream>
#include <set>
#include <vector>

#include "kychar.h"

namespace {

constexpr unsigned short kExact = 0x100;
constexpr unsigned short kIgnoreCase = 0x10 | 0x20;
constexpr unsigned short kIgnoreAccents = 0x10 | 0x40;
constexpr unsigned short kLettersOnly = 0x10 | 0x20 | 0x40;

/// A language's letters in their order, those of several characters among them.
struct Alphabet {
    const char* tag;
    const char* codeSet;  ///< 8-bit code set that has them all; null: none has
    const char16_t* letters;
    const char16_t* capitals;  ///< null: by the case mapping

    friend void PrintTo(const Alphabet& alphabet, std::ostream* out) { *out << alphabet.tag; }
};

constexpr const char16_t* kPlainLetters = u"a b c d e f g h i j k l m n o p q r s t u v w x y z";

const Alphabet kAlphabets[] = {
    {"neutral", "US-ASCII", kPlainLetters, nullptr},
    {"en", "US-ASCII", kPlainLetters, nullptr},
    {"de", "ISO-8859-1", kPlainLetters, nullptr},
    {"fr", "ISO-8859-1", kPlainLetters, nullptr},
    {"es", "ISO-8859-1", u"a b c ch d e f g h i j k l ll m n ñ o p q r s t u v w x y z", nullptr},
    {"es-modern", "ISO-8859-1", u"a b c d e f g h i j k l m n ñ o p q r s t u v w x y z", nullptr},
    {"da", "ISO-8859-1", u"a b c d e f g h i j k l m n o p q r s t u v w x y z æ ø å", nullptr},
    {"no", "ISO-8859-1", u"a b c d e f g h i j k l m n o p q r s t u v w x y z æ ø å", nullptr},
    {"sv", "ISO-8859-1", u"a b c d e f g h i j k l m n o p q r s t u v w x y z å ä ö", nullptr},
    {"fi", "ISO-8859-1", u"a b c d e f g h i j k l m n o p q r s t u v w x y z å ä ö", nullptr},
    {"cs", "ISO-8859-2", u"a b c č d e f g h ch i j k l m n o p q r ř s š t u v w x y z ž", nullptr},
    {"pl", "ISO-8859-2", u"a ą b c ć d e ę f g h i j k l ł m n ń o ó p q r s ś t u v w x y z ź ż", nullptr},
    {"hu", "ISO-8859-2", u"a b c cs d dz dzs e f g gy h i j k l ly m n ny o ö p q r s sz t ty u ü v w x y z zs",
     nullptr},
    {"tr", "ISO-8859-9", u"a b c ç d e f g ğ h ı i j k l m n o ö p q r s ş t u ü v w x y z",
     u"A B C Ç D E F G Ğ H I İ J K L M N O Ö P Q R S Ş T U Ü V W X Y Z"},
    {"de-phonebook", "ISO-8859-1", kPlainLetters, nullptr},
    {"it", "US-ASCII", kPlainLetters, nullptr},
    {"pt", "US-ASCII", kPlainLetters, nullptr},
    {"nl", "US-ASCII", kPlainLetters, nullptr},
    {"sk", "ISO-8859-2", u"a ä b c č d e f g h ch i j k l m n o ô p q r ř s š t u v w x y z ž", nullptr},
    {"sl", "ISO-8859-2", u"a b c č ć d đ e f g h i j k l m n o p q r s š t u v w x y z ž", nullptr},
    {"hr", "ISO-8859-2", u"a b c č ć d dž đ e f g h i j k l lj m n nj o p q r s š t u v w x y z ž", nullptr},
    {"ro", "ISO-8859-16", u"a ă â b c d e f g h i î j k l m n o p q r s ș t ț u v w x y z", nullptr},
    {"is", "ISO-8859-1", u"a á b c d ð e é f g h i í j k l m n o ó p q r s t u ú v w x y ý z þ æ ö", nullptr},
    {"et", "ISO-8859-15", u"a b c d e f g h i j k l m n o p q r s š z ž t u v w õ ä ö ü x y", nullptr},
    {"lv", "ISO-8859-13", u"a b c č d e f g ģ h i j k ķ l ļ m n ņ o p q r ŗ s š t u v w x z ž", nullptr},
    {"lt", "ISO-8859-13", u"a b c č d e f g h i j k l m n o p q r s š t u v w x z ž", nullptr},
    {"ca", "ISO-8859-1", kPlainLetters, nullptr},
    {"sq", "ISO-8859-1", u"a b c ç d dh e ë f g gj h i j k l ll m n nj o p q r rr s sh t th u v w x xh y z zh",
     nullptr},
    {"vi", nullptr, u"a ă â b c d đ e ê f g h i j k l m n o ô ơ p q r s t u ư v w x y z", nullptr},
    {"el", "ISO-8859-7", u"α β γ δ ε ζ η θ ι κ λ μ ν ξ ο π ρ σ τ υ φ χ ψ ω", nullptr},
    {"ru", "KOI8-R", u"а б в г д е ж з и й к л м н о п р с т у ф х ц ч ш щ ъ ы ь э ю я", nullptr},
    {"uk", "windows-1251", u"а б в г ґ д е є ж з и і ї й к л м н о п р с т у ф х ц ч ш щ ь ю я", nullptr},
};

std::vector<std::u16string> Split(const std::u16string& text) {
    std::vector<std::u16string> pieces(1);
    for (const char16_t unit : text) {
        if (unit == u' ') {
            pieces.emplace_back();
        } else {
            pieces.back().push_back(unit);
        }
    }
    return pieces;
}

std::u16string Join(std::initializer_list<std::u16string_view> pieces) {
    std::u16string text;
    for (const std::u16string_view piece : pieces) text.append(piece);
    return text;
}

std::u16string Capital(std::u16string text) {
    for (char16_t& unit : text) {
        const KyChar c(static_cast<unsigned short>(unit), KyCodeSetUnicode, KyLanguageNeutral);
        unit = static_cast<char16_t>(c.ToUpper(nullptr).CodeGet());
    }
    return text;
}

class LanguageAlphabet : public testing::TestWithParam<Alphabet> {
protected:
    void SetUp() override {
        const Alphabet& alphabet = GetParam();
        const KyLanguage* found = LanguageOf(alphabet.tag);
        ASSERT_NE(found, nullptr);
        language = found->Code();
        letters = Split(alphabet.letters);
        if (alphabet.capitals != nullptr) {
            capitals = Split(alphabet.capitals);
        } else {
            for (const std::u16string& letter : letters) capitals.push_back(Capital(letter));
        }
        ASSERT_EQ(letters.size(), capitals.size());
    }

    unsigned char language = 0;
    std::vector<std::u16string> letters, capitals;
};

TEST_P(LanguageAlphabet, IsInOrder) {
    for (std::size_t i = 0; i < letters.size(); ++i) {
        for (std::size_t j = i + 1; j < letters.size(); ++j) {
            for (const std::u16string* a : {&letters[i], &capitals[i]}) {
                for (const std::u16string* b : {&letters[j], &capitals[j]}) {
                    for (const unsigned short op : {kExact, kIgnoreCase, kIgnoreAccents, kLettersOnly}) {
                        EXPECT_LT(CompareUnicode(language, *a, *b, op), 0) << i << " " << j << " op " << op;
                        EXPECT_GT(CompareUnicode(language, *b, *a, op), 0) << i << " " << j << " op " << op;
                    }
                }
            }
        }
    }
}

TEST_P(LanguageAlphabet, IsInOrderInsideOfTexts) {
    for (std::size_t i = 1; i < letters.size(); ++i) {
        const std::u16string last = Join({u"o", letters[i - 1], u"ww"});
        EXPECT_LT(CompareUnicode(language, last, Join({u"o", letters[i]}), kExact), 0) << i;
        EXPECT_LT(CompareUnicode(language, Join({u"o", letters[i - 1]}), Join({u"o", letters[i], u"a"}), kExact), 0)
            << i;
    }
}

TEST_P(LanguageAlphabet, CapitalsComeFirstAndCountAsTheSameLetter) {
    for (std::size_t i = 0; i < letters.size(); ++i) {
        std::vector<std::u16string> forms{capitals[i]};
        if (letters[i].size() > 1) forms.push_back(Join({capitals[i].substr(0, 1), letters[i].substr(1)}));
        forms.push_back(letters[i]);
        for (std::size_t form = 1; form < forms.size(); ++form) {
            EXPECT_LT(CompareUnicode(language, forms[form - 1], forms[form], kExact), 0) << i;
            EXPECT_EQ(CompareUnicode(language, forms[form - 1], forms[form], kIgnoreCase), 0) << i;
        }
    }
}

TEST_P(LanguageAlphabet, IsTheSameIn8Bits) {
    const Alphabet& alphabet = GetParam();
    if (alphabet.codeSet == nullptr) return;
    const KyCodeSet* codeSet = CodeSetOf(alphabet.codeSet);
    ASSERT_NE(codeSet, nullptr) << alphabet.codeSet;
    std::vector<std::u16string> all = letters;
    all.insert(all.end(), capitals.begin(), capitals.end());
    for (const std::u16string& a : all) {
        for (const std::u16string& b : all) {
            const std::string bytesA = ToCodeSet(*codeSet, a);
            const std::string bytesB = ToCodeSet(*codeSet, b);
            ASSERT_FALSE(bytesA.empty());
            ASSERT_FALSE(bytesB.empty());
            for (const unsigned short op : {kExact, kIgnoreCase, kLettersOnly}) {
                EXPECT_EQ(CompareBytes(*codeSet, language, bytesA, bytesB, op), CompareUnicode(language, a, b, op));
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, LanguageAlphabet, testing::ValuesIn(kAlphabets),
                         [](const auto& instance) { return TestName(instance.param.tag); });

/// Where two texts part.
enum Difference {
    inLetters,
    inLettersOnly,  ///< as a whole they are the other way round: an accent stands before the letters that differ
    inCase,         ///< not in letters or accents
    inAccents       ///< not in letters or case
};

struct Step {
    const char* tag;
    const char16_t* before;
    Difference difference;
    const char16_t* after;
};

const Step kSteps[] = {
    // Letters of several characters: whole, at the end, half.
    {"es", u"cz", inLetters, u"ch"},
    {"es", u"ac", inLetters, u"ach"},
    {"es", u"acz", inLetters, u"ach"},
    {"es", u"ach", inLetters, u"acha"},
    {"es", u"ach", inLetters, u"ad"},
    {"es", u"luz", inLetters, u"llama"},
    {"es", u"cll", inLetters, u"ch"},
    {"es", u"ll", inLetters, u"lll"},
    {"es", u"CHA", inCase, u"Cha"},
    {"es", u"Cha", inCase, u"cha"},
    {"es", u"nz", inLetters, u"ña"},
    {"es-modern", u"ch", inLetters, u"cz"},
    {"es-modern", u"nz", inLetters, u"ña"},
    {"neutral", u"n", inAccents, u"ñ"},
    {"cs", u"hz", inLetters, u"cha"},
    {"cs", u"ch", inLetters, u"i"},
    {"cs", u"c", inLetters, u"ci"},
    {"cs", u"ci", inLetters, u"čh"},
    {"cs", u"a", inAccents, u"á"},
    {"cs", u"CH", inCase, u"Ch"},
    {"cs", u"ch", inCase, u"cH"},
    {"hu", u"cz", inLetters, u"csa"},
    {"hu", u"dz", inLetters, u"dza"},
    {"hu", u"dzz", inLetters, u"dzs"},
    {"hu", u"dzs", inLetters, u"dzsa"},
    {"hu", u"cscs", inAccents, u"ccs"},
    {"hu", u"dzsdzs", inAccents, u"ddzs"},
    {"hu", u"kastély", inLetters, u"kasza"},
    {"hu", u"kasza", inLetters, u"kasszony"},
    {"hu", u"csc", inLetters, u"ccs"},
    {"hu", u"dd", inLetters, u"ddz"},
    {"hu", u"o", inAccents, u"ó"},
    {"hu", u"ö", inAccents, u"ő"},
    {"ca", u"parallel", inAccents, u"paral·lel"},
    {"ca", u"paral·lel", inLettersOnly, u"parallels"},
    {"hr", u"dž", inAccents, u"ǆ"},
    {"hr", u"dz", inLetters, u"dž"},
    {"sq", u"rz", inLetters, u"rra"},
    // Further ways to write a letter.
    {"da", u"å", inAccents, u"aa"},
    {"da", u"ø", inAccents, u"ö"},
    {"da", u"æ", inAccents, u"ä"},
    {"da", u"zaa", inLetters, u"æ"},
    {"da", u"ø", inLetters, u"aab"},
    {"da", u"y", inAccents, u"ü"},
    {"no", u"å", inAccents, u"aa"},
    {"sv", u"ä", inAccents, u"æ"},
    {"sv", u"ö", inAccents, u"ø"},
    {"fi", u"y", inAccents, u"ü"},
    {"is", u"æ", inAccents, u"ä"},
    {"ro", u"ș", inAccents, u"ş"},
    {"lv", u"i", inAccents, u"y"},
    {"lt", u"y", inLetters, u"j"},
    {"lt", u"a", inAccents, u"ą"},
    {"et", u"w", inAccents, u"ŵ"},
    {"et", u"z", inAccents, u"ź"},
    {"vi", u"ă", inAccents, u"ằ"},
    {"vi", u"â", inAccents, u"ấ"},
    {"vi", u"ằ", inLetters, u"â"},
    {"ru", u"е", inAccents, u"ё"},
    // Expansions.
    {"de", u"strasse", inAccents, u"straße"},
    {"de", u"straße", inLettersOnly, u"strassen"},
    {"de", u"aa", inLetters, u"äb"},
    {"de", u"a", inAccents, u"ä"},
    {"de-phonebook", u"ae", inAccents, u"ä"},
    {"de-phonebook", u"ad", inLetters, u"ä"},
    {"de-phonebook", u"ä", inLettersOnly, u"af"},
    {"de-phonebook", u"AE", inAccents, u"Ä"},
    {"de-phonebook", u"Goethe", inAccents, u"Göthe"},
    {"de-phonebook", u"Göthe", inLettersOnly, u"Gof"},
    {"fr", u"oeuvre", inAccents, u"œuvre"},
    {"fr", u"ae", inAccents, u"æ"},
    {"da", u"th", inAccents, u"þ"},
    // Turkish I belongs to ı.
    {"tr", u"I", inCase, u"ı"},
    {"tr", u"İ", inCase, u"i"},
    {"tr", u"hz", inLetters, u"I"},
    {"tr", u"ız", inLetters, u"İa"},
    {"neutral", u"I", inCase, u"i"},
};

TEST(Languages, TextsPartWhereTheyShould) {
    for (const Step& step : kSteps) {
        const KyLanguage* language = LanguageOf(step.tag);
        ASSERT_NE(language, nullptr) << step.tag;
        const std::u16string before = step.before;
        const std::u16string after = step.after;
        const auto compare = [&](const std::u16string& a, const std::u16string& b, unsigned short op) {
            const int result = CompareUnicode(language->Code(), a, b, op);
            return (result > 0) - (result < 0);
        };
        std::string name = step.tag;
        name.append(", step ").append(std::to_string(&step - kSteps));
        const int whole = step.difference == inLettersOnly ? 1 : -1;
        EXPECT_EQ(compare(before, after, kExact), whole) << name;
        EXPECT_EQ(compare(after, before, kExact), -whole) << name;
        const int letters = step.difference == inLetters || step.difference == inLettersOnly ? -1 : 0;
        EXPECT_EQ(compare(before, after, kLettersOnly), letters) << name;
        EXPECT_EQ(compare(after, before, kLettersOnly), -letters) << name;
        if (step.difference == inCase) {
            EXPECT_EQ(compare(before, after, kIgnoreCase), 0) << name;
        }
        if (step.difference == inAccents) {
            EXPECT_EQ(compare(before, after, kIgnoreAccents), 0) << name;
        }
    }
}

TEST(Languages, ContractionIsOneOrder) {
    const unsigned char spanish = LanguageOf("es")->Code();
    const auto orders = [](unsigned char language, const char16_t* text) {
        KyStringIterator it(reinterpret_cast<const char*>(text), KyCodeSetUnicode, language, 1);
        unsigned count = 0;
        while (it.GetNextOrder(1) != 0) ++count;
        return count;
    };
    EXPECT_EQ(orders(spanish, u"chico"), 4u);
    EXPECT_EQ(orders(spanish, u"cico"), 4u);
    EXPECT_EQ(orders(spanish, u"bach"), 3u);
    EXPECT_EQ(orders(spanish, u"bac"), 3u);
    EXPECT_EQ(orders(spanish, u"llll"), 2u);
    EXPECT_EQ(orders(KyLanguageNeutral, u"chico"), 5u);
    const unsigned char hungarian = LanguageOf("hu")->Code();
    EXPECT_EQ(orders(hungarian, u"dzs"), 1u);
    EXPECT_EQ(orders(hungarian, u"ddzs"), 2u);
    EXPECT_EQ(orders(hungarian, u"ddz"), 2u);
    EXPECT_EQ(orders(hungarian, u"dd"), 2u);
}

std::vector<const KyLanguage*> AllLanguages() {
    std::vector<const KyLanguage*> result;
    for (unsigned number = 0; number < KyLanguageNull; ++number) {
        const KyLanguage* language = KyLanguageContext::QueryLanguage(static_cast<unsigned char>(number));
        if (language != nullptr) result.push_back(language);
    }
    return result;
}

TEST(Languages, EachHasItsAlphabetHere) {
    std::set<std::string> tags;
    for (const Alphabet& alphabet : kAlphabets) tags.insert(alphabet.tag);
    EXPECT_EQ(tags.size(), std::size(kAlphabets));
    for (const KyLanguage* language : AllLanguages()) {
        EXPECT_TRUE(tags.contains(language->Tag())) << language->Tag();
        EXPECT_NE(std::string(language->Name()), "") << language->Tag();
    }
    EXPECT_EQ(AllLanguages().size(), tags.size());
}

TEST(Languages, CaseAndKindDependOnNone) {
    for (const KyLanguage* language : AllLanguages()) {
        for (unsigned code = 1; code < 0x10000; ++code) {
            const KyChar here(static_cast<unsigned short>(code), KyCodeSetUnicode, language->Code());
            const KyChar neutral(static_cast<unsigned short>(code), KyCodeSetUnicode, KyLanguageNeutral);
            ASSERT_EQ(here.ToUpper(nullptr).CodeGet(), neutral.ToUpper(nullptr).CodeGet()) << language->Tag() << code;
            ASSERT_EQ(here.ToLower(nullptr).CodeGet(), neutral.ToLower(nullptr).CodeGet()) << language->Tag() << code;
            ASSERT_EQ(here.GetOrder(), neutral.GetOrder()) << language->Tag() << code;
        }
    }
}

TEST(Languages, LettersStayLettersOfTheirScript) {
    for (const KyLanguage* language : AllLanguages()) {
        for (unsigned code = 1; code < 0x10000; ++code) {
            const char16_t text[2] = {static_cast<char16_t>(code), 0};
            KyStringIterator here(reinterpret_cast<const char*>(text), KyCodeSetUnicode, language->Code(), 1);
            KyStringIterator neutral(reinterpret_cast<const char*>(text), KyCodeSetUnicode, KyLanguageNeutral, 1);
            const unsigned short order = here.GetNextOrder(1);
            const unsigned short neutralOrder = neutral.GetNextOrder(1);
            ASSERT_EQ(here.OrderClass(), neutral.OrderClass()) << language->Tag() << " " << code;
            if (order == neutralOrder) continue;
            ASSERT_TRUE(order >= 0x4000 && order < 0x8000) << language->Tag() << " " << code;
            ASSERT_TRUE(neutralOrder >= 0x4000 && neutralOrder < 0x8000) << language->Tag() << " " << code;
        }
    }
}

/// Characters and contractions with the same orders and classes, each group by its least member.
std::set<std::u16string> Doubles(unsigned char language, const std::vector<std::u16string>& contractions) {
    std::map<std::vector<unsigned>, std::u16string> known;
    std::set<std::u16string> doubles;
    std::vector<std::u16string> texts;
    for (unsigned code = 1; code < 0x10000; ++code) texts.emplace_back(1, static_cast<char16_t>(code));
    texts.insert(texts.end(), contractions.begin(), contractions.end());
    for (const std::u16string& text : texts) {
        KyStringIterator it(reinterpret_cast<const char*>(text.c_str()), KyCodeSetUnicode, language, 1);
        std::vector<unsigned> keys;
        while (const unsigned short order = it.GetNextOrder(1)) keys.push_back(unsigned{it.OrderClass()} << 16 | order);
        if (!known.try_emplace(keys, text).second) doubles.insert(text);
    }
    return doubles;
}

TEST(Languages, NoneMakesDifferentCharactersEqual) {
    const std::set<std::u16string> neutral = Doubles(KyLanguageNeutral, {});
    for (const Alphabet& alphabet : kAlphabets) {
        std::vector<std::u16string> contractions;
        for (const std::u16string& letter : Split(alphabet.letters)) {
            if (letter.size() > 1) contractions.push_back(letter);
        }
        for (const std::u16string& text : Doubles(LanguageOf(alphabet.tag)->Code(), contractions)) {
            EXPECT_TRUE(neutral.contains(text)) << alphabet.tag << " " << std::hex << unsigned{text.front()};
        }
    }
}

}  // namespace
