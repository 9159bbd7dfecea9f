// Helpers of the navigator designer tests.
#include "naveditors_testutil.h"

#include "rtl/sysutils.h"

namespace dcljexc {
namespace Jexdsncn {
void Start();
void Stop();
} // namespace Jexdsncn
namespace Jexreg_b {
void Start();
void Stop();
} // namespace Jexreg_b
} // namespace dcljexc

namespace naveditors {

void NavigatorEditing::SetUp() {
    std::string templ = (std::filesystem::temp_directory_path() / "jexnavXXXXXX").string();
    Dir = mkdtemp(templ.data());
    std::filesystem::create_directories(Dir / "system");
    rtl::SetSystemDirectory((Dir / "system").string());
    // The catalogue's strings, and the navigator classes streamable by name (the catalogue finds the
    // classes it creates that way).
    dcljexc::Jexdsncn::Start();
    dcljexc::Jexreg_b::Start();
    // The custom buttons are streamable through their palette page, as in the host.
    for (rtl::TClass c : {jex::TjexPicSpeedBtn::StaticClass(), jex::TjexToggleBtn::StaticClass()})
        if (rtl::RegisteredClassCount(c->ClassName()) == 0) {
            rtl::RegisterClass(c);
            FRegistered.push_back(c);
        }
    Form = new vcl::TForm(nullptr);
    Form->SetName("Form1");
    Designer = std::make_unique<ide::TFormDesigner>(Form, true);
    UI.PropagateExceptions = true;
}

void NavigatorEditing::TearDown() {
    Designer.reset();
    for (rtl::TClass c : FRegistered)
        rtl::UnRegisterClass(c);
    dcljexc::Jexreg_b::Stop();
    dcljexc::Jexdsncn::Stop();
    rtl::SetSystemDirectory("");
    std::filesystem::remove_all(Dir);
}

std::vector<std::string> NavigatorEditing::ChildNames(vcl::TWinControl* Panel) {
    std::vector<std::string> names;
    for (int i = 0; i < Panel->ControlCount(); ++i)
        names.push_back(Panel->Controls(i)->Name());
    return names;
}

} // namespace naveditors
