#include "kyi18n.h"
#include "kystring.h"
#include "kystring_build.h"

char* ky::RenewText(KyString& out, std::size_t length) {
    const unsigned char codeSet = KyLanguageContext::GetDefault8CodeSet();
    if (length >= kMaxStringBytes || CharWidth(codeSet) != 1) return nullptr;

    // A column of values prints into one string: most are as long as the one before.
    if (out.bufferSize != length + 1) {
        char* const block = new char[length + 1];
        delete[] out.buffer;
        out.buffer = block;
        out.bufferSize = static_cast<unsigned short>(length + 1);
    }
    out.buffer[length] = 0;
    out.codeSet = codeSet;
    out.language = KyLanguageContext::GetDefaultLanguage();
    return out.buffer;
}

KyString& ky::AssignText(KyString& out, const char* text, std::size_t length) {
    const unsigned char codeSet = KyLanguageContext::GetDefault8CodeSet();
    if (length >= kMaxStringBytes || CharWidth(codeSet) != 1) return out = text;

    char* const block = new char[length + 1];
    CopyText(block, text, length);  // which may stand in the old block
    block[length] = 0;
    delete[] out.buffer;
    out.buffer = block;
    out.bufferSize = static_cast<unsigned short>(length + 1);
    out.codeSet = codeSet;
    out.language = KyLanguageContext::GetDefaultLanguage();
    return out;
}
