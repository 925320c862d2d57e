/// A program that links none of the libraries loads the type manager and uses it at once.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstring>

#include "kytypes.h"

namespace {

class Library {
public:
    Library() : handle(dlopen(KY_TYPEMGR_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {}
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() {
        if (handle != nullptr) dlclose(handle);
    }

    bool IsOpen() const { return handle != nullptr; }

    template <class Symbol>
    Symbol* Find(const char* name) const {
        return reinterpret_cast<Symbol*>(dlsym(handle, name));
    }

private:
    void* handle;
};

// What a program without the library's headers knows of its classes: the layout.
struct Manager {
    void* rows;
    unsigned factory;
};
struct String {
    const char* text;  // null: no text
    unsigned short size;
    unsigned char codeSet;
    unsigned char language;
};

TEST(Dlopen, RowsAreReadyAtOnce) {
    const Library library;
    ASSERT_TRUE(library.IsOpen()) << dlerror();
    auto* rows = library.Find<KyTypeTab*>("KyNewtypetab");
    auto* oldRows = library.Find<KyTypeTab*>("KyOldtypetab");
    ASSERT_NE(rows, nullptr);
    ASSERT_NE(oldRows, nullptr);
    EXPECT_STREQ(rows[7]->typeName, "int");
    EXPECT_EQ(rows[47], nullptr);
    EXPECT_EQ(oldRows[7], rows[7]);

    void* value = rows[7]->DefaultValue(1, 0);
    ASSERT_NE(value, nullptr);
    unsigned char stored[4] = {1, 1, 1, 1};
    EXPECT_EQ(rows[7]->Store(stored, value, 2, 1), 4U);
    const unsigned char zeros[4] = {};
    EXPECT_EQ(std::memcmp(stored, zeros, sizeof zeros), 0);
    rows[7]->Delete(value, 1);
}

TEST(Dlopen, OptionsBlockIsReadyAtOnce) {
    const Library library;
    ASSERT_TRUE(library.IsOpen()) << dlerror();
    auto* options = library.Find<void*()>("___KyTypeMgrOptions");
    ASSERT_NE(options, nullptr);
    const unsigned char zeros[16] = {};
    EXPECT_EQ(std::memcmp(options(), zeros, sizeof zeros), 0);
}

/// Defaults that an application sets afterwards do not reach it.
TEST(Dlopen, NullTextIsMadeWhileTheLibraryIsLoaded) {
    const Library library;
    ASSERT_TRUE(library.IsOpen()) << dlerror();
    auto* language = library.Find<unsigned char()>("_ZN17KyLanguageContext18GetDefaultLanguageEv");
    auto* setLanguage = library.Find<void(unsigned char)>("_ZN17KyLanguageContext18SetDefaultLanguageEh");
    auto* nullText = library.Find<const String&()>("_ZN9KyTypeMgr18GetNullPrintStringEv");
    ASSERT_TRUE(language != nullptr && setLanguage != nullptr && nullText != nullptr);

    const unsigned char atLoad = language();
    setLanguage(static_cast<unsigned char>(atLoad + 1));
    EXPECT_EQ(nullText().language, atLoad);
    setLanguage(atLoad);
}

TEST(Dlopen, LibraryTellsItsNameAndVersionBeforeItIsAttached) {
    const Library library;
    ASSERT_TRUE(library.IsOpen()) << dlerror();
    auto* describe =
        library.Find<const char*(unsigned*, unsigned*, unsigned*, unsigned*, unsigned*, const char**, const char**,
                                 const char**, unsigned*, const char**, const char**)>("KyDescribeDll");
    auto* info =
        library.Find<void(const char**, unsigned*, const char**, const char**, const char**)>("GetKyTypeMgrInfo");
    auto* check = library.Find<int(unsigned)>("KyCheckDll");
    auto* name = library.Find<const char*>("DLLname");
    ASSERT_TRUE(describe != nullptr && info != nullptr && check != nullptr && name != nullptr);

    unsigned numbers[6];
    const char* texts[5];
    EXPECT_STREQ(describe(&numbers[0], &numbers[1], &numbers[2], &numbers[3], &numbers[4], &texts[0], &texts[1],
                          &texts[2], &numbers[5], &texts[3], &texts[4]),
                 "Corvane Typemanager");
    EXPECT_EQ(numbers[3], 229U);
    EXPECT_STREQ(texts[0], *name);
    const char* version = nullptr;
    info(nullptr, nullptr, &version, nullptr, nullptr);
    EXPECT_STREQ(version, "Corvane Typemanager 12.0.2.229.0 ");
    EXPECT_EQ(check(0), 0);
}

TEST(Dlopen, DefaultManagerExistsWhileTheLibraryIsAttached) {
    const Library library;
    ASSERT_TRUE(library.IsOpen()) << dlerror();
    auto* context = library.Find<void(int)>("___KyTypemgrContext");
    auto* defaultManager = library.Find<Manager*(Manager*)>("_Z14DefaultTypeMgrP9KyTypeMgr");
    ASSERT_TRUE(context != nullptr && defaultManager != nullptr);

    EXPECT_EQ(defaultManager(nullptr), nullptr);
    context(1);
    const Manager* manager = defaultManager(nullptr);
    ASSERT_NE(manager, nullptr);
    EXPECT_EQ(manager->factory, 5U);
    context(0);
    EXPECT_EQ(defaultManager(nullptr), nullptr);
}

TEST(Dlopen, ManagerPrintsAndKnowsTheNullText) {
    const Library library;
    ASSERT_TRUE(library.IsOpen()) << dlerror();
    auto* makeManager = library.Find<void(Manager*, unsigned)>("_ZN9KyTypeMgrC1Ej");
    auto* print = library.Find<String&(Manager*, char, String&, void*, const char*, unsigned)>(
        "_ZN9KyTypeMgr15PrintToKyStringEcR8KyStringPvPKcj");
    auto* nullText = library.Find<const String&()>("_ZN9KyTypeMgr18GetNullPrintStringEv");
    auto* createStrings = library.Find<String*(unsigned)>("_Z14KyStringCreatej");
    auto* deleteStrings = library.Find<int(void*, unsigned)>("_Z14KyStringDeletePvj");
    ASSERT_TRUE(makeManager != nullptr && print != nullptr && nullText != nullptr);
    ASSERT_TRUE(createStrings != nullptr && deleteStrings != nullptr);

    EXPECT_STREQ(nullText().text, "{NULL}");
    Manager manager;
    makeManager(&manager, 5);
    String* out = createStrings(1);
    short numbers[] = {1, 2, 3};
    print(&manager, 1, *out, numbers, nullptr, 3);
    EXPECT_STREQ(out->text, "1,2,3");
    deleteStrings(out, 1);
}

}  // namespace
