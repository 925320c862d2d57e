// Any bytes as a memory file at whose position stored values of any type begin: no size is read outside of the file.

#include "input.h"
#include "kybase.h"
#include "kytypmgr.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    KyTypeMgr types(5);
    KyTypeMgr oldTypes(0);
    const unsigned char choice = input.Byte();
    const char id = static_cast<char>(choice % KyRES_T);
    const unsigned char options = input.Byte();
    const auto flag =
        static_cast<unsigned char>((options & ~KyFormMask) | ((options & 1) != 0 ? KyFormNative : KyFormReversed));
    const unsigned count = input.Byte() % 16;
    const long position = input.Byte();
    const auto bytes = ExactBytes(input.Rest(), input.RestSize(), input.RestSize());
    MemFile file(bytes.get(), input.RestSize());
    file.Seek(position, MemFile::begin);
    void* const before = file.Seek(0, MemFile::current);
    const unsigned told = types.DiskLenGetFromMemFile(id, &file, flag, count);
    if (file.Seek(0, MemFile::current) != before) __builtin_trap();
    if (types.DiskLenGetFromMemFile(id, &file, flag, count) != told) __builtin_trap();
    oldTypes.DiskLenGetFromMemFile(id, &file, flag, count);
    return 0;
}
