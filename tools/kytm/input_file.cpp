#include "input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "terminal.h"
#include "texts.h"

namespace kytm {

bool IsStandardInput(const std::string& path) { return path.empty() || path == "-"; }

InputFile::InputFile(const std::string& path)
    : isStandardInput(IsStandardInput(path)),
      name(isStandardInput ? "standard input" : Quoted(path, path.size())),
      descriptor(isStandardInput ? STDIN_FILENO : open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (descriptor < 0) Fail();
}

InputFile::~InputFile() {
    if (!isStandardInput) close(descriptor);
}

std::size_t InputFile::SizeHint() const {
    struct stat status {};
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return 0;
    return static_cast<std::size_t>(status.st_size);
}

std::size_t InputFile::Read(char* target, std::size_t room) {
    for (;;) {
        const ssize_t count = read(descriptor, target, room);
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno != EINTR) Fail();
    }
}

void InputFile::Fail() const { throw Failure("cannot read " + name + ": " + std::strerror(errno)); }

}  // namespace kytm
