// The form under design: its root, designer and inspector, the file it came from, and the file actions
// of the File menu (new, open, save, save as) with the questions a person is asked on the way.
#pragma once

#include <memory>
#include <string>

#include "ide/designer.h"
#include "ide/inspector.h"
#include "vcl/forms.h"

namespace host {

// Form files are text form files; this is the filter and extension the file dialogs offer.
inline constexpr const char* SFormFileFilter = "Form files (*.dfm)|*.dfm|All files (*)|*";
inline constexpr const char* SFormFileExt = "dfm";
inline constexpr const char* SSaveChanges = "Save changes to %s?";

class TDesignSession {
public:
    TDesignSession();
    ~TDesignSession();
    TDesignSession(const TDesignSession&) = delete;
    TDesignSession& operator=(const TDesignSession&) = delete;

    bool HasForm() const { return FDesigner != nullptr; }
    // Raises EInvalidOperation "No form is open" when there is none.
    rtl::TComponent* Root() const;
    ide::TFormDesigner* Designer() const;
    ide::TInspectorModel* Inspector() const;
    const std::string& FileName() const { return FFileName; }
    bool Modified() const { return FDesigner && FDesigner->IsModified(); }

    // A new, empty root of the class (TForm or a descendant of TCustomForm or TCustomFrame) under design;
    // an empty name gives the class name without "T" followed by 1. Replaces the current form without
    // asking (see CloseQuery).
    void NewForm(const std::string& className = "TForm", const std::string& name = {});
    // Reads a text form file into a new root: the file's own class when it is a registered form or frame
    // class, else a TFrame for a frame's file (its root has a TabOrder), else a TForm. On any error the
    // current form stays as it was.
    void OpenForm(const std::string& fileName);
    // Writes the form as a text form file, takes the name as the form's file and clears the modified flag.
    void SaveForm(const std::string& fileName);
    // Frees the form and its designer (no questions).
    void CloseForm();

    // ---- The person's File menu ----
    // When the form is modified, asks whether to save it: Yes saves (SaveAsk), No discards, Cancel stops.
    // True when the caller may go on.
    bool CloseQuery();
    // Saves to the form's file, or asks for one (SaveAsAsk) when it has none; true when saved.
    bool SaveAsk();
    // Asks for a file with the save dialog (overwrite prompt) and saves; true when saved.
    bool SaveAsAsk();
    // Asks for a file with the open dialog (file must exist) and opens it; true when opened.
    bool OpenAsk();

    // The project the form belongs to: a project file (.dpr) beside the form file (the first in name
    // order), else the form file's name with ".dpr"; "Project1.dpr" in the current folder without a file.
    std::string ProjectName() const;

private:
    void Install(rtl::TComponent* root, std::unique_ptr<ide::TFormDesigner> designer,
                 const std::string& file);
    std::unique_ptr<ide::TFormDesigner> FDesigner;
    std::unique_ptr<ide::TInspectorModel> FInspector;
    std::string FFileName;
};

} // namespace host
