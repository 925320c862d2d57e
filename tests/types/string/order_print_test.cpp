#include "order_print.h"

#include <gtest/gtest.h>

#include "generated_strings.h"
#include "kyorder_names.h"
#include "kystring_slots.h"
#include "string_texts.h"

namespace {

/// The orders of a Latin-1 text, labelled with the code set in which they are to be shown.
KyString OrdersOf(const std::string& latin1, unsigned char language) {
    std::vector<unsigned short> orders;
    for (const char c : latin1) orders.push_back(KyChar(c, KyCodeSetLatin1, 0).GetOrder());
    return StringGenerator::FromCodes(KyCodeSetOrders, language, orders);
}

std::string Printed(KyString value, const char* format) {
    KyString out(KyCodeSetLatin1, 0);
    KyStringTab.PrintToKyString(out, &value, format, 1);
    EXPECT_EQ(out.CodeSetGet(), KyCodeSetLatin1);
    return Text(out);
}

TEST(OrderPrint, Characters) {
    const KyString value = OrdersOf(
        "\xC4"
        "b 7|",
        1);
    EXPECT_EQ(Printed(value, "%1M"), "Ab 7|");
    EXPECT_EQ(Printed(value, "%2M"),
              "\xC4"
              "b 7|");
    EXPECT_EQ(Printed(value, "%s"),
              "\xC4"
              "b 7|");
    EXPECT_EQ(Printed(value, nullptr),
              "\xC4"
              "b 7|");
    EXPECT_EQ(Printed(value, "<%8s>"),
              "<   \xC4"
              "b 7|>");
    EXPECT_EQ(Printed(value, "<%1M> 100%%"), "<Ab 7|> 100%");
}

TEST(OrderPrint, OneByOne) {
    const KyString value = OrdersOf(
        "\xC4"
        "b",
        1);
    const KyString marked = OrdersOf(
        "\xC4"
        "b",
        0x81);
    EXPECT_EQ(Printed(value, "%4M"), "\\\"Ab");
    EXPECT_EQ(Printed(value, "[%4M]"), "[\\\"A][b]");
    EXPECT_EQ(Printed(marked, "[%4M]"), "[\\\"A][b]");
    std::string names;
    for (const char* c : {"\xC4", "b"}) {
        KyString name;
        KyConvertOrderToString(KyChar(*c, KyCodeSetLatin1, 0).GetOrder(), 1, name);
        names.append("<").append(Text(name)).append(">");
    }
    EXPECT_EQ(Printed(value, "<%3M>"), names);
    EXPECT_EQ(Printed(marked, "<%3M>"), names + "<[MIX]>");
}

TEST(OrderPrint, TheFirstDirectiveInTheirOrder) {
    const KyString value = OrdersOf("\xC4", 1);
    EXPECT_EQ(Printed(value, "%2M%1M"), "") << "a second conversion";
    EXPECT_EQ(Printed(value, "%1M%s"), "");
    EXPECT_EQ(Printed(value, "%5M"), "");
    EXPECT_EQ(Printed(value, "%d"), "");
    EXPECT_EQ(Printed(value, "plain"), "plain");
    EXPECT_EQ(Printed(OrdersOf("ab", 1), "x%3M").substr(0, 2), "xl") << "once for each order";
}

TEST(OrderPrint, OrdersWithoutACharacter) {
    const KyString value = StringGenerator::FromCodes(KyCodeSetOrders, 1, {0x600C, 0x8123});
    EXPECT_EQ(Printed(value, "%1M"), "a?");
    EXPECT_EQ(Printed(value, "%4M"), "a?");
}

TEST(OrderPrint, TheCodeSetOfTheOutput) {
    KyString value = OrdersOf("\xC4", 1);
    KyString wide(KyCodeSetUnicode, 3);
    KyStringTab.PrintToKyString(wide, &value, "%2M", 1);
    EXPECT_EQ(Text16(wide), u"\u00C4");
    EXPECT_EQ(wide.LanguageGet(), 3);
    KyString plain(KyCodeSetUnicode, 3);
    KyStringTab.PrintToKyString(plain, &value, "%1M", 1);
    EXPECT_EQ(plain.CodeSetGet(), KyCodeSetLatin1) << "ASCII stays what it is";
    EXPECT_EQ(Text(plain), "A");
    KyString more = Wide(u"x");
    KyStringTab.PrintToKyString(more, &value, "%1M", 1);
    KyStringTab.PrintToKyString(more, &value, "%2M", 1);
    EXPECT_EQ(Text16(more), u"xA\u00C4");
}

TEST(OrderPrint, PiecesAreMappedIntoTheCodeSetOfTheOutput) {
    // The pound sign has no other writing: it is printed as the character that it is.
    KyString value = OrdersOf("\xC4\xA3", 0x81);
    const auto printed = [&](KyString out, const char* format) {
        KyStringTab.PrintToKyString(out, &value, format, 1);
        return out;
    };
    const KyString wide = printed(KyString(KyCodeSetUnicode, 3), "<%4M>");
    EXPECT_EQ(wide.CodeSetGet(), KyCodeSetUnicode);
    EXPECT_EQ(wide.LanguageGet(), 3);
    EXPECT_EQ(Text16(wide), u"<\\\"A><\u00A3>");
    EXPECT_EQ(Text16(printed(KyString(KyCodeSetUnicode, 3), "<%3M>")),
              u"<letter A, upper, with diaeresis><symbol pound sign><[MIX]>");
    EXPECT_EQ(Text16(printed(Wide(u"x\u0416"), "%4M")), u"x\u0416\\\"A\u00A3");
    EXPECT_EQ(Text16(printed(Wide(u"x\u0416"), "%3M")),
              u"x\u0416letter A, upper, with diaeresissymbol pound sign[MIX]");
    // What is around the directive, too.
    EXPECT_EQ(Text16(printed(KyString(KyCodeSetUnicode, 0), "\xA7%4M")), u"\u00A7\\\"A\u00A7\u00A3");
    // An 8-bit code set without the character, and the default one for an output that has none.
    const KyString ascii = printed(KyString(KyCodeSetAscii, 0), "<%4M>");
    EXPECT_EQ(ascii.CodeSetGet(), KyCodeSetAscii);
    KyString unmapped(value.CodeSetGet(), 0);
    unmapped = "<\\\"A><\xA3>";
    unmapped.SetCodeSetCode(KyCodeSetLatin1);
    unmapped.MapToCodeSet(KyCodeSetAscii);
    EXPECT_EQ(Text(ascii), Text(unmapped));
    KyString::SetDefaultCodeSet(KyCodeSetUnicode);
    const KyString none = printed(KyString(KyCodeSetNative, 0), "<%4M>");
    KyString::SetDefaultCodeSet(0);
    EXPECT_EQ(none.CodeSetGet(), KyCodeSetUnicode);
    EXPECT_EQ(Text16(none), u"<\\\"A><\u00A3>");
}

TEST(OrderPrint, NullAndEmpty) {
    EXPECT_EQ(Printed(OrdersOf("", 254), "<%1M>"), "{NULL}");
    KyString empty = OrdersOf("", 1);
    KyString out(KyCodeSetLatin1, 0);
    KyStringTab.PrintToKyString(out, &empty, "<%1M>", 1);
    EXPECT_TRUE(out.IsEmpty());
    EXPECT_EQ(out.CodeSetGet(), KyCodeSetOrders) << "a copy";
}

TEST(OrderPrint, Kept_BytesOfAnyCodeSetAreShownAsThoseOfLatin1) {
    const unsigned short euro = KyChar(static_cast<unsigned short>(0x20AC), KyCodeSetUnicode, 0).GetOrder();
    EXPECT_EQ(Printed(StringGenerator::FromCodes(KyCodeSetOrders, KyCodeSetWindows1252, {euro}), "%2M"), "\x80");
    EXPECT_EQ(Printed(StringGenerator::FromCodes(KyCodeSetOrders, KyCodeSetLatin1, {euro}), "%2M"), "?");
}

TEST(OrderPrint, TheCodeSetInWhichOrdersAreShown) {
    // 0x80 and 0x7F stand for none: that is Latin-1; so does 255.
    for (const unsigned language : {0x80U, 0xFFU, 1U, 0x81U}) {
        EXPECT_EQ(Printed(OrdersOf("\xC4", static_cast<unsigned char>(language)), "%2M"), "\xC4") << language;
    }
}

}  // namespace
