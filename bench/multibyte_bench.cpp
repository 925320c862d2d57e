// Texts between UTF-8, 16-bit Unicode and 8-bit code sets, against iconv, and ASCII against memcpy. What becomes a
// string takes a fresh block of the exact size; the peers write into a buffer that they have.

#include <benchmark/benchmark.h>
#include <iconv.h>

#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "goals.h"
#include "kyi18n.h"
#include "kystring.h"

namespace {

/// The UTF-8 of a text that repeats its sample up to a length in bytes.
struct Text {
    const char* name;
    const char* sample;

    std::string Utf8(std::size_t bytes) const {
        std::string text;
        while (text.size() <= bytes) text += sample;
        while ((text[bytes] & 0xC0) == 0x80) --bytes;
        text.resize(bytes);
        return text;
    }
};

constexpr Text kTexts[] = {
    {"ascii", "The quick brown fox jumps over the lazy dog, and so on. "},
    {"german", "Zwölf laxe Typen qualmen verdächtig süße Objekte; fünf große Bären hören zu. "},
    {"russian", "Съешь же ещё этих мягких французских булок, да выпей чаю. "},
    {"chinese", "天地玄黃宇宙洪荒日月盈昃辰宿列張. "},
};

struct Size {
    const char* name;
    std::size_t bytes;
};
constexpr Size kSizes[] = {{"12", 12}, {"1k", 1000}, {"16k", 16000}};

/// A conversion by the C library.
class Iconv {
public:
    Iconv(const char* to, const char* from) : handle(iconv_open(to, from)) {
        if (handle == reinterpret_cast<iconv_t>(-1)) throw std::runtime_error("iconv");
    }
    Iconv(const Iconv&) = delete;
    Iconv& operator=(const Iconv&) = delete;
    ~Iconv() { iconv_close(handle); }

    /// Returns the bytes written.
    std::size_t Convert(const char* from, std::size_t size, std::vector<char>& to) const {
        char* in = const_cast<char*>(from);
        char* out = to.data();
        std::size_t room = to.size();
        iconv(handle, &in, &size, &out, &room);
        return to.size() - room;
    }

private:
    iconv_t handle;
};

void ConvertByIconv(benchmark::State& state, const char* to, const char* from, const std::string& text) {
    const Iconv iconv(to, from);
    std::vector<char> out(4 * text.size() + 8);
    for (auto _ : state) {
        benchmark::DoNotOptimize(iconv.Convert(text.data(), text.size(), out));
        benchmark::ClobberMemory();
    }
}

void ConvertIntoBlock(benchmark::State& state, const std::string& text) {
    const Iconv iconv("UTF-16LE", "UTF-8");
    std::vector<char> out(4 * text.size() + 8);
    std::unique_ptr<char[]> block;
    for (auto _ : state) {
        const std::size_t size = iconv.Convert(text.data(), text.size(), out);
        block.reset(new char[size + 2]);
        std::memcpy(block.get(), out.data(), size + 2);
        benchmark::ClobberMemory();
    }
}

void Copy(benchmark::State& state, const std::string& text) {
    std::vector<char> out(text.size());
    std::size_t size = text.size();
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        std::memcpy(out.data(), text.data(), size);
        benchmark::ClobberMemory();
    }
}

/// What a string does at least that becomes a copy of a text.
void CopyIntoBlock(benchmark::State& state, const std::string& text) {
    std::size_t size = text.size();
    std::unique_ptr<char[]> block;
    for (auto _ : state) {
        benchmark::DoNotOptimize(size);
        block.reset(new char[size]);
        std::memcpy(block.get(), text.data(), size);
        benchmark::ClobberMemory();
    }
}

KyString InUnicode(const std::string& utf8) {
    KyString s;
    KyMBS2KyString(utf8.data(), s, static_cast<int>(utf8.size()));
    return s;
}
std::string BytesOf(const KyString& s) {
    return {s.StrGet(), s.CodeSetGet() == KyCodeSetUnicode ? 2 * std::size_t{s.Len()} : s.Len()};
}
KyString InCodeSet(const std::string& utf8, unsigned char codeSet) {
    KyString s = InUnicode(utf8);
    s.MapToCodeSet(codeSet);
    return s;
}

void Read(benchmark::State& state, const std::string& utf8) {
    KyString s;
    for (auto _ : state) {
        benchmark::DoNotOptimize(KyMBS2KyString(utf8.data(), s, static_cast<int>(utf8.size())));
        benchmark::ClobberMemory();
    }
}

void ReadUnits(benchmark::State& state, const std::string& utf8) {
    std::vector<unsigned short> out(utf8.size());
    const int room = static_cast<int>(out.size());
    for (auto _ : state) {
        benchmark::DoNotOptimize(KyMultiByteStr2WCharStr(out.data(), room, utf8.data(), static_cast<int>(utf8.size())));
        benchmark::ClobberMemory();
    }
}

void Write(benchmark::State& state, const KyString& s, std::size_t size) {
    std::vector<char> out(size + 1);
    for (auto _ : state) {
        benchmark::DoNotOptimize(KyString2KyMBS(s, out.data(), static_cast<int>(out.size())));
        benchmark::ClobberMemory();
    }
}

void Map(benchmark::State& state, const KyString& s, unsigned char codeSet) {
    KyString mapped;
    for (auto _ : state) {
        benchmark::DoNotOptimize(mapped.CopyMapped(s, codeSet, -1));
        benchmark::ClobberMemory();
    }
}

const bench::AtStart here([] {
    const bench::Goal twice = bench::AtLeast(2);
    const bench::Goal likeMemcpy = bench::AtLeast(0.3);
    for (const Text& text : kTexts) {
        for (const Size& size : kSizes) {
            const std::string utf8 = text.Utf8(size.bytes);
            const KyString wide = InUnicode(utf8);
            const std::string units = BytesOf(wide);
            const std::string shape = std::string(text.name) + '/' + size.name;
            const auto read = [=](benchmark::State& state) { Read(state, utf8); };
            const auto readUnits = [=](benchmark::State& state) { ReadUnits(state, utf8); };
            const auto readPeer = [=](benchmark::State& state) { ConvertByIconv(state, "UTF-16LE", "UTF-8", utf8); };
            const auto write = [=](benchmark::State& state) { Write(state, wide, utf8.size()); };
            const auto writePeer = [=](benchmark::State& state) { ConvertByIconv(state, "UTF-8", "UTF-16LE", units); };
            bench::RegisterPair("multibyte/read/" + shape, twice, read,
                                [=](benchmark::State& state) { ConvertIntoBlock(state, utf8); });
            bench::RegisterPair("multibyte/read_units/" + shape, twice, readUnits, readPeer);
            bench::RegisterPair("multibyte/write/" + shape, twice, write, writePeer);
            if (&text != kTexts) continue;
            const KyString latin1 = InCodeSet(utf8, KyCodeSetLatin1);
            const auto writeNarrow = [=](benchmark::State& state) { Write(state, latin1, utf8.size()); };
            const auto copy = [=](benchmark::State& state) { Copy(state, utf8); };
            bench::RegisterPair("multibyte/read_memcpy/" + shape, likeMemcpy, read,
                                [=](benchmark::State& state) { CopyIntoBlock(state, units); });
            bench::RegisterPair("multibyte/read_units_memcpy/" + shape, likeMemcpy, readUnits,
                                [=](benchmark::State& state) { Copy(state, units); });
            bench::RegisterPair("multibyte/write_memcpy/" + shape, likeMemcpy, writeNarrow, copy);
        }
    }
    for (const Size& size : kSizes) {
        // Of a word the blocks and the way to the tables are the larger part.
        const bench::Goal mapping = size.bytes < 100 ? bench::AtLeast(1) : twice;
        const std::string utf8 = kTexts[1].Utf8(size.bytes);
        const KyString wide = InUnicode(utf8);
        const KyString latin1 = InCodeSet(utf8, KyCodeSetLatin1);
        const KyString windows = InCodeSet(utf8, KyCodeSetWindows1252);
        const auto iconv = [](const char* to, const char* from, const std::string& bytes) {
            return [=](benchmark::State& state) { ConvertByIconv(state, to, from, bytes); };
        };
        const auto map = [](const KyString& s, unsigned char codeSet) {
            return [=](benchmark::State& state) { Map(state, s, codeSet); };
        };
        bench::RegisterPair(
            std::string("multibyte/write_latin1/german/") + size.name, twice,
            [=](benchmark::State& state) { Write(state, latin1, utf8.size()); },
            iconv("UTF-8", "ISO-8859-1", BytesOf(latin1)));
        bench::RegisterPair(std::string("map/windows1252_to_unicode/") + size.name, mapping,
                            map(windows, KyCodeSetUnicode), iconv("UTF-16LE", "CP1252", BytesOf(windows)));
        bench::RegisterPair(std::string("map/unicode_to_windows1252/") + size.name, mapping,
                            map(wide, KyCodeSetWindows1252), iconv("CP1252", "UTF-16LE", BytesOf(wide)));
        bench::RegisterPair(std::string("map/windows1252_to_latin1/") + size.name, mapping,
                            map(windows, KyCodeSetLatin1), iconv("ISO-8859-1", "CP1252", BytesOf(windows)));
    }
});

}  // namespace
