// The library's labels, the version resource convention they read, and date/time formatting.
#include "jex/jexlabels.h"

#include <cctype>
#include <chrono>
#include <cmath>
#include <cstring>
#include <ctime>

#include "jexpublish.h"
#include "rtl/resources.h"
#include "vcl/menus.h"
#include "vcl/uiservice.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexLabelBorderStyle)
JEX_DEFINE_ENUM(TjexCurrFractionFormat)
JEX_DEFINE_ENUM(TjexAutoLabelLayout)
JEX_DEFINE_ENUM(TjexEditLabelLayout)

// ---- Version resources -----------------------------------------------------------------------------------
namespace {
constexpr const char* kRelease = "6.0.1";
constexpr const char* kEdition = "Vantor Edition";
// jexc60's own version information.
constexpr const char kLibraryVersionInfo[] = "CompanyName=Quentrel\n"
                                             "FileDescription=Jex 6 run-time component library\n"
                                             "FileVersion=6.0.1.0\n"
                                             "InternalName=jexc60\n"
                                             "LegalCopyright=Copyright Quentrel\n"
                                             "OriginalFilename=libjexc60.so\n"
                                             "ProductName=Jex 6\n"
                                             "ProductVersion=6.0.1\n";
// Resources are declared while the module initialises, as the resource table expects.
[[maybe_unused]] const bool kVersionInfoAdded =
    jexThisModule().AddRawData(jexVersionResourceName, kLibraryVersionInfo, sizeof(kLibraryVersionInfo) - 1);
} // namespace

bool jexReadVersionInfo(rtl::TResourceModule& Module, rtl::TStrings* Values) {
    if (!Values) return false;
    Values->Clear();
    const std::vector<uint8_t>* data = rtl::FindRawResource(Module, jexVersionResourceName);
    if (!data) return false;
    Values->SetText(std::string_view(reinterpret_cast<const char*>(data->data()), data->size()));
    return true;
}

std::string jexVersionValue(rtl::TResourceModule& Module, const std::string& Key) {
    rtl::TStringList values;
    if (!jexReadVersionInfo(Module, &values)) return {};
    for (int i = 0; i < values.Count(); ++i) {
        std::string line = values[i];
        size_t eq = line.find('=');
        if (eq != std::string::npos && rtl::SameText(rtl::Trim(line.substr(0, eq)), rtl::Trim(Key)))
            return line.substr(eq + 1);
    }
    return {};
}

std::string jexLibraryRelease() {
    return kRelease;
}

std::string jexLibraryEdition() {
    return kEdition;
}

// ---- Date and time ---------------------------------------------------------------------------------------
namespace {
// Days since 1970-01-01 for a civil date, and back (proleptic Gregorian calendar).
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
constexpr int64_t kDelphiEpochOffset = 25569; // days from 1899-12-30 to 1970-01-01

struct TParts {
    int Year, Month, Day, Hour, Min, Sec, MSec, DayOfWeek; // DayOfWeek 0 = Sunday
    bool HasTime;
};
TParts Decode(TjexDateTime dt) {
    TParts p{};
    double days = std::floor(dt);
    int64_t ms = std::llround((dt - days) * 86400000.0);
    int64_t day = static_cast<int64_t>(days);
    if (ms >= 86400000) {
        ms -= 86400000;
        ++day;
    }
    CivilFromDays(day - kDelphiEpochOffset, p.Year, p.Month, p.Day);
    p.DayOfWeek = static_cast<int>(((day + 6) % 7 + 7) % 7);
    p.Hour = static_cast<int>(ms / 3600000);
    p.Min = static_cast<int>(ms / 60000 % 60);
    p.Sec = static_cast<int>(ms / 1000 % 60);
    p.MSec = static_cast<int>(ms % 1000);
    p.HasTime = ms != 0;
    return p;
}

const char* const kShortDays[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
const char* const kLongDays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                 "Thursday", "Friday", "Saturday"};
const char* const kShortMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
const char* const kLongMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                   "July",    "August",   "September", "October", "November", "December"};
constexpr const char* kShortDateFormat = "m/d/yyyy";
constexpr const char* kLongDateFormat = "dddd, mmmm d, yyyy";
constexpr const char* kShortTimeFormat = "h:mm AMPM";
constexpr const char* kLongTimeFormat = "h:mm:ss AMPM";

std::string Pad(int v, int width) {
    std::string s = std::to_string(v);
    while (static_cast<int>(s.size()) < width)
        s.insert(s.begin(), '0');
    return s;
}

bool StartsWithNoCase(const std::string& s, size_t at, const char* what) {
    size_t n = std::strlen(what);
    return s.size() - at >= n && rtl::SameText(std::string_view(s).substr(at, n), what);
}

void FormatInto(std::string& out, const std::string& fmt, const TParts& p, int depth) {
    if (depth > 3) return;
    // 12-hour hours when an AM/PM specifier follows anywhere in the format.
    bool twelve = false;
    for (size_t i = 0; i < fmt.size(); ++i)
        if (StartsWithNoCase(fmt, i, "am/pm") || StartsWithNoCase(fmt, i, "a/p") ||
            StartsWithNoCase(fmt, i, "ampm"))
            twelve = true;
    bool lastWasHour = false;
    size_t i = 0;
    while (i < fmt.size()) {
        char c = fmt[i];
        char lc = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        size_t run = 1;
        while (i + run < fmt.size() && std::tolower(static_cast<unsigned char>(fmt[i + run])) == lc)
            ++run;
        bool hour = false;
        switch (lc) {
        case '"':
        case '\'': {
            size_t end = fmt.find(c, i + 1);
            out += fmt.substr(i + 1, end == std::string::npos ? std::string::npos : end - i - 1);
            i = end == std::string::npos ? fmt.size() : end + 1;
            continue;
        }
        case 'c':
            FormatInto(out, kShortDateFormat, p, depth + 1);
            if (p.HasTime) {
                out += ' ';
                FormatInto(out, kLongTimeFormat, p, depth + 1);
            }
            i += 1;
            continue;
        case 'd': {
            size_t n = std::min<size_t>(run, 6);
            if (n == 1)
                out += std::to_string(p.Day);
            else if (n == 2)
                out += Pad(p.Day, 2);
            else if (n == 3)
                out += kShortDays[p.DayOfWeek];
            else if (n == 4)
                out += kLongDays[p.DayOfWeek];
            else if (n == 5)
                FormatInto(out, kShortDateFormat, p, depth + 1);
            else
                FormatInto(out, kLongDateFormat, p, depth + 1);
            i += n;
            continue;
        }
        case 'm': {
            size_t n = std::min<size_t>(run, 4);
            if (lastWasHour && n <= 2)
                out += n == 1 ? std::to_string(p.Min) : Pad(p.Min, 2);
            else if (n == 1)
                out += std::to_string(p.Month);
            else if (n == 2)
                out += Pad(p.Month, 2);
            else if (n == 3)
                out += kShortMonths[p.Month - 1];
            else
                out += kLongMonths[p.Month - 1];
            i += n;
            lastWasHour = false;
            continue;
        }
        case 'y':
            out += run <= 2 ? Pad(p.Year % 100, 2) : Pad(p.Year, 4);
            i += run;
            lastWasHour = false;
            continue;
        case 'h': {
            int h = p.Hour;
            if (twelve) h = h % 12 == 0 ? 12 : h % 12;
            size_t n = std::min<size_t>(run, 2);
            out += n == 1 ? std::to_string(h) : Pad(h, 2);
            i += n;
            hour = true;
            break;
        }
        case 'n': {
            size_t n = std::min<size_t>(run, 2);
            out += n == 1 ? std::to_string(p.Min) : Pad(p.Min, 2);
            i += n;
            break;
        }
        case 's': {
            size_t n = std::min<size_t>(run, 2);
            out += n == 1 ? std::to_string(p.Sec) : Pad(p.Sec, 2);
            i += n;
            break;
        }
        case 'z': {
            size_t n = run >= 3 ? 3 : 1;
            out += n == 1 ? std::to_string(p.MSec) : Pad(p.MSec, 3);
            i += n;
            break;
        }
        case 't':
            FormatInto(out, run >= 2 ? kLongTimeFormat : kShortTimeFormat, p, depth + 1);
            i += std::min<size_t>(run, 2);
            break;
        case 'a':
            if (StartsWithNoCase(fmt, i, "am/pm")) {
                bool upper = std::isupper(static_cast<unsigned char>(fmt[i]));
                out += p.Hour < 12 ? (upper ? "AM" : "am") : (upper ? "PM" : "pm");
                i += 5;
            } else if (StartsWithNoCase(fmt, i, "a/p")) {
                bool upper = std::isupper(static_cast<unsigned char>(fmt[i]));
                out += p.Hour < 12 ? (upper ? "A" : "a") : (upper ? "P" : "p");
                i += 3;
            } else if (StartsWithNoCase(fmt, i, "ampm")) {
                out += p.Hour < 12 ? "AM" : "PM";
                i += 4;
            } else {
                out += c;
                i += 1;
            }
            break;
        case '/':
            out += '/';
            i += 1;
            continue;
        case ':':
            out += ':';
            i += 1;
            continue;
        default:
            out += c;
            i += 1;
            continue;
        }
        lastWasHour = hour;
    }
}
} // namespace

TjexDateTime jexEncodeDateTime(int Year, int Month, int Day, int Hour, int Min, int Sec, int MSec) {
    if (Month < 1 || Month > 12 || Day < 1 || Day > 31 || Hour < 0 || Hour > 23 || Min < 0 || Min > 59 ||
        Sec < 0 || Sec > 59 || MSec < 0 || MSec > 999)
        throw rtl::EConvertError("Invalid argument to date encode");
    int64_t days = DaysFromCivil(Year, static_cast<unsigned>(Month), static_cast<unsigned>(Day));
    int cy, cm, cd;
    CivilFromDays(days, cy, cm, cd);
    if (cd != Day) throw rtl::EConvertError("Invalid argument to date encode");
    return static_cast<double>(days + kDelphiEpochOffset) +
           (Hour * 3600000.0 + Min * 60000.0 + Sec * 1000.0 + MSec) / 86400000.0;
}

TjexDateTime jexNow() {
    auto now = std::chrono::system_clock::now();
    std::time_t t = std::chrono::system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&t, &local);
    int ms = static_cast<int>(
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000);
    return jexEncodeDateTime(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                             local.tm_min, std::min(local.tm_sec, 59), ms);
}

std::string jexFormatDateTime(const std::string& Format, TjexDateTime DateTime) {
    std::string out;
    FormatInto(out, Format.empty() ? std::string("c") : Format, Decode(DateTime), 0);
    return out;
}

JEX_IMPLEMENT_CLASS(TjexCustomLabel, TCustomLabel, "jexlabels") {}

// ---- Rotated label ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexRotLabel, TjexCustomLabel, "jexlabels") {
    pub::Label(d, true, true);
    d.Property("Angle", &TjexRotLabel::Angle, &TjexRotLabel::SetAngle).Default(0);
    d.Property("BorderStyle", &TjexRotLabel::BorderStyle, &TjexRotLabel::SetBorderStyle).Default(jlbNone);
    d.Property("CaptionStyle", &TjexRotLabel::CaptionStyle, &TjexRotLabel::SetCaptionStyle)
        .Default(jtsNormal);
    d.Property("RotateCenter", &TjexRotLabel::RotateCenter, &TjexRotLabel::SetRotateCenter).Default(false);
}

TjexRotLabel::TjexRotLabel(rtl::TComponent* AOwner) : TjexCustomLabel(AOwner) {}

void TjexRotLabel::SetAngle(int Value) {
    FAngle = ((Value % 360) + 360) % 360;
    AdjustRotatedBounds();
}

void TjexRotLabel::SetBorderStyle(TjexLabelBorderStyle Value) {
    FBorderStyle = Value;
    AdjustRotatedBounds();
}

void TjexRotLabel::AdjustRotatedBounds() {
    if (!AutoSize() || IsLoading()) return;
    AdjustBounds(); // the unrotated text size
    constexpr double kPi = 3.14159265358979323846;
    double a = FAngle * kPi / 180.0;
    double w = Width(), h = Height();
    int border = FBorderStyle == jlbNone ? 0 : (FBorderStyle == jlbSingle ? 1 : 2);
    int rw =
        static_cast<int>(std::lround(std::fabs(w * std::cos(a)) + std::fabs(h * std::sin(a)))) + 2 * border;
    int rh =
        static_cast<int>(std::lround(std::fabs(w * std::sin(a)) + std::fabs(h * std::cos(a)))) + 2 * border;
    SetBounds(Left(), Top(), rw, rh);
}

void TjexRotLabel::TextChanged() {
    TjexCustomLabel::TextChanged();
    AdjustRotatedBounds();
}

void TjexRotLabel::FontChanged() {
    TjexCustomLabel::FontChanged();
    AdjustRotatedBounds();
}

void TjexRotLabel::Loaded() {
    TjexCustomLabel::Loaded();
    AdjustRotatedBounds();
}

// ---- Version label ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexVersionLabel, TjexCustomLabel, "jexlabels") {
    pub::Label(d, false, true);
    d.Property("DoubleSpaced", &TjexVersionLabel::DoubleSpaced, &TjexVersionLabel::SetDoubleSpaced)
        .Default(false);
    d.Property("ModuleName", &TjexVersionLabel::ModuleName, &TjexVersionLabel::SetModuleName);
    d.Property("VersionInfo", &TjexVersionLabel::VersionInfo, &TjexVersionLabel::SetVersionInfo);
}

// The label's items: a change of one item refreshes the label at once; adding or removing items only
// marks it stale, since an item is announced from its base constructor, before its own fields exist.
class TjexVersionLabel::TItems : public TjexVersionInfoItems {
public:
    explicit TItems(TjexVersionLabel* label)
        : TjexVersionInfoItems(label, TjexVersionInfoItem::StaticClass()), FLabel(label) {}
    void Update(rtl::TCollectionItem* Item) override {
        TjexVersionInfoItems::Update(Item);
        if (Item)
            FLabel->Refresh();
        else
            FLabel->FStale = true;
    }

private:
    TjexVersionLabel* FLabel;
};

TjexVersionLabel::TjexVersionLabel(rtl::TComponent* AOwner)
    : TjexCustomLabel(AOwner), FVersionInfo(std::make_unique<TItems>(this)) {}

TjexVersionLabel::~TjexVersionLabel() = default;

void TjexVersionLabel::SetDoubleSpaced(bool Value) {
    FDoubleSpaced = Value;
    Refresh();
}

void TjexVersionLabel::SetModuleName(const std::string& Value) {
    FModuleName = Value;
    Refresh();
}

rtl::TResourceModule* TjexVersionLabel::Module() const {
    return FModuleName.empty() ? rtl::MainInstance() : rtl::FindResourceModule(FModuleName);
}

std::string TjexVersionLabel::Value(const std::string& Key) const {
    rtl::TResourceModule* module = Module();
    return module ? jexVersionValue(*module, Key) : std::string();
}

std::string TjexVersionLabel::ItemValue(int Index) const {
    if (Index < 0 || Index >= FVersionInfo->Count()) return {};
    return Value(FVersionInfo->Items(Index)->Key());
}

std::vector<std::string> TjexVersionLabel::Lines() const {
    std::vector<std::string> lines;
    for (int i = 0; i < FVersionInfo->Count(); ++i) {
        if (FDoubleSpaced && i > 0) lines.emplace_back();
        TjexVersionInfoItem* item = FVersionInfo->Items(i);
        std::string value = Value(item->Key());
        lines.push_back(item->Caption().empty() ? value : item->Caption() + " " + value);
    }
    return lines;
}

std::string TjexVersionLabel::LinesText() const {
    std::string text;
    std::vector<std::string> lines = Lines();
    for (size_t i = 0; i < lines.size(); ++i)
        text += (i ? "\r\n" : "") + lines[i];
    return text;
}

void TjexVersionLabel::Refresh() {
    if (IsLoading()) return;
    FStale = false;
    ShowText(LinesText());
}

std::string TjexVersionLabel::GetText() const {
    return FStale ? LinesText() : TjexCustomLabel::GetText();
}

void TjexVersionLabel::Loaded() {
    TjexCustomLabel::Loaded();
    Refresh();
}

// ---- Mouse, link and mail labels ---------------------------------------------------------------------
namespace {
template <class C> void PublishMouseLook(rtl::TClassDecl<C>& d) {
    d.Property("MouseDownColor", &C::MouseDownColor, &C::SetMouseDownColor, TypeInfo_TColor()).Default(clRed);
    d.Property("MouseDownEffects", &C::MouseDownEffects, &C::SetMouseDownEffects)
        .Default(TFontStyles{fsUnderline}.Bits());
    d.Property("MouseOverColor", &C::MouseOverColor, &C::SetMouseOverColor, TypeInfo_TColor())
        .Default(clBlue);
    d.Property("MouseOverEffects", &C::MouseOverEffects, &C::SetMouseOverEffects)
        .Default(TFontStyles{fsUnderline}.Bits());
    jexPublishSounds(d);
    d.Event("OnMouseEnter", &C::OnMouseEnter);
    d.Event("OnMouseLeave", &C::OnMouseLeave);
}
} // namespace

JEX_IMPLEMENT_CLASS(TjexMouseLabel, TjexCustomLabel, "jexlabels") {
    pub::Label(d, true, true);
    PublishMouseLook(d);
}

TjexMouseLabel::TjexMouseLabel(rtl::TComponent* AOwner) : TjexCustomLabel(AOwner), FSounds(this) {}

TColor TjexMouseLabel::ShownColor() const {
    if (FMousePressed) return FMouseDownColor;
    if (FMouseInControl) return FMouseOverColor;
    return Font()->Color();
}

TFontStyles TjexMouseLabel::ShownStyle() const {
    if (FMousePressed) return FMouseDownEffects;
    if (FMouseInControl) return FMouseOverEffects;
    return Font()->Style();
}

void TjexMouseLabel::MouseEnter() {
    if (FMouseInControl) return;
    FMouseInControl = true;
    if (Enabled()) FSounds.PlayOver();
    OnMouseEnter(this);
}

void TjexMouseLabel::MouseLeave() {
    if (!FMouseInControl) return;
    FMouseInControl = false;
    FMousePressed = false;
    OnMouseLeave(this);
}

void TjexMouseLabel::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (Button == mbLeft && Enabled()) {
        FMousePressed = true;
        FSounds.PlayDown();
    }
    TjexCustomLabel::MouseDown(Button, Shift, X, Y);
}

void TjexMouseLabel::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (Button == mbLeft) FMousePressed = false;
    TjexCustomLabel::MouseUp(Button, Shift, X, Y);
}

void TjexMouseLabel::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TjexCustomLabel::Notification(AComponent, Operation);
    FSounds.Notification(AComponent, Operation);
}

JEX_IMPLEMENT_CLASS(TjexURLLabel, TjexMouseLabel, "jexlabels") {
    d.Property("ShowBrowser", &TjexURLLabel::ShowBrowser, &TjexURLLabel::SetShowBrowser).Default(true);
    d.Property("URL", &TjexURLLabel::URL, &TjexURLLabel::SetURL);
}

TjexURLLabel::TjexURLLabel(rtl::TComponent* AOwner) : TjexMouseLabel(AOwner) {
    FCursor = crHandPoint;
}

std::string TjexURLLabel::TargetURL() const {
    return FURL.empty() ? StripHotkey(Caption()) : FURL;
}

bool TjexURLLabel::Open() {
    std::string target = TargetURL();
    if (target.empty()) return false;
    return vcl::ShellExecute("open", target, {}, {}, FShowBrowser ? SW_SHOWNORMAL : SW_SHOWMINIMIZED) > 32;
}

void TjexURLLabel::Click() {
    TjexMouseLabel::Click();
    Open();
}

std::string jexPercentEncode(const std::string& Text, const std::string& Keep) {
    static const char* const hex = "0123456789ABCDEF";
    std::string out;
    for (unsigned char c : Text) {
        if (std::isalnum(c) || c == '-' || c == '.' || c == '_' || c == '~' ||
            Keep.find(static_cast<char>(c)) != std::string::npos) {
            out += static_cast<char>(c);
        } else {
            out += '%';
            out += hex[c >> 4];
            out += hex[c & 15];
        }
    }
    return out;
}

JEX_IMPLEMENT_CLASS(TjexMailToLabel, TjexURLLabel, "jexlabels") {
    d.Property("Body", &TjexMailToLabel::Body, &TjexMailToLabel::SetBody);
    d.Property("MailTo", &TjexMailToLabel::MailTo, &TjexMailToLabel::SetMailTo);
    d.Property("Subject", &TjexMailToLabel::Subject, &TjexMailToLabel::SetSubject);
}

TjexMailToLabel::TjexMailToLabel(rtl::TComponent* AOwner)
    : TjexURLLabel(AOwner), FBody(std::make_unique<rtl::TStringList>()) {}

TjexMailToLabel::~TjexMailToLabel() = default;

std::string TjexMailToLabel::TargetURL() const {
    std::string url = "mailto:" + jexPercentEncode(FMailTo, "@+!$'*,;");
    std::string query;
    if (!FSubject.empty()) query += "subject=" + jexPercentEncode(FSubject);
    if (FBody->Count() > 0) {
        std::string body;
        for (int i = 0; i < FBody->Count(); ++i)
            body += (i ? "\r\n" : "") + (*FBody)[i];
        query += std::string(query.empty() ? "" : "&") + "body=" + jexPercentEncode(body);
    }
    if (!query.empty()) url += "?" + query;
    return url;
}

// ---- Multi-line label ------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexMultilineLabel, TjexCustomLabel, "jexlabels") {
    pub::Label(d, false, true);
    d.Property("Lines", &TjexMultilineLabel::Lines, &TjexMultilineLabel::SetLines);
}

TjexMultilineLabel::TjexMultilineLabel(rtl::TComponent* AOwner)
    : TjexCustomLabel(AOwner), FLines(std::make_unique<rtl::TStringList>()) {
    FLines->OnChange = [this](rtl::TObject*) {
        std::string text;
        for (int i = 0; i < FLines->Count(); ++i)
            text += (i ? "\r\n" : "") + (*FLines)[i];
        ShowText(text);
    };
}

TjexMultilineLabel::~TjexMultilineLabel() {
    FLines->OnChange = nullptr;
}

void TjexMultilineLabel::SetText(const std::string& Value) {
    FLines->SetText(Value);
}

// ---- Currency label --------------------------------------------------------------------------------------
std::string jexNumberToWords(int64_t Value) {
    static const char* const ones[] = {"Zero",    "One",     "Two",       "Three",    "Four",
                                       "Five",    "Six",     "Seven",     "Eight",    "Nine",
                                       "Ten",     "Eleven",  "Twelve",    "Thirteen", "Fourteen",
                                       "Fifteen", "Sixteen", "Seventeen", "Eighteen", "Nineteen"};
    static const char* const tens[] = {"",      "",      "Twenty",  "Thirty", "Forty",
                                       "Fifty", "Sixty", "Seventy", "Eighty", "Ninety"};
    static const char* const scales[] = {"", "Thousand", "Million", "Billion", "Trillion"};
    if (Value < 0 || Value > 999999999999999LL) throw rtl::ERangeError(rtl::SRangeError);
    if (Value == 0) return ones[0];
    auto below1000 = [&](int n) {
        std::string s;
        if (n >= 100) {
            s = std::string(ones[n / 100]) + " Hundred";
            n %= 100;
            if (n) s += ' ';
        }
        if (n >= 20) {
            s += tens[n / 10];
            if (n % 10) s += std::string("-") + ones[n % 10];
        } else if (n > 0) {
            s += ones[n];
        }
        return s;
    };
    std::string result;
    for (int scale = 4; scale >= 0; --scale) {
        int64_t unit = 1;
        for (int k = 0; k < scale; ++k)
            unit *= 1000;
        int group = static_cast<int>(Value / unit % 1000);
        if (!group) continue;
        if (!result.empty()) result += ' ';
        result += below1000(group);
        if (scale) result += std::string(" ") + scales[scale];
    }
    return result;
}

JEX_IMPLEMENT_CLASS(TjexCurrencyLabel, TjexCustomLabel, "jexlabels") {
    pub::Label(d, false, true);
    d.Property("CurrFractionFormat", &TjexCurrencyLabel::CurrFractionFormat,
               &TjexCurrencyLabel::SetCurrFractionFormat)
        .Default(jcfNumeric);
    d.Property("CurrFractionText", &TjexCurrencyLabel::CurrFractionText,
               &TjexCurrencyLabel::SetCurrFractionText);
    d.Property("CurrText", &TjexCurrencyLabel::CurrText, &TjexCurrencyLabel::SetCurrText);
    d.Property("FirstUpperCase", &TjexCurrencyLabel::FirstUpperCase, &TjexCurrencyLabel::SetFirstUpperCase)
        .Default(false);
    d.Property("HandleException", &TjexCurrencyLabel::HandleException, &TjexCurrencyLabel::SetHandleException)
        .Default(true);
    d.Property("Value", &TjexCurrencyLabel::Value, &TjexCurrencyLabel::SetValue, rtl::TypeInfo_Currency());
}

TjexCurrencyLabel::TjexCurrencyLabel(rtl::TComponent* AOwner) : TjexCustomLabel(AOwner) {
    ShowText(AmountText(0));
}

std::string TjexCurrencyLabel::AmountText(double Value) const {
    if (!std::isfinite(Value) || std::fabs(Value) >= 1e15) throw rtl::ERangeError(rtl::SRangeError);
    int64_t cents = std::llround(std::fabs(Value) * 100.0);
    int64_t whole = cents / 100;
    int fraction = static_cast<int>(cents % 100);
    std::string text = (Value < 0 && cents ? "Minus " : "") + jexNumberToWords(whole);
    if (!FCurrText.empty()) text += " " + FCurrText;
    if (FCurrFractionFormat == jcfNumeric)
        text += " and " + Pad(fraction, 2) + "/100";
    else if (FCurrFractionFormat == jcfWords)
        text +=
            " and " + jexNumberToWords(fraction) + (FCurrFractionText.empty() ? "" : " " + FCurrFractionText);
    if (FFirstUpperCase) {
        text = rtl::LowerCase(text);
        if (!text.empty()) text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    }
    return text;
}

void TjexCurrencyLabel::SetValue(double Value) {
    std::string text;
    try {
        text = AmountText(Value);
    } catch (const rtl::ERangeError&) {
        if (!FHandleException) throw;
        text = "(amount too large)";
    }
    FValue = Value;
    ShowText(text);
}

void TjexCurrencyLabel::SetCurrText(const std::string& Value) {
    FCurrText = Value;
    SetValue(FValue);
}

void TjexCurrencyLabel::SetCurrFractionText(const std::string& Value) {
    FCurrFractionText = Value;
    SetValue(FValue);
}

void TjexCurrencyLabel::SetCurrFractionFormat(TjexCurrFractionFormat Value) {
    FCurrFractionFormat = Value;
    SetValue(FValue);
}

void TjexCurrencyLabel::SetFirstUpperCase(bool Value) {
    FFirstUpperCase = Value;
    SetValue(FValue);
}

void TjexCurrencyLabel::SetHandleException(bool Value) {
    FHandleException = Value;
}

void TjexCurrencyLabel::Loaded() {
    TjexCustomLabel::Loaded();
    SetValue(FValue);
}

// ---- Clock label -----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexClockLabel, TjexCustomLabel, "jexlabels") {
    pub::Label(d, false, true);
    d.Property("Format", &TjexClockLabel::Format, &TjexClockLabel::SetFormat);
    d.Property("Interval", &TjexClockLabel::Interval, &TjexClockLabel::SetInterval).Default(1000);
    d.Event("OnTimer", &TjexClockLabel::OnTimer);
}

TjexClockLabel::TjexClockLabel(rtl::TComponent* AOwner) : TjexCustomLabel(AOwner) {
    ShowText(TextAt(jexNow()));
}

void TjexClockLabel::SetFormat(const std::string& Value) {
    FFormat = Value;
    if (!IsLoading()) ShowText(TextAt(jexNow()));
}

void TjexClockLabel::Tick() {
    ShowText(TextAt(jexNow()));
    OnTimer(this);
}

void TjexClockLabel::Loaded() {
    TjexCustomLabel::Loaded();
    ShowText(TextAt(jexNow()));
}

// ---- Margin label ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexSuperLabel, TjexCustomLabel, "jexlabels") {
    pub::Label(d, true, false);
    d.Property("BorderColor", &TjexSuperLabel::BorderColor, &TjexSuperLabel::SetBorderColor,
               TypeInfo_TColor())
        .Default(clBlack);
    d.Property("BorderStyle", &TjexSuperLabel::BorderStyle, &TjexSuperLabel::SetBorderStyle).Default(jlbNone);
    d.Property("BottomMargin", &TjexSuperLabel::BottomMargin, &TjexSuperLabel::SetBottomMargin).Default(0);
    d.Property("LeftMargin", &TjexSuperLabel::LeftMargin, &TjexSuperLabel::SetLeftMargin).Default(0);
    d.Property("RightMargin", &TjexSuperLabel::RightMargin, &TjexSuperLabel::SetRightMargin).Default(0);
    d.Property("TopMargin", &TjexSuperLabel::TopMargin, &TjexSuperLabel::SetTopMargin).Default(0);
    d.Property("VerticalAlignment", &TjexSuperLabel::VerticalAlignment, &TjexSuperLabel::SetVerticalAlignment)
        .Default(javTop);
}

void TjexSuperLabel::SetBorderStyle(TjexLabelBorderStyle Value) {
    FBorderStyle = Value;
    AdjustMarginBounds();
}

#define JEX_MARGIN_SETTER(Name, Field)                                                                       \
    void TjexSuperLabel::Set##Name(int Value) {                                                              \
        Field = std::max(0, Value);                                                                          \
        AdjustMarginBounds();                                                                                \
    }
JEX_MARGIN_SETTER(LeftMargin, FLeftMargin)
JEX_MARGIN_SETTER(TopMargin, FTopMargin)
JEX_MARGIN_SETTER(RightMargin, FRightMargin)
JEX_MARGIN_SETTER(BottomMargin, FBottomMargin)
#undef JEX_MARGIN_SETTER

TRect TjexSuperLabel::TextRect() const {
    int b = BorderWidth();
    return Rect(b + FLeftMargin, b + FTopMargin, Width() - b - FRightMargin, Height() - b - FBottomMargin);
}

void TjexSuperLabel::AdjustMarginBounds() {
    if (!AutoSize() || IsLoading()) return;
    AdjustBounds();
    int b = BorderWidth();
    SetBounds(Left(), Top(), Width() + 2 * b + FLeftMargin + FRightMargin,
              Height() + 2 * b + FTopMargin + FBottomMargin);
}

void TjexSuperLabel::TextChanged() {
    TjexCustomLabel::TextChanged();
    AdjustMarginBounds();
}

void TjexSuperLabel::FontChanged() {
    TjexCustomLabel::FontChanged();
    AdjustMarginBounds();
}

void TjexSuperLabel::Loaded() {
    TjexCustomLabel::Loaded();
    AdjustMarginBounds();
}

// ---- Automatic label -------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexAutoLabel, TjexCustomLabel, "jexlabels") {
    pub::Align(d);
    d.Property("Alignment", &TCustomLabel::Alignment, &TCustomLabel::SetAlignment).Default(taLeftJustify);
    pub::Anchors(d);
    d.Property("AutoSize", &TCustomLabel::AutoSize, &TCustomLabel::SetAutoSize).Default(true);
    d.Property("BorderColor", &TjexAutoLabel::BorderColor, &TjexAutoLabel::SetBorderColor, TypeInfo_TColor())
        .Default(clBlack);
    d.Property("BorderStyle", &TjexAutoLabel::BorderStyle, &TjexAutoLabel::SetBorderStyle).Default(jlbNone);
    pub::Caption(d);
    pub::Color(d, clBtnFace);
    pub::Enabled(d);
    d.Property("FocusControl", &TCustomLabel::FocusControl, &TjexAutoLabel::SetAutoFocusControl);
    pub::Font(d);
    d.Property("Layout", &TjexAutoLabel::Layout, &TjexAutoLabel::SetLayout).Default(jalLeft);
    pub::ParentColor(d, true);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("Separator", &TjexAutoLabel::Separator, &TjexAutoLabel::SetSeparator);
    d.Property("ShowAccelChar", &TCustomLabel::ShowAccelChar, &TCustomLabel::SetShowAccelChar).Default(true);
    pub::ShowHint(d);
    d.Property("TextStyle", &TjexAutoLabel::TextStyle, &TjexAutoLabel::SetTextStyle).Default(jtsNormal);
    d.Property("Transparent", &TCustomLabel::Transparent, &TCustomLabel::SetTransparent).Default(false);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnMouse(d);
}

std::string TjexAutoLabel::NameToWords(const std::string& Name) {
    // A lower-case type prefix ("edt", "cbo") is left out; capitals and digits start new words.
    size_t start = 0;
    while (start < Name.size() && std::islower(static_cast<unsigned char>(Name[start])))
        ++start;
    if (start == Name.size()) start = 0;
    std::string words;
    for (size_t i = start; i < Name.size(); ++i) {
        unsigned char c = static_cast<unsigned char>(Name[i]);
        if (c == '_') {
            if (!words.empty() && words.back() != ' ') words += ' ';
            continue;
        }
        bool boundary =
            i > start &&
            (std::isupper(c) || (std::isdigit(c) && !std::isdigit(static_cast<unsigned char>(Name[i - 1]))));
        if (boundary && !words.empty() && words.back() != ' ') words += ' ';
        words += static_cast<char>(words.empty() ? std::toupper(c) : c);
    }
    return words;
}

std::string TjexAutoLabel::ShownText() const {
    if (!Caption().empty() || !FocusControl()) return Caption();
    return NameToWords(FocusControl()->Name()) + FSeparator;
}

void TjexAutoLabel::SetLayout(TjexAutoLabelLayout Value) {
    FLayout = Value;
    PlaceByControl();
}

void TjexAutoLabel::SetSeparator(const std::string& Value) {
    FSeparator = Value;
}

void TjexAutoLabel::SetAutoFocusControl(TWinControl* Value) {
    SetFocusControl(Value);
    PlaceByControl();
}

void TjexAutoLabel::PlaceByControl() {
    TWinControl* c = FocusControl();
    if (!c || IsLoading() || FLayout == jalNone || Align() != alNone || c->Parent() != Parent()) return;
    std::string text = ShownText();
    int w = AutoSize() ? TextWidthOf(Font(), StripHotkey(text)) : Width();
    int h = AutoSize() ? TextHeightOf(Font()) : Height();
    if (FLayout == jalLeft)
        SetBounds(c->Left() - w - 4, c->Top() + (c->Height() - h) / 2, w, h);
    else
        SetBounds(c->Left(), c->Top() - h - 2, w, h);
}

void TjexAutoLabel::Describe(TControlDesc& d) const {
    TjexCustomLabel::Describe(d);
    d.Caption = ShownText();
}

void TjexAutoLabel::Loaded() {
    TjexCustomLabel::Loaded();
}

// ---- Edit label ------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomEditLabel, TCustomControl, "jexlabels") {}

TjexCustomEditLabel::TjexCustomEditLabel(rtl::TComponent* AOwner) : TCustomControl(AOwner) {
    FControlStyle.Exclude(csAcceptsControls);
    FColor = clBtnFace;
    FTabStop = true;
    FWidth = 185;
    FHeight = 21;
    // The parts are the control's own: owned by it, so form files never list them.
    FLabel = new TLabel(this);
    FLabel->SetAutoSize(false);
    FLabel->SetParent(this);
    FEdit = new TEdit(this);
    FEdit->SetParent(this);
    FEdit->OnChange = [this](rtl::TObject*) { OnChange(this); };
    ArrangeParts();
}

#define JEX_EDITLABEL_SETTER(Name, Field)                                                                    \
    void TjexCustomEditLabel::Set##Name(int Value) {                                                         \
        Field = Value;                                                                                       \
        ArrangeParts();                                                                                      \
    }
JEX_EDITLABEL_SETTER(LabelWidth, FLabelWidth)
JEX_EDITLABEL_SETTER(LabelHeight, FLabelHeight)
JEX_EDITLABEL_SETTER(LabelOffsetX, FLabelOffsetX)
JEX_EDITLABEL_SETTER(LabelOffsetY, FLabelOffsetY)
#undef JEX_EDITLABEL_SETTER

void TjexCustomEditLabel::SetLayout(TjexEditLabelLayout Value) {
    FLayout = Value;
    ArrangeParts();
}

void TjexCustomEditLabel::ArrangeParts() {
    int lw = std::max(0, FLabelWidth), lh = std::max(0, FLabelHeight);
    if (FLayout == jelLeft) {
        FLabel->SetBounds(0, FLabelOffsetY, lw, lh);
        int x = lw + FLabelOffsetX;
        FEdit->SetBounds(x, 0, std::max(0, Width() - x), Height());
    } else {
        FLabel->SetBounds(FLabelOffsetX, 0, lw, lh);
        int y = lh + FLabelOffsetY;
        FEdit->SetBounds(0, y, Width(), std::max(0, Height() - y));
    }
}

void TjexCustomEditLabel::Resize() {
    TCustomControl::Resize();
    ArrangeParts();
}

void TjexCustomEditLabel::UserType(const std::string& Text) {
    FEdit->EnterText(Text);
}

void TjexCustomEditLabel::Describe(TControlDesc& d) const {
    TCustomControl::Describe(d);
    d.Caption = FLabel->Caption();
    d.ReadOnly = FEdit->ReadOnly();
}

JEX_IMPLEMENT_CLASS(TjexEditLabel, TjexCustomEditLabel, "jexlabels") {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("Caption", &TjexEditLabel::LabelCaption, &TjexEditLabel::SetLabelCaption, TypeInfo_TCaption());
    pub::Color(d, clBtnFace);
    d.Property("EditColor", &TjexEditLabel::EditColor, &TjexEditLabel::SetEditColor, TypeInfo_TColor())
        .Default(clWindow)
        .Stored(&TjexEditLabel::IsEditColorStored);
    d.Property("EditFont", &TjexEditLabel::EditFont, &TjexEditLabel::SetEditFont)
        .Stored(&TjexEditLabel::IsEditFontStored);
    d.Property("EditParentColor", &TjexEditLabel::EditParentColor, &TjexEditLabel::SetEditParentColor)
        .Default(false);
    d.Property("EditParentFont", &TjexEditLabel::EditParentFont, &TjexEditLabel::SetEditParentFont)
        .Default(true);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("LabelFont", &TjexEditLabel::LabelFont, &TjexEditLabel::SetLabelFont)
        .Stored(&TjexEditLabel::IsLabelFontStored);
    d.Property("LabelHeight", &TjexEditLabel::LabelHeight, &TjexEditLabel::SetLabelHeight).Default(17);
    d.Property("LabelOffsetX", &TjexEditLabel::LabelOffsetX, &TjexEditLabel::SetLabelOffsetX).Default(4);
    d.Property("LabelOffsetY", &TjexEditLabel::LabelOffsetY, &TjexEditLabel::SetLabelOffsetY).Default(3);
    d.Property("LabelParentFont", &TjexEditLabel::LabelParentFont, &TjexEditLabel::SetLabelParentFont)
        .Default(true);
    d.Property("LabelWidth", &TjexEditLabel::LabelWidth, &TjexEditLabel::SetLabelWidth).Default(60);
    d.Property("Layout", &TjexEditLabel::Layout, &TjexEditLabel::SetLayout).Default(jelLeft);
    d.Property("MaxLength", &TjexEditLabel::MaxLength, &TjexEditLabel::SetMaxLength).Default(0);
    pub::ParentColor(d, false);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &TjexEditLabel::ReadOnly, &TjexEditLabel::SetReadOnly).Default(false);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    d.Property("Text", &TjexEditLabel::EditText, &TjexEditLabel::SetEditText, TypeInfo_TCaption());
    pub::Visible(d);
    d.Event("OnChange", &TjexEditLabel::OnChange);
    pub::OnClick(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
}

static const TjexLibraryUnit<TjexRotLabel, TjexVersionLabel, TjexURLLabel, TjexMailToLabel,
                             TjexMultilineLabel, TjexCurrencyLabel, TjexMouseLabel, TjexClockLabel,
                             TjexSuperLabel, TjexAutoLabel, TjexEditLabel>
    jexlabelsUnit("jexlabels");

} // namespace jex
