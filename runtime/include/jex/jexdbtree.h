// The data-aware tree view of jexc60: a tree loaded from several master-detail data sources, one level
// per entry of its DataSources collection.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "db/dbtables.h"
#include "jex/jexcommon.h"
#include "vcl/imglist.h"
#include "vcl/outline.h"

namespace jex {

class TjexDBTreeView;
class TjexDBTreeLevel;
class TjexDBTreeLevelLink;

// The settings of a tree level. They live in a base constructed before the collection item, because the
// item announces itself to its collection (which reloads the tree) while it is being constructed.
class TjexDBTreeLevelData {
public:
    TjexDBTreeLevelData();
    ~TjexDBTreeLevelData();
    TjexDBTreeLevelData(const TjexDBTreeLevelData&) = delete;
    TjexDBTreeLevelData& operator=(const TjexDBTreeLevelData&) = delete;

protected:
    std::unique_ptr<TjexDBTreeLevelLink> FLink;
    std::string FDataField, FImageField, FSelImageField, FStateImageField, FOverlayImageField;
};

// One level of the tree: the records of DataSource's data set become the nodes of this level (under each
// node of the level above, whose record is then current, so that a detail data set shows that master's
// records). DataField gives the node text; the image fields give image indexes of the tree's Images.
class TjexDBTreeLevel : public TjexDBTreeLevelData, public rtl::TCollectionItem {
    JEX_CLASS(TjexDBTreeLevel, rtl::TCollectionItem)
    explicit TjexDBTreeLevel(rtl::TCollection* Collection);
    ~TjexDBTreeLevel() override;
    void Assign(rtl::TPersistent* Source) override;
    std::string GetDisplayName() const override;

    db::TDataSource* DataSource() const;
    void SetDataSource(db::TDataSource* Value);
    std::string DataField() const { return FDataField; }
    void SetDataField(const std::string& Value);
    std::string ImageField() const { return FImageField; }
    void SetImageField(const std::string& Value);
    std::string SelImageField() const { return FSelImageField; }
    void SetSelImageField(const std::string& Value);
    std::string StateImageField() const { return FStateImageField; }
    void SetStateImageField(const std::string& Value);
    std::string OverlayImageField() const { return FOverlayImageField; }
    void SetOverlayImageField(const std::string& Value);
    db::TDataSet* DataSet() const;
    TjexDBTreeView* TreeView() const;
};

class TjexDBTreeLevels : public rtl::TOwnedCollection {
    JEX_CLASS(TjexDBTreeLevels, rtl::TOwnedCollection)
    explicit TjexDBTreeLevels(TjexDBTreeView* TreeView);
    TjexDBTreeLevel* Add() { return static_cast<TjexDBTreeLevel*>(rtl::TCollection::Add()); }
    TjexDBTreeLevel* Items(int Index) const {
        return static_cast<TjexDBTreeLevel*>(rtl::TCollection::Items(Index));
    }
    TjexDBTreeView* TreeView() const { return FTreeView; }
    void Update(rtl::TCollectionItem* Item) override;

private:
    TjexDBTreeView* FTreeView;
};

JEX_ENUM(TjexDBTreeOption, jdtAutoRefresh, jdtFullExpand, jdtSyncDataSets, jdtSelectFirst)
JEX_SET(TjexDBTreeOptions, TjexDBTreeOption)
JEX_EVENT_TYPE(TjexDBTreeNodeEvent, void(rtl::TObject* Sender, vcl::TOutlineNode* Node))
JEX_EVENT_TYPE(TjexDBTreeGetTextEvent,
               void(rtl::TObject* Sender, vcl::TOutlineNode* Node, int Level, std::string& Text))

// The tree view. Options: jdtAutoRefresh reloads when a level's data changes; jdtFullExpand expands every
// node after loading; jdtSyncDataSets moves each level's data set to the selected node's records;
// jdtSelectFirst selects the first node after loading. With SyncJEXNavPanel the navigator panels and
// toolbars of the form follow the selected node's level (their DataSource). DataSource and DataField are
// the first level's (not stored: the levels are).
class TjexDBTreeView : public vcl::TCustomOutline {
    JEX_CLASS(TjexDBTreeView, vcl::TCustomOutline)
    explicit TjexDBTreeView(rtl::TComponent* AOwner);
    ~TjexDBTreeView() override;

    TjexDBTreeLevels* DataSources() const { return FLevels.get(); }
    void SetDataSources(TjexDBTreeLevels* Value) { FLevels->Assign(Value); }
    db::TDataSource* DataSource() const;
    void SetDataSource(db::TDataSource* Value);
    std::string DataField() const;
    void SetDataField(const std::string& Value);
    TjexDBTreeOptions Options() const { return FOptions; }
    void SetOptions(TjexDBTreeOptions Value);
    bool SyncJEXNavPanel() const { return FSyncJEXNavPanel; }
    void SetSyncJEXNavPanel(bool Value) { FSyncJEXNavPanel = Value; }
    vcl::TCustomImageList* Images() const { return FImages; }
    void SetImages(vcl::TCustomImageList* Value);

    // Builds the nodes again from the data sets (keeping each data set on its record).
    void Reload();
    // The level of a node (0 for the top) and its images, from its record.
    int NodeLevel(int Index) const;
    int NodeImageIndex(int Index) const;
    int NodeSelectedIndex(int Index) const;
    int NodeStateIndex(int Index) const;
    int NodeOverlayIndex(int Index) const;
    // Moves the data sets of the node's levels to its records, top level first; false when a record is
    // gone (the tree is then reloaded).
    bool GotoNode(int Index);
    // The node of a level whose record is the data set's current one under the current parents, or 0.
    int FindCurrentNode(int Level) const;

    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;
    void Loaded() override;

    TjexDBTreeNodeEvent OnDeletion;
    TjexDBTreeGetTextEvent OnGetText;

    // Called by the levels.
    void LevelsChanged();
    void LevelDataChanged();

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    struct TNodeInfo {
        int Level = 0;
        db::TBookmark Bookmark;
        int ImageIndex = -1, SelectedIndex = -1, StateIndex = -1, OverlayIndex = -1;
    };
    const TNodeInfo* Info(int Index) const;
    void ClearNodes();
    void LoadLevel(int Level, int ParentIndex, std::vector<db::TDataSet*>& Path);
    void SyncNavPanels(db::TDataSource* Source);
    std::unique_ptr<TjexDBTreeLevels> FLevels;
    std::vector<std::unique_ptr<TNodeInfo>> FInfos;
    TjexDBTreeOptions FOptions{jdtAutoRefresh, jdtSyncDataSets};
    vcl::TCustomImageList* FImages = nullptr;
    bool FSyncJEXNavPanel = false;
    bool FLoading = false;
};

} // namespace jex
