// Jexdsncn: the component catalogue. Class names and descriptions are resource strings with fixed
// identifiers, so that a translated string table changes the hints without a rebuild; the tables are read
// from them when the unit starts.
#include "dcljexc/jexdsncn.h"

#include <algorithm>
#include <cstring>

#include "dcljexc/units.h"
#include "rtl/lists.h"
#include "rtl/sysutils.h"

namespace dcljexc {

// Class names: the first three stand apart at the top of the range; 65060 falls inside the range the
// descriptions use, which is why two descriptions share an identifier (see below).
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDock, 65293, "TjexDock");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexToolbar, 65294, "TjexToolbar");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexToolWindow, 65295, "TjexToolWindow");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexToolbarButton, 65264, "TjexToolbarButton");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexToolbarSep, 65265, "TjexToolbarSep");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexToolbarEdit, 65266, "TjexToolbarEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexToolbarMaskEdit, 65267, "TjexToolbarMaskEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexToolbarDBEdit, 65268, "TjexToolbarDBEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMainMenu, 65269, "TjexMainMenu");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMenuToolbar, 65270, "TjexMenuToolbar");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexPopupMenu, 65271, "TjexPopupMenu");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSystemMenu, 65272, "TjexSystemMenu");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMenuImages, 65273, "TjexMenuImages");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexNavToolbar, 65274, "TjexNavToolbar");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexNavPanel, 65275, "TjexNavPanel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexNavFormLink, 65276, "TjexNavFormLink");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpFirst, 65277, "TjexnpFirst");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpJumpBack, 65278, "TjexnpJumpBack");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpPrev, 65279, "TjexnpPrev");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpNext, 65263, "TjexnpNext");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpJumpFwd, 65262, "TjexnpJumpFwd");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpLast, 65261, "TjexnpLast");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpInsert, 65260, "TjexnpInsert");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpAppend, 65259, "TjexnpAppend");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpDuplicateRec, 65258, "TjexnpDuplicateRec");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpEdit, 65257, "TjexnpEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpDataSourceEdit, 65256, "TjexnpDataSourceEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpBlobEdit, 65255, "TjexnpBlobEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpFindReplace, 65254, "TjexnpFindReplace");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpDelete, 65253, "TjexnpDelete");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpCancel, 65252, "TjexnpCancel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpPost, 65251, "TjexnpPost");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpRefresh, 65250, "TjexnpRefresh");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpEmptyTable, 65249, "TjexnpEmptyTable");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpBookmark, 65248, "TjexnpBookmark");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpBookmarkMenu, 65247, "TjexnpBookmarkMenu");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpFindKey, 65245, "TjexnpFindKey");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpIndexCombo, 65244, "TjexnpIndexCombo");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpRange, 65243, "TjexnpRange");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpRangeEdit, 65242, "TjexnpRangeEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpFilterActive, 65241, "TjexnpFilterActive");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpFilterExpression, 65240, "TjexnpFilterExpression");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpSQLStartTrans, 65239, "TjexnpSQLStartTrans");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpSQLCommit, 65238, "TjexnpSQLCommit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpSQLRollback, 65237, "TjexnpSQLRollback");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpQueryParams, 65236, "TjexnpQueryParams");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpDBInfo, 65235, "TjexnpDBInfo");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpState, 65234, "TjexnpState");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexnpRecordCount, 65233, "TjexnpRecordCount");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBTreeView, 65246, "TjexDBTreeView");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBRichEdit, 65232, "TjexDBRichEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBSuperNav, 65231, "TjexDBSuperNav");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBEditWin, 65230, "TjexDBEditWin");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexHDBGrid, 65229, "TjexHDBGrid");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBIndexCombo, 65228, "TjexDBIndexCombo");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBFilter, 65227, "TjexDBFilter");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBRangeEdit, 65226, "TjexDBRangeEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBAutoEdit, 65225, "TjexDBAutoEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBFixedGrid, 65224, "TjexDBFixedGrid");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBEditLabel, 65223, "TjexDBEditLabel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBRecordCount, 65222, "TjexDBRecordCount");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBState, 65221, "TjexDBState");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBCurrencyLabel, 65220, "TjexDBCurrencyLabel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLRDBComboBox, 65219, "TjexLRDBComboBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexAppException, 65218, "TjexAppException");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDSAppException, 65217, "TjexDSAppException");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBHintManager, 65216, "TjexDBHintManager");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBHelpManager, 65215, "TjexDBHelpManager");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexAnimationFrame, 65214, "TjexAnimationFrame");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFormPanel, 65213, "TjexFormPanel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexButtonBar, 65212, "TjexButtonBar");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexButtonList, 65211, "TjexButtonList");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexPictureGroup, 65210, "TjexPictureGroup");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMultiSplit, 65209, "TjexMultiSplit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexQuadSplit, 65207, "TjexQuadSplit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexTriSplit, 65206, "TjexTriSplit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexBiSplit, 65205, "TjexBiSplit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSplitBar, 65203, "TjexSplitBar");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSMultiSplit, 65202, "TjexSMultiSplit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSQuadSplit, 65201, "TjexSQuadSplit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSTriSplit, 65200, "TjexSTriSplit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSBiSplit, 65198, "TjexSBiSplit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexEdgePanel, 65197, "TjexEdgePanel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDragPanel, 65196, "TjexDragPanel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSpeedPanel, 65195, "TjexSpeedPanel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexHintBar, 65193, "TjexHintBar");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexShapeForm, 65192, "TjexShapeForm");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexRichEdit, 65191, "TjexRichEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFormTabbedNoteBook, 65190, "TjexFormTabbedNoteBook");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFormNoteBook, 65189, "TjexFormNoteBook");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexCheckListBox, 65187, "TjexCheckListBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFontComboBox, 65186, "TjexFontComboBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexColorComboBox, 65185, "TjexColorComboBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLine, 65184, "TjexLine");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexButtonEdit, 65182, "TjexButtonEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexCheckBox, 65181, "TjexCheckBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexRadioButton, 65180, "TjexRadioButton");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexPopupSelect, 65179, "TjexPopupSelect");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexBackground, 65177, "TjexBackground");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMDIBackground, 65176, "TjexMDIBackground");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexTiledImage, 65175, "TjexTiledImage");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMDITiledImage, 65174, "TjexMDITiledImage");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexKeyState, 65172, "TjexKeyState");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexActiveHighlight, 65171, "TjexActiveHighlight");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexShape, 65170, "TjexShape");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFrame, 65169, "TjexFrame");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLRNoteBook, 65168, "TjexLRNoteBook");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLRTabbedNoteBook, 65166, "TjexLRTabbedNoteBook");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexAutoTabSet, 65165, "TjexAutoTabSet");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLRComboBox, 65164, "TjexLRComboBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLRListBox, 65163, "TjexLRListBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexROMemo, 65161, "TjexROMemo");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexTabListBox, 65160, "TjexTabListBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSyncListBox, 65159, "TjexSyncListBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexTransImage, 65158, "TjexTransImage");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSpinEdit, 65156, "TjexSpinEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexBusy, 65155, "TjexBusy");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSplash, 65154, "TjexSplash");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexWelcomeTips, 65153, "TjexWelcomeTips");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexPageSetupDialog, 65151, "TjexPageSetupDialog");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFileOpenEdit, 65150, "TjexFileOpenEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFileSaveEdit, 65149, "TjexFileSaveEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDirectoryEdit, 65148, "TjexDirectoryEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDirectoryDialog, 65146, "TjexDirectoryDialog");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexEffectsImage, 65145, "TjexEffectsImage");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexRichEffectsImage, 65144, "TjexRichEffectsImage");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBEffectsImage, 65142, "TjexDBEffectsImage");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexWave, 65141, "TjexWave");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexWaveFile, 65140, "TjexWaveFile");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexWaveRes, 65139, "TjexWaveRes");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexWaveList, 65137, "TjexWaveList");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexWaveFileList, 65136, "TjexWaveFileList");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexWaveResList, 65135, "TjexWaveResList");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMCIFilePlayer, 65134, "TjexMCIFilePlayer");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMCIStreamPlayer, 65133, "TjexMCIStreamPlayer");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexShapeButton, 65132, "TjexShapeButton");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexPicBtn, 65131, "TjexPicBtn");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexPicSpeedBtn, 65130, "TjexPicSpeedBtn");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexRepSpeedBtn, 65129, "TjexRepSpeedBtn");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexToggleBtn, 65128, "TjexToggleBtn");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMouseRegion, 65127, "TjexMouseRegion");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMenuButton, 65126, "TjexMenuButton");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSizeButton, 65125, "TjexSizeButton");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexWaveBtn, 65124, "TjexWaveBtn");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexWaveFileBtn, 65123, "TjexWaveFileBtn");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFormButton, 65122, "TjexFormButton");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFormPicBtn, 65121, "TjexFormPicBtn");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFormPicSpeedBtn, 65120, "TjexFormPicSpeedBtn");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexPushButton, 65119, "TjexPushButton");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexButton, 65118, "TjexButton");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexRotLabel, 65117, "TjexRotLabel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexVersionLabel, 65116, "TjexVersionLabel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexURLLabel, 65115, "TjexURLLabel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMultilineLabel, 65114, "TjexMultilineLabel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexCurrencyLabel, 65113, "TjexCurrencyLabel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMouseLabel, 65112, "TjexMouseLabel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexClockLabel, 65111, "TjexClockLabel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSuperLabel, 65110, "TjexSuperLabel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexAutoLabel, 65109, "TjexAutoLabel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexEditLabel, 65108, "TjexEditLabel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexTitleGradient, 65107, "TjexTitleGradient");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSingleInstance, 65106, "TjexSingleInstance");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLauncher, 65105, "TjexLauncher");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFormSaver, 65104, "TjexFormSaver");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFormSizer, 65103, "TjexFormSizer");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexStopWatch, 65102, "TjexStopWatch");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMDIScroll, 65101, "TjexMDIScroll");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFormMessageHook, 65100, "TjexFormMessageHook");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLEdit, 65099, "TjexLEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLMaskEdit, 65098, "TjexLMaskEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLSpinEdit, 65097, "TjexLSpinEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLMemo, 65096, "TjexLMemo");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLListBox, 65095, "TjexLListBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLComboBox, 65094, "TjexLComboBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLImage, 65093, "TjexLImage");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLPanel, 65092, "TjexLPanel");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLScrollBox, 65091, "TjexLScrollBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLTreeView, 65090, "TjexLTreeView");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLDBText, 65089, "TjexLDBText");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLDBEdit, 65088, "TjexLDBEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLDBAutoEdit, 65085, "TjexLDBAutoEdit");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLDBMemo, 65084, "TjexLDBMemo");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLDBImage, 65083, "TjexLDBImage");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLDBListBox, 65082, "TjexLDBListBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLDBComboBox, 65081, "TjexLDBComboBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLDBCheckBox, 65080, "TjexLDBCheckBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLDBRadioGroup, 65079, "TjexLDBRadioGroup");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLDBLookupList, 65078, "TjexLDBLookupList");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLDBLookupCombo, 65077, "TjexLDBLookupCombo");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLDBLookupListBox, 65076, "TjexLDBLookupListBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLDBLookupComboBox, 65074, "TjexLDBLookupComboBox");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBAppException, 65072, "TjexDBAppException");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBQryAppException, 65071, "TjexDBQryAppException");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLocalTable, 65070, "TjexLocalTable");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLocalQuery, 65069, "TjexLocalQuery");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLocalDatabase, 65068, "TjexLocalDatabase");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBIdleTime, 65073, "TjexDBIdleTime");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBQueryGrid, 65067, "TjexDBQueryGrid");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBTableGrid, 65075, "TjexDBTableGrid");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexClientAdapterReg, 65066, "TjexClientAdapterReg");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexBDEAdapterReg, 65065, "TjexBDEAdapterReg");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexADOAdapterReg, 65064, "TjexADOAdapterReg");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexIBAdapterReg, 65138, "TjexIBAdapterReg");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSQLAdapterReg, 65143, "TjexSQLAdapterReg");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMDITabs, 65147, "TjexMDITabs");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexTrayIcon, 65152, "TjexTrayIcon");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBDateTimePicker, 65157, "TjexDBDateTimePicker");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBMonthCalendar, 65162, "TjexDBMonthCalendar");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFormTabControl, 65167, "TjexFormTabControl");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMessageDlg, 65086, "TjexMessageDlg");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexProgressDlg, 65087, "TjexProgressDlg");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexIdleTimeout, 65173, "TjexIdleTimeout");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSpriteSurface, 65178, "TjexSpriteSurface");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSpriteList, 65183, "TjexSpriteList");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexBitmapSpriteFactory, 65188, "TjexBitmapSpriteFactory");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMailToLabel, 65060, "TjexMailToLabel");

// Descriptions.
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDockDesc, 65061,
                      "is a container or drop area for toolbars, menu bars and toolwindows.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexToolbarDesc, 65059,
    "is a dockable toolbar that holds buttons, edits and other controls. It docks to a TjexDock or floats "
    "as a tool window, with a drag handle, close button and full-size option, and remembers its dock row "
    "and position.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexToolWindowDesc, 65058,
    "is a dockable tool window with a free client area for any controls. It docks to a TjexDock or floats "
    "with a close button, can be resizable, and keeps its client area size within minimum width and "
    "height.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexToolbarButtonDesc, 65057,
    "is a flat toolbar button with a glyph and caption, drop-down arrow or combo menu, grouping with "
    "AllowAllUp, and auto-repeat while it is held down. Use it on a TjexToolbar.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexToolbarSepDesc, 65055,
    "is a separator for a TjexToolbar that leaves a gap or draws a divider line between groups of toolbar "
    "buttons, with separate horizontal and vertical sizes.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexToolbarEditDesc, 65054,
    "is an edit box sized to sit on a TjexToolbar, following the toolbar when it is docked, floated or "
    "turned vertical.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexToolbarMaskEditDesc, 65052,
    "is a masked edit box sized to sit on a TjexToolbar, for formatted input such as dates and phone "
    "numbers on a toolbar.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexToolbarDBEditDesc, 65051,
    "is a data aware edit box for a TjexToolbar that shows a field of the current record and writes what "
    "you type back to the field.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexMainMenuDesc, 65049,
    "is a main menu whose items can show images and send their hints to a status bar. Show it in a "
    "TjexMenuToolbar to make the menu bar dockable.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexMenuToolbarDesc, 65048,
    "is a dockable toolbar that shows the top-level items of a main menu as buttons, so the menu bar can "
    "be docked or floated. Menu hints go to a status bar panel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexPopupMenuDesc, 65046,
    "is a popup menu whose items can show images, with the system menu font and hints shown in a status "
    "bar panel while an item is selected.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexSystemMenuDesc, 65044,
    "is a component to customize the system menu of a form: choose which standard items are visible, add "
    "your own items, and show their hints in a status bar.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexMenuImagesDesc, 65043,
    "is a non-visual component that gives menu items images from an image list. Each entry pairs a menu "
    "item with an image index.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexNavToolbarDesc, 65042,
    "is a dockable toolbar that supports global datasource, field and state detection from the active "
    "control. It is a container for other jex data navigation controls which you can add with the "
    "component editor.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexNavPanelDesc, 65041,
    "is a panel that holds jex data navigation buttons and controls, with global datasource, field and "
    "state detection from the active control. Add buttons with the component editor.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexNavFormLinkDesc, 65047,
    "is a non-visual link that lends a form's datasource to a navigator on another form, such as a main "
    "form's TjexNavToolbar, whenever the form is activated.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpFirstDesc, 65045,
    "is a dataset navigation button to scroll to the first record. Use this on a TjexNavToolbar or "
    "TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpJumpBackDesc, 65040,
    "is a dataset navigation button to move back a number of records (MoveBy), repeating while it is held "
    "down. Use this on a TjexNavToolbar or TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpPrevDesc, 65039,
    "is a dataset navigation button to move to the previous record, accelerating while it is held down. "
    "Use this on a TjexNavToolbar or TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpNextDesc, 65038,
    "is a dataset navigation button to move to the next record, accelerating while it is held down. Use "
    "this on a TjexNavToolbar or TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpJumpFwdDesc, 65037,
    "is a dataset navigation button to move forward a number of records (MoveBy), repeating while it is "
    "held down. Use this on a TjexNavToolbar or TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpLastDesc, 65036,
    "is a dataset navigation button to scroll to the last record. Use this on a TjexNavToolbar or "
    "TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpInsertDesc, 65035,
    "is a dataset button to insert a new record at the current position. Use this on a TjexNavToolbar or "
    "TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpAppendDesc, 65034,
    "is a dataset button to append a new record after the last record. Use this on a TjexNavToolbar or "
    "TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpDuplicateRecDesc, 65033,
    "is a dataset button to copy the current record into a new record (inserted or appended) and edit it. "
    "Use this on a TjexNavToolbar or TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpEditDesc, 65032,
    "is a dataset button to put the current record into edit mode. Use this on a TjexNavToolbar or "
    "TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpDataSourceEditDesc, 65031,
    "is a dataset button that opens a form to view or edit the records of its datasource, modal or not, "
    "optionally posting the record when the form closes with OK.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpBlobEditDesc, 65030,
    "is a dataset button that opens a popup editor for the current memo, graphic or blob field. Use this "
    "on a TjexNavToolbar or TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpFindReplaceDesc, 65029,
    "is a dataset button that opens a find and replace dialog to search for or replace field values in "
    "the current record or in all records.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpDeleteDesc, 65028,
    "is a dataset button to delete the current record, with an optional confirmation message. Use this on "
    "a TjexNavToolbar or TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpCancelDesc, 65027,
    "is a dataset button to cancel changes to a new or edited record without saving them. Use this on a "
    "TjexNavToolbar or TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpPostDesc, 65026,
    "is a dataset button to save changes to a new or edited record to the database. Use this on a "
    "TjexNavToolbar or TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpRefreshDesc, 65025,
    "is a dataset button to refresh the displayed records from the database. Use this on a TjexNavToolbar "
    "or TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpEmptyTableDesc, 65024,
    "is a dataset button to delete all records from a table, after a confirmation message you can change. "
    "Use this on a TjexNavToolbar or TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpBookmarkDesc, 65023,
    "is a two-state dataset button: the first click bookmarks the current record, the second returns to "
    "it. Use this on a TjexNavToolbar or TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpBookmarkMenuDesc, 65022,
    "is a dataset button with a popup menu of bookmarks to mark many records and return to any of them, "
    "labelled by their index values.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpFindKeyDesc, 65021,
    "is a dataset button that opens a dialog to find a record by the values of the table's key fields. "
    "Use this on a TjexNavToolbar or TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpIndexComboDesc, 65020,
    "is a combo box for a TjexNavToolbar or TjexNavPanel that lists the indexes of a table; choosing one "
    "sorts the records by that index.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpRangeDesc, 65019,
    "is a dataset button that opens a dialog to set or clear a range filter by first and last key values. "
    "Use this on a TjexNavToolbar or TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpRangeEditDesc, 65018,
    "is an edit box for a TjexNavToolbar or TjexNavPanel where you type a range expression for the key "
    "field, such as 1-100 or a-c, to restrict the records shown.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpFilterActiveDesc, 65017,
    "is a two-state dataset button that filters the records to those with the same value as the active "
    "field, and removes the filter on the next click.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpFilterExpressionDesc, 65016,
    "is a two-state dataset button that applies a filter expression to the records and removes it on the "
    "next click; right click to edit the expression.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpSQLStartTransDesc, 65015,
    "is a dataset button to start a transaction on an SQL database, so you can edit many records before "
    "committing or rolling back the changes.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpSQLCommitDesc, 65013,
    "is a dataset button to commit the current transaction on an SQL database, with an optional "
    "confirmation, making all changes since its start permanent.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpSQLRollbackDesc, 65012,
    "is a dataset button to roll back the current transaction on an SQL database, with an optional "
    "confirmation, undoing all changes since its start.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpQueryParamsDesc, 65011,
    "is a dataset button that opens a dialog to edit the parameter values of a query and reopen it. Use "
    "this on a TjexNavToolbar or TjexNavPanel.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpDBInfoDesc, 65010,
    "is a dataset button that shows what its datasource is linked to: the dataset, its class, state, "
    "record position and fields.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpStateDesc, 65009,
    "is a label for a TjexNavToolbar or TjexNavPanel that shows the state of the dataset (browse, edit, "
    "insert ...) through a mask and texts you choose.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexnpRecordCountDesc, 65008,
    "is a label for a TjexNavToolbar or TjexNavPanel that shows the current record number and the record "
    "count through a format mask.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBTreeViewDesc, 65014,
    "is a data aware tree view that loads itself from multiple master-detail datasources, or recursively "
    "from a single dataset.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBRichEditDesc, 65006,
    "is a data aware rich text editor for a memo field, with drag and drop of files, a file template, a "
    "popup menu of editing commands, a larger editor window and printing with margins.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBSuperNavDesc, 65005,
    "is a data navigator with flat or raised buttons in a choice of glyph colours, hints, a MoveBy jump "
    "and navigation speed, and the buttons you choose.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBEditWinDesc, 65004,
    "is a scrolling window that shows every field of a dataset as a label and a data aware edit, laid out "
    "automatically, with separate fonts, colours, captions and hints.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexHDBGridDesc, 65003,
    "is a horizontal data aware grid that shows records across and fields down, with a column of field "
    "titles, column sizing and a fixed colour.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBIndexComboDesc, 65002,
    "is a combo box that lists the indexes of a table with captions you choose; selecting one sorts the "
    "records by that index.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBFilterDesc, 65001,
    "is a non-visual component that keeps a filter expression with the form and applies it to a dataset, "
    "optionally whenever the dataset opens.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBRangeEditDesc, 65000,
    "is an edit box where you type a range for the current index of a table (such as 1-100 or a-c) that "
    "is applied when you press Enter, leave, or type.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBAutoEditDesc, 64999,
    "is a data aware edit box that opens a popup editor for memo, graphic and blob fields when you double "
    "click it or start typing.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBFixedGridDesc, 64998,
    "is a data aware grid whose leftmost data columns stay fixed in place while the other columns scroll.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBEditLabelDesc, 64997,
    "is a data aware edit box with its own label, placed to the left or above, with the field's display "
    "label as automatic caption and separate fonts and colours.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBRecordCountDesc, 64996,
    "is a data aware label that shows the current record number and the record count of a dataset through "
    "a format mask.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBStateDesc, 64995,
    "is a data aware label that shows the state of a dataset (browse, edit, insert ...) through a mask "
    "and state texts you choose.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBCurrencyLabelDesc, 64994,
    "is a data aware label that spells out a currency field in words, as on a cheque, with your own "
    "currency and fraction texts.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLRDBComboBoxDesc, 64993,
    "is a low resource data aware combo box that fills its drop-down list only while it is open, so many "
    "of them on a form use little memory.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexAppExceptionDesc, 64992,
    "is an application exception handler that shows exception messages in its own dialog, logs them to a "
    "file and can confirm and terminate the application.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDSAppExceptionDesc, 64991,
    "is an application exception handler that also catches the errors of its form's datasets (post, edit, "
    "delete), shows them in its own dialog, logs them to a file and can confirm and terminate the "
    "application.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBHintManagerDesc, 64990,
    "is a component that reads the hints of a form's controls from a database table, keyed by form and "
    "control name, with the hint colour and pause times.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBHelpManagerDesc, 64989,
    "is a component that takes the help of a form's controls from a database table, keyed by form and "
    "control name: a help context number, or a topic shown as a help keyword through a template.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexAnimationFrameDesc, 64988,
    "is a page frame that changes pages with animation, with the number of animation steps and their "
    "time, creating its pages when it is loaded.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexFormPanelDesc, 64987,
    "is a panel that shows another form inside itself, by form name, creating and destroying the form "
    "automatically.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexButtonBarDesc, 64986,
    "is an outlook style bar of pages with a button each; clicking a button slides its page open with "
    "animation. Add pages with the component editor.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexButtonListDesc, 64985,
    "is a list of large or small image buttons, with highlighting, drag and drop reordering, background "
    "picture and sounds, as found on a TjexButtonBar page.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexPictureGroupDesc, 64984,
    "is a group box that shows a picture in its caption area, with margins, offset, a raised or lowered "
    "line and transparency.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexMultiSplitDesc, 64983,
    "is a splitter control with two, three or four panes in any of their layouts, switchable at design "
    "time. Each pane is a separate control owned by the form.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexQuadSplitDesc, 65007,
    "is a four way splitter control. Each splitter pane is a separate control owned by the form. Use the "
    "component editor to add panes.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexTriSplitDesc, 64982,
    "is a three way splitter control: one large pane along one side and two panes sharing the rest. Use "
    "the component editor to add panes.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexBiSplitDesc, 64981,
    "is a two way splitter control, horizontal or vertical, with scaled or locked positions. Each "
    "splitter pane is a separate control owned by the form.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexSplitBarDesc, 64980,
    "is a splitter bar between two windows that moves their edges as it is dragged, within minimum and "
    "maximum positions.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexSMultiSplitDesc, 64979,
    "is a splitter control with two, three or four scrolling panes in any of their layouts; panes can "
    "scroll in step with each other.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexSQuadSplitDesc, 64978,
    "is a four way splitter control with scrolling panes that can scroll in step with each other. Use the "
    "component editor to add panes.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexSTriSplitDesc, 64977,
    "is a three way splitter control with scrolling panes that can scroll in step with each other. Use "
    "the component editor to add panes.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexSBiSplitDesc, 64976,
    "is a two way splitter control with scrolling panes that can scroll in step with each other. Use the "
    "component editor to add panes.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexEdgePanelDesc, 64975,
    "is a panel whose edges can be drawn from a bitmap, so it takes on any shape or border. Use the "
    "component editor to design the edges.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDragPanelDesc, 64974,
    "is a panel the user can move and resize at run time, within minimum and maximum limits, or lock in "
    "place.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexSpeedPanelDesc, 64973,
    "is a panel that arranges its controls in rows and columns of equal size, with margins, optionally "
    "sorted and sized to visible controls only.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexHintBarDesc, 64972,
    "is a status bar that shows the hints of the controls under the mouse and the name of the active "
    "control, with prefix, suffix and size grip.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexShapeFormDesc, 64971,
    "is a component that gives its form the shape of a picture, leaving out the transparent colour, and "
    "lets you drag the form by any part of it.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexRichEditDesc, 64970,
    "is a rich text editor with drag and drop of files, a file template, a popup menu of editing "
    "commands, a larger editor window and printing with title and margins.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexFormTabbedNoteBookDesc, 64969,
    "is a tabbed notebook that shows a form on each page, creating the forms as their pages are shown and "
    "destroying them after.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexFormNoteBookDesc, 64968,
    "is a notebook that shows a form on each page, creating the forms as their pages are shown and "
    "destroying them after.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexCheckListBoxDesc, 64967,
    "is a list box with a check box glyph for each item, checked and disabled items, colours for checked "
    "items, printing, and a list to keep in sync with it.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexFontComboBoxDesc, 64966,
    "is a combo box that lists the installed fonts, optionally only TrueType, fixed pitch or printer "
    "fonts.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexColorComboBoxDesc, 64965,
    "is a combo box that lists colours with a sample of each and, optionally, its name. Edit the list of "
    "colours with the colour list editor.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLineDesc, 64964,
    "is a line control with arrows at either end, arrow size and style, line style and width, and "
    "direction.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexButtonEditDesc, 64963,
    "is an edit box with a button at its right, which can be clicked with the mouse or by pressing Enter.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexCheckBoxDesc, 64962,
                      "is a check box whose caption can wrap and be aligned horizontally and vertically.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexRadioButtonDesc, 64961,
                      "is a radio button whose caption can wrap and be aligned horizontally and vertically.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexPopupSelectDesc, 64960,
    "is a control that pops up a list of items in columns for the user to choose one from.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexBackgroundDesc, 64959,
    "is a gradient background that fills a form from one colour to another, horizontally or vertically, "
    "in the number of steps you choose.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexMDIBackgroundDesc, 64958,
    "is a gradient background for the client area of an MDI main form, from one colour to another in the "
    "number of steps you choose.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexTiledImageDesc, 64957,
    "is an image control that tiles, centres or stretches a picture over its area, as a form background.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexMDITiledImageDesc, 64956,
    "is a picture background for the client area of an MDI main form, tiled, centred or stretched.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexKeyStateDesc, 64955,
    "is a status display of the Caps Lock, Num Lock, Scroll Lock and Insert keys, with your own texts; a "
    "click toggles the key.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexActiveHighlightDesc, 64953,
    "is a component that highlights the active control of a form in a colour you choose, and can move the "
    "mouse cursor to it.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexShapeDesc, 64952,
    "is a 3D shape (rectangle, rounded rectangle, ellipse ...) drawn raised or lowered with highlight and "
    "shadow colours, showing its caption centred and aligned vertically.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexFrameDesc, 64951,
    "is a 3D frame drawn with highlight and shadow colours and rounded corners of the width you choose.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLRNoteBookDesc, 64950,
    "is a low resource notebook that creates the window handles of a page's controls only while the page "
    "is shown.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLRTabbedNoteBookDesc, 64949,
    "is a low resource tabbed notebook that creates the window handles of a page's controls only while "
    "the page is shown.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexAutoTabSetDesc, 64948,
    "is a tab set that takes its tabs from the pages of a notebook and turns the pages as the tabs are "
    "clicked.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLRComboBoxDesc, 64947,
    "is a low resource combo box that fills its drop-down list only while it is open, so many of them on "
    "a form use little memory.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLRListBoxDesc, 64946,
    "is a low resource list box that keeps its lines in one string list and shows only those in view, so "
    "that many of them on a form use little memory.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexROMemoDesc, 64945,
    "is a read-only memo for showing text or logs, with a limit on the number of lines kept and printing "
    "with indent and line numbers.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexTabListBoxDesc, 64944,
    "is a list box with tab stops, set at design time, to show items in columns, with a horizontal scroll "
    "bar, printing and a list to keep in sync with it.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexSyncListBoxDesc, 64943,
    "is a list box that scrolls and selects in sync with another list box, with a horizontal scroll bar "
    "and printing.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexTransImageDesc, 64942,
    "is an image control that draws its picture with a transparent colour, aligned, tiled or stretched.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexSpinEditDesc, 64941,
    "is a spin edit with up and down buttons for whole numbers, with minimum, maximum and increment "
    "values.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexBusyDesc, 64940,
    "is a busy dialog that shows messages, a progress bar, and an animation or sound while a long "
    "operation runs, for a minimum time.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexSplashDesc, 64954,
    "is an automatic splash screen is launched from this component on application startup. You just need "
    "to provide the bitmap image. Includes a designtime preview.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexWelcomeTipsDesc, 64939,
    "is a tip of the day dialog shown at application startup, with tips read from an INI file, greeting "
    "and buttons for help contents and what's new.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexPageSetupDialogDesc, 64938,
    "is a page setup dialog for paper, orientation and margins, with minimum margins and a choice of "
    "inches or millimetres.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexFileOpenEditDesc, 64937,
    "is an edit box with a button that opens a file open dialog and puts the chosen file name into the "
    "edit.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexFileSaveEditDesc, 64935,
    "is an edit box with a button that opens a file save dialog and puts the chosen file name into the "
    "edit.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDirectoryEditDesc, 64934,
    "is an edit box with a button that opens a directory dialog and puts the chosen directory into the "
    "edit.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDirectoryDialogDesc, 64933,
    "is a dialog to choose a directory, with a history list, a title and styles for its label, edit and "
    "buttons.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexEffectsImageDesc, 64932,
    "is an image control that shows its picture with transition effects (wipes, dissolves, slides ...), "
    "in a chosen size and speed.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexRichEffectsImageDesc, 64931,
    "is an image control that shows rich text with transition effects (wipes, dissolves, slides ...), in "
    "a chosen size and speed.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBEffectsImageDesc, 64930,
    "is a data aware image control that shows a graphic field with transition effects (wipes, dissolves, "
    "slides ...) as the record changes.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexWaveDesc, 64929,
    "is a non-visual component that holds a sound inside the form and plays it, synchronously or not, or "
    "in a loop.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexWaveFileDesc, 64928,
    "is a non-visual component that plays a sound file, synchronously or not, or in a loop.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexWaveResDesc, 64927,
    "is a non-visual component that plays a sound stored as a resource in the application or in a "
    "resource DLL.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexWaveListDesc, 64926,
    "is a non-visual component that holds a list of sounds inside the form, with methods for playing one "
    "or more sounds in the list.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexWaveFileListDesc, 64936,
    "is a non-visual component to play a list of sound files, with methods for playing one or more sounds "
    "in the list. ");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexWaveResListDesc, 64925,
    "is a non-visual component that plays a list of sound resources from the application or a resource "
    "DLL.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexMCIFilePlayerDesc, 64924,
    "is a non-visual media player for sound and video files, opened, rewound and repeated automatically.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexMCIStreamPlayerDesc, 64923,
    "is a non-visual media player for sound and video data stored inside the form, opened, rewound and "
    "repeated automatically.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexShapeButtonDesc, 64922,
    "is a button of any shape drawn from an image list, with images for up, down, flat and disabled "
    "states and a mask image for the area that takes clicks.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexPicBtnDesc, 64921,
    "is a button with a picture (glyph) and caption, glyph layout, raised or lowered text, a highlighted "
    "picture when the mouse is over it, and sounds.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexPicSpeedBtnDesc, 64920,
    "is a speed button with a picture (glyph) and caption, glyph layout, raised or lowered text, a "
    "highlighted picture when the mouse is over it, and sounds.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexRepSpeedBtnDesc, 64919,
    "is a picture speed button that clicks repeatedly while it is held down, with an initial pause and "
    "repeat pause.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexToggleBtnDesc, 64918,
    "is a two-state picture button that toggles up and down on each click, with a hint for each state.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexMouseRegionDesc, 64917,
    "is an invisible area of a form that reacts to the mouse with enter and leave events and sounds, with "
    "an optional outline.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexMenuButtonDesc, 64916,
    "is a speed button tied to a menu item: clicking it runs the item, and it can show the item's "
    "caption.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSizeButtonDesc, 64915,
                      "is a button that sizes itself to its caption, with horizontal and vertical margins.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexWaveBtnDesc, 64914,
                      "is a picture button that plays a sound held inside the form when it is clicked.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexWaveFileBtnDesc, 64913,
                      "is a picture button that plays a sound file when it is clicked.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFormButtonDesc, 64912,
                      "is a button that opens a form, by form name, modal or not.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFormPicBtnDesc, 64911,
                      "is a picture button that opens a form, by form name, modal or not.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexFormPicSpeedBtnDesc, 64910,
                      "is a picture speed button that opens a form, by form name, modal or not.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexPushButtonDesc, 64909,
    "is a button that stays pushed in: each click toggles it between checked and unchecked. Its caption "
    "can wrap and be aligned.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexButtonDesc, 64908,
    "is a button whose caption can wrap to several lines and be aligned horizontally and vertically.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexRotLabelDesc, 64907,
    "is a label drawn at any angle, with a border, raised or lowered text and rotation about its centre. "
    "Use a TrueType font.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexVersionLabelDesc, 64906,
    "is a label that shows items of the application's version information (file version, product name "
    "...) with captions you choose.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexURLLabelDesc, 64905,
    "is a highlighting mouse label that opens a web page in the default browser when it is clicked.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexMultilineLabelDesc, 64904,
                      "is a label that shows several lines of text, edited as a string list.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexCurrencyLabelDesc, 64903,
    "is a label that spells out a currency amount in words, as on a cheque, with your own currency and "
    "fraction texts.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexMouseLabelDesc, 64902,
    "is a label that changes colour and font style when the mouse is over it or presses it, and can play "
    "sounds.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexClockLabelDesc, 64901,
    "is a label that shows the current date and time in the format you choose, refreshed at the interval "
    "you set.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexSuperLabelDesc, 64900,
    "is a label with a border in a colour you choose, margins on each side and vertical alignment of its "
    "text.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexAutoLabelDesc, 64899,
    "is a label for a control that takes its caption from the control's name and places itself to its "
    "left or above it.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexEditLabelDesc, 64898,
    "is an edit box with its own label, placed to the left or above, with separate fonts and colours for "
    "label and edit.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexTitleGradientDesc, 64897,
                      "is a component that paints the caption bar of its form with a colour gradient.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexSingleInstanceDesc, 64896,
    "is a component that allows only one instance of the application to run; a second instance activates "
    "the first and stops with an optional message.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLauncherDesc, 64895,
    "is a component that launches another program or document at a set time, date, weekday or interval, "
    "once or repeatedly, and can wait for it to end.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexFormSaverDesc, 64894,
    "is a component that saves its form's position, size and state to an INI file and restores them when "
    "the form is shown again.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexFormSizerDesc, 64893,
    "is a component that limits the size and position of its form between minimum and maximum values, "
    "with the initial position and size.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexStopWatchDesc, 64892,
    "is a non-visual stop watch that times parts of your program and writes the times to a log file in a "
    "format you choose.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexMDIScrollDesc, 64891,
    "is a component that hides the scroll bars of an MDI main form's client area when child windows move "
    "out of sight.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexFormMessageHookDesc, 64890,
    "is a component that hooks its form's window messages and hands each message to an event before the "
    "form handles it.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLEditDesc, 64889,
    "is an edit box with an attached label that moves, shows and hides with it and focuses the edit on "
    "its accelerator key.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLMaskEditDesc, 64888,
                      "is a masked edit box with an attached label that moves, shows and hides with it.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLSpinEditDesc, 64887,
                      "is a spin edit with an attached label that moves, shows and hides with it.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLMemoDesc, 64886,
                      "is a memo with an attached label that moves, shows and hides with it.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLListBoxDesc, 64885,
                      "is a list box with an attached label that moves, shows and hides with it.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLComboBoxDesc, 64884,
                      "is a combo box with an attached label that moves, shows and hides with it.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLImageDesc, 64883,
                      "is an image control with an attached label that moves, shows and hides with it.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLPanelDesc, 64882,
                      "is a panel with an attached label that moves, shows and hides with it.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLScrollBoxDesc, 64881,
                      "is a scroll box with an attached label that moves, shows and hides with it.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexLTreeViewDesc, 64880,
                      "is a tree view with an attached label that moves, shows and hides with it.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLDBTextDesc, 64879,
    "is a data aware text control with an attached label that can take the field's display label as its "
    "caption.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLDBEditDesc, 64878,
    "is a data aware edit box with an attached label that can take the field's display label as its "
    "caption.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLDBAutoEditDesc, 64877,
    "is a data aware edit box that pops up an editor for memo and blob fields, with an attached label "
    "that can take the field's display label.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLDBMemoDesc, 64876,
    "is a data aware memo with an attached label that can take the field's display label as its caption.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLDBImageDesc, 64874,
    "is a data aware image control with an attached label that can take the field's display label as its "
    "caption.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLDBListBoxDesc, 64872,
    "is a data aware list box with an attached label that can take the field's display label as its "
    "caption.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLDBComboBoxDesc, 64871,
    "is a data aware combo box with an attached label that can take the field's display label as its "
    "caption.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLDBCheckBoxDesc, 64870,
    "is a data aware check box with an attached label that can take the field's display label as its "
    "caption.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLDBRadioGroupDesc, 64869,
    "is a data aware radio group with an attached label that can take the field's display label as its "
    "caption.");
// The legacy and the current data-aware lookup list box with attached label are the same thing to a
// person choosing from the palette; they share this text and its identifier, because the description
// range holds one identifier fewer than there are entries once 65060 is taken by a class name.
JEX_RESOURCESTRING_ID(
    _sjexdsncnLookupListDesc, 64868,
    "is a data aware lookup list box with an attached label that can take the field's display label as "
    "its caption.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLDBLookupComboDesc, 64867,
    "is a data aware lookup combo box (of the older kind) with an attached label that can take the "
    "field's display label as its caption.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLDBLookupComboBoxDesc, 64866,
    "is a data aware lookup combo box with an attached label that can take the field's display label as "
    "its caption.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBAppExceptionDesc, 64865,
    "is an application exception handler that looks up exception messages in a BDE message table and logs "
    "exceptions to a BDE log table.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBQryAppExceptionDesc, 64864,
    "is an application exception handler that looks up exception messages and logs exceptions through SQL "
    "queries on a BDE database.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLocalTableDesc, 64863,
    "is a BDE table whose database directory is found relative to the application's folder (LocalPath), "
    "so no alias needs to be set up.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLocalQueryDesc, 64862,
    "is a BDE query whose database directory is found relative to the application's folder (LocalPath), "
    "so no alias needs to be set up.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexLocalDatabaseDesc, 64861,
    "is a BDE database whose directory is found relative to the application's folder (LocalPath), so no "
    "alias needs to be set up.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBIdleTimeDesc, 64873,
    "is a component which executes at Application.OnIdle to flush BDE updates cached in memory to disk.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBQueryGridDesc, 64859,
                      "is an aggregate component containing a TQuery, DBGrid and Navigator.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexDBTableGridDesc, 64875,
                      "is an aggregate component containing a TTable, DBGrid and Navigator.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexClientAdapterRegDesc, 64858,
    "is a registration component that adapts jex data-aware components to client datasets.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexBDEAdapterRegDesc, 64857,
    "is a registration component that adapts jex data-aware components to BDE tables, queries and "
    "databases.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexADOAdapterRegDesc, 64856,
    "is a registration component that adapts jex data-aware components to ADO datasets and connections.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexIBAdapterRegDesc, 64853,
    "is a registration component that adapts jex data-aware components to InterBase datasets and "
    "transactions.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexSQLAdapterRegDesc, 64852,
    "is a registration component that adapts jex data-aware components to SQL datasets and connections.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexMDITabsDesc, 64851,
    "is a tab bar with one tab for each child window of an MDI form; clicking a tab activates its window.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexTrayIconDesc, 64850,
    "is a component that shows an icon in the taskbar notification area, with a hint, a popup menu and "
    "mouse events.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBDateTimePickerDesc, 64849,
    "is a data aware date and time picker, with a second field for the state of its check box.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexDBMonthCalendarDesc, 64848,
    "is a data aware month calendar that edits a date field, and with a second field a range of dates.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexFormTabControlDesc, 65050,
    "is a tab control that shows a form for each tab, creating the forms as their tabs are selected.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexMessageDlgDesc, 64854,
    "shows a modal dialog for custom messages. It is similar to MessageDlg function, with extra message, "
    "icon, checkbox and button formatting.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexProgressDlgDesc, 64855,
                      "shows a modal message dialog and progress bar with timer counting up or down.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexIdleTimeoutDesc, 65053,
    "is a component that fires an event when the application has been idle, without keyboard or mouse "
    "input, for a set time.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexSpriteSurfaceDesc, 65056,
    "is a control that animates sprites over a background picture. Add sprites with a TjexSpriteList.");
JEX_RESOURCESTRING_ID(_sjexdsncnTjexSpriteListDesc, 65062,
                      "is a list of sprites (bitmaps, pictures, text, shapes and effects) that move over a "
                      "TjexSpriteSurface along paths. Edit it with the sprite list editor.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexBitmapSpriteFactoryDesc, 65063,
    "is a non-visual component that makes bitmap sprites from the images of an image list.");
JEX_RESOURCESTRING_ID(
    _sjexdsncnTjexMailToLabelDesc, 64860,
    "is a highighting mouse label that creates an email (with address, subject and body text); then loads "
    "it into the default email application.");

namespace {
struct TCatalogueRow {
    const rtl::TResourceString* Name;
    const rtl::TResourceString* Description;
};

constexpr TCatalogueRow CatalogueRows[jexCatalogueCount] = {
    {&_sjexdsncnTjexDock, &_sjexdsncnTjexDockDesc},
    {&_sjexdsncnTjexToolbar, &_sjexdsncnTjexToolbarDesc},
    {&_sjexdsncnTjexToolWindow, &_sjexdsncnTjexToolWindowDesc},
    {&_sjexdsncnTjexToolbarButton, &_sjexdsncnTjexToolbarButtonDesc},
    {&_sjexdsncnTjexToolbarSep, &_sjexdsncnTjexToolbarSepDesc},
    {&_sjexdsncnTjexToolbarEdit, &_sjexdsncnTjexToolbarEditDesc},
    {&_sjexdsncnTjexToolbarMaskEdit, &_sjexdsncnTjexToolbarMaskEditDesc},
    {&_sjexdsncnTjexToolbarDBEdit, &_sjexdsncnTjexToolbarDBEditDesc},
    {&_sjexdsncnTjexMainMenu, &_sjexdsncnTjexMainMenuDesc},
    {&_sjexdsncnTjexMenuToolbar, &_sjexdsncnTjexMenuToolbarDesc},
    {&_sjexdsncnTjexPopupMenu, &_sjexdsncnTjexPopupMenuDesc},
    {&_sjexdsncnTjexSystemMenu, &_sjexdsncnTjexSystemMenuDesc},
    {&_sjexdsncnTjexMenuImages, &_sjexdsncnTjexMenuImagesDesc},
    {&_sjexdsncnTjexNavToolbar, &_sjexdsncnTjexNavToolbarDesc},
    {&_sjexdsncnTjexNavPanel, &_sjexdsncnTjexNavPanelDesc},
    {&_sjexdsncnTjexNavFormLink, &_sjexdsncnTjexNavFormLinkDesc},
    {&_sjexdsncnTjexnpFirst, &_sjexdsncnTjexnpFirstDesc},
    {&_sjexdsncnTjexnpJumpBack, &_sjexdsncnTjexnpJumpBackDesc},
    {&_sjexdsncnTjexnpPrev, &_sjexdsncnTjexnpPrevDesc},
    {&_sjexdsncnTjexnpNext, &_sjexdsncnTjexnpNextDesc},
    {&_sjexdsncnTjexnpJumpFwd, &_sjexdsncnTjexnpJumpFwdDesc},
    {&_sjexdsncnTjexnpLast, &_sjexdsncnTjexnpLastDesc},
    {&_sjexdsncnTjexnpInsert, &_sjexdsncnTjexnpInsertDesc},
    {&_sjexdsncnTjexnpAppend, &_sjexdsncnTjexnpAppendDesc},
    {&_sjexdsncnTjexnpDuplicateRec, &_sjexdsncnTjexnpDuplicateRecDesc},
    {&_sjexdsncnTjexnpEdit, &_sjexdsncnTjexnpEditDesc},
    {&_sjexdsncnTjexnpDataSourceEdit, &_sjexdsncnTjexnpDataSourceEditDesc},
    {&_sjexdsncnTjexnpBlobEdit, &_sjexdsncnTjexnpBlobEditDesc},
    {&_sjexdsncnTjexnpFindReplace, &_sjexdsncnTjexnpFindReplaceDesc},
    {&_sjexdsncnTjexnpDelete, &_sjexdsncnTjexnpDeleteDesc},
    {&_sjexdsncnTjexnpCancel, &_sjexdsncnTjexnpCancelDesc},
    {&_sjexdsncnTjexnpPost, &_sjexdsncnTjexnpPostDesc},
    {&_sjexdsncnTjexnpRefresh, &_sjexdsncnTjexnpRefreshDesc},
    {&_sjexdsncnTjexnpEmptyTable, &_sjexdsncnTjexnpEmptyTableDesc},
    {&_sjexdsncnTjexnpBookmark, &_sjexdsncnTjexnpBookmarkDesc},
    {&_sjexdsncnTjexnpBookmarkMenu, &_sjexdsncnTjexnpBookmarkMenuDesc},
    {&_sjexdsncnTjexnpFindKey, &_sjexdsncnTjexnpFindKeyDesc},
    {&_sjexdsncnTjexnpIndexCombo, &_sjexdsncnTjexnpIndexComboDesc},
    {&_sjexdsncnTjexnpRange, &_sjexdsncnTjexnpRangeDesc},
    {&_sjexdsncnTjexnpRangeEdit, &_sjexdsncnTjexnpRangeEditDesc},
    {&_sjexdsncnTjexnpFilterActive, &_sjexdsncnTjexnpFilterActiveDesc},
    {&_sjexdsncnTjexnpFilterExpression, &_sjexdsncnTjexnpFilterExpressionDesc},
    {&_sjexdsncnTjexnpSQLStartTrans, &_sjexdsncnTjexnpSQLStartTransDesc},
    {&_sjexdsncnTjexnpSQLCommit, &_sjexdsncnTjexnpSQLCommitDesc},
    {&_sjexdsncnTjexnpSQLRollback, &_sjexdsncnTjexnpSQLRollbackDesc},
    {&_sjexdsncnTjexnpQueryParams, &_sjexdsncnTjexnpQueryParamsDesc},
    {&_sjexdsncnTjexnpDBInfo, &_sjexdsncnTjexnpDBInfoDesc},
    {&_sjexdsncnTjexnpState, &_sjexdsncnTjexnpStateDesc},
    {&_sjexdsncnTjexnpRecordCount, &_sjexdsncnTjexnpRecordCountDesc},
    {&_sjexdsncnTjexDBTreeView, &_sjexdsncnTjexDBTreeViewDesc},
    {&_sjexdsncnTjexDBRichEdit, &_sjexdsncnTjexDBRichEditDesc},
    {&_sjexdsncnTjexDBSuperNav, &_sjexdsncnTjexDBSuperNavDesc},
    {&_sjexdsncnTjexDBEditWin, &_sjexdsncnTjexDBEditWinDesc},
    {&_sjexdsncnTjexHDBGrid, &_sjexdsncnTjexHDBGridDesc},
    {&_sjexdsncnTjexDBIndexCombo, &_sjexdsncnTjexDBIndexComboDesc},
    {&_sjexdsncnTjexDBFilter, &_sjexdsncnTjexDBFilterDesc},
    {&_sjexdsncnTjexDBRangeEdit, &_sjexdsncnTjexDBRangeEditDesc},
    {&_sjexdsncnTjexDBAutoEdit, &_sjexdsncnTjexDBAutoEditDesc},
    {&_sjexdsncnTjexDBFixedGrid, &_sjexdsncnTjexDBFixedGridDesc},
    {&_sjexdsncnTjexDBEditLabel, &_sjexdsncnTjexDBEditLabelDesc},
    {&_sjexdsncnTjexDBRecordCount, &_sjexdsncnTjexDBRecordCountDesc},
    {&_sjexdsncnTjexDBState, &_sjexdsncnTjexDBStateDesc},
    {&_sjexdsncnTjexDBCurrencyLabel, &_sjexdsncnTjexDBCurrencyLabelDesc},
    {&_sjexdsncnTjexLRDBComboBox, &_sjexdsncnTjexLRDBComboBoxDesc},
    {&_sjexdsncnTjexAppException, &_sjexdsncnTjexAppExceptionDesc},
    {&_sjexdsncnTjexDSAppException, &_sjexdsncnTjexDSAppExceptionDesc},
    {&_sjexdsncnTjexDBHintManager, &_sjexdsncnTjexDBHintManagerDesc},
    {&_sjexdsncnTjexDBHelpManager, &_sjexdsncnTjexDBHelpManagerDesc},
    {&_sjexdsncnTjexAnimationFrame, &_sjexdsncnTjexAnimationFrameDesc},
    {&_sjexdsncnTjexFormPanel, &_sjexdsncnTjexFormPanelDesc},
    {&_sjexdsncnTjexButtonBar, &_sjexdsncnTjexButtonBarDesc},
    {&_sjexdsncnTjexButtonList, &_sjexdsncnTjexButtonListDesc},
    {&_sjexdsncnTjexPictureGroup, &_sjexdsncnTjexPictureGroupDesc},
    {&_sjexdsncnTjexMultiSplit, &_sjexdsncnTjexMultiSplitDesc},
    {&_sjexdsncnTjexQuadSplit, &_sjexdsncnTjexQuadSplitDesc},
    {&_sjexdsncnTjexTriSplit, &_sjexdsncnTjexTriSplitDesc},
    {&_sjexdsncnTjexBiSplit, &_sjexdsncnTjexBiSplitDesc},
    {&_sjexdsncnTjexSplitBar, &_sjexdsncnTjexSplitBarDesc},
    {&_sjexdsncnTjexSMultiSplit, &_sjexdsncnTjexSMultiSplitDesc},
    {&_sjexdsncnTjexSQuadSplit, &_sjexdsncnTjexSQuadSplitDesc},
    {&_sjexdsncnTjexSTriSplit, &_sjexdsncnTjexSTriSplitDesc},
    {&_sjexdsncnTjexSBiSplit, &_sjexdsncnTjexSBiSplitDesc},
    {&_sjexdsncnTjexEdgePanel, &_sjexdsncnTjexEdgePanelDesc},
    {&_sjexdsncnTjexDragPanel, &_sjexdsncnTjexDragPanelDesc},
    {&_sjexdsncnTjexSpeedPanel, &_sjexdsncnTjexSpeedPanelDesc},
    {&_sjexdsncnTjexHintBar, &_sjexdsncnTjexHintBarDesc},
    {&_sjexdsncnTjexShapeForm, &_sjexdsncnTjexShapeFormDesc},
    {&_sjexdsncnTjexRichEdit, &_sjexdsncnTjexRichEditDesc},
    {&_sjexdsncnTjexFormTabbedNoteBook, &_sjexdsncnTjexFormTabbedNoteBookDesc},
    {&_sjexdsncnTjexFormNoteBook, &_sjexdsncnTjexFormNoteBookDesc},
    {&_sjexdsncnTjexCheckListBox, &_sjexdsncnTjexCheckListBoxDesc},
    {&_sjexdsncnTjexFontComboBox, &_sjexdsncnTjexFontComboBoxDesc},
    {&_sjexdsncnTjexColorComboBox, &_sjexdsncnTjexColorComboBoxDesc},
    {&_sjexdsncnTjexLine, &_sjexdsncnTjexLineDesc},
    {&_sjexdsncnTjexButtonEdit, &_sjexdsncnTjexButtonEditDesc},
    {&_sjexdsncnTjexCheckBox, &_sjexdsncnTjexCheckBoxDesc},
    {&_sjexdsncnTjexRadioButton, &_sjexdsncnTjexRadioButtonDesc},
    {&_sjexdsncnTjexPopupSelect, &_sjexdsncnTjexPopupSelectDesc},
    {&_sjexdsncnTjexBackground, &_sjexdsncnTjexBackgroundDesc},
    {&_sjexdsncnTjexMDIBackground, &_sjexdsncnTjexMDIBackgroundDesc},
    {&_sjexdsncnTjexTiledImage, &_sjexdsncnTjexTiledImageDesc},
    {&_sjexdsncnTjexMDITiledImage, &_sjexdsncnTjexMDITiledImageDesc},
    {&_sjexdsncnTjexKeyState, &_sjexdsncnTjexKeyStateDesc},
    {&_sjexdsncnTjexActiveHighlight, &_sjexdsncnTjexActiveHighlightDesc},
    {&_sjexdsncnTjexShape, &_sjexdsncnTjexShapeDesc},
    {&_sjexdsncnTjexFrame, &_sjexdsncnTjexFrameDesc},
    {&_sjexdsncnTjexLRNoteBook, &_sjexdsncnTjexLRNoteBookDesc},
    {&_sjexdsncnTjexLRTabbedNoteBook, &_sjexdsncnTjexLRTabbedNoteBookDesc},
    {&_sjexdsncnTjexAutoTabSet, &_sjexdsncnTjexAutoTabSetDesc},
    {&_sjexdsncnTjexLRComboBox, &_sjexdsncnTjexLRComboBoxDesc},
    {&_sjexdsncnTjexLRListBox, &_sjexdsncnTjexLRListBoxDesc},
    {&_sjexdsncnTjexROMemo, &_sjexdsncnTjexROMemoDesc},
    {&_sjexdsncnTjexTabListBox, &_sjexdsncnTjexTabListBoxDesc},
    {&_sjexdsncnTjexSyncListBox, &_sjexdsncnTjexSyncListBoxDesc},
    {&_sjexdsncnTjexTransImage, &_sjexdsncnTjexTransImageDesc},
    {&_sjexdsncnTjexSpinEdit, &_sjexdsncnTjexSpinEditDesc},
    {&_sjexdsncnTjexBusy, &_sjexdsncnTjexBusyDesc},
    {&_sjexdsncnTjexSplash, &_sjexdsncnTjexSplashDesc},
    {&_sjexdsncnTjexWelcomeTips, &_sjexdsncnTjexWelcomeTipsDesc},
    {&_sjexdsncnTjexPageSetupDialog, &_sjexdsncnTjexPageSetupDialogDesc},
    {&_sjexdsncnTjexFileOpenEdit, &_sjexdsncnTjexFileOpenEditDesc},
    {&_sjexdsncnTjexFileSaveEdit, &_sjexdsncnTjexFileSaveEditDesc},
    {&_sjexdsncnTjexDirectoryEdit, &_sjexdsncnTjexDirectoryEditDesc},
    {&_sjexdsncnTjexDirectoryDialog, &_sjexdsncnTjexDirectoryDialogDesc},
    {&_sjexdsncnTjexEffectsImage, &_sjexdsncnTjexEffectsImageDesc},
    {&_sjexdsncnTjexRichEffectsImage, &_sjexdsncnTjexRichEffectsImageDesc},
    {&_sjexdsncnTjexDBEffectsImage, &_sjexdsncnTjexDBEffectsImageDesc},
    {&_sjexdsncnTjexWave, &_sjexdsncnTjexWaveDesc},
    {&_sjexdsncnTjexWaveFile, &_sjexdsncnTjexWaveFileDesc},
    {&_sjexdsncnTjexWaveRes, &_sjexdsncnTjexWaveResDesc},
    {&_sjexdsncnTjexWaveList, &_sjexdsncnTjexWaveListDesc},
    {&_sjexdsncnTjexWaveFileList, &_sjexdsncnTjexWaveFileListDesc},
    {&_sjexdsncnTjexWaveResList, &_sjexdsncnTjexWaveResListDesc},
    {&_sjexdsncnTjexMCIFilePlayer, &_sjexdsncnTjexMCIFilePlayerDesc},
    {&_sjexdsncnTjexMCIStreamPlayer, &_sjexdsncnTjexMCIStreamPlayerDesc},
    {&_sjexdsncnTjexShapeButton, &_sjexdsncnTjexShapeButtonDesc},
    {&_sjexdsncnTjexPicBtn, &_sjexdsncnTjexPicBtnDesc},
    {&_sjexdsncnTjexPicSpeedBtn, &_sjexdsncnTjexPicSpeedBtnDesc},
    {&_sjexdsncnTjexRepSpeedBtn, &_sjexdsncnTjexRepSpeedBtnDesc},
    {&_sjexdsncnTjexToggleBtn, &_sjexdsncnTjexToggleBtnDesc},
    {&_sjexdsncnTjexMouseRegion, &_sjexdsncnTjexMouseRegionDesc},
    {&_sjexdsncnTjexMenuButton, &_sjexdsncnTjexMenuButtonDesc},
    {&_sjexdsncnTjexSizeButton, &_sjexdsncnTjexSizeButtonDesc},
    {&_sjexdsncnTjexWaveBtn, &_sjexdsncnTjexWaveBtnDesc},
    {&_sjexdsncnTjexWaveFileBtn, &_sjexdsncnTjexWaveFileBtnDesc},
    {&_sjexdsncnTjexFormButton, &_sjexdsncnTjexFormButtonDesc},
    {&_sjexdsncnTjexFormPicBtn, &_sjexdsncnTjexFormPicBtnDesc},
    {&_sjexdsncnTjexFormPicSpeedBtn, &_sjexdsncnTjexFormPicSpeedBtnDesc},
    {&_sjexdsncnTjexPushButton, &_sjexdsncnTjexPushButtonDesc},
    {&_sjexdsncnTjexButton, &_sjexdsncnTjexButtonDesc},
    {&_sjexdsncnTjexRotLabel, &_sjexdsncnTjexRotLabelDesc},
    {&_sjexdsncnTjexVersionLabel, &_sjexdsncnTjexVersionLabelDesc},
    {&_sjexdsncnTjexURLLabel, &_sjexdsncnTjexURLLabelDesc},
    {&_sjexdsncnTjexMultilineLabel, &_sjexdsncnTjexMultilineLabelDesc},
    {&_sjexdsncnTjexCurrencyLabel, &_sjexdsncnTjexCurrencyLabelDesc},
    {&_sjexdsncnTjexMouseLabel, &_sjexdsncnTjexMouseLabelDesc},
    {&_sjexdsncnTjexClockLabel, &_sjexdsncnTjexClockLabelDesc},
    {&_sjexdsncnTjexSuperLabel, &_sjexdsncnTjexSuperLabelDesc},
    {&_sjexdsncnTjexAutoLabel, &_sjexdsncnTjexAutoLabelDesc},
    {&_sjexdsncnTjexEditLabel, &_sjexdsncnTjexEditLabelDesc},
    {&_sjexdsncnTjexTitleGradient, &_sjexdsncnTjexTitleGradientDesc},
    {&_sjexdsncnTjexSingleInstance, &_sjexdsncnTjexSingleInstanceDesc},
    {&_sjexdsncnTjexLauncher, &_sjexdsncnTjexLauncherDesc},
    {&_sjexdsncnTjexFormSaver, &_sjexdsncnTjexFormSaverDesc},
    {&_sjexdsncnTjexFormSizer, &_sjexdsncnTjexFormSizerDesc},
    {&_sjexdsncnTjexStopWatch, &_sjexdsncnTjexStopWatchDesc},
    {&_sjexdsncnTjexMDIScroll, &_sjexdsncnTjexMDIScrollDesc},
    {&_sjexdsncnTjexFormMessageHook, &_sjexdsncnTjexFormMessageHookDesc},
    {&_sjexdsncnTjexLEdit, &_sjexdsncnTjexLEditDesc},
    {&_sjexdsncnTjexLMaskEdit, &_sjexdsncnTjexLMaskEditDesc},
    {&_sjexdsncnTjexLSpinEdit, &_sjexdsncnTjexLSpinEditDesc},
    {&_sjexdsncnTjexLMemo, &_sjexdsncnTjexLMemoDesc},
    {&_sjexdsncnTjexLListBox, &_sjexdsncnTjexLListBoxDesc},
    {&_sjexdsncnTjexLComboBox, &_sjexdsncnTjexLComboBoxDesc},
    {&_sjexdsncnTjexLImage, &_sjexdsncnTjexLImageDesc},
    {&_sjexdsncnTjexLPanel, &_sjexdsncnTjexLPanelDesc},
    {&_sjexdsncnTjexLScrollBox, &_sjexdsncnTjexLScrollBoxDesc},
    {&_sjexdsncnTjexLTreeView, &_sjexdsncnTjexLTreeViewDesc},
    {&_sjexdsncnTjexLDBText, &_sjexdsncnTjexLDBTextDesc},
    {&_sjexdsncnTjexLDBEdit, &_sjexdsncnTjexLDBEditDesc},
    {&_sjexdsncnTjexLDBAutoEdit, &_sjexdsncnTjexLDBAutoEditDesc},
    {&_sjexdsncnTjexLDBMemo, &_sjexdsncnTjexLDBMemoDesc},
    {&_sjexdsncnTjexLDBImage, &_sjexdsncnTjexLDBImageDesc},
    {&_sjexdsncnTjexLDBListBox, &_sjexdsncnTjexLDBListBoxDesc},
    {&_sjexdsncnTjexLDBComboBox, &_sjexdsncnTjexLDBComboBoxDesc},
    {&_sjexdsncnTjexLDBCheckBox, &_sjexdsncnTjexLDBCheckBoxDesc},
    {&_sjexdsncnTjexLDBRadioGroup, &_sjexdsncnTjexLDBRadioGroupDesc},
    {&_sjexdsncnTjexLDBLookupList, &_sjexdsncnLookupListDesc},
    {&_sjexdsncnTjexLDBLookupCombo, &_sjexdsncnTjexLDBLookupComboDesc},
    {&_sjexdsncnTjexLDBLookupListBox, &_sjexdsncnLookupListDesc},
    {&_sjexdsncnTjexLDBLookupComboBox, &_sjexdsncnTjexLDBLookupComboBoxDesc},
    {&_sjexdsncnTjexDBAppException, &_sjexdsncnTjexDBAppExceptionDesc},
    {&_sjexdsncnTjexDBQryAppException, &_sjexdsncnTjexDBQryAppExceptionDesc},
    {&_sjexdsncnTjexLocalTable, &_sjexdsncnTjexLocalTableDesc},
    {&_sjexdsncnTjexLocalQuery, &_sjexdsncnTjexLocalQueryDesc},
    {&_sjexdsncnTjexLocalDatabase, &_sjexdsncnTjexLocalDatabaseDesc},
    {&_sjexdsncnTjexDBIdleTime, &_sjexdsncnTjexDBIdleTimeDesc},
    {&_sjexdsncnTjexDBQueryGrid, &_sjexdsncnTjexDBQueryGridDesc},
    {&_sjexdsncnTjexDBTableGrid, &_sjexdsncnTjexDBTableGridDesc},
    {&_sjexdsncnTjexClientAdapterReg, &_sjexdsncnTjexClientAdapterRegDesc},
    {&_sjexdsncnTjexBDEAdapterReg, &_sjexdsncnTjexBDEAdapterRegDesc},
    {&_sjexdsncnTjexADOAdapterReg, &_sjexdsncnTjexADOAdapterRegDesc},
    {&_sjexdsncnTjexIBAdapterReg, &_sjexdsncnTjexIBAdapterRegDesc},
    {&_sjexdsncnTjexSQLAdapterReg, &_sjexdsncnTjexSQLAdapterRegDesc},
    {&_sjexdsncnTjexMDITabs, &_sjexdsncnTjexMDITabsDesc},
    {&_sjexdsncnTjexTrayIcon, &_sjexdsncnTjexTrayIconDesc},
    {&_sjexdsncnTjexDBDateTimePicker, &_sjexdsncnTjexDBDateTimePickerDesc},
    {&_sjexdsncnTjexDBMonthCalendar, &_sjexdsncnTjexDBMonthCalendarDesc},
    {&_sjexdsncnTjexFormTabControl, &_sjexdsncnTjexFormTabControlDesc},
    {&_sjexdsncnTjexMessageDlg, &_sjexdsncnTjexMessageDlgDesc},
    {&_sjexdsncnTjexProgressDlg, &_sjexdsncnTjexProgressDlgDesc},
    {&_sjexdsncnTjexIdleTimeout, &_sjexdsncnTjexIdleTimeoutDesc},
    {&_sjexdsncnTjexSpriteSurface, &_sjexdsncnTjexSpriteSurfaceDesc},
    {&_sjexdsncnTjexSpriteList, &_sjexdsncnTjexSpriteListDesc},
    {&_sjexdsncnTjexBitmapSpriteFactory, &_sjexdsncnTjexBitmapSpriteFactoryDesc},
    {&_sjexdsncnTjexMailToLabel, &_sjexdsncnTjexMailToLabelDesc},
};
} // namespace

namespace {
ide::TUnitGuard Guard;
std::vector<std::string> ClassNames;
std::vector<std::string> Descriptions;

const TCatalogueRow& Row(int Index) {
    if (Index < 0 || Index >= jexCatalogueCount)
        throw rtl::EListError(rtl::Format(rtl::SListIndexError, {Index}));
    return CatalogueRows[Index];
}
} // namespace

std::string jexIDEComponentDescription(const std::string& ClassName) {
    std::string Result;
    // The loop is bounded by the tables themselves: before the start they are empty and nothing is found.
    const size_t count = std::min(ClassNames.size(), Descriptions.size());
    for (size_t i = 0; i < count; ++i) {
        if (ClassNames[i] == ClassName) {
            Result = Descriptions[i];
            if (Result.compare(0, 2, "is") == 0) Result = ClassNames[i] + " " + Result;
            break;
        }
    }
    return Result;
}

const rtl::TResourceString& jexCatalogueClassNameString(int Index) {
    return *Row(Index).Name;
}

const rtl::TResourceString& jexCatalogueDescriptionString(int Index) {
    return *Row(Index).Description;
}

const std::vector<std::string>& jexCatalogueClassNames() {
    return ClassNames;
}

const std::vector<std::string>& jexCatalogueDescriptions() {
    return Descriptions;
}

namespace Jexdsncn {

void Start() {
    if (!Guard.Start()) return;
    ClassNames.clear();
    Descriptions.clear();
    ClassNames.reserve(jexCatalogueCount);
    Descriptions.reserve(jexCatalogueCount);
    for (const TCatalogueRow& row : CatalogueRows) {
        ClassNames.push_back(rtl::LoadResString(*row.Name));
        Descriptions.push_back(rtl::LoadResString(*row.Description));
    }
}

void Stop() {
    if (!Guard.Stop()) return;
    std::vector<std::string>().swap(ClassNames);
    std::vector<std::string>().swap(Descriptions);
}

} // namespace Jexdsncn

} // namespace dcljexc

// The description as the design host asks for it without linking the package: at most BufferSize - 1 bytes
// and a NUL go into Buffer, and the result is the description's full length (0 for an unknown class).
extern "C" __attribute__((visibility("default"))) size_t
JexComponentDescription(const char* ClassName, char* Buffer, size_t BufferSize) {
    std::string description;
    try {
        description = dcljexc::jexIDEComponentDescription(ClassName ? ClassName : "");
    } catch (...) {
        description.clear();
    }
    if (Buffer && BufferSize > 0) {
        const size_t n = std::min(description.size(), BufferSize - 1);
        std::memcpy(Buffer, description.data(), n);
        Buffer[n] = '\0';
    }
    return description.size();
}
