#ifndef SCRATCH_STORE_H
#define SCRATCH_STORE_H

/// A folder of a test's own, gone with it.

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <string>

class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = ::testing::TempDir() + "kystoreXXXXXX";
        if (::mkdtemp(name.data()) == nullptr) ADD_FAILURE() << "no folder for the test";
        folder = name;
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() { std::filesystem::remove_all(folder); }

    std::string File(const char* name) const { return folder / name; }

private:
    std::filesystem::path folder;
};

#endif
