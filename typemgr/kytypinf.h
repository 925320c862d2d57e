#ifndef KYTYPINF_H
#define KYTYPINF_H

/// What an engine finds by name after it has loaded the library: who the library is, whether it fits, and its
/// attachment. All names are unmangled. But for `___KyTypemgrContext` everything can be used before the attachment.
///
/// Every text is the library's and stays valid while it is loaded. Nothing here fails.

#include "kyexport.h"

extern "C" {

/// Replaceable by an engine that gives the library another identity; the texts stay the engine's then.
// KEPT: the short name has an "s" that the library's file name lacks; engines look for it so.
extern KY_EXPORT const char* DLLname;          ///< "CV120Vtms44x64"
extern KY_EXPORT const char* DLLtitle;         ///< "Corvane Typemanager"
extern KY_EXPORT const char* DLLdate;          ///< day of the release
extern KY_EXPORT const char* DLLcompilerName;  ///< compiler with its version, word size and operating system

/// Writes all eleven; every pointer must be valid. Returns `DLLtitle`.
///   major, minor, release, build, patch   12, 0, 2, 229, 0
///   name           `DLLname`
///   date           time stamp of the release: "May 27 2019 21:36:01"
///   extra          "unknown"
///   buildNumber    440
///   compiler       `DLLcompilerName`
///   empty          ""
KY_EXPORT const char* KyDescribeDll(unsigned* major, unsigned* minor, unsigned* release, unsigned* build,
                                    unsigned* patch, const char** name, const char** date, const char** extra,
                                    unsigned* buildNumber, const char** compiler, const char** empty);

/// Writes what is asked for; null skips an output.
///   version   "Corvane Typemanager 12.0.2.229.0 ", the blank at its end included: a buffer of the library's, made
///             anew on each call from `DLLtitle`, of which it holds 200 characters
///   date      `DLLdate`
KY_EXPORT void GetKyTypeMgrInfo(const char** compiler, unsigned* buildNumber, const char** version, const char** date,
                                const char** name);

/// Whether the base services library fits this one: its `CheckKyVersionNumber` of version 12.0.2.229.0 with
/// `flags` and 3. 0 when it does.
KY_EXPORT int KyCheckDll(unsigned flags);

/// The options block: 16 bytes, zero at load, filled by the engine. Bit 0 of the first byte set: the
/// number conversions of `KyString` read 8-bit text in base 10 instead of taking the base from the text.
KY_EXPORT void* ___KyTypeMgrOptions();

/// Attaches the library (`attach` not 0) or detaches it, together with the internationalisation library. Attaching
/// makes a manager of factory 5 the default one, and detaching deletes the default manager.
// KEPT: attaching twice loses the first manager, and detaching deletes also a manager that an application has
// registered; loaders call this once each way.
KY_EXPORT void ___KyTypemgrContext(int attach);
}

#endif
