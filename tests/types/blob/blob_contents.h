#ifndef BLOB_CONTENTS_H
#define BLOB_CONTENTS_H

/// Blobs and records of them, made and read by hand.

#include <cstdint>
#include <optional>
#include <random>
#include <span>
#include <string_view>
#include <vector>

#include "kyblob.h"
#include "kytypes.h"

using Content = std::vector<unsigned char>;
/// Nothing: the null value.
using Element = std::optional<Content>;

inline constexpr unsigned char kStoredForms[] = {KyFormNative, KyFormReversed};
inline constexpr std::uint32_t kNullLength = 0xFFFFFFFF;

Content Chars(std::string_view text);
/// Bytes that tell their places.
Content Counted(std::size_t length, unsigned first = 0);
/// The first bytes.
std::span<const unsigned char> First(const Content& bytes, std::size_t length);

KyBlob BlobOf(const Element& element);
Element ContentOf(const KyBlob& blob);
std::vector<KyBlob> BlobsOf(const std::vector<Element>& elements);
std::vector<Element> ContentsOf(const std::vector<KyBlob>& blobs);

void AddNumber(Content& record, std::uint32_t number, unsigned char form);
std::uint32_t NumberAt(const Content& record, std::size_t offset, unsigned char form);
Content RecordOf(const std::vector<Element>& elements, unsigned char form);
/// A record whose total is `total`, whatever its elements are.
Content RecordTelling(std::uint32_t total, const std::vector<Element>& elements, unsigned char form);

/// 0 to limit - 1.
unsigned Below(std::mt19937& random, std::size_t limit);

#endif
