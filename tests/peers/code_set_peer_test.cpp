// The mappings of the 8-bit code sets beside iconv's, in both directions.

#include <gtest/gtest.h>
#include <iconv.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "kyi18n.h"

namespace {

/// One character through iconv; 0: the target does not have it, or the source is no character.
class Converter {
public:
    Converter(const char* to, const char* from) : handle(iconv_open(to, from)) {}
    ~Converter() {
        if (IsOpen()) iconv_close(handle);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool IsOpen() const { return handle != reinterpret_cast<iconv_t>(-1); }

    template <class To, class From>
    To Convert(From character) {
        // What combines with a neighbour is held back until the text ends.
        iconv(handle, nullptr, nullptr, nullptr, nullptr);
        To result[2] = {};
        char* from = reinterpret_cast<char*>(&character);
        std::size_t fromLeft = sizeof character;
        char* to = reinterpret_cast<char*>(result);
        std::size_t toLeft = sizeof result;
        if (iconv(handle, &from, &fromLeft, &to, &toLeft) == static_cast<std::size_t>(-1)) return 0;
        if (iconv(handle, nullptr, nullptr, &to, &toLeft) == static_cast<std::size_t>(-1)) return 0;
        return toLeft == sizeof(To) ? result[0] : To{0};
    }

private:
    iconv_t handle;
};

/// Characters that iconv maps to the byte of a canonically equivalent one; here only the character of a byte maps to
/// it.
struct OneWay {
    const char* codeSet;
    unsigned code;
};
constexpr OneWay kOneWay[] = {{"windows-1258", 0x0340}, {"windows-1258", 0x0341}};

bool IsOneWay(const char* codeSet, unsigned code) {
    return std::any_of(std::begin(kOneWay), std::end(kOneWay),
                       [&](const OneWay& each) { return each.code == code && std::string(each.codeSet) == codeSet; });
}

class CodeSetPeer : public testing::TestWithParam<int> {
protected:
    void SetUp() override {
        codeSet = KyLanguageContext::QueryCodeSet(static_cast<unsigned char>(GetParam()));
        ASSERT_NE(codeSet, nullptr);
    }

    const KyCodeSet* codeSet = nullptr;
};

TEST_P(CodeSetPeer, ToUnicode) {
    Converter decode("UTF-16LE", codeSet->Name());
    ASSERT_TRUE(decode.IsOpen()) << codeSet->Name();
    for (unsigned byte = 1; byte < 0x100; ++byte) {
        const auto expected = decode.Convert<char16_t>(static_cast<unsigned char>(byte));
        EXPECT_EQ(codeSet->ToUnicode(static_cast<unsigned short>(byte)), expected)
            << codeSet->Name() << std::hex << byte;
    }
}

TEST_P(CodeSetPeer, FromUnicode) {
    Converter encode(codeSet->Name(), "UTF-16LE");
    ASSERT_TRUE(encode.IsOpen()) << codeSet->Name();
    unsigned characters = 0;
    for (unsigned code = 1; code < 0x10000; ++code) {
        const auto expected = encode.Convert<unsigned char>(static_cast<char16_t>(code));
        const unsigned wanted = IsOneWay(codeSet->Name(), code) ? 0u : expected;
        EXPECT_EQ(codeSet->FromUnicode(static_cast<unsigned short>(code)), wanted)
            << codeSet->Name() << std::hex << code;
        if (expected != 0) ++characters;
    }
    EXPECT_GE(characters, 0x7Fu);
}

INSTANTIATE_TEST_SUITE_P(EightBit, CodeSetPeer, testing::Range(1, 27));

}  // namespace
