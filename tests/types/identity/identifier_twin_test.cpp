#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "kytypes.h"
#include "oracle/slow_identifiers.h"
#include "support/fewer_cases.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

// Store, Load, Compare and Hash of arrays against the ones that go byte by byte.

namespace {

using slow::ByteList;
using slow::Identifier;
using slow::Kind;
using slow::Outcome;

struct TestedType {
    Kind kind;
    KyTypeTab* row;
};

const TestedType kTypes[] = {{Kind::objId, &KyObjIdTab}, {Kind::classId, &KyClassIdTab}, {Kind::ref, &KyRefTab}};

constexpr unsigned char kForms[] = {KyFormMemory, KyFormNative, KyFormReversed};

/// Fields that often agree with those of others, and often lie at the ends of their ranges.
Identifier AnyIdentifier(std::mt19937& random) {
    const auto pick = [&random](unsigned long highest) -> unsigned long {
        const unsigned long values[] = {0,       1,           2,           0x100,       0x8000,
                                        highest, highest - 1, highest / 2, highest / 3, random() & highest};
        return values[random() % 10] & highest;
    };
    constexpr unsigned long wide = 0xFFFFFFFF;
    constexpr unsigned long narrow = 0xFFFF;
    return {
        .B = pick(wide), .L = pick(wide), .H = pick(narrow), .D = pick(narrow), .C = pick(narrow), .V = pick(narrow)};
}

/// The same identifiers in a form; in memory the padding is by chance.
ByteList InForm(Kind kind, const std::vector<Identifier>& ids, unsigned char form, std::mt19937& random) {
    ByteList bytes;
    for (const Identifier& id : ids) {
        const ByteList element = form == KyFormMemory ? slow::InMemory(kind, id, static_cast<unsigned char>(random()))
                                                      : slow::Stored(kind, id, form);
        bytes.insert(bytes.end(), element.begin(), element.end());
    }
    return bytes;
}

/// The bytes where no readable one follows. Two places, for the two operands.
unsigned char* AtTheEdge(const ByteList& bytes, int operand) {
    constexpr std::size_t room = 4096;
    static GuardedBuffer areas[] = {GuardedBuffer(room), GuardedBuffer(room)};
    unsigned char* const place = areas[operand].data() + room - bytes.size();
    std::copy(bytes.begin(), bytes.end(), place);
    return place;
}

Outcome Compare(KyTypeTab& row, unsigned char form, unsigned len1, const ByteList& a, unsigned len2, const ByteList& b,
                unsigned count) {
    int err = -1;
    const int result = row.Compare(form, len1, AtTheEdge(a, 0), len2, AtTheEdge(b, 1), KyCmpEqual, count, err);
    return {result, err};
}

Outcome Hash(KyTypeTab& row, unsigned char form, unsigned len, const ByteList& data, unsigned count) {
    int err = -1;
    const unsigned hash = row.Hash(form, len, AtTheEdge(data, 0), count, err);
    return {hash, err};
}

TEST(IdentifierTwin, SingleOnesCompareAndHash) {
    std::mt19937 random(1);
    for (const TestedType& type : kTypes) {
        for (int i = 0; i < 20000 / kFewerCases; ++i) {
            const std::vector<Identifier> a = {AnyIdentifier(random)};
            const std::vector<Identifier> b = {AnyIdentifier(random)};
            for (const unsigned char form : kForms) {
                const ByteList bytesA = InForm(type.kind, a, form, random);
                const ByteList bytesB = InForm(type.kind, b, form, random);
                ASSERT_EQ(Compare(*type.row, form, 0, bytesA, 0, bytesB, 1),
                          slow::Compare(type.kind, form, 0, bytesA, 0, bytesB, 1))
                    << type.row->typeName << int{form} << ": " << Hex(bytesA.data(), bytesA.size()) << " and "
                    << Hex(bytesB.data(), bytesB.size());
                ASSERT_EQ(Hash(*type.row, form, 0, bytesA, 1), slow::Hash(type.kind, form, 0, bytesA, 1));
            }
        }
    }
}

TEST(IdentifierTwin, ArraysCompareAndHashAsFarAsTheirBuffersGo) {
    std::mt19937 random(2);
    for (const TestedType& type : kTypes) {
        for (int i = 0; i < 6000 / kFewerCases; ++i) {
            std::vector<Identifier> a(random() % (i % 10 == 0 ? 200 : 8));
            for (Identifier& id : a) id = AnyIdentifier(random);
            std::vector<Identifier> b = a;
            for (Identifier& id : b) {
                // What is no part of the identity.
                if (type.kind == Kind::objId) id.B = random();
                if (type.kind == Kind::ref) id.B = random(), id.C = random(), id.V = random();
            }
            if (!b.empty() && i % 4 != 0) b[random() % b.size()] = AnyIdentifier(random);
            for (const unsigned char form : kForms) {
                const ByteList bytesA = InForm(type.kind, a, form, random);
                const ByteList bytesB = InForm(type.kind, b, form, random);
                const auto size = static_cast<unsigned>(bytesA.size());
                const auto count = static_cast<unsigned>(a.size());
                ASSERT_EQ(Compare(*type.row, form, 0, bytesA, 0, bytesB, count),
                          slow::Compare(type.kind, form, 0, bytesA, 0, bytesB, count))
                    << type.row->typeName << ' ' << int{form} << ' ' << count;
                ASSERT_EQ(Hash(*type.row, form, 0, bytesA, count), slow::Hash(type.kind, form, 0, bytesA, count));
                if (count == 0) continue;
                // The buffers end before the count does.
                const auto below = [&random](unsigned limit) { return static_cast<unsigned>(random() % limit); };
                const unsigned len1 = 1 + below(size);
                const unsigned len2 = below(2) == 0 ? size : 1 + below(size);
                const unsigned more = count + below(3);
                ASSERT_EQ(Compare(*type.row, form, len1, bytesA, len2, bytesB, more),
                          slow::Compare(type.kind, form, len1, bytesA, len2, bytesB, more))
                    << type.row->typeName << ' ' << int{form} << ' ' << len1 << ' ' << len2 << ' ' << more;
                ASSERT_EQ(Hash(*type.row, form, len1, bytesA, more), slow::Hash(type.kind, form, len1, bytesA, more));
            }
        }
    }
}

TEST(IdentifierTwin, ComparisonsAreAnOrder) {
    std::mt19937 random(3);
    for (const TestedType& type : kTypes) {
        for (int i = 0; i < 20000 / kFewerCases; ++i) {
            const std::vector<Identifier> ids[] = {
                {AnyIdentifier(random)}, {AnyIdentifier(random)}, {AnyIdentifier(random)}};
            for (const unsigned char form : kForms) {
                const ByteList x = InForm(type.kind, ids[0], form, random);
                const ByteList y = InForm(type.kind, ids[1], form, random);
                const ByteList z = InForm(type.kind, ids[2], form, random);
                const auto order = [&](const ByteList& a, const ByteList& b) {
                    return Compare(*type.row, form, 0, a, 0, b, 1).value;
                };
                ASSERT_EQ(order(x, y), -order(y, x));
                ASSERT_EQ(order(x, x), 0);
                if (order(x, y) <= 0 && order(y, z) <= 0) {
                    ASSERT_LE(order(x, z), 0);
                }
                if (order(x, y) == 0) {
                    ASSERT_EQ(Hash(*type.row, form, 0, x, 1), Hash(*type.row, form, 0, y, 1));
                }
            }
        }
    }
}

TEST(IdentifierTwin, ArraysAreStoredAndLoaded) {
    std::mt19937 random(4);
    for (const TestedType& type : kTypes) {
        for (unsigned count = 0; count < 70; ++count) {
            std::vector<Identifier> ids(count);
            for (Identifier& id : ids) id = AnyIdentifier(random);
            const ByteList memory = InForm(type.kind, ids, KyFormMemory, random);
            for (const unsigned char form : {KyFormNative, KyFormReversed}) {
                const ByteList expected = InForm(type.kind, ids, form, random);
                const std::size_t offset = count % 8;
                GuardedBuffer source{std::span(memory)};
                GuardedBuffer stored(expected.size() + offset);
                std::fill_n(stored.data(), stored.size(), static_cast<unsigned char>(count % 2 * 0xFF));
                ASSERT_EQ(type.row->Store(stored.data() + offset, source.data(), form, count), expected.size());
                ASSERT_EQ(Hex(stored.data() + offset, expected.size()), Hex(expected.data(), expected.size()));

                std::vector<Identifier> loadedIds = ids;
                if (type.kind == Kind::ref) {
                    for (Identifier& id : loadedIds) id.V = 0;
                }
                ByteList loaded(memory.size() + offset, 0xEE);
                ASSERT_EQ(type.row->Load(loaded.data() + offset, stored.data() + offset, form, count), expected.size());
                ByteList expectedMemory;
                for (const Identifier& id : loadedIds) {
                    const ByteList element = slow::InMemory(type.kind, id, 0xEE);
                    expectedMemory.insert(expectedMemory.end(), element.begin(), element.end());
                }
                ASSERT_EQ(Hex(loaded.data() + offset, memory.size()), Hex(expectedMemory.data(), memory.size()));
            }
        }
    }
}

}  // namespace
