// Selection lists, the design notification receivers and the active designer.
#include "ide/designintf.h"

#include <algorithm>

namespace ide {

using namespace rtl;

JEX_DEFINE_ENUM(TEditAction)
JEX_DEFINE_ENUM(TEditStateFlag)
JEX_DEFINE_SET(TEditState, TEditStateFlag)

TDesignerSelectionList::TDesignerSelectionList(std::initializer_list<TPersistent*> items) {
    for (TPersistent* p : items)
        Add(p);
}

int TDesignerSelectionList::Add(TPersistent* item) {
    int i = IndexOf(item);
    if (i >= 0) return i;
    FItems.push_back(item);
    return Count() - 1;
}

TPersistent* TDesignerSelectionList::Items(int index) const {
    if (index < 0 || index >= Count()) throw EListError(Format(SListIndexError, {index}));
    return FItems[static_cast<size_t>(index)];
}

int TDesignerSelectionList::IndexOf(const TPersistent* item) const {
    auto it = std::find(FItems.begin(), FItems.end(), item);
    return it == FItems.end() ? -1 : static_cast<int>(it - FItems.begin());
}

void TDesignerSelectionList::Delete(int index) {
    if (index < 0 || index >= Count()) throw EListError(Format(SListIndexError, {index}));
    FItems.erase(FItems.begin() + index);
}

bool TDesignerSelectionList::Remove(const TPersistent* item) {
    int i = IndexOf(item);
    if (i < 0) return false;
    Delete(i);
    return true;
}

TDesignerSelectionList CreateSelectionList() {
    return TDesignerSelectionList();
}

namespace {
struct TNotifications {
    std::vector<IDesignNotification*> List;
    IDesigner* Active = nullptr;
};
TNotifications& Notifications() {
    static TNotifications n;
    return n;
}
} // namespace

void RegisterDesignNotification(IDesignNotification* notification) {
    auto& l = Notifications().List;
    if (notification && std::find(l.begin(), l.end(), notification) == l.end()) l.push_back(notification);
}

void UnregisterDesignNotification(IDesignNotification* notification) {
    std::erase(Notifications().List, notification);
}

void ForEachDesignNotification(const std::function<void(IDesignNotification*)>& fn) {
    // Receivers close windows (and so unregister) from inside the calls: walk a snapshot.
    std::vector<IDesignNotification*> snapshot = Notifications().List;
    for (IDesignNotification* n : snapshot) {
        auto& live = Notifications().List;
        if (std::find(live.begin(), live.end(), n) != live.end()) fn(n);
    }
}

IDesigner* ActiveDesigner() {
    return Notifications().Active;
}
void SetActiveDesigner(IDesigner* designer) {
    Notifications().Active = designer;
}

} // namespace ide
