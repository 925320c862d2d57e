#include "support/golden.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>

#include "kystring.h"
#include "support/hex.h"

namespace {

std::vector<std::string> Columns(const std::string& line) {
    std::vector<std::string> columns;
    std::size_t at = 0;
    while (at < line.size()) {
        const std::size_t gap = std::min(line.find("  ", at), line.size());
        columns.push_back(line.substr(at, gap - at));
        at = std::min(line.find_first_not_of(' ', gap), line.size());
    }
    return columns;
}

std::string HashText(unsigned hash) {
    char text[9];
    std::snprintf(text, sizeof text, "%08X", hash);
    return text;
}

void CheckForm(KyTypeTab& row, void* value, unsigned char form, const std::string& bytes, const std::string& hash) {
    SCOPED_TRACE("form " + std::to_string(form));
    int err = -1;
    std::vector<unsigned char> stored(row.SizeGet(value, KyFormMemory, form, 1));
    EXPECT_EQ(row.Store(stored.data(), value, form, 1), stored.size());
    EXPECT_EQ(Hex(stored.data(), stored.size()), bytes);
    if (form != KyFormMemory) {
        // With that flag the elements to be hashed are those in memory, not packed ones.
        EXPECT_EQ(HashText(row.Hash(form, 0, stored.data(), 1, err)), hash);
    }

    void* loaded = row.Create(1);
    EXPECT_EQ(row.Load(loaded, stored.data(), form, 1), stored.size());
    EXPECT_EQ(row.Compare(KyFormMemory, 0, loaded, 0, value, KyCmpExact, 1, err), 0);
    std::vector<unsigned char> again(stored.size());
    row.Store(again.data(), loaded, form, 1);
    EXPECT_EQ(Hex(again.data(), again.size()), bytes) << "stored after it was loaded";
    row.Delete(loaded, 1);
}

}  // namespace

std::vector<GoldenLine> ReadGolden(const std::string& name) {
    std::ifstream file(std::string(KY_GOLDEN_DIR) + "/" + name + ".txt");
    std::vector<GoldenLine> lines;
    std::string text;
    for (int number = 1; std::getline(file, text); ++number) {
        if (text.empty() || text.starts_with("# ")) continue;
        std::vector<std::string> columns = Columns(text);
        EXPECT_TRUE(columns.size() == 4 || columns.size() == 5) << name << ".txt:" << number;
        columns.resize(5);
        const std::string& hashes = columns[3];
        const std::size_t gap = hashes.find(' ');
        const std::string reversedHash = gap == std::string::npos ? hashes : hashes.substr(gap + 1);
        lines.push_back({number, columns[0], columns[1], columns[2], hashes.substr(0, gap), reversedHash, columns[4]});
    }
    return lines;
}

std::string GoldenName(const KyTypeTab& row) {
    // Not by the C library, whose small letters are the locale's.
    std::string name = row.typeName;
    for (char& c : name) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return name;
}

void CheckGolden(KyTypeTab& row) {
    const std::string name = GoldenName(row);
    const std::vector<GoldenLine> lines = ReadGolden(name);
    EXPECT_FALSE(lines.empty()) << name;
    for (const GoldenLine& line : lines) {
        SCOPED_TRACE(name + ".txt:" + std::to_string(line.number) + " " + line.value);
        void* value = row.Create(1);
        KyString text(line.value.c_str());
        EXPECT_EQ(row.ScanFromKyString(value, text, row.printFormat, 1), value);
        int err = -1;
        EXPECT_EQ(HashText(row.Hash(KyFormMemory, 0, value, 1, err)), line.hash);
        CheckForm(row, value, KyFormNative, line.form1, line.hash);
        CheckForm(row, value, KyFormReversed, line.form2, line.reversedHash);
        if (!line.packed.empty()) {
            for (unsigned char form = 8; form <= 10; ++form) CheckForm(row, value, form, line.packed, line.hash);
        }
        row.Delete(value, 1);
    }
}
