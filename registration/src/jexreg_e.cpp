// Jexreg_e: the "Jex Containers" palette page, and the split panes, page frames, button bars and panels' own
// properties in the library's "Jex" category. Its start makes the page classes streamable by name; its stop
// withdraws them.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexeffects.h"
#include "jex/jexpages.h"
#include "jex/jexpanels.h"
#include "jex/jexsplit.h"
#include "vcl/controls.h"

using namespace dcljexc;
using namespace jex;

namespace dcljexc::Jexreg_e {
namespace {
ide::TUnitGuard Guard;

std::vector<rtl::TClass> StreamedClasses() {
    return {TjexPage::StaticClass(), TjexButtonPage::StaticClass()};
}
} // namespace

void Start() {
    if (!Guard.Start()) return;
    rtl::ActivateClassGroup(vcl::TControl::StaticClass());
    rtl::RegisterClasses(StreamedClasses());
}

void Stop() {
    if (!Guard.Stop()) return;
    rtl::UnRegisterClasses(StreamedClasses());
}
} // namespace dcljexc::Jexreg_e

JEX_PACKAGE_REGISTER(jexreg_e) {
    ide::RegisterComponents("Jex Containers",
                            {TjexFormTabControl::StaticClass(),  TjexAnimationFrame::StaticClass(),
                             TjexFormPanel::StaticClass(),       TjexButtonBar::StaticClass(),
                             TjexButtonList::StaticClass(),      TjexPictureGroup::StaticClass(),
                             TjexMultiSplit::StaticClass(),      TjexQuadSplit::StaticClass(),
                             TjexTriSplit::StaticClass(),        TjexBiSplit::StaticClass(),
                             TjexSplitBar::StaticClass(),        TjexSMultiSplit::StaticClass(),
                             TjexSQuadSplit::StaticClass(),      TjexSTriSplit::StaticClass(),
                             TjexSBiSplit::StaticClass(),        TjexEdgePanel::StaticClass(),
                             TjexDragPanel::StaticClass(),       TjexSpeedPanel::StaticClass(),
                             TjexHintBar::StaticClass(),         TjexFormTabbedNoteBook::StaticClass(),
                             TjexFormNoteBook::StaticClass(),    TjexLRNoteBook::StaticClass(),
                             TjexLRTabbedNoteBook::StaticClass()});
    ide::RegisterNoIcon({TjexSplitPane::StaticClass(), TjexScrollingSplitPane::StaticClass()});

    // Property editor registrations of this unit come with the value-list editors and the page frame editors.

    // Component editor registrations of this unit come with the split pane editor and the page frame editors.

    jexRegisterPropertiesInCategory(TjexSplitBar::StaticClass(),
                                    {"KeyIncrement", "Layout", "Max", "Min", "MoveImmediate", "Percent",
                                     "Pos", "SplitMoveStyle", "Thickness", "WindowA", "WindowB"});
    jexRegisterPropertiesInCategory(TjexBiSplit::StaticClass(),
                                    {"KeyIncrement", "Layout", "MoveImmediate", "SplitBevel", "SplitColor",
                                     "SplitHLock", "SplitHMax", "SplitHMin", "SplitHPercent", "SplitHPos",
                                     "SplitHScaled", "SplitMoveStyle", "SplitVLock", "SplitVMax", "SplitVMin",
                                     "SplitVPercent", "SplitVPos", "SplitVScaled", "Thickness"});
    jexRegisterPropertiesInCategory(TjexTriSplit::StaticClass(),
                                    {"KeyIncrement", "Layout", "MoveImmediate", "SplitBevel", "SplitColor",
                                     "SplitHLock", "SplitHMax", "SplitHMin", "SplitHPercent", "SplitHPos",
                                     "SplitHScaled", "SplitMoveStyle", "SplitVLock", "SplitVMax", "SplitVMin",
                                     "SplitVPercent", "SplitVPos", "SplitVScaled", "Thickness"});
    jexRegisterPropertiesInCategory(TjexQuadSplit::StaticClass(),
                                    {"KeyIncrement", "MoveImmediate", "SplitBevel", "SplitColor",
                                     "SplitHLock", "SplitHMax", "SplitHMin", "SplitHPercent", "SplitHPos",
                                     "SplitHScaled", "SplitMoveStyle", "SplitVLock", "SplitVMax", "SplitVMin",
                                     "SplitVPercent", "SplitVPos", "SplitVScaled", "Thickness"});
    jexRegisterPropertiesInCategory(TjexMultiSplit::StaticClass(),
                                    {"KeyIncrement", "Layout", "MoveImmediate", "SplitBevel", "SplitColor",
                                     "SplitHLock", "SplitHMax", "SplitHMin", "SplitHPercent", "SplitHPos",
                                     "SplitHScaled", "SplitMoveStyle", "SplitVLock", "SplitVMax", "SplitVMin",
                                     "SplitVPercent", "SplitVPos", "SplitVScaled", "Thickness"});
    jexRegisterPropertiesInCategory(
        TjexSBiSplit::StaticClass(),
        {"KeyIncrement", "Layout",      "MoveImmediate", "SplitBevel",    "SplitColor",   "SplitHLock",
         "SplitHMax",    "SplitHMin",   "SplitHPercent", "SplitHPos",     "SplitHScaled", "SplitMoveStyle",
         "SplitVLock",   "SplitVMax",   "SplitVMin",     "SplitVPercent", "SplitVPos",    "SplitVScaled",
         "SyncHScroll",  "SyncVScroll", "Thickness"});
    jexRegisterPropertiesInCategory(
        TjexSTriSplit::StaticClass(),
        {"KeyIncrement", "Layout",      "MoveImmediate", "SplitBevel",    "SplitColor",   "SplitHLock",
         "SplitHMax",    "SplitHMin",   "SplitHPercent", "SplitHPos",     "SplitHScaled", "SplitMoveStyle",
         "SplitVLock",   "SplitVMax",   "SplitVMin",     "SplitVPercent", "SplitVPos",    "SplitVScaled",
         "SyncHScroll",  "SyncVScroll", "Thickness"});
    jexRegisterPropertiesInCategory(TjexSQuadSplit::StaticClass(),
                                    {"KeyIncrement", "MoveImmediate", "SplitBevel",     "SplitColor",
                                     "SplitHLock",   "SplitHMax",     "SplitHMin",      "SplitHPercent",
                                     "SplitHPos",    "SplitHScaled",  "SplitMoveStyle", "SplitVLock",
                                     "SplitVMax",    "SplitVMin",     "SplitVPercent",  "SplitVPos",
                                     "SplitVScaled", "SyncHScroll",   "SyncVScroll",    "Thickness"});
    jexRegisterPropertiesInCategory(
        TjexSMultiSplit::StaticClass(),
        {"KeyIncrement", "Layout",      "MoveImmediate", "SplitBevel",    "SplitColor",   "SplitHLock",
         "SplitHMax",    "SplitHMin",   "SplitHPercent", "SplitHPos",     "SplitHScaled", "SplitMoveStyle",
         "SplitVLock",   "SplitVMax",   "SplitVMin",     "SplitVPercent", "SplitVPos",    "SplitVScaled",
         "SyncHScroll",  "SyncVScroll", "Thickness"});
    jexRegisterPropertiesInCategory(TjexHintBar::StaticClass(),
                                    {"AutoHint", "HintPrefix", "HintSuffix", "Panels", "ShowActiveControl",
                                     "ShowEmpty", "SimplePanel", "SimpleText", "SizeGrip", "UseSystemFont"});
    jexRegisterPropertiesInCategory(TjexDragPanel::StaticClass(),
                                    {"Locked", "MoveMaxLeft", "MoveMaxTop", "MoveMinLeft", "MoveMinTop",
                                     "MSLocked", "Options", "SizeMaxHeight", "SizeMaxWidth", "SizeMinHeight",
                                     "SizeMinWidth"});
    jexRegisterPropertiesInCategory(TjexSpeedPanel::StaticClass(),
                                    {"CtrlCols", "CtrlHeight", "CtrlRows", "CtrlWidth", "InsertCols",
                                     "MarginCol", "MarginH", "MarginRow", "MarginV", "SizeVisibleOnly",
                                     "Sorted"});
    jexRegisterPropertiesInCategory(TjexFormPanel::StaticClass(),
                                    {"AutoCreate", "AutoDestroy", "FormName", "HandleException"});
    jexRegisterPropertiesInCategory(TjexAnimationFrame::StaticClass(),
                                    {"Animation", "AnimationSteps", "AnimationTime", "CreatePagesOnLoad"});
    jexRegisterPropertiesInCategory(TjexButtonBar::StaticClass(),
                                    {"ActiveFontColor", "AnimationSteps", "AnimationTime", "ButtonAlign",
                                     "ButtonCursor", "ButtonHeight", "ButtonHighlight", "ButtonStyle",
                                     "Options"});
    jexRegisterPropertiesInCategory(TjexButtonList::StaticClass(),
                                    {"Background", "DragLineColor", "FrameBottomColor", "FrameTopColor",
                                     "HighlightActive", "HighlightSelected", "Items", "LargeImages",
                                     "Options", "SelectedIndex", "SmallImages", "SoundList", "ViewStyle"});
    jexRegisterPropertiesInCategory(TjexPictureGroup::StaticClass(),
                                    {"AlignPicture", "LineRaised", "MarginB", "MarginL", "MarginR", "MarginT",
                                     "Offset", "Picture", "Transparent"});
    jexRegisterPropertiesInCategory(
        TjexFormNoteBook::StaticClass(),
        {"ActiveForm", "ActivePage", "FormCreateDestroy", "Forms", "HandleException", "PageIndex", "Pages"});
    jexRegisterPropertiesInCategory(TjexFormTabbedNoteBook::StaticClass(),
                                    {"ActiveForm", "FormCreateDestroy", "Forms", "HandleException"});
}
