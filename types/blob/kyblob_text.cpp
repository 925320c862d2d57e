/// Blobs as texts: hexadecimal digits, and what the print format makes of them.

#include <algorithm>
#include <string>
#include <string_view>

#include "ascii.h"
#include "eight_bit_text.h"
#include "kyblob.h"
#include "kyblob_slots.h"
#include "kystring.h"
#include "kytypmgr.h"
#include "record_text.h"
#include "text_constants.h"

namespace {

constexpr std::size_t kDigitsOfByte = 2;
constexpr int kMostBytesOfText = 32765;

const unsigned char* BytesOf(const KyBlob& blob) {
    return static_cast<const unsigned char*>(blob.Seek(0, blob.Length()));
}

std::string Digits(const KyBlob& blob) {
    static constexpr char digits[] = "0123456789abcdef";
    const auto length = static_cast<std::size_t>(blob.Length());
    const unsigned char* bytes = BytesOf(blob);
    std::string text(length * kDigitsOfByte, '\0');
    for (std::size_t i = 0; i < length; ++i) {
        text[kDigitsOfByte * i] = digits[bytes[i] >> 4];
        text[kDigitsOfByte * i + 1] = digits[bytes[i] & 15];
    }
    return text;
}

bool ArePairsOfDigits(std::string_view text) {
    return text.size() % kDigitsOfByte == 0 && std::ranges::all_of(text, [](char c) { return ky::DigitValue(c) < 16; });
}

/// False, and the blob as it was, when the text is no pairs of digits.
bool ReadDigits(KyBlob& blob, std::string_view digits) {
    if (!ArePairsOfDigits(digits)) return false;
    const std::size_t length = digits.size() / kDigitsOfByte;
    blob.SetNullValue();
    blob.Resize(static_cast<unsigned>(length));
    auto* bytes = static_cast<unsigned char*>(blob.Seek(0, static_cast<int>(length)));
    if (bytes == nullptr) return length == 0;
    for (std::size_t i = 0; i < length; ++i) {
        const char* pair = &digits[kDigitsOfByte * i];
        bytes[i] = static_cast<unsigned char>(ky::DigitValue(pair[0]) << 4 | ky::DigitValue(pair[1]));
    }
    return true;
}

/// `text` null: there is none, which is the null value.
bool ReadText(KyBlob& blob, const KyString* text) {
    if (text == nullptr) return blob.SetNullValue() == 0;
    return ky::ReadAsEightBit(*text, [&](const KyString& narrow) { return ReadDigits(blob, narrow.StrGet()); });
}

std::string FormattedText(const KyBlob& blob, const char* format) {
    std::string text;
    for (; *format != '\0'; ++format) {
        if (*format != '%') {
            text += *format;
            continue;
        }
        ++format;
        if (*format == '\0') break;
        if (*format == 'L') {
            text += std::to_string(blob.Length());
        } else {
            text += *format;
        }
    }
    return text;
}

}  // namespace

KyTypeConvertData* BlobConvertToKyString(void* value, unsigned count) {
    const auto* blobs = static_cast<const KyBlob*>(value);
    const auto fits = [](const KyBlob& blob) { return blob.Length() <= kMostBytesOfText; };
    if (!std::all_of(blobs, blobs + count, fits)) return nullptr;
    return ky::MakeTextRecord(count, [=](KyString* texts) {
        for (unsigned i = 0; i < count; ++i) {
            if (blobs[i].IsNullValue() != 0) {
                texts[i].SetNullValue();
            } else {
                const std::string digits = Digits(blobs[i]);
                ky::AssignText(texts[i], digits.data(), digits.size());
            }
        }
    });
}

void* BlobConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    ky::OwnedArray blobs(BlobCreate(count), {&BlobDelete, count});
    if (blobs == nullptr) return nullptr;
    for (unsigned i = 0; i < count; ++i) {
        if (!ReadText(static_cast<KyBlob*>(blobs.get())[i], ky::TextAt(data, i))) return nullptr;
    }
    return blobs.release();
}

KyString& BlobPrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    const auto& blob = *static_cast<const KyBlob*>(value);
    if (blob.IsNullValue() != 0) return out = KyTypeMgr::GetNullPrintString();
    const std::string text = FormattedText(blob, format != nullptr ? format : ky::kBlobFormat);
    return ky::AssignText(out, text.data(), text.size());
}

void* BlobScanFromKyString(void* value, KyString& text, const char*, unsigned) {
    if (value == nullptr) return nullptr;
    const bool isNull = text.IsNullValue() != 0 || ky::BeginsWithNullPrintString(text);
    return ReadText(*static_cast<KyBlob*>(value), isNull ? nullptr : &text) ? value : nullptr;
}
