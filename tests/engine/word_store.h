#ifndef WORD_STORE_H
#define WORD_STORE_H

/// A store of words over a small alphabet, so that prefixes and duplicates abound, for queries.

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch.h"
#include "kystring.h"
#include "run.h"
#include "scratch_store.h"
#include "types.h"

inline std::string ScanByType(const engine::Attribute& attribute, std::string_view text, void* value) {
    KyString copy(std::string(text).c_str());
    engine::Types().ScanFromKyString(attribute.type, value, copy, nullptr, 1);
    return text == "nonsense" ? "no sense in this" : "";
}

/// Words in indexed and plain attributes, in one form.
class WordStore : public ::testing::TestWithParam<unsigned char> {
protected:
    WordStore() {
        engine::Store::Create(
            folder.File("words"),
            engine::Schema::Parse("class Word { text KyString index\n folded KyString index nocase\n plain KyString\n"
                                  "number int index\n dictionary KyIString index }"),
            GetParam());
        store.emplace(folder.File("words"), engine::Access::write);
        engine::Batch batch(*store, 0);
        unsigned state = 1;
        for (int i = 0; i < 2000; ++i) {
            std::string word;
            state = state * 1103515245 + 12345;
            const unsigned length = state >> 16U & 7U;
            for (unsigned k = 0; k < length; ++k) {
                state = state * 1103515245 + 12345;
                word += "abAB*"[(state >> 16U) % 5];
            }
            if (i % 50 == 0) word = std::string(300, 'a').append(word);
            KyString text(word.c_str());
            KyString folded = text;
            KyString plain = text;
            KyString dictionaryText(word.c_str());
            int number = i % 97;
            void* const dictionary = engine::Types().Create(KyISTRING_T, 1);
            engine::Types().ScanFromKyString(KyISTRING_T, dictionary, dictionaryText, nullptr, 1);
            void* const values[] = {&text, &folded, &plain, &number, dictionary};
            batch.Add(values);
            engine::Types().Delete(KyISTRING_T, dictionary, 1);
        }
        batch.Commit();
    }

    /// The objects that a query finds, by the plan or by looking at all of them.
    std::vector<engine::ObjectNumber> Numbers(const std::string& text, bool byPlan,
                                              engine::AccessPath::Kind* kind = nullptr) {
        const engine::PreparedQuery query(*store, engine::ParseQuery(store->GetSchema(), text), ScanByType);
        const engine::Snapshot snapshot(*store);
        const engine::AccessPath path = byPlan ? query.Plan(snapshot) : engine::AccessPath();
        if (kind != nullptr) *kind = path.kind;
        std::vector<engine::ObjectNumber> numbers;
        query.Run(snapshot, path, [&numbers](const engine::Object& object) {
            numbers.push_back(object.number);
            return true;
        });
        std::ranges::sort(numbers);
        return numbers;
    }

    const ScratchFolder folder;
    std::optional<engine::Store> store;
};

#endif
