// Message boxes and the common dialogs (open, save, colour, font, folder). The dialogs check what the
// person chose against their options here, once, whichever user-interface service proposed it.
#pragma once

#include <string>
#include <vector>

#include "vcl/forms.h"

namespace vcl {

// The message box with an icon for its type, the title for its type ("Warning", "Error", "Information",
// "Confirm", or the application title for mtCustom), and the given buttons; returns the modal result of
// the button pressed.
TModalResult MessageDlg(const std::string& Msg, TMsgDlgType DlgType, TMsgDlgButtons Buttons,
                        THelpContext HelpCtx);
TModalResult MessageDlgPos(const std::string& Msg, TMsgDlgType DlgType, TMsgDlgButtons Buttons,
                           THelpContext HelpCtx, int X, int Y);
// The text with an OK button under the application title.
void ShowMessage(const std::string& Msg);
void ShowMessageFmt(const std::string& Msg, const std::vector<rtl::TVarRec>& Params);
// Application()->MessageBox.
int MessageBox(const std::string& Text, const std::string& Caption, unsigned Flags = MB_OK);
// A small form (class TForm, name "InputQueryForm") with the prompt in label "Prompt", the value in edit
// "Edit", and buttons "OKButton" and "CancelButton"; true and the new value when OK is pressed.
bool InputQuery(const std::string& ACaption, const std::string& APrompt, std::string& Value);
std::string InputBox(const std::string& ACaption, const std::string& APrompt, const std::string& ADefault);

class TCommonDialog : public TComponent {
    JEX_CLASS(TCommonDialog, TComponent)
    using TComponent::TComponent;
    bool Ctl3D() const { return FCtl3D; }
    void SetCtl3D(bool v) { FCtl3D = v; }
    THelpContext HelpContext() const { return FHelpContext; }
    void SetHelpContext(THelpContext v) { FHelpContext = v; }
    // Shows the dialog through the user-interface service; true when the person confirmed a choice that
    // the dialog accepted.
    virtual bool Execute() = 0;
    TNotifyEvent OnShow;
    TNotifyEvent OnClose;

protected:
    // Tells the person why a choice was refused (a message box through the service).
    void Refuse(const std::string& Text, const std::string& Title) const;

private:
    bool FCtl3D = true;
    THelpContext FHelpContext = 0;
};

JEX_ENUM(TOpenOption, ofReadOnly, ofOverwritePrompt, ofHideReadOnly, ofNoChangeDir, ofShowHelp, ofNoValidate,
         ofAllowMultiSelect, ofExtensionDifferent, ofPathMustExist, ofFileMustExist, ofCreatePrompt,
         ofShareAware, ofNoReadOnlyReturn, ofNoTestFileCreate, ofNoNetworkButton, ofNoLongNames,
         ofOldStyleDialog, ofNoDereferenceLinks, ofEnableIncludeNotify, ofEnableSizing, ofDontAddToRecent,
         ofForceShowHidden)
JEX_SET(TOpenOptions, TOpenOption)

// One description and pattern pair of a filter ("Text files (*.txt)", "*.txt;*.text").
struct TFilterItem {
    std::string Description;
    std::string Pattern;
};
// Splits "desc|pattern|desc|pattern"; a trailing description without pattern gets an empty pattern.
std::vector<TFilterItem> ParseFilter(const std::string& Filter);
// Whether a file name (without folder) matches one of the ';'-separated wildcard patterns, ignoring case.
bool MatchesFilterPattern(const std::string& FileName, const std::string& Patterns);

class TOpenDialog : public TCommonDialog {
    JEX_CLASS(TOpenDialog, TCommonDialog)
    explicit TOpenDialog(TComponent* AOwner);
    ~TOpenDialog() override;
    std::string DefaultExt() const { return FDefaultExt; }
    void SetDefaultExt(const std::string& v) { FDefaultExt = v; }
    std::string FileName() const { return FFileName; }
    void SetFileName(const std::string& v) { FFileName = v; }
    // Every chosen file, full names; one line unless ofAllowMultiSelect.
    TStrings* Files() const { return FFiles; }
    std::string Filter() const { return FFilter; }
    void SetFilter(const std::string& v) { FFilter = v; }
    int FilterIndex() const { return FFilterIndex; }
    void SetFilterIndex(int v) { FFilterIndex = v; }
    std::string InitialDir() const { return FInitialDir; }
    void SetInitialDir(const std::string& v) { FInitialDir = v; }
    TOpenOptions Options() const { return FOptions; }
    void SetOptions(TOpenOptions v) { FOptions = v; }
    std::string Title() const { return FTitle; }
    void SetTitle(const std::string& v) { FTitle = v; }
    virtual bool IsSaveDialog() const { return false; }
    // The title shown: Title, or "Open" / "Save As".
    std::string ShownTitle() const;

    bool Execute() override;
    // Checks a proposed choice: names without a folder are taken in InitialDir (else the current folder);
    // DefaultExt is added to a name without extension; ofPathMustExist refuses a missing folder,
    // ofFileMustExist a missing file (ofCreatePrompt asks instead), ofOverwritePrompt asks before an
    // existing file is chosen in a save dialog, a folder is never a file, and OnCanClose may refuse. A
    // refusal is explained through the service and leaves FileName and Files as they were.
    bool AcceptChoice(const std::vector<std::string>& Names);

    TCloseQueryEvent OnCanClose;

private:
    std::string FDefaultExt, FFileName, FFilter, FInitialDir, FTitle;
    TStringList* FFiles;
    int FFilterIndex = 1;
    TOpenOptions FOptions{ofHideReadOnly, ofEnableSizing};
};

class TSaveDialog : public TOpenDialog {
    JEX_CLASS(TSaveDialog, TOpenDialog)
    using TOpenDialog::TOpenDialog;
    bool IsSaveDialog() const override { return true; }
};

JEX_ENUM(TColorDialogOption, cdFullOpen, cdPreventFullOpen, cdShowHelp, cdSolidColor, cdAnyColor)
JEX_SET(TColorDialogOptions, TColorDialogOption)

class TColorDialog : public TCommonDialog {
    JEX_CLASS(TColorDialog, TCommonDialog)
    explicit TColorDialog(TComponent* AOwner);
    ~TColorDialog() override;
    TColor Color() const { return FColor; }
    void SetColor(TColor v) { FColor = v; }
    // "ColorA=808022" lines, as the platform keeps the sixteen custom colours.
    TStrings* CustomColors() const { return FCustomColors; }
    void SetCustomColors(TStrings* v) { FCustomColors->Assign(v); }
    TColorDialogOptions Options() const { return FOptions; }
    void SetOptions(TColorDialogOptions v) { FOptions = v; }
    bool Execute() override;

private:
    TColor FColor = clBlack;
    TStringList* FCustomColors;
    TColorDialogOptions FOptions;
};

JEX_ENUM(TFontDialogOption, fdAnsiOnly, fdTrueTypeOnly, fdEffects, fdFixedPitchOnly, fdForceFontExist,
         fdNoFaceSelection, fdNoOEMFonts, fdNoSimulations, fdNoSizeSel, fdNoStyleSel, fdNoVectorFonts,
         fdShowHelp, fdWysiwyg, fdLimitSize, fdScalableOnly, fdApplyButton)
JEX_SET(TFontDialogOptions, TFontDialogOption)
JEX_ENUM(TFontDialogDevice, fdScreen, fdPrinter, fdBoth)

class TFontDialog : public TCommonDialog {
    JEX_CLASS(TFontDialog, TCommonDialog)
    explicit TFontDialog(TComponent* AOwner);
    ~TFontDialog() override;
    TFont* Font() const { return FFont; }
    void SetFont(TFont* v) { FFont->Assign(v); }
    TFontDialogDevice Device() const { return FDevice; }
    void SetDevice(TFontDialogDevice v) { FDevice = v; }
    int MinFontSize() const { return FMinFontSize; }
    void SetMinFontSize(int v) { FMinFontSize = v; }
    int MaxFontSize() const { return FMaxFontSize; }
    void SetMaxFontSize(int v) { FMaxFontSize = v; }
    TFontDialogOptions Options() const { return FOptions; }
    void SetOptions(TFontDialogOptions v) { FOptions = v; }
    bool Execute() override;
    // fdForceFontExist refuses a family the system does not have, fdTrueTypeOnly and fdScalableOnly one
    // that is not an outline font, fdLimitSize a size outside MinFontSize..MaxFontSize.
    bool AcceptChoice(TFont& Chosen);

private:
    TFont* FFont;
    TFontDialogDevice FDevice = fdScreen;
    int FMinFontSize = 0, FMaxFontSize = 0;
    TFontDialogOptions FOptions{fdEffects};
};

JEX_ENUM(TSelectDirOpt, sdAllowCreate, sdPerformCreate, sdPrompt)
JEX_SET(TSelectDirOpts, TSelectDirOpt)

// Chooses a folder. A missing folder is refused unless sdAllowCreate; with sdPrompt the person is asked
// first, and sdPerformCreate creates it.
class TFolderDialog : public TCommonDialog {
    JEX_CLASS(TFolderDialog, TCommonDialog)
    using TCommonDialog::TCommonDialog;
    std::string Directory() const { return FDirectory; }
    void SetDirectory(const std::string& v) { FDirectory = v; }
    std::string Root() const { return FRoot; }
    void SetRoot(const std::string& v) { FRoot = v; }
    std::string Title() const { return FTitle; }
    void SetTitle(const std::string& v) { FTitle = v; }
    TSelectDirOpts Options() const { return FOptions; }
    void SetOptions(TSelectDirOpts v) { FOptions = v; }
    bool Execute() override;
    bool AcceptChoice(const std::string& Folder);

private:
    std::string FDirectory, FRoot, FTitle;
    TSelectDirOpts FOptions;
};

bool SelectDirectory(const std::string& Caption, const std::string& Root, std::string& Directory);
bool SelectDirectory(std::string& Directory, TSelectDirOpts Options, THelpContext HelpCtx);

} // namespace vcl
