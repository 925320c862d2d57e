/// kytm: what an engine does through the type manager, from the command line.

#include <CLI/CLI.hpp>
#include <csignal>
#include <new>
#include <sstream>

#include "commands.h"
#include "compare_word.h"
#include "store_program.h"
#include "terminal.h"
#include "texts.h"

namespace kytm {

namespace {

/// Set before each word that is no option, so that the parser takes any text as it stands: "-.5", "-Infinity",
/// "[a]" and the empty one. No argument begins with it by itself.
constexpr char kShield = '\x01';

bool IsNegativeNumber(std::string_view word) {
    if (word.size() < 2 || word[0] != '-') return false;
    const std::string_view rest = word.substr(1);
    return (rest[0] >= '0' && rest[0] <= '9') || (rest[0] == '.' && rest.size() > 1) ||
           (rest.size() >= 3 && (rest[0] == 'I' || rest[0] == 'i') && (rest[1] == 'n' || rest[1] == 'N'));
}

/// The words behind the program's name, last one first, as the parser wants them. Those that name the command stay as
/// they are: of "store" it is the first two.
std::vector<std::string> ShieldedArguments(int argc, char** argv) {
    std::vector<std::string> words;
    bool onlyValues = false;
    int commandWords = 1;
    bool inStore = false;
    for (int i = 1; i < argc; ++i) {
        std::string word = argv[i];
        if (!onlyValues && word == "--") {
            onlyValues = true;
        } else if (onlyValues || !word.starts_with('-') || word == "-" || IsNegativeNumber(word)) {
            if (commandWords == 1 && word == "store" && !inStore) {
                inStore = true;
            } else if (commandWords > 0) {
                --commandWords;
            } else {
                word.insert(word.begin(), kShield);
            }
        }
        words.push_back(std::move(word));
    }
    std::reverse(words.begin(), words.end());
    return words;
}

void Unshield(std::string& text) {
    if (text.starts_with(kShield)) text.erase(text.begin());
}

void Unshield(std::optional<std::string>& text) {
    if (text) Unshield(*text);
}

void Unshield(TextOptions& texts) {
    Unshield(texts.language);
    Unshield(texts.codeSet);
}

constexpr char kAbout[] =
    "Shows, compares, sorts, searches and stores values of the types of the database, as an engine does it.";
constexpr char kFooter[] =
    "TYPE is a type name (o_4b), a type-code name (Ky4B_T) or a type id (2); `kytm types` lists them.\n"
    "Words that begin with \"-\" and are no numbers go behind \"--\".\n"
    "A blob is given in hexadecimal digits, or as @FILE: the bytes of a file, which may be \"-\" (not among lines).\n"
    "Exit status: 0 done; 1 some of the texts given are no values of the type; 2 the work could not be done.\n"
    "Of match: 0 found; 1 not found; 2 the work could not be done, or not of every line.";

constexpr char kUtf8[] =
    "Strings are given and written in UTF-8, sorted and compared in their code set: unless one is given, ISO-8859-1, "
    "or\n"
    "Unicode (253) for a text with other characters. Code set 0 takes bytes as they stand, and compares them as such.";

template <class... Texts>
void UnshieldAll(Texts&... texts) {
    (Unshield(texts), ...);
}

/// The parser with all commands. What it reads stands in the options afterwards.
class Program {
public:
    Program() {
        app.name("kytm");
        app.footer(kFooter);
        app.set_version_flag("--version", "kytm " KYTM_VERSION);
        app.require_subcommand(1);
        AddLists();
        AddNow();
        AddShow();
        AddCompare();
        AddSort();
        AddMatch();
        store.AddTo(app);
    }

    ExitStatus Run(std::vector<std::string> words, Output& out) {
        try {
            app.parse(std::move(words));
        } catch (const CLI::ParseError& problem) {
            return Report(problem, out);
        }
        if (typesCommand->parsed()) return ListTypes(types, out);
        if (languagesCommand->parsed()) return ListLanguages(languages, out);
        if (codeSetsCommand->parsed()) return ListCodeSets(codeSets, out);
        if (nowCommand->parsed()) {
            UnshieldAll(now.format);
            return ShowNow(now, out);
        }
        if (showCommand->parsed()) {
            UnshieldAll(show.type, show.texts, show.format);
            for (std::string& value : show.values) Unshield(value);
            return ShowValues(show, out);
        }
        if (compareCommand->parsed()) {
            UnshieldAll(compare.type, compare.first, compare.second, compare.texts, compare.op, compare.format);
            return CompareValues(compare, out);
        }
        if (matchCommand->parsed()) {
            UnshieldAll(match.pattern, match.file, match.texts, match.op);
            return MatchLines(match, out);
        }
        if (store.IsCalled()) return store.Run([](std::string& text) { Unshield(text); }, out);
        UnshieldAll(sort.type, sort.file, sort.texts, sort.op, sort.format);
        return SortLines(sort, out);
    }

private:
    CLI::App app{kAbout};
    CLI::App* typesCommand = nullptr;
    CLI::App* languagesCommand = nullptr;
    CLI::App* codeSetsCommand = nullptr;
    CLI::App* nowCommand = nullptr;
    CLI::App* showCommand = nullptr;
    CLI::App* compareCommand = nullptr;
    CLI::App* sortCommand = nullptr;
    CLI::App* matchCommand = nullptr;
    TypesOptions types;
    LanguagesOptions languages;
    CodeSetsOptions codeSets;
    NowOptions now;
    ShowOptions show;
    CompareOptions compare;
    SortOptions sort;
    MatchOptions match;
    StoreProgram store;

    void AddLists() {
        typesCommand = app.add_subcommand("types", "List all types");
        typesCommand->add_flag("--json", types.json, "As a JSON array");
        languagesCommand = app.add_subcommand("languages", "List all languages that strings can be in");
        languagesCommand->add_flag("--json", languages.json, "As a JSON array");
        codeSetsCommand = app.add_subcommand("codesets", "List all code sets that strings can be in");
        codeSetsCommand->add_flag("--json", codeSets.json, "As a JSON array");
    }

    void AddNow() {
        nowCommand = app.add_subcommand("now", "Print the clock in every date and time type, in local time and in UTC");
        nowCommand->add_option("--format", now.format, "Print by this format")->type_name("F");
        nowCommand->add_flag("--json", now.json, "As a JSON array");
    }

    void AddShow() {
        showCommand = app.add_subcommand("show", "Show values: bytes in memory and stored, sizes, hash, text and back");
        showCommand->add_option("TYPE", show.type, "Type of the values")->required();
        showCommand->add_option("VALUE", show.values, "Texts of the values")->required();
        AddTextOptions(*showCommand, show.texts);
        showCommand->add_option("--format", show.format, "Scan and print by this format, too")->type_name("F");
        showCommand->add_flag("--json", show.json, "As a JSON array");
        showCommand->footer(kUtf8 +
                            std::string("\nWith neither option a text that is no UTF-8 is taken as ISO-8859-1."));
    }

    void AddCompare() {
        compareCommand = app.add_subcommand("cmp", "Compare two values: <, = or >, the result and the error code");
        compareCommand->add_option("TYPE", compare.type, "Type of the values")->required();
        compareCommand->add_option("A", compare.first, "Text of the first value")->required();
        compareCommand->add_option("B", compare.second, "Text of the second value; the pattern, where there are any")
            ->required();
        AddTextOptions(*compareCommand, compare.texts);
        AddCompareWord(*compareCommand, compare.op, "0x0110");
        compareCommand->add_option("--format", compare.format, "Scan by this format")->type_name("F");
        compareCommand->add_flag("--json", compare.json, "As a JSON object");
        compareCommand->footer(kUtf8);
    }

    void AddSort() {
        sortCommand = app.add_subcommand("sort", "Sort the lines of a file as values of a type");
        sortCommand->add_option("TYPE", sort.type, "Type of the values")->required();
        sortCommand->add_option("FILE", sort.file, "File to sort; standard input when missing or \"-\"");
        sortCommand->add_flag("--reverse", sort.reverse, "Largest first; equal values keep their order");
        sortCommand->add_flag("--unique", sort.unique, "Only the first line of equal values");
        sortCommand->add_flag("--null-last", sort.nullLast, "Null values behind all others");
        sortCommand->add_flag("--print", sort.print, "Print the values instead of the lines as they were");
        AddTextOptions(*sortCommand, sort.texts);
        AddCompareWord(*sortCommand, sort.op, "0x0110");
        sortCommand->add_option("--format", sort.format, "Scan, and --print, by this format")->type_name("F");
        sortCommand->footer(
            "A line that does not scan is reported on standard error with its number; all others are sorted.\n"
            "Nothing is read as a pattern: an --op that allows wildcards gets the exact bit (0x10).\n" +
            std::string(kUtf8));
    }

    void AddMatch() {
        matchCommand = app.add_subcommand("match", "Search the lines of a file by the wildcards of strings");
        matchCommand
            ->add_option(
                "PATTERN", match.pattern,
                "\"*\" is any run of characters, \"?\" any one, a backslash takes the meaning from what follows")
            ->required();
        matchCommand->add_option("FILE", match.file, "File to search; standard input when missing or \"-\"");
        matchCommand->add_flag("--find", match.find,
                               "Anywhere in a line; else the pattern has to match a line as a whole");
        matchCommand->add_flag("-c,--count", match.count, "Only how many lines");
        matchCommand->add_flag("-v,--invert", match.invert, "The lines that do not match");
        matchCommand->add_flag("-n,--line-number", match.lineNumbers, "The number of each line in front of it");
        AddTextOptions(*matchCommand, match.texts);
        AddCompareWord(*matchCommand, match.op, "0");
        matchCommand->footer(
            "Case and accents count unless --op ignores them: --op ignore-case,ignore-accent. With exact or "
            "string-exact\n"
            "the pattern means itself. Quote it, or the shell takes its wildcards.\n"
            "A line that cannot be read is reported on standard error with its number, and neither matches nor fails "
            "to.\n"
            "Exit status: 0 found; 1 not found; 2 wrong call, or something could not be read.\n" +
            std::string(kUtf8));
    }

    static void AddTextOptions(CLI::App& command, TextOptions& texts) {
        command
            .add_option("--language", texts.language,
                        "Language of strings: number, tag or name (see kytm languages); neutral unless given")
            ->type_name("LANG");
        command.add_option("--codeset", texts.codeSet, "Code set of strings: number or name (see kytm codesets)")
            ->type_name("SET");
    }

    static void AddCompareWord(CLI::App& command, std::optional<std::string>& op, const std::string& unlessGiven) {
        command
            .add_option("--op", op,
                        "Compare operator: a number, or names joined by \",\": " + std::string(kCompareWordNames) +
                            "; " + unlessGiven + " unless given")
            ->type_name("WORD");
    }

    /// Help and version go to standard output; what is wrong with the call to standard error.
    ExitStatus Report(const CLI::ParseError& problem, Output& out) {
        std::ostringstream information;
        std::ostringstream complaint;
        const bool isProblem = app.exit(problem, information, complaint) != 0;
        out.Write(information.str());
        if (!isProblem) return kDone;
        std::string text = complaint.str();
        const std::vector<std::string> unknown = app.remaining(true);
        if ((app.get_subcommands().empty() || store.LacksCommand()) && !unknown.empty()) {
            text = "unknown command or option " + Quoted(unknown.front()) + "; run with --help for more information";
        }
        std::erase(text, kShield);
        while (text.ends_with('\n')) text.pop_back();
        Complain(text);
        return kFailed;
    }
};

int Run(int argc, char** argv) {
    // A closed pipe and a file that may not grow are noticed by the write.
    (void)std::signal(SIGPIPE, SIG_IGN);
    (void)std::signal(SIGXFSZ, SIG_IGN);
    try {
        Output out;
        const ExitStatus status = Program().Run(ShieldedArguments(argc, argv), out);
        out.Flush();
        return status;
    } catch (const PipeClosed&) {
        return kPipeClosed;
    } catch (const std::bad_alloc&) {
        Complain("out of memory");
    } catch (const std::exception& problem) {
        Complain(problem.what());
    }
    return kFailed;
}

}  // namespace

}  // namespace kytm

int main(int argc, char** argv) { return kytm::Run(argc, argv); }
