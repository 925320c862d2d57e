#include "ascii.h"
#include "kystring.h"
#include "kytypmgr.h"
#include "number_text.h"
#include "scan_helpers_word.h"

void SkipDigits(char*& text) {
    if (*text != '+' && *text != '-' && !ky::IsDigit(*text)) return;
    do {
        ++text;
    } while (ky::IsDigit(*text));
}

namespace {

template <class Value>
int ScanNumber(const char* text, const char* format, Value& target) {
    ky::ScanText(text, format, target);
    return 0;
}

/// The unsigned targets are scanned as the signed ones of their width: the conversion letter tells the two apart.
template <class Signed, class Value>
int ScanAs(const char* text, const char* format, Value& target) {
    auto value = static_cast<Signed>(target);
    ky::ScanText(text, format, value);
    target = static_cast<Value>(value);
    return 0;
}

}  // namespace

int MySscanf(char* text, int, const char* format, int, char* target) {
    return ScanAs<signed char>(text, format, *target);
}

int MySscanf(char* text, int, const char* format, int, unsigned char* target) {
    return ScanAs<signed char>(text, format, *target);
}

int MySscanf(char* text, int, const char* format, int, short* target) { return ScanNumber(text, format, *target); }

int MySscanf(char* text, int, const char* format, int, unsigned short* target) {
    return ScanAs<short>(text, format, *target);
}

int MySscanf(char* text, int, const char* format, int, int* target) { return ScanNumber(text, format, *target); }

int MySscanf(char* text, int, const char* format, int, unsigned int* target) {
    return ScanAs<int>(text, format, *target);
}

int MySscanf(char* text, int, const char* format, int, long long* target) { return ScanNumber(text, format, *target); }

int MySscanf(char* text, int, const char* format, int, unsigned long long* target) {
    return ScanAs<long long>(text, format, *target);
}

int MySscanf(char* text, int, const char* format, int, float* target) { return ScanNumber(text, format, *target); }
int MySscanf(char* text, int, const char* format, int, double* target) { return ScanNumber(text, format, *target); }

int MySscanf(char* text, int, const char* format, int size, KyString* target) {
    *target = ky::ScanWord(text, format, size).c_str();
    return 0;
}
