/// Loaded in front of the C library: ends the process by SIGKILL at its KY_KILL_AT-th call that changes a file or
/// brings it to the disk. A write that it ends in has done half of its work.

#include <signal.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>

namespace {

bool IsLast() {
    static const long killAt = [] {
        const char* const given = std::getenv("KY_KILL_AT");
        return given == nullptr ? 0 : std::atol(given);
    }();
    static std::atomic<long> calls = 0;
    return ++calls == killAt;
}

template <class... Arguments>
long SystemCall(long number, bool isLast, Arguments... arguments) {
    const long result = syscall(number, arguments...);
    if (isLast) kill(getpid(), SIGKILL);
    return result;
}

}  // namespace

extern "C" {

ssize_t write(int file, const void* bytes, size_t count) {
    const bool isLast = IsLast();
    return SystemCall(SYS_write, isLast, file, bytes, isLast ? count / 2 : count);
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t at) {
    const bool isLast = IsLast();
    return SystemCall(SYS_pwrite64, isLast, file, bytes, isLast ? count / 2 : count, at);
}

ssize_t writev(int file, const iovec* parts, int count) {
    const bool isLast = IsLast();
    return SystemCall(SYS_writev, isLast, file, parts, isLast ? count / 2 : count);
}

int ftruncate(int file, off_t size) noexcept {
    return static_cast<int>(SystemCall(SYS_ftruncate, IsLast(), file, size));
}

int fsync(int file) { return static_cast<int>(SystemCall(SYS_fsync, IsLast(), file)); }
int fdatasync(int file) { return static_cast<int>(SystemCall(SYS_fdatasync, IsLast(), file)); }
int msync(void* begin, size_t length, int flags) {
    return static_cast<int>(SystemCall(SYS_msync, IsLast(), begin, length, flags));
}

}  // extern "C"
