// TDesignWindow, the collection editor and the filter editor.
#include "ide/designwindow.h"

#include <algorithm>

#include "ide/editordialogs.h"
#include "vcl/dialogs.h"

namespace ide {

using namespace rtl;
using namespace vcl;

// ---- TDesignWindow
// ------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TDesignWindow, TForm, "DesignWindows") {}

TDesignWindow::TDesignWindow(TComponent* AOwner) : TForm(AOwner) {
    OnActivate = [this](TObject*) { Activated(); };
    RegisterDesignNotification(this);
}

TDesignWindow::~TDesignWindow() {
    UnregisterDesignNotification(this);
}

bool TDesignWindow::Active() const {
    return Screen()->ActiveForm() == this;
}

void TDesignWindow::Activated() {
    if (FDesigner) FDesigner->Activate();
}

std::string TDesignWindow::UniqueName(TComponent* Component) {
    if (!FDesigner || !Component) return {};
    return FDesigner->UniqueName(Component->ClassName());
}

bool TDesignWindow::ClipboardComponents() {
    return FDesigner && FDesigner->ClipboardComponents();
}

void TDesignWindow::CopyComponents(TComponent* Root, const TDesignerSelectionList& Selections) {
    if (FDesigner) FDesigner->CopyComponents(Root, Selections);
}

void TDesignWindow::PasteComponents(TComponent* Owner, TComponent* Parent,
                                    TDesignerSelectionList& Selections) {
    if (FDesigner) FDesigner->PasteComponents(Owner, Parent, Selections);
}

void TDesignWindow::DesignerClosed(IDesigner* designer, bool) {
    if (!designer || designer != FDesigner) return;
    FDesigner = nullptr;
    if (Visible()) Close();
}

// ---- TCollectionEditor
// ---------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCollectionEditor, TDesignWindow, "ColnEdit") {}

namespace {
TButton* PlaceButton(TForm* form, const char* name, const char* caption, int l, int t) {
    auto* b = new TButton(form);
    b->SetName(name);
    b->SetParent(form);
    b->SetCaption(caption);
    b->SetBounds(l, t, 75, 25);
    return b;
}
} // namespace

TCollectionEditor::TCollectionEditor(TComponent* AOwner) : TDesignWindow(AOwner) {
    SetName("CollectionEditor");
    SetBorderIcons({biSystemMenu});
    SetClientWidth(260);
    SetClientHeight(230);
    ItemList = new TListBox(this);
    ItemList->SetName("ItemList");
    ItemList->SetParent(this);
    ItemList->SetBounds(8, 8, 160, 214);
    ItemList->SetMultiSelect(true);
    AddButton = PlaceButton(this, "AddButton", "&Add", 177, 8);
    DeleteButton = PlaceButton(this, "DeleteButton", "&Delete", 177, 40);
    MoveUpButton = PlaceButton(this, "MoveUpButton", "Move &Up", 177, 80);
    MoveDownButton = PlaceButton(this, "MoveDownButton", "Move Dow&n", 177, 112);
    ItemList->OnClick = TNotifyEvent(this, &TCollectionEditor::ItemListClick);
    AddButton->OnClick = TNotifyEvent(this, &TCollectionEditor::AddClick);
    DeleteButton->OnClick = TNotifyEvent(this, &TCollectionEditor::DeleteClick);
    MoveUpButton->OnClick = TNotifyEvent(this, &TCollectionEditor::MoveUpClick);
    MoveDownButton->OnClick = TNotifyEvent(this, &TCollectionEditor::MoveDownClick);
    OnClose = TCloseEvent(this, &TCollectionEditor::FormClose);
}

TCollectionEditor* TCollectionEditor::FindEditor(IDesigner* designer, const TCollection* collection) {
    TCollectionEditor* found = nullptr;
    ForEachDesignNotification([&](IDesignNotification* n) {
        auto* e = dynamic_cast<TCollectionEditor*>(n);
        if (e && !e->FClosing && e->Designer() == designer && e->FCollection == collection) found = e;
    });
    return found;
}

TCollectionEditor* TCollectionEditor::ShowCollectionEditor(IDesigner* designer, TComponent* component,
                                                           TCollection* collection,
                                                           const std::string& propertyName) {
    if (!collection) throw EPropertyError(SInvalidPropertyValue);
    TCollectionEditor* e = FindEditor(designer, collection);
    if (!e) {
        e = NewForm<TCollectionEditor>(Application());
        e->SetDesigner(designer);
        e->FComponent = component;
        e->FCollection = collection;
        e->FPropertyName = propertyName;
        std::string owner =
            component ? (designer ? designer->GetComponentName(component) : component->Name()) : "";
        e->SetCaption("Editing " + (owner.empty() ? propertyName : owner + "." + propertyName));
        e->UpdateList();
    }
    e->Show();
    e->BringToFront();
    return e;
}

void TCollectionEditor::UpdateList() {
    std::vector<int> selected;
    for (int i = 0; i < ItemList->Items()->Count(); ++i)
        if (ItemList->Selected(i)) selected.push_back(i);
    ItemList->Items()->Clear();
    if (!FCollection) return;
    for (int i = 0; i < FCollection->Count(); ++i)
        ItemList->Items()->AddObject(IntToStr(i) + " - " + FCollection->Items(i)->DisplayName(),
                                     FCollection->Items(i));
    for (int i : selected)
        if (i < ItemList->Items()->Count()) ItemList->SetSelected(i, true);
    DeleteButton->SetEnabled(FCollection->Count() > 0);
}

void TCollectionEditor::SelectItems(const std::vector<int>& indexes) {
    for (int i = 0; i < ItemList->Items()->Count(); ++i)
        ItemList->SetSelected(i, std::find(indexes.begin(), indexes.end(), i) != indexes.end());
    ItemListClick(this);
}

void TCollectionEditor::ItemListClick(TObject*) {
    if (!Designer()) return;
    TDesignerSelectionList list;
    for (int i = 0; i < ItemList->Items()->Count(); ++i)
        if (ItemList->Selected(i)) list.Add(static_cast<TCollectionItem*>(ItemList->Items()->Objects(i)));
    if (list.Empty() && FComponent) list.Add(FComponent);
    Designer()->SetSelections(list);
}

void TCollectionEditor::AddClick(TObject*) {
    if (!FCollection) return;
    FCollection->Add();
    UpdateList();
    SelectItems({FCollection->Count() - 1});
    if (Designer()) Designer()->Modified();
}

void TCollectionEditor::DeleteClick(TObject*) {
    if (!FCollection) return;
    std::vector<int> selected;
    for (int i = 0; i < ItemList->Items()->Count(); ++i)
        if (ItemList->Selected(i)) selected.push_back(i);
    if (selected.empty()) return;
    // The designer lets go of the items before they are freed.
    if (Designer()) Designer()->SelectComponent(FComponent);
    for (auto it = selected.rbegin(); it != selected.rend(); ++it)
        FCollection->Delete(*it);
    UpdateList();
    int next = std::min(selected.front(), FCollection->Count() - 1);
    if (next >= 0) SelectItems({next});
    if (Designer()) Designer()->Modified();
}

void TCollectionEditor::Move(int delta) {
    if (!FCollection) return;
    std::vector<int> selected;
    for (int i = 0; i < ItemList->Items()->Count(); ++i)
        if (ItemList->Selected(i)) selected.push_back(i);
    if (selected.empty()) return;
    if (delta < 0 && selected.front() == 0) return;
    if (delta > 0 && selected.back() == FCollection->Count() - 1) return;
    std::vector<TCollectionItem*> items;
    for (int i : selected)
        items.push_back(FCollection->Items(i));
    if (delta > 0) std::reverse(items.begin(), items.end());
    for (TCollectionItem* item : items)
        item->SetIndex(item->Index() + delta);
    std::vector<int> moved;
    for (int i : selected)
        moved.push_back(i + delta);
    UpdateList();
    SelectItems(moved);
    if (Designer()) Designer()->Modified();
}

void TCollectionEditor::MoveUpClick(TObject*) {
    Move(-1);
}
void TCollectionEditor::MoveDownClick(TObject*) {
    Move(1);
}

void TCollectionEditor::FormClose(TObject*, TCloseAction& Action) {
    FClosing = true;
    Action = caFree;
}

void TCollectionEditor::CloseEditor() {
    FClosing = true;
    FComponent = nullptr;
    FCollection = nullptr;
    ItemList->Items()->Clear();
    if (Visible())
        Close();
    else
        Release();
}

void TCollectionEditor::ItemDeleted(IDesigner* designer, TPersistent* item) {
    if (item && item == FComponent) CloseEditor();
}

void TCollectionEditor::ItemsModified(IDesigner* designer) {
    if (designer == Designer() && FCollection && !FClosing) UpdateList();
}

void TCollectionEditor::SelectionChanged(IDesigner* designer, const TDesignerSelectionList& selection) {
    if (designer != Designer() || FClosing) return;
    for (int i = 0; i < ItemList->Items()->Count(); ++i) {
        bool on = selection.Contains(static_cast<TCollectionItem*>(ItemList->Items()->Objects(i)));
        if (ItemList->Selected(i) != on) ItemList->SetSelected(i, on);
    }
}

void TCollectionEditor::EditAction(TEditAction Action) {
    if (Action == eaDelete)
        DeleteClick(this);
    else if (Action == eaSelectAll) {
        std::vector<int> all;
        for (int i = 0; i < ItemList->Items()->Count(); ++i)
            all.push_back(i);
        SelectItems(all);
    }
}

TEditState TCollectionEditor::GetEditState() {
    TEditState s{esCanSelectAll};
    for (int i = 0; i < ItemList->Items()->Count(); ++i)
        if (ItemList->Selected(i)) s.Include(esCanDelete);
    return s;
}

// ---- TFilterEditor
// -------------------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TFilterEditor, TForm, "FiltEdit") {}

TFilterEditor::TFilterEditor(TComponent* AOwner) : TForm(AOwner) {
    SetName("FilterEditor");
    SetCaption("Filter Editor");
    SetBorderStyle(bsDialog);
    SetPosition(poScreenCenter);
    SetClientWidth(400);
    SetClientHeight(250);
    Grid = new TStringGrid(this);
    Grid->SetName("Grid");
    Grid->SetParent(this);
    Grid->SetBounds(8, 8, 384, 200);
    Grid->SetColCount(2);
    Grid->SetFixedCols(0);
    Grid->SetOptions(Grid->Options() + TGridOptions{goEditing, goTabs});
    Grid->SetColWidths(0, 180);
    Grid->SetColWidths(1, 180);
    Grid->SetCells(0, 0, "Filter Name");
    Grid->SetCells(1, 0, "Filter");
    OKButton = PlaceButton(this, "OKButton", "OK", 236, 218);
    OKButton->SetModalResult(mrOk);
    OKButton->SetDefault(true);
    CancelButton = PlaceButton(this, "CancelButton", "Cancel", 317, 218);
    CancelButton->SetModalResult(mrCancel);
    CancelButton->SetCancel(true);
    SetFilter("");
}

void TFilterEditor::SetFilter(const std::string& filter) {
    std::vector<TFilterItem> items = ParseFilter(filter);
    int rows = std::max<int>(static_cast<int>(items.size()) + 4, 8);
    Grid->SetRowCount(rows + 1);
    for (int r = 1; r <= rows; ++r) {
        const TFilterItem* item =
            r - 1 < static_cast<int>(items.size()) ? &items[static_cast<size_t>(r - 1)] : nullptr;
        Grid->SetCells(0, r, item ? item->Description : "");
        Grid->SetCells(1, r, item ? item->Pattern : "");
    }
}

std::string TFilterEditor::GetFilter() const {
    std::string out;
    for (int r = 1; r < Grid->RowCount(); ++r) {
        std::string desc = Grid->Cells(0, r), pattern = Grid->Cells(1, r);
        if (desc.empty() && pattern.empty()) continue;
        if (!out.empty()) out += '|';
        out += desc + "|" + pattern;
    }
    return out;
}

bool EditFilter(std::string& filter) {
    auto* dlg = NewForm<TFilterEditor>(nullptr);
    try {
        dlg->SetFilter(filter);
        bool ok = dlg->ShowModal() == mrOk;
        if (ok) filter = dlg->GetFilter();
        dlg->Free();
        return ok;
    } catch (...) {
        dlg->Free();
        throw;
    }
}

} // namespace ide
