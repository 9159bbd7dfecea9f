// The form under design and the File menu's actions on it.
#include "session.h"

#include <algorithm>
#include <filesystem>

#include "rtl/dfm.h"
#include "vcl/dialogs.h"

namespace host {

using namespace rtl;

namespace {
// Dialog components live for one question and are freed whatever happens.
template <class T> using TOwned = std::unique_ptr<T, void (*)(TObject*)>;
template <class T> TOwned<T> MakeDialog() {
    return TOwned<T>(new T(nullptr), [](TObject* o) { rtl::Free(o); });
}

TClass RootClass(const std::string& className) {
    if (SameText(className, "TForm")) return vcl::TForm::StaticClass();
    TClass cls = GetClass(className);
    if (!cls) throw EClassNotFound(Format(SClassNotFound, {className}));
    if (!cls->InheritsFrom(vcl::TCustomForm::StaticClass()) &&
        !cls->InheritsFrom(vcl::TCustomFrame::StaticClass()))
        throw EComponentError(className + " is not a form or frame class");
    if (!cls->CanCreateComponent()) throw EComponentError("Cannot create a form of class " + className);
    return cls;
}

// A root built in code raises OnCreate once it exists as a whole; a root that fails to come up is freed.
TComponent* CreateRoot(TClass cls) {
    TComponent* root = cls->CreateComponent(nullptr);
    if (auto* f = dynamic_cast<vcl::TCustomForm*>(root)) {
        try {
            f->AfterConstruction();
        } catch (...) {
            root->Free();
            throw;
        }
    }
    return root;
}
// The root class for a form file: its own class when that is a registered form or frame class, else a frame
// when the root has a tab order (a frame's root does, a form's never), else TForm. Text that does not parse
// gets TForm, whose reading then says what is wrong.
TClass RootClassOfText(const std::string& text) {
    if (!ide::IsComponentText(text)) return vcl::TForm::StaticClass();
    try {
        TDfmDocument doc = ParseDfm(text);
        if (doc.Objects.size() != 1) return vcl::TForm::StaticClass();
        const TDfmObject& root = doc.Objects.front();
        if (TClass cls = GetClass(root.ClassName); cls && cls->CanCreateComponent() &&
                                                   (cls->InheritsFrom(vcl::TCustomForm::StaticClass()) ||
                                                    cls->InheritsFrom(vcl::TCustomFrame::StaticClass())))
            return cls;
        if (root.FindProperty("TabOrder")) return vcl::TFrame::StaticClass();
    } catch (const Exception&) {
    }
    return vcl::TForm::StaticClass();
}
} // namespace

TDesignSession::TDesignSession() = default;

TDesignSession::~TDesignSession() {
    CloseForm();
}

TComponent* TDesignSession::Root() const {
    if (!FDesigner) throw EInvalidOperation("No form is open");
    return FDesigner->GetRoot();
}

ide::TFormDesigner* TDesignSession::Designer() const {
    if (!FDesigner) throw EInvalidOperation("No form is open");
    return FDesigner.get();
}

ide::TInspectorModel* TDesignSession::Inspector() const {
    if (!FInspector) throw EInvalidOperation("No form is open");
    return FInspector.get();
}

void TDesignSession::Install(TComponent* root, std::unique_ptr<ide::TFormDesigner> designer,
                             const std::string& file) {
    CloseForm();
    FDesigner = std::move(designer);
    FInspector = std::make_unique<ide::TInspectorModel>(FDesigner.get());
    FFileName = file;
    // The inspector shows the form itself until something else is selected.
    FDesigner->SelectComponent(root);
}

void TDesignSession::NewForm(const std::string& className, const std::string& name) {
    TClass cls = RootClass(className.empty() ? std::string("TForm") : className);
    TComponent* root = CreateRoot(cls);
    try {
        std::string n = name;
        if (n.empty()) {
            n = cls->ClassName().substr(1) + "1";
        }
        root->SetName(n);
    } catch (...) {
        root->Free();
        throw;
    }
    auto designer = std::make_unique<ide::TFormDesigner>(root, true);
    Install(root, std::move(designer), {});
}

void TDesignSession::OpenForm(const std::string& fileName) {
    std::string text = ReadFileBytes(fileName);
    TComponent* root = CreateRoot(RootClassOfText(text));
    auto designer = std::make_unique<ide::TFormDesigner>(root, true);
    try {
        designer->LoadFromText(text);
    } catch (...) {
        // The new designer frees its root; the form that was open stays the active one.
        designer.reset();
        if (FDesigner) ide::SetActiveDesigner(FDesigner.get());
        throw;
    }
    Install(root, std::move(designer), ExpandFileName(fileName));
}

void TDesignSession::SaveForm(const std::string& fileName) {
    Designer()->SaveToFile(fileName);
    FFileName = ExpandFileName(fileName);
    FDesigner->SetModified(false);
}

void TDesignSession::CloseForm() {
    FInspector.reset();
    FDesigner.reset();
    FFileName.clear();
}

bool TDesignSession::CloseQuery() {
    if (!Modified()) return true;
    std::string name = Root()->Name().empty() ? Root()->ClassName() : Root()->Name();
    switch (vcl::MessageDlg(Format(SSaveChanges, {name}), vcl::mtConfirmation, vcl::mbYesNoCancel, 0)) {
    case vcl::mrYes:
        return SaveAsk();
    case vcl::mrNo:
        return true;
    default:
        return false;
    }
}

bool TDesignSession::SaveAsk() {
    if (FFileName.empty()) return SaveAsAsk();
    SaveForm(FFileName);
    return true;
}

bool TDesignSession::SaveAsAsk() {
    TComponent* root = Root();
    auto dlg = MakeDialog<vcl::TSaveDialog>();
    dlg->SetFilter(SFormFileFilter);
    dlg->SetDefaultExt(SFormFileExt);
    dlg->SetOptions({vcl::ofOverwritePrompt, vcl::ofHideReadOnly, vcl::ofPathMustExist, vcl::ofEnableSizing});
    if (FFileName.empty()) {
        dlg->SetFileName((root->Name().empty() ? std::string("Unit1") : root->Name()) + "." + SFormFileExt);
    } else {
        dlg->SetFileName(ExtractFileName(FFileName));
        dlg->SetInitialDir(ExtractFileDir(FFileName));
    }
    if (!dlg->Execute()) return false;
    SaveForm(dlg->FileName());
    return true;
}

bool TDesignSession::OpenAsk() {
    auto dlg = MakeDialog<vcl::TOpenDialog>();
    dlg->SetFilter(SFormFileFilter);
    dlg->SetDefaultExt(SFormFileExt);
    dlg->SetOptions({vcl::ofHideReadOnly, vcl::ofPathMustExist, vcl::ofFileMustExist, vcl::ofEnableSizing});
    if (!FFileName.empty()) dlg->SetInitialDir(ExtractFileDir(FFileName));
    if (!dlg->Execute()) return false;
    OpenForm(dlg->FileName());
    return true;
}

std::string TDesignSession::ProjectName() const {
    if (FFileName.empty()) return ExpandFileName("Project1.dpr");
    namespace fs = std::filesystem;
    std::vector<std::string> projects;
    std::error_code ec;
    for (fs::directory_iterator it(fs::path(FFileName).parent_path(), ec), end; !ec && it != end;
         it.increment(ec)) {
        if (it->is_regular_file(ec) && SameText(it->path().extension().string(), ".dpr"))
            projects.push_back(it->path().string());
    }
    if (!projects.empty()) return *std::min_element(projects.begin(), projects.end());
    return ChangeFileExt(FFileName, ".dpr");
}

} // namespace host
