// Helpers of the navigator designer tests: a form under design in a real designer, with the units the
// navigator designers use started, the scripted user interface installed and an empty temporary system folder
// (so that no custom-button INI file is found).
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "ide/designer.h"
#include "jex/jexbuttons.h"
#include "jex/jexnav.h"
#include "vcl/forms.h"
#include "vcl/scripted_ui.h"

namespace naveditors {

class NavigatorEditing : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // A component of the class dropped on the form (or in Parent) the way the palette drops it.
    template <class T>
    T* Drop(rtl::TComponent* Parent = nullptr, int Left = 8, int Top = 8, int W = 0, int H = 0) {
        return static_cast<T*>(
            Designer->CreateComponent(T::StaticClass(), Parent ? Parent : Form, Left, Top, W, H));
    }
    // Names of the controls on a panel, in child order.
    static std::vector<std::string> ChildNames(vcl::TWinControl* Panel);

    std::filesystem::path Dir;
    vcl::TScriptedUI UI;
    vcl::TForm* Form = nullptr;
    std::unique_ptr<ide::TFormDesigner> Designer;

private:
    std::vector<rtl::TClass> FRegistered;
};

} // namespace naveditors
