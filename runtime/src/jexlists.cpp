// Synchronised list boxes, the check and tab-stop lists, the log memo, font and colour combos, and the
// low-resource list and combo.
#include "jex/jexlists.h"

#include <algorithm>

#include "jexpanelpub.h"
#include "vcl/forms.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexSyncOption)
JEX_DEFINE_SET(TjexSyncOptions, TjexSyncOption)
JEX_DEFINE_ENUM(TjexPrintOption)
JEX_DEFINE_SET(TjexPrintOptions, TjexPrintOption)
JEX_DEFINE_ENUM(TjexGlyphStyle)
JEX_DEFINE_ENUM(TjexCheckListOption)
JEX_DEFINE_SET(TjexCheckListOptions, TjexCheckListOption)
JEX_DEFINE_ENUM(TjexFontOption)
JEX_DEFINE_SET(TjexFontOptions, TjexFontOption)

std::string jexPrintText(const rtl::TStrings* Lines, int Indent, bool PrintLines, TjexPrintOptions Options,
                         const std::string& Title) {
    std::string text, pad(std::max(0, Indent), ' ');
    if (Options.Contains(jpoTitle) && !Title.empty()) text += Title + "\r\n\r\n";
    for (int i = 0; i < Lines->Count(); ++i) {
        text += pad + (*Lines)[i] + "\r\n";
        if (PrintLines) text += pad + std::string(40, '-') + "\r\n";
    }
    return text;
}

void jexNoPrinter() {
    throw rtl::EInvalidOperation("No printer is installed");
}

template <class C> static void PublishPrinting(rtl::TClassDecl<C>& d) {
    d.Property("PrintIndent", &C::PrintIndent, &C::SetPrintIndent).Default(0);
    d.Property("Printing", &C::Printing, &C::SetPrinting).Default(0);
    d.Property("PrintLines", &C::PrintLines, &C::SetPrintLines).Default(false);
}

template <class C> static void PublishSync(rtl::TClassDecl<C>& d) {
    pubx::ListBox(d);
    PublishPrinting(d);
    d.Property("ScrollWidth", &C::ScrollWidth, &C::SetScrollWidth).Default(0);
    d.Property("SyncControl", &C::SyncControl, &C::SetSyncControl);
    d.Property("SyncOptions", &C::SyncOptions, &C::SetSyncOptions)
        .Default(TjexSyncOptions{jsoItemIndex, jsoTopIndex}.Bits());
}

// ---- Synchronised list boxes ---------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomSyncListBox, TCustomListBox, "jexlists") {}

TjexCustomSyncListBox::TjexCustomSyncListBox(rtl::TComponent* AOwner) : TCustomListBox(AOwner) {
    FWidth = 121;
    FHeight = 97;
    FTabStop = true;
}

TjexCustomSyncListBox::~TjexCustomSyncListBox() = default;

void TjexCustomSyncListBox::SetSyncControl(TjexCustomSyncListBox* Value) {
    if (Value == this) throw rtl::EInvalidOperation("A list cannot follow itself");
    pubx::SetReference(this, FSyncControl, Value);
}

void TjexCustomSyncListBox::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TCustomListBox::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FSyncControl) FSyncControl = nullptr;
}

void TjexCustomSyncListBox::Synchronize() {
    // A partner that is itself passing a change on is where the change came from: nothing goes back.
    if (!FSyncControl || FSyncing || FSyncControl->FSyncing || IsLoading()) return;
    FSyncing = true;
    try {
        if (FSyncOptions.Contains(jsoItemIndex)) FSyncControl->SetItemIndex(ItemIndex());
        if (FSyncOptions.Contains(jsoTopIndex)) FSyncControl->SetTopIndex(TopIndex());
    } catch (...) {
        FSyncing = false;
        throw;
    }
    FSyncing = false;
}

void TjexCustomSyncListBox::SetItemIndex(int Value) {
    TCustomListBox::SetItemIndex(Value);
    Synchronize();
}

void TjexCustomSyncListBox::SetTopIndex(int Value) {
    TCustomListBox::SetTopIndex(Value);
    Synchronize();
}

void TjexCustomSyncListBox::UserSelect(int Index) {
    TCustomListBox::UserSelect(Index);
    Synchronize();
}

void TjexCustomSyncListBox::UserSelectText(const std::string& Text) {
    TCustomListBox::UserSelectText(Text);
    Synchronize();
}

std::string TjexCustomSyncListBox::PrintText(const std::string& Title) const {
    return jexPrintText(Items(), FPrintIndent, FPrintLines, FPrinting, Title);
}

void TjexCustomSyncListBox::Print(const std::string&) const {
    jexNoPrinter();
}

JEX_IMPLEMENT_CLASS(TjexSyncListBox, TjexCustomSyncListBox, "jexlists") {
    PublishSync(d);
}

JEX_IMPLEMENT_CLASS(TjexTabListBox, TjexCustomSyncListBox, "jexlists") {
    PublishSync(d);
    d.Property("TabPositions", &TjexTabListBox::TabPositions, &TjexTabListBox::SetTabPositions);
}

TjexTabListBox::TjexTabListBox(rtl::TComponent* AOwner)
    : TjexCustomSyncListBox(AOwner), FTabPositions(std::make_unique<rtl::TStringList>()) {}

TjexTabListBox::~TjexTabListBox() = default;

std::string TjexTabListBox::ColumnText(int Index, int Col) const {
    std::string line = (*Items())[Index];
    size_t start = 0;
    for (int c = 0; c < Col; ++c) {
        size_t tab = line.find('\t', start);
        if (tab == std::string::npos) return {};
        start = tab + 1;
    }
    size_t end = line.find('\t', start);
    return line.substr(start, end == std::string::npos ? std::string::npos : end - start);
}

int TjexTabListBox::ColumnLeft(int Col) const {
    if (Col <= 0) return 0;
    int n = FTabPositions->Count();
    if (Col <= n) return rtl::StrToIntDef(rtl::Trim((*FTabPositions)[Col - 1]), 0);
    int last = n ? rtl::StrToIntDef(rtl::Trim((*FTabPositions)[n - 1]), 0) : 0;
    return last + (Col - n) * 8 * TextWidthOf(Font(), "x");
}

// ---- Check list --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCheckListBox, TjexCustomSyncListBox, "jexlists") {
    PublishSync(d);
    d.Property("CheckedColor", &TjexCheckListBox::CheckedColor, &TjexCheckListBox::SetCheckedColor,
               TypeInfo_TColor())
        .Default(clRed);
    d.Property("CheckedColorChange", &TjexCheckListBox::CheckedColorChange,
               &TjexCheckListBox::SetCheckedColorChange)
        .Default(false);
    d.Property("CheckedItems", &TjexCheckListBox::CheckedItems, &TjexCheckListBox::SetCheckedItems);
    d.Property("DisabledItems", &TjexCheckListBox::DisabledItems, &TjexCheckListBox::SetDisabledItems);
    d.Property("DisabledItemsGrayed", &TjexCheckListBox::DisabledItemsGrayed,
               &TjexCheckListBox::SetDisabledItemsGrayed)
        .Default(true);
    d.Property("ExpandTabs", &TjexCheckListBox::ExpandTabs, &TjexCheckListBox::SetExpandTabs).Default(false);
    d.Property("Glyph", &TjexCheckListBox::Glyph, &TjexCheckListBox::SetGlyph);
    d.Property("GlyphAlignH", &TjexCheckListBox::GlyphAlignH, &TjexCheckListBox::SetGlyphAlignH)
        .Default(jahLeft);
    d.Property("GlyphAlignV", &TjexCheckListBox::GlyphAlignV, &TjexCheckListBox::SetGlyphAlignV)
        .Default(javCenter);
    d.Property("GlyphForeColor", &TjexCheckListBox::GlyphForeColor, &TjexCheckListBox::SetGlyphForeColor,
               TypeInfo_TColor())
        .Default(clWindowText);
    d.Property("GlyphSpace", &TjexCheckListBox::GlyphSpace, &TjexCheckListBox::SetGlyphSpace).Default(2);
    d.Property("GlyphStyle", &TjexCheckListBox::GlyphStyle, &TjexCheckListBox::SetGlyphStyle)
        .Default(jgsCheck);
    d.Property("Options", &TjexCheckListBox::Options, &TjexCheckListBox::SetOptions)
        .Default(TjexCheckListOptions{jcoToggleOnClick, jcoToggleOnSpace}.Bits());
    d.Event("OnClickCheck", &TjexCheckListBox::OnClickCheck);
}

TjexCheckListBox::TjexCheckListBox(rtl::TComponent* AOwner)
    : TjexCustomSyncListBox(AOwner), FGlyph(std::make_unique<TBitmap>()) {}

TjexCheckListBox::~TjexCheckListBox() = default;

namespace {
bool Flag(const std::vector<char>& flags, int index) {
    return index >= 0 && index < static_cast<int>(flags.size()) && flags[index];
}
void SetFlag(std::vector<char>& flags, int index, bool value) {
    if (index < 0) throw rtl::EListError(rtl::Format(rtl::SListIndexError, {index}));
    if (index >= static_cast<int>(flags.size())) flags.resize(index + 1, 0);
    flags[index] = value;
}
} // namespace

bool TjexCheckListBox::Checked(int Index) const {
    return Flag(FChecked, Index);
}

void TjexCheckListBox::SetChecked(int Index, bool Value) {
    SetFlag(FChecked, Index, Value);
}

bool TjexCheckListBox::ItemEnabled(int Index) const {
    return !Flag(FDisabled, Index);
}

void TjexCheckListBox::SetItemEnabled(int Index, bool Value) {
    SetFlag(FDisabled, Index, !Value);
}

void TjexCheckListBox::CheckAll(bool Value) {
    for (int i = 0; i < Items()->Count(); ++i)
        if (ItemEnabled(i)) SetChecked(i, Value);
}

int TjexCheckListBox::CheckedCount() const {
    int n = 0;
    for (int i = 0; i < Items()->Count(); ++i)
        n += Checked(i);
    return n;
}

std::string TjexCheckListBox::JoinFlags(const std::vector<char>& Flags) {
    std::string text;
    for (size_t i = 0; i < Flags.size(); ++i)
        if (Flags[i]) text += (text.empty() ? "" : ",") + std::to_string(i);
    return text;
}

void TjexCheckListBox::ParseFlags(const std::string& Text, std::vector<char>& Flags) {
    rtl::TStringList parts;
    jexParseStringToList(Text, ",", false, &parts);
    std::vector<char> flags;
    for (int i = 0; i < parts.Count(); ++i) {
        int n = rtl::StrToInt(rtl::Trim(parts[i])); // EConvertError for what is not a line number
        if (n < 0) throw rtl::EConvertError("'" + parts[i] + "' is not a line number");
        SetFlag(flags, n, true);
    }
    Flags = std::move(flags);
}

std::string TjexCheckListBox::CheckedItems() const {
    return JoinFlags(FChecked);
}

void TjexCheckListBox::SetCheckedItems(const std::string& Value) {
    ParseFlags(Value, FChecked);
}

std::string TjexCheckListBox::DisabledItems() const {
    return JoinFlags(FDisabled);
}

void TjexCheckListBox::SetDisabledItems(const std::string& Value) {
    ParseFlags(Value, FDisabled);
}

TColor TjexCheckListBox::ItemColor(int Index) const {
    if (!ItemEnabled(Index) && FDisabledItemsGrayed) return clGrayText;
    if (Checked(Index) && FCheckedColorChange) return FCheckedColor;
    return Font()->Color();
}

std::string TjexCheckListBox::DisplayText(int Index) const {
    std::string line = (*Items())[Index];
    if (!FExpandTabs) return line;
    std::string out;
    for (char c : line) {
        if (c == '\t')
            out.append(8 - out.size() % 8, ' ');
        else
            out += c;
    }
    return out;
}

void TjexCheckListBox::ToggleItem(int Index) {
    if (Index < 0 || Index >= Items()->Count() || !ItemEnabled(Index)) return;
    SetChecked(Index, !Checked(Index));
    OnClickCheck(this);
}

void TjexCheckListBox::UserSelect(int Index) {
    TjexCustomSyncListBox::UserSelect(Index);
    if (FOptions.Contains(jcoToggleOnClick)) ToggleItem(Index);
}

void TjexCheckListBox::KeyPress(char& Key) {
    TjexCustomSyncListBox::KeyPress(Key);
    if (Key == ' ' && FOptions.Contains(jcoToggleOnSpace)) {
        ToggleItem(ItemIndex());
        Key = 0;
    }
}

// ---- Log memo
// ----------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexROMemo, TMemo, "jexlists") {
    d.Property("MaxEditLines", &TjexROMemo::MaxEditLines, &TjexROMemo::SetMaxEditLines).Default(0);
    PublishPrinting(d);
    d.Property("SyncMemo", &TjexROMemo::SyncMemo, &TjexROMemo::SetSyncMemo);
}

TjexROMemo::TjexROMemo(rtl::TComponent* AOwner) : TMemo(AOwner) {}

void TjexROMemo::EnterText(const std::string&) {
    throw EUserActionError(Name() + " is read-only");
}

void TjexROMemo::KeyPress(char& Key) {
    // Keys may move through the text but never change it.
    OnKeyPress(this, Key);
    Key = 0;
}

void TjexROMemo::SetMaxEditLines(int Value) {
    FMaxEditLines = std::max(0, Value);
    if (!IsLoading()) Trim();
}

void TjexROMemo::Trim() {
    if (FMaxEditLines <= 0) return;
    rtl::TStrings* lines = Lines();
    lines->BeginUpdate();
    while (lines->Count() > FMaxEditLines)
        lines->Delete(0);
    lines->EndUpdate();
}

void TjexROMemo::AddLine(const std::string& Line) {
    Lines()->Add(Line);
    Trim();
    // The newest line stays in view.
    SetTopLine(std::max(0, Lines()->Count() - 1));
}

void TjexROMemo::SetSyncMemo(TjexROMemo* Value) {
    if (Value == this) throw rtl::EInvalidOperation("A memo cannot follow itself");
    pubx::SetReference(this, FSyncMemo, Value);
}

void TjexROMemo::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TMemo::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FSyncMemo) FSyncMemo = nullptr;
}

void TjexROMemo::SetTopLine(int Value) {
    FTopLine = std::clamp(Value, 0, std::max(0, Lines()->Count() - 1));
    if (FSyncMemo && !FSyncing) {
        FSyncing = true;
        FSyncMemo->SetTopLine(FTopLine);
        FSyncing = false;
    }
}

std::string TjexROMemo::PrintText(const std::string& Title) const {
    return jexPrintText(Lines(), FPrintIndent, FPrintLines, FPrinting, Title);
}

void TjexROMemo::Print(const std::string&) const {
    jexNoPrinter();
}

// ---- Font and colour combos ---------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexFontComboBox, TCustomComboBox, "jexlists") {
    pubx::ComboBox(d, false, false);
    d.Property("FontName", &TjexFontComboBox::FontName, &TjexFontComboBox::SetFontName, TypeInfo_TFontName());
    d.Property("FontOptions", &TjexFontComboBox::FontOptions, &TjexFontComboBox::SetFontOptions).Default(0);
}

TjexFontComboBox::TjexFontComboBox(rtl::TComponent* AOwner) : TCustomComboBox(AOwner) {
    SetSorted(true);
    RefreshFonts();
}

void TjexFontComboBox::SetFontOptions(TjexFontOptions Value) {
    FFontOptions = Value;
    RefreshFonts();
}

void TjexFontComboBox::RefreshFonts() {
    std::string keep = Text();
    rtl::TStrings* items = Items();
    items->BeginUpdate();
    items->Clear();
    rtl::TStrings* fonts = Screen()->Fonts();
    for (int i = 0; i < fonts->Count(); ++i) {
        std::string family = (*fonts)[i];
        if (FFontOptions.Contains(jfoTrueTypeOnly) && !Screen()->IsTrueTypeFont(family)) continue;
        items->Add(family);
    }
    items->EndUpdate();
    if (!keep.empty()) SetText(keep);
}

JEX_IMPLEMENT_CLASS(TjexColorComboBox, TCustomComboBox, "jexlists") {
    pubx::ComboBox(d, true, true);
    d.Property("ShowText", &TjexColorComboBox::ShowText, &TjexColorComboBox::SetShowText).Default(true);
}

std::vector<std::string> TjexColorComboBox::DefaultColors() {
    std::vector<std::string> names;
    GetColorValues([&](const std::string& n) {
        if (names.size() < 16) names.push_back(n);
    });
    return names;
}

TjexColorComboBox::TjexColorComboBox(rtl::TComponent* AOwner) : TCustomComboBox(AOwner) {
    SetStyle(csDropDownList);
    Items()->AddStrings(DefaultColors());
}

TColor TjexColorComboBox::Colors(int Index) const {
    return StringToColor(rtl::Trim((*Items())[Index]));
}

TColor TjexColorComboBox::SelectedColor() const {
    int i = ItemIndex();
    return i < 0 ? clNone : Colors(i);
}

void TjexColorComboBox::SetSelectedColor(TColor Value) {
    for (int i = 0; i < Items()->Count(); ++i) {
        TColor c;
        try {
            c = Colors(i);
        } catch (const rtl::EConvertError&) {
            continue;
        }
        if (c == Value) {
            SetItemIndex(i);
            return;
        }
    }
    SetItemIndex(Items()->Add(ColorToString(Value)));
}

// ---- Low-resource combo and list -----------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexLRComboBox, TCustomComboBox, "jexlists") {
    pubx::ComboBox(d, false, true);
    d.Property("Items", &TjexLRComboBox::Items, &TjexLRComboBox::SetItems);
}

TjexLRComboBox::TjexLRComboBox(rtl::TComponent* AOwner)
    : TCustomComboBox(AOwner), FChoices(std::make_unique<rtl::TStringList>()) {}

TjexLRComboBox::~TjexLRComboBox() = default;

int TjexLRComboBox::ItemIndex() const {
    return Text().empty() ? -1 : FChoices->IndexOf(Text());
}

void TjexLRComboBox::SetItemIndex(int Value) {
    SetText(Value >= 0 && Value < FChoices->Count() ? (*FChoices)[Value] : std::string());
}

void TjexLRComboBox::DropDown() {
    if (FOpen) return;
    FOpen = true;
    std::string keep = Text();
    TCustomComboBox::Items()->Assign(FChoices.get());
    SetText(keep);
    OnDropDown(this);
}

void TjexLRComboBox::CloseUp() {
    if (!FOpen) return;
    FOpen = false;
    std::string keep = Text();
    TCustomComboBox::Items()->Clear();
    SetText(keep);
    OnCloseUp(this);
}

void TjexLRComboBox::UserSelect(int Index) {
    DropDown();
    TCustomComboBox::UserSelect(Index);
    CloseUp();
}

void TjexLRComboBox::UserSelectText(const std::string& Text) {
    DropDown();
    TCustomComboBox::UserSelectText(Text);
    CloseUp();
}

JEX_IMPLEMENT_CLASS(TjexLRListBox, TCustomControl, "jexlists") {
    pub::Align(d);
    pub::Anchors(d);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("ItemHeight", &TjexLRListBox::ItemHeight, &TjexLRListBox::SetItemHeight).Default(16);
    d.Property("ItemIndex", &TjexLRListBox::ItemIndex, &TjexLRListBox::SetItemIndex).Default(-1);
    d.Property("Items", &TjexLRListBox::Items, &TjexLRListBox::SetItems);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("Sorted", &TjexLRListBox::Sorted, &TjexLRListBox::SetSorted).Default(false);
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

TjexLRListBox::TjexLRListBox(rtl::TComponent* AOwner)
    : TCustomControl(AOwner), FItems(std::make_unique<rtl::TStringList>()) {
    FColor = clWindow;
    FTabStop = true;
    FWidth = 121;
    FHeight = 97;
}

TjexLRListBox::~TjexLRListBox() = default;

int TjexLRListBox::VisibleCount() const {
    return std::max(1, ClientHeight() / FItemHeight);
}

void TjexLRListBox::SetTopIndex(int Value) {
    FTopIndex = std::clamp(Value, 0, std::max(0, FItems->Count() - VisibleCount()));
}

void TjexLRListBox::SetItemIndex(int Value) {
    // While a form loads, the lines may come after the index.
    if (IsLoading()) {
        FItemIndex = Value;
        return;
    }
    FItemIndex = Value >= 0 && Value < FItems->Count() ? Value : -1;
    if (FItemIndex < 0) return;
    if (FItemIndex < FTopIndex) SetTopIndex(FItemIndex);
    if (FItemIndex >= FTopIndex + VisibleCount()) SetTopIndex(FItemIndex - VisibleCount() + 1);
}

std::vector<std::string> TjexLRListBox::VisibleItems() const {
    std::vector<std::string> lines;
    for (int i = FTopIndex; i < FItems->Count() && i < FTopIndex + VisibleCount(); ++i)
        lines.push_back((*FItems)[i]);
    return lines;
}

int TjexLRListBox::ItemAtPos(int Y) const {
    int i = FTopIndex + Y / FItemHeight;
    return Y >= 0 && i < FItems->Count() ? i : -1;
}

void TjexLRListBox::UserSelect(int Index) {
    if (Index < 0 || Index >= FItems->Count())
        throw EUserActionError(Name() + " has no line " + std::to_string(Index));
    SetItemIndex(Index);
    Click();
}

void TjexLRListBox::UserSelectText(const std::string& Text) {
    int i = FItems->IndexOf(Text);
    if (i < 0) throw EUserActionError(Name() + " has no line '" + Text + "'");
    UserSelect(i);
}

void TjexLRListBox::KeyDown(uint16_t& Key, TShiftState Shift) {
    TCustomControl::KeyDown(Key, Shift);
    int n = FItems->Count();
    if (!n) return;
    int to = FItemIndex;
    switch (Key) {
    case VK_UP:
        to = std::max(0, FItemIndex - 1);
        break;
    case VK_DOWN:
        to = std::min(n - 1, FItemIndex + 1);
        break;
    case VK_HOME:
        to = 0;
        break;
    case VK_END:
        to = n - 1;
        break;
    case VK_PRIOR:
        to = std::max(0, FItemIndex - VisibleCount());
        break;
    case VK_NEXT:
        to = std::min(n - 1, std::max(0, FItemIndex) + VisibleCount());
        break;
    default:
        return;
    }
    Key = 0;
    if (to != FItemIndex) {
        SetItemIndex(to);
        Click();
    }
}

void TjexLRListBox::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    TCustomControl::MouseDown(Button, Shift, X, Y);
    int i = ItemAtPos(Y);
    if (Button == mbLeft && i >= 0) SetItemIndex(i);
}

void TjexLRListBox::Describe(TControlDesc& d) const {
    TCustomControl::Describe(d);
    d.Items = FItems->ToVector();
    d.ItemIndex = FItemIndex;
}

static const TjexLibraryUnit<TjexCheckListBox, TjexFontComboBox, TjexColorComboBox, TjexLRComboBox,
                             TjexLRListBox, TjexROMemo, TjexTabListBox, TjexSyncListBox>
    jexlistsUnit("jexlists");

} // namespace jex
