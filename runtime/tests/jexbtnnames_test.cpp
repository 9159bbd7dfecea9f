// Naming a button: the windowless picture buttons (and so every navigator button) keep an empty caption,
// while windowed buttons show their new name as their caption, as the platform's buttons do.
#include <gtest/gtest.h>

#include "jex/jexbuttons.h"
#include "jex/jexnav.h"
#include "vcl/forms.h"

using namespace jex;

TEST(ButtonNames, OnlyWindowedButtonsTakeTheirNameAsCaption) {
    struct TCase {
        rtl::TClass Cls;
        const char* Name;
        const char* Caption;
    };
    const TCase cases[] = {
        {TjexPicSpeedBtn::StaticClass(), "jexPicSpeedBtn1", ""},
        {TjexToggleBtn::StaticClass(), "jexToggleBtn1", ""},
        {TjexnpFirst::StaticClass(), "jexnpFirst1", ""},
        {TjexnpBookmark::StaticClass(), "jexnpBookmark1", ""},
        {TjexPicBtn::StaticClass(), "jexPicBtn1", "jexPicBtn1"},
    };
    vcl::TForm form(nullptr);
    for (const TCase& tc : cases) {
        SCOPED_TRACE(tc.Name);
        auto* c = static_cast<vcl::TControl*>(tc.Cls->CreateComponent(&form));
        c->SetName(tc.Name);
        EXPECT_EQ(c->Caption(), tc.Caption);
        // A caption given before or after naming is kept either way.
        c->SetCaption("Go");
        c->SetName(std::string(tc.Name) + "x");
        EXPECT_EQ(c->Caption(), "Go");
    }
}
