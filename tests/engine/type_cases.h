#ifndef TYPE_CASES_H
#define TYPE_CASES_H

/// Every type that attributes can have, in both persistent forms, as parameters of tests.

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "schema.h"
#include "types.h"

struct TypeCase {
    char type;
    unsigned char form;

    std::string Name() const {
        return std::string(engine::Types().NameGet(type, nullptr)) + (form == KyFormNative ? "_1" : "_2");
    }
};

inline std::string NameOf(const ::testing::TestParamInfo<TypeCase>& info) { return info.param.Name(); }
inline void PrintTo(const TypeCase& of, std::ostream* out) { *out << of.Name(); }

inline std::vector<TypeCase> AllTypeCases() {
    std::vector<TypeCase> cases;
    for (int type = 0; type < KyRES_T; ++type)
        for (const unsigned char form : {KyFormNative, KyFormReversed})
            cases.push_back({static_cast<char>(type), form});
    return cases;
}

/// As a schema writes it; empty where attributes of so many elements have none.
inline std::string IndexOf(char type, unsigned count) {
    engine::Attribute attribute;
    attribute.type = type;
    attribute.count = count;
    return engine::WhyNotIndexed(attribute) == nullptr ? " index" : "";
}

#endif
