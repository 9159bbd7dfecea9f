// File and folder choosing: the folder dialog with its history, edits whose button runs an open, save or
// folder dialog they own (its settings published through a wrapper object), embedded resource and video
// data, shell-execute parameters, and the page setup dialog.
#pragma once

#include <memory>
#include <string>

#include "jex/jexcommon.h"
#include "jex/jexctrls.h"
#include "vcl/dialogs.h"
#include "vcl/forms.h"
#include "vcl/spin.h"

namespace jex {

// Components held by another object are freed with Free, so that their notifications run.
struct TjexFreeDeleter {
    void operator()(rtl::TObject* Obj) const { rtl::Free(Obj); }
};
template <class T> using TjexOwned = std::unique_ptr<T, TjexFreeDeleter>;

// ---- Folder dialog ----------------------------------------------------------------------------------------
JEX_ENUM(TjexDirectoryOption, jdoAllowCreate, jdoPerformCreate, jdoPrompt, jdoShowEdit, jdoShowFiles,
         jdoShowNetwork, jdoShowHidden, jdoPathMustExist, jdoAddToHistory, jdoShowHelp, jdoNoChangeDir)
JEX_SET(TjexDirectoryOptions, TjexDirectoryOption)
JEX_ENUM(TjexDirButtonStyle, jdbsGlyphs, jdbsText, jdbsNone)
JEX_ENUM(TjexDirDialogStyle, jddsTree, jddsExplorer)
JEX_ENUM(TjexDirEditStyle, jdesNone, jdesEdit, jdesHistory)
JEX_ENUM(TjexDirLabelStyle, jdlsNone, jdlsFull, jdlsShort)

// Chooses a folder through the user-interface service's folder dialog. A folder that does not exist is
// refused with jdoPathMustExist, unless jdoAllowCreate (with jdoPrompt the person is asked first, with
// jdoPerformCreate it is created). With jdoAddToHistory each chosen folder goes to the top of HistoryList
// (once). The Dir...Style settings are the dialog's looks.
class TjexDirectoryDialog : public vcl::TCommonDialog {
    JEX_CLASS(TjexDirectoryDialog, vcl::TCommonDialog)
    explicit TjexDirectoryDialog(rtl::TComponent* AOwner);
    ~TjexDirectoryDialog() override;
    TjexDirButtonStyle DirButtonStyle() const { return FDirButtonStyle; }
    void SetDirButtonStyle(TjexDirButtonStyle Value) { FDirButtonStyle = Value; }
    TjexDirDialogStyle DirDialogStyle() const { return FDirDialogStyle; }
    void SetDirDialogStyle(TjexDirDialogStyle Value) { FDirDialogStyle = Value; }
    std::string Directory() const { return FDirectory; }
    void SetDirectory(const std::string& Value) { FDirectory = Value; }
    TjexDirEditStyle DirEditStyle() const { return FDirEditStyle; }
    void SetDirEditStyle(TjexDirEditStyle Value) { FDirEditStyle = Value; }
    TjexDirLabelStyle DirLabelStyle() const { return FDirLabelStyle; }
    void SetDirLabelStyle(TjexDirLabelStyle Value) { FDirLabelStyle = Value; }
    rtl::TStrings* HistoryList() const { return FHistoryList.get(); }
    void SetHistoryList(rtl::TStrings* Value) { FHistoryList->Assign(Value); }
    TjexDirectoryOptions Options() const { return FOptions; }
    void SetOptions(TjexDirectoryOptions Value) { FOptions = Value; }
    std::string Title() const { return FTitle; }
    void SetTitle(const std::string& Value) { FTitle = Value; }
    bool Execute() override;

private:
    TjexDirButtonStyle FDirButtonStyle = jdbsGlyphs;
    TjexDirDialogStyle FDirDialogStyle = jddsTree;
    std::string FDirectory;
    TjexDirEditStyle FDirEditStyle = jdesEdit;
    TjexDirLabelStyle FDirLabelStyle = jdlsFull;
    std::unique_ptr<rtl::TStringList> FHistoryList;
    TjexDirectoryOptions FOptions{jdoPathMustExist};
    std::string FTitle;
};

// ---- Dialog wrappers
// --------------------------------------------------------------------------------------- The settings of an
// open or save dialog that an edit owns, as a published sub-object. A wrapper made without a dialog has one
// of its own.
class TjexOpenDialogWrapper : public rtl::TPersistent {
    JEX_CLASS(TjexOpenDialogWrapper, rtl::TPersistent)
    explicit TjexOpenDialogWrapper(vcl::TOpenDialog* Dialog = nullptr);
    ~TjexOpenDialogWrapper() override;
    void Assign(rtl::TPersistent* Source) override;
    vcl::TOpenDialog* Dialog() const { return FDialog; }
    std::string DefaultExt() const { return FDialog->DefaultExt(); }
    void SetDefaultExt(const std::string& Value) { FDialog->SetDefaultExt(Value); }
    std::string FileName() const { return FDialog->FileName(); }
    void SetFileName(const std::string& Value) { FDialog->SetFileName(Value); }
    std::string Filter() const { return FDialog->Filter(); }
    void SetFilter(const std::string& Value) { FDialog->SetFilter(Value); }
    int FilterIndex() const { return FDialog->FilterIndex(); }
    void SetFilterIndex(int Value) { FDialog->SetFilterIndex(Value); }
    vcl::THelpContext HelpContext() const { return FDialog->HelpContext(); }
    void SetHelpContext(vcl::THelpContext Value) { FDialog->SetHelpContext(Value); }
    std::string InitialDir() const { return FDialog->InitialDir(); }
    void SetInitialDir(const std::string& Value) { FDialog->SetInitialDir(Value); }
    vcl::TOpenOptions Options() const { return FDialog->Options(); }
    void SetOptions(vcl::TOpenOptions Value) { FDialog->SetOptions(Value); }
    std::string Title() const { return FDialog->Title(); }
    void SetTitle(const std::string& Value) { FDialog->SetTitle(Value); }

protected:
    TjexOwned<vcl::TOpenDialog> FOwnDialog;
    vcl::TOpenDialog* FDialog;
};

class TjexSaveDialogWrapper : public TjexOpenDialogWrapper {
    JEX_CLASS(TjexSaveDialogWrapper, TjexOpenDialogWrapper)
    explicit TjexSaveDialogWrapper(vcl::TSaveDialog* Dialog = nullptr);
};

class TjexDirDialogWrapper : public rtl::TPersistent {
    JEX_CLASS(TjexDirDialogWrapper, rtl::TPersistent)
    explicit TjexDirDialogWrapper(TjexDirectoryDialog* Dialog = nullptr);
    ~TjexDirDialogWrapper() override;
    void Assign(rtl::TPersistent* Source) override;
    TjexDirectoryDialog* Dialog() const { return FDialog; }
    std::string Directory() const { return FDialog->Directory(); }
    void SetDirectory(const std::string& Value) { FDialog->SetDirectory(Value); }
    vcl::THelpContext HelpContext() const { return FDialog->HelpContext(); }
    void SetHelpContext(vcl::THelpContext Value) { FDialog->SetHelpContext(Value); }
    rtl::TStrings* HistoryList() const { return FDialog->HistoryList(); }
    void SetHistoryList(rtl::TStrings* Value) { FDialog->SetHistoryList(Value); }
    TjexDirectoryOptions Options() const { return FDialog->Options(); }
    void SetOptions(TjexDirectoryOptions Value) { FDialog->SetOptions(Value); }
    std::string Title() const { return FDialog->Title(); }
    void SetTitle(const std::string& Value) { FDialog->SetTitle(Value); }

private:
    TjexOwned<TjexDirectoryDialog> FOwnDialog;
    TjexDirectoryDialog* FDialog;
};

// ---- File and folder edits
// --------------------------------------------------------------------------------- An edit whose button runs
// a dialog it owns, starting from the edit's text; a confirmed choice becomes the text (OnChange follows) and
// raises OnAfterDialog.
class TjexCustomDialogEdit : public TjexCustomButtonEdit {
    JEX_CLASS(TjexCustomDialogEdit, TjexCustomButtonEdit)
    using TjexCustomButtonEdit::TjexCustomButtonEdit;
    // Runs the dialog from the text; true (and the text changed) when a choice was confirmed.
    virtual bool Execute() = 0;
    rtl::TNotifyEvent OnAfterDialog;

protected:
    void DoButtonClick() override;
};

class TjexFileOpenEdit : public TjexCustomDialogEdit {
    JEX_CLASS(TjexFileOpenEdit, TjexCustomDialogEdit)
    explicit TjexFileOpenEdit(rtl::TComponent* AOwner);
    ~TjexFileOpenEdit() override;
    // The dialog the button runs.
    vcl::TOpenDialog* Dialog() const { return FDialog.get(); }
    TjexOpenDialogWrapper* OpenDialog() const { return FWrapper.get(); }
    void SetOpenDialog(TjexOpenDialogWrapper* Value) { FWrapper->Assign(Value); }
    bool Execute() override;

private:
    TjexOwned<vcl::TOpenDialog> FDialog;
    std::unique_ptr<TjexOpenDialogWrapper> FWrapper;
};

class TjexFileSaveEdit : public TjexCustomDialogEdit {
    JEX_CLASS(TjexFileSaveEdit, TjexCustomDialogEdit)
    explicit TjexFileSaveEdit(rtl::TComponent* AOwner);
    ~TjexFileSaveEdit() override;
    vcl::TSaveDialog* Dialog() const { return FDialog.get(); }
    TjexSaveDialogWrapper* SaveDialog() const { return FWrapper.get(); }
    void SetSaveDialog(TjexSaveDialogWrapper* Value) { FWrapper->Assign(Value); }
    bool Execute() override;

private:
    TjexOwned<vcl::TSaveDialog> FDialog;
    std::unique_ptr<TjexSaveDialogWrapper> FWrapper;
};

class TjexDirectoryEdit : public TjexCustomDialogEdit {
    JEX_CLASS(TjexDirectoryEdit, TjexCustomDialogEdit)
    explicit TjexDirectoryEdit(rtl::TComponent* AOwner);
    ~TjexDirectoryEdit() override;
    TjexDirectoryDialog* Dialog() const { return FDialog.get(); }
    TjexDirDialogWrapper* DirDialog() const { return FWrapper.get(); }
    void SetDirDialog(TjexDirDialogWrapper* Value) { FWrapper->Assign(Value); }
    bool Execute() override;

private:
    TjexOwned<TjexDirectoryDialog> FDialog;
    std::unique_ptr<TjexDirDialogWrapper> FWrapper;
};

// ---- Embedded data
// ----------------------------------------------------------------------------------------- A resource to
// embed: the file it came from, its type (BITMAP, WAVE, RCDATA ...) and its bytes.
class TjexResourceData : public rtl::TPersistent {
    JEX_CLASS(TjexResourceData, rtl::TPersistent)
    TjexResourceData();
    ~TjexResourceData() override;
    void Assign(rtl::TPersistent* Source) override;
    std::string FileName() const { return FFileName; }
    void SetFileName(const std::string& Value) { FFileName = Value; }
    std::string ResourceType() const { return FResourceType; }
    void SetResourceType(const std::string& Value) { FResourceType = Value; }
    TjexPersistentMemory* Data() const { return FData.get(); }
    void SetData(TjexPersistentMemory* Value) { FData->Assign(Value); }
    // Takes the file's bytes and name; an empty ResourceType is set from the file's extension. The old
    // content stays when the file cannot be read.
    void LoadFromFile(const std::string& Name);
    // The resource type a file extension stands for ("RCDATA" for unknown ones).
    static std::string TypeForExtension(const std::string& Ext);

private:
    std::string FFileName;
    std::string FResourceType;
    std::unique_ptr<TjexPersistentMemory> FData;
};

// A video (AVI) kept in the form file, or named by FileName when Data is empty.
class TjexAVIData : public TjexPersistentMemory {
    JEX_CLASS(TjexAVIData, TjexPersistentMemory)
    TjexAVIData() = default;

protected:
    // Empty, or a RIFF file of form type "AVI "; anything else raises EConvertError.
    void CheckData(const std::vector<uint8_t>& Bytes) const override;
};

struct TjexAVIInfo {
    int Width = 0, Height = 0;
    int FrameCount = 0;
    int MicroSecPerFrame = 0;
};

class TjexAVISource : public rtl::TPersistent {
    JEX_CLASS(TjexAVISource, rtl::TPersistent)
    TjexAVISource();
    ~TjexAVISource() override;
    void Assign(rtl::TPersistent* Source) override;
    std::string FileName() const { return FFileName; }
    void SetFileName(const std::string& Value) { FFileName = Value; }
    TjexPersistentMemory* Data() const { return FData.get(); }
    void SetData(TjexPersistentMemory* Value) { FData->Assign(Value); }
    bool Empty() const { return FData->GetEmpty() && FFileName.empty(); }
    // The bytes of the video (Data, else the file; EFOpenError when it cannot be read).
    std::vector<uint8_t> Bytes() const;
    // The main header of the video; EConvertError for what is no AVI.
    TjexAVIInfo Info() const;
    static TjexAVIInfo ParseAVI(const std::vector<uint8_t>& Bytes);

private:
    std::string FFileName;
    std::unique_ptr<TjexAVIData> FData;
};

// ---- Shell execution --------------------------------------------------------------------------------------
JEX_ENUM(TjexShowCmd, jscHide, jscNormal, jscMinimized, jscMaximized)

// What to open through the desktop: a file or URL with a verb ("open", "print" ...), parameters and a
// working folder. Execute hands it to the user-interface service.
class TjexShellExecParams : public rtl::TPersistent {
    JEX_CLASS(TjexShellExecParams, rtl::TPersistent)
    TjexShellExecParams() = default;
    void Assign(rtl::TPersistent* Source) override;
    std::string Directory() const { return FDirectory; }
    void SetDirectory(const std::string& Value) { FDirectory = Value; }
    std::string FileName() const { return FFileName; }
    void SetFileName(const std::string& Value) { FFileName = Value; }
    std::string Parameters() const { return FParameters; }
    void SetParameters(const std::string& Value) { FParameters = Value; }
    TjexShowCmd ShowCmd() const { return FShowCmd; }
    void SetShowCmd(TjexShowCmd Value) { FShowCmd = Value; }
    std::string Verb() const { return FVerb; }
    void SetVerb(const std::string& Value) { FVerb = Value; }
    // True when the desktop started it (the service's result above 32); raises EInvalidOperation
    // without a file name or without a user interface.
    bool Execute();
    int LastResult() const { return FLastResult; }

private:
    std::string FDirectory, FFileName, FParameters, FVerb = "open";
    TjexShowCmd FShowCmd = jscNormal;
    int FLastResult = 0;
};

// ---- Page setup ------------------------------------------------------------------------------------------
JEX_ENUM(TjexPageSetupOption, jpsDisableMargins, jpsDisableOrientation, jpsDisablePaper, jpsMinMargins,
         jpsWarning)
JEX_SET(TjexPageSetupOptions, TjexPageSetupOption)
// Thousandths of an inch, or hundredths of a millimetre.
JEX_ENUM(TjexPageSetupUnits, jpuInches, jpuMillimeters)

class TjexPageMargins : public rtl::TPersistent {
    JEX_CLASS(TjexPageMargins, rtl::TPersistent)
    explicit TjexPageMargins(int Value = 0) : FLeft(Value), FTop(Value), FRight(Value), FBottom(Value) {}
    void Assign(rtl::TPersistent* Source) override;
    int Left() const { return FLeft; }
    void SetLeft(int Value) { FLeft = Value; }
    int Top() const { return FTop; }
    void SetTop(int Value) { FTop = Value; }
    int Right() const { return FRight; }
    void SetRight(int Value) { FRight = Value; }
    int Bottom() const { return FBottom; }
    void SetBottom(int Value) { FBottom = Value; }

private:
    int FLeft, FTop, FRight, FBottom;
};

class TjexPageSetupDialog;

// The page setup window: spin edits "speLeft", "speTop", "speRight", "speBottom" and buttons "btnOK",
// "btnCancel". OK refuses (with a message) margins below the minimum when the dialog asks for it.
class TjexPageSetupForm : public vcl::TForm {
    JEX_CLASS(TjexPageSetupForm, vcl::TForm)
    explicit TjexPageSetupForm(rtl::TComponent* AOwner);
    vcl::TSpinEdit* speLeft;
    vcl::TSpinEdit* speTop;
    vcl::TSpinEdit* speRight;
    vcl::TSpinEdit* speBottom;
    vcl::TButton* btnOK;
    vcl::TButton* btnCancel;
    TjexPageSetupDialog* Dialog = nullptr;
    void FormCloseQuery(rtl::TObject* Sender, bool& CanClose);
};

// Page margins chosen by a person (Execute); with jpsMinMargins no margin may go below MinMargins.
class TjexPageSetupDialog : public vcl::TCommonDialog {
    JEX_CLASS(TjexPageSetupDialog, vcl::TCommonDialog)
    explicit TjexPageSetupDialog(rtl::TComponent* AOwner);
    ~TjexPageSetupDialog() override;
    TjexPageMargins* Margins() const { return FMargins.get(); }
    void SetMargins(TjexPageMargins* Value) { FMargins->Assign(Value); }
    TjexPageMargins* MinMargins() const { return FMinMargins.get(); }
    void SetMinMargins(TjexPageMargins* Value) { FMinMargins->Assign(Value); }
    TjexPageSetupOptions Options() const { return FOptions; }
    void SetOptions(TjexPageSetupOptions Value) { FOptions = Value; }
    TjexPageSetupUnits Units() const { return FUnits; }
    void SetUnits(TjexPageSetupUnits Value) { FUnits = Value; }
    bool Execute() override;

private:
    std::unique_ptr<TjexPageMargins> FMargins, FMinMargins;
    TjexPageSetupOptions FOptions;
    TjexPageSetupUnits FUnits = jpuInches;
};

} // namespace jex
