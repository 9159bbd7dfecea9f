// Menus: menu items with sub-items, main and popup menus, and shortcuts (key plus shift state in one word).
#pragma once

#include <string>
#include <vector>

#include "vcl/controls.h"

namespace vcl {

class TMenu;

using TShortCut = uint16_t;
const rtl::TTypeInfo* TypeInfo_TShortCut();
inline constexpr TShortCut scShift = 0x2000, scCtrl = 0x4000, scAlt = 0x8000, scNone = 0;
TShortCut ShortCut(uint16_t Key, TShiftState Shift);
void ShortCutToKey(TShortCut ShortCut, uint16_t& Key, TShiftState& Shift);
// "Ctrl+Shift+S", "F1", "Del"; empty for none.
std::string ShortCutToText(TShortCut ShortCut);
// The reverse of ShortCutToText (ignoring case); 0 when the text is not a shortcut.
TShortCut TextToShortCut(const std::string& Text);
// "&File" -> "File" ("&&" stands for one '&').
std::string StripHotkey(const std::string& Text);

inline constexpr const char* cLineCaption = "-";

class TMenuItem : public TComponent {
    JEX_CLASS(TMenuItem, TComponent)
    explicit TMenuItem(TComponent* AOwner);
    // Frees the sub-items, whoever owns them.
    ~TMenuItem() override;

    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& v) { FCaption = v; }
    bool Checked() const { return FChecked; }
    // Checking a radio item unchecks the other radio items of its group under the same parent.
    void SetChecked(bool v);
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool v) { FEnabled = v; }
    bool Visible() const { return FVisible; }
    void SetVisible(bool v) { FVisible = v; }
    bool Default() const { return FDefault; }
    void SetDefault(bool v) { FDefault = v; }
    bool AutoCheck() const { return FAutoCheck; }
    void SetAutoCheck(bool v) { FAutoCheck = v; }
    uint8_t GroupIndex() const { return FGroupIndex; }
    void SetGroupIndex(uint8_t v) { FGroupIndex = v; }
    bool RadioItem() const { return FRadioItem; }
    void SetRadioItem(bool v) { FRadioItem = v; }
    TShortCut ShortCut() const { return FShortCut; }
    void SetShortCut(TShortCut v) { FShortCut = v; }
    std::string Hint() const { return FHint; }
    void SetHint(const std::string& v) { FHint = v; }
    THelpContext HelpContext() const { return FHelpContext; }
    void SetHelpContext(THelpContext v) { FHelpContext = v; }
    int ImageIndex() const { return FImageIndex; }
    void SetImageIndex(int v) { FImageIndex = v; }
    bool IsLine() const { return FCaption == cLineCaption; }

    int Count() const { return static_cast<int>(FItems.size()); }
    TMenuItem* Items(int index) const; // raises EMenuError out of range
    TMenuItem* Parent() const { return FParent; }
    int MenuIndex() const;
    void SetMenuIndex(int v);
    void Add(TMenuItem* Item); // raises EMenuError when Item already has a parent
    void Insert(int Index, TMenuItem* Item);
    void Delete(int Index); // detaches without freeing
    void Remove(TMenuItem* Item);
    void Clear(); // frees every sub-item
    int IndexOf(const TMenuItem* Item) const;
    // A direct sub-item by caption, ignoring '&' and case (the platform's Find).
    TMenuItem* Find(const std::string& ACaption) const;
    // This item or any item below it with this component name, ignoring case.
    TMenuItem* FindByName(const std::string& AName) const;
    // The item below this one whose shortcut matches, or nil.
    TMenuItem* FindShortCut(TShortCut sc) const;
    TMenu* GetParentMenu() const;

    // A person choosing the item: AutoCheck items toggle, then OnClick.
    virtual void Click();

    bool HasParent() const override { return true; }
    TComponent* GetParentComponent() const override;
    void SetParentComponent(TComponent* Value) override;
    void GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) override;
    void SetChildOrder(TComponent* Child, int Order) override;

    TNotifyEvent OnClick;

private:
    friend class TMenu;
    std::string FCaption;
    bool FChecked = false, FEnabled = true, FVisible = true, FDefault = false, FAutoCheck = false;
    uint8_t FGroupIndex = 0;
    bool FRadioItem = false;
    TShortCut FShortCut = 0;
    std::string FHint;
    THelpContext FHelpContext = 0;
    int FImageIndex = -1;
    TMenuItem* FParent = nullptr;
    TMenu* FMenu = nullptr; // set on a menu's root item
    std::vector<TMenuItem*> FItems;
};

class EMenuError : public rtl::Exception {
public:
    using Exception::Exception;
    const char* ClassName() const noexcept override { return "EMenuError"; }
};

class TMenu : public TComponent {
    JEX_CLASS(TMenu, TComponent)
    explicit TMenu(TComponent* AOwner);
    ~TMenu() override;
    // The invisible root item whose sub-items are the menu's top-level items.
    TMenuItem* Items() const { return FItems; }
    TMenuItem* FindByName(const std::string& AName) const { return FItems->FindByName(AName); }
    // Runs the item whose shortcut is Key+Shift (when it and its parents are enabled); true when one ran.
    bool IsShortCut(uint16_t Key, TShiftState Shift);
    void GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) override;
    void SetChildOrder(TComponent* Child, int Order) override { FItems->SetChildOrder(Child, Order); }

private:
    TMenuItem* FItems;
};

class TMainMenu : public TMenu {
    JEX_CLASS(TMainMenu, TMenu)
    using TMenu::TMenu;
    bool AutoMerge() const { return FAutoMerge; }
    void SetAutoMerge(bool v) { FAutoMerge = v; }

private:
    bool FAutoMerge = false;
};

JEX_ENUM(TPopupAlignment, paLeft, paRight, paCenter)

class TPopupMenu : public TMenu {
    JEX_CLASS(TPopupMenu, TMenu)
    using TMenu::TMenu;
    TPopupAlignment Alignment() const { return FAlignment; }
    void SetAlignment(TPopupAlignment v) { FAlignment = v; }
    bool AutoPopup() const { return FAutoPopup; }
    void SetAutoPopup(bool v) { FAutoPopup = v; }
    TComponent* PopupComponent() const { return FPopupComponent; }
    void SetPopupComponent(TComponent* v) { FPopupComponent = v; }
    // Raises OnPopup and shows the menu at a screen position through the user-interface service.
    virtual void Popup(int X, int Y);
    TNotifyEvent OnPopup;

private:
    TPopupAlignment FAlignment = paLeft;
    bool FAutoPopup = true;
    TComponent* FPopupComponent = nullptr;
};

} // namespace vcl
