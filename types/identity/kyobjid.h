#ifndef KYOBJID_H
#define KYOBJID_H

/// Identifiers of objects and classes, and references to objects.
///
///            memory form, machine byte order                                stored form
///   KyObjId    12 bytes: B at 0, L at 4, H at 8, two unused                 10 bytes: B, L, H
///   KyClassId   4 bytes: C at 0, V at 2                                      4 bytes: C, V
///   KyRef      16 bytes: B at 0, L at 4, H at 8, D at 10, C at 12, V at 14  14 bytes: B, L, H, D, C
///
/// Each stored field has its most significant byte first in form 2 and is in machine order in every other. An object
/// number is H:L, 48 bits; B tells where the object lies and is no part of its identity. Arrays are elements back to
/// back. The version V is not stored in a reference.
///
/// Texts follow a format: "%B", "%L", "%H", "%D", "%C" and "%V" are the fields, decimal, as far as the type has them;
/// "%%" is a percent sign, another letter behind "%" that letter, everything else itself. In formats of object ids
/// "%h" and "%l", each with one more letter, are fields by their turn: the first "%h?" is H, the first "%l?" behind it
/// L, the next B; others are 0. A null value prints as the null print string, whatever the format.
///
///   (B 3, L 12, H 0) by "(%H-%L#%B)" is (0-12#3)
///
/// A text that begins with the null print string scans as null. Any other is walked along the format: blanks and "("
/// are skipped in both before each item, a field reads a number (one that is too large keeps its low bits), everything
/// else takes one character of the text, whichever it is. Fields that the format does not name or for which the text
/// has no number are 0. Nothing fails.
///
/// An object id may be the first 10 bytes of a reference: no operation touches the two bytes behind them.

#include <cstddef>

#include "kyexport.h"
#include "kytypes.h"

class KyLocalRef;
class KyRef;

namespace ky {

/// By H, as the difference of the two, then by L: -1, 0 or 1. B does not matter.
template <class A, class B>
constexpr int OrderObjectNumbers(const A& a, const B& b) {
    if (a.H != b.H) return a.H - b.H;
    return static_cast<int>(a.L > b.L) - static_cast<int>(a.L < b.L);
}

}  // namespace ky

/// The identifier of an object in its database. Null is L 0 and H 0.
class KY_EXPORT KyObjId {
public:
    unsigned int B;
    unsigned int L;
    unsigned short H;

    constexpr KyObjId() : B(0), L(0), H(0) {}  ///< null
    constexpr KyObjId(unsigned int block, unsigned int low, unsigned short high) : B(block), L(low), H(high) {}
    constexpr KyObjId(const KyObjId&) = default;
    /// Field by field: behind H may stand the next field of a reference.
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment,cert-oop54-cpp)
    constexpr KyObjId& operator=(const KyObjId& other) {
        B = other.B;
        L = other.L;
        H = other.H;
        return *this;
    }

    constexpr bool operator==(const KyObjId& other) const { return L == other.L && H == other.H; }
    constexpr int operator!=(const KyObjId& other) const { return ky::OrderObjectNumbers(*this, other); }

    // Steps of the object number, which wraps modulo 2^48; B stays.
    constexpr KyObjId& operator++() {
        if (++L == 0) ++H;
        return *this;
    }
    constexpr KyObjId& operator--() {
        if (L-- == 0) --H;
        return *this;
    }
    constexpr KyObjId& operator+=(short n) {
        const unsigned int before = L;
        L += static_cast<unsigned int>(n);
        if (n > 0 && L < before) ++H;
        if (n < 0 && L > before) --H;
        return *this;
    }
    /// The highest object number; B becomes 0.
    constexpr void SetHighestValue() { *this = KyObjId(0, 0xFFFFFFFF, 0xFFFF); }

    /// Replaces `out`; a null format is `KyObjIdFmt`. Returns `out`.
    KyString& PrintToKyString(KyString& out, const char* format) const;
    void ScanFromKyString(const KyString& text, const char* format);

    // The row's functions. Of the operands of Compare and Hash only L and H count.
    static KyCreateFunc Create;  ///< nulls
    static KyDeleteFunc Delete;
    static KyStoreFunc Store;
    static KyLoadFunc Load;
    static KyNullSizeGetFunc NullSizeGet;
    static KySizeGetFunc SizeGet;  ///< 12 bytes an element into memory form, 10 into any other
    static KySizeGetFromMemFileFunc SizeGetFromMemFile;
    /// In memory form the result of `!=`. In every other the difference of the first unequal bytes, from the highest of
    /// H down to the lowest of L as form 1 has them.
    static KyCompareFunc Compare;
    /// Over the object numbers; 1 where the upper limit is below the lower one. A missing limit is the least or the
    /// greatest number. Records limits of 10 bytes an element.
    static KyEvalAndBoundFunc EvalAndBound;
    static KyHashFunc Hash;                    ///< frozen, persistent: of L XOR H, in stored forms as form 1 has them
    static KyConvertToFunc ConvertToKyString;  ///< by `KyObjIdFmt`; null strings for nulls
    static KyConvertFromFunc ConvertFromKyString;  ///< null also for a missing and for a null text
    static KyTranslateFunc Translate;
    static KyPrintFunc PrintToString;
    static KyScanFunc ScanFromString;
};

static_assert(sizeof(KyObjId) == 12 && offsetof(KyObjId, B) == 0 && offsetof(KyObjId, L) == 4 &&
                  offsetof(KyObjId, H) == 8,
              "the size word of the row, and the front of a reference");

/// The identifier of a class: its number C and its version V. Null is 65535 v 65535; with only one of them 65535 it is
/// an ordinary value.
class KY_EXPORT KyClassId {
public:
    unsigned short C;
    unsigned short V;

    constexpr KyClassId() : C(0), V(0) {}  ///< 0 v 0, which is not null
    constexpr KyClassId(unsigned short number, unsigned short version) : C(number), V(version) {}

    /// -1, 0 or 1: null before every other, then by C, then by V.
    constexpr int operator!=(const KyClassId& other) const {
        const int a = Rank();
        const int b = other.Rank();
        return static_cast<int>(a > b) - static_cast<int>(a < b);
    }
    constexpr bool operator>(const KyClassId& other) const { return (*this != other) > 0; }

    /// Replaces `out`; a null format is `KyClassIdFmt`. Returns `out`.
    KyString& PrintToKyString(KyString& out, const char* format) const;
    void ScanFromKyString(const KyString& text, const char* format);

    // The row's functions.
    static KyCreateFunc Create;  ///< 0 v 0
    static KyDeleteFunc Delete;
    static KyStoreFunc Store;
    static KyLoadFunc Load;
    static KyNullSizeGetFunc NullSizeGet;
    static KySizeGetFunc SizeGet;
    static KySizeGetFromMemFileFunc SizeGetFromMemFile;
    static KyCompareFunc Compare;            ///< the result of `!=` in every form
    static KyEvalAndBoundFunc EvalAndBound;  ///< 1, and records nothing
    static KyHashFunc Hash;                  ///< frozen, persistent: of C XOR V, the same in every form
    static KyConvertToFunc ConvertToKyString;
    static KyConvertFromFunc ConvertFromKyString;
    static KyTranslateFunc Translate;
    static KyPrintFunc PrintToString;
    static KyScanFunc ScanFromString;

private:
    // From -2^31 on, in the order of the numbers 0xFFFFFFFF (null), 0, 1, ... 0xFFFFFFFE.
    constexpr int Rank() const;
};

constexpr int KyClassId::Rank() const {
    const unsigned int afterNull = (static_cast<unsigned int>(C) << 16 | V) + 1;
    return static_cast<int>(afterNull - 0x80000000);
}

static_assert(sizeof(KyClassId) == 4 && offsetof(KyClassId, C) == 0 && offsetof(KyClassId, V) == 2,
              "the size word of the row");

/// A reference to an object of any database: the object's identifier, the origin D of its database and its class. A
/// reference is null when its object id is.
class KY_EXPORT KyRef {
public:
    // One after the other rather than as objects: an object id would bring two bytes of padding.
    unsigned int B;
    unsigned int L;
    unsigned short H;
    unsigned short D;
    unsigned short C;
    unsigned short V;

    constexpr KyRef() : KyRef(KyObjId(), 0, KyClassId()) {}  ///< null
    constexpr KyRef(const KyObjId& object, unsigned short origin, const KyClassId& objectClass)
        : B(object.B), L(object.L), H(object.H), D(origin), C(objectClass.C), V(objectClass.V) {}

    constexpr KyRef& operator=(const KyRef&) = default;
    constexpr KyRef(const KyRef&) = default;
    constexpr KyRef& operator=(const KyClassId& objectClass);  ///< the class alone
    constexpr KyRef& operator=(const KyObjId& object);         ///< the object id alone
    constexpr KyRef& operator=(unsigned short origin);         ///< the origin alone
    constexpr KyRef& operator=(const KyLocalRef& other);       ///< object id and class; D becomes 0

    /// By the object numbers as object ids, then by D: -1, 0 or 1. The class does not matter.
    constexpr int operator!=(const KyRef& other) const {
        const int order = ky::OrderObjectNumbers(*this, other);
        return order != 0 ? order : static_cast<int>(D > other.D) - static_cast<int>(D < other.D);
    }
    constexpr bool operator==(const KyRef& other) const { return (*this != other) == 0; }

    /// Of an object with a class, in a database that is known.
    constexpr bool IsValid() const { return !HasNoObject() && C != 0 && D < kNoOrigin; }
    constexpr bool IsInvalid() const { return !IsValid(); }
    /// Of an object with a class, or in a database that is not known.
    constexpr bool IsValidOriginId() const { return !HasNoObject() && (D == kNoOrigin || C != 0); }
    constexpr bool IsInvalidOriginId() const { return !IsValidOriginId(); }

    /// Replaces `out`; a null format is `KyRefFmt`. Returns `out`.
    KyString& PrintToKyString(KyString& out, const char* format) const;
    void ScanFromKyString(const KyString& text, const char* format);

    // The row's functions. Of the operands of Compare and Hash only L, H and D count.
    static KyCreateFunc Create;  ///< nulls
    static KyDeleteFunc Delete;
    static KyStoreFunc Store;
    static KyLoadFunc Load;  ///< V becomes 0
    static KyNullSizeGetFunc NullSizeGet;
    static KySizeGetFunc SizeGet;  ///< 16 bytes an element into memory form, 14 into any other
    static KySizeGetFromMemFileFunc SizeGetFromMemFile;
    /// In memory form the result of `!=`. In every other the difference of the first unequal bytes, from the highest of
    /// D down to the lowest of L as form 1 has them: other than in memory D comes first.
    static KyCompareFunc Compare;
    static KyEvalAndBoundFunc EvalAndBound;        ///< as of object ids; limits of 14 bytes an element
    static KyHashFunc Hash;                        ///< frozen, persistent: of L XOR H XOR D, as of object ids
    static KyConvertToFunc ConvertToKyString;      ///< by `KyRefFmt`, which loses V; null strings for nulls
    static KyConvertFromFunc ConvertFromKyString;  ///< null also for a missing and for a null text
    static KyTranslateFunc Translate;
    static KyPrintFunc PrintToString;
    static KyScanFunc ScanFromString;

private:
    static constexpr unsigned short kNoOrigin = 0xFFFF;

    constexpr bool HasNoObject() const { return L == 0 && H == 0; }
};

static_assert(sizeof(KyRef) == 16 && offsetof(KyRef, B) == 0 && offsetof(KyRef, L) == 4 && offsetof(KyRef, H) == 8 &&
                  offsetof(KyRef, D) == 10 && offsetof(KyRef, C) == 12 && offsetof(KyRef, V) == 14,
              "the size word of the row, and object ids are compared and stepped where they stand in a reference");

/// A reference to an object of the same database. It has no row of its own.
class KY_EXPORT KyLocalRef {
public:
    unsigned int B;
    unsigned int L;
    unsigned short H;
    unsigned short D;  ///< 0
    unsigned short C;
    unsigned short V;

    constexpr KyLocalRef() : KyLocalRef(KyObjId(), KyClassId()) {}  ///< null
    constexpr KyLocalRef(const KyObjId& object, const KyClassId& objectClass)
        : B(object.B), L(object.L), H(object.H), D(0), C(objectClass.C), V(objectClass.V) {}

    constexpr KyLocalRef& operator=(const KyLocalRef&) = default;
    constexpr KyLocalRef(const KyLocalRef&) = default;
    constexpr KyLocalRef& operator=(const KyRef& other);            ///< object id and class
    constexpr KyLocalRef& operator=(const KyClassId& objectClass);  ///< the class alone
    constexpr KyLocalRef& operator=(const KyObjId& object);         ///< the object id alone

    constexpr int operator!=(const KyLocalRef& other) const { return ky::OrderObjectNumbers(*this, other); }
    constexpr bool operator==(const KyLocalRef& other) const { return (*this != other) == 0; }
    /// The same; for one object number 0 only where `other` has no D, else -1.
    constexpr int operator!=(const KyRef& other) const {
        const int order = ky::OrderObjectNumbers(*this, other);
        return order != 0 || other.D == 0 ? order : -1;
    }
    constexpr bool operator==(const KyRef& other) const { return (*this != other) == 0; }

    /// By `KyLocalRefFmt`, as a reference without D. Returns `out`.
    KyString& PrintToKyString(KyString& out) const;
    void ScanFromKyString(const KyString& text);
};

static_assert(sizeof(KyLocalRef) == 16 && offsetof(KyLocalRef, B) == 0 && offsetof(KyLocalRef, L) == 4 &&
                  offsetof(KyLocalRef, H) == 8 && offsetof(KyLocalRef, D) == 10 && offsetof(KyLocalRef, C) == 12 &&
                  offsetof(KyLocalRef, V) == 14,
              "laid out like a reference");

namespace ky {

template <class Reference, class Object>
constexpr void CopyObjectPart(Reference& to, const Object& from) {
    to.B = from.B;
    to.L = from.L;
    to.H = from.H;
}

template <class Reference, class Class>
constexpr void CopyClassPart(Reference& to, const Class& from) {
    to.C = from.C;
    to.V = from.V;
}

}  // namespace ky

constexpr KyRef& KyRef::operator=(const KyClassId& objectClass) {
    ky::CopyClassPart(*this, objectClass);
    return *this;
}

constexpr KyRef& KyRef::operator=(const KyObjId& object) {
    ky::CopyObjectPart(*this, object);
    return *this;
}

constexpr KyRef& KyRef::operator=(unsigned short origin) {
    D = origin;
    return *this;
}

constexpr KyRef& KyRef::operator=(const KyLocalRef& other) {
    ky::CopyObjectPart(*this, other);
    ky::CopyClassPart(*this, other);
    D = 0;
    return *this;
}

constexpr KyLocalRef& KyLocalRef::operator=(const KyRef& other) {
    ky::CopyObjectPart(*this, other);
    ky::CopyClassPart(*this, other);
    return *this;
}

constexpr KyLocalRef& KyLocalRef::operator=(const KyClassId& objectClass) {
    ky::CopyClassPart(*this, objectClass);
    return *this;
}

constexpr KyLocalRef& KyLocalRef::operator=(const KyObjId& object) {
    ky::CopyObjectPart(*this, object);
    return *this;
}

#endif
