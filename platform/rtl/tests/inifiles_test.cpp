// TIniFile against real files: the profile reading rules, writes that keep every other line byte for byte,
// line-break styles, the system directory, and re-reading after outside changes.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "rtl/inifiles.h"

using namespace rtl;
namespace fs = std::filesystem;

namespace {

class IniTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string templ = (fs::temp_directory_path() / "jexiniXXXXXX").string();
        Dir = mkdtemp(templ.data());
    }
    void TearDown() override { fs::remove_all(Dir); }
    std::string Path(const std::string& name) const { return Dir + "/" + name; }
    // Writes in place (same file, same size possible), as an editor would.
    static void Overwrite(const std::string& path, const std::string& bytes) {
        std::ofstream f(path, std::ios::binary | std::ios::trunc);
        f << bytes;
    }
    std::string Dir;
};

using V = std::vector<std::string>;

const char* kSample = "; settings of the viewer\r\n"
                      "top=ignored\r\n"
                      "\r\n"
                      "[Display]\r\n"
                      "  Width = 640  \r\n"
                      "Title=\"  padded  \"\r\n"
                      "Single='x'\r\n"
                      "Mixed=\"x'\r\n"
                      "Formula=a=b\r\n"
                      "; a comment inside\r\n"
                      "Empty=\r\n"
                      "no equals sign\r\n"
                      "\r\n"
                      "[ Paths ]\r\n"
                      "home=/home/me\r\n"
                      "[display]\r\n"
                      "Width=9999\r\n";

} // namespace

TEST_F(IniTest, ReadsWithProfileRules) {
    WriteFileBytes(Path("a.ini"), kSample);
    TIniFile ini(Path("a.ini"));
    EXPECT_EQ(ini.ReadString("DISPLAY", "width", "?"), "640"); // the first section of a name counts
    EXPECT_EQ(ini.ReadString("Display", "Title", "?"), "  padded  ");
    EXPECT_EQ(ini.ReadString("Display", "Single", "?"), "x");
    EXPECT_EQ(ini.ReadString("Display", "Mixed", "?"), "\"x'"); // quotes that do not match stay
    EXPECT_EQ(ini.ReadString("Display", "Formula", "?"), "a=b");
    EXPECT_EQ(ini.ReadString("Display", "Empty", "?"), ""); // present but empty is not missing
    EXPECT_EQ(ini.ReadString("Display", "no equals sign", "?"), "?");
    EXPECT_EQ(ini.ReadString("Display", "; a comment inside", "?"), "?");
    EXPECT_EQ(ini.ReadString("paths", "HOME", "?"), "/home/me");
    EXPECT_EQ(ini.ReadString("", "top", "?"), "?"); // lines before the first section belong to none
    EXPECT_EQ(ini.ReadString("Nope", "Width", "dflt"), "dflt");
    EXPECT_EQ(ini.ReadString("Display", "Nope", "dflt"), "dflt");

    TStringList l;
    ini.ReadSections(&l);
    EXPECT_EQ(l.ToVector(), (V{"Display", "Paths"}));
    ini.ReadSection("display", &l);
    EXPECT_EQ(l.ToVector(), (V{"Width", "Title", "Single", "Mixed", "Formula", "Empty"}));
    ini.ReadSectionValues("Display", &l);
    EXPECT_EQ(l.Get(0), "Width=640");
    EXPECT_EQ(l.Values("Title"), "  padded  ");
    ini.ReadSection("Missing", &l);
    EXPECT_EQ(l.Count(), 0);
    EXPECT_TRUE(ini.ValueExists("DISPLAY", "EMPTY"));
    EXPECT_FALSE(ini.ValueExists("Display", "Height"));
}

TEST_F(IniTest, NumbersAndBooleans) {
    WriteFileBytes(Path("n.ini"), "[N]\nhex=0x1F\ndollar=$10\nneg= -5 \nbad=12abc\nbig=2147483648\n"
                                  "t=true\none=1\nzero=0\ntwo=2\nf=2.5\nfbad=2,5\n");
    TIniFile ini(Path("n.ini"));
    EXPECT_EQ(ini.ReadInteger("N", "hex", 0), 31);
    EXPECT_EQ(ini.ReadInteger("N", "dollar", 0), 16);
    EXPECT_EQ(ini.ReadInteger("N", "neg", 0), -5);
    EXPECT_EQ(ini.ReadInteger("N", "bad", 7), 7);
    EXPECT_EQ(ini.ReadInteger("N", "big", 7), 7);
    EXPECT_EQ(ini.ReadInteger("N", "missing", 7), 7);
    EXPECT_TRUE(ini.ReadBool("N", "t", true)); // only numbers count: "true" gives the default
    EXPECT_FALSE(ini.ReadBool("N", "t", false));
    EXPECT_TRUE(ini.ReadBool("N", "one", false));
    EXPECT_FALSE(ini.ReadBool("N", "zero", true));
    EXPECT_TRUE(ini.ReadBool("N", "two", false));
    EXPECT_DOUBLE_EQ(ini.ReadFloat("N", "f", 0), 2.5);
    EXPECT_DOUBLE_EQ(ini.ReadFloat("N", "fbad", 1.5), 1.5);

    ini.WriteBool("N", "flag", true);
    ini.WriteInteger("N", "count", -12);
    ini.WriteFloat("N", "ratio", 0.125);
    EXPECT_EQ(ini.ReadString("N", "flag", ""), "1");
    EXPECT_EQ(ini.ReadInteger("N", "count", 0), -12);
    EXPECT_DOUBLE_EQ(ini.ReadFloat("N", "ratio", 0), 0.125);
    ini.WriteBool("N", "flag", false);
    EXPECT_EQ(ini.ReadString("N", "flag", ""), "0");
}

TEST_F(IniTest, WritesChangeOnlyTheirLine) {
    WriteFileBytes(Path("a.ini"), kSample);
    TIniFile ini(Path("a.ini"));
    ini.WriteString("display", "WIDTH", "800");
    std::string expected = kSample;
    expected.replace(expected.find("  Width = 640  "), 15, "  Width = 800");
    EXPECT_EQ(ReadFileBytes(Path("a.ini")), expected);

    // A new key goes after the last key of its section, before the comment-free tail of blank lines.
    ini.WriteString("Display", "Height", "480");
    std::string afterEmpty = "Empty=\r\n";
    expected.insert(expected.find(afterEmpty) + afterEmpty.size(), "Height=480\r\n");
    EXPECT_EQ(ReadFileBytes(Path("a.ini")), expected);

    // A new section goes at the end of the file.
    ini.WriteString("Network", "Port", "8080");
    expected += "\r\n[Network]\r\nPort=8080\r\n";
    EXPECT_EQ(ReadFileBytes(Path("a.ini")), expected);
    EXPECT_EQ(ini.ReadString("network", "port", ""), "8080");
}

TEST_F(IniTest, KeepsEachFilesLineBreaks) {
    struct Case {
        const char* name;
        const char* eol;
    } cases[] = {{"lf.ini", "\n"}, {"cr.ini", "\r"}, {"crlf.ini", "\r\n"}};
    for (const Case& c : cases) {
        std::string e = c.eol;
        WriteFileBytes(Path(c.name), "[A]" + e + "x=1" + e + e + "; note" + e + "[B]" + e + "y=2");
        TIniFile ini(Path(c.name));
        EXPECT_EQ(ini.ReadString("B", "y", ""), "2") << c.name;
        ini.WriteString("A", "z", "3");
        ini.WriteString("B", "w", "4");
        // The missing final break stays missing.
        EXPECT_EQ(ReadFileBytes(Path(c.name)),
                  "[A]" + e + "x=1" + e + "z=3" + e + e + "; note" + e + "[B]" + e + "y=2" + e + "w=4")
            << c.name;
        ini.DeleteKey("B", "w");
        EXPECT_EQ(ReadFileBytes(Path(c.name)),
                  "[A]" + e + "x=1" + e + "z=3" + e + e + "; note" + e + "[B]" + e + "y=2")
            << c.name;
    }
}

TEST_F(IniTest, EraseDeleteAndExistence) {
    WriteFileBytes(Path("e.ini"), "[Keep]\na=1\n\n[Gone]\nb=2\n; gone too\n[keep2]\n[GONE]\nc=3\n");
    TIniFile ini(Path("e.ini"));
    EXPECT_TRUE(ini.SectionExists("gone"));
    EXPECT_FALSE(ini.SectionExists("keep2")); // no keys: does not exist, as on the platform
    ini.EraseSection("gone");
    EXPECT_EQ(ReadFileBytes(Path("e.ini")), "[Keep]\na=1\n\n[keep2]\n");
    EXPECT_FALSE(ini.SectionExists("Gone"));
    ini.DeleteKey("Keep", "A");
    EXPECT_EQ(ReadFileBytes(Path("e.ini")), "[Keep]\n\n[keep2]\n");
    EXPECT_FALSE(ini.ValueExists("Keep", "a"));
    ini.DeleteKey("Keep", "a"); // nothing to delete: no error
    ini.EraseSection("Never");
}

TEST_F(IniTest, CreatesFileAndFolderAndUsesTheSystemDirectory) {
    std::string nested = Path("deep/er/new.ini");
    TIniFile ini(nested);
    EXPECT_EQ(ini.ReadString("S", "k", "none"), "none");
    EXPECT_FALSE(FileExists(nested)); // reading creates nothing
    ini.WriteString("S", "k", "v");
    EXPECT_EQ(ReadFileBytes(nested), "[S]\r\nk=v\r\n");

    SetSystemDirectory(Path("system"));
    TIniFile bare("app.ini");
    EXPECT_EQ(bare.FileName(), "app.ini");
    EXPECT_EQ(bare.FullPath(), Path("system/app.ini"));
    bare.WriteInteger("Main", "Runs", 1);
    EXPECT_TRUE(FileExists(Path("system/app.ini")));
    SetSystemDirectory("");
}

TEST_F(IniTest, ValuesRoundTripAndBadNamesAreRefused) {
    TIniFile ini(Path("r.ini"));
    for (const std::string& v :
         {std::string("  lead and trail  "), std::string("\"quoted\""), std::string("'q'"),
          std::string("semi;colon"), std::string("=eq="), std::string("caf\xC3\xA9"), std::string()}) {
        ini.WriteString("R", "v", v);
        EXPECT_EQ(ini.ReadString("R", "v", "?"), v);
    }
    EXPECT_THROW(ini.WriteString("R", "k", "two\nlines"), EIniFileException);
    EXPECT_THROW(ini.WriteString("R", "a=b", "x"), EIniFileException);
    EXPECT_THROW(ini.WriteString("R", " ", "x"), EIniFileException);
    EXPECT_THROW(ini.WriteString("R", ";k", "x"), EIniFileException);
    EXPECT_THROW(ini.WriteString("R]", "k", "x"), EIniFileException);
    EXPECT_EQ(ReadFileBytes(Path("r.ini")), "[R]\r\nv=\r\n");

    // A folder in the way: the write fails clearly and the cached contents stay as they were.
    WriteFileBytes(Path("blocker"), "x");
    TIniFile blocked(Path("blocker/sub.ini"));
    EXPECT_THROW(blocked.WriteString("S", "k", "v"), EFCreateError);
    EXPECT_EQ(blocked.ReadString("S", "k", "none"), "none");
}

TEST_F(IniTest, Windows1252FilesStayWindows1252) {
    WriteFileBytes(Path("ansi.ini"), "[Text]\r\ncafe=caf\xE9\r\nother=\x80\r\n");
    TIniFile ini(Path("ansi.ini"));
    EXPECT_EQ(ini.ReadString("Text", "cafe", ""), "caf\xC3\xA9");
    ini.WriteString("Text", "new", "na\xC3\xAFve");
    EXPECT_EQ(ReadFileBytes(Path("ansi.ini")), "[Text]\r\ncafe=caf\xE9\r\nother=\x80\r\nnew=na\xEFve\r\n");
    // A character the code page lacks turns the file into UTF-8 instead of being lost.
    ini.WriteString("Text", "cjk", "\xE4\xB8\xAD");
    EXPECT_EQ(ReadFileBytes(Path("ansi.ini")),
              "[Text]\r\ncafe=caf\xC3\xA9\r\nother=\xE2\x82\xAC\r\nnew=na\xC3\xAFve\r\ncjk=\xE4\xB8\xAD\r\n");
}

TEST_F(IniTest, SeesOutsideChangesAndOtherInstances) {
    std::string p = Path("c.ini");
    Overwrite(p, "[S]\nk=1\n");
    TIniFile a(p), b(p);
    EXPECT_EQ(a.ReadInteger("S", "k", 0), 1);
    Overwrite(p, "[S]\nk=2\n"); // same size, same file, likely the same time stamp
    EXPECT_EQ(a.ReadInteger("S", "k", 0), 2);
    b.WriteInteger("S", "k", 3);
    EXPECT_EQ(a.ReadInteger("S", "k", 0), 3);
    fs::remove(p);
    EXPECT_EQ(a.ReadInteger("S", "k", 0), 0);
    a.UpdateFile();
    EXPECT_FALSE(a.ValueExists("S", "k"));
}
