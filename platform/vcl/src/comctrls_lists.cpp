// Rich edits, list views with their columns and items, and the list of common-control classes.
#include <algorithm>
#include <cctype>

#include "publish.h"
#include "vcl/comctrls.h"

namespace vcl {

using rtl::EListError;

JEX_DEFINE_ENUM(TViewStyle)
JEX_DEFINE_EVENT_TYPE(TLVChangeEvent, "Sender: TObject; Item: TListItem; Change: TItemChange")
JEX_DEFINE_EVENT_TYPE(TLVSelectItemEvent, "Sender: TObject; Item: TListItem; Selected: Boolean")
JEX_DEFINE_EVENT_TYPE(TLVDeletedEvent, "Sender: TObject; Item: TListItem")

// ---- TRichEdit ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TRichEdit, TCustomMemo, "ComCtrls") {
    pub::Align(d);
    d.Property("Alignment", &TRichEdit::Alignment, &TRichEdit::SetAlignment).Default(taLeftJustify);
    pub::Anchors(d);
    d.Property("BorderStyle", &TRichEdit::BorderStyle, &TRichEdit::SetBorderStyle, TypeInfo_TBorderStyle())
        .Default(bsSingle);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("HideScrollBars", &TRichEdit::HideScrollBars, &TRichEdit::SetHideScrollBars).Default(true);
    d.Property("HideSelection", &TRichEdit::HideSelection, &TRichEdit::SetHideSelection).Default(true);
    d.Property("Lines", &TRichEdit::Lines, &TRichEdit::SetLines);
    d.Property("MaxLength", &TRichEdit::MaxLength, &TRichEdit::SetMaxLength).Default(0);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    d.Property("PlainText", &TRichEdit::PlainText, &TRichEdit::SetPlainText).Default(false);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &TRichEdit::ReadOnly, &TRichEdit::SetReadOnly).Default(false);
    d.Property("ScrollBars", &TRichEdit::ScrollBars, &TRichEdit::SetScrollBars).Default(ssNone);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
    d.Property("WantReturns", &TRichEdit::WantReturns, &TRichEdit::SetWantReturns).Default(true);
    d.Property("WantTabs", &TRichEdit::WantTabs, &TRichEdit::SetWantTabs).Default(false);
    d.Property("WordWrap", &TRichEdit::WordWrap, &TRichEdit::SetWordWrap).Default(true);
    d.Event("OnChange", &TRichEdit::OnChange);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
    d.Event("OnSelectionChange", &TRichEdit::OnSelectionChange);
}

TRichEdit::TRichEdit(TComponent* AOwner) : TCustomMemo(AOwner) {}

bool TRichEdit::IsRichText() const {
    std::string t = GetText();
    size_t i = t.find_first_not_of(" \t\r\n");
    return i != std::string::npos && t.compare(i, 5, "{\\rtf") == 0;
}

namespace {
// Windows-1252 bytes 0x80..0x9F as Unicode; the rest of the upper half is Latin-1.
const uint16_t kCp1252High[32] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                  0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void AppendUtf8(std::string& out, uint32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

bool IsSkippedDestination(const std::string& word) {
    static const char* const kSkipped[] = {"fonttbl",
                                           "colortbl",
                                           "stylesheet",
                                           "info",
                                           "pict",
                                           "header",
                                           "footer",
                                           "headerl",
                                           "headerr",
                                           "footerl",
                                           "footerr",
                                           "listtable",
                                           "listoverridetable",
                                           "generator",
                                           "themedata",
                                           "colorschememapping",
                                           "latentstyles",
                                           "datastore",
                                           "xmlnstbl",
                                           "rsidtbl",
                                           "filetbl",
                                           "object",
                                           "revtbl"};
    for (const char* s : kSkipped)
        if (word == s) return true;
    return false;
}
} // namespace

std::string TRichEdit::PlainTextOf() const {
    std::string src = GetText();
    if (!IsRichText()) return src;
    std::string out;
    // Per group: whether its text is skipped, and how many characters follow a \uN as its fallback.
    struct TState {
        bool Skip = false;
        int Uc = 1;
    };
    std::vector<TState> stack{TState{}};
    int pendingFallback = 0;
    auto emit = [&](uint32_t cp) {
        if (pendingFallback > 0) {
            --pendingFallback;
            return;
        }
        if (!stack.back().Skip) AppendUtf8(out, cp);
    };
    for (size_t i = 0; i < src.size();) {
        char c = src[i];
        if (c == '{') {
            stack.push_back(stack.back());
            ++i;
        } else if (c == '}') {
            if (stack.size() > 1) stack.pop_back();
            ++i;
        } else if (c == '\\') {
            ++i;
            if (i >= src.size()) break;
            char n = src[i];
            if (n == '\\' || n == '{' || n == '}') {
                emit(static_cast<unsigned char>(n));
                ++i;
            } else if (n == '\'') {
                unsigned v = 0;
                if (i + 2 < src.size() + 0 && std::isxdigit(static_cast<unsigned char>(src[i + 1])) &&
                    std::isxdigit(static_cast<unsigned char>(src[i + 2]))) {
                    v = static_cast<unsigned>(std::stoul(src.substr(i + 1, 2), nullptr, 16));
                    i += 3;
                    emit(v >= 0x80 && v < 0xA0 ? kCp1252High[v - 0x80] : v);
                } else {
                    ++i;
                }
            } else if (n == '*') {
                stack.back().Skip = true;
                ++i;
            } else if (std::isalpha(static_cast<unsigned char>(n))) {
                size_t start = i;
                while (i < src.size() && std::isalpha(static_cast<unsigned char>(src[i])))
                    ++i;
                std::string word = src.substr(start, i - start);
                bool hasParam = false;
                long param = 0;
                size_t numStart = i;
                if (i < src.size() && (src[i] == '-' || std::isdigit(static_cast<unsigned char>(src[i])))) {
                    ++i;
                    while (i < src.size() && std::isdigit(static_cast<unsigned char>(src[i])))
                        ++i;
                    try {
                        param = std::stol(src.substr(numStart, i - numStart));
                        hasParam = true;
                    } catch (const std::exception&) {
                        hasParam = false;
                    }
                }
                if (i < src.size() && src[i] == ' ') ++i; // the delimiter belongs to the word
                if (IsSkippedDestination(word)) {
                    stack.back().Skip = true;
                } else if (word == "par" || word == "line") {
                    if (!stack.back().Skip) out += "\r\n";
                } else if (word == "tab") {
                    emit('\t');
                } else if (word == "uc" && hasParam) {
                    stack.back().Uc = static_cast<int>(param);
                } else if (word == "u" && hasParam) {
                    emit(static_cast<uint32_t>(param < 0 ? param + 65536 : param));
                    pendingFallback = stack.back().Uc;
                } else if (word == "emdash") {
                    emit(0x2014);
                } else if (word == "endash") {
                    emit(0x2013);
                } else if (word == "bullet") {
                    emit(0x2022);
                }
            } else {
                ++i; // other control symbols (\~ \- \_ ...) carry no text here
            }
        } else if (c == '\r' || c == '\n') {
            ++i; // line breaks in the source are not text
        } else {
            emit(static_cast<unsigned char>(c));
            ++i;
        }
    }
    // A document usually ends its last paragraph with \par; that break is not a line of its own.
    while (out.size() >= 2 && out.compare(out.size() - 2, 2, "\r\n") == 0)
        out.erase(out.size() - 2);
    return out;
}

// ---- List view columns --------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TListColumn, rtl::TCollectionItem, "ComCtrls") {
    d.Property("Alignment", &TListColumn::Alignment, &TListColumn::SetAlignment).Default(taLeftJustify);
    d.Property("Caption", &TListColumn::Caption, &TListColumn::SetCaption);
    d.Property("ImageIndex", &TListColumn::ImageIndex, &TListColumn::SetImageIndex, TypeInfo_TImageIndex())
        .Default(-1);
    d.Property("Width", &TListColumn::Width, &TListColumn::SetWidth).Default(50);
}

TListColumn::TListColumn(rtl::TCollection* Collection) : TCollectionItem(Collection) {}

void TListColumn::Assign(rtl::TPersistent* Source) {
    auto* c = dynamic_cast<TListColumn*>(Source);
    if (!c) return TCollectionItem::Assign(Source);
    FAlignment = c->FAlignment;
    FCaption = c->FCaption;
    FWidth = c->FWidth;
    FImageIndex = c->FImageIndex;
}

std::string TListColumn::GetDisplayName() const {
    return FCaption.empty() ? TCollectionItem::GetDisplayName() : FCaption;
}

JEX_IMPLEMENT_CLASS(TListColumns, rtl::TCollection, "ComCtrls") {}

TListColumns::TListColumns(TCustomListView* AOwner)
    : TCollection(TListColumn::StaticClass()), FOwner(AOwner) {
    PropName = "Columns";
}

rtl::TPersistent* TListColumns::GetOwner() const {
    return FOwner;
}

// ---- List items ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TListItem, rtl::TPersistent, "ComCtrls") {}

TListItem::TListItem(TListItems* AOwner) : FOwner(AOwner), FSubItems(new TStringList) {}

TListItem::~TListItem() {
    delete FSubItems;
}

void TListItem::Assign(rtl::TPersistent* Source) {
    auto* i = dynamic_cast<TListItem*>(Source);
    if (!i) return TPersistent::Assign(Source);
    FCaption = i->FCaption;
    FSubItems->Assign(i->FSubItems);
    FData = i->FData;
    FImageIndex = i->FImageIndex;
    FStateIndex = i->FStateIndex;
    FChecked = i->FChecked;
}

bool TListItem::Selected() const {
    TCustomListView* lv = FOwner->Owner();
    return lv && std::find(lv->FSelection.begin(), lv->FSelection.end(), this) != lv->FSelection.end();
}

void TListItem::SetSelected(bool v) {
    if (TCustomListView* lv = FOwner->Owner()) lv->SelectItem(this, v);
}

int TListItem::Index() const {
    return FOwner->IndexOf(this);
}

void TListItem::Delete() {
    FOwner->Delete(Index());
}

JEX_IMPLEMENT_CLASS(TListItems, rtl::TPersistent, "ComCtrls") {}

TListItems::TListItems(TCustomListView* AOwner) : FOwner(AOwner) {}

TListItems::~TListItems() {
    for (TListItem* i : FItems)
        delete i;
}

rtl::TPersistent* TListItems::GetOwner() const {
    return FOwner;
}

TListItem* TListItems::Item(int Index) const {
    if (Index < 0 || Index >= Count()) throw EListError(rtl::Format(rtl::SListIndexError, {Index}));
    return FItems[Index];
}

TListItem* TListItems::Add() {
    return Insert(Count());
}

TListItem* TListItems::Insert(int Index) {
    if (Index < 0 || Index > Count()) throw EListError(rtl::Format(rtl::SListIndexError, {Index}));
    auto* item = new TListItem(this);
    FItems.insert(FItems.begin() + Index, item);
    return item;
}

void TListItems::Delete(int Index) {
    TListItem* item = Item(Index);
    if (FOwner) {
        auto& sel = FOwner->FSelection;
        bool wasSelected = std::find(sel.begin(), sel.end(), item) != sel.end();
        sel.erase(std::remove(sel.begin(), sel.end(), item), sel.end());
        if (!FOwner->IsDestroying()) {
            if (wasSelected) FOwner->OnSelectItem(FOwner, item, false);
            FOwner->OnDeletion(FOwner, item);
        }
    }
    FItems.erase(std::find(FItems.begin(), FItems.end(), item));
    delete item;
}

void TListItems::Clear() {
    while (!FItems.empty())
        Delete(Count() - 1);
}

int TListItems::IndexOf(const TListItem* Item) const {
    auto it = std::find(FItems.begin(), FItems.end(), Item);
    return it == FItems.end() ? -1 : static_cast<int>(it - FItems.begin());
}

void TListItems::Assign(rtl::TPersistent* Source) {
    auto* src = dynamic_cast<TListItems*>(Source);
    if (!src) return TPersistent::Assign(Source);
    if (src == this) return;
    Clear();
    for (TListItem* i : src->FItems)
        Add()->Assign(i);
}

namespace {
void PutInt32(std::vector<uint8_t>& out, int32_t v) {
    auto u = static_cast<uint32_t>(v);
    for (int i = 0; i < 4; ++i)
        out.push_back(static_cast<uint8_t>(u >> (8 * i)));
}

// A short string; one of 255 bytes or more is marked by the length byte 255 and an Int32 length.
void PutText(std::vector<uint8_t>& out, const std::string& s) {
    if (s.size() < 255) {
        out.push_back(static_cast<uint8_t>(s.size()));
    } else {
        out.push_back(255);
        PutInt32(out, static_cast<int32_t>(s.size()));
    }
    out.insert(out.end(), s.begin(), s.end());
}

class TItemDataReader {
public:
    explicit TItemDataReader(const std::vector<uint8_t>& d) : FData(d) {}
    int32_t Int() {
        Need(4);
        uint32_t u = 0;
        for (int i = 0; i < 4; ++i)
            u |= static_cast<uint32_t>(FData[FPos + i]) << (8 * i);
        FPos += 4;
        return static_cast<int32_t>(u);
    }
    std::string Text() {
        Need(1);
        size_t len = FData[FPos++];
        if (len == 255) {
            int32_t n = Int();
            if (n < 0) throw rtl::EReadError("Invalid list item text length");
            len = static_cast<size_t>(n);
        }
        Need(len);
        std::string s(reinterpret_cast<const char*>(FData.data() + FPos), len);
        FPos += len;
        return s;
    }
    size_t Pos() const { return FPos; }
    size_t Left() const { return FData.size() - FPos; }

private:
    void Need(size_t n) const {
        if (FData.size() - FPos < n) throw rtl::EReadError("List item data ends too early");
    }
    const std::vector<uint8_t>& FData;
    size_t FPos = 0;
};

struct TItemRecord {
    int32_t ImageIndex, StateIndex;
    std::string Caption;
    std::vector<std::string> SubItems;
};
} // namespace

void TListItems::WriteData(std::vector<uint8_t>& Data) const {
    Data.clear();
    PutInt32(Data, Count());
    for (const TListItem* item : FItems) {
        std::vector<uint8_t> body;
        PutInt32(body, item->FImageIndex);
        PutInt32(body, item->FStateIndex);
        PutInt32(body, -1); // overlay index
        PutInt32(body, item->FSubItems->Count());
        PutInt32(body, 0); // Data: a pointer of the writing process
        PutText(body, item->FCaption);
        for (int i = 0; i < item->FSubItems->Count(); ++i)
            PutText(body, item->FSubItems->Get(i));
        PutInt32(Data, static_cast<int32_t>(body.size()));
        Data.insert(Data.end(), body.begin(), body.end());
    }
}

void TListItems::ReadData(const std::vector<uint8_t>& Data) {
    TItemDataReader r(Data);
    int32_t count = r.Int();
    if (count < 0 || static_cast<size_t>(count) > r.Left() / 25)
        throw rtl::EReadError("Invalid list item count " + std::to_string(count));
    std::vector<TItemRecord> records;
    for (int32_t i = 0; i < count; ++i) {
        int32_t size = r.Int();
        if (size < 21 || static_cast<size_t>(size) > r.Left())
            throw rtl::EReadError("Invalid list item record size " + std::to_string(size));
        size_t end = r.Pos() + static_cast<size_t>(size);
        TItemRecord rec;
        rec.ImageIndex = r.Int();
        rec.StateIndex = r.Int();
        r.Int();
        int32_t subCount = r.Int();
        r.Int();
        if (subCount < 0 || subCount > size) throw rtl::EReadError("Invalid list item sub-item count");
        rec.Caption = r.Text();
        for (int32_t j = 0; j < subCount; ++j)
            rec.SubItems.push_back(r.Text());
        if (r.Pos() != end) throw rtl::EReadError("List item record size does not match its contents");
        records.push_back(std::move(rec));
    }
    if (r.Left() != 0) throw rtl::EReadError("Unexpected bytes after the list item data");
    Clear();
    for (const TItemRecord& rec : records) {
        TListItem* item = Add();
        item->FCaption = rec.Caption;
        item->FImageIndex = rec.ImageIndex;
        item->FStateIndex = rec.StateIndex;
        for (const std::string& s : rec.SubItems)
            item->FSubItems->Add(s);
    }
}

void TListItems::DefineProperties(rtl::TFiler& Filer) {
    Filer.DefineBinaryProperty(
        "Data", [this](const std::vector<uint8_t>& d) { ReadData(d); },
        [this](std::vector<uint8_t>& d) { WriteData(d); }, !FItems.empty());
}

// ---- TCustomListView ----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCustomListView, TWinControl, "ComCtrls") {}
JEX_IMPLEMENT_CLASS(TListView, TCustomListView, "ComCtrls") {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("Checkboxes", &TListView::Checkboxes, &TListView::SetCheckboxes).Default(false);
    pub::Color(d, clWindow);
    d.Property("Columns", &TListView::Columns, &TListView::SetColumns);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("GridLines", &TListView::GridLines, &TListView::SetGridLines).Default(false);
    d.Property("HideSelection", &TListView::HideSelection, &TListView::SetHideSelection).Default(true);
    d.Property("Items", &TListView::Items, &TListView::SetItems);
    d.Property("LargeImages", &TListView::LargeImages, &TListView::SetLargeImages);
    d.Property("MultiSelect", &TListView::MultiSelect, &TListView::SetMultiSelect).Default(false);
    pub::ParentColor(d, false);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &TListView::ReadOnly, &TListView::SetReadOnly).Default(false);
    d.Property("RowSelect", &TListView::RowSelect, &TListView::SetRowSelect).Default(false);
    d.Property("ShowColumnHeaders", &TListView::ShowColumnHeaders, &TListView::SetShowColumnHeaders)
        .Default(true);
    pub::ShowHint(d);
    d.Property("SmallImages", &TListView::SmallImages, &TListView::SetSmallImages);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    d.Property("ViewStyle", &TListView::ViewStyle, &TListView::SetViewStyle).Default(vsIcon);
    pub::Visible(d);
    d.Event("OnChange", &TListView::OnChange);
    pub::OnClick(d);
    pub::OnDblClick(d);
    d.Event("OnDeletion", &TListView::OnDeletion);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
    d.Event("OnSelectItem", &TListView::OnSelectItem);
}

TCustomListView::TCustomListView(TComponent* AOwner)
    : TWinControl(AOwner), FColumns(new TListColumns(this)), FListItems(new TListItems(this)) {
    FWidth = 250;
    FHeight = 150;
    FTabStop = true;
    FColor = clWindow;
}

TCustomListView::~TCustomListView() {
    FSelection.clear();
    FListItems->FOwner = nullptr;
    delete FListItems;
    delete FColumns;
}

void TCustomListView::Notification(TComponent* AComponent, rtl::TOperation Operation) {
    TWinControl::Notification(AComponent, Operation);
    if (Operation != rtl::opRemove) return;
    if (AComponent == FLargeImages) FLargeImages = nullptr;
    if (AComponent == FSmallImages) FSmallImages = nullptr;
}

void TCustomListView::SetLargeImages(TCustomImageList* v) {
    if (v == FLargeImages) return;
    if (FLargeImages && FLargeImages != FSmallImages) FLargeImages->RemoveFreeNotification(this);
    FLargeImages = v;
    if (v) v->FreeNotification(this);
}

void TCustomListView::SetSmallImages(TCustomImageList* v) {
    if (v == FSmallImages) return;
    if (FSmallImages && FSmallImages != FLargeImages) FSmallImages->RemoveFreeNotification(this);
    FSmallImages = v;
    if (v) v->FreeNotification(this);
}

void TCustomListView::SetMultiSelect(bool v) {
    FMultiSelect = v;
    if (!v)
        while (FSelection.size() > 1)
            SelectItem(FSelection.back(), false);
}

void TCustomListView::SelectItem(TListItem* Item, bool Selected) {
    auto it = std::find(FSelection.begin(), FSelection.end(), Item);
    if (Selected == (it != FSelection.end())) return;
    if (Selected) {
        if (!FMultiSelect)
            while (!FSelection.empty())
                SelectItem(FSelection.back(), false);
        FSelection.push_back(Item);
    } else {
        FSelection.erase(it);
    }
    OnSelectItem(this, Item, Selected);
    OnChange(this);
}

TListItem* TCustomListView::Selected() const {
    // The first selected item in list order, as the platform reports it.
    for (TListItem* i : FListItems->FItems)
        if (std::find(FSelection.begin(), FSelection.end(), i) != FSelection.end()) return i;
    return nullptr;
}

void TCustomListView::SetSelected(TListItem* v) {
    std::vector<TListItem*> others;
    for (TListItem* i : FSelection)
        if (i != v) others.push_back(i);
    for (TListItem* i : others)
        SelectItem(i, false);
    if (v) SelectItem(v, true);
}

int TCustomListView::SelCount() const {
    return static_cast<int>(FSelection.size());
}

TListItem* TCustomListView::FindCaption(const std::string& Caption) const {
    for (TListItem* i : FListItems->FItems)
        if (rtl::SameText(i->FCaption, Caption)) return i;
    return nullptr;
}

void TCustomListView::UserSelect(int Index) {
    if (Index < 0 || Index >= FListItems->Count())
        throw EUserActionError("'" + Name() + "' has no item " + std::to_string(Index));
    SetSelected(FListItems->Item(Index));
    Click();
}

void TCustomListView::UserSelectText(const std::string& Text) {
    TListItem* i = FindCaption(Text);
    if (!i) throw EUserActionError("'" + Name() + "' has no item '" + Text + "'");
    UserSelect(i->Index());
}

void TCustomListView::UserSelectMulti(const std::vector<int>& Indexes) {
    if (!FMultiSelect) throw EUserActionError("'" + Name() + "' does not allow several selected items");
    for (int i : Indexes)
        if (i < 0 || i >= FListItems->Count())
            throw EUserActionError("'" + Name() + "' has no item " + std::to_string(i));
    SetSelected(nullptr);
    for (int i : Indexes)
        SelectItem(FListItems->Item(i), true);
    Click();
}

void TCustomListView::Describe(TControlDesc& d) const {
    TWinControl::Describe(d);
    for (TListItem* i : FListItems->FItems)
        d.Items.push_back(i->FCaption);
    // In report view the description holds the table: column captions, then a row per item.
    if (FViewStyle == vsReport) {
        std::vector<std::string> header;
        for (int c = 0; c < FColumns->Count(); ++c)
            header.push_back(FColumns->Items(c)->Caption());
        d.Cells.push_back(header);
        for (TListItem* i : FListItems->FItems) {
            std::vector<std::string> row{i->FCaption};
            for (int s = 0; s < i->FSubItems->Count(); ++s)
                row.push_back(i->FSubItems->Get(s));
            d.Cells.push_back(row);
        }
    }
    TListItem* sel = Selected();
    d.ItemIndex = sel ? sel->Index() : -1;
    for (TListItem* i : FListItems->FItems)
        if (std::find(FSelection.begin(), FSelection.end(), i) != FSelection.end())
            d.SelectedItems.push_back(i->Index());
    d.ReadOnly = FReadOnly;
}

// ---- Registration list --------------------------------------------------------------------------------
std::vector<rtl::TClass> CommonControlClasses() {
    return {TTabControl::StaticClass(), TPageControl::StaticClass(),    TTabSheet::StaticClass(),
            TTreeView::StaticClass(),   TToolBar::StaticClass(),        TToolButton::StaticClass(),
            TStatusBar::StaticClass(),  TProgressBar::StaticClass(),    TTrackBar::StaticClass(),
            TUpDown::StaticClass(),     TDateTimePicker::StaticClass(), TMonthCalendar::StaticClass(),
            TRichEdit::StaticClass(),   TListView::StaticClass()};
}

} // namespace vcl
