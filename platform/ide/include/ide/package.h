// What a package module declares about itself and the entry points the package manager calls: the
// package information record (resource "PACKAGEINFO"), its description ("DESCRIPTION", UTF-16LE) and
// options ("PACKAGEOPTIONS"), the initialization table of unit start/stop procedures with per-unit
// guards, forwarding to the units of built-in platform packages, and the exported entry points.
//
// A package module, in its sources:
//
//   JEX_MODULE("dclFoo")                                 // its resource table (rtl/resources.h)
//   static ide::TUnitGuard GuardFooReg;                  // one guard per unit with start/stop bodies
//   static void FooRegStart() { if (GuardFooReg.Start()) { ...start body... } }
//   static void FooRegStop() { if (GuardFooReg.Stop()) { ...stop body... } }
//   static constexpr ide::TPackageUnitEntry UnitTable[] = {
//       {ide::BuiltinUnitStart<"vcl60", "Controls">, ide::BuiltinUnitStop<"vcl60", "Controls">},
//       {FooRegStart, FooRegStop},
//   };
//   static constexpr ide::TPackageInfoTable InfoTable{2, UnitTable};
//   JEX_PACKAGE_ENTRY_POINTS(InfoTable)                  // PackageLoad/Initialize, PackageUnload/Finalize,
//                                                        // GetPackageInfoTable
//   // PACKAGEINFO, DESCRIPTION and PACKAGEOPTIONS from a TPackageInfo, a text and TPackageOptions:
//   JEX_PACKAGE_RESOURCES(PackageInfo, "Foo components", Options);
//
// and for every contained unit that registers design-time classes, a Register procedure exported as
//
//   extern "C" void Register_<unit name in lower case>();   // e.g. Register_fooreg for unit "FooReg"
//
// (JEX_PACKAGE_REGISTER(fooreg) { ...RegisterComponents(...)... } declares one). After PackageLoad the
// package manager calls the Register procedure of every unit listed in the package information that has
// one, from the last listed unit to the first, with the package's module current, so that unloading
// withdraws every registration.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "rtl/resources.h"
#include "rtl/sysutils.h"

namespace ide {

// ---- Package information record
// ---------------------------------------------------------------------------- Package flags (32-bit,
// little-endian, first in the record).
inline constexpr uint32_t pfNeverBuild = 0x00000001, pfDesignOnly = 0x00000002, pfRunOnly = 0x00000004,
                          pfIgnoreDupUnits = 0x00000008;
inline constexpr uint32_t pfModuleTypeMask = 0xC0000000, pfExeModule = 0x00000000,
                          pfPackageModule = 0x40000000, pfLibraryModule = 0x80000000;
inline constexpr uint32_t pfProducerMask = 0x0C000000, pfProducerV3 = 0x00000000,
                          pfProducerUndefined = 0x04000000, pfProducerCpp = 0x08000000,
                          pfProducerNative = 0x0C000000;
// Unit flags (one byte per contained unit).
inline constexpr uint8_t ufMainUnit = 0x01, ufPackageUnit = 0x02, ufWeakUnit = 0x04, ufOrgWeakUnit = 0x08,
                         ufImplicitUnit = 0x10;

struct TPackageRequirement {
    std::string Name;     // "vcl60.bpl"
    uint8_t HashCode = 0; // 0 in a record to build: computed from the name
};
struct TPackageUnitInfo {
    std::string Name; // stored as given (packages store unit names in lower case)
    uint8_t Flags = 0;
    uint8_t HashCode = 0; // 0 in a record to build: computed from the name
};
struct TPackageInfo {
    uint32_t Flags = 0;
    std::vector<TPackageRequirement> Requires;
    std::vector<TPackageUnitInfo> Contains;
};

// The record's layout, all integers little-endian:
//   uint32 flags
//   int32  required package count, then per package: uint8 hash, name bytes, NUL
//   int32  contained unit count, then per unit: uint8 flags, uint8 hash, name bytes, NUL
std::vector<uint8_t> BuildPackageInfo(const TPackageInfo& info);
// Raises EPackageError "Invalid package information: <reason>" for a record that does not parse.
TPackageInfo ParsePackageInfo(const uint8_t* data, size_t size);
TPackageInfo ParsePackageInfo(const std::vector<uint8_t>& data);
// The hash byte written for a name: a checksum of its upper-cased bytes.
uint8_t PackageNameHash(std::string_view name);

// DESCRIPTION: UTF-16LE text ending with a NUL character.
std::vector<uint8_t> EncodePackageDescription(const std::string& utf8);
std::string DecodePackageDescription(const std::vector<uint8_t>& data);

// PACKAGEOPTIONS: "Key=Value" lines (UTF-8, CR LF).
struct TPackageOptions {
    bool DesignOnly = false;
    bool RunOnly = false;
    std::string Defines;     // "JEXVANTOR"
    std::string UnitAliases; // "WinTypes=Windows;WinProcs=Windows"
    std::string Description;
};
std::vector<uint8_t> EncodePackageOptions(const TPackageOptions& options);
TPackageOptions DecodePackageOptions(const std::vector<uint8_t>& data);

// Adds PACKAGEINFO, DESCRIPTION and PACKAGEOPTIONS to a module's resource table. Meant for the module's
// own static initialisation, so it reports problems through the resource diagnostics instead of raising.
bool AddPackageResources(rtl::TResourceModule& module, const TPackageInfo& info,
                         const std::string& description, const TPackageOptions& options);

// ---- Initialization table
// --------------------------------------------------------------------------------------
using TUnitProc = void (*)();
struct TPackageUnitEntry {
    TUnitProc Init = nullptr;
    TUnitProc FInit = nullptr;
};
struct TPackageInfoTable {
    int32_t UnitCount = 0;
    const TPackageUnitEntry* UnitInfo = nullptr;
};

// A unit's start and stop bodies run once however often the table is walked: Start counts down and is
// true only on the first pass; Stop counts back up and is true only when it reaches zero again.
class TUnitGuard {
public:
    constexpr TUnitGuard() = default;
    bool Start() const { return FCount-- == 0; }
    bool Stop() const { return ++FCount == 0; }
    int Count() const { return FCount; }

private:
    mutable int FCount = 0;
};

// Runs every start procedure in table order. When one raises, the stop procedures of the entries already
// started run in reverse order and the exception passes on.
void RunUnitStarts(const TPackageInfoTable& table);
// Runs every stop procedure in reverse table order; all of them run even when one raises, and the first
// exception passes on afterwards.
void RunUnitStops(const TPackageInfoTable& table);

// ---- Built-in packages
// ------------------------------------------------------------------------------------------ Platform
// packages that the host provides itself ("vcl60.bpl"): a package requiring one is satisfied without a file,
// and its initialization table forwards to the built-in units' guarded procedures.
struct TBuiltinUnit {
    std::string Name;
    TUnitProc Start = nullptr; // may be nil for a unit without start body
    TUnitProc Stop = nullptr;
};
// Registers (or replaces) a built-in package; the name is given without ".bpl" and compared ignoring case.
void RegisterBuiltinPackage(const std::string& name, std::vector<TBuiltinUnit> units);
void UnregisterBuiltinPackage(const std::string& name);
// True for "vcl60", "vcl60.bpl" (any case) when registered.
bool IsBuiltinPackage(const std::string& name);
std::vector<std::string> BuiltinPackageUnits(const std::string& name);
// Start and stop one unit of a built-in package, guarded by the unit's own counter; EPackageError when the
// package or unit is unknown.
void StartBuiltinUnit(const std::string& package, const std::string& unit);
void StopBuiltinUnit(const std::string& package, const std::string& unit);
// How many starts minus stops the unit has seen (0 when stopped).
int BuiltinUnitStartCount(const std::string& package, const std::string& unit);

// A fixed name usable as a template argument: BuiltinUnitStart<"vcl60", "Controls">.
template <size_t N> struct TFixedName {
    char Text[N]{};
    constexpr TFixedName(const char (&s)[N]) { std::copy_n(s, N, Text); }
};
// Table entries that forward to a built-in package's unit.
template <TFixedName Package, TFixedName Unit> void BuiltinUnitStart() {
    StartBuiltinUnit(Package.Text, Unit.Text);
}
template <TFixedName Package, TFixedName Unit> void BuiltinUnitStop() {
    StopBuiltinUnit(Package.Text, Unit.Text);
}

} // namespace ide

// Exported entry points of a package module. The symbol names are the contract with the package manager.
#define JEX_PACKAGE_ENTRY_POINTS(Table)                                                                      \
    extern "C" __attribute__((visibility("default"))) const ::ide::TPackageInfoTable*                        \
    GetPackageInfoTable() {                                                                                  \
        return &(Table);                                                                                     \
    }                                                                                                        \
    extern "C" __attribute__((visibility("default"))) void PackageLoad() {                                   \
        ::ide::RunUnitStarts(Table);                                                                         \
    }                                                                                                        \
    extern "C" __attribute__((visibility("default"))) void PackageUnload() {                                 \
        ::ide::RunUnitStops(Table);                                                                          \
    }                                                                                                        \
    extern "C" __attribute__((visibility("default"))) void Initialize() {                                    \
        ::ide::RunUnitStarts(Table);                                                                         \
    }                                                                                                        \
    extern "C" __attribute__((visibility("default"))) void Finalize() {                                      \
        ::ide::RunUnitStops(Table);                                                                          \
    }

// Declares the package's resources in its own table (needs JEX_MODULE in the same module).
#define JEX_PACKAGE_RESOURCES(Info, Description, Options)                                                    \
    static const bool jexPackageResourcesAdded [[maybe_unused]] =                                            \
        ::ide::AddPackageResources(::jexThisModule(), (Info), (Description), (Options))

// Declares the exported Register procedure of a contained unit; UnitLower is the unit name in lower case.
#define JEX_PACKAGE_REGISTER(UnitLower)                                                                      \
    extern "C" __attribute__((visibility("default"))) void Register_##UnitLower()
