#ifndef DICTIONARY_VALUES_H
#define DICTIONARY_VALUES_H

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <vector>

#include "kyistring.h"
#include "kytypes.h"

using Flags = std::initializer_list<unsigned char>;
using Operators = std::initializer_list<unsigned short>;

/// Tests that hold for both dictionary strings.
template <class Self>
class DictionaryStringTest : public testing::Test {};
using DictionaryStrings = testing::Types<KyIString, KyCaseIString>;

template <class Self>
constexpr bool isCaseAlike = std::is_same_v<Self, KyCaseIString>;

template <class Self>
const KyTypeTab& RowOf() {
    return isCaseAlike<Self> ? KyCaseIStringTab : KyIStringTab;
}

template <class Self>
std::string Text(const KyDictionaryString<Self>& s) {
    return s.StrGet();
}

/// No text is an empty one: no block is held for it.
template <class Self>
bool HoldsBlock(const KyDictionaryString<Self>& s) {
    const char* text;
    std::memcpy(&text, &s, sizeof text);
    return text != nullptr;
}

template <class Self>
std::vector<unsigned char> Stored(const std::vector<Self>& values, unsigned char flag) {
    const KyTypeTab& row = RowOf<Self>();
    const auto count = static_cast<unsigned>(values.size());
    std::vector<unsigned char> bytes(row.SizeGet(values.data(), KyFormMemory, flag, count));
    const unsigned written = row.Store(bytes.data(), values.data(), flag, count);
    // With 0x80 the size is that of the key, which may be longer.
    EXPECT_TRUE((flag & 0x80) != 0 ? written <= bytes.size() : written == bytes.size());
    bytes.resize(written);
    return bytes;
}

#endif
