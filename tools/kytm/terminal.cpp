#include "terminal.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace kytm {

namespace {

/// 0, or the error number of the first write that failed.
int WriteAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = write(descriptor, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

bool HasValue(const char* variable) {
    const char* value = std::getenv(variable);  // NOLINT(concurrency-mt-unsafe): one thread
    return value != nullptr && *value != '\0';
}

bool IsDumbTerminal() {
    const char* name = std::getenv("TERM");  // NOLINT(concurrency-mt-unsafe): one thread
    return name == nullptr || std::strcmp(name, "dumb") == 0;
}

}  // namespace

void Output::Flush() {
    const int error = WriteAll(STDOUT_FILENO, buffer);
    buffer.clear();
    if (error == EPIPE) throw PipeClosed();
    if (error != 0) throw Failure(std::string("cannot write standard output: ") + std::strerror(error));
}

void Output::Spill(std::size_t coming) {
    Flush();
    buffer.reserve(std::max(kCapacity, coming));
}

void Complain(std::string_view text) {
    std::string line = "kytm: ";
    line.append(text).append("\n");
    WriteAll(STDERR_FILENO, line);
}

void WriteToErrors(std::string_view text) { WriteAll(STDERR_FILENO, text); }

Paint::Paint() : enabled(isatty(STDOUT_FILENO) == 1 && !HasValue("NO_COLOR") && !IsDumbTerminal()) {}

std::string Paint::Wrap(std::string_view code, std::string_view text) const {
    if (!enabled) return std::string(text);
    std::string painted = "\033[";
    return painted.append(code).append("m").append(text).append("\033[0m");
}

Progress::Progress() : enabled(isatty(STDERR_FILENO) == 1), due(Clock::now() + std::chrono::seconds(1)) {}

void Progress::Say(std::string_view stage, std::size_t done, std::size_t total) {
    if (!enabled || Clock::now() < due) return;
    due = Clock::now() + std::chrono::milliseconds(100);
    std::string line = "\r\033[Kkytm: ";
    line.append(stage).append(" ");
    if (total == 0) {
        line += std::to_string(done);
    } else {
        line += std::to_string(std::min<std::size_t>(done * 100 / total, 100)) + " %";
    }
    WriteAll(STDERR_FILENO, line);
    shown = true;
}

void Progress::Wipe() {
    if (shown) WriteAll(STDERR_FILENO, "\r\033[K");
    shown = false;
}

}  // namespace kytm
