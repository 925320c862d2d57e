// An index over an attribute, and a query that an index scan answers.

#include <kybase.h>
#include <kystring.h>
#include <kytypevl.h>
#include <kytypmgr.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

namespace {

constexpr char kType = KyDATE_T;
constexpr unsigned char kForm = KyFormReversed;
constexpr unsigned kKeySize = 4;

using Key = std::array<unsigned char, kKeySize>;

Key KeyOf(KyTypeMgr& types, const char* date) {
    KyString text(date);
    void* value = types.Create(kType, 1);
    types.ScanFromKyString(kType, value, text, "%Y-%m-%d", 1);
    Key key;
    types.Store(kType, key.data(), value, kForm, 1);
    types.Delete(kType, value, 1);
    return key;
}

int Compare(KyTypeMgr& types, const void* a, const void* b) {
    // The type manager takes pointers to what may be changed; it changes nothing here.
    return types.Cmp(kType, const_cast<void*>(a), const_cast<void*>(b), KyCmpExact, 1, kForm);
}

void Print(KyTypeMgr& types, Key key) {
    void* value = types.Create(kType, 1);
    types.Load(kType, value, key.data(), kForm, 1);
    KyString text;
    std::printf("%s\n", types.PrintToKyString(kType, text, value, "%Y-%m-%d", 1).StrGet());
    types.Delete(kType, value, 1);
}

}  // namespace

int main() {
    KyTypeMgr types(5);

    //! [build]
    // The index: stored keys in the order of their type.
    std::vector<Key> index;
    for (const char* birthday : {"2001-07-09", "1987-03-30", "1994-12-24", "1999-12-31", "1990-01-01", "1975-05-17"}) {
        index.push_back(KeyOf(types, birthday));
    }
    std::sort(index.begin(), index.end(),
              [&](const Key& a, const Key& b) { return Compare(types, a.data(), b.data()) < 0; });
    //! [build]

    //! [plan]
    // "birthday >= 1990-01-01 and birthday < 2000-01-01": each half narrows the limits of the scan and tells the share
    // of all keys that it keeps.
    KyIdxBounds all;
    all.lower = index.front().data();
    all.upper = index.back().data();
    all.lowerLen = all.upperLen = kKeySize;

    struct Condition {
        unsigned short op;
        const char* date;
    };
    KyIdxBounds scan;
    for (const Condition& condition :
         {Condition{KyCmpGreater | KyCmpEqual, "1990-01-01"}, Condition{KyCmpLess, "2000-01-01"}}) {
        Key constant = KeyOf(types, condition.date);
        unsigned short op = condition.op;
        const float share = types.EvalAndBound(kType, &all, op, constant.data(), kForm, 1, &scan, nullptr);
        std::printf("keeps %.2f\n", static_cast<double>(share));
    }
    //! [plan]

    //! [scan]
    // The limits themselves belong to the range, so that "less" is tested once more. They are the caller's to free.
    for (const Key& key : index) {
        if (Compare(types, key.data(), scan.lower) >= 0 && Compare(types, key.data(), scan.upper) < 0)
            Print(types, key);
    }
    mmKyfree(scan.lower);
    mmKyfree(scan.upper);
    //! [scan]
    return 0;
}
