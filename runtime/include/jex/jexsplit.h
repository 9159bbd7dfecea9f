// Split containers: controls divided into two, three or four panes by split bars that a person drags,
// with the panes as components of the form (plain or scrolling), and the stand-alone split bar that sizes
// two sibling windows.
#pragma once

#include <string>
#include <vector>

#include "jex/jexcommon.h"
#include "vcl/extctrls.h"
#include "vcl/forms.h"

namespace jex {

// Which edges of a pane get a bevel and how it is drawn (the platform's newer window bevels, which this
// platform's controls do not have; the panes carry them themselves).
JEX_ENUM(TBevelKind, bkNone, bkTile, bkSoft, bkFlat)
JEX_ENUM(TBevelEdge, beLeft, beTop, beRight, beBottom)
JEX_SET(TBevelEdges, TBevelEdge)

// Arrangements of panes. "LeftRight" puts panes side by side (a vertical bar at SplitHPos); "TopBottom"
// stacks them (a horizontal bar at SplitVPos). The three-pane layouts name the side of the big pane; its
// neighbours share the rest, split by the other bar.
JEX_ENUM(TjexBiLayout, jblLeftRight, jblTopBottom)
JEX_ENUM(TjexTriLayout, jtlLeft, jtlRight, jtlTop, jtlBottom)
JEX_ENUM(TjexMultiLayout, jmlLeftRight, jmlTopBottom, jmlTriLeft, jmlTriRight, jmlTriTop, jmlTriBottom,
         jmlQuad)
// How a bar being dragged shows until it is released (when the panes do not follow at once).
JEX_ENUM(TjexSplitMoveStyle, jsmPattern, jsmSolid, jsmLine)

class TjexCustomSplit;

// What both pane classes add to their platform base: bevels on chosen edges.
class TjexPaneBevels {
public:
    TBevelEdges BevelEdges() const { return FBevelEdges; }
    TBevelKind BevelKind() const { return FBevelKind; }

protected:
    // The width the bevels take on each edge.
    int EdgeWidth(TBevelEdge Edge) const;
    TBevelEdges FBevelEdges{beLeft, beTop, beRight, beBottom};
    TBevelKind FBevelKind = bkNone;
};

// A pane of a split control: a panel the split positions in one of its slots.
class TjexSplitPane : public vcl::TPanel, public TjexPaneBevels {
    JEX_CLASS(TjexSplitPane, vcl::TPanel)
    explicit TjexSplitPane(rtl::TComponent* AOwner);
    void SetBevelEdges(TBevelEdges Value);
    void SetBevelKind(TBevelKind Value);
    // The split this pane sits in (its parent), or nil.
    TjexCustomSplit* Split() const;
    // Its slot in the split, or -1.
    int PaneIndex() const;
    vcl::TRect AdjustClientRect() const override;
};

// A scrolling pane of a split control. When the split synchronises scrolling, moving one pane's
// horizontal (vertical) position moves the panes above and below it (beside it) too.
class TjexScrollingSplitPane : public vcl::TScrollBox, public TjexPaneBevels {
    JEX_CLASS(TjexScrollingSplitPane, vcl::TScrollBox)
    explicit TjexScrollingSplitPane(rtl::TComponent* AOwner);
    void SetBevelEdges(TBevelEdges Value);
    void SetBevelKind(TBevelKind Value);
    vcl::TBevelCut BevelInner() const { return FBevelInner; }
    void SetBevelInner(vcl::TBevelCut Value);
    vcl::TBevelCut BevelOuter() const { return FBevelOuter; }
    void SetBevelOuter(vcl::TBevelCut Value);
    int BevelWidth() const { return FBevelWidth; }
    void SetBevelWidth(int Value);
    TjexCustomSplit* Split() const;
    int PaneIndex() const;
    // Scrolls to the positions (as a person's scrolling does) and passes them on as the split's
    // synchronisation asks.
    void ScrollTo(int HorzPos, int VertPos);
    vcl::TRect AdjustClientRect() const override;

private:
    vcl::TBevelCut FBevelInner = vcl::bvNone, FBevelOuter = vcl::bvNone;
    int FBevelWidth = 1;
};

// Base of the split controls. Its panes are the split panes among its children, in child order; pane i
// sits in slot i of the layout, slots counted from the top, then from the left. The panes belong to the
// form (they are components of it, named by the designer), the split only places them.
//
// SplitHPos is the distance of the vertical bar from the left of the client area, SplitVPos that of the
// horizontal bar from the top; SplitHPercent / SplitVPercent say the same in percent of the client width /
// height. With SplitHScaled (SplitVScaled) a resize keeps the percentage, otherwise the position. A bar
// stays within its Min and Max (Max 0: no maximum) and inside the client area. SplitHLock / SplitVLock stop a
// person from dragging the bar.
class TjexCustomSplit : public vcl::TCustomPanel {
    JEX_CLASS(TjexCustomSplit, vcl::TCustomPanel)
    explicit TjexCustomSplit(rtl::TComponent* AOwner);

    // ---- Panes
    int GetPaneCount() const;
    vcl::TWinControl* GetPane(int Index) const; // nil when out of range
    // How many panes the layout has slots for.
    int RequiredPaneCount() const;
    // Creates the panes the layout still lacks, owned by the split's owner (the form; the split itself when
    // it has none) and without names, and places them.
    virtual void CreatePanes();
    // Turns the arrangement by a quarter: the layout, the bars and the panes' slots.
    void Rotate(bool Clockwise);
    // Swaps the slots of panes A and B; raises EListError for an index out of range.
    void Exchange(int A, int B);
    // Puts every pane into its slot (and hides panes beyond the layout's slots).
    void ResizePanes();
    // The flat look: no border or bevels on the split and its bars, soft lowered bevels on every pane edge.
    void FlatStyle();

    // ---- Geometry (client coordinates)
    TjexMultiLayout GeneralLayout() const { return FLayout; }
    vcl::TRect SlotRect(int Slot) const;
    bool UsesHBar() const;
    bool UsesVBar() const;
    vcl::TRect HBarRect() const; // the vertical bar at SplitHPos (empty when the layout has none)
    vcl::TRect VBarRect() const; // the horizontal bar at SplitVPos

    // ---- Properties
    int KeyIncrement() const { return FKeyIncrement; }
    void SetKeyIncrement(int Value) { FKeyIncrement = Value < 1 ? 1 : Value; }
    bool MoveImmediate() const { return FMoveImmediate; }
    void SetMoveImmediate(bool Value) { FMoveImmediate = Value; }
    vcl::TBevelCut SplitBevel() const { return FSplitBevel; }
    void SetSplitBevel(vcl::TBevelCut Value) { FSplitBevel = Value; }
    vcl::TColor SplitColor() const { return FSplitColor; }
    void SetSplitColor(vcl::TColor Value) { FSplitColor = Value; }
    TjexSplitMoveStyle SplitMoveStyle() const { return FMoveStyle; }
    void SetSplitMoveStyle(TjexSplitMoveStyle Value) { FMoveStyle = Value; }
    int Thickness() const { return FThickness; }
    void SetThickness(int Value);
    bool SplitHLock() const { return FH.Lock; }
    void SetSplitHLock(bool Value) { FH.Lock = Value; }
    bool SplitVLock() const { return FV.Lock; }
    void SetSplitVLock(bool Value) { FV.Lock = Value; }
    int SplitHMin() const { return FH.Min; }
    void SetSplitHMin(int Value);
    int SplitHMax() const { return FH.Max; }
    void SetSplitHMax(int Value);
    int SplitVMin() const { return FV.Min; }
    void SetSplitVMin(int Value);
    int SplitVMax() const { return FV.Max; }
    void SetSplitVMax(int Value);
    int SplitHPos() const { return FH.Pos; }
    void SetSplitHPos(int Value);
    int SplitVPos() const { return FV.Pos; }
    void SetSplitVPos(int Value);
    int SplitHPercent() const { return FH.Percent; }
    void SetSplitHPercent(int Value);
    int SplitVPercent() const { return FV.Percent; }
    void SetSplitVPercent(int Value);
    bool SplitHScaled() const { return FH.Scaled; }
    void SetSplitHScaled(bool Value) { FH.Scaled = Value; }
    bool SplitVScaled() const { return FV.Scaled; }
    void SetSplitVScaled(bool Value) { FV.Scaled = Value; }
    bool SyncHScroll() const { return FSyncHScroll; }
    void SetSyncHScroll(bool Value) { FSyncHScroll = Value; }
    bool SyncVScroll() const { return FSyncVScroll; }
    void SetSyncVScroll(bool Value) { FSyncVScroll = Value; }

    // ---- A person's dragging and keys. While a bar is dragged without MoveImmediate, DragPos is where it
    // would go; the panes follow on release.
    bool Dragging() const { return FDragBars != 0; }
    int DragHPos() const { return FDragH; }
    int DragVPos() const { return FDragV; }
    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    void MouseMove(vcl::TShiftState Shift, int X, int Y) override;
    void MouseUp(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    // Arrow keys move a bar by KeyIncrement unless it is locked: left and right the vertical bar, up and
    // down the horizontal one.
    void KeyDown(uint16_t& Key, vcl::TShiftState Shift) override;

    void AlignControls() override;
    void Loaded() override;
    // After a bar moved (by a person or a setter).
    rtl::TNotifyEvent OnMoved;

    // Scroll synchronisation, called by a scrolling pane that was scrolled.
    void PaneScrolled(TjexScrollingSplitPane* Pane);

protected:
    void SetGeneralLayout(TjexMultiLayout Value);
    // The class of the panes CreatePanes makes.
    virtual rtl::TClass PaneClass() const;
    void ControlAdded(vcl::TControl* AControl) override;
    void ControlRemoved(vcl::TControl* AControl) override;

private:
    struct TBar {
        int Pos = 0;
        int Percent = 50;
        int Min = 0;
        int Max = 0;
        bool Lock = false;
        bool Scaled = true;
    };
    int Extent(bool Horz) const;
    int Clamp(const TBar& Bar, int Pos, bool Horz) const;
    void BarChanged(TBar& Bar, bool Horz, int Pos, bool FromPercent);
    void Rescale();
    void ReorderPanes(const std::vector<vcl::TWinControl*>& Order);
    std::vector<vcl::TWinControl*> Panes() const;
    TjexMultiLayout FLayout = jmlLeftRight;
    TBar FH, FV;
    int FKeyIncrement = 10;
    bool FMoveImmediate = true;
    vcl::TBevelCut FSplitBevel = vcl::bvRaised;
    vcl::TColor FSplitColor = vcl::clBtnFace;
    TjexSplitMoveStyle FMoveStyle = jsmPattern;
    int FThickness = 4;
    bool FSyncHScroll = false, FSyncVScroll = false;
    int FDragBars = 0; // 1: vertical bar, 2: horizontal bar
    int FDragH = 0, FDragV = 0;
    int FGrabX = 0, FGrabY = 0;
    int FLastWidth = -1, FLastHeight = -1; // the extent the positions were last scaled to
    bool FPlacing = false;
    bool FSyncing = false;
};

// Two panes side by side or one above the other.
class TjexBiSplit : public TjexCustomSplit {
    JEX_CLASS(TjexBiSplit, TjexCustomSplit)
    explicit TjexBiSplit(rtl::TComponent* AOwner);
    TjexBiLayout Layout() const;
    void SetLayout(TjexBiLayout Value);
};

// Three panes: a big one along one side, its two neighbours sharing the rest.
class TjexTriSplit : public TjexCustomSplit {
    JEX_CLASS(TjexTriSplit, TjexCustomSplit)
    explicit TjexTriSplit(rtl::TComponent* AOwner);
    TjexTriLayout Layout() const;
    void SetLayout(TjexTriLayout Value);
};

// Four panes around a crossing of both bars.
class TjexQuadSplit : public TjexCustomSplit {
    JEX_CLASS(TjexQuadSplit, TjexCustomSplit)
    explicit TjexQuadSplit(rtl::TComponent* AOwner);
};

// Any of the arrangements, switchable through Layout.
class TjexMultiSplit : public TjexCustomSplit {
    JEX_CLASS(TjexMultiSplit, TjexCustomSplit)
    explicit TjexMultiSplit(rtl::TComponent* AOwner);
    TjexMultiLayout Layout() const { return GeneralLayout(); }
    void SetLayout(TjexMultiLayout Value) { SetGeneralLayout(Value); }
};

// The same controls with scrolling panes whose scroll positions can follow each other.
class TjexSBiSplit : public TjexBiSplit {
    JEX_CLASS(TjexSBiSplit, TjexBiSplit)
    using TjexBiSplit::TjexBiSplit;

protected:
    rtl::TClass PaneClass() const override;
};

class TjexSTriSplit : public TjexTriSplit {
    JEX_CLASS(TjexSTriSplit, TjexTriSplit)
    using TjexTriSplit::TjexTriSplit;

protected:
    rtl::TClass PaneClass() const override;
};

class TjexSQuadSplit : public TjexQuadSplit {
    JEX_CLASS(TjexSQuadSplit, TjexQuadSplit)
    using TjexQuadSplit::TjexQuadSplit;

protected:
    rtl::TClass PaneClass() const override;
};

class TjexSMultiSplit : public TjexMultiSplit {
    JEX_CLASS(TjexSMultiSplit, TjexMultiSplit)
    using TjexMultiSplit::TjexMultiSplit;

protected:
    rtl::TClass PaneClass() const override;
};

// A bar between two sibling windows: WindowA on its left (above it), WindowB on its right (below it).
// Moving the bar (Pos, Percent, or a person's drag) moves the near edges of both windows with it; the far
// edges stay. Pos is the bar's Left (Top for jblTopBottom) and Percent that position in percent of the
// parent's client extent, so both follow the bar's own bounds and are not stored separately.
class TjexSplitBar : public vcl::TCustomControl {
    JEX_CLASS(TjexSplitBar, vcl::TCustomControl)
    explicit TjexSplitBar(rtl::TComponent* AOwner);
    int KeyIncrement() const { return FKeyIncrement; }
    void SetKeyIncrement(int Value) { FKeyIncrement = Value < 1 ? 1 : Value; }
    // jblLeftRight: the windows are side by side and the bar stands upright.
    TjexBiLayout Layout() const { return FLayout; }
    void SetLayout(TjexBiLayout Value);
    int Min() const { return FMin; }
    void SetMin(int Value) { FMin = Value; }
    int Max() const { return FMax; }
    void SetMax(int Value) { FMax = Value; }
    bool MoveImmediate() const { return FMoveImmediate; }
    void SetMoveImmediate(bool Value) { FMoveImmediate = Value; }
    int Pos() const;
    void SetPos(int Value);
    int Percent() const;
    void SetPercent(int Value);
    TjexSplitMoveStyle SplitMoveStyle() const { return FMoveStyle; }
    void SetSplitMoveStyle(TjexSplitMoveStyle Value) { FMoveStyle = Value; }
    int Thickness() const { return FThickness; }
    void SetThickness(int Value);
    vcl::TWinControl* WindowA() const { return FWindowA; }
    void SetWindowA(vcl::TWinControl* Value);
    vcl::TWinControl* WindowB() const { return FWindowB; }
    void SetWindowB(vcl::TWinControl* Value);

    bool Dragging() const { return FDragging; }
    int DragPos() const { return FDragPos; }
    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    void MouseMove(vcl::TShiftState Shift, int X, int Y) override;
    void MouseUp(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    void KeyDown(uint16_t& Key, vcl::TShiftState Shift) override;
    rtl::TNotifyEvent OnMoved;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    int Extent() const;
    int ClampPos(int Value) const;
    TjexBiLayout FLayout = jblLeftRight;
    int FKeyIncrement = 10;
    int FMin = 0, FMax = 0;
    bool FMoveImmediate = true;
    TjexSplitMoveStyle FMoveStyle = jsmPattern;
    int FThickness = 4;
    vcl::TWinControl* FWindowA = nullptr;
    vcl::TWinControl* FWindowB = nullptr;
    bool FDragging = false;
    int FDragPos = 0;
    int FGrab = 0;
};

} // namespace jex
