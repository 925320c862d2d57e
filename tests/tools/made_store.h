#ifndef MADE_STORE_H
#define MADE_STORE_H

/// A store made by the program, in a folder of its own.

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "run_program.h"
#include "scratch_store.h"

class MadeStore {
public:
    explicit MadeStore(const std::string& schema, const std::vector<std::string>& options = {}) {
        Write("schema", schema);
        std::vector<std::string> call = {"store", "create", Path(), "--schema", folder.File("schema")};
        call.insert(call.end(), options.begin(), options.end());
        const Result made = Kytm(call);
        EXPECT_EQ(made.status, 0) << made.err;
        EXPECT_EQ(made.out + made.err, "");
    }

    std::string Path() const { return folder.File("store"); }
    std::string File(const char* name) const { return folder.File(name); }
    void Write(const char* name, const std::string& content) const {
        std::ofstream(folder.File(name), std::ios::binary) << content;
    }

    Result Load(const std::string& csv, const std::vector<std::string>& options = {},
                const std::string& className = "Thing") const {
        std::vector<std::string> call = {"store", "load", Path(), className, "-"};
        call.insert(call.end(), options.begin(), options.end());
        return KytmWith(csv, call);
    }
    Result Query(const std::string& text, const std::vector<std::string>& options = {"--csv"}) const {
        std::vector<std::string> call = {"store", "query", Path(), text};
        call.insert(call.end(), options.begin(), options.end());
        return Kytm(call);
    }
    Result Run(const std::string& command) const { return Kytm({"store", command, Path()}); }

private:
    ScratchFolder folder;
};

#endif
