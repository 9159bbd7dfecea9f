// Design scripts: parsing and checking the steps, the host's scripted user interface, and the runner that
// performs each step through the designer, the inspector model and the component editors.
#include "script.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <sstream>

#include "commands.h"
#include "ide/compedit.h"
#include "ide/propedit.h"
#include "mainwindow.h"
#include "vcl/dialogs.h"
#include "vcl/formdesc.h"

namespace host {

using namespace rtl;
using vcl::EScriptedUIError;

// ---- The host's scripted user interface ---------------------------------------------------------------
TScriptUI::TScriptUI() {
    StrictMessages = true;
}

template <class F> auto TScriptUI::Guard(const char* kind, F&& f) -> decltype(f()) {
    try {
        return f();
    } catch (const EScriptedUIError& e) {
        // An unanswered question inside a dialog passes through every level that showed it: keep it once.
        if (FUnanswered.empty() || FUnanswered.back().What != e.Message())
            FUnanswered.push_back({kind, e.Message()});
        throw;
    }
}

vcl::TModalResult TScriptUI::ShowModal(vcl::TCustomForm* Form) {
    return Guard("form", [&] { return TScriptedUI::ShowModal(Form); });
}

vcl::TModalResult TScriptUI::MessageDlg(const vcl::TMessageRequest& Request) {
    return Guard("message", [&] { return TScriptedUI::MessageDlg(Request); });
}

std::optional<std::vector<std::string>> TScriptUI::ChooseFiles(const vcl::TOpenDialog& Dialog) {
    return Guard(Dialog.IsSaveDialog() ? "save" : "open", [&] { return TScriptedUI::ChooseFiles(Dialog); });
}

std::optional<vcl::TColor> TScriptUI::ChooseColor(const vcl::TColorDialog& Dialog) {
    return Guard("color", [&] { return TScriptedUI::ChooseColor(Dialog); });
}

bool TScriptUI::ChooseFont(const vcl::TFontDialog& Dialog, vcl::TFont& Chosen) {
    return Guard("font", [&] { return TScriptedUI::ChooseFont(Dialog, Chosen); });
}

std::optional<std::string> TScriptUI::ChooseFolder(const vcl::TFolderDialog& Dialog) {
    return Guard("folder", [&] { return TScriptedUI::ChooseFolder(Dialog); });
}

void TScriptUI::ShowException(const std::string& ClassName, const std::string& Message) {
    FExceptions.push_back({ClassName, Message});
    // The platform's exception box: a message box that needs its OK like any other.
    vcl::TUserInterface::ShowException(ClassName, Message);
}

// ---- Names used in scripts and transcripts ------------------------------------------------------------
namespace {

struct TNamedResult {
    const char* Name;
    vcl::TModalResult Result;
};
constexpr TNamedResult SModalResults[] = {
    {"none", vcl::mrNone},         {"ok", vcl::mrOk},
    {"cancel", vcl::mrCancel},     {"abort", vcl::mrAbort},
    {"retry", vcl::mrRetry},       {"ignore", vcl::mrIgnore},
    {"yes", vcl::mrYes},           {"no", vcl::mrNo},
    {"all", vcl::mrAll},           {"notoall", vcl::mrNoToAll},
    {"yestoall", vcl::mrYesToAll},
};

std::string ModalResultName(vcl::TModalResult r) {
    for (const auto& n : SModalResults)
        if (n.Result == r) return n.Name;
    return std::to_string(r);
}

// "ok", "mrOk", "OK" or a number.
vcl::TModalResult ParseModalResult(const TJson& v) {
    if (v.is_number_integer()) return v.get<int>();
    std::string s = LowerCase(v.get<std::string>());
    if (s.rfind("mr", 0) == 0) s = s.substr(2);
    for (const auto& n : SModalResults)
        if (s == n.Name) return n.Result;
    throw EScriptError("Unknown modal result '" + v.get<std::string>() + "'");
}

std::string ButtonName(vcl::TMsgDlgBtn b) {
    return GetEnumName(vcl::TypeInfoOf(static_cast<vcl::TMsgDlgBtn*>(nullptr)), b);
}

// "yes", "mbYes", "Yes" ... the button a person presses in a message box.
vcl::TMsgDlgBtn ParseButton(const std::string& name) {
    std::string s = LowerCase(name);
    if (s.rfind("mb", 0) == 0) s = s.substr(2);
    for (int b = vcl::mbYes; b <= vcl::mbHelp; ++b)
        if (LowerCase(ButtonName(static_cast<vcl::TMsgDlgBtn>(b)).substr(2)) == s)
            return static_cast<vcl::TMsgDlgBtn>(b);
    throw EScriptError("Unknown message button '" + name + "'");
}

TJson ParseJsonText(const std::string& text) {
    return TJson::parse(text);
}

TJson DescJson(const vcl::TControlDesc& d) {
    return ParseJsonText(vcl::ToJson(d));
}

// ---- Step checking ------------------------------------------------------------------------------------
enum class TKind { String, Int, Bool, Array, Object, StringOrInt, StringOrArray, Any, StringArrayOrNull };

bool HasKind(const TJson& v, TKind k) {
    switch (k) {
    case TKind::String:
        return v.is_string();
    case TKind::Int:
        return v.is_number_integer();
    case TKind::Bool:
        return v.is_boolean();
    case TKind::Array:
        return v.is_array();
    case TKind::Object:
        return v.is_object();
    case TKind::StringOrInt:
        return v.is_string() || v.is_number_integer();
    case TKind::StringOrArray:
        return v.is_string() || v.is_array();
    case TKind::StringArrayOrNull:
        return v.is_string() || v.is_array() || v.is_null();
    case TKind::Any:
        return true;
    }
    return false;
}

struct TField {
    const char* Name;
    TKind Kind;
    bool Required;
};

// Fields every step may have.
const TField SCommonFields[] = {{"op", TKind::String, true},
                                {"onError", TKind::String, false},
                                {"expectError", TKind::String, false},
                                {"comment", TKind::Any, false}};

const std::map<std::string, std::vector<TField>>& StepFields() {
    static const std::map<std::string, std::vector<TField>> fields = {
        {"new", {{"class", TKind::String, false}, {"name", TKind::String, false}}},
        {"open", {{"file", TKind::String, true}}},
        {"drop",
         {{"class", TKind::String, true},
          {"parent", TKind::String, false},
          {"left", TKind::Int, false},
          {"top", TKind::Int, false},
          {"width", TKind::Int, false},
          {"height", TKind::Int, false}}},
        {"select", {{"component", TKind::String, false}, {"components", TKind::Array, false}}},
        {"set",
         {{"component", TKind::String, false},
          {"components", TKind::Array, false},
          {"property", TKind::String, true},
          {"value", TKind::String, true}}},
        {"edit",
         {{"component", TKind::String, false},
          {"components", TKind::Array, false},
          {"property", TKind::String, true}}},
        {"pick",
         {{"component", TKind::String, false},
          {"components", TKind::Array, false},
          {"property", TKind::String, true},
          {"value", TKind::String, true}}},
        {"verb", {{"component", TKind::String, true}, {"verb", TKind::StringOrInt, true}}},
        {"dblclick", {{"component", TKind::String, true}}},
        {"delete", {{"component", TKind::String, false}, {"components", TKind::Array, false}}},
        {"copy", {{"component", TKind::String, false}, {"components", TKind::Array, false}}},
        {"paste", {{"parent", TKind::String, false}}},
        {"menu", {{"item", TKind::String, true}}},
        {"hint", {{"class", TKind::String, true}}},
        {"save", {{"file", TKind::String, true}}},
        {"expect",
         {{"component", TKind::String, false},
          {"property", TKind::String, false},
          {"value", TKind::String, false},
          {"parent", TKind::String, false},
          {"exists", TKind::String, false},
          {"missing", TKind::String, false},
          {"modified", TKind::Bool, false},
          {"message", TKind::String, false},
          {"messageContains", TKind::String, false},
          {"formShown", TKind::String, false},
          {"selected", TKind::Array, false},
          {"componentCount", TKind::Int, false},
          {"hint", TKind::String, false}}},
        {"answer",
         {{"form", TKind::String, false},
          {"actions", TKind::Array, false},
          {"close", TKind::StringOrInt, false},
          {"message", TKind::String, false},
          {"text", TKind::String, false},
          {"contains", TKind::String, false},
          {"open", TKind::StringArrayOrNull, false},
          {"save", TKind::StringArrayOrNull, false},
          {"folder", TKind::StringArrayOrNull, false},
          {"color", TKind::Any, false},
          {"font", TKind::Any, false}}},
        {"form", {{"class", TKind::String, true}, {"actions", TKind::Array, true}}},
    };
    return fields;
}

[[noreturn]] void StepError(size_t index, const std::string& op, const std::string& what) {
    throw EScriptError("step " + std::to_string(index + 1) + (op.empty() ? std::string() : " (" + op + ")") +
                       ": " + what);
}

const char* const SActionKeys[] = {"click",     "dblclick", "type",   "check", "select", "selectCell",
                                   "setCell",   "key",      "spin",   "focus", "menu",   "close",
                                   "closeForm", "expect",   "answer", "hint",  "drag"};

void ValidateAnswer(const TJson& a, size_t index, const std::string& op);

void ValidateActions(const TJson& actions, size_t index, const std::string& op) {
    for (const auto& action : actions) {
        if (!action.is_object()) StepError(index, op, "a form action must be an object");
        int verbs = 0;
        for (const char* k : SActionKeys)
            if (action.contains(k)) ++verbs;
        if (verbs != 1)
            StepError(index, op,
                      "a form action needs exactly one of click, dblclick, type, check, select, "
                      "selectCell, setCell, key, spin, focus, menu, close, closeForm, expect, answer, "
                      "hint, drag: " +
                          action.dump());
        if (action.contains("answer")) ValidateAnswer(action["answer"], index, op);
        if (action.contains("type") && !action.contains("text"))
            StepError(index, op, "a type action needs the text to type");
        if ((action.contains("selectCell") || action.contains("setCell")) &&
            (!action.contains("col") || !action.contains("row")))
            StepError(index, op, "a cell action needs col and row");
        if (action.contains("setCell") && !action.contains("text"))
            StepError(index, op, "a setCell action needs the text");
        if (action.contains("spin") && !action.contains("value"))
            StepError(index, op, "a spin action needs the value");
        if (action.contains("select") && !action.contains("index") && !action.contains("text") &&
            !action.contains("indexes"))
            StepError(index, op, "a select action needs index, indexes or text");
        if (action.contains("drag") && !action.contains("to"))
            StepError(index, op, "a drag action needs the target control (to)");
    }
}

void ValidateAnswer(const TJson& a, size_t index, const std::string& op) {
    if (!a.is_object()) StepError(index, op, "an answer must be an object");
    int kinds = 0;
    for (const char* k : {"form", "message", "open", "save", "folder", "color", "font"})
        if (a.contains(k)) ++kinds;
    if (kinds != 1)
        StepError(index, op,
                  "an answer is for exactly one of form, message, open, save, folder, color, font");
    if ((a.contains("actions") || a.contains("close")) && !a.contains("form"))
        StepError(index, op, "actions and close go with a form answer");
    if ((a.contains("text") || a.contains("contains")) && !a.contains("message"))
        StepError(index, op, "text and contains go with a message answer");
    if (a.contains("form")) {
        if (!a["form"].is_string()) StepError(index, op, "form names the dialog's class");
        if (a.contains("actions")) {
            if (!a["actions"].is_array()) StepError(index, op, "actions must be a list");
            ValidateActions(a["actions"], index, op);
        }
    }
    if (a.contains("message")) {
        if (!a["message"].is_string()) StepError(index, op, "message names the button to press");
        try {
            ParseButton(a["message"].get<std::string>());
        } catch (const Exception& e) {
            StepError(index, op, e.Message());
        }
    }
    if (a.contains("close")) {
        try {
            ParseModalResult(a["close"]);
        } catch (const Exception& e) {
            StepError(index, op, e.Message());
        }
    }
}

} // namespace

void ValidateStep(const TJson& step, size_t index) {
    if (!step.is_object()) StepError(index, "", "a step must be a JSON object");
    if (!step.contains("op") || !step["op"].is_string()) StepError(index, "", "a step needs an op");
    std::string op = step["op"].get<std::string>();
    auto it = StepFields().find(op);
    if (it == StepFields().end()) StepError(index, op, "unknown op '" + op + "'");
    for (const auto& [key, value] : step.items()) {
        const TField* f = nullptr;
        for (const TField& c : SCommonFields)
            if (key == c.Name) f = &c;
        for (const TField& c : it->second)
            if (key == c.Name) f = &c;
        if (!f) StepError(index, op, "unknown field '" + key + "'");
        if (!HasKind(value, f->Kind)) StepError(index, op, "field '" + key + "' has the wrong type");
    }
    for (const TField& f : it->second)
        if (f.Required && !step.contains(f.Name))
            StepError(index, op, "missing field '" + std::string(f.Name) + "'");
    if (step.contains("onError")) {
        std::string e = step["onError"].get<std::string>();
        if (e != "stop" && e != "continue") StepError(index, op, "onError is stop or continue");
    }
    if (op == "answer") ValidateAnswer(step, index, op);
    if (op == "form") ValidateActions(step["actions"], index, op);
    if (op == "expect") {
        bool any = false;
        for (const auto& [key, value] : step.items())
            if (key != "op" && key != "component" && key != "comment" && key != "onError" &&
                key != "expectError")
                any = true;
        if (!any) StepError(index, op, "nothing to expect");
        if ((step.contains("property") || step.contains("value") || step.contains("parent")) &&
            !step.contains("component"))
            StepError(index, op, "property, value and parent are expected of a component");
        if (step.contains("property") != step.contains("value"))
            StepError(index, op, "a property is expected together with its value");
    }
}

std::vector<TJson> ParseScript(const std::string& text) {
    std::vector<TJson> steps;
    TJson whole = TJson::parse(text, nullptr, false);
    if (!whole.is_discarded()) {
        if (whole.is_array()) {
            for (auto& s : whole)
                steps.push_back(s);
        } else if (whole.is_object() && whole.contains("steps")) {
            if (!whole["steps"].is_array()) throw EScriptError("The script's steps must be a list");
            for (auto& s : whole["steps"])
                steps.push_back(s);
        } else if (whole.is_object()) {
            steps.push_back(whole);
        } else {
            throw EScriptError("A script is a list of steps");
        }
    } else {
        // JSON lines: one step per line.
        std::istringstream lines(text);
        std::string line;
        int n = 0;
        while (std::getline(lines, line)) {
            ++n;
            if (Trim(line).empty()) continue;
            TJson step = TJson::parse(line, nullptr, false);
            if (step.is_discarded()) throw EScriptError("line " + std::to_string(n) + ": not a JSON step");
            steps.push_back(std::move(step));
        }
    }
    if (steps.empty()) throw EScriptError("The script has no steps");
    for (size_t i = 0; i < steps.size(); ++i)
        ValidateStep(steps[i], i);
    return steps;
}

// ---- The runner ------------------------------------------------------------------------------------------
namespace {

// A step failed; the message is the step's error.
JEX_DECLARE_EXCEPTION(EStepFailed, Exception)

class TScriptRunner {
public:
    TScriptRunner(THost& host, TScriptUI& ui) : FHost(host), FUI(ui) {}
    TScriptResult Run(const std::vector<TJson>& steps);

private:
    void RunStep(const TJson& step, TJson& result);
    TDesignSession& Session() { return FHost.Session(); }
    TComponent* Lookup(const std::string& name);
    std::vector<TComponent*> Targets(const TJson& step, bool selectionByDefault);
    std::vector<std::string> Names(const std::vector<TComponent*>& list);
    int FindRow(ide::TInspectorModel* model, const std::string& path);
    std::string PropertyValue(TComponent* c, const std::string& path);
    void SelectTargets(const TJson& step);
    void QueueAnswer(const TJson& a);
    void RunActions(vcl::TFormDriver& d, const TJson& actions);
    void RunAction(vcl::TFormDriver& d, const TJson& action);
    TJson FormJson();
    TJson TranscriptLists();

    void DoNew(const TJson& s, TJson& r);
    void DoOpen(const TJson& s, TJson& r);
    void DoDrop(const TJson& s, TJson& r);
    void DoSelect(const TJson& s, TJson& r);
    void DoSet(const TJson& s, TJson& r);
    void DoEdit(const TJson& s, TJson& r);
    void DoPick(const TJson& s, TJson& r);
    void DoVerb(const TJson& s, TJson& r);
    void DoDblClick(const TJson& s, TJson& r);
    void DoDelete(const TJson& s, TJson& r);
    void DoCopy(const TJson& s, TJson& r);
    void DoPaste(const TJson& s, TJson& r);
    void DoMenu(const TJson& s, TJson& r);
    void DoHint(const TJson& s, TJson& r);
    void DoSave(const TJson& s, TJson& r);
    void DoExpect(const TJson& s, TJson& r);
    void DoAnswer(const TJson& s, TJson& r);
    void DoForm(const TJson& s, TJson& r);

    THost& FHost;
    TScriptUI& FUI;
    TJson FVerbs = TJson::array();
};

bool AcceptsControls(TComponent* c) {
    auto* w = dynamic_cast<vcl::TWinControl*>(c);
    return w && (dynamic_cast<vcl::TCustomForm*>(c) || dynamic_cast<vcl::TCustomFrame*>(c) ||
                 w->ControlStyle().Contains(vcl::csAcceptsControls));
}

std::string ExceptionText(std::exception_ptr p, std::string* className) {
    try {
        std::rethrow_exception(p);
    } catch (const Exception& e) {
        if (className) *className = e.ClassName();
        return e.Message();
    } catch (const std::exception& e) {
        if (className) *className = "std::exception";
        return e.what();
    } catch (...) {
        if (className) *className = "unknown";
        return "unknown error";
    }
}

TScriptResult TScriptRunner::Run(const std::vector<TJson>& steps) {
    TScriptResult result;
    TJson records = TJson::array();
    bool stopped = false, exited = false;
    for (size_t i = 0; i < steps.size(); ++i) {
        const TJson& step = steps[i];
        TJson rec;
        rec["step"] = i + 1;
        rec["op"] = step["op"];
        if (stopped || exited) {
            rec["skipped"] = true;
            records.push_back(std::move(rec));
            continue;
        }
        size_t forms = FUI.Forms().size(), messages = FUI.Messages().size(), dialogs = FUI.Dialogs().size(),
               unanswered = FUI.Unanswered().size();
        TJson r = TJson::object();
        std::string error, errorClass;
        try {
            RunStep(step, r);
        } catch (...) {
            error = ExceptionText(std::current_exception(), &errorClass);
        }
        bool questionLeft = FUI.Unanswered().size() > unanswered;
        if (questionLeft && error.empty()) {
            // The code that showed it swallowed the failure; the question stays unanswered all the same.
            error = FUI.Unanswered().back().What;
            errorClass = "EScriptedUIError";
        }
        bool ok = error.empty();
        if (step.contains("expectError") && !questionLeft) {
            std::string want = step["expectError"].get<std::string>();
            if (ok) {
                error = "the step was expected to fail with '" + want + "' but did not";
                ok = false;
            } else if (error.find(want) != std::string::npos) {
                rec["expectedError"] = error;
                error.clear();
                ok = true;
            }
        }
        rec["ok"] = ok;
        if (!r.empty()) rec["result"] = std::move(r);
        if (!ok) {
            rec["error"] = error;
            rec["errorClass"] = errorClass;
        }
        TJson shown = TJson::object();
        auto indexes = [](size_t from, size_t to) {
            TJson a = TJson::array();
            for (size_t k = from; k < to; ++k)
                a.push_back(k);
            return a;
        };
        if (FUI.Forms().size() > forms) shown["forms"] = indexes(forms, FUI.Forms().size());
        if (FUI.Messages().size() > messages) shown["messages"] = indexes(messages, FUI.Messages().size());
        if (FUI.Dialogs().size() > dialogs) shown["dialogs"] = indexes(dialogs, FUI.Dialogs().size());
        if (!shown.empty()) rec["shown"] = std::move(shown);
        records.push_back(std::move(rec));
        if (!ok) {
            if (result.Ok) {
                result.Ok = false;
                result.Failure =
                    "step " + std::to_string(i + 1) + " (" + step["op"].get<std::string>() + "): " + error;
            }
            bool cont = step.value("onError", std::string("stop")) == "continue";
            if (questionLeft || !cont) stopped = true;
        }
        if (vcl::Application()->Terminated()) exited = true;
    }
    int unused = FUI.PendingAnswers();
    if (unused > 0 && result.Ok) {
        result.Ok = false;
        result.Failure = std::to_string(unused) + " queued answer" + (unused == 1 ? " was" : "s were") +
                         " not used: the work did not show what the script expected";
    }

    TJson& t = result.Transcript;
    t["ok"] = result.Ok;
    if (!result.Ok) t["failure"] = result.Failure;
    t["steps"] = std::move(records);
    TJson lists = TranscriptLists();
    for (auto& [k, v] : lists.items())
        t[k] = std::move(v);
    t["unusedAnswers"] = unused;
    t["exited"] = exited;
    t["modified"] = Session().Modified();
    t["form"] = FormJson();
    return result;
}

TJson TScriptRunner::TranscriptLists() {
    TJson lists;
    TJson forms = TJson::array();
    for (const auto& f : FUI.Forms()) {
        TJson j;
        j["class"] = f.ClassName;
        j["caption"] = f.Caption;
        j["modal"] = f.Modal;
        j["closed"] = f.Closed;
        if (f.Closed) j["result"] = ModalResultName(f.Result);
        j["atShow"] = DescJson(f.AtShow);
        if (f.Closed) j["atClose"] = DescJson(f.AtClose);
        forms.push_back(std::move(j));
    }
    lists["forms"] = std::move(forms);
    TJson messages = TJson::array();
    for (const auto& m : FUI.Messages()) {
        TJson j;
        j["type"] = GetEnumName(vcl::TypeInfoOf(static_cast<vcl::TMsgDlgType*>(nullptr)), m.Request.Type);
        j["caption"] = m.Request.Caption;
        j["text"] = m.Request.Text;
        TJson buttons = TJson::array();
        for (int b = vcl::mbYes; b <= vcl::mbHelp; ++b)
            if (m.Request.Buttons.Contains(static_cast<vcl::TMsgDlgBtn>(b)))
                buttons.push_back(ButtonName(static_cast<vcl::TMsgDlgBtn>(b)));
        j["buttons"] = std::move(buttons);
        auto pressed = vcl::ButtonOfModalResult(m.Result);
        j["answer"] = pressed ? ButtonName(*pressed) : ModalResultName(m.Result);
        messages.push_back(std::move(j));
    }
    lists["messages"] = std::move(messages);
    TJson dialogs = TJson::array();
    for (const auto& d : FUI.Dialogs()) {
        TJson j;
        j["kind"] = d.Kind;
        j["title"] = d.Title;
        j["cancelled"] = d.Cancelled;
        j["chosen"] = d.Proposed;
        dialogs.push_back(std::move(j));
    }
    lists["dialogs"] = std::move(dialogs);
    lists["hints"] = FUI.Hints();
    TJson exceptions = TJson::array();
    for (const auto& e : FUI.Exceptions())
        exceptions.push_back({{"class", e.ClassName}, {"message", e.Message}});
    lists["exceptions"] = std::move(exceptions);
    lists["verbs"] = FVerbs;
    TJson unanswered = TJson::array();
    for (const auto& u : FUI.Unanswered())
        unanswered.push_back({{"kind", u.Kind}, {"error", u.What}});
    lists["unanswered"] = std::move(unanswered);
    return lists;
}

TJson TScriptRunner::FormJson() {
    if (!Session().HasForm()) return nullptr;
    TComponent* root = Session().Root();
    TJson j;
    j["name"] = root->Name();
    j["class"] = root->ClassName();
    j["file"] = Session().FileName();
    j["modified"] = Session().Modified();
    TJson comps = TJson::array();
    for (TComponent* c : root->ComponentList()) {
        TJson comp = {{"name", c->Name()}, {"class", c->ClassName()}};
        // Controls also say where they are, so that a form read back can be compared with the one saved.
        if (auto* ctl = dynamic_cast<vcl::TControl*>(c)) {
            comp["parent"] = ctl->Parent() ? ctl->Parent()->Name() : std::string();
            comp["bounds"] = {ctl->Left(), ctl->Top(), ctl->Width(), ctl->Height()};
        }
        comps.push_back(std::move(comp));
    }
    j["components"] = std::move(comps);
    return j;
}

void TScriptRunner::RunStep(const TJson& s, TJson& r) {
    static const std::map<std::string, void (TScriptRunner::*)(const TJson&, TJson&)> ops = {
        {"new", &TScriptRunner::DoNew},           {"open", &TScriptRunner::DoOpen},
        {"drop", &TScriptRunner::DoDrop},         {"select", &TScriptRunner::DoSelect},
        {"set", &TScriptRunner::DoSet},           {"edit", &TScriptRunner::DoEdit},
        {"pick", &TScriptRunner::DoPick},         {"verb", &TScriptRunner::DoVerb},
        {"dblclick", &TScriptRunner::DoDblClick}, {"delete", &TScriptRunner::DoDelete},
        {"copy", &TScriptRunner::DoCopy},         {"paste", &TScriptRunner::DoPaste},
        {"menu", &TScriptRunner::DoMenu},         {"hint", &TScriptRunner::DoHint},
        {"save", &TScriptRunner::DoSave},         {"expect", &TScriptRunner::DoExpect},
        {"answer", &TScriptRunner::DoAnswer},     {"form", &TScriptRunner::DoForm},
    };
    (this->*ops.at(s["op"].get<std::string>()))(s, r);
    vcl::Application()->ProcessMessages();
}

TComponent* TScriptRunner::Lookup(const std::string& name) {
    TComponent* root = Session().Root();
    if (name.empty() || SameText(name, root->Name())) return root;
    TComponent* c = Session().Designer()->GetComponent(name);
    if (!c) throw EStepFailed("No component named '" + name + "' on the form");
    return c;
}

// The components a step names (component or components), else the designer's selection, else the form.
std::vector<TComponent*> TScriptRunner::Targets(const TJson& step, bool selectionByDefault) {
    std::vector<TComponent*> list;
    if (step.contains("component")) {
        list.push_back(Lookup(step["component"].get<std::string>()));
    } else if (step.contains("components")) {
        for (const auto& n : step["components"]) {
            if (!n.is_string()) throw EStepFailed("components are named by strings");
            list.push_back(Lookup(n.get<std::string>()));
        }
        if (list.empty()) throw EStepFailed("No components named");
    } else if (selectionByDefault) {
        for (TPersistent* p : Session().Designer()->Selection().List())
            if (auto* c = dynamic_cast<TComponent*>(p)) list.push_back(c);
        if (list.empty()) list.push_back(Session().Root());
    }
    return list;
}

std::vector<std::string> TScriptRunner::Names(const std::vector<TComponent*>& list) {
    std::vector<std::string> names;
    for (TComponent* c : list)
        names.push_back(c->Name());
    return names;
}

void TScriptRunner::SelectTargets(const TJson& step) {
    std::vector<TComponent*> targets = Targets(step, true);
    ide::TDesignerSelectionList sel;
    for (TComponent* c : targets)
        sel.Add(c);
    if (!sel.Equals(Session().Designer()->Selection())) Session().Designer()->SetSelections(sel);
}

// The row of a property path, expanding the rows above it ("Font.Style.fsBold").
int TScriptRunner::FindRow(ide::TInspectorModel* model, const std::string& path) {
    size_t dot = 0;
    while ((dot = path.find('.', dot)) != std::string::npos) {
        int parent = model->FindRow(path.substr(0, dot));
        if (parent < 0) break;
        if (!model->Row(parent).Expanded) model->Expand(parent);
        ++dot;
    }
    int row = model->FindRow(path);
    if (row < 0) throw EPropertyError("The inspector shows no property " + path + " for the selection");
    return row;
}

// The value the inspector shows for a property of one component, without changing the selection.
std::string TScriptRunner::PropertyValue(TComponent* c, const std::string& path) {
    ide::TDesignerSelectionList sel;
    sel.Add(c);
    std::vector<ide::TPropertyEditorPtr> editors;
    ide::GetComponentProperties(sel, ide::tkAny, Session().Designer(),
                                [&](ide::TPropertyEditorPtr e) { editors.push_back(std::move(e)); });
    std::string rest = path;
    while (true) {
        size_t dot = rest.find('.');
        std::string head = rest.substr(0, dot);
        ide::TPropertyEditorPtr found;
        for (auto& e : editors) {
            const TPropInfo* p = e->PropCount() > 0 ? e->GetPropInfo() : nullptr;
            if ((p && SameText(p->Name, head)) || SameText(e->GetName(), head)) {
                found = std::move(e);
                break;
            }
        }
        if (!found) throw EPropertyError("Property " + path + " does not exist on " + c->Name());
        if (dot == std::string::npos) return found->GetValue();
        rest = rest.substr(dot + 1);
        editors.clear();
        found->GetProperties([&](ide::TPropertyEditorPtr e) { editors.push_back(std::move(e)); });
    }
}

// ---- Steps ----------------------------------------------------------------------------------------------
void TScriptRunner::DoNew(const TJson& s, TJson& r) {
    Session().NewForm(s.value("class", std::string("TForm")), s.value("name", std::string()));
    r["form"] = Session().Root()->Name();
    r["class"] = Session().Root()->ClassName();
}

void TScriptRunner::DoOpen(const TJson& s, TJson& r) {
    Session().OpenForm(s["file"].get<std::string>());
    r["form"] = Session().Root()->Name();
    r["file"] = Session().FileName();
    r["components"] = Session().Root()->ComponentCount();
}

void TScriptRunner::DoDrop(const TJson& s, TJson& r) {
    TClass cls = FindComponentClass(s["class"].get<std::string>());
    ide::TFormDesigner* d = Session().Designer();
    TComponent* parent = d->GetRoot();
    if (s.contains("parent")) {
        parent = Lookup(s["parent"].get<std::string>());
        if (!AcceptsControls(parent))
            throw EStepFailed(parent->Name() + " (" + parent->ClassName() + ") cannot hold other controls");
    }
    TComponent* c = d->CreateComponent(cls, parent, s.value("left", 8), s.value("top", 8),
                                       s.value("width", 0), s.value("height", 0));
    d->SelectComponent(c);
    r["name"] = c->Name();
    r["class"] = c->ClassName();
    if (auto* ctl = dynamic_cast<vcl::TControl*>(c)) {
        r["parent"] = ctl->Parent() ? ctl->Parent()->Name() : std::string();
        r["bounds"] = {ctl->Left(), ctl->Top(), ctl->Width(), ctl->Height()};
    }
}

void TScriptRunner::DoSelect(const TJson& s, TJson& r) {
    std::vector<TComponent*> list = Targets(s, false);
    ide::TDesignerSelectionList sel;
    for (TComponent* c : list)
        sel.Add(c);
    Session().Designer()->SetSelections(sel);
    r["selected"] = Names(list);
}

void TScriptRunner::DoSet(const TJson& s, TJson& r) {
    SelectTargets(s);
    ide::TInspectorModel* m = Session().Inspector();
    std::string path = s["property"].get<std::string>();
    r["property"] = path;
    int row = FindRow(m, path);
    try {
        m->SetValue(row, s["value"].get<std::string>());
    } catch (...) {
        // The value the row keeps, for the transcript.
        int again = m->FindRow(path);
        if (again >= 0) r["value"] = m->Row(again).Value;
        throw;
    }
    int again = m->FindRow(path);
    r["value"] = again >= 0 ? m->Row(again).Value : std::string();
}

void TScriptRunner::DoEdit(const TJson& s, TJson& r) {
    SelectTargets(s);
    ide::TInspectorModel* m = Session().Inspector();
    std::string path = s["property"].get<std::string>();
    r["property"] = path;
    m->Edit(FindRow(m, path));
    int again = m->FindRow(path);
    r["value"] = again >= 0 ? m->Row(again).Value : std::string();
}

void TScriptRunner::DoPick(const TJson& s, TJson& r) {
    SelectTargets(s);
    ide::TInspectorModel* m = Session().Inspector();
    std::string path = s["property"].get<std::string>();
    std::string value = s["value"].get<std::string>();
    r["property"] = path;
    int row = FindRow(m, path);
    std::vector<std::string> values = m->GetValues(row);
    r["values"] = values;
    if (std::find(values.begin(), values.end(), value) == values.end()) {
        std::string list;
        for (const auto& v : values)
            list += (list.empty() ? "" : ", ") + v;
        throw EStepFailed("'" + value + "' is not one of the values of " + path +
                          (values.empty() ? std::string(" (it has none)") : ": " + list));
    }
    m->SetValue(row, value);
    int again = m->FindRow(path);
    r["value"] = again >= 0 ? m->Row(again).Value : std::string();
}

void TScriptRunner::DoVerb(const TJson& s, TJson& r) {
    TComponent* c = Lookup(s["component"].get<std::string>());
    ide::TComponentEditorPtr editor = ide::GetComponentEditor(c, Session().Designer());
    int count = editor->GetVerbCount();
    int index = -1;
    const TJson& v = s["verb"];
    if (v.is_number_integer()) {
        index = v.get<int>();
        if (index < 0 || index >= count)
            throw EStepFailed("The component editor " + editor->ClassName() + " of " + c->Name() + " has " +
                              std::to_string(count) + " verbs; there is no verb " + std::to_string(index));
    } else {
        std::string want = v.get<std::string>();
        for (int i = 0; i < count && index < 0; ++i)
            if (editor->GetVerb(i) == want ||
                SameText(vcl::StripHotkey(editor->GetVerb(i)), vcl::StripHotkey(want)))
                index = i;
        if (index < 0)
            throw EStepFailed("The component editor " + editor->ClassName() + " of " + c->Name() +
                              " has no verb '" + want + "'");
    }
    std::string caption = editor->GetVerb(index);
    r["component"] = c->Name();
    r["editor"] = editor->ClassName();
    r["index"] = index;
    r["verb"] = caption;
    FVerbs.push_back(
        {{"component", c->Name()}, {"editor", editor->ClassName()}, {"index", index}, {"verb", caption}});
    editor->ExecuteVerb(index);
}

void TScriptRunner::DoDblClick(const TJson& s, TJson& r) {
    TComponent* c = Lookup(s["component"].get<std::string>());
    ide::TComponentEditorPtr editor = ide::GetComponentEditor(c, Session().Designer());
    r["component"] = c->Name();
    r["editor"] = editor->ClassName();
    FVerbs.push_back({{"component", c->Name()}, {"editor", editor->ClassName()}, {"verb", "(double-click)"}});
    editor->Edit();
    const std::string& shown = Session().Designer()->LastShownMethod();
    if (!shown.empty()) r["method"] = shown;
}

void TScriptRunner::DoDelete(const TJson& s, TJson& r) {
    std::vector<TComponent*> list = Targets(s, true);
    TComponent* root = Session().Root();
    for (TComponent* c : list)
        if (c == root) throw EStepFailed("The form itself cannot be deleted");
    auto inside = [&](TComponent* c) {
        for (TComponent* p = c->GetParentComponent(); p; p = p->GetParentComponent())
            if (std::find(list.begin(), list.end(), p) != list.end()) return true;
        return false;
    };
    std::vector<TComponent*> top;
    for (TComponent* c : list)
        if (!inside(c)) top.push_back(c);
    r["deleted"] = Names(list);
    Session().Designer()->SelectComponent(root);
    for (TComponent* c : top)
        Session().Designer()->DeleteComponent(c);
}

void TScriptRunner::DoCopy(const TJson& s, TJson& r) {
    std::vector<TComponent*> list = Targets(s, true);
    ide::TDesignerSelectionList sel;
    for (TComponent* c : list)
        sel.Add(c);
    Session().Designer()->CopyComponents(Session().Root(), sel);
    r["copied"] = Names(list);
}

void TScriptRunner::DoPaste(const TJson& s, TJson& r) {
    ide::TFormDesigner* d = Session().Designer();
    TComponent* parent = d->GetRoot();
    if (s.contains("parent")) {
        parent = Lookup(s["parent"].get<std::string>());
        if (!AcceptsControls(parent))
            throw EStepFailed(parent->Name() + " (" + parent->ClassName() + ") cannot hold other controls");
    }
    ide::TDesignerSelectionList pasted;
    d->PasteComponents(d->GetRoot(), parent, pasted);
    d->SetSelections(pasted);
    std::vector<std::string> names;
    for (TPersistent* p : pasted.List())
        if (auto* c = dynamic_cast<TComponent*>(p)) names.push_back(c->Name());
    r["pasted"] = names;
}

void TScriptRunner::DoMenu(const TJson& s, TJson& r) {
    TMainWindow* w = FHost.MainWindow();
    std::string name = s["item"].get<std::string>();
    vcl::TMenuItem* item = w->FindMenuItem(name);
    if (!item) throw EStepFailed("The main menu has no item named '" + name + "'");
    // A person opens the menus on the way to the item, which brings their items up to date.
    std::vector<vcl::TMenuItem*> chain;
    for (vcl::TMenuItem* p = item; p && p->Parent(); p = p->Parent())
        chain.insert(chain.begin(), p);
    for (vcl::TMenuItem* p : chain) {
        if (!p->Visible() || !p->Enabled())
            throw EStepFailed("Menu item '" + p->Name() + "' is " + (p->Visible() ? "disabled" : "hidden"));
        if (p == item) break;
        try {
            p->Click();
        } catch (const EScriptedUIError&) {
            throw;
        } catch (...) {
            vcl::Application()->HandleException(p);
        }
    }
    if (item->Count() > 0) throw EStepFailed("Menu item '" + name + "' opens a menu; name one of its items");
    if (item->IsLine()) throw EStepFailed("Menu item '" + name + "' is a separator");
    r["item"] = item->Name();
    r["caption"] = item->Caption();
    try {
        item->Click();
    } catch (const EScriptedUIError&) {
        throw;
    } catch (...) {
        // As on the platform: an exception in a menu command goes to the application's exception box.
        vcl::Application()->HandleException(item);
    }
}

void TScriptRunner::DoHint(const TJson& s, TJson& r) {
    std::string name = s["class"].get<std::string>();
    vcl::TSpeedButton* button = FHost.MainWindow()->PaletteButton(name);
    if (!button) throw EStepFailed(name + " has no icon on the palette");
    r["class"] = name;
    r["paletteHint"] = button->Hint();
    r["shown"] =
        vcl::Application()->ActivateHint(button, vcl::Point(button->Width() / 2, button->Height() / 2));
}

void TScriptRunner::DoSave(const TJson& s, TJson& r) {
    Session().SaveForm(s["file"].get<std::string>());
    r["file"] = Session().FileName();
}

void TScriptRunner::DoExpect(const TJson& s, TJson& r) {
    std::vector<std::string> failures;
    TJson checked = TJson::array();
    auto check = [&](const std::string& what, bool ok, const std::string& detail) {
        checked.push_back(what);
        if (!ok) failures.push_back(detail);
    };
    TComponent* c = nullptr;
    if (s.contains("component")) c = Lookup(s["component"].get<std::string>());
    if (s.contains("property")) {
        std::string path = s["property"].get<std::string>();
        std::string want = s["value"].get<std::string>();
        std::string got = PropertyValue(c, path);
        check(c->Name() + "." + path, got == want,
              c->Name() + "." + path + " is '" + got + "', expected '" + want + "'");
    }
    if (s.contains("parent")) {
        std::string want = s["parent"].get<std::string>();
        TComponent* p = c->GetParentComponent();
        std::string got = p ? p->Name() : std::string();
        check(c->Name() + " parent", SameText(got, want),
              "the parent of " + c->Name() + " is '" + got + "', expected '" + want + "'");
    }
    if (s.contains("exists")) {
        std::string n = s["exists"].get<std::string>();
        check("exists " + n, Session().Designer()->GetComponent(n) != nullptr,
              "no component named '" + n + "'");
    }
    if (s.contains("missing")) {
        std::string n = s["missing"].get<std::string>();
        check("missing " + n, Session().Designer()->GetComponent(n) == nullptr,
              "a component named '" + n + "' exists");
    }
    if (s.contains("modified")) {
        bool want = s["modified"].get<bool>();
        check("modified", Session().Modified() == want,
              std::string("the form is ") + (Session().Modified() ? "modified" : "not modified"));
    }
    if (s.contains("message") || s.contains("messageContains")) {
        std::string last = FUI.Messages().empty() ? std::string() : FUI.Messages().back().Request.Text;
        if (s.contains("message")) {
            std::string want = s["message"].get<std::string>();
            check("message", !FUI.Messages().empty() && last == want,
                  FUI.Messages().empty() ? "no message was shown"
                                         : "the last message was '" + last + "', expected '" + want + "'");
        }
        if (s.contains("messageContains")) {
            std::string want = s["messageContains"].get<std::string>();
            check("messageContains", !FUI.Messages().empty() && last.find(want) != std::string::npos,
                  FUI.Messages().empty() ? "no message was shown"
                                         : "the last message '" + last + "' does not contain '" + want + "'");
        }
    }
    if (s.contains("formShown")) {
        std::string want = s["formShown"].get<std::string>();
        bool shown = std::any_of(FUI.Forms().begin(), FUI.Forms().end(),
                                 [&](const auto& f) { return SameText(f.ClassName, want); });
        check("formShown " + want, shown, "no form of class " + want + " was shown");
    }
    if (s.contains("selected")) {
        std::vector<std::string> want, got;
        for (const auto& n : s["selected"])
            want.push_back(n.is_string() ? n.get<std::string>() : n.dump());
        for (TPersistent* p : Session().Designer()->Selection().List())
            if (auto* sc = dynamic_cast<TComponent*>(p)) got.push_back(sc->Name());
        bool same = want.size() == got.size() &&
                    std::equal(want.begin(), want.end(), got.begin(),
                               [](const std::string& a, const std::string& b) { return SameText(a, b); });
        std::string gotText;
        for (const auto& g : got)
            gotText += (gotText.empty() ? "" : ", ") + g;
        check("selected", same, "the selection is [" + gotText + "]");
    }
    if (s.contains("componentCount")) {
        int want = s["componentCount"].get<int>();
        int got = Session().Root()->ComponentCount();
        check("componentCount", got == want,
              "the form has " + std::to_string(got) + " components, expected " + std::to_string(want));
    }
    if (s.contains("hint")) {
        std::string want = s["hint"].get<std::string>();
        std::string last = FUI.Hints().empty() ? std::string() : FUI.Hints().back();
        check("hint", !FUI.Hints().empty() && last == want,
              FUI.Hints().empty() ? "no hint was shown"
                                  : "the last hint was '" + last + "', expected '" + want + "'");
    }
    r["checked"] = std::move(checked);
    if (!failures.empty()) {
        std::string text;
        for (const auto& f : failures)
            text += (text.empty() ? "" : "; ") + f;
        throw EStepFailed("Expectation failed: " + text);
    }
}

void TScriptRunner::DoAnswer(const TJson& s, TJson& r) {
    QueueAnswer(s);
    for (const char* k : {"form", "message", "open", "save", "folder", "color", "font"})
        if (s.contains(k)) r["queued"] = k;
}

void TScriptRunner::DoForm(const TJson& s, TJson& r) {
    std::string cls = s["class"].get<std::string>();
    vcl::TFormDriver d = FUI.OpenForm(cls);
    r["class"] = d.Form()->ClassName();
    RunActions(d, s["actions"]);
    r["closed"] = d.Closed();
    if (!d.Closed()) r["state"] = DescJson(d.Describe());
}

// ---- Answers and form actions -----------------------------------------------------------------------------
std::optional<std::vector<std::string>> FileAnswer(const TJson& v) {
    if (v.is_null()) return std::nullopt;
    if (v.is_string()) return std::vector<std::string>{v.get<std::string>()};
    std::vector<std::string> files;
    for (const auto& f : v) {
        if (!f.is_string()) throw EStepFailed("file answers are file names");
        files.push_back(f.get<std::string>());
    }
    return files;
}

vcl::TColor ColorAnswer(const TJson& v) {
    if (v.is_number_integer()) return static_cast<vcl::TColor>(v.get<int64_t>());
    if (!v.is_string()) throw EStepFailed("a colour answer is a colour name, a $-number or an integer");
    return vcl::StringToColor(v.get<std::string>());
}

void TScriptRunner::QueueAnswer(const TJson& a) {
    if (a.contains("form")) {
        std::string cls = a["form"].get<std::string>();
        TJson actions = a.value("actions", TJson::array());
        std::optional<vcl::TModalResult> close;
        if (a.contains("close")) close = ParseModalResult(a["close"]);
        FUI.OnForm(cls, [this, actions, close](vcl::TFormDriver& d) {
            RunActions(d, actions);
            if (!d.Closed() && close) d.Close(*close);
        });
    } else if (a.contains("message")) {
        vcl::TMsgDlgBtn button = ParseButton(a["message"].get<std::string>());
        std::optional<std::string> text, contains;
        if (a.contains("text")) text = a["text"].get<std::string>();
        if (a.contains("contains")) contains = a["contains"].get<std::string>();
        FUI.AnswerMessage([button, text, contains](const vcl::TMessageRequest& req) {
            if (text && req.Text != *text)
                throw EScriptedUIError("The message '" + req.Text + "' is not the expected '" + *text + "'");
            if (contains && req.Text.find(*contains) == std::string::npos)
                throw EScriptedUIError("The message '" + req.Text + "' does not contain '" + *contains + "'");
            return vcl::ModalResultOf(button);
        });
    } else if (a.contains("open")) {
        FUI.AnswerOpen(FileAnswer(a["open"]));
    } else if (a.contains("save")) {
        auto f = FileAnswer(a["save"]);
        if (f && f->size() != 1) throw EStepFailed("a save answer is one file name");
        FUI.AnswerSave(f ? std::optional<std::string>(f->front()) : std::nullopt);
    } else if (a.contains("folder")) {
        if (a["folder"].is_null())
            FUI.AnswerFolder(std::nullopt);
        else if (a["folder"].is_string())
            FUI.AnswerFolder(a["folder"].get<std::string>());
        else
            throw EStepFailed("a folder answer is one folder name");
    } else if (a.contains("color")) {
        if (a["color"].is_null())
            FUI.AnswerColor(std::nullopt);
        else
            FUI.AnswerColor(ColorAnswer(a["color"]));
    } else if (a.contains("font")) {
        const TJson& f = a["font"];
        if (f.is_null()) {
            FUI.AnswerFont([](vcl::TFont&) { return false; });
        } else {
            if (!f.is_object())
                throw EStepFailed("a font answer is an object (name, size, style, color) or null");
            std::optional<std::string> name;
            std::optional<int> size;
            std::optional<int64_t> style;
            std::optional<vcl::TColor> color;
            if (f.contains("name")) name = f["name"].get<std::string>();
            if (f.contains("size")) size = f["size"].get<int>();
            if (f.contains("style")) {
                std::string set = "[";
                for (const auto& st : f["style"])
                    set += (set.size() > 1 ? "," : "") + st.get<std::string>();
                style = StringToSet(vcl::TypeInfoOf(static_cast<vcl::TFontStyles*>(nullptr)), set + "]");
            }
            if (f.contains("color")) color = ColorAnswer(f["color"]);
            FUI.AnswerFont([name, size, style, color](vcl::TFont& font) {
                if (name) font.SetName(*name);
                if (size) font.SetSize(*size);
                if (style) font.SetStyle(vcl::TFontStyles::FromBits(static_cast<uint64_t>(*style)));
                if (color) font.SetColor(*color);
                return true;
            });
        }
    }
}

void TScriptRunner::RunActions(vcl::TFormDriver& d, const TJson& actions) {
    for (const auto& a : actions)
        RunAction(d, a);
}

void TScriptRunner::RunAction(vcl::TFormDriver& d, const TJson& a) {
    auto name = [&](const char* key) { return a[key].get<std::string>(); };
    if (a.contains("click")) {
        d.Click(name("click"));
    } else if (a.contains("dblclick")) {
        d.DblClick(name("dblclick"));
    } else if (a.contains("type")) {
        d.Type(name("type"), a["text"].get<std::string>());
    } else if (a.contains("check")) {
        d.Check(name("check"), a.value("checked", true));
    } else if (a.contains("select")) {
        if (a.contains("indexes"))
            d.SelectMulti(name("select"), a["indexes"].get<std::vector<int>>());
        else if (a.contains("index"))
            d.Select(name("select"), a["index"].get<int>());
        else
            d.Select(name("select"), a["text"].get<std::string>());
    } else if (a.contains("selectCell")) {
        d.SelectCell(name("selectCell"), a["col"].get<int>(), a["row"].get<int>());
    } else if (a.contains("setCell")) {
        d.SetCell(name("setCell"), a["col"].get<int>(), a["row"].get<int>(), a["text"].get<std::string>());
    } else if (a.contains("key")) {
        std::string keyText = a["key"].get<std::string>();
        vcl::TShortCut sc = vcl::TextToShortCut(keyText);
        if (sc == 0) throw EScriptedUIError("Unknown key '" + keyText + "'");
        uint16_t key = 0;
        vcl::TShiftState shift;
        vcl::ShortCutToKey(sc, key, shift);
        if (a.contains("control"))
            d.PressKey(a["control"].get<std::string>(), key, shift);
        else
            d.PressKey(key, shift);
    } else if (a.contains("spin")) {
        d.SetValue(name("spin"), a["value"].get<int>());
    } else if (a.contains("focus")) {
        d.Focus(name("focus"));
    } else if (a.contains("menu")) {
        d.ClickMenu(name("menu"));
    } else if (a.contains("close")) {
        d.Close(ParseModalResult(a["close"]));
    } else if (a.contains("closeForm")) {
        d.CloseForm();
    } else if (a.contains("hint")) {
        d.Hint(name("hint"));
    } else if (a.contains("drag")) {
        if (!d.DragDrop(name("drag"), a["to"].get<std::string>()))
            throw EScriptedUIError("'" + a["to"].get<std::string>() + "' did not accept the drop of '" +
                                   name("drag") + "'");
    } else if (a.contains("answer")) {
        QueueAnswer(a["answer"]);
    } else if (a.contains("expect")) {
        // A control's state as the description shows it: caption, checked, itemIndex, value, enabled ...
        std::string ctl = name("expect");
        vcl::TControlDesc desc = d.Describe();
        const vcl::TControlDesc* c = desc.Find(ctl);
        if (!c)
            throw EScriptedUIError("The form " + d.Form()->ClassName() + " has no control named '" + ctl +
                                   "'");
        TJson state = DescJson(*c);
        for (const auto& [key, want] : a.items()) {
            if (key == "expect") continue;
            std::string k = key == "text" ? "caption" : key;
            // A description leaves out empty lists.
            if (!state.contains(k) && want.is_array() && want.empty()) continue;
            if (!state.contains(k) || state[k] != want)
                throw EScriptedUIError("Control '" + ctl + "' of " + d.Form()->ClassName() + ": " + key +
                                       " is " +
                                       (state.contains(k) ? state[k].dump() : std::string("absent")) +
                                       ", expected " + want.dump());
        }
    }
}

} // namespace

TScriptResult RunScript(THost& host, TScriptUI& ui, const std::vector<TJson>& steps) {
    TScriptRunner runner(host, ui);
    return runner.Run(steps);
}

} // namespace host
