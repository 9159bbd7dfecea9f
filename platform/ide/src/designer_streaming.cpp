// The designer's form files and clipboard: everything goes through the text form-file streaming of rtl.
#include <algorithm>

#include "ide/designer.h"
#include "rtl/streaming.h"

namespace ide {

using namespace rtl;

namespace {
std::string& ClipboardText() {
    static std::string text;
    return text;
}

TComponent* FindDesignedRoot(const std::string& name) {
    for (TFormDesigner* d : TFormDesigner::OpenDesigners())
        if (d->GetRoot() && SameText(d->GetRoot()->Name(), name)) return d->GetRoot();
    return nullptr;
}

// True when an ancestor of c in the parent chain is also in the list (it is written with that one).
bool ParentAlsoCopied(TComponent* c, const std::vector<TComponent*>& list) {
    for (TComponent* p = c->GetParentComponent(); p; p = p->GetParentComponent())
        if (std::find(list.begin(), list.end(), p) != list.end()) return true;
    return false;
}
} // namespace

void SetDesignClipboardText(const std::string& text) {
    ClipboardText() = text;
}
std::string DesignClipboardText() {
    return ClipboardText();
}

bool IsComponentText(const std::string& text) {
    std::string t = TrimLeft(text);
    for (const char* lead : {"object ", "inherited ", "inline "}) {
        size_t n = std::char_traits<char>::length(lead);
        if (t.size() > n && SameText(t.substr(0, n), lead)) return true;
    }
    return false;
}

// Makes references to other forms under design resolvable while reading and writing.
void EnsureGlobalComponentFinder() {
    static bool done = false;
    if (done) return;
    done = true;
    RegisterFindGlobalComponentProc(&FindDesignedRoot);
}

std::string TFormDesigner::SaveToText() {
    if (!FRoot) throw EInvalidOperation("The designer is closed");
    EnsureGlobalComponentFinder();
    FlushInserted();
    return WriteComponentText(FRoot);
}

void TFormDesigner::LoadFromText(const std::string& text) {
    if (!FRoot) throw EInvalidOperation("The designer is closed");
    EnsureGlobalComponentFinder();
    if (!IsComponentText(text)) throw EParserError("The text is not a form file");
    std::string backup = WriteComponentText(FRoot);
    SetSelections(TDesignerSelectionList());
    FRoot->DestroyComponents();
    FLoading = true;
    try {
        ReadComponentText(text, nullptr, FRoot);
    } catch (...) {
        // Put the form back as it was; a failure here would leave nothing worse than the failed read.
        try {
            FRoot->DestroyComponents();
            ReadComponentText(backup, nullptr, FRoot);
        } catch (...) {
        }
        FLoading = false;
        FPendingInserted.clear();
        RebuildMethodTable();
        throw;
    }
    FLoading = false;
    FPendingInserted.clear();
    FRoot->SetDesigning(true, true);
    RebuildMethodTable();
    ForEachDesignNotification([&](IDesignNotification* n) { n->ItemsModified(this); });
    FModified = false;
}

void TFormDesigner::SaveToFile(const std::string& fileName) {
    WriteFileBytes(fileName, SaveToText());
}

void TFormDesigner::LoadFromFile(const std::string& fileName) {
    LoadFromText(ReadFileBytes(fileName));
}

void TFormDesigner::CopyComponents(TComponent* root, const TDesignerSelectionList& selections) {
    if (!root) root = FRoot;
    std::vector<TComponent*> list;
    for (TPersistent* p : selections.List()) {
        auto* c = dynamic_cast<TComponent*>(p);
        if (c && c != root && c->Owner() == root) list.push_back(c);
    }
    std::erase_if(list, [&](TComponent* c) { return ParentAlsoCopied(c, list); });
    if (list.empty()) return;
    EnsureGlobalComponentFinder();
    SetDesignClipboardText(WriteComponentsText(list));
}

void TFormDesigner::PasteComponents(TComponent* owner, TComponent* parent, TDesignerSelectionList& pasted) {
    if (!FRoot) throw EInvalidOperation("The designer is closed");
    if (!owner) owner = FRoot;
    std::string text = DesignClipboardText();
    if (!IsComponentText(text)) throw EComponentError(SNoClipboardComponents);
    if (parent && (parent->ComponentState().Contains(csInline) ||
                   (parent->Owner() && parent->Owner() != FRoot &&
                    parent->Owner()->ComponentState().Contains(csInline))))
        throw EComponentError(SCantAddToFrame);
    EnsureGlobalComponentFinder();
    FlushInserted();
    auto rename = [this](TComponent* c, const std::string&) { return UniqueName(c->ClassName()); };
    std::vector<TComponent*> read = ReadComponentsText(text, owner, parent, rename);
    // Handlers that this form does not have are dropped, as the code behind them is not here.
    std::function<void(TComponent*)> fixEvents = [&](TComponent* c) {
        for (const TPropInfo* p : c->ClassType()->Properties()) {
            if (!p->PropType || p->PropType->Kind != tkMethod || !p->GetMethod || !p->SetMethod) continue;
            TMethod m = p->GetMethod(c);
            if (!m.Name.empty() && !MethodExists(m.Name)) p->SetMethod(c, TMethod{});
        }
        c->GetChildren(fixEvents, owner);
    };
    for (TComponent* c : read) {
        fixEvents(c);
        pasted.Add(c);
    }
    Modified();
}

bool TFormDesigner::ClipboardComponents() const {
    return IsComponentText(DesignClipboardText());
}

} // namespace ide
