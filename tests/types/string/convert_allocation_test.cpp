/// When memory fails while values become texts, and texts values.

#include <gtest/gtest.h>

#include <memory>
#include <new>

#include "counted_memory.h"
#include "fail_without_leaks.h"
#include "kystring.h"
#include "kytypes.h"
#include "kytypmgr.h"

namespace {

constexpr unsigned kCount = 3;

/// The slots say that there is no memory by a null pointer or by what the memory handler throws.
template <class Pointer>
Pointer OrThrow(Pointer pointer) {
    if (pointer == nullptr) throw std::bad_alloc();
    return pointer;
}

TEST(ConvertAllocation, ValuesThatBecomeTextsLeakNothing) {
    KyTypeMgr manager(5);
    for (int row = 0; row < KyRES_T; ++row) {
        const auto id = static_cast<char>(row);
        SCOPED_TRACE(KyNewtypetab[row]->typeName);
        void* values = manager.DefaultValue(id, kCount, 0);
        FailWithoutLeaks("ConvertTo", true, [&] { delete OrThrow(manager.ConvertTo(id, values, kCount)); });
        FailWithoutLeaks("ConvertToKyStringOld", true,
                         [&] { KyStringDelete(OrThrow(manager.ConvertToKyStringOld(values, id, kCount)), 1); });
        FailWithoutLeaks("PrintToKyString", true, [&] {
            KyString out;
            manager.PrintToKyString(id, out, values, nullptr, kCount);
        });
        manager.Delete(id, values, kCount);
    }
}

TEST(ConvertAllocation, TextsThatBecomeValuesLeakNothing) {
    KyTypeMgr manager(5);
    auto* texts = KyStringCreate(kCount);
    // Copied to be read, as they have 16 bits.
    for (unsigned i = 0; i < kCount; ++i) {
        texts[i] = KyString(KyCodeSetUnicode, 0);
        texts[i] += "17";
    }
    // Freed with its texts, as converting tells it the manager.
    const std::unique_ptr<KyTypeConvertData> record(KyTypeConvertData::Make(KySTRING_T, kCount, texts, nullptr));
    for (int row = 0; row < KyRES_T; ++row) {
        const auto id = static_cast<char>(row);
        SCOPED_TRACE(KyNewtypetab[row]->typeName);
        FailWithoutLeaks("ConvertFrom", true,
                         [&] { manager.Delete(id, OrThrow(manager.ConvertFrom(id, record.get(), kCount)), kCount); });
        FailWithoutLeaks("ConvertFromKyStringOld", true, [&] {
            KyString joined("17;17;17;");
            manager.Delete(id, OrThrow(manager.ConvertFromKyStringOld(&joined, id, kCount)), kCount);
        });
    }
}

TEST(ConvertAllocation, AnOldTextWithoutMemoryForItsPiecesStays) {
    KyTypeMgr manager(5);
    KyString joined("17;17;17;");
    blocksLeft = 0;
    void* const values = manager.ConvertFromKyStringOld(&joined, KyINT_T, kCount);
    blocksLeft = -1;
    EXPECT_EQ(values, nullptr);
    EXPECT_STREQ(joined.StrGet(), "17;17;17;");
}

}  // namespace
