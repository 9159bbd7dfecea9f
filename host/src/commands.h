// The command line of jexdesign: options, the commands (overview, packages, palette, inspect, verbs,
// menu, hint, run), their JSON results, and the human-readable text made from those results.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "host.h"
#include "rtl/sysutils.h"

namespace host {

using TJson = nlohmann::ordered_json;

// The routine a design package exports to give the library's extended description of a component class
// (the palette hint window's text): copies at most BufferSize - 1 bytes of the UTF-8 description and a NUL
// into Buffer (when BufferSize > 0) and returns the description's full length; an unknown class has an
// empty description. The host calls it with a nil buffer first to learn the length.
inline constexpr const char* SComponentDescriptionSymbol = "JexComponentDescription";
using TComponentDescriptionProc = size_t (*)(const char* ClassName, char* Buffer, size_t BufferSize);

// Bad arguments: reported as one line with exit status 2.
using rtl::Exception;
JEX_DECLARE_EXCEPTION(EUsageError, Exception)

struct TCommandLine {
    std::string Command; // empty: the overview
    std::vector<std::string> Args;
    bool Json = false;
    bool Help = false;
    bool Version = false;
    std::string Category;
    bool HasCategory = false;
    THostOptions Host;
};

// Options may stand before or after the command. Raises EUsageError.
TCommandLine ParseCommandLine(const std::vector<std::string>& args);
std::string UsageText();

// The component class a person means by name: on the palette, registered without icon, or registered for
// streaming; it must be a component class that can be created and not a form. Raises rtl::EClassNotFound
// "Unknown component class 'X'" or rtl::EComponentError.
rtl::TClass FindComponentClass(const std::string& name);

// The results of the commands.
TJson OverviewJson(THost& host);
TJson PackagesJson(THost& host);
TJson PaletteJson();
TJson InspectJson(THost& host, const std::string& className, const std::string* category);
TJson VerbsJson(THost& host, const std::string& className);
TJson MenuJson(THost& host);
TJson HintJson(THost& host, const std::string& className);

// The same results as text for a person.
std::string OverviewText(const TJson& j);
std::string PackagesText(const TJson& j);
std::string PaletteText(const TJson& j);
std::string InspectText(const TJson& j);
std::string VerbsText(const TJson& j);
std::string MenuText(const TJson& j);
std::string HintText(const TJson& j);

// Runs jexdesign: 0 on success, 1 when the work failed, 2 for bad arguments. Standard input feeds
// `run -`; results go to `out`, one-line errors and notes to `err`.
int RunMain(const std::vector<std::string>& args, std::istream& in, std::ostream& out, std::ostream& err);

} // namespace host
