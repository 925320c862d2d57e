#ifndef RUN_PROGRAM_H
#define RUN_PROGRAM_H

#include <chrono>
#include <string>
#include <vector>

/// Where the program's standard output goes.
enum class OutputTo { pipe, terminal, closedPipe, fullDevice };

struct Surroundings {
    std::string input = {};      ///< standard input
    std::string lateInput = {};  ///< more of it, after `pause`
    std::chrono::milliseconds pause{0};
    OutputTo output = OutputTo::pipe;
    bool errorsToTerminal = false;
    std::vector<std::string> environment = {};  ///< "NAME=value", beside TERM=xterm; NO_COLOR is not set otherwise
};

struct Result {
    int status;  ///< of exit; 1000 and more: killed by this signal
    std::string out;
    std::string err;
};

/// Runs kytm with these arguments to its end.
Result Kytm(const std::vector<std::string>& arguments, const Surroundings& around = {});

/// The same with a text as standard input.
Result KytmWith(const std::string& input, const std::vector<std::string>& arguments);

/// Runs a script of the shell, in which $KYTM is the program.
Result Shell(const std::string& script);

/// Whether programs have files of their own to write, where they tell what of them was run.
#ifdef KY_COVERAGE
inline constexpr bool kWritesCoverage = true;
#else
inline constexpr bool kWritesCoverage = false;
#endif

/// The lines of a text, without their ends.
std::vector<std::string> LinesOf(const std::string& text);

/// A file with this content, removed at the end.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& content);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();
    const std::string& Path() const { return path; }

private:
    std::string path;
};

#endif
