// Module resource tables, the list of registered modules, lookups across them and the translation
// catalogues applied to their strings.
#include "rtl/resources.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <filesystem>
#include <mutex>

#include "resources_po.h"

namespace rtl {

namespace {

constexpr size_t MaxDiagnostics = 100;
// A catalogue is text written by a person; anything bigger is not one and is not read into memory.
constexpr uint64_t MaxCatalogueSize = 64u << 20;

struct TRegistry {
    // Recursive: diagnostic handlers and enumeration callbacks may look resources up.
    std::recursive_mutex Lock;
    std::vector<TResourceModule*> Modules; // in registration order
    TResourceModule* Main = nullptr;
    bool LanguageSet = false;
    std::string Language;
    std::chrono::milliseconds CheckInterval{1000};
    std::deque<std::string> Diagnostics;
    TResourceDiagnosticHandler Handler;
    ~TRegistry();
};

// Set once the registry is destroyed at exit, for module tables destroyed after it.
bool GRegistryGone = false;

TRegistry::~TRegistry() {
    GRegistryGone = true;
}

TRegistry& Registry() {
    static TRegistry registry;
    return registry;
}

using TLock = std::lock_guard<std::recursive_mutex>;

void Report(TRegistry& r, const std::string& message) {
    r.Diagnostics.push_back(message);
    if (r.Diagnostics.size() > MaxDiagnostics) r.Diagnostics.pop_front();
    if (!r.Handler) return;
    try {
        r.Handler(message);
    } catch (...) {
        // A failing handler must not break the lookup or static initialisation that found the problem.
    }
}

bool IsRegistered(const TRegistry& r, const TResourceModule* m) {
    return std::find(r.Modules.begin(), r.Modules.end(), m) != r.Modules.end();
}

uint32_t ReadLE32(const uint8_t* p) {
    return p[0] | p[1] << 8 | p[2] << 16 | uint32_t(p[3]) << 24;
}

// A BMP file: "BM" file header, a known info-header size and pixel data inside the bytes.
bool LooksLikeBmp(const uint8_t* b, size_t size) {
    if (size < 26 || b[0] != 'B' || b[1] != 'M') return false;
    uint32_t header = ReadLE32(b + 14);
    static constexpr uint32_t known[] = {12, 16, 40, 52, 56, 64, 108, 124};
    if (std::find(std::begin(known), std::end(known), header) == std::end(known)) return false;
    uint32_t offBits = ReadLE32(b + 10);
    return 14 + header <= size && offBits >= 14 + header && offBits <= size;
}

// "de_DE.UTF-8" -> "de"; "C", "POSIX" and anything that is not 2-8 letters -> "" (no translation). The
// result becomes part of a file path, so nothing else may pass.
std::string NormaliseLanguage(std::string_view locale) {
    std::string_view lang = locale.substr(0, locale.find_first_of("_.@"));
    if (lang == "C" || lang == "POSIX" || lang.size() < 2 || lang.size() > 8) return {};
    for (char c : lang)
        if (!std::isalpha(static_cast<unsigned char>(c))) return {};
    return LowerCase(lang);
}

std::string EffectiveLanguage(const TRegistry& r) {
    if (r.LanguageSet) return r.Language;
    for (const char* var : {"JEX_LANG", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(var);
        if (value && *value) return NormaliseLanguage(value);
    }
    return {};
}

// "libdclJEXC.so" -> "libdclJEXC", "libx.so.1" -> "libx", "jexdesign" -> "jexdesign".
std::string ModuleFileStem(const std::string& fileName) {
    std::string name = std::filesystem::path(fileName).filename().string();
    for (size_t p = name.find(".so"); p != std::string::npos && p > 0; p = name.find(".so", p + 1))
        if (p + 3 == name.size() || name[p + 3] == '.') return name.substr(0, p);
    size_t dot = name.rfind('.');
    return dot == std::string::npos || dot == 0 ? name : name.substr(0, dot);
}

template <class Map> auto FindUpper(const Map& map, std::string_view name) {
    return map.find(UpperCase(name));
}

} // namespace

// Everything that works on a module's private state under the registry's lock.
struct __attribute__((visibility("hidden"))) TResourceAccess {
    using TFileStamp = TResourceModule::TFileStamp;

    static bool StatFile(const std::string& path, TFileStamp& stamp) {
        struct stat st;
        if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) return false;
        Fill(path, st, stamp);
        return true;
    }

    static void Fill(const std::string& path, const struct stat& st, TFileStamp& stamp) {
        stamp.Path = path;
        stamp.Dev = st.st_dev;
        stamp.Ino = st.st_ino;
        stamp.Size = st.st_size;
        stamp.MTimeNs = int64_t(st.st_mtim.tv_sec) * 1000000000 + st.st_mtim.tv_nsec;
    }

    // The catalogue for `lang` next to the module's file, or an empty stamp when there is none.
    static TFileStamp FindCatalogue(const TResourceModule& m, const std::string& lang) {
        TFileStamp stamp;
        if (lang.empty() || m.FFileName.empty()) return stamp;
        std::filesystem::path dir = std::filesystem::path(m.FFileName).parent_path();
        std::string stem = ModuleFileStem(m.FFileName);
        for (const auto& candidate :
             {dir / (stem + "." + lang + ".po"), dir / "locale" / lang / (stem + ".po")})
            if (StatFile(candidate.string(), stamp)) return stamp;
        return TFileStamp();
    }

    // Reads the module's catalogue when `force` is set or the file (or which file) changed.
    static void Refresh(TRegistry& r, TResourceModule& m, bool force) {
        m.FLastCheck = std::chrono::steady_clock::now();
        TFileStamp found = FindCatalogue(m, EffectiveLanguage(r));
        if (!force && found == m.FLoadedStamp) return;
        m.FTranslations.clear();
        m.FAppliedFile.clear();
        m.FLoadedStamp = found;
        if (found.Path.empty()) return;

        std::vector<detail::TPoMessage> messages;
        std::string text, error;
        if (!ReadCatalogue(found.Path, m.FLoadedStamp, text, error) ||
            !detail::ParsePoCatalogue(text, found.Path, messages, error)) {
            if (m.FReportedStamp != m.FLoadedStamp) {
                m.FReportedStamp = m.FLoadedStamp;
                Report(r, error + " (translations of module " + m.FName + " not applied)");
            }
            return;
        }
        for (auto& msg : messages)
            m.FTranslations[msg.Context].push_back({std::move(msg.MsgId), std::move(msg.MsgStr)});
        m.FAppliedFile = found.Path;
    }

    // Reads the file into `text`, updating `stamp` to what was read.
    static bool ReadCatalogue(const std::string& path, TFileStamp& stamp, std::string& text,
                              std::string& error) {
        int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        struct stat st;
        if (fd < 0 || ::fstat(fd, &st) != 0) {
            error = path + ": cannot open catalogue: " + std::strerror(errno);
            if (fd >= 0) ::close(fd);
            return false;
        }
        Fill(path, st, stamp);
        if (uint64_t(st.st_size) > MaxCatalogueSize) {
            ::close(fd);
            error = path + ": catalogue is too large";
            return false;
        }
        text.assign(size_t(st.st_size), '\0');
        size_t got = 0;
        while (got < text.size()) {
            ssize_t n = ::read(fd, text.data() + got, text.size() - got);
            if (n < 0 && errno == EINTR) continue;
            if (n <= 0) break;
            got += size_t(n);
        }
        ::close(fd);
        text.resize(got); // a file that shrank while being read is re-read on the next change
        return true;
    }

    static void MaybeRefresh(TRegistry& r, TResourceModule& m) {
        if (!m.FRegistered || r.CheckInterval.count() < 0) return;
        if (std::chrono::steady_clock::now() - m.FLastCheck < r.CheckInterval) return;
        Refresh(r, m, false);
    }

    static std::string Translate(const TResourceModule& m, std::string_view name, int id,
                                 std::string_view text) {
        if (!m.FTranslations.empty()) {
            auto it =
                name.empty() ? m.FTranslations.find("#" + std::to_string(id)) : m.FTranslations.find(name);
            if (it != m.FTranslations.end())
                for (const auto& t : it->second)
                    if (t.MsgId == text) return t.MsgStr;
        }
        return std::string(text);
    }

    static std::string Entry(TRegistry& r, TResourceModule& m, size_t index) {
        MaybeRefresh(r, m);
        const auto& e = m.FStrings[index];
        return Translate(m, e.Name, e.Id, e.Text);
    }

    static bool ById(const TResourceModule& m, int id, size_t& index) {
        auto it = m.FStringById.find(id);
        if (it == m.FStringById.end()) return false;
        index = it->second;
        return true;
    }

    static bool ByName(const TResourceModule& m, std::string_view name, size_t& index) {
        auto it = m.FStringByName.find(name);
        if (it == m.FStringByName.end()) return false;
        index = it->second;
        return true;
    }

    static void Register(TRegistry& r, TResourceModule& m) {
        if (m.FRegistered) return;
        r.Modules.push_back(&m);
        m.FRegistered = true;
        Refresh(r, m, true);
    }

    static void Unregister(TRegistry& r, TResourceModule& m) {
        auto it = std::find(r.Modules.begin(), r.Modules.end(), &m);
        if (it == r.Modules.end()) return;
        r.Modules.erase(it);
        if (r.Main == &m) r.Main = nullptr;
        m.FRegistered = false;
        m.FTranslations.clear();
        m.FAppliedFile.clear();
        m.FLoadedStamp = TFileStamp();
    }

    static const std::vector<uint8_t>* Bitmap(const TResourceModule& m, std::string_view name) {
        auto it = FindUpper(m.FBitmaps, name);
        return it == m.FBitmaps.end() ? nullptr : &it->second;
    }

    static const std::vector<uint8_t>* Raw(const TResourceModule& m, std::string_view name) {
        auto it = FindUpper(m.FRawData, name);
        return it == m.FRawData.end() ? nullptr : &it->second;
    }

    static bool AddBytes(TResourceModule& m, std::map<std::string, std::vector<uint8_t>, std::less<>>& map,
                         const char* kind, std::string_view name, const void* bytes, size_t size) {
        TRegistry& r = Registry();
        TLock lock(r.Lock);
        auto fail = [&](const std::string& why) {
            Report(r, "module " + m.FName + ": " + kind + " resource '" + std::string(name) + "' " + why);
            return false;
        };
        if (name.empty()) return fail("has no name");
        if (!bytes && size) return fail("has no data");
        const auto* b = static_cast<const uint8_t*>(bytes);
        if (&map == &m.FBitmaps && !LooksLikeBmp(b, size)) return fail("is not a BMP image");
        std::string key = UpperCase(name);
        if (map.count(key)) return fail("is declared twice; the second one is ignored");
        map.emplace(std::move(key), std::vector<uint8_t>(b, b + size));
        return true;
    }
};

// ---- TResourceModule ---------------------------------------------------------------------------------

TResourceModule::TResourceModule(std::string name, std::string fileName)
    : FName(std::move(name)), FFileName(std::move(fileName)) {}

TResourceModule::~TResourceModule() {
    // At exit the registry may already be gone; a table that was never registered has nothing to undo.
    if (GRegistryGone || !FRegistered) return;
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    TResourceAccess::Unregister(r, *this);
}

bool TResourceModule::AddString(std::string_view name, int id, std::string_view text) {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    std::string what = "module " + FName + ": string resource " +
                       (name.empty() ? "#" + std::to_string(id) : "'" + std::string(name) + "'");
    if (name.empty() && id == NoResourceId) {
        Report(r, "module " + FName + ": string resource without name or identifier ignored");
        return false;
    }
    if (id < NoResourceId) {
        Report(r, what + " has a negative identifier; ignored");
        return false;
    }
    if ((!name.empty() && FStringByName.count(name)) || (id != NoResourceId && FStringById.count(id))) {
        Report(r, what + " is declared twice; the second one is ignored");
        return false;
    }
    FStrings.push_back({std::string(name), id, std::string(text)});
    if (!name.empty()) FStringByName.emplace(std::string(name), FStrings.size() - 1);
    if (id != NoResourceId) FStringById.emplace(id, FStrings.size() - 1);
    return true;
}

bool TResourceModule::AddBitmap(std::string_view name, const void* bytes, size_t size) {
    return TResourceAccess::AddBytes(*this, FBitmaps, "bitmap", name, bytes, size);
}

bool TResourceModule::AddRawData(std::string_view name, const void* bytes, size_t size) {
    return TResourceAccess::AddBytes(*this, FRawData, "data", name, bytes, size);
}

std::vector<TResourceModule::TStringEntry> TResourceModule::Strings() const {
    TLock lock(Registry().Lock);
    return FStrings;
}

std::string TResourceModule::TranslationFile() const {
    TLock lock(Registry().Lock);
    return FAppliedFile;
}

// ---- Modules -------------------------------------------------------------------------------------------

std::string ModuleFileNameOf(const void* address) {
    Dl_info info{};
    struct link_map* map = nullptr;
    if (!dladdr1(address, &info, reinterpret_cast<void**>(&map), RTLD_DL_LINKMAP)) return {};
    // The executable's own entry has no name; the kernel knows its path.
    std::string path = map && map->l_name && map->l_name[0] ? map->l_name : "/proc/self/exe";
    char resolved[PATH_MAX];
    return ::realpath(path.c_str(), resolved) ? std::string(resolved) : path;
}

TResourceModule* FindModuleResources(void* handle) {
    if (!handle) return nullptr;
    void* symbol = ::dlsym(handle, JexModuleResourcesSymbol);
    if (!symbol) return nullptr;
    // dlsym also searches the library's dependencies; only the library's own entry counts.
    struct link_map* own = nullptr;
    struct link_map* found = nullptr;
    Dl_info info{};
    if (::dlinfo(handle, RTLD_DI_LINKMAP, &own) != 0 ||
        !::dladdr1(symbol, &info, reinterpret_cast<void**>(&found), RTLD_DL_LINKMAP) || own != found)
        return nullptr;
    auto entry = reinterpret_cast<TResourceModule* (*)()>(symbol);
    TResourceModule* m = entry();
    if (m) m->SetHandle(handle);
    return m;
}

void RegisterModule(TResourceModule* module) {
    if (!module) return;
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    TResourceAccess::Register(r, *module);
}

void UnregisterModule(TResourceModule* module) {
    if (!module) return;
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    TResourceAccess::Unregister(r, *module);
}

TResourceModule* MainInstance() {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    return r.Main;
}

void SetMainInstance(TResourceModule* module) {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    if (module) TResourceAccess::Register(r, *module);
    r.Main = module;
}

void EnumResourceModules(const std::function<bool(TResourceModule&)>& callback) {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    std::vector<TResourceModule*> snapshot(r.Modules.rbegin(), r.Modules.rend());
    for (TResourceModule* m : snapshot) {
        // The callback may have unregistered (and even unloaded) a module further down the snapshot.
        if (!IsRegistered(r, m)) continue;
        if (!callback(*m)) return;
    }
}

TResourceModule* FindResourceModule(std::string_view name) {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    for (auto it = r.Modules.rbegin(); it != r.Modules.rend(); ++it)
        if (SameText((*it)->Name(), name)) return *it;
    return nullptr;
}

// ---- Strings ---------------------------------------------------------------------------------------

std::string LoadResString(const TResourceString& s) {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    TResourceModule& m = s.Module();
    TResourceAccess::MaybeRefresh(r, m);
    return TResourceAccess::Translate(m, s.Name(), s.Id(), s.Text());
}

std::string LoadResString(TResourceModule& module, int id) {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    size_t index = 0;
    if (!TResourceAccess::ById(module, id, index)) return {};
    return TResourceAccess::Entry(r, module, index);
}

std::string LoadStr(int id) {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    size_t index = 0;
    for (auto it = r.Modules.rbegin(); it != r.Modules.rend(); ++it)
        if (TResourceAccess::ById(**it, id, index)) return TResourceAccess::Entry(r, **it, index);
    return {};
}

std::optional<std::string> FindResourceString(TResourceModule& module, std::string_view name) {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    size_t index = 0;
    if (!TResourceAccess::ByName(module, name, index)) return std::nullopt;
    return TResourceAccess::Entry(r, module, index);
}

// ---- Bitmaps and raw data -------------------------------------------------------------------------

const std::vector<uint8_t>* FindBitmapResource(TResourceModule& module, std::string_view name) {
    TLock lock(Registry().Lock);
    return TResourceAccess::Bitmap(module, name);
}

const std::vector<uint8_t>* FindBitmapResource(std::string_view name) {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    for (auto it = r.Modules.rbegin(); it != r.Modules.rend(); ++it)
        if (const auto* bitmap = TResourceAccess::Bitmap(**it, name)) return bitmap;
    return nullptr;
}

const std::vector<uint8_t>* FindRawResource(TResourceModule& module, std::string_view name) {
    TLock lock(Registry().Lock);
    return TResourceAccess::Raw(module, name);
}

const std::vector<uint8_t>& LoadResourceOrRaise(TResourceModule& module, std::string_view name,
                                                TResourceType type) {
    const auto* bytes =
        type == TResourceType::rtBitmap ? FindBitmapResource(module, name) : FindRawResource(module, name);
    if (!bytes) throw EResNotFound(Format(SResNotFound, {std::string(name)}));
    return *bytes;
}

// ---- Translations ----------------------------------------------------------------------------------

void SetResourceLanguage(std::string_view language) {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    r.LanguageSet = !language.empty();
    r.Language = NormaliseLanguage(language);
    ReloadTranslations();
}

std::string GetResourceLanguage() {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    return EffectiveLanguage(r);
}

void ReloadTranslations() {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    for (TResourceModule* m : r.Modules)
        TResourceAccess::Refresh(r, *m, true);
}

void SetTranslationCheckInterval(std::chrono::milliseconds interval) {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    r.CheckInterval = interval;
}

// ---- Diagnostics ---------------------------------------------------------------------------------

TResourceDiagnosticHandler SetResourceDiagnosticHandler(TResourceDiagnosticHandler handler) {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    std::swap(r.Handler, handler);
    return handler;
}

std::vector<std::string> ResourceDiagnostics() {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    return {r.Diagnostics.begin(), r.Diagnostics.end()};
}

void ClearResourceDiagnostics() {
    TRegistry& r = Registry();
    TLock lock(r.Lock);
    r.Diagnostics.clear();
}

} // namespace rtl
