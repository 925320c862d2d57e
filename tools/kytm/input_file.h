#ifndef KYTM_INPUT_FILE_H
#define KYTM_INPUT_FILE_H

/// Files that are read from beginning to end.

#include <cstddef>
#include <string>

namespace kytm {

/// "" and "-".
bool IsStandardInput(const std::string& path);

/// An open file, closed at the end unless it is standard input. Throws `Failure` when it cannot be read.
class InputFile {
public:
    explicit InputFile(const std::string& path);
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile();

    /// The bytes that the file says it has; 0 for pipes and the like.
    std::size_t SizeHint() const;
    /// Bytes read, 0 at the end.
    std::size_t Read(char* target, std::size_t room);

private:
    bool isStandardInput;
    std::string name;
    int descriptor;

    [[noreturn]] void Fail() const;
};

}  // namespace kytm

#endif
