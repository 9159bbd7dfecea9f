// Standard controls: labels, edits, memos, buttons, check and radio boxes, list and combo boxes, group
// boxes and static texts.
#include "vcl/stdctrls.h"

#include <algorithm>

#include "publish.h"
#include "vcl/forms.h"

namespace vcl {

using rtl::EInvalidOperation;
using rtl::EListError;
using rtl::TTypeInfo;

JEX_DEFINE_ENUM(TEditCharCase)
JEX_DEFINE_ENUM(TCheckBoxState)
JEX_DEFINE_ENUM(TListBoxStyle)
JEX_DEFINE_ENUM(TComboBoxStyle)
JEX_DEFINE_ENUM(TStaticBorderStyle)

const TTypeInfo* TypeInfo_TLeftRight() {
    static const TTypeInfo ti = [] {
        TTypeInfo t = TTypeInfo::MakeEnum("TLeftRight", "taLeftJustify, taRightJustify");
        t.BaseType = TypeInfoOf(static_cast<TAlignment*>(nullptr));
        return t;
    }();
    return &ti;
}

// ---- TControlItems ------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TControlItems, TStrings, "StdCtrls") {}

void TControlItems::Check(int index) const {
    if (index < 0 || index >= GetCount()) throw EListError(rtl::Format(rtl::SListIndexError, {index}));
}

void TControlItems::Changed() {
    if (UpdateCount() == 0 && OnChanged) OnChanged();
}

std::string TControlItems::Get(int index) const {
    Check(index);
    return FItems[index].Str;
}

rtl::TObject* TControlItems::GetObject(int index) const {
    Check(index);
    return FItems[index].Obj;
}

void TControlItems::Put(int index, const std::string& s) {
    Check(index);
    FItems[index].Str = s;
    Changed();
}

void TControlItems::PutObject(int index, rtl::TObject* obj) {
    Check(index);
    FItems[index].Obj = obj;
}

void TControlItems::Insert(int index, const std::string& s) {
    InsertObject(index, s, nullptr);
}

void TControlItems::InsertObject(int index, const std::string& s, rtl::TObject* obj) {
    if (index < 0 || index > GetCount()) throw EListError(rtl::Format(rtl::SListIndexError, {index}));
    FItems.insert(FItems.begin() + index, Item{s, obj});
    Changed();
}

void TControlItems::Delete(int index) {
    Check(index);
    FItems.erase(FItems.begin() + index);
    Changed();
}

void TControlItems::Clear() {
    if (FItems.empty()) return;
    FItems.clear();
    Changed();
}

int TControlItems::Add(const std::string& s) {
    return AddObject(s, nullptr);
}

int TControlItems::AddObject(const std::string& s, rtl::TObject* obj) {
    int index = GetCount();
    if (FSorted) {
        auto it = std::upper_bound(FItems.begin(), FItems.end(), s, [](const std::string& v, const Item& i) {
            return rtl::CompareText(v, i.Str) < 0;
        });
        index = static_cast<int>(it - FItems.begin());
    }
    InsertObject(index, s, obj);
    return index;
}

void TControlItems::Exchange(int a, int b) {
    Check(a);
    Check(b);
    std::swap(FItems[a], FItems[b]);
    Changed();
}

void TControlItems::Move(int from, int to) {
    Check(from);
    Check(to);
    if (from == to) return;
    Item item = FItems[from];
    FItems.erase(FItems.begin() + from);
    FItems.insert(FItems.begin() + to, item);
    Changed();
}

void TControlItems::SetSorted(bool v) {
    if (v == FSorted) return;
    FSorted = v;
    if (v) {
        std::stable_sort(FItems.begin(), FItems.end(),
                         [](const Item& a, const Item& b) { return rtl::CompareText(a.Str, b.Str) < 0; });
        Changed();
    }
}

bool TControlItems::Selected(int index) const {
    Check(index);
    return FItems[index].Sel;
}

void TControlItems::SetSelected(int index, bool v) {
    Check(index);
    FItems[index].Sel = v;
}

int TControlItems::SelCount() const {
    return static_cast<int>(std::count_if(FItems.begin(), FItems.end(), [](const Item& i) { return i.Sel; }));
}

int TControlItems::Current() const {
    for (size_t i = 0; i < FItems.size(); ++i)
        if (FItems[i].Cur) return static_cast<int>(i);
    return -1;
}

void TControlItems::SetCurrent(int index) {
    for (auto& i : FItems)
        i.Cur = false;
    if (index >= 0 && index < GetCount()) FItems[index].Cur = true;
}

// ---- TCustomLabel -------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCustomLabel, TGraphicControl, "StdCtrls") {}
JEX_IMPLEMENT_CLASS(TLabel, TCustomLabel, "StdCtrls") {
    pub::Align(d);
    d.Property("Alignment", &TLabel::Alignment, &TLabel::SetAlignment).Default(taLeftJustify);
    pub::Anchors(d);
    d.Property("AutoSize", &TLabel::AutoSize, &TLabel::SetAutoSize).Default(true);
    pub::Caption(d);
    pub::Color(d, clBtnFace);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    d.Property("FocusControl", &TLabel::FocusControl, &TLabel::SetFocusControl);
    pub::Font(d);
    d.Property("Layout", &TLabel::Layout, &TLabel::SetLayout).Default(tlTop);
    pub::ParentColor(d, true);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ShowAccelChar", &TLabel::ShowAccelChar, &TLabel::SetShowAccelChar).Default(true);
    pub::ShowHint(d);
    d.Property("Transparent", &TLabel::Transparent, &TLabel::SetTransparent).Default(false);
    pub::Visible(d);
    d.Property("WordWrap", &TLabel::WordWrap, &TLabel::SetWordWrap).Default(false);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnMouse(d);
}

TCustomLabel::TCustomLabel(TComponent* AOwner) : TGraphicControl(AOwner) {
    FControlStyle.Include(csOpaque).Include(csReplicatable);
    FWidth = 65;
    FHeight = 17;
    FParentColor = true;
    FColor = clBtnFace;
    AdjustBounds();
}

void TCustomLabel::SetAutoSize(bool v) {
    if (v == FAutoSize) return;
    FAutoSize = v;
    AdjustBounds();
}

void TCustomLabel::SetWordWrap(bool v) {
    if (v == FWordWrap) return;
    FWordWrap = v;
    AdjustBounds();
}

void TCustomLabel::FontChanged() {
    TGraphicControl::FontChanged();
    AdjustBounds();
}

void TCustomLabel::AdjustBounds() {
    if (!FAutoSize || IsLoading()) return;
    std::string text = FText;
    if (FShowAccelChar) {
        std::string t;
        for (size_t i = 0; i < text.size(); ++i) {
            if (text[i] == '&' && i + 1 < text.size()) ++i;
            t += text[i];
        }
        text = t;
    }
    int lines = 1;
    int w = 0;
    size_t start = 0;
    while (true) {
        size_t nl = text.find('\n', start);
        std::string line = text.substr(start, nl == std::string::npos ? std::string::npos : nl - start);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        w = std::max(w, TextWidthOf(FFont.get(), line));
        if (nl == std::string::npos) break;
        ++lines;
        start = nl + 1;
    }
    int h = TextHeightOf(FFont.get()) * lines;
    if (FWordWrap) w = FWidth;
    int left = FLeft;
    if (FAlignment == taRightJustify) left = FLeft + FWidth - w;
    SetBounds(left, FTop, w, h);
}

void TCustomLabel::SetFocusControl(TWinControl* v) {
    if (v == FFocusControl) return;
    if (FFocusControl) FFocusControl->RemoveFreeNotification(this);
    FFocusControl = v;
    if (v) v->FreeNotification(this);
}

void TCustomLabel::Notification(TComponent* AComponent, rtl::TOperation Operation) {
    TGraphicControl::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FFocusControl) FFocusControl = nullptr;
}

// ---- TCustomEdit --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCustomEdit, TWinControl, "StdCtrls") {}
JEX_IMPLEMENT_CLASS(TEdit, TCustomEdit, "StdCtrls") {
    pub::Anchors(d);
    d.Property("AutoSelect", &TEdit::AutoSelect, &TEdit::SetAutoSelect).Default(true);
    d.Property("AutoSize", &TEdit::AutoSize, &TEdit::SetAutoSize).Default(true);
    d.Property("BorderStyle", &TEdit::BorderStyle, &TEdit::SetBorderStyle, TypeInfo_TBorderStyle())
        .Default(bsSingle);
    d.Property("CharCase", &TEdit::CharCase, &TEdit::SetCharCase).Default(ecNormal);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("HideSelection", &TEdit::HideSelection, &TEdit::SetHideSelection).Default(true);
    d.Property("MaxLength", &TEdit::MaxLength, &TEdit::SetMaxLength).Default(0);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    d.Property("PasswordChar", &TEdit::PasswordChar, &TEdit::SetPasswordChar).Default(0);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &TEdit::ReadOnly, &TEdit::SetReadOnly).Default(false);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Text(d);
    pub::Visible(d);
    d.Event("OnChange", &TEdit::OnChange);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

TCustomEdit::TCustomEdit(TComponent* AOwner) : TWinControl(AOwner) {
    FControlStyle = TControlStyle{csClickEvents, csSetCaption, csDoubleClicks, csFixedHeight};
    FWidth = 121;
    FHeight = 21;
    FTabStop = true;
    FColor = clWindow;
}

void TCustomEdit::SetCharCase(TEditCharCase v) {
    if (v == FCharCase) return;
    FCharCase = v;
    if (v != ecNormal) SetText(ApplyCharCase(GetText()));
}

std::string TCustomEdit::ApplyCharCase(const std::string& s) const {
    switch (FCharCase) {
    case ecUpperCase:
        return rtl::UpperCase(s);
    case ecLowerCase:
        return rtl::LowerCase(s);
    default:
        return s;
    }
}

void TCustomEdit::SetSelStart(int v) {
    int len = static_cast<int>(GetText().size());
    FSelStart = std::clamp(v, 0, len);
    FSelLength = 0;
}

void TCustomEdit::SetSelLength(int v) {
    int len = static_cast<int>(GetText().size());
    FSelLength = std::clamp(v, 0, len - FSelStart);
}

std::string TCustomEdit::SelText() const {
    std::string t = GetText();
    if (FSelStart >= static_cast<int>(t.size())) return {};
    return t.substr(FSelStart, FSelLength);
}

void TCustomEdit::SetSelText(const std::string& v) {
    std::string t = GetText();
    int start = std::min<int>(FSelStart, static_cast<int>(t.size()));
    int len = std::min<int>(FSelLength, static_cast<int>(t.size()) - start);
    t.replace(start, len, v);
    FSelStart = start + static_cast<int>(v.size());
    FSelLength = 0;
    SetText(t);
}

void TCustomEdit::SelectAll() {
    FSelStart = 0;
    FSelLength = static_cast<int>(GetText().size());
}

void TCustomEdit::EnterText(const std::string& v) {
    if (FReadOnly) throw EUserActionError("'" + Name() + "' is read-only");
    std::string t = ApplyCharCase(v);
    if (FMaxLength > 0 && static_cast<int>(t.size()) > FMaxLength) t.resize(FMaxLength);
    FModified = true;
    SetText(t);
    FSelStart = static_cast<int>(GetText().size());
    FSelLength = 0;
}

void TCustomEdit::KeyPress(char& Key) {
    TWinControl::KeyPress(Key);
    if (Key == 0 || FReadOnly) return;
    std::string t = GetText();
    int start = std::min<int>(FSelStart, static_cast<int>(t.size()));
    int len = std::min<int>(FSelLength, static_cast<int>(t.size()) - start);
    if (Key == '\b') {
        if (len > 0)
            t.erase(start, len);
        else if (start > 0)
            t.erase(--start, 1);
        else
            return;
    } else if (static_cast<unsigned char>(Key) >= 32) {
        if (FMaxLength > 0 && static_cast<int>(t.size()) - len >= FMaxLength) return;
        std::string ch = ApplyCharCase(std::string(1, Key));
        t.replace(start, len, ch);
        ++start;
    } else {
        return;
    }
    FModified = true;
    SetText(t);
    FSelStart = start;
    FSelLength = 0;
}

void TCustomEdit::TextChanged() {
    Change();
}

void TCustomEdit::DoEnter() {
    if (FAutoSelect && !dynamic_cast<TCustomMemo*>(this)) SelectAll();
    TWinControl::DoEnter();
}

void TCustomEdit::Describe(TControlDesc& d) const {
    TWinControl::Describe(d);
    d.ReadOnly = FReadOnly;
}

// ---- TCustomMemo --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCustomMemo, TCustomEdit, "StdCtrls") {}
JEX_IMPLEMENT_CLASS(TMemo, TCustomMemo, "StdCtrls") {
    pub::Align(d);
    d.Property("Alignment", &TMemo::Alignment, &TMemo::SetAlignment).Default(taLeftJustify);
    pub::Anchors(d);
    d.Property("BorderStyle", &TMemo::BorderStyle, &TMemo::SetBorderStyle, TypeInfo_TBorderStyle())
        .Default(bsSingle);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("HideSelection", &TMemo::HideSelection, &TMemo::SetHideSelection).Default(true);
    d.Property("Lines", &TMemo::Lines, &TMemo::SetLines);
    d.Property("MaxLength", &TMemo::MaxLength, &TMemo::SetMaxLength).Default(0);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &TMemo::ReadOnly, &TMemo::SetReadOnly).Default(false);
    d.Property("ScrollBars", &TMemo::ScrollBars, &TMemo::SetScrollBars).Default(ssNone);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
    d.Property("WantReturns", &TMemo::WantReturns, &TMemo::SetWantReturns).Default(true);
    d.Property("WantTabs", &TMemo::WantTabs, &TMemo::SetWantTabs).Default(false);
    d.Property("WordWrap", &TMemo::WordWrap, &TMemo::SetWordWrap).Default(true);
    d.Event("OnChange", &TMemo::OnChange);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

TCustomMemo::TCustomMemo(TComponent* AOwner) : TCustomEdit(AOwner), FLines(new TStringList) {
    FWidth = 185;
    FHeight = 89;
    FAutoSize = false;
    FControlStyle.Exclude(csFixedHeight);
    FLines->OnChange = [this](rtl::TObject*) {
        if (!FSettingText) Change();
    };
}

TCustomMemo::~TCustomMemo() {
    delete FLines;
}

std::string TCustomMemo::GetText() const {
    std::string s;
    for (int i = 0; i < FLines->Count(); ++i) {
        if (i) s += "\r\n";
        s += FLines->Get(i);
    }
    return s;
}

void TCustomMemo::SetText(const std::string& v) {
    if (v == GetText()) return;
    FSettingText = true;
    try {
        FLines->SetText(v);
    } catch (...) {
        FSettingText = false;
        throw;
    }
    FSettingText = false;
    // A text that ends with a line break keeps the empty last line the window shows.
    Change();
}

bool TCustomMemo::WantsKey(uint16_t Key) const {
    return (Key == VK_RETURN && FWantReturns) || (Key == VK_TAB && FWantTabs);
}

void TCustomMemo::KeyPress(char& Key) {
    if (Key == '\r') {
        TWinControl::KeyPress(Key);
        if (Key == 0 || FReadOnly || !FWantReturns) return;
        std::string t = GetText();
        int start = std::min<int>(FSelStart, static_cast<int>(t.size()));
        t.insert(start, "\r\n");
        FModified = true;
        SetText(t);
        FSelStart = start + 2;
        return;
    }
    TCustomEdit::KeyPress(Key);
}

void TCustomMemo::Describe(TControlDesc& d) const {
    TCustomEdit::Describe(d);
    d.Items = FLines->ToVector();
}

// ---- Buttons ------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TButtonControl, TWinControl, "StdCtrls") {}

TButtonControl::TButtonControl(TComponent* AOwner) : TWinControl(AOwner) {
    FColor = clBtnFace;
    FTabStop = true;
}

JEX_IMPLEMENT_CLASS(TButton, TButtonControl, "StdCtrls") {
    pub::Anchors(d);
    d.Property("Cancel", &TButton::Cancel, &TButton::SetCancel).Default(false);
    pub::Caption(d);
    d.Property("Default", &TButton::Default, &TButton::SetDefault).Default(false);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("ModalResult", &TButton::ModalResult, &TButton::SetModalResult, TypeInfo_TModalResult())
        .Default(0);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
    d.Property("WordWrap", &TButton::WordWrap, &TButton::SetWordWrap).Default(false);
    pub::OnClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

TButton::TButton(TComponent* AOwner) : TButtonControl(AOwner) {
    FControlStyle = TControlStyle{csSetCaption, csDoubleClicks};
    FWidth = 75;
    FHeight = 25;
}

void TButton::Click() {
    if (TCustomForm* form = GetParentForm(this)) form->SetModalResult(FModalResult);
    TButtonControl::Click();
}

void TButton::Describe(TControlDesc& d) const {
    TButtonControl::Describe(d);
    if (FModalResult != mrNone) d.ModalResult = FModalResult;
    d.Default = FDefault;
    d.Cancel = FCancel;
}

// ---- Check boxes and radio buttons --------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCustomCheckBox, TButtonControl, "StdCtrls") {}
JEX_IMPLEMENT_CLASS(TCheckBox, TCustomCheckBox, "StdCtrls") {
    d.Property("Alignment", &TCheckBox::Alignment, &TCheckBox::SetAlignment, TypeInfo_TLeftRight())
        .Default(taRightJustify);
    d.Property("AllowGrayed", &TCheckBox::AllowGrayed, &TCheckBox::SetAllowGrayed).Default(false);
    pub::Anchors(d);
    pub::Caption(d);
    d.Property("Checked", &TCheckBox::Checked, &TCheckBox::SetChecked).Default(false);
    pub::Color(d, clBtnFace);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("State", &TCheckBox::State, &TCheckBox::SetState).Default(cbUnchecked);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
    d.Property("WordWrap", &TCheckBox::WordWrap, &TCheckBox::SetWordWrap).Default(false);
    pub::OnClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

TCustomCheckBox::TCustomCheckBox(TComponent* AOwner) : TButtonControl(AOwner) {
    FControlStyle = TControlStyle{csSetCaption, csDoubleClicks};
    FWidth = 97;
    FHeight = 17;
}

void TCustomCheckBox::SetState(TCheckBoxState v) {
    if (v == FState) return;
    FState = v;
    if (!IsLoading()) Click();
}

void TCustomCheckBox::Toggle() {
    switch (FState) {
    case cbUnchecked:
        SetState(FAllowGrayed ? cbGrayed : cbChecked);
        break;
    case cbChecked:
        SetState(cbUnchecked);
        break;
    case cbGrayed:
        SetState(cbChecked);
        break;
    }
}

void TCustomCheckBox::UserCheck(bool v) {
    for (int i = 0; i < 3 && Checked() != v; ++i)
        Toggle();
}

void TCustomCheckBox::Describe(TControlDesc& d) const {
    TButtonControl::Describe(d);
    d.Checked = FState == cbChecked;
    if (FState == cbGrayed) d.Grayed = true;
}

JEX_IMPLEMENT_CLASS(TRadioButton, TButtonControl, "StdCtrls") {
    d.Property("Alignment", &TRadioButton::Alignment, &TRadioButton::SetAlignment, TypeInfo_TLeftRight())
        .Default(taRightJustify);
    pub::Anchors(d);
    pub::Caption(d);
    d.Property("Checked", &TRadioButton::Checked, &TRadioButton::SetChecked).Default(false);
    pub::Color(d, clBtnFace);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    pub::Visible(d);
    d.Property("WordWrap", &TRadioButton::WordWrap, &TRadioButton::SetWordWrap).Default(false);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

TRadioButton::TRadioButton(TComponent* AOwner) : TButtonControl(AOwner) {
    FControlStyle = TControlStyle{csSetCaption, csDoubleClicks};
    FWidth = 113;
    FHeight = 17;
    FTabStop = false;
}

void TRadioButton::SetChecked(bool v) {
    if (v == FChecked) return;
    FChecked = v;
    FTabStop = v;
    if (!v) return;
    if (FParent)
        for (TControl* c : FParent->ControlList())
            if (auto* r = dynamic_cast<TRadioButton*>(c); r && r != this) r->SetChecked(false);
    if (!IsLoading()) Click();
}

void TRadioButton::UserCheck(bool v) {
    if (!v)
        throw EUserActionError("'" + Name() + "' cannot be unchecked by a click; check another radio button");
    UserClick();
}

void TRadioButton::Describe(TControlDesc& d) const {
    TButtonControl::Describe(d);
    d.Checked = FChecked;
}

// ---- TCustomListBox -----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCustomListBox, TWinControl, "StdCtrls") {}
JEX_IMPLEMENT_CLASS(TListBox, TCustomListBox, "StdCtrls") {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("BorderStyle", &TListBox::BorderStyle, &TListBox::SetBorderStyle, TypeInfo_TBorderStyle())
        .Default(bsSingle);
    pub::Color(d, clWindow);
    d.Property("Columns", &TListBox::Columns, &TListBox::SetColumns).Default(0);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    d.Property("ExtendedSelect", &TListBox::ExtendedSelect, &TListBox::SetExtendedSelect).Default(true);
    pub::Font(d);
    d.Property("IntegralHeight", &TListBox::IntegralHeight, &TListBox::SetIntegralHeight).Default(false);
    d.Property("ItemHeight", &TListBox::ItemHeight, &TListBox::SetItemHeight).Default(16);
    d.Property("Items", &TListBox::Items, &TListBox::SetItems);
    d.Property("MultiSelect", &TListBox::MultiSelect, &TListBox::SetMultiSelect).Default(false);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("Sorted", &TListBox::Sorted, &TListBox::SetSorted).Default(false);
    d.Property("Style", &TListBox::Style, &TListBox::SetStyle).Default(lbStandard);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

TCustomListBox::TCustomListBox(TComponent* AOwner) : TWinControl(AOwner), FItems(new TControlItems) {
    FControlStyle = TControlStyle{csSetCaption, csDoubleClicks};
    FControlStyle.Exclude(csSetCaption);
    FWidth = 121;
    FHeight = 97;
    FTabStop = true;
    FColor = clWindow;
}

TCustomListBox::~TCustomListBox() {
    delete FItems;
}

void TCustomListBox::SetItemIndex(int v) {
    if (v < 0 || v >= FItems->Count()) v = -1;
    FItems->SetCurrent(v);
    if (!FMultiSelect)
        for (int i = 0; i < FItems->Count(); ++i)
            FItems->SetSelected(i, i == v);
}

void TCustomListBox::SetMultiSelect(bool v) {
    if (v == FMultiSelect) return;
    FMultiSelect = v;
    // Changing the kind of list recreates the window, which keeps no selection but the focus line.
    int cur = FItems->Current();
    for (int i = 0; i < FItems->Count(); ++i)
        FItems->SetSelected(i, !v && i == cur);
}

bool TCustomListBox::Selected(int index) const {
    if (index < 0 || index >= FItems->Count()) throw EListError(rtl::Format(rtl::SListIndexError, {index}));
    return FItems->Selected(index);
}

void TCustomListBox::SetSelected(int index, bool v) {
    if (index < 0 || index >= FItems->Count()) throw EListError(rtl::Format(rtl::SListIndexError, {index}));
    if (FMultiSelect) {
        FItems->SetSelected(index, v);
    } else if (v) {
        SetItemIndex(index);
    } else if (FItems->Current() == index) {
        SetItemIndex(-1);
    }
}

int TCustomListBox::SelCount() const {
    return FMultiSelect ? FItems->SelCount() : -1;
}

void TCustomListBox::ClickItem(int index) {
    if (index < 0 || index >= FItems->Count()) throw EListError(rtl::Format(rtl::SListIndexError, {index}));
    if (FMultiSelect)
        for (int i = 0; i < FItems->Count(); ++i)
            FItems->SetSelected(i, i == index);
    SetItemIndex(index);
    Click();
}

void TCustomListBox::SelectItems(const std::vector<int>& indexes) {
    if (!FMultiSelect) throw EUserActionError("'" + Name() + "' does not allow multiple selection");
    for (int i : indexes)
        if (i < 0 || i >= FItems->Count()) throw EListError(rtl::Format(rtl::SListIndexError, {i}));
    for (int i = 0; i < FItems->Count(); ++i)
        FItems->SetSelected(i, false);
    for (int i : indexes)
        FItems->SetSelected(i, true);
    if (!indexes.empty()) FItems->SetCurrent(indexes.back());
    Click();
}

namespace {
int ItemIndexOfText(const TControl* c, const TStrings* items, const std::string& text) {
    int i = items->IndexOf(text);
    if (i < 0) throw EUserActionError("'" + c->Name() + "' has no item '" + text + "'");
    return i;
}
} // namespace

void TCustomListBox::UserSelectText(const std::string& Text) {
    ClickItem(ItemIndexOfText(this, FItems, Text));
}

void TCustomListBox::Describe(TControlDesc& d) const {
    TWinControl::Describe(d);
    d.Items = FItems->ToVector();
    d.ItemIndex = ItemIndex();
    if (FMultiSelect)
        for (int i = 0; i < FItems->Count(); ++i)
            if (FItems->Selected(i)) d.SelectedItems.push_back(i);
}

// ---- TCustomComboBox ----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCustomComboBox, TWinControl, "StdCtrls") {}
JEX_IMPLEMENT_CLASS(TComboBox, TCustomComboBox, "StdCtrls") {
    d.Property("Style", &TComboBox::Style, &TComboBox::SetStyle).Default(csDropDown);
    pub::Anchors(d);
    d.Property("CharCase", &TComboBox::CharCase, &TComboBox::SetCharCase).Default(ecNormal);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    d.Property("DropDownCount", &TComboBox::DropDownCount, &TComboBox::SetDropDownCount).Default(8);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("ItemHeight", &TComboBox::ItemHeight, &TComboBox::SetItemHeight).Default(13);
    d.Property("ItemIndex", &TComboBox::ItemIndex, &TComboBox::SetItemIndex).Default(-1);
    d.Property("MaxLength", &TComboBox::MaxLength, &TComboBox::SetMaxLength).Default(0);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("Sorted", &TComboBox::Sorted, &TComboBox::SetSorted).Default(false);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Text(d);
    pub::Visible(d);
    d.Event("OnChange", &TComboBox::OnChange);
    pub::OnClick(d);
    d.Event("OnCloseUp", &TComboBox::OnCloseUp);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    d.Event("OnDropDown", &TComboBox::OnDropDown);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    d.Event("OnSelect", &TComboBox::OnSelect);
    d.Property("Items", &TComboBox::Items, &TComboBox::SetItems);
}

TCustomComboBox::TCustomComboBox(TComponent* AOwner) : TWinControl(AOwner), FItems(new TControlItems) {
    FControlStyle = TControlStyle{csSetCaption, csDoubleClicks, csFixedHeight};
    FWidth = 145;
    FHeight = 21;
    FTabStop = true;
    FColor = clWindow;
    FItems->OnChanged = [this] {
        // A drop-down list shows exactly the selected line, which may have moved or gone.
        if (FStyle == csDropDownList) {
            int i = FItems->Current();
            FSyncing = true;
            TWinControl::SetText(i >= 0 ? FItems->Get(i) : std::string());
            FSyncing = false;
        }
    };
}

TCustomComboBox::~TCustomComboBox() {
    delete FItems;
}

void TCustomComboBox::SetItemIndex(int v) {
    // A form file gives the index before the items; it is applied once loading ends.
    if (IsLoading()) {
        FLoadedItemIndex = v;
        return;
    }
    if (v < -1 || v >= FItems->Count()) v = -1;
    FItems->SetCurrent(v);
    FSyncing = true;
    try {
        TWinControl::SetText(v >= 0 ? FItems->Get(v) : std::string());
    } catch (...) {
        FSyncing = false;
        throw;
    }
    FSyncing = false;
}

void TCustomComboBox::Loaded() {
    TWinControl::Loaded();
    if (FLoadedItemIndex >= 0) {
        std::string text = FText;
        SetItemIndex(FLoadedItemIndex);
        if (FStyle != csDropDownList) TWinControl::SetText(text);
    }
}

void TCustomComboBox::SetStyle(TComboBoxStyle v) {
    if (v == FStyle) return;
    FStyle = v;
    if (v == csDropDownList) SetItemIndex(FItems->Current());
}

void TCustomComboBox::Clear() {
    FItems->Clear();
    SetItemIndex(-1);
}

void TCustomComboBox::SetText(const std::string& v) {
    if (FStyle == csDropDownList && !FSyncing) {
        SetItemIndex(FItems->IndexOf(v));
        return;
    }
    TWinControl::SetText(v);
}

void TCustomComboBox::TextChanged() {
    if (FSyncing) return;
    // Free text selects the line it matches exactly, as the edit part of the platform's combo box does.
    int i = FItems->IndexOf(FText);
    FItems->SetCurrent(i >= 0 && FItems->Get(i) == FText ? i : -1);
    Change();
}

void TCustomComboBox::SelectItem(int index) {
    if (index < 0 || index >= FItems->Count()) throw EListError(rtl::Format(rtl::SListIndexError, {index}));
    SetItemIndex(index);
    Click();
    if (OnSelect)
        OnSelect(this);
    else
        Change();
}

void TCustomComboBox::EnterText(const std::string& v) {
    if (FStyle == csDropDownList || FStyle == csOwnerDrawFixed || FStyle == csOwnerDrawVariable)
        throw EUserActionError("'" + Name() + "' only accepts one of its items");
    std::string t = v;
    if (FCharCase == ecUpperCase)
        t = rtl::UpperCase(t);
    else if (FCharCase == ecLowerCase)
        t = rtl::LowerCase(t);
    if (FMaxLength > 0 && static_cast<int>(t.size()) > FMaxLength) t.resize(FMaxLength);
    TWinControl::SetText(t);
}

void TCustomComboBox::UserSelectText(const std::string& Text) {
    SelectItem(ItemIndexOfText(this, FItems, Text));
}

void TCustomComboBox::Describe(TControlDesc& d) const {
    TWinControl::Describe(d);
    d.Items = FItems->ToVector();
    d.ItemIndex = ItemIndex();
}

// ---- Group boxes and static text ----------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCustomGroupBox, TCustomControl, "StdCtrls") {}
JEX_IMPLEMENT_CLASS(TGroupBox, TCustomGroupBox, "StdCtrls") {
    pub::Align(d);
    pub::Anchors(d);
    pub::Caption(d);
    pub::Color(d, clBtnFace);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnMouse(d);
}

TCustomGroupBox::TCustomGroupBox(TComponent* AOwner) : TCustomControl(AOwner) {
    FControlStyle = TControlStyle{csAcceptsControls, csCaptureMouse, csClickEvents,
                                  csSetCaption,      csDoubleClicks, csReplicatable};
    FWidth = 185;
    FHeight = 105;
    FColor = clBtnFace;
}

TRect TCustomGroupBox::AdjustClientRect() const {
    TRect r = TCustomControl::AdjustClientRect();
    r.Top += TextHeightOf(FFont.get());
    r.Left += 2;
    r.Top += 2;
    r.Right -= 2;
    r.Bottom -= 2;
    return r;
}

JEX_IMPLEMENT_CLASS(TStaticText, TWinControl, "StdCtrls") {
    pub::Align(d);
    d.Property("Alignment", &TStaticText::Alignment, &TStaticText::SetAlignment).Default(taLeftJustify);
    pub::Anchors(d);
    d.Property("AutoSize", &TStaticText::AutoSize, &TStaticText::SetAutoSize).Default(true);
    d.Property("BorderStyle", &TStaticText::BorderStyle, &TStaticText::SetBorderStyle).Default(sbsNone);
    pub::Caption(d);
    pub::Color(d, clBtnFace);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    d.Property("FocusControl", &TStaticText::FocusControl, &TStaticText::SetFocusControl);
    pub::Font(d);
    pub::ParentColor(d, true);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ShowAccelChar", &TStaticText::ShowAccelChar, &TStaticText::SetShowAccelChar).Default(true);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnMouse(d);
}

TStaticText::TStaticText(TComponent* AOwner) : TWinControl(AOwner) {
    FControlStyle =
        TControlStyle{csCaptureMouse, csClickEvents, csSetCaption, csReplicatable, csDoubleClicks};
    FWidth = 65;
    FHeight = 17;
    FParentColor = true;
    FColor = clBtnFace;
}

void TStaticText::SetFocusControl(TWinControl* v) {
    if (v == FFocusControl) return;
    if (FFocusControl) FFocusControl->RemoveFreeNotification(this);
    FFocusControl = v;
    if (v) v->FreeNotification(this);
}

void TStaticText::Notification(TComponent* AComponent, rtl::TOperation Operation) {
    TWinControl::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FFocusControl) FFocusControl = nullptr;
}

} // namespace vcl
