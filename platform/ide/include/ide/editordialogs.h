// The platform's own editor windows: the collection editor (a design window listing a collection's
// items) and the filter editor (a dialog of description/pattern pairs for open and save dialog filters).
#pragma once

#include <string>

#include "ide/designwindow.h"
#include "vcl/grids.h"
#include "vcl/stdctrls.h"

namespace ide {

// Lists the items of one collection property of a component as "0 - TStatusPanel" rows (the item's
// display name); selecting rows selects the items on the designer; Add, Delete, Move Up and Move Down
// change the collection and mark the form modified. Closes itself when its component or designer goes.
class TCollectionEditor : public TDesignWindow {
    JEX_CLASS(TCollectionEditor, TDesignWindow)
    explicit TCollectionEditor(TComponent* AOwner);

    // Shows the editor of this collection, reusing an open one for the same designer and collection.
    static TCollectionEditor* ShowCollectionEditor(IDesigner* designer, TComponent* component,
                                                   rtl::TCollection* collection,
                                                   const std::string& propertyName);
    // The open editor of a collection, or nil.
    static TCollectionEditor* FindEditor(IDesigner* designer, const rtl::TCollection* collection);

    TComponent* Component() const { return FComponent; }
    rtl::TCollection* Collection() const { return FCollection; }
    void UpdateList();

    vcl::TListBox* ItemList;
    vcl::TButton* AddButton;
    vcl::TButton* DeleteButton;
    vcl::TButton* MoveUpButton;
    vcl::TButton* MoveDownButton;

    void ItemDeleted(IDesigner* designer, TPersistent* item) override;
    void ItemsModified(IDesigner* designer) override;
    void SelectionChanged(IDesigner* designer, const TDesignerSelectionList& selection) override;
    void EditAction(TEditAction Action) override;
    TEditState GetEditState() override;

private:
    void ItemListClick(rtl::TObject* Sender);
    void AddClick(rtl::TObject* Sender);
    void DeleteClick(rtl::TObject* Sender);
    void MoveUpClick(rtl::TObject* Sender);
    void MoveDownClick(rtl::TObject* Sender);
    void FormClose(rtl::TObject* Sender, vcl::TCloseAction& Action);
    void Move(int delta);
    void SelectItems(const std::vector<int>& indexes);
    void CloseEditor();
    TComponent* FComponent = nullptr;
    rtl::TCollection* FCollection = nullptr;
    std::string FPropertyName;
    bool FClosing = false;
};

// A modal dialog with a grid of filter names and patterns ("Text files (*.txt)", "*.txt").
class TFilterEditor : public vcl::TForm {
    JEX_CLASS(TFilterEditor, vcl::TForm)
    explicit TFilterEditor(TComponent* AOwner);
    // Fills the grid from "desc|pattern|desc|pattern" (with blank rows to type more into).
    void SetFilter(const std::string& filter);
    // The filled rows joined again; rows with neither name nor pattern are left out.
    std::string GetFilter() const;

    vcl::TStringGrid* Grid;
    vcl::TButton* OKButton;
    vcl::TButton* CancelButton;
};

// Runs the filter editor on a filter; true and the new filter when the person confirmed.
bool EditFilter(std::string& filter);

} // namespace ide
