#include <gtest/gtest.h>

#include <cstring>
#include <ostream>
#include <sstream>
#include <string>

#include "kystring.h"
#include "kytypmgr.h"
#include "row_patch.h"

namespace {

// ---------------------------------------------------------------------------------------------
// Factories and ids
// ---------------------------------------------------------------------------------------------

/// The row that an id reaches, seen through its name.
const char* NameOf(KyTypeMgr& manager, int id) { return manager.NameGet(static_cast<char>(id), nullptr); }

bool UsesOldArray(KyTypeMgr& manager) { return NameOf(manager, 44) == KyIllegalTab.typeName; }

TEST(Dispatch, SetFactoryChoosesArrayAndNumber) {
    struct Case {
        unsigned given;
        bool old;
        unsigned kept;
    };
    const Case cases[] = {
        {0, true, 0},    {1, true, 1},           {2, true, 2},           {3, true, 3},           {4, false, 4},
        {5, false, 5},   {6, false, 6},          {7, false, 7},          {8, false, 8},          {9, false, 9},
        {10, false, 10}, {11, true, 3},          {12, false, 4},         {13, false, 4},         {99, false, 4},
        {200, false, 4}, {0x7FFFFFFF, false, 4}, {0x80000000, false, 4}, {0xFFFFFFFF, false, 4},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.given);
        KyTypeMgr manager(c.given);
        EXPECT_EQ(UsesOldArray(manager), c.old);
        KyTypeMgr other(c.old ? 5 : 0);
        EXPECT_EQ(other.SetFactory(c.given), c.kept);
        EXPECT_EQ(UsesOldArray(other), c.old);
    }
}

TEST(Dispatch, AManagerIsTwoFieldsAndMayBeCopied) {
    EXPECT_EQ(sizeof(KyTypeMgr), 2 * sizeof(void*));
    KyTypeMgr old(2);
    KyTypeMgr copy(old);
    old.SetFactory(5);
    EXPECT_TRUE(UsesOldArray(copy));
    EXPECT_FALSE(UsesOldArray(old));
}

/// Managers are read by programs built elsewhere: the array in force, then the factory number kept.
TEST(Dispatch, AManagersFieldsStandInTheirOrder) {
    struct Case {
        unsigned given;
        KyTypeTab** rows;
        unsigned kept;
    };
    const Case cases[] = {{2, KyOldtypetab, 2}, {5, KyNewtypetab, 5}, {11, KyOldtypetab, 3}, {200, KyNewtypetab, 4}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.given);
        const KyTypeMgr manager(c.given);
        KyTypeTab** rows = nullptr;
        unsigned factory = 0;
        const auto* bytes = reinterpret_cast<const unsigned char*>(&manager);
        std::memcpy(&rows, bytes, sizeof rows);
        std::memcpy(&factory, bytes + sizeof rows, sizeof factory);
        EXPECT_EQ(rows, c.rows);
        EXPECT_EQ(factory, c.kept);
    }
}

TEST(Dispatch, EveryIdReachesItsRowOrTheIllegalOne) {
    KyTypeMgr newManager(5);
    KyTypeMgr oldManager(0);
    for (int id = -128; id < 128; ++id) {
        SCOPED_TRACE(id);
        const char* inNew = id >= 0 && id < 47 ? KyNewtypetab[id]->typeName : KyIllegalTab.typeName;
        const char* inOld = id >= 0 && id < 28 ? KyOldtypetab[id]->typeName : KyIllegalTab.typeName;
        EXPECT_EQ(NameOf(newManager, id), inNew);
        EXPECT_EQ(NameOf(oldManager, id), inOld);
    }
}

TEST(Dispatch, IsValidTypeReadsIdsAsSigned) {
    for (unsigned factory : {0U, 5U}) {
        KyTypeMgr manager(factory);
        for (int id = -128; id < 128; ++id) {
            EXPECT_EQ(manager.IsValidType(static_cast<char>(id)), id > 99 || id < 47 ? 1 : 0) << id;
        }
    }
}

TEST(Dispatch, DefaultManagerIsReplacedByAnotherAndQueriedByNull) {
    KyTypeMgr first(5);
    KyTypeMgr second(0);
    KyTypeMgr* const before = DefaultTypeMgr(&first);
    EXPECT_EQ(DefaultTypeMgr(nullptr), &first);
    EXPECT_EQ(DefaultTypeMgr(&second), &first);
    EXPECT_EQ(DefaultTypeMgr(nullptr), &second);
    EXPECT_EQ(DefaultTypeMgr(nullptr), &second);
    static KyTypeMgr outliving(5);  // the default cannot be made null again
    DefaultTypeMgr(before != nullptr ? before : &outliving);
}

// ---------------------------------------------------------------------------------------------
// Forwarding: which slot is called, with which arguments in which order
// ---------------------------------------------------------------------------------------------

unsigned char mark[8];
std::string calls;

template <class Argument>
void Note(std::ostream& out, const Argument& argument) {
    if constexpr (std::is_pointer_v<Argument>) {
        const auto* at = reinterpret_cast<const unsigned char*>(argument);
        if (at == nullptr) {
            out << " null";
        } else {
            out << " mark" << (at - mark);
        }
    } else {
        out << ' ' << +argument;
    }
}

template <class... Arguments>
void Log(const char* slot, const Arguments&... arguments) {
    std::ostringstream out;
    out << slot;
    (Note(out, arguments), ...);
    calls += out.str() + ";";
}

template <class Pointee = void>
Pointee* Mark(int index) {
    return reinterpret_cast<Pointee*>(mark + index);
}

void InstallSpies(const RowPatch& row) {
    row->Create = [](unsigned count) -> void* {
        Log("Create", count);
        return Mark(7);
    };
    row->Delete = [](void* values, unsigned count) {
        Log("Delete", values, count);
        return 0;
    };
    row->Store = [](void* dst, const void* src, unsigned char flag, unsigned count) {
        Log("Store", dst, src, flag, count);
        return 101U;
    };
    row->Load = [](void* dst, const void* src, unsigned char flag, unsigned count) {
        Log("Load", dst, src, flag, count);
        return 102U;
    };
    row->SizeGet = [](const void* value, unsigned char from, unsigned char to, unsigned count) {
        Log("SizeGet", value, from, to, count);
        return 103U;
    };
    row->SizeGetFromMemFile = [](MemFile* file, unsigned char flag, unsigned count) {
        Log("SizeGetFromMemFile", file, flag, count);
        return 104U;
    };
    row->Compare = [](unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short op,
                      unsigned count, int& err) {
        Log("Compare", flag, len1, a, len2, b, op, count);
        err = 2101;
        return -5;
    };
    row->EvalAndBound = [](KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned count,
                           KyIdxBounds* out) {
        Log("EvalAndBound", bounds, op, value, flag, count, out);
        op = 77;
        return 0.25F;
    };
    row->Hash = [](unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
        Log("Hash", flag, len, data, count);
        err = 2101;
        return 0xFEFE7575U;
    };
    row->Translate = [](void* dst, unsigned char dstFlag, unsigned dstLen, void* src, unsigned char srcFlag,
                        unsigned srcLen, unsigned count) {
        Log("Translate", dst, dstFlag, dstLen, src, srcFlag, srcLen, count);
        return 105U;
    };
    row->IsNull = [](void* value) {
        Log("IsNull", value);
        return 3;
    };
    row->DefaultValue = [](unsigned count, int which) -> void* {
        Log("DefaultValue", count, which);
        return Mark(6);
    };
}

std::string TakeCalls() {
    std::string taken;
    taken.swap(calls);
    return taken;
}

struct Road {
    const char* description;
    KyTypeTab& row;
    unsigned factory;
    int id;

    friend void PrintTo(const Road& road, std::ostream* out) { *out << road.description; }
};

class Forwarding : public testing::TestWithParam<Road> {};

TEST_P(Forwarding, PassesEveryArgumentToTheSlot) {
    const RowPatch row(GetParam().row);
    InstallSpies(row);
    KyTypeMgr manager(GetParam().factory);
    const char id = static_cast<char>(GetParam().id);
    int err = 0;
    unsigned short op = 9;
    TakeCalls();

    EXPECT_EQ(manager.Create(id, 11), Mark(7));
    EXPECT_EQ(TakeCalls(), "Create 11;");
    manager.Delete(id, Mark(1), 12);
    EXPECT_EQ(TakeCalls(), "Delete mark1 12;");
    EXPECT_EQ(manager.DefaultValue(id, 13, -4), Mark(6));
    EXPECT_EQ(TakeCalls(), "DefaultValue 13 -4;");
    EXPECT_EQ(manager.Store(id, Mark(1), Mark(2), 129, 14), 101U);
    EXPECT_EQ(TakeCalls(), "Store mark1 mark2 129 14;");
    EXPECT_EQ(manager.Load(id, Mark(1), Mark(2), 130, 15), 102U);
    EXPECT_EQ(TakeCalls(), "Load mark1 mark2 130 15;");
    EXPECT_EQ(manager.DiskLenGet(id, Mark(3), 2, 16, 8), 103U);
    EXPECT_EQ(TakeCalls(), "SizeGet mark3 8 2 16;");
    EXPECT_EQ(manager.DiskLenGetFromMemFile(id, Mark<MemFile>(4), 2, 17), 104U);
    EXPECT_EQ(TakeCalls(), "SizeGetFromMemFile mark4 2 17;");

    EXPECT_EQ(manager.Cmp(id, 21, Mark(1), 22, Mark(2), 0x8010, 23, 2, err), -5);
    EXPECT_EQ(err, 2101);
    EXPECT_EQ(TakeCalls(), "Compare 2 21 mark1 22 mark2 32784 23;");
    EXPECT_EQ(manager.Cmp(id, Mark(1), Mark(2), 0x10, 24, 1), -5);
    EXPECT_EQ(TakeCalls(), "Compare 1 0 mark1 0 mark2 16 24;");

    EXPECT_EQ(
        manager.EvalAndBound(id, Mark<KyIdxBounds>(1), op, Mark(2), 2, 25, Mark<KyIdxBounds>(3), Mark<KyEvalData>(4)),
        0.25F);
    EXPECT_EQ(op, 77);
    EXPECT_EQ(TakeCalls(), "EvalAndBound mark1 9 mark2 2 25 mark3;");

    err = 0;
    EXPECT_EQ(manager.Hash(id, 26, Mark(5), 27, 2, err), 0xFEFE7575U);
    EXPECT_EQ(err, 2101);
    EXPECT_EQ(TakeCalls(), "Hash 2 26 mark5 27;");
    EXPECT_EQ(manager.Translate(id, Mark(1), 1, 31, Mark(2), 2, 32, 33), 105U);
    EXPECT_EQ(TakeCalls(), "Translate mark1 1 31 mark2 2 32 33;");
    EXPECT_EQ(manager.IsNullValue(id, Mark(1)), 3);
    EXPECT_EQ(TakeCalls(), "IsNull mark1;");
}

INSTANTIATE_TEST_SUITE_P(Roads, Forwarding,
                         testing::Values(Road{"NewArray", KyEnumTab, 5, 9}, Road{"OldArray", KyEnumTab, 0, 9},
                                         Road{"FirstRow", KyCharTab, 5, 0}, Road{"LastRow", KyNull_u8bTab, 4, 45},
                                         Road{"OldString", KyOldStringTab, 11, 11},
                                         Road{"NewString", KyStringTab, 12, 11},
                                         Road{"LastOfOldArray", KyBooleanTab, 3, 27},
                                         Road{"BehindOldArray", KyIllegalTab, 3, 28},
                                         Road{"Illegal", KyIllegalTab, 5, 46}, Road{"NoRow", KyIllegalTab, 5, 47},
                                         Road{"Reserved", KyIllegalTab, 5, 127}, Road{"Negative", KyIllegalTab, 5, -1}),
                         [](const auto& road) { return std::string(road.param.description); });

// ---------------------------------------------------------------------------------------------
// Slot getters and exchange
// ---------------------------------------------------------------------------------------------

TEST(Dispatch, SlotGettersGiveTheRowsFunctions) {
    KyTypeMgr manager(5);
    for (int number = 0; number < 47; ++number) {
        const char id = static_cast<char>(number);
        const KyTypeTab& row = *KyNewtypetab[number];
        SCOPED_TRACE(row.typeName);
        EXPECT_EQ(manager.ConstructorPtrGet(id), row.Constructor);
        EXPECT_EQ(manager.DestructorPtrGet(id), row.Destructor);
        EXPECT_EQ(manager.AssignmentPtrGet(id), row.Assignment);
        EXPECT_EQ(manager.CopyPtrGet(id), row.Copy);
        EXPECT_EQ(manager.CmpFuncPtrGet(id), row.Compare);
        EXPECT_EQ(manager.LoadPtrGet(id), row.Load);
        EXPECT_EQ(manager.StorePtrGet(id), row.Store);
        EXPECT_EQ(manager.IsNullPtrGet(id), row.IsNull);
        EXPECT_EQ(manager.SetNullPtrGet(id), row.SetNull);
    }
}

TEST(Dispatch, SlotGettersDoNotMixSlotsUp) {
    const RowPatch row(KyEnumTab);
    row->Constructor = [](void*, unsigned, unsigned) {};
    row->Destructor = [](void*, unsigned, unsigned) {};
    row->Assignment = [](void*, void*, unsigned, int) {};
    row->Copy = [](void*, void*, unsigned, int) {};
    row->Store = [](void*, const void*, unsigned char, unsigned) { return 1U; };
    row->Load = [](void*, const void*, unsigned char, unsigned) { return 2U; };
    row->IsNull = [](void*) { return 1; };
    row->SetNull = [](void*) { return 2; };
    KyTypeMgr manager(5);
    EXPECT_NE(manager.ConstructorPtrGet(9), manager.DestructorPtrGet(9));
    EXPECT_EQ(manager.ConstructorPtrGet(9), row->Constructor);
    EXPECT_EQ(manager.DestructorPtrGet(9), row->Destructor);
    EXPECT_EQ(manager.AssignmentPtrGet(9), row->Assignment);
    EXPECT_EQ(manager.CopyPtrGet(9), row->Copy);
    EXPECT_EQ(manager.StorePtrGet(9), row->Store);
    EXPECT_EQ(manager.LoadPtrGet(9), row->Load);
    EXPECT_EQ(manager.IsNullPtrGet(9), row->IsNull);
    EXPECT_EQ(manager.SetNullPtrGet(9), row->SetNull);
}

TEST(Dispatch, Kept_ComparePtrGetIsNullAndDiskIsNullValueUnsupported) {
    KyTypeMgr manager(5);
    KyString null;
    null.SetNullValue();
    for (int id = -128; id < 128; ++id) {
        EXPECT_EQ(manager.ComparePtrGet(static_cast<char>(id)), nullptr);
        EXPECT_EQ(manager.DiskIsNullValue(static_cast<char>(id), &null), -2999);
    }
    EXPECT_EQ(manager.CmpFuncPtrGet(0), KyCharTab.Compare);
}

int CompareBackwards(unsigned char, unsigned, void*, unsigned, void*, unsigned short, unsigned, int&) { return 42; }
KyString& PrintNothing(KyString& out, void*, const char*, unsigned) { return out; }
void* ScanNothing(void* value, KyString&, const char*, unsigned) { return value; }

TEST(Dispatch, ExchangeReplacesAndReturnsThePreviousSlot) {
    for (unsigned factory : {0U, 5U}) {
        KyTypeMgr manager(factory);
        for (int number : {0, 1, 7, 11, 12, 27}) {
            const char id = static_cast<char>(number);
            KyTypeTab& row = factory == 0 ? *KyOldtypetab[number] : *KyNewtypetab[number];
            const KyTypeTab before = row;
            const RowPatch restored(row);
            SCOPED_TRACE(before.typeName);

            EXPECT_EQ(manager.ExchangeKyTypeCmpFunc(id, CompareBackwards), before.Compare);
            EXPECT_EQ(manager.ExchangePrintToKyStringFunc(id, PrintNothing), before.PrintToKyString);
            EXPECT_EQ(manager.ExchangeScanFromKyStringFunc(id, ScanNothing), before.ScanFromKyString);
            const char format[] = "<%d>";
            EXPECT_EQ(manager.ExchangeFormat(id, format), before.printFormat);

            EXPECT_EQ(row.Compare, &CompareBackwards);
            EXPECT_EQ(row.PrintToKyString, &PrintNothing);
            EXPECT_EQ(row.ScanFromKyString, &ScanNothing);
            EXPECT_EQ(row.printFormat, format) << "the pointer is kept, not a copy";
            EXPECT_EQ(manager.Cmp(id, mark, mark, 0, 1, 8), 42);

            EXPECT_EQ(manager.ExchangeKyTypeCmpFunc(id, nullptr), &CompareBackwards);
            EXPECT_EQ(manager.ExchangePrintToKyStringFunc(id, nullptr), &PrintNothing);
            EXPECT_EQ(manager.ExchangeScanFromKyStringFunc(id, nullptr), &ScanNothing);
            EXPECT_EQ(manager.ExchangeFormat(id, nullptr), format);
            EXPECT_EQ(row.Compare, &CompareBackwards);

            EXPECT_EQ(manager.ExchangeKyTypeCmpFunc(id, before.Compare), &CompareBackwards);
            EXPECT_EQ(manager.ExchangePrintToKyStringFunc(id, before.PrintToKyString), &PrintNothing);
            EXPECT_EQ(manager.ExchangeScanFromKyStringFunc(id, before.ScanFromKyString), &ScanNothing);
            EXPECT_EQ(manager.ExchangeFormat(id, before.printFormat), format);
            EXPECT_EQ(row.Compare, before.Compare);
            EXPECT_EQ(row.PrintToKyString, before.PrintToKyString);
            EXPECT_EQ(row.ScanFromKyString, before.ScanFromKyString);
            EXPECT_EQ(row.printFormat, before.printFormat);
        }
    }
}

TEST(Dispatch, ExchangeIsSeenByBothArraysButForStrings) {
    KyTypeMgr newManager(5);
    KyTypeMgr oldManager(0);
    for (int number = 0; number < 28; ++number) {
        const char id = static_cast<char>(number);
        const RowPatch newRow(*KyNewtypetab[number]);
        const RowPatch oldRow(*KyOldtypetab[number]);
        const char format[] = "*";
        newManager.ExchangeFormat(id, format);
        EXPECT_EQ(newManager.ExchangeFormat(id, nullptr) == oldManager.ExchangeFormat(id, nullptr), number != 11)
            << number;
    }
}

}  // namespace
