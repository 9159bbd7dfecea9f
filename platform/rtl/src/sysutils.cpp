// Text, number and file routines with the platform's semantics.
// (Preliminary: the subset the object model needs; the full set follows.)
#include "rtl/sysutils.h"

#include <cctype>

namespace rtl {

std::string IntToStr(int64_t value) { return std::to_string(value); }

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
    return static_cast<int>(a.size()) - static_cast<int>(b.size());
}

bool SameText(std::string_view a, std::string_view b) { return a.size() == b.size() && CompareText(a, b) == 0; }

std::string Trim(std::string_view s) {
    size_t b = 0, e = s.size();
    while (b < e && static_cast<unsigned char>(s[b]) <= ' ') ++b;
    while (e > b && static_cast<unsigned char>(s[e - 1]) <= ' ') --e;
    return std::string(s.substr(b, e - b));
}

bool IsValidIdent(std::string_view s) {
    if (s.empty()) return false;
    auto alpha = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; };
    if (!alpha(s[0])) return false;
    for (char c : s)
        if (!alpha(c) && !(c >= '0' && c <= '9')) return false;
    return true;
}

std::string Format(std::string_view fmt, const std::vector<TVarRec>& args) {
    std::string out;
    size_t argi = 0;
    for (size_t i = 0; i < fmt.size(); ++i) {
        char c = fmt[i];
        if (c != '%' || i + 1 >= fmt.size()) {
            out += c;
            continue;
        }
        char t = fmt[++i];
        if (t == '%') {
            out += '%';
            continue;
        }
        if (argi >= args.size()) throw EConvertError("Format '" + std::string(fmt) + "' invalid or incompatible with argument");
        const TVarRec& a = args[argi++];
        switch (t) {
        case 'd': out += std::to_string(a.AsInteger()); break;
        case 's': out += a.AsString(); break;
        default: throw EConvertError("Format '" + std::string(fmt) + "' invalid or incompatible with argument");
        }
    }
    return out;
}

} // namespace rtl
