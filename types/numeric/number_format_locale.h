#ifndef NUMBER_FORMAT_LOCALE_H
#define NUMBER_FORMAT_LOCALE_H

#include <locale.h>

namespace ky {

/// While it lives, this thread's C library functions work in the "C" locale, whatever `setlocale` chose.
class PlainLocale {
public:
    PlainLocale() : previous(uselocale(Plain())) {}
    PlainLocale(const PlainLocale&) = delete;
    PlainLocale& operator=(const PlainLocale&) = delete;
    ~PlainLocale() { uselocale(previous); }

private:
    locale_t previous;

    static locale_t Plain() {
        static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
        return plain;
    }
};

}  // namespace ky

#endif
