#include <atomic>

#include "code_mapping.h"
#include "kyi18n.h"
#include "kystring.h"

constinit unsigned short KyString::_nAsterisk = 0;
constinit unsigned short KyString::_nQuestion = 0;
constinit unsigned short KyString::_nEscape = 0;

namespace {

/// The order set so far, else that of an ASCII character in Latin-1, which is kept. Threads that come here at once
/// store the same value.
unsigned short OrderOf(unsigned short& setting, char defaultCharacter) {
    const std::atomic_ref shared(setting);
    unsigned short order = shared.load(std::memory_order_relaxed);
    if (order == 0) {
        order = KyChar(defaultCharacter, KyCodeSetLatin1, KyLanguageNeutral).GetOrder();
        shared.store(order, std::memory_order_relaxed);
    }
    return order;
}

int SetAQE(const KyChar& c, unsigned short& setting) {
    const unsigned short code = c.CodeGet();
    char narrow[2] = {static_cast<char>(code), 0};
    unsigned short wide[2] = {code, 0};
    const char* text = ky::CharWidth(c.CodeSetGet()) == 1 ? narrow : reinterpret_cast<const char*>(wide);
    KyStringIterator it(text, c.CodeSetGet(), c.LanguageGet(), 255);
    std::atomic_ref(setting).store(it.GetNextOrder(0), std::memory_order_relaxed);
    return 0;
}

}  // namespace

unsigned short KyString::GetAsterisk() { return OrderOf(_nAsterisk, '*'); }
unsigned short KyString::GetQuestion() { return OrderOf(_nQuestion, '?'); }
unsigned short KyString::GetEscape() { return OrderOf(_nEscape, '\\'); }

int KyString::SetAsterisk(const KyChar& c) { return SetAQE(c, _nAsterisk); }
int KyString::SetQuestion(const KyChar& c) { return SetAQE(c, _nQuestion); }
int KyString::SetEscape(const KyChar& c) { return SetAQE(c, _nEscape); }
