#ifndef SLOW_BLOB_RECORDS_H
#define SLOW_BLOB_RECORDS_H

#include <cstddef>
#include <cstdint>
#include <vector>

/// Comparison and hash of stored blobs, byte by byte.
class SlowBlobRecord {
public:
    /// `length` 0: as long as the record says, all of which has to be there.
    SlowBlobRecord(const std::vector<unsigned char>& record, std::size_t length, bool isReversed)
        : bytes(record), reversed(isReversed), end(length) {
        if (length == 0) end = 4 + Counted(Number(0));
    }

    /// Whether a length field stands at `offset`.
    bool HasNumber(std::size_t offset) const { return offset + 4 <= end; }
    std::size_t End() const { return end; }
    unsigned char Byte(std::size_t offset) const { return bytes.at(offset); }

    std::uint32_t Number(std::size_t offset) const {
        std::uint32_t number = 0;
        for (std::size_t i = 0; i < 4; ++i) number = number << 8 | bytes.at(offset + (reversed ? i : 3 - i));
        return number;
    }
    static bool IsNull(std::uint32_t length) { return length == 0xFFFFFFFF; }
    static std::size_t Counted(std::uint32_t length) { return IsNull(length) ? 0 : length; }

private:
    const std::vector<unsigned char>& bytes;
    bool reversed;
    std::size_t end;
};

/// -2 to 2.
inline int SlowCompare(const SlowBlobRecord& a, const SlowBlobRecord& b, unsigned count) {
    std::size_t atA = 4;
    std::size_t atB = 4;
    for (unsigned i = 0; i < count && a.HasNumber(atA) && b.HasNumber(atB); ++i) {
        const std::uint32_t lengthA = a.Number(atA);
        const std::uint32_t lengthB = b.Number(atB);
        if (a.IsNull(lengthA) != b.IsNull(lengthB)) return a.IsNull(lengthA) ? -2 : 2;
        atA += 4;
        atB += 4;
        const std::size_t common = lengthA < lengthB ? a.Counted(lengthA) : b.Counted(lengthB);
        for (std::size_t k = 0; k < common && atA + k < a.End() && atB + k < b.End(); ++k) {
            if (a.Byte(atA + k) != b.Byte(atB + k)) return a.Byte(atA + k) < b.Byte(atB + k) ? -1 : 1;
        }
        if (lengthA != lengthB) return lengthA < lengthB ? -1 : 1;
        atA += a.Counted(lengthA);
        atB += b.Counted(lengthB);
    }
    return 0;
}

inline std::uint32_t SlowHash(const SlowBlobRecord& record, unsigned count) {
    std::uint32_t sum = 0;
    std::size_t at = 0;
    for (unsigned i = 0; i < count && record.HasNumber(at); ++i) {
        const std::size_t told = 4 + record.Counted(record.Number(at));
        const std::size_t rest = record.End() - at - 4;
        sum ^= static_cast<std::uint32_t>(told < rest ? told : rest);
        at += 4 + told;
    }
    return sum * 1103515245u;
}

#endif
