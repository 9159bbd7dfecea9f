// Utility components: the idle timeout, the caption gradient, the single-instance guard, the program
// launcher with its schedule, the form position saver and size limiter, the stop watch with its log, the
// document-area scroll range, the form message hook and the tray icon.
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "jex/jexcommon.h"
#include "jex/jexfiledlg.h"
#include "jex/jexlabels.h"
#include "jex/jexshape.h"
#include "vcl/forms.h"
#include "vcl/imglist.h"
#include "vcl/menus.h"

namespace jex {

using TjexClock = std::chrono::steady_clock;

// ---- Idle timeout ---------------------------------------------------------------------------------------
// Raises OnTimeout once when no activity was reported for Interval milliseconds. At run time a key or a
// mouse movement on its form is activity; CheckIdle is called by whoever drives the time (the host's idle
// loop, a test).
class TjexIdleTimeout : public rtl::TComponent {
    JEX_CLASS(TjexIdleTimeout, rtl::TComponent)
    explicit TjexIdleTimeout(rtl::TComponent* AOwner);
    ~TjexIdleTimeout() override;
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool Value);
    int Interval() const { return FInterval; }
    void SetInterval(int Value) { FInterval = Value < 1 ? 1 : Value; }
    void Activity() { Activity(TjexClock::now()); }
    void Activity(TjexClock::time_point Now);
    // True when the timeout fired now.
    bool CheckIdle() { return CheckIdle(TjexClock::now()); }
    bool CheckIdle(TjexClock::time_point Now);
    void Loaded() override;
    rtl::TNotifyEvent OnTimeout;

private:
    bool FEnabled = true;
    int FInterval = 300000;
    TjexClock::time_point FLast = TjexClock::now();
    bool FFired = false;
    std::shared_ptr<bool> FAlive;
};

// ---- Caption gradient ---------------------------------------------------------------------------------
// Draws its form's caption bar as a gradient from ColorFrom to ColorTo with the caption over it (Render
// gives the bar's picture; the host's window frame shows it when Enabled).
class TjexTitleGradient : public rtl::TComponent {
    JEX_CLASS(TjexTitleGradient, rtl::TComponent)
    explicit TjexTitleGradient(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool Value) { FEnabled = Value; }
    vcl::TColor ColorFrom() const { return FColorFrom; }
    void SetColorFrom(vcl::TColor Value) { FColorFrom = Value; }
    vcl::TColor ColorTo() const { return FColorTo; }
    void SetColorTo(vcl::TColor Value) { FColorTo = Value; }
    // The caption bar of Width x Height pixels (the form's caption in its font, white).
    void Render(vcl::TBitmap* Target, int Width, int Height) const;

private:
    bool FEnabled = true;
    vcl::TColor FColorFrom = vcl::clActiveCaption;
    vcl::TColor FColorTo = vcl::clBtnFace;
};

// ---- Single instance ------------------------------------------------------------------------------------
// Makes sure one copy of the program runs: Check takes a lock file (in the system directory, named after
// Key: the application's title, else its file) that another copy cannot take while this one holds it.
// A second copy (Enabled, at run time when its form is loaded) shows StopMsg (when not empty), asks the
// first to come forward with Activate, and ends the application. The first copy learns of such a request
// with PollActivation (OnActivate).
class TjexSingleInstance : public rtl::TComponent {
    JEX_CLASS(TjexSingleInstance, rtl::TComponent)
    explicit TjexSingleInstance(rtl::TComponent* AOwner);
    ~TjexSingleInstance() override;
    bool Activate() const { return FActivate; }
    void SetActivate(bool Value) { FActivate = Value; }
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool Value) { FEnabled = Value; }
    std::string StopMsg() const { return FStopMsg; }
    void SetStopMsg(const std::string& Value) { FStopMsg = Value; }
    // The name the lock is taken under; empty for the application's own.
    std::string Key;
    std::string LockFileName() const;
    // True when this is the only copy (the lock is now held); false when another copy holds it.
    bool Check();
    bool Holding() const { return FFd >= 0; }
    // Asks the copy holding the lock to come forward.
    void RequestActivation() const;
    // The holding copy: true (and OnActivate) when another copy asked it to come forward.
    bool PollActivation();
    void Loaded() override;
    rtl::TNotifyEvent OnActivate;
    rtl::TNotifyEvent OnSecondInstance;

private:
    bool FActivate = true;
    bool FEnabled = true;
    std::string FStopMsg;
    int FFd = -1;
};

// ---- Launcher ----------------------------------------------------------------------------------------
JEX_ENUM(TjexLaunchType, jltOnce, jltDaily, jltWeekly, jltMonthly, jltInterval)
JEX_ENUM(TjexWeekDay, jwdSunday, jwdMonday, jwdTuesday, jwdWednesday, jwdThursday, jwdFriday, jwdSaturday)
JEX_ENUM(TjexLauncherCheck, jlcOnLoad, jlcMissed)
JEX_SET(TjexLauncherChecks, TjexLauncherCheck)

// Date and time values as the platform keeps them (TjexDateTime, with jexNow and jexEncodeDateTime of the
// label unit): the date of a value, and its day of the week, 1 (Sunday) .. 7 (Saturday).
void jexDecodeDate(TjexDateTime DateTime, int& Year, int& Month, int& Day);
int jexDayOfWeek(TjexDateTime DateTime);

// Starts a program (ShellParams, with CommandLine as its parameters when ShellParams has none, shown as
// WindowState says) on a schedule: once at Date + Time, daily at Time, weekly on WeekDay at Time, monthly
// on MonthDay at Time (the month's last day when it is shorter), or every TimeLapse minutes from Date +
// Time. Poll, called every Interval seconds by the host, launches when due; Continuous keeps the schedule
// going after a launch. jlcOnLoad polls once when the form is loaded at run time; jlcMissed launches once
// for a time that passed while nothing polled (otherwise that time is skipped). Wait is the program's wish
// to be waited for, which the desktop's launch cannot report; it is kept.
class TjexLauncher : public rtl::TComponent {
    JEX_CLASS(TjexLauncher, rtl::TComponent)
    explicit TjexLauncher(rtl::TComponent* AOwner);
    ~TjexLauncher() override;
    TjexLauncherChecks Checks() const { return FChecks; }
    void SetChecks(TjexLauncherChecks Value) { FChecks = Value; }
    std::string CommandLine() const { return FCommandLine; }
    void SetCommandLine(const std::string& Value) { FCommandLine = Value; }
    bool Continuous() const { return FContinuous; }
    void SetContinuous(bool Value) { FContinuous = Value; }
    double Date() const { return FDate; }
    void SetDate(double Value) { FDate = Value; }
    int Interval() const { return FInterval; }
    void SetInterval(int Value) { FInterval = Value < 1 ? 1 : Value; }
    TjexLaunchType LaunchType() const { return FLaunchType; }
    void SetLaunchType(TjexLaunchType Value) { FLaunchType = Value; }
    int MonthDay() const { return FMonthDay; }
    void SetMonthDay(int Value);
    TjexShellExecParams* ShellParams() const { return FShellParams.get(); }
    void SetShellParams(TjexShellExecParams* Value) { FShellParams->Assign(Value); }
    double Time() const { return FTime; }
    void SetTime(double Value);
    int TimeLapse() const { return FTimeLapse; }
    void SetTimeLapse(int Value) { FTimeLapse = Value < 1 ? 1 : Value; }
    bool Wait() const { return FWait; }
    void SetWait(bool Value) { FWait = Value; }
    TjexWeekDay WeekDay() const { return FWeekDay; }
    void SetWeekDay(TjexWeekDay Value) { FWeekDay = Value; }
    vcl::TWindowState WindowState() const { return FWindowState; }
    void SetWindowState(vcl::TWindowState Value) { FWindowState = Value; }

    // The first launch time of the schedule strictly after After (0 when there is none, as for a single
    // launch already past).
    double NextLaunchAfter(double After) const;
    // Launches now; true when the desktop started the program.
    bool Launch();
    // Launches when a scheduled time has come since the last poll; true when it launched.
    bool Poll(double Now);
    double LastPoll() const { return FLastPoll; }
    void Loaded() override;
    rtl::TNotifyEvent OnLaunch;

private:
    TjexLauncherChecks FChecks;
    std::string FCommandLine;
    bool FContinuous = true;
    double FDate = 0, FTime = 0;
    int FInterval = 60;
    TjexLaunchType FLaunchType = jltDaily;
    int FMonthDay = 1;
    std::unique_ptr<TjexShellExecParams> FShellParams;
    int FTimeLapse = 60;
    bool FWait = false;
    TjexWeekDay FWeekDay = jwdMonday;
    vcl::TWindowState FWindowState = vcl::wsNormal;
    double FLastPoll = -1;
    bool FDone = false;
};

// ---- Form saver and sizer -------------------------------------------------------------------------------
JEX_ENUM(TjexFormSaverOption, jfoPosition, jfoSize, jfoState)
JEX_SET(TjexFormSaverOptions, TjexFormSaverOption)

// Keeps its form's place in an INI file (the form's name is the section; Left, Top, Width, Height,
// WindowState): restored when the form is loaded at run time (AutoRestore), saved when it closes or goes
// (AutoSave). An empty IniFileName stands for the application's name with ".ini".
class TjexFormSaver : public rtl::TComponent {
    JEX_CLASS(TjexFormSaver, rtl::TComponent)
    explicit TjexFormSaver(rtl::TComponent* AOwner);
    ~TjexFormSaver() override;
    bool AutoRestore() const { return FAutoRestore; }
    void SetAutoRestore(bool Value) { FAutoRestore = Value; }
    bool AutoSave() const { return FAutoSave; }
    void SetAutoSave(bool Value) { FAutoSave = Value; }
    std::string IniFileName() const { return FIniFileName; }
    void SetIniFileName(const std::string& Value) { FIniFileName = Value; }
    TjexFormSaverOptions Options() const { return FOptions; }
    void SetOptions(TjexFormSaverOptions Value) { FOptions = Value; }
    vcl::TCustomForm* Form() const;
    // The INI file used (empty when there is neither a name nor an application name).
    std::string IniPath() const;
    void SaveForm();
    // False when the file has nothing for the form.
    bool RestoreForm();
    void Loaded() override;

private:
    bool FAutoRestore = true;
    bool FAutoSave = true;
    std::string FIniFileName;
    TjexFormSaverOptions FOptions{jfoPosition, jfoSize, jfoState};
    std::shared_ptr<bool> FAlive;
};

JEX_ENUM(TjexInitialFormPos, jfpDesigned, jfpScreenCenter, jfpTopLeft)
JEX_ENUM(TjexInitialFormSize, jfzDesigned, jfzMaximized, jfzMinimized)

// Keeps its form's bounds within limits (a maximum of 0: none) whenever it is resized at run time, and
// places and sizes it as InitialFormPos and InitialFormSize say when it is shown.
class TjexFormSizer : public rtl::TComponent {
    JEX_CLASS(TjexFormSizer, rtl::TComponent)
    explicit TjexFormSizer(rtl::TComponent* AOwner);
    ~TjexFormSizer() override;
    int HeightMax() const { return FHeightMax; }
    void SetHeightMax(int Value) { FHeightMax = Value; }
    int HeightMin() const { return FHeightMin; }
    void SetHeightMin(int Value) { FHeightMin = Value; }
    int LeftMax() const { return FLeftMax; }
    void SetLeftMax(int Value) { FLeftMax = Value; }
    int LeftMin() const { return FLeftMin; }
    void SetLeftMin(int Value) { FLeftMin = Value; }
    int TopMax() const { return FTopMax; }
    void SetTopMax(int Value) { FTopMax = Value; }
    int TopMin() const { return FTopMin; }
    void SetTopMin(int Value) { FTopMin = Value; }
    int WidthMax() const { return FWidthMax; }
    void SetWidthMax(int Value) { FWidthMax = Value; }
    int WidthMin() const { return FWidthMin; }
    void SetWidthMin(int Value) { FWidthMin = Value; }
    TjexInitialFormPos InitialFormPos() const { return FInitialFormPos; }
    void SetInitialFormPos(TjexInitialFormPos Value) { FInitialFormPos = Value; }
    TjexInitialFormSize InitialFormSize() const { return FInitialFormSize; }
    void SetInitialFormSize(TjexInitialFormSize Value) { FInitialFormSize = Value; }
    vcl::TCustomForm* Form() const;
    // The form's bounds put within the limits.
    void Apply();
    void ApplyInitial();
    void Loaded() override;

private:
    int FHeightMax = 0, FHeightMin = 0, FLeftMax = 0, FLeftMin = 0, FTopMax = 0, FTopMin = 0, FWidthMax = 0,
        FWidthMin = 0;
    TjexInitialFormPos FInitialFormPos = jfpDesigned;
    TjexInitialFormSize FInitialFormSize = jfzDesigned;
    bool FApplying = false;
    std::shared_ptr<bool> FAlive;
};

// ---- Stop watch ------------------------------------------------------------------------------------------
JEX_ENUM(TjexLogWhen, jlwStart, jlwLap, jlwStop)
JEX_SET(TjexLogWhens, TjexLogWhen)

// Measures milliseconds: Start, Lap, Stop. At the moments LogWhen names it appends a line to LogFile:
// LogFormat with %s for the event ("Start", "Lap", "Stop") and %d for the milliseconds since Start.
class TjexStopWatch : public rtl::TComponent {
    JEX_CLASS(TjexStopWatch, rtl::TComponent)
    explicit TjexStopWatch(rtl::TComponent* AOwner);
    std::string LogFile() const { return FLogFile; }
    void SetLogFile(const std::string& Value) { FLogFile = Value; }
    std::string LogFormat() const { return FLogFormat; }
    void SetLogFormat(const std::string& Value) { FLogFormat = Value; }
    TjexLogWhens LogWhen() const { return FLogWhen; }
    void SetLogWhen(TjexLogWhens Value) { FLogWhen = Value; }
    void Start();
    int64_t Lap();
    int64_t Stop();
    bool Running() const { return FRunning; }
    // Milliseconds since Start (until Stop while stopped).
    int64_t Elapsed() const;

private:
    void Log(TjexLogWhen When, const char* Event, int64_t Ms);
    std::string FLogFile;
    std::string FLogFormat = "%s: %d ms";
    TjexLogWhens FLogWhen{jlwStop};
    bool FRunning = false;
    TjexClock::time_point FStart, FStop;
};

// ---- Document area scrolling -----------------------------------------------------------------------------
// Gives the document area of a multiple-document form its scroll range: the box around the open child
// windows (ScrollRange), kept in the form's scroll bars by Update when Enabled.
class TjexMDIScroll : public rtl::TComponent {
    JEX_CLASS(TjexMDIScroll, rtl::TComponent)
    explicit TjexMDIScroll(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool Value) { FEnabled = Value; }
    vcl::TRect ScrollRange() const;
    // Sets the owner form's scroll ranges; false when disabled or there is no such form.
    bool Update();

private:
    bool FEnabled = true;
};

// ---- Form message hook
// -------------------------------------------------------------------------------------
inline constexpr unsigned WM_SIZE = 5, WM_ACTIVATE = 6, WM_CLOSE = 16;

struct TjexMessage {
    unsigned Msg = 0;
    intptr_t WParam = 0;
    intptr_t LParam = 0;
    intptr_t Result = 0;
};
JEX_EVENT_TYPE(TjexMessageEvent, void(rtl::TObject* Sender, TjexMessage& Msg, bool& Handled))

// Sees the messages of its form: at run time its activation (WM_ACTIVATE, WParam 1 active, 0 inactive),
// its resizing (WM_SIZE, LParam width | height << 16) and its closing (WM_CLOSE), and whatever is handed
// to Dispatch. OnMessage may mark a message handled.
class TjexFormMessageHook : public rtl::TComponent {
    JEX_CLASS(TjexFormMessageHook, rtl::TComponent)
    explicit TjexFormMessageHook(rtl::TComponent* AOwner);
    ~TjexFormMessageHook() override;
    // True when OnMessage handled it.
    bool Dispatch(TjexMessage& Msg);
    void Loaded() override;
    TjexMessageEvent OnMessage;

private:
    std::shared_ptr<bool> FAlive;
};

// ---- Tray icon -----------------------------------------------------------------------------------------
// An icon for the desktop's notification area: image ImageIndex of Images, Hint, PopupMenu (shown by a
// right click). This platform's desktops have no notification area that the user-interface service
// reaches, so Shown stays false whatever Active says; a host that has one calls the person entry points.
class TjexTrayIcon : public rtl::TComponent {
    JEX_CLASS(TjexTrayIcon, rtl::TComponent)
    explicit TjexTrayIcon(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}
    bool Active() const { return FActive; }
    void SetActive(bool Value) { FActive = Value; }
    std::string Hint() const { return FHint; }
    void SetHint(const std::string& Value) { FHint = Value; }
    vcl::TImageIndex ImageIndex() const { return FImageIndex; }
    void SetImageIndex(vcl::TImageIndex Value) { FImageIndex = Value; }
    vcl::TCustomImageList* Images() const { return FImages; }
    void SetImages(vcl::TCustomImageList* Value);
    vcl::TPopupMenu* PopupMenu() const { return FPopupMenu; }
    // A library popup menu learns that a tray icon shows it.
    void SetPopupMenu(vcl::TPopupMenu* Value);
    bool Shown() const { return false; }
    // The icon's picture (the image of the list), empty when there is none.
    void GetIcon(vcl::TBitmap* Target) const;
    // A person's actions on the icon.
    void ClickIcon() { OnClick(this); }
    void DblClickIcon() { OnDblClick(this); }
    // A right click at a screen position: the popup menu appears there.
    void RightClickIcon(int X, int Y);
    rtl::TNotifyEvent OnClick;
    rtl::TNotifyEvent OnDblClick;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    bool FActive = false;
    std::string FHint;
    vcl::TImageIndex FImageIndex = -1;
    vcl::TCustomImageList* FImages = nullptr;
    vcl::TPopupMenu* FPopupMenu = nullptr;
};

} // namespace jex
