// Two texts of any bytes, compared with any operator, searched and edited in 8-bit and 16-bit form.

#include "input.h"
#include "kystring.h"
#include "kytypes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const auto op = static_cast<unsigned short>(input.Byte() << 4 | input.Byte());
    const unsigned char kinds = input.Byte();
    KyString text(input.Text().c_str());
    KyString pattern(input.Text().c_str());
    if ((kinds & 1) != 0) text.MapToCodeSet(253);
    if ((kinds & 2) != 0) pattern.MapToCodeSet(253);

    text.Compare(pattern, -1, op);
    const unsigned short at = text.Find(pattern, input.Byte(), op);
    if (at != KyString::NotFound && at > text.Len()) __builtin_trap();

    const unsigned short exact = text.Find(pattern, 0, KyCmpStringExact);
    KyString replaced(text);
    if ((op & (KyCmpExact | KyCmpStringExact)) == 0) replaced.Insert(pattern, input.Byte());
    if (exact != KyString::NotFound) replaced.ReplaceAll(pattern, KyString("<>"), 0);
    replaced.Trim();
    replaced.ToUpper();
    replaced.Cut(input.Byte(), static_cast<short>(input.Byte()));
    if (replaced.BufferSizeGet() > KyString::MaxBytes) __builtin_trap();
    return 0;
}
