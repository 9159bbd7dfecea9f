// Text form files at the syntax level: a tree of objects, properties and values kept exactly as written,
// a parser from bytes and a writer that lays values out the way the platform's own form writer does.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rtl/sysutils.h"

namespace rtl {

// A string value as written. Each unit is either a character code (a #NNN code, or an ASCII character
// between quotes) or, flagged with RawByte, a control or non-ASCII byte that stood between quotes. Form
// files carry such bytes in whatever code page the writing machine had; keeping them apart from codes
// lets them survive a round trip unchanged.
class TDfmString {
public:
    static constexpr char32_t RawByte = 0x80000000u;
    std::u32string Units;

    TDfmString() = default;
    explicit TDfmString(std::u32string units) : Units(std::move(units)) {}
    // Non-ASCII characters become UTF-16 code units (written as #NNN codes), as the platform writes them.
    static TDfmString FromUtf8(std::string_view s);
    // The bytes as if they had stood between quotes: control and non-ASCII bytes stay raw.
    static TDfmString FromBytes(std::string_view bytes);
    // Decodes to UTF-8. Codes are UTF-16 units (surrogate pairs are joined); runs of raw bytes are taken as
    // UTF-8 when they are valid UTF-8, else in RawCodePage (an iconv name such as "CP1250"; empty means
    // Windows-1252). Undecodable input becomes U+FFFD.
    std::string ToUtf8(std::string_view RawCodePage = {}) const;
    bool HasRawBytes() const;
    size_t Length() const { return Units.size(); }
    bool operator==(const TDfmString&) const = default;
};

enum class TDfmValueKind { Integer, Float, String, Ident, Set, List, Binary, Collection };

class TDfmValue;
struct TDfmItem;

// One property value. Only the members of its kind are used. Number tokens remember their spelling
// ("$1F", "38497.1042859838000") so that the writer can repeat it; the spelling is ignored when it no longer
// matches the value.
class TDfmValue {
public:
    TDfmValueKind Kind = TDfmValueKind::Integer;
    int64_t Int = 0;                       // Integer
    double Float = 0;                      // Float
    char FloatSuffix = 0;                  // Float: 's', 'c', 'd', 't' as written, or 0
    std::string Text;                      // Ident: the identifier; Integer, Float: the token as written
    TDfmString Str;                        // String
    std::vector<TDfmValue> Items;          // List: its values; Set: its members (Ident or Integer)
    std::vector<uint8_t> Bytes;            // Binary
    std::vector<TDfmItem> CollectionItems; // Collection
    int Line = 0;                          // where the value starts in the parsed text (1-based), or 0
    int Column = 0;

    static TDfmValue MakeInteger(int64_t v);
    static TDfmValue MakeFloat(double v, char suffix = 0);
    static TDfmValue MakeString(TDfmString s);
    static TDfmValue MakeUtf8String(std::string_view s);
    static TDfmValue MakeIdent(std::string ident);
    static TDfmValue MakeSet(const std::vector<std::string>& members);
    static TDfmValue MakeList(std::vector<TDfmValue> items = {});
    static TDfmValue MakeBinary(std::vector<uint8_t> bytes);
    static TDfmValue MakeCollection(std::vector<TDfmItem> items = {});

    bool IsIdent(std::string_view name) const; // an identifier equal to name, ignoring case
    // Same kind and value; positions and number spellings do not count.
    bool operator==(const TDfmValue& other) const;
};

struct TDfmProperty {
    std::string Name; // may be dotted: "Font.Style", "Items.Strings"
    TDfmValue Value;
    int Line = 0;
    int Column = 0;
    bool operator==(const TDfmProperty& o) const { return Name == o.Name && Value == o.Value; }
};

// One `item ... end` of a collection value.
struct TDfmItem {
    std::optional<int64_t> Order; // item [3]
    std::vector<TDfmProperty> Properties;
    int Line = 0;
    bool operator==(const TDfmItem& o) const { return Order == o.Order && Properties == o.Properties; }
};

enum class TDfmObjectKind { Object, Inherited, Inline };

struct TDfmObject {
    TDfmObjectKind Kind = TDfmObjectKind::Object;
    std::string Name; // empty for an unnamed object (`object TClass`)
    std::string ClassName;
    std::optional<int64_t> Order; // object Label1: TLabel [0]
    std::vector<TDfmProperty> Properties;
    std::vector<TDfmObject> Children;
    int Line = 0;
    int Column = 0;

    // Case-insensitive lookups, or nullptr.
    const TDfmProperty* FindProperty(std::string_view name) const;
    const TDfmObject* FindChild(std::string_view name) const;
    bool operator==(const TDfmObject& o) const;
};

// A whole text: one root object (a form file) or several (a clipboard), and the layout choices that are
// not part of the tree.
struct TDfmDocument {
    std::vector<TDfmObject> Objects;
    std::string LineBreak = "\r\n"; // as found in the text
    bool Bom = false;               // the text started with a UTF-8 byte order mark
    bool operator==(const TDfmDocument& o) const { return Objects == o.Objects; }
};

// Parses text form bytes. Raises EParserError "<reason> on line L, column C" for unterminated strings,
// missing `end`, unexpected tokens, bad numbers and binary values, and text that is not a text form.
TDfmDocument ParseDfm(std::string_view bytes);
// Writes with the document's line break (and BOM), two spaces per level.
std::string WriteDfm(const TDfmDocument& doc);
std::string WriteDfm(const TDfmObject& obj, std::string_view lineBreak = "\r\n");
// The text of one value as it follows "Name = " on a property line of the given indentation level.
std::string WriteDfmValue(const TDfmValue& value, int level = 0, std::string_view lineBreak = "\r\n");

const char* DfmObjectKindName(TDfmObjectKind kind); // "object", "inherited", "inline"

} // namespace rtl
