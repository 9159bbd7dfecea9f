// Utility components: idle timeout, caption gradient, single instance, launcher, form saver and sizer,
// stop watch, document-area scrolling, message hook and tray icon.
#include "jex/jexutils.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <fstream>

#include "jex/jexdock.h"
#include "jexpanelpub.h"
#include "rtl/inifiles.h"
#include "vcl/dialogs.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexLaunchType)
JEX_DEFINE_ENUM(TjexWeekDay)
JEX_DEFINE_ENUM(TjexLauncherCheck)
JEX_DEFINE_SET(TjexLauncherChecks, TjexLauncherCheck)
JEX_DEFINE_ENUM(TjexFormSaverOption)
JEX_DEFINE_SET(TjexFormSaverOptions, TjexFormSaverOption)
JEX_DEFINE_ENUM(TjexInitialFormPos)
JEX_DEFINE_ENUM(TjexInitialFormSize)
JEX_DEFINE_ENUM(TjexLogWhen)
JEX_DEFINE_SET(TjexLogWhens, TjexLogWhen)
JEX_DEFINE_EVENT_TYPE(TjexMessageEvent, "Sender: TObject; var Msg: TMessage; var Handled: Boolean")

// ---- Idle timeout ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexIdleTimeout, rtl::TComponent, "jexutils") {
    d.Property("Enabled", &TjexIdleTimeout::Enabled, &TjexIdleTimeout::SetEnabled).Default(true);
    d.Property("Interval", &TjexIdleTimeout::Interval, &TjexIdleTimeout::SetInterval).Default(300000);
    d.Event("OnTimeout", &TjexIdleTimeout::OnTimeout);
}

TjexIdleTimeout::TjexIdleTimeout(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner), FAlive(std::make_shared<bool>(true)) {}

TjexIdleTimeout::~TjexIdleTimeout() {
    *FAlive = false;
}

void TjexIdleTimeout::SetEnabled(bool Value) {
    if (Value && !FEnabled) Activity();
    FEnabled = Value;
}

void TjexIdleTimeout::Activity(TjexClock::time_point Now) {
    FLast = Now;
    FFired = false;
}

bool TjexIdleTimeout::CheckIdle(TjexClock::time_point Now) {
    if (!FEnabled || FFired || Now - FLast < std::chrono::milliseconds(FInterval)) return false;
    FFired = true;
    OnTimeout(this);
    return true;
}

void TjexIdleTimeout::Loaded() {
    rtl::TComponent::Loaded();
    if (IsDesigning()) return;
    Activity();
    if (auto* form = dynamic_cast<TCustomForm*>(Owner())) {
        pubx::ChainEvent(form->OnKeyDown, FAlive,
                         [this](rtl::TObject*, uint16_t&, TShiftState) { Activity(); });
        pubx::ChainEvent(form->OnMouseMove, FAlive,
                         [this](rtl::TObject*, TShiftState, int, int) { Activity(); });
    }
}

// ---- Caption gradient ---------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexTitleGradient, rtl::TComponent, "jexutils") {
    d.Property("ColorFrom", &TjexTitleGradient::ColorFrom, &TjexTitleGradient::SetColorFrom,
               TypeInfo_TColor())
        .Default(clActiveCaption);
    d.Property("ColorTo", &TjexTitleGradient::ColorTo, &TjexTitleGradient::SetColorTo, TypeInfo_TColor())
        .Default(clBtnFace);
    d.Property("Enabled", &TjexTitleGradient::Enabled, &TjexTitleGradient::SetEnabled).Default(true);
}

void TjexTitleGradient::Render(TBitmap* Target, int Width, int Height) const {
    Target->SetSize(std::max(0, Width), std::max(0, Height));
    jexDrawGradient(Target->Canvas(), Rect(0, 0, Width, Height), FColorFrom, FColorTo, jddLeftToRight, 64);
    auto* form = dynamic_cast<TCustomForm*>(Owner());
    if (!form) return;
    TCanvas* c = Target->Canvas();
    c->Font()->Assign(form->Font());
    c->Font()->SetColor(clWhite);
    c->Font()->SetStyle({fsBold});
    c->Brush()->SetStyle(bsClear);
    c->TextOut(4, (Height - c->TextHeight("Xg")) / 2, form->Caption());
}

// ---- Single instance ------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexSingleInstance, rtl::TComponent, "jexutils") {
    d.Property("Activate", &TjexSingleInstance::Activate, &TjexSingleInstance::SetActivate).Default(true);
    d.Property("Enabled", &TjexSingleInstance::Enabled, &TjexSingleInstance::SetEnabled).Default(true);
    d.Property("StopMsg", &TjexSingleInstance::StopMsg, &TjexSingleInstance::SetStopMsg);
    d.Event("OnActivate", &TjexSingleInstance::OnActivate);
    d.Event("OnSecondInstance", &TjexSingleInstance::OnSecondInstance);
}

TjexSingleInstance::TjexSingleInstance(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}

TjexSingleInstance::~TjexSingleInstance() {
    if (FFd >= 0) {
        ::flock(FFd, LOCK_UN);
        ::close(FFd);
    }
}

std::string TjexSingleInstance::LockFileName() const {
    std::string key = Key;
    if (key.empty()) key = Application()->Title();
    if (key.empty()) key = rtl::ExtractFileName(Application()->ExeName());
    if (key.empty()) key = "application";
    for (char& c : key)
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '-' && c != '_') c = '_';
    std::string dir = rtl::GetSystemDirectory();
    rtl::ForceDirectories(dir);
    return rtl::IncludeTrailingPathDelimiter(dir) + "jexsingle-" + key + ".lock";
}

bool TjexSingleInstance::Check() {
    if (FFd >= 0) return true;
    std::string name = LockFileName();
    int fd = ::open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0) throw rtl::EFCreateError(rtl::Format(rtl::SFCreateError, {name}));
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        ::close(fd);
        return false;
    }
    FFd = fd;
    return true;
}

void TjexSingleInstance::RequestActivation() const {
    rtl::WriteFileBytes(LockFileName() + ".activate", "1");
}

bool TjexSingleInstance::PollActivation() {
    if (FFd < 0) return false;
    std::string request = LockFileName() + ".activate";
    if (!rtl::FileExists(request)) return false;
    rtl::DeleteFile(request);
    OnActivate(this);
    return true;
}

void TjexSingleInstance::Loaded() {
    rtl::TComponent::Loaded();
    if (!FEnabled || IsDesigning() || Check()) return;
    OnSecondInstance(this);
    if (!FStopMsg.empty() && UIInstalled()) ShowMessage(FStopMsg);
    if (FActivate) RequestActivation();
    Application()->Terminate();
}

// ---- Launcher ----------------------------------------------------------------------------------------
namespace {
constexpr int64_t kUnixDayOffset = 25569; // days from 1899-12-30 to 1970-01-01

// The civil date of a day counted from 1970-01-01 (proleptic Gregorian calendar).
void CivilFromDays(int64_t z, int& y, int& m, int& d) {
    z += 719468;
    const int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const int64_t doe = z - era * 146097;
    const int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const int64_t mp = (5 * doy + 2) / 153;
    d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
    m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    y = static_cast<int>(yoe + era * 400 + (m <= 2));
}

int DaysInMonth(int y, int m) {
    static const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
    return m == 2 && leap ? 29 : days[m - 1];
}

// A time of day as the fraction of a day, snapped to whole seconds so that sums stay exact.
double TimeOfDay(double t) {
    double frac = t - std::floor(t);
    return std::round(frac * 86400.0) / 86400.0;
}
} // namespace

void jexDecodeDate(double DateTime, int& Year, int& Month, int& Day) {
    CivilFromDays(static_cast<int64_t>(std::floor(DateTime)) - kUnixDayOffset, Year, Month, Day);
}

int jexDayOfWeek(double DateTime) {
    int64_t days = static_cast<int64_t>(std::floor(DateTime));
    return static_cast<int>(((days - 1) % 7 + 7) % 7) + 1;
}

JEX_IMPLEMENT_CLASS(TjexLauncher, rtl::TComponent, "jexutils") {
    d.Property("Checks", &TjexLauncher::Checks, &TjexLauncher::SetChecks).Default(0);
    d.Property("CommandLine", &TjexLauncher::CommandLine, &TjexLauncher::SetCommandLine);
    d.Property("Continuous", &TjexLauncher::Continuous, &TjexLauncher::SetContinuous).Default(true);
    d.Property("Date", &TjexLauncher::Date, &TjexLauncher::SetDate, rtl::TypeInfo_TDate());
    d.Property("Interval", &TjexLauncher::Interval, &TjexLauncher::SetInterval).Default(60);
    d.Property("LaunchType", &TjexLauncher::LaunchType, &TjexLauncher::SetLaunchType).Default(jltDaily);
    d.Property("MonthDay", &TjexLauncher::MonthDay, &TjexLauncher::SetMonthDay).Default(1);
    d.Property("ShellParams", &TjexLauncher::ShellParams, &TjexLauncher::SetShellParams);
    d.Property("Time", &TjexLauncher::Time, &TjexLauncher::SetTime, rtl::TypeInfo_TTime());
    d.Property("TimeLapse", &TjexLauncher::TimeLapse, &TjexLauncher::SetTimeLapse).Default(60);
    d.Property("Wait", &TjexLauncher::Wait, &TjexLauncher::SetWait).Default(false);
    d.Property("WeekDay", &TjexLauncher::WeekDay, &TjexLauncher::SetWeekDay).Default(jwdMonday);
    d.Property("WindowState", &TjexLauncher::WindowState, &TjexLauncher::SetWindowState).Default(wsNormal);
    d.Event("OnLaunch", &TjexLauncher::OnLaunch);
}

TjexLauncher::TjexLauncher(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner), FShellParams(std::make_unique<TjexShellExecParams>()) {}

TjexLauncher::~TjexLauncher() = default;

void TjexLauncher::SetMonthDay(int Value) {
    FMonthDay = std::clamp(Value, 1, 31);
}

void TjexLauncher::SetTime(double Value) {
    FTime = TimeOfDay(Value);
}

double TjexLauncher::NextLaunchAfter(double After) const {
    double time = TimeOfDay(FTime);
    double start = std::floor(FDate) + time;
    constexpr double eps = 0.5 / 86400.0; // half a second
    switch (FLaunchType) {
    case jltOnce:
        return start > After + eps ? start : 0;
    case jltInterval: {
        double step = FTimeLapse / 1440.0;
        if (start > After + eps) return start;
        double n = std::floor((After - start) / step + 1e-9) + 1;
        return start + n * step;
    }
    default:
        break;
    }
    // Day by day from the day of After until a day fits.
    double day = std::floor(After);
    for (int i = 0; i < 400; ++i, day += 1) {
        double at = day + time;
        if (at <= After + eps) continue;
        if (FLaunchType == jltDaily) return at;
        if (FLaunchType == jltWeekly && jexDayOfWeek(day) == FWeekDay + 1) return at;
        if (FLaunchType == jltMonthly) {
            int y, m, d;
            jexDecodeDate(day, y, m, d);
            if (d == std::min(FMonthDay, DaysInMonth(y, m))) return at;
        }
    }
    return 0;
}

bool TjexLauncher::Launch() {
    TjexShellExecParams params;
    params.Assign(FShellParams.get());
    if (params.Parameters().empty()) params.SetParameters(FCommandLine);
    static const TjexShowCmd show[] = {jscNormal, jscMinimized, jscMaximized};
    params.SetShowCmd(show[FWindowState]);
    bool ok = params.Execute();
    if (ok) OnLaunch(this);
    return ok;
}

bool TjexLauncher::Poll(double Now) {
    double last = FLastPoll;
    FLastPoll = Now;
    if (FDone) return false;
    if (last < 0) {
        // The first poll: a time that passed before it counts only with jlcMissed.
        if (!FChecks.Contains(jlcMissed)) {
            if (FLaunchType == jltOnce && NextLaunchAfter(Now) == 0) FDone = true;
            return false;
        }
        last = std::floor(FDate) + TimeOfDay(FTime) - 1.0 / 86400; // a second before the first time
    }
    double due = NextLaunchAfter(last);
    if (due == 0 || due > Now + 0.5 / 86400.0) return false;
    bool ok = Launch();
    if (!FContinuous || FLaunchType == jltOnce) FDone = true;
    return ok;
}

void TjexLauncher::Loaded() {
    rtl::TComponent::Loaded();
    if (FChecks.Contains(jlcOnLoad) && !IsDesigning() && UIInstalled()) Poll(jexNow());
}

// ---- Form saver and sizer -------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexFormSaver, rtl::TComponent, "jexutils") {
    d.Property("AutoRestore", &TjexFormSaver::AutoRestore, &TjexFormSaver::SetAutoRestore).Default(true);
    d.Property("AutoSave", &TjexFormSaver::AutoSave, &TjexFormSaver::SetAutoSave).Default(true);
    d.Property("IniFileName", &TjexFormSaver::IniFileName, &TjexFormSaver::SetIniFileName,
               rtl::TypeInfo_TFileName());
    d.Property("Options", &TjexFormSaver::Options, &TjexFormSaver::SetOptions)
        .Default(TjexFormSaverOptions{jfoPosition, jfoSize, jfoState}.Bits());
}

TjexFormSaver::TjexFormSaver(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner), FAlive(std::make_shared<bool>(true)) {}

TjexFormSaver::~TjexFormSaver() {
    *FAlive = false;
}

TCustomForm* TjexFormSaver::Form() const {
    return dynamic_cast<TCustomForm*>(Owner());
}

std::string TjexFormSaver::IniPath() const {
    if (!FIniFileName.empty()) return FIniFileName;
    std::string exe = rtl::ExtractFileName(Application()->ExeName());
    return exe.empty() ? std::string() : rtl::ChangeFileExt(exe, ".ini");
}

void TjexFormSaver::SaveForm() {
    TCustomForm* form = Form();
    std::string path = IniPath();
    if (!form || path.empty()) return;
    rtl::TIniFile ini(path);
    std::string section = form->Name();
    // A maximized or minimized form keeps the bounds it had before; only its state is new.
    if (FOptions.Contains(jfoPosition)) {
        ini.WriteInteger(section, "Left", form->Left());
        ini.WriteInteger(section, "Top", form->Top());
    }
    if (FOptions.Contains(jfoSize)) {
        ini.WriteInteger(section, "Width", form->Width());
        ini.WriteInteger(section, "Height", form->Height());
    }
    if (FOptions.Contains(jfoState)) ini.WriteInteger(section, "WindowState", form->WindowState());
}

bool TjexFormSaver::RestoreForm() {
    TCustomForm* form = Form();
    std::string path = IniPath();
    if (!form || path.empty()) return false;
    rtl::TIniFile ini(path);
    std::string section = form->Name();
    if (!ini.SectionExists(section)) return false;
    int left = form->Left(), top = form->Top(), width = form->Width(), height = form->Height();
    if (FOptions.Contains(jfoPosition)) {
        left = ini.ReadInteger(section, "Left", left);
        top = ini.ReadInteger(section, "Top", top);
    }
    if (FOptions.Contains(jfoSize)) {
        width = std::max(0, ini.ReadInteger(section, "Width", width));
        height = std::max(0, ini.ReadInteger(section, "Height", height));
    }
    form->SetBounds(left, top, width, height);
    if (FOptions.Contains(jfoState)) {
        int state = ini.ReadInteger(section, "WindowState", form->WindowState());
        // A form is never brought back minimized.
        if (state == wsNormal || state == wsMaximized) form->SetWindowState(static_cast<TWindowState>(state));
    }
    return true;
}

void TjexFormSaver::Loaded() {
    rtl::TComponent::Loaded();
    TCustomForm* form = Form();
    if (IsDesigning() || !form) return;
    if (FAutoRestore) RestoreForm();
    if (FAutoSave) {
        pubx::ChainEvent(form->OnClose, FAlive, [this](rtl::TObject*, TCloseAction&) { SaveForm(); });
        pubx::ChainEvent(form->OnDestroy, FAlive, [this](rtl::TObject*) { SaveForm(); });
    }
}

JEX_IMPLEMENT_CLASS(TjexFormSizer, rtl::TComponent, "jexutils") {
    d.Property("HeightMax", &TjexFormSizer::HeightMax, &TjexFormSizer::SetHeightMax).Default(0);
    d.Property("HeightMin", &TjexFormSizer::HeightMin, &TjexFormSizer::SetHeightMin).Default(0);
    d.Property("InitialFormPos", &TjexFormSizer::InitialFormPos, &TjexFormSizer::SetInitialFormPos)
        .Default(jfpDesigned);
    d.Property("InitialFormSize", &TjexFormSizer::InitialFormSize, &TjexFormSizer::SetInitialFormSize)
        .Default(jfzDesigned);
    d.Property("LeftMax", &TjexFormSizer::LeftMax, &TjexFormSizer::SetLeftMax).Default(0);
    d.Property("LeftMin", &TjexFormSizer::LeftMin, &TjexFormSizer::SetLeftMin).Default(0);
    d.Property("TopMax", &TjexFormSizer::TopMax, &TjexFormSizer::SetTopMax).Default(0);
    d.Property("TopMin", &TjexFormSizer::TopMin, &TjexFormSizer::SetTopMin).Default(0);
    d.Property("WidthMax", &TjexFormSizer::WidthMax, &TjexFormSizer::SetWidthMax).Default(0);
    d.Property("WidthMin", &TjexFormSizer::WidthMin, &TjexFormSizer::SetWidthMin).Default(0);
}

TjexFormSizer::TjexFormSizer(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner), FAlive(std::make_shared<bool>(true)) {}

TjexFormSizer::~TjexFormSizer() {
    *FAlive = false;
}

TCustomForm* TjexFormSizer::Form() const {
    return dynamic_cast<TCustomForm*>(Owner());
}

void TjexFormSizer::Apply() {
    TCustomForm* form = Form();
    if (!form || FApplying) return;
    auto limit = [](int v, int lo, int hi) {
        if (hi > 0) v = std::min(v, hi);
        return std::max(v, lo);
    };
    int left = limit(form->Left(), FLeftMin, FLeftMax), top = limit(form->Top(), FTopMin, FTopMax);
    int width = limit(form->Width(), FWidthMin, FWidthMax),
        height = limit(form->Height(), FHeightMin, FHeightMax);
    FApplying = true;
    form->SetBounds(left, top, width, height);
    FApplying = false;
}

void TjexFormSizer::ApplyInitial() {
    TCustomForm* form = Form();
    if (!form) return;
    switch (FInitialFormSize) {
    case jfzMaximized:
        form->SetWindowState(wsMaximized);
        break;
    case jfzMinimized:
        form->SetWindowState(wsMinimized);
        break;
    default:
        break;
    }
    // The size is limited first, so that the form is placed at the size it keeps.
    Apply();
    switch (FInitialFormPos) {
    case jfpScreenCenter:
        form->SetBounds((Screen()->Width() - form->Width()) / 2, (Screen()->Height() - form->Height()) / 2,
                        form->Width(), form->Height());
        break;
    case jfpTopLeft:
        form->SetBounds(0, 0, form->Width(), form->Height());
        break;
    default:
        break;
    }
    Apply();
}

void TjexFormSizer::Loaded() {
    rtl::TComponent::Loaded();
    TCustomForm* form = Form();
    if (IsDesigning() || !form) return;
    // The form takes its first place when it appears, so that what was read stays as written until then.
    pubx::ChainEvent(form->OnShow, FAlive, [this](rtl::TObject*) { ApplyInitial(); });
    pubx::ChainEvent(form->OnResize, FAlive, [this](rtl::TObject*) { Apply(); });
}

// ---- Stop watch ------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexStopWatch, rtl::TComponent, "jexutils") {
    d.Property("LogFile", &TjexStopWatch::LogFile, &TjexStopWatch::SetLogFile, rtl::TypeInfo_TFileName());
    d.Property("LogFormat", &TjexStopWatch::LogFormat, &TjexStopWatch::SetLogFormat);
    d.Property("LogWhen", &TjexStopWatch::LogWhen, &TjexStopWatch::SetLogWhen)
        .Default(TjexLogWhens{jlwStop}.Bits());
}

TjexStopWatch::TjexStopWatch(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}

void TjexStopWatch::Log(TjexLogWhen When, const char* Event, int64_t Ms) {
    if (FLogFile.empty() || !FLogWhen.Contains(When)) return;
    std::string line = rtl::Format(FLogFormat, {Event, static_cast<long long>(Ms)}) + "\r\n";
    std::ofstream out(FLogFile, std::ios::binary | std::ios::app);
    if (!out) throw rtl::EFCreateError(rtl::Format(rtl::SFCreateError, {FLogFile}));
    out << line;
}

void TjexStopWatch::Start() {
    FStart = TjexClock::now();
    FRunning = true;
    Log(jlwStart, "Start", 0);
}

int64_t TjexStopWatch::Elapsed() const {
    auto end = FRunning ? TjexClock::now() : FStop;
    return std::chrono::duration_cast<std::chrono::milliseconds>(end - FStart).count();
}

int64_t TjexStopWatch::Lap() {
    int64_t ms = Elapsed();
    Log(jlwLap, "Lap", ms);
    return ms;
}

int64_t TjexStopWatch::Stop() {
    if (FRunning) {
        FStop = TjexClock::now();
        FRunning = false;
    }
    int64_t ms = Elapsed();
    Log(jlwStop, "Stop", ms);
    return ms;
}

// ---- Document area scrolling -----------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexMDIScroll, rtl::TComponent, "jexutils") {
    d.Property("Enabled", &TjexMDIScroll::Enabled, &TjexMDIScroll::SetEnabled).Default(true);
}

TRect TjexMDIScroll::ScrollRange() const {
    TRect r;
    bool any = false;
    for (int i = 0; i < Screen()->FormCount(); ++i) {
        TCustomForm* f = Screen()->Forms(i);
        if (f->FormStyle() != fsMDIChild || !f->Visible()) continue;
        TRect b = f->BoundsRect();
        if (!any) {
            r = b;
            any = true;
        } else {
            r = Rect(std::min(r.Left, b.Left), std::min(r.Top, b.Top), std::max(r.Right, b.Right),
                     std::max(r.Bottom, b.Bottom));
        }
    }
    return r;
}

bool TjexMDIScroll::Update() {
    auto* form = dynamic_cast<TCustomForm*>(Owner());
    if (!FEnabled || !form) return false;
    TRect r = ScrollRange();
    form->HorzScrollBar()->SetRange(std::max(0, r.Right));
    form->VertScrollBar()->SetRange(std::max(0, r.Bottom));
    return true;
}

// ---- Form message hook
// -------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexFormMessageHook, rtl::TComponent, "jexutils") {
    d.Event("OnMessage", &TjexFormMessageHook::OnMessage);
}

TjexFormMessageHook::TjexFormMessageHook(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner), FAlive(std::make_shared<bool>(true)) {}

TjexFormMessageHook::~TjexFormMessageHook() {
    *FAlive = false;
}

bool TjexFormMessageHook::Dispatch(TjexMessage& Msg) {
    bool handled = false;
    OnMessage(this, Msg, handled);
    return handled;
}

void TjexFormMessageHook::Loaded() {
    rtl::TComponent::Loaded();
    auto* form = dynamic_cast<TCustomForm*>(Owner());
    if (IsDesigning() || !form) return;
    auto send = [this](unsigned msg, intptr_t w, intptr_t l) {
        TjexMessage m{msg, w, l, 0};
        Dispatch(m);
    };
    pubx::ChainEvent(form->OnActivate, FAlive, [send](rtl::TObject*) { send(WM_ACTIVATE, 1, 0); });
    pubx::ChainEvent(form->OnDeactivate, FAlive, [send](rtl::TObject*) { send(WM_ACTIVATE, 0, 0); });
    pubx::ChainEvent(form->OnResize, FAlive, [send, form](rtl::TObject*) {
        send(WM_SIZE, 0,
             (form->ClientWidth() & 0xFFFF) | (static_cast<intptr_t>(form->ClientHeight() & 0xFFFF) << 16));
    });
    pubx::ChainEvent(form->OnClose, FAlive, [send](rtl::TObject*, TCloseAction&) { send(WM_CLOSE, 0, 0); });
}

// ---- Tray icon -----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexTrayIcon, rtl::TComponent, "jexutils") {
    d.Property("Active", &TjexTrayIcon::Active, &TjexTrayIcon::SetActive).Default(false);
    d.Property("Hint", &TjexTrayIcon::Hint, &TjexTrayIcon::SetHint);
    d.Property("ImageIndex", &TjexTrayIcon::ImageIndex, &TjexTrayIcon::SetImageIndex, TypeInfo_TImageIndex())
        .Default(-1);
    d.Property("Images", &TjexTrayIcon::Images, &TjexTrayIcon::SetImages);
    d.Property("PopupMenu", &TjexTrayIcon::PopupMenu, &TjexTrayIcon::SetPopupMenu);
    d.Event("OnClick", &TjexTrayIcon::OnClick);
    d.Event("OnDblClick", &TjexTrayIcon::OnDblClick);
}

void TjexTrayIcon::SetImages(TCustomImageList* Value) {
    pubx::SetReference(this, FImages, Value);
}

void TjexTrayIcon::SetPopupMenu(TPopupMenu* Value) {
    pubx::SetReference(this, FPopupMenu, Value);
    if (auto* menu = dynamic_cast<TjexPopupMenu*>(Value)) menu->SetTrayIconOwned(true);
}

void TjexTrayIcon::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    rtl::TComponent::Notification(AComponent, Operation);
    if (Operation != rtl::opRemove) return;
    if (AComponent == FImages) FImages = nullptr;
    if (AComponent == FPopupMenu) FPopupMenu = nullptr;
}

void TjexTrayIcon::GetIcon(TBitmap* Target) const {
    if (FImages && FImageIndex >= 0 && FImageIndex < FImages->Count())
        FImages->GetBitmap(FImageIndex, Target);
    else
        Target->Assign(nullptr);
}

void TjexTrayIcon::RightClickIcon(int X, int Y) {
    if (FPopupMenu) FPopupMenu->Popup(X, Y);
}

static const TjexLibraryUnit<TjexIdleTimeout, TjexTitleGradient, TjexSingleInstance, TjexLauncher,
                             TjexFormSaver, TjexFormSizer, TjexStopWatch, TjexMDIScroll, TjexFormMessageHook,
                             TjexTrayIcon>
    jexutilsUnit("jexutils");

} // namespace jex
