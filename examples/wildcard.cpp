// Strings of a language: stored, ordered, and queried with wildcards.

#include <kystring.h>
#include <kytypmgr.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr unsigned char kLatin1 = 1;
constexpr unsigned char kGerman = 2;
constexpr unsigned char kForm = KyFormReversed;

using Record = std::vector<unsigned char>;

/// A stored string: its length, its code set and language, and its bytes.
Record RecordOf(KyTypeMgr& types, KyString text) {
    Record record(types.DiskLenGet(KySTRING_T, &text, kForm, 1, KyFormMemory));
    types.Store(KySTRING_T, record.data(), &text, kForm, 1);
    return record;
}

int Compare(KyTypeMgr& types, const Record& a, const Record& b, unsigned short op) {
    int err = 0;
    return types.Cmp(KySTRING_T, static_cast<unsigned>(a.size()), const_cast<unsigned char*>(a.data()),
                     static_cast<unsigned>(b.size()), const_cast<unsigned char*>(b.data()), op, 1, kForm, err);
}

void Print(KyTypeMgr& types, const Record& record) {
    KyString text;
    types.Load(KySTRING_T, &text, const_cast<unsigned char*>(record.data()), kForm, 1);
    char out[100];
    KyString2KyMBS(text, out, sizeof out);
    std::printf("  %s\n", out);
}

}  // namespace

int main() {
    KyTypeMgr types(5);

    //! [store]
    KyString::SetDefaultCodeSet(kLatin1);
    KyString::SetDefaultLanguage(kGerman);
    std::vector<Record> names;
    for (const char* name : {"M\xFCller", "Zimmer", "Muller", "m\xFCllerin", "\xC4pfel", "Mahler", "Apfel"}) {
        names.push_back(RecordOf(types, name));
    }
    //! [store]

    //! [order]
    // An umlaut stands beside its letter, not behind the alphabet.
    std::sort(names.begin(), names.end(),
              [&](const Record& a, const Record& b) { return Compare(types, a, b, KyCmpExact) < 0; });
    std::printf("in order:\n");
    for (const Record& name : names) Print(types, name);
    //! [order]

    //! [query]
    // "*" is any run of characters, "?" any one. A pattern is the second operand; without `KyCmpExact` it is one.
    const Record pattern = RecordOf(types, "mull*");
    std::printf("like mull*, whatever the case and the accents:\n");
    for (const Record& name : names) {
        if (Compare(types, name, pattern, KyCmpIgnoreCase | KyCmpIgnoreAccent) == 0) Print(types, name);
    }
    //! [query]
    return 0;
}
