// Dates as TDateTime values, the date picker's text formats, date and time pickers and month calendars.
#include <chrono>
#include <cmath>
#include <ctime>

#include "publish.h"
#include "vcl/comctrls.h"

namespace vcl {

JEX_DEFINE_ENUM(TDateTimeKind)
JEX_DEFINE_ENUM(TDTDateMode)
JEX_DEFINE_ENUM(TDTDateFormat)
JEX_DEFINE_ENUM(TDTCalAlignment)
JEX_DEFINE_ENUM(TCalDayOfWeek)

namespace {
using namespace std::chrono;
constexpr sys_days kEpoch = sys_days{year{1899} / December / 30};
constexpr double kMSecsPerDay = 86400000.0;

const char* const kMonthNames[] = {"January", "February", "March",     "April",   "May",      "June",
                                   "July",    "August",   "September", "October", "November", "December"};
const char* const kDayNames[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                 "Thursday", "Friday", "Saturday"};

int64_t DayOf(TDateTime v) {
    return static_cast<int64_t>(std::trunc(v));
}

// Milliseconds into the day; the fraction of a negative value counts forward from its day as well.
int64_t MSecOf(TDateTime v) {
    double frac = std::fabs(v - std::trunc(v));
    auto ms = static_cast<int64_t>(std::llround(frac * kMSecsPerDay));
    return std::min<int64_t>(ms, 86399999);
}

TDateTime Combine(int64_t day, int64_t msec) {
    double f = static_cast<double>(msec) / kMSecsPerDay;
    return day < 0 ? static_cast<double>(day) - f : static_cast<double>(day) + f;
}

// Format tokens: a run of one letter, or a quoted literal.
struct TToken {
    char Letter = 0; // 0 for literal text
    int Count = 0;
    std::string Text;
};

std::vector<TToken> Tokenize(const std::string& f) {
    std::vector<TToken> r;
    for (size_t i = 0; i < f.size();) {
        char c = f[i];
        if (c == '\'') {
            size_t end = f.find('\'', i + 1);
            std::string lit = f.substr(i + 1, end == std::string::npos ? std::string::npos : end - i - 1);
            if (lit.empty() && end != std::string::npos) lit = "'"; // '' is a quote
            r.push_back({0, 0, lit});
            i = end == std::string::npos ? f.size() : end + 1;
        } else if (std::string_view("dMyhHmst").find(c) != std::string_view::npos) {
            size_t j = i;
            while (j < f.size() && f[j] == c)
                ++j;
            r.push_back({c, static_cast<int>(j - i), {}});
            i = j;
        } else {
            r.push_back({0, 0, std::string(1, c)});
            ++i;
        }
    }
    return r;
}

std::string Pad(int v, int width) {
    std::string s = std::to_string(v);
    while (static_cast<int>(s.size()) < width)
        s.insert(s.begin(), '0');
    return s;
}

bool StartsWithNoCase(const std::string& text, size_t pos, const std::string& word) {
    return text.size() - pos >= word.size() && rtl::SameText(text.substr(pos, word.size()), word);
}
} // namespace

TDateTime EncodeDate(int Year, int Month, int Day) {
    year_month_day ymd{year{Year}, month{static_cast<unsigned>(Month)}, day{static_cast<unsigned>(Day)}};
    if (Year < 1 || Year > 9999 || Month < 1 || Month > 12 || Day < 1 || !ymd.ok())
        throw rtl::EConvertError("Invalid argument to date encode");
    return static_cast<double>((sys_days{ymd} - kEpoch).count());
}

void DecodeDate(TDateTime Date, int& Year, int& Month, int& Day) {
    year_month_day ymd{kEpoch + days{DayOf(Date)}};
    Year = static_cast<int>(ymd.year());
    Month = static_cast<int>(static_cast<unsigned>(ymd.month()));
    Day = static_cast<int>(static_cast<unsigned>(ymd.day()));
}

TDateTime EncodeTime(int Hour, int Min, int Sec, int MSec) {
    if (Hour < 0 || Hour > 23 || Min < 0 || Min > 59 || Sec < 0 || Sec > 59 || MSec < 0 || MSec > 999)
        throw rtl::EConvertError("Invalid argument to time encode");
    return ((Hour * 60 + Min) * 60 + Sec) * 1000.0 / kMSecsPerDay + MSec / kMSecsPerDay;
}

void DecodeTime(TDateTime Time, int& Hour, int& Min, int& Sec, int& MSec) {
    int64_t ms = MSecOf(Time);
    MSec = static_cast<int>(ms % 1000);
    Sec = static_cast<int>(ms / 1000 % 60);
    Min = static_cast<int>(ms / 60000 % 60);
    Hour = static_cast<int>(ms / 3600000);
}

TDateTime Now() {
    std::time_t t = std::time(nullptr);
    std::tm tm{};
    localtime_r(&t, &tm);
    return EncodeDate(tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday) +
           EncodeTime(tm.tm_hour, tm.tm_min, tm.tm_sec);
}

std::string FormatPickerDateTime(const std::string& Format, TDateTime Value) {
    int y, mo, d, h, mi, s, ms;
    DecodeDate(Value, y, mo, d);
    DecodeTime(Value, h, mi, s, ms);
    int64_t dow = ((DayOf(Value) % 7) + 7 + 6) % 7; // 1899-12-30 was a Saturday
    std::string out;
    for (const TToken& t : Tokenize(Format)) {
        int n = t.Count;
        switch (t.Letter) {
        case 0:
            out += t.Text;
            break;
        case 'd':
            out += n >= 4 ? kDayNames[dow] : n == 3 ? std::string(kDayNames[dow], 3) : Pad(d, n);
            break;
        case 'M':
            out += n >= 4 ? kMonthNames[mo - 1] : n == 3 ? std::string(kMonthNames[mo - 1], 3) : Pad(mo, n);
            break;
        case 'y':
            out += n == 1 ? std::to_string(y % 10) : n == 2 ? Pad(y % 100, 2) : Pad(y, 4);
            break;
        case 'h':
            out += Pad(h % 12 == 0 ? 12 : h % 12, std::min(n, 2));
            break;
        case 'H':
            out += Pad(h, std::min(n, 2));
            break;
        case 'm':
            out += Pad(mi, std::min(n, 2));
            break;
        case 's':
            out += Pad(s, std::min(n, 2));
            break;
        case 't':
            out += n == 1 ? (h < 12 ? "A" : "P") : (h < 12 ? "AM" : "PM");
            break;
        }
    }
    return out;
}

bool ParsePickerDateTime(const std::string& Format, const std::string& Text, TDateTime& Value) {
    int y, mo, d, h, mi, s, ms;
    DecodeDate(Value, y, mo, d);
    DecodeTime(Value, h, mi, s, ms);
    int pm = -1; // -1: no AM/PM marker
    bool hour12 = false;
    size_t pos = 0;
    auto number = [&](int maxDigits, int& out) {
        size_t start = pos;
        while (pos < Text.size() && pos - start < static_cast<size_t>(maxDigits) && Text[pos] >= '0' &&
               Text[pos] <= '9')
            ++pos;
        if (pos == start) return false;
        out = std::stoi(Text.substr(start, pos - start));
        return true;
    };
    auto name = [&](const char* const* names, int count, bool abbreviated, int& out) {
        // Longest first, so that "June" is not read as "Jun" followed by "e".
        for (int pass = abbreviated ? 1 : 0; pass < 2; ++pass)
            for (int i = 0; i < count; ++i) {
                std::string w = pass == 0 ? names[i] : std::string(names[i], 3);
                if (StartsWithNoCase(Text, pos, w)) {
                    pos += w.size();
                    out = i;
                    return true;
                }
            }
        return false;
    };
    for (const TToken& t : Tokenize(Format)) {
        int n = t.Count, ignored = 0;
        bool ok = true;
        switch (t.Letter) {
        case 0:
            ok = t.Text == " " ? true : StartsWithNoCase(Text, pos, t.Text);
            if (t.Text == " ") {
                while (pos < Text.size() && Text[pos] == ' ')
                    ++pos;
            } else if (ok) {
                pos += t.Text.size();
            }
            break;
        case 'd':
            ok = n >= 3 ? name(kDayNames, 7, n == 3, ignored) : number(2, d);
            break;
        case 'M':
            if (n >= 3) {
                ok = name(kMonthNames, 12, n == 3, mo);
                ++mo;
            } else {
                ok = number(2, mo);
            }
            break;
        case 'y':
            ok = number(n <= 2 ? 2 : 4, y);
            // Two-digit years fall within 50 years of 2000, as the platform's century window does.
            if (ok && n <= 2) y += y < 50 ? 2000 : 1900;
            break;
        case 'h':
            ok = number(2, h);
            hour12 = true;
            break;
        case 'H':
            ok = number(2, h);
            break;
        case 'm':
            ok = number(2, mi);
            break;
        case 's':
            ok = number(2, s);
            break;
        case 't':
            if (StartsWithNoCase(Text, pos, n == 1 ? "A" : "AM")) {
                pm = 0;
                pos += n == 1 ? 1 : 2;
            } else if (StartsWithNoCase(Text, pos, n == 1 ? "P" : "PM")) {
                pm = 1;
                pos += n == 1 ? 1 : 2;
            } else {
                ok = false;
            }
            break;
        }
        if (!ok) return false;
    }
    if (pos != Text.size()) return false;
    if (hour12) {
        if (h < 1 || h > 12) return false;
        if (pm >= 0) h = h % 12 + (pm == 1 ? 12 : 0);
    }
    try {
        TDateTime date = EncodeDate(y, mo, d);
        TDateTime time = EncodeTime(h, mi, s, ms);
        Value = Combine(DayOf(date), MSecOf(time));
    } catch (const rtl::EConvertError&) {
        return false;
    }
    return true;
}

// ---- TDateTimePicker ----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TDateTimePicker, TWinControl, "ComCtrls") {
    pub::Anchors(d);
    d.Property("CalAlignment", &TDateTimePicker::CalAlignment, &TDateTimePicker::SetCalAlignment)
        .Default(dtaLeft);
    d.Property("Date", &TDateTimePicker::Date, &TDateTimePicker::SetDate, rtl::TypeInfo_TDate());
    d.Property("Time", &TDateTimePicker::Time, &TDateTimePicker::SetTime, rtl::TypeInfo_TTime());
    d.Property("ShowCheckbox", &TDateTimePicker::ShowCheckbox, &TDateTimePicker::SetShowCheckbox)
        .Default(false);
    d.Property("Checked", &TDateTimePicker::Checked, &TDateTimePicker::SetChecked).Default(true);
    pub::Color(d, clWindow);
    d.Property("DateFormat", &TDateTimePicker::DateFormat, &TDateTimePicker::SetDateFormat).Default(dfShort);
    d.Property("DateMode", &TDateTimePicker::DateMode, &TDateTimePicker::SetDateMode).Default(dmComboBox);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("Format", &TDateTimePicker::Format, &TDateTimePicker::SetFormat);
    d.Property("Kind", &TDateTimePicker::Kind, &TDateTimePicker::SetKind).Default(dtkDate);
    d.Property("MaxDate", &TDateTimePicker::MaxDate, &TDateTimePicker::SetMaxDate, rtl::TypeInfo_TDate())
        .Stored(&TDateTimePicker::HasMaxDate);
    d.Property("MinDate", &TDateTimePicker::MinDate, &TDateTimePicker::SetMinDate, rtl::TypeInfo_TDate())
        .Stored(&TDateTimePicker::HasMinDate);
    pub::ParentColor(d, false);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
    d.Event("OnChange", &TDateTimePicker::OnChange);
    pub::OnClick(d);
    d.Event("OnCloseUp", &TDateTimePicker::OnCloseUp);
    d.Event("OnDropDown", &TDateTimePicker::OnDropDown);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
}

TDateTimePicker::TDateTimePicker(TComponent* AOwner) : TWinControl(AOwner), FDateTime(vcl::Now()) {
    FWidth = 186;
    FHeight = 21;
    FTabStop = true;
    FColor = clWindow;
}

TDateTime TDateTimePicker::Clamp(TDateTime v) const {
    if (IsLoading()) return v;
    if (FMinDate != 0 && DayOf(v) < DayOf(FMinDate)) v = Combine(DayOf(FMinDate), MSecOf(v));
    if (FMaxDate != 0 && DayOf(v) > DayOf(FMaxDate)) v = Combine(DayOf(FMaxDate), MSecOf(v));
    return v;
}

void TDateTimePicker::SetDateTime(TDateTime v) {
    FDateTime = Clamp(v);
}

TDateTime TDateTimePicker::Date() const {
    return static_cast<double>(DayOf(FDateTime));
}

void TDateTimePicker::SetDate(TDateTime v) {
    SetDateTime(Combine(DayOf(v), MSecOf(FDateTime)));
}

TDateTime TDateTimePicker::Time() const {
    return Combine(0, MSecOf(FDateTime));
}

void TDateTimePicker::SetTime(TDateTime v) {
    SetDateTime(Combine(DayOf(FDateTime), MSecOf(v)));
}

void TDateTimePicker::SetMinDate(TDateTime v) {
    if (!IsLoading() && v != 0 && FMaxDate != 0 && DayOf(v) > DayOf(FMaxDate))
        throw rtl::EInvalidOperation("MinDate must not be after MaxDate");
    FMinDate = v == 0 ? 0 : static_cast<double>(DayOf(v));
    FDateTime = Clamp(FDateTime);
}

void TDateTimePicker::SetMaxDate(TDateTime v) {
    if (!IsLoading() && v != 0 && FMinDate != 0 && DayOf(v) < DayOf(FMinDate))
        throw rtl::EInvalidOperation("MaxDate must not be before MinDate");
    FMaxDate = v == 0 ? 0 : static_cast<double>(DayOf(v));
    FDateTime = Clamp(FDateTime);
}

void TDateTimePicker::SetChecked(bool v) {
    FChecked = v;
}

std::string TDateTimePicker::DisplayFormat() const {
    if (!FFormat.empty()) return FFormat;
    if (FKind == dtkTime) return "HH:mm:ss";
    return FDateFormat == dfShort ? "yyyy-MM-dd" : "dddd, MMMM d, yyyy";
}

std::string TDateTimePicker::GetText() const {
    return FormatPickerDateTime(DisplayFormat(), FDateTime);
}

void TDateTimePicker::UserType(const std::string& Text) {
    TDateTime v = FDateTime;
    bool ok = ParsePickerDateTime(DisplayFormat(), Text, v);
    if (!ok && FKind == dtkDate) ok = ParsePickerDateTime("yyyy-MM-dd", Text, v);
    if (!ok && FKind == dtkTime)
        ok = ParsePickerDateTime("HH:mm:ss", Text, v) || ParsePickerDateTime("HH:mm", Text, v);
    if (!ok) throw EUserActionError("'" + Text + "' is not a valid " + (FKind == dtkDate ? "date" : "time"));
    if (Clamp(v) != v) throw EUserActionError("'" + Text + "' is outside the dates '" + Name() + "' allows");
    FDateTime = v;
    if (FShowCheckbox) FChecked = true;
    OnChange(this);
}

void TDateTimePicker::UserCheck(bool Checked) {
    if (!FShowCheckbox) throw EUserActionError("'" + Name() + "' has no check box");
    if (Checked == FChecked) return;
    FChecked = Checked;
    OnChange(this);
}

void TDateTimePicker::Describe(TControlDesc& d) const {
    TWinControl::Describe(d);
    if (FShowCheckbox) d.Checked = FChecked;
}

// ---- TMonthCalendar -----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TMonthCalendar, TWinControl, "ComCtrls") {
    pub::Align(d);
    pub::Anchors(d);
    pub::Color(d, clWindow);
    d.Property("Date", &TMonthCalendar::Date, &TMonthCalendar::SetDate, rtl::TypeInfo_TDate());
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    d.Property("EndDate", &TMonthCalendar::EndDate, &TMonthCalendar::SetEndDate, rtl::TypeInfo_TDate())
        .Stored(&TMonthCalendar::MultiSelect);
    d.Property("FirstDayOfWeek", &TMonthCalendar::FirstDayOfWeek, &TMonthCalendar::SetFirstDayOfWeek)
        .Default(dowLocaleDefault);
    pub::Font(d);
    d.Property("MaxDate", &TMonthCalendar::MaxDate, &TMonthCalendar::SetMaxDate, rtl::TypeInfo_TDate())
        .Stored(&TMonthCalendar::HasMaxDate);
    d.Property("MinDate", &TMonthCalendar::MinDate, &TMonthCalendar::SetMinDate, rtl::TypeInfo_TDate())
        .Stored(&TMonthCalendar::HasMinDate);
    d.Property("MultiSelect", &TMonthCalendar::MultiSelect, &TMonthCalendar::SetMultiSelect).Default(false);
    pub::ParentColor(d, false);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("ShowToday", &TMonthCalendar::ShowToday, &TMonthCalendar::SetShowToday).Default(true);
    d.Property("ShowTodayCircle", &TMonthCalendar::ShowTodayCircle, &TMonthCalendar::SetShowTodayCircle)
        .Default(true);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
    d.Property("WeekNumbers", &TMonthCalendar::WeekNumbers, &TMonthCalendar::SetWeekNumbers).Default(false);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

TMonthCalendar::TMonthCalendar(TComponent* AOwner) : TWinControl(AOwner) {
    FDate = FEndDate = static_cast<double>(DayOf(vcl::Now()));
    FWidth = 191;
    FHeight = 154;
    FTabStop = true;
    FColor = clWindow;
}

void TMonthCalendar::SetDate(TDateTime v) {
    double day = static_cast<double>(DayOf(v));
    if (!IsLoading()) {
        if (FMinDate != 0 && day < FMinDate) day = DayOf(FMinDate);
        if (FMaxDate != 0 && day > FMaxDate) day = DayOf(FMaxDate);
    }
    FDate = day;
    if (!FMultiSelect || FEndDate < FDate) FEndDate = FDate;
}

void TMonthCalendar::SetEndDate(TDateTime v) {
    double day = static_cast<double>(DayOf(v));
    FEndDate = FMultiSelect && day >= FDate ? day : FDate;
    if (IsLoading()) FEndDate = day;
}

void TMonthCalendar::UserPick(TDateTime v) {
    double day = static_cast<double>(DayOf(v));
    if ((FMinDate != 0 && day < DayOf(FMinDate)) || (FMaxDate != 0 && day > DayOf(FMaxDate)))
        throw EUserActionError("'" + FormatPickerDateTime("yyyy-MM-dd", day) + "' is outside the dates '" +
                               Name() + "' allows");
    FDate = FEndDate = day;
    Click();
}

void TMonthCalendar::UserSelect(int Index) {
    int y, m, d;
    DecodeDate(FDate, y, m, d);
    TDateTime v;
    try {
        v = EncodeDate(y, m, Index);
    } catch (const rtl::EConvertError&) {
        throw EUserActionError("'" + Name() + "' shows no day " + std::to_string(Index));
    }
    UserPick(v);
}

void TMonthCalendar::UserSelectText(const std::string& Text) {
    TDateTime v = FDate;
    if (!ParsePickerDateTime("yyyy-MM-dd", Text, v))
        throw EUserActionError("'" + Text + "' is not a valid date");
    UserPick(v);
}

void TMonthCalendar::Describe(TControlDesc& d) const {
    TWinControl::Describe(d);
    d.Caption = FormatPickerDateTime("yyyy-MM-dd", FDate);
    int y, m, day;
    DecodeDate(FDate, y, m, day);
    d.Value = day;
    d.MinValue = 1;
    d.MaxValue = static_cast<int>(
        static_cast<unsigned>(year_month_day_last{year{y} / month{static_cast<unsigned>(m)} / last}.day()));
}

} // namespace vcl
