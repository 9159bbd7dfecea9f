// Design scripts: steps that do what a person does in the designer (new form, drop, select, set a value
// through its inspector row, run a verb, click a menu item, save ...), through the real designer, inspector
// and component editors, with the answers to whatever the work shows queued before the step that causes
// it. The run gives a JSON transcript.
#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "host.h"
#include "rtl/sysutils.h"
#include "vcl/scripted_ui.h"

namespace host {

using TJson = nlohmann::ordered_json;

// A script that cannot run: not JSON, or a step that is not understood. Message names the step or line.
using rtl::Exception;
JEX_DECLARE_EXCEPTION(EScriptError, Exception)

// The scripted user interface of the host: every message box (exceptions shown by the application
// included) needs a queued answer, and whatever was shown without one is kept as unanswered even when
// the code that showed it swallowed the failure.
class TScriptUI : public vcl::TScriptedUI {
public:
    TScriptUI();

    struct TUnanswered {
        std::string Kind; // "form", "message", "open", "save", "color", "font", "folder"
        std::string What; // the error text
    };
    const std::vector<TUnanswered>& Unanswered() const { return FUnanswered; }
    // Exceptions the application showed (class name and message), in order.
    struct TShownException {
        std::string ClassName;
        std::string Message;
    };
    const std::vector<TShownException>& Exceptions() const { return FExceptions; }

    vcl::TModalResult ShowModal(vcl::TCustomForm* Form) override;
    vcl::TModalResult MessageDlg(const vcl::TMessageRequest& Request) override;
    std::optional<std::vector<std::string>> ChooseFiles(const vcl::TOpenDialog& Dialog) override;
    std::optional<vcl::TColor> ChooseColor(const vcl::TColorDialog& Dialog) override;
    bool ChooseFont(const vcl::TFontDialog& Dialog, vcl::TFont& Chosen) override;
    std::optional<std::string> ChooseFolder(const vcl::TFolderDialog& Dialog) override;
    void ShowException(const std::string& ClassName, const std::string& Message) override;

private:
    template <class F> auto Guard(const char* kind, F&& f) -> decltype(f());
    std::vector<TUnanswered> FUnanswered;
    std::vector<TShownException> FExceptions;
};

// Reads a script: a JSON array of steps, an object {"steps": [...]}, one step object, or JSON lines (one
// step per line; blank lines are skipped). Every step is checked before anything runs. Raises EScriptError.
std::vector<TJson> ParseScript(const std::string& text);
// Raises EScriptError "step N (op): ..." for a step that is not understood.
void ValidateStep(const TJson& step, size_t index);

struct TScriptResult {
    bool Ok = true;
    std::string Failure; // the first failure, for the one-line error
    TJson Transcript;
};

// Runs the steps on the host's session with `ui` installed (the host's user interface for the run).
TScriptResult RunScript(THost& host, TScriptUI& ui, const std::vector<TJson>& steps);

} // namespace host
