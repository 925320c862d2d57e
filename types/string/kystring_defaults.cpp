#include "kyi18n.h"
#include "kystring.h"

unsigned char KyString::GetDefaultCodeSet() { return KyLanguageContext::GetDefaultCodeSet(); }
void KyString::SetDefaultCodeSet(unsigned char code) { KyLanguageContext::SetDefaultCodeSet(code); }
unsigned char KyString::GetDefault8CodeSet() { return KyLanguageContext::GetDefault8CodeSet(); }
unsigned char KyString::GetDefault16CodeSet() { return KyLanguageContext::GetDefault16CodeSet(); }
unsigned char KyString::GetDefaultLanguage() { return KyLanguageContext::GetDefaultLanguage(); }
void KyString::SetDefaultLanguage(unsigned char code) { KyLanguageContext::SetDefaultLanguage(code); }
unsigned short KyString::GetDefaultCmpOp() { return KyLanguageContext::GetDefaultCmpOp(); }
void KyString::SetDefaultCmpOp(unsigned short op) { KyLanguageContext::SetDefaultCmpOp(op); }
