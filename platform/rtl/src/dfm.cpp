// Parser and writer of text form files at the syntax level (see rtl/dfm.h).
#include "rtl/dfm.h"

#include <iconv.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>

namespace rtl {

namespace {
constexpr int kLineLength = 64;   // characters of a string per line, as the platform's writer wraps them
constexpr int kBytesPerLine = 32; // bytes of a binary value per line
constexpr int kMaxNesting = 200;  // deeper texts are refused rather than exhausting the stack

bool IsIdentStart(unsigned char c) {
    return std::isalpha(c) || c == '_' || c >= 0x80;
}
bool IsIdentChar(unsigned char c) {
    return std::isalnum(c) || c == '_' || c == '.' || c >= 0x80;
}
bool IsFloatSuffix(char c) {
    return c == 's' || c == 'c' || c == 'd' || c == 't' || c == 'S' || c == 'C' || c == 'D' || c == 'T';
}

void AppendUtf8(std::string& out, char32_t cp) {
    out += CodePointToUtf8(cp);
}

// Parses a number token ("12", "-3", "$1F", "1.5", "2.5E-3", "0.1s"). False when the token is no number.
bool ParseNumberToken(std::string_view tok, TDfmValue& v) {
    if (tok.empty()) return false;
    size_t i = 0;
    bool neg = false;
    if (tok[0] == '-' || tok[0] == '+') {
        neg = tok[0] == '-';
        i = 1;
    }
    if (i < tok.size() && tok[i] == '$') {
        std::string_view hex = tok.substr(i + 1);
        if (hex.empty() || hex.size() > 16) return false;
        uint64_t u = 0;
        auto r = std::from_chars(hex.data(), hex.data() + hex.size(), u, 16);
        if (r.ec != std::errc() || r.ptr != hex.data() + hex.size()) return false;
        v.Kind = TDfmValueKind::Integer;
        v.Int = neg ? -static_cast<int64_t>(u) : static_cast<int64_t>(u);
        return true;
    }
    size_t digits = i;
    while (digits < tok.size() && std::isdigit(static_cast<unsigned char>(tok[digits])))
        ++digits;
    if (digits == i) return false;
    size_t j = digits;
    bool isFloat = false;
    if (j < tok.size() && tok[j] == '.') {
        size_t f = j + 1;
        while (f < tok.size() && std::isdigit(static_cast<unsigned char>(tok[f])))
            ++f;
        if (f == j + 1) return false;
        j = f;
        isFloat = true;
    }
    if (j < tok.size() && (tok[j] == 'e' || tok[j] == 'E')) {
        size_t e = j + 1;
        if (e < tok.size() && (tok[e] == '+' || tok[e] == '-')) ++e;
        size_t d = e;
        while (d < tok.size() && std::isdigit(static_cast<unsigned char>(tok[d])))
            ++d;
        if (d == e) return false;
        j = d;
        isFloat = true;
    }
    char suffix = 0;
    if (j < tok.size() && IsFloatSuffix(tok[j])) {
        suffix = tok[j];
        ++j;
        isFloat = true;
    }
    if (j != tok.size()) return false;
    size_t numEnd = suffix ? j - 1 : j;
    const char* b = tok.data() + (tok[0] == '+' ? 1 : 0);
    const char* e = tok.data() + numEnd;
    if (!isFloat) {
        int64_t n = 0;
        auto r = std::from_chars(b, e, n);
        if (r.ec != std::errc() || r.ptr != e) return false;
        v.Kind = TDfmValueKind::Integer;
        v.Int = n;
        return true;
    }
    double d = 0;
    auto r = std::from_chars(b, e, d);
    if (r.ec != std::errc() || r.ptr != e || !std::isfinite(d)) return false;
    v.Kind = TDfmValueKind::Float;
    v.Float = d;
    v.FloatSuffix = suffix;
    return true;
}

// A float in the shortest form that reads back to the same value, always with a '.' or an exponent so
// that it reads back as a float: "0.5", "2.0", "1.5E20".
std::string FormatFloat(double d) {
    char buf[64];
    auto r = std::to_chars(buf, buf + sizeof buf, d);
    std::string s(buf, r.ptr);
    size_t epos = s.find('e');
    std::string mant = epos == std::string::npos ? s : s.substr(0, epos);
    std::string exp;
    if (epos != std::string::npos) {
        std::string_view ev = std::string_view(s).substr(epos + 1);
        bool neg = !ev.empty() && ev[0] == '-';
        if (!ev.empty() && (ev[0] == '-' || ev[0] == '+')) ev.remove_prefix(1);
        while (ev.size() > 1 && ev[0] == '0')
            ev.remove_prefix(1);
        exp = std::string("E") + (neg ? "-" : "") + std::string(ev);
    }
    if (exp.empty() && mant.find('.') == std::string::npos) mant += ".0";
    return mant + exp;
}

std::string IntText(const TDfmValue& v) {
    if (!v.Text.empty()) {
        TDfmValue check;
        if (ParseNumberToken(v.Text, check) && check.Kind == TDfmValueKind::Integer && check.Int == v.Int)
            return v.Text;
    }
    return IntToStr(v.Int);
}

std::string FloatText(const TDfmValue& v) {
    if (!v.Text.empty()) {
        TDfmValue check;
        if (ParseNumberToken(v.Text, check) && check.Kind == TDfmValueKind::Float && check.Float == v.Float &&
            check.FloatSuffix == v.FloatSuffix)
            return v.Text;
    }
    std::string s = FormatFloat(v.Float);
    if (v.FloatSuffix) s += v.FloatSuffix;
    return s;
}

std::string RawToUtf8(std::string_view raw, std::string_view codePage) {
    if (IsValidUtf8(raw)) return std::string(raw);
    if (codePage.empty() || SameText(codePage, "CP1252") || SameText(codePage, "WINDOWS-1252"))
        return Cp1252ToUtf8(raw);
    iconv_t cd = iconv_open("UTF-8", std::string(codePage).c_str());
    if (cd == reinterpret_cast<iconv_t>(-1)) return Cp1252ToUtf8(raw);
    std::string out;
    std::string in(raw);
    char* ip = in.data();
    size_t il = in.size();
    char buf[256];
    while (il > 0) {
        char* op = buf;
        size_t ol = sizeof buf;
        size_t r = iconv(cd, &ip, &il, &op, &ol);
        out.append(buf, static_cast<size_t>(op - buf));
        if (r == static_cast<size_t>(-1) && errno != E2BIG) {
            AppendUtf8(out, 0xFFFD); // a byte the code page does not define
            ++ip;
            --il;
        }
    }
    iconv_close(cd);
    return out;
}
} // namespace

// ---- TDfmString ---------------------------------------------------------------------------------------
TDfmString TDfmString::FromUtf8(std::string_view s) {
    TDfmString r;
    r.Units.reserve(s.size());
    for (char32_t cp : Utf8ToUtf32(s)) {
        if (cp >= 0x10000) {
            cp -= 0x10000;
            r.Units.push_back(0xD800 + (cp >> 10));
            r.Units.push_back(0xDC00 + (cp & 0x3FF));
        } else {
            r.Units.push_back(cp);
        }
    }
    return r;
}

TDfmString TDfmString::FromBytes(std::string_view bytes) {
    TDfmString r;
    r.Units.reserve(bytes.size());
    for (unsigned char c : bytes)
        r.Units.push_back(c < 0x20 || c >= 0x80 ? (RawByte | c) : c);
    return r;
}

bool TDfmString::HasRawBytes() const {
    return std::any_of(Units.begin(), Units.end(), [](char32_t u) { return (u & RawByte) != 0; });
}

std::string TDfmString::ToUtf8(std::string_view RawCodePage) const {
    std::string out;
    out.reserve(Units.size());
    size_t n = Units.size();
    for (size_t i = 0; i < n;) {
        char32_t u = Units[i];
        if (u & RawByte) {
            std::string raw;
            while (i < n && (Units[i] & RawByte))
                raw += static_cast<char>(Units[i++] & 0xFF);
            out += RawToUtf8(raw, RawCodePage);
            continue;
        }
        if (u < 0x80) {
            out += static_cast<char>(u);
        } else if (u >= 0xD800 && u <= 0xDBFF && i + 1 < n && Units[i + 1] >= 0xDC00 &&
                   Units[i + 1] <= 0xDFFF) {
            AppendUtf8(out, 0x10000 + ((u - 0xD800) << 10) + (Units[i + 1] - 0xDC00));
            ++i;
        } else if ((u >= 0xD800 && u <= 0xDFFF) || u > 0x10FFFF) {
            AppendUtf8(out, 0xFFFD);
        } else {
            AppendUtf8(out, u);
        }
        ++i;
    }
    return out;
}

// ---- TDfmValue ------------------------------------------------------------------------------------------
TDfmValue TDfmValue::MakeInteger(int64_t v) {
    TDfmValue r;
    r.Kind = TDfmValueKind::Integer;
    r.Int = v;
    return r;
}
TDfmValue TDfmValue::MakeFloat(double v, char suffix) {
    TDfmValue r;
    r.Kind = TDfmValueKind::Float;
    r.Float = v;
    r.FloatSuffix = suffix;
    return r;
}
TDfmValue TDfmValue::MakeString(TDfmString s) {
    TDfmValue r;
    r.Kind = TDfmValueKind::String;
    r.Str = std::move(s);
    return r;
}
TDfmValue TDfmValue::MakeUtf8String(std::string_view s) {
    return MakeString(TDfmString::FromUtf8(s));
}
TDfmValue TDfmValue::MakeIdent(std::string ident) {
    TDfmValue r;
    r.Kind = TDfmValueKind::Ident;
    r.Text = std::move(ident);
    return r;
}
TDfmValue TDfmValue::MakeSet(const std::vector<std::string>& members) {
    TDfmValue r;
    r.Kind = TDfmValueKind::Set;
    for (auto& m : members)
        r.Items.push_back(MakeIdent(m));
    return r;
}
TDfmValue TDfmValue::MakeList(std::vector<TDfmValue> items) {
    TDfmValue r;
    r.Kind = TDfmValueKind::List;
    r.Items = std::move(items);
    return r;
}
TDfmValue TDfmValue::MakeBinary(std::vector<uint8_t> bytes) {
    TDfmValue r;
    r.Kind = TDfmValueKind::Binary;
    r.Bytes = std::move(bytes);
    return r;
}
TDfmValue TDfmValue::MakeCollection(std::vector<TDfmItem> items) {
    TDfmValue r;
    r.Kind = TDfmValueKind::Collection;
    r.CollectionItems = std::move(items);
    return r;
}

bool TDfmValue::IsIdent(std::string_view name) const {
    return Kind == TDfmValueKind::Ident && SameText(Text, name);
}

bool TDfmValue::operator==(const TDfmValue& o) const {
    if (Kind != o.Kind) return false;
    switch (Kind) {
    case TDfmValueKind::Integer:
        return Int == o.Int;
    case TDfmValueKind::Float:
        return Float == o.Float && FloatSuffix == o.FloatSuffix;
    case TDfmValueKind::String:
        return Str == o.Str;
    case TDfmValueKind::Ident:
        return Text == o.Text;
    case TDfmValueKind::Set:
    case TDfmValueKind::List:
        return Items == o.Items;
    case TDfmValueKind::Binary:
        return Bytes == o.Bytes;
    case TDfmValueKind::Collection:
        return CollectionItems == o.CollectionItems;
    }
    return false;
}

// ---- TDfmObject ------------------------------------------------------------------------------------------
const TDfmProperty* TDfmObject::FindProperty(std::string_view name) const {
    for (auto& p : Properties)
        if (SameText(p.Name, name)) return &p;
    return nullptr;
}

const TDfmObject* TDfmObject::FindChild(std::string_view name) const {
    for (auto& c : Children)
        if (SameText(c.Name, name)) return &c;
    return nullptr;
}

bool TDfmObject::operator==(const TDfmObject& o) const {
    return Kind == o.Kind && Name == o.Name && ClassName == o.ClassName && Order == o.Order &&
           Properties == o.Properties && Children == o.Children;
}

const char* DfmObjectKindName(TDfmObjectKind kind) {
    switch (kind) {
    case TDfmObjectKind::Inherited:
        return "inherited";
    case TDfmObjectKind::Inline:
        return "inline";
    default:
        return "object";
    }
}

// ---- Parser
// ------------------------------------------------------------------------------------------------
namespace {
class TDfmParser {
public:
    explicit TDfmParser(std::string_view text)
        : FBegin(text.data()), FP(text.data()), FEnd(text.data() + text.size()) {
        FLineStart = FP;
    }

    TDfmDocument Parse() {
        TDfmDocument doc;
        if (FEnd - FP >= 3 && std::memcmp(FP, "\xEF\xBB\xBF", 3) == 0) {
            doc.Bom = true;
            FP += 3;
            FLineStart = FP;
        }
        if ((FEnd - FP >= 4 && std::memcmp(FP, "TPF0", 4) == 0) ||
            (FP < FEnd && static_cast<unsigned char>(*FP) == 0xFF))
            Error("Binary form data is not a text form", Line(), Column());
        doc.LineBreak = DetectLineBreak();
        for (;;) {
            SkipSpace();
            if (FP >= FEnd) break;
            int line = Line(), col = Column();
            std::string_view kw = ReadIdent();
            TDfmObjectKind kind;
            if (kw.empty() || !ObjectKeyword(kw, kind))
                Error("'object', 'inherited' or 'inline' expected but " + Describe(line, col, kw) + " found",
                      line, col);
            doc.Objects.push_back(ParseObject(kind, line, col, 0));
        }
        if (doc.Objects.empty()) Error("'object' expected but end of file found", Line(), Column());
        return doc;
    }

private:
    const char* FBegin;
    const char* FP;
    const char* FEnd;
    const char* FLineStart;
    int FLine = 1;
    int FDepth = 0;

    [[noreturn]] void Error(const std::string& what, int line, int col) {
        throw EParserError(what + " on line " + IntToStr(line) + ", column " + IntToStr(col));
    }

    int Line() const { return FLine; }
    int Column() const { return static_cast<int>(FP - FLineStart) + 1; }

    std::string DetectLineBreak() const {
        const char* lf = static_cast<const char*>(std::memchr(FP, '\n', static_cast<size_t>(FEnd - FP)));
        if (lf && lf > FP && lf[-1] == '\r') return "\r\n";
        if (lf) return "\n";
        return "\r\n";
    }

    void SkipSpace() {
        while (FP < FEnd && static_cast<unsigned char>(*FP) <= ' ') {
            if (*FP == '\n' || (*FP == '\r' && (FP + 1 >= FEnd || FP[1] != '\n'))) {
                ++FLine;
                FLineStart = FP + 1;
            }
            ++FP;
        }
    }

    // What stands at a position, for messages: "'='", "end of file", "identifier 'Foo'".
    std::string Describe(int, int, std::string_view ident = {}) const {
        if (!ident.empty()) return "'" + std::string(ident) + "'";
        if (FP >= FEnd) return "end of file";
        unsigned char c = static_cast<unsigned char>(*FP);
        if (c < 0x20 || c >= 0x7F) return "character #" + IntToStr(c);
        return "'" + std::string(1, static_cast<char>(c)) + "'";
    }

    std::string_view ReadIdent() {
        const char* b = FP;
        if (FP < FEnd && IsIdentStart(static_cast<unsigned char>(*FP))) {
            ++FP;
            while (FP < FEnd && IsIdentChar(static_cast<unsigned char>(*FP)))
                ++FP;
        }
        return std::string_view(b, static_cast<size_t>(FP - b));
    }

    std::string ExpectIdent(const char* what) {
        SkipSpace();
        int line = Line(), col = Column();
        std::string_view id = ReadIdent();
        if (id.empty())
            Error(std::string(what) + " expected but " + Describe(line, col) + " found", line, col);
        return std::string(id);
    }

    void Expect(char c) {
        SkipSpace();
        if (FP >= FEnd || *FP != c)
            Error("'" + std::string(1, c) + "' expected but " + Describe(Line(), Column()) + " found", Line(),
                  Column());
        ++FP;
    }

    static bool ObjectKeyword(std::string_view kw, TDfmObjectKind& kind) {
        if (SameText(kw, "object"))
            kind = TDfmObjectKind::Object;
        else if (SameText(kw, "inherited"))
            kind = TDfmObjectKind::Inherited;
        else if (SameText(kw, "inline"))
            kind = TDfmObjectKind::Inline;
        else
            return false;
        return true;
    }

    void Enter(int line, int col) {
        if (++FDepth > kMaxNesting) Error("Objects or values nested too deeply", line, col);
    }

    int64_t ParseOrder() {
        // "[n]" after an object header or `item`
        Expect('[');
        SkipSpace();
        TDfmValue v = ParseNumber();
        if (v.Kind != TDfmValueKind::Integer) Error("Integer expected", v.Line, v.Column);
        Expect(']');
        return v.Int;
    }

    TDfmObject ParseObject(TDfmObjectKind kind, int line, int col, int depth) {
        Enter(line, col);
        TDfmObject obj;
        obj.Kind = kind;
        obj.Line = line;
        obj.Column = col;
        std::string first = ExpectIdent("Object name");
        SkipSpace();
        if (FP < FEnd && *FP == ':') {
            ++FP;
            obj.Name = std::move(first);
            obj.ClassName = ExpectIdent("Class name");
        } else {
            obj.ClassName = std::move(first);
        }
        SkipSpace();
        if (FP < FEnd && *FP == '[') obj.Order = ParseOrder();
        for (;;) {
            SkipSpace();
            int l = Line(), c = Column();
            if (FP >= FEnd) {
                std::string what = obj.Name.empty() ? obj.ClassName : obj.Name;
                Error("'end' expected for " + what + " (opened on line " + IntToStr(line) +
                          ") but end of file found",
                      l, c);
            }
            std::string_view id = ReadIdent();
            if (id.empty()) Error("Property name or 'end' expected but " + Describe(l, c) + " found", l, c);
            SkipSpace();
            bool isAssign = FP < FEnd && *FP == '=';
            TDfmObjectKind childKind;
            if (!isAssign && SameText(id, "end")) break;
            if (!isAssign && ObjectKeyword(id, childKind)) {
                obj.Children.push_back(ParseObject(childKind, l, c, depth + 1));
                continue;
            }
            if (!isAssign)
                Error("'=' expected after " + std::string(id) + " but " + Describe(l, c) + " found", Line(),
                      Column());
            ++FP;
            TDfmProperty prop;
            prop.Name = std::string(id);
            prop.Line = l;
            prop.Column = c;
            prop.Value = ParseValue();
            obj.Properties.push_back(std::move(prop));
        }
        --FDepth;
        return obj;
    }

    TDfmValue ParseValue() {
        SkipSpace();
        int line = Line(), col = Column();
        if (FP >= FEnd) Error("Value expected but end of file found", line, col);
        unsigned char c = static_cast<unsigned char>(*FP);
        TDfmValue v;
        if (c == '\'' || c == '#')
            v = ParseString();
        else if (std::isdigit(c) || c == '-' || c == '+' || c == '$')
            v = ParseNumber();
        else if (c == '[')
            v = ParseSet();
        else if (c == '(')
            v = ParseList();
        else if (c == '{')
            v = ParseBinary();
        else if (c == '<')
            v = ParseCollection();
        else if (IsIdentStart(c))
            v = TDfmValue::MakeIdent(std::string(ReadIdent()));
        else
            Error("Value expected but " + Describe(line, col) + " found", line, col);
        v.Line = line;
        v.Column = col;
        return v;
    }

    TDfmValue ParseNumber() {
        int line = Line(), col = Column();
        const char* b = FP;
        if (FP < FEnd && (*FP == '-' || *FP == '+')) ++FP;
        while (FP < FEnd) {
            unsigned char c = static_cast<unsigned char>(*FP);
            if (std::isalnum(c) || c == '.' || c == '_' || c == '$') {
                ++FP;
            } else if ((c == '-' || c == '+') && (FP[-1] == 'e' || FP[-1] == 'E') &&
                       std::memchr(b, '$', static_cast<size_t>(FP - b)) == nullptr) {
                ++FP; // the sign of an exponent
            } else {
                break;
            }
        }
        std::string_view tok(b, static_cast<size_t>(FP - b));
        TDfmValue v;
        if (!ParseNumberToken(tok, v)) Error("Invalid number '" + std::string(tok) + "'", line, col);
        v.Text = std::string(tok);
        v.Line = line;
        v.Column = col;
        return v;
    }

    // One or more adjacent pieces ('text', #13, #$0D) joined by optional '+' between them.
    TDfmValue ParseString() {
        TDfmValue v;
        v.Kind = TDfmValueKind::String;
        std::u32string& out = v.Str.Units;
        for (;;) {
            while (FP < FEnd && (*FP == '\'' || *FP == '#')) {
                int line = Line(), col = Column();
                if (*FP == '\'') {
                    ++FP;
                    for (;;) {
                        if (FP >= FEnd || *FP == '\r' || *FP == '\n') Error("Unterminated string", line, col);
                        unsigned char c = static_cast<unsigned char>(*FP++);
                        if (c == '\'') {
                            if (FP < FEnd && *FP == '\'') {
                                ++FP;
                                out.push_back('\'');
                                continue;
                            }
                            break;
                        }
                        out.push_back(c < 0x20 || c >= 0x80 ? (TDfmString::RawByte | c) : c);
                    }
                } else {
                    ++FP;
                    const char* b = FP;
                    int base = 10;
                    if (FP < FEnd && *FP == '$') {
                        base = 16;
                        b = ++FP;
                    }
                    while (FP < FEnd && std::isxdigit(static_cast<unsigned char>(*FP)))
                        ++FP;
                    uint32_t code = 0;
                    auto r = std::from_chars(b, FP, code, base);
                    if (b == FP || r.ec != std::errc() || r.ptr != FP || code > 0x10FFFF)
                        Error("Invalid character code '#" + std::string(b, FP) + "'", line, col);
                    out.push_back(code);
                }
            }
            const char* save = FP;
            const char* saveLineStart = FLineStart;
            int saveLine = FLine;
            SkipSpace();
            if (FP < FEnd && *FP == '+') {
                ++FP;
                SkipSpace();
                if (FP >= FEnd || (*FP != '\'' && *FP != '#'))
                    Error("String expected after '+' but " + Describe(Line(), Column()) + " found", Line(),
                          Column());
                continue;
            }
            FP = save;
            FLineStart = saveLineStart;
            FLine = saveLine;
            break;
        }
        return v;
    }

    TDfmValue ParseSet() {
        int line = Line(), col = Column();
        ++FP; // [
        TDfmValue v;
        v.Kind = TDfmValueKind::Set;
        SkipSpace();
        if (FP < FEnd && *FP == ']') {
            ++FP;
            return v;
        }
        for (;;) {
            SkipSpace();
            int l = Line(), c = Column();
            if (FP >= FEnd)
                Error("']' expected for the set opened on line " + IntToStr(line) + " but end of file found",
                      l, c);
            unsigned char ch = static_cast<unsigned char>(*FP);
            if (IsIdentStart(ch)) {
                TDfmValue m = TDfmValue::MakeIdent(std::string(ReadIdent()));
                m.Line = l;
                m.Column = c;
                v.Items.push_back(std::move(m));
            } else if (std::isdigit(ch) || ch == '-' || ch == '$') {
                TDfmValue m = ParseNumber();
                if (m.Kind != TDfmValueKind::Integer)
                    Error("Set member expected but '" + m.Text + "' found", l, c);
                v.Items.push_back(std::move(m));
            } else {
                Error("Set member expected but " + Describe(l, c) + " found", l, c);
            }
            SkipSpace();
            if (FP < FEnd && *FP == ',') {
                ++FP;
                continue;
            }
            if (FP < FEnd && *FP == ']') {
                ++FP;
                break;
            }
            Error("',' or ']' expected but " + Describe(Line(), Column()) + " found", Line(), Column());
        }
        (void)col;
        return v;
    }

    TDfmValue ParseList() {
        int line = Line(), col = Column();
        Enter(line, col);
        ++FP; // (
        TDfmValue v;
        v.Kind = TDfmValueKind::List;
        for (;;) {
            SkipSpace();
            if (FP >= FEnd)
                Error("')' expected for the list opened on line " + IntToStr(line) + " but end of file found",
                      Line(), Column());
            if (*FP == ')') {
                ++FP;
                break;
            }
            v.Items.push_back(ParseValue());
        }
        --FDepth;
        return v;
    }

    TDfmValue ParseBinary() {
        int line = Line();
        ++FP; // {
        TDfmValue v;
        v.Kind = TDfmValueKind::Binary;
        int high = -1;
        int highLine = 0, highCol = 0;
        for (;;) {
            SkipSpace();
            if (FP >= FEnd)
                Error("'}' expected for the binary value opened on line " + IntToStr(line) +
                          " but end of file found",
                      Line(), Column());
            unsigned char c = static_cast<unsigned char>(*FP);
            if (c == '}') {
                if (high >= 0) Error("Odd number of hex digits in binary value", highLine, highCol);
                ++FP;
                break;
            }
            int d;
            if (c >= '0' && c <= '9')
                d = c - '0';
            else if (c >= 'A' && c <= 'F')
                d = c - 'A' + 10;
            else if (c >= 'a' && c <= 'f')
                d = c - 'a' + 10;
            else
                Error("Hex digit expected in binary value but " + Describe(Line(), Column()) + " found",
                      Line(), Column());
            if (high < 0) {
                high = d;
                highLine = Line();
                highCol = Column();
            } else {
                v.Bytes.push_back(static_cast<uint8_t>(high * 16 + d));
                high = -1;
            }
            ++FP;
        }
        return v;
    }

    TDfmValue ParseCollection() {
        int line = Line(), col = Column();
        Enter(line, col);
        ++FP; // <
        TDfmValue v;
        v.Kind = TDfmValueKind::Collection;
        for (;;) {
            SkipSpace();
            int l = Line(), c = Column();
            if (FP >= FEnd)
                Error("'>' expected for the collection opened on line " + IntToStr(line) +
                          " but end of file found",
                      l, c);
            if (*FP == '>') {
                ++FP;
                break;
            }
            std::string_view id = ReadIdent();
            if (!SameText(id, "item"))
                Error("'item' or '>' expected but " + Describe(l, c, id) + " found", l, c);
            TDfmItem item;
            item.Line = l;
            SkipSpace();
            if (FP < FEnd && *FP == '[') item.Order = ParseOrder();
            for (;;) {
                SkipSpace();
                int pl = Line(), pc = Column();
                if (FP >= FEnd)
                    Error("'end' expected for the item opened on line " + IntToStr(l) +
                              " but end of file found",
                          pl, pc);
                std::string_view name = ReadIdent();
                if (name.empty())
                    Error("Property name or 'end' expected but " + Describe(pl, pc) + " found", pl, pc);
                SkipSpace();
                bool isAssign = FP < FEnd && *FP == '=';
                if (!isAssign && SameText(name, "end")) break;
                if (!isAssign)
                    Error("'=' expected after " + std::string(name) + " but " + Describe(pl, pc) + " found",
                          Line(), Column());
                ++FP;
                TDfmProperty prop;
                prop.Name = std::string(name);
                prop.Line = pl;
                prop.Column = pc;
                prop.Value = ParseValue();
                item.Properties.push_back(std::move(prop));
            }
            v.CollectionItems.push_back(std::move(item));
        }
        --FDepth;
        return v;
    }
};

// ---- Writer
// ------------------------------------------------------------------------------------------------
class TDfmWriter {
public:
    explicit TDfmWriter(std::string_view lineBreak) : FLB(lineBreak) {}
    std::string Out;

    void Indent(int level) { Out.append(static_cast<size_t>(level) * 2, ' '); }
    void NewLine(int level) {
        Out += FLB;
        Indent(level);
    }

    void WriteObject(const TDfmObject& obj, int level) {
        Indent(level);
        Out += DfmObjectKindName(obj.Kind);
        Out += ' ';
        if (!obj.Name.empty()) {
            Out += obj.Name;
            Out += ": ";
        }
        Out += obj.ClassName;
        if (obj.Order) {
            Out += " [";
            Out += IntToStr(*obj.Order);
            Out += ']';
        }
        Out += FLB;
        WriteProperties(obj.Properties, level + 1);
        for (auto& child : obj.Children)
            WriteObject(child, level + 1);
        Indent(level);
        Out += "end";
        Out += FLB;
    }

    void WriteProperties(const std::vector<TDfmProperty>& props, int level) {
        for (auto& p : props) {
            Indent(level);
            Out += p.Name;
            Out += " = ";
            WriteValue(p.Value, level);
            Out += FLB;
        }
    }

    static bool Quotable(char32_t u) {
        return (u & TDfmString::RawByte) || (u >= 0x20 && u <= 0x7F && u != '\'');
    }

    void WriteString(const TDfmString& s, int level) {
        const std::u32string& u = s.Units;
        size_t n = u.size();
        if (n == 0) {
            Out += "''";
            return;
        }
        int lvl = level + 1;
        if (n > static_cast<size_t>(kLineLength)) NewLine(lvl);
        size_t i = 0, k = 0;
        do {
            bool lineBreak = false;
            if (Quotable(u[i])) {
                size_t j = i;
                do
                    ++i;
                while (i < n && Quotable(u[i]) && i - k < static_cast<size_t>(kLineLength));
                if (i - k >= static_cast<size_t>(kLineLength)) lineBreak = true;
                Out += '\'';
                for (; j < i; ++j)
                    Out += static_cast<char>(u[j] & 0xFF);
                Out += '\'';
            } else {
                Out += '#';
                Out += IntToStr(static_cast<int64_t>(u[i]));
                ++i;
                if (i - k >= static_cast<size_t>(kLineLength)) lineBreak = true;
            }
            if (lineBreak && i < n) {
                Out += " +";
                NewLine(lvl);
                k = i;
            }
        } while (i < n);
    }

    void WriteBinary(const std::vector<uint8_t>& bytes, int level) {
        static const char* hex = "0123456789ABCDEF";
        Out += '{';
        bool multiLine = bytes.size() >= static_cast<size_t>(kBytesPerLine);
        for (size_t i = 0; i < bytes.size(); i += kBytesPerLine) {
            if (multiLine) NewLine(level + 1);
            size_t end = std::min(bytes.size(), i + kBytesPerLine);
            for (size_t j = i; j < end; ++j) {
                Out += hex[bytes[j] >> 4];
                Out += hex[bytes[j] & 15];
            }
        }
        Out += '}';
    }

    void WriteValue(const TDfmValue& v, int level) {
        switch (v.Kind) {
        case TDfmValueKind::Integer:
            Out += IntText(v);
            break;
        case TDfmValueKind::Float:
            Out += FloatText(v);
            break;
        case TDfmValueKind::Ident:
            Out += v.Text;
            break;
        case TDfmValueKind::String:
            WriteString(v.Str, level);
            break;
        case TDfmValueKind::Set:
            Out += '[';
            for (size_t i = 0; i < v.Items.size(); ++i) {
                if (i) Out += ", ";
                const TDfmValue& m = v.Items[i];
                Out += m.Kind == TDfmValueKind::Integer ? IntText(m) : m.Text;
            }
            Out += ']';
            break;
        case TDfmValueKind::List:
            Out += '(';
            for (auto& item : v.Items) {
                NewLine(level + 1);
                WriteValue(item, level + 1);
            }
            Out += ')';
            break;
        case TDfmValueKind::Binary:
            WriteBinary(v.Bytes, level);
            break;
        case TDfmValueKind::Collection:
            Out += '<';
            for (auto& item : v.CollectionItems) {
                NewLine(level + 1);
                Out += "item";
                if (item.Order) {
                    Out += " [";
                    Out += IntToStr(*item.Order);
                    Out += ']';
                }
                Out += FLB;
                WriteProperties(item.Properties, level + 2);
                Indent(level + 1);
                Out += "end";
            }
            Out += '>';
            break;
        }
    }

private:
    std::string FLB;
};
} // namespace

TDfmDocument ParseDfm(std::string_view bytes) {
    return TDfmParser(bytes).Parse();
}

std::string WriteDfm(const TDfmDocument& doc) {
    TDfmWriter w(doc.LineBreak);
    if (doc.Bom) w.Out += "\xEF\xBB\xBF";
    for (auto& obj : doc.Objects)
        w.WriteObject(obj, 0);
    return std::move(w.Out);
}

std::string WriteDfm(const TDfmObject& obj, std::string_view lineBreak) {
    TDfmWriter w(lineBreak);
    w.WriteObject(obj, 0);
    return std::move(w.Out);
}

std::string WriteDfmValue(const TDfmValue& value, int level, std::string_view lineBreak) {
    TDfmWriter w(lineBreak);
    w.WriteValue(value, level);
    return std::move(w.Out);
}

} // namespace rtl
