#include "run_program.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string_view>
#include <thread>

namespace {

void Require(bool holds, const char* what) {
    if (!holds) throw std::runtime_error(what);
}

/// A pipe, or a terminal whose other side is read here. Both descriptors are closed on exec.
struct Channel {
    int here = -1;
    int there = -1;

    static Channel Pipe() {
        std::array<int, 2> ends{};
        Require(pipe2(ends.data(), O_CLOEXEC) == 0, "pipe");
        return {ends[0], ends[1]};
    }

    static Channel Terminal() {
        const int here = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
        Require(here >= 0 && grantpt(here) == 0 && unlockpt(here) == 0, "posix_openpt");
        const int there = open(ptsname(here), O_RDWR | O_NOCTTY | O_CLOEXEC);
        Require(there >= 0, "open terminal");
        termios settings{};
        tcgetattr(there, &settings);
        cfmakeraw(&settings);
        tcsetattr(there, TCSANOW, &settings);
        return {here, there};
    }
};

Channel OutputChannel(OutputTo output) {
    switch (output) {
        case OutputTo::terminal:
            return Channel::Terminal();
        case OutputTo::fullDevice:
            return {-1, open("/dev/full", O_WRONLY | O_CLOEXEC)};
        case OutputTo::closedPipe: {
            Channel channel = Channel::Pipe();
            close(channel.here);
            channel.here = -1;
            return channel;
        }
        case OutputTo::pipe:
            break;
    }
    return Channel::Pipe();
}

std::vector<std::string> Environment(const std::vector<std::string>& added) {
    std::vector<std::string> all;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string_view text = *entry;
        if (!text.starts_with("NO_COLOR=") && !text.starts_with("TERM=")) all.emplace_back(text);
    }
    all.emplace_back("TERM=xterm");
    for (const std::string& entry : added) {
        const std::string name = entry.substr(0, entry.find('=') + 1);
        std::erase_if(all, [&](const std::string& other) { return other.starts_with(name); });
        all.push_back(entry);
    }
    return all;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

void WriteAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = write(descriptor, text.data(), text.size());
        if (count <= 0) return;  // the program has ended
        text.remove_prefix(static_cast<std::size_t>(count));
    }
}

/// Appends what is there; false at the end.
bool ReadSome(int descriptor, std::string& text) {
    std::array<char, 65536> chunk{};
    const ssize_t count = read(descriptor, chunk.data(), chunk.size());
    if (count > 0) text.append(chunk.data(), static_cast<std::size_t>(count));
    return count > 0;  // a terminal ends with EIO
}

void ReadBoth(int outDescriptor, std::string& out, int errDescriptor, std::string& err) {
    std::array<pollfd, 2> watched = {pollfd{outDescriptor, POLLIN, 0}, pollfd{errDescriptor, POLLIN, 0}};
    while (watched[0].fd >= 0 || watched[1].fd >= 0) {
        if (poll(watched.data(), watched.size(), -1) < 0) continue;
        if (watched[0].revents != 0 && !ReadSome(outDescriptor, out)) watched[0].fd = -1;
        if (watched[1].revents != 0 && !ReadSome(errDescriptor, err)) watched[1].fd = -1;
    }
}

Result RunProgram(const char* program, const std::vector<std::string>& arguments, const Surroundings& around) {
    std::signal(SIGPIPE, SIG_IGN);
    const Channel out = OutputChannel(around.output);
    const Channel err = around.errorsToTerminal ? Channel::Terminal() : Channel::Pipe();
    const Channel in = Channel::Pipe();

    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> environment = Environment(around.environment);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, in.here, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, out.there, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, err.there, STDERR_FILENO);
    pid_t child = 0;
    const int error =
        posix_spawn(&child, program, &actions, nullptr, Pointers(words).data(), Pointers(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    Require(error == 0, program);
    close(in.here);
    close(out.there);
    close(err.there);

    std::thread feeder([&] {
        WriteAll(in.there, around.input);
        if (around.pause.count() != 0) std::this_thread::sleep_for(around.pause);
        WriteAll(in.there, around.lateInput);
        close(in.there);
    });
    Result result{};
    ReadBoth(out.here, result.out, err.here, result.err);
    feeder.join();
    int status = 0;
    waitpid(child, &status, 0);
    result.status = WIFSIGNALED(status) ? 1000 + WTERMSIG(status) : WEXITSTATUS(status);
    if (out.here >= 0) close(out.here);
    close(err.here);
    return result;
}

}  // namespace

Result Kytm(const std::vector<std::string>& arguments, const Surroundings& around) {
    return RunProgram(KYTM_PROGRAM, arguments, around);
}

Result Shell(const std::string& script) {
    Surroundings around;
    around.environment = {"KYTM=" KYTM_PROGRAM};
    return RunProgram("/bin/sh", {"-c", script}, around);
}

Result KytmWith(const std::string& input, const std::vector<std::string>& arguments) {
    Surroundings around;
    around.input = input;
    return Kytm(arguments, around);
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

TemporaryFile::TemporaryFile(const std::string& content) {
    const char* folder = std::getenv("TMPDIR");
    path = std::string(folder != nullptr ? folder : "/tmp") + "/kytm_test_XXXXXX";
    const int descriptor = mkstemp(path.data());
    Require(descriptor >= 0, "mkstemp");
    WriteAll(descriptor, content);
    close(descriptor);
}

TemporaryFile::~TemporaryFile() { unlink(path.c_str()); }
