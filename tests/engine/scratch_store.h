#ifndef SCRATCH_STORE_H
#define SCRATCH_STORE_H

/// A folder of a test's (or a benchmark's) own, gone with it.

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>

class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = std::filesystem::temp_directory_path() / "kystoreXXXXXX";
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder could be made for the test");
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
