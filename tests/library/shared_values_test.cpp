// Values of every type, read by many threads at once through the type manager: all of them see what one alone sees.
// Under the thread sanitizer this shows that nothing that only reads a value writes to it.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "kybase.h"
#include "kystring.h"
#include "kytypevl.h"
#include "kytypmgr.h"
#include "many_threads.h"

namespace {

using Bytes = std::vector<unsigned char>;

KyTypeMgr types(5);

constexpr const char* kTexts[] = {"7", "2024-05-07 12:30:00", "a text, 12.5"};
/// Of these texts, then the type's default.
constexpr unsigned kValues = 4;

/// Some values of a type, in memory and in both persistent forms.
class Values {
public:
    explicit Values(char typeId) : id(typeId), array(types.DefaultValue(id, kValues, 0)) {
        unsigned at = 0;
        for (const char* text : kTexts) {
            KyString given(text);
            types.ScanFromKyString(id, InMemory(at++), given, nullptr, 1);
        }
        for (const unsigned char form : {KyFormNative, KyFormReversed}) {
            for (at = 0; at < kValues; ++at) {
                Bytes bytes(types.DiskLenGet(id, InMemory(at), form, 1, KyFormMemory));
                types.Store(id, bytes.data(), InMemory(at), form, 1);
                stored.push_back(std::move(bytes));
            }
        }
    }
    Values(const Values&) = delete;
    Values& operator=(const Values&) = delete;
    ~Values() { types.Delete(id, array, kValues); }

    void* InMemory(unsigned index) const { return types.GetArrayElement(id, array, index, kValues); }
    Bytes& Stored(unsigned char form, unsigned index) { return stored[(form - KyFormNative) * kValues + index]; }
    static unsigned Length(const Bytes& bytes) { return static_cast<unsigned>(bytes.size()); }

private:
    char id;
    void* array;
    std::vector<Bytes> stored;
};

/// Runs `ask(id, values, answer)` for the values of every type in all threads.
template <class Ask>
void ExpectTheSameOfEveryType(Ask ask) {
    for (int number = 0; number < KyRES_T; ++number) {
        SCOPED_TRACE(KyNewtypetab[number]->typeName);
        const auto id = static_cast<char>(number);
        Values values(id);
        ExpectTheSame([&] {
            std::string answer;
            ask(id, values, answer);
            return Answers{answer};
        });
    }
}

std::string Hex(const Bytes& bytes) {
    std::string text;
    for (const unsigned char byte : bytes) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02X", unsigned{byte});
        text += digits;
    }
    return text + " ";
}

TEST(SharedValues, AreComparedInEveryForm) {
    ExpectTheSameOfEveryType([](char id, Values& values, std::string& answer) {
        for (unsigned i = 0; i < kValues; ++i) {
            for (unsigned j = 0; j < kValues; ++j) {
                answer +=
                    std::to_string(types.Cmp(id, values.InMemory(i), values.InMemory(j), KyCmpExact, 1, KyFormMemory));
                for (const unsigned char form : {KyFormNative, KyFormReversed}) {
                    Bytes& a = values.Stored(form, i);
                    Bytes& b = values.Stored(form, j);
                    int err = 0;
                    answer += std::to_string(
                        types.Cmp(id, Values::Length(a), a.data(), Values::Length(b), b.data(), 0, 1, form, err));
                    answer += "/" + std::to_string(err) + " ";
                }
            }
        }
    });
}

TEST(SharedValues, AreHashedAndMeasured) {
    ExpectTheSameOfEveryType([](char id, Values& values, std::string& answer) {
        for (unsigned i = 0; i < kValues; ++i) {
            int err = 0;
            answer += std::to_string(types.IsNullValue(id, values.InMemory(i))) + " ";
            answer += std::to_string(types.Hash(id, 0, values.InMemory(i), 1, KyFormMemory, err)) + " ";
            for (const unsigned char form : {KyFormNative, KyFormReversed}) {
                Bytes& bytes = values.Stored(form, i);
                answer += std::to_string(types.Hash(id, Values::Length(bytes), bytes.data(), 1, form, err)) + " ";
                answer += std::to_string(types.DiskLenGet(id, bytes.data(), form, 1, form)) + " ";
                MemFile file(bytes.data(), bytes.size());
                answer += std::to_string(types.DiskLenGetFromMemFile(id, &file, form, 1)) + " ";
            }
        }
    });
}

TEST(SharedValues, AreStoredLoadedAndTranslated) {
    ExpectTheSameOfEveryType([](char id, Values& values, std::string& answer) {
        void* loaded = types.DefaultValue(id, 1, 0);
        for (unsigned i = 0; i < kValues; ++i) {
            for (const unsigned char form : {KyFormNative, KyFormReversed}) {
                Bytes& bytes = values.Stored(form, i);
                Bytes written(bytes.size());
                types.Store(id, written.data(), values.InMemory(i), form, 1);
                answer += Hex(written);
                types.Load(id, loaded, bytes.data(), form, 1);
                answer += std::to_string(types.Cmp(id, loaded, values.InMemory(i), KyCmpExact, 1, KyFormMemory)) + " ";
            }
            Bytes& native = values.Stored(KyFormNative, i);
            Bytes reversed(native.size());
            types.Translate(id, reversed.data(), KyFormReversed, Values::Length(reversed), native.data(), KyFormNative,
                            Values::Length(native), 1);
            answer += Hex(reversed);
        }
        types.Delete(id, loaded, 1);
    });
}

TEST(SharedValues, ArePrintedAndConverted) {
    ExpectTheSameOfEveryType([](char id, Values& values, std::string& answer) {
        KyString text;
        answer += types.PrintToKyString(id, text, values.InMemory(0), nullptr, kValues).StrGet();
        KyTypeConvertData* record = types.ConvertTo(id, values.InMemory(0), kValues);
        for (int i = 0; i < static_cast<int>(kValues); ++i) answer += record->GetString(i)->StrGet();
        void* back = types.ConvertFrom(id, record, kValues);
        text = KyString();
        answer += types.PrintToKyString(id, text, back, nullptr, kValues).StrGet();
        types.Delete(id, back, kValues);
        delete record;
    });
}

TEST(SharedValues, BoundIndexes) {
    ExpectTheSameOfEveryType([](char id, Values& values, std::string& answer) {
        for (const unsigned char form : {KyFormNative, KyFormReversed}) {
            for (unsigned i = 0; i < kValues; ++i) {
                Bytes& constant = values.Stored(form, i);
                KyIdxBounds keys;
                keys.lower = values.Stored(form, kValues - 1).data();
                keys.lowerLen = static_cast<unsigned char>(values.Stored(form, kValues - 1).size());
                keys.upper = values.Stored(form, 0).data();
                keys.upperLen = static_cast<unsigned char>(values.Stored(form, 0).size());
                KyIdxBounds out;
                unsigned short op = KyCmpEqual | KyCmpGreater;
                answer += std::to_string(types.EvalAndBound(id, &keys, op, constant.data(), form, 1, &out, nullptr));
                answer += " " + std::to_string(op) + " ";
                const auto* lower = static_cast<const unsigned char*>(out.lower);
                if (lower != nullptr) answer += Hex(Bytes(lower, lower + out.lowerLen));
                mmKyfree(out.lower);
                mmKyfree(out.upper);
            }
        }
    });
}

TEST(SharedValues, AreWrittenAndReadByFormatsOfTheCaller) {
    ExpectTheSame([] {
        Answers answers;
        double number = 1234.5678;
        int whole = -42;
        KyString text;
        for (const char* format : {"%.2f", "%12.3e", "%g", "<%+08.1f>"}) {
            answers.emplace_back(types.PrintToKyString(KyDOUBLE_T, text, &number, format, 1).StrGet());
        }
        for (const char* format : {"%5d", "%05d", "%x"}) {
            answers.emplace_back(types.PrintToKyString(KyINT_T, text, &whole, format, 1).StrGet());
        }
        for (const char* given : {"3.25", "-1e300", "0x1p4"}) {
            KyString scanned(given);
            types.ScanFromKyString(KyDOUBLE_T, &number, scanned, "%lf", 1);
            answers.push_back(std::to_string(number));
        }
        return answers;
    });
}

}  // namespace
