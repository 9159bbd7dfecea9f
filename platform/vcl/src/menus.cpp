// Menu items, main and popup menus, and the shortcut texts ("Ctrl+S").
#include "vcl/menus.h"

#include <algorithm>

#include "vcl/uiservice.h"

namespace vcl {

JEX_DEFINE_ENUM(TPopupAlignment)

const rtl::TTypeInfo* TypeInfo_TShortCut() {
    static const rtl::TTypeInfo ti =
        rtl::TTypeInfo::MakeOrdinal("TShortCut", rtl::tkInteger, rtl::otUWord, 0, 65535);
    return &ti;
}

// ---- Shortcuts ----------------------------------------------------------------------------------------
TShortCut ShortCut(uint16_t Key, TShiftState Shift) {
    if (Key & 0xFF00) return 0;
    TShortCut sc = Key;
    if (Shift.Contains(ssShift)) sc |= scShift;
    if (Shift.Contains(ssCtrl)) sc |= scCtrl;
    if (Shift.Contains(ssAlt)) sc |= scAlt;
    return sc;
}

void ShortCutToKey(TShortCut sc, uint16_t& Key, TShiftState& Shift) {
    Key = sc & 0xFF;
    Shift = {};
    if (sc & scShift) Shift.Include(ssShift);
    if (sc & scCtrl) Shift.Include(ssCtrl);
    if (sc & scAlt) Shift.Include(ssAlt);
}

namespace {
std::string KeyName(uint16_t key) {
    if ((key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z'))
        return std::string(1, static_cast<char>(key));
    if (key >= VK_F1 && key <= 135) return "F" + std::to_string(key - VK_F1 + 1);
    if (key >= VK_NUMPAD0 && key <= VK_NUMPAD9) return "Num " + std::to_string(key - VK_NUMPAD0);
    switch (key) {
    case VK_BACK:
        return "BkSp";
    case VK_TAB:
        return "Tab";
    case VK_RETURN:
        return "Enter";
    case VK_ESCAPE:
        return "Esc";
    case VK_SPACE:
        return "Space";
    case VK_PRIOR:
        return "PgUp";
    case VK_NEXT:
        return "PgDn";
    case VK_END:
        return "End";
    case VK_HOME:
        return "Home";
    case VK_LEFT:
        return "Left";
    case VK_UP:
        return "Up";
    case VK_RIGHT:
        return "Right";
    case VK_DOWN:
        return "Down";
    case VK_INSERT:
        return "Ins";
    case VK_DELETE:
        return "Del";
    default:
        return {};
    }
}
} // namespace

std::string ShortCutToText(TShortCut sc) {
    std::string name = KeyName(sc & 0xFF);
    if (name.empty()) return {};
    std::string s;
    if (sc & scShift) s += "Shift+";
    if (sc & scCtrl) s += "Ctrl+";
    if (sc & scAlt) s += "Alt+";
    return s + name;
}

TShortCut TextToShortCut(const std::string& Text) {
    std::string rest = Text;
    TShortCut mods = 0;
    while (true) {
        if (rtl::SameText(rest.substr(0, 6), "Shift+")) {
            mods |= scShift;
            rest = rest.substr(6);
        } else if (rtl::SameText(rest.substr(0, 5), "Ctrl+")) {
            mods |= scCtrl;
            rest = rest.substr(5);
        } else if (rtl::SameText(rest.substr(0, 4), "Alt+")) {
            mods |= scAlt;
            rest = rest.substr(4);
        } else {
            break;
        }
    }
    if (rest.empty()) return 0;
    for (unsigned k = 8; k <= 255; ++k)
        if (std::string n = KeyName(static_cast<uint16_t>(k)); !n.empty() && rtl::SameText(n, rest))
            return static_cast<TShortCut>(k | mods);
    return 0;
}

std::string StripHotkey(const std::string& Text) {
    std::string s;
    for (size_t i = 0; i < Text.size(); ++i) {
        if (Text[i] == '&') {
            if (i + 1 < Text.size() && Text[i + 1] == '&') {
                s += '&';
                ++i;
            }
            continue;
        }
        s += Text[i];
    }
    return s;
}

// ---- TMenuItem ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TMenuItem, TComponent, "Menus") {
    d.Property("AutoCheck", &TMenuItem::AutoCheck, &TMenuItem::SetAutoCheck).Default(false);
    d.Property("Caption", &TMenuItem::Caption, &TMenuItem::SetCaption);
    d.Property("Checked", &TMenuItem::Checked, &TMenuItem::SetChecked).Default(false);
    d.Property("Default", &TMenuItem::Default, &TMenuItem::SetDefault).Default(false);
    d.Property("Enabled", &TMenuItem::Enabled, &TMenuItem::SetEnabled).Default(true);
    d.Property("GroupIndex", &TMenuItem::GroupIndex, &TMenuItem::SetGroupIndex).Default(0);
    d.Property("HelpContext", &TMenuItem::HelpContext, &TMenuItem::SetHelpContext,
               rtl::TypeInfo_THelpContext())
        .Default(0);
    d.Property("Hint", &TMenuItem::Hint, &TMenuItem::SetHint);
    d.Property("ImageIndex", &TMenuItem::ImageIndex, &TMenuItem::SetImageIndex, TypeInfo_TImageIndex())
        .Default(-1);
    d.Property("RadioItem", &TMenuItem::RadioItem, &TMenuItem::SetRadioItem).Default(false);
    d.Property("ShortCut", &TMenuItem::ShortCut, &TMenuItem::SetShortCut, TypeInfo_TShortCut()).Default(0);
    d.Property("Visible", &TMenuItem::Visible, &TMenuItem::SetVisible).Default(true);
    d.Event("OnClick", &TMenuItem::OnClick);
}

TMenuItem::TMenuItem(TComponent* AOwner) : TComponent(AOwner) {}

TMenuItem::~TMenuItem() {
    if (FParent) FParent->Remove(this);
    while (!FItems.empty()) {
        TMenuItem* item = FItems.back();
        FItems.pop_back();
        item->FParent = nullptr;
        item->Free();
    }
}

void TMenuItem::SetChecked(bool v) {
    if (v == FChecked) return;
    FChecked = v;
    if (v && FRadioItem && FParent)
        for (TMenuItem* i : FParent->FItems)
            if (i != this && i->FRadioItem && i->FGroupIndex == FGroupIndex) i->FChecked = false;
}

TMenuItem* TMenuItem::Items(int index) const {
    if (index < 0 || index >= Count()) throw EMenuError("Menu index out of range");
    return FItems[index];
}

int TMenuItem::MenuIndex() const {
    return FParent ? FParent->IndexOf(this) : -1;
}

void TMenuItem::SetMenuIndex(int v) {
    if (!FParent) return;
    TMenuItem* parent = FParent;
    int count = parent->Count();
    v = std::clamp(v, 0, count - 1);
    parent->Remove(this);
    parent->Insert(v, this);
}

void TMenuItem::Add(TMenuItem* Item) {
    Insert(Count(), Item);
}

void TMenuItem::Insert(int Index, TMenuItem* Item) {
    if (!Item) return;
    if (Item->FParent) throw EMenuError("Menu inserted twice");
    if (Index < 0 || Index > Count()) throw EMenuError("Menu index out of range");
    for (TMenuItem* p = this; p; p = p->FParent)
        if (p == Item) throw EMenuError("Menu inserted twice");
    FItems.insert(FItems.begin() + Index, Item);
    Item->FParent = this;
}

void TMenuItem::Delete(int Index) {
    if (Index < 0 || Index >= Count()) throw EMenuError("Menu index out of range");
    TMenuItem* item = FItems[Index];
    FItems.erase(FItems.begin() + Index);
    item->FParent = nullptr;
}

void TMenuItem::Remove(TMenuItem* Item) {
    int i = IndexOf(Item);
    if (i < 0) throw EMenuError("Sub-menu is not in menu");
    Delete(i);
}

void TMenuItem::Clear() {
    while (!FItems.empty())
        FItems.back()->Free();
}

int TMenuItem::IndexOf(const TMenuItem* Item) const {
    auto it = std::find(FItems.begin(), FItems.end(), Item);
    return it == FItems.end() ? -1 : static_cast<int>(it - FItems.begin());
}

TMenuItem* TMenuItem::Find(const std::string& ACaption) const {
    std::string wanted = StripHotkey(ACaption);
    for (TMenuItem* i : FItems)
        if (rtl::SameText(StripHotkey(i->FCaption), wanted)) return i;
    return nullptr;
}

TMenuItem* TMenuItem::FindByName(const std::string& AName) const {
    if (!Name().empty() && rtl::SameText(Name(), AName)) return const_cast<TMenuItem*>(this);
    for (TMenuItem* i : FItems)
        if (TMenuItem* f = i->FindByName(AName)) return f;
    return nullptr;
}

TMenuItem* TMenuItem::FindShortCut(TShortCut sc) const {
    for (TMenuItem* i : FItems) {
        if (i->FShortCut == sc && sc != 0) return i;
        if (TMenuItem* f = i->FindShortCut(sc)) return f;
    }
    return nullptr;
}

TMenu* TMenuItem::GetParentMenu() const {
    const TMenuItem* i = this;
    while (i->FParent)
        i = i->FParent;
    return i->FMenu;
}

void TMenuItem::Click() {
    if (!FEnabled) return;
    if (FAutoCheck) SetChecked(!FChecked);
    OnClick(this);
}

TComponent* TMenuItem::GetParentComponent() const {
    if (FParent && FParent->FMenu) return FParent->FMenu;
    return FParent;
}

void TMenuItem::SetParentComponent(TComponent* Value) {
    if (FParent) FParent->Remove(this);
    if (auto* m = dynamic_cast<TMenu*>(Value))
        m->Items()->Add(this);
    else if (auto* i = dynamic_cast<TMenuItem*>(Value))
        i->Add(this);
}

void TMenuItem::GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) {
    for (TMenuItem* i : FItems)
        if (i->Owner() == Root) Proc(i);
}

void TMenuItem::SetChildOrder(TComponent* Child, int Order) {
    if (auto* i = dynamic_cast<TMenuItem*>(Child); i && i->FParent == this) i->SetMenuIndex(Order);
}

// ---- Menus --------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TMenu, TComponent, "Menus") {}

TMenu::TMenu(TComponent* AOwner) : TComponent(AOwner), FItems(new TMenuItem(nullptr)) {
    FItems->FMenu = this;
}

TMenu::~TMenu() {
    FItems->Free();
}

bool TMenu::IsShortCut(uint16_t Key, TShiftState Shift) {
    TShortCut sc = ShortCut(Key, Shift - TShiftState{ssLeft, ssRight, ssMiddle, ssDouble});
    if (sc == 0) return false;
    TMenuItem* item = FItems->FindShortCut(sc);
    if (!item) return false;
    for (TMenuItem* p = item; p && p != FItems; p = p->Parent())
        if (!p->Enabled() || !p->Visible()) return false;
    item->Click();
    return true;
}

void TMenu::GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) {
    FItems->GetChildren(Proc, Root);
}

JEX_IMPLEMENT_CLASS(TMainMenu, TMenu, "Menus") {
    d.Property("AutoMerge", &TMainMenu::AutoMerge, &TMainMenu::SetAutoMerge).Default(false);
}

JEX_IMPLEMENT_CLASS(TPopupMenu, TMenu, "Menus") {
    d.Property("Alignment", &TPopupMenu::Alignment, &TPopupMenu::SetAlignment).Default(paLeft);
    d.Property("AutoPopup", &TPopupMenu::AutoPopup, &TPopupMenu::SetAutoPopup).Default(true);
    d.Event("OnPopup", &TPopupMenu::OnPopup);
}

void TPopupMenu::Popup(int X, int Y) {
    OnPopup(this);
    UI().Popup(this, X, Y);
}

} // namespace vcl
