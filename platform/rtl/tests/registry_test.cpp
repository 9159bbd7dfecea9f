// TRegistry on its file in a temporary system directory: keys and paths, typed values, errors, deletion,
// and reading a file edited by hand.
#include <gtest/gtest.h>

#include <filesystem>

#include "rtl/registry.h"

using namespace rtl;
namespace fs = std::filesystem;

namespace {

class RegistryTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string templ = (fs::temp_directory_path() / "jexregXXXXXX").string();
        Dir = mkdtemp(templ.data());
        SetSystemDirectory(Dir + "/system");
    }
    void TearDown() override {
        SetSystemDirectory("");
        fs::remove_all(Dir);
    }
    std::string File() const { return Dir + "/system/registry.ini"; }
    std::string Dir;
};

using V = std::vector<std::string>;

std::string MessageOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const ERegistryException& e) {
        return e.Message();
    }
    return "(no exception)";
}

} // namespace

TEST_F(RegistryTest, WritesAHumanReadableFileAndReadsItBack) {
    {
        TRegistry reg;
        EXPECT_EQ(reg.RootKey(), HKEY_CURRENT_USER);
        EXPECT_EQ(reg.FileName(), File());
        reg.SetRootKey(HKEY_LOCAL_MACHINE);
        ASSERT_TRUE(reg.OpenKey("Software\\Acme\\App\\1.0", true));
        EXPECT_EQ(reg.CurrentPath(), "Software\\Acme\\App\\1.0");
        reg.WriteString("Path", "/opt/acme");
        reg.WriteInteger("Count", 42);
        reg.WriteBool("Enabled", true);
        reg.WriteString("", "default");
        reg.WriteInteger("Negative", -1);
    }
    EXPECT_EQ(ReadFileBytes(File()), "[HKEY_LOCAL_MACHINE\\Software\\Acme\\App\\1.0]\r\n"
                                     "Path=/opt/acme\r\n"
                                     "Count=dword:0000002a\r\n"
                                     "Enabled=dword:00000001\r\n"
                                     "@=default\r\n"
                                     "Negative=dword:ffffffff\r\n");
    TRegistry reg;
    reg.SetRootKey(HKEY_LOCAL_MACHINE);
    ASSERT_TRUE(reg.OpenKeyReadOnly("SOFTWARE\\acme\\APP\\1.0")); // paths ignore case
    EXPECT_EQ(reg.ReadString("path"), "/opt/acme");
    EXPECT_EQ(reg.ReadInteger("COUNT"), 42);
    EXPECT_TRUE(reg.ReadBool("Enabled"));
    EXPECT_EQ(reg.ReadString(""), "default");
    EXPECT_EQ(reg.ReadInteger("Negative"), -1);
    EXPECT_EQ(reg.GetDataType("Count"), rdInteger);
    EXPECT_EQ(reg.GetDataType("Path"), rdString);
    EXPECT_EQ(reg.GetDataType("Nothing"), rdUnknown);
    TStringList names;
    reg.GetValueNames(&names);
    EXPECT_EQ(names.ToVector(), (V{"Path", "Count", "Enabled", "", "Negative"}));

    // The same path under another root is another key.
    reg.SetRootKey(HKEY_CURRENT_USER);
    EXPECT_FALSE(reg.KeyOpen());
    EXPECT_FALSE(reg.KeyExists("\\Software\\Acme"));
}

TEST_F(RegistryTest, MissingAndMistypedValues) {
    TRegistry reg;
    ASSERT_TRUE(reg.OpenKey("Software\\Test", true));
    reg.WriteString("Text", "abc");
    reg.WriteInteger("Number", 5);
    EXPECT_EQ(reg.ReadString("Missing"), "");
    EXPECT_EQ(MessageOf([&] { reg.ReadInteger("Missing"); }), "Failed to get data for 'Missing'");
    EXPECT_EQ(MessageOf([&] { reg.ReadBool("Missing"); }), "Failed to get data for 'Missing'");
    EXPECT_EQ(MessageOf([&] { reg.ReadInteger("Text"); }), "Invalid data type for 'Text'");
    EXPECT_EQ(MessageOf([&] { reg.ReadString("Number"); }), "Invalid data type for 'Number'");
    EXPECT_EQ(MessageOf([&] { reg.WriteString("Bad", "two\nlines"); }), "Failed to set data for 'Bad'");
    EXPECT_EQ(MessageOf([&] { reg.WriteString("a=b", "x"); }), "Failed to set data for 'a=b'");
    EXPECT_FALSE(reg.ValueExists("Bad"));

    // Nothing is open after CloseKey: no values to read or write.
    reg.CloseKey();
    EXPECT_EQ(reg.CurrentPath(), "");
    EXPECT_FALSE(reg.ValueExists("Text"));
    EXPECT_EQ(reg.ReadString("Text"), "");
    EXPECT_THROW(reg.ReadInteger("Number"), ERegistryException);
    EXPECT_THROW(reg.WriteString("Text", "x"), ERegistryException);

    // A read-only key refuses changes.
    EXPECT_FALSE(reg.OpenKeyReadOnly("Software\\Nowhere"));
    EXPECT_FALSE(reg.KeyOpen());
    ASSERT_TRUE(reg.OpenKeyReadOnly("Software\\Test"));
    EXPECT_THROW(reg.WriteInteger("Number", 6), ERegistryException);
    EXPECT_FALSE(reg.DeleteValue("Number"));
    EXPECT_EQ(reg.ReadInteger("Number"), 5);
    EXPECT_THROW(reg.SetRootKey(0x1234), ERegistryException);
}

TEST_F(RegistryTest, RelativeAndAbsolutePaths) {
    TRegistry reg;
    EXPECT_FALSE(reg.OpenKey("Software\\Acme", false)); // missing, not created
    EXPECT_FALSE(FileExists(File()));
    ASSERT_TRUE(reg.OpenKey("Software\\Acme", true));
    ASSERT_TRUE(reg.OpenKey("Tools\\Editor", true)); // relative to the open key
    EXPECT_EQ(reg.CurrentPath(), "Software\\Acme\\Tools\\Editor");
    ASSERT_TRUE(reg.OpenKey("\\Software\\Other", true)); // from the root
    EXPECT_EQ(reg.CurrentPath(), "Software\\Other");
    EXPECT_TRUE(reg.KeyExists("\\software\\acme\\tools"));     // exists because a key below it does
    EXPECT_FALSE(reg.KeyExists("Tools"));                      // relative to Software\Other
    EXPECT_TRUE(reg.KeyExists("\\Software\\\\Acme\\Tools\\")); // empty parts are ignored
    EXPECT_FALSE(reg.KeyExists("\\Software\\Acme]"));
    EXPECT_FALSE(reg.OpenKey("\\Bad]Name", true));
    EXPECT_TRUE(reg.CreateKey("\\Software\\Made"));
    EXPECT_TRUE(reg.KeyExists("\\Software\\Made"));
    EXPECT_EQ(reg.CurrentPath(), "Software\\Other"); // CreateKey does not open
    EXPECT_THROW(reg.CreateKey("\\Bad]"), ERegistryException);
}

TEST_F(RegistryTest, KeyNamesAndDeletion) {
    TRegistry reg;
    for (const char* k :
         {"\\Software\\A\\One", "\\Software\\A\\Two\\Deep", "\\Software\\B", "\\Software\\a\\one\\x"}) {
        ASSERT_TRUE(reg.OpenKey(k, true));
        reg.WriteString("v", k);
    }
    ASSERT_TRUE(reg.OpenKey("\\Software", false));
    TStringList names;
    reg.GetKeyNames(&names);
    EXPECT_EQ(names.ToVector(), (V{"A", "B"}));
    ASSERT_TRUE(reg.OpenKey("A", false));
    reg.GetKeyNames(&names);
    EXPECT_EQ(names.ToVector(), (V{"One", "Two"})); // "one" is the same key as "One"
    EXPECT_TRUE(reg.HasSubKeys());

    ASSERT_TRUE(reg.OpenKey("\\Software\\A\\Two", false));
    EXPECT_TRUE(reg.DeleteKey("\\software\\a")); // with everything below it, closing the open key inside it
    EXPECT_FALSE(reg.KeyOpen());
    EXPECT_FALSE(reg.KeyExists("\\Software\\A\\One"));
    EXPECT_FALSE(reg.KeyExists("\\Software\\a\\one\\x"));
    EXPECT_TRUE(reg.KeyExists("\\Software\\B"));
    EXPECT_FALSE(reg.DeleteKey("\\Software\\A"));
    EXPECT_FALSE(reg.DeleteKey("\\"));

    ASSERT_TRUE(reg.OpenKey("\\Software\\B", false));
    EXPECT_TRUE(reg.DeleteValue("V"));
    EXPECT_FALSE(reg.DeleteValue("v"));
    EXPECT_FALSE(reg.HasSubKeys());
    EXPECT_EQ(ReadFileBytes(File()), "[HKEY_CURRENT_USER\\Software\\B]\r\n");
}

TEST_F(RegistryTest, ReadsAHandEditedFile) {
    ForceDirectories(Dir + "/system");
    WriteFileBytes(File(), "; edited by hand\n"
                           "[hkey_current_user\\Software\\Hand]\n"
                           "Plain = some text \n"
                           "Quoted=\"  spaced  \"\n"
                           "Upper=DWORD:0000FFFF\n"
                           "NotHex=dword:xyz\n"
                           "Marked=sz:dword:1\n");
    TRegistry reg;
    ASSERT_TRUE(reg.OpenKey("Software\\Hand", false));
    EXPECT_EQ(reg.ReadString("Plain"), "some text");
    EXPECT_EQ(reg.ReadString("Quoted"), "  spaced  ");
    EXPECT_EQ(reg.ReadInteger("Upper"), 0xFFFF);
    EXPECT_EQ(reg.ReadString("NotHex"), "dword:xyz");
    EXPECT_EQ(reg.ReadString("Marked"), "dword:1");

    // Strings that look typed, or have blanks at their ends, read back as written; other lines stay.
    reg.WriteString("Tricky", "dword:00000001");
    reg.WriteString("Spaces", " x ");
    EXPECT_EQ(reg.ReadString("Tricky"), "dword:00000001");
    EXPECT_EQ(reg.GetDataType("Tricky"), rdString);
    EXPECT_EQ(reg.ReadString("Spaces"), " x ");
    std::string text = ReadFileBytes(File());
    EXPECT_EQ(text.substr(0, 17), "; edited by hand\n");
    EXPECT_NE(text.find("Tricky=sz:dword:00000001\n"), std::string::npos);
}
