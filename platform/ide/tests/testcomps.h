// Component classes the design API tests edit: a form-like root, plain and derived components with
// properties of every kind, and a small parent/child control pair.
#pragma once

#include <string>
#include <vector>

#include "ide/modules.h"
#include "rtl/classes.h"
#include "vcl/graphics.h"

namespace idetest {

using rtl::TComponent;

JEX_ENUM(TShade, shLight, shMedium, shDark)
JEX_SET(TShades, TShade)
const rtl::TTypeInfo* TypeInfo_TImageIndex();
const rtl::TTypeInfo* TypeInfo_TSmall(); // Integer subrange -5..5
JEX_EVENT_TYPE(TChangeEvent, void(rtl::TObject* Sender, int Value))

// The designed root ("form").
class TTestForm : public TComponent {
    JEX_CLASS(TTestForm, TComponent)
    using TComponent::TComponent;
    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& v) { FCaption = v; }
    rtl::TNotifyEvent OnCreate;
    rtl::TNotifyEvent OnClick;
    // Writes the components it owns that have no other parent, as a form or data module does.
    void GetChildren(const rtl::TGetChildProc& proc, TComponent* root) override;

private:
    std::string FCaption;
};

// A component with one property of each kind.
class TGadget : public TComponent {
    JEX_CLASS(TGadget, TComponent)
    explicit TGadget(TComponent* owner);
    ~TGadget() override;
    int Width() const { return FWidth; }
    void SetWidth(int v) { FWidth = v; }
    int Small() const { return FSmall; }
    void SetSmall(int v) { FSmall = v; }
    bool Checked() const { return FChecked; }
    void SetChecked(bool v) { FChecked = v; }
    char Letter() const { return FLetter; }
    void SetLetter(char v) { FLetter = v; }
    std::string FileName() const { return FFileName; }
    void SetFileName(const std::string& v) { FFileName = v; }
    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& v) { FCaption = v; }
    int ImageIndex() const { return FImageIndex; }
    void SetImageIndex(int v) { FImageIndex = v; }
    TShade Shade() const { return FShade; }
    void SetShade(TShade v) { FShade = v; }
    TShades Shades() const { return FShades; }
    void SetShades(TShades v) { FShades = v; }
    double Ratio() const { return FRatio; }
    void SetRatio(double v) { FRatio = v; }
    float Scale() const { return FScale; }
    void SetScale(float v) { FScale = v; }
    vcl::TColor Color() const { return FColor; }
    void SetColor(vcl::TColor v) { FColor = v; }
    vcl::TFont* Font() const { return FFont; }
    void SetFont(vcl::TFont* v) { FFont->Assign(v); }
    TGadget* Buddy() const { return FBuddy; }
    void SetBuddy(TGadget* v);
    rtl::TNotifyEvent OnClick;
    TChangeEvent OnChange;

protected:
    void Notification(TComponent* c, rtl::TOperation op) override;

private:
    int FWidth = 10, FSmall = 0, FImageIndex = -1;
    bool FChecked = false;
    char FLetter = 'A';
    std::string FFileName, FCaption;
    TShade FShade = shMedium;
    TShades FShades{shLight};
    double FRatio = 0;
    float FScale = 1;
    vcl::TColor FColor = vcl::clBtnFace;
    vcl::TFont* FFont;
    TGadget* FBuddy = nullptr;
};

class TFancyGadget : public TGadget {
    JEX_CLASS(TFancyGadget, TGadget)
    using TGadget::TGadget;
    std::string Hint() const { return FHint; }
    void SetHint(const std::string& v) { FHint = v; }
    rtl::TNotifyEvent OnCreate;

private:
    std::string FHint;
};

// Another class with a same-named property of another type, and one without most of TGadget's.
class TWidget : public TComponent {
    JEX_CLASS(TWidget, TComponent)
    using TComponent::TComponent;
    std::string Width() const { return FWidth; }
    void SetWidth(const std::string& v) { FWidth = v; }
    bool Checked() const { return FChecked; }
    void SetChecked(bool v) { FChecked = v; }

private:
    std::string FWidth;
    bool FChecked = false;
};

// A component without events.
class TQuiet : public TComponent {
    JEX_CLASS(TQuiet, TComponent)
    using TComponent::TComponent;
};

// A minimal control: a parent, children in order, bounds as published properties.
class TBox : public TComponent {
    JEX_CLASS(TBox, TComponent)
    using TComponent::TComponent;
    ~TBox() override;
    int Left() const { return FLeft; }
    void SetLeft(int v) { FLeft = v; }
    int Top() const { return FTop; }
    void SetTop(int v) { FTop = v; }
    int Width() const { return FWidth; }
    void SetWidth(int v) { FWidth = v; }
    int Height() const { return FHeight; }
    void SetHeight(int v) { FHeight = v; }
    TComponent* Parent() const { return FParent; }
    const std::vector<TBox*>& Children() const { return FChildren; }
    bool HasParent() const override { return true; }
    TComponent* GetParentComponent() const override { return FParent; }
    void SetParentComponent(TComponent* value) override;
    void GetChildren(const rtl::TGetChildProc& proc, TComponent* root) override;
    rtl::TNotifyEvent OnClick;

private:
    int FLeft = 0, FTop = 0, FWidth = 50, FHeight = 20;
    TComponent* FParent = nullptr;
    std::vector<TBox*> FChildren;
};

// A second root class.
class TBoxForm : public TTestForm {
    JEX_CLASS(TBoxForm, TTestForm)
    using TTestForm::TTestForm;
};

// A collection item and a component holding a collection, a cursor and a caption.
class TTestItem : public rtl::TCollectionItem {
    JEX_CLASS(TTestItem, rtl::TCollectionItem)
    using TCollectionItem::TCollectionItem;
    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& v) { FCaption = v; }

private:
    std::string FCaption;
};

class THolder : public TComponent {
    JEX_CLASS(THolder, TComponent)
    explicit THolder(TComponent* owner);
    ~THolder() override;
    rtl::TOwnedCollection* Items() const { return FItems; }
    void SetItems(rtl::TOwnedCollection* v) { FItems->Assign(v); }
    int Cursor() const { return FCursor; }
    void SetCursor(int v) { FCursor = v; }
    std::string Title() const { return FTitle; }
    void SetTitle(const std::string& v) { FTitle = v; }

private:
    rtl::TOwnedCollection* FItems;
    int FCursor = 0;
    std::string FTitle;
};

// Registers the test classes for streaming (idempotent).
void RegisterTestClasses();

// Tags registrations with a fresh fake module and withdraws them when it goes out of scope.
class TFakeModule {
public:
    TFakeModule() : FScope(this) {}
    ~TFakeModule() { ide::UnregisterModule(this); }
    ide::TModuleHandle Handle() const { return this; }

private:
    ide::TModuleScope FScope;
};

} // namespace idetest
