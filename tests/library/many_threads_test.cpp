// Every table that the library makes when it is first needed, asked for by many threads at once: all of them get what
// one alone gets. Under the thread sanitizer this shows that nothing is read while it is still being made.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kyi18n.h"
#include "kyistring.h"
#include "kystring.h"
#include "kytypinf.h"
#include "kytypmgr.h"
#include "many_threads.h"

namespace {

constexpr unsigned char kCodeSets[] = {1, 2, 8, 253};
constexpr unsigned char kNarrowCodeSets[] = {1, 2, 5, 9};
/// Whatever letters keep of case and accent.
constexpr unsigned short kPatternOps[] = {0, KyCmpIgnoreCase, KyCmpIgnoreAccent, KyCmpIgnoreCase | KyCmpIgnoreAccent};
constexpr unsigned short kExactOps[] = {KyCmpExact, KyCmpExact | KyCmpIgnoreCase, KyCmpExact | KyCmpIgnoreAccent,
                                        KyCmpExact | KyCmpIgnoreCase | KyCmpIgnoreAccent};

std::vector<unsigned char> Languages() {
    std::vector<unsigned char> languages;
    for (unsigned number = 0; number < KyLanguageNull; ++number) {
        const auto language = static_cast<unsigned char>(number);
        if (KyLanguageContext::QueryLanguage(language) != nullptr) languages.push_back(language);
    }
    return languages;
}

KyString Text(const char* text, unsigned char codeSet, unsigned char language) {
    KyString made(text);
    made.MapToCodeSet(codeSet);
    made.LanguageSet(language);
    return made;
}

/// One text in form 1.
std::vector<unsigned char> Stored(const KyString& text) {
    std::vector<unsigned char> bytes(KyStringTab.SizeGet(&text, KyFormMemory, KyFormNative, 1));
    KyStringTab.Store(bytes.data(), &text, KyFormNative, 1);
    return bytes;
}

const char* Sign(int order) { return order < 0 ? "<" : order > 0 ? ">" : "="; }

TEST(ManyThreads, ReadTheKeysOfCodeSetsAndLanguages) {
    const std::vector<unsigned char> languages = Languages();
    ASSERT_GE(languages.size(), 10u);
    ExpectTheSame([&] {
        Answers answers;
        for (const unsigned char language : languages) {
            for (const unsigned char codeSet : kCodeSets) {
                const KyString a = Text("Chalk \xE4\xDF 7", codeSet, language);
                const KyString b = Text("cHalk \xC4ss 7", codeSet, language);
                std::string answer = std::to_string(language) + "/" + std::to_string(codeSet);
                for (const unsigned short op : kExactOps) answer += Sign(a.Compare(b, -1, op));
                answers.push_back(answer);
            }
        }
        return answers;
    });
}

TEST(ManyThreads, ReadTheKeysOfAllUnicodePages) {
    ExpectTheSame([] {
        Answers answers;
        for (unsigned high = 0; high < 256; ++high) {
            const unsigned short a[] = {static_cast<unsigned short>(high << 8 | 0x41), 0};
            const unsigned short b[] = {static_cast<unsigned short>(high << 8 | 0x62), 0};
            answers.emplace_back(Sign(KyString(a).Compare(KyString(b), -1, KyCmpExact)));
        }
        return answers;
    });
}

TEST(ManyThreads, ReadTheGroupsOfPatternSearches) {
    ExpectTheSame([] {
        Answers answers;
        for (const unsigned char codeSet : kNarrowCodeSets) {
            const KyString text = Text("the quick brown fox jumps over the lazy dog, again and again", codeSet, 1);
            const KyString pattern = Text("LAZY*AGAIN", codeSet, 1);
            const KyString exact = Text("lazy", codeSet, 1);
            std::string answer;
            for (const unsigned short op : kPatternOps) {
                answer +=
                    std::to_string(text.Find(pattern, 0, op)) + " " + std::to_string(text.Find(exact, 0, op)) + " ";
                answer += Sign(text.Compare(Text("*L?ZY*", codeSet, 1), -1, op));
            }
            answers.push_back(answer);
        }
        return answers;
    });
}

TEST(ManyThreads, ReadTheLongestJoinedCharacters) {
    const std::vector<unsigned char> languages = Languages();
    ExpectTheSame([&] {
        Answers answers;
        for (const unsigned char language : languages) {
            std::vector<unsigned char> whole = Stored(Text("a chain of dzs", 1, language));
            std::vector<unsigned char> other = Stored(Text("a chain of dz", 1, language));
            int err = 0;
            const int order =
                KyStringTab.Compare(KyFormNative, static_cast<unsigned>(whole.size()) - 3, whole.data(),
                                    static_cast<unsigned>(other.size()), other.data(), KyCmpExact, 1, err);
            answers.push_back(std::to_string(err) + Sign(order));
        }
        return answers;
    });
}

TEST(ManyThreads, ReadTheWildcards) {
    ExpectTheSame([] {
        return Answers{std::to_string(KyString::GetAsterisk()), std::to_string(KyString::GetQuestion()),
                       std::to_string(KyString::GetEscape())};
    });
}

TEST(ManyThreads, ReadTheTextsOfTheLibrary) {
    ExpectTheSame([] {
        const char* version = nullptr;
        GetKyTypeMgrInfo(nullptr, nullptr, &version, nullptr, nullptr);
        return Answers{version, KyString::EmptyString().StrGet(), KyTypeMgr::GetNullPrintString().StrGet()};
    });
}

TEST(ManyThreads, TranslateUnicodeIntoKeys) {
    ExpectTheSame([] {
        std::vector<unsigned char> stored = Stored(Text("Key of a text", 253, 1));
        std::vector<unsigned char> key(253);
        KyStringTab.Translate(key.data(), KyFormReversed, static_cast<unsigned>(key.size()), stored.data(),
                              KyFormNative, static_cast<unsigned>(stored.size()), 1);
        return Answers{std::string(key.begin(), key.end())};
    });
}

TEST(ManyThreads, PrintAndScanEveryType) {
    ExpectTheSame([] {
        KyTypeMgr types(5);
        Answers answers;
        for (int number = 0; number < KyRES_T; ++number) {
            const char id = static_cast<char>(number);
            void* value = types.DefaultValue(id, 1, 0);
            if (value == nullptr) continue;
            types.SetNullValue(id, value);
            KyString text;
            types.PrintToKyString(id, text, value, nullptr, 1);
            types.ScanFromKyString(id, value, text, nullptr, 1);
            answers.push_back(std::to_string(number) + text.StrGet());
            types.Delete(id, value, 1);
        }
        return answers;
    });
}

}  // namespace
