#include <gtest/gtest.h>

#include <random>

#include "kystring.h"
#include "string_texts.h"

namespace {

// --- against std::basic_string ---

/// The same random edits on a string and on a standard one.
template <class Unit, class Make>
void CompareWithStandardString(unsigned seed, Make make) {
    using Standard = std::basic_string<Unit>;
    std::mt19937 random(seed);
    const auto below = [&](std::size_t n) { return static_cast<unsigned short>(random() % n); };
    Standard twin;
    KyString s = make(twin);
    for (int step = 0; step < 3000; ++step) {
        Standard piece;
        for (unsigned n = below(7); n != 0; --n) piece += static_cast<Unit>('a' + below(3));
        const KyString text = make(piece);
        const unsigned short pos = below(twin.size() + 3);
        const auto n = static_cast<short>(below(8) - 2);
        switch (below(9)) {
            case 0:
                s.Cut(pos, n);
                if (pos < twin.size() && (n > 0 || n == -1)) twin.erase(pos, static_cast<std::size_t>(n));
                break;
            case 1:
                s.Insert(text, pos);
                if (pos <= twin.size()) twin.insert(pos, piece);
                break;
            case 2:
                s.Replace(text, pos);
                if (pos < twin.size()) {
                    const std::size_t count = std::min(piece.size(), twin.size() - pos);
                    twin.replace(pos, count, piece, 0, count);
                }
                break;
            case 3:
                s += text;
                twin += piece;
                break;
            case 4:
                s.Expand(pos, 'e');
                if (twin.size() < pos) twin.resize(pos, 'e');
                break;
            case 5: {
                const Standard part = pos < twin.size() ? twin.substr(pos, static_cast<unsigned short>(n)) : Standard();
                const KyString copied = s.Copy(pos, n);
                ASSERT_EQ(copied.Len(), part.size());
                if (!part.empty()) {
                    ASSERT_EQ(std::memcmp(copied.StrGet(), part.data(), part.size() * sizeof(Unit)), 0) << step;
                }
                break;
            }
            case 6: {
                const std::size_t at = piece.empty() || pos > twin.size() ? Standard::npos : twin.find(piece, pos);
                ASSERT_EQ(s.Find(text, pos, 0x100), at == Standard::npos ? 0xFFFF : at) << step;
                break;
            }
            case 7: {
                const Standard to = piece.substr(piece.size() / 2);
                const Standard from = piece.substr(0, piece.size() / 2);
                s.ReplaceAll(make(from), make(to), pos);
                for (std::size_t at = pos; !from.empty() && at <= twin.size(); at += to.size()) {
                    at = twin.find(from, at);
                    if (at == Standard::npos) break;
                    twin.replace(at, from.size(), to);
                }
                break;
            }
            default:
                if (twin.size() > 200) {
                    s.Fill(3, 'f');
                    twin.assign(3, 'f');
                }
                break;
        }
        ASSERT_EQ(s.Len(), twin.size()) << "step " << step;
        ASSERT_EQ(std::memcmp(s.StrGet(), twin.c_str(), (twin.size() + 1) * sizeof(Unit)), 0) << "step " << step;
        if (s.BufferSizeGet() != 0) {
            ASSERT_EQ(s.BufferSizeGet(), (twin.size() + 1) * sizeof(Unit)) << "step " << step;
        }
    }
}

TEST(KyStringEdits, AgreeWithStandardStringsOfBytes) {
    for (unsigned seed = 1; seed <= 4; ++seed) CompareWithStandardString<char>(seed, Narrow);
}

TEST(KyStringEdits, AgreeWithStandardStringsOfUnits) {
    for (unsigned seed = 1; seed <= 4; ++seed) CompareWithStandardString<char16_t>(seed, Wide);
}

}  // namespace
