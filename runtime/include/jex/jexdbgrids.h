// Data grids and navigators of jexc60: the data grid with its columns, the grid with fixed data columns,
// the horizontal grid (records across, fields down), the navigator bar, and the aggregate components that
// hold an embedded table or query with a grid and a navigator.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "db/dbtables.h"
#include "jex/jexcommon.h"
#include "jex/jexdbctrls.h"
#include "vcl/buttons.h"
#include "vcl/extctrls.h"
#include "vcl/grids.h"

namespace jex {

class TjexCustomDBGrid;

// ---- Columns ------------------------------------------------------------------------------------------
// The settings of a grid column. They live in a base constructed before the collection item, because the
// item announces itself to its collection (which lays the grid out) while it is being constructed.
struct TjexDBGridColumnData {
    std::string FFieldName, FTitle;
    int FWidth = 0;
    vcl::TAlignment FAlignment = vcl::taLeftJustify;
    bool FVisible = true, FReadOnly = false;
};

// One column of a data grid: the field it shows (FieldName), its title, width (0: from the field),
// alignment, and whether it shows and may be edited.
class TjexDBGridColumn : private TjexDBGridColumnData, public rtl::TCollectionItem {
    JEX_CLASS(TjexDBGridColumn, rtl::TCollectionItem)
    explicit TjexDBGridColumn(rtl::TCollection* Collection);
    void Assign(rtl::TPersistent* Source) override;
    std::string GetDisplayName() const override;

    std::string FieldName() const { return FFieldName; }
    void SetFieldName(const std::string& Value);
    // The title shown; empty means the field's display label.
    std::string Title() const { return FTitle; }
    void SetTitle(const std::string& Value);
    int Width() const { return FWidth; }
    void SetWidth(int Value);
    vcl::TAlignment Alignment() const { return FAlignment; }
    void SetAlignment(vcl::TAlignment Value);
    bool Visible() const { return FVisible; }
    void SetVisible(bool Value);
    bool ReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool Value);
    // The grid's field of that name, nil while the data set is closed or has no such field.
    db::TField* Field() const;
    TjexCustomDBGrid* Grid() const;
};

class TjexDBGridColumns : public rtl::TOwnedCollection {
    JEX_CLASS(TjexDBGridColumns, rtl::TOwnedCollection)
    explicit TjexDBGridColumns(TjexCustomDBGrid* Grid);
    TjexDBGridColumn* Add() { return static_cast<TjexDBGridColumn*>(rtl::TCollection::Add()); }
    // The column at Index; nil while that item is still being constructed (it announces itself to the
    // collection from its base's constructor).
    TjexDBGridColumn* Items(int Index) const {
        return dynamic_cast<TjexDBGridColumn*>(rtl::TCollection::Items(Index));
    }
    // Adds a column for every field of the grid's data set (the persistent columns a designer starts from).
    void RebuildColumns();
    void Update(rtl::TCollectionItem* Item) override;

private:
    TjexCustomDBGrid* FGrid;
};

// The rows a grid shows: the text of each shown field for every record of the data set, read in one pass
// and kept until the data set changes, with each record's bookmark.
class TjexGridRecords {
public:
    void Read(db::TDataSet* DataSet, const std::vector<db::TField*>& Fields);
    void Clear();
    int Count() const { return static_cast<int>(FRows.size()); }
    const std::string& Text(int Row, int Column) const;
    const db::TBookmark& Bookmark(int Row) const { return FMarks.at(static_cast<size_t>(Row)); }
    // Replaces one row with the current record's values (while it is being edited or inserted).
    void SetRow(int Row, const std::vector<db::TField*>& Fields);
    void InsertRow(int Row, const std::vector<db::TField*>& Fields);
    void RemoveRow(int Row);

private:
    std::vector<std::vector<std::string>> FRows;
    std::vector<db::TBookmark> FMarks;
};

// ---- The data grid ----------------------------------------------------------------------------------------
JEX_ENUM(TjexDBGridOption, jdgEditing, jdgAlwaysShowEditor, jdgTitles, jdgIndicator, jdgColumnResize,
         jdgColLines, jdgRowLines, jdgTabs, jdgRowSelect, jdgAlwaysShowSelection, jdgConfirmDelete,
         jdgCancelOnExit)
JEX_SET(TjexDBGridOptions, TjexDBGridOption)
inline constexpr TjexDBGridOptions jexDefaultDBGridOptions{
    jdgEditing,  jdgTitles, jdgIndicator,     jdgColumnResize, jdgColLines,
    jdgRowLines, jdgTabs,   jdgConfirmDelete, jdgCancelOnExit};

// A grid over DataSource's data set: a title row, an indicator column (">" current, "I" editing, "*"
// inserting), a row per record and a column per entry of Columns (every visible field while Columns is
// empty). Selecting a row moves the data set; editing a cell edits the field; Insert, Ctrl+Delete and
// Escape insert, delete (asking first with jdgConfirmDelete) and cancel.
class TjexCustomDBGrid : public vcl::TCustomGrid {
    JEX_CLASS(TjexCustomDBGrid, vcl::TCustomGrid)
    explicit TjexCustomDBGrid(rtl::TComponent* AOwner);
    ~TjexCustomDBGrid() override;

    db::TDataSource* DataSource() const;
    void SetDataSource(db::TDataSource* Value);
    TjexDBGridColumns* Columns() const { return FColumns.get(); }
    void SetColumns(TjexDBGridColumns* Value) { FColumns->Assign(Value); }
    TjexDBGridOptions DBOptions() const { return FDBOptions; }
    void SetDBOptions(TjexDBGridOptions Value);
    bool ReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool Value);
    vcl::TFont* TitleFont() const { return FTitleFont.get(); }
    void SetTitleFont(vcl::TFont* Value) { FTitleFont->Assign(Value); }
    db::TDataSet* DataSet() const;

    // What the grid shows.
    int ColumnCount() const { return static_cast<int>(FShownFields.size()); }
    db::TField* ColumnField(int Index) const;
    std::string ColumnTitle(int Index) const;
    int RecordRows() const { return FRecords.Count(); }
    // The text of a grid cell (titles, indicator and record cells), "" outside the grid.
    std::string Cells(int ACol, int ARow) const;
    // The grid column of data column Index, and back (-1 for the indicator and outside).
    int GridColOf(int Index) const { return Index + IndicatorCols(); }
    int DataColOf(int ACol) const;
    int TitleRows() const { return FDBOptions.Contains(jdgTitles) ? 1 : 0; }
    int IndicatorCols() const { return FDBOptions.Contains(jdgIndicator) ? 1 : 0; }
    // Re-reads the rows from the data set.
    void LayoutChanged();
    void DataChanged();

    // Person actions.
    void KeyDown(uint16_t& Key, vcl::TShiftState Shift) override;
    std::string GetEditText(int ACol, int ARow) override;
    void SetEditText(int ACol, int ARow, const std::string& Value) override;
    void DoExit() override;
    void Describe(vcl::TControlDesc& d) const override;
    void Loaded() override;
    // Deletes the current record (asking first when jdgConfirmDelete); false when the person said no.
    bool DeleteRecord();

protected:
    bool SelectCell(int ACol, int ARow) override;
    // Data columns at the left that stay fixed (the fixed-column grid sets them).
    int FixedDataCols() const { return FFixedDataCols; }
    void SetFixedDataCols(int Value);
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    class TGridLink;
    friend class TGridLink;
    void Scrolled();
    void StateChanged();
    void RecordChanged();
    void ApplySize();
    void SyncCurrent();
    // The visible columns (nil entries without persistent columns) and their fields, in order.
    void ComputeFields();
    std::string IndicatorText(int Row) const;
    std::unique_ptr<TGridLink> FLink;
    std::unique_ptr<TjexDBGridColumns> FColumns;
    std::unique_ptr<vcl::TFont> FTitleFont;
    TjexDBGridOptions FDBOptions = jexDefaultDBGridOptions;
    std::vector<db::TField*> FShownFields;
    std::vector<TjexDBGridColumn*> FShownColumns;
    TjexGridRecords FRecords;
    int FCurrentRow = -1;  // record row of the data set's current record
    int FInsertedRow = -1; // the record row added for an inserted record
    int FFixedDataCols = 0;
    bool FReadOnly = false, FSyncing = false;
};

// A data grid whose FixedCols leftmost data columns stay in place while the others scroll.
class TjexDBFixedGrid : public TjexCustomDBGrid {
    JEX_CLASS(TjexDBFixedGrid, TjexCustomDBGrid)
    explicit TjexDBFixedGrid(rtl::TComponent* AOwner) : TjexCustomDBGrid(AOwner) {}
    int FixedCols() const { return FixedDataCols(); }
    void SetFixedCols(int Value) { SetFixedDataCols(Value); }
};

// ---- The horizontal grid
// ------------------------------------------------------------------------------------
JEX_ENUM(TjexHDBGridOption, jhgEditing, jhgRowLines, jhgColLines, jhgRecordNumbers, jhgTabs)
JEX_SET(TjexHDBGridOptions, TjexHDBGridOption)

// A grid that shows records across and fields down: column 0 holds the fields' titles (TitleWidth wide,
// aligned by AlignTitles), the next NumCols columns (ColWidth wide) show records, the current record among
// them; row 0 numbers the records when jhgRecordNumbers is set.
class TjexHDBGrid : public vcl::TCustomGrid {
    JEX_CLASS(TjexHDBGrid, vcl::TCustomGrid)
    explicit TjexHDBGrid(rtl::TComponent* AOwner);
    ~TjexHDBGrid() override;
    db::TDataSource* DataSource() const { return FLink->DataSource(); }
    void SetDataSource(db::TDataSource* Value);
    vcl::TAlignment AlignTitles() const { return FAlignTitles; }
    void SetAlignTitles(vcl::TAlignment Value) { FAlignTitles = Value; }
    bool ColSizing() const { return FOptions.Contains(vcl::goColSizing); }
    void SetColSizing(bool Value);
    int ColWidth() const { return FColWidth; }
    void SetColWidth(int Value);
    int NumCols() const { return FNumCols; }
    void SetNumCols(int Value);
    int TitleWidth() const { return FTitleWidth; }
    void SetTitleWidth(int Value);
    TjexHDBGridOptions HOptions() const { return FHOptions; }
    void SetHOptions(TjexHDBGridOptions Value);
    bool ReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool Value) { FReadOnly = Value; }

    std::string Cells(int ACol, int ARow) const;
    // The record shown in grid column ACol (0-based among the data set's records), -1 for none.
    int RecordOfCol(int ACol) const;
    int FirstRecord() const { return FFirst; }
    void Reread();
    std::string GetEditText(int ACol, int ARow) override;
    void SetEditText(int ACol, int ARow, const std::string& Value) override;
    void Describe(vcl::TControlDesc& d) const override;

protected:
    bool SelectCell(int ACol, int ARow) override;

private:
    void ApplySize();
    void Scrolled();
    int TitleRows() const { return FHOptions.Contains(jhgRecordNumbers) ? 1 : 0; }
    std::unique_ptr<TjexNotifyDataLink> FLink;
    std::vector<db::TField*> FFields;
    TjexGridRecords FRecords;
    vcl::TAlignment FAlignTitles = vcl::taLeftJustify;
    TjexHDBGridOptions FHOptions{jhgEditing, jhgRowLines, jhgColLines, jhgRecordNumbers};
    int FColWidth = 100, FNumCols = 3, FTitleWidth = 100, FFirst = 0, FCurrent = -1;
    bool FReadOnly = false, FSyncing = false;
};

// ---- The navigator -------------------------------------------------------------------------------------
JEX_ENUM(TjexSuperNavBtn, jsnFirst, jsnPriorPage, jsnPrior, jsnNext, jsnNextPage, jsnLast, jsnInsert,
         jsnDelete, jsnEdit, jsnPost, jsnCancel, jsnRefresh)
JEX_SET(TjexSuperNavBtns, TjexSuperNavBtn)
inline constexpr TjexSuperNavBtns jexAllSuperNavBtns = TjexSuperNavBtns::FromBits((1u << 12) - 1);
// How fast a held page or record button repeats.
JEX_ENUM(TjexSuperNavSpeed, jnsSlow, jnsMedium, jnsFast)
JEX_EVENT_TYPE(TjexSuperNavClickEvent, void(rtl::TObject* Sender, TjexSuperNavBtn Button))

// A navigator bar over DataSource: first, page back (MoveBy records), prior, next, page forward, last,
// insert, delete, edit, post, cancel and refresh buttons (VisibleButtons), enabled as the data set's
// state allows, with glyphs drawn in GlyphColor and hints from Hints (one line per button, in button order;
// empty lines keep the built-in hint).
class TjexCustomSuperNav : public vcl::TCustomPanel {
    JEX_CLASS(TjexCustomSuperNav, vcl::TCustomPanel)
    explicit TjexCustomSuperNav(rtl::TComponent* AOwner);
    ~TjexCustomSuperNav() override;
    db::TDataSource* DataSource() const { return FLink->DataSource(); }
    void SetDataSource(db::TDataSource* Value);
    TjexSuperNavBtns VisibleButtons() const { return FVisibleButtons; }
    void SetVisibleButtons(TjexSuperNavBtns Value);
    bool Flat() const { return FFlat; }
    void SetFlat(bool Value);
    vcl::TColor GlyphColor() const { return FGlyphColor; }
    void SetGlyphColor(vcl::TColor Value);
    rtl::TStrings* Hints() const { return FHints.get(); }
    void SetHints(rtl::TStrings* Value) { FHints->Assign(Value); }
    int MoveBy() const { return FMoveBy; }
    void SetMoveBy(int Value);
    TjexSuperNavSpeed NavSpeed() const { return FNavSpeed; }
    void SetNavSpeed(TjexSuperNavSpeed Value) { FNavSpeed = Value; }
    // Milliseconds between repeats of a held button at NavSpeed.
    int RepeatInterval() const;
    bool ConfirmDelete() const { return FConfirmDelete; }
    void SetConfirmDelete(bool Value) { FConfirmDelete = Value; }

    vcl::TSpeedButton* Button(TjexSuperNavBtn Btn) const { return FButtons[static_cast<size_t>(Btn)]; }
    // The hint a button shows (its Hints line, else the built-in one).
    std::string ButtonHint(TjexSuperNavBtn Btn) const;
    static std::string DefaultHint(TjexSuperNavBtn Btn);
    // Does what the button does (when it is visible and enabled), then OnClick.
    void BtnClick(TjexSuperNavBtn Btn);
    void UpdateButtons();
    void Resize() override;
    TjexSuperNavClickEvent OnNavClick;
    rtl::TNotifyEvent BeforeAction;

private:
    void ArrangeButtons();
    void PaintGlyphs();
    std::unique_ptr<TjexNotifyDataLink> FLink;
    std::vector<vcl::TSpeedButton*> FButtons;
    std::unique_ptr<rtl::TStringList> FHints;
    TjexSuperNavBtns FVisibleButtons = jexAllSuperNavBtns;
    vcl::TColor FGlyphColor = vcl::clBlack;
    TjexSuperNavSpeed FNavSpeed = jnsMedium;
    int FMoveBy = 10;
    bool FFlat = false, FConfirmDelete = true;
};

class TjexDBSuperNav : public TjexCustomSuperNav {
    JEX_CLASS(TjexDBSuperNav, TjexCustomSuperNav)
    explicit TjexDBSuperNav(rtl::TComponent* AOwner) : TjexCustomSuperNav(AOwner) {}
};

// ---- Embedded data sets --------------------------------------------------------------------------------
// The classes of the data sets and data source an aggregate grid holds; they are the platform's table,
// query and data source, named so that form files and the designer can tell them apart.
class TjexSubTable : public db::TTable {
    JEX_CLASS(TjexSubTable, db::TTable)
    explicit TjexSubTable(rtl::TComponent* AOwner) : db::TTable(AOwner) {}
};

class TjexSubQuery : public db::TQuery {
    JEX_CLASS(TjexSubQuery, db::TQuery)
    explicit TjexSubQuery(rtl::TComponent* AOwner) : db::TQuery(AOwner) {}
};

class TjexSubDataSource : public db::TDataSource {
    JEX_CLASS(TjexSubDataSource, db::TDataSource)
    explicit TjexSubDataSource(rtl::TComponent* AOwner) : db::TDataSource(AOwner) {}
};

// ---- Aggregate grids --------------------------------------------------------------------------------------
// Where the navigator of an aggregate grid sits.
JEX_ENUM(TjexGridNavAlign, jgnBottom, jgnTop, jgnNone)

// A panel holding an embedded data set (made by the descendant), its data source, a fixed-column data grid
// and a navigator. The data set's settings are published with prefixes (A1..., A2..., A3Active) so that
// they are listed first and in the order they must be set; Active given while the form loads is applied
// when loading ends.
class TjexCustomDBAggregateGrid : public vcl::TCustomPanel {
    JEX_CLASS(TjexCustomDBAggregateGrid, vcl::TCustomPanel)
    explicit TjexCustomDBAggregateGrid(rtl::TComponent* AOwner);
    ~TjexCustomDBAggregateGrid() override;

    // The embedded parts.
    virtual db::TDBDataSet* EmbeddedDataSet() const = 0;
    TjexSubDataSource* DataSource() const { return FDataSource; }
    TjexDBFixedGrid* Grid() const { return FGrid; }
    TjexDBSuperNav* Navigator() const { return FNavigator; }

    std::string A1DatabaseName() const;
    void SetA1DatabaseName(const std::string& Value);
    bool A3Active() const;
    void SetA3Active(bool Value);
    int FixedCols() const { return FGrid->FixedCols(); }
    void SetFixedCols(int Value) { FGrid->SetFixedCols(Value); }
    TjexDBGridColumns* Columns() const { return FGrid->Columns(); }
    void SetColumns(TjexDBGridColumns* Value) { FGrid->SetColumns(Value); }
    bool ReadOnly() const { return FGrid->ReadOnly(); }
    void SetReadOnly(bool Value) { FGrid->SetReadOnly(Value); }
    vcl::TColor GlyphColor() const { return FNavigator->GlyphColor(); }
    void SetGlyphColor(vcl::TColor Value) { FNavigator->SetGlyphColor(Value); }
    rtl::TStrings* Hints() const { return FNavigator->Hints(); }
    void SetHints(rtl::TStrings* Value) { FNavigator->SetHints(Value); }
    int MoveBy() const { return FNavigator->MoveBy(); }
    void SetMoveBy(int Value) { FNavigator->SetMoveBy(Value); }
    TjexSuperNavSpeed NavSpeed() const { return FNavigator->NavSpeed(); }
    void SetNavSpeed(TjexSuperNavSpeed Value) { FNavigator->SetNavSpeed(Value); }
    TjexSuperNavBtns VisibleButtons() const { return FNavigator->VisibleButtons(); }
    void SetVisibleButtons(TjexSuperNavBtns Value) { FNavigator->SetVisibleButtons(Value); }
    TjexGridNavAlign NavAlign() const { return FNavAlign; }
    void SetNavAlign(TjexGridNavAlign Value);
    int NavHeight() const { return FNavHeight; }
    void SetNavHeight(int Value);

    void Loaded() override;

protected:
    // Called by the descendant once its data set exists.
    void AttachDataSet(db::TDBDataSet* DataSet);
    void ArrangeParts();
    TjexSubDataSource* FDataSource;
    TjexDBFixedGrid* FGrid;
    TjexDBSuperNav* FNavigator;
    TjexGridNavAlign FNavAlign = jgnBottom;
    int FNavHeight = 25;
    bool FStreamedActive = false;
};

// The aggregate grid over a table: A1DatabaseName, A2TableName, A3Active, MasterSource, MasterFields,
// IndexName and IndexFieldNames are the embedded table's.
class TjexDBTableGrid : public TjexCustomDBAggregateGrid {
    JEX_CLASS(TjexDBTableGrid, TjexCustomDBAggregateGrid)
    explicit TjexDBTableGrid(rtl::TComponent* AOwner);
    TjexSubTable* Table() const { return FTable; }
    db::TDBDataSet* EmbeddedDataSet() const override;
    std::string A2TableName() const { return FTable->TableName(); }
    void SetA2TableName(const std::string& Value) { FTable->SetTableName(Value); }
    db::TDataSource* MasterSource() const { return FTable->MasterSource(); }
    void SetMasterSource(db::TDataSource* Value);
    std::string MasterFields() const { return FTable->MasterFields(); }
    void SetMasterFields(const std::string& Value) { FTable->SetMasterFields(Value); }
    std::string IndexName() const { return FTable->IndexName(); }
    void SetIndexName(const std::string& Value) { FTable->SetIndexName(Value); }
    std::string IndexFieldNames() const { return FTable->IndexFieldNames(); }
    void SetIndexFieldNames(const std::string& Value) { FTable->SetIndexFieldNames(Value); }

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    TjexSubTable* FTable;
};

// The aggregate grid over a query: A1DatabaseName, A2SQL, A3Active and Params are the embedded query's.
class TjexDBQueryGrid : public TjexCustomDBAggregateGrid {
    JEX_CLASS(TjexDBQueryGrid, TjexCustomDBAggregateGrid)
    explicit TjexDBQueryGrid(rtl::TComponent* AOwner);
    TjexSubQuery* Query() const { return FQuery; }
    db::TDBDataSet* EmbeddedDataSet() const override;
    rtl::TStrings* A2SQL() const { return FQuery->SQL(); }
    void SetA2SQL(rtl::TStrings* Value) { FQuery->SetSQL(Value); }
    db::TParams* Params() const { return FQuery->Params(); }
    void SetParams(db::TParams* Value) { FQuery->SetParams(Value); }

private:
    TjexSubQuery* FQuery;
};

// The file-name mask that lists tables of a type (for the session's GetTableNames): "*.db" for Paradox,
// "*.dbf" for dBASE and FoxPro, "*.txt" for text tables, "*" otherwise.
std::string jexGetTableTypeMask(db::TTableType TableType);

} // namespace jex
