#ifndef STRING_TEXTS_H
#define STRING_TEXTS_H

#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "kybase.h"
#include "kyi18n.h"
#include "kystring.h"

/// What a string holds up to its terminator.
inline std::string Text(const KyString& s) { return s.StrGet(); }

inline std::u16string Text16(const KyString& s) {
    std::u16string units;
    for (unsigned i = 0; i < s.Len(); ++i) {
        char16_t unit;
        std::memcpy(&unit, s.StrGet() + 2 * i, 2);
        units += unit;
    }
    return units;
}

/// Everything a string holds in front of the last terminator of its allocation.
inline std::string Content(const KyString& s) {
    return s.BufferSizeGet() == 0 ? std::string() : std::string(s.StrGet(), s.BufferSizeGet() - s.NullLen());
}

inline KyString Wide(const std::u16string& units) {
    return KyString(reinterpret_cast<const unsigned short*>(units.c_str()), static_cast<unsigned short>(units.size()));
}

inline KyString Narrow(const std::string& bytes) {
    return KyString(bytes.data(), static_cast<unsigned short>(bytes.size()));
}

inline KyString Labelled(KyString s, unsigned char codeSet, unsigned char language) {
    s.SetCodeSetCode(codeSet);
    s.LanguageSet(language);
    return s;
}

inline KyString Null() {
    KyString s;
    s.SetNullValue();
    return s;
}

/// A configuration whose "stringOverflow" of the section "debug" has this value, and a count of the assertions raised.
class OverflowSwitch : public KyConfig {
public:
    explicit OverflowSwitch(int switchValue) : value(switchValue) {
        raised.clear();
        previousConfig = DefaultConfig(this);
        previousHandler = KYRN_setAssertHandler(&Record);
    }
    OverflowSwitch(const OverflowSwitch&) = delete;
    OverflowSwitch& operator=(const OverflowSwitch&) = delete;
    ~OverflowSwitch() override {
        KYRN_setAssertHandler(previousHandler);
        DefaultConfig(previousConfig);
    }

    int GetText(const char*, const char**, const char*) override { return 0; }
    int GetNumber(const char*, double*, const char*) override { return 0; }
    int HasSection(const char*) override { return 0; }
    int GetInteger(const char* key, int* out, const char* section) override {
        ++asked;
        if (section == nullptr || std::strcmp(section, "debug") != 0 || std::strcmp(key, "stringOverflow") != 0)
            return 0;
        *out = value;
        return 1;
    }

    /// "message|source|line" of each assertion.
    static const std::vector<std::string>& Raised() { return raised; }
    int Asked() const { return asked; }

private:
    int value;
    int asked = 0;
    KyConfig* previousConfig;
    KyAssertHandler previousHandler;
    static inline std::vector<std::string> raised;

    static void Record(const char* message, const char* source, int line) {
        raised.push_back(std::string(message) + "|" + source + "|" + std::to_string(line));
    }
};

/// Other process-wide defaults for as long as this lives.
class OtherDefaults {
public:
    OtherDefaults()
        : codeSet(KyString::GetDefaultCodeSet()),
          codeSet8(KyString::GetDefault8CodeSet()),
          codeSet16(KyString::GetDefault16CodeSet()),
          language(KyString::GetDefaultLanguage()),
          cmpOp(KyString::GetDefaultCmpOp()) {}
    OtherDefaults(const OtherDefaults&) = delete;
    OtherDefaults& operator=(const OtherDefaults&) = delete;
    ~OtherDefaults() {
        KyString::SetDefaultCodeSet(codeSet);
        KyLanguageContext::SetDefault8CodeSet(codeSet8);
        KyLanguageContext::SetDefault16CodeSet(codeSet16);
        KyString::SetDefaultLanguage(language);
        KyString::SetDefaultCmpOp(cmpOp);
    }

private:
    unsigned char codeSet;
    unsigned char codeSet8;
    unsigned char codeSet16;
    unsigned char language;
    unsigned short cmpOp;
};

#endif
