#include "lines.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "texts.h"

namespace kytm {

namespace {

constexpr std::size_t kLeastRoom = std::size_t{1} << 16;

bool IsStandardInput(const std::string& path) { return path.empty() || path == "-"; }

/// An open file, closed at the end unless it is standard input.
class InputFile {
public:
    explicit InputFile(const std::string& path)
        : isStandardInput(IsStandardInput(path)),
          name(isStandardInput ? "standard input" : Quoted(path, path.size())),
          descriptor(isStandardInput ? STDIN_FILENO : open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        if (descriptor < 0) Fail();
    }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile() {
        if (!isStandardInput) close(descriptor);
    }

    /// The bytes that the file says it has; 0 for pipes and the like.
    std::size_t SizeHint() const {
        struct stat status {};
        if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return 0;
        return static_cast<std::size_t>(status.st_size);
    }

    /// Bytes read, 0 at the end.
    std::size_t Read(char* target, std::size_t room) {
        for (;;) {
            const ssize_t count = read(descriptor, target, room);
            if (count >= 0) return static_cast<std::size_t>(count);
            if (errno != EINTR) Fail();
        }
    }

private:
    bool isStandardInput;
    std::string name;
    int descriptor;

    [[noreturn]] void Fail() const { throw Failure("cannot read " + name + ": " + std::strerror(errno)); }
};

}  // namespace

std::string ReadAll(const std::string& path, Progress& progress) {
    InputFile file(path);
    const std::size_t hint = file.SizeHint();
    std::string content;
    content.resize(hint + kLeastRoom);
    std::size_t used = 0;
    while (const std::size_t count = file.Read(content.data() + used, content.size() - used)) {
        used += count;
        progress.Say("reading", used, hint);
        if (content.size() - used < kLeastRoom / 2) content.resize(content.size() * 2);
    }
    content.resize(used);
    return content;
}

std::string PlaceOf(const std::string& path, std::size_t index) {
    return (IsStandardInput(path) ? "standard input" : path) + ", line " + std::to_string(index + 1);
}

std::vector<Line> SplitLines(std::string_view text) {
    std::vector<Line> lines;
    lines.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1);
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const bool hasEnd = end != std::string_view::npos;
        std::string_view line = text.substr(0, end);
        text.remove_prefix(hasEnd ? end + 1 : text.size());
        bool withReturn = hasEnd ? line.ends_with('\r') : !lines.empty() && lines.back().endsWithReturn;
        if (hasEnd && withReturn) line.remove_suffix(1);
        lines.push_back({line, withReturn});
    }
    return lines;
}

}  // namespace kytm
