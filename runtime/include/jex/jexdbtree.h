// The data-aware tree view of jexc60: a tree loaded from several master-detail data sources, one level
// per entry of its DataSources collection.
#pragma once

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "db/dbtables.h"
#include "jex/jexcommon.h"
#include "vcl/comctrls.h"

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
    TjexDBTreeLevel* Add() { return dynamic_cast<TjexDBTreeLevel*>(rtl::TCollection::Add()); }
    // The level at Index; nil while that item is still being constructed (it announces itself to the
    // collection from its base's constructor).
    TjexDBTreeLevel* Items(int Index) const {
        return dynamic_cast<TjexDBTreeLevel*>(rtl::TCollection::Items(Index));
    }
    TjexDBTreeView* TreeView() const { return FTreeView; }
    void Update(rtl::TCollectionItem* Item) override;

private:
    TjexDBTreeView* FTreeView;
};

JEX_ENUM(TjexDBTreeOption, jdtAutoRefresh, jdtFullExpand, jdtSyncDataSets, jdtSelectFirst)
JEX_SET(TjexDBTreeOptions, TjexDBTreeOption)
JEX_EVENT_TYPE(TjexDBTreeGetTextEvent,
               void(rtl::TObject* Sender, vcl::TTreeNode* Node, int Level, std::string& Text))

// The tree view. Options: jdtAutoRefresh reloads when a level's data changes (a record being edited shows
// once it is posted); jdtFullExpand expands every node after loading; jdtSyncDataSets moves each level's
// data set to the selected node's records; jdtSelectFirst selects the first node after loading. With
// SyncJEXNavPanel the navigator panels and toolbars of the form follow the selected node's level (their
// DataSource). DataSource and DataField are the first level's (not stored: the levels are). OnDeletion
// tells of every node removed (reloading removes them all); OnGetText may change a node's text.
class TjexDBTreeView : public vcl::TCustomTreeView {
    JEX_CLASS(TjexDBTreeView, vcl::TCustomTreeView)
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

    // Builds the nodes again from the data sets (keeping each data set on its record).
    void Reload();
    // The level of a node (0 for the top), -1 for a node the tree did not load.
    int NodeLevel(const vcl::TTreeNode* Node) const;
    // Moves the data sets of the node's levels to its records, top level first; false when a record is
    // gone (the tree is then reloaded).
    bool GotoNode(vcl::TTreeNode* Node);
    // The node of a level whose record is its data set's current one (and its parents' too), or nil.
    vcl::TTreeNode* FindCurrentNode(int Level) const;
    void Loaded() override;

    TjexDBTreeGetTextEvent OnGetText;

    // Called by the levels.
    void LevelsChanged();
    void LevelDataChanged();

protected:
    void Change(vcl::TTreeNode* Node) override;

private:
    struct TNodeInfo {
        int Level = 0;
        db::TBookmark Bookmark;
    };
    const TNodeInfo* Info(const vcl::TTreeNode* Node) const;
    // The data set of a level (nil for a level without one, or still being made).
    db::TDataSet* LevelDataSet(int Level) const;
    void LoadLevel(int Level, vcl::TTreeNode* Parent, std::vector<db::TDataSet*>& Path);
    void SyncNavPanels(db::TDataSource* Source);
    std::unique_ptr<TjexDBTreeLevels> FLevels;
    std::vector<std::unique_ptr<TNodeInfo>> FInfos;
    std::unordered_set<const TNodeInfo*> FInfoSet;
    TjexDBTreeOptions FOptions{jdtAutoRefresh, jdtSyncDataSets};
    bool FSyncJEXNavPanel = false;
    bool FLoading = false;
};

} // namespace jex
