#include <atomic>

#include "kyi18n.h"

namespace {

constinit std::atomic<unsigned char> defaultCodeSet{KyCodeSetLatin1};
constinit std::atomic<unsigned char> default8CodeSet{KyCodeSetLatin1};
constinit std::atomic<unsigned char> default16CodeSet{KyCodeSetUnicode};
constinit std::atomic<unsigned char> defaultLanguage{KyLanguageNeutral};
constinit std::atomic<unsigned short> defaultCmpOp{0x0100};

}  // namespace

unsigned char KyLanguageContext::GetDefaultCodeSet() { return defaultCodeSet.load(std::memory_order_relaxed); }
void KyLanguageContext::SetDefaultCodeSet(unsigned char codeSet) { defaultCodeSet = codeSet; }
unsigned char KyLanguageContext::GetDefault8CodeSet() { return default8CodeSet.load(std::memory_order_relaxed); }
void KyLanguageContext::SetDefault8CodeSet(unsigned char codeSet) { default8CodeSet = codeSet; }
unsigned char KyLanguageContext::GetDefault16CodeSet() { return default16CodeSet.load(std::memory_order_relaxed); }
void KyLanguageContext::SetDefault16CodeSet(unsigned char codeSet) { default16CodeSet = codeSet; }
unsigned char KyLanguageContext::GetDefaultLanguage() { return defaultLanguage.load(std::memory_order_relaxed); }
void KyLanguageContext::SetDefaultLanguage(unsigned char language) { defaultLanguage = language; }
unsigned short KyLanguageContext::GetDefaultCmpOp() { return defaultCmpOp.load(std::memory_order_relaxed); }
void KyLanguageContext::SetDefaultCmpOp(unsigned short op) { defaultCmpOp = op; }

unsigned char KyLanguageContext::GetNativeCodeSet() { return KyCodeSetLatin1; }

unsigned KyLanguageContext::QueryTableVersion() { return KyTableVersion; }
unsigned long long KyLanguageContext::QueryTableChecksum() { return KyTableChecksum; }

// All tables are constant data and the defaults outlive every attachment.
void ___KyI18NContext(int) {}
