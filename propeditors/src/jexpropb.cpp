// Jexpropb: the data-aware property editors' unit. Its start hands the run-time library a way to ask for
// the designer's current project name; its stop takes it back before jexc60 could outlive this package.
#include "dcljexc/jexpropb.h"

#include "dcljexc/units.h"
#include "ide/experts.h"
#include "jex/jexcommon.h"

namespace dcljexc {

std::string jexGetToolServicesProjectName() {
    return ide::ToolServices->GetProjectName();
}

} // namespace dcljexc

namespace dcljexc::Jexpropb {
namespace {
ide::TUnitGuard Guard;
} // namespace

void Start() {
    if (!Guard.Start()) return;
    jex::jexProjectNameFunc = jexGetToolServicesProjectName;
}

void Stop() {
    if (!Guard.Stop()) return;
    jex::jexProjectNameFunc = nullptr;
}

} // namespace dcljexc::Jexpropb
