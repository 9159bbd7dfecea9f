// Design windows: non-modal forms that work on a designer's form (collection editors, list editors of a
// package) and follow what happens in every designer through the design notifications.
#pragma once

#include <string>

#include "ide/designintf.h"
#include "vcl/forms.h"

namespace ide {

// A form that is registered for the design notifications while it exists. Descendants override the
// notification virtuals (ItemDeleted, ItemInserted, ItemsModified, SelectionChanged, DesignerOpened,
// DesignerClosed), EditAction and GetEditState. The window's activation runs Activated (the constructor
// wires OnActivate to it; a descendant overrides Activated rather than setting OnActivate).
class TDesignWindow : public vcl::TForm, public IDesignNotification {
    JEX_CLASS(TDesignWindow, vcl::TForm)
    explicit TDesignWindow(TComponent* AOwner);
    ~TDesignWindow() override;

    IDesigner* Designer() const { return FDesigner; }
    void SetDesigner(IDesigner* designer) { FDesigner = designer; }
    // True while this window is the screen's active form (a person works in it).
    bool Active() const;
    // The window became active: its designer becomes the active design form.
    virtual void Activated();

    // The designer's unique name for a new component of Component's class.
    std::string UniqueName(TComponent* Component);
    // Clipboard actions of the host's Edit menu while this window is active.
    virtual void EditAction(TEditAction Action) {}
    virtual TEditState GetEditState() { return {}; }
    // The designer's clipboard, on behalf of the window.
    bool ClipboardComponents();
    void CopyComponents(TComponent* Root, const TDesignerSelectionList& Selections);
    void PasteComponents(TComponent* Owner, TComponent* Parent, TDesignerSelectionList& Selections);

    // The window's designer closed: the window forgets it and closes.
    void DesignerClosed(IDesigner* designer, bool goingDormant) override;

private:
    IDesigner* FDesigner = nullptr;
};

} // namespace ide
