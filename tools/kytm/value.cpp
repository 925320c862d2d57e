#include "value.h"

#include <bit>
#include <cstring>

#include "compare_word.h"
#include "date_texts.h"
#include "identifier_shape.h"
#include "kyblob.h"
#include "kyseal.h"
#include "kystring.h"
#include "lines.h"
#include "terminal.h"
#include "texts.h"
#include "type_lookup.h"

namespace kytm {

namespace {

static_assert(std::endian::native == std::endian::little, "the low bytes of a number are its first ones");

constexpr std::size_t kLongestText = KyString::MaxBytes - 1;

constexpr char kNoValue[] = "no value can be read from it";
constexpr char kNoNumber[] = "it is no number as a whole";
constexpr char kNoCharacter[] = "it is not one character";
constexpr char kOtherForm[] = "it does not have the form of the format";
constexpr char kTooShort[] = "it ends before its format does";
constexpr char kOtherNumbers[] = "its numbers are not those of a value of the type";
constexpr char kTooLarge[] = "the number does not fit in the type";
constexpr char kTooLong[] = "it is longer than 65531 bytes";
constexpr char kZeroByte[] = "it holds a zero byte";
constexpr char kNoDigits[] = "it is no row of pairs of hexadecimal digits";
constexpr char kLargeFile[] = "the file is longer than 2147483643 bytes";
constexpr char kBehindNull[] = "it goes on behind the text of null values";

constexpr long long kHighestSeal = 0xFFFFFFFFFFFF;
/// With its length field it is still a record that can be loaded.
constexpr std::size_t kLongestFile = 2147483647 - 4;

bool IsString(char id) { return id == KySTRING_T; }

/// The date types use the letters of numbers for other things, but never one of these as the whole format.
bool IsNumber(const NumberFormat& own) {
    return own.IsCharacter() || own.conversion == 'd' || own.conversion == 'u' || own.conversion == 'S' ||
           own.wordsOnly17g;
}

bool Fits(const NumberFormat& given, const NumberFormat& own) {
    if (own.IsReal()) return given.IsReal();
    if (own.conversion == 'S') return given.IsWhole() && given.conversion != 'u';
    return (given.IsWhole() && given.conversion != 'S') || (given.IsCharacter() && own.IsCharacter());
}

/// The number format that texts of this type follow; nothing for types whose row has another format.
std::optional<NumberFormat> NumberFormatOf(char id, const char* format) {
    std::optional<NumberFormat> own = NumberFormat::Parse(PrintFormat(id));
    if (!own || !IsNumber(*own)) return std::nullopt;
    if (format == nullptr) return own;

    std::optional<NumberFormat> given = NumberFormat::Parse(format);
    if (!given || !Fits(*given, *own)) {
        throw Failure("the format " + Quoted(format) + " does not fit the type " + TypeName(id));
    }
    // The 64-bit integer class takes no base from the text.
    if (own->conversion == 'S' && given->conversion == 'i') given->conversion = 'd';
    return given;
}

}  // namespace

Values::Values(char typeId, unsigned valueCount)
    : id(typeId),
      count(valueCount),
      size(Manager().MemLenGet(typeId, 1)),
      base(static_cast<unsigned char*>(Manager().Create(typeId, valueCount))) {
    if (base == nullptr) throw Failure("no values can be made of the type " + TypeName(id));
    if (Manager().IsFixed(id) != 0) std::memset(base, 0, size * count);
}

Values::~Values() { Manager().Delete(id, base, count); }

Scanner::Scanner(char typeId, const char* givenFormat, TextForm& textForm)
    : id(typeId),
      format(givenFormat),
      form(textForm),
      number(NumberFormatOf(typeId, givenFormat)),
      nullText(KyTypeMgr::GetNullPrintString().StrGet()),
      hasNull(Manager().SupportsNullValue(typeId) != 0),
      isFixed(Manager().IsFixed(typeId) != 0),
      memoryBytes(Manager().MemLenGet(typeId, 1)),
      second(typeId, 1) {
    if (!number) return;
    // A nullable number is stored as the number and one byte that tells nulls.
    numberBytes = Manager().DiskLenGet(id, second[0], KyFormNative, 1, KyFormMemory) - (hasNull ? 1U : 0U);
    isSigned = TypeIsSigned();
}

const char* Scanner::Scan(std::string_view text, void* value) {
    const bool isNullText = hasNull && !nullText.empty() && text.starts_with(nullText);
    if (IsString(id)) {
        if (const char* fault = form.Read(text); fault != nullptr) return fault;
        if (isNullText && text.size() != nullText.size()) return kBehindNull;
        KyString content = form.ToString();
        Manager().ScanFromKyString(id, value, content, format, 1);
        return nullptr;
    }
    if (text.size() > kLongestText) return kTooLong;
    if (text.find('\0') != std::string_view::npos) return kZeroByte;
    if (isNullText && text.size() != nullText.size()) return kBehindNull;
    if (id == KySEAL_T) return ScanSeal(text, value);
    if (!isFixed) return ScanInto(text, value) ? nullptr : kNoDigits;
    if (IsIdentifier(id) && !isNullText) return ScanIdentifier(text, value);
    if (IsDateType(id) && !isNullText) return ScanDate(text, value);
    if (!number || isNullText || (hasNull && text.empty())) return ScanTwice(text, value);
    return ScanNumber(text, value);
}

const char* Scanner::ScanArgument(std::string_view word, void* value) {
    if (id != KyBLOB_T || word.size() < 2 || word[0] != '@') return Scan(word, value);
    Progress progress;
    const std::string content = ReadAll(std::string(word.substr(1)), progress);
    if (content.size() > kLongestFile) return kLargeFile;
    static_cast<KyBlob*>(value)->SetTo(content.data(), static_cast<int>(content.size()));
    return nullptr;
}

const char* Scanner::ScanNumber(std::string_view text, void* value) {
    if (numberBytes == 1 && text.starts_with("0x")) {
        if (const char* fault = ScanWhole(text, text, value, 16); fault == nullptr) return nullptr;
    }
    // A word for infinity is only read when nothing follows it, not even a blank.
    if (!number->IsCharacter()) text = WithoutBlanksBehind(text);
    const std::optional<std::string_view> inner = number->Inner(text);
    if (!inner) return kOtherForm;
    if (inner->empty()) return kNoValue;
    if (number->IsWhole()) return ScanWhole(*inner, text, value, number->Base());
    if (number->IsCharacter()) {
        if (inner->size() != 1) return kNoCharacter;
    } else if (!IsDecimalNumber(*inner) && !IsNumberWord(*inner, number->wordsOnly17g)) {
        return kNoNumber;
    }
    return ScanTwice(text, value);
}

const char* Scanner::ScanWhole(std::string_view digits, std::string_view text, void* value, int base) {
    const std::optional<WholeNumber> given = ReadWholeNumber(digits, base);
    if (!given) return kNoNumber;
    if (!FitsRange(*given, base)) return kTooLarge;
    std::memset(value, 0, memoryBytes);
    ScanInto(text, value);
    const unsigned long long bits = given->negative ? 0 - given->magnitude : given->magnitude;
    return std::memcmp(value, &bits, numberBytes) == 0 ? nullptr : kNoValue;
}

bool Scanner::FitsRange(const WholeNumber& given, int base) const {
    if (given.tooLarge) return false;
    const unsigned bitCount = numberBytes * 8;
    const unsigned long long highest = ~0ULL >> (64 - bitCount);
    const unsigned long long highestSigned = highest >> 1;
    const bool asSigned = isSigned || (number->IsWhole() && number->IsSigned());
    const bool asUnsigned = !isSigned || base == 16 || !number->IsSigned();
    if (given.negative) return given.magnitude == 0 || (asSigned && given.magnitude <= highestSigned + 1);
    return given.magnitude <= (asUnsigned ? highest : highestSigned);
}

const char* Scanner::ScanIdentifier(std::string_view text, void* value) {
    switch (CheckIdentifier(text, format != nullptr ? format : PrintFormat(id))) {
        case IdentifierFault::otherForm:
            return kOtherForm;
        case IdentifierFault::tooLarge:
            return kTooLarge;
        case IdentifierFault::none:
            break;
    }
    return ScanTwice(text, value);
}

const char* Scanner::ScanSeal(std::string_view text, void* value) {
    const std::optional<WholeNumber> given = ReadWholeNumber(WithoutBlanksBehind(text), 10);
    if (!given) return kNoNumber;
    if (given->tooLarge || given->magnitude > kHighestSeal || (given->negative && given->magnitude != 0)) {
        return kTooLarge;
    }
    ScanInto(text, value);
    long long scanned = 0;
    static_cast<const KySeal*>(value)->ConvertTo(scanned);
    return static_cast<unsigned long long>(scanned) == given->magnitude ? nullptr : kNoValue;
}

const char* Scanner::ScanTwice(std::string_view text, void* value) {
    std::memset(value, 0x00, memoryBytes);
    std::memset(second[0], 0xFF, memoryBytes);
    ScanInto(text, value);
    ScanInto(text, second[0]);
    return CompareExactly(id, value, second[0]) == 0 ? nullptr : kNoValue;
}

const char* Scanner::ScanDate(std::string_view text, void* value) {
    std::memset(value, 0, memoryBytes);
    if (!ScanInto(text, value)) return kTooShort;
    if (!DateEndsWithText(text)) return kOtherForm;
    return SameNumbers(text, PrintValue(id, value, format, form)) ? nullptr : kOtherNumbers;
}

/// The scanner does not tell how far it read. A number behind the text, read by a directive behind the format, makes a
/// difference only when the scanner comes to where the text ends.
bool Scanner::DateEndsWithText(std::string_view text) {
    const bool hasDay = id != KyTIME_T && id != D_TIME_T;
    const std::string longerFormat =
        std::string(format != nullptr ? format : PrintFormat(id)) + (hasDay ? "~%d" : "~%S");
    const Values first(id, 1);
    std::memset(second[0], 0, memoryBytes);
    ScanInto(std::string(text) + "~11", first[0], longerFormat.c_str());
    ScanInto(std::string(text) + "~22", second[0], longerFormat.c_str());
    return CompareExactly(id, first[0], second[0]) != 0;
}

bool Scanner::ScanInto(std::string_view text, void* value, const char* byFormat) {
    KyString content(text.data(), static_cast<unsigned short>(text.size()));
    return Manager().ScanFromKyString(id, value, content, byFormat, 1) != nullptr;
}

/// A number whose bits are all ones orders before 0.
bool Scanner::TypeIsSigned() {
    const Values zero(id, 1);
    std::memset(second[0], 0, memoryBytes);
    std::memset(second[0], 0xFF, numberBytes);
    return CompareExactly(id, second[0], zero[0]) < 0;
}

bool IsNumberType(char id) {
    const std::optional<NumberFormat> own = NumberFormat::Parse(PrintFormat(id));
    return own && IsNumber(*own) && !own->IsCharacter();
}

int CompareExactly(char id, void* a, void* b) { return Manager().Cmp(id, a, b, kDefaultCompareWord, 1, KyFormMemory); }

std::string PrintValue(char id, void* value, const char* format, const TextForm& form) {
    // A Unicode text is printed in the code set of the output.
    KyString out = IsString(id) ? KyString(KyCodeSetUnicode, KyLanguageNeutral) : KyString();
    return form.Write(Manager().PrintToKyString(id, out, value, format, 1));
}

TextForm FormOfTexts(char id, const TextOptions& options, bool takeBroken) {
    if (IsString(id)) return TextForm(options, takeBroken);
    if (options.AnyGiven()) {
        throw Failure("values of the type " + TypeName(id) + " have neither a language nor a code set");
    }
    return TextForm::PlainBytes();
}

}  // namespace kytm
