// Module resources: per-module tables of string, bitmap and raw-data resources, the list of loaded
// modules, lookups across them, and translation catalogues that override a module's strings.
// Every function here may be called from any thread; they share one lock, which enumeration callbacks
// and diagnostic handlers run under, so those must not open or close libraries.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rtl/sysutils.h"

namespace rtl {

class TResourceModule;
class TResourceString;

constexpr const char* SResNotFound = "Resource %s not found";

// An identifier of 0 or more; a string declared without one has NoResourceId.
constexpr int NoResourceId = -1;

// The resource table of one loaded module (the host executable, a library, a package). A module
// declares its table with JEX_MODULE and fills it at its own static initialisation; a loader finds it
// after dlopen with FindModuleResources and makes it visible with RegisterModule.
//
// Pointers returned into the table (bitmaps, raw data) stay valid until the module is unloaded. The
// destructor, which runs when the module is unloaded, unregisters the table if the loader forgot to.
class TResourceModule {
public:
    // fileName: the module's file (.so or executable); its folder is where translations are looked
    // for. Empty for a table that has no file (no translations then).
    explicit TResourceModule(std::string name, std::string fileName = {});
    ~TResourceModule();
    TResourceModule(const TResourceModule&) = delete;
    TResourceModule& operator=(const TResourceModule&) = delete;

    const std::string& Name() const { return FName; }
    const std::string& FileName() const { return FFileName; }
    // The dlopen handle of the module when a loader opened it (not owned; the loader closes it).
    void* Handle() const { return FHandle; }
    void SetHandle(void* handle) { FHandle = handle; }

    // Declares a string resource. name may be empty when id is given, id may be NoResourceId when a
    // name is given. A second string with the same name or id is reported and ignored.
    bool AddString(std::string_view name, int id, std::string_view text);
    // Declares a bitmap (the bytes of a BMP file) or raw data under a name compared ignoring case. The
    // bytes are copied. A duplicate name, an empty name or bytes that are not a BMP file (for bitmaps)
    // are reported through the diagnostics and the call returns false, so a static initialiser never
    // throws.
    bool AddBitmap(std::string_view name, const void* bytes, size_t size);
    bool AddRawData(std::string_view name, const void* bytes, size_t size);

    // One declared string, untranslated.
    struct TStringEntry {
        std::string Name;
        int Id = NoResourceId;
        std::string Text;
    };
    // Every declared string in declaration order, untranslated (e.g. to write a catalogue template).
    std::vector<TStringEntry> Strings() const;
    // The path of the translation catalogue currently applied, empty when none.
    std::string TranslationFile() const;

private:
    friend struct TResourceAccess;
    struct TTranslation {
        std::string MsgId;
        std::string MsgStr;
    };
    struct TFileStamp {
        std::string Path;
        uint64_t Dev = 0, Ino = 0, Size = 0;
        int64_t MTimeNs = 0;
        bool operator==(const TFileStamp&) const = default;
    };

    std::string FName;
    std::string FFileName;
    void* FHandle = nullptr;
    std::vector<TStringEntry> FStrings;
    std::map<std::string, size_t, std::less<>> FStringByName;
    std::map<int, size_t> FStringById;
    std::map<std::string, std::vector<uint8_t>, std::less<>> FBitmaps; // keys upper-cased
    std::map<std::string, std::vector<uint8_t>, std::less<>> FRawData; // keys upper-cased
    // Translations by context (the string's name or "#id"); a context may hold several msgids.
    std::map<std::string, std::vector<TTranslation>, std::less<>> FTranslations;
    std::string FAppliedFile;  // catalogue whose translations are in FTranslations
    TFileStamp FLoadedStamp;   // catalogue last read (Path empty: none found)
    TFileStamp FReportedStamp; // catalogue last reported as broken, so it is reported once
    std::chrono::steady_clock::time_point FLastCheck{};
    bool FRegistered = false;
};

// A resource string declared in a module's source with JEX_RESOURCESTRING. Constant-initialised, so it
// can be passed to LoadResString at any time, also from other modules.
class TResourceString {
public:
    constexpr TResourceString(TResourceModule& (*module)(), const char* name, int id, const char* text)
        : FModule(module), FName(name), FId(id), FText(text) {}
    TResourceModule& Module() const { return FModule(); }
    const char* Name() const { return FName; }
    int Id() const { return FId; }
    // The original (untranslated) text.
    const char* Text() const { return FText; }

private:
    TResourceModule& (*FModule)();
    const char* FName;
    int FId;
    const char* FText;
};

// Adds a resource string to its module's table when the module is initialised (used by the macros).
struct TResourceStringRegistrar {
    explicit TResourceStringRegistrar(const TResourceString& s) {
        s.Module().AddString(s.Name(), s.Id(), s.Text());
    }
};

// ---- Modules ---------------------------------------------------------------------------------------
// The absolute path of the module (shared object or executable) that contains `address`, or empty.
std::string ModuleFileNameOf(const void* address);
// The table exported by an opened library (its JexModuleResources entry), with Handle set to `handle`;
// nullptr when the library has none.
TResourceModule* FindModuleResources(void* handle);

// Makes a module visible to lookups and reads its translation catalogue. Registering twice does nothing.
void RegisterModule(TResourceModule* module);
// Withdraws a module; must happen before its library is unloaded. Unknown modules are ignored.
void UnregisterModule(TResourceModule* module);
// The host's module, registered as such at start; nullptr until then.
TResourceModule* MainInstance();
// Registers `module` (if needed) and makes it the main instance; nullptr clears the main instance.
void SetMainInstance(TResourceModule* module);
// Calls `callback` for every registered module, most recently registered first, until it returns
// false. The callback may look resources up and may unregister modules.
void EnumResourceModules(const std::function<bool(TResourceModule&)>& callback);
// The most recently registered module of that name (ignoring case), or nullptr.
TResourceModule* FindResourceModule(std::string_view name);

// ---- Strings (translation applied) -------------------------------------------------------------
std::string LoadResString(const TResourceString& s);
// The string `id` of one module; empty when missing.
std::string LoadResString(TResourceModule& module, int id);
// The string `id` of the most recently registered module that has one; empty when none has.
std::string LoadStr(int id);
// The string of that name (compared exactly, as the identifier it was declared with) of one module.
std::optional<std::string> FindResourceString(TResourceModule& module, std::string_view name);

// ---- Bitmaps and raw data (names ignore case; nullptr when missing) ------------------------------
const std::vector<uint8_t>* FindBitmapResource(TResourceModule& module, std::string_view name);
// Searches the registered modules, most recently registered first.
const std::vector<uint8_t>* FindBitmapResource(std::string_view name);
const std::vector<uint8_t>* FindRawResource(TResourceModule& module, std::string_view name);

enum class TResourceType { rtBitmap, rtRawData };
// As the Find functions, but raises EResNotFound "Resource %s not found" when missing.
const std::vector<uint8_t>& LoadResourceOrRaise(TResourceModule& module, std::string_view name,
                                                TResourceType type);

// ---- Translations ----------------------------------------------------------------------------------
// A module's strings are overridden by a gettext catalogue found next to its file:
//   <dir>/<stem>.<lang>.po, else <dir>/locale/<lang>/<stem>.po
// where <stem> is the file name without ".so..." or its last extension. An entry applies when its
// msgctxt is the string's name ("#<id>" for a string without name) and its msgid is the original text;
// fuzzy entries and empty translations are left out. A catalogue with any error is not applied at all:
// the module keeps its original strings and the problem is reported once through the diagnostics.
//
// The catalogue is read when the module is registered and by ReloadTranslations. Besides, a string
// lookup checks whether the catalogue changed (file stat) at most once per check interval per module.

// The language for catalogues: the one set here, else $JEX_LANG, else the language part of $LC_ALL,
// $LC_MESSAGES or $LANG (the first set; "de_DE.UTF-8" -> "de"). "C", "POSIX" or anything that is not a
// plain language code means no translation. Setting a language re-reads every registered module's
// catalogue; an empty string goes back to the environment.
void SetResourceLanguage(std::string_view language);
std::string GetResourceLanguage();
// Re-reads the catalogues of all registered modules.
void ReloadTranslations();
// How often lookups look for a changed catalogue: 1000 ms by default; 0 checks on every lookup, a
// negative interval only on ReloadTranslations and registration.
void SetTranslationCheckInterval(std::chrono::milliseconds interval);

// ---- Diagnostics ---------------------------------------------------------------------------------
// Problems with resource tables and catalogues ("<file>:<line>: <problem>"), reported when found. The
// most recent 100 are kept; a handler, if set, is called for each as well.
using TResourceDiagnosticHandler = std::function<void(const std::string& message)>;
TResourceDiagnosticHandler SetResourceDiagnosticHandler(TResourceDiagnosticHandler handler);
std::vector<std::string> ResourceDiagnostics();
void ClearResourceDiagnostics();

} // namespace rtl

// ---- Declaring a module's resources ------------------------------------------------------------------
// The calling module's own table. Defined once per module by JEX_MODULE; hidden, so every module
// reaches its own table and never another's.
rtl::TResourceModule& jexThisModule() __attribute__((visibility("hidden")));

// Name of the exported entry through which a loader finds a module's table after dlopen.
constexpr const char* JexModuleResourcesSymbol = "JexModuleResources";

// In one source file of each module: JEX_MODULE("dclJEXC").
#define JEX_MODULE(ModuleName)                                                                               \
    ::rtl::TResourceModule& jexThisModule() {                                                                \
        static ::rtl::TResourceModule module(                                                                \
            ModuleName, ::rtl::ModuleFileNameOf(reinterpret_cast<const void*>(&jexThisModule)));             \
        return module;                                                                                       \
    }                                                                                                        \
    extern "C" __attribute__((visibility("default"))) ::rtl::TResourceModule* JexModuleResources() {         \
        return &jexThisModule();                                                                             \
    }

// In a header of the module: JEX_DECLARE_RESOURCESTRING(_sjexnpCapFirst);
// hidden so that equally named strings of two modules never bind to each other.
#define JEX_DECLARE_RESOURCESTRING(Ident)                                                                    \
    extern const ::rtl::TResourceString Ident __attribute__((visibility("hidden")))

// In a source of the module: JEX_RESOURCESTRING(_sjexnpCapFirst, "First"), or with a numeric
// identifier JEX_RESOURCESTRING_ID(_sjexnpCapFirst, 65293, "First"). The name is the identifier.
#define JEX_RESOURCESTRING_ID(Ident, Id, Text)                                                               \
    JEX_DECLARE_RESOURCESTRING(Ident);                                                                       \
    constinit const ::rtl::TResourceString Ident{&::jexThisModule, #Ident, Id, Text};                        \
    static const ::rtl::TResourceStringRegistrar Ident##_jexRegistrar {                                      \
        Ident                                                                                                \
    }
#define JEX_RESOURCESTRING(Ident, Text) JEX_RESOURCESTRING_ID(Ident, ::rtl::NoResourceId, Text)
