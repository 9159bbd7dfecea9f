// TPersistent, TComponent, collections and the streaming class registry.
#include "rtl/classes.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <mutex>

namespace rtl {

JEX_DEFINE_ENUM(TComponentStateFlag)
JEX_DEFINE_SET(TComponentState, TComponentStateFlag)
JEX_DEFINE_ENUM(TOperation)

// ---- TPersistent ------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TPersistent, TObject, "Classes") {}

void TPersistent::Assign(TPersistent* Source) {
    if (Source) Source->AssignTo(this);
    else AssignError(nullptr);
}

void TPersistent::AssignTo(TPersistent* Dest) { Dest->AssignError(this); }

void TPersistent::AssignError(const TPersistent* Source) {
    std::string src = Source ? Source->ClassName() : std::string("nil");
    throw EConvertError(Format(SAssignError, {src, ClassName()}));
}

std::string TPersistent::GetNamePath() const {
    std::string result = ClassName();
    if (TPersistent* owner = GetOwner()) {
        std::string path = owner->GetNamePath();
        if (!path.empty()) result = path + "." + result;
    }
    return result;
}

// ---- TComponent ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TComponent, TPersistent, "Classes") {
    d.Property("Name", &TComponent::Name, &TComponent::SetName, TypeInfo_TComponentName()).Stored(false);
    d.Property("Tag", &TComponent::Tag, &TComponent::SetTag).Default(0);
}

size_t TComponent::CaseInsensitiveHash::operator()(std::string_view s) const noexcept {
    size_t h = 1469598103934665603ull;
    for (unsigned char c : s) {
        h ^= static_cast<size_t>(std::toupper(c));
        h *= 1099511628211ull;
    }
    return h;
}

bool TComponent::CaseInsensitiveEqual::operator()(std::string_view a, std::string_view b) const noexcept {
    return a.size() == b.size() && SameText(a, b);
}

TComponent::TComponent(TComponent* AOwner) {
    if (AOwner) AOwner->InsertComponent(this);
}

void TComponent::SendRemoveNotifications() {
    if (FRemoveNotified) return;
    FRemoveNotified = true;
    FComponentState.Include(csDestroying);
    // Everyone who asked to be told forgets this component.
    while (!FFreeNotifies.empty()) {
        TComponent* c = FFreeNotifies.back();
        FFreeNotifies.pop_back();
        auto& back = c->FFreeNotifies;
        back.erase(std::remove(back.begin(), back.end(), this), back.end());
        c->Notification(this, opRemove);
    }
}

void TComponent::BeforeDestruction() {
    if (!FComponentState.Contains(csDestroying)) Destroying();
    SendRemoveNotifications();
}

TComponent::~TComponent() {
    Destroying();
    SendRemoveNotifications();
    DestroyComponents();
    if (FOwner) FOwner->RemoveComponent(this);
}

void TComponent::Destroying() {
    if (FComponentState.Contains(csDestroying)) return;
    FComponentState.Include(csDestroying);
    for (TComponent* c : FComponents) c->Destroying();
}

void TComponent::DestroyComponents() {
    // The owner is going away: components are removed without telling each other, last first.
    while (!FComponents.empty()) {
        TComponent* c = FComponents.back();
        FComponents.pop_back();
        UnindexName(c);
        c->FOwner = nullptr;
        if (FDesigner && !FComponentState.Contains(csDestroying)) FDesigner->Notification(c, opRemove);
        c->Free();
    }
    FNameIndex.clear();
}

TComponent* TComponent::Components(int index) const {
    if (index < 0 || index >= ComponentCount()) throw EListError(Format(SListIndexError, {index}));
    return FComponents[static_cast<size_t>(index)];
}

int TComponent::ComponentIndex() const {
    if (!FOwner) return -1;
    auto& list = FOwner->FComponents;
    auto it = std::find(list.begin(), list.end(), this);
    return it == list.end() ? -1 : static_cast<int>(it - list.begin());
}

void TComponent::SetComponentIndex(int value) {
    if (!FOwner) return;
    auto& list = FOwner->FComponents;
    int cur = ComponentIndex();
    if (cur < 0) return;
    value = std::clamp(value, 0, static_cast<int>(list.size()) - 1);
    if (value == cur) return;
    list.erase(list.begin() + cur);
    list.insert(list.begin() + value, this);
}

IDesignerNotify* TComponent::Designer() const {
    for (const TComponent* c = this; c; c = c->FOwner)
        if (c->FDesigner) return c->FDesigner;
    return nullptr;
}

void TComponent::SetName(const std::string& NewName) {
    if (FName == NewName) return;
    if (!NewName.empty() && !IsValidIdent(NewName)) throw EComponentError(Format(SInvalidName, {NewName}));
    if (FOwner) FOwner->ValidateRename(this, FName, NewName);
    else ValidateRename(nullptr, FName, NewName);
    ChangeName(NewName);
}

void TComponent::ChangeName(const std::string& NewName) {
    if (FOwner) FOwner->UnindexName(this);
    FName = NewName;
    if (FOwner) FOwner->IndexName(this);
}

void TComponent::ValidateRename(TComponent* AComponent, const std::string& CurName, const std::string& NewName) {
    if (AComponent && !SameText(CurName, NewName)) {
        if (TComponent* other = FindComponent(NewName); other && other != AComponent)
            throw EComponentError(Format(SDuplicateName, {NewName}));
    }
    if (FComponentState.Contains(csDesigning) && FOwner) FOwner->ValidateRename(AComponent, CurName, NewName);
    if (AComponent && FDesigner) FDesigner->ValidateRename(AComponent, CurName, NewName);
}

void TComponent::IndexName(TComponent* c) {
    if (!c->FName.empty()) FNameIndex.emplace(c->FName, c);
}

void TComponent::UnindexName(TComponent* c) {
    if (c->FName.empty()) return;
    auto it = FNameIndex.find(std::string_view(c->FName));
    if (it != FNameIndex.end() && it->second == c) FNameIndex.erase(it);
}

TComponent* TComponent::FindComponent(std::string_view name) const {
    if (name.empty()) return nullptr;
    auto it = FNameIndex.find(name);
    return it == FNameIndex.end() ? nullptr : it->second;
}

void TComponent::InsertComponent(TComponent* AComponent) {
    AComponent->ValidateContainer(this);
    ValidateInsert(AComponent);
    if (!AComponent->FName.empty() && FindComponent(AComponent->FName))
        throw EComponentError(Format(SDuplicateName, {AComponent->FName}));
    Insert(AComponent);
    if (FComponentState.Contains(csDesigning)) AComponent->SetDesigning(true);
    Notification(AComponent, opInsert);
}

void TComponent::RemoveComponent(TComponent* AComponent) {
    if (AComponent->FOwner != this) return;
    Notification(AComponent, opRemove);
    Remove(AComponent);
}

void TComponent::Insert(TComponent* c) {
    FComponents.push_back(c);
    c->FOwner = this;
    IndexName(c);
}

void TComponent::Remove(TComponent* c) {
    UnindexName(c);
    auto it = std::find(FComponents.rbegin(), FComponents.rend(), c);
    if (it != FComponents.rend()) FComponents.erase(std::next(it).base());
    c->FOwner = nullptr;
}

void TComponent::Notification(TComponent* AComponent, TOperation Operation) {
    if (Operation == opRemove && AComponent) RemoveFreeNotification(AComponent);
    if (IDesignerNotify* d = FDesigner) d->Notification(AComponent, Operation);
}

void TComponent::FreeNotification(TComponent* AComponent) {
    if (!AComponent || AComponent == this) return;
    if (std::find(FFreeNotifies.begin(), FFreeNotifies.end(), AComponent) == FFreeNotifies.end()) {
        FFreeNotifies.push_back(AComponent);
        AComponent->FFreeNotifies.push_back(this);
        FComponentState.Include(csFreeNotification);
    }
}

void TComponent::RemoveFreeNotification(TComponent* AComponent) {
    if (!AComponent) return;
    auto drop = [](std::vector<TComponent*>& v, TComponent* c) { v.erase(std::remove(v.begin(), v.end(), c), v.end()); };
    drop(FFreeNotifies, AComponent);
    drop(AComponent->FFreeNotifies, this);
}

void TComponent::GetChildren(const TGetChildProc& Proc, TComponent* Root) {}

void TComponent::Loaded() { FComponentState.Exclude(csLoading); }

void TComponent::SetComponentStateFlag(TComponentStateFlag f, bool on) {
    if (on) FComponentState.Include(f);
    else FComponentState.Exclude(f);
}

void TComponent::SetDesigning(bool value, bool setChildren) {
    SetComponentStateFlag(csDesigning, value);
    if (setChildren)
        for (TComponent* c : FComponents) c->SetDesigning(value, true);
}

void TComponent::SetInline(bool value) { SetComponentStateFlag(csInline, value); }
void TComponent::SetDesignInstance(bool value) { SetComponentStateFlag(csDesignInstance, value); }

void TComponent::SetAncestor(bool value) {
    SetComponentStateFlag(csAncestor, value);
    for (TComponent* c : FComponents) c->SetAncestor(value);
}

void TComponent::BeginLoading() {
    FComponentState.Include(csLoading);
    FComponentState.Include(csReading);
}

void TComponent::EndLoading() {
    FComponentState.Exclude(csReading);
    Loaded();
}

// ---- TCollectionItem / TCollection ------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCollectionItem, TPersistent, "Classes") {}

TCollectionItem::TCollectionItem(TCollection* Collection) { SetCollection(Collection); }

TCollectionItem::~TCollectionItem() {
    if (FCollection) FCollection->RemoveItem(this);
}

void TCollectionItem::SetCollection(TCollection* value) {
    if (FCollection == value) return;
    if (FCollection) FCollection->RemoveItem(this);
    if (value) value->InsertItem(this);
}

int TCollectionItem::Index() const {
    if (!FCollection) return -1;
    auto& v = FCollection->FItems;
    auto it = std::find(v.begin(), v.end(), this);
    return it == v.end() ? -1 : static_cast<int>(it - v.begin());
}

void TCollectionItem::SetIndex(int value) {
    int cur = Index();
    if (cur < 0 || cur == value) return;
    auto& v = FCollection->FItems;
    if (value < 0 || value >= static_cast<int>(v.size())) throw EListError(Format(SListIndexError, {value}));
    v.erase(v.begin() + cur);
    v.insert(v.begin() + value, this);
    Changed(true);
}

std::string TCollectionItem::GetDisplayName() const { return ClassName(); }

TPersistent* TCollectionItem::GetOwner() const { return FCollection; }

std::string TCollectionItem::GetNamePath() const {
    if (!FCollection) return ClassName();
    return FCollection->GetNamePath() + "[" + IntToStr(Index()) + "]";
}

void TCollectionItem::Changed(bool AllItems) {
    if (FCollection && FCollection->FUpdateCount == 0) FCollection->Update(AllItems ? nullptr : this);
}

JEX_IMPLEMENT_CLASS(TCollection, TPersistent, "Classes") {}
JEX_IMPLEMENT_CLASS(TOwnedCollection, TCollection, "Classes") {}

TCollection::TCollection(TClass ItemClass) : FItemClass(ItemClass) {}

TCollection::~TCollection() {
    FUpdateCount = 1;
    Clear();
}

TCollectionItem* TCollection::Add() { return FItemClass->CreateItem(this); }

TCollectionItem* TCollection::Insert(int index) {
    TCollectionItem* item = Add();
    item->SetIndex(index);
    return item;
}

void TCollection::Delete(int index) { delete Items(index); }

void TCollection::Clear() {
    if (FItems.empty()) return;
    BeginUpdate();
    while (!FItems.empty()) delete FItems.back();
    EndUpdate();
}

TCollectionItem* TCollection::Items(int index) const {
    if (index < 0 || index >= Count()) throw EListError(Format(SListIndexError, {index}));
    return FItems[static_cast<size_t>(index)];
}

TCollectionItem* TCollection::FindItemID(int id) const {
    for (auto* i : FItems)
        if (i->FID == id) return i;
    return nullptr;
}

void TCollection::BeginUpdate() { ++FUpdateCount; }

void TCollection::EndUpdate() {
    if (FUpdateCount > 0 && --FUpdateCount == 0) Changed();
}

void TCollection::Changed() {
    if (FUpdateCount == 0) {
        Update(nullptr);
        OnChange(this);
    }
}

void TCollection::Assign(TPersistent* Source) {
    if (auto* src = dynamic_cast<TCollection*>(Source)) {
        BeginUpdate();
        try {
            Clear();
            for (auto* item : src->FItems) Add()->Assign(item);
        } catch (...) {
            EndUpdate();
            throw;
        }
        EndUpdate();
        return;
    }
    TPersistent::Assign(Source);
}

std::string TCollection::GetNamePath() const {
    TPersistent* owner = GetOwner();
    if (!owner) return ClassName();
    std::string path = owner->GetNamePath();
    if (path.empty() || PropName.empty()) return ClassName();
    return path + "." + PropName;
}

void TCollection::InsertItem(TCollectionItem* item) {
    FItems.push_back(item);
    item->FCollection = this;
    item->FID = FNextID++;
    Notify(item, true);
    Changed();
}

void TCollection::RemoveItem(TCollectionItem* item) {
    Notify(item, false);
    auto it = std::find(FItems.begin(), FItems.end(), item);
    if (it != FItems.end()) FItems.erase(it);
    item->FCollection = nullptr;
    Changed();
}

// ---- Class registry ---------------------------------------------------------------------------------
namespace {
struct ClassGroup {
    TClass Root;
    std::vector<TClass> ExtraRoots; // GroupDescendentsWith
    bool Active = true;
    std::map<std::string, TClass> Classes; // upper-case name (aliases included) -> class
};

struct Registry {
    std::vector<ClassGroup> Groups;
    Registry() { Groups.push_back(ClassGroup{TPersistent::StaticClass(), {}, true, {}}); }

    // The group whose root is the most derived ancestor of cls.
    ClassGroup& GroupFor(TClass cls) {
        ClassGroup* best = &Groups.front();
        int bestDepth = -1;
        for (auto& g : Groups) {
            auto depth = [&](TClass root) {
                int d = 0;
                for (TClass c = cls; c; c = c->ClassParent(), ++d)
                    if (c == root) return 1000 - d;
                return -1;
            };
            int dg = depth(g.Root);
            for (TClass r : g.ExtraRoots) dg = std::max(dg, depth(r));
            if (dg > bestDepth) {
                bestDepth = dg;
                best = &g;
            }
        }
        return *best;
    }
};

Registry& Reg() {
    static Registry r;
    return r;
}
} // namespace

void RegisterClassAlias(TClass AClass, const std::string& Alias) {
    ClassGroup& g = Reg().GroupFor(AClass);
    std::string key = UpperCase(Alias);
    auto it = g.Classes.find(key);
    if (it != g.Classes.end()) {
        if (it->second == AClass) return;
        throw EFilerError(Format(SDuplicateClass, {Alias}));
    }
    g.Classes.emplace(std::move(key), AClass);
}

void RegisterClass(TClass AClass) {
    // Ancestors that are components are registered along, as the platform does for streaming.
    RegisterClassAlias(AClass, AClass->ClassName());
}

void RegisterClasses(std::initializer_list<TClass> classes) {
    for (TClass c : classes) RegisterClass(c);
}
void RegisterClasses(const std::vector<TClass>& classes) {
    for (TClass c : classes) RegisterClass(c);
}

void UnRegisterClass(TClass AClass) {
    for (auto& g : Reg().Groups)
        for (auto it = g.Classes.begin(); it != g.Classes.end();)
            it = it->second == AClass ? g.Classes.erase(it) : std::next(it);
}

void UnRegisterClasses(std::initializer_list<TClass> classes) {
    for (TClass c : classes) UnRegisterClass(c);
}
void UnRegisterClasses(const std::vector<TClass>& classes) {
    for (TClass c : classes) UnRegisterClass(c);
}

TClass GetClass(std::string_view ClassName) {
    std::string key = UpperCase(ClassName);
    for (auto& g : Reg().Groups) {
        if (!g.Active) continue;
        auto it = g.Classes.find(key);
        if (it != g.Classes.end()) return it->second;
    }
    return nullptr;
}

TClass FindClass(std::string_view ClassName) {
    TClass c = GetClass(ClassName);
    if (!c) throw EClassNotFound(Format(SClassNotFound, {std::string(ClassName)}));
    return c;
}

void StartClassGroup(TClass AClass) {
    for (auto& g : Reg().Groups)
        if (g.Root == AClass) return;
    Reg().Groups.push_back(ClassGroup{AClass, {}, true, {}});
}

void GroupDescendentsWith(TClass AClass, TClass AClassGroup) {
    ClassGroup& g = Reg().GroupFor(AClassGroup);
    if (std::find(g.ExtraRoots.begin(), g.ExtraRoots.end(), AClass) == g.ExtraRoots.end()) g.ExtraRoots.push_back(AClass);
}

TClass ClassGroupOf(TClass AClass) { return Reg().GroupFor(AClass).Root; }

TClass ActivateClassGroup(TClass AClass) {
    Registry& r = Reg();
    TClass previous = nullptr;
    for (auto& g : r.Groups)
        if (g.Active) {
            previous = g.Root;
            break;
        }
    ClassGroup& target = r.GroupFor(AClass);
    // The default group stays active: groups split the registry only when a class group was started.
    for (auto& g : r.Groups) g.Active = (&g == &target) || (&g == &r.Groups.front());
    return previous;
}

int RegisteredClassCount(std::string_view ClassName) {
    std::string key = UpperCase(ClassName);
    int n = 0;
    for (auto& g : Reg().Groups) n += static_cast<int>(g.Classes.count(key));
    return n;
}

std::vector<TClass> RegisteredClasses() {
    std::vector<TClass> out;
    for (auto& g : Reg().Groups)
        for (auto& [k, c] : g.Classes)
            if (SameText(k, c->ClassName())) out.push_back(c);
    return out;
}

} // namespace rtl
