// The expert interface: reference-counted interface objects, library experts (RegisterLibraryExpert),
// and the tool services through which an expert reaches the host: the project name, the main menu and
// its items, and the host's exception reporting.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "rtl/typinfo.h"

namespace vcl {
class TMainMenu;
class TMenuItem;
} // namespace vcl

namespace ide {

// Reference counted: created with a count of 1, freed when Release brings the count to 0.
class TInterface {
public:
    TInterface() = default;
    TInterface(const TInterface&) = delete;
    TInterface& operator=(const TInterface&) = delete;
    virtual int AddRef();
    virtual int Release();
    virtual int GetVersion() { return 3; }
    int RefCount() const { return FRefCount; }

protected:
    virtual ~TInterface() = default;

private:
    int FRefCount = 1;
};

// Releases an interface when the holder goes out of scope.
template <class T> class TIntfRef {
public:
    TIntfRef() = default;
    explicit TIntfRef(T* p) : FPtr(p) {}
    ~TIntfRef() { Reset(); }
    TIntfRef(TIntfRef&& o) noexcept : FPtr(o.FPtr) { o.FPtr = nullptr; }
    TIntfRef& operator=(TIntfRef&& o) noexcept {
        if (this != &o) {
            Reset();
            FPtr = o.FPtr;
            o.FPtr = nullptr;
        }
        return *this;
    }
    TIntfRef(const TIntfRef&) = delete;
    TIntfRef& operator=(const TIntfRef&) = delete;
    T* Get() const { return FPtr; }
    T* operator->() const { return FPtr; }
    explicit operator bool() const { return FPtr != nullptr; }
    T* Detach() {
        T* p = FPtr;
        FPtr = nullptr;
        return p;
    }
    void Reset() {
        if (FPtr) FPtr->Release();
        FPtr = nullptr;
    }

private:
    T* FPtr = nullptr;
};

JEX_ENUM(TExpertStyle, esStandard, esForm, esProject, esAddIn)
JEX_ENUM(TExpertStateFlag, esEnabled, esChecked)
JEX_SET(TExpertState, TExpertStateFlag)

// An expert of the host: a standard expert gets a Help menu item, form and project experts appear in the
// gallery, add-in experts put their own items into the main menu.
class TIExpert : public TInterface {
public:
    virtual std::string GetName() = 0;
    virtual std::string GetAuthor() = 0;
    virtual std::string GetComment() = 0;
    virtual std::string GetPage() = 0;
    virtual intptr_t GetGlyph() = 0; // 0: no glyph
    virtual TExpertStyle GetStyle() = 0;
    virtual TExpertState GetState() = 0;
    virtual std::string GetIDString() = 0;
    virtual std::string GetMenuText() = 0;
    virtual void Execute() = 0;
};

// Takes over the expert (its one reference) tagged with the current module; unloading the module releases
// it. Raises EInvalidOperation for nil or for an ID string already registered (the expert is then released).
void RegisterLibraryExpert(TIExpert* Expert);
// The registered experts in registration order.
std::vector<TIExpert*> LibraryExperts();
TIExpert* FindLibraryExpert(const std::string& IDString);

// ---- Menus
// ----------------------------------------------------------------------------------------------------
JEX_ENUM(TIMenuFlag, mfInvalid, mfEnabled, mfVisible, mfChecked, mfBreak, mfBarBreak, mfRadioItem)
JEX_SET(TIMenuFlags, TIMenuFlag)

class TIMenuItemIntf;
using TIMenuClickEvent = std::function<void(TIMenuItemIntf* Sender)>;

// One item of the host's main menu. Obtained interfaces must be released. An item inserted through
// InsertItem belongs to the interface returned: when that interface is released for the last time (or
// the module that inserted it is unloaded) the item leaves the menu.
class TIMenuItemIntf : public TInterface {
public:
    virtual bool DestroyMenuItem() = 0;
    virtual int GetIndex() = 0;
    virtual int GetItemCount() = 0;
    virtual TIMenuItemIntf* GetItem(int Index) = 0; // nil out of range
    virtual std::string GetName() = 0;
    virtual TIMenuItemIntf* GetParent() = 0; // nil for the menu bar item of GetMenuItems
    virtual std::string GetCaption() = 0;
    virtual bool SetCaption(const std::string& Caption) = 0;
    virtual int GetShortCut() = 0;
    virtual bool SetShortCut(int ShortCut) = 0;
    virtual TIMenuFlags GetFlags() = 0;
    virtual bool SetFlags(TIMenuFlags Mask, TIMenuFlags Flags) = 0;
    virtual int GetGroupIndex() = 0;
    virtual bool SetGroupIndex(int GroupIndex) = 0;
    virtual std::string GetHint() = 0;
    virtual bool SetHint(const std::string& Hint) = 0;
    virtual int GetContext() = 0;
    virtual bool SetContext(int Context) = 0;
    virtual TIMenuClickEvent GetOnClick() = 0;
    virtual bool SetOnClick(TIMenuClickEvent Click) = 0;
    // Inserts a sub-item at Index (appends when Index is outside 0..count); nil when it cannot.
    virtual TIMenuItemIntf* InsertItem(int Index, const std::string& Caption, const std::string& Name,
                                       const std::string& Hint, int ShortCut, int Context, int GroupIndex,
                                       TIMenuFlags Flags, TIMenuClickEvent EventHandler) = 0;
    // The vcl item behind the interface (nil once it is gone).
    virtual vcl::TMenuItem* MenuItem() = 0;
};

class TIMainMenuIntf : public TInterface {
public:
    // The menu bar's items as one item whose sub-items are the top-level menus.
    virtual TIMenuItemIntf* GetMenuItems() = 0;
    // Any item of the menu by component name (ignoring case), or nil.
    virtual TIMenuItemIntf* FindMenuItem(const std::string& Name) = 0;
};

// ---- Tool services
// ----------------------------------------------------------------------------------------------
class TIToolServices : public TInterface {
public:
    virtual std::string GetProjectName() = 0;
    // nil when the host has no main menu.
    virtual TIMainMenuIntf* GetMainMenu() = 0;
    // Hands an expert's failure to the host, which reports it its own way.
    virtual void RaiseException(const std::string& Message) = 0;
    virtual int GetFormCount() = 0;
    virtual std::string GetFormName(int Index) = 0;
    virtual std::string GetCurrentFile() = 0;
};

// What the host configures behind ToolServices.
struct TToolServicesConfig {
    std::function<std::string()> ProjectName;
    vcl::TMainMenu* MainMenu = nullptr;
    // Reports an expert's exception message; without one RaiseException throws rtl::Exception(Message).
    std::function<void(const std::string&)> ReportException;
    std::function<std::string()> CurrentFile;
};
void ConfigureToolServices(TToolServicesConfig config);
const TToolServicesConfig& ToolServicesConfig();

// The host's tool services; never nil.
extern TIToolServices* ToolServices;

// Number of menu items inserted through InsertItem and still in a menu.
int InsertedMenuItemCount();

} // namespace ide
