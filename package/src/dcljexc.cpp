// Dcljexc, the package's main unit: what dclJEXC declares about itself (package information, description,
// options), its initialization table and entry points, and the module entry that records its instance.
#include <dlfcn.h>

#include "dcljexc/units.h"

JEX_MODULE("dclJEXC")

// ---- Units the table reaches ----
// The package's own units: Start and Stop in dcljexc::<Unit>, each defined in its unit's source.
#define DCLJEXC_DECLARE_UNIT(Unit)                                                                           \
    namespace dcljexc::Unit {                                                                                \
    void Start();                                                                                            \
    void Stop();                                                                                             \
    }
DCLJEXC_DECLARE_UNIT(Jexdfstr)
DCLJEXC_DECLARE_UNIT(Jexdfcol)
DCLJEXC_DECLARE_UNIT(Jexdsncn)
DCLJEXC_DECLARE_UNIT(Jexdfnav)
DCLJEXC_DECLARE_UNIT(Jexdfnpb)
DCLJEXC_DECLARE_UNIT(Jexdfwav)
DCLJEXC_DECLARE_UNIT(Jexdfwvl)
DCLJEXC_DECLARE_UNIT(Jexdfmm)
DCLJEXC_DECLARE_UNIT(Jexdflin)
DCLJEXC_DECLARE_UNIT(Jexdfspl)
DCLJEXC_DECLARE_UNIT(Jexdfabh)
DCLJEXC_DECLARE_UNIT(Jexphint)
DCLJEXC_DECLARE_UNIT(Jexprop)
DCLJEXC_DECLARE_UNIT(Jexdfexq)
DCLJEXC_DECLARE_UNIT(Jexpropb)
DCLJEXC_DECLARE_UNIT(Jexdffxp)
DCLJEXC_DECLARE_UNIT(Jexdfsbd)
DCLJEXC_DECLARE_UNIT(Jexdfsbp)
DCLJEXC_DECLARE_UNIT(Jexdfx32)
DCLJEXC_DECLARE_UNIT(Jexdftip)
DCLJEXC_DECLARE_UNIT(Jexpbtns)
DCLJEXC_DECLARE_UNIT(Jexpdbt)
DCLJEXC_DECLARE_UNIT(Jexpedtd)
DCLJEXC_DECLARE_UNIT(Jexpedto)
DCLJEXC_DECLARE_UNIT(Jexpedts)
DCLJEXC_DECLARE_UNIT(Jexpfx)
DCLJEXC_DECLARE_UNIT(Jexpspla)
DCLJEXC_DECLARE_UNIT(Jexptips)
DCLJEXC_DECLARE_UNIT(Jexpvers)
DCLJEXC_DECLARE_UNIT(Jexpbar)
DCLJEXC_DECLARE_UNIT(Jexpanfr)
DCLJEXC_DECLARE_UNIT(Jexprch)
DCLJEXC_DECLARE_UNIT(Jexpbusy)
DCLJEXC_DECLARE_UNIT(Jexdfshp)
DCLJEXC_DECLARE_UNIT(Jexpshpf)
DCLJEXC_DECLARE_UNIT(Jexpropc)
DCLJEXC_DECLARE_UNIT(Jexpilst)
DCLJEXC_DECLARE_UNIT(Jexreg_a)
DCLJEXC_DECLARE_UNIT(Jexreg_b)
DCLJEXC_DECLARE_UNIT(Jexreg_c)
DCLJEXC_DECLARE_UNIT(Jexreg_d)
DCLJEXC_DECLARE_UNIT(Jexregbd)
DCLJEXC_DECLARE_UNIT(Jexreg_e)
DCLJEXC_DECLARE_UNIT(Jexreg_f)
DCLJEXC_DECLARE_UNIT(Jexreg_g)
DCLJEXC_DECLARE_UNIT(Jexpfxr)
DCLJEXC_DECLARE_UNIT(Jexpspr)
DCLJEXC_DECLARE_UNIT(Jexppts)
DCLJEXC_DECLARE_UNIT(Jexreg_h)
DCLJEXC_DECLARE_UNIT(Jexreg_i)
DCLJEXC_DECLARE_UNIT(Jexreg_j)
DCLJEXC_DECLARE_UNIT(Jexreg_k)
DCLJEXC_DECLARE_UNIT(Jexreg_l)
DCLJEXC_DECLARE_UNIT(Jexreg_m)
DCLJEXC_DECLARE_UNIT(Jexpdbgr)
#undef DCLJEXC_DECLARE_UNIT

// jexc60's units, whose guarded procedures jexc60 exports as Initialize_<unit> / Finalize_<unit>.
#define JEXC60_UNIT_PROCS(Unit)                                                                              \
    extern "C" void Initialize_##Unit();                                                                     \
    extern "C" void Finalize_##Unit();
JEXC60_UNIT_PROCS(jexappexc)
JEXC60_UNIT_PROCS(jexbuttons)
JEXC60_UNIT_PROCS(jexcommon)
JEXC60_UNIT_PROCS(jexdbctrls)
JEXC60_UNIT_PROCS(jexdblabeled)
JEXC60_UNIT_PROCS(jexdialogs)
JEXC60_UNIT_PROCS(jexdock)
JEXC60_UNIT_PROCS(jexfiledlg)
JEXC60_UNIT_PROCS(jexlabeled)
JEXC60_UNIT_PROCS(jexlabels)
JEXC60_UNIT_PROCS(jexnav)
JEXC60_UNIT_PROCS(jexpages)
JEXC60_UNIT_PROCS(jexshape)
JEXC60_UNIT_PROCS(jexsplash)
JEXC60_UNIT_PROCS(jexsplit)
JEXC60_UNIT_PROCS(jexspr)
JEXC60_UNIT_PROCS(jextips)
JEXC60_UNIT_PROCS(jexutils)
JEXC60_UNIT_PROCS(jexwave)
#undef JEXC60_UNIT_PROCS

namespace dcljexc {

namespace {

// ---- Initialization table ----
// Each own unit is preceded by the units of the required packages it uses. Those entries forward to the
// required package's own guarded unit procedure, so a unit reached from several places starts once.
#define USES(Package, Unit)                                                                                  \
    ide::TPackageUnitEntry {                                                                                 \
        ide::BuiltinUnitStart<#Package, #Unit>, ide::BuiltinUnitStop<#Package, #Unit>                        \
    }
#define JEXC60(Unit)                                                                                         \
    ide::TPackageUnitEntry {                                                                                 \
        Initialize_##Unit, Finalize_##Unit                                                                   \
    }
#define OWN(Unit)                                                                                            \
    ide::TPackageUnitEntry {                                                                                 \
        Unit::Start, Unit::Stop                                                                              \
    }
// clang-format off
const ide::TPackageUnitEntry UnitTable[] = {
    // Jexdfstr
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, SysUtils), USES(rtl60, Classes),
    USES(vcl60, Graphics), USES(vcl60, Controls), USES(vcl60, Forms), USES(vcl60, Dialogs),
    USES(vcl60, StdCtrls), USES(vcl60, Buttons), USES(vcl60, ExtCtrls), USES(vcl60, Menus), OWN(Jexdfstr),
    // Jexdfcol
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, SysUtils), USES(rtl60, Classes),
    USES(vcl60, Graphics), USES(vcl60, Controls), USES(vcl60, Forms), USES(vcl60, Dialogs),
    USES(vcl60, StdCtrls), USES(vcl60, Buttons), USES(vcl60, ExtCtrls), OWN(Jexdfcol),
    // Jexdsncn
    USES(rtl60, SysUtils), USES(rtl60, Classes), JEXC60(jexcommon), OWN(Jexdsncn),
    // Jexdfnav
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, SysUtils), USES(rtl60, Classes),
    USES(rtl60, IniFiles), USES(vcl60, Graphics), USES(vcl60, Controls), USES(vcl60, Forms),
    USES(vcl60, Dialogs), USES(vcl60, StdCtrls), USES(vcl60, Buttons), USES(vcl60, ExtCtrls),
    USES(vcl60, ComCtrls), USES(vclx60, Outline), USES(dbrtl60, DB), USES(designide60, DesignIntf),
    JEXC60(jexcommon), JEXC60(jexbuttons), JEXC60(jexnav), OWN(Jexdfnav),
    // Jexdfnpb
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, SysUtils), USES(rtl60, Classes),
    USES(vcl60, Graphics), USES(vcl60, Controls), USES(vcl60, Forms), USES(vcl60, StdCtrls),
    USES(vcl60, Buttons), USES(vcl60, ExtCtrls), USES(vcl60, ComCtrls), JEXC60(jexcommon), JEXC60(jexbuttons),
    JEXC60(jexnav), OWN(Jexdfnpb),
    // Jexdfwav
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, MMSystem), USES(rtl60, Classes),
    USES(vcl60, Forms), USES(vcl60, Dialogs), USES(vcl60, StdCtrls), USES(vcl60, Buttons), JEXC60(jexwave),
    OWN(Jexdfwav),
    // Jexdfwvl
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, Classes), USES(vcl60, Forms),
    USES(vcl60, Dialogs), USES(vcl60, StdCtrls), USES(vcl60, Buttons), JEXC60(jexwave), OWN(Jexdfwvl),
    // Jexdfmm
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, MMSystem), USES(rtl60, Classes),
    USES(vcl60, Forms), USES(vcl60, Dialogs), USES(vcl60, StdCtrls), USES(vcl60, Buttons), JEXC60(jexwave),
    OWN(Jexdfmm),
    // Jexdflin
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, SysUtils), USES(rtl60, Classes),
    USES(vcl60, Graphics), USES(vcl60, Controls), USES(vcl60, Forms), USES(vcl60, StdCtrls),
    USES(vcl60, Buttons), USES(vcl60, ExtCtrls), JEXC60(jexcommon), OWN(Jexdflin),
    // Jexdfspl
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, Classes), USES(vcl60, Controls),
    USES(vcl60, Forms), USES(vcl60, StdCtrls), USES(vcl60, Buttons), USES(vcl60, ExtCtrls), JEXC60(jexsplit),
    OWN(Jexdfspl),
    // Jexdfabh
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, ShellAPI), USES(rtl60, WinInet),
    USES(rtl60, SysUtils), USES(rtl60, Classes), USES(rtl60, Registry), USES(vcl60, Graphics),
    USES(vcl60, Controls), USES(vcl60, Forms), USES(vcl60, StdCtrls), USES(vcl60, Buttons),
    USES(vcl60, ExtCtrls), JEXC60(jexcommon), OWN(Jexdfabh),
    // Jexphint
    USES(rtl60, Classes), USES(vcl60, Controls), USES(vcl60, Forms), USES(designide60, DesignIntf),
    OWN(Jexphint),
    // Jexprop
    USES(rtl60, Classes), USES(designide60, ExptIntf), USES(designide60, ToolIntf), JEXC60(jexcommon),
    OWN(Jexprop),
    // Jexdfexq
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, SysUtils), USES(rtl60, Classes),
    USES(vcl60, Controls), USES(vcl60, Forms), USES(vcl60, StdCtrls), USES(vcl60, Buttons),
    USES(vcl60, ExtCtrls), USES(dbrtl60, DB), USES(bdertl60, DBTables), OWN(Jexdfexq),
    // Jexpropb
    USES(rtl60, SysUtils), USES(rtl60, Classes), USES(rtl60, TypInfo), USES(dbrtl60, DB),
    USES(bdertl60, DBTables), USES(designide60, DesignIntf), USES(designide60, DesignEditors),
    USES(designide60, ToolIntf), JEXC60(jexcommon), OWN(Jexpropb),
    // Jexdffxp
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, Classes), USES(vcl60, Forms),
    USES(vcl60, StdCtrls), USES(vcl60, Buttons), OWN(Jexdffxp),
    // Jexdfsbd
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, Classes), USES(vcl60, Forms),
    USES(vcl60, StdCtrls), USES(vcl60, Buttons), OWN(Jexdfsbd),
    // Jexdfsbp
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, Classes), USES(vcl60, Forms),
    USES(vcl60, StdCtrls), USES(vcl60, Buttons), OWN(Jexdfsbp),
    // Jexdfx32
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, Classes), USES(vcl60, Forms),
    USES(vcl60, Dialogs), USES(vcl60, StdCtrls), OWN(Jexdfx32),
    // Jexdftip
    USES(rtl60, Windows), USES(rtl60, Messages), USES(rtl60, SysUtils), USES(rtl60, Classes),
    USES(rtl60, IniFiles), USES(vcl60, Forms), USES(vcl60, StdCtrls), USES(vcl60, Buttons), OWN(Jexdftip),
    // Jexpbtns
    USES(rtl60, SysUtils), USES(designide60, DesignIntf), USES(designide60, DesignEditors),
    JEXC60(jexbuttons), JEXC60(jexnav), OWN(Jexpbtns),
    // Jexpdbt
    USES(rtl60, SysUtils), USES(rtl60, TypInfo), USES(dbrtl60, DB), USES(bdertl60, DBTables),
    USES(designide60, DesignIntf), USES(designide60, DesignEditors), OWN(Jexpdbt),
    // Jexpedtd
    USES(rtl60, SysUtils), USES(vclx60, FileCtrl), USES(designide60, DesignEditors), OWN(Jexpedtd),
    // Jexpedto
    USES(rtl60, SysUtils), USES(vcl60, Dialogs), USES(designide60, DesignEditors), OWN(Jexpedto),
    // Jexpedts
    USES(rtl60, SysUtils), USES(vcl60, Dialogs), USES(designide60, DesignEditors), OWN(Jexpedts),
    // Jexpfx
    USES(designide60, DesignEditors), OWN(Jexpfx),
    // Jexpspla
    USES(designide60, DesignEditors), JEXC60(jexsplash), OWN(Jexpspla),
    // Jexptips
    USES(rtl60, IniFiles), USES(designide60, DesignEditors), JEXC60(jextips), OWN(Jexptips),
    // Jexpvers
    USES(rtl60, SysUtils), USES(rtl60, Classes), USES(rtl60, TypInfo), USES(designide60, DesignEditors),
    JEXC60(jexlabels), OWN(Jexpvers),
    // Jexpbar
    USES(designide60, DesignIntf), USES(designide60, DesignEditors), JEXC60(jexpages), OWN(Jexpbar),
    // Jexpanfr
    USES(designide60, DesignIntf), USES(designide60, DesignEditors), JEXC60(jexpages), OWN(Jexpanfr),
    // Jexprch
    USES(vcl60, ComCtrls), USES(designide60, DesignEditors), OWN(Jexprch),
    // Jexpbusy
    USES(designide60, DesignEditors), OWN(Jexpbusy),
    // Jexdfshp
    USES(rtl60, Windows), USES(rtl60, Messages), USES(vcl60, Forms), USES(vcl60, ExtCtrls), OWN(Jexdfshp),
    // Jexpshpf
    USES(designide60, DesignEditors), OWN(Jexpshpf),
    // Jexpropc
    USES(rtl60, Classes), USES(designide60, DesignIntf), OWN(Jexpropc),
    // Jexpilst
    USES(rtl60, TypInfo), USES(vcl60, Graphics), USES(vcl60, ImgList), USES(designide60, DesignEditors),
    USES(designide60, VCLEditors), OWN(Jexpilst),
    // Jexreg_a
    USES(rtl60, Classes), USES(designide60, DesignIntf), JEXC60(jexdock), OWN(Jexreg_a),
    // Jexreg_b
    USES(rtl60, Classes), USES(vcl60, Controls), USES(designide60, DesignIntf), JEXC60(jexnav), OWN(Jexreg_b),
    // Jexreg_c
    USES(rtl60, Classes), USES(designide60, DesignIntf), JEXC60(jexdbctrls), OWN(Jexreg_c),
    // Jexreg_d
    USES(rtl60, Classes), USES(designide60, DesignIntf), JEXC60(jexappexc), OWN(Jexreg_d),
    // Jexregbd
    USES(rtl60, Classes), USES(bdertl60, DBTables), USES(designide60, DesignIntf), USES(dcldb60, DBReg),
    USES(dclbde60, BDEReg), OWN(Jexregbd),
    // Jexreg_e
    USES(rtl60, Classes), USES(vcl60, Controls), USES(designide60, DesignIntf), JEXC60(jexsplit),
    OWN(Jexreg_e),
    // Jexreg_f
    USES(designide60, DesignIntf), JEXC60(jexshape), OWN(Jexreg_f),
    // Jexreg_g
    USES(designide60, DesignIntf), JEXC60(jexdialogs), JEXC60(jexfiledlg), OWN(Jexreg_g),
    // Jexpfxr
    USES(designide60, DesignEditors), OWN(Jexpfxr),
    // Jexpspr
    USES(rtl60, Classes), USES(vcl60, Graphics), USES(vcl60, Forms), USES(designide60, DesignWindows),
    JEXC60(jexspr), OWN(Jexpspr),
    // Jexppts
    USES(rtl60, Classes), USES(vcl60, Forms), USES(vcl60, Dialogs), USES(vcl60, StdCtrls),
    USES(designide60, DesignEditors), JEXC60(jexspr), OWN(Jexppts),
    // Jexreg_h
    USES(designide60, DesignIntf), JEXC60(jexwave), OWN(Jexreg_h),
    // Jexreg_i
    USES(rtl60, Classes), USES(designide60, DesignIntf), JEXC60(jexbuttons), OWN(Jexreg_i),
    // Jexreg_j
    USES(rtl60, Classes), USES(designide60, DesignIntf), JEXC60(jexlabels), OWN(Jexreg_j),
    // Jexreg_k
    USES(designide60, DesignIntf), JEXC60(jexutils), OWN(Jexreg_k),
    // Jexreg_l
    USES(designide60, DesignIntf), JEXC60(jexlabeled), OWN(Jexreg_l),
    // Jexreg_m
    USES(designide60, DesignIntf), JEXC60(jexdblabeled), OWN(Jexreg_m),
    // Jexpdbgr
    USES(dbrtl60, DB), USES(bdertl60, DBTables), USES(designide60, DesignIntf),
    USES(designide60, DesignEditors), USES(dcldb60, DSDesign), USES(dclbde60, SQLEdit), OWN(Jexpdbgr),
};
// clang-format on
#undef USES
#undef JEXC60
#undef OWN

const ide::TPackageInfoTable InfoTable{static_cast<int32_t>(std::size(UnitTable)), UnitTable};

// ---- Package information ----
constexpr const char* Description = "Jex Vantor 6";

ide::TPackageInfo PackageInfo() {
    ide::TPackageInfo info;
    // 0x4C000003: never-build, design-only package module from the native compiler.
    info.Flags = ide::pfPackageModule | ide::pfProducerNative | ide::pfDesignOnly | ide::pfNeverBuild;
    info.Requires = {{"jexc60.bpl"}, {"dclbde60.bpl"}, {"dcldb60.bpl"}, {"vcl60.bpl"}};
    info.Contains.push_back({"dclJEXC", ide::ufMainUnit | ide::ufPackageUnit});
    for (const char* unit :
         {"jexppts",  "SysInit",  "jexpspr",  "jexpfxr",  "jexpilst", "jexpropc", "jexdsncn", "jexdfabh",
          "jexphint", "jexpdbgr", "jexreg_m", "jexprop",  "jexdfspl", "jexdflin", "jexdfmm",  "jexdfwvl",
          "jexdfwav", "jexdfnpb", "jexdfnav", "jexdfcol", "jexdfstr", "jexreg_l", "jexreg_k", "jexpedto",
          "jexreg_j", "jexpvers", "jexreg_i", "jexpbtns", "jexdfsbd", "jexdfsbp", "jexreg_h", "jexpfx",
          "jexdfx32", "jexdffxp", "jexreg_g", "jexpbusy", "jexptips", "jexdftip", "jexpspla", "jexpedtd",
          "jexpedts", "jexreg_f", "jexpshpf", "jexdfshp", "jexprch",  "jexreg_e", "jexpbar",  "jexpanfr",
          "jexregbd", "jexpropb", "jexdfexq", "jexreg_d", "jexreg_c", "jexpdbt",  "jexreg_b", "jexreg_a"})
        info.Contains.push_back({unit});
    return info;
}

ide::TPackageOptions PackageOptions() {
    ide::TPackageOptions options;
    options.DesignOnly = true;
    options.Defines = "JEXVANTOR";
    options.UnitAliases = "WinTypes=Windows;WinProcs=Windows;DbiTypes=BDE;DbiProcs=BDE;DbiErrs=BDE";
    options.Description = Description;
    return options;
}

// ---- Module entry ----
const void* ModuleInstanceValue = nullptr;

// Runs when the module is mapped, before the package manager calls PackageLoad: the main unit's start
// body, which records where the module lives and does nothing else.
__attribute__((constructor)) void DcljexcEntry() {
    Dl_info info;
    if (dladdr(reinterpret_cast<const void*>(&DcljexcEntry), &info)) ModuleInstanceValue = info.dli_fbase;
}

} // namespace

const void* HInstance() {
    return ModuleInstanceValue;
}

} // namespace dcljexc

JEX_PACKAGE_ENTRY_POINTS(dcljexc::InfoTable)
JEX_PACKAGE_RESOURCES(dcljexc::PackageInfo(), dcljexc::Description, dcljexc::PackageOptions());
