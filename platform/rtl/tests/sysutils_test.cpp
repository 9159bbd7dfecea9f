// Text, number, file and encoding routines against the platform's documented results.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <limits>

#include "rtl/sysutils.h"

using namespace rtl;
namespace fs = std::filesystem;

namespace {
std::string ConvertMessage(std::string_view s) {
    try {
        StrToInt(s);
    } catch (const EConvertError& e) {
        return e.Message();
    }
    return "(no exception)";
}
} // namespace

TEST(StrToInt, AcceptsThePlatformSyntax) {
    EXPECT_EQ(StrToInt("42"), 42);
    EXPECT_EQ(StrToInt("   -17"), -17);
    EXPECT_EQ(StrToInt("+5"), 5);
    EXPECT_EQ(StrToInt("$1F"), 31);
    EXPECT_EQ(StrToInt("x1f"), 31);
    EXPECT_EQ(StrToInt("X10"), 16);
    EXPECT_EQ(StrToInt("0x7fffFFFF"), 2147483647);
    EXPECT_EQ(StrToInt("0X10"), 16);
    EXPECT_EQ(StrToInt("-$10"), -16);
    EXPECT_EQ(StrToInt("2147483647"), 2147483647);
    EXPECT_EQ(StrToInt("-2147483648"), INT32_MIN);
    EXPECT_EQ(StrToInt("007"), 7);
    EXPECT_EQ(StrToInt(std::string_view("12\0"
                                        "34",
                                        5)),
              12); // NUL ends the text
    // Hexadecimal text is a 32-bit pattern, so colour-like values read back.
    EXPECT_EQ(StrToInt("$FFFFFFFF"), -1);
    EXPECT_EQ(StrToInt("$80000005"), static_cast<int32_t>(0x80000005u));
}

TEST(StrToInt, RefusesEverythingElse) {
    for (const char* bad : {"", " ", "12 ", "1 2", "12a", "- 5", "+-1", "$", "0x", "x", "1.0", "\t5", "1e3",
                            "$G", "2147483648", "-2147483649", "99999999999999999999", "$100000000"}) {
        int32_t v = 77;
        EXPECT_FALSE(TryStrToInt(bad, v)) << '"' << bad << '"';
        EXPECT_EQ(v, 77);
        EXPECT_EQ(StrToIntDef(bad, -3), -3) << bad;
        EXPECT_THROW(StrToInt(bad), EConvertError) << bad;
    }
    EXPECT_EQ(ConvertMessage("12a"), "'12a' is not a valid integer value");
    EXPECT_EQ(ConvertMessage(""), "'' is not a valid integer value");
}

TEST(StrToInt, SixtyFourBitVariants) {
    EXPECT_EQ(StrToInt64("9223372036854775807"), INT64_MAX);
    EXPECT_EQ(StrToInt64("-9223372036854775808"), INT64_MIN);
    EXPECT_EQ(StrToInt64("2147483648"), 2147483648LL);
    EXPECT_EQ(StrToInt64("$FFFFFFFFFFFFFFFF"), -1);
    EXPECT_EQ(StrToInt64Def("9223372036854775808", 5), 5);
    EXPECT_THROW(StrToInt64("1x"), EConvertError);
    int64_t v = 0;
    EXPECT_TRUE(TryStrToInt64(" 0x10", v));
    EXPECT_EQ(v, 16);
    EXPECT_EQ(IntToStr(-9000000000LL), "-9000000000");
    EXPECT_EQ(IntToHex(255, 4), "00FF");
    EXPECT_EQ(IntToHex(0x12345, 2), "12345");
    EXPECT_EQ(IntToHex(static_cast<uint32_t>(-1), 1), "FFFFFFFF");
}

TEST(Floats, ParseWithPointAndBlanks) {
    EXPECT_DOUBLE_EQ(StrToFloat(" 1.5 "), 1.5);
    EXPECT_DOUBLE_EQ(StrToFloat(".5"), 0.5);
    EXPECT_DOUBLE_EQ(StrToFloat("5."), 5.0);
    EXPECT_DOUBLE_EQ(StrToFloat("-1E+2"), -100.0);
    EXPECT_DOUBLE_EQ(StrToFloat("+2.5e-3"), 0.0025);
    EXPECT_EQ(StrToFloat("1e-400"), 0.0);
    for (const char* bad :
         {"", ".", "1,5", "1.5x", "e5", "1e", "1e+", "--1", "inf", "nan", "1e400", "0x10"}) {
        double v = 9;
        EXPECT_FALSE(TryStrToFloat(bad, v)) << bad;
        EXPECT_EQ(v, 9);
        EXPECT_EQ(StrToFloatDef(bad, 2.5), 2.5);
    }
    try {
        StrToFloat("1.5x");
        FAIL();
    } catch (const EConvertError& e) {
        EXPECT_EQ(e.Message(), "'1.5x' is not a valid floating point value");
    }
}

TEST(Floats, FloatToStrUsesFifteenDigitGeneralFormat) {
    EXPECT_EQ(FloatToStr(0), "0");
    EXPECT_EQ(FloatToStr(-0.0), "0");
    EXPECT_EQ(FloatToStr(100), "100");
    EXPECT_EQ(FloatToStr(2.5), "2.5");
    EXPECT_EQ(FloatToStr(-2.5e-10), "-2.5E-10");
    EXPECT_EQ(FloatToStr(1.5e20), "1.5E20");
    EXPECT_EQ(FloatToStr(1e15), "1E15");
    EXPECT_EQ(FloatToStr(1e14), "100000000000000");
    EXPECT_EQ(FloatToStr(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(FloatToStr(0.1 + 0.2), "0.3");
    EXPECT_EQ(FloatToStr(123456789012345678.0), "1.23456789012346E17");
    EXPECT_EQ(FloatToStr(999999999999999.9), "1E15");
    EXPECT_EQ(FloatToStr(0.0001), "0.0001");
    EXPECT_EQ(FloatToStr(0.00001), "0.00001");
    EXPECT_EQ(FloatToStr(0.000001), "1E-6");
    EXPECT_EQ(FloatToStr(1e-100), "1E-100");
    EXPECT_EQ(FloatToStr(std::numeric_limits<double>::infinity()), "INF");
    EXPECT_EQ(FloatToStr(-std::numeric_limits<double>::infinity()), "-INF");
    EXPECT_EQ(FloatToStr(std::nan("")), "NAN");
    for (double v : {3.14159, -1234.5678, 6.02214076e23, 1e-7, 42.0})
        EXPECT_DOUBLE_EQ(StrToFloat(FloatToStr(v)), v);
}

TEST(FormatTest, IntegersAndStrings) {
    EXPECT_EQ(Format("%d items", {3}), "3 items");
    EXPECT_EQ(Format("[%5d][%-5d][%.5d][%.3d]", {42, 42, -42, 12345}), "[   42][42   ][-00042][12345]");
    EXPECT_EQ(Format("%08d", {5}), "       5"); // '0' is part of the width, not a flag
    EXPECT_EQ(Format("%x %X %.4x", {255, 255, 10}), "FF FF 000A");
    EXPECT_EQ(Format("%x %u", {-1, -1}), "FFFFFFFF 4294967295");
    EXPECT_EQ(Format("%d", {int64_t{-9000000000}}), "-9000000000");
    EXPECT_EQ(Format("[%5s][%-5s][%.2s][%5.1s]", {"ab", "ab", "abcdef", "xyz"}), "[   ab][ab   ][ab][    x]");
    EXPECT_EQ(Format("%s=%s", {std::string("a"), std::string_view("b")}), "a=b");
    EXPECT_EQ(Format("100%%", {}), "100%");
    EXPECT_EQ(Format("%D %S", {1, "a"}), "1 a");
    EXPECT_EQ(Format("%p", {255}), std::string(sizeof(void*) * 2 - 2, '0') + "FF");
    // Width counts characters, not UTF-8 bytes.
    EXPECT_EQ(Format("[%4s]", {"\xC3\xA9t\xC3\xA9"}), "[ \xC3\xA9t\xC3\xA9]");
}

TEST(FormatTest, IndexesAndStars) {
    EXPECT_EQ(Format("%1:s %0:s %s", {"a", "b", "c"}), "b a b"); // after an index, counting goes on from it
    EXPECT_EQ(Format("%0:s-%0:s", {"x"}), "x-x");
    EXPECT_EQ(Format("%*d|", {5, 7}), "    7|");
    EXPECT_EQ(Format("%-*d|", {4, 1}), "1   |");
    EXPECT_EQ(Format("%*d|", {-3, 1}), "1  |");
    EXPECT_EQ(Format("%.*f", {2, 3.14159}), "3.14");
}

TEST(FormatTest, Floats) {
    EXPECT_EQ(Format("%f", {2.5}), "2.50");
    EXPECT_EQ(Format("%.0f %.1f %.2f", {2.5, 0.05, 1.005}),
              "3 0.1 1.01"); // decimal rounding, half away from zero
    EXPECT_EQ(Format("%.1f", {-0.04}), "0.0");
    EXPECT_EQ(Format("%2.1f|%10.2f", {-1.25, 3.14159}), "-1.3|      3.14");
    EXPECT_EQ(Format("%e", {1.0}), "1.00000000000000E+000");
    EXPECT_EQ(Format("%.3e|%8.3e", {12345.678, -0.000123}), "1.23E+004|-1.23E-004");
    EXPECT_EQ(Format("%e", {0.0}), "0.00000000000000E+000");
    EXPECT_EQ(Format("%g|%g|%g|%.3g", {1e20, 1.0 / 3, 1e-6, 1234.5}), "1E20|0.333333333333333|1E-6|1.23E3");
    EXPECT_EQ(Format("%n|%.0n|%n", {1234567.891, 1234.5, -1234.5}), "1,234,567.89|1,235|-1,234.50");
    EXPECT_EQ(Format("%n", {999.999}), "1,000.00");
    EXPECT_EQ(Format("%m|%m", {1234.5, -0.5}), "$1,234.50|($0.50)");
    EXPECT_EQ(Format("%f", {std::numeric_limits<double>::infinity()}), "INF");
}

TEST(FormatTest, MismatchesRaiseConvertError) {
    const char* msg = "Format '%d' invalid or incompatible with argument";
    try {
        Format("%d", {1.5});
        FAIL();
    } catch (const EConvertError& e) {
        EXPECT_EQ(e.Message(), msg);
    }
    EXPECT_THROW(Format("%f", {1}), EConvertError);
    EXPECT_THROW(Format("%s", {1}), EConvertError);
    EXPECT_THROW(Format("%x", {1.5}), EConvertError);
    EXPECT_THROW(Format("%d %d", {1}), EConvertError);
    EXPECT_THROW(Format("%3:d", {1, 2}), EConvertError);
    EXPECT_THROW(Format("abc%", {1}), EConvertError);
    EXPECT_THROW(Format("%k", {1}), EConvertError);
    EXPECT_THROW(Format("%*d", {"w", 1}), EConvertError);
    EXPECT_THROW(Format("%99999999d", {1}), EConvertError);
}

TEST(Text, TrimAndAsciiCase) {
    EXPECT_EQ(Trim("\t\r\n \x01x y\x1F \x7F"), "x y\x1F \x7F"); // everything <= #32, and only that
    EXPECT_EQ(Trim(" \t "), "");
    EXPECT_EQ(TrimLeft("  a  "), "a  ");
    EXPECT_EQ(TrimRight("  a \n"), "  a");
    EXPECT_EQ(UpperCase("abc\xC3\xA9z"), "ABC\xC3\xA9Z"); // non-ASCII bytes untouched
    EXPECT_EQ(LowerCase("ABC\xC3\x89Z"), "abc\xC3\x89z");
    EXPECT_EQ(CompareText("abc", "ABC"), 0);
    EXPECT_LT(CompareText("abc", "abd"), 0);
    EXPECT_GT(CompareText("b", "A"), 0);
    EXPECT_LT(CompareText("ab", "ABC"), 0);
    EXPECT_GT(CompareText("_", "a"), 0); // compared as upper case: '_' (95) after 'A' (65)
    EXPECT_TRUE(SameText("Form1", "FORM1"));
    EXPECT_FALSE(SameText("\xC3\xA9", "\xC3\x89"));
    EXPECT_LT(CompareStr("B", "a"), 0);
    EXPECT_EQ(CompareStr("a", "a"), 0);
    EXPECT_EQ(QuotedStr("it's"), "'it''s'");
    EXPECT_EQ(StringReplaceAll("a.b.c", ".", "::"), "a::b::c");
    EXPECT_EQ(StringReplaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(StringReplaceAll("abc", "", "x"), "abc");
    EXPECT_TRUE(IsValidIdent("_Button1"));
    EXPECT_FALSE(IsValidIdent("1Button"));
    EXPECT_FALSE(IsValidIdent("Button 1"));
    EXPECT_FALSE(IsValidIdent(""));
}

TEST(FileNames, SplitOnBothDelimiters) {
    EXPECT_EQ(ExtractFileExt("/home/a/form.dfm"), ".dfm");
    EXPECT_EQ(ExtractFileExt("C:\\dir.x\\file"), "");
    EXPECT_EQ(ExtractFileExt("dir.x/file"), "");
    EXPECT_EQ(ExtractFileExt("archive.tar.gz"), ".gz");
    EXPECT_EQ(ExtractFileExt(".bashrc"), ".bashrc");
    EXPECT_EQ(ExtractFileExt("noext"), "");
    EXPECT_EQ(ExtractFilePath("/a/b/c.txt"), "/a/b/");
    EXPECT_EQ(ExtractFilePath("a\\b\\c.txt"), "a\\b\\");
    EXPECT_EQ(ExtractFilePath("c.txt"), "");
    EXPECT_EQ(ExtractFileName("/a/b/c.txt"), "c.txt");
    EXPECT_EQ(ExtractFileName("a\\b"), "b");
    EXPECT_EQ(ExtractFileDir("/usr/lib/x"), "/usr/lib");
    EXPECT_EQ(ExtractFileDir("/x"), "/");
    EXPECT_EQ(ExtractFileDir("x"), "");
    EXPECT_EQ(ChangeFileExt("a/b.pas", ".dfm"), "a/b.dfm");
    EXPECT_EQ(ChangeFileExt("a.x/b", ".txt"), "a.x/b.txt");
    EXPECT_EQ(ChangeFileExt("b.txt", ""), "b");
    EXPECT_EQ(IncludeTrailingPathDelimiter("/tmp"), "/tmp/");
    EXPECT_EQ(IncludeTrailingPathDelimiter("/tmp/"), "/tmp/");
    EXPECT_EQ(ExcludeTrailingPathDelimiter("/tmp/"), "/tmp");
    EXPECT_EQ(ExpandFileName("/a/b/../c/./d"), "/a/c/d");
    EXPECT_EQ(ExpandFileName("rel"), (fs::current_path() / "rel").string());
}

TEST(Files, ExistenceReadWriteAndDelete) {
    std::string templ = (fs::temp_directory_path() / "jexsysXXXXXX").string();
    std::string dir = mkdtemp(templ.data());
    std::string file = dir + "/data.bin";
    std::string bytes("a\0b\r\n\xFF", 6);
    EXPECT_FALSE(FileExists(file));
    WriteFileBytes(file, bytes);
    EXPECT_TRUE(FileExists(file));
    EXPECT_FALSE(FileExists(dir)); // a folder is not a file
    EXPECT_TRUE(DirectoryExists(dir));
    EXPECT_FALSE(DirectoryExists(file));
    EXPECT_FALSE(FileExists(std::string(file) + std::string("\0x", 2)));
    EXPECT_EQ(ReadFileBytes(file), bytes);

    // Rewriting keeps the file's permissions and leaves no temporary files behind.
    ::chmod(file.c_str(), 0640);
    WriteFileBytes(file, "second");
    EXPECT_EQ(ReadFileBytes(file), "second");
    struct stat st;
    ASSERT_EQ(::stat(file.c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0640u);
    EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator()), 1);

    try {
        ReadFileBytes(dir + "/missing");
        FAIL();
    } catch (const EFOpenError& e) {
        EXPECT_EQ(e.Message(), "Cannot open file \"" + dir + "/missing\"");
    }
    EXPECT_THROW(ReadFileBytes(dir), EFOpenError);
    EXPECT_THROW(WriteFileBytes(dir, "x"), EFCreateError);
    EXPECT_THROW(WriteFileBytes(dir + "/no/such/x", "x"), EFCreateError);

    EXPECT_TRUE(ForceDirectories(dir + "/p/q/r"));
    EXPECT_TRUE(DirectoryExists(dir + "/p/q/r"));
    EXPECT_FALSE(ForceDirectories(file + "/sub")); // a file is in the way
    EXPECT_FALSE(DeleteFile(dir + "/p"));
    EXPECT_TRUE(DeleteFile(file));
    EXPECT_FALSE(FileExists(file));
    EXPECT_FALSE(DeleteFile(file));
    fs::remove_all(dir);
}

TEST(Encodings, Windows1252AndUtf8) {
    EXPECT_EQ(Cp1252ToUtf8("caf\xE9 \x80\x99"), "caf\xC3\xA9 \xE2\x82\xAC\xE2\x84\xA2");
    EXPECT_EQ(Cp1252ToUtf8("\x81"), "\xEF\xBF\xBD"); // undefined byte
    EXPECT_EQ(Utf8ToCp1252("caf\xC3\xA9 \xE2\x82\xAC\xE2\x84\xA2"), "caf\xE9 \x80\x99");
    EXPECT_EQ(Utf8ToCp1252("\xE4\xB8\xAD|\xFF"), "?|?"); // unmappable and invalid
    std::string all;
    for (int c = 0; c < 256; ++c)
        if (c != 0x81 && c != 0x8D && c != 0x8F && c != 0x90 && c != 0x9D) all += static_cast<char>(c);
    EXPECT_EQ(Utf8ToCp1252(Cp1252ToUtf8(all)), all);

    EXPECT_TRUE(IsValidUtf8("plain \xC3\xA9 \xF0\x9F\x98\x80"));
    EXPECT_FALSE(IsValidUtf8("\xC0\xAF"));         // overlong
    EXPECT_FALSE(IsValidUtf8("\xED\xA0\x80"));     // surrogate
    EXPECT_FALSE(IsValidUtf8("\xF4\x90\x80\x80")); // above U+10FFFF
    EXPECT_FALSE(IsValidUtf8("\xE2\x82"));         // truncated
    EXPECT_EQ(Utf8ToUtf32("a\xC3\xA9\xF0\x9F\x98\x80"), (std::u32string{U'a', 0xE9, 0x1F600}));
    EXPECT_EQ(Utf8ToUtf32("\xE2\x82"
                          "A\xFF"),
              (std::u32string{0xFFFD, U'A', 0xFFFD}));
    EXPECT_EQ(Utf32ToUtf8(U"x\u00e9\U0001F600"), "x\xC3\xA9\xF0\x9F\x98\x80");
    EXPECT_EQ(CodePointToUtf8(0xD800), "\xEF\xBF\xBD");
    EXPECT_EQ(CodePointToUtf8(0x110000), "\xEF\xBF\xBD");
}

namespace {
// Sets an environment variable for one test and puts the old value back.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const char* value) : FName(name) {
        if (const char* old = std::getenv(name)) FOld = old, FHad = true;
        if (value)
            ::setenv(name, value, 1);
        else
            ::unsetenv(name);
    }
    ~ScopedEnv() {
        if (FHad)
            ::setenv(FName, FOld.c_str(), 1);
        else
            ::unsetenv(FName);
    }

private:
    const char* FName;
    std::string FOld;
    bool FHad = false;
};
} // namespace

TEST(SystemDirectory, EnvironmentDefaultsAndOverride) {
    SetSystemDirectory("");
    ScopedEnv home("HOME", "/home/someone"), xdg("XDG_CONFIG_HOME", "/cfg"),
        jex("JEX_SYSTEM_DIR", "/opt/sys");
    EXPECT_EQ(GetSystemDirectory(), "/opt/sys");
    ::unsetenv("JEX_SYSTEM_DIR");
    EXPECT_EQ(GetSystemDirectory(), "/cfg/jexdesign/system");
    ::unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(GetSystemDirectory(), "/home/someone/.config/jexdesign/system");
    SetSystemDirectory("/elsewhere");
    EXPECT_EQ(GetSystemDirectory(), "/elsewhere");
    SetSystemDirectory("");
}
