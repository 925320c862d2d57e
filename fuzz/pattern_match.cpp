// Two texts of any bytes as pattern and text of the matchers, against the slow one.

#include "input.h"
#include "kystring.h"
#include "oracle/slow_strwild.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned char patternMode = input.Byte();
    const unsigned char textMode = input.Byte();
    std::string pattern = input.Text().c_str();
    std::string text = input.Text().c_str();

    if (strwild(pattern.data(), text.data()) != SlowWild(pattern, text, PlainMode(), PlainMode())) __builtin_trap();
    const int byKeys = caseistrwild(pattern.data(), text.data(), patternMode, textMode);
    if (byKeys != SlowWild(pattern, text, CaseMode(patternMode), CaseMode(textMode))) __builtin_trap();
    const int first = strwc(pattern.data());
    if (first >= 0 && static_cast<std::size_t>(first) != pattern.find_first_of("*?\\")) __builtin_trap();

    short bytePos = 0;
    const auto narrowCodeSet = static_cast<unsigned char>(patternMode % 27);
    const int found = KyStrWild(narrowCodeSet, textMode, text.data(), 0, 100, &bytePos, 1);
    if (found > 100 || (found < 0) != (bytePos < 0)) __builtin_trap();
    return 0;
}
