// Component editors, TDefaultEditor and the component editor registry.
#include "ide/compedit.h"

#include <vector>

#include "registry_internal.h"

namespace ide {

using namespace rtl;

JEX_IMPLEMENT_CLASS(TComponentEditor, TObject, "DesignEditors") {}

void TComponentEditor::Setup(TComponent* component, IDesigner* designer) {
    FComponent = component;
    FDesigner = designer;
}

void TComponentEditor::Edit() {
    if (GetVerbCount() > 0) ExecuteVerb(0);
}

bool TComponentEditor::IsInInlined() const {
    TComponent* owner = FComponent ? FComponent->Owner() : nullptr;
    return owner && owner->ComponentState().Contains(csInline);
}

JEX_IMPLEMENT_CLASS(TDefaultEditor, TComponentEditor, "DesignEditors") {}

void TDefaultEditor::EditProperty(TPropertyEditor* editor, bool& continueEdit) {}

void TDefaultEditor::Edit() {
    FContinue = true;
    FFirst.reset();
    FBest.reset();
    auto rank = [](const std::string& name) {
        if (SameText(name, "OnCreate")) return 3;
        if (SameText(name, "OnChange")) return 2;
        if (SameText(name, "OnClick")) return 1;
        return 0;
    };
    TDesignerSelectionList list{Component()};
    GetComponentProperties(list, tkAny, Designer(), [&](TPropertyEditorPtr editor) {
        EditProperty(editor.get(), FContinue);
        if (!dynamic_cast<TMethodProperty*>(editor.get())) return;
        int r = rank(editor->GetName());
        if (r > 0 && (!FBest || r > rank(FBest->GetName())))
            FBest = std::move(editor);
        else if (!FFirst)
            FFirst = std::move(editor);
    });
    // Both are released before returning, also when Edit raises.
    TPropertyEditorPtr best = std::move(FBest), first = std::move(FFirst);
    if (!FContinue) return;
    if (best)
        best->Edit();
    else if (first)
        first->Edit();
}

namespace {
struct TCompEditorReg {
    TClass ComponentClass;
    TClass Editor;
    TModuleHandle Module;
};
std::vector<TCompEditorReg>& Registry() {
    static std::vector<TCompEditorReg> r;
    return r;
}
} // namespace

void detail::WithdrawComponentEditors(TModuleHandle module) {
    std::erase_if(Registry(), [&](const TCompEditorReg& r) { return r.Module == module; });
}

void RegisterComponentEditor(TClass ComponentClass, TClass EditorClass) {
    if (!ComponentClass) throw EComponentError("A component editor needs a component class");
    if (!EditorClass || !EditorClass->InheritsFrom(TComponentEditor::StaticClass()) ||
        !EditorClass->CanCreate())
        throw EComponentError(Format("%s is not a component editor class",
                                     {EditorClass ? EditorClass->ClassName() : std::string("nil")}));
    Registry().push_back({ComponentClass, EditorClass, CurrentModule()});
}

TClass GetComponentEditorClass(TClass componentClass) {
    const TCompEditorReg* best = nullptr;
    for (const auto& r : Registry()) {
        if (!componentClass || !componentClass->InheritsFrom(r.ComponentClass)) continue;
        // Later wins among equals; a more derived class wins over its ancestors.
        if (!best || r.ComponentClass->InheritsFrom(best->ComponentClass)) best = &r;
    }
    return best ? best->Editor : TDefaultEditor::StaticClass();
}

TComponentEditorPtr GetComponentEditor(TComponent* component, IDesigner* designer) {
    TClass cls = GetComponentEditorClass(component ? component->ClassType() : nullptr);
    TComponentEditorPtr editor(static_cast<TComponentEditor*>(cls->Create()));
    editor->Setup(component, designer);
    editor->Initialize();
    return editor;
}

int ComponentEditorRegistrationCount() {
    return static_cast<int>(Registry().size());
}

} // namespace ide
