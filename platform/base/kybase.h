#ifndef KYBASE_H
#define KYBASE_H

/// Base services: byte-order conversion of plain numbers and their persistent sizes, the memory file,
/// assertion and out-of-memory handlers, version check, configuration, clock.

#include <cstddef>

#include "kyexport.h"

// ---------------------------------------------------------------------------------------------
// Byte-order conversion.
//
// Each function converts `count` values between the memory form and the persistent form that `flag`
// names, in either direction (it is its own inverse), and returns the bytes written: `count` times the
// width. Low four bits of the flag 2: the bytes of each value are reversed; anything else: copied.
// `dst` and `src` need no alignment; they may be equal but not overlap otherwise.
// `int` and `unsigned` are 4 bytes wide in every form.
// ---------------------------------------------------------------------------------------------

KY_EXPORT unsigned CharStore(void* dst, const void* src, unsigned char flag, unsigned count);      // 1 byte
KY_EXPORT unsigned ShortStore(void* dst, const void* src, unsigned char flag, unsigned count);     // 2 bytes
KY_EXPORT unsigned LongStore(void* dst, const void* src, unsigned char flag, unsigned count);      // 4 bytes
KY_EXPORT unsigned O_8BStore(void* dst, const void* src, unsigned char flag, unsigned count);      // 8 bytes
KY_EXPORT unsigned FloatStore(void* dst, const void* src, unsigned char flag, unsigned count);     // 4 bytes
KY_EXPORT unsigned DoubleStore(void* dst, const void* src, unsigned char flag, unsigned count);    // 8 bytes
KY_EXPORT unsigned IntStore(void* dst, const void* src, unsigned char flag, unsigned count);       // 4 bytes
KY_EXPORT unsigned IntLoad(void* dst, const void* src, unsigned char flag, unsigned count);        // 4 bytes
KY_EXPORT unsigned UnsignedStore(void* dst, const void* src, unsigned char flag, unsigned count);  // 4 bytes
KY_EXPORT unsigned UnsignedLoad(void* dst, const void* src, unsigned char flag, unsigned count);   // 4 bytes

/// One value; returns its width in bytes.
KY_EXPORT unsigned ShortStoreOne(void* dst, const void* src, unsigned char flag);
KY_EXPORT unsigned LongStoreOne(void* dst, const void* src, unsigned char flag);
KY_EXPORT unsigned O_8BStoreOne(void* dst, const void* src, unsigned char flag);

/// Persistent bytes of `count` empty values: width times count.
KY_EXPORT unsigned CharNullSizeGet(unsigned count);
KY_EXPORT unsigned ShortNullSizeGet(unsigned count);
KY_EXPORT unsigned LongNullSizeGet(unsigned count);
KY_EXPORT unsigned O_8BNullSizeGet(unsigned count);
KY_EXPORT unsigned FloatNullSizeGet(unsigned count);
KY_EXPORT unsigned DoubleNullSizeGet(unsigned count);
KY_EXPORT unsigned IntNullSizeGet(unsigned count);

/// Bytes that `count` values of `fromForm` take in `toForm`: width times count. `value` is not read and may be null.
KY_EXPORT unsigned CharSizeGet(const void* value, unsigned char fromForm, unsigned char toForm, unsigned count);
KY_EXPORT unsigned ShortSizeGet(const void* value, unsigned char fromForm, unsigned char toForm, unsigned count);
KY_EXPORT unsigned LongSizeGet(const void* value, unsigned char fromForm, unsigned char toForm, unsigned count);
KY_EXPORT unsigned O_8BSizeGet(const void* value, unsigned char fromForm, unsigned char toForm, unsigned count);
KY_EXPORT unsigned FloatSizeGet(const void* value, unsigned char fromForm, unsigned char toForm, unsigned count);
KY_EXPORT unsigned DoubleSizeGet(const void* value, unsigned char fromForm, unsigned char toForm, unsigned count);
KY_EXPORT unsigned IntSizeGet(const void* value, unsigned char fromForm, unsigned char toForm, unsigned count);

// ---------------------------------------------------------------------------------------------
// Memory file: a position inside a caller's buffer, which it does not own.
// ---------------------------------------------------------------------------------------------

class KY_EXPORT MemFile {
public:
    enum Origin { begin, current, end };

    /// Over `size` bytes at `buffer`; the position starts at 0.
    MemFile(void* buffer, std::size_t size);

    /// Moves the position by `offset` bytes from `origin` and returns its address. Null, with the position
    /// left alone, when the result would lie outside the buffer; its end, one past the last byte, lies inside.
    void* Seek(long offset, int origin);

private:
    unsigned char* start;
    std::size_t size;
    std::size_t position;
};

// ---------------------------------------------------------------------------------------------
// Handlers. Each is process-wide; setting one returns the previous one. Any thread may raise or set.
// ---------------------------------------------------------------------------------------------

using KyAssertHandler = void (*)(const char* message, const char* source, int line);
using KyMemoryHandler = void (*)(std::size_t size);

/// Reports a broken internal contract to the installed handler. The default writes one line,
/// "source:line: message", to standard error and returns: processing goes on.
KY_EXPORT void KYRN_assert(const char* message, const char* source, int line);
/// Null restores the default.
KY_EXPORT KyAssertHandler KYRN_setAssertHandler(KyAssertHandler handler);

/// Reports that `size` bytes could not be had. The default throws `std::bad_alloc`.
KY_EXPORT void KyCallMemoryHandler(std::size_t size);
/// Null restores the default.
KY_EXPORT KyMemoryHandler KySetMemoryHandler(KyMemoryHandler handler);

/// Memory of index bounds, freed with `mmKyfree`. A size of 0 gives a valid pointer. Failure goes to the
/// memory handler; should that return, the result is null.
KY_EXPORT void* mmKymalloc(std::size_t size);
KY_EXPORT void mmKyfree(void* block);

// ---------------------------------------------------------------------------------------------
// Version and configuration
// ---------------------------------------------------------------------------------------------

/// 0 when a caller built for this version fits the library, a non-zero code otherwise. `flags`: bit 0 the
/// major and minor numbers, bit 1 the release number have to agree; further bits are not used.
KY_EXPORT int CheckKyVersionNumber(int major, int minor, int release, int build, int patch, unsigned flags);

/// The process's configuration, implemented by the engine. The order of the operations is part of the
/// interface: the integer look-up is entry 3 of the operation table, the destructor stands behind it.
class KY_EXPORT KyConfig {
public:
    /// Each look-up returns 1 and writes `*value` when `section` (null: no section) has `key`, else returns 0
    /// and leaves `*value` alone. Texts belong to the configuration object.
    virtual int GetText(const char* key, const char** value, const char* section) = 0;
    virtual int GetNumber(const char* key, double* value, const char* section) = 0;
    virtual int HasSection(const char* section) = 0;
    virtual int GetInteger(const char* key, int* value, const char* section) = 0;
    virtual ~KyConfig();
};

/// The all-ones pointer queries; any other value, null included, installs it. Returns what was installed
/// before. The object stays its creator's.
KY_EXPORT KyConfig* DefaultConfig(KyConfig* config);

// ---------------------------------------------------------------------------------------------
// Clock
// ---------------------------------------------------------------------------------------------

struct bdate {
    short year;
    signed char month;  ///< 1 to 12
    signed char day;    ///< 1 to 31
};

struct btime {
    signed char hour;    ///< 0 to 23
    signed char minute;  ///< 0 to 59
    signed char second;  ///< 0 to 59
    signed char reserved;
    int zoneSeconds;  ///< seconds east of UTC; 0 in UTC readings and when the offset is unknown
};

static_assert(sizeof(bdate) == 4 && sizeof(btime) == 8 && offsetof(btime, zoneSeconds) == 4);

/// What `bksgettimezone` returns when the offset from UTC is not known.
inline constexpr int bksUnknownTimeZone = -2171;

/// Local date, local time of day.
KY_EXPORT void bksgetdate(bdate* date);
KY_EXPORT void bksgettime(btime* time);
/// UTC time and date of one instant.
KY_EXPORT void bksgetsystemtime(btime* time, bdate* date);
/// Local date, time and nanoseconds (0 to 999999999) of one instant.
KY_EXPORT void bksGetHiresTime(bdate& date, btime& time, int& nanoseconds);
/// The same in UTC.
KY_EXPORT void bksGetHiresTimeUTC(bdate& date, btime& time, int& nanoseconds);
/// Minutes east of UTC, or -2171.
KY_EXPORT int bksgettimezone();

/// One reading of a clock.
struct bksClockReading {
    long long utcSeconds;  ///< since 1970-01-01T00:00:00Z, negative before
    int nanoseconds;       ///< 0 to 999999999
    int offsetMinutes;     ///< east of UTC; -2171: unknown, local readings are then UTC's
};
typedef bksClockReading (*bksClockSource)();

/// Installs a clock in place of the machine's, so that what depends on the time can be replayed, and
/// returns the previous one (null: the machine's). Null restores the machine's.
KY_EXPORT bksClockSource bksSetClock(bksClockSource source);

#endif
