#include "kystring.h"

KyChar::KyChar(KyString& s, int byteOffset) : KyChar(s.StrGet() + byteOffset, s.CodeSetGet(), s.LanguageGet(), 1) {}
