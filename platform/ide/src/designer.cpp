// TFormDesigner: selection, names, component creation and deletion, the event-handler table and the
// notifications to design windows.
#include "ide/designer.h"

#include <algorithm>

#include "ide/propedit.h"

namespace ide {

using namespace rtl;

namespace {
std::vector<TFormDesigner*>& Open() {
    static std::vector<TFormDesigner*> list;
    return list;
}

bool MethodTypesFit(const TTypeInfo* a, const TTypeInfo* b) {
    if (!a || !b || a == b) return true;
    return a->MethodParams == b->MethodParams && a->MethodResult == b->MethodResult;
}

// Calls fn for the root and every component it owns (and what inline frames on it own).
void ForEachDesigned(TComponent* root, const std::function<void(TComponent*)>& fn) {
    if (!root) return;
    fn(root);
    std::function<void(TComponent*)> walk = [&](TComponent* owner) {
        for (TComponent* c : owner->ComponentList()) {
            fn(c);
            if (c->ComponentState().Contains(csInline)) walk(c);
        }
    };
    walk(root);
}
} // namespace

// Tells the designer when its root is freed behind its back.
class TFormDesigner::TRootWatch : public TComponent {
public:
    explicit TRootWatch(TFormDesigner* d) : TComponent(nullptr), FDesigner(d) {}

protected:
    void Notification(TComponent* c, TOperation op) override {
        TComponent::Notification(c, op);
        if (op == opRemove && FDesigner && c == FDesigner->FRoot) FDesigner->RootDestroyed();
    }

private:
    TFormDesigner* FDesigner;
};

TFormDesigner::TFormDesigner(TComponent* root, bool ownsRoot) : FRoot(root), FOwnsRoot(ownsRoot) {
    if (!root) throw EInvalidOperation("A designer needs a root component");
    if (DesignerOf(root)) throw EInvalidOperation(Format("%s is already being designed", {root->Name()}));
    FWatch = std::make_unique<TRootWatch>(this);
    root->FreeNotification(FWatch.get());
    root->SetDesigning(true, true);
    root->SetDesigner(static_cast<IDesignerNotify*>(this));
    Open().push_back(this);
    RebuildMethodTable();
    SetActiveDesigner(this);
    ForEachDesignNotification([&](IDesignNotification* n) { n->DesignerOpened(this, false); });
}

TFormDesigner::~TFormDesigner() {
    Close();
    if (FRoot) {
        FRoot->RemoveFreeNotification(FWatch.get());
        if (FOwnsRoot) {
            TComponent* root = FRoot;
            FRoot = nullptr;
            root->Free();
        }
    }
}

void TFormDesigner::Close() {
    if (FClosed) return;
    FClosing = true;
    FlushInserted();
    ForEachDesignNotification([&](IDesignNotification* n) { n->DesignerClosed(this, false); });
    if (FRoot) FRoot->SetDesigner(nullptr);
    std::erase(Open(), this);
    if (ActiveDesigner() == this) SetActiveDesigner(Open().empty() ? nullptr : Open().back());
    FSelection.Clear();
    FPendingInserted.clear();
    FClosed = true;
}

void TFormDesigner::RootDestroyed() {
    // The root is on its way out: nothing may touch it any more.
    FRoot->SetDesigner(nullptr);
    FRoot = nullptr;
    FOwnsRoot = false;
    Close();
}

std::vector<TFormDesigner*> TFormDesigner::OpenDesigners() {
    return Open();
}

TFormDesigner* TFormDesigner::DesignerOf(const TComponent* root) {
    for (TFormDesigner* d : Open())
        if (d->FRoot == root) return d;
    return nullptr;
}

// ---- Notifications ---------------------------------------------------------------------------------------
void TFormDesigner::FlushInserted() {
    while (!FPendingInserted.empty()) {
        TComponent* c = FPendingInserted.front();
        FPendingInserted.erase(FPendingInserted.begin());
        ForEachDesignNotification([&](IDesignNotification* n) { n->ItemInserted(this, c); });
    }
}

void TFormDesigner::Notification(TComponent* component, TOperation operation) {
    if (FClosing || !component) return;
    if (operation == opInsert) {
        if (!FLoading) FPendingInserted.push_back(component);
        return;
    }
    auto pending = std::find(FPendingInserted.begin(), FPendingInserted.end(), component);
    if (pending != FPendingInserted.end()) {
        // Never announced, so nobody needs to hear it is gone.
        FPendingInserted.erase(pending);
        if (FSelection.Remove(component)) SelectionChangedNotify();
        return;
    }
    FlushInserted();
    if (FSelection.Remove(component)) SelectionChangedNotify();
    if (!FLoading)
        ForEachDesignNotification([&](IDesignNotification* n) { n->ItemDeleted(this, component); });
}

void TFormDesigner::ValidateRename(TComponent* component, const std::string& curName,
                                   const std::string& newName) {
    if (FClosing || !component || component == FRoot || newName.empty()) return;
    if (FRoot && SameText(FRoot->Name(), newName)) throw EComponentError(Format(SDuplicateName, {newName}));
}

void TFormDesigner::SelectionChangedNotify() {
    ForEachDesignNotification([&](IDesignNotification* n) { n->SelectionChanged(this, FSelection); });
    if (OnSelectionChanged) OnSelectionChanged(this);
}

void TFormDesigner::Modified() {
    if (FClosed) return;
    FModified = true;
    FlushInserted();
    ForEachDesignNotification([&](IDesignNotification* n) { n->ItemsModified(this); });
    ForEachDesignNotification([&](IDesignNotification* n) { n->FormModified(this); });
    if (OnModified) OnModified(this);
}

void TFormDesigner::Activate() {
    FlushInserted();
    SetActiveDesigner(this);
}

// ---- Selection
// -------------------------------------------------------------------------------------------------
void TFormDesigner::SelectComponent(TPersistent* instance) {
    TDesignerSelectionList list;
    if (instance) list.Add(instance);
    SetSelections(list);
}

void TFormDesigner::SetSelections(const TDesignerSelectionList& list) {
    FlushInserted();
    FSelection = list;
    SelectionChangedNotify();
}

// ---- Names
// ---------------------------------------------------------------------------------------------------------
TComponent* TFormDesigner::GetComponent(const std::string& name) const {
    if (!FRoot || name.empty()) return nullptr;
    auto dot = name.find('.');
    if (dot == std::string::npos) {
        if (SameText(FRoot->Name(), name)) return FRoot;
        return FRoot->FindComponent(name);
    }
    std::string first = name.substr(0, dot), rest = name.substr(dot + 1);
    if (rest.empty() || rest.find('.') != std::string::npos) return nullptr;
    // A component of an inline frame on this form, then a component of another form under design.
    if (TComponent* frame = FRoot->FindComponent(first)) return frame->FindComponent(rest);
    if (SameText(FRoot->Name(), first)) return FRoot->FindComponent(rest);
    for (TFormDesigner* d : Open())
        if (d != this && d->FRoot && SameText(d->FRoot->Name(), first)) return d->FRoot->FindComponent(rest);
    return nullptr;
}

std::string TFormDesigner::GetComponentName(const TComponent* component) const {
    if (!component) return {};
    // Components of this form go by their own name; those of a frame on it or of another form by the
    // owner's name and theirs ("Frame1.ListBox1", "Form2.Button1").
    TComponent* owner = component->Owner();
    if (component == FRoot || !owner || owner == FRoot) return component->Name();
    return owner->Name() + "." + component->Name();
}

void TFormDesigner::GetComponentNames(TClass cls, const TGetStrProc& proc) const {
    if (!FRoot) return;
    auto fits = [&](const TComponent* c) { return !c->Name().empty() && (!cls || c->InheritsFrom(cls)); };
    for (TComponent* c : FRoot->ComponentList()) {
        if (fits(c)) proc(c->Name());
        if (c->ComponentState().Contains(csInline) && !c->Name().empty())
            for (TComponent* inner : c->ComponentList())
                if (fits(inner)) proc(c->Name() + "." + inner->Name());
    }
    for (TFormDesigner* d : Open()) {
        if (d == this || !d->FRoot || d->FRoot->Name().empty()) continue;
        for (TComponent* c : d->FRoot->ComponentList())
            if (fits(c)) proc(d->FRoot->Name() + "." + c->Name());
    }
}

std::string TFormDesigner::GetObjectName(const TPersistent* instance) const {
    if (!instance) return {};
    if (auto* c = dynamic_cast<const TComponent*>(instance)) return GetComponentName(c);
    return instance->GetNamePath();
}

std::string TFormDesigner::GetRootClassName() const {
    return FRoot ? FRoot->ClassName() : std::string();
}

std::string TFormDesigner::UniqueName(const std::string& baseName) const {
    std::string base = baseName;
    if (base.size() > 1 && (base[0] == 'T' || base[0] == 't')) base.erase(0, 1);
    for (int n = 1;; ++n) {
        std::string candidate = base + IntToStr(n);
        if (FRoot && SameText(FRoot->Name(), candidate)) continue;
        if (FRoot && FRoot->FindComponent(candidate)) continue;
        return candidate;
    }
}

// ---- Creating and deleting
// -------------------------------------------------------------------------------------------
TComponent* TFormDesigner::CreateComponent(TClass componentClass, TComponent* parent, int left, int top,
                                           int width, int height) {
    if (!FRoot) throw EInvalidOperation("The designer is closed");
    if (!componentClass || !componentClass->CanCreateComponent())
        throw EComponentError(Format("Cannot create a component of class %s",
                                     {componentClass ? componentClass->ClassName() : std::string("nil")}));
    if (parent && (parent->ComponentState().Contains(csInline) ||
                   (parent->Owner() && parent->Owner() != FRoot &&
                    parent->Owner()->ComponentState().Contains(csInline))))
        throw EComponentError(SCantAddToFrame);
    FlushInserted();
    TComponent* c = componentClass->CreateComponent(FRoot);
    try {
        c->SetName(UniqueName(componentClass->ClassName()));
        if (c->HasParent()) c->SetParentComponent(parent ? parent : FRoot);
        auto setOrd = [&](const char* prop, int value) {
            if (const TPropInfo* p = GetPropInfo(c, prop); p && p->SetOrd) SetOrdProp(c, *p, value);
        };
        setOrd("Left", left);
        setOrd("Top", top);
        if (width > 0) setOrd("Width", width);
        if (height > 0) setOrd("Height", height);
    } catch (...) {
        c->Free();
        throw;
    }
    Modified();
    return c;
}

void TFormDesigner::DeleteComponent(TComponent* component) {
    if (!component) return;
    if (component == FRoot) throw EComponentError("The form itself cannot be deleted");
    if (component->ComponentState().Contains(csAncestor)) throw EComponentError(SCantDeleteAncestor);
    component->Free();
    Modified();
}

// ---- Event handlers
// --------------------------------------------------------------------------------------------------------
const TFormMethod* TFormDesigner::FindMethod(const std::string& name) const {
    for (auto& m : FMethods)
        if (SameText(m.Name, name)) return &m;
    return nullptr;
}

void TFormDesigner::RebuildMethodTable() {
    FMethods.clear();
    ForEachDesigned(FRoot, [&](TComponent* c) {
        for (const TPropInfo* p : c->ClassType()->Properties()) {
            if (!p->PropType || p->PropType->Kind != tkMethod || !p->GetMethod) continue;
            std::string name = p->GetMethod(c).Name;
            if (!name.empty() && !FindMethod(name)) FMethods.push_back({name, p->PropType});
        }
    });
}

TMethod TFormDesigner::CreateMethod(const std::string& name, const TTypeInfo* methodType) {
    TMethod m;
    if (name.empty()) return m;
    if (!IsValidIdent(name)) throw EPropertyError(Format(SInvalidMethodName, {name}));
    if (const TFormMethod* existing = FindMethod(name)) {
        if (!MethodTypesFit(existing->Type, methodType))
            throw EPropertyError(
                Format("The handler %s has parameters that do not fit this event", {existing->Name}));
        m.Name = existing->Name;
        return m;
    }
    FMethods.push_back({name, methodType});
    m.Name = name;
    return m;
}

void TFormDesigner::GetMethods(const TTypeInfo* methodType, const TGetStrProc& proc) const {
    for (auto& m : FMethods)
        if (MethodTypesFit(m.Type, methodType)) proc(m.Name);
}

bool TFormDesigner::MethodExists(const std::string& name) const {
    return FindMethod(name) != nullptr;
}

void TFormDesigner::RenameMethod(const std::string& curName, const std::string& newName) {
    auto it = std::find_if(FMethods.begin(), FMethods.end(),
                           [&](const TFormMethod& m) { return SameText(m.Name, curName); });
    if (it == FMethods.end()) throw EPropertyError(Format("There is no handler named %s", {curName}));
    if (!IsValidIdent(newName)) throw EPropertyError(Format(SInvalidMethodName, {newName}));
    if (const TFormMethod* other = FindMethod(newName); other && other != &*it)
        throw EPropertyError(Format("A handler named %s already exists", {newName}));
    std::string oldName = it->Name;
    it->Name = newName;
    ForEachDesigned(FRoot, [&](TComponent* c) {
        for (const TPropInfo* p : c->ClassType()->Properties()) {
            if (!p->PropType || p->PropType->Kind != tkMethod || !p->GetMethod || !p->SetMethod) continue;
            TMethod m = p->GetMethod(c);
            if (!SameText(m.Name, oldName)) continue;
            m.Name = newName;
            p->SetMethod(c, m);
        }
    });
    Modified();
}

void TFormDesigner::ShowMethod(const std::string& name) {
    FLastShownMethod = name;
    if (OnShowMethod) OnShowMethod(this, name);
}

// ---- Revert
// -----------------------------------------------------------------------------------------------------------------
void TFormDesigner::Revert(TPersistent* instance, const TPropInfo* p) {
    if (!instance || !p || !p->PropType) return;
    // The value a fresh object of the class has is the value "without editing"; the declared default and
    // empty values stand in when the class cannot be created on its own.
    TClass cls = instance->ClassType();
    std::unique_ptr<TObject, void (*)(TObject*)> fresh(nullptr, [](TObject* o) { rtl::Free(o); });
    try {
        if (cls->CanCreateComponent())
            fresh.reset(cls->CreateComponent(nullptr));
        else if (cls->CanCreate())
            fresh.reset(cls->Create());
    } catch (const Exception&) {
        fresh.reset();
    }
    switch (p->PropType->Kind) {
    case tkInteger:
    case tkChar:
    case tkWChar:
    case tkEnumeration:
    case tkSet:
    case tkInt64:
        if (!p->SetOrd) return;
        if (fresh && p->GetOrd)
            SetOrdProp(instance, *p, p->GetOrd(fresh.get()));
        else if (p->Default)
            SetOrdProp(instance, *p, *p->Default);
        break;
    case tkFloat:
        if (p->SetFloat) SetFloatProp(instance, *p, fresh && p->GetFloat ? p->GetFloat(fresh.get()) : 0.0);
        break;
    case tkString:
    case tkLString:
    case tkWString:
        if (p->SetStr && !SameText(p->Name, "Name"))
            SetStrProp(instance, *p, fresh && p->GetStr ? p->GetStr(fresh.get()) : std::string());
        break;
    case tkClass:
        if (p->SetObj && p->PropType->ClassType &&
            p->PropType->ClassType->InheritsFrom(TComponent::StaticClass()))
            SetObjectProp(instance, *p, nullptr);
        else if (fresh && p->GetObj) {
            auto* src = dynamic_cast<TPersistent*>(p->GetObj(fresh.get()));
            auto* dst = dynamic_cast<TPersistent*>(GetObjectProp(instance, *p));
            if (src && dst) dst->Assign(src);
        }
        break;
    case tkMethod:
        if (p->SetMethod) SetMethodProp(instance, *p, TMethod{});
        break;
    default:
        break;
    }
}

} // namespace ide
