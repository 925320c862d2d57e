#include "blob_texts.h"

#include <climits>
#include <vector>

#include "input_file.h"
#include "kyblob.h"
#include "kystring.h"
#include "kytypmgr.h"
#include "terminal.h"

namespace kytm {

namespace {

constexpr std::string_view kDigits = "0123456789abcdef";

/// Of a hexadecimal digit.
std::size_t DigitValue(char c) { return kDigits.find(c >= 'A' && c <= 'F' ? static_cast<char>(c - 'A' + 'a') : c); }

std::string ReadFile(const std::string& path, KyBlob& blob) {
    constexpr std::size_t piece = std::size_t{1} << 20;
    try {
        InputFile file(path);
        std::vector<char> bytes(piece);
        blob.SetNullValue();
        blob.Resize(0);
        while (const std::size_t count = file.Read(bytes.data(), bytes.size())) {
            if (static_cast<std::size_t>(blob.Length()) + count > INT_MAX)
                return "the file is longer than a blob can be";
            blob.Append(bytes.data(), static_cast<int>(count));
        }
    } catch (const Failure& problem) {
        return problem.what();
    }
    return "";
}

}  // namespace

std::string BlobDigits(const void* value) {
    const auto& blob = *static_cast<const KyBlob*>(value);
    const int length = blob.Length();
    const auto* bytes = static_cast<const unsigned char*>(blob.Seek(0, length));
    std::string text;
    text.reserve(static_cast<std::size_t>(length) * 2);
    for (int i = 0; i < length; ++i) {
        text += kDigits[bytes[i] >> 4U];
        text += kDigits[bytes[i] & 15U];
    }
    return text;
}

std::string ScanBlob(std::string_view text, void* value) {
    auto& blob = *static_cast<KyBlob*>(value);
    if (text == KyTypeMgr::GetNullPrintString().StrGet()) {
        blob.SetNullValue();
        return "";
    }
    if (text.starts_with('@')) return ReadFile(std::string(text.substr(1)), blob);
    if (text.size() % 2 != 0 || text.find_first_not_of("0123456789abcdefABCDEF") != std::string_view::npos)
        return "it is neither pairs of hexadecimal digits nor \"@\" and the name of a file";
    std::vector<unsigned char> bytes;
    bytes.reserve(text.size() / 2);
    for (std::size_t i = 0; i < text.size(); i += 2)
        bytes.push_back(static_cast<unsigned char>(DigitValue(text[i]) << 4U | DigitValue(text[i + 1])));
    blob.SetNullValue();
    blob.Resize(0);
    if (bytes.size() > INT_MAX) return "it is longer than a blob can be";
    blob.Append(bytes.data(), static_cast<int>(bytes.size()));
    return "";
}

}  // namespace kytm
