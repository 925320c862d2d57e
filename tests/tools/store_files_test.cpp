/// Files of stores that are cut, empty, not to be written, or used by somebody else.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include "made_store.h"
#include "snapshot.h"
#include "store.h"

namespace {

constexpr char kThing[] = "class Thing { number o_4b index\n text KyString index }";

std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string ManyRows(int rows) {
    std::string csv = "number,text\n";
    for (int i = 0; i < rows; ++i) csv.append(std::to_string(i)).append(",text\n");
    return csv;
}

TEST(StoreFiles, CutAnywhereTheyAreRefusedAndStayAsTheyAre) {
    const MadeStore store(kThing);
    ASSERT_EQ(store.Load(ManyRows(1500), {"--batch", "300"}).status, 0);
    const std::string whole = Content(store.Path());
    constexpr std::size_t page = 4096;
    const std::size_t pages = whole.size() / page;
    ASSERT_GT(pages, 20U);
    // Of the first two pages, which say what the file is, only the beginnings are needed.
    std::vector<std::size_t> lengths = {0,    1,        100,        200,          page - 1,
                                        page, page + 1, page + 200, 2 * page - 1, whole.size() - 1};
    for (std::size_t i = 2; i < pages; ++i) lengths.push_back(i * page + (i % 3 == 0 ? i : 0));
    for (const std::size_t length : lengths) {
        const std::string cut = whole.substr(0, length);
        store.Write("store", cut);
        for (const engine::Access access : {engine::Access::read, engine::Access::write, engine::Access::reindex}) {
            try {
                const engine::Store opened(store.Path(), access);
                ADD_FAILURE() << length;
            } catch (const engine::StoreError& error) {
                const std::string reason = length <= page + 1 ? " is no store of this program" : " is truncated";
                EXPECT_EQ(error.what(), "\"" + store.Path() + "\"" + reason) << length;
            }
        }
        EXPECT_EQ(Content(store.Path()), cut) << length;
    }
    store.Write("store", "");
    for (const Result& result : {store.Load("number\n1\n"), store.Query("Thing"), store.Run("check"), store.Run("dump"),
                                 store.Run("reindex")}) {
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.err, "kytm: \"" + store.Path() + "\" is no store of this program\n");
    }
    EXPECT_EQ(Content(store.Path()), "");
    store.Write("store", whole);
    EXPECT_EQ(store.Run("check").out, "1500 objects, 3000 index entries, 0 faults\n");
}

TEST(StoreFiles, WhatIsNoFileOfAStoreIsToldOnce) {
    const ScratchFolder folder;
    const auto error = [](const std::vector<std::string>& call) {
        const Result result = Kytm(call);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.out, "");
        return result.err;
    };
    const std::string directory = std::filesystem::path(folder.File("")).parent_path();
    EXPECT_EQ(error({"store", "check", directory}), "kytm: \"" + directory + "\" cannot be opened: Is a directory\n");
    EXPECT_EQ(error({"store", "reindex", directory}), "kytm: \"" + directory + "\" cannot be opened: Is a directory\n");
    std::ofstream(folder.File("schema")) << kThing;
    EXPECT_EQ(error({"store", "create", "/nonexistent/store", "--schema", folder.File("schema")}),
              "kytm: \"/nonexistent/store\" cannot be made: No such file or directory\n");
    EXPECT_EQ(error({"store", "create", directory, "--schema", folder.File("schema")}),
              "kytm: \"" + directory + "\" exists already\n");
}

TEST(StoreFiles, NothingIsLeftOfAStoreThatCannotBeMade) {
    if (kWritesCoverage) GTEST_SKIP() << "the program cannot write its own files either";
    const ScratchFolder folder;
    std::ofstream(folder.File("schema")) << kThing;
    const Result result = Shell("cd '" + folder.File("") +
                                "'; (ulimit -f 20; exec \"$KYTM\" store create db --schema schema); echo $?; ls");
    EXPECT_EQ(result.out, "2\nschema\n");
    EXPECT_TRUE(result.err.starts_with("kytm: ")) << result.err;
    EXPECT_EQ(LinesOf(result.err).size(), 1U) << result.err;
}

/// A call by a user who owns nothing here.
class Nobody : public ::testing::Test {
protected:
    const MadeStore store{kThing};
    // Nothing is closed to the super-user.
    const std::string program =
        (geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups " : "") + std::string("\"$KYTM\" store ");

    void SetUp() override {
        if (kWritesCoverage) GTEST_SKIP() << "another user cannot write the program's own files";
        ASSERT_EQ(store.Load("number,text\n1,b\n").status, 0);
        if (Shell(program + "--help").status != 0) GTEST_SKIP() << "another user cannot run the program";
    }

    void Allow(const std::string& folderMode, const std::string& fileMode) const {
        const std::string folder = std::filesystem::path(store.Path()).parent_path();
        ASSERT_EQ(
            Shell("chmod " + folderMode + " '" + folder + "'; chmod " + fileMode + " '" + store.Path() + "'*").status,
            0);
    }
    Result AsNobody(const std::string& call) const { return Shell(program + call + " </dev/null"); }
    std::string Fault(const char* what) const { return "kytm: \"" + store.Path() + "\" " + what + "\n"; }
};

TEST_F(Nobody, ReadsWithoutALockFile) {
    std::filesystem::remove(store.Path() + "-lock");
    Allow("755", "444");
    EXPECT_EQ(AsNobody("query '" + store.Path() + "' Thing --csv").out, "number,text\n1,b\n");
    EXPECT_FALSE(std::filesystem::exists(store.Path() + "-lock"));
    for (const char* command : {"load", "reindex"}) {
        const std::string rest = std::string(command) == "load" ? "' Thing -" : "'";
        const Result refused = AsNobody(std::string(command) + " '" + store.Path() + rest);
        EXPECT_EQ(refused.status, 2);
        EXPECT_EQ(refused.err, Fault("cannot be opened: Permission denied"));
    }
}

TEST_F(Nobody, WritesNotInADirectoryThatIsClosed) {
    std::filesystem::remove(store.Path() + "-lock");
    Allow("755", "666");
    const Result load = AsNobody("load '" + store.Path() + "' Thing -");
    EXPECT_EQ(load.status, 2);
    EXPECT_EQ(load.err, Fault("cannot be opened: Permission denied"));
    const Result create = AsNobody("create '" + store.File("new") + "' --schema '" + store.File("schema") + "'");
    EXPECT_EQ(create.status, 2);
    EXPECT_EQ(create.err, "kytm: \"" + store.File("new") + "\" cannot be made: Permission denied\n");
}

TEST_F(Nobody, ReadsNothingThatIsBeingWritten) {
    Allow("755", "644");
    const engine::Store writer(store.Path(), engine::Access::write);
    const Result query = AsNobody("query '" + store.Path() + "' Thing --csv");
    EXPECT_EQ(query.status, 2);
    EXPECT_EQ(query.err, Fault("is in use: somebody else is writing to it"));
}

TEST_F(Nobody, ReadsNothingThatIsClosedToAll) {
    Allow("755", "600");
    const Result query = AsNobody("query '" + store.Path() + "' Thing --csv");
    EXPECT_EQ(query.status, 2);
    EXPECT_EQ(query.err, Fault("cannot be opened: Permission denied"));
}

TEST(StoreFiles, ReadersThatWereKilledLeaveRoomForOthers) {
    const MadeStore store(kThing);
    // While this one is open, the places of readers are kept from one process to the next.
    const engine::Store opened(store.Path(), engine::Access::read);
    constexpr int moreThanPlaces = 200;
    for (int i = 0; i < moreThanPlaces; ++i) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            try {
                const engine::Store own(store.Path(), engine::Access::read);
                const engine::Snapshot snapshot(own);
                kill(getpid(), SIGKILL);
            } catch (const std::exception&) {
            }
            _exit(1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "reader " << i;
    }
    EXPECT_EQ(store.Query("Thing").status, 0);
}

/// Keeps a store from being opened for longer than a call may be silent.
class Delay {
public:
    explicit Delay(const std::string& path) : file(open((path + "-lock").c_str(), O_RDWR | O_CLOEXEC)) {
        struct flock lock {};
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        lock.l_len = 1;
        EXPECT_EQ(fcntl(file, F_SETLK, &lock), 0);
        end = std::thread([this] {
            std::this_thread::sleep_for(std::chrono::milliseconds(1300));
            close(file);
        });
    }
    Delay(const Delay&) = delete;
    Delay& operator=(const Delay&) = delete;
    ~Delay() { end.join(); }

private:
    int file;
    std::thread end;
};

TEST(StoreFiles, CheckAndReindexShowTheirProgressOnATerminal) {
    const MadeStore store(kThing);
    ASSERT_EQ(store.Load(ManyRows(3000)).status, 0);
    struct {
        const char* command;
        const char* out;
        const char* progress;
    } const cases[] = {
        {"check", "3000 objects, 6000 index entries, 0 faults\n", "\r\033[Kkytm: checking 0 %"},
        {"reindex", "6000 index entries made\n", "\r\033[Kkytm: making indexes 0 %"},
    };
    for (const auto& c : cases) {
        for (const bool toTerminal : {true, false}) {
            const Delay delay(store.Path());
            Surroundings around;
            around.errorsToTerminal = toTerminal;
            const Result result = Kytm({"store", c.command, store.Path()}, around);
            EXPECT_EQ(result.status, 0);
            EXPECT_EQ(result.out, c.out);
            if (toTerminal) {
                EXPECT_TRUE(result.err.starts_with(c.progress)) << result.err;
                EXPECT_TRUE(result.err.ends_with("\r\033[K")) << result.err;
            } else {
                EXPECT_EQ(result.err, "");
            }
        }
    }
}

}  // namespace
