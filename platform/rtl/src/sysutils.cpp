// Text, number, file and encoding routines with the platform's semantics (integer parsing, Format, the
// general float format, file-name helpers, Windows-1252 text).
#include "rtl/sysutils.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <mutex>

namespace rtl {

namespace {

std::string_view UpToNul(std::string_view s) {
    size_t nul = s.find('\0');
    return nul == std::string_view::npos ? s : s.substr(0, nul);
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// Parses the platform's integer syntax. Decimal text must fit the signed range; hexadecimal text may use
// the full unsigned width and stands for that bit pattern, as on the platform ("$FFFFFFFF" is -1), so that
// colour and flag values written in hex read back.
bool ParseInteger(std::string_view s, int bits, int64_t& value) {
    s = UpToNul(s);
    size_t i = 0, n = s.size();
    while (i < n && s[i] == ' ')
        ++i;
    bool neg = false;
    if (i < n && (s[i] == '-' || s[i] == '+')) neg = s[i++] == '-';
    bool hex = false;
    if (i < n && (s[i] == '$' || s[i] == 'x' || s[i] == 'X')) {
        hex = true;
        ++i;
    } else if (i + 1 < n && s[i] == '0' && (s[i + 1] == 'x' || s[i + 1] == 'X')) {
        hex = true;
        i += 2;
    }
    if (i >= n) return false;
    const uint64_t unsignedMax = bits == 32 ? 0xFFFFFFFFull : ~0ull;
    const uint64_t signedMax = bits == 32 ? 0x7FFFFFFFull : 0x7FFFFFFFFFFFFFFFull;
    uint64_t mag = 0;
    for (; i < n; ++i) {
        int d = hex ? HexDigit(s[i]) : (s[i] >= '0' && s[i] <= '9' ? s[i] - '0' : -1);
        if (d < 0) return false;
        uint64_t base = hex ? 16 : 10;
        if (mag > (unsignedMax - static_cast<uint64_t>(d)) / base) return false;
        mag = mag * base + static_cast<uint64_t>(d);
    }
    if (hex) {
        uint64_t pattern = neg ? (0 - mag) : mag;
        value = bits == 32 ? static_cast<int64_t>(static_cast<int32_t>(static_cast<uint32_t>(pattern)))
                           : static_cast<int64_t>(pattern);
        return true;
    }
    if (mag > signedMax + (neg ? 1 : 0)) return false;
    value = neg ? static_cast<int64_t>(0 - mag) : static_cast<int64_t>(mag);
    return true;
}

[[noreturn]] void InvalidInteger(std::string_view s) {
    throw EConvertError(Format(SInvalidInteger, {std::string(UpToNul(s))}));
}

// ---- Decimal digits of a double -----------------------------------------------------------------------
// A double carries 15 reliable decimal digits; all formatting rounds from those, half away from zero, the way
// the platform rounds its decimal representation (so 2.5 gives "3" and 1.005 gives "1.01").
struct TDecimal {
    bool Negative = false;
    std::string Digits; // no leading zero; empty means zero
    int Exp = 0;        // value = D.DDD * 10^Exp
};

TDecimal ToDecimal(double v) {
    TDecimal d;
    d.Negative = std::signbit(v);
    v = std::fabs(v);
    if (v == 0) {
        d.Negative = false;
        return d;
    }
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.14e", v);
    std::string_view s(buf);
    size_t e = s.find('e');
    for (char c : s.substr(0, e))
        if (c != '.') d.Digits += c;
    d.Exp = std::atoi(buf + e + 1);
    return d;
}

// Keeps `keep` significant digits (which may be zero or negative: rounding to a position left of the first
// digit), rounding half away from zero. Trailing zeros are dropped; readers pad with DigitAt.
void RoundDigits(TDecimal& d, int keep) {
    if (d.Digits.empty()) return;
    if (keep < 0) {
        d.Digits.clear();
        return;
    }
    bool up = false;
    if (keep < static_cast<int>(d.Digits.size())) {
        up = d.Digits[keep] >= '5';
        d.Digits.resize(keep);
    }
    if (up) {
        int i = keep - 1;
        while (i >= 0 && d.Digits[i] == '9')
            d.Digits[i--] = '0';
        if (i >= 0) {
            ++d.Digits[i];
        } else {
            d.Digits.insert(d.Digits.begin(), '1');
            ++d.Exp;
        }
    }
    while (!d.Digits.empty() && d.Digits.back() == '0')
        d.Digits.pop_back();
    if (d.Digits.empty()) d.Negative = false;
}

char DigitAt(const TDecimal& d, int k) {
    return k >= 0 && k < static_cast<int>(d.Digits.size()) ? d.Digits[k] : '0';
}

std::string GroupThousands(const std::string& intPart) {
    std::string r;
    int n = static_cast<int>(intPart.size());
    for (int i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0) r += ',';
        r += intPart[i];
    }
    return r;
}

// Fixed notation with `prec` decimals, without the sign.
std::string FixedDigits(TDecimal d, int prec, bool thousands) {
    RoundDigits(d, d.Exp + 1 + prec);
    std::string ip;
    if (d.Digits.empty() || d.Exp < 0)
        ip = "0";
    else
        for (int k = 0; k <= d.Exp; ++k)
            ip += DigitAt(d, k);
    if (thousands) ip = GroupThousands(ip);
    if (prec > 0) {
        ip += '.';
        for (int i = 1; i <= prec; ++i)
            ip += d.Digits.empty() ? '0' : DigitAt(d, d.Exp + i);
    }
    return ip;
}

bool IsSpecial(double v, std::string& text) {
    if (std::isnan(v))
        text = "NAN";
    else if (std::isinf(v))
        text = v < 0 ? "-INF" : "INF";
    else
        return false;
    return true;
}

std::string FormatFixed(double v, int prec, bool thousands) {
    std::string special;
    if (IsSpecial(v, special)) return special;
    TDecimal d = ToDecimal(v);
    std::string body = FixedDigits(d, prec, thousands);
    RoundDigits(d, d.Exp + 1 + prec);
    return (d.Negative ? "-" : "") + body;
}

// The general format: `prec` significant digits, trailing zeros removed, fixed notation unless the integer
// part needs more than `prec` digits or the value is below 0.00001; the exponent then has no '+' and no
// leading zeros ("1.5E20", "1E-6").
std::string FormatGeneral(double v, int prec) {
    std::string special;
    if (IsSpecial(v, special)) return special;
    prec = std::clamp(prec, 1, 15);
    TDecimal d = ToDecimal(v);
    RoundDigits(d, prec);
    if (d.Digits.empty()) return "0";
    std::string r = d.Negative ? "-" : "";
    if (d.Exp >= prec || d.Exp < -5) {
        r += d.Digits[0];
        if (d.Digits.size() > 1) r += "." + d.Digits.substr(1);
        r += "E" + std::to_string(d.Exp);
        return r;
    }
    int len = static_cast<int>(d.Digits.size());
    if (d.Exp < 0) {
        r += "0." + std::string(static_cast<size_t>(-d.Exp - 1), '0') + d.Digits;
    } else {
        for (int k = 0; k <= d.Exp; ++k)
            r += DigitAt(d, k);
        if (len > d.Exp + 1) r += "." + d.Digits.substr(static_cast<size_t>(d.Exp + 1));
    }
    return r;
}

// Scientific notation with `prec` significant digits and an exponent of a sign and at least three digits
// ("1.23E+003").
std::string FormatExponent(double v, int prec) {
    std::string special;
    if (IsSpecial(v, special)) return special;
    prec = std::clamp(prec, 1, 18);
    TDecimal d = ToDecimal(v);
    RoundDigits(d, prec);
    std::string r = d.Negative ? "-" : "";
    r += DigitAt(d, 0);
    if (prec > 1) {
        r += '.';
        for (int k = 1; k < prec; ++k)
            r += DigitAt(d, k);
    }
    int e = d.Digits.empty() ? 0 : d.Exp;
    std::string ed = std::to_string(std::abs(e));
    if (ed.size() < 3) ed.insert(0, 3 - ed.size(), '0');
    r += (e < 0 ? "E-" : "E+") + ed;
    return r;
}

// US defaults of the platform's currency format: "$1,234.50", negative "($1,234.50)".
std::string FormatCurrency(double v, int prec) {
    std::string special;
    if (IsSpecial(v, special)) return special;
    TDecimal d = ToDecimal(v);
    std::string body = "$" + FixedDigits(d, prec, true);
    RoundDigits(d, d.Exp + 1 + prec);
    return d.Negative ? "(" + body + ")" : body;
}

size_t CodePointCount(std::string_view s) {
    size_t n = 0;
    for (unsigned char c : s)
        if ((c & 0xC0) != 0x80) ++n;
    return n;
}

// The first `count` code points of s.
std::string_view CodePointPrefix(std::string_view s, size_t count) {
    size_t seen = 0;
    for (size_t i = 0; i < s.size(); ++i) {
        if ((static_cast<unsigned char>(s[i]) & 0xC0) != 0x80) {
            if (seen == count) return s.substr(0, i);
            ++seen;
        }
    }
    return s;
}

std::string UnsignedHex(uint64_t v, int digits) {
    static const char* hexchars = "0123456789ABCDEF";
    std::string r;
    do {
        r += hexchars[v & 15];
        v >>= 4;
    } while (v);
    if (static_cast<int>(r.size()) < digits) r.append(static_cast<size_t>(digits) - r.size(), '0');
    std::reverse(r.begin(), r.end());
    return r;
}

// %u and %x of a negative 32-bit number show its 32-bit pattern, as on the platform.
uint64_t UnsignedPattern(int64_t v) {
    if (v < 0 && v >= INT32_MIN) return static_cast<uint32_t>(static_cast<int32_t>(v));
    return static_cast<uint64_t>(v);
}

} // namespace

// ---- Integers -------------------------------------------------------------------------------------------
int32_t StrToInt(std::string_view s) {
    int64_t v;
    if (!ParseInteger(s, 32, v)) InvalidInteger(s);
    return static_cast<int32_t>(v);
}

int32_t StrToIntDef(std::string_view s, int32_t def) {
    int64_t v;
    return ParseInteger(s, 32, v) ? static_cast<int32_t>(v) : def;
}

bool TryStrToInt(std::string_view s, int32_t& value) {
    int64_t v;
    if (!ParseInteger(s, 32, v)) return false;
    value = static_cast<int32_t>(v);
    return true;
}

int64_t StrToInt64(std::string_view s) {
    int64_t v;
    if (!ParseInteger(s, 64, v)) InvalidInteger(s);
    return v;
}

int64_t StrToInt64Def(std::string_view s, int64_t def) {
    int64_t v;
    return ParseInteger(s, 64, v) ? v : def;
}

bool TryStrToInt64(std::string_view s, int64_t& value) {
    return ParseInteger(s, 64, value);
}

std::string IntToStr(int64_t value) {
    return std::to_string(value);
}

std::string IntToHex(int64_t value, int digits) {
    return UnsignedHex(static_cast<uint64_t>(value), digits);
}

// ---- Floats ---------------------------------------------------------------------------------------------
bool TryStrToFloat(std::string_view s, double& value) {
    // [blanks] [sign] digits [. digits] [E [sign] digits] [blanks], at least one mantissa digit.
    s = UpToNul(s);
    size_t i = 0, n = s.size();
    while (i < n && s[i] == ' ')
        ++i;
    while (n > i && s[n - 1] == ' ')
        --n;
    s = s.substr(i, n - i);
    n = s.size();
    size_t p = 0;
    bool neg = false;
    if (p < n && (s[p] == '+' || s[p] == '-')) neg = s[p++] == '-';
    size_t start = p;
    int mantissaDigits = 0;
    while (p < n && s[p] >= '0' && s[p] <= '9')
        ++p, ++mantissaDigits;
    if (p < n && s[p] == '.') {
        ++p;
        while (p < n && s[p] >= '0' && s[p] <= '9')
            ++p, ++mantissaDigits;
    }
    if (mantissaDigits == 0) return false;
    bool negExp = false;
    if (p < n && (s[p] == 'e' || s[p] == 'E')) {
        ++p;
        if (p < n && (s[p] == '+' || s[p] == '-')) negExp = s[p++] == '-';
        size_t ds = p;
        while (p < n && s[p] >= '0' && s[p] <= '9')
            ++p;
        if (p == ds) return false;
    }
    if (p != n) return false;
    // from_chars rejects a '+' and a bare trailing '.', so hand it a normalised copy.
    std::string text(s.substr(start));
    if (size_t dot = text.find('.'); dot != std::string::npos) {
        size_t after = dot + 1;
        if (after >= text.size() || !(text[after] >= '0' && text[after] <= '9')) text.insert(after, "0");
        if (dot == 0) text.insert(0, "0");
    }
    double v = 0;
    auto r = std::from_chars(text.data(), text.data() + text.size(), v);
    if (r.ec == std::errc::result_out_of_range) {
        if (!negExp) return false; // overflow
        v = 0;                     // underflow reads as zero
    } else if (r.ec != std::errc() || r.ptr != text.data() + text.size()) {
        return false;
    }
    value = neg ? -v : v;
    return true;
}

double StrToFloat(std::string_view s) {
    double v;
    if (!TryStrToFloat(s, v)) throw EConvertError(Format(SInvalidFloat, {std::string(UpToNul(s))}));
    return v;
}

double StrToFloatDef(std::string_view s, double def) {
    double v;
    return TryStrToFloat(s, v) ? v : def;
}

std::string FloatToStr(double value) {
    return FormatGeneral(value, 15);
}

// ---- Text -----------------------------------------------------------------------------------------------
std::string Trim(std::string_view s) {
    size_t b = 0, e = s.size();
    while (b < e && static_cast<unsigned char>(s[b]) <= ' ')
        ++b;
    while (e > b && static_cast<unsigned char>(s[e - 1]) <= ' ')
        --e;
    return std::string(s.substr(b, e - b));
}

std::string TrimLeft(std::string_view s) {
    size_t b = 0;
    while (b < s.size() && static_cast<unsigned char>(s[b]) <= ' ')
        ++b;
    return std::string(s.substr(b));
}

std::string TrimRight(std::string_view s) {
    size_t e = s.size();
    while (e > 0 && static_cast<unsigned char>(s[e - 1]) <= ' ')
        --e;
    return std::string(s.substr(0, e));
}

std::string UpperCase(std::string_view s) {
    std::string r(s);
    for (char& c : r)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    return r;
}

std::string LowerCase(std::string_view s) {
    std::string r(s);
    for (char& c : r)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return r;
}

int CompareText(std::string_view a, std::string_view b) {
    size_t n = std::min(a.size(), b.size());
    for (size_t i = 0; i < n; ++i) {
        unsigned char ca = static_cast<unsigned char>(a[i]), cb = static_cast<unsigned char>(b[i]);
        if (ca >= 'a' && ca <= 'z') ca -= 32;
        if (cb >= 'a' && cb <= 'z') cb -= 32;
        if (ca != cb) return static_cast<int>(ca) - static_cast<int>(cb);
    }
    return a.size() < b.size() ? -1 : (a.size() > b.size() ? 1 : 0);
}

int CompareStr(std::string_view a, std::string_view b) {
    size_t n = std::min(a.size(), b.size());
    for (size_t i = 0; i < n; ++i) {
        unsigned char ca = static_cast<unsigned char>(a[i]), cb = static_cast<unsigned char>(b[i]);
        if (ca != cb) return static_cast<int>(ca) - static_cast<int>(cb);
    }
    return a.size() < b.size() ? -1 : (a.size() > b.size() ? 1 : 0);
}

bool SameText(std::string_view a, std::string_view b) {
    return a.size() == b.size() && CompareText(a, b) == 0;
}

std::string QuotedStr(std::string_view s) {
    return "'" + StringReplaceAll(s, "'", "''") + "'";
}

std::string StringReplaceAll(std::string_view s, std::string_view from, std::string_view to) {
    if (from.empty()) return std::string(s);
    std::string r;
    size_t pos = 0;
    for (;;) {
        size_t hit = s.find(from, pos);
        if (hit == std::string_view::npos) break;
        r.append(s.substr(pos, hit - pos));
        r.append(to);
        pos = hit + from.size();
    }
    r.append(s.substr(pos));
    return r;
}

bool IsValidIdent(std::string_view s) {
    if (s.empty()) return false;
    auto alpha = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; };
    if (!alpha(s[0])) return false;
    for (char c : s)
        if (!alpha(c) && !(c >= '0' && c <= '9')) return false;
    return true;
}

// ---- Format ---------------------------------------------------------------------------------------------
std::string Format(std::string_view fmt, const std::vector<TVarRec>& args) {
    auto invalid = [&]() -> EConvertError {
        return EConvertError("Format '" + std::string(fmt) + "' invalid or incompatible with argument");
    };
    std::string out;
    size_t next = 0; // the argument an unindexed specifier takes
    size_t i = 0, n = fmt.size();
    auto takeArg = [&]() -> const TVarRec& {
        if (next >= args.size()) throw invalid();
        return args[next++];
    };
    // A number or '*' (taken from the arguments); false when neither is there.
    auto readNumber = [&](int64_t& v) -> bool {
        if (i < n && fmt[i] == '*') {
            ++i;
            const TVarRec& a = takeArg();
            if (a.VType() != TVarRec::vtInteger) throw invalid();
            v = a.AsInteger();
        } else {
            if (i >= n || fmt[i] < '0' || fmt[i] > '9') return false;
            v = 0;
            while (i < n && fmt[i] >= '0' && fmt[i] <= '9')
                v = v * 10 + (fmt[i++] - '0');
        }
        if (v > 1000000 || v < -1000000)
            throw invalid(); // no sane width; refuse rather than allocate gigabytes
        return true;
    };
    while (i < n) {
        char c = fmt[i++];
        if (c != '%') {
            out += c;
            continue;
        }
        if (i >= n) throw invalid();
        if (fmt[i] == '%') {
            out += '%';
            ++i;
            continue;
        }
        int64_t width = 0, prec = -1;
        bool haveWidth = readNumber(width);
        if (haveWidth && i < n && fmt[i] == ':') {
            if (width < 0) throw invalid();
            next = static_cast<size_t>(width);
            ++i;
            width = 0;
            haveWidth = false;
        }
        bool left = false;
        if (!haveWidth && i < n && fmt[i] == '-') {
            left = true;
            ++i;
        }
        if (!haveWidth) readNumber(width);
        if (width < 0) {
            // A negative '*' width pads on the right, as a '-' would.
            left = true;
            width = -width;
        }
        if (i < n && fmt[i] == '.') {
            ++i;
            if (!readNumber(prec)) prec = 0;
            if (prec < 0) prec = -1; // a negative '*' precision means the default
        }
        if (i >= n) throw invalid();
        char type = static_cast<char>(fmt[i++] | 0x20); // the type letter ignores case
        const TVarRec& a = takeArg();
        std::string field;
        switch (type) {
        case 'd':
        case 'u':
        case 'x': {
            if (a.VType() != TVarRec::vtInteger) throw invalid();
            int64_t v = a.AsInteger();
            bool neg = type == 'd' && v < 0;
            std::string digits;
            if (type == 'd')
                digits = std::to_string(v < 0 ? 0 - static_cast<uint64_t>(v) : static_cast<uint64_t>(v));
            else if (type == 'u')
                digits = std::to_string(UnsignedPattern(v));
            else
                digits = UnsignedHex(UnsignedPattern(v), 0);
            if (prec > static_cast<int64_t>(digits.size()))
                digits.insert(0, static_cast<size_t>(prec) - digits.size(), '0');
            field = (neg ? "-" : "") + digits;
            break;
        }
        case 'p':
            if (a.VType() != TVarRec::vtInteger) throw invalid();
            field = UnsignedHex(static_cast<uint64_t>(a.AsInteger()), static_cast<int>(sizeof(void*) * 2));
            break;
        case 's':
            if (a.VType() != TVarRec::vtString) throw invalid();
            field = prec >= 0 ? std::string(CodePointPrefix(a.AsString(), static_cast<size_t>(prec)))
                              : a.AsString();
            break;
        case 'e':
        case 'f':
        case 'g':
        case 'n':
        case 'm': {
            if (a.VType() != TVarRec::vtFloat) throw invalid();
            double v = a.AsFloat();
            int p = static_cast<int>(std::min<int64_t>(prec, 18));
            if (type == 'e')
                field = FormatExponent(v, prec < 0 ? 15 : p);
            else if (type == 'g')
                field = FormatGeneral(v, prec < 0 ? 15 : p);
            else if (type == 'f')
                field = FormatFixed(v, prec < 0 ? 2 : p, false);
            else if (type == 'n')
                field = FormatFixed(v, prec < 0 ? 2 : p, true);
            else
                field = FormatCurrency(v, prec < 0 ? 2 : p);
            break;
        }
        default:
            throw invalid();
        }
        size_t len = CodePointCount(field);
        if (static_cast<size_t>(width) > len) {
            std::string pad(static_cast<size_t>(width) - len, ' ');
            field = left ? field + pad : pad + field;
        }
        out += field;
    }
    return out;
}

// ---- Files ----------------------------------------------------------------------------------------------
namespace {
size_t LastDelimiter(std::string_view s) {
    return s.find_last_of("/\\");
}

// Position of the extension's '.', or npos.
size_t ExtensionDot(std::string_view s) {
    size_t dot = s.rfind('.');
    size_t delim = LastDelimiter(s);
    if (dot == std::string_view::npos || (delim != std::string_view::npos && dot < delim))
        return std::string_view::npos;
    return dot;
}

bool IsDelim(char c) {
    return c == '/' || c == '\\';
}

// A path the C library can take: up to a NUL, which would silently shorten it.
bool CPath(std::string_view name, std::string& out) {
    if (name.empty() || name.find('\0') != std::string_view::npos) return false;
    out = std::string(name);
    return true;
}
} // namespace

std::string ExtractFileExt(std::string_view fileName) {
    size_t dot = ExtensionDot(fileName);
    return dot == std::string_view::npos ? std::string() : std::string(fileName.substr(dot));
}

std::string ExtractFilePath(std::string_view fileName) {
    size_t d = LastDelimiter(fileName);
    return d == std::string_view::npos ? std::string() : std::string(fileName.substr(0, d + 1));
}

std::string ExtractFileName(std::string_view fileName) {
    size_t d = LastDelimiter(fileName);
    return std::string(d == std::string_view::npos ? fileName : fileName.substr(d + 1));
}

std::string ExtractFileDir(std::string_view fileName) {
    size_t d = LastDelimiter(fileName);
    if (d == std::string_view::npos) return {};
    // Keep the delimiter of a root ("/x" -> "/") and of doubled delimiters.
    if (d > 0 && !IsDelim(fileName[d - 1])) return std::string(fileName.substr(0, d));
    return std::string(fileName.substr(0, d + 1));
}

std::string ChangeFileExt(std::string_view fileName, std::string_view ext) {
    size_t dot = ExtensionDot(fileName);
    std::string base(dot == std::string_view::npos ? fileName : fileName.substr(0, dot));
    return base + std::string(ext);
}

std::string IncludeTrailingPathDelimiter(std::string_view s) {
    std::string r(s);
    if (r.empty() || r.back() != PathDelim) r += PathDelim;
    return r;
}

std::string ExcludeTrailingPathDelimiter(std::string_view s) {
    std::string r(s);
    if (!r.empty() && r.back() == PathDelim) r.pop_back();
    return r;
}

bool FileExists(std::string_view fileName) {
    std::string p;
    struct stat st;
    return CPath(fileName, p) && ::stat(p.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

bool DirectoryExists(std::string_view dirName) {
    std::string p;
    struct stat st;
    return CPath(dirName, p) && ::stat(p.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

bool ForceDirectories(std::string_view dirName) {
    std::string p;
    if (!CPath(dirName, p)) return false;
    std::error_code ec;
    std::filesystem::create_directories(p, ec);
    return DirectoryExists(p);
}

bool DeleteFile(std::string_view fileName) {
    std::string p;
    struct stat st;
    if (!CPath(fileName, p) || ::lstat(p.c_str(), &st) != 0 || S_ISDIR(st.st_mode)) return false;
    return ::unlink(p.c_str()) == 0;
}

std::string ExpandFileName(std::string_view fileName) {
    if (fileName.empty()) return {};
    std::error_code ec;
    std::filesystem::path p = std::filesystem::absolute(std::filesystem::path(std::string(fileName)), ec);
    if (ec) return std::string(fileName);
    return p.lexically_normal().string();
}

std::string ReadFileBytes(std::string_view fileName) {
    auto fail = [&]() -> EFOpenError { return EFOpenError(Format(SFOpenError, {std::string(fileName)})); };
    std::string p;
    if (!CPath(fileName, p)) throw fail();
    int fd = ::open(p.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) throw fail();
    struct stat st;
    if (::fstat(fd, &st) != 0 || S_ISDIR(st.st_mode)) {
        ::close(fd);
        throw fail();
    }
    std::string data;
    if (S_ISREG(st.st_mode) && st.st_size > 0) data.reserve(static_cast<size_t>(st.st_size));
    char buf[65536];
    for (;;) {
        ssize_t got = ::read(fd, buf, sizeof buf);
        if (got < 0) {
            if (errno == EINTR) continue;
            ::close(fd);
            throw fail();
        }
        if (got == 0) break;
        data.append(buf, static_cast<size_t>(got));
    }
    ::close(fd);
    return data;
}

namespace {
bool WriteAll(int fd, std::string_view bytes) {
    size_t done = 0;
    while (done < bytes.size()) {
        ssize_t w = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (w < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        done += static_cast<size_t>(w);
    }
    return true;
}
} // namespace

void WriteFileBytes(std::string_view fileName, std::string_view bytes) {
    // A regular file is replaced through a temporary file in the same folder, so that a failed write
    // (a full disk, a crash) leaves the old contents whole. Anything else (a link, a device, a folder we
    // may not create files in) is written in place.
    auto fail = [&]() -> EFCreateError {
        return EFCreateError(Format(SFCreateError, {std::string(fileName)}));
    };
    std::string p;
    if (!CPath(fileName, p)) throw fail();
    struct stat st;
    bool exists = ::lstat(p.c_str(), &st) == 0;
    if (exists && S_ISDIR(st.st_mode)) throw fail();
    if (exists && S_ISREG(st.st_mode)) {
        std::string tmp = p + ".~tmpXXXXXX";
        int fd = ::mkstemp(tmp.data());
        if (fd >= 0) {
            bool ok = ::fchmod(fd, st.st_mode & 07777) == 0;
            ok = ok && WriteAll(fd, bytes);
            ok = ::close(fd) == 0 && ok;
            if (ok && ::rename(tmp.c_str(), p.c_str()) == 0) return;
            ::unlink(tmp.c_str());
        }
    }
    int fd = ::open(p.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (fd < 0) throw fail();
    bool ok = WriteAll(fd, bytes);
    ok = ::close(fd) == 0 && ok;
    if (!ok) throw fail();
}

// ---- Text encodings -------------------------------------------------------------------------------------
namespace {
// Windows-1252 0x80..0x9F; 0 marks the five undefined bytes.
constexpr char16_t kCp1252High[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

// Decodes one code point at s[i], advancing i. Invalid input yields U+FFFD and skips the longest invalid
// prefix of a sequence (at least one byte).
char32_t DecodeUtf8(std::string_view s, size_t& i, bool& valid) {
    unsigned char c = static_cast<unsigned char>(s[i]);
    valid = true;
    if (c < 0x80) {
        ++i;
        return c;
    }
    int len;
    char32_t cp;
    unsigned char lo = 0x80, hi = 0xBF; // allowed range of the second byte
    if (c >= 0xC2 && c <= 0xDF)
        len = 2, cp = c & 0x1F;
    else if (c >= 0xE0 && c <= 0xEF) {
        len = 3, cp = c & 0x0F;
        if (c == 0xE0) lo = 0xA0;
        if (c == 0xED) hi = 0x9F; // no surrogates
    } else if (c >= 0xF0 && c <= 0xF4) {
        len = 4, cp = c & 0x07;
        if (c == 0xF0) lo = 0x90;
        if (c == 0xF4) hi = 0x8F;
    } else {
        ++i;
        valid = false;
        return 0xFFFD;
    }
    size_t j = i + 1;
    for (int k = 1; k < len; ++k, ++j) {
        if (j >= s.size()) {
            i = j;
            valid = false;
            return 0xFFFD;
        }
        unsigned char b = static_cast<unsigned char>(s[j]);
        unsigned char l = k == 1 ? lo : 0x80, h = k == 1 ? hi : 0xBF;
        if (b < l || b > h) {
            i = j;
            valid = false;
            return 0xFFFD;
        }
        cp = (cp << 6) | (b & 0x3F);
    }
    i = j;
    return cp;
}
} // namespace

std::string CodePointToUtf8(uint32_t cp) {
    if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) cp = 0xFFFD;
    std::string r;
    if (cp < 0x80) {
        r += static_cast<char>(cp);
    } else if (cp < 0x800) {
        r += static_cast<char>(0xC0 | (cp >> 6));
        r += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        r += static_cast<char>(0xE0 | (cp >> 12));
        r += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        r += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        r += static_cast<char>(0xF0 | (cp >> 18));
        r += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        r += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        r += static_cast<char>(0x80 | (cp & 0x3F));
    }
    return r;
}

std::string Cp1252ToUtf8(std::string_view bytes) {
    std::string r;
    r.reserve(bytes.size());
    for (char ch : bytes) {
        unsigned char c = static_cast<unsigned char>(ch);
        if (c < 0x80)
            r += ch;
        else if (c < 0xA0)
            r += CodePointToUtf8(kCp1252High[c - 0x80] ? kCp1252High[c - 0x80] : 0xFFFD);
        else
            r += CodePointToUtf8(c);
    }
    return r;
}

std::string Utf8ToCp1252(std::string_view s) {
    std::string r;
    r.reserve(s.size());
    for (size_t i = 0; i < s.size();) {
        bool valid;
        char32_t cp = DecodeUtf8(s, i, valid);
        if (!valid) {
            r += '?';
        } else if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) {
            r += static_cast<char>(cp);
        } else {
            auto* hit = std::find(std::begin(kCp1252High), std::end(kCp1252High), static_cast<char16_t>(cp));
            r += (cp <= 0xFFFF && hit != std::end(kCp1252High))
                     ? static_cast<char>(0x80 + (hit - kCp1252High))
                     : '?';
        }
    }
    return r;
}

bool IsValidUtf8(std::string_view s) {
    for (size_t i = 0; i < s.size();) {
        bool valid;
        DecodeUtf8(s, i, valid);
        if (!valid) return false;
    }
    return true;
}

std::u32string Utf8ToUtf32(std::string_view s) {
    std::u32string r;
    r.reserve(s.size());
    for (size_t i = 0; i < s.size();) {
        bool valid;
        r += DecodeUtf8(s, i, valid);
    }
    return r;
}

std::string Utf32ToUtf8(std::u32string_view s) {
    std::string r;
    r.reserve(s.size());
    for (char32_t cp : s)
        r += CodePointToUtf8(cp);
    return r;
}

// ---- System directory -----------------------------------------------------------------------------------
namespace {
std::mutex gSystemDirLock;
std::string gSystemDir; // empty: the default

std::string DefaultSystemDirectory() {
    if (const char* d = std::getenv("JEX_SYSTEM_DIR"); d && *d) return d;
    if (const char* x = std::getenv("XDG_CONFIG_HOME"); x && *x) return std::string(x) + "/jexdesign/system";
    std::string home;
    if (const char* h = std::getenv("HOME"); h && *h)
        home = h;
    else if (const passwd* pw = ::getpwuid(::getuid()); pw && pw->pw_dir)
        home = pw->pw_dir;
    else
        home = ".";
    return home + "/.config/jexdesign/system";
}
} // namespace

std::string GetSystemDirectory() {
    std::lock_guard<std::mutex> lock(gSystemDirLock);
    return gSystemDir.empty() ? DefaultSystemDirectory() : gSystemDir;
}

void SetSystemDirectory(const std::string& dir) {
    std::lock_guard<std::mutex> lock(gSystemDirLock);
    gSystemDir = dir;
}

} // namespace rtl
