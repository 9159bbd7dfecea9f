// Jexreg_k: the "Jex Utils" palette page, and the utility components' own properties in the library's "Jex"
// category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexfiledlg.h"
#include "jex/jexutils.h"

using namespace dcljexc;
using namespace jex;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_k)

JEX_PACKAGE_REGISTER(jexreg_k) {
    ide::RegisterComponents("Jex Utils", {TjexIdleTimeout::StaticClass(), TjexTitleGradient::StaticClass(),
                                          TjexSingleInstance::StaticClass(), TjexLauncher::StaticClass(),
                                          TjexFormSaver::StaticClass(), TjexFormSizer::StaticClass(),
                                          TjexStopWatch::StaticClass(), TjexMDIScroll::StaticClass(),
                                          TjexFormMessageHook::StaticClass(), TjexTrayIcon::StaticClass()});

    // Property editor registrations of this unit come with the file-name editors and the value-list editors.

    jexRegisterPropertiesInCategory(TjexStopWatch::StaticClass(), {"LogFile", "LogFormat", "LogWhen"});
    jexRegisterPropertiesInCategory(TjexMDIScroll::StaticClass(), {"Enabled"});
    jexRegisterPropertiesInCategory(TjexSingleInstance::StaticClass(), {"Activate", "Enabled", "StopMsg"});
    jexRegisterPropertiesInCategory(TjexLauncher::StaticClass(),
                                    {"Checks", "CommandLine", "Continuous", "Date", "Interval", "LaunchType",
                                     "MonthDay", "ShellParams", "Time", "TimeLapse", "Wait", "WeekDay",
                                     "WindowState"});
    jexRegisterPropertiesInCategory(TjexFormSaver::StaticClass(),
                                    {"AutoRestore", "AutoSave", "IniFileName", "Options"});
    jexRegisterPropertiesInCategory(TjexFormSizer::StaticClass(),
                                    {"HeightMax", "HeightMin", "InitialFormPos", "InitialFormSize", "LeftMax",
                                     "LeftMin", "TopMax", "TopMin", "WidthMax", "WidthMin"});
    jexRegisterPropertiesInCategory(TjexFormMessageHook::StaticClass(), {"OnMessage"});
}
