// The data-aware tree view: levels over master-detail data sources, loading, images and synchronisation.
#ifdef JEX_HAVE_DB

#include "jex/jexdbtree.h"

#include <algorithm>

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
JEX_DEFINE_EVENT_TYPE(TjexDBTreeNodeEvent, "Sender: TObject; Node: TOutlineNode")
JEX_DEFINE_EVENT_TYPE(TjexDBTreeGetTextEvent,
                      "Sender: TObject; Node: TOutlineNode; Level: Integer; var Text: string")

JEX_IMPLEMENT_CLASS(TjexDBTreeView, TCustomOutline, "jexdbtree") {
    pub::Align(d);
    pub::Anchors(d);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    d.Property("DataField", &TjexDBTreeView::DataField, &TjexDBTreeView::SetDataField).Stored(false);
    d.Property("DataSource", &TjexDBTreeView::DataSource, &TjexDBTreeView::SetDataSource).Stored(false);
    d.Property("DataSources", &TjexDBTreeView::DataSources, &TjexDBTreeView::SetDataSources);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("Images", &TjexDBTreeView::Images, &TjexDBTreeView::SetImages);
    d.Property("Options", &TjexDBTreeView::Options, &TjexDBTreeView::SetOptions)
        .Default(TjexDBTreeOptions{jdtAutoRefresh, jdtSyncDataSets}.Bits());
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("SyncJEXNavPanel", &TjexDBTreeView::SyncJEXNavPanel, &TjexDBTreeView::SetSyncJEXNavPanel)
        .Default(false);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
    pub::OnClick(d);
    d.Event("OnCollapse", &TjexDBTreeView::OnCollapse);
    pub::OnDblClick(d);
    d.Event("OnDeletion", &TjexDBTreeView::OnDeletion);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    d.Event("OnExpand", &TjexDBTreeView::OnExpand);
    d.Event("OnGetText", &TjexDBTreeView::OnGetText);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

TjexDBTreeView::TjexDBTreeView(rtl::TComponent* AOwner)
    : TCustomOutline(AOwner), FLevels(std::make_unique<TjexDBTreeLevels>(this)) {}

TjexDBTreeView::~TjexDBTreeView() {
    // The levels' links must not call back into a tree that is going away.
    FLoading = true;
    FLevels->BeginUpdate();
    FLevels->Clear();
}

db::TDataSource* TjexDBTreeView::DataSource() const {
    return FLevels->Count() ? FLevels->Items(0)->DataSource() : nullptr;
}

void TjexDBTreeView::SetDataSource(db::TDataSource* Value) {
    if (!FLevels->Count()) {
        if (!Value) return;
        FLevels->Add();
    }
    FLevels->Items(0)->SetDataSource(Value);
}

std::string TjexDBTreeView::DataField() const {
    return FLevels->Count() ? FLevels->Items(0)->DataField() : std::string();
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
    if (Value.Contains(jdtFullExpand) && ItemCount()) FullExpand();
}

void TjexDBTreeView::SetImages(TCustomImageList* Value) {
    if (FImages == Value) return;
    if (FImages) FImages->RemoveFreeNotification(this);
    FImages = Value;
    if (FImages) FImages->FreeNotification(this);
}

void TjexDBTreeView::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TCustomOutline::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FImages) FImages = nullptr;
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
        if (db::TDataSet* ds = FLevels->Items(i)->DataSet();
            ds && (ds->State() == db::dsEdit || ds->State() == db::dsInsert))
            return;
    Reload();
}

void TjexDBTreeView::Loaded() {
    TCustomOutline::Loaded();
    Reload();
}

const TjexDBTreeView::TNodeInfo* TjexDBTreeView::Info(int Index) const {
    if (Index < 1 || Index > ItemCount()) return nullptr;
    return static_cast<const TNodeInfo*>(Items(Index)->Data());
}

int TjexDBTreeView::NodeLevel(int Index) const {
    const TNodeInfo* i = Info(Index);
    return i ? i->Level : -1;
}

int TjexDBTreeView::NodeImageIndex(int Index) const {
    const TNodeInfo* i = Info(Index);
    return i ? i->ImageIndex : -1;
}

int TjexDBTreeView::NodeSelectedIndex(int Index) const {
    const TNodeInfo* i = Info(Index);
    return i ? i->SelectedIndex : -1;
}

int TjexDBTreeView::NodeStateIndex(int Index) const {
    const TNodeInfo* i = Info(Index);
    return i ? i->StateIndex : -1;
}

int TjexDBTreeView::NodeOverlayIndex(int Index) const {
    const TNodeInfo* i = Info(Index);
    return i ? i->OverlayIndex : -1;
}

void TjexDBTreeView::ClearNodes() {
    if (OnDeletion)
        for (int i = ItemCount(); i >= 1; --i)
            OnDeletion(this, Items(i));
    Clear();
    FInfos.clear();
}

void TjexDBTreeView::Reload() {
    if (FLoading) return;
    FLoading = true;
    BeginUpdate();
    try {
        ClearNodes();
        std::vector<db::TDataSet*> path;
        LoadLevel(0, 0, path);
    } catch (...) {
        EndUpdate();
        FLoading = false;
        throw;
    }
    EndUpdate();
    FLoading = false;
    if (FOptions.Contains(jdtFullExpand)) FullExpand();
    if (FOptions.Contains(jdtSelectFirst) && ItemCount()) SetSelectedItem(1);
}

namespace {
int ImageOf(db::TDataSet* ds, const std::string& name) {
    if (name.empty()) return -1;
    db::TField* f = ds->FindField(name);
    if (!f || f->IsNull()) return -1;
    try {
        return f->AsInteger();
    } catch (const rtl::Exception&) {
        return -1;
    }
}
} // namespace

void TjexDBTreeView::LoadLevel(int Level, int ParentIndex, std::vector<db::TDataSet*>& Path) {
    if (Level >= FLevels->Count()) return;
    TjexDBTreeLevel* lv = FLevels->Items(Level);
    db::TDataSet* ds = lv->DataSet();
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
            info->ImageIndex = ImageOf(ds, lv->ImageField());
            info->SelectedIndex = ImageOf(ds, lv->SelImageField());
            info->StateIndex = ImageOf(ds, lv->StateImageField());
            info->OverlayIndex = ImageOf(ds, lv->OverlayImageField());
            std::string text = textField ? textField->DisplayText() : std::string();
            int index = AddChildObject(ParentIndex, text, info.get());
            FInfos.push_back(std::move(info));
            if (OnGetText) {
                std::string custom = text;
                OnGetText(this, Items(index), Level, custom);
                if (custom != text) Items(index)->SetText(custom);
            }
            LoadLevel(Level + 1, index, Path);
            ds->Next();
        }
        if (!mark.empty() && ds->BookmarkValid(mark)) ds->GotoBookmark(mark);
    } catch (...) {
        Path.pop_back();
        throw;
    }
    Path.pop_back();
}

bool TjexDBTreeView::GotoNode(int Index) {
    if (Index < 1 || Index > ItemCount()) return false;
    std::vector<TOutlineNode*> chain;
    for (TOutlineNode* n = Items(Index); n && n->Level() >= 1; n = n->Parent())
        chain.push_back(n);
    std::reverse(chain.begin(), chain.end());
    FLoading = true;
    bool ok = true;
    try {
        for (TOutlineNode* n : chain) {
            auto* info = static_cast<const TNodeInfo*>(n->Data());
            if (!info || info->Level >= FLevels->Count()) continue;
            db::TDataSet* ds = FLevels->Items(info->Level)->DataSet();
            if (!ds || !ds->Active()) {
                ok = false;
                break;
            }
            if (!ds->BookmarkValid(info->Bookmark)) {
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

int TjexDBTreeView::FindCurrentNode(int Level) const {
    if (Level < 0 || Level >= FLevels->Count()) return 0;
    db::TDataSet* ds = FLevels->Items(Level)->DataSet();
    if (!ds || !ds->Active() || ds->IsEmpty()) return 0;
    db::TBookmark current = ds->GetBookmark();
    for (int i = 1; i <= ItemCount(); ++i) {
        const TNodeInfo* info = Info(i);
        if (!info || info->Level != Level || info->Bookmark != current) continue;
        // Every parent's record must be current too.
        bool parentsCurrent = true;
        for (TOutlineNode* p = Items(i)->Parent(); p && p->Level() >= 1 && parentsCurrent; p = p->Parent()) {
            auto* pi = static_cast<const TNodeInfo*>(p->Data());
            db::TDataSet* pds =
                pi && pi->Level < FLevels->Count() ? FLevels->Items(pi->Level)->DataSet() : nullptr;
            parentsCurrent = pds && pds->Active() && pds->GetBookmark() == pi->Bookmark;
        }
        if (parentsCurrent) return i;
    }
    return 0;
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

void TjexDBTreeView::UserSelect(int Index) {
    TCustomOutline::UserSelect(Index);
    int level = NodeLevel(Index);
    if (FOptions.Contains(jdtSyncDataSets)) GotoNode(Index);
    if (FSyncJEXNavPanel && level >= 0 && level < FLevels->Count())
        SyncNavPanels(FLevels->Items(level)->DataSource());
}

void TjexDBTreeView::UserSelectText(const std::string& Text) {
    int i = GetTextItem(Text);
    if (!i) throw EUserActionError("No node '" + Text + "' in " + Name());
    UserSelect(i);
}

static const TjexLibraryUnit<TjexDBTreeView> jexdbtreeUnit("jexdbtree");

} // namespace jex

#endif // JEX_HAVE_DB
