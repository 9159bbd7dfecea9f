// Field values and date/time conversions of the data-access layer.
#include <cmath>
#include <cstdio>

#include "db/db.h"

namespace db {

using rtl::EConvertError;

namespace {
[[noreturn]] void VariantError(const char* from, const char* to) {
    throw EConvertError(rtl::Format("Could not convert variant of type (%s) into type (%s)", {from, to}));
}
const char* KindName(const Variant& v) {
    if (v.IsNull()) return "Null";
    if (v.IsBool()) return "Boolean";
    if (v.IsInteger()) return "Int64";
    if (v.IsFloat()) return "Double";
    return "String";
}
} // namespace

std::string Variant::AsString() const {
    switch (FValue.index()) {
    case 0:
        return {};
    case 1:
        return std::get<bool>(FValue) ? "True" : "False";
    case 2:
        return rtl::IntToStr(std::get<int64_t>(FValue));
    case 3:
        return rtl::FloatToStr(std::get<double>(FValue));
    default:
        return std::get<std::string>(FValue);
    }
}

int64_t Variant::AsInteger() const {
    switch (FValue.index()) {
    case 0:
        return 0;
    case 1:
        return std::get<bool>(FValue) ? 1 : 0;
    case 2:
        return std::get<int64_t>(FValue);
    case 3: {
        double d = std::nearbyint(std::get<double>(FValue)); // the platform rounds half to even
        if (!(d >= -9.2233720368547758e18 && d < 9.2233720368547758e18)) VariantError("Double", "Int64");
        return static_cast<int64_t>(d);
    }
    default: {
        int64_t v;
        if (rtl::TryStrToInt64(std::get<std::string>(FValue), v)) return v;
        double d;
        if (rtl::TryStrToFloat(std::get<std::string>(FValue), d) && std::fabs(d) < 9.2e18)
            return static_cast<int64_t>(std::nearbyint(d));
        VariantError("String", "Int64");
    }
    }
}

double Variant::AsFloat() const {
    switch (FValue.index()) {
    case 0:
        return 0;
    case 1:
        return std::get<bool>(FValue) ? 1 : 0;
    case 2:
        return static_cast<double>(std::get<int64_t>(FValue));
    case 3:
        return std::get<double>(FValue);
    default: {
        double d;
        if (rtl::TryStrToFloat(rtl::Trim(std::get<std::string>(FValue)), d)) return d;
        VariantError("String", "Double");
    }
    }
}

bool Variant::AsBoolean() const {
    switch (FValue.index()) {
    case 0:
        return false;
    case 1:
        return std::get<bool>(FValue);
    case 2:
        return std::get<int64_t>(FValue) != 0;
    case 3:
        return std::get<double>(FValue) != 0;
    default: {
        const std::string& s = std::get<std::string>(FValue);
        if (rtl::SameText(s, "True")) return true;
        if (rtl::SameText(s, "False")) return false;
        double d;
        if (rtl::TryStrToFloat(s, d)) return d != 0;
        VariantError(KindName(*this), "Boolean");
    }
    }
}

int CompareVariants(const Variant& a, const Variant& b, bool CaseInsensitive) {
    if (a.IsNull() || b.IsNull()) return (a.IsNull() ? 0 : 1) - (b.IsNull() ? 0 : 1);
    bool aNum = !a.IsString(), bNum = !b.IsString();
    if (aNum && bNum) {
        if (a.IsInteger() && b.IsInteger()) {
            int64_t x = a.AsInteger(), y = b.AsInteger();
            return x < y ? -1 : (x > y ? 1 : 0);
        }
        double x = a.AsFloat(), y = b.AsFloat();
        return x < y ? -1 : (x > y ? 1 : 0);
    }
    if (aNum != bNum) {
        // A number against text: compare as numbers when the text is one, else as text.
        double x, y;
        if (rtl::TryStrToFloat(a.AsString(), x) && rtl::TryStrToFloat(b.AsString(), y))
            return x < y ? -1 : (x > y ? 1 : 0);
    }
    std::string x = a.AsString(), y = b.AsString();
    int r = CaseInsensitive ? rtl::CompareText(x, y) : x.compare(y);
    return r < 0 ? -1 : (r > 0 ? 1 : 0);
}

// ---- Dates: day 0 is 1899-12-30
// ----------------------------------------------------------------------------
namespace {
int64_t DaysFromCivil(int64_t y, unsigned m, unsigned d) {
    y -= m <= 2;
    const int64_t era = (y >= 0 ? y : y - 399) / 400;
    const unsigned yoe = static_cast<unsigned>(y - era * 400);
    const unsigned doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + static_cast<int64_t>(doe) - 719468;
}
void CivilFromDays(int64_t z, int& y, int& m, int& d) {
    z += 719468;
    const int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const unsigned doe = static_cast<unsigned>(z - era * 146097);
    const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const unsigned mp = (5 * doy + 2) / 153;
    d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
    m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    y = static_cast<int>(static_cast<int64_t>(yoe) + era * 400 + (m <= 2));
}
const int64_t kEpoch = DaysFromCivil(1899, 12, 30);
bool IsLeap(int y) {
    return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
}
int DaysInMonth(int y, int m) {
    static const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return m == 2 && IsLeap(y) ? 29 : days[m - 1];
}
// Milliseconds of the day part of a TDateTime, rounded to the nearest one.
int64_t TimeMs(TDateTime t) {
    double f = std::fabs(t - std::trunc(t));
    return std::llround(f * 86400000.0);
}
} // namespace

TDateTime EncodeDate(int Year, int Month, int Day) {
    if (Year < 1 || Year > 9999 || Month < 1 || Month > 12 || Day < 1 || Day > DaysInMonth(Year, Month))
        throw EConvertError("Invalid argument to date encode");
    return static_cast<double>(DaysFromCivil(Year, Month, Day) - kEpoch);
}

TDateTime EncodeTime(int Hour, int Min, int Sec, int MSec) {
    if (Hour < 0 || Hour > 23 || Min < 0 || Min > 59 || Sec < 0 || Sec > 59 || MSec < 0 || MSec > 999)
        throw EConvertError("Invalid argument to time encode");
    return (((Hour * 60.0 + Min) * 60.0 + Sec) * 1000.0 + MSec) / 86400000.0;
}

void DecodeDate(TDateTime Date, int& Year, int& Month, int& Day) {
    int64_t days = static_cast<int64_t>(std::trunc(Date));
    if (TimeMs(Date) >= 86400000) days += Date < 0 ? -1 : 1;
    CivilFromDays(days + kEpoch, Year, Month, Day);
}

void DecodeTime(TDateTime Time, int& Hour, int& Min, int& Sec, int& MSec) {
    int64_t ms = TimeMs(Time) % 86400000;
    MSec = static_cast<int>(ms % 1000);
    Sec = static_cast<int>(ms / 1000 % 60);
    Min = static_cast<int>(ms / 60000 % 60);
    Hour = static_cast<int>(ms / 3600000);
}

std::string DateToStr(TDateTime Date) {
    int y, m, d;
    DecodeDate(Date, y, m, d);
    char buf[32];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d", y, m, d);
    return buf;
}

std::string TimeToStr(TDateTime Time) {
    int h, n, s, z;
    DecodeTime(Time, h, n, s, z);
    char buf[32];
    if (z)
        std::snprintf(buf, sizeof buf, "%02d:%02d:%02d.%03d", h, n, s, z);
    else
        std::snprintf(buf, sizeof buf, "%02d:%02d:%02d", h, n, s);
    return buf;
}

std::string DateTimeToStr(TDateTime DateTime) {
    return DateToStr(DateTime) + " " + TimeToStr(DateTime);
}

bool TryStrToDateTime(std::string_view S, TDateTime& Value) {
    std::string s = rtl::Trim(S);
    int y = 0, mo = 0, d = 0, h = 0, mi = 0, sec = 0, ms = 0;
    size_t pos = 0;
    auto num = [&](int digitsMin, int digitsMax, int& out) {
        size_t start = pos;
        while (pos < s.size() && pos - start < static_cast<size_t>(digitsMax) && s[pos] >= '0' &&
               s[pos] <= '9')
            out = out * 10 + (s[pos++] - '0');
        return pos - start >= static_cast<size_t>(digitsMin);
    };
    bool hasDate = false, hasTime = false;
    size_t save = pos;
    if (num(4, 4, y) && pos < s.size() && s[pos] == '-') {
        ++pos;
        if (!num(1, 2, mo) || pos >= s.size() || s[pos] != '-') return false;
        ++pos;
        if (!num(1, 2, d)) return false;
        hasDate = true;
        if (pos < s.size() && (s[pos] == ' ' || s[pos] == 'T'))
            ++pos;
        else if (pos != s.size())
            return false;
    } else {
        pos = save;
        y = 0;
    }
    if (pos < s.size()) {
        if (!num(1, 2, h) || pos >= s.size() || s[pos] != ':') return false;
        ++pos;
        if (!num(1, 2, mi)) return false;
        if (pos < s.size() && s[pos] == ':') {
            ++pos;
            if (!num(1, 2, sec)) return false;
            if (pos < s.size() && s[pos] == '.') {
                ++pos;
                size_t start = pos;
                int frac = 0;
                if (!num(1, 3, frac)) return false;
                for (size_t k = pos - start; k < 3; ++k)
                    frac *= 10;
                ms = frac;
                while (pos < s.size() && s[pos] >= '0' && s[pos] <= '9')
                    ++pos; // finer digits dropped
            }
        }
        if (pos != s.size()) return false;
        hasTime = true;
    }
    if (!hasDate && !hasTime) return false;
    try {
        double date = hasDate ? EncodeDate(y, mo, d) : 0;
        double time = hasTime ? EncodeTime(h, mi, sec, ms) : 0;
        Value = date >= 0 ? date + time : date - time;
        return true;
    } catch (const EConvertError&) {
        return false;
    }
}

TDateTime StrToDateTime(std::string_view S) {
    TDateTime v;
    if (!TryStrToDateTime(S, v))
        throw EConvertError(rtl::Format("'%s' is not a valid date and time", {std::string(S)}));
    return v;
}

std::string FieldTypeName(TFieldType t) {
    std::string n = rtl::GetEnumName(TypeInfoOf(static_cast<TFieldType*>(nullptr)), t);
    return n.size() > 2 ? n.substr(2) : n;
}

} // namespace db
