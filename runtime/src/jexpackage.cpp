// jexc60 as a package: what the library declares about itself to the package manager (package information,
// description, options), the guarded start/stop procedure of each of its units, and its entry points.
//
// A design package that requires jexc60 lists these units in its own initialization table ahead of its
// units that use them; each unit procedure is exported as Initialize_<unit> / Finalize_<unit> so that those
// entries can forward to it. The guards make a unit start once however many tables reach it.
//
// The run-time library does not link the design API, so the record and the table are written here in the
// layout the package manager reads (the package information record and TPackageInfoTable of the design
// API's package header).
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "rtl/resources.h"

namespace {

// ---- The library's units ----------------------------------------------------------------------------------
// Every unit of the library, in the order the units start (the common unit first: the others use it).
// A new unit of the library is added here, and it appears in the package information and the table.
#define JEXC60_UNITS(X)                                                                                      \
    X(jexcommon)                                                                                             \
    X(jexappexc)                                                                                             \
    X(jexbuttons)                                                                                            \
    X(jexctrls)                                                                                              \
    X(jexdbaccess)                                                                                           \
    X(jexdbctrls)                                                                                            \
    X(jexdbeffects)                                                                                          \
    X(jexdbgrids)                                                                                            \
    X(jexdblabeled)                                                                                          \
    X(jexdbtree)                                                                                             \
    X(jexdialogs)                                                                                            \
    X(jexdock)                                                                                               \
    X(jexeffects)                                                                                            \
    X(jexfiledlg)                                                                                            \
    X(jexlabeled)                                                                                            \
    X(jexlabels)                                                                                             \
    X(jexlists)                                                                                              \
    X(jexnav)                                                                                                \
    X(jexpages)                                                                                              \
    X(jexpanels)                                                                                             \
    X(jexshape)                                                                                              \
    X(jexsplash)                                                                                             \
    X(jexsplit)                                                                                              \
    X(jexspr)                                                                                                \
    X(jextips)                                                                                               \
    X(jexutils)                                                                                              \
    X(jexwave)

// A unit's start runs only on the first pass (the count goes below zero), its stop only when the count
// returns to zero. The library's units have no start or stop work of their own: registering classes is
// the design package's business.
struct TUnitCounter {
    int Count = 0;
    bool Start() { return Count-- == 0; }
    bool Stop() { return ++Count == 0; }
};

using TUnitProc = void (*)();
struct TUnitEntry {
    TUnitProc Init;
    TUnitProc FInit;
};
struct TInfoTable {
    int32_t UnitCount;
    const TUnitEntry* UnitInfo;
};

} // namespace

#define JEXC60_UNIT_PROCS(Unit)                                                                              \
    namespace {                                                                                              \
    TUnitCounter Unit##Counter;                                                                              \
    }                                                                                                        \
    extern "C" __attribute__((visibility("default"))) void Initialize_##Unit() {                             \
        Unit##Counter.Start();                                                                               \
    }                                                                                                        \
    extern "C" __attribute__((visibility("default"))) void Finalize_##Unit() {                               \
        Unit##Counter.Stop();                                                                                \
    }                                                                                                        \
    extern "C" __attribute__((visibility("default"))) int UnitStartCount_##Unit() {                          \
        return -Unit##Counter.Count;                                                                         \
    }
JEXC60_UNITS(JEXC60_UNIT_PROCS)
#undef JEXC60_UNIT_PROCS

namespace {

#define JEXC60_UNIT_ENTRY(Unit) {Initialize_##Unit, Finalize_##Unit},
const TUnitEntry UnitTable[] = {JEXC60_UNITS(JEXC60_UNIT_ENTRY)};
#undef JEXC60_UNIT_ENTRY
const TInfoTable InfoTable{static_cast<int32_t>(sizeof(UnitTable) / sizeof(UnitTable[0])), UnitTable};

// Runs every start in table order; when one raises, the units already started stop again.
void RunStarts() {
    int i = 0;
    try {
        for (; i < InfoTable.UnitCount; ++i)
            InfoTable.UnitInfo[i].Init();
    } catch (...) {
        for (int j = i - 1; j >= 0; --j)
            InfoTable.UnitInfo[j].FInit();
        throw;
    }
}

void RunStops() {
    for (int i = InfoTable.UnitCount - 1; i >= 0; --i)
        InfoTable.UnitInfo[i].FInit();
}

// ---- Package information ----------------------------------------------------------------------------------
constexpr uint32_t PackageFlags = 0x40000000    // package module
                                  | 0x0C000000  // produced by the native compiler
                                  | 0x00000004  // run-time only
                                  | 0x00000001; // never rebuilt by the host
constexpr uint8_t ufMainUnit = 0x01, ufPackageUnit = 0x02;
constexpr const char* Description = "Jex Vantor 6 Run-time Library";

// The hash byte of a name: the rotating checksum of its upper-cased bytes that the host writes too.
uint8_t NameHash(std::string_view name) {
    uint8_t h = 0;
    for (char ch : name) {
        h = static_cast<uint8_t>((h << 1) | (h >> 7));
        h ^= static_cast<uint8_t>(ch >= 'a' && ch <= 'z' ? ch - 'a' + 'A' : ch);
    }
    return h;
}

void PutU32(std::vector<uint8_t>& out, uint32_t v) {
    for (int i = 0; i < 4; ++i)
        out.push_back(static_cast<uint8_t>(v >> (8 * i)));
}

void PutName(std::vector<uint8_t>& out, std::string_view name) {
    out.insert(out.end(), name.begin(), name.end());
    out.push_back(0);
}

// uint32 flags; int32 count, then per required package: hash, name, NUL; int32 count, then per contained
// unit: flags, hash, name, NUL.
std::vector<uint8_t> PackageInfoRecord() {
    static constexpr std::string_view Requires[] = {"rtl60.bpl",   "vcl60.bpl",   "vclx60.bpl",
                                                    "dbrtl60.bpl", "vcldb60.bpl", "bdertl60.bpl"};
#define JEXC60_UNIT_NAME(Unit) #Unit,
    static constexpr std::string_view Units[] = {JEXC60_UNITS(JEXC60_UNIT_NAME)};
#undef JEXC60_UNIT_NAME
    std::vector<uint8_t> out;
    PutU32(out, PackageFlags);
    PutU32(out, std::size(Requires));
    for (std::string_view r : Requires) {
        out.push_back(NameHash(r));
        PutName(out, r);
    }
    // The package's own unit and SysInit come first, as in every package.
    PutU32(out, std::size(Units) + 2);
    auto unit = [&](std::string_view name, uint8_t flags) {
        out.push_back(flags);
        out.push_back(NameHash(name));
        PutName(out, name);
    };
    unit("jexc60", ufMainUnit | ufPackageUnit);
    unit("SysInit", 0);
    for (std::string_view u : Units)
        unit(u, 0);
    return out;
}

std::vector<uint8_t> DescriptionRecord() {
    std::vector<uint8_t> out;
    for (const char* p = Description; *p; ++p) {
        out.push_back(static_cast<uint8_t>(*p));
        out.push_back(0);
    }
    out.push_back(0);
    out.push_back(0);
    return out;
}

std::vector<uint8_t> OptionsRecord() {
    std::string s =
        std::string("DesignOnly=0\r\nRunOnly=1\r\nDefines=JEXVANTOR\r\n") +
        "UnitAliases=WinTypes=Windows;WinProcs=Windows;DbiTypes=BDE;DbiProcs=BDE;DbiErrs=BDE\r\n" +
        "Description=" + Description + "\r\n";
    return std::vector<uint8_t>(s.begin(), s.end());
}

bool AddPackageResources() {
    auto info = PackageInfoRecord();
    auto desc = DescriptionRecord();
    auto opts = OptionsRecord();
    bool ok = jexThisModule().AddRawData("PACKAGEINFO", info.data(), info.size());
    ok = jexThisModule().AddRawData("DESCRIPTION", desc.data(), desc.size()) && ok;
    return jexThisModule().AddRawData("PACKAGEOPTIONS", opts.data(), opts.size()) && ok;
}
const bool PackageResourcesAdded [[maybe_unused]] = AddPackageResources();

} // namespace

// ---- Entry points
// ---------------------------------------------------------------------------------------------
extern "C" __attribute__((visibility("default"))) const TInfoTable* GetPackageInfoTable() {
    return &InfoTable;
}
extern "C" __attribute__((visibility("default"))) void PackageLoad() {
    RunStarts();
}
extern "C" __attribute__((visibility("default"))) void PackageUnload() {
    RunStops();
}
extern "C" __attribute__((visibility("default"))) void Initialize() {
    RunStarts();
}
extern "C" __attribute__((visibility("default"))) void Finalize() {
    RunStops();
}
