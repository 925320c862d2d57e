#ifndef GOLDEN_H
#define GOLDEN_H

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "hex.h"
#include "kystring.h"
#include "kytypes.h"

/// One line of a golden file: what a value is in a database, for ever. A golden line is never edited to make a test
/// pass.
struct GoldenLine {
    std::string value;  ///< as the row prints it
    std::string native;
    std::string reversed;
    unsigned hash = 0;
};

/// The lines of tests/golden/`file`: columns parted by two blanks or more, "#" begins a comment line.
inline std::vector<GoldenLine> ReadGolden(const std::string& file) {
    std::ifstream in(std::string(KY_GOLDEN_DIR "/") + file);
    EXPECT_TRUE(in.is_open()) << file;
    std::vector<GoldenLine> lines;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> columns;
        for (std::size_t at = 0; at != std::string::npos; at = line.find_first_not_of(' ', at)) {
            const std::size_t end = line.find("  ", at);
            columns.push_back(line.substr(at, end - at));
            at = end;
        }
        EXPECT_EQ(columns.size(), 4u) << file << ": " << line;
        if (columns.size() != 4) continue;
        lines.push_back(
            {columns[0], columns[1], columns[2], static_cast<unsigned>(std::stoul(columns[3], nullptr, 16))});
    }
    EXPECT_FALSE(lines.empty()) << file;
    return lines;
}

/// Store, Load, Compare, Hash, print and scan of a row agree with its golden file.
inline void ExpectGolden(const KyTypeTab& row, const std::string& file) {
    for (const GoldenLine& line : ReadGolden(file)) {
        SCOPED_TRACE(file + ": " + line.value);
        void* value = row.Create(1);
        void* loaded = row.Create(1);
        KyString text(line.value.c_str());
        row.ScanFromKyString(value, text, row.printFormat, 1);
        int err = -1;
        for (const bool native : {true, false}) {
            const unsigned char form = native ? KyFormNative : KyFormReversed;
            const std::string& bytes = native ? line.native : line.reversed;
            std::vector<unsigned char> golden = Bytes(bytes);
            std::vector<unsigned char> stored(row.SizeGet(value, KyFormMemory, form, 1));
            EXPECT_EQ(row.Store(stored.data(), value, form, 1), golden.size());
            EXPECT_EQ(Hex(stored.data(), stored.size()), bytes);
            EXPECT_EQ(row.Load(loaded, golden.data(), form, 1), golden.size());
            EXPECT_EQ(row.Compare(KyFormMemory, 0, loaded, 0, value, KyCmpExact, 1, err), 0);
            EXPECT_EQ(row.Hash(form, 0, golden.data(), 1, err), line.hash);
        }
        EXPECT_EQ(row.Hash(KyFormMemory, 0, value, 1, err), line.hash);
        KyString printed;
        EXPECT_EQ(row.PrintToKyString(printed, loaded, row.printFormat, 1).StrGet(), line.value);
        row.Delete(loaded, 1);
        row.Delete(value, 1);
    }
}

#endif
