#ifndef KYTM_TERMINAL_H
#define KYTM_TERMINAL_H

/// The program's side of the terminal: exit statuses, buffered output, colour, the progress line.

#include <chrono>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kytm {

enum ExitStatus : int {
    kDone = 0,
    kBadInput = 1,      ///< the work was done, but some of the texts given are no values of the type
    kNoMatch = 1,       ///< no line matches
    kFailed = 2,        ///< wrong call, unknown or unusable type, a file that cannot be read or written
    kPipeClosed = 141,  ///< the reader of standard output went away: as a shell reports that signal
};

/// The work cannot be done: ends the program with this message and `kFailed`.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Nobody reads standard output any more: ends the program silently with `kPipeClosed`.
struct PipeClosed {};

/// Standard output behind a buffer. What is written appears at `Flush`, or when the buffer is full. A failed
/// write throws `Failure`, or `PipeClosed`; what is still in the buffer when the object goes is dropped.
class Output {
public:
    void Write(std::string_view text) {
        if (buffer.size() + text.size() > kCapacity) Spill(text.size());
        buffer.append(text);
    }
    void Flush();

private:
    static constexpr std::size_t kCapacity = std::size_t{1} << 16;
    std::string buffer;

    void Spill(std::size_t coming);
};

/// Writes "kytm: <text>" and a line end to standard error.
void Complain(std::string_view text);

/// Writes the text as it stands to standard error.
void WriteToErrors(std::string_view text);

/// Marks parts of a text for a terminal. Leaves them as they are unless standard output is a terminal that
/// knows colours and the environment has no NO_COLOR with a value.
class Paint {
public:
    Paint();
    std::string Heading(std::string_view text) const { return Wrap("1", text); }
    std::string Label(std::string_view text) const { return Wrap("36", text); }
    std::string Good(std::string_view text) const { return Wrap("32", text); }
    std::string Bad(std::string_view text) const { return Wrap("31", text); }

private:
    bool enabled;

    std::string Wrap(std::string_view code, std::string_view text) const;
};

/// One line on standard error that says how far long work has come. Only on a terminal, and only after the
/// first second; it is wiped when the work ends.
class Progress {
public:
    Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress() { Wipe(); }

    bool Enabled() const { return enabled; }
    /// `total` 0: not known. Call it often: it writes at most ten times a second.
    void Say(std::string_view stage, std::size_t done, std::size_t total);
    /// Before anything else is written to the terminal.
    void Wipe();

private:
    using Clock = std::chrono::steady_clock;
    bool enabled;
    bool shown = false;
    Clock::time_point due;
};

}  // namespace kytm

#endif
