// Component streaming: a round trip through every property kind, defaults, references within and across
// roots, inherited and inline objects, the clipboard, and reads that fail without leaving anything behind.
#include <gtest/gtest.h>

#include <algorithm>

#include "rtl/lists.h"
#include "rtl/streaming.h"

using namespace rtl;

namespace stm {

int gLive = 0; // instances of the test components and persistents alive
std::vector<std::string> gLoadedOrder;

JEX_ENUM(TStmKind, skNormal, skDefault, skCancel)
JEX_ENUM(TStmAnchor, saLeft, saTop, saRight, saBottom)
JEX_SET(TStmAnchors, TStmAnchor)
JEX_ENUM(TStmFontStyle, sfBold, sfItalic, sfUnderline)
JEX_SET(TStmFontStyles, TStmFontStyle)
JEX_DEFINE_ENUM(TStmKind)
JEX_DEFINE_ENUM(TStmAnchor)
JEX_DEFINE_SET(TStmAnchors, TStmAnchor)
JEX_DEFINE_ENUM(TStmFontStyle)
JEX_DEFINE_SET(TStmFontStyles, TStmFontStyle)
const TTypeInfo* TypeInfo_TStmColor();
JEX_DEFINE_ALIAS_TYPE(TypeInfo_TStmColor, "TStmColor", TypeInfo_Integer)

class TStmFont : public TPersistent {
    JEX_CLASS(TStmFont, TPersistent)
    TStmFont() { ++gLive; }
    ~TStmFont() override { --gLive; }
    std::string Name() const { return FName; }
    void SetName(const std::string& v) { FName = v; }
    int Size() const { return FSize; }
    void SetSize(int v) { FSize = v; }
    TStmFontStyles Style() const { return FStyle; }
    void SetStyle(TStmFontStyles v) { FStyle = v; }
    int Color() const { return FColor; }
    void SetColor(int v) { FColor = v; }

private:
    std::string FName;
    int FSize = 8;
    TStmFontStyles FStyle;
    int FColor = 0;
};
JEX_IMPLEMENT_CLASS(TStmFont, TPersistent, "StmTest") {
    d.Property("Name", &TStmFont::Name, &TStmFont::SetName);
    d.Property("Size", &TStmFont::Size, &TStmFont::SetSize).Default(8);
    d.Property("Style", &TStmFont::Style, &TStmFont::SetStyle).Default(0);
    d.Property("Color", &TStmFont::Color, &TStmFont::SetColor, TypeInfo_TStmColor()).Default(0);
}

// Binary data under a defined property, as pictures and glyphs carry it.
class TStmPicture : public TPersistent {
    JEX_CLASS(TStmPicture, TPersistent)
    TStmPicture() { ++gLive; }
    ~TStmPicture() override { --gLive; }
    std::vector<uint8_t> Data;
    void DefineProperties(TFiler& Filer) override {
        Filer.DefineBinaryProperty(
            "Data", [this](const std::vector<uint8_t>& d) { Data = d; },
            [this](std::vector<uint8_t>& d) { d = Data; }, !Data.empty());
    }
};
JEX_IMPLEMENT_CLASS(TStmPicture, TPersistent, "StmTest") {}

class TStmPanel : public TCollectionItem {
    JEX_CLASS(TStmPanel, TCollectionItem)
    explicit TStmPanel(TCollection* c) : TCollectionItem(c) { ++gLive; }
    ~TStmPanel() override { --gLive; }
    int Width() const { return FWidth; }
    void SetWidth(int v) { FWidth = v; }
    std::string Text() const { return FText; }
    void SetText(const std::string& v) { FText = v; }
    void Assign(TPersistent* src) override {
        if (auto* p = dynamic_cast<TStmPanel*>(src)) {
            FWidth = p->FWidth;
            FText = p->FText;
        } else {
            TCollectionItem::Assign(src);
        }
    }

private:
    int FWidth = 0;
    std::string FText;
};
JEX_IMPLEMENT_CLASS(TStmPanel, TCollectionItem, "StmTest") {
    d.Property("Width", &TStmPanel::Width, &TStmPanel::SetWidth).Default(0);
    d.Property("Text", &TStmPanel::Text, &TStmPanel::SetText);
}

class TStmMenu : public TComponent {
    JEX_CLASS(TStmMenu, TComponent)
    explicit TStmMenu(TComponent* AOwner) : TComponent(AOwner) { ++gLive; }
    ~TStmMenu() override { --gLive; }
};
JEX_IMPLEMENT_CLASS(TStmMenu, TComponent, "StmTest") {}

// A visual component: children are the controls whose parent it is, in order.
class TStmControl : public TComponent {
    JEX_CLASS(TStmControl, TComponent)
    explicit TStmControl(TComponent* AOwner) : TComponent(AOwner) { ++gLive; }
    ~TStmControl() override {
        SetParent(nullptr);
        for (TStmControl* c : FChildren)
            c->FParent = nullptr;
        --gLive;
    }
    int Left() const { return FLeft; }
    void SetLeft(int v) { FLeft = v; }
    int Top() const { return FTop; }
    void SetTop(int v) { FTop = v; }
    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& v) { FCaption = v; }

    TStmControl* Parent() const { return FParent; }
    void SetParent(TStmControl* p) {
        if (FParent == p) return;
        if (FParent) {
            auto& v = FParent->FChildren;
            v.erase(std::remove(v.begin(), v.end(), this), v.end());
        }
        FParent = p;
        if (p) p->FChildren.push_back(this);
    }
    const std::vector<TStmControl*>& Children() const { return FChildren; }

    void GetChildren(const TGetChildProc& Proc, TComponent* Root) override {
        for (TStmControl* c : FChildren)
            Proc(c);
    }
    bool HasParent() const override { return true; }
    TComponent* GetParentComponent() const override { return FParent; }
    void SetParentComponent(TComponent* Value) override {
        auto* p = dynamic_cast<TStmControl*>(Value);
        if (Value && !p) throw EInvalidOperation("Parent must be a control");
        SetParent(p);
    }
    void SetChildOrder(TComponent* Child, int Order) override {
        auto it = std::find(FChildren.begin(), FChildren.end(), Child);
        if (it == FChildren.end()) return;
        auto* c = *it;
        FChildren.erase(it);
        FChildren.insert(FChildren.begin() + std::clamp(Order, 0, static_cast<int>(FChildren.size())), c);
    }
    void Loaded() override {
        TComponent::Loaded();
        ++LoadedCalls;
        gLoadedOrder.push_back(Name());
    }
    int LoadedCalls = 0;

private:
    int FLeft = 0;
    int FTop = 0;
    std::string FCaption;
    TStmControl* FParent = nullptr;
    std::vector<TStmControl*> FChildren;
};
JEX_IMPLEMENT_CLASS(TStmControl, TComponent, "StmTest") {
    d.Property("Left", &TStmControl::Left, &TStmControl::SetLeft).Default(0);
    d.Property("Top", &TStmControl::Top, &TStmControl::SetTop); // no default: always written
    d.Property("Caption", &TStmControl::Caption, &TStmControl::SetCaption);
}

// A root: its controls, then the components it owns that have no parent.
class TStmForm : public TStmControl {
    JEX_CLASS(TStmForm, TStmControl)
    using TStmControl::TStmControl;
    bool HasParent() const override { return false; }
    void GetChildren(const TGetChildProc& Proc, TComponent* Root) override {
        TStmControl::GetChildren(Proc, Root);
        if (Root == this)
            for (TComponent* c : ComponentList())
                if (!c->HasParent()) Proc(c);
    }
};
JEX_IMPLEMENT_CLASS(TStmForm, TStmControl, "StmTest") {}

// A frame builds its own content in its constructor, as an ancestor form would.
class TStmFrame : public TStmControl {
    JEX_CLASS(TStmFrame, TStmControl)
    explicit TStmFrame(TComponent* AOwner) : TStmControl(AOwner) {
        auto* label = new TStmControl(this);
        label->SetName("Label1");
        label->SetParent(this);
        label->SetCaption("Frame text");
    }
};
JEX_IMPLEMENT_CLASS(TStmFrame, TStmControl, "StmTest") {}

class TStmButton : public TStmControl {
    JEX_CLASS(TStmButton, TStmControl)
    explicit TStmButton(TComponent* AOwner) : TStmControl(AOwner), FPanels(this, TStmPanel::StaticClass()) {
        FPanels.PropName = "Panels";
    }
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool v) { FEnabled = v; }
    TStmKind Kind() const { return FKind; }
    void SetKind(TStmKind v) { FKind = v; }
    TStmAnchors Anchors() const { return FAnchors; }
    void SetAnchors(TStmAnchors v) { FAnchors = v; }
    double Ratio() const { return FRatio; }
    void SetRatio(double v) { FRatio = v; }
    float Scale() const { return FScale; }
    void SetScale(float v) { FScale = v; }
    int64_t Big() const { return FBig; }
    void SetBig(int64_t v) { FBig = v; }
    char Letter() const { return FLetter; }
    void SetLetter(char v) { FLetter = v; }
    int Color() const { return FColor; }
    void SetColor(int v) { FColor = v; }
    TStmFont* Font() const { return const_cast<TStmFont*>(&FFont); }
    TStrings* Items() const { return const_cast<TStringList*>(&FItems); }
    void SetItems(TStrings* v) { FItems.Assign(v); }
    TOwnedCollection* Panels() const { return const_cast<TOwnedCollection*>(&FPanels); }
    TStmPicture* Picture() const { return const_cast<TStmPicture*>(&FPicture); }
    TStmMenu* PopupMenu() const { return FPopupMenu; }
    void SetPopupMenu(TStmMenu* v) {
        FPopupMenu = v;
        if (v) v->FreeNotification(this);
    }
    TStmControl* Buddy() const { return FBuddy; }
    void SetBuddy(TStmControl* v) {
        FBuddy = v;
        if (v) v->FreeNotification(this);
    }
    std::string Hidden() const { return FHidden; }
    void SetHidden(const std::string& v) { FHidden = v; }
    TNotifyEvent OnClick;
    std::vector<int> Points;
    bool BuddyKnownAtLoaded = false;

    void DefineProperties(TFiler& Filer) override {
        TStmControl::DefineProperties(Filer);
        Filer.DefineProperty(
            "Points",
            [this](TReader& r) {
                Points.clear();
                r.ReadListBegin();
                while (!r.EndOfList())
                    Points.push_back(r.ReadInteger());
                r.ReadListEnd();
            },
            [this](TWriter& w) {
                w.WriteListBegin();
                for (int p : Points)
                    w.WriteInteger(p);
                w.WriteListEnd();
            },
            !Points.empty());
    }
    void Loaded() override {
        TStmControl::Loaded();
        BuddyKnownAtLoaded = FBuddy != nullptr;
    }

protected:
    void Notification(TComponent* c, TOperation op) override {
        TStmControl::Notification(c, op);
        if (op == opRemove && c == FPopupMenu) FPopupMenu = nullptr;
        if (op == opRemove && c == FBuddy) FBuddy = nullptr;
    }

private:
    bool FEnabled = true;
    TStmKind FKind = skNormal;
    TStmAnchors FAnchors{saLeft, saTop};
    double FRatio = 0;
    float FScale = 0;
    int64_t FBig = 0;
    char FLetter = 0;
    int FColor = 0;
    TStmFont FFont;
    TStringList FItems;
    TOwnedCollection FPanels;
    TStmPicture FPicture;
    TStmMenu* FPopupMenu = nullptr;
    TStmControl* FBuddy = nullptr;
    std::string FHidden;
};
JEX_IMPLEMENT_CLASS(TStmButton, TStmControl, "StmTest") {
    d.Property("Enabled", &TStmButton::Enabled, &TStmButton::SetEnabled).Default(true);
    d.Property("Kind", &TStmButton::Kind, &TStmButton::SetKind).Default(skNormal);
    d.Property("Anchors", &TStmButton::Anchors, &TStmButton::SetAnchors)
        .Default(TStmAnchors{saLeft, saTop}.Bits());
    d.Property("Ratio", &TStmButton::Ratio, &TStmButton::SetRatio);
    d.Property("Scale", &TStmButton::Scale, &TStmButton::SetScale);
    d.Property("Big", &TStmButton::Big, &TStmButton::SetBig).Default(0);
    d.Property("Letter", &TStmButton::Letter, &TStmButton::SetLetter).Default(0);
    d.Property("Color", &TStmButton::Color, &TStmButton::SetColor, TypeInfo_TStmColor()).Default(0);
    d.ReadOnly("Font", &TStmButton::Font);
    d.Property("Items", &TStmButton::Items, &TStmButton::SetItems);
    d.ReadOnly("Panels", &TStmButton::Panels);
    d.ReadOnly("Picture", &TStmButton::Picture);
    d.Property("PopupMenu", &TStmButton::PopupMenu, &TStmButton::SetPopupMenu);
    d.Property("Buddy", &TStmButton::Buddy, &TStmButton::SetBuddy);
    d.Property("Hidden", &TStmButton::Hidden, &TStmButton::SetHidden).Stored(false);
    d.Event("OnClick", &TStmButton::OnClick);
}

TComponent* gOtherRoot = nullptr;
TComponent* FindOtherRoot(const std::string& name) {
    return gOtherRoot && SameText(gOtherRoot->Name(), name) ? gOtherRoot : nullptr;
}

bool ColorIdentToInt(std::string_view s, int64_t& v) {
    if (SameText(s, "stmRed"))
        v = 0xFF;
    else if (SameText(s, "stmBlue"))
        v = 0xFF0000;
    else
        return false;
    return true;
}
bool ColorIntToIdent(int64_t v, std::string& s) {
    if (v == 0xFF)
        s = "stmRed";
    else if (v == 0xFF0000)
        s = "stmBlue";
    else
        return false;
    return true;
}

} // namespace stm

using namespace stm;

namespace {
template <class T> T* Make(TComponent* owner, const std::string& name, TStmControl* parent = nullptr) {
    T* c = new T(owner);
    c->SetName(name);
    if constexpr (std::is_base_of_v<TStmControl, T>)
        if (parent) c->SetParent(parent);
    return c;
}

template <class T> T* Find(TComponent* root, std::string_view name) {
    return dynamic_cast<T*>(root->FindComponent(name));
}

class Streaming : public ::testing::Test {
protected:
    void SetUp() override {
        RegisterClasses({TStmForm::StaticClass(), TStmControl::StaticClass(), TStmButton::StaticClass(),
                         TStmMenu::StaticClass(), TStmFrame::StaticClass()});
        RegisterIntegerConsts(TypeInfo_TStmColor(), ColorIdentToInt, ColorIntToIdent);
        FLiveBefore = gLive;
        gLoadedOrder.clear();
    }
    void TearDown() override {
        UnRegisterClasses({TStmForm::StaticClass(), TStmControl::StaticClass(), TStmButton::StaticClass(),
                           TStmMenu::StaticClass(), TStmFrame::StaticClass()});
        UnRegisterIntegerConsts(TypeInfo_TStmColor());
        EXPECT_EQ(gLive, FLiveBefore) << "components or persistents leaked";
    }

    // Reads expecting failure; returns the message and checks that the read left nothing alive.
    template <class E> std::string ReadError(const std::string& text, TComponent* root = nullptr) {
        int live = gLive;
        try {
            TComponent* c = ReadComponentText(text, nullptr, root);
            Free(c);
        } catch (E& e) {
            EXPECT_EQ(gLive, live) << "a failed read left components behind";
            return e.Message();
        }
        return "(no error)";
    }

    int FLiveBefore = 0;
};

// The form every round trip starts from: each property kind once.
TStmForm* BuildForm() {
    auto* form = Make<TStmForm>(nullptr, "Form1");
    form->SetTop(10);
    form->SetCaption("Main");
    auto* menu = Make<TStmMenu>(form, "Menu1");
    auto* panel = Make<TStmControl>(form, "Panel1", form);
    panel->SetLeft(8);
    panel->SetTop(16);
    auto* b1 = Make<TStmButton>(form, "Button1", panel);
    b1->SetTop(4);
    b1->SetCaption("It's caf\xC3\xA9 \"ok\"\r\nline2");
    b1->SetEnabled(false);
    b1->SetKind(skCancel);
    b1->SetAnchors({saRight, saBottom});
    b1->SetRatio(0.1);
    b1->SetScale(2.5f);
    b1->SetBig(int64_t(1) << 40);
    b1->SetLetter('Q');
    b1->SetColor(0xFF);
    b1->Font()->SetName("Arial");
    b1->Font()->SetSize(10);
    b1->Font()->SetStyle({sfBold});
    b1->Font()->SetColor(0x123456);
    b1->Items()->Add("one");
    b1->Items()->Add("two's");
    b1->Items()->Add("drei\xC3\x9F");
    auto* p1 = static_cast<TStmPanel*>(b1->Panels()->Add());
    p1->SetWidth(50);
    p1->SetText("first");
    static_cast<TStmPanel*>(b1->Panels()->Add())->SetWidth(70);
    for (int i = 0; i < 40; ++i)
        b1->Picture()->Data.push_back(static_cast<uint8_t>(i * 7));
    b1->SetPopupMenu(menu);
    b1->SetHidden("not stored");
    b1->OnClick.Name = "Button1Click";
    b1->Points = {1, -2, 300};
    auto* b2 = Make<TStmButton>(form, "Button2", form);
    b2->SetTop(40);
    b2->SetBuddy(b1);
    b1->SetBuddy(b2); // a reference forward in the text
    return form;
}

const char* kFormText = "object Form1: TStmForm\r\n"
                        "  Top = 10\r\n"
                        "  Caption = 'Main'\r\n"
                        "  object Panel1: TStmControl\r\n"
                        "    Left = 8\r\n"
                        "    Top = 16\r\n"
                        "    object Button1: TStmButton\r\n"
                        "      Top = 4\r\n"
                        "      Caption = 'It'#39's caf'#233' \"ok\"'#13#10'line2'\r\n"
                        "      Enabled = False\r\n"
                        "      Kind = skCancel\r\n"
                        "      Anchors = [saRight, saBottom]\r\n"
                        "      Ratio = 0.1\r\n"
                        "      Scale = 2.5\r\n"
                        "      Big = 1099511627776\r\n"
                        "      Letter = 'Q'\r\n"
                        "      Color = stmRed\r\n"
                        "      Font.Name = 'Arial'\r\n"
                        "      Font.Size = 10\r\n"
                        "      Font.Style = [sfBold]\r\n"
                        "      Font.Color = 1193046\r\n"
                        "      Items.Strings = (\r\n"
                        "        'one'\r\n"
                        "        'two'#39's'\r\n"
                        "        'drei'#223)\r\n"
                        "      Panels = <\r\n"
                        "        item\r\n"
                        "          Width = 50\r\n"
                        "          Text = 'first'\r\n"
                        "        end\r\n"
                        "        item\r\n"
                        "          Width = 70\r\n"
                        "        end>\r\n"
                        "      Picture.Data = {\r\n"
                        "        00070E151C232A31383F464D545B626970777E858C939AA1A8AFB6BDC4CBD2D9\r\n"
                        "        E0E7EEF5FC030A11}\r\n"
                        "      PopupMenu = Menu1\r\n"
                        "      Buddy = Button2\r\n"
                        "      OnClick = Button1Click\r\n"
                        "      Points = (\r\n"
                        "        1\r\n"
                        "        -2\r\n"
                        "        300)\r\n"
                        "    end\r\n"
                        "  end\r\n"
                        "  object Button2: TStmButton\r\n"
                        "    Top = 40\r\n"
                        "    Panels = <>\r\n"
                        "    Buddy = Button1\r\n"
                        "  end\r\n"
                        "  object Menu1: TStmMenu\r\n"
                        "  end\r\n"
                        "end\r\n";
} // namespace

TEST_F(Streaming, WritesEveryPropertyKindInDeclarationOrder) {
    TStmForm* form = BuildForm();
    EXPECT_EQ(WriteComponentText(form), kFormText);
    form->Free();
}

TEST_F(Streaming, ReadsBackWhatItWrote) {
    TComponent* read = ReadComponentText(kFormText, nullptr);
    ASSERT_NE(read, nullptr);
    auto* form = dynamic_cast<TStmForm*>(read);
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->Name(), "Form1");
    EXPECT_EQ(form->Caption(), "Main");
    EXPECT_EQ(form->ComponentCount(), 4);
    auto* panel = Find<TStmControl>(form, "Panel1");
    auto* b1 = Find<TStmButton>(form, "Button1");
    auto* b2 = Find<TStmButton>(form, "Button2");
    auto* menu = Find<TStmMenu>(form, "Menu1");
    ASSERT_TRUE(panel && b1 && b2 && menu);
    EXPECT_EQ(b1->Owner(), form);
    EXPECT_EQ(b1->Parent(), panel);
    EXPECT_EQ(panel->Parent(), form);
    EXPECT_EQ(b1->Caption(), "It's caf\xC3\xA9 \"ok\"\r\nline2");
    EXPECT_FALSE(b1->Enabled());
    EXPECT_EQ(b1->Kind(), skCancel);
    EXPECT_EQ(b1->Anchors(), (TStmAnchors{saRight, saBottom}));
    EXPECT_DOUBLE_EQ(b1->Ratio(), 0.1);
    EXPECT_FLOAT_EQ(b1->Scale(), 2.5f);
    EXPECT_EQ(b1->Big(), int64_t(1) << 40);
    EXPECT_EQ(b1->Letter(), 'Q');
    EXPECT_EQ(b1->Color(), 0xFF);
    EXPECT_EQ(b1->Font()->Name(), "Arial");
    EXPECT_EQ(b1->Font()->Size(), 10);
    EXPECT_EQ(b1->Font()->Style(), (TStmFontStyles{sfBold}));
    EXPECT_EQ(b1->Items()->ToVector(), (std::vector<std::string>{"one", "two's", "drei\xC3\x9F"}));
    ASSERT_EQ(b1->Panels()->Count(), 2);
    EXPECT_EQ(static_cast<TStmPanel*>(b1->Panels()->Items(0))->Text(), "first");
    EXPECT_EQ(static_cast<TStmPanel*>(b1->Panels()->Items(1))->Width(), 70);
    EXPECT_EQ(b1->Picture()->Data.size(), 40u);
    EXPECT_EQ(b1->Picture()->Data[39], static_cast<uint8_t>(39 * 7));
    EXPECT_EQ(b1->PopupMenu(), menu);
    EXPECT_EQ(b1->Buddy(), b2);
    EXPECT_EQ(b2->Buddy(), b1);
    EXPECT_EQ(b1->OnClick.Name, "Button1Click");
    EXPECT_EQ(b1->Points, (std::vector<int>{1, -2, 300}));
    EXPECT_EQ(b1->Hidden(), "");
    // Loaded runs once per component, root first, after references are resolved.
    EXPECT_EQ(gLoadedOrder, (std::vector<std::string>{"Form1", "Panel1", "Button1", "Button2"}));
    EXPECT_TRUE(b1->BuddyKnownAtLoaded);
    EXPECT_EQ(b1->LoadedCalls, 1);
    EXPECT_FALSE(b1->IsLoading());
    EXPECT_FALSE(form->ComponentState().Contains(csReading));
    EXPECT_EQ(WriteComponentText(form), kFormText);
    form->Free();
}

TEST_F(Streaming, DefaultsAndUnstoredValuesAreLeftOut) {
    auto* form = Make<TStmForm>(nullptr, "Form1");
    auto* b = Make<TStmButton>(form, "Button1", form);
    b->SetHidden("x");
    EXPECT_EQ(WriteComponentText(form), "object Form1: TStmForm\r\n"
                                        "  Top = 0\r\n"
                                        "  object Button1: TStmButton\r\n"
                                        "    Top = 0\r\n"
                                        "    Panels = <>\r\n"
                                        "  end\r\n"
                                        "end\r\n");
    form->Free();
}

TEST_F(Streaming, ParentCycleIsRefusedInsteadOfOverflowingTheStack) {
    auto* form = Make<TStmForm>(nullptr, "Form1");
    auto* a = Make<TStmControl>(form, "A", form);
    auto* b = Make<TStmControl>(form, "B", a);
    a->SetParent(b); // a broken control tree: A and B are each other's child
    EXPECT_THROW(WriteComponentText(a), EWriteError);
    form->Free();
}

TEST_F(Streaming, ReferencesToAnotherRootUseTheGlobalLookup) {
    auto* other = Make<TStmForm>(nullptr, "Form2");
    auto* target = Make<TStmButton>(other, "Target", other);
    auto* form = Make<TStmForm>(nullptr, "Form1");
    auto* b = Make<TStmButton>(form, "Button1", form);
    b->SetBuddy(target);
    std::string text = WriteComponentText(form);
    EXPECT_NE(text.find("    Buddy = Form2.Target\r\n"), std::string::npos) << text;
    form->Free();

    // Without a lookup the reference stays nil: the other root may simply not be loaded.
    TComponent* read = ReadComponentText(text, nullptr);
    EXPECT_EQ(Find<TStmButton>(read, "Button1")->Buddy(), nullptr);
    read->Free();

    gOtherRoot = other;
    RegisterFindGlobalComponentProc(FindOtherRoot);
    read = ReadComponentText(text, nullptr);
    EXPECT_EQ(Find<TStmButton>(read, "Button1")->Buddy(), target);
    read->Free();
    UnRegisterFindGlobalComponentProc(FindOtherRoot);
    gOtherRoot = nullptr;
    EXPECT_EQ(FindGlobalComponent("Form2"), nullptr);
    other->Free();
}

TEST_F(Streaming, InlineAndInheritedObjects) {
    const std::string text = "object Form1: TStmForm\r\n"
                             "  Top = 0\r\n"
                             "  inline Frame1: TStmFrame\r\n"
                             "    Left = 4\r\n"
                             "    Top = 0\r\n"
                             "    inherited Label1: TStmControl\r\n"
                             "      Top = 0\r\n"
                             "      Caption = 'Changed'\r\n"
                             "    end\r\n"
                             "    object Extra: TStmButton\r\n"
                             "      Top = 3\r\n"
                             "      Panels = <>\r\n"
                             "      Buddy = Label1\r\n"
                             "    end\r\n"
                             "  end\r\n"
                             "end\r\n";
    TComponent* form = ReadComponentText(text, nullptr);
    auto* frame = Find<TStmFrame>(form, "Frame1");
    ASSERT_NE(frame, nullptr);
    EXPECT_TRUE(frame->ComponentState().Contains(csInline));
    EXPECT_EQ(frame->Left(), 4);
    // What is inside the inline frame is owned, named and referenced within it.
    EXPECT_EQ(form->ComponentCount(), 1);
    auto* label = Find<TStmControl>(frame, "Label1");
    auto* extra = Find<TStmButton>(frame, "Extra");
    ASSERT_TRUE(label && extra);
    EXPECT_EQ(label->Caption(), "Changed");
    EXPECT_TRUE(label->ComponentState().Contains(csAncestor));
    EXPECT_EQ(extra->Parent(), frame);
    EXPECT_EQ(extra->Buddy(), label);
    EXPECT_EQ(frame->Children().size(), 2u);
    EXPECT_EQ(WriteComponentText(form), text);

    // An inherited root updates the given instance and its existing components.
    const std::string update = "inherited Form1: TStmForm\r\n"
                               "  Caption = 'Updated'\r\n"
                               "  inherited Frame1: TStmFrame\r\n"
                               "    Left = 9\r\n"
                               "  end\r\n"
                               "end\r\n";
    EXPECT_EQ(ReadComponentText(update, nullptr, form), form);
    EXPECT_EQ(static_cast<TStmForm*>(form)->Caption(), "Updated");
    EXPECT_EQ(frame->Left(), 9);
    EXPECT_EQ(form->ComponentCount(), 1);
    EXPECT_NE(ReadError<EReadError>(
                  "inherited Form1: TStmForm\r\n  inherited Nope: TStmControl\r\n  end\r\nend\r\n", form)
                  .find("Ancestor for 'Nope' not found"),
              std::string::npos);
    form->Free();
}

TEST_F(Streaming, ChildOrderIndexReordersTheParent) {
    TComponent* form = ReadComponentText("object Form1: TStmForm\n"
                                         "  object A: TStmControl\n  end\n"
                                         "  object B: TStmControl [0]\n  end\n"
                                         "end\n",
                                         nullptr);
    auto& kids = static_cast<TStmForm*>(form)->Children();
    ASSERT_EQ(kids.size(), 2u);
    EXPECT_EQ(kids[0]->Name(), "B");
    form->Free();
}

TEST_F(Streaming, RawBytesAreDecodedInTheGivenCodePage) {
    const std::string text = "object Form1: TStmForm\r\n  Caption = 'Hozz\xE1"
                             "ad\xE1"
                             "s \xF5'\r\nend\r\n";
    TComponentReadOptions hungarian;
    hungarian.RawCodePage = "CP1250";
    TComponent* form = ReadComponentText(text, nullptr, nullptr, hungarian);
    EXPECT_EQ(static_cast<TStmForm*>(form)->Caption(), "Hozz\xC3\xA1"
                                                       "ad\xC3\xA1s \xC5\x91");
    form->Free();
    form = ReadComponentText(text, nullptr);
    EXPECT_EQ(static_cast<TStmForm*>(form)->Caption(), "Hozz\xC3\xA1"
                                                       "ad\xC3\xA1s \xC3\xB5");
    form->Free();
}

TEST_F(Streaming, IntegersReadFromIdentifiersAndHexPatterns) {
    TComponent* form = ReadComponentText("object Form1: TStmForm\n"
                                         "  object B: TStmButton\n"
                                         "    Left = $FFFFFFFF\n"
                                         "    Top = -$10\n"
                                         "    Color = STMBLUE\n"
                                         "    Ratio = 3\n"
                                         "    Letter = #9\n"
                                         "  end\n"
                                         "end\n",
                                         nullptr);
    auto* b = Find<TStmButton>(form, "B");
    EXPECT_EQ(b->Left(), -1);
    EXPECT_EQ(b->Top(), -16);
    EXPECT_EQ(b->Color(), 0xFF0000);
    EXPECT_DOUBLE_EQ(b->Ratio(), 3.0);
    EXPECT_EQ(b->Letter(), '\t');
    std::string text = WriteComponentText(form);
    EXPECT_NE(text.find("    Left = -1\r\n    Top = -16\r\n"), std::string::npos) << text;
    EXPECT_NE(text.find("    Ratio = 3.0\r\n"), std::string::npos) << text;
    EXPECT_NE(text.find("    Letter = #9\r\n    Color = stmBlue\r\n"), std::string::npos) << text;
    form->Free();
    // A 64-bit hex value is no 32-bit pattern.
    EXPECT_EQ(ReadError<EReadError>("object Form1: TStmForm\n  Top = $1FFFFFFFF\nend\n"),
              "Error reading Form1.Top: Range check error (line 2)");
}

TEST_F(Streaming, ErrorsNamePropertyReasonAndLine) {
    const std::string head = "object Form1: TStmForm\n  object Button1: TStmButton\n";
    const std::string tail = "  end\nend\n";
    EXPECT_EQ(ReadError<EClassNotFound>("object Form1: TStmForm\n  object X: TNope\n  end\nend\n"),
              "Class TNope not found");
    EXPECT_EQ(ReadError<EClassNotFound>("object Form1: TNoForm\nend\n"), "Class TNoForm not found");
    EXPECT_EQ(ReadError<EReadError>(head + "    Top = 1\n    Foo = 1\n" + tail),
              "Error reading Form1.Button1.Foo: Property Foo does not exist (line 4)");
    EXPECT_EQ(ReadError<EReadError>(head + "    Font.Bar = 1\n" + tail),
              "Error reading Form1.Button1.Font.Bar: Property Bar does not exist (line 3)");
    EXPECT_EQ(
        ReadError<EReadError>(head + "    Kind = skOdd\n" + tail),
        "Error reading Form1.Button1.Kind: Invalid property value: 'skOdd' is not a TStmKind value (line 3)");
    EXPECT_EQ(ReadError<EReadError>(head + "    Anchors = [saLeft, saMiddle]\n" + tail),
              "Error reading Form1.Button1.Anchors: Invalid property value: 'saMiddle' is not a TStmAnchor "
              "value (line 3)");
    EXPECT_EQ(ReadError<EReadError>(head + "    Top = 99999999999\n" + tail),
              "Error reading Form1.Button1.Top: Range check error (line 3)");
    EXPECT_EQ(ReadError<EReadError>(head + "    Caption = 12\n" + tail),
              "Error reading Form1.Button1.Caption: Invalid property value: a string expected but an integer "
              "found (line 3)");
    EXPECT_EQ(ReadError<EReadError>(head + "    Color = stmGreen\n" + tail),
              "Error reading Form1.Button1.Color: Invalid property value: 'stmGreen' is not a TStmColor "
              "value (line 3)");
    EXPECT_EQ(ReadError<EReadError>(head + "    Points = ('a')\n" + tail),
              "Error reading Form1.Button1.Points: Invalid property value: an integer expected but a string "
              "found (line 3)");
    EXPECT_EQ(
        ReadError<EReadError>(head + "    Panels = <\n      item\n        Depth = 2\n      end>\n" + tail),
        "Error reading Form1.Button1.Panels[0].Depth: Property Depth does not exist (line 5)");
    EXPECT_EQ(ReadError<EReadError>(head + "    PopupMenu = Nothing\n" + tail),
              "Error reading Form1.Button1.PopupMenu: Invalid property value: component 'Nothing' not found "
              "(line 3)");
    EXPECT_EQ(ReadError<EReadError>(head + "    PopupMenu = Button1\n" + tail),
              "Error reading Form1.Button1.PopupMenu: Invalid property value: 'Button1' is a TStmButton, not "
              "a TStmMenu (line 3)");
    EXPECT_EQ(
        ReadError<EReadError>(
            "object Form1: TStmForm\n  object B: TStmControl\n  end\n  object b: TStmControl\n  end\nend\n"),
        "Error reading Form1.b: A component named b already exists (line 4)");
    EXPECT_EQ(ReadError<EReadError>("object Form1: TStmForm\nend\nobject Form2: TStmForm\nend\n"),
              "One root object expected, but the text holds 2");
    EXPECT_NE(
        ReadError<EParserError>(head + "    Caption = 'open\n" + tail).find("Unterminated string on line 3"),
        std::string::npos);
}

TEST_F(Streaming, FailedReadIntoAGivenRootRestoresIt) {
    auto* form = Make<TStmForm>(nullptr, "Form1");
    form->SetCaption("Before");
    auto* kept = Make<TStmButton>(form, "Kept", form);
    kept->SetCaption("Old");
    int live = gLive;
    const std::string text = "object Renamed: TStmForm\n"
                             "  Left = 5\n"
                             "  Caption = 'After'\n"
                             "  object Fresh: TStmButton\n"
                             "    object Inner: TStmControl\n"
                             "    end\n"
                             "  end\n"
                             "  inherited Kept: TStmButton\n"
                             "    Caption = 'New'\n"
                             "    Buddy = Fresh\n"
                             "    Panels = <\n      item\n        Width = 3\n      end>\n"
                             "    Nonsense = 1\n"
                             "  end\n"
                             "end\n";
    std::string msg = ReadError<EReadError>(text, form);
    EXPECT_EQ(msg, "Error reading Renamed.Kept.Nonsense: Property Nonsense does not exist (line 15)");
    EXPECT_EQ(gLive, live);
    EXPECT_EQ(form->Name(), "Form1");
    EXPECT_EQ(form->Caption(), "Before");
    EXPECT_EQ(form->Left(), 0);
    EXPECT_EQ(form->ComponentCount(), 1);
    EXPECT_EQ(form->Children().size(), 1u);
    EXPECT_EQ(kept->Caption(), "Old");
    EXPECT_EQ(kept->Buddy(), nullptr);
    EXPECT_EQ(kept->Panels()->Count(), 0);
    EXPECT_FALSE(form->IsLoading());
    EXPECT_FALSE(kept->IsLoading());
    EXPECT_FALSE(kept->ComponentState().Contains(csAncestor));

    // The same text without the error fills the root.
    std::string good = text;
    good.erase(good.find("    Nonsense = 1\n"), 17);
    EXPECT_EQ(ReadComponentText(good, nullptr, form), form);
    EXPECT_EQ(form->Name(), "Renamed");
    EXPECT_EQ(form->Caption(), "After");
    EXPECT_EQ(kept->Buddy(), Find<TStmButton>(form, "Fresh"));
    EXPECT_EQ(Find<TStmControl>(form, "Inner")->Parent(), Find<TStmButton>(form, "Fresh"));
    EXPECT_EQ(form->LoadedCalls, 1);
    form->Free();
}

TEST_F(Streaming, ClipboardPastesWithRenamesAndFollowsThem) {
    TStmForm* form = BuildForm();
    auto* b1 = Find<TStmButton>(form, "Button1");
    auto* b2 = Find<TStmButton>(form, "Button2");
    std::string clip = WriteComponentsText({b1, b2});
    EXPECT_EQ(clip.find("object Button1: TStmButton"), 0u);
    EXPECT_NE(clip.find("\r\nobject Button2: TStmButton\r\n"), std::string::npos);

    // Pasting into the same form: names are taken, the rename service picks new ones.
    auto* panel = Find<TStmControl>(form, "Panel1");
    std::vector<std::string> asked;
    auto rename = [&](TComponent* c, const std::string& taken) {
        asked.push_back(taken);
        for (int n = 1;; ++n) {
            std::string name = c->ClassName().substr(1) + IntToStr(n);
            if (!form->FindComponent(name)) return name;
        }
    };
    int before = form->ComponentCount();
    std::vector<TComponent*> pasted = ReadComponentsText(clip, form, panel, rename);
    ASSERT_EQ(pasted.size(), 2u);
    EXPECT_EQ(form->ComponentCount(), before + 2);
    EXPECT_EQ(asked, (std::vector<std::string>{"Button1", "Button2"}));
    auto* n1 = dynamic_cast<TStmButton*>(pasted[0]);
    auto* n2 = dynamic_cast<TStmButton*>(pasted[1]);
    ASSERT_TRUE(n1 && n2);
    EXPECT_EQ(n1->Name(), "StmButton1");
    EXPECT_EQ(n2->Name(), "StmButton2");
    EXPECT_EQ(n1->Parent(), panel);
    EXPECT_EQ(n2->Parent(), panel);
    EXPECT_EQ(n1->Buddy(), n2) << "a reference between pasted components follows the rename";
    EXPECT_EQ(n2->Buddy(), n1);
    EXPECT_EQ(n1->PopupMenu(), Find<TStmMenu>(form, "Menu1"));
    EXPECT_EQ(n1->Items()->Count(), 3);
    EXPECT_EQ(n1->LoadedCalls, 1);

    // Into another form: no clashes, and the menu it lacks stays nil.
    auto* other = Make<TStmForm>(nullptr, "Other");
    pasted = ReadComponentsText(clip, other, other);
    ASSERT_EQ(pasted.size(), 2u);
    EXPECT_EQ(pasted[0]->Name(), "Button1");
    EXPECT_EQ(static_cast<TStmButton*>(pasted[0])->PopupMenu(), nullptr);
    EXPECT_EQ(static_cast<TStmButton*>(pasted[0])->Buddy(), pasted[1]);

    // A clash without a rename service, or a bad block, leaves the target as it was.
    int live = gLive;
    EXPECT_THROW(ReadComponentsText(clip, other, other), EReadError);
    std::string bad = clip + "object Button3: TStmButton\r\n  Bogus = 1\r\nend\r\n";
    EXPECT_THROW(ReadComponentsText(bad, form, panel, rename), EReadError);
    EXPECT_EQ(gLive, live);
    EXPECT_EQ(other->ComponentCount(), 2);
    EXPECT_EQ(form->ComponentCount(), before + 2);
    other->Free();
    form->Free();
}

TEST(StreamingFilers, ValueReaderWalksListsAndRefusesOtherKinds) {
    TDfmDocument doc = ParseDfm("object A: TA\n  V = ('s' 5 2.5 True Ident ('inner') {0102})\nend\n");
    const TDfmValue& v = doc.Objects[0].Properties[0].Value;
    TDfmValueReader r(v, nullptr);
    EXPECT_EQ(r.NextValue(), TReader::vaList);
    r.ReadListBegin();
    EXPECT_EQ(r.ReadString(), "s");
    EXPECT_THROW(r.ReadString(), EReadError); // an integer is next
    EXPECT_EQ(r.ReadInteger(), 5);
    EXPECT_DOUBLE_EQ(r.ReadFloat(), 2.5);
    EXPECT_EQ(r.NextValue(), TReader::vaTrue);
    EXPECT_TRUE(r.ReadBoolean());
    EXPECT_EQ(r.ReadIdent(), "Ident");
    r.ReadListBegin();
    EXPECT_EQ(r.ReadString(), "inner");
    EXPECT_TRUE(r.EndOfList());
    r.ReadListEnd();
    EXPECT_EQ(r.NextValue(), TReader::vaBinary);
    EXPECT_EQ(r.ReadValue().Bytes.size(), 2u);
    EXPECT_TRUE(r.EndOfList());
    r.ReadListEnd();
    EXPECT_EQ(r.NextValue(), TReader::vaNull);
    EXPECT_THROW(r.ReadInteger(), EReadError);

    TDfmValueWriter w(nullptr);
    w.WriteListBegin();
    w.WriteString("caf\xC3\xA9");
    w.WriteBoolean(false);
    w.WriteListEnd();
    EXPECT_THROW(w.WriteInteger(1), EWriteError); // a second top-level value
    TDfmValue out = w.TakeValue();
    EXPECT_EQ(WriteDfmValue(out, 0, "\n"), "(\n  'caf'#233\n  False)");
    TDfmValueWriter open(nullptr);
    open.WriteListBegin();
    EXPECT_THROW(open.TakeValue(), EWriteError);
    EXPECT_THROW(open.WriteIdent("not an ident"), EWriteError);
}
