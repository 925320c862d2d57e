#ifndef KYTM_BLOB_TEXTS_H
#define KYTM_BLOB_TEXTS_H

/// Texts of blobs.

#include <string>
#include <string_view>

namespace kytm {

/// Two lower-case digits a byte. `blob` is a `KyBlob`.
std::string BlobDigits(const void* blob);

/// Reads pairs of hexadecimal digits, or behind "@" the content of a file, into a `KyBlob`; "{NULL}" is null. Empty,
/// or the reason why not.
std::string ScanBlob(std::string_view text, void* blob);

}  // namespace kytm

#endif
