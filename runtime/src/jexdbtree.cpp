// The data-aware tree view: levels over master-detail data sources, loading, images and synchronisation.
#ifdef JEX_HAVE_DB

#include "jex/jexdbtree.h"

#include <algorithm>
#include <optional>

#include "jexpublish.h"

namespace jex {

using namespace vcl;

// ---- Levels ---------------------------------------------------------------------------------------------
// Tells the tree when the level's data set opens, closes or changes its records (not when it scrolls:
// the tree itself scrolls the data sets while loading).
class TjexDBTreeLevelLink : public db::TDataLink {
public:
    TjexDBTreeLevel* FLevel = nullptr;

protected:
    void ActiveChanged() override { Notify(); }
    void DataSetChanged() override { Notify(); }
    void DataSetScrolled(int) override {}
    void LayoutChanged() override { Notify(); }
    void RecordChanged(db::TField*) override {}

private:
    void Notify() {
        if (FLevel)
            if (TjexDBTreeView* tv = FLevel->TreeView()) tv->LevelDataChanged();
    }
};

JEX_IMPLEMENT_CLASS(TjexDBTreeLevel, rtl::TCollectionItem, "jexdbtree") {
    d.Property("DataField", &TjexDBTreeLevel::DataField, &TjexDBTreeLevel::SetDataField);
    d.Property("DataSource", &TjexDBTreeLevel::DataSource, &TjexDBTreeLevel::SetDataSource);
    d.Property("ImageField", &TjexDBTreeLevel::ImageField, &TjexDBTreeLevel::SetImageField);
    d.Property("OverlayImageField", &TjexDBTreeLevel::OverlayImageField,
               &TjexDBTreeLevel::SetOverlayImageField);
    d.Property("SelImageField", &TjexDBTreeLevel::SelImageField, &TjexDBTreeLevel::SetSelImageField);
    d.Property("StateImageField", &TjexDBTreeLevel::StateImageField, &TjexDBTreeLevel::SetStateImageField);
}

TjexDBTreeLevelData::TjexDBTreeLevelData() : FLink(std::make_unique<TjexDBTreeLevelLink>()) {}

TjexDBTreeLevelData::~TjexDBTreeLevelData() = default;

TjexDBTreeLevel::TjexDBTreeLevel(rtl::TCollection* Collection) : rtl::TCollectionItem(Collection) {
    FLink->FLevel = this;
}

TjexDBTreeLevel::~TjexDBTreeLevel() {
    FLink->FLevel = nullptr;
}

void TjexDBTreeLevel::Assign(rtl::TPersistent* Source) {
    if (auto* l = dynamic_cast<TjexDBTreeLevel*>(Source)) {
        FDataField = l->FDataField;
        FImageField = l->FImageField;
        FSelImageField = l->FSelImageField;
        FStateImageField = l->FStateImageField;
        FOverlayImageField = l->FOverlayImageField;
        SetDataSource(l->DataSource());
        Changed(false);
        return;
    }
    rtl::TCollectionItem::Assign(Source);
}

std::string TjexDBTreeLevel::GetDisplayName() const {
    db::TDataSource* s = DataSource();
    if (s && !s->Name().empty()) return s->Name() + (FDataField.empty() ? "" : "." + FDataField);
    return FDataField.empty() ? rtl::TCollectionItem::GetDisplayName() : FDataField;
}

db::TDataSource* TjexDBTreeLevel::DataSource() const {
    return FLink->DataSource();
}

void TjexDBTreeLevel::SetDataSource(db::TDataSource* Value) {
    if (Value == FLink->DataSource()) return;
    FLink->SetDataSource(Value);
    if (TjexDBTreeView* tv = TreeView(); tv && Value) Value->FreeNotification(tv);
    Changed(false);
}

db::TDataSet* TjexDBTreeLevel::DataSet() const {
    return FLink->DataSet();
}

TjexDBTreeView* TjexDBTreeLevel::TreeView() const {
    auto* levels = dynamic_cast<TjexDBTreeLevels*>(Collection());
    return levels ? levels->TreeView() : nullptr;
}

#define JEX_LEVEL_SETTER(Name)                                                                               \
    void TjexDBTreeLevel::Set##Name(const std::string& Value) {                                              \
        F##Name = Value;                                                                                     \
        Changed(false);                                                                                      \
    }
JEX_LEVEL_SETTER(DataField)
JEX_LEVEL_SETTER(ImageField)
JEX_LEVEL_SETTER(SelImageField)
JEX_LEVEL_SETTER(StateImageField)
JEX_LEVEL_SETTER(OverlayImageField)
#undef JEX_LEVEL_SETTER

JEX_IMPLEMENT_CLASS(TjexDBTreeLevels, rtl::TOwnedCollection, "jexdbtree") {}

TjexDBTreeLevels::TjexDBTreeLevels(TjexDBTreeView* TreeView)
    : rtl::TOwnedCollection(TreeView, TjexDBTreeLevel::StaticClass()), FTreeView(TreeView) {
    PropName = "DataSources";
}

void TjexDBTreeLevels::Update(rtl::TCollectionItem*) {
    if (FTreeView) FTreeView->LevelsChanged();
}

// ---- TjexDBTreeView --------------------------------------------------------------------------------------
JEX_DEFINE_ENUM(TjexDBTreeOption)
JEX_DEFINE_SET(TjexDBTreeOptions, TjexDBTreeOption)
JEX_DEFINE_EVENT_TYPE(TjexDBTreeGetTextEvent,
                      "Sender: TObject; Node: TTreeNode; Level: Integer; var Text: string")

JEX_IMPLEMENT_CLASS(TjexDBTreeView, TCustomTreeView, "jexdbtree") {
    using T = TjexDBTreeView;
    pub::Align(d);
    pub::Anchors(d);
    d.Property("AutoExpand", &T::AutoExpand, &T::SetAutoExpand).Default(false);
    d.Property("BorderStyle", &T::BorderStyle, &T::SetBorderStyle, TypeInfo_TBorderStyle()).Default(bsSingle);
    d.Property("ChangeDelay", &T::ChangeDelay, &T::SetChangeDelay).Default(0);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    d.Property("DataField", &T::DataField, &T::SetDataField).Stored(false);
    d.Property("DataSource", &T::DataSource, &T::SetDataSource).Stored(false);
    d.Property("DataSources", &T::DataSources, &T::SetDataSources);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("HideSelection", &T::HideSelection, &T::SetHideSelection).Default(true);
    d.Property("HotTrack", &T::HotTrack, &T::SetHotTrack).Default(false);
    d.Property("Images", &T::Images, &T::SetImages);
    d.Property("Indent", &T::Indent, &T::SetIndent).Default(19);
    d.Property("Options", &T::Options, &T::SetOptions)
        .Default(TjexDBTreeOptions{jdtAutoRefresh, jdtSyncDataSets}.Bits());
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &T::ReadOnly, &T::SetReadOnly).Default(true);
    d.Property("RightClickSelect", &T::RightClickSelect, &T::SetRightClickSelect).Default(false);
    d.Property("RowSelect", &T::RowSelect, &T::SetRowSelect).Default(false);
    d.Property("ShowButtons", &T::ShowButtons, &T::SetShowButtons).Default(true);
    pub::ShowHint(d);
    d.Property("ShowLines", &T::ShowLines, &T::SetShowLines).Default(true);
    d.Property("ShowRoot", &T::ShowRoot, &T::SetShowRoot).Default(true);
    d.Property("StateImages", &T::StateImages, &T::SetStateImages);
    d.Property("SyncJEXNavPanel", &T::SyncJEXNavPanel, &T::SetSyncJEXNavPanel).Default(false);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    d.Property("ToolTips", &T::ToolTips, &T::SetToolTips).Default(true);
    pub::Visible(d);
    d.Event("OnChange", &T::OnChange);
    d.Event("OnChanging", &T::OnChanging);
    pub::OnClick(d);
    d.Event("OnCollapsed", &T::OnCollapsed);
    d.Event("OnCollapsing", &T::OnCollapsing);
    pub::OnDblClick(d);
    d.Event("OnDeletion", &T::OnDeletion);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    d.Event("OnExpanded", &T::OnExpanded);
    d.Event("OnExpanding", &T::OnExpanding);
    d.Event("OnGetText", &T::OnGetText);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

TjexDBTreeView::TjexDBTreeView(rtl::TComponent* AOwner)
    : TCustomTreeView(AOwner), FLevels(std::make_unique<TjexDBTreeLevels>(this)) {
    SetReadOnly(true); // the nodes' texts are the records'
}

TjexDBTreeView::~TjexDBTreeView() {
    // The levels' links must not call back into a tree that is going away.
    FLoading = true;
    FLevels->BeginUpdate();
    FLevels->Clear();
}

db::TDataSource* TjexDBTreeView::DataSource() const {
    TjexDBTreeLevel* l = FLevels->Count() ? FLevels->Items(0) : nullptr;
    return l ? l->DataSource() : nullptr;
}

void TjexDBTreeView::SetDataSource(db::TDataSource* Value) {
    if (!FLevels->Count()) {
        if (!Value) return;
        FLevels->Add();
    }
    FLevels->Items(0)->SetDataSource(Value);
}

std::string TjexDBTreeView::DataField() const {
    TjexDBTreeLevel* l = FLevels->Count() ? FLevels->Items(0) : nullptr;
    return l ? l->DataField() : std::string();
}

void TjexDBTreeView::SetDataField(const std::string& Value) {
    if (!FLevels->Count()) {
        if (Value.empty()) return;
        FLevels->Add();
    }
    FLevels->Items(0)->SetDataField(Value);
}

void TjexDBTreeView::SetOptions(TjexDBTreeOptions Value) {
    FOptions = Value;
    if (Value.Contains(jdtFullExpand) && Items()->Count()) FullExpand();
}

void TjexDBTreeView::LevelsChanged() {
    if (IsLoading() || IsDestroying()) return;
    Reload();
}

void TjexDBTreeView::LevelDataChanged() {
    if (FLoading || IsLoading() || IsDestroying() || !FOptions.Contains(jdtAutoRefresh)) return;
    // A record being edited or inserted shows after it is posted (or dropped): the data set reports
    // that change too, and meanwhile the tree keeps its nodes.
    for (int i = 0; i < FLevels->Count(); ++i)
        if (db::TDataSet* ds = LevelDataSet(i);
            ds && (ds->State() == db::dsEdit || ds->State() == db::dsInsert))
            return;
    Reload();
}

void TjexDBTreeView::Loaded() {
    TCustomTreeView::Loaded();
    Reload();
}

db::TDataSet* TjexDBTreeView::LevelDataSet(int Level) const {
    TjexDBTreeLevel* l = Level >= 0 && Level < FLevels->Count() ? FLevels->Items(Level) : nullptr;
    return l ? l->DataSet() : nullptr;
}

const TjexDBTreeView::TNodeInfo* TjexDBTreeView::Info(const TTreeNode* Node) const {
    if (!Node || Node->Owner() != Items()) return nullptr;
    auto* info = static_cast<const TNodeInfo*>(Node->Data());
    return FInfoSet.count(info) ? info : nullptr;
}

int TjexDBTreeView::NodeLevel(const TTreeNode* Node) const {
    const TNodeInfo* i = Info(Node);
    return i ? i->Level : -1;
}

void TjexDBTreeView::Reload() {
    if (FLoading) return;
    FLoading = true;
    Items()->BeginUpdate();
    try {
        Items()->Clear();
        FInfos.clear();
        FInfoSet.clear();
        std::vector<db::TDataSet*> path;
        LoadLevel(0, nullptr, path);
    } catch (...) {
        Items()->EndUpdate();
        FLoading = false;
        throw;
    }
    Items()->EndUpdate();
    FLoading = false;
    if (FOptions.Contains(jdtFullExpand)) FullExpand();
    if (FOptions.Contains(jdtSelectFirst) && Items()->Count()) SetSelected(Items()->GetFirstNode());
}

namespace {
// An image index from a field of the current record, or nothing when the level has no such field.
std::optional<int> ImageOf(db::TDataSet* ds, const std::string& name) {
    if (name.empty()) return std::nullopt;
    db::TField* f = ds->FindField(name);
    if (!f) return std::nullopt;
    if (f->IsNull()) return -1;
    try {
        return f->AsInteger();
    } catch (const rtl::Exception&) {
        return -1;
    }
}
} // namespace

void TjexDBTreeView::LoadLevel(int Level, TTreeNode* Parent, std::vector<db::TDataSet*>& Path) {
    if (Level >= FLevels->Count()) return;
    TjexDBTreeLevel* lv = FLevels->Items(Level);
    db::TDataSet* ds = lv ? lv->DataSet() : nullptr;
    if (!ds || !ds->Active() || ds->State() != db::dsBrowse) return;
    // A data set already walked above this level would move its own parent records.
    if (std::find(Path.begin(), Path.end(), ds) != Path.end()) return;
    Path.push_back(ds);
    db::TField* textField = lv->DataField().empty() ? (ds->FieldCount() ? ds->Fields()->Fields(0) : nullptr)
                                                    : ds->FindField(lv->DataField());
    db::TBookmark mark = ds->GetBookmark();
    try {
        ds->First();
        while (!ds->Eof()) {
            auto info = std::make_unique<TNodeInfo>();
            info->Level = Level;
            info->Bookmark = ds->GetBookmark();
            std::string text = textField ? textField->DisplayText() : std::string();
            TTreeNode* node = Items()->AddChildObject(Parent, text, info.get());
            FInfoSet.insert(info.get());
            FInfos.push_back(std::move(info));
            if (auto i = ImageOf(ds, lv->ImageField())) node->SetImageIndex(*i);
            if (auto i = ImageOf(ds, lv->SelImageField())) node->SetSelectedIndex(*i);
            if (auto i = ImageOf(ds, lv->StateImageField())) node->SetStateIndex(*i);
            if (auto i = ImageOf(ds, lv->OverlayImageField())) node->SetOverlayIndex(*i);
            if (OnGetText) {
                std::string custom = text;
                OnGetText(this, node, Level, custom);
                if (custom != text) node->SetText(custom);
            }
            LoadLevel(Level + 1, node, Path);
            ds->Next();
        }
        if (!mark.empty() && ds->BookmarkValid(mark)) ds->GotoBookmark(mark);
    } catch (...) {
        Path.pop_back();
        throw;
    }
    Path.pop_back();
}

bool TjexDBTreeView::GotoNode(TTreeNode* Node) {
    if (!Info(Node)) return false;
    std::vector<TTreeNode*> chain;
    for (TTreeNode* n = Node; n; n = n->Parent())
        chain.push_back(n);
    std::reverse(chain.begin(), chain.end());
    FLoading = true;
    bool ok = true;
    try {
        for (TTreeNode* n : chain) {
            const TNodeInfo* info = Info(n);
            if (!info || info->Level >= FLevels->Count()) continue;
            db::TDataSet* ds = LevelDataSet(info->Level);
            if (!ds || !ds->Active() || !ds->BookmarkValid(info->Bookmark)) {
                ok = false;
                break;
            }
            ds->GotoBookmark(info->Bookmark);
        }
    } catch (...) {
        FLoading = false;
        throw;
    }
    FLoading = false;
    if (!ok) Reload();
    return ok;
}

TTreeNode* TjexDBTreeView::FindCurrentNode(int Level) const {
    if (Level < 0 || Level >= FLevels->Count()) return nullptr;
    db::TDataSet* ds = LevelDataSet(Level);
    if (!ds || !ds->Active() || ds->IsEmpty()) return nullptr;
    db::TBookmark current = ds->GetBookmark();
    for (int i = 0; i < Items()->Count(); ++i) {
        TTreeNode* node = Items()->Item(i);
        const TNodeInfo* info = Info(node);
        if (!info || info->Level != Level || info->Bookmark != current) continue;
        // Every parent's record must be current too.
        bool parentsCurrent = true;
        for (TTreeNode* p = node->Parent(); p && parentsCurrent; p = p->Parent()) {
            const TNodeInfo* pi = Info(p);
            db::TDataSet* pds = pi ? LevelDataSet(pi->Level) : nullptr;
            parentsCurrent = pds && pds->Active() && pds->GetBookmark() == pi->Bookmark;
        }
        if (parentsCurrent) return node;
    }
    return nullptr;
}

void TjexDBTreeView::SyncNavPanels(db::TDataSource* Source) {
    rtl::TComponent* root = Owner();
    while (root && root->Owner())
        root = root->Owner();
    if (!root) return;
    for (rtl::TComponent* c : root->ComponentList()) {
        // The navigator panels and toolbars of the library are matched by class name, since they live in
        // another unit; any class derived from them follows too.
        bool nav = false;
        for (rtl::TClass k = c->ClassType(); k && !nav; k = k->ClassParent())
            nav = k->ClassName() == "TjexNavPanel" || k->ClassName() == "TjexNavToolbar";
        if (!nav) continue;
        const rtl::TPropInfo* p = rtl::GetPropInfo(c, "DataSource");
        if (!p || p->PropType->Kind != rtl::tkClass || !p->SetObj) continue;
        try {
            rtl::SetObjectProp(c, *p, Source);
        } catch (const rtl::Exception&) {
            // A navigator that refuses this data source keeps its own.
        }
    }
}

void TjexDBTreeView::Change(TTreeNode* Node) {
    if (!FLoading && Node && !IsLoading() && !IsDestroying()) {
        int level = NodeLevel(Node);
        // A node whose record is gone reloads the tree: the node no longer exists afterwards.
        if (FOptions.Contains(jdtSyncDataSets) && !GotoNode(Node)) Node = nullptr;
        if (Node && FSyncJEXNavPanel && level >= 0 && level < FLevels->Count())
            if (TjexDBTreeLevel* l = FLevels->Items(level)) SyncNavPanels(l->DataSource());
    }
    TCustomTreeView::Change(Node);
}

static const TjexLibraryUnit<TjexDBTreeView> jexdbtreeUnit("jexdbtree");

} // namespace jex

#endif // JEX_HAVE_DB
