#include "blob_contents.h"

Content Chars(std::string_view text) { return {text.begin(), text.end()}; }

Content Counted(std::size_t length, unsigned first) {
    Content content(length);
    for (std::size_t i = 0; i < length; ++i) content[i] = static_cast<unsigned char>(first + i);
    return content;
}

std::span<const unsigned char> First(const Content& bytes, std::size_t length) {
    return std::span(bytes).first(length);
}

KyBlob BlobOf(const Element& element) {
    KyBlob blob;
    if (element) {
        blob.SetTo(element->data(), static_cast<int>(element->size()));
    } else {
        blob.SetNullValue();
    }
    return blob;
}

Element ContentOf(const KyBlob& blob) {
    if (blob.IsNullValue() != 0) return std::nullopt;
    const auto* bytes = static_cast<const unsigned char*>(blob.Seek(0, blob.Length()));
    return bytes == nullptr ? Content() : Content(bytes, bytes + blob.Length());
}

std::vector<KyBlob> BlobsOf(const std::vector<Element>& elements) {
    std::vector<KyBlob> blobs;
    for (const Element& element : elements) blobs.push_back(BlobOf(element));
    return blobs;
}

std::vector<Element> ContentsOf(const std::vector<KyBlob>& blobs) {
    std::vector<Element> contents;
    for (const KyBlob& blob : blobs) contents.push_back(ContentOf(blob));
    return contents;
}

namespace {

unsigned ShiftOf(unsigned byte, unsigned char form) { return 8 * (form == KyFormReversed ? 3 - byte : byte); }

}  // namespace

void AddNumber(Content& record, std::uint32_t number, unsigned char form) {
    for (unsigned i = 0; i < 4; ++i) record.push_back(static_cast<unsigned char>(number >> ShiftOf(i, form)));
}

std::uint32_t NumberAt(const Content& record, std::size_t offset, unsigned char form) {
    std::uint32_t number = 0;
    for (unsigned i = 0; i < 4; ++i) number |= std::uint32_t{record[offset + i]} << ShiftOf(i, form);
    return number;
}

Content RecordOf(const std::vector<Element>& elements, unsigned char form) {
    const auto size = static_cast<std::uint32_t>(RecordTelling(0, elements, form).size());
    return RecordTelling(size - 4, elements, form);
}

Content RecordTelling(std::uint32_t total, const std::vector<Element>& elements, unsigned char form) {
    Content record;
    AddNumber(record, total, form);
    for (const Element& element : elements) {
        AddNumber(record, element ? static_cast<std::uint32_t>(element->size()) : kNullLength, form);
        if (element) record.insert(record.end(), element->begin(), element->end());
    }
    return record;
}

unsigned Below(std::mt19937& random, std::size_t limit) { return static_cast<unsigned>(random() % limit); }
