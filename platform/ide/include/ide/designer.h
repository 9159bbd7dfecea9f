// The form designer: one TFormDesigner per root component under design. It implements IDesigner for
// editors and design windows, hooks the root's IDesignerNotify to see insertions, removals and renames,
// keeps the form's event-handler table and the selection, and loads, saves and copies components in the
// text form-file format.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ide/designintf.h"

namespace ide {

// One event handler of the designed form: its name and the event type it was created for.
struct TFormMethod {
    std::string Name;
    const rtl::TTypeInfo* Type = nullptr;
};

class TFormDesigner : public IDesigner, private rtl::IDesignerNotify {
public:
    // Starts designing `root`: sets its designing state, hooks its designer notifications, collects the
    // handler names its events already use, and tells design windows (DesignerOpened). With ownsRoot
    // the designer frees the root when it is destroyed.
    explicit TFormDesigner(TComponent* root, bool ownsRoot = false);
    // Closes (see Close), then frees the root when owned.
    ~TFormDesigner() override;
    TFormDesigner(const TFormDesigner&) = delete;
    TFormDesigner& operator=(const TFormDesigner&) = delete;

    // Tells every design window (DesignerClosed) and unhooks the root. Idempotent; also happens when the
    // root is freed by someone else.
    void Close();

    // ---- Host side ----
    bool IsModified() const { return FModified; }
    // The host clears the flag after saving.
    void SetModified(bool value) { FModified = value; }
    // Called after every Modified().
    std::function<void(TFormDesigner*)> OnModified;
    // Called by ShowMethod: the host shows the handler's code.
    std::function<void(TFormDesigner*, const std::string&)> OnShowMethod;
    // Called after the selection changed.
    std::function<void(TFormDesigner*)> OnSelectionChanged;
    const TDesignerSelectionList& Selection() const { return FSelection; }
    const std::vector<TFormMethod>& Methods() const { return FMethods; }
    // The handler ShowMethod was last asked for.
    const std::string& LastShownMethod() const { return FLastShownMethod; }
    // Re-reads the handler names from the events of the root and its components.
    void RebuildMethodTable();

    // The form as text form-file text, and the form read back from it into the root (replacing its
    // components and values; the handler table is rebuilt, the selection cleared, the modified flag
    // cleared). Files are UTF-8 text.
    std::string SaveToText();
    void LoadFromText(const std::string& text);
    void SaveToFile(const std::string& fileName);
    void LoadFromFile(const std::string& fileName);

    // The open designers, in opening order, and the designer of a root (nil when not designed).
    static std::vector<TFormDesigner*> OpenDesigners();
    static TFormDesigner* DesignerOf(const TComponent* root);

    // ---- IDesigner ----
    void Modified() override;
    TComponent* GetRoot() const override { return FRoot; }
    void SelectComponent(TPersistent* instance) override;
    void SetSelections(const TDesignerSelectionList& list) override;
    void GetSelections(TDesignerSelectionList& list) const override { list = FSelection; }
    TComponent* GetComponent(const std::string& name) const override;
    std::string GetComponentName(const TComponent* component) const override;
    void GetComponentNames(TClass cls, const TGetStrProc& proc) const override;
    std::string GetObjectName(const TPersistent* instance) const override;
    std::string GetRootClassName() const override;
    std::string UniqueName(const std::string& baseName) const override;
    TComponent* CreateComponent(TClass componentClass, TComponent* parent, int left, int top, int width,
                                int height) override;
    void DeleteComponent(TComponent* component) override;
    rtl::TMethod CreateMethod(const std::string& name, const rtl::TTypeInfo* methodType) override;
    std::string GetMethodName(const rtl::TMethod& method) const override { return method.Name; }
    void GetMethods(const rtl::TTypeInfo* methodType, const TGetStrProc& proc) const override;
    bool MethodExists(const std::string& name) const override;
    bool MethodFromAncestor(const rtl::TMethod&) const override { return false; }
    void RenameMethod(const std::string& curName, const std::string& newName) override;
    void ShowMethod(const std::string& name) override;
    void Revert(TPersistent* instance, const rtl::TPropInfo* propInfo) override;
    void CopyComponents(TComponent* root, const TDesignerSelectionList& selections) override;
    void PasteComponents(TComponent* owner, TComponent* parent, TDesignerSelectionList& pasted) override;
    bool ClipboardComponents() const override;
    void Activate() override;
    bool IsClosing() const override { return FClosing; }

private:
    // rtl::IDesignerNotify
    void Notification(TComponent* component, rtl::TOperation operation) override;
    void ValidateRename(TComponent* component, const std::string& curName,
                        const std::string& newName) override;

    // Components are announced (ItemInserted) once they are fully constructed: the root hears of them
    // from inside their base constructor.
    void FlushInserted();
    void SelectionChangedNotify();
    void RootDestroyed();
    const TFormMethod* FindMethod(const std::string& name) const;

    class TRootWatch;
    TComponent* FRoot;
    bool FOwnsRoot;
    bool FClosing = false;
    bool FClosed = false;
    bool FModified = false;
    bool FLoading = false;
    TDesignerSelectionList FSelection;
    std::vector<TFormMethod> FMethods;
    std::vector<TComponent*> FPendingInserted;
    std::string FLastShownMethod;
    std::unique_ptr<TRootWatch> FWatch;
};

// The designer clipboard: form-file text of copied components. Shared by every designer of the process;
// the host may mirror it to the system clipboard.
void SetDesignClipboardText(const std::string& text);
std::string DesignClipboardText();
// True when the text starts like a copied component ("object Name: TClass").
bool IsComponentText(const std::string& text);

} // namespace ide
