// The object inspector model: a tree of property editors for the selection, flattened into rows.
#include "ide/inspector.h"

#include <algorithm>

#include "ide/categories.h"
#include "ide/modules.h"
#include "registry_internal.h"

namespace ide {

using namespace rtl;

struct TInspectorModel::TNode {
    TPropertyEditorPtr Editor;
    TInspectorRow Row;
    std::vector<std::unique_ptr<TNode>> Children;
    bool ChildrenLoaded = false;
};

TInspectorModel::TInspectorModel(IDesigner* designer) : FDesigner(designer) {
    RegisterDesignNotification(this);
    // Editors of an unloading package must be gone before its code is.
    FUnloadHandler = AddModuleUnloadHandler([this](TModuleHandle) {
        FNodes.clear();
        FRows.clear();
        FRowNodes.clear();
        FDirty = true;
    });
    if (designer) designer->GetSelections(FSelection);
}

TInspectorModel::~TInspectorModel() {
    RemoveModuleUnloadHandler(FUnloadHandler);
    UnregisterDesignNotification(this);
}

void TInspectorModel::SetDesigner(IDesigner* designer) {
    FDesigner = designer;
    FSelection.Clear();
    if (designer) designer->GetSelections(FSelection);
    FDirty = true;
}

void TInspectorModel::SetSelection(const TDesignerSelectionList& selection) {
    FSelection = selection;
    FDirty = true;
}

void TInspectorModel::SetFilter(TTypeKinds filter) {
    if (filter == FFilter) return;
    FFilter = filter;
    FDirty = true;
}

void TInspectorModel::SetGroupByCategory(bool value) {
    if (value == FGrouped) return;
    FGrouped = value;
    if (!FDirty) Flatten();
}

void TInspectorModel::Rebuild() {
    FDirty = true;
}

// ---- Design notifications
// ------------------------------------------------------------------------------------
void TInspectorModel::ItemDeleted(IDesigner* designer, TPersistent* item) {
    if (FSelection.Remove(item)) FDirty = true;
}

void TInspectorModel::ItemsModified(IDesigner* designer) {
    if (designer == FDesigner) FValuesDirty = true;
}

void TInspectorModel::SelectionChanged(IDesigner* designer, const TDesignerSelectionList& selection) {
    if (designer == FDesigner) SetSelection(selection);
}

void TInspectorModel::DesignerClosed(IDesigner* designer, bool) {
    if (designer != FDesigner) return;
    FDesigner = nullptr;
    FSelection.Clear();
    FDirty = true;
}

// ---- Building
// -------------------------------------------------------------------------------------------------------
void TInspectorModel::EnsureBuilt() {
    if (FDirty || FGeneration != detail::RegistryGeneration()) {
        BuildNodes();
        Flatten();
        FDirty = false;
        FValuesDirty = false;
        FGeneration = detail::RegistryGeneration();
    } else if (FValuesDirty) {
        Refresh();
    }
}

void TInspectorModel::ReadNode(TNode& node) {
    TPropertyEditor* e = node.Editor.get();
    TInspectorRow& r = node.Row;
    r.Attributes = e->GetAttributes();
    r.Name = e->GetName();
    r.EditorClassName = e->ClassName();
    r.HasSubProperties = r.Attributes.Contains(paSubProperties);
    try {
        r.Value = e->ValueAvailable() ? e->GetVisualValue() : std::string();
    } catch (const Exception&) {
        r.Value.clear();
    }
}

void TInspectorModel::BuildNodes() {
    FNodes.clear();
    if (FSelection.Empty()) return;
    TClass firstClass = FSelection[0]->ClassType();
    GetComponentProperties(FSelection, FFilter, FDesigner, [&](TPropertyEditorPtr editor) {
        auto node = std::make_unique<TNode>();
        const TPropInfo* p = editor->GetPropInfo();
        node->Row.PropName = p ? p->Name : editor->GetName();
        node->Row.Path = node->Row.PropName;
        node->Row.Categories = GetPropertyCategories(firstClass, p);
        node->Editor = std::move(editor);
        ReadNode(*node);
        FNodes.push_back(std::move(node));
    });
    // Rows that were open stay open across rebuilds.
    std::function<void(TNode&)> reopen = [&](TNode& n) {
        bool open = std::any_of(FExpandedPaths.begin(), FExpandedPaths.end(),
                                [&](const std::string& s) { return SameText(s, n.Row.Path); });
        if (!open || !n.Row.HasSubProperties) return;
        LoadChildren(n);
        n.Row.Expanded = true;
        for (auto& c : n.Children)
            reopen(*c);
    };
    for (auto& n : FNodes)
        reopen(*n);
}

void TInspectorModel::LoadChildren(TNode& node) {
    node.Children.clear();
    node.ChildrenLoaded = true;
    node.Editor->GetProperties([&](TPropertyEditorPtr editor) {
        auto child = std::make_unique<TNode>();
        const TPropInfo* p = editor->GetPropInfo();
        // A set member is its own row under the set property: its name is the member's.
        std::string segment =
            dynamic_cast<TSetElementProperty*>(editor.get()) || !p ? editor->GetName() : p->Name;
        child->Row.PropName = segment;
        child->Row.Path = node.Row.Path + "." + segment;
        child->Editor = std::move(editor);
        ReadNode(*child);
        node.Children.push_back(std::move(child));
    });
}

void TInspectorModel::FlattenNode(TNode& node, int level, const std::string& category) {
    node.Row.Level = level;
    node.Row.Category = category;
    FRows.push_back(node.Row);
    FRowNodes.push_back(&node);
    if (!node.Row.Expanded) return;
    for (auto& c : node.Children)
        FlattenNode(*c, level + 1, category);
}

void TInspectorModel::Flatten() {
    FRows.clear();
    FRowNodes.clear();
    if (!FGrouped) {
        for (auto& n : FNodes)
            FlattenNode(*n, 0, std::string());
        return;
    }
    std::vector<std::string> cats;
    for (auto& n : FNodes)
        for (auto& c : n->Row.Categories)
            if (std::none_of(cats.begin(), cats.end(), [&](const std::string& x) { return SameText(x, c); }))
                cats.push_back(c);
    std::stable_sort(cats.begin(), cats.end(),
                     [](const std::string& a, const std::string& b) { return CompareText(a, b) < 0; });
    for (auto& cat : cats) {
        TInspectorRow header;
        header.IsCategory = true;
        header.PropName = header.Name = header.Category = cat;
        FRows.push_back(header);
        FRowNodes.push_back(nullptr);
        for (auto& n : FNodes)
            if (std::any_of(n->Row.Categories.begin(), n->Row.Categories.end(),
                            [&](const std::string& c) { return SameText(c, cat); }))
                FlattenNode(*n, 0, cat);
    }
}

void TInspectorModel::Refresh() {
    if (FDirty) {
        EnsureBuilt();
        return;
    }
    std::function<void(TNode&)> read = [&](TNode& n) {
        ReadNode(n);
        if (n.ChildrenLoaded && n.Row.Attributes.Contains(paVolatileSubProperties)) {
            LoadChildren(n);
            for (auto& c : n.Children) {
                bool open = std::any_of(FExpandedPaths.begin(), FExpandedPaths.end(),
                                        [&](const std::string& s) { return SameText(s, c->Row.Path); });
                if (open && c->Row.HasSubProperties) {
                    LoadChildren(*c);
                    c->Row.Expanded = true;
                }
            }
        }
        for (auto& c : n.Children)
            read(*c);
    };
    for (auto& n : FNodes)
        read(*n);
    FValuesDirty = false;
    Flatten();
}

// ---- Rows
// ------------------------------------------------------------------------------------------------------------
int TInspectorModel::RowCount() {
    EnsureBuilt();
    return static_cast<int>(FRows.size());
}

const std::vector<TInspectorRow>& TInspectorModel::Rows() {
    EnsureBuilt();
    return FRows;
}

const TInspectorRow& TInspectorModel::Row(int index) {
    EnsureBuilt();
    if (index < 0 || index >= static_cast<int>(FRows.size()))
        throw EListError(Format(SListIndexError, {index}));
    return FRows[static_cast<size_t>(index)];
}

int TInspectorModel::FindRow(const std::string& path) {
    EnsureBuilt();
    for (size_t i = 0; i < FRows.size(); ++i)
        if (!FRows[i].IsCategory && SameText(FRows[i].Path, path)) return static_cast<int>(i);
    return -1;
}

TInspectorModel::TNode& TInspectorModel::NodeOf(int row) {
    EnsureBuilt();
    if (row < 0 || row >= static_cast<int>(FRows.size())) throw EListError(Format(SListIndexError, {row}));
    TNode* n = FRowNodes[static_cast<size_t>(row)];
    if (!n) throw EPropertyError("A category row has no property");
    return *n;
}

TPropertyEditor* TInspectorModel::Editor(int row) {
    EnsureBuilt();
    if (row < 0 || row >= static_cast<int>(FRows.size())) return nullptr;
    TNode* n = FRowNodes[static_cast<size_t>(row)];
    return n ? n->Editor.get() : nullptr;
}

void TInspectorModel::Expand(int row) {
    TNode& n = NodeOf(row);
    if (!n.Row.HasSubProperties || n.Row.Expanded) return;
    if (!n.ChildrenLoaded) LoadChildren(n);
    n.Row.Expanded = true;
    FExpandedPaths.push_back(n.Row.Path);
    Flatten();
}

void TInspectorModel::Collapse(int row) {
    TNode& n = NodeOf(row);
    if (!n.Row.Expanded) return;
    n.Row.Expanded = false;
    std::erase_if(FExpandedPaths, [&](const std::string& s) { return SameText(s, n.Row.Path); });
    Flatten();
}

void TInspectorModel::AfterChange() {
    // Setting one value can change others (a name, a parent font flag): read them all again.
    if (FDirty) return;
    Refresh();
}

void TInspectorModel::SetValue(int row, const std::string& text) {
    TNode& n = NodeOf(row);
    if (n.Row.Attributes.Contains(paReadOnly)) throw EPropertyError(SPropertyReadOnly);
    try {
        n.Editor->SetValue(text);
    } catch (...) {
        AfterChange();
        throw;
    }
    AfterChange();
}

void TInspectorModel::SetValue(const std::string& path, const std::string& text) {
    int row = FindRow(path);
    if (row < 0) throw EPropertyError(Format(SUnknownProperty, {path}));
    SetValue(row, text);
}

std::string TInspectorModel::Value(const std::string& path) {
    int row = FindRow(path);
    if (row < 0) throw EPropertyError(Format(SUnknownProperty, {path}));
    return FRows[static_cast<size_t>(row)].Value;
}

void TInspectorModel::Edit(int row) {
    TNode& n = NodeOf(row);
    try {
        n.Editor->Edit();
    } catch (...) {
        AfterChange();
        throw;
    }
    AfterChange();
}

void TInspectorModel::Revert(int row) {
    TNode& n = NodeOf(row);
    n.Editor->Revert();
    AfterChange();
}

std::vector<std::string> TInspectorModel::GetValues(int row) {
    TNode& n = NodeOf(row);
    std::vector<std::string> values;
    n.Editor->GetValues([&](const std::string& s) { values.push_back(s); });
    if (n.Editor->GetAttributes().Contains(paSortList))
        std::stable_sort(values.begin(), values.end(),
                         [](const std::string& a, const std::string& b) { return CompareText(a, b) < 0; });
    return values;
}

int TInspectorModel::ListMeasureWidth(int row, const std::string& value, vcl::TCanvas* canvas,
                                      int defaultWidth) {
    int w = defaultWidth;
    NodeOf(row).Editor->ListMeasureWidth(value, canvas, w);
    return w;
}

int TInspectorModel::ListMeasureHeight(int row, const std::string& value, vcl::TCanvas* canvas,
                                       int defaultHeight) {
    int h = defaultHeight;
    NodeOf(row).Editor->ListMeasureHeight(value, canvas, h);
    return h;
}

void TInspectorModel::ListDrawValue(int row, const std::string& value, vcl::TCanvas* canvas,
                                    const vcl::TRect& rect, bool selected) {
    NodeOf(row).Editor->ListDrawValue(value, canvas, rect, selected);
}

} // namespace ide
