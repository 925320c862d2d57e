#ifndef NUMBER_FACTS_H
#define NUMBER_FACTS_H

/// What the slots have to know of each plain number type; the loops are in the templates of number_*.h.
///
///   Element        one value in memory form
///   Store, Load    the base library's byte-order conversion of many values
///   StoreOne       the same of one value
///   SizeGet        persistent bytes
///   Stride(form)   bytes from one value to the next in an array of that form
///   ToText         the type that a value is turned into before a `KyString` is made of it
///   FromText       the type that a `KyString` is turned into before it becomes a value
///   Print, Scan    the text of a value; one family serves both signednesses

#include <cstddef>
#include <cstdint>

#include "kybase.h"
#include "kytypes.h"
#include "number_text.h"

// --- signed numbers of 1, 2, 4 and 8 bytes ---

struct CharLSHelper {
    using Element = std::int8_t;
    using ToText = short;
    using FromText = short;
    static constexpr auto* Store = &CharStore;
    static constexpr auto* Load = &CharStore;
    static constexpr auto* SizeGet = &CharSizeGet;
    static constexpr auto* Print = &CharPrintToKyString;
    static constexpr auto* Scan = &CharScanFromKyString;
    static unsigned StoreOne(void* dst, const void* src, unsigned char flag) { return CharStore(dst, src, flag, 1); }
    static constexpr std::size_t Stride(unsigned char) { return sizeof(Element); }
};

struct ShortLSHelper {
    using Element = std::int16_t;
    using ToText = short;
    using FromText = short;
    static constexpr auto* Store = &ShortStore;
    static constexpr auto* Load = &ShortStore;
    static constexpr auto* StoreOne = &ShortStoreOne;
    static constexpr auto* SizeGet = &ShortSizeGet;
    static constexpr auto* Print = &ShortPrintToKyString;
    static constexpr auto* Scan = &ShortScanFromKyString;
    static constexpr std::size_t Stride(unsigned char) { return sizeof(Element); }
};

struct LongLSHelper {
    using Element = std::int32_t;
    using ToText = int;
    using FromText = int;
    static constexpr auto* Store = &LongStore;
    static constexpr auto* Load = &LongStore;
    static constexpr auto* StoreOne = &LongStoreOne;
    static constexpr auto* SizeGet = &LongSizeGet;
    static constexpr auto* Print = &LongPrintToKyString;
    static constexpr auto* Scan = &LongScanFromKyString;
    static constexpr std::size_t Stride(unsigned char) { return sizeof(Element); }
};

struct O_8BLSHelper {
    using Element = std::int64_t;
    using ToText = long long;
    using FromText = long long;
    static constexpr auto* Store = &O_8BStore;
    static constexpr auto* Load = &O_8BStore;
    static constexpr auto* StoreOne = &O_8BStoreOne;
    static constexpr auto* SizeGet = &O_8BSizeGet;
    static constexpr auto* Print = &O_8BPrintToKyString;
    static constexpr auto* Scan = &O_8BScanFromKyString;
    static constexpr std::size_t Stride(unsigned char) { return sizeof(Element); }
};

// --- their unsigned relatives ---

struct ByteLSHelper : CharLSHelper {
    using Element = std::uint8_t;
    using ToText = unsigned int;
    using FromText = int;
};

struct WordLSHelper : ShortLSHelper {
    using Element = std::uint16_t;
    using ToText = unsigned int;
    using FromText = int;
};

struct DwordLSHelper : LongLSHelper {
    using Element = std::uint32_t;
    // KEPT: as a double 0 becomes the text "+0"; what was converted to text before reads so.
    using ToText = double;
    using FromText = double;
};

struct O_U8BLSHelper : O_8BLSHelper {
    using Element = std::uint64_t;
    using ToText = unsigned long long;
    // KEPT: numbers from 2^63 on do not come back from their text.
    using FromText = long long;
};

// --- int and unsigned: 4 bytes in memory, the base library tells how many in a persistent form ---

struct IntLSHelper {
    using Element = std::int32_t;
    using ToText = int;
    using FromText = int;
    static constexpr auto* Store = &IntStore;
    static constexpr auto* Load = &IntLoad;
    static constexpr auto* SizeGet = &IntSizeGet;
    static constexpr auto* Print = &IntPrintToKyString;
    static constexpr auto* Scan = &IntScanFromKyString;
    static unsigned StoreOne(void* dst, const void* src, unsigned char flag) { return IntLoad(dst, src, flag, 1); }
    static std::size_t Stride(unsigned char form) {
        return form == KyFormMemory ? sizeof(Element) : IntSizeGet(nullptr, KyFormMemory, form, 1);
    }
};

struct UnsignedLSHelper : IntLSHelper {
    using Element = std::uint32_t;
    using ToText = DwordLSHelper::ToText;
    using FromText = DwordLSHelper::FromText;
    static constexpr auto* Store = &UnsignedStore;
    static constexpr auto* Load = &UnsignedLoad;
    static unsigned StoreOne(void* dst, const void* src, unsigned char flag) { return UnsignedLoad(dst, src, flag, 1); }
};

// --- floating point ---

struct FloatLSHelper {
    using Element = float;
    using ToText = double;
    using FromText = double;
    static constexpr auto* Store = &FloatStore;
    static constexpr auto* Load = &FloatStore;
    static constexpr auto* StoreOne = &LongStoreOne;
    static constexpr auto* SizeGet = &FloatSizeGet;
    static constexpr auto* Print = &FloatPrintToKyString;
    static constexpr auto* Scan = &FloatScanFromKyString;
    static constexpr std::size_t Stride(unsigned char) { return sizeof(Element); }
};

struct DoubleLSHelper {
    using Element = double;
    using ToText = double;
    using FromText = double;
    static constexpr auto* Store = &DoubleStore;
    static constexpr auto* Load = &DoubleStore;
    static constexpr auto* StoreOne = &O_8BStoreOne;
    static constexpr auto* SizeGet = &DoubleSizeGet;
    static constexpr auto* Print = &DoublePrintToKyString;
    static constexpr auto* Scan = &DoubleScanFromKyString;
    static constexpr std::size_t Stride(unsigned char) { return sizeof(Element); }
};

#endif
