// The object inspector's model: the rows a host shows for the current selection (properties or events),
// flat or grouped by category, with sub-property rows, values set and dialogs run through each row's
// property editor. The host only renders rows and forwards a person's actions.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ide/designintf.h"
#include "ide/propedit.h"

namespace ide {

struct TInspectorRow {
    // A category header (grouped view) or a property.
    bool IsCategory = false;
    // Sub-property depth: 0 for the selection's own properties.
    int Level = 0;
    // Published name path from the selection ("Font", "Font.Style", "Font.Style.fsBold"); for a category
    // header, empty.
    std::string Path;
    // The published property name ("Style"); the category name on a header.
    std::string PropName;
    // The caption shown (the editor's GetName); the category name on a header.
    std::string Name;
    // The value shown: empty when the selected objects disagree or no value is available.
    std::string Value;
    TPropertyAttributes Attributes;
    std::string EditorClassName;
    // The categories of the property for the first selected object's class (top-level rows).
    std::vector<std::string> Categories;
    // The category this row is listed under in the grouped view; empty in the flat view.
    std::string Category;
    bool HasSubProperties = false;
    bool Expanded = false;
};

class TInspectorModel : private IDesignNotification {
public:
    // With a designer, the model follows that designer's selection and its changes by itself.
    explicit TInspectorModel(IDesigner* designer = nullptr);
    ~TInspectorModel() override;
    TInspectorModel(const TInspectorModel&) = delete;
    TInspectorModel& operator=(const TInspectorModel&) = delete;

    IDesigner* Designer() const { return FDesigner; }
    void SetDesigner(IDesigner* designer); // takes over the designer's current selection
    void SetSelection(const TDesignerSelectionList& selection);
    const TDesignerSelectionList& Selection() const { return FSelection; }
    // tkProperties (default) for the properties page, tkMethods for the events page.
    void SetFilter(TTypeKinds filter);
    TTypeKinds Filter() const { return FFilter; }
    void SetGroupByCategory(bool value);
    bool GroupByCategory() const { return FGrouped; }

    // Re-creates every editor (after registrations changed); expanded rows stay expanded.
    void Rebuild();
    // Re-reads values and attributes of every row.
    void Refresh();

    int RowCount();
    const TInspectorRow& Row(int index); // raises EListError out of range
    const std::vector<TInspectorRow>& Rows();
    // The first row with that path (ignoring case), -1 when none.
    int FindRow(const std::string& path);
    // The editor behind a property row (nil for a header); valid until the next rebuild.
    TPropertyEditor* Editor(int row);

    void Expand(int row);
    void Collapse(int row);
    // Sets a typed value through the row's editor. A read-only row raises EPropertyError "Property is
    // read-only"; an editor's error (EPropertyError, EConvertError ...) passes through with the value kept.
    void SetValue(int row, const std::string& text);
    // Convenience: the row with that path (EPropertyError "Property %s does not exist" when none).
    void SetValue(const std::string& path, const std::string& text);
    std::string Value(const std::string& path);
    // Runs the row's dialog (or steps to the next value for a value list without dialog).
    void Edit(int row);
    void Revert(int row);
    // The drop-down values, sorted ignoring case when the editor says paSortList.
    std::vector<std::string> GetValues(int row);

    // Owner-drawn drop-down lists: start from the host's default size, let the editor adjust it.
    int ListMeasureWidth(int row, const std::string& value, vcl::TCanvas* canvas, int defaultWidth);
    int ListMeasureHeight(int row, const std::string& value, vcl::TCanvas* canvas, int defaultHeight);
    void ListDrawValue(int row, const std::string& value, vcl::TCanvas* canvas, const vcl::TRect& rect,
                       bool selected);

private:
    struct TNode;
    void ItemDeleted(IDesigner* designer, TPersistent* item) override;
    void ItemsModified(IDesigner* designer) override;
    void SelectionChanged(IDesigner* designer, const TDesignerSelectionList& selection) override;
    void DesignerClosed(IDesigner* designer, bool goingDormant) override;

    void EnsureBuilt();
    void BuildNodes();
    void LoadChildren(TNode& node);
    void ReadNode(TNode& node);
    void Flatten();
    void FlattenNode(TNode& node, int level, const std::string& category);
    TNode& NodeOf(int row);
    void AfterChange();

    IDesigner* FDesigner;
    TDesignerSelectionList FSelection;
    TTypeKinds FFilter = tkProperties;
    bool FGrouped = false;
    bool FDirty = true; // nodes must be rebuilt
    bool FValuesDirty = false;
    std::vector<std::unique_ptr<TNode>> FNodes;
    std::vector<TInspectorRow> FRows;
    std::vector<TNode*> FRowNodes;
    std::vector<std::string> FExpandedPaths;
    int FUnloadHandler = 0;
    uint64_t FGeneration = 0;
};

} // namespace ide
