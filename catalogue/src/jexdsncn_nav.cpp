// Jexdsncn, navigator part: the catalogue of the navigator button kinds. Every text is a resource string
// under a fixed name, read when asked, so that a translated string table changes the wizard's lists,
// captions and hints without a restart; the class names are the classes' streaming names.
#include <string>

#include "dcljexc/jexdsncn.h"
#include "rtl/classes.h"

namespace dcljexc {

JEX_RESOURCESTRING(_sjexnpdsgnListGroup1, "Navigate");
JEX_RESOURCESTRING(_sjexnpdsgnListGroup2, "Edit Records");
JEX_RESOURCESTRING(_sjexnpdsgnListGroup3, "Mark & Locate Records");
JEX_RESOURCESTRING(_sjexnpdsgnListGroup4, "Sort & Filter Records");
JEX_RESOURCESTRING(_sjexnpdsgnListGroup5, "SQL Server Transactions");
JEX_RESOURCESTRING(_sjexnpdsgnListGroup6, "Other");

JEX_RESOURCESTRING(_sjexnpCapNone, "{no Caption}");
JEX_RESOURCESTRING(_sjexnpHintNone, "{no Hint}");
JEX_RESOURCESTRING(_sjexnpHintDownNone, "{no Hint Down}");
JEX_RESOURCESTRING(_sjexnpHintUpDown, "{Requires Up + Down Hints}");

namespace {

// One kind's texts; null where the kind has none. A null vertical bitmap means the horizontal one serves
// vertical panels too.
struct TNavRow {
    const rtl::TResourceString* ListName;
    const rtl::TResourceString* Bitmap;
    const rtl::TResourceString* VertBitmap;
    const rtl::TResourceString* Caption;
    const rtl::TResourceString* Hint;
    const rtl::TResourceString* HintDown;
};

} // namespace

// List names, in kind order.
JEX_RESOURCESTRING(_sjexnpdsgnListFirst, "First");
JEX_RESOURCESTRING(_sjexnpdsgnListJumpBack, "Jump Back");
JEX_RESOURCESTRING(_sjexnpdsgnListPrev, "Previous");
JEX_RESOURCESTRING(_sjexnpdsgnListNext, "Next");
JEX_RESOURCESTRING(_sjexnpdsgnListJumpFwd, "Jump Forward");
JEX_RESOURCESTRING(_sjexnpdsgnListLast, "Last");
JEX_RESOURCESTRING(_sjexnpdsgnListInsert, "Insert");
JEX_RESOURCESTRING(_sjexnpdsgnListAppend, "Append");
JEX_RESOURCESTRING(_sjexnpdsgnListDuplicateRec, "Duplicate Record");
JEX_RESOURCESTRING(_sjexnpdsgnListEdit, "Edit");
JEX_RESOURCESTRING(_sjexnpdsgnListDataSourceEdit, "Edit/View DataSource");
JEX_RESOURCESTRING(_sjexnpdsgnListBlobEdit, "Edit Memo/Picture");
JEX_RESOURCESTRING(_sjexnpdsgnListFindReplace, "Find/Replace Text");
JEX_RESOURCESTRING(_sjexnpdsgnListDelete, "Delete");
JEX_RESOURCESTRING(_sjexnpdsgnListCancel, "Cancel");
JEX_RESOURCESTRING(_sjexnpdsgnListPost, "Post");
JEX_RESOURCESTRING(_sjexnpdsgnListRefresh, "Refresh");
JEX_RESOURCESTRING(_sjexnpdsgnListEmptyTable, "Empty Table");
JEX_RESOURCESTRING(_sjexnpdsgnListBookmark, "Single Bookmark");
JEX_RESOURCESTRING(_sjexnpdsgnListBookmarkMenu, "Multiple Bookmark");
JEX_RESOURCESTRING(_sjexnpdsgnListFindKey, "Find Key");
JEX_RESOURCESTRING(_sjexnpdsgnListIndexCombo, "Index ComboBox");
JEX_RESOURCESTRING(_sjexnpdsgnListRange, "Range Filter");
JEX_RESOURCESTRING(_sjexnpdsgnListRangeEdit, "Range Edit Box");
JEX_RESOURCESTRING(_sjexnpdsgnListFilterActive, "Filter Active Control");
JEX_RESOURCESTRING(_sjexnpdsgnListFilterExpression, "Filter Expression");
JEX_RESOURCESTRING(_sjexnpdsgnListSQLStartTrans, "Start Transaction");
JEX_RESOURCESTRING(_sjexnpdsgnListSQLCommit, "Commit");
JEX_RESOURCESTRING(_sjexnpdsgnListSQLRollback, "Rollback");
JEX_RESOURCESTRING(_sjexnpdsgnListQueryParams, "Edit Query Params");
JEX_RESOURCESTRING(_sjexnpdsgnListDBInfo, "Show DB Info");
JEX_RESOURCESTRING(_sjexnpdsgnListState, "DB State Label");
JEX_RESOURCESTRING(_sjexnpdsgnListRecordCount, "DB RecordCount Label");
JEX_RESOURCESTRING(_sjexnpdsgnListCustom, "Custom Button");
JEX_RESOURCESTRING(_sjexnpdsgnListToggle, "Custom Up/Down Button");

// Glyph base names: every NAME stands for the bitmaps "JEXNP_" + NAME + "0" .. "5", one per glyph set.
JEX_RESOURCESTRING(_sjexnpdsgnBtnResFIRST, "FIRST");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResVFIRST, "VFIRST");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResJUMPB, "JUMPB");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResVJUMPB, "VJUMPB");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResPREV, "PREV");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResVPREV, "VPREV");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResNEXT, "NEXT");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResVNEXT, "VNEXT");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResJUMPF, "JUMPF");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResVJUMPF, "VJUMPF");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResLAST, "LAST");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResVLAST, "VLAST");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResINSERT, "INSERT");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResAPPEND, "APPEND");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResVAPPEND, "VAPPEND");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResDUPREC, "DUPREC");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResEDIT, "EDIT");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResDSEDIT, "DSEDIT");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResEDACT, "EDACT");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResFINDREP, "FINDREP");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResDELETE, "DELETE");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResCANCEL, "CANCEL");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResPOST, "POST");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResREFRESH, "REFRESH");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResEMPTY, "EMPTY");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResBMK, "BMK");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResBMKS, "BMKS");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResFIND, "FIND");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResRANGE, "RANGE");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResFILTACT, "FILTACT");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResFILTER, "FILTER");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResSTARTT, "STARTT");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResCOMMIT, "COMMIT");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResROLLBK, "ROLLBK");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResQRYPARM, "QRYPARM");
JEX_RESOURCESTRING(_sjexnpdsgnBtnResDBINFO, "DBINFO");

// Default captions.
JEX_RESOURCESTRING(_sjexnpCapFirst, "First");
JEX_RESOURCESTRING(_sjexnpCapJumpBack, "Back");
JEX_RESOURCESTRING(_sjexnpCapPrev, "Prev");
JEX_RESOURCESTRING(_sjexnpCapNext, "Next");
JEX_RESOURCESTRING(_sjexnpCapJumpFwd, "Forward");
JEX_RESOURCESTRING(_sjexnpCapLast, "Last");
JEX_RESOURCESTRING(_sjexnpCapInsert, "Insert");
JEX_RESOURCESTRING(_sjexnpCapAppend, "Append");
JEX_RESOURCESTRING(_sjexnpCapDuplicateRec, "Duplicate");
JEX_RESOURCESTRING(_sjexnpCapEdit, "Edit");
JEX_RESOURCESTRING(_sjexnpCapDataSourceEdit, "Edit...");
JEX_RESOURCESTRING(_sjexnpCapBlobEdit, "Edit Memo/Graphic");
JEX_RESOURCESTRING(_sjexnpCapFindReplace, "Find/Replace");
JEX_RESOURCESTRING(_sjexnpCapDelete, "Delete");
JEX_RESOURCESTRING(_sjexnpCapCancel, "Cancel");
JEX_RESOURCESTRING(_sjexnpCapPost, "Post");
JEX_RESOURCESTRING(_sjexnpCapRefresh, "Refresh");
JEX_RESOURCESTRING(_sjexnpCapEmptyTable, "Empty");
JEX_RESOURCESTRING(_sjexnpCapBookmark, "Bookmark");
JEX_RESOURCESTRING(_sjexnpCapBookmarkMenu, "Bookmarks");
JEX_RESOURCESTRING(_sjexnpCapFindKey, "Find Key");
JEX_RESOURCESTRING(_sjexnpCapRange, "Range");
JEX_RESOURCESTRING(_sjexnpCapFilterActive, "Filter Active");
JEX_RESOURCESTRING(_sjexnpCapFilterExpression, "Filter Expression");
JEX_RESOURCESTRING(_sjexnpCapSQLStartTrans, "Start Trans");
JEX_RESOURCESTRING(_sjexnpCapSQLCommit, "Commit");
JEX_RESOURCESTRING(_sjexnpCapSQLRollback, "Rollback");
JEX_RESOURCESTRING(_sjexnpCapQueryParams, "Query Params");
JEX_RESOURCESTRING(_sjexnpCapDBInfo, "DB Info");
JEX_RESOURCESTRING(_sjexnpCapCustom, "Custom");
JEX_RESOURCESTRING(_sjexnpCapToggle, "Up/Down");

// Default hints: the short hint, "|", the long hint.
JEX_RESOURCESTRING(_sjexnpHintFirst, "First|Move to the first record");
JEX_RESOURCESTRING(_sjexnpHintJumpBack, "Jump Back|Move back 10 records (hold down to repeat)");
JEX_RESOURCESTRING(_sjexnpHintPrev, "Previous|Move back to previous record (hold down to accelerate)");
JEX_RESOURCESTRING(_sjexnpHintNext, "Next|Move forward to next record (hold down to accelerate)");
JEX_RESOURCESTRING(_sjexnpHintJumpFwd, "Jump Forward|Move forward 10 records (hold down to repeat)");
JEX_RESOURCESTRING(_sjexnpHintLast, "Last|Move to last record");
JEX_RESOURCESTRING(_sjexnpHintInsert,
                   "Insert New Record|Add a new record at the current position in the records");
JEX_RESOURCESTRING(_sjexnpHintAppend, "Append New Record|Add a new record after the last record");
JEX_RESOURCESTRING(_sjexnpHintDuplicateRec,
                   "Duplicate Record|Copy the current record to a new record and edit the new record");
JEX_RESOURCESTRING(_sjexnpHintEdit, "Edit|Edit the current record");
JEX_RESOURCESTRING(_sjexnpHintDataSourceEdit,
                   "Edit %datasource%|Display a form to view or edit %datasource% records");
JEX_RESOURCESTRING(_sjexnpHintBlobEdit,
                   "Edit Memo/Graphic|Edit the current (Memo), (Graphic) or (Blob) field");
JEX_RESOURCESTRING(_sjexnpHintFindReplace,
                   "Find/Replace|Find or replace values in the current record or all records");
JEX_RESOURCESTRING(_sjexnpHintDelete, "Delete|Delete the current record");
JEX_RESOURCESTRING(_sjexnpHintCancel,
                   "Cancel Changes|Cancel new or changed record updates without saving changes");
JEX_RESOURCESTRING(_sjexnpHintPost, "Save Changes|Save new or changed records to the database");
JEX_RESOURCESTRING(_sjexnpHintRefresh, "Refresh Records|Refresh the screen display from the database");
JEX_RESOURCESTRING(_sjexnpHintEmptyTable, "Empty Table|Delete all records from the table");
JEX_RESOURCESTRING(_sjexnpHintBookmark, "Set Bookmark|Mark this record position with a bookmark");
JEX_RESOURCESTRING(_sjexnpHintBookmarkMenu, "Bookmark Menu|Show bookmark popup menu");
JEX_RESOURCESTRING(_sjexnpHintFindKey, "Find Key Value|Search for a record using key field values");
JEX_RESOURCESTRING(_sjexnpHintIndexCombo, "Sort by Index|Sort the records by a new index");
JEX_RESOURCESTRING(_sjexnpHintRange,
                   "Set/Clear Range Filter|Restrict the range of records by first and last key values");
JEX_RESOURCESTRING(_sjexnpHintRangeEdit,
                   "Filter range|Type a range expression for the key field, e.g. 1-100 or a-c");
JEX_RESOURCESTRING(
    _sjexnpHintFilterActive,
    "Add Filter on Current Field Value|Show only records with the same value as the active field");
JEX_RESOURCESTRING(
    _sjexnpHintFilterExpression,
    "Apply Filter|Apply a filter expression to the records (or right click to edit the filter expression)");
JEX_RESOURCESTRING(_sjexnpHintSQLStartTrans,
                   "Start Transaction|Start a transaction on the database so you can edit many records "
                   "before committing or rolling back changes");
JEX_RESOURCESTRING(_sjexnpHintSQLCommit, "Commit Transaction|Commit the current transaction on the database "
                                         "(makes all changes since the start permanent)");
JEX_RESOURCESTRING(_sjexnpHintSQLRollback, "Rollback Transaction|Undo the current transaction on the "
                                           "database (all changes since the start will be lost)");
JEX_RESOURCESTRING(_sjexnpHintQueryParams, "Edit Query Params|Edit the parameter values used in the query");
JEX_RESOURCESTRING(_sjexnpHintDBInfo,
                   "Show Database Info|Show debugging information about the current datasource");
JEX_RESOURCESTRING(_sjexnpHintCustom, "Custom Button|This is a custom button");
JEX_RESOURCESTRING(_sjexnpHintToggle, "Activate Button|Click to activate button");

// Hints of the pressed state of the two-state kinds.
JEX_RESOURCESTRING(_sjexnpHintDownBookmark, "Go To Bookmark|Return to the last bookmarked record");
JEX_RESOURCESTRING(_sjexnpHintDownFilterActive, "Remove Filter|Remove the filter on the active field value");
JEX_RESOURCESTRING(_sjexnpHintDownFilterExpression, "Remove Filter|Turn off this filter");
JEX_RESOURCESTRING(_sjexnpHintDownToggle, "Deactivate Button|Click to deactivate button");

const char* const JEXDesignNavClassNames[jexNavBtnKindCount] = {
    "TjexnpFirst",          "TjexnpJumpBack",
    "TjexnpPrev",           "TjexnpNext",
    "TjexnpJumpFwd",        "TjexnpLast",
    "TjexnpInsert",         "TjexnpAppend",
    "TjexnpDuplicateRec",   "TjexnpEdit",
    "TjexnpDataSourceEdit", "TjexnpBlobEdit",
    "TjexnpFindReplace",    "TjexnpDelete",
    "TjexnpCancel",         "TjexnpPost",
    "TjexnpRefresh",        "TjexnpEmptyTable",
    "TjexnpBookmark",       "TjexnpBookmarkMenu",
    "TjexnpFindKey",        "TjexnpIndexCombo",
    "TjexnpRange",          "TjexnpRangeEdit",
    "TjexnpFilterActive",   "TjexnpFilterExpression",
    "TjexnpSQLStartTrans",  "TjexnpSQLCommit",
    "TjexnpSQLRollback",    "TjexnpQueryParams",
    "TjexnpDBInfo",         "TjexnpState",
    "TjexnpRecordCount",    "TjexPicSpeedBtn",
    "TjexToggleBtn",
};

namespace {

const TNavRow NavRows[jexNavBtnKindCount] = {
    {&_sjexnpdsgnListFirst, &_sjexnpdsgnBtnResFIRST, &_sjexnpdsgnBtnResVFIRST, &_sjexnpCapFirst,
     &_sjexnpHintFirst, nullptr},
    {&_sjexnpdsgnListJumpBack, &_sjexnpdsgnBtnResJUMPB, &_sjexnpdsgnBtnResVJUMPB, &_sjexnpCapJumpBack,
     &_sjexnpHintJumpBack, nullptr},
    {&_sjexnpdsgnListPrev, &_sjexnpdsgnBtnResPREV, &_sjexnpdsgnBtnResVPREV, &_sjexnpCapPrev, &_sjexnpHintPrev,
     nullptr},
    {&_sjexnpdsgnListNext, &_sjexnpdsgnBtnResNEXT, &_sjexnpdsgnBtnResVNEXT, &_sjexnpCapNext, &_sjexnpHintNext,
     nullptr},
    {&_sjexnpdsgnListJumpFwd, &_sjexnpdsgnBtnResJUMPF, &_sjexnpdsgnBtnResVJUMPF, &_sjexnpCapJumpFwd,
     &_sjexnpHintJumpFwd, nullptr},
    {&_sjexnpdsgnListLast, &_sjexnpdsgnBtnResLAST, &_sjexnpdsgnBtnResVLAST, &_sjexnpCapLast, &_sjexnpHintLast,
     nullptr},
    {&_sjexnpdsgnListInsert, &_sjexnpdsgnBtnResINSERT, nullptr, &_sjexnpCapInsert, &_sjexnpHintInsert,
     nullptr},
    {&_sjexnpdsgnListAppend, &_sjexnpdsgnBtnResAPPEND, &_sjexnpdsgnBtnResVAPPEND, &_sjexnpCapAppend,
     &_sjexnpHintAppend, nullptr},
    {&_sjexnpdsgnListDuplicateRec, &_sjexnpdsgnBtnResDUPREC, nullptr, &_sjexnpCapDuplicateRec,
     &_sjexnpHintDuplicateRec, nullptr},
    {&_sjexnpdsgnListEdit, &_sjexnpdsgnBtnResEDIT, nullptr, &_sjexnpCapEdit, &_sjexnpHintEdit, nullptr},
    {&_sjexnpdsgnListDataSourceEdit, &_sjexnpdsgnBtnResDSEDIT, nullptr, &_sjexnpCapDataSourceEdit,
     &_sjexnpHintDataSourceEdit, nullptr},
    {&_sjexnpdsgnListBlobEdit, &_sjexnpdsgnBtnResEDACT, nullptr, &_sjexnpCapBlobEdit, &_sjexnpHintBlobEdit,
     nullptr},
    {&_sjexnpdsgnListFindReplace, &_sjexnpdsgnBtnResFINDREP, nullptr, &_sjexnpCapFindReplace,
     &_sjexnpHintFindReplace, nullptr},
    {&_sjexnpdsgnListDelete, &_sjexnpdsgnBtnResDELETE, nullptr, &_sjexnpCapDelete, &_sjexnpHintDelete,
     nullptr},
    {&_sjexnpdsgnListCancel, &_sjexnpdsgnBtnResCANCEL, nullptr, &_sjexnpCapCancel, &_sjexnpHintCancel,
     nullptr},
    {&_sjexnpdsgnListPost, &_sjexnpdsgnBtnResPOST, nullptr, &_sjexnpCapPost, &_sjexnpHintPost, nullptr},
    {&_sjexnpdsgnListRefresh, &_sjexnpdsgnBtnResREFRESH, nullptr, &_sjexnpCapRefresh, &_sjexnpHintRefresh,
     nullptr},
    {&_sjexnpdsgnListEmptyTable, &_sjexnpdsgnBtnResEMPTY, nullptr, &_sjexnpCapEmptyTable,
     &_sjexnpHintEmptyTable, nullptr},
    {&_sjexnpdsgnListBookmark, &_sjexnpdsgnBtnResBMK, nullptr, &_sjexnpCapBookmark, &_sjexnpHintBookmark,
     &_sjexnpHintDownBookmark},
    {&_sjexnpdsgnListBookmarkMenu, &_sjexnpdsgnBtnResBMKS, nullptr, &_sjexnpCapBookmarkMenu,
     &_sjexnpHintBookmarkMenu, nullptr},
    {&_sjexnpdsgnListFindKey, &_sjexnpdsgnBtnResFIND, nullptr, &_sjexnpCapFindKey, &_sjexnpHintFindKey,
     nullptr},
    {&_sjexnpdsgnListIndexCombo, nullptr, nullptr, nullptr, &_sjexnpHintIndexCombo, nullptr},
    {&_sjexnpdsgnListRange, &_sjexnpdsgnBtnResRANGE, nullptr, &_sjexnpCapRange, &_sjexnpHintRange, nullptr},
    {&_sjexnpdsgnListRangeEdit, nullptr, nullptr, nullptr, &_sjexnpHintRangeEdit, nullptr},
    {&_sjexnpdsgnListFilterActive, &_sjexnpdsgnBtnResFILTACT, nullptr, &_sjexnpCapFilterActive,
     &_sjexnpHintFilterActive, &_sjexnpHintDownFilterActive},
    {&_sjexnpdsgnListFilterExpression, &_sjexnpdsgnBtnResFILTER, nullptr, &_sjexnpCapFilterExpression,
     &_sjexnpHintFilterExpression, &_sjexnpHintDownFilterExpression},
    {&_sjexnpdsgnListSQLStartTrans, &_sjexnpdsgnBtnResSTARTT, nullptr, &_sjexnpCapSQLStartTrans,
     &_sjexnpHintSQLStartTrans, nullptr},
    {&_sjexnpdsgnListSQLCommit, &_sjexnpdsgnBtnResCOMMIT, nullptr, &_sjexnpCapSQLCommit,
     &_sjexnpHintSQLCommit, nullptr},
    {&_sjexnpdsgnListSQLRollback, &_sjexnpdsgnBtnResROLLBK, nullptr, &_sjexnpCapSQLRollback,
     &_sjexnpHintSQLRollback, nullptr},
    {&_sjexnpdsgnListQueryParams, &_sjexnpdsgnBtnResQRYPARM, nullptr, &_sjexnpCapQueryParams,
     &_sjexnpHintQueryParams, nullptr},
    {&_sjexnpdsgnListDBInfo, &_sjexnpdsgnBtnResDBINFO, nullptr, &_sjexnpCapDBInfo, &_sjexnpHintDBInfo,
     nullptr},
    {&_sjexnpdsgnListState, nullptr, nullptr, nullptr, nullptr, nullptr},
    {&_sjexnpdsgnListRecordCount, nullptr, nullptr, nullptr, nullptr, nullptr},
    {&_sjexnpdsgnListCustom, nullptr, nullptr, &_sjexnpCapCustom, &_sjexnpHintCustom, nullptr},
    {&_sjexnpdsgnListToggle, nullptr, nullptr, &_sjexnpCapToggle, &_sjexnpHintToggle, &_sjexnpHintDownToggle},
};

// The row of Kind, or null outside the catalogue.
const TNavRow* Row(int Kind) {
    if (Kind < 0 || Kind >= jexNavBtnKindCount) return nullptr;
    return &NavRows[Kind];
}

// The text of s, translated where a translation is installed; Fallback when the kind has no such text.
std::string TextOr(const rtl::TResourceString* s, const rtl::TResourceString& Fallback) {
    return rtl::LoadResString(s ? *s : Fallback);
}

} // namespace

std::string JEXDesignNavBtnListName(int Kind) {
    const TNavRow* row = Row(Kind);
    return rtl::LoadResString(*(row ? row : &NavRows[0])->ListName);
}

rtl::TClass JEXDesignNavComponentClass(int Kind) {
    if (!Row(Kind)) return nullptr;
    return rtl::GetClass(JEXDesignNavClassNames[Kind]);
}

std::string JEXDesignNavBmpResName(int Kind) {
    const TNavRow* row = Row(Kind);
    return row && row->Bitmap ? rtl::LoadResString(*row->Bitmap) : std::string();
}

std::string JEXDesignNavVertBmpResName(int Kind) {
    const TNavRow* row = Row(Kind);
    if (row && row->VertBitmap) return rtl::LoadResString(*row->VertBitmap);
    return JEXDesignNavBmpResName(Kind);
}

std::string JEXDesignNavComponentCaption(int Kind) {
    const TNavRow* row = Row(Kind);
    return TextOr(row ? row->Caption : nullptr, _sjexnpCapNone);
}

std::string JEXDesignNavComponentHint(int Kind) {
    const TNavRow* row = Row(Kind);
    return TextOr(row ? row->Hint : nullptr, _sjexnpHintNone);
}

std::string JEXDesignNavComponentHintDown(int Kind) {
    const TNavRow* row = Row(Kind);
    return TextOr(row ? row->HintDown : nullptr, _sjexnpHintDownNone);
}

} // namespace dcljexc
