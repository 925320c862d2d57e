#ifndef DATE_PLANS_H
#define DATE_PLANS_H

/// Byte permutations between the forms of dates and times, and to the words that are hashed, for registers of `width`
/// bytes. A register takes a whole number of elements; the bytes behind them mean nothing.

#include <array>
#include <cstddef>

#include "date_records.h"

namespace ky {

/// Index of a byte that is written as 0.
inline constexpr unsigned char kNoByte = 0x80;

/// Which byte of the whole record in memory form stands at offset `at` of an element; `kNoByte` for padding.
constexpr unsigned char RecordByte(DateRecord record, DateForm form, std::size_t at) {
    const DateLayout layout(record, form);
    const bool reversed = form == DateForm::reversed;
    if (HasDate(record) && at < 4) return static_cast<unsigned char>(reversed && at < 2 ? 1 - at : at);
    if (HasNanoseconds(record) && at >= layout.nanoseconds) {
        const std::size_t byte = at - layout.nanoseconds;
        return static_cast<unsigned char>(8 + (reversed ? 3 - byte : byte));
    }
    const std::size_t byte = at - layout.time;
    return static_cast<unsigned char>(byte < 3 ? 4 + byte : kNoByte);
}

/// The way back: at which offset of an element a byte of the record stands; `kNoByte` when the element lacks it.
constexpr unsigned char OffsetOf(DateRecord record, DateForm form, unsigned char recordByte) {
    for (std::size_t at = 0; at < DateLayout(record, form).size; ++at) {
        if (recordByte != kNoByte && RecordByte(record, form, at) == recordByte) return static_cast<unsigned char>(at);
    }
    return kNoByte;
}

/// Elements of one form to elements of another. Padding is cleared.
template <std::size_t width>
struct alignas(width) DateMovePlan {
    using Bytes = std::array<unsigned char, width>;

    Bytes index{};  ///< of each byte that is written: where it is read
    std::size_t from = 0;
    std::size_t to = 0;
    std::size_t elements = 0;

    constexpr DateMovePlan(DateRecord record, DateForm fromForm, DateForm toForm)
        : from(DateLayout(record, fromForm).size), to(DateLayout(record, toForm).size) {
        elements = width / (from > to ? from : to);
        index.fill(kNoByte);
        for (std::size_t at = 0; at < elements * to; ++at) {
            const unsigned char offset = OffsetOf(record, fromForm, RecordByte(record, toForm, at % to));
            if (offset != kNoByte) index[at] = static_cast<unsigned char>(at / to * from + offset);
        }
    }
};

/// The bytes of the record that a hash combines as 4-byte numbers, the lowest first. All but the nanoseconds are
/// numbers of their own.
inline constexpr std::size_t kHashWords = 3;
inline constexpr unsigned char kHashBytes[kHashWords][4] = {{3, 2, 0, 1}, {6, 5, 4, kNoByte}, {8, 9, 10, 11}};
/// Those of them that are widened with their sign into the bytes above.
constexpr bool IsWidened(unsigned char recordByte) { return recordByte >= 2 && recordByte <= 6; }

/// Elements of one form to the words that are hashed, three of them for each element of all parts.
template <std::size_t width>
struct alignas(width) DateHashPlan {
    using Bytes = std::array<unsigned char, width>;

    Bytes index{};  ///< of each byte of a word: where it is read
    Bytes signs{};  ///< the sign bits of the bytes that are widened
    std::size_t from = 0;
    std::size_t elements = 0;

    constexpr DateHashPlan(DateRecord record, DateForm form) : from(DateLayout(record, form).size) {
        const bool has[kHashWords] = {HasDate(record), HasTime(record), HasNanoseconds(record)};
        const std::size_t words = static_cast<std::size_t>(has[0]) + has[1] + has[2];
        elements = width / (4 * words) < width / from ? width / (4 * words) : width / from;
        index.fill(kNoByte);
        std::size_t at = 0;
        for (std::size_t element = 0; element < elements; ++element) {
            for (std::size_t word = 0; word < kHashWords; ++word) {
                if (!has[word]) continue;
                for (const unsigned char recordByte : kHashBytes[word]) {
                    const unsigned char offset = OffsetOf(record, form, recordByte);
                    if (offset != kNoByte) index[at] = static_cast<unsigned char>(element * from + offset);
                    if (IsWidened(recordByte)) signs[at] = 0x80;
                    ++at;
                }
            }
        }
    }
};

/// The whole record through registers that are full in memory form: three of them are a round, which holds a whole
/// number of elements. Elements of 12 bytes leave no byte of a register unused so, and every register of an array that
/// begins at a line of the cache is a line. Stored, the bytes of a register stand together, too, but for the padding.
template <std::size_t width>
class DateRounds {
    static constexpr DateRecord kRecord = DateRecord::dateTimeN;
    static constexpr std::size_t kMemory = DateLayout(kRecord, DateForm::memory).size;
    static constexpr std::size_t kStored = DateLayout(kRecord, DateForm::native).size;

public:
    static constexpr std::size_t kRegisters = 3;
    static constexpr std::size_t kElements = kRegisters * width / kMemory;
    static_assert(kElements * kMemory == kRegisters * width);

    using Bytes = std::array<unsigned char, width>;

    /// Where a register begins in a round of memory form and in one of another form.
    static constexpr std::size_t InMemory(std::size_t which) { return which * width; }
    static constexpr std::size_t InForm(DateForm form, std::size_t which) {
        const std::size_t first = InMemory(which);
        return form == DateForm::memory ? first : first / kMemory * kStored + first % kMemory - (first % kMemory > 7);
    }
    /// Bytes that a round reads or writes in a form, some of them behind its elements.
    static constexpr std::size_t Reach(DateForm form) { return InForm(form, kRegisters - 1) + width; }

    /// Of each byte of a register: where it is read in one that begins at `InForm`.
    struct alignas(width) Plan {
        Bytes pack{};    ///< memory form to the form
        Bytes unpack{};  ///< and back; padding is cleared
        Bytes words{};   ///< the form to the words that are hashed
        Bytes signs{};   ///< the sign bits of the bytes that are widened there
    };

    constexpr DateRounds() {
        for (const DateForm form : {DateForm::native, DateForm::reversed, DateForm::memory}) {
            for (std::size_t which = 0; which < kRegisters; ++which) Fill(Of(form, which), form, which);
        }
    }

    constexpr const Plan& Of(DateForm form, std::size_t which) const {
        return plans[static_cast<std::size_t>(form)][which];
    }

private:
    constexpr Plan& Of(DateForm form, std::size_t which) { return plans[static_cast<std::size_t>(form)][which]; }

    static constexpr void Fill(Plan& plan, DateForm form, std::size_t which) {
        /// Where a byte of the record that has its 4 bytes in the register stands in the form.
        const auto place = [form, which](std::size_t at, unsigned char recordByte) {
            const std::size_t element = (InMemory(which) + at) / kMemory;
            const unsigned char offset = OffsetOf(kRecord, form, recordByte);
            return offset == kNoByte ? kNoByte
                                     : static_cast<unsigned char>(element * DateLayout(kRecord, form).size + offset -
                                                                  InForm(form, which));
        };
        plan.pack.fill(kNoByte);
        for (std::size_t at = 0; at < width; ++at) {
            const std::size_t inElement = (InMemory(which) + at) % kMemory;
            const unsigned char own = RecordByte(kRecord, DateForm::memory, inElement);
            const unsigned char hashed = kHashBytes[inElement / 4][at % 4];
            plan.unpack[at] = place(at, own);
            if (own != kNoByte) plan.pack[plan.unpack[at]] = static_cast<unsigned char>(at);
            plan.words[at] = place(at, hashed);
            if (IsWidened(hashed)) plan.signs[at] = 0x80;
        }
    }

    std::array<std::array<Plan, kRegisters>, kDateForms> plans{};
};

/// All of them.
template <std::size_t width>
class DatePlans {
public:
    using Move = DateMovePlan<width>;
    using Hash = DateHashPlan<width>;

    constexpr const Move& Packing(DateRecord record, DateForm to) const { return packing[At(record)][At(to)]; }
    constexpr const Move& Unpacking(DateRecord record, DateForm from) const { return unpacking[At(record)][At(from)]; }
    constexpr const Hash& Hashing(DateRecord record, DateForm form) const { return hashing[At(record)][At(form)]; }

private:
    template <class Key>
    static constexpr std::size_t At(Key key) {
        return static_cast<std::size_t>(key);
    }

    template <class Plan>
    using OfForms = std::array<Plan, kDateForms>;
    template <class Plan>
    using Table = std::array<OfForms<Plan>, kDateRecords>;

    /// A table from the plan that `make` gives for each record and form.
    template <class Plan, class Make>
    static constexpr Table<Plan> TableOf(Make make) {
        const auto forms = [make](DateRecord record) -> OfForms<Plan> {
            return {make(record, DateForm::native), make(record, DateForm::reversed), make(record, DateForm::memory)};
        };
        return {forms(DateRecord::date), forms(DateRecord::time), forms(DateRecord::dateTime),
                forms(DateRecord::dateTimeN)};
    }

    Table<Move> packing =
        TableOf<Move>([](DateRecord record, DateForm form) { return Move(record, DateForm::memory, form); });
    Table<Move> unpacking =
        TableOf<Move>([](DateRecord record, DateForm form) { return Move(record, form, DateForm::memory); });
    Table<Hash> hashing = TableOf<Hash>([](DateRecord record, DateForm form) { return Hash(record, form); });
};

}  // namespace ky

#endif
