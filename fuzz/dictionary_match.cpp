// Two texts of any bytes as dictionary strings: compared with any operator and matched as patterns.

#include "input.h"
#include "kyistring.h"
#include "kywildcard.h"

namespace {

template <class Text>
int Order(Text& a, Text& b, unsigned short op, KyTypeTab& row, bool& refused) {
    int err = 0;
    const int order = row.Compare(KyFormMemory, 0, &a, 0, &b, op, 1, err);
    // A comparand of more key bytes than an index holds.
    refused = err == KyErrNotSupported;
    if (refused && order != -1) __builtin_trap();
    return order;
}

template <class Text>
void Compare(const std::string& a, const std::string& b, unsigned short op, KyTypeTab& row) {
    Text x(a.c_str());
    Text y(b.c_str());
    bool yRefused;
    bool xRefused;
    const int order = Order(x, y, op, row, yRefused);
    const int mirrored = Order(y, x, op, row, xRefused);
    const bool isExact = (op & (KyCmpExact | KyCmpStringExact)) != 0;
    if (isExact && !xRefused && !yRefused && (order > 0) != (mirrored < 0)) __builtin_trap();
    const int own = Order(x, x, KyCmpExact, row, xRefused);
    if (!xRefused && own != 0) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const auto op = static_cast<unsigned short>(input.Byte() << 4);
    const unsigned char modes = input.Byte();
    std::string a = input.Text();
    std::string b = input.Text();
    Compare<KyIString>(a, b, op, KyIStringTab);
    Compare<KyCaseIString>(a, b, op, KyCaseIStringTab);

    const auto modeA = static_cast<unsigned char>(modes & 0x40);
    const auto modeB = static_cast<unsigned char>((modes & 1) << 6);
    const int match = istrwild(a.data(), b.data(), modeA, modeB);
    const int byKeys = caseistrwild(a.data(), b.data(), modeA, modeB);
    if ((match != 0 && match != 1) || (byKeys != 0 && byKeys != 1)) __builtin_trap();
    istrwc(a.data(), modeA);
    caseistrwc(a.data(), modeA);
    return 0;
}
