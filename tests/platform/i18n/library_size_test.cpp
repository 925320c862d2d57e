#include <elf.h>
#include <gtest/gtest.h>

#include <fstream>
#include <vector>

namespace {

/// Bytes of memory that the segments of a shared library take.
std::size_t LoadedSize(const char* path) {
    std::ifstream file(path, std::ios::binary);
    Elf64_Ehdr header{};
    file.read(reinterpret_cast<char*>(&header), sizeof header);
    std::vector<Elf64_Phdr> segments(header.e_phnum);
    file.seekg(static_cast<std::streamoff>(header.e_phoff));
    file.read(reinterpret_cast<char*>(segments.data()),
              static_cast<std::streamsize>(segments.size() * sizeof(Elf64_Phdr)));
    EXPECT_TRUE(file) << path;
    std::size_t size = 0;
    for (const Elf64_Phdr& segment : segments) {
        if (segment.p_type == PT_LOAD) size += segment.p_memsz;
    }
    return size;
}

TEST(LibrarySize, TablesAndAllFitInTwoMebibytes) {
    if (KY_PADDED_TABLES) GTEST_SKIP() << "sanitizers pad every table";
    const std::size_t size = LoadedSize(KY_I18N_LIBRARY);
    EXPECT_GT(size, std::size_t{1} << 19) << "the tables of the whole 16-bit plane";
    EXPECT_LE(size, std::size_t{2} << 20);
}

}  // namespace
