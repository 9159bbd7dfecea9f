// Data grids, the navigator bar and the aggregate grids with their embedded data sets.
#ifdef JEX_HAVE_DB

#include "jex/jexdbgrids.h"

#include <algorithm>

#include "jexdbpublish.h"
#include "vcl/dialogs.h"

namespace jex {

using namespace vcl;

namespace {

bool IsEditing(const db::TDataSet* ds) {
    return ds && (ds->State() == db::dsEdit || ds->State() == db::dsInsert);
}

void SetCellText(db::TField* Field, const std::string& Text) {
    bool textual = Field->DataType() == db::ftString || Field->DataType() == db::ftFixedChar ||
                   Field->DataType() == db::ftWideString || Field->IsBlob();
    if (Text.empty() && !textual)
        Field->Clear();
    else
        Field->SetAsString(Text);
}

int FieldPixelWidth(const db::TField* f) {
    return std::clamp(f->DisplayWidth() * 7 + 6, 24, 400);
}

const std::string& EmptyText() {
    static const std::string empty;
    return empty;
}

} // namespace

// ---- TjexDBGridColumn ------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexDBGridColumn, rtl::TCollectionItem, "jexdbgrids") {
    d.Property("Alignment", &TjexDBGridColumn::Alignment, &TjexDBGridColumn::SetAlignment)
        .Default(taLeftJustify);
    d.Property("FieldName", &TjexDBGridColumn::FieldName, &TjexDBGridColumn::SetFieldName);
    d.Property("ReadOnly", &TjexDBGridColumn::ReadOnly, &TjexDBGridColumn::SetReadOnly).Default(false);
    d.Property("Title", &TjexDBGridColumn::Title, &TjexDBGridColumn::SetTitle);
    d.Property("Visible", &TjexDBGridColumn::Visible, &TjexDBGridColumn::SetVisible).Default(true);
    d.Property("Width", &TjexDBGridColumn::Width, &TjexDBGridColumn::SetWidth).Default(0);
}

TjexDBGridColumn::TjexDBGridColumn(rtl::TCollection* Collection) : rtl::TCollectionItem(Collection) {}

void TjexDBGridColumn::Assign(rtl::TPersistent* Source) {
    if (auto* c = dynamic_cast<TjexDBGridColumn*>(Source)) {
        FFieldName = c->FFieldName;
        FTitle = c->FTitle;
        FWidth = c->FWidth;
        FAlignment = c->FAlignment;
        FVisible = c->FVisible;
        FReadOnly = c->FReadOnly;
        Changed(false);
        return;
    }
    rtl::TCollectionItem::Assign(Source);
}

std::string TjexDBGridColumn::GetDisplayName() const {
    if (!FTitle.empty()) return FTitle;
    if (!FFieldName.empty()) return FFieldName;
    return rtl::TCollectionItem::GetDisplayName();
}

#define JEX_COLUMN_SETTER(Name, Type, Field)                                                                 \
    void TjexDBGridColumn::Set##Name(Type Value) {                                                           \
        Field = Value;                                                                                       \
        Changed(false);                                                                                      \
    }
JEX_COLUMN_SETTER(FieldName, const std::string&, FFieldName)
JEX_COLUMN_SETTER(Title, const std::string&, FTitle)
JEX_COLUMN_SETTER(Alignment, TAlignment, FAlignment)
JEX_COLUMN_SETTER(Visible, bool, FVisible)
JEX_COLUMN_SETTER(ReadOnly, bool, FReadOnly)
#undef JEX_COLUMN_SETTER

void TjexDBGridColumn::SetWidth(int Value) {
    FWidth = std::max(0, Value);
    Changed(false);
}

TjexCustomDBGrid* TjexDBGridColumn::Grid() const {
    auto* cols = dynamic_cast<TjexDBGridColumns*>(Collection());
    return cols ? dynamic_cast<TjexCustomDBGrid*>(cols->GetOwner()) : nullptr;
}

db::TField* TjexDBGridColumn::Field() const {
    TjexCustomDBGrid* g = Grid();
    db::TDataSet* ds = g ? g->DataSet() : nullptr;
    return ds && ds->Active() && !FFieldName.empty() ? ds->FindField(FFieldName) : nullptr;
}

JEX_IMPLEMENT_CLASS(TjexDBGridColumns, rtl::TOwnedCollection, "jexdbgrids") {}

TjexDBGridColumns::TjexDBGridColumns(TjexCustomDBGrid* Grid)
    : rtl::TOwnedCollection(Grid, TjexDBGridColumn::StaticClass()), FGrid(Grid) {
    PropName = "Columns";
}

void TjexDBGridColumns::RebuildColumns() {
    db::TDataSet* ds = FGrid ? FGrid->DataSet() : nullptr;
    rtl::TStringList names;
    if (ds) ds->GetFieldNames(&names);
    BeginUpdate();
    Clear();
    for (int i = 0; i < names.Count(); ++i)
        Add()->SetFieldName(names[i]);
    EndUpdate();
}

void TjexDBGridColumns::Update(rtl::TCollectionItem*) {
    if (FGrid && !FGrid->IsDestroying()) FGrid->LayoutChanged();
}

// ---- TjexGridRecords
// ---------------------------------------------------------------------------------------
void TjexGridRecords::Clear() {
    FRows.clear();
    FMarks.clear();
}

const std::string& TjexGridRecords::Text(int Row, int Column) const {
    if (Row < 0 || Row >= Count()) return EmptyText();
    const auto& r = FRows[static_cast<size_t>(Row)];
    return Column >= 0 && Column < static_cast<int>(r.size()) ? r[static_cast<size_t>(Column)] : EmptyText();
}

namespace {
std::vector<std::string> RowOf(const std::vector<db::TField*>& Fields) {
    std::vector<std::string> row;
    row.reserve(Fields.size());
    for (db::TField* f : Fields)
        row.push_back(f ? f->DisplayText() : std::string());
    return row;
}
} // namespace

void TjexGridRecords::Read(db::TDataSet* DataSet, const std::vector<db::TField*>& Fields) {
    Clear();
    if (!DataSet || !DataSet->Active() || DataSet->State() != db::dsBrowse) return;
    DataSet->DisableControls();
    try {
        db::TBookmark mark = DataSet->GetBookmark();
        DataSet->First();
        while (!DataSet->Eof()) {
            FRows.push_back(RowOf(Fields));
            FMarks.push_back(DataSet->GetBookmark());
            DataSet->Next();
        }
        if (!mark.empty() && DataSet->BookmarkValid(mark)) DataSet->GotoBookmark(mark);
    } catch (...) {
        DataSet->EnableControls();
        throw;
    }
    DataSet->EnableControls();
}

void TjexGridRecords::SetRow(int Row, const std::vector<db::TField*>& Fields) {
    if (Row < 0 || Row >= Count()) return;
    FRows[static_cast<size_t>(Row)] = RowOf(Fields);
}

void TjexGridRecords::InsertRow(int Row, const std::vector<db::TField*>& Fields) {
    Row = std::clamp(Row, 0, Count());
    FRows.insert(FRows.begin() + Row, RowOf(Fields));
    FMarks.insert(FMarks.begin() + Row, db::TBookmark());
}

void TjexGridRecords::RemoveRow(int Row) {
    if (Row < 0 || Row >= Count()) return;
    FRows.erase(FRows.begin() + Row);
    FMarks.erase(FMarks.begin() + Row);
}

// ---- TjexCustomDBGrid ------------------------------------------------------------------------------------
JEX_DEFINE_ENUM(TjexDBGridOption)
JEX_DEFINE_SET(TjexDBGridOptions, TjexDBGridOption)

class TjexCustomDBGrid::TGridLink : public db::TDataLink {
public:
    explicit TGridLink(TjexCustomDBGrid* Grid) : FGrid(Grid) {}
    TjexCustomDBGrid* FGrid;
    bool Reading = false;

protected:
    void ActiveChanged() override {
        if (FGrid) FGrid->LayoutChanged();
    }
    void DataSetChanged() override {
        if (FGrid) FGrid->DataChanged();
    }
    void DataSetScrolled(int) override {
        if (FGrid) FGrid->Scrolled();
    }
    void EditingChanged() override {
        if (FGrid) FGrid->StateChanged();
    }
    void LayoutChanged() override {
        if (FGrid) FGrid->LayoutChanged();
    }
    void RecordChanged(db::TField*) override {
        if (FGrid) FGrid->RecordChanged();
    }
};

JEX_IMPLEMENT_CLASS(TjexCustomDBGrid, TCustomGrid, "jexdbgrids") {}

TjexCustomDBGrid::TjexCustomDBGrid(rtl::TComponent* AOwner)
    : TCustomGrid(AOwner), FLink(std::make_unique<TGridLink>(this)),
      FColumns(std::make_unique<TjexDBGridColumns>(this)), FTitleFont(std::make_unique<TFont>()) {
    FWidth = 320;
    FHeight = 120;
    FDefaultRowHeight = 18;
    FTabStop = true;
    SetDBOptions(FDBOptions);
    ApplySize();
}

TjexCustomDBGrid::~TjexCustomDBGrid() {
    FLink->FGrid = nullptr;
    FLink->SetDataSource(nullptr);
}

db::TDataSource* TjexCustomDBGrid::DataSource() const {
    return FLink->DataSource();
}

db::TDataSet* TjexCustomDBGrid::DataSet() const {
    return FLink->DataSet();
}

void TjexCustomDBGrid::SetDataSource(db::TDataSource* Value) {
    FLink->SetDataSource(Value);
    LayoutChanged();
}

void TjexCustomDBGrid::SetDBOptions(TjexDBGridOptions Value) {
    FDBOptions = Value;
    TGridOptions o{goFixedVertLine, goFixedHorzLine};
    if (Value.Contains(jdgColLines)) o.Include(goVertLine);
    if (Value.Contains(jdgRowLines)) o.Include(goHorzLine);
    if (Value.Contains(jdgEditing) && !FReadOnly) o.Include(goEditing);
    if (Value.Contains(jdgAlwaysShowEditor)) o.Include(goAlwaysShowEditor);
    if (Value.Contains(jdgColumnResize)) o.Include(goColSizing);
    if (Value.Contains(jdgTabs)) o.Include(goTabs);
    if (Value.Contains(jdgRowSelect)) o.Include(goRowSelect);
    SetOptions(o);
    ApplySize();
}

void TjexCustomDBGrid::SetReadOnly(bool Value) {
    FReadOnly = Value;
    SetDBOptions(FDBOptions);
}

void TjexCustomDBGrid::SetFixedDataCols(int Value) {
    FFixedDataCols = std::max(0, Value);
    ApplySize();
}

void TjexCustomDBGrid::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TCustomGrid::Notification(AComponent, Operation);
}

db::TField* TjexCustomDBGrid::ColumnField(int Index) const {
    return Index >= 0 && Index < ColumnCount() ? FShownFields[static_cast<size_t>(Index)] : nullptr;
}

std::string TjexCustomDBGrid::ColumnTitle(int Index) const {
    if (Index < 0 || Index >= ColumnCount()) return {};
    db::TField* f = FShownFields[static_cast<size_t>(Index)];
    if (TjexDBGridColumn* c = FShownColumns[static_cast<size_t>(Index)]) {
        if (!c->Title().empty()) return c->Title();
        return f ? f->DisplayLabel() : c->FieldName();
    }
    return f ? f->DisplayLabel() : std::string();
}

int TjexCustomDBGrid::DataColOf(int ACol) const {
    int c = ACol - IndicatorCols();
    return c >= 0 && c < ColumnCount() ? c : -1;
}

void TjexCustomDBGrid::ComputeFields() {
    FShownFields.clear();
    FShownColumns.clear();
    db::TDataSet* ds = FLink->DataSet();
    if (!FLink->Active() || !ds) return;
    if (FColumns->Count() > 0) {
        for (int i = 0; i < FColumns->Count(); ++i) {
            TjexDBGridColumn* c = FColumns->Items(i);
            if (!c || !c->Visible()) continue;
            FShownColumns.push_back(c);
            FShownFields.push_back(c->FieldName().empty() ? nullptr : ds->FindField(c->FieldName()));
        }
        return;
    }
    for (int i = 0; i < ds->FieldCount(); ++i)
        if (ds->Fields()->Fields(i)->Visible()) {
            FShownColumns.push_back(nullptr);
            FShownFields.push_back(ds->Fields()->Fields(i));
        }
}

void TjexCustomDBGrid::LayoutChanged() {
    if (!FLink || !FLink->FGrid || IsLoading()) return;
    ComputeFields();
    DataChanged();
}

void TjexCustomDBGrid::DataChanged() {
    if (!FLink || !FLink->FGrid || FLink->Reading) return;
    db::TDataSet* ds = FLink->DataSet();
    if (!FLink->Active() || !ds) {
        FShownFields.clear();
        FShownColumns.clear();
        FRecords.Clear();
        FCurrentRow = -1;
        FInsertedRow = -1;
        ApplySize();
        return;
    }
    if (FShownFields.empty() && ds->FieldCount() > 0) ComputeFields();
    if (ds->State() == db::dsBrowse) {
        FLink->Reading = true;
        try {
            FRecords.Read(ds, FShownFields);
        } catch (...) {
            FLink->Reading = false;
            throw;
        }
        FLink->Reading = false;
        FInsertedRow = -1;
        FCurrentRow = ds->IsEmpty() ? -1 : ds->RecNo() - 1;
    } else if (ds->State() == db::dsInsert) {
        if (FInsertedRow < 0) {
            FInsertedRow = std::max(FCurrentRow, 0);
            FRecords.InsertRow(FInsertedRow, FShownFields);
        } else {
            FRecords.SetRow(FInsertedRow, FShownFields);
        }
        FCurrentRow = FInsertedRow;
    } else if (ds->State() == db::dsEdit) {
        FRecords.SetRow(FCurrentRow, FShownFields);
    }
    ApplySize();
    SyncCurrent();
}

void TjexCustomDBGrid::Scrolled() {
    if (!FLink || !FLink->FGrid || FLink->Reading) return;
    db::TDataSet* ds = FLink->DataSet();
    if (!ds || ds->State() != db::dsBrowse) return;
    if (ds->RecordCount() != FRecords.Count() || FInsertedRow >= 0) {
        DataChanged();
        return;
    }
    FCurrentRow = ds->IsEmpty() ? -1 : ds->RecNo() - 1;
    SyncCurrent();
}

void TjexCustomDBGrid::StateChanged() {
    if (!FLink || !FLink->FGrid || FLink->Reading) return;
    db::TDataSet* ds = FLink->DataSet();
    if (ds && ds->State() == db::dsBrowse && (FInsertedRow >= 0 || ds->RecordCount() != FRecords.Count()))
        DataChanged();
}

void TjexCustomDBGrid::RecordChanged() {
    if (!FLink || !FLink->FGrid || FLink->Reading) return;
    db::TDataSet* ds = FLink->DataSet();
    if (!ds) return;
    if (IsEditing(ds))
        FRecords.SetRow(ds->State() == db::dsInsert ? FInsertedRow : FCurrentRow, FShownFields);
    else
        DataChanged();
}

void TjexCustomDBGrid::ApplySize() {
    int cols = IndicatorCols() + std::max(1, ColumnCount());
    int rows = TitleRows() + std::max(1, RecordRows());
    // Fixed counts first down to zero, so that shrinking never leaves them past the new size.
    FFixedCols = 0;
    FFixedRows = 0;
    SetColCount(cols);
    SetRowCount(rows);
    int fixedCols = IndicatorCols() + std::min(FFixedDataCols, std::max(0, ColumnCount() - 1));
    SetFixedCols(std::min(fixedCols, cols - 1));
    SetFixedRows(std::min(TitleRows(), rows - 1));
    if (IndicatorCols()) SetColWidths(0, 12);
    for (int i = 0; i < ColumnCount(); ++i) {
        TjexDBGridColumn* c = FShownColumns[static_cast<size_t>(i)];
        int w = c ? c->Width() : 0;
        if (w <= 0)
            w = FShownFields[static_cast<size_t>(i)] ? FieldPixelWidth(FShownFields[static_cast<size_t>(i)])
                                                     : FDefaultColWidth;
        SetColWidths(GridColOf(i), w);
    }
}

void TjexCustomDBGrid::SyncCurrent() {
    if (FCurrentRow < 0) return;
    int row = TitleRows() + FCurrentRow;
    if (row >= RowCount()) return;
    // The data set moved: the grid follows without asking (no OnSelectCell, no OnClick).
    FRow = row;
    FAnchorRow = row;
    if (FCol < FFixedCols) FCol = std::min(FFixedCols, ColCount() - 1);
    FAnchorCol = FOptions.Contains(goRowSelect) ? ColCount() - 1 : FCol;
}

std::string TjexCustomDBGrid::IndicatorText(int Row) const {
    if (Row != FCurrentRow) return {};
    db::TDataSet* ds = FLink->DataSet();
    if (!ds) return {};
    if (ds->State() == db::dsInsert) return "*";
    if (ds->State() == db::dsEdit) return "I";
    return ">";
}

std::string TjexCustomDBGrid::Cells(int ACol, int ARow) const {
    if (ACol < 0 || ARow < 0 || ACol >= ColCount() || ARow >= RowCount()) return {};
    if (ARow < TitleRows()) return ACol < IndicatorCols() ? std::string() : ColumnTitle(DataColOf(ACol));
    int rec = ARow - TitleRows();
    if (ACol < IndicatorCols()) return IndicatorText(rec);
    return FRecords.Text(rec, DataColOf(ACol));
}

bool TjexCustomDBGrid::SelectCell(int ACol, int ARow) {
    if (!TCustomGrid::SelectCell(ACol, ARow)) return false;
    if (FSyncing) return true;
    db::TDataSet* ds = FLink->DataSet();
    int rec = ARow - TitleRows();
    if (!ds || !FLink->Active() || rec < 0 || rec >= FRecords.Count() || rec == FCurrentRow) return true;
    FSyncing = true;
    try {
        if (ds->State() == db::dsInsert && FInsertedRow >= 0) {
            // Leaving the new row posts it (or drops it when nothing was typed), as moving does.
            ds->CheckBrowseMode();
        }
        const db::TBookmark& mark = rec < FRecords.Count() ? FRecords.Bookmark(rec) : db::TBookmark();
        if (!mark.empty() && ds->BookmarkValid(mark))
            ds->GotoBookmark(mark);
        else if (FCurrentRow >= 0)
            ds->MoveBy(rec - FCurrentRow);
    } catch (...) {
        FSyncing = false;
        throw;
    }
    FSyncing = false;
    FCurrentRow = ds->IsEmpty() ? -1 : ds->RecNo() - 1;
    return FCurrentRow + TitleRows() == ARow;
}

std::string TjexCustomDBGrid::GetEditText(int ACol, int ARow) {
    db::TField* f = ColumnField(DataColOf(ACol));
    int rec = ARow - TitleRows();
    if (!f || rec != FCurrentRow) return {};
    return f->Text();
}

void TjexCustomDBGrid::SetEditText(int ACol, int ARow, const std::string& Value) {
    int c = DataColOf(ACol);
    db::TField* f = ColumnField(c);
    bool columnReadOnly =
        c >= 0 && FShownColumns[static_cast<size_t>(c)] && FShownColumns[static_cast<size_t>(c)]->ReadOnly();
    if (!f || FReadOnly || columnReadOnly || !f->CanModify())
        throw EUserActionError(rtl::Format("Cell (%d, %d) of %s cannot be edited", {ACol, ARow, Name()}));
    db::TDataSet* ds = FLink->DataSet();
    if (!IsEditing(ds)) {
        if (db::TDataSource* src = FLink->DataSource(); src && src->AutoEdit())
            src->Edit();
        else
            ds->Edit();
    }
    if (!IsEditing(ds)) throw EUserActionError(Name() + ": the data set cannot be edited");
    SetCellText(f, Value);
    OnSetEditText(this, ACol, ARow, Value);
}

bool TjexCustomDBGrid::DeleteRecord() {
    db::TDataSet* ds = FLink->DataSet();
    if (!ds || !FLink->Active() || ds->IsEmpty()) return false;
    if (FDBOptions.Contains(jdgConfirmDelete) &&
        MessageDlg("Delete record?", mtConfirmation, TMsgDlgButtons{mbOK, mbCancel}, 0) != mrOk)
        return false;
    ds->Delete();
    return true;
}

void TjexCustomDBGrid::KeyDown(uint16_t& Key, TShiftState Shift) {
    db::TDataSet* ds = FLink->DataSet();
    if (!ds || !FLink->Active()) {
        TCustomGrid::KeyDown(Key, Shift);
        return;
    }
    bool canEdit = FDBOptions.Contains(jdgEditing) && !FReadOnly && ds->CanModify();
    bool ctrl = Shift.Contains(ssCtrl);
    switch (Key) {
    case VK_DOWN:
        if (ds->State() == db::dsInsert && !ds->Modified()) break;
        ds->Next();
        if (ds->Eof() && canEdit && ds->State() == db::dsBrowse && !ctrl) ds->Append();
        break;
    case VK_UP:
        if (ds->State() == db::dsInsert && !ds->Modified() && FDBOptions.Contains(jdgCancelOnExit))
            ds->Cancel();
        else
            ds->Prior();
        break;
    case VK_NEXT:
        ds->MoveBy(std::max(1, ClientHeight() / std::max(1, FDefaultRowHeight) - TitleRows()));
        break;
    case VK_PRIOR:
        ds->MoveBy(-std::max(1, ClientHeight() / std::max(1, FDefaultRowHeight) - TitleRows()));
        break;
    case VK_HOME:
    case VK_END:
        if (!ctrl) {
            TCustomGrid::KeyDown(Key, Shift);
            return;
        }
        if (Key == VK_HOME)
            ds->First();
        else
            ds->Last();
        break;
    case VK_INSERT:
        if (canEdit) ds->Insert();
        break;
    case VK_DELETE:
        if (!ctrl) {
            TCustomGrid::KeyDown(Key, Shift);
            return;
        }
        if (canEdit) DeleteRecord();
        break;
    case VK_ESCAPE:
        ds->Cancel();
        break;
    default:
        TCustomGrid::KeyDown(Key, Shift);
        return;
    }
    Key = 0;
}

void TjexCustomDBGrid::DoExit() {
    db::TDataSet* ds = FLink->DataSet();
    if (FDBOptions.Contains(jdgCancelOnExit) && ds && ds->State() == db::dsInsert && !ds->Modified())
        ds->Cancel();
    TCustomGrid::DoExit();
}

void TjexCustomDBGrid::Describe(TControlDesc& d) const {
    TCustomGrid::Describe(d);
    for (int r = 0; r < RowCount(); ++r) {
        std::vector<std::string> row;
        for (int c = 0; c < ColCount(); ++c)
            row.push_back(Cells(c, r));
        d.Cells.push_back(std::move(row));
    }
    d.ReadOnly = FReadOnly;
}

void TjexCustomDBGrid::Loaded() {
    TCustomGrid::Loaded();
    LayoutChanged();
}

// ---- TjexDBFixedGrid -------------------------------------------------------------------------------------
namespace {
template <class C> void PublishDBGrid(rtl::TClassDecl<C>& d) {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("BorderStyle", &TCustomGrid::BorderStyle, &TCustomGrid::SetBorderStyle,
               TypeInfo_TBorderStyle())
        .Default(bsSingle);
    pub::Color(d, clWindow);
    d.Property("Columns", &C::Columns, &C::SetColumns);
    pub::Ctl3D(d);
    d.Property("DataSource", &C::DataSource, &C::SetDataSource);
    d.Property("DefaultRowHeight", &TCustomGrid::DefaultRowHeight, &TCustomGrid::SetDefaultRowHeight)
        .Default(18);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    d.Property("FixedColor", &TCustomGrid::FixedColor, &TCustomGrid::SetFixedColor, TypeInfo_TColor())
        .Default(clBtnFace);
    pub::Font(d);
    d.Property("Options", &C::DBOptions, &C::SetDBOptions).Default(jexDefaultDBGridOptions.Bits());
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &C::ReadOnly, &C::SetReadOnly).Default(false);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    d.Property("TitleFont", &C::TitleFont, &C::SetTitleFont);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}
} // namespace

JEX_IMPLEMENT_CLASS(TjexDBFixedGrid, TjexCustomDBGrid, "jexdbgrids") {
    PublishDBGrid(d);
    d.Property("FixedCols", &TjexDBFixedGrid::FixedCols, &TjexDBFixedGrid::SetFixedCols).Default(0);
}

// ---- TjexHDBGrid ----------------------------------------------------------------------------------------
JEX_DEFINE_ENUM(TjexHDBGridOption)
JEX_DEFINE_SET(TjexHDBGridOptions, TjexHDBGridOption)

JEX_IMPLEMENT_CLASS(TjexHDBGrid, TCustomGrid, "jexdbgrids") {
    pub::Align(d);
    d.Property("AlignTitles", &TjexHDBGrid::AlignTitles, &TjexHDBGrid::SetAlignTitles).Default(taLeftJustify);
    pub::Anchors(d);
    d.Property("BorderStyle", &TCustomGrid::BorderStyle, &TCustomGrid::SetBorderStyle,
               TypeInfo_TBorderStyle())
        .Default(bsSingle);
    pub::Color(d, clWindow);
    d.Property("ColSizing", &TjexHDBGrid::ColSizing, &TjexHDBGrid::SetColSizing).Default(false);
    d.Property("ColWidth", &TjexHDBGrid::ColWidth, &TjexHDBGrid::SetColWidth).Default(100);
    pub::Ctl3D(d);
    d.Property("DataSource", &TjexHDBGrid::DataSource, &TjexHDBGrid::SetDataSource);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    d.Property("FixedColor", &TCustomGrid::FixedColor, &TCustomGrid::SetFixedColor, TypeInfo_TColor())
        .Default(clBtnFace);
    pub::Font(d);
    d.Property("NumCols", &TjexHDBGrid::NumCols, &TjexHDBGrid::SetNumCols).Default(3);
    d.Property("Options", &TjexHDBGrid::HOptions, &TjexHDBGrid::SetHOptions)
        .Default(TjexHDBGridOptions{jhgEditing, jhgRowLines, jhgColLines, jhgRecordNumbers}.Bits());
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &TjexHDBGrid::ReadOnly, &TjexHDBGrid::SetReadOnly).Default(false);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    d.Property("TitleWidth", &TjexHDBGrid::TitleWidth, &TjexHDBGrid::SetTitleWidth).Default(100);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

TjexHDBGrid::TjexHDBGrid(rtl::TComponent* AOwner)
    : TCustomGrid(AOwner), FLink(std::make_unique<TjexNotifyDataLink>()) {
    FWidth = 320;
    FHeight = 120;
    FDefaultRowHeight = 18;
    FTabStop = true;
    FLink->OnChange = [this] { Reread(); };
    SetHOptions(FHOptions);
}

TjexHDBGrid::~TjexHDBGrid() {
    FLink->OnChange = nullptr;
}

void TjexHDBGrid::SetDataSource(db::TDataSource* Value) {
    FLink->SetDataSource(Value);
    Reread();
}

void TjexHDBGrid::SetColSizing(bool Value) {
    TGridOptions o = Options();
    if (Value)
        o.Include(goColSizing);
    else
        o.Exclude(goColSizing);
    SetOptions(o);
}

void TjexHDBGrid::SetColWidth(int Value) {
    FColWidth = std::max(8, Value);
    ApplySize();
}

void TjexHDBGrid::SetNumCols(int Value) {
    FNumCols = std::max(1, Value);
    Reread();
}

void TjexHDBGrid::SetTitleWidth(int Value) {
    FTitleWidth = std::max(0, Value);
    ApplySize();
}

void TjexHDBGrid::SetHOptions(TjexHDBGridOptions Value) {
    FHOptions = Value;
    TGridOptions o{goFixedVertLine, goFixedHorzLine};
    if (Value.Contains(jhgColLines)) o.Include(goVertLine);
    if (Value.Contains(jhgRowLines)) o.Include(goHorzLine);
    if (Value.Contains(jhgEditing)) o.Include(goEditing);
    if (Value.Contains(jhgTabs)) o.Include(goTabs);
    if (Options().Contains(goColSizing)) o.Include(goColSizing);
    SetOptions(o);
    ApplySize();
}

int TjexHDBGrid::RecordOfCol(int ACol) const {
    if (ACol < 1) return -1;
    int rec = FFirst + ACol - 1;
    return rec < FRecords.Count() ? rec : -1;
}

void TjexHDBGrid::Reread() {
    if (FSyncing || !FLink) return;
    db::TDataSet* ds = FLink->DataSet();
    FFields.clear();
    if (!FLink->Active() || !ds) {
        FRecords.Clear();
        FCurrent = -1;
        FFirst = 0;
        ApplySize();
        return;
    }
    for (int i = 0; i < ds->FieldCount(); ++i)
        if (ds->Fields()->Fields(i)->Visible()) FFields.push_back(ds->Fields()->Fields(i));
    if (ds->State() == db::dsBrowse) {
        FSyncing = true;
        try {
            FRecords.Read(ds, FFields);
        } catch (...) {
            FSyncing = false;
            throw;
        }
        FSyncing = false;
        FCurrent = ds->IsEmpty() ? -1 : ds->RecNo() - 1;
    } else if (ds->State() == db::dsEdit) {
        FRecords.SetRow(FCurrent, FFields);
    }
    Scrolled();
}

void TjexHDBGrid::Scrolled() {
    if (FCurrent >= 0) {
        if (FCurrent < FFirst) FFirst = FCurrent;
        if (FCurrent >= FFirst + FNumCols) FFirst = FCurrent - FNumCols + 1;
    }
    FFirst = std::clamp(FFirst, 0, std::max(0, FRecords.Count() - FNumCols));
    ApplySize();
    if (FCurrent >= 0) {
        FCol = 1 + FCurrent - FFirst;
        FAnchorCol = FCol;
    }
}

void TjexHDBGrid::ApplySize() {
    int rows = TitleRows() + std::max(1, static_cast<int>(FFields.size()));
    FFixedCols = 0;
    FFixedRows = 0;
    SetColCount(1 + FNumCols);
    SetRowCount(rows);
    SetFixedCols(1);
    SetFixedRows(std::min(TitleRows(), rows - 1));
    SetColWidths(0, FTitleWidth);
    for (int c = 1; c <= FNumCols; ++c)
        SetColWidths(c, FColWidth);
}

std::string TjexHDBGrid::Cells(int ACol, int ARow) const {
    if (ACol < 0 || ARow < 0 || ACol >= ColCount() || ARow >= RowCount()) return {};
    if (ARow < TitleRows()) {
        int rec = RecordOfCol(ACol);
        return rec >= 0 ? rtl::IntToStr(rec + 1) : std::string();
    }
    int f = ARow - TitleRows();
    if (f >= static_cast<int>(FFields.size())) return {};
    if (ACol == 0) return FFields[static_cast<size_t>(f)]->DisplayLabel();
    return FRecords.Text(RecordOfCol(ACol), f);
}

bool TjexHDBGrid::SelectCell(int ACol, int ARow) {
    if (!TCustomGrid::SelectCell(ACol, ARow)) return false;
    if (FSyncing) return true;
    db::TDataSet* ds = FLink->DataSet();
    int rec = RecordOfCol(ACol);
    if (!ds || rec < 0 || rec == FCurrent) return true;
    const db::TBookmark& mark = FRecords.Bookmark(rec);
    if (!mark.empty() && ds->BookmarkValid(mark))
        ds->GotoBookmark(mark);
    else
        ds->MoveBy(rec - FCurrent);
    return true;
}

std::string TjexHDBGrid::GetEditText(int ACol, int ARow) {
    int f = ARow - TitleRows();
    if (f < 0 || f >= static_cast<int>(FFields.size()) || RecordOfCol(ACol) != FCurrent) return {};
    return FFields[static_cast<size_t>(f)]->Text();
}

void TjexHDBGrid::SetEditText(int ACol, int ARow, const std::string& Value) {
    int fi = ARow - TitleRows();
    db::TField* f =
        fi >= 0 && fi < static_cast<int>(FFields.size()) ? FFields[static_cast<size_t>(fi)] : nullptr;
    if (!f || FReadOnly || !f->CanModify() || RecordOfCol(ACol) != FCurrent)
        throw EUserActionError(rtl::Format("Cell (%d, %d) of %s cannot be edited", {ACol, ARow, Name()}));
    db::TDataSet* ds = FLink->DataSet();
    if (!IsEditing(ds)) {
        if (db::TDataSource* src = FLink->DataSource(); src && src->AutoEdit())
            src->Edit();
        else
            ds->Edit();
    }
    if (!IsEditing(ds)) throw EUserActionError(Name() + ": the data set cannot be edited");
    SetCellText(f, Value);
}

void TjexHDBGrid::Describe(TControlDesc& d) const {
    TCustomGrid::Describe(d);
    for (int r = 0; r < RowCount(); ++r) {
        std::vector<std::string> row;
        for (int c = 0; c < ColCount(); ++c)
            row.push_back(Cells(c, r));
        d.Cells.push_back(std::move(row));
    }
    d.ReadOnly = FReadOnly;
}

// ---- TjexCustomSuperNav ---------------------------------------------------------------------------------
JEX_DEFINE_ENUM(TjexSuperNavBtn)
JEX_DEFINE_SET(TjexSuperNavBtns, TjexSuperNavBtn)
JEX_DEFINE_ENUM(TjexSuperNavSpeed)
JEX_DEFINE_EVENT_TYPE(TjexSuperNavClickEvent, "Sender: TObject; Button: TjexSuperNavBtn")

namespace {
const char* const kNavButtonNames[] = {"First",  "PriorPage", "Prior", "Next", "NextPage", "Last",
                                       "Insert", "Delete",    "Edit",  "Post", "Cancel",   "Refresh"};
const char* const kNavHints[] = {"First record", "Prior page",  "Prior record",  "Next record",
                                 "Next page",    "Last record", "Insert record", "Delete record",
                                 "Edit record",  "Post edit",   "Cancel edit",   "Refresh data"};
constexpr int kNavButtons = 12;

// A 12 x 12 glyph of the button, drawn in Color on a background that the button treats as transparent.
void DrawNavGlyph(TBitmap& bmp, TjexSuperNavBtn btn, TColor Color) {
    const uint32_t back = RGB(0, 128, 128); // the bottom-left pixel: the glyph's transparent colour
    const uint32_t ink = ColorToRGB(Color);
    bmp.SetSize(12, 12);
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 12; ++x)
            bmp.SetPixelRGB(x, y, back);
    auto put = [&](int x, int y) { bmp.SetPixelRGB(x, y, ink); };
    auto bar = [&](int x) {
        for (int y = 2; y <= 9; ++y)
            put(x, y);
    };
    // A triangle pointing left (dir -1) or right (dir 1) with its tip at column tip.
    auto triangle = [&](int tip, int dir) {
        for (int k = 0; k < 4; ++k)
            for (int y = 5 - k; y <= 6 + k; ++y)
                put(tip - dir * k, y);
    };
    auto hline = [&](int y, int x0, int x1) {
        for (int x = x0; x <= x1; ++x)
            put(x, y);
    };
    auto vline = [&](int x, int y0, int y1) {
        for (int y = y0; y <= y1; ++y)
            put(x, y);
    };
    switch (btn) {
    case jsnFirst:
        bar(2);
        triangle(4, -1);
        break;
    case jsnPriorPage:
        triangle(2, -1);
        triangle(6, -1);
        break;
    case jsnPrior:
        triangle(4, -1);
        break;
    case jsnNext:
        triangle(7, 1);
        break;
    case jsnNextPage:
        triangle(5, 1);
        triangle(9, 1);
        break;
    case jsnLast:
        triangle(7, 1);
        bar(9);
        break;
    case jsnInsert:
        hline(5, 2, 9);
        hline(6, 2, 9);
        vline(5, 2, 9);
        vline(6, 2, 9);
        break;
    case jsnDelete:
        hline(5, 2, 9);
        hline(6, 2, 9);
        break;
    case jsnEdit:
        for (int k = 0; k < 7; ++k)
            put(3 + k, 8 - k);
        hline(9, 2, 4);
        break;
    case jsnPost:
        for (int k = 0; k < 3; ++k)
            put(2 + k, 6 + k);
        for (int k = 0; k < 6; ++k)
            put(5 + k, 7 - k);
        break;
    case jsnCancel:
        for (int k = 0; k < 8; ++k) {
            put(2 + k, 2 + k);
            put(9 - k, 2 + k);
        }
        break;
    case jsnRefresh:
        hline(2, 4, 7);
        hline(9, 4, 7);
        vline(2, 4, 7);
        vline(9, 4, 6);
        put(8, 6);
        put(10, 6);
        break;
    }
}
} // namespace

JEX_IMPLEMENT_CLASS(TjexCustomSuperNav, TCustomPanel, "jexdbgrids") {}

TjexCustomSuperNav::TjexCustomSuperNav(rtl::TComponent* AOwner)
    : TCustomPanel(AOwner), FLink(std::make_unique<TjexNotifyDataLink>()),
      FHints(std::make_unique<rtl::TStringList>()) {
    FControlStyle.Exclude(csAcceptsControls);
    SetBevelOuter(bvNone);
    FWidth = 288;
    FHeight = 25;
    for (int i = 0; i < kNavButtons; ++i) {
        auto btn = static_cast<TjexSuperNavBtn>(i);
        auto* b = new TSpeedButton(this);
        b->SetName(std::string("btn") + kNavButtonNames[i]);
        b->SetParent(this);
        b->OnClick = [this, btn](rtl::TObject*) { BtnClick(btn); };
        FButtons.push_back(b);
    }
    FHints->OnChange = [this](rtl::TObject*) {
        for (int i = 0; i < kNavButtons; ++i)
            FButtons[static_cast<size_t>(i)]->SetHint(ButtonHint(static_cast<TjexSuperNavBtn>(i)));
    };
    for (int i = 0; i < kNavButtons; ++i)
        FButtons[static_cast<size_t>(i)]->SetHint(ButtonHint(static_cast<TjexSuperNavBtn>(i)));
    FLink->OnChange = [this] { UpdateButtons(); };
    PaintGlyphs();
    ArrangeButtons();
    UpdateButtons();
}

TjexCustomSuperNav::~TjexCustomSuperNav() {
    FLink->OnChange = nullptr;
    FHints->OnChange = nullptr;
}

void TjexCustomSuperNav::SetDataSource(db::TDataSource* Value) {
    FLink->SetDataSource(Value);
    UpdateButtons();
}

void TjexCustomSuperNav::SetVisibleButtons(TjexSuperNavBtns Value) {
    FVisibleButtons = Value;
    for (int i = 0; i < kNavButtons; ++i)
        FButtons[static_cast<size_t>(i)]->SetVisible(Value.Contains(static_cast<TjexSuperNavBtn>(i)));
    ArrangeButtons();
}

void TjexCustomSuperNav::SetFlat(bool Value) {
    FFlat = Value;
    for (TSpeedButton* b : FButtons)
        b->SetFlat(Value);
}

void TjexCustomSuperNav::SetGlyphColor(TColor Value) {
    FGlyphColor = Value;
    PaintGlyphs();
}

void TjexCustomSuperNav::SetMoveBy(int Value) {
    FMoveBy = std::max(1, Value);
}

int TjexCustomSuperNav::RepeatInterval() const {
    switch (FNavSpeed) {
    case jnsSlow:
        return 200;
    case jnsFast:
        return 50;
    default:
        return 100;
    }
}

std::string TjexCustomSuperNav::DefaultHint(TjexSuperNavBtn Btn) {
    int i = static_cast<int>(Btn);
    return i >= 0 && i < kNavButtons ? kNavHints[i] : "";
}

std::string TjexCustomSuperNav::ButtonHint(TjexSuperNavBtn Btn) const {
    int i = static_cast<int>(Btn);
    if (i < FHints->Count() && !FHints->Strings(i).empty()) return FHints->Strings(i);
    return DefaultHint(Btn);
}

void TjexCustomSuperNav::PaintGlyphs() {
    for (int i = 0; i < kNavButtons; ++i) {
        TBitmap bmp;
        DrawNavGlyph(bmp, static_cast<TjexSuperNavBtn>(i), FGlyphColor);
        FButtons[static_cast<size_t>(i)]->SetGlyph(&bmp);
    }
}

void TjexCustomSuperNav::ArrangeButtons() {
    int shown = 0;
    for (TSpeedButton* b : FButtons)
        if (b->Visible()) ++shown;
    if (!shown) return;
    int w = ClientWidth() / shown, x = 0, extra = ClientWidth() % shown;
    for (TSpeedButton* b : FButtons) {
        if (!b->Visible()) continue;
        int bw = w + (extra-- > 0 ? 1 : 0);
        b->SetBounds(x, 0, bw, ClientHeight());
        x += bw;
    }
}

void TjexCustomSuperNav::Resize() {
    TCustomPanel::Resize();
    ArrangeButtons();
}

void TjexCustomSuperNav::UpdateButtons() {
    db::TDataSet* ds = FLink->DataSet();
    bool active = FLink->Active() && ds;
    bool editing = active && IsEditing(ds);
    bool canModify = active && ds->CanModify();
    bool bof = !active || ds->Bof(), eof = !active || ds->Eof();
    bool empty = !active || ds->IsEmpty();
    auto set = [&](TjexSuperNavBtn b, bool on) {
        FButtons[static_cast<size_t>(b)]->SetEnabled(Enabled() && on);
    };
    set(jsnFirst, active && !bof);
    set(jsnPriorPage, active && !bof);
    set(jsnPrior, active && !bof);
    set(jsnNext, active && !eof);
    set(jsnNextPage, active && !eof);
    set(jsnLast, active && !eof);
    set(jsnInsert, canModify);
    set(jsnDelete, canModify && !empty);
    set(jsnEdit, canModify && !editing);
    set(jsnPost, canModify && editing);
    set(jsnCancel, canModify && editing);
    set(jsnRefresh, active);
}

void TjexCustomSuperNav::BtnClick(TjexSuperNavBtn Btn) {
    TSpeedButton* b = Button(Btn);
    if (!b->Visible() || !b->Enabled()) return;
    db::TDataSet* ds = FLink->DataSet();
    if (!ds) return;
    BeforeAction(this);
    switch (Btn) {
    case jsnFirst:
        ds->First();
        break;
    case jsnPriorPage:
        ds->MoveBy(-FMoveBy);
        break;
    case jsnPrior:
        ds->Prior();
        break;
    case jsnNext:
        ds->Next();
        break;
    case jsnNextPage:
        ds->MoveBy(FMoveBy);
        break;
    case jsnLast:
        ds->Last();
        break;
    case jsnInsert:
        ds->Insert();
        break;
    case jsnDelete:
        if (FConfirmDelete &&
            MessageDlg("Delete record?", mtConfirmation, TMsgDlgButtons{mbOK, mbCancel}, 0) != mrOk)
            return;
        ds->Delete();
        break;
    case jsnEdit:
        ds->Edit();
        break;
    case jsnPost:
        ds->Post();
        break;
    case jsnCancel:
        ds->Cancel();
        break;
    case jsnRefresh:
        ds->Refresh();
        break;
    }
    UpdateButtons();
    OnNavClick(this, Btn);
}

JEX_IMPLEMENT_CLASS(TjexDBSuperNav, TjexCustomSuperNav, "jexdbgrids") {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("ConfirmDelete", &TjexDBSuperNav::ConfirmDelete, &TjexDBSuperNav::SetConfirmDelete)
        .Default(true);
    pub::Ctl3D(d);
    d.Property("DataSource", &TjexDBSuperNav::DataSource, &TjexDBSuperNav::SetDataSource);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    d.Property("Flat", &TjexDBSuperNav::Flat, &TjexDBSuperNav::SetFlat).Default(false);
    d.Property("GlyphColor", &TjexDBSuperNav::GlyphColor, &TjexDBSuperNav::SetGlyphColor, TypeInfo_TColor())
        .Default(clBlack);
    d.Property("Hints", &TjexDBSuperNav::Hints, &TjexDBSuperNav::SetHints);
    d.Property("MoveBy", &TjexDBSuperNav::MoveBy, &TjexDBSuperNav::SetMoveBy).Default(10);
    d.Property("NavSpeed", &TjexDBSuperNav::NavSpeed, &TjexDBSuperNav::SetNavSpeed).Default(jnsMedium);
    pub::ParentCtl3D(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    pub::Visible(d);
    d.Property("VisibleButtons", &TjexDBSuperNav::VisibleButtons, &TjexDBSuperNav::SetVisibleButtons)
        .Default(jexAllSuperNavBtns.Bits());
    d.Event("BeforeAction", &TjexDBSuperNav::BeforeAction);
    d.Event("OnClick", &TjexDBSuperNav::OnNavClick);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnResize(d);
}

// ---- Embedded data sets
// ------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexSubTable, db::TTable, "jexdbgrids") {}
JEX_IMPLEMENT_CLASS(TjexSubQuery, db::TQuery, "jexdbgrids") {}
JEX_IMPLEMENT_CLASS(TjexSubDataSource, db::TDataSource, "jexdbgrids") {}

// ---- Aggregate grids -------------------------------------------------------------------------------------
JEX_DEFINE_ENUM(TjexGridNavAlign)
JEX_IMPLEMENT_CLASS(TjexCustomDBAggregateGrid, TCustomPanel, "jexdbgrids") {}

TjexCustomDBAggregateGrid::TjexCustomDBAggregateGrid(rtl::TComponent* AOwner) : TCustomPanel(AOwner) {
    FControlStyle.Exclude(csAcceptsControls);
    SetBevelOuter(bvNone);
    FWidth = 320;
    FHeight = 160;
    // The parts are the aggregate's own: owned by it, so that form files describe them only through
    // the aggregate's properties.
    FDataSource = new TjexSubDataSource(this);
    FDataSource->SetName("SubDataSource");
    FGrid = new TjexDBFixedGrid(this);
    FGrid->SetName("Grid");
    FGrid->SetParent(this);
    FGrid->SetDataSource(FDataSource);
    FNavigator = new TjexDBSuperNav(this);
    FNavigator->SetName("Navigator");
    FNavigator->SetParent(this);
    FNavigator->SetDataSource(FDataSource);
    ArrangeParts();
}

TjexCustomDBAggregateGrid::~TjexCustomDBAggregateGrid() = default;

void TjexCustomDBAggregateGrid::AttachDataSet(db::TDBDataSet* DataSet) {
    FDataSource->SetDataSet(DataSet);
}

std::string TjexCustomDBAggregateGrid::A1DatabaseName() const {
    return EmbeddedDataSet()->DatabaseName();
}

void TjexCustomDBAggregateGrid::SetA1DatabaseName(const std::string& Value) {
    EmbeddedDataSet()->SetDatabaseName(Value);
}

bool TjexCustomDBAggregateGrid::A3Active() const {
    return IsLoading() ? FStreamedActive : EmbeddedDataSet()->Active();
}

void TjexCustomDBAggregateGrid::SetA3Active(bool Value) {
    if (IsLoading()) {
        FStreamedActive = Value;
        return;
    }
    EmbeddedDataSet()->SetActive(Value);
}

void TjexCustomDBAggregateGrid::Loaded() {
    TCustomPanel::Loaded();
    ArrangeParts();
    if (FStreamedActive) {
        FStreamedActive = false;
        try {
            EmbeddedDataSet()->Open();
        } catch (const rtl::Exception&) {
            // A data set that cannot open while the form loads stays closed, as a table does when its
            // database is missing; the designer shows it closed.
            if (!IsDesigning()) throw;
        }
    }
}

void TjexCustomDBAggregateGrid::SetNavAlign(TjexGridNavAlign Value) {
    FNavAlign = Value;
    ArrangeParts();
}

void TjexCustomDBAggregateGrid::SetNavHeight(int Value) {
    FNavHeight = std::max(0, Value);
    ArrangeParts();
}

void TjexCustomDBAggregateGrid::ArrangeParts() {
    int w = ClientWidth(), h = ClientHeight();
    int nav = FNavAlign == jgnNone ? 0 : std::min(FNavHeight, h);
    FNavigator->SetVisible(FNavAlign != jgnNone);
    if (FNavAlign == jgnTop) {
        FNavigator->SetBounds(0, 0, w, nav);
        FGrid->SetBounds(0, nav, w, h - nav);
    } else {
        FGrid->SetBounds(0, 0, w, h - nav);
        FNavigator->SetBounds(0, h - nav, w, nav);
    }
}

namespace {
template <class C> void PublishAggregate(rtl::TClassDecl<C>& d) {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("BevelInner", &TCustomPanel::BevelInner, &TCustomPanel::SetBevelInner).Default(bvNone);
    d.Property("BevelOuter", &TCustomPanel::BevelOuter, &TCustomPanel::SetBevelOuter).Default(bvNone);
    pub::Color(d, clBtnFace);
    d.Property("Columns", &C::Columns, &C::SetColumns);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    d.Property("FixedCols", &C::FixedCols, &C::SetFixedCols).Default(0);
    pub::Font(d);
    d.Property("GlyphColor", &C::GlyphColor, &C::SetGlyphColor, TypeInfo_TColor()).Default(clBlack);
    d.Property("Hints", &C::Hints, &C::SetHints);
    d.Property("MoveBy", &C::MoveBy, &C::SetMoveBy).Default(10);
    d.Property("NavAlign", &C::NavAlign, &C::SetNavAlign).Default(jgnBottom);
    d.Property("NavHeight", &C::NavHeight, &C::SetNavHeight).Default(25);
    d.Property("NavSpeed", &C::NavSpeed, &C::SetNavSpeed).Default(jnsMedium);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &C::ReadOnly, &C::SetReadOnly).Default(false);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    pub::Visible(d);
    d.Property("VisibleButtons", &C::VisibleButtons, &C::SetVisibleButtons)
        .Default(jexAllSuperNavBtns.Bits());
    pub::OnEnterExit(d);
    pub::OnResize(d);
}
} // namespace

JEX_IMPLEMENT_CLASS(TjexDBTableGrid, TjexCustomDBAggregateGrid, "jexdbgrids") {
    d.Property("A1DatabaseName", &TjexDBTableGrid::A1DatabaseName, &TjexDBTableGrid::SetA1DatabaseName,
               rtl::TypeInfo_TFileName());
    d.Property("A2TableName", &TjexDBTableGrid::A2TableName, &TjexDBTableGrid::SetA2TableName,
               rtl::TypeInfo_TFileName());
    d.Property("A3Active", &TjexDBTableGrid::A3Active, &TjexDBTableGrid::SetA3Active).Default(false);
    PublishAggregate(d);
    d.Property("IndexFieldNames", &TjexDBTableGrid::IndexFieldNames, &TjexDBTableGrid::SetIndexFieldNames);
    d.Property("IndexName", &TjexDBTableGrid::IndexName, &TjexDBTableGrid::SetIndexName);
    d.Property("MasterFields", &TjexDBTableGrid::MasterFields, &TjexDBTableGrid::SetMasterFields);
    d.Property("MasterSource", &TjexDBTableGrid::MasterSource, &TjexDBTableGrid::SetMasterSource);
}

TjexDBTableGrid::TjexDBTableGrid(rtl::TComponent* AOwner) : TjexCustomDBAggregateGrid(AOwner) {
    FTable = new TjexSubTable(this);
    FTable->SetName("SubTable");
    AttachDataSet(FTable);
}

db::TDBDataSet* TjexDBTableGrid::EmbeddedDataSet() const {
    return FTable;
}

void TjexDBTableGrid::SetMasterSource(db::TDataSource* Value) {
    if (Value == FDataSource) throw db::EDatabaseError(db::SCircularDataLink);
    FTable->SetMasterSource(Value);
    if (Value) Value->FreeNotification(this);
}

void TjexDBTableGrid::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TjexCustomDBAggregateGrid::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && FTable && !IsDestroying() && AComponent == FTable->MasterSource())
        FTable->SetMasterSource(nullptr);
}

JEX_IMPLEMENT_CLASS(TjexDBQueryGrid, TjexCustomDBAggregateGrid, "jexdbgrids") {
    d.Property("A1DatabaseName", &TjexDBQueryGrid::A1DatabaseName, &TjexDBQueryGrid::SetA1DatabaseName,
               rtl::TypeInfo_TFileName());
    d.Property("A2SQL", &TjexDBQueryGrid::A2SQL, &TjexDBQueryGrid::SetA2SQL);
    d.Property("A3Active", &TjexDBQueryGrid::A3Active, &TjexDBQueryGrid::SetA3Active).Default(false);
    PublishAggregate(d);
    d.Property("Params", &TjexDBQueryGrid::Params, &TjexDBQueryGrid::SetParams);
}

TjexDBQueryGrid::TjexDBQueryGrid(rtl::TComponent* AOwner) : TjexCustomDBAggregateGrid(AOwner) {
    FQuery = new TjexSubQuery(this);
    FQuery->SetName("SubQuery");
    AttachDataSet(FQuery);
}

db::TDBDataSet* TjexDBQueryGrid::EmbeddedDataSet() const {
    return FQuery;
}

std::string jexGetTableTypeMask(db::TTableType TableType) {
    switch (TableType) {
    case db::ttParadox:
        return "*.db";
    case db::ttDBase:
    case db::ttFoxPro:
        return "*.dbf";
    case db::ttASCII:
        return "*.txt";
    default:
        return "*";
    }
}

static const TjexLibraryUnit<TjexDBSuperNav, TjexHDBGrid, TjexDBFixedGrid, TjexDBTableGrid, TjexDBQueryGrid,
                             TjexSubTable, TjexSubQuery, TjexSubDataSource>
    jexdbgridsUnit("jexdbgrids");

} // namespace jex

#endif // JEX_HAVE_DB
