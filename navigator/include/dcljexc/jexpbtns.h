// Jexpbtns: the component editors that open the navigator designers from the designer's context menu: the
// panel and toolbar editors (the wizard, and deleting every control on them) and the picture button editor.
#pragma once

#include "ide/compedit.h"

namespace dcljexc {

// Verb 0 "Add Navigator Buttons..." runs the navigator wizard on the panel and marks the form modified
// when it created buttons; verb 1 "Delete All Buttons" frees every control on the panel after a warning.
class TjexNavPanelEditor : public ide::TComponentEditor {
    JEX_CLASS(TjexNavPanelEditor, ide::TComponentEditor)
    TjexNavPanelEditor() = default;
    void ExecuteVerb(int Index) override;
    std::string GetVerb(int Index) override;
    int GetVerbCount() override { return 2; }
};

// The navigator toolbar's editor: the same verbs and actions as the panel's.
class TjexNavToolbarEditor : public TjexNavPanelEditor {
    JEX_CLASS(TjexNavToolbarEditor, TjexNavPanelEditor)
    TjexNavToolbarEditor() = default;
};

// One verb, "Edit Button Style...", whatever the index: the button editor dialog on the picture button;
// the form is marked modified when the dialog was confirmed.
class TjexnpButtonEditor : public ide::TComponentEditor {
    JEX_CLASS(TjexnpButtonEditor, ide::TComponentEditor)
    TjexnpButtonEditor() = default;
    void ExecuteVerb(int Index) override;
    std::string GetVerb(int Index) override;
    int GetVerbCount() override { return 1; }
};

} // namespace dcljexc
