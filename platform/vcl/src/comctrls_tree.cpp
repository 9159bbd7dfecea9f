// Tree views: nodes, the node list with its form-file layout, and the view with selection, expansion,
// sorting and label editing.
#include <algorithm>
#include <cstring>
#include <functional>

#include "publish.h"
#include "vcl/comctrls.h"

namespace vcl {

using rtl::EListError;

JEX_DEFINE_ENUM(TSortType)
JEX_DEFINE_ENUM(TNodeAttachMode)
JEX_DEFINE_EVENT_TYPE(TTVChangingEvent, "Sender: TObject; Node: TTreeNode; var AllowChange: Boolean")
JEX_DEFINE_EVENT_TYPE(TTVChangedEvent, "Sender: TObject; Node: TTreeNode")
JEX_DEFINE_EVENT_TYPE(TTVExpandingEvent, "Sender: TObject; Node: TTreeNode; var AllowExpansion: Boolean")
JEX_DEFINE_EVENT_TYPE(TTVCollapsingEvent, "Sender: TObject; Node: TTreeNode; var AllowCollapse: Boolean")
JEX_DEFINE_EVENT_TYPE(TTVExpandedEvent, "Sender: TObject; Node: TTreeNode")
JEX_DEFINE_EVENT_TYPE(TTVEditingEvent, "Sender: TObject; Node: TTreeNode; var AllowEdit: Boolean")
JEX_DEFINE_EVENT_TYPE(TTVEditedEvent, "Sender: TObject; Node: TTreeNode; var S: string")
JEX_DEFINE_EVENT_TYPE(TTVCompareEvent,
                      "Sender: TObject; Node1, Node2: TTreeNode; Data: Integer; var Compare: Integer")

// ---- TTreeNode ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TTreeNode, rtl::TPersistent, "ComCtrls") {}

TTreeNode::TTreeNode(TTreeNodes* AOwner) : FOwner(AOwner) {}

TTreeNode::~TTreeNode() {
    for (TTreeNode* c : FChildren)
        delete c;
}

TCustomTreeView* TTreeNode::TreeView() const {
    return FOwner ? FOwner->Owner() : nullptr;
}

void TTreeNode::Assign(rtl::TPersistent* Source) {
    auto* src = dynamic_cast<TTreeNode*>(Source);
    if (!src) return TPersistent::Assign(Source);
    if (src == this || src->HasAsParent(this)) throw ETreeViewError("A node cannot be assigned from itself");
    FText = src->FText;
    FData = src->FData;
    FImageIndex = src->FImageIndex;
    FSelectedIndex = src->FSelectedIndex;
    FStateIndex = src->FStateIndex;
    FOverlayIndex = src->FOverlayIndex;
    FHasChildren = src->FHasChildren;
    DeleteChildren();
    for (TTreeNode* c : src->FChildren)
        FOwner->AddChild(this, c->FText)->Assign(c);
    FExpanded = src->FExpanded && !FChildren.empty();
}

void TTreeNode::SetText(const std::string& v) {
    if (v == FText) return;
    FText = v;
    if (TCustomTreeView* tv = TreeView(); tv && tv->SortsByText()) tv->SortSiblingsOf(this);
}

std::vector<TTreeNode*>& TTreeNode::Siblings() const {
    return FParent ? FParent->FChildren : FOwner->FRoots;
}

TTreeNode* TTreeNode::Item(int Index) const {
    if (Index < 0 || Index >= Count()) throw EListError(rtl::Format(rtl::SListIndexError, {Index}));
    return FChildren[Index];
}

int TTreeNode::IndexOf(const TTreeNode* Child) const {
    auto it = std::find(FChildren.begin(), FChildren.end(), Child);
    return it == FChildren.end() ? -1 : static_cast<int>(it - FChildren.begin());
}

int TTreeNode::Index() const {
    auto& s = Siblings();
    return static_cast<int>(std::find(s.begin(), s.end(), this) - s.begin());
}

int TTreeNode::AbsoluteIndex() const {
    auto& flat = FOwner->Flat();
    return static_cast<int>(std::find(flat.begin(), flat.end(), this) - flat.begin());
}

int TTreeNode::Level() const {
    int level = 0;
    for (TTreeNode* p = FParent; p; p = p->FParent)
        ++level;
    return level;
}

bool TTreeNode::HasAsParent(const TTreeNode* Value) const {
    if (!Value) return false;
    for (TTreeNode* p = FParent; p; p = p->FParent)
        if (p == Value) return true;
    return false;
}

TTreeNode* TTreeNode::GetNextSibling() const {
    auto& s = Siblings();
    int i = Index();
    return i + 1 < static_cast<int>(s.size()) ? s[i + 1] : nullptr;
}

TTreeNode* TTreeNode::GetPrevSibling() const {
    int i = Index();
    return i > 0 ? Siblings()[i - 1] : nullptr;
}

TTreeNode* TTreeNode::GetNext() const {
    if (!FChildren.empty()) return FChildren.front();
    for (const TTreeNode* n = this; n; n = n->FParent)
        if (TTreeNode* s = n->GetNextSibling()) return s;
    return nullptr;
}

TTreeNode* TTreeNode::GetPrev() const {
    TTreeNode* p = GetPrevSibling();
    if (!p) return FParent;
    while (!p->FChildren.empty())
        p = p->FChildren.back();
    return p;
}

TTreeNode* TTreeNode::GetNextVisible() const {
    const TTreeNode* n = this;
    if (FExpanded && !FChildren.empty()) return FChildren.front();
    for (; n; n = n->FParent)
        if (TTreeNode* s = n->GetNextSibling()) return s;
    return nullptr;
}

TTreeNode* TTreeNode::GetPrevVisible() const {
    TTreeNode* p = GetPrevSibling();
    if (!p) return FParent;
    while (p->FExpanded && !p->FChildren.empty())
        p = p->FChildren.back();
    return p;
}

void TTreeNode::SetExpanded(bool v) {
    if (v == FExpanded) return;
    TCustomTreeView* tv = TreeView();
    if (v) {
        if (!HasChildren()) return;
        if (tv && !tv->CanExpand(this)) return;
        // OnExpanding may have added the children, or found there are none.
        if (FChildren.empty()) {
            FHasChildren = false;
            return;
        }
        FExpanded = true;
        if (tv) tv->OnExpanded(tv, this);
    } else {
        if (tv && !tv->CanCollapse(this)) return;
        FExpanded = false;
        if (tv) {
            if (tv->FSelected && tv->FSelected->HasAsParent(this)) tv->SetSelected(this);
            tv->OnCollapsed(tv, this);
        }
    }
}

void TTreeNode::Expand(bool Recurse) {
    SetExpanded(true);
    if (Recurse)
        for (size_t i = 0; i < FChildren.size(); ++i)
            FChildren[i]->Expand(true);
}

void TTreeNode::Collapse(bool Recurse) {
    if (Recurse)
        for (size_t i = 0; i < FChildren.size(); ++i)
            FChildren[i]->Collapse(true);
    SetExpanded(false);
}

bool TTreeNode::IsVisible() const {
    for (TTreeNode* p = FParent; p; p = p->FParent)
        if (!p->FExpanded) return false;
    return true;
}

void TTreeNode::MakeVisible() {
    std::vector<TTreeNode*> parents;
    for (TTreeNode* p = FParent; p; p = p->FParent)
        parents.push_back(p);
    for (auto it = parents.rbegin(); it != parents.rend(); ++it)
        (*it)->SetExpanded(true);
}

bool TTreeNode::Selected() const {
    TCustomTreeView* tv = TreeView();
    return tv && tv->FSelected == this;
}

void TTreeNode::SetSelected(bool v) {
    TCustomTreeView* tv = TreeView();
    if (!tv) return;
    if (v)
        tv->SetSelected(this);
    else if (tv->FSelected == this)
        tv->SetSelected(nullptr);
}

std::string TTreeNode::Path(const std::string& Separator) const {
    std::string p = FText;
    for (TTreeNode* n = FParent; n; n = n->FParent)
        p = n->FText + Separator + p;
    return p;
}

void TTreeNode::MoveTo(TTreeNode* Destination, TNodeAttachMode Mode) {
    if (Destination == this || (Destination && Destination->HasAsParent(this)))
        throw ETreeViewError("Cannot move a node into itself");
    if (Destination && Destination->FOwner != FOwner)
        throw ETreeViewError("Cannot move a node to another tree view");
    auto& from = Siblings();
    from.erase(std::find(from.begin(), from.end(), this));
    TTreeNode* oldParent = FParent;
    TTreeNode* parent = nullptr;
    int pos = -1;
    if (!Destination) {
        pos = Mode == naAddFirst || Mode == naAddChildFirst ? 0 : -1;
    } else {
        switch (Mode) {
        case naAdd:
            parent = Destination->FParent;
            break;
        case naAddFirst:
            parent = Destination->FParent;
            pos = 0;
            break;
        case naAddChild:
            parent = Destination;
            break;
        case naAddChildFirst:
            parent = Destination;
            pos = 0;
            break;
        case naInsert:
            parent = Destination->FParent;
            pos = Destination->Index();
            break;
        }
    }
    auto& to = FOwner->ListOf(parent);
    FParent = parent;
    if (pos < 0 || pos > static_cast<int>(to.size()))
        to.push_back(this);
    else
        to.insert(to.begin() + pos, this);
    if (oldParent && oldParent->FChildren.empty()) oldParent->FExpanded = false;
    FOwner->Changed();
    if (TCustomTreeView* tv = TreeView(); tv && tv->SortsByText()) tv->SortSiblingsOf(this);
}

void TTreeNode::AlphaSort(bool Recurse) {
    CustomSort([](TTreeNode* a, TTreeNode* b) { return rtl::CompareText(a->FText, b->FText); }, Recurse);
}

bool TTreeNode::CustomSort(const std::function<int(TTreeNode*, TTreeNode*)>& Compare, bool Recurse) {
    std::stable_sort(FChildren.begin(), FChildren.end(),
                     [&](TTreeNode* a, TTreeNode* b) { return Compare(a, b) < 0; });
    if (Recurse)
        for (TTreeNode* c : FChildren)
            c->CustomSort(Compare, true);
    FOwner->Changed();
    return true;
}

void TTreeNode::Delete() {
    FOwner->Delete(this);
}

void TTreeNode::DeleteChildren() {
    while (!FChildren.empty())
        FOwner->Delete(FChildren.back());
    FExpanded = false;
}

// ---- TTreeNodes ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TTreeNodes, rtl::TPersistent, "ComCtrls") {}

TTreeNodes::TTreeNodes(TCustomTreeView* AOwner) : FOwner(AOwner) {}

TTreeNodes::~TTreeNodes() {
    for (TTreeNode* n : FRoots)
        delete n;
}

rtl::TPersistent* TTreeNodes::GetOwner() const {
    return FOwner;
}

const std::vector<TTreeNode*>& TTreeNodes::Flat() const {
    if (!FFlatValid) {
        FFlat.clear();
        std::function<void(TTreeNode*)> walk = [&](TTreeNode* n) {
            FFlat.push_back(n);
            for (TTreeNode* c : n->FChildren)
                walk(c);
        };
        for (TTreeNode* n : FRoots)
            walk(n);
        FFlatValid = true;
    }
    return FFlat;
}

void TTreeNodes::Changed() {
    FFlatValid = false;
}

int TTreeNodes::Count() const {
    return static_cast<int>(Flat().size());
}

TTreeNode* TTreeNodes::Item(int Index) const {
    auto& flat = Flat();
    if (Index < 0 || Index >= static_cast<int>(flat.size()))
        throw EListError(rtl::Format(rtl::SListIndexError, {Index}));
    return flat[Index];
}

TTreeNode* TTreeNodes::AddNode(TTreeNode* Parent, int Position, const std::string& S, void* Ptr) {
    if (Parent && Parent->FOwner != this) throw ETreeViewError("The node belongs to another tree view");
    auto* node = new TTreeNode(this);
    node->FText = S;
    node->FData = Ptr;
    node->FParent = Parent;
    auto& list = ListOf(Parent);
    if (Position < 0 || Position > static_cast<int>(list.size()))
        list.push_back(node);
    else
        list.insert(list.begin() + Position, node);
    Changed();
    if (FOwner && FOwner->SortsByText() && FUpdateCount == 0) FOwner->SortSiblingsOf(node);
    return node;
}

TTreeNode* TTreeNodes::AddObject(TTreeNode* Sibling, const std::string& S, void* Ptr) {
    return AddNode(Sibling ? Sibling->FParent : nullptr, -1, S, Ptr);
}

TTreeNode* TTreeNodes::AddObjectFirst(TTreeNode* Sibling, const std::string& S, void* Ptr) {
    return AddNode(Sibling ? Sibling->FParent : nullptr, 0, S, Ptr);
}

TTreeNode* TTreeNodes::AddChildObject(TTreeNode* Parent, const std::string& S, void* Ptr) {
    return AddNode(Parent, -1, S, Ptr);
}

TTreeNode* TTreeNodes::AddChildObjectFirst(TTreeNode* Parent, const std::string& S, void* Ptr) {
    return AddNode(Parent, 0, S, Ptr);
}

TTreeNode* TTreeNodes::InsertObject(TTreeNode* Sibling, const std::string& S, void* Ptr) {
    if (!Sibling) return AddNode(nullptr, -1, S, Ptr);
    return AddNode(Sibling->FParent, Sibling->Index(), S, Ptr);
}

void TTreeNodes::Delete(TTreeNode* Node) {
    if (!Node) return;
    if (Node->FOwner != this) throw ETreeViewError("The node belongs to another tree view");
    // The selection leaves the whole subtree once, before any node goes.
    if (FOwner) FOwner->NodeRemoving(Node);
    // Children first, each with its OnDeletion, so that a handler sees a whole subtree below the node.
    std::function<void(TTreeNode*)> remove = [&](TTreeNode* n) {
        while (!n->FChildren.empty())
            remove(n->FChildren.back());
        if (FOwner) FOwner->Delete(n);
        auto& s = n->Siblings();
        s.erase(std::find(s.begin(), s.end(), n));
        delete n;
        Changed();
    };
    TTreeNode* parent = Node->FParent;
    remove(Node);
    if (parent && parent->FChildren.empty()) parent->FExpanded = false;
    Changed();
}

void TTreeNodes::Clear() {
    if (FOwner) FOwner->FClearing = true;
    try {
        while (!FRoots.empty())
            Delete(FRoots.back());
    } catch (...) {
        if (FOwner) FOwner->FClearing = false;
        throw;
    }
    if (FOwner) FOwner->FClearing = false;
}

void TTreeNodes::Assign(rtl::TPersistent* Source) {
    auto* src = dynamic_cast<TTreeNodes*>(Source);
    if (!src) return TPersistent::Assign(Source);
    if (src == this) return;
    BeginUpdate();
    try {
        Clear();
        for (TTreeNode* n : src->FRoots)
            AddNode(nullptr, -1, n->FText, nullptr)->Assign(n);
    } catch (...) {
        EndUpdate();
        throw;
    }
    EndUpdate();
}

TTreeNode* TTreeNodes::FindNode(const std::string& Text) const {
    for (TTreeNode* n : Flat())
        if (rtl::SameText(n->FText, Text)) return n;
    return nullptr;
}

TTreeNode* TTreeNodes::FindData(const void* Data) const {
    for (TTreeNode* n : Flat())
        if (n->FData == Data) return n;
    return nullptr;
}

TTreeNode* TTreeNodes::FindPath(const std::string& Path, const std::string& Separator) const {
    std::vector<std::string> parts;
    if (Separator.empty()) {
        parts.push_back(Path);
    } else {
        size_t start = 0;
        for (;;) {
            size_t p = Path.find(Separator, start);
            parts.push_back(Path.substr(start, p == std::string::npos ? std::string::npos : p - start));
            if (p == std::string::npos) break;
            start = p + Separator.size();
        }
    }
    const std::vector<TTreeNode*>* level = &FRoots;
    TTreeNode* found = nullptr;
    for (const std::string& part : parts) {
        found = nullptr;
        for (TTreeNode* n : *level)
            if (rtl::SameText(n->FText, part)) {
                found = n;
                break;
            }
        if (!found) return nullptr;
        level = &found->FChildren;
    }
    return found;
}

void TTreeNodes::BeginUpdate() {
    ++FUpdateCount;
}

void TTreeNodes::EndUpdate() {
    if (FUpdateCount == 0) return;
    if (--FUpdateCount == 0 && FOwner && FOwner->SortsByText()) FOwner->AlphaSort(true);
}

namespace {
void PutInt(std::vector<uint8_t>& out, int32_t v) {
    uint32_t u = static_cast<uint32_t>(v);
    for (int i = 0; i < 4; ++i)
        out.push_back(static_cast<uint8_t>(u >> (8 * i)));
}

class TNodeDataReader {
public:
    explicit TNodeDataReader(const std::vector<uint8_t>& d) : FData(d) {}
    int32_t Int() {
        Need(4);
        uint32_t u = 0;
        for (int i = 0; i < 4; ++i)
            u |= static_cast<uint32_t>(FData[FPos + i]) << (8 * i);
        FPos += 4;
        return static_cast<int32_t>(u);
    }
    std::string Bytes(size_t n) {
        Need(n);
        std::string s(reinterpret_cast<const char*>(FData.data() + FPos), n);
        FPos += n;
        return s;
    }
    uint8_t Byte() {
        Need(1);
        return FData[FPos++];
    }
    bool AtEnd() const { return FPos == FData.size(); }
    size_t Pos() const { return FPos; }
    size_t Left() const { return FData.size() - FPos; }

private:
    void Need(size_t n) const {
        if (FData.size() - FPos < n) throw rtl::EReadError("Tree node data ends too early");
    }
    const std::vector<uint8_t>& FData;
    size_t FPos = 0;
};

// A node record: six Int32 fields, then the text's length byte and bytes.
constexpr int32_t kNodeFixed = 6 * 4 + 1;

struct TNodeRecord {
    int32_t ImageIndex, SelectedIndex, StateIndex, OverlayIndex, Count;
    std::string Text;
    std::vector<TNodeRecord> Children;
};

TNodeRecord ReadNodeRecord(TNodeDataReader& r, int depth) {
    if (depth > 10000) throw rtl::EReadError("Tree node data nests too deeply");
    int32_t size = r.Int();
    if (size < kNodeFixed || static_cast<size_t>(size) > r.Left())
        throw rtl::EReadError("Invalid tree node record size " + std::to_string(size));
    TNodeRecord n;
    n.ImageIndex = r.Int();
    n.SelectedIndex = r.Int();
    n.StateIndex = r.Int();
    n.OverlayIndex = r.Int();
    r.Int(); // Data: a pointer of the writing process, meaningless here
    n.Count = r.Int();
    uint8_t len = r.Byte();
    size_t textLen = static_cast<size_t>(size - kNodeFixed);
    // The length byte holds at most 255; the record size tells the whole text.
    if (textLen < 255 ? len != textLen : len != 255)
        throw rtl::EReadError("Tree node text length does not match its record");
    n.Text = r.Bytes(textLen);
    if (n.Count < 0 || static_cast<size_t>(n.Count) > r.Left() / (kNodeFixed + 4))
        throw rtl::EReadError("Invalid tree node child count " + std::to_string(n.Count));
    for (int32_t i = 0; i < n.Count; ++i)
        n.Children.push_back(ReadNodeRecord(r, depth + 1));
    return n;
}
} // namespace

void TTreeNodes::WriteData(std::vector<uint8_t>& Data) const {
    Data.clear();
    PutInt(Data, static_cast<int32_t>(FRoots.size()));
    std::function<void(const TTreeNode*)> write = [&](const TTreeNode* n) {
        PutInt(Data, kNodeFixed + static_cast<int32_t>(n->FText.size()));
        PutInt(Data, n->FImageIndex);
        PutInt(Data, n->FSelectedIndex);
        PutInt(Data, n->FStateIndex);
        PutInt(Data, n->FOverlayIndex);
        PutInt(Data, 0);
        PutInt(Data, static_cast<int32_t>(n->FChildren.size()));
        Data.push_back(static_cast<uint8_t>(std::min<size_t>(n->FText.size(), 255)));
        Data.insert(Data.end(), n->FText.begin(), n->FText.end());
        for (const TTreeNode* c : n->FChildren)
            write(c);
    };
    for (const TTreeNode* n : FRoots)
        write(n);
}

void TTreeNodes::ReadData(const std::vector<uint8_t>& Data) {
    // Everything is parsed before the nodes change, so that bad data leaves them as they were.
    TNodeDataReader r(Data);
    int32_t count = r.Int();
    if (count < 0 || static_cast<size_t>(count) > r.Left() / (kNodeFixed + 4))
        throw rtl::EReadError("Invalid tree node count " + std::to_string(count));
    std::vector<TNodeRecord> roots;
    for (int32_t i = 0; i < count; ++i)
        roots.push_back(ReadNodeRecord(r, 0));
    if (!r.AtEnd()) throw rtl::EReadError("Unexpected bytes after the tree node data");
    BeginUpdate();
    try {
        Clear();
        std::function<void(TTreeNode*, const TNodeRecord&)> add = [&](TTreeNode* parent,
                                                                      const TNodeRecord& rec) {
            TTreeNode* n = AddNode(parent, -1, rec.Text, nullptr);
            n->FImageIndex = rec.ImageIndex;
            n->FSelectedIndex = rec.SelectedIndex;
            n->FStateIndex = rec.StateIndex;
            n->FOverlayIndex = rec.OverlayIndex;
            for (const TNodeRecord& c : rec.Children)
                add(n, c);
        };
        for (const TNodeRecord& rec : roots)
            add(nullptr, rec);
    } catch (...) {
        EndUpdate();
        throw;
    }
    EndUpdate();
}

void TTreeNodes::DefineProperties(rtl::TFiler& Filer) {
    Filer.DefineBinaryProperty(
        "Data", [this](const std::vector<uint8_t>& d) { ReadData(d); },
        [this](std::vector<uint8_t>& d) { WriteData(d); }, !FRoots.empty());
}

// ---- TCustomTreeView ----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCustomTreeView, TWinControl, "ComCtrls") {}
JEX_IMPLEMENT_CLASS(TTreeView, TCustomTreeView, "ComCtrls") {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("AutoExpand", &TTreeView::AutoExpand, &TTreeView::SetAutoExpand).Default(false);
    d.Property("BorderStyle", &TTreeView::BorderStyle, &TTreeView::SetBorderStyle, TypeInfo_TBorderStyle())
        .Default(bsSingle);
    d.Property("ChangeDelay", &TTreeView::ChangeDelay, &TTreeView::SetChangeDelay).Default(0);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("HideSelection", &TTreeView::HideSelection, &TTreeView::SetHideSelection).Default(true);
    d.Property("HotTrack", &TTreeView::HotTrack, &TTreeView::SetHotTrack).Default(false);
    d.Property("Images", &TTreeView::Images, &TTreeView::SetImages);
    d.Property("Indent", &TTreeView::Indent, &TTreeView::SetIndent).Default(19);
    d.Property("Items", &TTreeView::Items, &TTreeView::SetItems);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &TTreeView::ReadOnly, &TTreeView::SetReadOnly).Default(false);
    d.Property("RightClickSelect", &TTreeView::RightClickSelect, &TTreeView::SetRightClickSelect)
        .Default(false);
    d.Property("RowSelect", &TTreeView::RowSelect, &TTreeView::SetRowSelect).Default(false);
    d.Property("ShowButtons", &TTreeView::ShowButtons, &TTreeView::SetShowButtons).Default(true);
    pub::ShowHint(d);
    d.Property("ShowLines", &TTreeView::ShowLines, &TTreeView::SetShowLines).Default(true);
    d.Property("ShowRoot", &TTreeView::ShowRoot, &TTreeView::SetShowRoot).Default(true);
    d.Property("SortType", &TTreeView::SortType, &TTreeView::SetSortType).Default(stNone);
    d.Property("StateImages", &TTreeView::StateImages, &TTreeView::SetStateImages);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    d.Property("ToolTips", &TTreeView::ToolTips, &TTreeView::SetToolTips).Default(true);
    pub::Visible(d);
    d.Event("OnChange", &TTreeView::OnChange);
    d.Event("OnChanging", &TTreeView::OnChanging);
    pub::OnClick(d);
    d.Event("OnCollapsed", &TTreeView::OnCollapsed);
    d.Event("OnCollapsing", &TTreeView::OnCollapsing);
    d.Event("OnCompare", &TTreeView::OnCompare);
    pub::OnDblClick(d);
    d.Event("OnDeletion", &TTreeView::OnDeletion);
    pub::OnDrag(d);
    d.Event("OnEdited", &TTreeView::OnEdited);
    d.Event("OnEditing", &TTreeView::OnEditing);
    pub::OnEnterExit(d);
    d.Event("OnExpanding", &TTreeView::OnExpanding);
    d.Event("OnExpanded", &TTreeView::OnExpanded);
    d.Event("OnGetImageIndex", &TTreeView::OnGetImageIndex);
    d.Event("OnGetSelectedIndex", &TTreeView::OnGetSelectedIndex);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

TCustomTreeView::TCustomTreeView(TComponent* AOwner) : TWinControl(AOwner), FTreeNodes(new TTreeNodes(this)) {
    FControlStyle =
        TControlStyle{csCaptureMouse, csClickEvents, csDoubleClicks, csDisplayDragImage, csReflector};
    FWidth = 121;
    FHeight = 97;
    FTabStop = true;
    FColor = clWindow;
}

TCustomTreeView::~TCustomTreeView() {
    // The nodes go without events: the view is no longer whole enough for handlers to look at.
    FSelected = nullptr;
    FTreeNodes->FOwner = nullptr;
    delete FTreeNodes;
}

void TCustomTreeView::SetImages(TCustomImageList* v) {
    if (v == FImages) return;
    if (FImages && FImages != FStateImages) FImages->RemoveFreeNotification(this);
    FImages = v;
    if (v) v->FreeNotification(this);
}

void TCustomTreeView::SetStateImages(TCustomImageList* v) {
    if (v == FStateImages) return;
    if (FStateImages && FStateImages != FImages) FStateImages->RemoveFreeNotification(this);
    FStateImages = v;
    if (v) v->FreeNotification(this);
}

void TCustomTreeView::Notification(TComponent* AComponent, rtl::TOperation Operation) {
    TWinControl::Notification(AComponent, Operation);
    if (Operation != rtl::opRemove) return;
    if (AComponent == FImages) FImages = nullptr;
    if (AComponent == FStateImages) FStateImages = nullptr;
}

bool TCustomTreeView::CanChange(TTreeNode* Node) {
    bool allow = true;
    OnChanging(this, Node, allow);
    return allow;
}

bool TCustomTreeView::CanExpand(TTreeNode* Node) {
    bool allow = true;
    OnExpanding(this, Node, allow);
    return allow;
}

bool TCustomTreeView::CanCollapse(TTreeNode* Node) {
    bool allow = true;
    OnCollapsing(this, Node, allow);
    return allow;
}

void TCustomTreeView::SetSelected(TTreeNode* v) {
    if (v == FSelected) return;
    if (v && v->FOwner != FTreeNodes) throw ETreeViewError("The node belongs to another tree view");
    if (!CanChange(v)) return;
    // As the platform's control does, selecting a node inside a collapsed parent expands the parents.
    if (v) v->MakeVisible();
    FSelected = v;
    Change(v);
}

void TCustomTreeView::NodeRemoving(TTreeNode* Node) {
    if (!FSelected || (FSelected != Node && !FSelected->HasAsParent(Node))) return;
    if (FClearing || IsDestroying()) {
        FSelected = nullptr;
        return;
    }
    // The platform's control selects the next sibling, else the previous one, else the parent.
    TTreeNode* next = Node->GetNextSibling();
    if (!next) next = Node->GetPrevSibling();
    if (!next) next = Node->FParent;
    FSelected = next;
    Change(next);
}

void TCustomTreeView::SetSortType(TSortType v) {
    if (v == FSortType) return;
    FSortType = v;
    if (SortsByText() || (v == stData && OnCompare)) AlphaSort(true);
}

int TCustomTreeView::CompareNodes(TTreeNode* a, TTreeNode* b) {
    if (OnCompare && FSortType != stText) {
        int r = 0;
        OnCompare(this, a, b, 0, r);
        return r;
    }
    return rtl::CompareText(a->FText, b->FText);
}

void TCustomTreeView::SortList(std::vector<TTreeNode*>& List, bool Recurse) {
    std::stable_sort(List.begin(), List.end(),
                     [this](TTreeNode* a, TTreeNode* b) { return CompareNodes(a, b) < 0; });
    if (Recurse)
        for (TTreeNode* n : List)
            SortList(n->FChildren, true);
}

void TCustomTreeView::SortSiblingsOf(TTreeNode* Node) {
    if (FTreeNodes->FUpdateCount > 0) return;
    SortList(Node->Siblings(), false);
    FTreeNodes->Changed();
}

bool TCustomTreeView::AlphaSort(bool Recurse) {
    SortList(FTreeNodes->FRoots, Recurse);
    FTreeNodes->Changed();
    return true;
}

void TCustomTreeView::FullExpand() {
    for (size_t i = 0; i < FTreeNodes->FRoots.size(); ++i)
        FTreeNodes->FRoots[i]->Expand(true);
}

void TCustomTreeView::FullCollapse() {
    for (size_t i = 0; i < FTreeNodes->FRoots.size(); ++i)
        FTreeNodes->FRoots[i]->Collapse(true);
}

TImageIndex TCustomTreeView::NodeImageIndex(TTreeNode* Node) {
    if (!Node) return -1;
    if (Node == FSelected) {
        OnGetSelectedIndex(this, Node);
        return Node->FSelectedIndex;
    }
    OnGetImageIndex(this, Node);
    return Node->FImageIndex;
}

bool TCustomTreeView::CanEdit(TTreeNode* Node) {
    if (FReadOnly || !Node) return false;
    bool allow = true;
    OnEditing(this, Node, allow);
    return allow;
}

void TCustomTreeView::Edit(TTreeNode* Node, const std::string& S) {
    std::string text = S;
    OnEdited(this, Node, text);
    Node->SetText(text);
}

void TCustomTreeView::UserSelect(int Index) {
    if (Index < 0 || Index >= FTreeNodes->Count())
        throw EUserActionError("'" + Name() + "' has no node " + std::to_string(Index));
    TTreeNode* n = FTreeNodes->Item(Index);
    n->MakeVisible();
    SetSelected(n);
    if (FAutoExpand && FSelected == n) n->SetExpanded(true);
    Click();
}

void TCustomTreeView::UserSelectText(const std::string& Text) {
    TTreeNode* n = FTreeNodes->FindPath(Text);
    if (!n) throw EUserActionError("'" + Name() + "' has no node '" + Text + "'");
    UserSelect(n->AbsoluteIndex());
}

void TCustomTreeView::UserDblClick() {
    if (FSelected && FSelected->HasChildren()) FSelected->SetExpanded(!FSelected->FExpanded);
    DblClick();
}

void TCustomTreeView::UserType(const std::string& Text) {
    if (FReadOnly) throw EUserActionError("'" + Name() + "' is read-only");
    if (!FSelected) throw EUserActionError("'" + Name() + "' has no selected node to edit");
    if (!CanEdit(FSelected)) throw EUserActionError("'" + Name() + "' does not allow editing this node");
    Edit(FSelected, Text);
}

void TCustomTreeView::KeyDown(uint16_t& Key, TShiftState Shift) {
    TWinControl::KeyDown(Key, Shift);
    if (Key == 0) return;
    TTreeNode* cur = FSelected;
    switch (Key) {
    case VK_DOWN:
        if (!cur)
            SetSelected(FTreeNodes->GetFirstNode());
        else if (TTreeNode* n = cur->GetNextVisible())
            SetSelected(n);
        break;
    case VK_UP:
        if (cur)
            if (TTreeNode* n = cur->GetPrevVisible()) SetSelected(n);
        break;
    case VK_HOME:
        SetSelected(FTreeNodes->GetFirstNode());
        break;
    case VK_RIGHT:
    case VK_ADD:
        if (cur) {
            if (!cur->FExpanded)
                cur->SetExpanded(true);
            else if (Key == VK_RIGHT && cur->GetFirstChild())
                SetSelected(cur->GetFirstChild());
        }
        break;
    case VK_LEFT:
    case VK_SUBTRACT:
        if (cur) {
            if (cur->FExpanded)
                cur->SetExpanded(false);
            else if (Key == VK_LEFT && cur->FParent)
                SetSelected(cur->FParent);
        }
        break;
    default:
        return;
    }
    Key = 0;
}

void TCustomTreeView::Describe(TControlDesc& d) const {
    TWinControl::Describe(d);
    std::function<TNodeDesc(const TTreeNode*)> node = [&](const TTreeNode* n) {
        TNodeDesc nd;
        nd.Text = n->FText;
        nd.Expanded = n->FExpanded;
        nd.Selected = n == FSelected;
        for (TTreeNode* c : n->FChildren)
            nd.Children.push_back(node(c));
        return nd;
    };
    for (TTreeNode* n : FTreeNodes->FRoots)
        d.Nodes.push_back(node(n));
    d.ItemIndex = FSelected ? FSelected->AbsoluteIndex() : -1;
    d.ReadOnly = FReadOnly;
}

} // namespace vcl
