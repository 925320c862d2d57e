// An attribute of an object, the way an engine handles it: by a type id and untyped pointers.

#include <kynull.h>
#include <kystring.h>
#include <kytypevl.h>
#include <kytypmgr.h>

#include <cstdio>
#include <vector>

int main() {
    KyTypeMgr types(5);  // the current rows

    //! [define]
    // The schema says "ages: array of 3 KyNull_int"; the engine keeps the id and the count.
    char type = 0;
    if (types.Name2KyTypeId("KyNull_int", type) != 0) return 1;
    constexpr unsigned count = 3;
    std::printf("type %d, %u bytes in memory\n", type, types.MemLenGet(type, count));
    //! [define]

    //! [scan]
    void* ages = types.Create(type, count);
    const char* const texts[count] = {"41", "{NULL}", "7"};
    for (unsigned i = 0; i < count; ++i) {
        KyString text(texts[i]);
        types.ScanFromKyString(type, types.GetArrayElement(type, ages, i, count), text, nullptr, 1);
    }
    //! [scan]

    //! [store]
    // Most significant byte first, as any machine can read it. A null is a value of its own.
    std::vector<unsigned char> disk(types.DiskLenGet(type, ages, KyFormReversed, count, KyFormMemory));
    types.Store(type, disk.data(), ages, KyFormReversed, count);
    for (const unsigned char byte : disk) std::printf("%02X ", byte);
    std::printf("\n");
    //! [store]

    //! [compare]
    // What is stored is compared and hashed where it lies.
    const unsigned size = static_cast<unsigned>(disk.size()) / count;
    int err = 0;
    const int order = types.Cmp(type, size, disk.data(), size, disk.data() + size, KyCmpExact, 1, KyFormReversed, err);
    std::printf("41 orders %s null\n", order > 0 ? "behind" : "before");
    std::printf("hash %08X\n", types.Hash(type, 0, disk.data(), count, KyFormReversed, err));
    //! [compare]

    //! [print]
    KyString text;
    std::printf("%s\n", types.PrintToKyString(type, text, ages, nullptr, count).StrGet());
    types.Delete(type, ages, count);
    //! [print]
    return 0;
}
