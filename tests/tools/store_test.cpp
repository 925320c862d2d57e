#include <gtest/gtest.h>

#include "made_store.h"

namespace {

TEST(StoreHelp, EachCommandHasHelp) {
    const std::pair<const char*, std::vector<const char*>> commands[] = {
        {"create", {"DB", "--schema", "--form", "index", "language"}},
        {"load", {"DB", "CLASS", "CSV", "--reject", "--batch", "Exit status"}},
        {"query", {"DB", "TEXT", "--explain", "--csv", "--json", "--ids", "order by"}},
        {"explain", {"DB", "TEXT"}},
        {"dump", {"DB", "CLASS", "--schema"}},
        {"check", {"DB", "Exit status"}},
        {"reindex", {"DB"}},
    };
    for (const auto& [command, words] : commands) {
        const Result result = Kytm({"store", command, "--help"});
        EXPECT_EQ(result.status, 0) << command;
        for (const char* word : words) EXPECT_NE(result.out.find(word), std::string::npos) << command << ' ' << word;
        EXPECT_NE(Kytm({"store", "--help"}).out.find(command), std::string::npos);
    }
}

TEST(StoreHelp, WrongCallsEndWithTwoAndSayWhy) {
    const std::pair<std::vector<std::string>, const char*> calls[] = {
        {{"store"}, "subcommand is required"},
        {{"store", "frobnicate"}, "unknown command or option \"frobnicate\""},
        {{"store", "query"}, "DB is required"},
        {{"store", "query", "/nonexistent/store", "Thing"}, "\"/nonexistent/store\" cannot be opened: No such file"},
        {{"store", "query", "x", "Thing", "--csv", "--json"}, "excludes"},
        {{"store", "load", "x", "Thing", "-", "--batch", "0"}, "--batch"},
        {{"store", "create", "x", "--schema", "/nonexistent/schema"}, "cannot read \"/nonexistent/schema\""},
    };
    for (const auto& [call, message] : calls) {
        const Result result = Kytm(call);
        EXPECT_EQ(result.status, 2) << message;
        EXPECT_EQ(result.out, "");
        EXPECT_TRUE(result.err.starts_with("kytm: ")) << result.err;
        EXPECT_NE(result.err.find(message), std::string::npos) << result.err;
    }
}

TEST(StoreCreate, MistakesInASchemaAreShownInTheirLine) {
    struct {
        const char* schema;
        const char* error;
    } const cases[] = {
        {"class Thing {\n  a o_4b\n  b number\n}\n",
         "kytm: standard input, line 3: there is no type \"number\"\n    b number\n      ^\n"},
        {"", "kytm: standard input, line 1: a schema has at least one class\n  \n  ^\n"},
        {"class Thing { a KyBlob index }",
         "kytm: standard input, line 1: blobs have no index: they are longer than its keys\n"
         "  class Thing { a KyBlob index }\n"
         "                         ^\n"},
        {"class Thing { a KyString language 77 }", "kytm: Thing.a: "},
        {"class Thing { a KyString codeset 77 }", "kytm: Thing.a: "},
    };
    const ScratchFolder folder;
    for (const auto& c : cases) {
        const Result result = KytmWith(c.schema, {"store", "create", folder.File("store"), "--schema", "-"});
        EXPECT_EQ(result.status, 2);
        EXPECT_TRUE(result.err.starts_with(c.error)) << result.err;
        EXPECT_EQ(Shell("ls " + folder.File("")).out, "") << "nothing is left behind";
    }
}

TEST(StoreCreate, FormsAndFilesThatExist) {
    const MadeStore native("class Thing { a o_4b }");
    const MadeStore reversed("class Thing { a o_4b }", {"--form", "reversed"});
    const Result again = Kytm({"store", "create", native.Path(), "--schema", native.File("schema")});
    EXPECT_EQ(again.status, 2);
    EXPECT_NE(again.err.find("exists already"), std::string::npos);
    const Result other = Kytm({"store", "create", native.File("b"), "--schema", native.File("schema"), "--form", "x"});
    EXPECT_EQ(other.status, 2);
    EXPECT_EQ(other.err, "kytm: there is no form \"x\": native or reversed\n");
    for (const MadeStore* store : {&native, &reversed}) {
        EXPECT_EQ(store->Load("a\n1\n").status, 0);
        EXPECT_EQ(store->Run("dump").out, "a\n1\n");
    }
}

TEST(StoreDump, GivesWhatALoadTakes) {
    const char schema[] =
        "class Thing { number KyNull_int index\n text KyString index\n samples o_2b[2]\n truth KyBoolean\n"
        " bytes KyBlob\n day KyDate index }";
    const MadeStore store(schema, {"--form", "reversed"});
    const std::string csv =
        "number,text,samples[0],samples[1],truth,bytes,day\n"
        "1,\"a, \"\"b\"\"\nc\",1,-2,TRUE,00ff,2024-02-29\n"
        ",\"\",0,0,FALSE,\"\",\n"
        "-5,,32767,-32768,,,*-12-31\n"
        "7,Straße €,3,4,TRUE,0a,1582-10-04\n";
    EXPECT_EQ(store.Load(csv).out, "4 objects of Thing loaded\n");
    const Result dump = store.Run("dump");
    EXPECT_EQ(dump.status, 0);
    EXPECT_EQ(dump.out, csv);

    const MadeStore copy(Kytm({"store", "dump", store.Path(), "--schema"}).out);
    EXPECT_EQ(copy.Load(dump.out).status, 0);
    EXPECT_EQ(copy.Run("dump").out, csv);
    EXPECT_EQ(copy.Run("check").out, "4 objects, 12 index entries, 0 faults\n");
}

TEST(StoreDump, NullsOfASingleColumnAreRowsToo) {
    const MadeStore store("class Thing { text KyString }");
    EXPECT_EQ(store.Load("text\n{NULL}\n\"\"\nx\n").status, 0);
    EXPECT_EQ(store.Run("dump").out, "text\n{NULL}\n\"\"\nx\n");
}

TEST(StoreDump, ClassesStandBehindTheirNames) {
    const MadeStore store("class Thing { a o_4b }\nclass Other { b o_4b }");
    EXPECT_EQ(store.Load("a\n1\n").status, 0);
    EXPECT_EQ(store.Load("b\n2\n", {}, "Other").status, 0);
    EXPECT_EQ(store.Run("dump").out, "# Thing\na\n1\n\n# Other\nb\n2\n");
    EXPECT_EQ(Kytm({"store", "dump", store.Path(), "Other"}).out, "b\n2\n");
    const Result unknown = Kytm({"store", "dump", store.Path(), "Othr"});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_NE(unknown.err.find("there is no class \"Othr\"; nearest: Other"), std::string::npos) << unknown.err;
}

TEST(StoreCheck, CountsAndReindexes) {
    const MadeStore store("class Thing { a o_4b index\n b KyString index }");
    EXPECT_EQ(store.Load("a,b\n1,x\n2,y\n1,\n").status, 0);
    const Result check = store.Run("check");
    EXPECT_EQ(check.status, 0);
    EXPECT_EQ(check.out, "3 objects, 6 index entries, 0 faults\n");
    EXPECT_EQ(store.Run("reindex").out, "6 index entries made\n");
    EXPECT_EQ(store.Run("check").out, "3 objects, 6 index entries, 0 faults\n");
}

}  // namespace
