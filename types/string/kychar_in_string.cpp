#include "code_sets.h"
#include "kystring.h"

KyChar::KyChar(KyString& s, int byteOffset)
    : KyChar(s.StrGet() + byteOffset, ky::TextCodeSet(s.CodeSetGet()), s.LanguageGet(), 1) {}
