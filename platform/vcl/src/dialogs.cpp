// Message boxes, the input box, and the common dialogs with their checks of the person's choice against
// the real file system and font list.
#include "vcl/dialogs.h"

#include <filesystem>
#include <unistd.h>

#include "vcl/stdctrls.h"

namespace vcl {

JEX_DEFINE_ENUM(TOpenOption)
JEX_DEFINE_SET(TOpenOptions, TOpenOption)
JEX_DEFINE_ENUM(TColorDialogOption)
JEX_DEFINE_SET(TColorDialogOptions, TColorDialogOption)
JEX_DEFINE_ENUM(TFontDialogOption)
JEX_DEFINE_SET(TFontDialogOptions, TFontDialogOption)
JEX_DEFINE_ENUM(TFontDialogDevice)
JEX_DEFINE_ENUM(TSelectDirOpt)
JEX_DEFINE_SET(TSelectDirOpts, TSelectDirOpt)

// ---- Message boxes ------------------------------------------------------------------------------------
TModalResult MessageDlg(const std::string& Msg, TMsgDlgType DlgType, TMsgDlgButtons Buttons,
                        THelpContext HelpCtx) {
    TMessageRequest r;
    r.Text = Msg;
    r.Caption = MsgDlgTypeCaption(DlgType);
    r.Type = DlgType;
    r.Buttons = Buttons;
    r.HelpCtx = HelpCtx;
    return UI().MessageDlg(r);
}

TModalResult MessageDlgPos(const std::string& Msg, TMsgDlgType DlgType, TMsgDlgButtons Buttons,
                           THelpContext HelpCtx, int, int) {
    return MessageDlg(Msg, DlgType, Buttons, HelpCtx);
}

void ShowMessage(const std::string& Msg) {
    TMessageRequest r;
    r.Text = Msg;
    r.Caption = Application()->Title();
    r.Type = mtCustom;
    r.Buttons = TMsgDlgButtons{mbOK};
    UI().MessageDlg(r);
}

void ShowMessageFmt(const std::string& Msg, const std::vector<rtl::TVarRec>& Params) {
    ShowMessage(rtl::Format(Msg, Params));
}

int MessageBox(const std::string& Text, const std::string& Caption, unsigned Flags) {
    return Application()->MessageBox(Text, Caption, Flags);
}

bool InputQuery(const std::string& ACaption, const std::string& APrompt, std::string& Value) {
    TForm* form = NewForm<TForm>(nullptr);
    bool ok = false;
    try {
        form->SetName("InputQueryForm");
        form->SetCaption(ACaption);
        form->SetBorderStyle(bsDialog);
        form->SetPosition(poScreenCenter);
        form->SetClientWidth(240);
        form->SetClientHeight(95);
        auto* prompt = new TLabel(form);
        prompt->SetName("Prompt");
        prompt->SetParent(form);
        prompt->SetCaption(APrompt);
        prompt->SetBounds(8, 8, prompt->Width(), prompt->Height());
        auto* edit = new TEdit(form);
        edit->SetName("Edit");
        edit->SetParent(form);
        edit->SetBounds(8, 26, 224, 21);
        edit->SetMaxLength(255);
        edit->SetText(Value);
        edit->SelectAll();
        prompt->SetFocusControl(edit);
        auto* okButton = new TButton(form);
        okButton->SetName("OKButton");
        okButton->SetParent(form);
        okButton->SetCaption("OK");
        okButton->SetModalResult(mrOk);
        okButton->SetDefault(true);
        okButton->SetBounds(38, 62, 75, 25);
        auto* cancelButton = new TButton(form);
        cancelButton->SetName("CancelButton");
        cancelButton->SetParent(form);
        cancelButton->SetCaption("Cancel");
        cancelButton->SetModalResult(mrCancel);
        cancelButton->SetCancel(true);
        cancelButton->SetBounds(127, 62, 75, 25);
        form->SetActiveControl(edit);
        if (form->ShowModal() == mrOk) {
            Value = edit->Text();
            ok = true;
        }
    } catch (...) {
        form->Free();
        throw;
    }
    form->Free();
    return ok;
}

std::string InputBox(const std::string& ACaption, const std::string& APrompt, const std::string& ADefault) {
    std::string value = ADefault;
    InputQuery(ACaption, APrompt, value);
    return value;
}

// ---- TCommonDialog ------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCommonDialog, TComponent, "Dialogs") {
    d.Property("Ctl3D", &TCommonDialog::Ctl3D, &TCommonDialog::SetCtl3D).Default(true);
    d.Property("HelpContext", &TCommonDialog::HelpContext, &TCommonDialog::SetHelpContext,
               rtl::TypeInfo_THelpContext())
        .Default(0);
}

void TCommonDialog::Refuse(const std::string& Text, const std::string& Title) const {
    TMessageRequest r;
    r.Text = Text;
    r.Caption = Title;
    r.Type = mtWarning;
    r.Buttons = TMsgDlgButtons{mbOK};
    UI().MessageDlg(r);
}

namespace {
bool Ask(const std::string& Text, const std::string& Title) {
    TMessageRequest r;
    r.Text = Text;
    r.Caption = Title;
    r.Type = mtWarning;
    r.Buttons = TMsgDlgButtons{mbYes, mbNo};
    return UI().MessageDlg(r) == mrYes;
}

// Runs OnShow, the service's proposals until one is accepted or the person cancels, then OnClose.
template <class Propose, class Accept> bool RunDialog(TCommonDialog& dialog, Propose propose, Accept accept) {
    dialog.OnShow(&dialog);
    bool result = false;
    try {
        while (true) {
            auto choice = propose();
            if (!choice) break;
            if (accept(*choice)) {
                result = true;
                break;
            }
        }
    } catch (...) {
        dialog.OnClose(&dialog);
        throw;
    }
    dialog.OnClose(&dialog);
    return result;
}

bool WildcardMatch(const char* p, const char* s) {
    // Iterative '*' and '?' matching, ASCII case-insensitive.
    const char* star = nullptr;
    const char* mark = nullptr;
    while (*s) {
        if (*p == '?' ||
            (*p && *p != '*' &&
             std::tolower(static_cast<unsigned char>(*p)) == std::tolower(static_cast<unsigned char>(*s)))) {
            ++p;
            ++s;
        } else if (*p == '*') {
            star = p++;
            mark = s;
        } else if (star) {
            p = star + 1;
            s = ++mark;
        } else {
            return false;
        }
    }
    while (*p == '*')
        ++p;
    return *p == 0;
}
} // namespace

std::vector<TFilterItem> ParseFilter(const std::string& Filter) {
    std::vector<std::string> parts;
    size_t start = 0;
    if (Filter.empty()) return {};
    while (true) {
        size_t bar = Filter.find('|', start);
        parts.push_back(Filter.substr(start, bar == std::string::npos ? std::string::npos : bar - start));
        if (bar == std::string::npos) break;
        start = bar + 1;
    }
    std::vector<TFilterItem> items;
    for (size_t i = 0; i < parts.size(); i += 2)
        items.push_back({parts[i], i + 1 < parts.size() ? parts[i + 1] : std::string()});
    return items;
}

bool MatchesFilterPattern(const std::string& FileName, const std::string& Patterns) {
    size_t start = 0;
    while (start <= Patterns.size()) {
        size_t semi = Patterns.find(';', start);
        std::string p =
            rtl::Trim(Patterns.substr(start, semi == std::string::npos ? std::string::npos : semi - start));
        // "*.*" matches names without a dot too, as the platform's file dialogs do.
        if (p == "*.*" || p == "*") return true;
        if (!p.empty() && WildcardMatch(p.c_str(), FileName.c_str())) return true;
        if (semi == std::string::npos) break;
        start = semi + 1;
    }
    return false;
}

// ---- TOpenDialog / TSaveDialog ------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TOpenDialog, TCommonDialog, "Dialogs") {
    d.Property("DefaultExt", &TOpenDialog::DefaultExt, &TOpenDialog::SetDefaultExt);
    d.Property("FileName", &TOpenDialog::FileName, &TOpenDialog::SetFileName, rtl::TypeInfo_TFileName());
    d.Property("Filter", &TOpenDialog::Filter, &TOpenDialog::SetFilter);
    d.Property("FilterIndex", &TOpenDialog::FilterIndex, &TOpenDialog::SetFilterIndex).Default(1);
    d.Property("InitialDir", &TOpenDialog::InitialDir, &TOpenDialog::SetInitialDir);
    d.Property("Options", &TOpenDialog::Options, &TOpenDialog::SetOptions)
        .Default(TOpenOptions{ofHideReadOnly, ofEnableSizing}.Bits());
    d.Property("Title", &TOpenDialog::Title, &TOpenDialog::SetTitle);
    d.Event("OnCanClose", &TOpenDialog::OnCanClose);
    d.Event("OnClose", &TOpenDialog::OnClose);
    d.Event("OnShow", &TOpenDialog::OnShow);
}
JEX_IMPLEMENT_CLASS(TSaveDialog, TOpenDialog, "Dialogs") {}

TOpenDialog::TOpenDialog(TComponent* AOwner) : TCommonDialog(AOwner), FFiles(new TStringList) {}

TOpenDialog::~TOpenDialog() {
    delete FFiles;
}

std::string TOpenDialog::ShownTitle() const {
    if (!FTitle.empty()) return FTitle;
    return IsSaveDialog() ? "Save As" : "Open";
}

bool TOpenDialog::Execute() {
    TUserInterface& ui = UI();
    return RunDialog(
        *this, [&] { return ui.ChooseFiles(*this); },
        [&](const std::vector<std::string>& names) { return AcceptChoice(names); });
}

bool TOpenDialog::AcceptChoice(const std::vector<std::string>& Names) {
    namespace fs = std::filesystem;
    if (Names.empty()) return false;
    if (Names.size() > 1 && !FOptions.Contains(ofAllowMultiSelect))
        throw rtl::EInvalidOperation("The dialog does not allow choosing several files");
    const std::string title = ShownTitle();
    std::string base = FInitialDir;
    if (base.empty()) {
        std::error_code ec;
        base = fs::current_path(ec).string();
    }
    std::string ext = FDefaultExt;
    while (!ext.empty() && ext.front() == '.')
        ext.erase(0, 1);
    std::vector<std::string> chosen;
    for (const std::string& name : Names) {
        if (name.empty()) return false;
        std::string full = name;
        if (full.front() != '/') full = rtl::IncludeTrailingPathDelimiter(base) + full;
        full = fs::path(full).lexically_normal().string();
        if (!ext.empty() && rtl::ExtractFileExt(full).empty() && full.back() != '.') full += "." + ext;
        if (rtl::DirectoryExists(full)) {
            Refuse(full + "\nThis is a folder, not a file.\nChoose a file and try again.", title);
            return false;
        }
        std::string dir = rtl::ExtractFileDir(full);
        if (dir.empty()) dir = "/";
        bool exists = rtl::FileExists(full);
        if ((FOptions.Contains(ofPathMustExist) || FOptions.Contains(ofFileMustExist)) &&
            !rtl::DirectoryExists(dir)) {
            Refuse(full + "\nThe path does not exist.\nCheck the path and try again.", title);
            return false;
        }
        if (!exists && FOptions.Contains(ofCreatePrompt)) {
            if (!Ask(full + "\nThis file does not exist.\nDo you want to create it?", title)) return false;
        } else if (!exists && FOptions.Contains(ofFileMustExist)) {
            Refuse(full + "\nFile not found.\nCheck the file name and try again.", title);
            return false;
        }
        if (exists && FOptions.Contains(ofNoReadOnlyReturn) && ::access(full.c_str(), W_OK) != 0) {
            Refuse(full + "\nThe file is read-only.\nUse a different name.", title);
            return false;
        }
        if (exists && IsSaveDialog() && FOptions.Contains(ofOverwritePrompt)) {
            if (!Ask(full + " already exists.\nDo you want to replace it?", title)) return false;
        }
        chosen.push_back(full);
    }
    std::string oldName = FFileName;
    std::vector<std::string> oldFiles = FFiles->ToVector();
    FFileName = chosen.front();
    FFiles->Clear();
    FFiles->AddStrings(chosen);
    if (!ext.empty() && !rtl::SameText(rtl::ExtractFileExt(FFileName), "." + ext))
        FOptions.Include(ofExtensionDifferent);
    else
        FOptions.Exclude(ofExtensionDifferent);
    bool canClose = true;
    OnCanClose(this, canClose);
    if (!canClose) {
        FFileName = oldName;
        FFiles->Clear();
        FFiles->AddStrings(oldFiles);
        return false;
    }
    return true;
}

// ---- TColorDialog -------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TColorDialog, TCommonDialog, "Dialogs") {
    d.Property("Color", &TColorDialog::Color, &TColorDialog::SetColor, TypeInfo_TColor()).Default(clBlack);
    d.Property("CustomColors", &TColorDialog::CustomColors, &TColorDialog::SetCustomColors);
    d.Property("Options", &TColorDialog::Options, &TColorDialog::SetOptions).Default(0);
    d.Event("OnClose", &TColorDialog::OnClose);
    d.Event("OnShow", &TColorDialog::OnShow);
}

TColorDialog::TColorDialog(TComponent* AOwner) : TCommonDialog(AOwner), FCustomColors(new TStringList) {}

TColorDialog::~TColorDialog() {
    delete FCustomColors;
}

bool TColorDialog::Execute() {
    TUserInterface& ui = UI();
    return RunDialog(
        *this, [&] { return ui.ChooseColor(*this); },
        [&](TColor c) {
            FColor = c;
            return true;
        });
}

// ---- TFontDialog --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TFontDialog, TCommonDialog, "Dialogs") {
    d.Property("Font", &TFontDialog::Font, &TFontDialog::SetFont);
    d.Property("Device", &TFontDialog::Device, &TFontDialog::SetDevice).Default(fdScreen);
    d.Property("MinFontSize", &TFontDialog::MinFontSize, &TFontDialog::SetMinFontSize).Default(0);
    d.Property("MaxFontSize", &TFontDialog::MaxFontSize, &TFontDialog::SetMaxFontSize).Default(0);
    d.Property("Options", &TFontDialog::Options, &TFontDialog::SetOptions)
        .Default(TFontDialogOptions{fdEffects}.Bits());
    d.Event("OnClose", &TFontDialog::OnClose);
    d.Event("OnShow", &TFontDialog::OnShow);
}

TFontDialog::TFontDialog(TComponent* AOwner) : TCommonDialog(AOwner), FFont(new TFont) {}

TFontDialog::~TFontDialog() {
    delete FFont;
}

bool TFontDialog::Execute() {
    TUserInterface& ui = UI();
    OnShow(this);
    bool result = false;
    try {
        while (true) {
            TFont chosen;
            chosen.Assign(FFont);
            if (!ui.ChooseFont(*this, chosen)) break;
            if (AcceptChoice(chosen)) {
                result = true;
                break;
            }
        }
    } catch (...) {
        OnClose(this);
        throw;
    }
    OnClose(this);
    return result;
}

bool TFontDialog::AcceptChoice(TFont& Chosen) {
    const std::string title = "Font";
    if (FOptions.Contains(fdForceFontExist) && Screen()->Fonts()->IndexOf(Chosen.Name()) < 0) {
        Refuse("There is no font with that name.\nChoose a font from the list of fonts.", title);
        return false;
    }
    if ((FOptions.Contains(fdTrueTypeOnly) || FOptions.Contains(fdScalableOnly)) &&
        !Screen()->IsTrueTypeFont(Chosen.Name())) {
        Refuse("Only TrueType fonts can be chosen.\nChoose a TrueType font from the list of fonts.", title);
        return false;
    }
    if (FOptions.Contains(fdLimitSize) && FMaxFontSize > 0 &&
        (Chosen.Size() < FMinFontSize || Chosen.Size() > FMaxFontSize)) {
        Refuse(rtl::Format("Size must be between %d and %d points.", {FMinFontSize, FMaxFontSize}), title);
        return false;
    }
    FFont->Assign(&Chosen);
    return true;
}

// ---- Folders ------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TFolderDialog, TCommonDialog, "Dialogs") {
    d.Property("Directory", &TFolderDialog::Directory, &TFolderDialog::SetDirectory);
    d.Property("Root", &TFolderDialog::Root, &TFolderDialog::SetRoot);
    d.Property("Title", &TFolderDialog::Title, &TFolderDialog::SetTitle);
    d.Property("Options", &TFolderDialog::Options, &TFolderDialog::SetOptions).Default(0);
}

bool TFolderDialog::Execute() {
    TUserInterface& ui = UI();
    return RunDialog(
        *this, [&] { return ui.ChooseFolder(*this); },
        [&](const std::string& folder) { return AcceptChoice(folder); });
}

bool TFolderDialog::AcceptChoice(const std::string& Folder) {
    namespace fs = std::filesystem;
    if (Folder.empty()) return false;
    std::string full = Folder;
    if (full.front() != '/') {
        std::string base = FRoot;
        if (base.empty()) {
            std::error_code ec;
            base = fs::current_path(ec).string();
        }
        full = rtl::IncludeTrailingPathDelimiter(base) + full;
    }
    full = fs::path(full).lexically_normal().string();
    if (full.size() > 1 && full.back() == '/') full.pop_back();
    const std::string title = FTitle.empty() ? "Select Directory" : FTitle;
    if (rtl::FileExists(full)) {
        Refuse(full + "\nThis is a file, not a folder.", title);
        return false;
    }
    if (!rtl::DirectoryExists(full)) {
        if (!FOptions.Contains(sdAllowCreate)) {
            Refuse(full + "\nThe folder does not exist.", title);
            return false;
        }
        if (FOptions.Contains(sdPrompt) &&
            !Ask("The " + full + " directory does not exist. Create it?", title))
            return false;
        if (FOptions.Contains(sdPerformCreate) && !rtl::ForceDirectories(full)) {
            Refuse("Unable to create directory " + full + ".", title);
            return false;
        }
    }
    FDirectory = full;
    return true;
}

bool SelectDirectory(const std::string& Caption, const std::string& Root, std::string& Directory) {
    TFolderDialog dlg(nullptr);
    dlg.SetTitle(Caption);
    dlg.SetRoot(Root);
    dlg.SetDirectory(Directory);
    if (!dlg.Execute()) return false;
    Directory = dlg.Directory();
    return true;
}

bool SelectDirectory(std::string& Directory, TSelectDirOpts Options, THelpContext HelpCtx) {
    TFolderDialog dlg(nullptr);
    dlg.SetDirectory(Directory);
    dlg.SetOptions(Options);
    dlg.SetHelpContext(HelpCtx);
    if (!dlg.Execute()) return false;
    Directory = dlg.Directory();
    return true;
}

} // namespace vcl
