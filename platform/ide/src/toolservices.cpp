// The host's tool services behind the ToolServices global, and main menu interfaces backed by the
// host's real TMainMenu: items experts insert are vcl menu items, so choosing them runs the handler.
#include <algorithm>
#include <map>

#include "ide/designer.h"
#include "ide/experts.h"
#include "registry_internal.h"
#include "vcl/menus.h"

namespace ide {

using namespace rtl;

namespace {

TToolServicesConfig& Config() {
    static TToolServicesConfig c;
    return c;
}

class TMenuItemIntfImpl;

// Watches every menu item an interface refers to, so interfaces notice items that are freed, and keeps
// what vcl items do not: click handlers set through interfaces, the break flags, and which module
// inserted which item.
class TMenuTracker : public TComponent {
public:
    TMenuTracker() : TComponent(nullptr) {}
    ~TMenuTracker() override;

    void Watch(TComponent* c) { c->FreeNotification(this); }
    std::vector<TMenuItemIntfImpl*> Intfs;
    std::map<vcl::TMenuItem*, TIMenuClickEvent> Clicks;
    std::map<vcl::TMenuItem*, TIMenuFlags> Breaks;
    std::vector<std::pair<vcl::TMenuItem*, TModuleHandle>> Inserted;
    std::vector<std::pair<vcl::TMainMenu**, vcl::TMainMenu*>> Menus; // main menu interfaces' pointers

    void Click(vcl::TMenuItem* item);

protected:
    void Notification(TComponent* c, TOperation op) override;
};

TMenuTracker& Tracker() {
    static TMenuTracker t;
    return t;
}

class TMenuItemIntfImpl : public TIMenuItemIntf {
public:
    TMenuItemIntfImpl(vcl::TMenuItem* item, bool owns) : FItem(item), FOwnsItem(owns) {
        Tracker().Intfs.push_back(this);
        if (item) Tracker().Watch(item);
    }
    vcl::TMenuItem* FItem;
    bool FOwnsItem;

    bool DestroyMenuItem() override {
        if (!FItem) return false;
        vcl::TMenuItem* item = FItem;
        item->Free(); // the tracker clears FItem of every interface on it
        return true;
    }
    int GetIndex() override { return FItem ? FItem->MenuIndex() : -1; }
    int GetItemCount() override { return FItem ? FItem->Count() : 0; }
    TIMenuItemIntf* GetItem(int Index) override {
        if (!FItem || Index < 0 || Index >= FItem->Count()) return nullptr;
        return new TMenuItemIntfImpl(FItem->Items(Index), false);
    }
    std::string GetName() override { return FItem ? FItem->Name() : std::string(); }
    TIMenuItemIntf* GetParent() override {
        if (!FItem || !FItem->Parent()) return nullptr;
        return new TMenuItemIntfImpl(FItem->Parent(), false);
    }
    std::string GetCaption() override { return FItem ? FItem->Caption() : std::string(); }
    bool SetCaption(const std::string& Caption) override {
        if (!FItem) return false;
        FItem->SetCaption(Caption);
        return true;
    }
    int GetShortCut() override { return FItem ? FItem->ShortCut() : 0; }
    bool SetShortCut(int ShortCut) override {
        if (!FItem) return false;
        FItem->SetShortCut(static_cast<vcl::TShortCut>(ShortCut));
        return true;
    }
    TIMenuFlags GetFlags() override {
        if (!FItem) return {mfInvalid};
        TIMenuFlags f;
        if (FItem->Enabled()) f.Include(mfEnabled);
        if (FItem->Visible()) f.Include(mfVisible);
        if (FItem->Checked()) f.Include(mfChecked);
        if (FItem->RadioItem()) f.Include(mfRadioItem);
        auto it = Tracker().Breaks.find(FItem);
        if (it != Tracker().Breaks.end()) f += it->second;
        return f;
    }
    bool SetFlags(TIMenuFlags Mask, TIMenuFlags Flags) override {
        if (!FItem) return false;
        auto apply = [&](TIMenuFlag flag, auto setter) {
            if (Mask.Contains(flag)) (FItem->*setter)(Flags.Contains(flag));
        };
        apply(mfEnabled, &vcl::TMenuItem::SetEnabled);
        apply(mfVisible, &vcl::TMenuItem::SetVisible);
        apply(mfRadioItem, &vcl::TMenuItem::SetRadioItem);
        apply(mfChecked, &vcl::TMenuItem::SetChecked);
        TIMenuFlags breaks = TIMenuFlags{mfBreak, mfBarBreak} * Mask;
        TIMenuFlags& kept = Tracker().Breaks[FItem];
        kept = (kept - breaks) + (Flags * breaks);
        return true;
    }
    int GetGroupIndex() override { return FItem ? FItem->GroupIndex() : 0; }
    bool SetGroupIndex(int GroupIndex) override {
        if (!FItem) return false;
        FItem->SetGroupIndex(static_cast<uint8_t>(GroupIndex));
        return true;
    }
    std::string GetHint() override { return FItem ? FItem->Hint() : std::string(); }
    bool SetHint(const std::string& Hint) override {
        if (!FItem) return false;
        FItem->SetHint(Hint);
        return true;
    }
    int GetContext() override { return FItem ? FItem->HelpContext() : 0; }
    bool SetContext(int Context) override {
        if (!FItem) return false;
        FItem->SetHelpContext(Context);
        return true;
    }
    TIMenuClickEvent GetOnClick() override {
        if (!FItem) return {};
        auto it = Tracker().Clicks.find(FItem);
        return it == Tracker().Clicks.end() ? TIMenuClickEvent() : it->second;
    }
    bool SetOnClick(TIMenuClickEvent Click) override {
        if (!FItem) return false;
        vcl::TMenuItem* item = FItem;
        Tracker().Clicks[item] = std::move(Click);
        item->OnClick = [item](TObject*) { Tracker().Click(item); };
        return true;
    }
    TIMenuItemIntf* InsertItem(int Index, const std::string& Caption, const std::string& Name,
                               const std::string& Hint, int ShortCut, int Context, int GroupIndex,
                               TIMenuFlags Flags, TIMenuClickEvent EventHandler) override {
        if (!FItem) return nullptr;
        vcl::TMenu* menu = FItem->GetParentMenu();
        TComponent* owner = menu && menu->Owner() ? menu->Owner() : menu;
        auto* item = new vcl::TMenuItem(owner);
        try {
            if (!Name.empty()) item->SetName(Name);
        } catch (const Exception&) {
            item->Free();
            return nullptr;
        }
        item->SetCaption(Caption);
        item->SetHint(Hint);
        item->SetShortCut(static_cast<vcl::TShortCut>(ShortCut));
        item->SetHelpContext(Context);
        item->SetGroupIndex(static_cast<uint8_t>(GroupIndex));
        if (Index < 0 || Index > FItem->Count()) Index = FItem->Count();
        FItem->Insert(Index, item);
        auto* intf = new TMenuItemIntfImpl(item, true);
        intf->SetFlags(TIMenuFlags{mfEnabled, mfVisible, mfChecked, mfBreak, mfBarBreak, mfRadioItem}, Flags);
        if (EventHandler) intf->SetOnClick(std::move(EventHandler));
        Tracker().Inserted.emplace_back(item, CurrentModule());
        return intf;
    }
    vcl::TMenuItem* MenuItem() override { return FItem; }

protected:
    ~TMenuItemIntfImpl() override {
        std::erase(Tracker().Intfs, this);
        if (FOwnsItem && FItem) {
            vcl::TMenuItem* item = FItem;
            FItem = nullptr;
            item->Free();
        }
    }
};

TMenuTracker::~TMenuTracker() {
    for (TMenuItemIntfImpl* i : Intfs)
        i->FItem = nullptr;
}

void TMenuTracker::Click(vcl::TMenuItem* item) {
    auto it = Clicks.find(item);
    if (it == Clicks.end() || !it->second) return;
    TIMenuClickEvent handler = it->second; // the handler may replace itself
    TIntfRef<TIMenuItemIntf> sender(new TMenuItemIntfImpl(item, false));
    handler(sender.Get());
}

void TMenuTracker::Notification(TComponent* c, TOperation op) {
    TComponent::Notification(c, op);
    if (op != opRemove) return;
    for (TMenuItemIntfImpl* i : Intfs)
        if (i->FItem == c) i->FItem = nullptr;
    // c may be a menu rather than an item, and is half destroyed: compare addresses only.
    auto same = [c](const vcl::TMenuItem* item) { return static_cast<const TComponent*>(item) == c; };
    std::erase_if(Clicks, [&](auto& e) { return same(e.first); });
    std::erase_if(Breaks, [&](auto& e) { return same(e.first); });
    std::erase_if(Inserted, [&](auto& e) { return same(e.first); });
    for (auto& [slot, menu] : Menus)
        if (menu == c) *slot = nullptr;
    if (Config().MainMenu == c) Config().MainMenu = nullptr;
}

class TMainMenuIntfImpl : public TIMainMenuIntf {
public:
    explicit TMainMenuIntfImpl(vcl::TMainMenu* menu) : FMenu(menu) {
        Tracker().Watch(menu);
        Tracker().Menus.emplace_back(&FMenu, menu);
    }
    TIMenuItemIntf* GetMenuItems() override {
        return FMenu ? new TMenuItemIntfImpl(FMenu->Items(), false) : nullptr;
    }
    TIMenuItemIntf* FindMenuItem(const std::string& Name) override {
        if (!FMenu || Name.empty()) return nullptr;
        vcl::TMenuItem* item = FMenu->FindByName(Name);
        return item ? new TMenuItemIntfImpl(item, false) : nullptr;
    }

protected:
    ~TMainMenuIntfImpl() override {
        std::erase_if(Tracker().Menus, [&](auto& e) { return e.first == &FMenu; });
    }

private:
    vcl::TMainMenu* FMenu;
};

// The one tool services object; it lives as long as the process and ignores its reference count.
class TToolServicesImpl : public TIToolServices {
public:
    int AddRef() override { return 1; }
    int Release() override { return 1; }
    std::string GetProjectName() override {
        return Config().ProjectName ? Config().ProjectName() : std::string();
    }
    TIMainMenuIntf* GetMainMenu() override {
        return Config().MainMenu ? new TMainMenuIntfImpl(Config().MainMenu) : nullptr;
    }
    void RaiseException(const std::string& Message) override {
        if (Config().ReportException)
            Config().ReportException(Message);
        else
            throw Exception(Message);
    }
    int GetFormCount() override { return static_cast<int>(TFormDesigner::OpenDesigners().size()); }
    std::string GetFormName(int Index) override {
        auto open = TFormDesigner::OpenDesigners();
        if (Index < 0 || Index >= static_cast<int>(open.size()) ||
            !open[static_cast<size_t>(Index)]->GetRoot())
            return {};
        return open[static_cast<size_t>(Index)]->GetRoot()->Name();
    }
    std::string GetCurrentFile() override {
        return Config().CurrentFile ? Config().CurrentFile() : std::string();
    }
};

TToolServicesImpl GToolServices;

} // namespace

TIToolServices* ToolServices = &GToolServices;

void ConfigureToolServices(TToolServicesConfig config) {
    if (config.MainMenu) Tracker().Watch(config.MainMenu);
    Config() = std::move(config);
}

const TToolServicesConfig& ToolServicesConfig() {
    return Config();
}

int InsertedMenuItemCount() {
    return static_cast<int>(Tracker().Inserted.size());
}

void detail::WithdrawMenuItems(TModuleHandle module) {
    std::vector<vcl::TMenuItem*> items;
    for (auto& [item, m] : Tracker().Inserted)
        if (m == module) items.push_back(item);
    for (vcl::TMenuItem* item : items) {
        // Freeing an item frees the items inserted below it as well.
        auto& ins = Tracker().Inserted;
        if (std::none_of(ins.begin(), ins.end(), [&](auto& e) { return e.first == item; })) continue;
        for (TMenuItemIntfImpl* i : Tracker().Intfs)
            if (i->FItem == item) i->FOwnsItem = false;
        item->Free();
    }
}

} // namespace ide
