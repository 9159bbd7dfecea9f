// Component editors: the verbs of the designer's context menu and the double-click action of a component,
// their registry, and TDefaultEditor's go-to-the-default-event behaviour.
#pragma once

#include <memory>
#include <string>

#include "ide/designintf.h"
#include "ide/propedit.h"

namespace ide {

// Edits one component. Editor classes are created through their class reference (default constructor),
// then Setup gives them the component and its designer, then Initialize.
class TComponentEditor : public rtl::TObject {
    JEX_CLASS(TComponentEditor, rtl::TObject)
    TComponentEditor() = default;

    void Setup(TComponent* component, IDesigner* designer);
    virtual void Initialize() {}

    TComponent* Component() const { return FComponent; }
    IDesigner* Designer() const { return FDesigner; }

    // Double-click: runs verb 0 when there is one.
    virtual void Edit();
    virtual void ExecuteVerb(int index) {}
    // Menu caption of a verb; "&" marks the accelerator.
    virtual std::string GetVerb(int index) { return {}; }
    virtual int GetVerbCount() { return 0; }
    // Puts a representation of the component on the clipboard; nothing by default.
    virtual void Copy() {}
    // True when the component belongs to an inline frame instance (its owner is inline).
    bool IsInInlined() const;

private:
    TComponent* FComponent = nullptr;
    IDesigner* FDesigner = nullptr;
};
using TComponentEditorPtr = std::unique_ptr<TComponentEditor>;

// Double-click goes to the handler of the default event: OnCreate, else OnChange, else OnClick, else the
// first event in name order; an empty event gets a new handler named after the component and the event
// without "On" (Button1Click). Nothing happens for a component without events.
class TDefaultEditor : public TComponentEditor {
    JEX_CLASS(TDefaultEditor, TComponentEditor)
    void Edit() override;

protected:
    // Sees every property of the component in turn; set `continueEdit` false to stop the default action.
    virtual void EditProperty(TPropertyEditor* editor, bool& continueEdit);

private:
    TPropertyEditorPtr FFirst, FBest;
    bool FContinue = true;
};

// Binds EditorClass (a TComponentEditor descendant) to ComponentClass and its descendants, tagged with the
// current module. Raises EComponentError when EditorClass is no creatable component editor.
void RegisterComponentEditor(TClass ComponentClass, TClass EditorClass);

// The editor class registered for the most derived class `componentClass` inherits from (a later
// registration of the same class wins), else TDefaultEditor.
TClass GetComponentEditorClass(TClass componentClass);
// A set-up editor for the component.
TComponentEditorPtr GetComponentEditor(TComponent* component, IDesigner* designer);

int ComponentEditorRegistrationCount();

} // namespace ide
