// Grids: the current cell and selection, column widths and row heights, fixed rows and columns, and the
// string grid's cells with per-row and per-column string views.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "vcl/controls.h"

namespace vcl {

JEX_ENUM(TGridOption, goFixedVertLine, goFixedHorzLine, goVertLine, goHorzLine, goRangeSelect,
         goDrawFocusSelected, goRowSizing, goColSizing, goRowMoving, goColMoving, goEditing, goTabs,
         goRowSelect, goAlwaysShowEditor, goThumbTracking)
JEX_SET(TGridOptions, TGridOption)
inline constexpr TGridOptions DefaultGridOptions{goFixedVertLine, goFixedHorzLine, goVertLine, goHorzLine,
                                                 goRangeSelect};

struct TGridRect {
    int Left = 0, Top = 0, Right = 0, Bottom = 0;
    bool operator==(const TGridRect&) const = default;
};

JEX_EVENT_TYPE(TSelectCellEvent, void(rtl::TObject* Sender, int ACol, int ARow, bool& CanSelect))
JEX_EVENT_TYPE(TGetEditEvent, void(rtl::TObject* Sender, int ACol, int ARow, std::string& Value))
JEX_EVENT_TYPE(TSetEditEvent, void(rtl::TObject* Sender, int ACol, int ARow, const std::string& Value))

class EInvalidGridOperation : public rtl::Exception {
public:
    using Exception::Exception;
    const char* ClassName() const noexcept override { return "EInvalidGridOperation"; }
};

class TCustomGrid : public TCustomControl {
    JEX_CLASS(TCustomGrid, TCustomControl)
    explicit TCustomGrid(TComponent* AOwner);

    int ColCount() const { return FColCount; }
    // At least 1; fixed columns shrink to leave one scrollable column; the current cell stays inside.
    void SetColCount(int v);
    int RowCount() const { return FRowCount; }
    void SetRowCount(int v);
    int FixedCols() const { return FFixedCols; }
    // Raises EInvalidGridOperation "Fixed column count must be less than column count".
    void SetFixedCols(int v);
    int FixedRows() const { return FFixedRows; }
    void SetFixedRows(int v);
    int DefaultColWidth() const { return FDefaultColWidth; }
    void SetDefaultColWidth(int v); // resets every column width
    int DefaultRowHeight() const { return FDefaultRowHeight; }
    void SetDefaultRowHeight(int v);
    int ColWidths(int index) const;
    void SetColWidths(int index, int v);
    int RowHeights(int index) const;
    void SetRowHeights(int index, int v);
    TGridOptions Options() const { return FOptions; }
    void SetOptions(TGridOptions v);
    TColor FixedColor() const { return FFixedColor; }
    void SetFixedColor(TColor v) { FFixedColor = v; }
    int GridLineWidth() const { return FGridLineWidth; }
    void SetGridLineWidth(int v) { FGridLineWidth = v; }
    TScrollStyle ScrollBars() const { return FScrollBars; }
    void SetScrollBars(TScrollStyle v) { FScrollBars = v; }
    TBorderStyle BorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TBorderStyle v) { FBorderStyle = v; }
    bool DefaultDrawing() const { return FDefaultDrawing; }
    void SetDefaultDrawing(bool v) { FDefaultDrawing = v; }
    int TopRow() const { return FTopRow; }
    void SetTopRow(int v) { FTopRow = v; }
    int LeftCol() const { return FLeftCol; }
    void SetLeftCol(int v) { FLeftCol = v; }

    // The current cell. Moving it asks OnSelectCell, and when allowed moves and raises OnClick, as the
    // platform's grid does for assignments too; outside the grid raises "Grid index out of range".
    int Col() const { return FCol; }
    void SetCol(int v) { FocusCell(v, FRow); }
    int Row() const { return FRow; }
    void SetRow(int v) { FocusCell(FCol, v); }
    TGridRect Selection() const;
    void SetSelection(TGridRect r);
    // False when OnSelectCell refused.
    bool FocusCell(int ACol, int ARow);
    bool EditorMode() const { return FEditorMode; }
    void SetEditorMode(bool v) { FEditorMode = v; }

    virtual std::string GetEditText(int ACol, int ARow);
    virtual void SetEditText(int ACol, int ARow, const std::string& Value);

    void UserSelectCell(int ACol, int ARow) override;
    // Edits a cell as a person typing into the grid's editor (goEditing on, not a fixed cell).
    void UserSetCell(int ACol, int ARow, const std::string& Text) override;
    void KeyDown(uint16_t& Key, TShiftState Shift) override;
    bool WantsKey(uint16_t Key) const override { return Key == VK_TAB && FOptions.Contains(goTabs); }
    void Describe(TControlDesc& d) const override;

    TSelectCellEvent OnSelectCell;
    TGetEditEvent OnGetEditText;
    TSetEditEvent OnSetEditText;
    TNotifyEvent OnTopLeftChanged;

protected:
    virtual bool SelectCell(int ACol, int ARow);
    virtual void SizeChanged(int OldColCount, int OldRowCount) {}
    void CheckCell(int ACol, int ARow) const;

    int FColCount = 5, FRowCount = 5, FFixedCols = 1, FFixedRows = 1;
    int FDefaultColWidth = 64, FDefaultRowHeight = 24;
    std::vector<int> FColWidths, FRowHeights;
    TGridOptions FOptions = DefaultGridOptions;
    TColor FFixedColor = clBtnFace;
    int FGridLineWidth = 1;
    TScrollStyle FScrollBars = ssBoth;
    TBorderStyle FBorderStyle = bsSingle;
    bool FDefaultDrawing = true;
    int FTopRow = 1, FLeftCol = 1;
    int FCol = 1, FRow = 1;
    int FAnchorCol = 1, FAnchorRow = 1;
    bool FEditorMode = false;

private:
    void ChangeSize(int cols, int rows);
};

class TDrawGrid : public TCustomGrid {
    JEX_CLASS(TDrawGrid, TCustomGrid)
    using TCustomGrid::TCustomGrid;
};

class TStringGrid : public TDrawGrid {
    JEX_CLASS(TStringGrid, TDrawGrid)
    explicit TStringGrid(TComponent* AOwner);
    ~TStringGrid() override;
    // Outside the grid a cell reads as empty; writing there raises "Grid index out of range".
    std::string Cells(int ACol, int ARow) const;
    void SetCells(int ACol, int ARow, const std::string& Value);
    rtl::TObject* Objects(int ACol, int ARow) const;
    void SetObjects(int ACol, int ARow, rtl::TObject* Value);
    // A column's or row's cells as strings (writing a line writes the cell; lines cannot be added).
    TStrings* Cols(int index);
    TStrings* Rows(int index);

    std::string GetEditText(int ACol, int ARow) override;
    void SetEditText(int ACol, int ARow, const std::string& Value) override;
    void Describe(TControlDesc& d) const override;

protected:
    void SizeChanged(int OldColCount, int OldRowCount) override;

private:
    struct TCell {
        std::string Text;
        rtl::TObject* Obj = nullptr;
    };
    std::vector<std::vector<TCell>> FCells; // [row][col]
    std::map<int, std::unique_ptr<TStrings>> FColViews, FRowViews;
};

} // namespace vcl
