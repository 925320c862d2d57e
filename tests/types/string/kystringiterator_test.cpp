#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "kychar.h"
#include "kyi18n.h"
#include "kystring.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

namespace {

std::vector<unsigned> Codes(KyStringIterator& it) {
    std::vector<unsigned> codes;
    for (; !it.IsEOS(); ++it) codes.push_back((*it).CodeGet());
    return codes;
}

std::vector<unsigned> Orders(KyStringIterator& it, unsigned short withClass = 0) {
    std::vector<unsigned> orders;
    while (const unsigned short order = it.GetNextOrder(withClass)) orders.push_back(order);
    return orders;
}

TEST(Iterator, WalksCharacters) {
    KyStringIterator narrow("a\xE4", 1, 0, 1);
    EXPECT_EQ(Codes(narrow), (std::vector<unsigned>{'a', 0xE4}));
    EXPECT_TRUE(narrow.IsEOS());
    unsigned short text[] = {'a', 0x4E00, 0};
    KyStringIterator wide(text, 253, 0, 1);
    EXPECT_EQ(Codes(wide), (std::vector<unsigned>{'a', 0x4E00}));
    KyStringIterator swapped("\0a\x4E\0\0", 253, 0, 2);
    EXPECT_EQ(Codes(swapped), (std::vector<unsigned>{'a', 0x4E00}));
    KyStringIterator none(static_cast<const char*>(nullptr), 1, 0, 1);
    EXPECT_TRUE(none.IsEOS());
    EXPECT_EQ(none.GetNextOrder(1), 0);
    EXPECT_EQ(none.GetNextOrder(1), 0) << "stays at the end";
}

TEST(Iterator, TakesDefaults) {
    KyStringIterator narrow("a", 255, 255, 255);
    EXPECT_EQ(narrow.CodeSetGet(), KyLanguageContext::GetDefault8CodeSet());
    unsigned short text[] = {'a', 0};
    KyStringIterator wide(text, 255, 255, 255);
    EXPECT_EQ(wide.CodeSetGet(), KyLanguageContext::GetDefault16CodeSet());
    EXPECT_EQ((*wide).CodeGet(), 'a');
}

TEST(Iterator, StepsBothWays) {
    const char* text = "abc";
    KyStringIterator it(text, 1, 0, 1);
    ++it;
    it.Step(1);
    EXPECT_EQ((*it).CodeGet(), 'c');
    --it;
    EXPECT_EQ((*it).CodeGet(), 'b');
    it.Step(0);
    EXPECT_EQ((*it).CodeGet(), 'a');
    EXPECT_EQ(it.Position(), text);
}

TEST(Iterator, SteppingBackDropsTheOverflowList) {
    const unsigned short items[] = {'x', 'y'};
    const KyWCharList list{2, items};
    KyStringIterator it("abc", 1, 0, 1);
    ++it;
    it.SetOverflow(&list, 255);
    --it;
    EXPECT_EQ((*it).CodeGet(), 'a');
    ++it;
    EXPECT_EQ((*it).CodeGet(), 'b');
}

TEST(Iterator, OwnsTheCopyOfOneCharacter) {
    KyStringIterator it(KyChar(static_cast<unsigned short>(0x4E00), 253, 0));
    EXPECT_EQ((*it).CodeGet(), 0x4E00);
    ++it;
    EXPECT_TRUE(it.IsEOS());
    it.Destroy();
    EXPECT_TRUE(it.IsEOS()) << "nothing is read of the freed buffer";
    it.Destroy();
    KyStringIterator unread(KyChar('a', 1, 0));
    EXPECT_EQ((*unread).CodeGet(), 'a');
}

TEST(Iterator, OverAString) {
    KyString s("ab");
    KyStringIterator it(s);
    EXPECT_EQ(it.Position(), s.StrGet());
    EXPECT_EQ(Codes(it), (std::vector<unsigned>{'a', 'b'}));
}

TEST(Iterator, YieldsTheOverflowListFirst) {
    const unsigned short items[] = {'x', 'y'};
    const KyWCharList list{2, items};
    KyStringIterator it("abc", 1, 0, 1);
    it.SetOverflow(&list, 253);
    EXPECT_FALSE(it.IsEOS());
    const KyChar first = *it;
    EXPECT_EQ(first.CodeGet(), 'x');
    EXPECT_EQ(first.CodeSetGet(), 253) << "the list's code set";
    ++it;
    EXPECT_EQ((*it).CodeGet(), 'y');
    ++it;
    EXPECT_EQ((*it).CodeGet(), 'b') << "the list continues the character at the position";
    it.SetOverflow(&list, 255);
    EXPECT_EQ((*it).CodeSetGet(), 1);
    const KyWCharList empty{};
    it.SetOverflow(&empty, 255);
    EXPECT_EQ((*it).CodeGet(), 'b');
    it.SetOverflow(nullptr, 255);
    EXPECT_EQ((*it).CodeGet(), 'b');
}

TEST(Iterator, AnOverflowListKeepsTheEndAway) {
    const unsigned short items[] = {'x'};
    const KyWCharList list{1, items};
    KyStringIterator it("a", 1, 0, 1);
    it.SetOverflow(&list, 255);
    EXPECT_EQ(Codes(it), (std::vector<unsigned>{'x'}));
}

TEST(Iterator, TransformsIntoAnother) {
    const auto transform = [](const char* text, KyCharOperation& op) {
        std::vector<char> out(2 * std::strlen(text) + 1, 'z');
        KyStringIterator src(text, 1, 0, 1);
        KyStringIterator dst(out.data(), 1, 0, 1);
        src.Transform(dst, op);
        return std::string(static_cast<const char*>(out.data()), dst.Position());
    };
    KyCharToUpper upper;
    KyCharToLower lower;
    EXPECT_EQ(transform("aBc1\xE4", upper), "ABC1\xC4");
    EXPECT_EQ(transform("aBc1\xC4", lower), "abc1\xE4");
    EXPECT_EQ(transform("stra\xDF"
                        "e\xDF",
                        upper),
              "STRASSESS");
    EXPECT_EQ(transform("", upper), "");
}

TEST(Iterator, TransformsBetweenCodeSets) {
    KyCharToUpper upper;
    char out[] = "zzzzzzzz";
    KyStringIterator src("\xDF\xFC", 1, 0, 1);
    KyStringIterator dst(out, 253, 0, 2);
    src.Transform(dst, upper);
    EXPECT_EQ(Hex(out, 6), "00 53 00 53 00 DC");
}

TEST(Iterator, YieldsOrders) {
    KyStringIterator it("A b", 1, 0, 1);
    EXPECT_EQ(Orders(it), (std::vector<unsigned>{0x400C, 9, 0x6010}));
    KyStringIterator wide("\0A\x4E\0\0", 253, 0, 2);
    EXPECT_EQ(Orders(wide), (std::vector<unsigned>{0x400C, 0x8002}));
    KyStringIterator windows("A\x80", 2, 0, 1);
    const unsigned euro = KyChar(static_cast<unsigned short>(0x20AC), 253, 0).GetOrder();
    EXPECT_EQ(Orders(windows), (std::vector<unsigned>{0x400C, euro}));
    KyStringIterator native("A", 0, 0, 1);
    EXPECT_EQ(Orders(native), (std::vector<unsigned>{0x400C}));
}

TEST(Iterator, ExpandsInOrderOnly) {
    KyStringIterator orders("\xE6z", 1, 0, 1);
    EXPECT_EQ(Orders(orders, 1), (std::vector<unsigned>{0x6000 | 24 << 7 | 3 << 2, 0x6000 | 7 << 2, 0x6000 | 28 << 2}));
    KyStringIterator characters("\xE6z", 1, 0, 1);
    EXPECT_EQ(Codes(characters), (std::vector<unsigned>{0xE6, 'z'}));
}

TEST(Iterator, ReadsStoredOrdersInTheByteOrderOfTheFormat) {
    for (const unsigned char format : std::initializer_list<unsigned char>{1, 2, 8, 255}) {
        const char* text = format == 2 ? "\x40\x0C\x00\x07\x80\x01\0\0" : "\x0C\x40\x07\x00\x01\x80\0\0";
        KyStringIterator it(text, 254, 0, format);
        EXPECT_EQ(it.GetNextOrder(1), 0x400C);
        EXPECT_EQ(it.OrderClass(), KyClassLatin) << "the class of such orders";
        EXPECT_EQ(it.GetNextOrder(1), 7);
        EXPECT_EQ(it.OrderClass(), KyClassCommon);
        EXPECT_EQ(it.GetNextOrder(1), 0x8001);
        EXPECT_EQ(it.OrderClass(), KyClassHan);
        EXPECT_EQ(it.GetNextOrder(1), 0);
        EXPECT_EQ(it.Position(), text + 6) << "the terminator is not stepped over";
    }
}

TEST(Iterator, StoredOrdersAreReadToTheLastByte) {
    GuardedBuffer memory(4);
    std::memcpy(memory.data(), "\x0C\x40\0\0", 4);
    KyStringIterator it(reinterpret_cast<const char*>(memory.data()), 254, 0, 1);
    EXPECT_EQ(Orders(it), (std::vector<unsigned>{0x400C}));
    EXPECT_EQ(it.GetNextOrder(0), 0) << "the position stays at the end";
}

TEST(Iterator, CodesWithoutARecordHaveNoClass) {
    const struct {
        unsigned short code;
        unsigned char orderClass;
    } cases[] = {{0x0378, 20}, {0x3040, 20}, {0xA48D, 20}, {65519, 20}, {65520, 0}, {0xFFFF, 0}};
    for (const auto& [code, orderClass] : cases) {
        const unsigned short text[] = {code, 0};
        KyStringIterator it(reinterpret_cast<const char*>(text), 253, 0, 1);
        EXPECT_EQ(it.GetNextOrder(1), code);
        EXPECT_EQ(it.OrderClass(), orderClass) << code;
    }
    for (const unsigned short wildcard : {KyString::GetAsterisk(), KyString::GetQuestion(), KyString::GetEscape()}) {
        EXPECT_NE(KyLanguageContext::QueryCodeSet(253)->GetProperty(wildcard), nullptr)
            << "so that no code without a record is taken for it";
    }
}

TEST(Iterator, ClassesComeFromTheRecord) {
    KyStringIterator it("a\xB5", 1, 0, 1);
    it.GetNextOrder(1);
    EXPECT_EQ(it.OrderClass(), KyClassLatin);
    it.GetNextOrder(1);
    EXPECT_EQ(it.OrderClass(), KyClassGreek) << "the micro sign is a mu";
    EXPECT_EQ(it.GetNextOrder(1), 0);
    EXPECT_EQ(it.OrderClass(), KyClassGreek) << "the end has none of its own";
}

TEST(Iterator, Kept_AMarkerIsOfTheClassBeforeIt) {
    const unsigned short text[] = {0xFFFF, 0xB5, 0xFFFF, 0xFFF0, 'a', 0xFFFF, 0};
    KyStringIterator it(reinterpret_cast<const char*>(text), 253, 0, 1);
    std::vector<unsigned> classes;
    while (it.GetNextOrder(1) != 0) classes.push_back(it.OrderClass());
    const unsigned greek = classes[1];
    const unsigned latin = classes[4];
    EXPECT_NE(greek, latin);
    EXPECT_EQ(classes, (std::vector<unsigned>{0, greek, greek, greek, latin, latin}));
}

TEST(Iterator, ACopyReadsOnAloneAndOwnsNothing) {
    KyStringIterator it("\xE6z", 1, 0, 1);
    it.GetNextOrder(1);
    KyStringIterator copy(it);
    const std::vector<unsigned> rest = Orders(it);
    EXPECT_EQ(Orders(copy), rest) << "in the middle of an expansion";
    EXPECT_EQ(rest.size(), 2u);

    KyStringIterator owner(KyChar('a', 1, 0));
    {
        const KyStringIterator start(owner);
        ++owner;
        owner = start;
        EXPECT_EQ((*owner).CodeGet(), 'a') << "back at a remembered place of the text that is owned";
    }
    EXPECT_EQ((*owner).CodeGet(), 'a');
    owner.Destroy();
    owner.Destroy();
}

}  // namespace
