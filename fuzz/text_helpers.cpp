// The scanning helpers: `MySscanf` into every target, digits skipped, lists split, formats patched, numbers of strings.

#include <vector>

#include "input.h"
#include "kystring.h"
#include "kytypfmt.h"
#include "kytypmgr.h"
#include "kywstring.h"

namespace {

template <class Target>
void Scan(std::string text, const std::string& format) {
    Target target{};
    if (MySscanf(text.data(), static_cast<int>(text.size()), format.c_str(), 16, &target) != 0) __builtin_trap();
}

void SplitList(const std::string& text, const std::string& separator) {
    const KyString list(text.c_str());
    KyString item;
    unsigned short position = 0;
    unsigned items = 0;
    while (KySplitList(list, item, KyString(separator.c_str()), position) == 0) {
        if (++items > list.Len() + 1u) __builtin_trap();
    }
}

void ReadWideNumbers(const std::string& text) {
    std::vector<unsigned short> units;
    for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
        units.push_back(static_cast<unsigned short>(text[i] | (text[i + 1] & 3) << 8));
    }
    units.push_back(0);
    if (KyWStrToI(units.data()) != static_cast<int>(KyWStrToL(units.data()))) __builtin_trap();
    KyWStrToLL(units.data());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned char kind = input.Byte();
    const std::string format = input.Text();
    std::string text = input.Text();

    switch (kind % 11) {
        case 0:
            Scan<char>(text, format);
            break;
        case 1:
            Scan<unsigned char>(text, format);
            break;
        case 2:
            Scan<short>(text, format);
            break;
        case 3:
            Scan<unsigned short>(text, format);
            break;
        case 4:
            Scan<int>(text, format);
            break;
        case 5:
            Scan<unsigned>(text, format);
            break;
        case 6:
            Scan<long long>(text, format);
            break;
        case 7:
            Scan<unsigned long long>(text, format);
            break;
        case 8:
            Scan<float>(text, format);
            break;
        case 9:
            Scan<double>(text, format);
            break;
        default:
            Scan<KyString>(text, format);
            break;
    }
    char* at = text.data();
    SkipDigits(at);
    if (at < text.data() || at > text.data() + text.size()) __builtin_trap();
    SplitList(text, format.substr(0, 3));
    ReadWideNumbers(text);

    std::vector<char> patched(format.size() + 2);
    patch_format(patched.data(), format.c_str(), kind);
    const KyString number(text.c_str());
    long long value = 0;
    number.Atoll(value);
    number.Strtoll(value);
    (void)static_cast<double>(number);
    return 0;
}
