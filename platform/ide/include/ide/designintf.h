// The designer interface that property editors, component editors and design windows talk to, the
// selection list they pass around, and the notifications the designers send to design windows.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "rtl/classes.h"

namespace ide {

using rtl::TClass;
using rtl::TComponent;
using rtl::TPersistent;

using TGetStrProc = std::function<void(const std::string&)>;

// Texts the designer raises with.
inline constexpr const char* SCantDeleteAncestor =
    "Selection contains a component introduced in an ancestor form which cannot be deleted";
inline constexpr const char* SCantAddToFrame = "New components cannot be added to frame instances";
inline constexpr const char* SInvalidMethodName = "'%s' is not a valid method name";
inline constexpr const char* SCannotCreateName = "Cannot create a method for an unnamed component";
inline constexpr const char* SNoClipboardComponents = "The clipboard does not contain components";

// An ordered list of selected objects (components, collection items, sub-objects), compared by identity.
class TDesignerSelectionList {
public:
    TDesignerSelectionList() = default;
    TDesignerSelectionList(std::initializer_list<TPersistent*> items);
    int Add(TPersistent* item); // index of the item; an item already present is not added again
    int Count() const { return static_cast<int>(FItems.size()); }
    TPersistent* Items(int index) const; // raises EListError out of range
    TPersistent* operator[](int index) const { return Items(index); }
    int IndexOf(const TPersistent* item) const;
    bool Contains(const TPersistent* item) const { return IndexOf(item) >= 0; }
    void Delete(int index);
    bool Remove(const TPersistent* item);
    void Clear() { FItems.clear(); }
    bool Empty() const { return FItems.empty(); }
    // Same items in the same order.
    bool Equals(const TDesignerSelectionList& other) const { return FItems == other.FItems; }
    const std::vector<TPersistent*>& List() const { return FItems; }

private:
    std::vector<TPersistent*> FItems;
};

// A fresh, empty selection list.
TDesignerSelectionList CreateSelectionList();

JEX_ENUM(TEditAction, eaUndo, eaRedo, eaCut, eaCopy, eaPaste, eaDelete, eaSelectAll, eaPrint, eaBringToFront,
         eaSendToBack, eaAlignToGrid)
JEX_ENUM(TEditStateFlag, esCanUndo, esCanRedo, esCanCut, esCanCopy, esCanPaste, esCanDelete, esCanZOrder,
         esCanAlignGrid, esCanEditOle, esCanTabOrder, esCanCreationOrder, esCanPrint, esCanSelectAll)
JEX_SET(TEditState, TEditStateFlag)

// The designer of one form (root component) under design, as editors and design windows see it.
class IDesigner {
public:
    virtual ~IDesigner() = default;

    // The form changed: sets the designer's modified flag, tells the host and the design windows.
    virtual void Modified() = 0;
    virtual TComponent* GetRoot() const = 0;

    // Selection.
    virtual void SelectComponent(TPersistent* instance) = 0; // nil clears the selection
    virtual void SetSelections(const TDesignerSelectionList& list) = 0;
    virtual void GetSelections(TDesignerSelectionList& list) const = 0;

    // Components by name: a component of this form ("Button1"), of an inline frame on it
    // ("Frame1.ListBox1") or of another form under design ("Form2.Button1"); nil when unknown.
    virtual TComponent* GetComponent(const std::string& name) const = 0;
    // The name GetComponent would resolve back to the component; empty for nil or unreachable ones.
    virtual std::string GetComponentName(const TComponent* component) const = 0;
    // Names of the components fitting `cls` on this form, then "Form.Component" of the other forms.
    virtual void GetComponentNames(TClass cls, const TGetStrProc& proc) const = 0;
    // The name shown for any selected object ("Button1", "Button1.Font", "StatusBar1.Panels[0]").
    virtual std::string GetObjectName(const TPersistent* instance) const = 0;
    // The class name of the root, for method names of the root's own events ("TForm" -> FormCreate).
    virtual std::string GetRootClassName() const = 0;
    // Class name without its leading "T", then the smallest N >= 1 giving a name unused in the form.
    virtual std::string UniqueName(const std::string& baseName) const = 0;

    // Creates a component the way dropping it from the palette does: owned by the root, named with
    // UniqueName, parented to `parent` when it is a control, placed at the given bounds (width or height
    // <= 0 keep the class's default size), designing.
    virtual TComponent* CreateComponent(TClass componentClass, TComponent* parent, int left, int top,
                                        int width, int height) = 0;
    // Frees a component of the form; raises EComponentError for one introduced by an ancestor.
    virtual void DeleteComponent(TComponent* component) = 0;

    // The form's event handlers (methods), by name.
    virtual rtl::TMethod CreateMethod(const std::string& name, const rtl::TTypeInfo* methodType) = 0;
    virtual std::string GetMethodName(const rtl::TMethod& method) const = 0;
    virtual void GetMethods(const rtl::TTypeInfo* methodType, const TGetStrProc& proc) const = 0;
    virtual bool MethodExists(const std::string& name) const = 0;
    virtual bool MethodFromAncestor(const rtl::TMethod& method) const = 0;
    virtual void RenameMethod(const std::string& curName, const std::string& newName) = 0;
    // Asks the host to show the handler's code.
    virtual void ShowMethod(const std::string& name) = 0;

    // Sets a property back to the value it would have without editing (its default).
    virtual void Revert(TPersistent* instance, const rtl::TPropInfo* propInfo) = 0;

    // Clipboard in the form-file text format.
    virtual void CopyComponents(TComponent* root, const TDesignerSelectionList& selections) = 0;
    virtual void PasteComponents(TComponent* owner, TComponent* parent, TDesignerSelectionList& pasted) = 0;
    virtual bool ClipboardComponents() const = 0;

    // Makes this the active design form (a design window of it was activated).
    virtual void Activate() = 0;
    // True while the designer is being closed.
    virtual bool IsClosing() const = 0;
};

// Receives what happens in every designer (design windows register themselves). A receiver may close
// itself or unregister others from inside a call.
class IDesignNotification {
public:
    virtual ~IDesignNotification() = default;
    // The item is being destroyed: only its address may be used.
    virtual void ItemDeleted(IDesigner* designer, TPersistent* item) {}
    // A component joined the form (told once it is fully constructed).
    virtual void ItemInserted(IDesigner* designer, TPersistent* item) {}
    // Components or values of the form changed (Modified, or the form was loaded again).
    virtual void ItemsModified(IDesigner* designer) {}
    // The form was marked modified (Modified); follows ItemsModified.
    virtual void FormModified(IDesigner* designer) {}
    virtual void SelectionChanged(IDesigner* designer, const TDesignerSelectionList& selection) {}
    virtual void DesignerOpened(IDesigner* designer, bool resurrecting) {}
    virtual void DesignerClosed(IDesigner* designer, bool goingDormant) {}
};

void RegisterDesignNotification(IDesignNotification* notification);
void UnregisterDesignNotification(IDesignNotification* notification);
// Calls fn for every registered receiver, skipping those unregistered meanwhile.
void ForEachDesignNotification(const std::function<void(IDesignNotification*)>& fn);

// The designer made active last (by activation or by opening), or nil.
IDesigner* ActiveDesigner();
void SetActiveDesigner(IDesigner* designer);

} // namespace ide
