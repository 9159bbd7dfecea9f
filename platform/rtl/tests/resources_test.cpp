// Module resource tables, the module list, translation catalogues, and a real module loaded, translated
// and unloaded again.
#include <gtest/gtest.h>

#include <dlfcn.h>
#include <stdlib.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "rtl/resources.h"

using namespace rtl;
using namespace std::chrono_literals;
namespace fs = std::filesystem;

JEX_MODULE("jexrtl_tests")
// Same identifier as a string of the test module: each module must still see its own.
JEX_RESOURCESTRING(_sresCapFirst, "First of the tests");

namespace {

class TTempDir {
public:
    TTempDir() {
        std::string pattern = (fs::temp_directory_path() / "jexres-XXXXXX").string();
        if (!::mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
        Path = fs::canonical(pattern);
    }
    ~TTempDir() {
        std::error_code ec;
        fs::remove_all(Path, ec);
    }
    fs::path Path;
};

void WriteText(const fs::path& file, const std::string& text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary | std::ios::trunc) << text;
}

std::string Entry(const std::string& ctxt, const std::string& id, const std::string& str) {
    return "msgctxt \"" + ctxt + "\"\nmsgid \"" + id + "\"\nmsgstr \"" + str + "\"\n\n";
}

bool Mapped(const std::string& path) {
    std::ifstream maps("/proc/self/maps");
    std::stringstream text;
    text << maps.rdbuf();
    return text.str().find(path) != std::string::npos;
}

std::vector<std::string> EnumNames() {
    std::vector<std::string> names;
    EnumResourceModules([&](TResourceModule& m) {
        names.push_back(m.Name());
        return true;
    });
    return names;
}

// Restores the language settings and the diagnostics every test may change.
class ResourcesTest : public ::testing::Test {
protected:
    void SetUp() override {
        ClearResourceDiagnostics();
        SetResourceLanguage("de");
        SetTranslationCheckInterval(-1ms);
    }
    void TearDown() override {
        SetResourceLanguage("");
        SetTranslationCheckInterval(1000ms);
        ClearResourceDiagnostics();
    }
};

// ---- Tables and the module list ---------------------------------------------------------------------

TEST_F(ResourcesTest, StringTableKeepsNamesAndIdentifiersUnique) {
    TResourceModule m("strings");
    EXPECT_TRUE(m.AddString("_sOne", NoResourceId, "One"));
    EXPECT_TRUE(m.AddString("", 7, "Seven"));
    EXPECT_TRUE(m.AddString("_sEight", 8, "Eight"));
    EXPECT_FALSE(m.AddString("_sOne", 9, "Again"));
    EXPECT_FALSE(m.AddString("", 7, "Seven again"));
    EXPECT_FALSE(m.AddString("", NoResourceId, "Nameless"));
    EXPECT_FALSE(m.AddString("_sNeg", -5, "Negative"));
    EXPECT_EQ(ResourceDiagnostics().size(), 4u);
    EXPECT_NE(ResourceDiagnostics()[0].find("module strings: string resource '_sOne' is declared twice"),
              std::string::npos);

    ASSERT_EQ(m.Strings().size(), 3u);
    EXPECT_EQ(LoadResString(m, 7), "Seven");
    EXPECT_EQ(LoadResString(m, 8), "Eight");
    EXPECT_EQ(LoadResString(m, 9), "");
    EXPECT_EQ(FindResourceString(m, "_sEight"), "Eight");
    EXPECT_EQ(FindResourceString(m, "_seight"), std::nullopt); // identifiers keep their case
    EXPECT_EQ(LoadStr(7), "");                                 // not registered
}

TEST_F(ResourcesTest, LookupsSearchTheMostRecentlyRegisteredModuleFirst) {
    TResourceModule older("older"), newer("newer");
    older.AddString("", 100, "old");
    older.AddString("", 101, "only old");
    newer.AddString("", 100, "new");
    RegisterModule(&older);
    RegisterModule(&newer);
    RegisterModule(&older); // a second registration changes nothing
    EXPECT_EQ(LoadStr(100), "new");
    EXPECT_EQ(LoadStr(101), "only old");
    EXPECT_EQ(FindResourceModule("OLDER"), &older);
    UnregisterModule(&newer);
    EXPECT_EQ(LoadStr(100), "old");
    EXPECT_EQ(FindResourceModule("newer"), nullptr);
    UnregisterModule(&older);
    EXPECT_EQ(LoadStr(100), "");
}

TEST_F(ResourcesTest, EnumerationStopsWhenAskedAndSurvivesUnregistering) {
    TResourceModule a("a"), b("b"), c("c");
    for (auto* m : {&a, &b, &c})
        RegisterModule(m);
    std::vector<std::string> names = EnumNames();
    ASSERT_GE(names.size(), 3u);
    EXPECT_EQ(std::vector<std::string>(names.begin(), names.begin() + 3),
              (std::vector<std::string>{"c", "b", "a"}));

    int calls = 0;
    EnumResourceModules([&](TResourceModule&) { return ++calls < 2; });
    EXPECT_EQ(calls, 2);

    std::vector<std::string> seen;
    EnumResourceModules([&](TResourceModule& m) {
        seen.push_back(m.Name());
        if (&m == &c) UnregisterModule(&b);
        return &m != &a;
    });
    EXPECT_EQ(seen, (std::vector<std::string>{"c", "a"}));
    {
        TResourceModule scoped("scoped");
        RegisterModule(&scoped);
        EXPECT_EQ(FindResourceModule("scoped"), &scoped);
    } // a table that goes away withdraws itself
    EXPECT_EQ(FindResourceModule("scoped"), nullptr);
}

TEST_F(ResourcesTest, MainInstanceIsTheHostsOwnModule) {
    TResourceModule& self = jexThisModule();
    EXPECT_EQ(self.Name(), "jexrtl_tests");
    EXPECT_EQ(self.FileName(), fs::canonical("/proc/self/exe").string());
    EXPECT_EQ(ModuleFileNameOf(reinterpret_cast<const void*>(&LoadStr)),
              ModuleFileNameOf(reinterpret_cast<const void*>(&ClearResourceDiagnostics)));
    EXPECT_NE(ModuleFileNameOf(reinterpret_cast<const void*>(&LoadStr)), self.FileName());

    SetMainInstance(&self);
    EXPECT_EQ(MainInstance(), &self);
    EXPECT_EQ(FindResourceModule("JEXRTL_TESTS"), &self);
    EXPECT_EQ(FindResourceString(self, "_sresCapFirst"), "First of the tests");
    UnregisterModule(&self);
    EXPECT_EQ(MainInstance(), nullptr);
}

TEST_F(ResourcesTest, BitmapsAndDataAreFoundByNameIgnoringCase) {
    TResourceModule m("pictures");
    // The smallest real BMP: 1x1 at 24 bits, one padded row.
    std::vector<uint8_t> bmp = {'B', 'M', 58, 0, 0, 0, 0, 0, 0,  0, 54, 0, 0, 0, 40, 0, 0,   0, 1, 0,
                                0,   0,   1,  0, 0, 0, 1, 0, 24, 0, 0,  0, 0, 0, 4,  0, 0,   0, 0, 0,
                                0,   0,   0,  0, 0, 0, 0, 0, 0,  0, 0,  0, 0, 0, 0,  0, 255, 0};
    EXPECT_TRUE(m.AddBitmap("TJexButton", bmp.data(), bmp.size()));
    EXPECT_FALSE(m.AddBitmap("TJEXBUTTON", bmp.data(), bmp.size()));
    EXPECT_FALSE(m.AddBitmap("", bmp.data(), bmp.size()));
    EXPECT_FALSE(m.AddBitmap("SHORT", bmp.data(), 20));
    std::vector<uint8_t> badOffset = bmp;
    badOffset[10] = 200;
    EXPECT_FALSE(m.AddBitmap("OFFSET", badOffset.data(), badOffset.size()));
    EXPECT_TRUE(m.AddRawData("PackageInfo", "\x01\x02", 2));
    EXPECT_EQ(ResourceDiagnostics().size(), 4u);

    const auto* found = FindBitmapResource(m, "tjexbutton");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(*found, bmp);
    EXPECT_EQ(FindBitmapResource(m, "PACKAGEINFO"), nullptr); // kinds are separate tables
    EXPECT_EQ(FindRawResource(m, "packageinfo")->size(), 2u);
    EXPECT_EQ(FindBitmapResource("TJexButton"), nullptr); // not registered yet
    RegisterModule(&m);
    EXPECT_EQ(FindBitmapResource("TJEXBUTTON"), found);
    EXPECT_EQ(&LoadResourceOrRaise(m, "TJexButton", TResourceType::rtBitmap), found);
    try {
        LoadResourceOrRaise(m, "TJexButton", TResourceType::rtRawData);
        ADD_FAILURE() << "no exception";
    } catch (const EResNotFound& e) {
        EXPECT_EQ(e.Message(), "Resource TJexButton not found");
    }
    UnregisterModule(&m);
}

// ---- Translation catalogues ------------------------------------------------------------------------

class Translations : public ResourcesTest {
protected:
    void SetUp() override {
        ResourcesTest::SetUp();
        Module.AddString("_sA", NoResourceId, "First");
        Module.AddString("_sB", 2, "Next");
        Module.AddString("", 7, "Seven");
        Module.AddString("_sText", NoResourceId, "Line one\nSay \"hi\"\t\\");
    }
    void TearDown() override {
        UnregisterModule(&Module);
        ResourcesTest::TearDown();
    }
    fs::path Po(const std::string& lang = "de") const { return Dir.Path / ("libloc." + lang + ".po"); }
    // Writes the German catalogue and (re)reads it.
    void Catalogue(const std::string& text) {
        WriteText(Po(), text);
        RegisterModule(&Module);
        ReloadTranslations();
    }
    std::string S(const std::string& name) { return FindResourceString(Module, name).value_or("<missing>"); }

    TTempDir Dir;
    TResourceModule Module{"loc", (Dir.Path / "libloc.so").string()};
};

TEST_F(Translations, ApplyByContextAndOriginalText) {
    Catalogue("msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\n" +
              Entry("_sA", "First", "Erste") + Entry("#7", "Seven", "Sieben") +
              Entry("_sB", "Previous", "Vorige") + // original changed since
              "#, c-format, fuzzy\n" + Entry("_sText", "Line one\\nSay \\\"hi\\\"\\t\\\\", "Geraten") +
              "msgid \"Next\"\nmsgstr \"Ohne Kontext\"\n\n" + Entry("_sUnknown", "x", "y"));
    EXPECT_EQ(S("_sA"), "Erste");
    EXPECT_EQ(LoadResString(Module, 7), "Sieben");
    EXPECT_EQ(LoadResString(Module, 2), "Next");
    EXPECT_EQ(S("_sText"), "Line one\nSay \"hi\"\t\\");
    EXPECT_EQ(Module.TranslationFile(), Po().string());
    EXPECT_TRUE(ResourceDiagnostics().empty());

    UnregisterModule(&Module); // an unregistered module shows its own texts
    EXPECT_EQ(S("_sA"), "First");
    EXPECT_EQ(Module.TranslationFile(), "");
}

TEST_F(Translations, ReadTheCatalogueSyntax) {
    Catalogue("\xEF\xBB\xBF# translator comment\r\n#: file.cpp:12\r\n#. extracted\r\n"
              "msgctxt \"_sText\"\r\nmsgid \"\"\r\n  \"Line one\\n\"\r\n\"Say \\\"hi\\\"\\t\\\\\"\r\n"
              "msgstr \"Zeile \\101\\x42\\n\" \"Sag \\\"hallo\\\"\"\r\n\r\n"
              "#, fuzzy\nmsgctxt \"_sA\"\nmsgid \"First\"\nmsgstr \"Geraten\"\n\n" +
              Entry("_sB", "Next", "") +
              "#~ msgctxt \"_sB\"\n#~ msgid \"Next\"\n#~ msgstr \"Veraltet\"\n\n"
              "msgctxt \"#7\"\nmsgid \"Seven\"\nmsgid_plural \"Sevens\"\nmsgstr[0] \"Sieben\"\nmsgstr[1] "
              "\"Siebener\"\n");
    EXPECT_EQ(S("_sText"), "Zeile AB\nSag \"hallo\"");
    EXPECT_EQ(S("_sA"), "First");                 // fuzzy
    EXPECT_EQ(S("_sB"), "Next");                  // untranslated, and obsolete
    EXPECT_EQ(LoadResString(Module, 7), "Seven"); // plural forms are not resource strings
    EXPECT_TRUE(ResourceDiagnostics().empty()) << ResourceDiagnostics()[0];
}

TEST_F(Translations, ConvertTheCataloguesCharset) {
    Catalogue("msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=ISO-8859-1\\n\"\n\n" + Entry("_sB",
                                                                                                   "Next",
                                                                                                   "N\xE4"
                                                                                                   "chste"));
    EXPECT_EQ(S("_sB"), "N\xC3\xA4"
                        "chste");
}

TEST_F(Translations, RejectMalformedCataloguesWithTheirPosition) {
    struct TCase {
        std::string Text, Where;
    };
    const std::string good = Entry("_sA", "First", "Erste");
    const TCase cases[] = {
        {good + "msgctxt \"_sB\"\nmsgid \"Next\"\nmsgstr \"Nächste\n", ":7: end of line within a string"},
        {good + "msgctxt \"_sB\"\nmsgid \"Next\" junk\nmsgstr \"x\"\n", ":6: unexpected text after a string"},
        {good + "msgtext \"_sB\"\n", ":5: unknown keyword 'msgtext'"},
        {good + "msgctxt \"_sB\"\nmsgid \"Next\"\n\nmsgctxt \"#7\"\n", ":5: message without 'msgstr'"},
        {good + good, ":5: duplicate message definition"},
        {good + Entry("_sB", "Next", "\\q"), ":7: invalid escape sequence '\\q'"},
        {good + Entry("_sB", "Next",
                      "N\xE4"
                      "chste"),
         ":5: text is not valid UTF-8"},
        {"msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=KLINGON-1\\n\"\n\n" + good,
         ":1: unsupported charset 'KLINGON-1'"},
        {good + "msgstr \"x\"\n", ":5: 'msgstr' is out of place"},
        {good + "# comment\n\"stray\"\n", ":6: string without a keyword before it"},
        {good + "msgid\n", ":5: 'msgid' is not followed by a string"},
        {good + std::string("msgid \"a\0b\"\n", 12), ":5: NUL byte in catalogue"},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Where);
        ClearResourceDiagnostics();
        Catalogue(c.Text);
        EXPECT_EQ(S("_sA"), "First"); // nothing of a broken catalogue is applied
        EXPECT_EQ(Module.TranslationFile(), "");
        ASSERT_EQ(ResourceDiagnostics().size(), 1u);
        EXPECT_EQ(ResourceDiagnostics()[0],
                  Po().string() + c.Where + " (translations of module loc not applied)");
    }
}

TEST_F(Translations, ReportABrokenCatalogueOnceAndRecoverWhenFixed) {
    SetTranslationCheckInterval(0ms);
    std::vector<std::string> handled;
    auto previous = SetResourceDiagnosticHandler([&](const std::string& m) { handled.push_back(m); });
    Catalogue("msgctxt \"_sA\"\nmsgid \"First\"\nmsgstr \"Erste\n");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(S("_sA"), "First");
        ReloadTranslations();
    }
    EXPECT_EQ(handled.size(), 1u);
    EXPECT_EQ(ResourceDiagnostics().size(), 1u);

    WriteText(Po(), Entry("_sA", "First", "Erste"));
    EXPECT_EQ(S("_sA"), "Erste"); // seen on the next lookup, no reload needed
    WriteText(Po(), Entry("_sA", "First", "Erste") + "bad\n");
    EXPECT_EQ(S("_sA"), "First");
    EXPECT_EQ(handled.size(), 2u); // a new breakage is a new report
    SetResourceDiagnosticHandler(previous);
}

TEST_F(Translations, LookupsNoticeChangesOnlyAsOftenAsAllowed) {
    Catalogue(Entry("_sA", "First", "Erste"));
    auto rewrite = [&](const std::string& translation) {
        auto before = fs::last_write_time(Po());
        WriteText(Po(), Entry("_sA", "First", translation));
        fs::last_write_time(Po(), before + 2s); // a coarse clock must not hide the change
    };
    rewrite("Eins");
    EXPECT_EQ(S("_sA"), "Erste"); // checks are off
    ReloadTranslations();
    EXPECT_EQ(S("_sA"), "Eins");

    SetTranslationCheckInterval(1h);
    rewrite("Zuerst");
    EXPECT_EQ(S("_sA"), "Eins"); // checked at registration or reload, not again for an hour
    SetTranslationCheckInterval(0ms);
    EXPECT_EQ(S("_sA"), "Zuerst");
    fs::remove(Po());
    EXPECT_EQ(S("_sA"), "First");
}

TEST_F(Translations, FollowTheLanguage) {
    Catalogue(Entry("_sA", "First", "Erste"));
    WriteText(Dir.Path / "locale" / "fr" / "libloc.po", Entry("_sA", "First", "Premier"));
    SetResourceLanguage("fr_FR.UTF-8");
    EXPECT_EQ(GetResourceLanguage(), "fr");
    EXPECT_EQ(S("_sA"), "Premier");
    SetResourceLanguage("C");
    EXPECT_EQ(GetResourceLanguage(), "");
    EXPECT_EQ(S("_sA"), "First");
    SetResourceLanguage("../de");
    EXPECT_EQ(GetResourceLanguage(), "");

    // Without a language of its own the environment decides: JEX_LANG, then LC_ALL, LC_MESSAGES, LANG.
    const char* vars[] = {"JEX_LANG", "LC_ALL", "LC_MESSAGES", "LANG"};
    std::vector<std::optional<std::string>> saved;
    for (const char* v : vars)
        saved.push_back(getenv(v) ? std::optional<std::string>(getenv(v)) : std::nullopt);
    for (const char* v : vars)
        unsetenv(v);
    setenv("LANG", "fr_CA.UTF-8", 1);
    setenv("LC_MESSAGES", "de_AT@euro", 1);
    SetResourceLanguage("");
    EXPECT_EQ(GetResourceLanguage(), "de");
    EXPECT_EQ(S("_sA"), "Erste");
    setenv("LC_ALL", "POSIX", 1);
    EXPECT_EQ(GetResourceLanguage(), "");
    setenv("JEX_LANG", "fr", 1);
    ReloadTranslations();
    EXPECT_EQ(S("_sA"), "Premier");
    for (size_t i = 0; i < saved.size(); ++i)
        saved[i] ? setenv(vars[i], saved[i]->c_str(), 1) : unsetenv(vars[i]);
}

TEST_F(ResourcesTest, CatalogueNamesFollowTheModuleFile) {
    TTempDir dir;
    TResourceModule versioned("v", (dir.Path / "libver.so.1").string()),
        program("p", (dir.Path / "tool").string());
    versioned.AddString("_s", NoResourceId, "x");
    program.AddString("_s", NoResourceId, "x");
    WriteText(dir.Path / "libver.de.po", Entry("_s", "x", "vx"));
    WriteText(dir.Path / "tool.de.po", Entry("_s", "x", "px"));
    RegisterModule(&versioned);
    RegisterModule(&program);
    EXPECT_EQ(FindResourceString(versioned, "_s"), "vx");
    EXPECT_EQ(FindResourceString(program, "_s"), "px");
}

// ---- A real module, loaded and unloaded ----------------------------------------------------------

class LoadedModule : public ResourcesTest {
protected:
    void SetUp() override {
        ResourcesTest::SetUp();
        File = (Dir.Path / "libjexresmod.so").string();
        fs::copy_file(JEX_RESMODULE_FILE, File);
        Handle = dlopen(File.c_str(), RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(Handle, nullptr) << dlerror();
        Module = FindModuleResources(Handle);
        ASSERT_NE(Module, nullptr);
        LoadDiagnostics = ResourceDiagnostics();
        RegisterModule(Module);
    }
    void TearDown() override {
        if (Handle) Unload(true);
        ResourcesTest::TearDown();
    }
    void Unload(bool unregisterFirst) {
        if (unregisterFirst) UnregisterModule(Module);
        ASSERT_EQ(dlclose(Handle), 0);
        Handle = nullptr;
        Module = nullptr;
        EXPECT_FALSE(Mapped(File));
        EXPECT_EQ(dlopen(File.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
        EXPECT_EQ(FindResourceModule("jexresmod"), nullptr);
    }
    const TResourceString& String(int which) {
        auto get = reinterpret_cast<const TResourceString* (*)(int)>(dlsym(Handle, "ResModString"));
        return *get(which);
    }

    TTempDir Dir;
    std::string File;
    void* Handle = nullptr;
    TResourceModule* Module = nullptr;
    std::vector<std::string> LoadDiagnostics;
};

TEST_F(LoadedModule, FindsTheTableOfTheLoadedLibrary) {
    EXPECT_EQ(Module->Name(), "jexresmod");
    EXPECT_EQ(Module->FileName(), File);
    EXPECT_EQ(Module->Handle(), Handle);
    EXPECT_EQ(FindResourceModule("JexResMod"), Module);
    EXPECT_EQ(EnumNames().front(), "jexresmod");
    // The bad bitmap was refused at the module's initialisation without stopping the load.
    ASSERT_EQ(LoadDiagnostics.size(), 1u);
    EXPECT_EQ(LoadDiagnostics[0], "module jexresmod: bitmap resource 'BROKEN' is not a BMP image");
}

TEST_F(LoadedModule, LooksUpItsResources) {
    EXPECT_EQ(LoadResString(String(0)), "First");
    EXPECT_EQ(LoadResString(_sresCapFirst), "First of the tests");
    EXPECT_EQ(&String(0).Module(), Module);
    EXPECT_EQ(LoadStr(65293), "Next");
    EXPECT_EQ(LoadResString(*Module, 4711), "Only by number");
    EXPECT_EQ(FindResourceString(*Module, "_sresMultiLine"), "Line one\nLine \"two\"\tend");
    EXPECT_EQ(Module->Strings().size(), 4u);

    const auto* glyph = FindBitmapResource("tjexglyph");
    ASSERT_NE(glyph, nullptr);
    ASSERT_EQ(glyph->size(), 70u);
    EXPECT_EQ((*glyph)[54], 0xFF); // bottom-left pixel is blue (B, G, R)
    EXPECT_EQ(FindBitmapResource(*Module, "BROKEN"), nullptr);
    const auto& info = LoadResourceOrRaise(*Module, "PACKAGEINFO", TResourceType::rtRawData);
    EXPECT_EQ(info.size(), 9u);
    const auto* description = FindRawResource(*Module, "Description");
    ASSERT_NE(description, nullptr);
    EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t*>(description->data()), description->size() / 2),
              u"Resource test module");
}

TEST_F(LoadedModule, TranslatesFromACatalogueBesideTheLibrary) {
    WriteText(
        Dir.Path / "libjexresmod.de.po",
        Entry("_sresCapFirst", "First", "Erste") +
            Entry("_sresCapNext", "Next",
                  "N\xC3\xA4"
                  "chste") +
            Entry("#4711", "Only by number", "Nur als Nummer") +
            Entry("_sresMultiLine", "Line one\\nLine \\\"two\\\"\\tend", "Zeile eins\\nZeile \\\"zwei\\\""));
    EXPECT_EQ(LoadResString(String(0)), "First"); // read at registration only
    ReloadTranslations();
    EXPECT_EQ(LoadResString(String(0)), "Erste");
    EXPECT_EQ(LoadStr(65293), "N\xC3\xA4"
                              "chste");
    EXPECT_EQ(LoadResString(*Module, 4711), "Nur als Nummer");
    EXPECT_EQ(LoadResString(String(2)), "Zeile eins\nZeile \"zwei\"");
    EXPECT_EQ(LoadResString(_sresCapFirst), "First of the tests"); // another module's string of that name

    UnregisterModule(Module);
    EXPECT_EQ(LoadResString(String(0)), "First");
    RegisterModule(Module);
    EXPECT_EQ(LoadResString(String(0)), "Erste");
}

TEST_F(LoadedModule, UnloadingWithoutUnregisteringWithdrawsTheTable) {
    Unload(false);
    std::vector<std::string> names = EnumNames();
    EXPECT_TRUE(std::find(names.begin(), names.end(), "jexresmod") == names.end());
    EXPECT_EQ(FindBitmapResource("TJEXGLYPH"), nullptr);
}

} // namespace
