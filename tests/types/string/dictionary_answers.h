#ifndef DICTIONARY_ANSWERS_H
#define DICTIONARY_ANSWERS_H

/// What the Compare slots of the dictionary strings answer.

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

#include "dictionary_values.h"
#include "support/guarded_buffer.h"

struct Answer {
    int result, err;
    friend bool operator==(const Answer&, const Answer&) = default;
};
inline void PrintTo(const Answer& answer, std::ostream* out) { *out << answer.result << " (" << answer.err << ")"; }

template <class Self>
Answer CompareStored(const std::vector<unsigned char>& a, const std::vector<unsigned char>& b, unsigned char flag,
                     unsigned short op, unsigned count, bool tellLengths) {
    GuardedBuffer bufferA(a);
    GuardedBuffer bufferB(b);
    Answer answer{77, 77};
    answer.result =
        RowOf<Self>().Compare(flag, tellLengths ? static_cast<unsigned>(a.size()) : 0, bufferA.data(),
                              tellLengths ? static_cast<unsigned>(b.size()) : 0, bufferB.data(), op, count, answer.err);
    return answer;
}

/// The one answer of every form.
template <class Self>
Answer Compare(std::vector<Self> a, std::vector<Self> b, unsigned short op) {
    const auto count = static_cast<unsigned>(a.size());
    Answer answer{77, 77};
    answer.result = RowOf<Self>().Compare(KyFormMemory, 0, a.data(), 0, b.data(), op, count, answer.err);
    for (const unsigned char flag : Flags{0x01, 0x02, 0x81, 0x12}) {
        for (const bool tellLengths : {false, true}) {
            EXPECT_EQ(CompareStored<Self>(Stored(a, flag), Stored(b, flag), flag, op, count, tellLengths), answer)
                << a[0].StrGet() << ' ' << b[0].StrGet() << ' ' << int{flag} << ' ' << tellLengths;
        }
    }
    return answer;
}

template <class Self>
Answer Compare(const char* a, const char* b, unsigned short op) {
    return Compare(std::vector<Self>{a}, std::vector<Self>{b}, op);
}

#endif
