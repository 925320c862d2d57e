#include "code_map_kernels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

#include "code_sets.h"
#include "support/guarded_buffer.h"

namespace {

/// Units for the bytes from 0x80 on, every seventh of which is no character.
std::vector<unsigned short> Table() {
    std::vector<unsigned short> table(256);
    for (unsigned i = 0; i < 256; ++i) {
        table[i] = static_cast<unsigned short>(i < 0x80 ? i : i % 7 == 0 ? 0 : 0xABCD - 257 * i);
    }
    return table;
}

struct Kernel {
    const char* name;
    ky::BytesToUnitsKernel* run;
};

void CheckBytesToUnits(const Kernel& kernel) {
    const std::vector<unsigned short> table = Table();
    std::mt19937 random(6);
    for (std::size_t count = 0; count <= 200; ++count) {
        for (int kind = 0; kind < 8; ++kind) {
            GuardedBuffer bytes(count);
            for (unsigned char& byte : bytes.bytes()) {
                byte = static_cast<unsigned char>(1 + random() % (kind % 2 == 0 ? 0x7F : 0xFF));
            }
            GuardedBuffer out(2 * count + 1);
            char* units = reinterpret_cast<char*>(out.data()) + kind / 2 % 2;
            std::fill_n(out.data(), out.size(), static_cast<unsigned char>(0xEE));
            const unsigned short* const used = kind < 4 ? table.data() : nullptr;
            kernel.run(used, reinterpret_cast<const char*>(bytes.data()), count, units);
            for (std::size_t i = 0; i < count; ++i) {
                const unsigned char byte = bytes.data()[i];
                const unsigned short unit = used == nullptr ? byte : used[byte] == 0 ? 0xFFFD : used[byte];
                ASSERT_EQ(ky::ReadUnit(units + 2 * i, 1), unit) << kernel.name << ' ' << count << ' ' << i;
            }
            const unsigned char other = kind / 2 % 2 == 0 ? out.data()[2 * count] : out.data()[0];
            ASSERT_EQ(other, 0xEE) << kernel.name << ' ' << count;
        }
    }
}

TEST(CodeMapKernels, BytesToUnits) {
    CheckBytesToUnits({"any", ky::BytesToUnitsAny});
    CheckBytesToUnits({"chosen", ky::BytesToUnits});
    if (ky::RunsBytesToUnitsAvx512()) CheckBytesToUnits({"avx512", ky::BytesToUnitsAvx512});
}

TEST(CodeMapKernels, UnitsToBytes) {
    unsigned char pageOf[256] = {};
    static unsigned char pages[3][256] = {};
    pageOf[0] = 1;
    pageOf[0x20] = 2;
    for (unsigned i = 1; i < 0x80; ++i) pages[1][i] = static_cast<unsigned char>(i);
    pages[1][0xE4] = 0x84;
    pages[2][0xAC] = 0xA4;
    const KyUnicodeMap map = {pageOf, pages};
    const unsigned short kinds[] = {0x41, 0x7F, 0x80, 0xE4, 0xFF, 0x100, 0x20AC, 0x2041, 0xFFFF, 0x4100};
    std::mt19937 random(7);
    for (std::size_t count = 0; count <= 100; ++count) {
        for (int kind = 0; kind < 12; ++kind) {
            GuardedBuffer in(2 * count + static_cast<std::size_t>(kind % 2));
            char* units = reinterpret_cast<char*>(in.data());
            for (std::size_t i = 0; i < count; ++i) {
                const bool isAscii = random() % 40 < static_cast<unsigned>(40 - kind);
                ky::WriteUnit(units + 2 * i, isAscii ? 'a' : kinds[random() % std::size(kinds)], 1);
            }
            const KyUnicodeMap* const used = kind < 6 ? &map : nullptr;
            GuardedBuffer out(count);
            char* bytes = reinterpret_cast<char*>(out.data());
            ky::UnitsToBytes(used, units, count, bytes, '?');
            for (std::size_t i = 0; i < count; ++i) {
                const unsigned short unit = ky::ReadUnit(units + 2 * i, 1);
                unsigned char byte = unit == 0xE4 ? 0x84 : unit == 0x20AC ? 0xA4 : unit < 0x80 ? unit & 0x7F : '?';
                if (used == nullptr) byte = static_cast<unsigned char>(unit < 0x100 ? unit : '?');
                ASSERT_EQ(out.data()[i], byte) << count << ' ' << i << ' ' << unit;
            }
        }
    }
}

TEST(CodeMapKernels, UnitsBeforeZero) {
    for (std::size_t count = 0; count <= 70; ++count) {
        for (std::size_t zero = 0; zero <= count; ++zero) {
            GuardedBuffer memory(2 * count);
            char* units = reinterpret_cast<char*>(memory.data());
            for (std::size_t i = 0; i < count; ++i) ky::WriteUnit(units + 2 * i, i % 2 == 0 ? 0x4100 : 0x41, 1);
            if (zero < count) ky::WriteUnit(units + 2 * zero, 0, 1);
            ASSERT_EQ(ky::UnitsBeforeZero(units, count), zero) << count;
        }
    }
}

}  // namespace
