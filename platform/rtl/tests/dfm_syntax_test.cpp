// Text form files at the syntax level: the real-world corpus round trip, values kept as written, the
// writer's layout, string decoding and positioned parse errors.
#include <gtest/gtest.h>

#include <filesystem>

#include "rtl/dfm.h"

using namespace rtl;
namespace fs = std::filesystem;

namespace {
// The shared corpus sits beside the checkout: <checkout>/platform/rtl/tests/this file ->
// <checkout>/../shared.
fs::path CorpusDir() {
    if (const char* env = std::getenv("JEX_FORMS_DIR")) return env;
    return fs::path(__FILE__).parent_path().parent_path().parent_path().parent_path().parent_path() /
           "shared" / "forms";
}

std::string ParseError(std::string_view text) {
    try {
        ParseDfm(text);
    } catch (EParserError& e) {
        return e.Message();
    }
    return "(no error)";
}

const TDfmProperty& Prop(const TDfmObject& o, std::string_view name) {
    const TDfmProperty* p = o.FindProperty(name);
    if (!p) throw std::runtime_error("missing property " + std::string(name));
    return *p;
}
} // namespace

TEST(DfmCorpus, EveryFileParsesAndRoundTrips) {
    fs::path dir = CorpusDir();
    if (!fs::is_directory(dir)) GTEST_SKIP() << "corpus folder not found: " << dir;
    int files = 0, identical = 0;
    std::vector<std::string> differing;
    for (const auto& entry : fs::directory_iterator(dir)) {
        if (entry.path().extension() != ".dfm") continue;
        ++files;
        SCOPED_TRACE(entry.path().filename().string());
        std::string bytes = ReadFileBytes(entry.path().string());
        TDfmDocument doc;
        ASSERT_NO_THROW(doc = ParseDfm(bytes));
        ASSERT_EQ(doc.Objects.size(), 1u);
        EXPECT_FALSE(doc.Objects[0].ClassName.empty());
        std::string written = WriteDfm(doc);
        TDfmDocument again;
        ASSERT_NO_THROW(again = ParseDfm(written));
        EXPECT_TRUE(doc == again) << "the tree changed on a write and re-read";
        // Also through the other line-break style: the tree must not depend on it.
        TDfmDocument other = doc;
        other.LineBreak = doc.LineBreak == "\n" ? "\r\n" : "\n";
        EXPECT_TRUE(ParseDfm(WriteDfm(other)) == doc);
        if (written == bytes)
            ++identical;
        else
            differing.push_back(entry.path().filename().string());
    }
    ASSERT_GT(files, 0);
    RecordProperty("CorpusFiles", files);
    RecordProperty("ByteIdentical", identical);
    std::cout << "[ corpus   ] " << identical << " of " << files << " files written back byte for byte\n";
    // Every corpus file was written by the platform's own writer, whose layout this writer repeats.
    for (auto& name : differing)
        ADD_FAILURE() << name << " is not written back byte for byte";
}

TEST(DfmCorpus, RawCodePageBytesAndWideCodesSurvive) {
    fs::path file = CorpusDir() / "maerlyn__old-delphi-codes__Unit8.dfm";
    if (!fs::exists(file)) GTEST_SKIP() << "corpus file not found";
    TDfmDocument doc = ParseDfm(ReadFileBytes(file.string()));
    EXPECT_EQ(doc.LineBreak, "\r\n");
    const TDfmObject* label = doc.Objects[0].FindChild("Label1");
    ASSERT_NE(label, nullptr);
    const TDfmString& caption = Prop(*label, "Caption").Value.Str;
    EXPECT_TRUE(caption.HasRawBytes());
    // 'Ha a lev\xE9l' in the Hungarian code page: é is the same byte in cp1250 and cp1252.
    EXPECT_EQ(caption.ToUtf8("CP1250"), "Ha a lev\xC3\xA9l");
    EXPECT_EQ(caption.ToUtf8(), "Ha a lev\xC3\xA9l");
}

TEST(DfmParse, KeepsEveryValueKindAsWritten) {
    const char* text = "inherited Form1: TForm1\n"
                       "  Left = 192\n"
                       "  Mask = $1F\n"
                       "  Neg = -7\n"
                       "  Ratio = 1.5E3\n"
                       "  Scale = 0.25s\n"
                       "  Stamp = 38497.104285983800000000\n"
                       "  Caption = 'It''s'#13#10'ok' +\n"
                       "    ' more'#$41\n"
                       "  Wide = #1055#1088#1080\n"
                       "  Raw = 'lev\xE9l'\n"
                       "  Empty = ''\n"
                       "  Enabled = False\n"
                       "  Ref = Form2.Button1\n"
                       "  Font.Style = [fsBold, fsItalic]\n"
                       "  Bits = [0, 3]\n"
                       "  None = []\n"
                       "  Items.Strings = (\n"
                       "    'a'\n"
                       "    'b' 'c')\n"
                       "  ColWidths = (\n"
                       "    46\n"
                       "    12)\n"
                       "  Glyph.Data = {0A0b FF}\n"
                       "  Panels = <\n"
                       "    item [3]\n"
                       "      Width = 50\n"
                       "    end\n"
                       "    item\n"
                       "    end>\n"
                       "  Params = <>\n"
                       "  OnClick = Button1Click\n"
                       "  object Panel1: TPanel [0]\n"
                       "    inline Frame1: TFrame1\n"
                       "      inherited Label1: TLabel\n"
                       "      end\n"
                       "    end\n"
                       "  end\n"
                       "  object TMenuItem\n"
                       "  end\n"
                       "end\n";
    TDfmDocument doc = ParseDfm(text);
    EXPECT_EQ(doc.LineBreak, "\n");
    ASSERT_EQ(doc.Objects.size(), 1u);
    const TDfmObject& f = doc.Objects[0];
    EXPECT_EQ(f.Kind, TDfmObjectKind::Inherited);
    EXPECT_EQ(f.Name, "Form1");
    EXPECT_EQ(f.ClassName, "TForm1");

    EXPECT_EQ(Prop(f, "Left").Value.Kind, TDfmValueKind::Integer);
    EXPECT_EQ(Prop(f, "Left").Value.Int, 192);
    EXPECT_EQ(Prop(f, "Mask").Value.Int, 31);
    EXPECT_EQ(Prop(f, "Mask").Value.Text, "$1F");
    EXPECT_EQ(Prop(f, "Neg").Value.Int, -7);
    EXPECT_EQ(Prop(f, "Ratio").Value.Kind, TDfmValueKind::Float);
    EXPECT_DOUBLE_EQ(Prop(f, "Ratio").Value.Float, 1500.0);
    EXPECT_EQ(Prop(f, "Scale").Value.FloatSuffix, 's');
    EXPECT_DOUBLE_EQ(Prop(f, "Scale").Value.Float, 0.25);
    EXPECT_EQ(Prop(f, "Stamp").Value.Text, "38497.104285983800000000");

    const TDfmValue& cap = Prop(f, "Caption").Value;
    EXPECT_EQ(cap.Kind, TDfmValueKind::String);
    EXPECT_EQ(cap.Str.ToUtf8(), "It's\r\nok moreA");
    EXPECT_FALSE(cap.Str.HasRawBytes());
    EXPECT_EQ(Prop(f, "Wide").Value.Str.ToUtf8(), "\xD0\x9F\xD1\x80\xD0\xB8");
    const TDfmString& raw = Prop(f, "Raw").Value.Str;
    ASSERT_EQ(raw.Length(), 5u);
    EXPECT_EQ(raw.Units[3], TDfmString::RawByte | 0xE9);
    EXPECT_EQ(Prop(f, "Empty").Value.Str.Length(), 0u);

    EXPECT_TRUE(Prop(f, "Enabled").Value.IsIdent("false"));
    EXPECT_EQ(Prop(f, "Ref").Value.Text, "Form2.Button1");
    const TDfmValue& style = Prop(f, "Font.Style").Value;
    ASSERT_EQ(style.Kind, TDfmValueKind::Set);
    ASSERT_EQ(style.Items.size(), 2u);
    EXPECT_EQ(style.Items[1].Text, "fsItalic");
    EXPECT_EQ(Prop(f, "Bits").Value.Items[1].Int, 3);
    EXPECT_TRUE(Prop(f, "None").Value.Items.empty());

    // Pieces separated only by blanks are separate list values; '+' joins them.
    const TDfmValue& lines = Prop(f, "Items.Strings").Value;
    ASSERT_EQ(lines.Kind, TDfmValueKind::List);
    ASSERT_EQ(lines.Items.size(), 3u);
    EXPECT_EQ(lines.Items[2].Str.ToUtf8(), "c");
    EXPECT_EQ(Prop(f, "ColWidths").Value.Items[1].Int, 12);
    EXPECT_EQ(Prop(f, "Glyph.Data").Value.Bytes, (std::vector<uint8_t>{0x0A, 0x0B, 0xFF}));

    const TDfmValue& panels = Prop(f, "Panels").Value;
    ASSERT_EQ(panels.Kind, TDfmValueKind::Collection);
    ASSERT_EQ(panels.CollectionItems.size(), 2u);
    EXPECT_EQ(panels.CollectionItems[0].Order, 3);
    EXPECT_EQ(panels.CollectionItems[0].Properties[0].Value.Int, 50);
    EXPECT_FALSE(panels.CollectionItems[1].Order.has_value());
    EXPECT_TRUE(Prop(f, "Params").Value.CollectionItems.empty());
    EXPECT_EQ(Prop(f, "OnClick").Value.Text, "Button1Click");

    ASSERT_EQ(f.Children.size(), 2u);
    const TDfmObject& panel = f.Children[0];
    EXPECT_EQ(panel.Order, 0);
    ASSERT_EQ(panel.Children.size(), 1u);
    EXPECT_EQ(panel.Children[0].Kind, TDfmObjectKind::Inline);
    EXPECT_EQ(panel.Children[0].Children[0].Kind, TDfmObjectKind::Inherited);
    EXPECT_EQ(f.Children[1].Name, "");
    EXPECT_EQ(f.Children[1].ClassName, "TMenuItem");
    EXPECT_EQ(Prop(f, "OnClick").Line, 32);

    // Written and read again, nothing changes; number spellings are repeated.
    std::string out = WriteDfm(doc);
    EXPECT_TRUE(ParseDfm(out) == doc);
    EXPECT_NE(out.find("  Mask = $1F\n"), std::string::npos);
    EXPECT_NE(out.find("  Scale = 0.25s\n"), std::string::npos);
    EXPECT_NE(out.find("  Caption = 'It'#39's'#13#10'ok moreA'\n"), std::string::npos) << out;
    EXPECT_NE(out.find("  Raw = 'lev\xE9l'\n"), std::string::npos);
    EXPECT_NE(out.find("  Panels = <\n    item [3]\n      Width = 50\n    end\n    item\n    end>\n"),
              std::string::npos)
        << out;
    EXPECT_NE(out.find("  object Panel1: TPanel [0]\n"), std::string::npos);
    EXPECT_NE(out.find("  object TMenuItem\n  end\n"), std::string::npos);
}

TEST(DfmWrite, LaysOutValuesAsThePlatformWriterDoes) {
    TDfmObject o;
    o.Name = "Form1";
    o.ClassName = "TForm1";
    std::string longText(70, 'x');
    o.Properties.push_back({"Caption", TDfmValue::MakeUtf8String(longText)});
    o.Properties.push_back({"Hint", TDfmValue::MakeUtf8String("caf\xC3\xA9 \xF0\x9F\x98\x80\tend")});
    std::vector<uint8_t> bytes(40);
    for (size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<uint8_t>(i);
    o.Properties.push_back({"Glyph.Data", TDfmValue::MakeBinary(bytes)});
    o.Properties.push_back({"Small", TDfmValue::MakeBinary({0xAB, 0x01})});
    o.Properties.push_back({"Size", TDfmValue::MakeFloat(2.0)});
    o.Properties.push_back({"Tiny", TDfmValue::MakeFloat(1e-20)});
    o.Properties.push_back({"Style", TDfmValue::MakeSet({"fsBold", "fsItalic"})});
    o.Properties.push_back(
        {"Lines", TDfmValue::MakeList({TDfmValue::MakeUtf8String("a"), TDfmValue::MakeInteger(5)})});
    o.Properties.push_back({"Empty", TDfmValue::MakeList()});
    o.Properties.push_back({"Cols", TDfmValue::MakeCollection()});
    TDfmObject child;
    child.Name = "B";
    child.ClassName = "TB";
    child.Kind = TDfmObjectKind::Inline;
    o.Children.push_back(child);

    std::string out = WriteDfm(o);
    std::string expected = "object Form1: TForm1\r\n"
                           "  Caption = \r\n"
                           "    'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx' +\r\n"
                           "    'xxxxxx'\r\n"
                           "  Hint = 'caf'#233' '#55357#56832#9'end'\r\n"
                           "  Glyph.Data = {\r\n"
                           "    000102030405060708090A0B0C0D0E0F101112131415161718191A1B1C1D1E1F\r\n"
                           "    2021222324252627}\r\n"
                           "  Small = {AB01}\r\n"
                           "  Size = 2.0\r\n"
                           "  Tiny = 1E-20\r\n"
                           "  Style = [fsBold, fsItalic]\r\n"
                           "  Lines = (\r\n"
                           "    'a'\r\n"
                           "    5)\r\n"
                           "  Empty = ()\r\n"
                           "  Cols = <>\r\n"
                           "  inline B: TB\r\n"
                           "  end\r\n"
                           "end\r\n";
    EXPECT_EQ(out, expected);
    TDfmDocument back = ParseDfm(out);
    ASSERT_EQ(back.Objects.size(), 1u);
    EXPECT_TRUE(back.Objects[0] == o);
    EXPECT_EQ(back.Objects[0].FindProperty("Hint")->Value.Str.ToUtf8(), "caf\xC3\xA9 \xF0\x9F\x98\x80\tend");
}

TEST(DfmWrite, WrapsLongStringsEverySixtyFourCharactersCountingCodes) {
    // 63 letters, then a code that completes the line: the next line starts after it.
    std::string s(63, 'a');
    s += "\r";
    s += std::string(10, 'b');
    std::string out = WriteDfmValue(TDfmValue::MakeUtf8String(s), 1, "\n");
    EXPECT_EQ(out, "\n    '" + std::string(63, 'a') + "'#13 +\n    'bbbbbbbbbb'");
    // Exactly 64 characters stay on the property line.
    EXPECT_EQ(WriteDfmValue(TDfmValue::MakeUtf8String(std::string(64, 'c'))),
              "'" + std::string(64, 'c') + "'");
    // Raw bytes keep standing between quotes.
    EXPECT_EQ(WriteDfmValue(TDfmValue::MakeString(TDfmString::FromBytes("\xF5r\x01"))), "'\xF5r\x01'");
}

TEST(DfmWrite, StaleNumberSpellingIsDropped) {
    TDfmDocument doc = ParseDfm("object A: TA\n  X = $10\n  Y = 1.50\nend\n");
    TDfmProperty& x = doc.Objects[0].Properties[0];
    TDfmProperty& y = doc.Objects[0].Properties[1];
    EXPECT_EQ(WriteDfm(doc), "object A: TA\n  X = $10\n  Y = 1.50\nend\n");
    x.Value.Int = 17;
    y.Value.Float = 0.75;
    EXPECT_EQ(WriteDfm(doc), "object A: TA\n  X = 17\n  Y = 0.75\nend\n");
}

TEST(DfmString, DecodesCodesAndRawBytes) {
    TDfmString s;
    s.Units = {0xD83D, 0xDE00, 'a', 0xDC00, 233};
    EXPECT_EQ(s.ToUtf8(), "\xF0\x9F\x98\x80"
                          "a\xEF\xBF\xBD\xC3\xA9");
    // Raw bytes in an unknown code page: valid UTF-8 stays, otherwise Windows-1252 unless told.
    EXPECT_EQ(TDfmString::FromBytes("caf\xC3\xA9").ToUtf8(), "caf\xC3\xA9");
    EXPECT_EQ(TDfmString::FromBytes("\x80").ToUtf8(), "\xE2\x82\xAC");
    EXPECT_EQ(TDfmString::FromBytes("\xF5").ToUtf8("CP1250"), "\xC5\x91"); // o with double acute
    EXPECT_EQ(TDfmString::FromBytes("\xF5").ToUtf8(), "\xC3\xB5");         // o with tilde
    // UTF-8 in, UTF-16 units out.
    EXPECT_EQ(TDfmString::FromUtf8("\xF0\x9F\x98\x80").Units, (std::u32string{0xD83D, 0xDE00}));
}

TEST(DfmParse, ErrorsNameTheProblemAndThePosition) {
    EXPECT_EQ(ParseError("object A: TA\n  Caption = 'abc\nend\n"),
              "Unterminated string on line 2, column 13");
    EXPECT_EQ(ParseError("object A: TA\n  object B: TB\n    Left = 1\n"),
              "'end' expected for B (opened on line 2) but end of file found on line 4, column 1");
    EXPECT_EQ(ParseError("object A: TA\n  Left = 12x\nend\n"), "Invalid number '12x' on line 2, column 10");
    EXPECT_EQ(ParseError("object A: TA\n  Left 12\nend\n"),
              "'=' expected after Left but '1' found on line 2, column 8");
    EXPECT_EQ(ParseError("object A: TA\n  Left = )\nend\n"),
              "Value expected but ')' found on line 2, column 10");
    EXPECT_EQ(ParseError("object A: TA\nend\nend\n"),
              "'object', 'inherited' or 'inline' expected but 'end' found on line 3, column 1");
    EXPECT_EQ(ParseError("object A: TA\n  Data = {ABC}\nend\n"),
              "Odd number of hex digits in binary value on line 2, column 13");
    EXPECT_EQ(ParseError("object A: TA\n  Data = {AG}\nend\n"),
              "Hex digit expected in binary value but 'G' found on line 2, column 12");
    EXPECT_EQ(ParseError("object A: TA\n  S = 'a' +\nend\n"),
              "String expected after '+' but 'e' found on line 3, column 1");
    EXPECT_EQ(ParseError("object A: TA\n  S = [a b]\nend\n"),
              "',' or ']' expected but 'b' found on line 2, column 10");
    EXPECT_EQ(ParseError("object A: TA\n  L = ('a'\n"),
              "')' expected for the list opened on line 2 but end of file found on line 3, column 1");
    EXPECT_EQ(ParseError("object A: TA\n  C = <\n    thing\n  >\nend\n"),
              "'item' or '>' expected but 'thing' found on line 3, column 5");
    EXPECT_EQ(ParseError(""), "'object' expected but end of file found on line 1, column 1");
    EXPECT_EQ(ParseError("TPF0\x07TForm1"), "Binary form data is not a text form on line 1, column 1");
    // Absurd nesting is refused instead of exhausting the stack.
    std::string deep = "object A: TA\n  L = " + std::string(100000, '(');
    EXPECT_NE(ParseError(deep).find("nested too deeply"), std::string::npos);
}

TEST(DfmParse, AcceptsBomAndLineBreakStyles) {
    TDfmDocument doc = ParseDfm("\xEF\xBB\xBFobject A: TA\r\n  X = 1\r\nend\r\nobject B: TB\r\nend\r\n");
    EXPECT_TRUE(doc.Bom);
    EXPECT_EQ(doc.LineBreak, "\r\n");
    ASSERT_EQ(doc.Objects.size(), 2u);
    EXPECT_EQ(WriteDfm(doc), "\xEF\xBB\xBFobject A: TA\r\n  X = 1\r\nend\r\nobject B: TB\r\nend\r\n");
    // A lone CR counts as a line break for positions.
    EXPECT_EQ(ParseError("object A: TA\r  X = 'a\rend"), "Unterminated string on line 2, column 7");
}
