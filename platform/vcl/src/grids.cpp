// Grids and string grids.
#include "vcl/grids.h"

#include <algorithm>

#include "publish.h"

namespace vcl {

JEX_DEFINE_ENUM(TGridOption)
JEX_DEFINE_SET(TGridOptions, TGridOption)
JEX_DEFINE_EVENT_TYPE(TSelectCellEvent, "Sender: TObject; ACol, ARow: Longint; var CanSelect: Boolean")
JEX_DEFINE_EVENT_TYPE(TGetEditEvent, "Sender: TObject; ACol, ARow: Longint; var Value: string")
JEX_DEFINE_EVENT_TYPE(TSetEditEvent, "Sender: TObject; ACol, ARow: Longint; const Value: string")

namespace {
constexpr const char* SIndexOutOfRange = "Grid index out of range";
constexpr const char* SFixedColTooBig = "Fixed column count must be less than column count";
constexpr const char* SFixedRowTooBig = "Fixed row count must be less than row count";
} // namespace

// ---- TCustomGrid --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCustomGrid, TCustomControl, "Grids") {}

TCustomGrid::TCustomGrid(TComponent* AOwner) : TCustomControl(AOwner) {
    FControlStyle = TControlStyle{csCaptureMouse, csOpaque, csDoubleClicks};
    FWidth = 320;
    FHeight = 120;
    FTabStop = true;
    FColor = clWindow;
    FColWidths.assign(FColCount, FDefaultColWidth);
    FRowHeights.assign(FRowCount, FDefaultRowHeight);
}

void TCustomGrid::CheckCell(int ACol, int ARow) const {
    if (ACol < 0 || ARow < 0 || ACol >= FColCount || ARow >= FRowCount)
        throw EInvalidGridOperation(SIndexOutOfRange);
}

void TCustomGrid::ChangeSize(int cols, int rows) {
    int oldCols = FColCount, oldRows = FRowCount;
    FColCount = cols;
    FRowCount = rows;
    FColWidths.resize(cols, FDefaultColWidth);
    FRowHeights.resize(rows, FDefaultRowHeight);
    FCol = std::min(FCol, cols - 1);
    FRow = std::min(FRow, rows - 1);
    FAnchorCol = std::min(FAnchorCol, cols - 1);
    FAnchorRow = std::min(FAnchorRow, rows - 1);
    SizeChanged(oldCols, oldRows);
}

void TCustomGrid::SetColCount(int v) {
    if (v < 1) v = 1;
    if (v == FColCount) return;
    if (v <= FFixedCols) FFixedCols = v - 1;
    ChangeSize(v, FRowCount);
}

void TCustomGrid::SetRowCount(int v) {
    if (v < 1) v = 1;
    if (v == FRowCount) return;
    if (v <= FFixedRows) FFixedRows = v - 1;
    ChangeSize(FColCount, v);
}

void TCustomGrid::SetFixedCols(int v) {
    if (v < 0) throw EInvalidGridOperation(SIndexOutOfRange);
    if (v >= FColCount) throw EInvalidGridOperation(SFixedColTooBig);
    FFixedCols = v;
    if (FCol < v) FCol = v;
    if (FAnchorCol < v) FAnchorCol = v;
    FLeftCol = v;
}

void TCustomGrid::SetFixedRows(int v) {
    if (v < 0) throw EInvalidGridOperation(SIndexOutOfRange);
    if (v >= FRowCount) throw EInvalidGridOperation(SFixedRowTooBig);
    FFixedRows = v;
    if (FRow < v) FRow = v;
    if (FAnchorRow < v) FAnchorRow = v;
    FTopRow = v;
}

void TCustomGrid::SetDefaultColWidth(int v) {
    FDefaultColWidth = v;
    FColWidths.assign(FColCount, v);
}

void TCustomGrid::SetDefaultRowHeight(int v) {
    FDefaultRowHeight = v;
    FRowHeights.assign(FRowCount, v);
}

int TCustomGrid::ColWidths(int index) const {
    if (index < 0 || index >= FColCount) return FDefaultColWidth;
    return FColWidths[index];
}

void TCustomGrid::SetColWidths(int index, int v) {
    if (index < 0 || index >= FColCount) throw EInvalidGridOperation(SIndexOutOfRange);
    FColWidths[index] = v;
}

int TCustomGrid::RowHeights(int index) const {
    if (index < 0 || index >= FRowCount) return FDefaultRowHeight;
    return FRowHeights[index];
}

void TCustomGrid::SetRowHeights(int index, int v) {
    if (index < 0 || index >= FRowCount) throw EInvalidGridOperation(SIndexOutOfRange);
    FRowHeights[index] = v;
}

void TCustomGrid::SetOptions(TGridOptions v) {
    FOptions = v;
    if (v.Contains(goRowSelect)) FEditorMode = false;
}

TGridRect TCustomGrid::Selection() const {
    if (FOptions.Contains(goRowSelect))
        return {FFixedCols, std::min(FRow, FAnchorRow), FColCount - 1, std::max(FRow, FAnchorRow)};
    return {std::min(FCol, FAnchorCol), std::min(FRow, FAnchorRow), std::max(FCol, FAnchorCol),
            std::max(FRow, FAnchorRow)};
}

void TCustomGrid::SetSelection(TGridRect r) {
    CheckCell(r.Left, r.Top);
    CheckCell(r.Right, r.Bottom);
    FAnchorCol = r.Left;
    FAnchorRow = r.Top;
    FCol = r.Right;
    FRow = r.Bottom;
}

bool TCustomGrid::SelectCell(int ACol, int ARow) {
    bool can = true;
    OnSelectCell(this, ACol, ARow, can);
    return can;
}

bool TCustomGrid::FocusCell(int ACol, int ARow) {
    CheckCell(ACol, ARow);
    if (!SelectCell(ACol, ARow)) return false;
    FCol = FOptions.Contains(goRowSelect) ? FFixedCols : ACol;
    FRow = ARow;
    FAnchorCol = FOptions.Contains(goRowSelect) ? FColCount - 1 : FCol;
    FAnchorRow = FRow;
    if (!FOptions.Contains(goAlwaysShowEditor)) FEditorMode = false;
    Click();
    return true;
}

std::string TCustomGrid::GetEditText(int ACol, int ARow) {
    std::string value;
    OnGetEditText(this, ACol, ARow, value);
    return value;
}

void TCustomGrid::SetEditText(int ACol, int ARow, const std::string& Value) {
    OnSetEditText(this, ACol, ARow, Value);
}

void TCustomGrid::UserSelectCell(int ACol, int ARow) {
    if (ACol < FFixedCols || ARow < FFixedRows || ACol >= FColCount || ARow >= FRowCount)
        throw EUserActionError("'" + Name() + "' has no selectable cell (" + std::to_string(ACol) + ", " +
                               std::to_string(ARow) + ")");
    FocusCell(ACol, ARow);
}

void TCustomGrid::UserSetCell(int ACol, int ARow, const std::string& Text) {
    if (!FOptions.Contains(goEditing) || FOptions.Contains(goRowSelect))
        throw EUserActionError("'" + Name() + "' does not allow editing");
    UserSelectCell(ACol, ARow);
    if (FCol != ACol || FRow != ARow)
        throw EUserActionError("'" + Name() + "' refused to select cell (" + std::to_string(ACol) + ", " +
                               std::to_string(ARow) + ")");
    FEditorMode = true;
    GetEditText(ACol, ARow);
    SetEditText(ACol, ARow, Text);
}

void TCustomGrid::KeyDown(uint16_t& Key, TShiftState Shift) {
    TCustomControl::KeyDown(Key, Shift);
    int c = FCol, r = FRow;
    switch (Key) {
    case VK_UP:
        r = std::max(FFixedRows, r - 1);
        break;
    case VK_DOWN:
        r = std::min(FRowCount - 1, r + 1);
        break;
    case VK_LEFT:
        c = std::max(FFixedCols, c - 1);
        break;
    case VK_RIGHT:
        c = std::min(FColCount - 1, c + 1);
        break;
    case VK_HOME:
        c = FFixedCols;
        break;
    case VK_END:
        c = FColCount - 1;
        break;
    case VK_TAB:
        if (!FOptions.Contains(goTabs)) return;
        if (Shift.Contains(ssShift))
            c = std::max(FFixedCols, c - 1);
        else
            c = std::min(FColCount - 1, c + 1);
        break;
    default:
        return;
    }
    if (c != FCol || r != FRow) FocusCell(c, r);
}

void TCustomGrid::Describe(TControlDesc& d) const {
    TCustomControl::Describe(d);
    d.Col = FCol;
    d.Row = FRow;
    d.FixedCols = FFixedCols;
    d.FixedRows = FFixedRows;
}

JEX_IMPLEMENT_CLASS(TDrawGrid, TCustomGrid, "Grids") {}

// ---- TStringGrid --------------------------------------------------------------------------------------
namespace {
// One row or column of a string grid seen as strings.
class TGridLineStrings : public TStrings {
public:
    TGridLineStrings(TStringGrid* grid, int index, bool isRow) : FGrid(grid), FIndex(index), FIsRow(isRow) {}
    std::string Get(int i) const override {
        Check(i);
        return FIsRow ? FGrid->Cells(i, FIndex) : FGrid->Cells(FIndex, i);
    }
    int GetCount() const override { return FIsRow ? FGrid->ColCount() : FGrid->RowCount(); }
    rtl::TObject* GetObject(int i) const override {
        Check(i);
        return FIsRow ? FGrid->Objects(i, FIndex) : FGrid->Objects(FIndex, i);
    }
    void Put(int i, const std::string& s) override {
        Check(i);
        if (FIsRow)
            FGrid->SetCells(i, FIndex, s);
        else
            FGrid->SetCells(FIndex, i, s);
    }
    void PutObject(int i, rtl::TObject* o) override {
        Check(i);
        if (FIsRow)
            FGrid->SetObjects(i, FIndex, o);
        else
            FGrid->SetObjects(FIndex, i, o);
    }
    void Insert(int, const std::string&) override { throw EInvalidGridOperation(SIndexOutOfRange); }
    void Delete(int) override { throw EInvalidGridOperation(SIndexOutOfRange); }
    // A line of a grid has a fixed length: Add fills the next free cell (after a Clear, from the first),
    // and returns -1 when the line is full.
    int Add(const std::string& s) override { return AddObject(s, nullptr); }
    int AddObject(const std::string& s, rtl::TObject* obj) override {
        while (FNext < GetCount() && !Get(FNext).empty())
            ++FNext;
        if (FNext >= GetCount()) return -1;
        Put(FNext, s);
        PutObject(FNext, obj);
        return FNext++;
    }
    void Clear() override {
        for (int i = 0; i < GetCount(); ++i) {
            Put(i, "");
            PutObject(i, nullptr);
        }
        FNext = 0;
    }
    // Copies as many lines as fit, as the platform's grid lines do.
    void Assign(rtl::TPersistent* Source) override {
        if (auto* s = dynamic_cast<TStrings*>(Source)) {
            Clear();
            int n = std::min(s->Count(), GetCount());
            for (int i = 0; i < n; ++i) {
                Put(i, s->Get(i));
                PutObject(i, s->Objects(i));
            }
            return;
        }
        TStrings::Assign(Source);
    }

private:
    void Check(int i) const {
        if (i < 0 || i >= GetCount()) throw rtl::EListError(rtl::Format(rtl::SListIndexError, {i}));
    }
    TStringGrid* FGrid;
    int FIndex;
    bool FIsRow;
    int FNext = 0;
};
} // namespace

JEX_IMPLEMENT_CLASS(TStringGrid, TDrawGrid, "Grids") {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("BorderStyle", &TStringGrid::BorderStyle, &TStringGrid::SetBorderStyle,
               TypeInfo_TBorderStyle())
        .Default(bsSingle);
    pub::Color(d, clWindow);
    d.Property("ColCount", &TStringGrid::ColCount, &TStringGrid::SetColCount).Default(5);
    pub::Ctl3D(d);
    d.Property("DefaultColWidth", &TStringGrid::DefaultColWidth, &TStringGrid::SetDefaultColWidth)
        .Default(64);
    d.Property("DefaultRowHeight", &TStringGrid::DefaultRowHeight, &TStringGrid::SetDefaultRowHeight)
        .Default(24);
    d.Property("DefaultDrawing", &TStringGrid::DefaultDrawing, &TStringGrid::SetDefaultDrawing).Default(true);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    d.Property("FixedColor", &TStringGrid::FixedColor, &TStringGrid::SetFixedColor, TypeInfo_TColor())
        .Default(clBtnFace);
    d.Property("FixedCols", &TStringGrid::FixedCols, &TStringGrid::SetFixedCols).Default(1);
    d.Property("RowCount", &TStringGrid::RowCount, &TStringGrid::SetRowCount).Default(5);
    d.Property("FixedRows", &TStringGrid::FixedRows, &TStringGrid::SetFixedRows).Default(1);
    pub::Font(d);
    d.Property("GridLineWidth", &TStringGrid::GridLineWidth, &TStringGrid::SetGridLineWidth).Default(1);
    d.Property("Options", &TStringGrid::Options, &TStringGrid::SetOptions).Default(DefaultGridOptions.Bits());
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ScrollBars", &TStringGrid::ScrollBars, &TStringGrid::SetScrollBars).Default(ssBoth);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    d.Event("OnGetEditText", &TStringGrid::OnGetEditText);
    pub::OnKeys(d);
    pub::OnMouse(d);
    d.Event("OnSelectCell", &TStringGrid::OnSelectCell);
    d.Event("OnSetEditText", &TStringGrid::OnSetEditText);
    d.Event("OnTopLeftChanged", &TStringGrid::OnTopLeftChanged);
}

TStringGrid::TStringGrid(TComponent* AOwner) : TDrawGrid(AOwner) {
    FCells.assign(FRowCount, std::vector<TCell>(FColCount));
}

TStringGrid::~TStringGrid() = default;

void TStringGrid::SizeChanged(int, int) {
    FCells.resize(FRowCount);
    for (auto& row : FCells)
        row.resize(FColCount);
    for (auto it = FColViews.begin(); it != FColViews.end();)
        it = it->first >= FColCount ? FColViews.erase(it) : std::next(it);
    for (auto it = FRowViews.begin(); it != FRowViews.end();)
        it = it->first >= FRowCount ? FRowViews.erase(it) : std::next(it);
}

std::string TStringGrid::Cells(int ACol, int ARow) const {
    if (ACol < 0 || ARow < 0 || ACol >= FColCount || ARow >= FRowCount) return {};
    return FCells[ARow][ACol].Text;
}

void TStringGrid::SetCells(int ACol, int ARow, const std::string& Value) {
    CheckCell(ACol, ARow);
    FCells[ARow][ACol].Text = Value;
}

rtl::TObject* TStringGrid::Objects(int ACol, int ARow) const {
    if (ACol < 0 || ARow < 0 || ACol >= FColCount || ARow >= FRowCount) return nullptr;
    return FCells[ARow][ACol].Obj;
}

void TStringGrid::SetObjects(int ACol, int ARow, rtl::TObject* Value) {
    CheckCell(ACol, ARow);
    FCells[ARow][ACol].Obj = Value;
}

TStrings* TStringGrid::Cols(int index) {
    if (index < 0 || index >= FColCount) throw EInvalidGridOperation(SIndexOutOfRange);
    auto& v = FColViews[index];
    if (!v) v = std::make_unique<TGridLineStrings>(this, index, false);
    return v.get();
}

TStrings* TStringGrid::Rows(int index) {
    if (index < 0 || index >= FRowCount) throw EInvalidGridOperation(SIndexOutOfRange);
    auto& v = FRowViews[index];
    if (!v) v = std::make_unique<TGridLineStrings>(this, index, true);
    return v.get();
}

std::string TStringGrid::GetEditText(int ACol, int ARow) {
    std::string value = Cells(ACol, ARow);
    OnGetEditText(this, ACol, ARow, value);
    return value;
}

void TStringGrid::SetEditText(int ACol, int ARow, const std::string& Value) {
    if (Value != Cells(ACol, ARow)) SetCells(ACol, ARow, Value);
    TDrawGrid::SetEditText(ACol, ARow, Value);
}

void TStringGrid::Describe(TControlDesc& d) const {
    TDrawGrid::Describe(d);
    for (const auto& row : FCells) {
        std::vector<std::string> r;
        for (const auto& c : row)
            r.push_back(c.Text);
        d.Cells.push_back(std::move(r));
    }
}

} // namespace vcl
