#include "record.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <stdexcept>

#include "types.h"

namespace engine {

namespace {

constexpr std::size_t kCheckBytes = 4;
constexpr std::size_t kEndBytes = 4;

unsigned ReadLittleEndian(const unsigned char* at) {
    return static_cast<unsigned>(at[0]) | static_cast<unsigned>(at[1]) << 8U | static_cast<unsigned>(at[2]) << 16U |
           static_cast<unsigned>(at[3]) << 24U;
}

void WriteLittleEndian(unsigned char* at, unsigned number) {
    for (int i = 0; i < 4; ++i) at[i] = static_cast<unsigned char>(number >> (8 * i));
}

}  // namespace

RecordLayout::RecordLayout(const Class& aClass, unsigned char aForm) : objects(&aClass), form(aForm) {
    std::size_t at = kCheckBytes;
    for (const Attribute& attribute : aClass.attributes) {
        if (Types().IsFixed(attribute.type) != 0) {
            const unsigned size = Types().DiskLenGet(attribute.type, nullptr, form, attribute.count, KyFormMemory);
            places.push_back({.fixed = true, .at = at, .size = size});
            at += size;
        } else {
            places.push_back({.fixed = false, .at = tableEntries++, .size = 0});
        }
    }
    tableAt = at;
}

Bytes RecordLayout::At(Bytes record, std::size_t attribute) const {
    const Place& place = places[attribute];
    if (place.fixed) return record.subspan(place.at, place.size);
    const unsigned char* table = record.data() + tableAt;
    const std::size_t begin = place.at == 0 ? 0 : ReadLittleEndian(table + (place.at - 1) * kEndBytes);
    const std::size_t end = ReadLittleEndian(table + place.at * kEndBytes);
    return record.subspan(tableAt + tableEntries * kEndBytes + begin, end - begin);
}

bool RecordLayout::IsWhole(Bytes record) const {
    const std::size_t contentAt = tableAt + tableEntries * kEndBytes;
    if (record.size() < contentAt) return false;
    std::size_t end = 0;
    for (std::size_t i = 0; i < tableEntries; ++i) {
        const std::size_t next = ReadLittleEndian(record.data() + tableAt + i * kEndBytes);
        if (next < end) return false;
        end = next;
    }
    return contentAt + end == record.size();
}

unsigned RecordLayout::CheckWord(Bytes record) const {
    constexpr unsigned factor = 31;
    unsigned word = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Attribute& attribute = objects->attributes[i];
        const Bytes value = At(record, i);
        int err = 0;
        word = word * factor + Types().Hash(attribute.type, static_cast<unsigned>(value.size()),
                                            const_cast<unsigned char*>(value.data()), attribute.count, form, err);
    }
    // Hashes tell nothing of a text's label and lengths.
    constexpr unsigned prime = 16777619;
    for (const unsigned char byte : record.subspan(kCheckBytes)) word = (word ^ byte) * prime;
    return word;
}

bool RecordLayout::CheckHolds(Bytes record) const { return ReadLittleEndian(record.data()) == CheckWord(record); }

void RecordLayout::Write(std::vector<unsigned char>& record, std::span<void* const> values) const {
    const std::size_t contentAt = tableAt + tableEntries * kEndBytes;
    record.assign(contentAt, 0);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Attribute& attribute = objects->attributes[i];
        const Place& place = places[i];
        if (place.fixed) {
            Types().Store(attribute.type, record.data() + place.at, values[i], form, attribute.count);
            continue;
        }
        const std::size_t at = record.size();
        const unsigned size = Types().DiskLenGet(attribute.type, values[i], form, attribute.count, KyFormMemory);
        record.resize(at + size);
        const unsigned written = Types().Store(attribute.type, record.data() + at, values[i], form, attribute.count);
        record.resize(at + written);
        const std::size_t end = record.size() - contentAt;
        if (end > UINT32_MAX) throw std::length_error("object of 4 GiB or more");
        WriteLittleEndian(record.data() + tableAt + place.at * kEndBytes, static_cast<unsigned>(end));
    }
    WriteLittleEndian(record.data(), CheckWord(record));
}

}  // namespace engine
