#ifndef C_LOCALE_H
#define C_LOCALE_H

#include <clocale>

/// While it lives, this thread's C library functions work in the "C" locale: a test that compares with what they read
/// or print is the same under every locale.
class CLocale {
public:
    CLocale() : plain(newlocale(LC_ALL_MASK, "C", nullptr)), previous(uselocale(plain)) {}
    CLocale(const CLocale&) = delete;
    CLocale& operator=(const CLocale&) = delete;
    ~CLocale() {
        uselocale(previous);
        freelocale(plain);
    }

private:
    locale_t plain;
    locale_t previous;
};

#endif
