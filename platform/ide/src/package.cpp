// Package information records, descriptions and options, the initialization table runners and the
// registry of built-in packages.
#include "ide/package.h"

#include <map>

#include "rtl/lists.h"

namespace ide {

using namespace rtl;

// ---- PACKAGEINFO ---------------------------------------------------------------------------------------
uint8_t PackageNameHash(std::string_view name) {
    // Rotating checksum: stable across builds, differs for names that differ in more than case.
    uint8_t h = 0;
    for (char ch : name) {
        h = static_cast<uint8_t>((h << 1) | (h >> 7));
        h ^= static_cast<uint8_t>(std::toupper(static_cast<unsigned char>(ch)));
    }
    return h;
}

namespace {
void PutU32(std::vector<uint8_t>& out, uint32_t v) {
    for (int i = 0; i < 4; ++i)
        out.push_back(static_cast<uint8_t>(v >> (8 * i)));
}

void PutName(std::vector<uint8_t>& out, const std::string& name) {
    if (name.empty() || name.find('\0') != std::string::npos)
        throw EPackageError("Invalid package information: a name is empty or holds a NUL character");
    out.insert(out.end(), name.begin(), name.end());
    out.push_back(0);
}

class TInfoReader {
public:
    TInfoReader(const uint8_t* data, size_t size) : FData(data), FSize(size) {}
    uint32_t U32(const char* what) {
        Need(4, what);
        uint32_t v = 0;
        for (int i = 0; i < 4; ++i)
            v |= uint32_t(FData[FPos + static_cast<size_t>(i)]) << (8 * i);
        FPos += 4;
        return v;
    }
    uint8_t Byte(const char* what) {
        Need(1, what);
        return FData[FPos++];
    }
    std::string Name(const char* what) {
        size_t start = FPos;
        while (FPos < FSize && FData[FPos] != 0)
            ++FPos;
        if (FPos >= FSize) Fail(std::string("the name of ") + what + " is not terminated");
        std::string s(reinterpret_cast<const char*>(FData + start), FPos - start);
        ++FPos;
        if (s.empty()) Fail(std::string("the name of ") + what + " is empty");
        return s;
    }
    int32_t Count(const char* what) {
        auto n = static_cast<int32_t>(U32(what));
        // Every entry takes at least two bytes, so a count beyond that is damage, not a big package.
        if (n < 0 || static_cast<size_t>(n) > (FSize - FPos) / 2)
            Fail(std::string("the ") + what + " count is wrong");
        return n;
    }
    size_t Pos() const { return FPos; }
    [[noreturn]] static void Fail(const std::string& why) {
        throw EPackageError("Invalid package information: " + why);
    }

private:
    void Need(size_t n, const char* what) {
        if (FSize - FPos < n) Fail(std::string("the record ends inside ") + what);
    }
    const uint8_t* FData;
    size_t FSize;
    size_t FPos = 0;
};
} // namespace

std::vector<uint8_t> BuildPackageInfo(const TPackageInfo& info) {
    std::vector<uint8_t> out;
    PutU32(out, info.Flags);
    PutU32(out, static_cast<uint32_t>(info.Requires.size()));
    for (auto& r : info.Requires) {
        out.push_back(r.HashCode ? r.HashCode : PackageNameHash(r.Name));
        PutName(out, r.Name);
    }
    PutU32(out, static_cast<uint32_t>(info.Contains.size()));
    for (auto& u : info.Contains) {
        out.push_back(u.Flags);
        out.push_back(u.HashCode ? u.HashCode : PackageNameHash(u.Name));
        PutName(out, u.Name);
    }
    return out;
}

TPackageInfo ParsePackageInfo(const uint8_t* data, size_t size) {
    if (!data) TInfoReader::Fail("there is no record");
    TInfoReader r(data, size);
    TPackageInfo info;
    info.Flags = r.U32("the flags");
    int32_t requiredCount = r.Count("required package");
    for (int32_t i = 0; i < requiredCount; ++i) {
        TPackageRequirement req;
        req.HashCode = r.Byte("a required package");
        req.Name = r.Name("a required package");
        info.Requires.push_back(std::move(req));
    }
    int32_t contains = r.Count("contained unit");
    for (int32_t i = 0; i < contains; ++i) {
        TPackageUnitInfo u;
        u.Flags = r.Byte("a contained unit");
        u.HashCode = r.Byte("a contained unit");
        u.Name = r.Name("a contained unit");
        info.Contains.push_back(std::move(u));
    }
    if (r.Pos() != size) TInfoReader::Fail("bytes follow the last unit");
    return info;
}

TPackageInfo ParsePackageInfo(const std::vector<uint8_t>& data) {
    return ParsePackageInfo(data.data(), data.size());
}

// ---- DESCRIPTION and PACKAGEOPTIONS
// ---------------------------------------------------------------------------
std::vector<uint8_t> EncodePackageDescription(const std::string& utf8) {
    std::vector<uint8_t> out;
    auto put = [&](uint32_t unit) {
        out.push_back(static_cast<uint8_t>(unit));
        out.push_back(static_cast<uint8_t>(unit >> 8));
    };
    for (char32_t cp : Utf8ToUtf32(utf8)) {
        if (cp >= 0x10000) {
            cp -= 0x10000;
            put(0xD800 + (cp >> 10));
            put(0xDC00 + (cp & 0x3FF));
        } else {
            put(cp);
        }
    }
    put(0);
    return out;
}

std::string DecodePackageDescription(const std::vector<uint8_t>& data) {
    std::u32string text;
    for (size_t i = 0; i + 1 < data.size(); i += 2) {
        uint32_t u = data[i] | (uint32_t(data[i + 1]) << 8);
        if (u == 0) break;
        if (u >= 0xD800 && u < 0xDC00 && i + 3 < data.size()) {
            uint32_t lo = data[i + 2] | (uint32_t(data[i + 3]) << 8);
            if (lo >= 0xDC00 && lo < 0xE000) {
                text.push_back(0x10000 + ((u - 0xD800) << 10) + (lo - 0xDC00));
                i += 2;
                continue;
            }
        }
        text.push_back(u >= 0xD800 && u < 0xE000 ? 0xFFFD : u);
    }
    return Utf32ToUtf8(text);
}

std::vector<uint8_t> EncodePackageOptions(const TPackageOptions& o) {
    std::string s = "DesignOnly=" + std::string(o.DesignOnly ? "1" : "0") + "\r\n" +
                    "RunOnly=" + std::string(o.RunOnly ? "1" : "0") + "\r\n" + "Defines=" + o.Defines +
                    "\r\n" + "UnitAliases=" + o.UnitAliases + "\r\n" + "Description=" + o.Description +
                    "\r\n";
    return std::vector<uint8_t>(s.begin(), s.end());
}

TPackageOptions DecodePackageOptions(const std::vector<uint8_t>& data) {
    TStringList lines;
    lines.SetText(std::string(data.begin(), data.end()));
    TPackageOptions o;
    o.DesignOnly = lines.Values("DesignOnly") == "1";
    o.RunOnly = lines.Values("RunOnly") == "1";
    o.Defines = lines.Values("Defines");
    o.UnitAliases = lines.Values("UnitAliases");
    o.Description = lines.Values("Description");
    return o;
}

bool AddPackageResources(TResourceModule& module, const TPackageInfo& info, const std::string& description,
                         const TPackageOptions& options) {
    std::vector<uint8_t> record;
    try {
        record = BuildPackageInfo(info);
    } catch (const Exception&) {
        // Left out: the package manager then refuses the module as no package, saying why.
        return false;
    }
    auto desc = EncodePackageDescription(description);
    auto opts = EncodePackageOptions(options);
    bool ok = module.AddRawData("PACKAGEINFO", record.data(), record.size());
    ok = module.AddRawData("DESCRIPTION", desc.data(), desc.size()) && ok;
    ok = module.AddRawData("PACKAGEOPTIONS", opts.data(), opts.size()) && ok;
    return ok;
}

// ---- Initialization table
// ----------------------------------------------------------------------------------------
void RunUnitStarts(const TPackageInfoTable& table) {
    int i = 0;
    try {
        for (; i < table.UnitCount; ++i)
            if (table.UnitInfo[i].Init) table.UnitInfo[i].Init();
    } catch (...) {
        // Units already started are stopped again, so a failed load leaves nothing running.
        for (int j = i - 1; j >= 0; --j) {
            try {
                if (table.UnitInfo[j].FInit) table.UnitInfo[j].FInit();
            } catch (...) {
            }
        }
        throw;
    }
}

void RunUnitStops(const TPackageInfoTable& table) {
    std::exception_ptr first;
    for (int i = table.UnitCount - 1; i >= 0; --i) {
        try {
            if (table.UnitInfo[i].FInit) table.UnitInfo[i].FInit();
        } catch (...) {
            if (!first) first = std::current_exception();
        }
    }
    if (first) std::rethrow_exception(first);
}

// ---- Built-in packages
// ------------------------------------------------------------------------------------------
namespace {
struct TBuiltinUnitState {
    TBuiltinUnit Unit;
    TUnitGuard Guard;
};
struct TBuiltinPackage {
    std::string Name;
    std::vector<TBuiltinUnitState> Units;
};
std::vector<TBuiltinPackage>& Builtins() {
    static std::vector<TBuiltinPackage> b;
    return b;
}

std::string BareName(const std::string& name) {
    std::string n = name;
    if (n.size() > 4 && SameText(n.substr(n.size() - 4), ".bpl")) n.erase(n.size() - 4);
    return n;
}

TBuiltinPackage* FindBuiltin(const std::string& name) {
    std::string bare = BareName(name);
    for (auto& p : Builtins())
        if (SameText(p.Name, bare)) return &p;
    return nullptr;
}

TBuiltinUnitState& BuiltinUnit(const std::string& package, const std::string& unit) {
    TBuiltinPackage* p = FindBuiltin(package);
    if (!p) throw EPackageError(Format("Package %s is not built into the host", {package}));
    for (auto& u : p->Units)
        if (SameText(u.Unit.Name, unit)) return u;
    throw EPackageError(Format("Package %s has no unit %s", {package, unit}));
}
} // namespace

void RegisterBuiltinPackage(const std::string& name, std::vector<TBuiltinUnit> units) {
    std::string bare = BareName(name);
    if (bare.empty()) throw EPackageError("A built-in package needs a name");
    UnregisterBuiltinPackage(bare);
    TBuiltinPackage p;
    p.Name = bare;
    for (auto& u : units)
        p.Units.push_back({std::move(u), TUnitGuard()});
    Builtins().push_back(std::move(p));
}

void UnregisterBuiltinPackage(const std::string& name) {
    std::string bare = BareName(name);
    std::erase_if(Builtins(), [&](const TBuiltinPackage& p) { return SameText(p.Name, bare); });
}

bool IsBuiltinPackage(const std::string& name) {
    return FindBuiltin(name) != nullptr;
}

std::vector<std::string> BuiltinPackageUnits(const std::string& name) {
    std::vector<std::string> out;
    if (TBuiltinPackage* p = FindBuiltin(name))
        for (auto& u : p->Units)
            out.push_back(u.Unit.Name);
    return out;
}

void StartBuiltinUnit(const std::string& package, const std::string& unit) {
    TBuiltinUnitState& u = BuiltinUnit(package, unit);
    if (u.Guard.Start() && u.Unit.Start) {
        try {
            u.Unit.Start();
        } catch (...) {
            u.Guard.Stop(); // not started after all
            throw;
        }
    }
}

void StopBuiltinUnit(const std::string& package, const std::string& unit) {
    TBuiltinUnitState& u = BuiltinUnit(package, unit);
    if (u.Guard.Count() >= 0) return; // never started: nothing to stop
    if (u.Guard.Stop() && u.Unit.Stop) u.Unit.Stop();
}

int BuiltinUnitStartCount(const std::string& package, const std::string& unit) {
    return -BuiltinUnit(package, unit).Guard.Count();
}

} // namespace ide
