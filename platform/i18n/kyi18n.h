#ifndef KYI18N_H
#define KYI18N_H

/// Internationalisation: the language context with the process-wide defaults, code sets with their
/// character records, languages.

#include "kyexport.h"

// Code set numbers. Below 225: 8-bit characters; 225 and above: 16-bit characters.
inline constexpr unsigned char KyCodeSetNative = 0;
inline constexpr unsigned char KyCodeSetLatin1 = 1;
inline constexpr unsigned char KyCodeSetWindows1252 = 2;
inline constexpr unsigned char KyCodeSetAscii = 3;
inline constexpr unsigned char KyCodeSetFirst16Bit = 225;
inline constexpr unsigned char KyCodeSetUnicode = 253;
inline constexpr unsigned char KyCodeSetOrders = 254;  ///< a text of order values
inline constexpr unsigned char KyCodeSetDefault = 255;

// Language numbers.
inline constexpr unsigned char KyLanguageNeutral = 0;
inline constexpr unsigned char KyLanguageNull = 254;  ///< marks a null string
inline constexpr unsigned char KyLanguageDefault = 255;

class KyCodeSet;
class KyLanguage;

/// Process-wide defaults and the way to code sets and languages. Usable from the first instruction after
/// loading. The setters are for start-up; reading is safe in any thread.
class KY_EXPORT KyLanguageContext {
public:
    static unsigned char GetDefaultCodeSet();
    static void SetDefaultCodeSet(unsigned char codeSet);
    static unsigned char GetDefault8CodeSet();
    static void SetDefault8CodeSet(unsigned char codeSet);
    static unsigned char GetDefault16CodeSet();
    static void SetDefault16CodeSet(unsigned char codeSet);
    static unsigned char GetDefaultLanguage();
    static void SetDefaultLanguage(unsigned char language);
    /// Starts as 0x0100: exact, no wildcards.
    static unsigned short GetDefaultCmpOp();
    static void SetDefaultCmpOp(unsigned short op);

    /// The code set that number 0 stands for.
    static unsigned char GetNativeCodeSet();

    /// Null for a number without a code set.
    static const KyCodeSet* QueryCodeSet(unsigned char codeSet);
    /// Null for a number without a language.
    static const KyLanguage* QueryLanguage(unsigned char language);
};

extern "C" {
/// Attaches (non-zero) and detaches (0) the library. Nothing has to be prepared: both may be called at any time.
KY_EXPORT void ___KyI18NContext(int attach);
}

#endif
