// The scripted user-interface service and the form driver that acts on forms as a person would.
#include "vcl/scripted_ui.h"

#include <algorithm>

namespace vcl {

// ---- TFormDriver --------------------------------------------------------------------------------------
TFormDriver::TFormDriver(TCustomForm* Form, TScriptedUI* Owner) : FForm(Form), FOwner(Owner) {
    if (!Form) throw EScriptedUIError("No form to drive");
}

std::string TFormDriver::FormText() const {
    return "form " + FForm->ClassName() + " '" + FForm->Caption() + "'";
}

void TFormDriver::EnsureOpen() const {
    if (FClosed || !FForm->Visible()) throw EScriptedUIError("The " + FormText() + " is already closed");
}

TControl* TFormDriver::Control(const std::string& Name) const {
    // "Frame1.Edit1": each part is looked up among the components owned by the previous one.
    TComponent* owner = FForm;
    TComponent* found = nullptr;
    size_t start = 0;
    while (true) {
        size_t dot = Name.find('.', start);
        std::string part = Name.substr(start, dot == std::string::npos ? std::string::npos : dot - start);
        found = owner->FindComponent(part);
        if (!found && owner == FForm) {
            // A control parented on the form but owned elsewhere is still reachable by its name.
            std::function<TControl*(const TWinControl*)> search = [&](const TWinControl* w) -> TControl* {
                for (TControl* c : w->ControlList()) {
                    if (rtl::SameText(c->Name(), part)) return c;
                    if (auto* cw = dynamic_cast<TWinControl*>(c))
                        if (TControl* r = search(cw)) return r;
                }
                return nullptr;
            };
            found = search(FForm);
        }
        if (!found) break;
        if (dot == std::string::npos) break;
        owner = found;
        start = dot + 1;
    }
    auto* c = dynamic_cast<TControl*>(found);
    if (!c) throw EScriptedUIError("The " + FormText() + " has no control named '" + Name + "'");
    return c;
}

void TFormDriver::RunGuarded(rtl::TObject* sender, const std::function<void()>& f) {
    try {
        f();
    } catch (const EScriptedUIError&) {
        throw;
    } catch (const EUserActionError& e) {
        throw EScriptedUIError(std::string(e.what()) + " (in the " + FormText() + ")");
    } catch (...) {
        if (FOwner && FOwner->PropagateExceptions) throw;
        Application()->HandleException(sender);
    }
}

void TFormDriver::AfterAction() {
    if (FClosed) return;
    if (FForm->Modal()) {
        if (FForm->ModalResult() != mrNone) {
            bool closed = false;
            RunGuarded(FForm, [&] { closed = FForm->CloseModal(); });
            FClosed = closed;
        }
    } else if (!FForm->Visible()) {
        FClosed = true;
    }
}

template <class F> void TFormDriver::Act(const std::string& Name, F action, bool focus) {
    EnsureOpen();
    TControl* c = Control(Name);
    if (!c->CanBeActedOn())
        throw EScriptedUIError("Control '" + Name + "' of the " + FormText() + " is " +
                               (c->Showing() ? "disabled" : "not showing"));
    if (GetParentForm(c) != FForm)
        throw EScriptedUIError("Control '" + Name + "' is not on the " + FormText());
    RunGuarded(c, [&] {
        if (focus)
            if (auto* w = dynamic_cast<TWinControl*>(c);
                w && w->FocusOnClick() && w->CanFocus() && !w->Focused())
                FForm->FocusControl(w);
    });
    // An OnExit that moved the focus elsewhere, or disabled the control, stops the person's click there.
    if (!c->CanBeActedOn()) {
        AfterAction();
        return;
    }
    RunGuarded(c, [&] { action(c); });
    AfterAction();
}

namespace {
TPoint Center(const TControl* c) {
    return Point(c->Width() / 2, c->Height() / 2);
}
} // namespace

void TFormDriver::Click(const std::string& Name) {
    Act(
        Name,
        [](TControl* c) {
            TPoint p = Center(c);
            c->MouseDown(mbLeft, {ssLeft}, p.X, p.Y);
            c->UserClick();
            c->MouseUp(mbLeft, {}, p.X, p.Y);
        },
        true);
}

void TFormDriver::DblClick(const std::string& Name) {
    // The platform's double click: the first click, then the double click message.
    Act(
        Name,
        [](TControl* c) {
            TPoint p = Center(c);
            c->MouseDown(mbLeft, {ssLeft}, p.X, p.Y);
            c->UserClick();
            c->MouseUp(mbLeft, {}, p.X, p.Y);
            c->MouseDown(mbLeft, {ssLeft, ssDouble}, p.X, p.Y);
            c->UserDblClick();
            c->MouseUp(mbLeft, {}, p.X, p.Y);
        },
        true);
}

void TFormDriver::Type(const std::string& Name, const std::string& Text) {
    Act(
        Name, [&](TControl* c) { c->UserType(Text); }, true);
}

void TFormDriver::Check(const std::string& Name, bool Checked) {
    Act(
        Name, [&](TControl* c) { c->UserCheck(Checked); }, true);
}

void TFormDriver::Select(const std::string& Name, int Index) {
    Act(
        Name, [&](TControl* c) { c->UserSelect(Index); }, true);
}

void TFormDriver::Select(const std::string& Name, const std::string& Text) {
    Act(
        Name, [&](TControl* c) { c->UserSelectText(Text); }, true);
}

void TFormDriver::SelectMulti(const std::string& Name, const std::vector<int>& Indexes) {
    Act(
        Name, [&](TControl* c) { c->UserSelectMulti(Indexes); }, true);
}

void TFormDriver::SelectCell(const std::string& Name, int ACol, int ARow) {
    Act(
        Name, [&](TControl* c) { c->UserSelectCell(ACol, ARow); }, true);
}

void TFormDriver::SetCell(const std::string& Name, int ACol, int ARow, const std::string& Text) {
    Act(
        Name, [&](TControl* c) { c->UserSetCell(ACol, ARow, Text); }, true);
}

void TFormDriver::SetValue(const std::string& Name, int Value) {
    Act(
        Name, [&](TControl* c) { c->UserSetValue(Value); }, true);
}

void TFormDriver::PressKey(const std::string& Name, uint16_t Key, TShiftState Shift) {
    Act(
        Name,
        [&](TControl* c) {
            auto* w = dynamic_cast<TWinControl*>(c);
            if (!w || !w->CanFocus())
                throw EUserActionError("Control '" + c->Name() + "' cannot take the focus");
            if (!w->Focused()) FForm->FocusControl(w);
            if (FForm->FocusedControl() == w) FForm->DispatchKey(w, Key, Shift);
        },
        false);
}

void TFormDriver::PressKey(uint16_t Key, TShiftState Shift) {
    EnsureOpen();
    TWinControl* target = FForm->FocusedControl();
    RunGuarded(target ? static_cast<rtl::TObject*>(target) : FForm,
               [&] { FForm->DispatchKey(target ? target : FForm, Key, Shift); });
    AfterAction();
}

void TFormDriver::Focus(const std::string& Name) {
    Act(
        Name,
        [&](TControl* c) {
            auto* w = dynamic_cast<TWinControl*>(c);
            if (!w || !w->CanFocus())
                throw EUserActionError("Control '" + c->Name() + "' cannot take the focus");
            FForm->FocusControl(w);
        },
        false);
}

void TFormDriver::ClickMenu(const std::string& ItemName) {
    EnsureOpen();
    auto* item = dynamic_cast<TMenuItem*>(FForm->FindComponent(ItemName));
    if (!item && FForm->Menu()) item = FForm->Menu()->FindByName(ItemName);
    if (!item) throw EScriptedUIError("The " + FormText() + " has no menu item named '" + ItemName + "'");
    for (TMenuItem* p = item; p; p = p->Parent())
        if (p->Parent() && (!p->Enabled() || !p->Visible()))
            throw EScriptedUIError("Menu item '" + ItemName + "' of the " + FormText() + " is " +
                                   (p->Visible() ? "disabled" : "hidden"));
    RunGuarded(item, [&] { item->Click(); });
    AfterAction();
}

bool TFormDriver::DragDrop(const std::string& Source, const std::string& Target, int X, int Y) {
    EnsureOpen();
    TControl* src = Control(Source);
    TControl* dst = Control(Target);
    if (!src->CanBeActedOn() || !dst->CanBeActedOn())
        throw EScriptedUIError("Drag from '" + Source + "' to '" + Target +
                               "' needs both controls enabled and showing");
    bool accepted = false;
    RunGuarded(dst, [&] {
        accepted = dst->DragOver(src, X, Y, dsDragEnter) && dst->DragOver(src, X, Y, dsDragMove);
        if (accepted) dst->DragDrop(src, X, Y);
        src->DoEndDrag(accepted ? dst : nullptr, X, Y);
    });
    AfterAction();
    return accepted;
}

std::string TFormDriver::Hint(const std::string& Name, int X, int Y) {
    EnsureOpen();
    TControl* c = Control(Name);
    if (!c->Showing())
        throw EScriptedUIError("Control '" + Name + "' of the " + FormText() + " is not showing");
    std::string shown;
    RunGuarded(c, [&] { shown = Application()->ActivateHint(c, Point(X, Y)); });
    return shown;
}

void TFormDriver::Close(TModalResult Result) {
    EnsureOpen();
    if (FForm->Modal()) {
        FForm->SetModalResult(Result);
    } else {
        FForm->SetModalResult(Result);
        RunGuarded(FForm, [&] { FForm->Close(); });
    }
    AfterAction();
}

void TFormDriver::CloseForm() {
    EnsureOpen();
    RunGuarded(FForm, [&] { FForm->Close(); });
    AfterAction();
}

// ---- TScriptedUI --------------------------------------------------------------------------------------
TScriptedUI::TScriptedUI() : FPrevious(SetUI(this)) {}

TScriptedUI::~TScriptedUI() {
    SetUI(FPrevious);
}

void TScriptedUI::OnForm(const std::string& ClassName, TFormHandler Handler) {
    FFormHandlers[rtl::UpperCase(ClassName)].push_back(std::move(Handler));
}

TFormDriver TScriptedUI::OpenForm(const std::string& ClassName) {
    TScreen* screen = Screen();
    for (int i = screen->FormCount() - 1; i >= 0; --i) {
        TCustomForm* f = screen->Forms(i);
        if (f->Visible() && !f->Modal() && rtl::SameText(f->ClassName(), ClassName))
            return TFormDriver(f, this);
    }
    throw EScriptedUIError("No open form of class " + ClassName);
}

void TScriptedUI::AnswerMessage(TModalResult Result) {
    FMessageAnswers.push_back([Result](const TMessageRequest&) { return Result; });
}

void TScriptedUI::AnswerMessage(TMessageAnswer Answer) {
    FMessageAnswers.push_back(std::move(Answer));
}

void TScriptedUI::AnswerOpen(std::optional<std::vector<std::string>> Files) {
    FOpenAnswers.push_back(std::move(Files));
}

void TScriptedUI::AnswerSave(std::optional<std::string> File) {
    if (File)
        FSaveAnswers.push_back(std::vector<std::string>{*File});
    else
        FSaveAnswers.push_back(std::nullopt);
}

void TScriptedUI::AnswerColor(std::optional<TColor> Color) {
    FColorAnswers.push_back(Color);
}
void TScriptedUI::AnswerFont(std::function<bool(TFont&)> Change) {
    FFontAnswers.push_back(std::move(Change));
}
void TScriptedUI::AnswerFolder(std::optional<std::string> Folder) {
    FFolderAnswers.push_back(std::move(Folder));
}

int TScriptedUI::PendingAnswers() const {
    size_t n = FMessageAnswers.size() + FOpenAnswers.size() + FSaveAnswers.size() + FColorAnswers.size() +
               FFontAnswers.size() + FFolderAnswers.size();
    for (const auto& [name, q] : FFormHandlers)
        n += q.size();
    return static_cast<int>(n);
}

std::vector<std::string> TScriptedUI::MessageTexts() const {
    std::vector<std::string> v;
    for (const auto& m : FMessages)
        v.push_back(m.Request.Text);
    return v;
}

TModalResult TScriptedUI::ShowModal(TCustomForm* Form) {
    // The handler queued for the form's class, else for the nearest ancestor class with one queued.
    std::deque<TFormHandler>* queue = nullptr;
    for (rtl::TClass cls = Form->ClassType(); cls && !queue; cls = cls->ClassParent()) {
        auto it = FFormHandlers.find(rtl::UpperCase(cls->ClassName()));
        if (it != FFormHandlers.end() && !it->second.empty()) queue = &it->second;
    }
    const std::string text = "form " + Form->ClassName() + " '" + Form->Caption() + "'";
    if (!queue) throw EScriptedUIError("No scripted answer for " + text);
    TFormHandler handler = std::move(queue->front());
    queue->pop_front();
    size_t record = FForms.size();
    FForms.push_back({Form->ClassName(), Form->Caption(), true, DescribeControl(Form), {}, mrNone, false});
    FFormObjects.push_back(Form);
    TFormDriver driver(Form, this);
    handler(driver);
    if (!driver.Closed()) {
        // The handler may have set ModalResult itself instead of acting through the driver.
        bool closed = Form->ModalResult() != mrNone && Form->CloseModal();
        if (!closed) throw EScriptedUIError("The scripted handler for " + text + " ended without closing it");
    }
    FForms[record].AtClose = DescribeControl(Form);
    FForms[record].Result = Form->ModalResult();
    FForms[record].Closed = true;
    FFormObjects[record] = nullptr;
    return Form->ModalResult();
}

void TScriptedUI::ShowForm(TCustomForm* Form) {
    FForms.push_back({Form->ClassName(), Form->Caption(), false, DescribeControl(Form), {}, mrNone, false});
    FFormObjects.push_back(Form);
}

void TScriptedUI::HideForm(TCustomForm* Form) {
    for (size_t i = FForms.size(); i-- > 0;)
        if (FFormObjects[i] == Form && !FForms[i].Closed) {
            FForms[i].AtClose = DescribeControl(Form);
            FForms[i].Result = Form->ModalResult();
            FForms[i].Closed = true;
            FFormObjects[i] = nullptr;
            return;
        }
}

TModalResult TScriptedUI::MessageDlg(const TMessageRequest& Request) {
    TModalResult result = mrNone;
    std::vector<TMsgDlgBtn> offered;
    for (int b = mbYes; b <= mbHelp; ++b)
        if (Request.Buttons.Contains(static_cast<TMsgDlgBtn>(b)) && b != mbHelp)
            offered.push_back(static_cast<TMsgDlgBtn>(b));
    if (!FMessageAnswers.empty()) {
        TMessageAnswer answer = std::move(FMessageAnswers.front());
        FMessageAnswers.pop_front();
        result = answer(Request);
        auto button = ButtonOfModalResult(result);
        if (!button || !Request.Buttons.Contains(*button))
            throw EScriptedUIError("Scripted answer " + std::to_string(result) +
                                   " is not a button of the message '" + Request.Text + "'");
    } else if (!StrictMessages && offered.size() == 1) {
        result = ModalResultOf(offered.front());
    } else {
        throw EScriptedUIError("No scripted answer for the message '" + Request.Text + "'");
    }
    FMessages.push_back({Request, result});
    return result;
}

template <class T> T TScriptedUI::NextDialogAnswer(const std::string& kind, const std::string& title) {
    std::deque<T>* q = nullptr;
    if constexpr (std::is_same_v<T, std::optional<std::vector<std::string>>>)
        q = kind == "open" ? &FOpenAnswers : &FSaveAnswers;
    else if constexpr (std::is_same_v<T, std::optional<TColor>>)
        q = &FColorAnswers;
    else if constexpr (std::is_same_v<T, std::optional<std::string>>)
        q = &FFolderAnswers;
    else
        q = &FFontAnswers;
    if (q->empty()) throw EScriptedUIError("No scripted answer for the " + kind + " dialog '" + title + "'");
    T answer = std::move(q->front());
    q->pop_front();
    return answer;
}

std::optional<std::vector<std::string>> TScriptedUI::ChooseFiles(const TOpenDialog& Dialog) {
    std::string kind = Dialog.IsSaveDialog() ? "save" : "open";
    auto answer = NextDialogAnswer<std::optional<std::vector<std::string>>>(kind, Dialog.ShownTitle());
    FDialogs.push_back({kind, Dialog.ShownTitle(), !answer, answer ? *answer : std::vector<std::string>{}});
    return answer;
}

std::optional<TColor> TScriptedUI::ChooseColor(const TColorDialog& Dialog) {
    auto answer = NextDialogAnswer<std::optional<TColor>>("color", "Color");
    FDialogs.push_back(
        {"color", "Color", !answer,
         answer ? std::vector<std::string>{ColorToString(*answer)} : std::vector<std::string>{}});
    return answer;
}

bool TScriptedUI::ChooseFont(const TFontDialog& Dialog, TFont& Chosen) {
    auto answer = NextDialogAnswer<std::function<bool(TFont&)>>("font", "Font");
    bool ok = answer && answer(Chosen);
    FDialogs.push_back(
        {"font", "Font", !ok, ok ? std::vector<std::string>{Chosen.Name()} : std::vector<std::string>{}});
    return ok;
}

std::optional<std::string> TScriptedUI::ChooseFolder(const TFolderDialog& Dialog) {
    std::string title = Dialog.Title().empty() ? "Select Directory" : Dialog.Title();
    auto answer = NextDialogAnswer<std::optional<std::string>>("folder", title);
    FDialogs.push_back(
        {"folder", title, !answer, answer ? std::vector<std::string>{*answer} : std::vector<std::string>{}});
    return answer;
}

int TScriptedUI::ShellExecute(const TShellExecuteRequest& Request) {
    FShell.push_back(Request);
    return ShellExecuteResult;
}

bool TScriptedUI::Help(const THelpRequest& Request) {
    FHelp.push_back(Request);
    return HelpResult;
}

void TScriptedUI::Popup(TPopupMenu* Menu, int X, int Y) {
    FPopups.push_back(Menu->Name());
}

} // namespace vcl
