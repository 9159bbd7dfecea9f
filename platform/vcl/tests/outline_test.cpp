// Outlines: numbering in tree order, adding at levels, paths, expansion events, Lines, and a person's
// selection and double click through the scripted user interface.
#include <gtest/gtest.h>

#include "vcl/outline.h"
#include "vcl/scripted_ui.h"

using namespace vcl;

namespace {

TEST(Outline, ItemsAreNumberedInTreeOrderAcrossLevels) {
    TForm form(nullptr);
    auto* out = new TOutline(&form);
    out->SetParent(&form);
    int nav = out->Add(0, "Navigate");
    int first = out->AddChildObject(nav, "First", reinterpret_cast<void*>(intptr_t{0}));
    int edit = out->Add(nav, "Edit");
    out->AddChildObject(edit, "Insert", reinterpret_cast<void*>(intptr_t{6}));
    int prior = out->AddChildObject(nav, "Prior", reinterpret_cast<void*>(intptr_t{1}));
    EXPECT_EQ(prior, 3) << "a child added to the first group comes before the second group";
    EXPECT_EQ(out->ItemCount(), 5);
    EXPECT_EQ(out->Items(4)->Text(), "Edit");
    EXPECT_EQ(out->Items(first)->Level(), 2);
    EXPECT_EQ(out->Items(5)->FullPath(), "Edit\\Insert");
    EXPECT_EQ(out->GetTextItem("edit\\insert"), 5);
    EXPECT_EQ(out->GetTextItem("Nothing"), 0);
    EXPECT_EQ(out->GetDataItem(reinterpret_cast<void*>(intptr_t{6})), 5);
    EXPECT_EQ(out->Items(1)->GetFirstChild(), 2);
    EXPECT_EQ(out->Items(1)->GetNextChild(2), 3);
    EXPECT_EQ(out->Items(1)->GetNextChild(3), -1);
    EXPECT_THROW(out->Items(6), EOutlineError);
    out->Insert(4, "Before Edit");
    EXPECT_EQ(out->Items(4)->Text(), "Before Edit");
    EXPECT_EQ(out->Items(4)->Level(), 1);
    EXPECT_EQ(out->Lines()->Text(), "Navigate\r\n\tFirst\r\n\tPrior\r\nBefore Edit\r\nEdit\r\n\tInsert\r\n");
    out->Delete(1);
    EXPECT_EQ(out->ItemCount(), 3);
    EXPECT_EQ(out->Items(1)->Text(), "Before Edit");
    TStringList lines;
    lines.SetText("A\n\tB\n\t\tC\nD");
    out->SetLines(&lines);
    EXPECT_EQ(out->Items(3)->FullPath(), "A\\B\\C");
    EXPECT_EQ(out->Items(4)->Level(), 1);
}

TEST(Outline, PersonSelectsByPathAndDoubleClickTogglesGroups) {
    TScriptedUI ui;
    auto* form = NewForm<TForm>(nullptr);
    auto* out = new TOutline(form);
    out->SetName("outButtons");
    out->SetParent(form);
    int group = out->Add(0, "Navigate");
    out->AddChild(group, "First");
    out->AddChild(group, "Last");
    std::vector<std::string> log;
    out->OnExpand = [&](rtl::TObject*, int i) { log.push_back("expand " + std::to_string(i)); };
    out->OnCollapse = [&](rtl::TObject*, int i) { log.push_back("collapse " + std::to_string(i)); };
    out->OnClick = [&](rtl::TObject*) { log.push_back("click " + std::to_string(out->SelectedItem())); };
    out->OnDblClick = [&](rtl::TObject*) { log.push_back("dbl " + std::to_string(out->SelectedItem())); };
    ui.OnForm("TForm", [](TFormDriver& f) {
        f.Select("outButtons", "Navigate\\Last");
        f.Select("outButtons", 1);
        f.DblClick("outButtons");
        EXPECT_THROW(f.Select("outButtons", "Navigate\\Middle"), EScriptedUIError);
        f.Close(mrOk);
    });
    form->ShowModal();
    // The first click of a double click is a click of its own, as on the platform.
    std::vector<std::string> expected = {"expand 1", "click 3", "click 1", "click 1", "collapse 1", "dbl 1"};
    EXPECT_EQ(log, expected);
    TControlDesc d = DescribeControl(out);
    ASSERT_EQ(d.Nodes.size(), 1u);
    EXPECT_EQ(d.Nodes[0].Children[1].Text, "Last");
    EXPECT_TRUE(d.Nodes[0].Selected);
    form->Free();
}

} // namespace
