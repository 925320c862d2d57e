// Two texts of any bytes as dictionary strings: compared with any operator and matched as patterns.

#include "input.h"
#include "kyistring.h"
#include "kywildcard.h"

namespace {

template <class Text>
void Compare(const std::string& a, const std::string& b, unsigned short op, KyTypeTab& row) {
    Text x(a.c_str());
    Text y(b.c_str());
    int err = 0;
    const int order = row.Compare(KyFormMemory, 0, &x, 0, &y, op, 1, err);
    const int mirrored = row.Compare(KyFormMemory, 0, &y, 0, &x, op, 1, err);
    if ((op & (KyCmpExact | KyCmpStringExact)) != 0 && (order > 0) != (mirrored < 0)) __builtin_trap();
    if (row.Compare(KyFormMemory, 0, &x, 0, &x, KyCmpExact, 1, err) != 0) __builtin_trap();
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
