// The commands of jexdesign: option parsing, each command's JSON result and its text form, and the main
// routine that starts the host, runs one command and shuts down.
#include "commands.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <set>
#include <sstream>

#include "ide/categories.h"
#include "ide/compedit.h"
#include "ide/palette.h"
#include "mainwindow.h"
#include "script.h"
#include "vcl/formdesc.h"

namespace host {

using namespace rtl;

namespace {

const char* const SCommands[] = {"packages", "palette", "inspect", "verbs", "menu", "hint", "run"};

bool IsCommand(const std::string& s) {
    return std::find(std::begin(SCommands), std::end(SCommands), s) != std::end(SCommands);
}

size_t ExpectedArgs(const std::string& command) {
    if (command == "inspect" || command == "verbs" || command == "hint" || command == "run") return 1;
    return 0;
}

std::string PadRight(const std::string& s, size_t width) {
    return s.size() >= width ? s : s + std::string(width - s.size(), ' ');
}

std::string Join(const TJson& list, const std::string& sep) {
    std::string out;
    for (const auto& v : list) {
        if (!out.empty()) out += sep;
        out += v.get<std::string>();
    }
    return out;
}

TJson AttributeNames(ide::TPropertyAttributes attrs) {
    TJson names = TJson::array();
    const TTypeInfo* ti = ide::TypeInfoOf(static_cast<ide::TPropertyAttribute*>(nullptr));
    for (int i = 0; i <= ide::paNotNestable; ++i)
        if (attrs.Contains(static_cast<ide::TPropertyAttribute>(i))) names.push_back(GetEnumName(ti, i));
    return names;
}

// A fresh form with one component of the class on it, for the commands that look at a single component.
TComponent* DropOnNewForm(THost& host, TClass cls) {
    TDesignSession& s = host.Session();
    s.NewForm("TForm", "Form1");
    TComponent* c = s.Designer()->CreateComponent(cls, s.Root(), 8, 8, 0, 0);
    s.Designer()->SelectComponent(c);
    return c;
}

TJson MenuItemJson(const vcl::TMenuItemDesc& d) {
    TJson j;
    j["name"] = d.Name;
    j["caption"] = d.Caption;
    if (!d.ShortCut.empty()) j["shortcut"] = d.ShortCut;
    j["enabled"] = d.Enabled;
    j["visible"] = d.Visible;
    if (d.Checked) j["checked"] = true;
    if (!d.Items.empty()) {
        TJson items = TJson::array();
        for (const auto& i : d.Items)
            items.push_back(MenuItemJson(i));
        j["items"] = std::move(items);
    }
    return j;
}

void MenuText(const TJson& items, int depth, std::string& out) {
    for (const auto& i : items) {
        out += std::string(static_cast<size_t>(depth) * 2, ' ');
        std::string caption = i["caption"].get<std::string>();
        if (caption == "-") {
            out += "-----  (" + i["name"].get<std::string>() + ")\n";
        } else {
            out +=
                PadRight(caption, 28 - static_cast<size_t>(depth) * 2) + " " + i["name"].get<std::string>();
            if (i.contains("shortcut")) out += "  " + i["shortcut"].get<std::string>();
            if (!i["enabled"].get<bool>()) out += "  (disabled)";
            out += "\n";
        }
        if (i.contains("items")) MenuText(i["items"], depth + 1, out);
    }
}

} // namespace

std::string UsageText() {
    return "Usage: jexdesign [options] [command [argument]]\n"
           "Commands:\n"
           "  (none)                 what is loaded, and this text\n"
           "  packages               the loaded packages: description, required packages, units\n"
           "  palette                the palette pages and their components, in order\n"
           "  inspect CLASS          the object inspector rows of a new CLASS on a form\n"
           "      [--category NAME]  only the rows of that property category\n"
           "  verbs CLASS            the component editor of a new CLASS and its verbs\n"
           "  menu                   the main menu tree (names and captions)\n"
           "  hint CLASS             the library's extended description of CLASS\n"
           "  run SCRIPT|-           runs a design script (JSON file, or JSON lines on stdin)\n"
           "Options:\n"
           "  --json                 results as JSON\n"
           "  --package PATH         loads a package (repeatable), after the standard packages\n"
           "  --system-dir DIR       the system directory (default $JEX_SYSTEM_DIR, else under ~/.config)\n"
           "  --package-alias A=P    lets packages require platform package P under the name A\n"
           "  --standard-packages DIR  looks for libjexc60.so and libdclJEXC.so in DIR\n"
           "  --no-standard-packages does not load libjexc60.so and libdclJEXC.so\n"
           "  --help, --version\n";
}

TCommandLine ParseCommandLine(const std::vector<std::string>& args) {
    TCommandLine cl;
    auto value = [&](size_t& i, const std::string& opt) -> std::string {
        if (i + 1 >= args.size()) throw EUsageError("Option " + opt + " needs a value");
        return args[++i];
    };
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a == "--json") {
            cl.Json = true;
        } else if (a == "--help" || a == "-h") {
            cl.Help = true;
        } else if (a == "--version") {
            cl.Version = true;
        } else if (a == "--package") {
            cl.Host.Packages.push_back(value(i, a));
        } else if (a == "--system-dir") {
            cl.Host.SystemDir = value(i, a);
            if (cl.Host.SystemDir.empty()) throw EUsageError("--system-dir needs a folder");
        } else if (a == "--category") {
            cl.Category = value(i, a);
            cl.HasCategory = true;
        } else if (a == "--package-alias") {
            std::string v = value(i, a);
            size_t eq = v.find('=');
            if (eq == std::string::npos || eq == 0 || eq + 1 == v.size())
                throw EUsageError("--package-alias needs ALIAS=PLATFORMPACKAGE, not '" + v + "'");
            cl.Host.PackageAliases.emplace_back(v.substr(0, eq), v.substr(eq + 1));
        } else if (a == "--standard-packages") {
            cl.Host.StandardPackageDir = value(i, a);
        } else if (a == "--no-standard-packages") {
            cl.Host.LoadStandardPackages = false;
        } else if (a.size() > 1 && a[0] == '-' && a != "-") {
            throw EUsageError("Unknown option " + a);
        } else if (cl.Command.empty()) {
            if (!IsCommand(a)) throw EUsageError("Unknown command '" + a + "'");
            cl.Command = a;
        } else {
            cl.Args.push_back(a);
        }
    }
    if (!cl.Command.empty() && cl.Args.size() != ExpectedArgs(cl.Command)) {
        if (ExpectedArgs(cl.Command) == 0)
            throw EUsageError("The command " + cl.Command + " takes no argument");
        throw EUsageError(
            "The command " + cl.Command + " needs " +
            (cl.Command == "run" ? std::string("a script file or -") : std::string("a class name")));
    }
    if (cl.HasCategory && cl.Command != "inspect")
        throw EUsageError("--category goes with the inspect command");
    return cl;
}

TClass FindComponentClass(const std::string& name) {
    TClass cls = ide::FindDesignClass(name);
    if (!cls) cls = GetClass(name);
    if (!cls) throw EClassNotFound("Unknown component class '" + name + "'");
    if (!cls->InheritsFrom(TComponent::StaticClass()) || !cls->CanCreateComponent())
        throw EComponentError(cls->ClassName() + " is not a component class that can be created");
    if (cls->InheritsFrom(vcl::TCustomForm::StaticClass()))
        throw EComponentError(cls->ClassName() + " is a form and cannot be dropped on a form");
    return cls;
}

// ---- overview -------------------------------------------------------------------------------------------
TJson OverviewJson(THost& host) {
    TJson j;
    j["version"] = JEXDESIGN_VERSION;
    j["systemDir"] = GetSystemDirectory();
    TJson packages = TJson::array();
    for (ide::TPackage* p : host.LoadedPackages())
        packages.push_back(p->Name());
    j["packages"] = std::move(packages);
    std::set<TClass> classes;
    std::vector<std::string> pages = ide::PalettePages();
    for (const auto& page : pages)
        for (TClass c : ide::PaletteClasses(page))
            classes.insert(c);
    j["palettePages"] = pages.size();
    j["componentCount"] = classes.size();
    j["notes"] = host.Notes();
    return j;
}

std::string OverviewText(const TJson& j) {
    std::string out = "jexdesign " + j["version"].get<std::string>() + ", a form designer host\n";
    out += "Packages loaded: " + std::to_string(j["packages"].size());
    if (!j["packages"].empty()) out += " (" + Join(j["packages"], ", ") + ")";
    out += "\nPalette: " + std::to_string(j["palettePages"].get<size_t>()) + " pages, " +
           std::to_string(j["componentCount"].get<size_t>()) + " components\n";
    out += "System directory: " + j["systemDir"].get<std::string>() + "\n\n";
    return out + UsageText();
}

// ---- packages -------------------------------------------------------------------------------------------
TJson PackagesJson(THost& host) {
    TJson list = TJson::array();
    for (ide::TPackage* p : host.LoadedPackages()) {
        TJson j;
        j["name"] = p->Name();
        j["file"] = p->FileName();
        j["description"] = p->Description();
        const ide::TPackageInfo& info = p->Info();
        j["designOnly"] = (info.Flags & ide::pfDesignOnly) != 0;
        j["runOnly"] = (info.Flags & ide::pfRunOnly) != 0;
        TJson required = TJson::array();
        for (const auto& r : info.Requires)
            required.push_back(r.Name);
        j["requires"] = std::move(required);
        TJson units = TJson::array();
        for (const auto& u : info.Contains)
            units.push_back(u.Name);
        j["units"] = std::move(units);
        j["registeredUnits"] = p->RegisteredUnits();
        list.push_back(std::move(j));
    }
    TJson j;
    j["packages"] = std::move(list);
    return j;
}

std::string PackagesText(const TJson& j) {
    if (j["packages"].empty()) return "No packages are loaded.\n";
    std::string out;
    for (const auto& p : j["packages"]) {
        out += p["name"].get<std::string>();
        if (!p["description"].get<std::string>().empty()) out += "  " + p["description"].get<std::string>();
        out += "\n  file:     " + p["file"].get<std::string>() + "\n";
        out += "  kind:     " +
               std::string(p["designOnly"].get<bool>() ? "design only"
                           : p["runOnly"].get<bool>()  ? "run only"
                                                       : "design and run") +
               "\n";
        out +=
            "  requires: " + (p["requires"].empty() ? std::string("(nothing)") : Join(p["requires"], ", ")) +
            "\n";
        out += "  units:    " + Join(p["units"], ", ") + "\n";
    }
    return out;
}

// ---- palette --------------------------------------------------------------------------------------------
TJson PaletteJson() {
    TJson pages = TJson::array();
    for (const std::string& page : ide::PalettePages()) {
        TJson p;
        p["caption"] = ide::PageDisplayCaption(page);
        p["registeredAs"] = page;
        TJson comps = TJson::array();
        std::set<TClass> seen;
        for (TClass c : ide::PaletteClasses(page))
            if (seen.insert(c).second) comps.push_back(c->ClassName());
        p["components"] = std::move(comps);
        pages.push_back(std::move(p));
    }
    TJson j;
    j["pages"] = std::move(pages);
    return j;
}

std::string PaletteText(const TJson& j) {
    std::string out;
    for (const auto& p : j["pages"]) {
        out += p["caption"].get<std::string>() + " (" + std::to_string(p["components"].size()) + ")\n";
        for (const auto& c : p["components"])
            out += "  " + c.get<std::string>() + "\n";
    }
    if (out.empty()) out = "The palette is empty.\n";
    return out;
}

// ---- inspect --------------------------------------------------------------------------------------------
TJson InspectJson(THost& host, const std::string& className, const std::string* category) {
    TClass cls = FindComponentClass(className);
    if (category) {
        std::vector<std::string> known = ide::RegisteredCategories();
        if (std::none_of(known.begin(), known.end(),
                         [&](const std::string& k) { return SameText(k, *category); }))
            throw EPropertyError("Unknown property category '" + *category + "'");
    }
    TComponent* c = DropOnNewForm(host, cls);
    ide::TInspectorModel* model = host.Session().Inspector();
    TJson rows = TJson::array();
    for (const ide::TInspectorRow& r : model->Rows()) {
        if (r.IsCategory || r.Level != 0) continue;
        if (category && std::none_of(r.Categories.begin(), r.Categories.end(),
                                     [&](const std::string& k) { return SameText(k, *category); }))
            continue;
        TJson row;
        row["property"] = r.PropName;
        row["name"] = r.Name;
        row["value"] = r.Value;
        row["attributes"] = AttributeNames(r.Attributes);
        row["editor"] = r.EditorClassName;
        row["categories"] = r.Categories;
        row["subProperties"] = r.HasSubProperties;
        rows.push_back(std::move(row));
    }
    TJson j;
    j["class"] = cls->ClassName();
    j["component"] = c->Name();
    j["form"] = host.Session().Root()->Name();
    if (category) j["category"] = *category;
    j["rows"] = std::move(rows);
    host.Session().CloseForm();
    return j;
}

std::string InspectText(const TJson& j) {
    std::string out = j["class"].get<std::string>() + " (" + j["component"].get<std::string>() + " on " +
                      j["form"].get<std::string>() + ")";
    if (j.contains("category")) out += ", category " + j["category"].get<std::string>();
    out += "\n";
    size_t nameW = 4, valueW = 5, editorW = 6;
    for (const auto& r : j["rows"]) {
        nameW = std::max(nameW,
                         r["name"].get<std::string>().size() +
                             (r["name"] == r["property"] ? 0 : r["property"].get<std::string>().size() + 3));
        valueW = std::max(valueW, std::min<size_t>(r["value"].get<std::string>().size(), 40));
        editorW = std::max(editorW, r["editor"].get<std::string>().size());
    }
    out += "  " + PadRight("Name", nameW) + "  " + PadRight("Value", valueW) + "  " +
           PadRight("Editor", editorW) + "  Attributes; Categories\n";
    for (const auto& r : j["rows"]) {
        std::string name = r["name"].get<std::string>();
        if (r["property"].get<std::string>() != name) name += " (" + r["property"].get<std::string>() + ")";
        out += "  " + PadRight(name, nameW) + "  " + PadRight(r["value"].get<std::string>(), valueW) + "  " +
               PadRight(r["editor"].get<std::string>(), editorW) + "  [" + Join(r["attributes"], ",") +
               "]; " + Join(r["categories"], ", ") + "\n";
    }
    if (j["rows"].empty()) out += "  (no properties)\n";
    return out;
}

// ---- verbs ----------------------------------------------------------------------------------------------
TJson VerbsJson(THost& host, const std::string& className) {
    TClass cls = FindComponentClass(className);
    TComponent* c = DropOnNewForm(host, cls);
    ide::TComponentEditorPtr editor = ide::GetComponentEditor(c, host.Session().Designer());
    TJson verbs = TJson::array();
    int count = editor->GetVerbCount();
    for (int i = 0; i < count; ++i) {
        TJson v;
        v["index"] = i;
        v["caption"] = editor->GetVerb(i);
        v["text"] = vcl::StripHotkey(editor->GetVerb(i));
        verbs.push_back(std::move(v));
    }
    TJson j;
    j["class"] = cls->ClassName();
    j["component"] = c->Name();
    j["editor"] = editor->ClassName();
    j["verbs"] = std::move(verbs);
    editor.reset();
    host.Session().CloseForm();
    return j;
}

std::string VerbsText(const TJson& j) {
    std::string out =
        j["class"].get<std::string>() + ": component editor " + j["editor"].get<std::string>() + "\n";
    if (j["verbs"].empty()) out += "  (no verbs)\n";
    for (const auto& v : j["verbs"])
        out += "  " + std::to_string(v["index"].get<int>()) + "  " + v["caption"].get<std::string>() + "\n";
    return out;
}

// ---- menu -----------------------------------------------------------------------------------------------
TJson MenuJson(THost& host) {
    TMainWindow* w = host.MainWindow();
    w->UpdateMenuState();
    vcl::TMenuItemDesc root = vcl::DescribeMenuItem(w->MainMenu->Items());
    TJson items = TJson::array();
    for (const auto& i : root.Items)
        items.push_back(MenuItemJson(i));
    TJson j;
    j["menu"] = w->MainMenu->Name();
    j["items"] = std::move(items);
    return j;
}

std::string MenuText(const TJson& j) {
    std::string out;
    MenuText(j["items"], 0, out);
    return out;
}

// ---- hint -----------------------------------------------------------------------------------------------
TJson HintJson(THost& host, const std::string& className) {
    if (className.empty()) throw EUsageError("The command hint needs a class name");
    for (ide::TPackage* p : host.LoadedPackages()) {
        auto proc = reinterpret_cast<TComponentDescriptionProc>(p->FindSymbol(SComponentDescriptionSymbol));
        if (!proc) continue;
        size_t length = proc(className.c_str(), nullptr, 0);
        std::string text(length, '\0');
        if (length > 0) {
            std::vector<char> buffer(length + 1, '\0');
            size_t again = proc(className.c_str(), buffer.data(), buffer.size());
            text.assign(buffer.data(), std::min(again, length));
        }
        // A class nobody describes and the host does not know is a mistyped name, not a silent blank.
        if (text.empty() && !ide::FindDesignClass(className) && !GetClass(className))
            throw EClassNotFound("Unknown component class '" + className + "'");
        TJson j;
        j["class"] = className;
        j["provider"] = p->Name();
        j["description"] = text;
        return j;
    }
    throw EPackageError(
        "No loaded package provides extended component descriptions (a design package exports " +
        std::string(SComponentDescriptionSymbol) + " for them)");
}

std::string HintText(const TJson& j) {
    std::string d = j["description"].get<std::string>();
    if (d.empty()) return "No extended description for " + j["class"].get<std::string>() + ".\n";
    return d + "\n";
}

// ---- main -----------------------------------------------------------------------------------------------
int RunMain(const std::vector<std::string>& args, std::istream& in, std::ostream& out, std::ostream& err) {
    TCommandLine cl;
    try {
        cl = ParseCommandLine(args);
    } catch (const EUsageError& e) {
        err << "jexdesign: " << e.Message() << "\n";
        return 2;
    }
    if (cl.Help) {
        out << UsageText();
        return 0;
    }
    if (cl.Version) {
        out << "jexdesign " << JEXDESIGN_VERSION << "\n";
        return 0;
    }
    // The script to run is read before anything loads, so that a script that cannot run loads nothing.
    std::vector<TJson> steps;
    if (cl.Command == "run") {
        try {
            std::string text;
            if (cl.Args[0] == "-") {
                text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
            } else {
                text = ReadFileBytes(cl.Args[0]);
            }
            steps = ParseScript(text);
        } catch (const Exception& e) {
            err << "jexdesign: " << e.Message() << "\n";
            return 2;
        }
    }

    TScriptUI ui;
    THost host(cl.Host, [&err](const std::string& note) { err << "jexdesign: " << note << "\n"; });
    try {
        host.Start();
    } catch (const Exception& e) {
        err << "jexdesign: " << e.Message() << "\n";
        return 1;
    }

    auto emit = [&](const TJson& j, std::string (*text)(const TJson&)) {
        if (cl.Json)
            out << j.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
        else
            out << text(j);
    };
    try {
        if (cl.Command.empty())
            emit(OverviewJson(host), &OverviewText);
        else if (cl.Command == "packages")
            emit(PackagesJson(host), &PackagesText);
        else if (cl.Command == "palette")
            emit(PaletteJson(), &PaletteText);
        else if (cl.Command == "inspect")
            emit(InspectJson(host, cl.Args[0], cl.HasCategory ? &cl.Category : nullptr), &InspectText);
        else if (cl.Command == "verbs")
            emit(VerbsJson(host, cl.Args[0]), &VerbsText);
        else if (cl.Command == "menu")
            emit(MenuJson(host), &MenuText);
        else if (cl.Command == "hint")
            emit(HintJson(host, cl.Args[0]), &HintText);
        else if (cl.Command == "run") {
            TScriptResult r = RunScript(host, ui, steps);
            out << r.Transcript.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
            if (!r.Ok) {
                err << "jexdesign: the design script failed: " << r.Failure << "\n";
                return 1;
            }
        }
    } catch (const EUsageError& e) {
        err << "jexdesign: " << e.Message() << "\n";
        return 2;
    } catch (const Exception& e) {
        err << "jexdesign: " << e.Message() << "\n";
        return 1;
    } catch (const std::exception& e) {
        err << "jexdesign: " << e.what() << "\n";
        return 1;
    }
    return 0;
}

} // namespace host
