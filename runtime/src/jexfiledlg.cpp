// The folder dialog, dialog wrappers and file edits, embedded resource and video data, shell-execute
// parameters and the page setup dialog.
#include "jex/jexfiledlg.h"

#include <algorithm>

#include "jexpanelpub.h"
#include "vcl/uiservice.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexDirectoryOption)
JEX_DEFINE_SET(TjexDirectoryOptions, TjexDirectoryOption)
JEX_DEFINE_ENUM(TjexDirButtonStyle)
JEX_DEFINE_ENUM(TjexDirDialogStyle)
JEX_DEFINE_ENUM(TjexDirEditStyle)
JEX_DEFINE_ENUM(TjexDirLabelStyle)
JEX_DEFINE_ENUM(TjexShowCmd)
JEX_DEFINE_ENUM(TjexPageSetupOption)
JEX_DEFINE_SET(TjexPageSetupOptions, TjexPageSetupOption)
JEX_DEFINE_ENUM(TjexPageSetupUnits)

// ---- Folder dialog ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexDirectoryDialog, TCommonDialog, "jexfiledlg") {
    d.Property("DirButtonStyle", &TjexDirectoryDialog::DirButtonStyle,
               &TjexDirectoryDialog::SetDirButtonStyle)
        .Default(jdbsGlyphs);
    d.Property("DirDialogStyle", &TjexDirectoryDialog::DirDialogStyle,
               &TjexDirectoryDialog::SetDirDialogStyle)
        .Default(jddsTree);
    d.Property("Directory", &TjexDirectoryDialog::Directory, &TjexDirectoryDialog::SetDirectory);
    d.Property("DirEditStyle", &TjexDirectoryDialog::DirEditStyle, &TjexDirectoryDialog::SetDirEditStyle)
        .Default(jdesEdit);
    d.Property("DirLabelStyle", &TjexDirectoryDialog::DirLabelStyle, &TjexDirectoryDialog::SetDirLabelStyle)
        .Default(jdlsFull);
    d.Property("HistoryList", &TjexDirectoryDialog::HistoryList, &TjexDirectoryDialog::SetHistoryList);
    d.Property("Options", &TjexDirectoryDialog::Options, &TjexDirectoryDialog::SetOptions)
        .Default(TjexDirectoryOptions{jdoPathMustExist}.Bits());
    d.Property("Title", &TjexDirectoryDialog::Title, &TjexDirectoryDialog::SetTitle);
    d.Event("OnClose", &TjexDirectoryDialog::OnClose);
    d.Event("OnShow", &TjexDirectoryDialog::OnShow);
}

TjexDirectoryDialog::TjexDirectoryDialog(rtl::TComponent* AOwner)
    : TCommonDialog(AOwner), FHistoryList(std::make_unique<rtl::TStringList>()) {}

TjexDirectoryDialog::~TjexDirectoryDialog() = default;

bool TjexDirectoryDialog::Execute() {
    TFolderDialog dialog(nullptr);
    dialog.SetDirectory(FDirectory);
    dialog.SetTitle(FTitle);
    dialog.SetHelpContext(HelpContext());
    TSelectDirOpts opts;
    // Without jdoPathMustExist a folder that does not exist is taken as typed.
    if (FOptions.Contains(jdoAllowCreate) || !FOptions.Contains(jdoPathMustExist))
        opts.Include(sdAllowCreate);
    if (FOptions.Contains(jdoPerformCreate)) opts.Include(sdPerformCreate);
    if (FOptions.Contains(jdoPrompt)) opts.Include(sdPrompt);
    dialog.SetOptions(opts);
    OnShow(this);
    bool ok = dialog.Execute();
    OnClose(this);
    if (!ok) return false;
    FDirectory = dialog.Directory();
    if (FOptions.Contains(jdoAddToHistory) && !FDirectory.empty()) {
        int i = FHistoryList->IndexOf(FDirectory);
        if (i >= 0) FHistoryList->Delete(i);
        FHistoryList->Insert(0, FDirectory);
    }
    return true;
}

// ---- Wrappers -------------------------------------------------------------------------------------------
template <class C> static void PublishFileDialog(rtl::TClassDecl<C>& d) {
    d.Property("DefaultExt", &C::DefaultExt, &C::SetDefaultExt);
    // Plain strings: the file-name and filter editors are registered for String properties.
    d.Property("FileName", &C::FileName, &C::SetFileName);
    d.Property("Filter", &C::Filter, &C::SetFilter);
    d.Property("FilterIndex", &C::FilterIndex, &C::SetFilterIndex).Default(1);
    d.Property("HelpContext", &C::HelpContext, &C::SetHelpContext, rtl::TypeInfo_THelpContext()).Default(0);
    d.Property("InitialDir", &C::InitialDir, &C::SetInitialDir);
    d.Property("Options", &C::Options, &C::SetOptions)
        .Default(TOpenOptions{ofHideReadOnly, ofEnableSizing}.Bits());
    d.Property("Title", &C::Title, &C::SetTitle);
}

JEX_IMPLEMENT_CLASS(TjexOpenDialogWrapper, rtl::TPersistent, "jexfiledlg") {
    PublishFileDialog(d);
}

TjexOpenDialogWrapper::TjexOpenDialogWrapper(TOpenDialog* Dialog) : FDialog(Dialog) {
    if (!FDialog) {
        FOwnDialog.reset(new TOpenDialog(nullptr));
        FDialog = FOwnDialog.get();
    }
}

TjexOpenDialogWrapper::~TjexOpenDialogWrapper() = default;

void TjexOpenDialogWrapper::Assign(rtl::TPersistent* Source) {
    if (auto* w = dynamic_cast<TjexOpenDialogWrapper*>(Source)) {
        SetDefaultExt(w->DefaultExt());
        SetFileName(w->FileName());
        SetFilter(w->Filter());
        SetFilterIndex(w->FilterIndex());
        SetHelpContext(w->HelpContext());
        SetInitialDir(w->InitialDir());
        SetOptions(w->Options());
        SetTitle(w->Title());
        return;
    }
    rtl::TPersistent::Assign(Source);
}

JEX_IMPLEMENT_CLASS(TjexSaveDialogWrapper, TjexOpenDialogWrapper, "jexfiledlg") {}

TjexSaveDialogWrapper::TjexSaveDialogWrapper(TSaveDialog* Dialog) : TjexOpenDialogWrapper(Dialog) {
    if (!Dialog) {
        FOwnDialog.reset(new TSaveDialog(nullptr));
        FDialog = FOwnDialog.get();
    }
}

JEX_IMPLEMENT_CLASS(TjexDirDialogWrapper, rtl::TPersistent, "jexfiledlg") {
    // A plain string: the folder editor is registered for a String property.
    d.Property("Directory", &TjexDirDialogWrapper::Directory, &TjexDirDialogWrapper::SetDirectory);
    d.Property("HelpContext", &TjexDirDialogWrapper::HelpContext, &TjexDirDialogWrapper::SetHelpContext,
               rtl::TypeInfo_THelpContext())
        .Default(0);
    d.Property("HistoryList", &TjexDirDialogWrapper::HistoryList, &TjexDirDialogWrapper::SetHistoryList);
    d.Property("Options", &TjexDirDialogWrapper::Options, &TjexDirDialogWrapper::SetOptions)
        .Default(TjexDirectoryOptions{jdoPathMustExist}.Bits());
    d.Property("Title", &TjexDirDialogWrapper::Title, &TjexDirDialogWrapper::SetTitle);
}

TjexDirDialogWrapper::TjexDirDialogWrapper(TjexDirectoryDialog* Dialog) : FDialog(Dialog) {
    if (!FDialog) {
        FOwnDialog.reset(new TjexDirectoryDialog(nullptr));
        FDialog = FOwnDialog.get();
    }
}

TjexDirDialogWrapper::~TjexDirDialogWrapper() = default;

void TjexDirDialogWrapper::Assign(rtl::TPersistent* Source) {
    if (auto* w = dynamic_cast<TjexDirDialogWrapper*>(Source)) {
        SetDirectory(w->Directory());
        SetHelpContext(w->HelpContext());
        SetHistoryList(w->HistoryList());
        SetOptions(w->Options());
        SetTitle(w->Title());
        return;
    }
    rtl::TPersistent::Assign(Source);
}

// ---- File and folder edits
// ---------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomDialogEdit, TjexCustomButtonEdit, "jexfiledlg") {}

void TjexCustomDialogEdit::DoButtonClick() {
    if (Execute()) OnAfterDialog(this);
}

template <class C> static void PublishDialogEdit(rtl::TClassDecl<C>& d) {
    pubx::Edit(d);
    d.Property("ButtonDisabled", &C::ButtonDisabled, &C::SetButtonDisabled).Default(false);
    d.Property("ButtonVisible", &C::ButtonVisible, &C::SetButtonVisible).Default(true);
    d.Property("ClickOnEnterKey", &C::ClickOnEnterKey, &C::SetClickOnEnterKey).Default(false);
    d.Event("OnAfterDialog", &C::OnAfterDialog);
    d.Event("OnButtonClick", &C::OnButtonClick);
}

JEX_IMPLEMENT_CLASS(TjexFileOpenEdit, TjexCustomDialogEdit, "jexfiledlg") {
    PublishDialogEdit(d);
    d.Property("OpenDialog", &TjexFileOpenEdit::OpenDialog, &TjexFileOpenEdit::SetOpenDialog);
}

TjexFileOpenEdit::TjexFileOpenEdit(rtl::TComponent* AOwner)
    : TjexCustomDialogEdit(AOwner), FDialog(new TOpenDialog(nullptr)),
      FWrapper(std::make_unique<TjexOpenDialogWrapper>(FDialog.get())) {}

TjexFileOpenEdit::~TjexFileOpenEdit() = default;

bool TjexFileOpenEdit::Execute() {
    if (!Text().empty()) FDialog->SetFileName(Text());
    if (!FDialog->Execute()) return false;
    SetText(FDialog->FileName());
    return true;
}

JEX_IMPLEMENT_CLASS(TjexFileSaveEdit, TjexCustomDialogEdit, "jexfiledlg") {
    PublishDialogEdit(d);
    d.Property("SaveDialog", &TjexFileSaveEdit::SaveDialog, &TjexFileSaveEdit::SetSaveDialog);
}

TjexFileSaveEdit::TjexFileSaveEdit(rtl::TComponent* AOwner)
    : TjexCustomDialogEdit(AOwner), FDialog(new TSaveDialog(nullptr)),
      FWrapper(std::make_unique<TjexSaveDialogWrapper>(FDialog.get())) {}

TjexFileSaveEdit::~TjexFileSaveEdit() = default;

bool TjexFileSaveEdit::Execute() {
    if (!Text().empty()) FDialog->SetFileName(Text());
    if (!FDialog->Execute()) return false;
    SetText(FDialog->FileName());
    return true;
}

JEX_IMPLEMENT_CLASS(TjexDirectoryEdit, TjexCustomDialogEdit, "jexfiledlg") {
    PublishDialogEdit(d);
    d.Property("DirDialog", &TjexDirectoryEdit::DirDialog, &TjexDirectoryEdit::SetDirDialog);
}

TjexDirectoryEdit::TjexDirectoryEdit(rtl::TComponent* AOwner)
    : TjexCustomDialogEdit(AOwner), FDialog(new TjexDirectoryDialog(nullptr)),
      FWrapper(std::make_unique<TjexDirDialogWrapper>(FDialog.get())) {}

TjexDirectoryEdit::~TjexDirectoryEdit() = default;

bool TjexDirectoryEdit::Execute() {
    if (!Text().empty()) FDialog->SetDirectory(Text());
    if (!FDialog->Execute()) return false;
    SetText(FDialog->Directory());
    return true;
}

// ---- Embedded data
// -----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexResourceData, rtl::TPersistent, "jexfiledlg") {
    d.Property("Data", &TjexResourceData::Data, &TjexResourceData::SetData);
    d.Property("FileName", &TjexResourceData::FileName, &TjexResourceData::SetFileName);
    d.Property("ResourceType", &TjexResourceData::ResourceType, &TjexResourceData::SetResourceType);
}

TjexResourceData::TjexResourceData() : FData(std::make_unique<TjexPersistentMemory>()) {}

TjexResourceData::~TjexResourceData() = default;

void TjexResourceData::Assign(rtl::TPersistent* Source) {
    if (auto* r = dynamic_cast<TjexResourceData*>(Source)) {
        FFileName = r->FFileName;
        FResourceType = r->FResourceType;
        FData->Assign(r->FData.get());
        return;
    }
    rtl::TPersistent::Assign(Source);
}

std::string TjexResourceData::TypeForExtension(const std::string& Ext) {
    std::string e = rtl::UpperCase(Ext);
    if (!e.empty() && e[0] == '.') e.erase(0, 1);
    if (e == "BMP" || e == "DIB") return "BITMAP";
    if (e == "WAV") return "WAVE";
    if (e == "AVI") return "AVI";
    if (e == "ICO") return "ICON";
    if (e == "CUR") return "CURSOR";
    if (e == "HTM" || e == "HTML") return "HTML";
    return "RCDATA";
}

void TjexResourceData::LoadFromFile(const std::string& Name) {
    FData->LoadFromFile(Name);
    FFileName = Name;
    if (FResourceType.empty()) FResourceType = TypeForExtension(rtl::ExtractFileExt(Name));
}

JEX_IMPLEMENT_CLASS(TjexAVIData, TjexPersistentMemory, "jexfiledlg") {}

void TjexAVIData::CheckData(const std::vector<uint8_t>& Bytes) const {
    if (Bytes.empty()) return;
    if (Bytes.size() < 12 || std::string(Bytes.begin(), Bytes.begin() + 4) != "RIFF" ||
        std::string(Bytes.begin() + 8, Bytes.begin() + 12) != "AVI ")
        throw rtl::EConvertError("Invalid video data: not an AVI file");
}

JEX_IMPLEMENT_CLASS(TjexAVISource, rtl::TPersistent, "jexfiledlg") {
    d.Property("Data", &TjexAVISource::Data, &TjexAVISource::SetData);
    d.Property("FileName", &TjexAVISource::FileName, &TjexAVISource::SetFileName);
}

TjexAVISource::TjexAVISource() : FData(std::make_unique<TjexAVIData>()) {}

TjexAVISource::~TjexAVISource() = default;

void TjexAVISource::Assign(rtl::TPersistent* Source) {
    if (auto* a = dynamic_cast<TjexAVISource*>(Source)) {
        FFileName = a->FFileName;
        FData->Assign(a->FData.get());
        return;
    }
    rtl::TPersistent::Assign(Source);
}

std::vector<uint8_t> TjexAVISource::Bytes() const {
    if (!FData->GetEmpty()) return FData->Bytes();
    std::string bytes = rtl::ReadFileBytes(FFileName);
    return std::vector<uint8_t>(bytes.begin(), bytes.end());
}

TjexAVIInfo TjexAVISource::Info() const {
    return ParseAVI(Bytes());
}

TjexAVIInfo TjexAVISource::ParseAVI(const std::vector<uint8_t>& Bytes) {
    auto le32 = [&](size_t at) {
        return static_cast<uint32_t>(Bytes[at]) | static_cast<uint32_t>(Bytes[at + 1]) << 8 |
               static_cast<uint32_t>(Bytes[at + 2]) << 16 | static_cast<uint32_t>(Bytes[at + 3]) << 24;
    };
    auto tag = [&](size_t at) { return std::string(Bytes.begin() + at, Bytes.begin() + at + 4); };
    if (Bytes.size() < 12 || tag(0) != "RIFF" || tag(8) != "AVI ")
        throw rtl::EConvertError("Invalid video data: not an AVI file");
    // The main header "avih" lies in the first LIST ("hdrl"): microseconds per frame, ..., total frames
    // at +16, ..., width at +32 and height at +36 of its data.
    for (size_t at = 12; at + 8 <= Bytes.size();) {
        std::string id = tag(at);
        uint32_t size = le32(at + 4);
        if (id == "LIST" && at + 12 <= Bytes.size()) {
            at += 12;
            continue;
        }
        if (id == "avih") {
            if (at + 8 + 40 > Bytes.size()) break;
            size_t d = at + 8;
            TjexAVIInfo info;
            info.MicroSecPerFrame = static_cast<int>(le32(d));
            info.FrameCount = static_cast<int>(le32(d + 16));
            info.Width = static_cast<int>(le32(d + 32));
            info.Height = static_cast<int>(le32(d + 36));
            return info;
        }
        at += 8 + size + (size & 1);
    }
    throw rtl::EConvertError("Invalid video data: no main header");
}

// ---- Shell execution --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexShellExecParams, rtl::TPersistent, "jexfiledlg") {
    d.Property("Directory", &TjexShellExecParams::Directory, &TjexShellExecParams::SetDirectory);
    d.Property("FileName", &TjexShellExecParams::FileName, &TjexShellExecParams::SetFileName);
    d.Property("Parameters", &TjexShellExecParams::Parameters, &TjexShellExecParams::SetParameters);
    d.Property("ShowCmd", &TjexShellExecParams::ShowCmd, &TjexShellExecParams::SetShowCmd).Default(jscNormal);
    d.Property("Verb", &TjexShellExecParams::Verb, &TjexShellExecParams::SetVerb);
}

void TjexShellExecParams::Assign(rtl::TPersistent* Source) {
    if (auto* p = dynamic_cast<TjexShellExecParams*>(Source)) {
        FDirectory = p->FDirectory;
        FFileName = p->FFileName;
        FParameters = p->FParameters;
        FShowCmd = p->FShowCmd;
        FVerb = p->FVerb;
        return;
    }
    rtl::TPersistent::Assign(Source);
}

bool TjexShellExecParams::Execute() {
    if (FFileName.empty()) throw rtl::EInvalidOperation("Nothing to open: the file name is empty");
    static const int cmds[] = {SW_HIDE, SW_SHOWNORMAL, SW_SHOWMINIMIZED, SW_SHOWMAXIMIZED};
    FLastResult = vcl::ShellExecute(FVerb, FFileName, FParameters, FDirectory, cmds[FShowCmd]);
    return FLastResult > 32;
}

// ---- Page setup ------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexPageMargins, rtl::TPersistent, "jexfiledlg") {
    d.Property("Bottom", &TjexPageMargins::Bottom, &TjexPageMargins::SetBottom);
    d.Property("Left", &TjexPageMargins::Left, &TjexPageMargins::SetLeft);
    d.Property("Right", &TjexPageMargins::Right, &TjexPageMargins::SetRight);
    d.Property("Top", &TjexPageMargins::Top, &TjexPageMargins::SetTop);
}

void TjexPageMargins::Assign(rtl::TPersistent* Source) {
    if (auto* m = dynamic_cast<TjexPageMargins*>(Source)) {
        FLeft = m->FLeft;
        FTop = m->FTop;
        FRight = m->FRight;
        FBottom = m->FBottom;
        return;
    }
    rtl::TPersistent::Assign(Source);
}

JEX_IMPLEMENT_CLASS(TjexPageSetupForm, TForm, "jexfiledlg") {}

TjexPageSetupForm::TjexPageSetupForm(rtl::TComponent* AOwner) : TForm(AOwner) {
    SetName("jexPageSetupForm");
    SetCaption("Page Setup");
    SetBorderStyle(bsDialog);
    SetPosition(poScreenCenter);
    SetClientWidth(260);
    SetClientHeight(150);
    auto spin = [this](const char* name, const char* caption, int x, int y) {
        auto* label = new TLabel(this);
        label->SetParent(this);
        label->SetCaption(caption);
        label->SetBounds(x, y + 3, 50, 13);
        auto* s = new TSpinEdit(this);
        s->SetName(name);
        s->SetParent(this);
        s->SetBounds(x + 50, y, 65, 21);
        s->SetMaxValue(100000);
        s->SetIncrement(10);
        return s;
    };
    speLeft = spin("speLeft", "&Left:", 8, 12);
    speRight = spin("speRight", "&Right:", 134, 12);
    speTop = spin("speTop", "&Top:", 8, 44);
    speBottom = spin("speBottom", "&Bottom:", 134, 44);
    btnOK = new TButton(this);
    btnOK->SetName("btnOK");
    btnOK->SetParent(this);
    btnOK->SetCaption("OK");
    btnOK->SetDefault(true);
    btnOK->SetModalResult(mrOk);
    btnOK->SetBounds(96, 112, 75, 25);
    btnCancel = new TButton(this);
    btnCancel->SetName("btnCancel");
    btnCancel->SetParent(this);
    btnCancel->SetCaption("Cancel");
    btnCancel->SetCancel(true);
    btnCancel->SetModalResult(mrCancel);
    btnCancel->SetBounds(177, 112, 75, 25);
    OnCloseQuery = TCloseQueryEvent(this, &TjexPageSetupForm::FormCloseQuery);
}

void TjexPageSetupForm::FormCloseQuery(rtl::TObject*, bool& CanClose) {
    if (ModalResult() != mrOk || !Dialog || !Dialog->Options().Contains(jpsMinMargins)) return;
    TjexPageMargins* min = Dialog->MinMargins();
    if (speLeft->Value() >= min->Left() && speTop->Value() >= min->Top() &&
        speRight->Value() >= min->Right() && speBottom->Value() >= min->Bottom())
        return;
    CanClose = false;
    std::string unit = Dialog->Units() == jpuInches ? "thousandths of an inch" : "hundredths of a millimetre";
    MessageDlg(rtl::Format("The margins must be at least %d, %d, %d and %d %s (left, top, right, bottom).",
                           {min->Left(), min->Top(), min->Right(), min->Bottom(), unit}),
               mtError, {mbOK}, 0);
}

JEX_IMPLEMENT_CLASS(TjexPageSetupDialog, TCommonDialog, "jexfiledlg") {
    d.Property("Margins", &TjexPageSetupDialog::Margins, &TjexPageSetupDialog::SetMargins);
    d.Property("MinMargins", &TjexPageSetupDialog::MinMargins, &TjexPageSetupDialog::SetMinMargins);
    d.Property("Options", &TjexPageSetupDialog::Options, &TjexPageSetupDialog::SetOptions).Default(0);
    d.Property("Units", &TjexPageSetupDialog::Units, &TjexPageSetupDialog::SetUnits).Default(jpuInches);
    d.Event("OnClose", &TjexPageSetupDialog::OnClose);
    d.Event("OnShow", &TjexPageSetupDialog::OnShow);
}

TjexPageSetupDialog::TjexPageSetupDialog(rtl::TComponent* AOwner)
    : TCommonDialog(AOwner), FMargins(std::make_unique<TjexPageMargins>(1000)),
      FMinMargins(std::make_unique<TjexPageMargins>(0)) {}

TjexPageSetupDialog::~TjexPageSetupDialog() = default;

bool TjexPageSetupDialog::Execute() {
    auto* form = NewForm<TjexPageSetupForm>(nullptr);
    try {
        form->Dialog = this;
        form->speLeft->SetValue(FMargins->Left());
        form->speTop->SetValue(FMargins->Top());
        form->speRight->SetValue(FMargins->Right());
        form->speBottom->SetValue(FMargins->Bottom());
        bool margins = !FOptions.Contains(jpsDisableMargins);
        for (TSpinEdit* s : {form->speLeft, form->speTop, form->speRight, form->speBottom})
            s->SetEnabled(margins);
        OnShow(this);
        bool ok = form->ShowModal() == mrOk;
        OnClose(this);
        if (ok) {
            FMargins->SetLeft(form->speLeft->Value());
            FMargins->SetTop(form->speTop->Value());
            FMargins->SetRight(form->speRight->Value());
            FMargins->SetBottom(form->speBottom->Value());
        }
        form->Free();
        return ok;
    } catch (...) {
        form->Free();
        throw;
    }
}

static const TjexLibraryUnit<TjexPageSetupDialog, TjexFileOpenEdit, TjexFileSaveEdit, TjexDirectoryEdit,
                             TjexDirectoryDialog>
    jexfiledlgUnit("jexfiledlg");

} // namespace jex
