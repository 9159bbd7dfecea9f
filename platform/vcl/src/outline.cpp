// Outlines.
#include "vcl/outline.h"

#include <algorithm>

#include "publish.h"

namespace vcl {

JEX_DEFINE_EVENT_TYPE(TOutlineEvent, "Sender: TObject; Index: Longint")
JEX_DEFINE_ENUM(TOutlineStyle)
JEX_DEFINE_ENUM(TOutlineOption)
JEX_DEFINE_SET(TOutlineOptions, TOutlineOption)

namespace {
constexpr const char* SOutlineIndexError = "Invalid outline index";
}

// ---- TOutlineNode -------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TOutlineNode, rtl::TPersistent, "Outline") {}

TOutlineNode::~TOutlineNode() {
    for (TOutlineNode* c : FChildren)
        delete c;
}

int TOutlineNode::Level() const {
    int level = 0;
    for (const TOutlineNode* n = this; n->FParent; n = n->FParent)
        ++level;
    return level;
}

void TOutlineNode::SetExpanded(bool v) {
    if (v == FExpanded) return;
    FExpanded = v;
    if (!FOutline || !FParent) return;
    // Collapsing hides a selected descendant: the selection moves up to this item.
    if (!v && FOutline->FSelected)
        for (TOutlineNode* p = FOutline->FSelected->FParent; p; p = p->FParent)
            if (p == this) FOutline->FSelected = this;
    if (v)
        FOutline->OnExpand(FOutline, FIndex);
    else
        FOutline->OnCollapse(FOutline, FIndex);
}

void TOutlineNode::FullExpand() {
    SetExpanded(true);
    for (TOutlineNode* c : FChildren)
        c->FullExpand();
}

void TOutlineNode::FullCollapse() {
    for (TOutlineNode* c : FChildren)
        c->FullCollapse();
    SetExpanded(false);
}

int TOutlineNode::GetFirstChild() const {
    return FChildren.empty() ? -1 : FChildren.front()->FIndex;
}
int TOutlineNode::GetLastChild() const {
    return FChildren.empty() ? -1 : FChildren.back()->FIndex;
}

int TOutlineNode::GetNextChild(int Value) const {
    for (size_t i = 0; i + 1 < FChildren.size(); ++i)
        if (FChildren[i]->FIndex == Value) return FChildren[i + 1]->FIndex;
    return -1;
}

int TOutlineNode::GetPrevChild(int Value) const {
    for (size_t i = 1; i < FChildren.size(); ++i)
        if (FChildren[i]->FIndex == Value) return FChildren[i - 1]->FIndex;
    return -1;
}

std::string TOutlineNode::FullPath() const {
    if (!FParent) return {};
    std::string parent = FParent->FullPath();
    std::string sep = FOutline ? FOutline->ItemSeparator() : "\\";
    return parent.empty() ? FText : parent + sep + FText;
}

bool TOutlineNode::IsVisible() const {
    for (const TOutlineNode* p = FParent; p && p->FParent; p = p->FParent)
        if (!p->FExpanded) return false;
    return true;
}

// ---- TCustomOutline -----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCustomOutline, TCustomControl, "Outline") {}
JEX_IMPLEMENT_CLASS(TOutline, TCustomOutline, "Outline") {
    pub::Align(d);
    pub::Anchors(d);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("ItemSeparator", &TOutline::ItemSeparator, &TOutline::SetItemSeparator);
    d.Property("Lines", &TOutline::Lines, &TOutline::SetLines);
    d.Property("Options", &TOutline::Options, &TOutline::SetOptions)
        .Default(TOutlineOptions{ooDrawTreeRoot, ooDrawFocusRect}.Bits());
    d.Property("OutlineStyle", &TOutline::OutlineStyle, &TOutline::SetOutlineStyle)
        .Default(osTreePictureText);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
    pub::OnClick(d);
    d.Event("OnCollapse", &TOutline::OnCollapse);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    d.Event("OnExpand", &TOutline::OnExpand);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

TCustomOutline::TCustomOutline(TComponent* AOwner) : TCustomControl(AOwner), FRoot(new TOutlineNode(this)) {
    FControlStyle = TControlStyle{csCaptureMouse, csOpaque, csDoubleClicks};
    FWidth = 121;
    FHeight = 97;
    FTabStop = true;
    FColor = clWindow;
    FRoot->FExpanded = true;
}

TCustomOutline::~TCustomOutline() {
    delete FRoot;
}

void TCustomOutline::Renumber() {
    FFlat.clear();
    std::function<void(TOutlineNode*)> walk = [&](TOutlineNode* n) {
        for (TOutlineNode* c : n->FChildren) {
            FFlat.push_back(c);
            c->FIndex = static_cast<int>(FFlat.size());
            walk(c);
        }
    };
    walk(FRoot);
}

TOutlineNode* TCustomOutline::Items(int Index) const {
    if (Index < 1 || Index > ItemCount()) throw EOutlineError(SOutlineIndexError);
    return FFlat[Index - 1];
}

TOutlineNode* TCustomOutline::NodeOrRoot(int Index) const {
    return Index == 0 ? FRoot : Items(Index);
}

int TCustomOutline::AddUnder(TOutlineNode* parent, int position, const std::string& Text, void* Data) {
    auto* node = new TOutlineNode(this);
    node->FText = Text;
    node->FData = Data;
    node->FParent = parent;
    if (position < 0 || position > parent->ChildCount()) position = parent->ChildCount();
    parent->FChildren.insert(parent->FChildren.begin() + position, node);
    Renumber();
    if (FLines) FLines.reset();
    return node->FIndex;
}

int TCustomOutline::AddObject(int Index, const std::string& Text, void* Data) {
    TOutlineNode* n = NodeOrRoot(Index);
    return AddUnder(n == FRoot ? FRoot : n->FParent, -1, Text, Data);
}

int TCustomOutline::AddChildObject(int Index, const std::string& Text, void* Data) {
    return AddUnder(NodeOrRoot(Index), -1, Text, Data);
}

int TCustomOutline::InsertObject(int Index, const std::string& Text, void* Data) {
    if (Index == 0) return AddUnder(FRoot, -1, Text, Data);
    TOutlineNode* n = Items(Index);
    auto& siblings = n->FParent->FChildren;
    int pos = static_cast<int>(std::find(siblings.begin(), siblings.end(), n) - siblings.begin());
    return AddUnder(n->FParent, pos, Text, Data);
}

void TCustomOutline::Delete(int Index) {
    TOutlineNode* n = Items(Index);
    for (TOutlineNode* s = FSelected; s; s = s->FParent)
        if (s == n) {
            FSelected = nullptr;
            break;
        }
    auto& siblings = n->FParent->FChildren;
    siblings.erase(std::find(siblings.begin(), siblings.end(), n));
    delete n;
    Renumber();
    FLines.reset();
}

void TCustomOutline::Clear() {
    for (TOutlineNode* c : FRoot->FChildren)
        delete c;
    FRoot->FChildren.clear();
    FSelected = nullptr;
    Renumber();
    FLines.reset();
}

int TCustomOutline::GetTextItem(const std::string& Value) const {
    bool path = !FItemSeparator.empty() && Value.find(FItemSeparator) != std::string::npos;
    for (TOutlineNode* n : FFlat)
        if (rtl::SameText(path ? n->FullPath() : n->FText, Value)) return n->FIndex;
    return 0;
}

int TCustomOutline::GetDataItem(const void* Value) const {
    for (TOutlineNode* n : FFlat)
        if (n->FData == Value) return n->FIndex;
    return 0;
}

void TCustomOutline::SetSelectedItem(int v) {
    FSelected = v == 0 ? nullptr : Items(v);
}

TStrings* TCustomOutline::Lines() const {
    // Rebuilt from the items whenever they changed; writes go through SetLines.
    if (!FLines) FLines = std::make_unique<TStringList>();
    FLines->BeginUpdate();
    FLines->Clear();
    for (TOutlineNode* n : FFlat)
        FLines->Add(std::string(n->Level() - 1, '\t') + n->FText);
    FLines->EndUpdate();
    return FLines.get();
}

void TCustomOutline::SetLines(TStrings* v) {
    Clear();
    if (!v) return;
    std::vector<TOutlineNode*> stack{FRoot};
    for (int i = 0; i < v->Count(); ++i) {
        std::string line = v->Get(i);
        size_t level = 0;
        while (level < line.size() && line[level] == '\t')
            ++level;
        // A line indented deeper than one level below the previous one hangs under the deepest item.
        size_t depth = std::min(level + 1, stack.size());
        stack.resize(depth);
        auto* node = new TOutlineNode(this);
        node->FText = line.substr(level);
        node->FParent = stack.back();
        stack.back()->FChildren.push_back(node);
        stack.push_back(node);
    }
    Renumber();
}

void TCustomOutline::FullExpand() {
    for (TOutlineNode* c : FRoot->FChildren)
        c->FullExpand();
}

void TCustomOutline::FullCollapse() {
    for (TOutlineNode* c : FRoot->FChildren)
        c->FullCollapse();
}

void TCustomOutline::EndUpdate() {
    if (FUpdateCount > 0) --FUpdateCount;
}

void TCustomOutline::UserDblClick() {
    if (FSelected && FSelected->HasItems()) FSelected->SetExpanded(!FSelected->FExpanded);
    DblClick();
}

void TCustomOutline::UserSelect(int Index) {
    if (Index < 1 || Index > ItemCount())
        throw EUserActionError("'" + Name() + "' has no item " + std::to_string(Index));
    TOutlineNode* n = FFlat[Index - 1];
    std::vector<TOutlineNode*> parents;
    for (TOutlineNode* p = n->FParent; p && p != FRoot; p = p->FParent)
        parents.push_back(p);
    for (auto it = parents.rbegin(); it != parents.rend(); ++it)
        (*it)->Expand();
    FSelected = n;
    Click();
}

void TCustomOutline::UserSelectText(const std::string& Text) {
    int i = GetTextItem(Text);
    if (i == 0) throw EUserActionError("'" + Name() + "' has no item '" + Text + "'");
    UserSelect(i);
}

void TCustomOutline::Describe(TControlDesc& d) const {
    TCustomControl::Describe(d);
    std::function<TNodeDesc(const TOutlineNode*)> node = [&](const TOutlineNode* n) {
        TNodeDesc nd;
        nd.Text = n->FText;
        nd.Expanded = n->FExpanded;
        nd.Selected = n == FSelected;
        for (TOutlineNode* c : n->FChildren)
            nd.Children.push_back(node(c));
        return nd;
    };
    for (TOutlineNode* c : FRoot->FChildren)
        d.Nodes.push_back(node(c));
    d.ItemIndex = SelectedItem();
}

} // namespace vcl
