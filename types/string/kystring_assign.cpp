#include "kystring.h"
#include "kystring_build.h"

KyString& ky::AssignText(KyString& out, const char* text, std::size_t length) {
    const unsigned char codeSet = KyString::GetDefault8CodeSet();
    if (length >= kMaxStringBytes || CharWidth(codeSet) != 1) return out = text;

    char* block = new char[length + 1];
    CopyText(block, text, length);
    block[length] = 0;
    delete[] out.buffer;
    out.buffer = block;
    out.bufferSize = static_cast<unsigned short>(length + 1);
    out.codeSet = codeSet;
    out.language = KyString::GetDefaultLanguage();
    return out;
}
