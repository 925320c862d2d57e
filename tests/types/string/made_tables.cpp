#include "made_tables.h"

#include "kyi18n.h"

namespace {

constexpr unsigned short kH[] = {'h'};
constexpr unsigned short kHs[] = {'h', 's'};
constexpr unsigned short kZ[] = {'z'};
constexpr unsigned short kL[] = {'l'};
constexpr unsigned short kOrderS[] = {Letter('s')};
constexpr unsigned short kOrdersOfDz[] = {Letter('d'), Letter('z')};
constexpr unsigned short kCapitals[] = {'K', 'S'};

constexpr KyCharProps kCh{.order = Letter('c', true, 1)};
constexpr KyCharProps kChs{.order = Letter('c', true, 2)};
constexpr KyCharProps kCzz{.order = Letter('c', true, 3), .orderClass = 2};
constexpr KyContraction kAfterCz[] = {{{1, kZ}, &kCzz}};
constexpr KyCharRules kCzRules{.contractions = kAfterCz};
constexpr KyCharProps kCz{.order = Letter('c', true, 3), .rules = &kCzRules};
constexpr KyContraction kAfterC[] = {{{2, kHs}, &kChs}, {{1, kH}, &kCh}, {{1, kZ}, &kCz}};
constexpr KyCharRules kCRules{.contractions = kAfterC};

constexpr KyCharRules kDzRules{.orderExpansion = {2, kOrdersOfDz}};
constexpr KyCharProps kDz{.order = Letter('d', true, 1), .orderClass = 3, .rules = &kDzRules};
constexpr KyContraction kAfterD[] = {{{1, kZ}, &kDz}};
constexpr KyCharRules kDRules{.contractions = kAfterD};

constexpr KyCharProps kLl{.order = Letter('l', true, 1)};
constexpr KyContraction kAfterL[] = {{{1, kL}, &kLl}};
constexpr KyCharRules kLVariantRules{.contractions = kAfterL};
constexpr KyCharProps kLVariant{.order = Letter('l'), .upper = 'L', .rules = &kLVariantRules};
constexpr KyLanguageVariant kLVariants[] = {{5, &kLVariant}};
constexpr KyCharRules kLRules{.variants = kLVariants};

constexpr KyCharProps kIVariant{.order = Letter('i', true, 1), .upper = 0x130};
constexpr KyLanguageVariant kIVariants[] = {{5, &kIVariant}};
constexpr KyCharRules kIRules{.variants = kIVariants};

constexpr KyCharRules kXRules{.upperExpansion = {2, kCapitals}, .orderExpansion = {1, kOrderS}};

constexpr unsigned short kAfterLetter[] = {kSymbol, Letter('q'), kDigit, 0x8000};
constexpr unsigned short kAfterSymbol[] = {Letter('a'), kDigit};
constexpr KyCharRules kMixedLetterRules{.orderExpansion = {4, kAfterLetter}};
constexpr KyCharRules kMixedSymbolRules{.orderExpansion = {2, kAfterSymbol}};

constexpr KyPropertyPage kPage = [] {
    KyPropertyPage page{};
    const auto record = [&](char c) -> KyCharProps& { return page.records[static_cast<unsigned char>(c)]; };
    for (char c = 'a'; c <= 'z'; ++c) {
        const auto lower = static_cast<unsigned char>(c);
        const auto upper = static_cast<unsigned char>(c - 32);
        page.records[lower] = {.order = Letter(c), .upper = upper};
        page.records[upper] = {.order = Letter(c, false), .lower = lower};
    }
    record('*').order = 100;
    record('?').order = 101;
    record('\\').order = 102;
    record('c').rules = &kCRules;
    record('d').rules = &kDRules;
    record('l').rules = &kLRules;
    record('i').rules = &kIRules;
    record('x') = {.order = Letter('k'), .upper = 'E', .orderClass = 1, .rules = &kXRules};
    record(kMixedLetter) = {.order = Letter('y'), .orderClass = 5, .rules = &kMixedLetterRules};
    record(kMixedSymbol) = {.order = 300, .orderClass = KyClassCommon, .rules = &kMixedSymbolRules};
    page.records[0xE1] = {.order = Letter('a'), .orderClass = 1};
    return page;
}();

constexpr const KyPropertyPage* kPages[] = {&kPage};
constexpr const KyPropertyPage* kUnicodePages[256] = {&kPage};

struct ShiftedMap {
    unsigned short toUnicode[256]{};
    unsigned char pageOf[256]{};
    unsigned char pages[2][256]{};
    constexpr explicit ShiftedMap(unsigned shift, char missing) {
        pageOf[0] = 1;
        for (unsigned c = 1; c < 0x80; ++c) {
            if (c == static_cast<unsigned char>(missing)) continue;
            toUnicode[c + shift] = static_cast<unsigned short>(c);
            pages[1][c] = static_cast<unsigned char>(c + shift);
        }
    }
    constexpr KyUnicodeMap Back() const { return {pageOf, pages}; }
};

constexpr ShiftedMap kShifted(0x80, '\0');
constexpr KyUnicodeMap kShiftedBack = kShifted.Back();
constexpr ShiftedMap kWithoutQ(0, 'q');
constexpr KyUnicodeMap kWithoutQBack = kWithoutQ.Back();

constinit const KyCodeSet tabled(kTabled, KyCodeSet::identity, kPages);
constinit const KyCodeSet unicode(KyCodeSetUnicode, KyCodeSet::identity, kUnicodePages);
constinit const KyCodeSet tableless(kTableless, KyCodeSet::byTable, nullptr, kShifted.toUnicode, &kShiftedBack);
constinit const KyCodeSet ownCodes(kOwnCodes, KyCodeSet::byTable, kPages, kShifted.toUnicode, &kShiftedBack);
constinit const KyCodeSet narrow(kNarrow, KyCodeSet::byTable, nullptr, kWithoutQ.toUnicode, &kWithoutQBack);

constexpr unsigned char kRanks[128] = {4, 2, 3, 1};
constinit const KyLanguage neutral(0);
constinit const KyLanguage variantLanguage(kVariantLanguage, 5);
constinit const KyLanguage rankingLanguage(kRankingLanguage, 0, kRanks);

}  // namespace

const KyCodeSet* KyLanguageContext::QueryCodeSet(unsigned char codeSet) {
    switch (codeSet) {
        case kTableless:
            return &tableless;
        case kNarrow:
            return &narrow;
        case kOwnCodes:
            return &ownCodes;
        case KyCodeSetUnicode:
            return &unicode;
        default:
            return &tabled;
    }
}

const KyLanguage* KyLanguageContext::QueryLanguage(unsigned char language) {
    switch (language) {
        case kVariantLanguage:
            return &variantLanguage;
        case kRankingLanguage:
            return &rankingLanguage;
        case 99:
            return nullptr;
        default:
            return &neutral;
    }
}
