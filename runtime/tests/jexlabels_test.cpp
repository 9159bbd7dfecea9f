// Labels: date/time formats, amounts in words, the version resource of jexc60 and of a module made here,
// links and mail links through the shell, multi-line, rotated, margin, automatic, mouse and edit labels.
#include <gtest/gtest.h>

#include <cmath>

#include "jex/jexlabels.h"
#include "rtl/resources.h"
#include "rtl/streaming.h"
#include "vcl/forms.h"
#include "vcl/scripted_ui.h"

using namespace jex;
using namespace vcl;

TEST(JexFormatDateTime, FollowsThePlatformsFormatLanguage) {
    TjexDateTime t = jexEncodeDateTime(2024, 3, 5, 14, 7, 9, 45);
    EXPECT_DOUBLE_EQ(jexEncodeDateTime(1899, 12, 30, 0, 0, 0), 0.0);
    EXPECT_EQ(jexFormatDateTime("c", t), "3/5/2024 2:07:09 PM");
    EXPECT_EQ(jexFormatDateTime("c", jexEncodeDateTime(2024, 3, 5, 0, 0, 0)), "3/5/2024");
    EXPECT_EQ(jexFormatDateTime("t", t), "2:07 PM");
    EXPECT_EQ(jexFormatDateTime("tt", t), "2:07:09 PM");
    EXPECT_EQ(jexFormatDateTime("ddddd", t), "3/5/2024");
    EXPECT_EQ(jexFormatDateTime("dddddd", t), "Tuesday, March 5, 2024");
    EXPECT_EQ(jexFormatDateTime("ddddd h:mm", t), "3/5/2024 14:07");
    EXPECT_EQ(jexFormatDateTime("ddddd h:mm ampm", t), "3/5/2024 2:07 PM");
    EXPECT_EQ(jexFormatDateTime("dddddd tt", jexEncodeDateTime(2000, 1, 1, 0, 0, 0)),
              "Saturday, January 1, 2000 12:00:00 AM");
    EXPECT_EQ(jexFormatDateTime("yyyy-mm-dd hh:nn:ss.zzz", t), "2024-03-05 14:07:09.045");
    EXPECT_EQ(jexFormatDateTime("ddd d mmm yy, h:mm am/pm", t), "Tue 5 Mar 24, 2:07 pm");
    EXPECT_EQ(jexFormatDateTime("'at' h 'o''clock'", t), "at 14 oclock");
    EXPECT_EQ(jexFormatDateTime("\"day\" d", t), "day 5");
    EXPECT_THROW(jexEncodeDateTime(2023, 2, 29, 0, 0, 0), rtl::EConvertError);
    EXPECT_EQ(jexFormatDateTime("yyyy", jexEncodeDateTime(2024, 2, 29, 23, 59, 59, 999)), "2024");
}

TEST(JexClockLabel, ShowsTheTimeInItsFormat) {
    TjexClockLabel clock(nullptr);
    TjexDateTime t = jexEncodeDateTime(2024, 3, 5, 9, 5, 0);
    EXPECT_EQ(clock.TextAt(t), "9:05:00 AM");
    clock.SetFormat("yyyy");
    EXPECT_EQ(clock.TextAt(t), "2024");
    int ticks = 0;
    clock.OnTimer = [&](rtl::TObject*) { ++ticks; };
    clock.Tick();
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(clock.Caption(), jexFormatDateTime("yyyy", jexNow()));
    clock.SetCaption("ignored");
    EXPECT_NE(clock.Caption(), "ignored");
}

TEST(JexCurrencyLabel, SpellsAmountsAsOnACheque) {
    EXPECT_EQ(jexNumberToWords(0), "Zero");
    EXPECT_EQ(jexNumberToWords(123), "One Hundred Twenty-Three");
    EXPECT_EQ(jexNumberToWords(1000010), "One Million Ten");
    EXPECT_EQ(jexNumberToWords(999999999999999LL),
              "Nine Hundred Ninety-Nine Trillion Nine Hundred Ninety-Nine Billion Nine Hundred Ninety-Nine "
              "Million Nine Hundred Ninety-Nine Thousand Nine Hundred Ninety-Nine");
    EXPECT_THROW(jexNumberToWords(1000000000000000LL), rtl::ERangeError);

    TjexCurrencyLabel label(nullptr);
    label.SetValue(123.45);
    EXPECT_EQ(label.Caption(), "One Hundred Twenty-Three Dollars and 45/100");
    label.SetCurrFractionFormat(jcfWords);
    EXPECT_EQ(label.Caption(), "One Hundred Twenty-Three Dollars and Forty-Five Cents");
    label.SetFirstUpperCase(true);
    label.SetCurrText("Euro");
    EXPECT_EQ(label.Caption(), "One hundred twenty-three euro and forty-five cents");
    label.SetValue(-0.999); // rounds to one whole unit
    EXPECT_EQ(label.Caption(), "Minus one euro and zero cents");
    label.SetValue(1e16);
    EXPECT_EQ(label.Caption(), "(amount too large)");
    label.SetHandleException(false);
    EXPECT_THROW(label.SetValue(1e16), rtl::ERangeError);
    EXPECT_DOUBLE_EQ(label.Value(), 1e16);
    EXPECT_THROW(label.SetValue(std::nan("")), rtl::ERangeError);
}

TEST(JexVersionLabel, ReadsTheVersionResourceOfAModule) {
    rtl::TResourceModule& lib = LibraryModule();
    EXPECT_EQ(jexVersionValue(lib, "OriginalFilename"), "libjexc60.so");
    EXPECT_EQ(jexVersionValue(lib, "fileversion"), "6.0.1.0");
    EXPECT_EQ(jexVersionValue(lib, "NoSuchKey"), "");
    EXPECT_EQ(jexLibraryRelease(), "6.0.1");

    rtl::RegisterModule(&lib);
    TjexVersionLabel label(nullptr);
    label.SetModuleName("jexc60");
    for (const char* key : {"OriginalFilename", "FileVersion", "ProductName"})
        label.VersionInfo()->Add()->SetKey(key);
    label.VersionInfo()->Items(1)->SetCaption("Build");
    EXPECT_EQ(label.ItemValue(0), "libjexc60.so");
    EXPECT_EQ(label.ItemValue(2), "Jex 6");
    EXPECT_EQ(label.ItemValue(3), "");
    EXPECT_EQ(label.Lines(), (std::vector<std::string>{"libjexc60.so", "Build 6.0.1.0", "Jex 6"}));
    label.SetDoubleSpaced(true);
    EXPECT_EQ(label.Caption(), "libjexc60.so\r\n\r\nBuild 6.0.1.0\r\n\r\nJex 6");
    label.VersionInfo()->Delete(0);
    EXPECT_EQ(label.Caption(), "Build 6.0.1.0\r\n\r\nJex 6");
    rtl::UnregisterModule(&lib);

    // A module of the test's own, with its own values; an unknown module reads nothing.
    rtl::TResourceModule mine("VersionTestModule");
    std::string info = "ProductName=Widget Maker\r\nFileVersion = 2.1\r\n";
    mine.AddRawData(jexVersionResourceName, info.data(), info.size());
    rtl::RegisterModule(&mine);
    label.SetModuleName("VersionTestModule");
    EXPECT_EQ(label.Value("ProductName"), "Widget Maker");
    EXPECT_EQ(label.Value("FileVersion"), " 2.1");
    rtl::UnregisterModule(&mine);
    EXPECT_EQ(label.Module(), nullptr);
    EXPECT_EQ(label.Value("ProductName"), "");
}

TEST(JexURLLabel, OpensItsAddressThroughTheShell) {
    TScriptedUI ui;
    TjexURLLabel link(nullptr);
    link.SetCaption("&Home page");
    link.Click();
    link.SetURL("https://example.org/jex");
    link.SetShowBrowser(false);
    int clicks = 0;
    link.OnClick = [&](rtl::TObject*) { ++clicks; };
    link.Click();
    EXPECT_EQ(clicks, 1);
    ASSERT_EQ(ui.ShellExecutes().size(), 2u);
    EXPECT_EQ(ui.ShellExecutes()[0].File, "Home page");
    EXPECT_EQ(ui.ShellExecutes()[0].Verb, "open");
    EXPECT_EQ(ui.ShellExecutes()[1].File, "https://example.org/jex");
    EXPECT_EQ(ui.ShellExecutes()[1].ShowCmd, SW_SHOWMINIMIZED);
    EXPECT_EQ(link.Cursor(), crHandPoint);
}

TEST(JexMailToLabel, BuildsAPercentEncodedMailtoAddress) {
    TScriptedUI ui;
    TjexMailToLabel mail(nullptr);
    mail.SetMailTo("support@example.org");
    EXPECT_EQ(mail.TargetURL(), "mailto:support@example.org");
    mail.SetSubject("Jex Support");
    for (int i = 0; i < 2; ++i)
        mail.Body()->Add("");
    mail.Body()->Add("Installed Version: 6.0.1 & more");
    EXPECT_EQ(mail.TargetURL(), "mailto:support@example.org?subject=Jex%20Support&body=%0D%0A%0D%0AInstalled%"
                                "20Version%3A%206.0.1%20%26%20more");
    mail.Click();
    ASSERT_EQ(ui.ShellExecutes().size(), 1u);
    EXPECT_EQ(ui.ShellExecutes()[0].File, mail.TargetURL());
    EXPECT_EQ(jexPercentEncode("a b/é"), "a%20b%2F%C3%A9");
}

TEST(JexMouseLabel, ColoursFollowTheMouse) {
    TjexMouseLabel label(nullptr);
    label.Font()->SetColor(clBlack);
    std::string log;
    label.OnMouseEnter = [&](rtl::TObject*) { log += "in;"; };
    label.OnMouseLeave = [&](rtl::TObject*) { log += "out;"; };
    EXPECT_EQ(label.ShownColor(), clBlack);
    label.MouseEnter();
    EXPECT_EQ(label.ShownColor(), clBlue);
    EXPECT_EQ(label.ShownStyle(), TFontStyles{fsUnderline});
    label.MouseDown(mbLeft, {}, 1, 1);
    EXPECT_EQ(label.ShownColor(), clRed);
    label.MouseUp(mbLeft, {}, 1, 1);
    EXPECT_EQ(label.ShownColor(), clBlue);
    label.MouseLeave();
    EXPECT_EQ(label.ShownColor(), clBlack);
    EXPECT_EQ(log, "in;out;");
    EXPECT_FALSE(label.ParentFont() == false && label.IsFontStored() == false);
}

TEST(JexMultilineLabel, ShowsItsLines) {
    TjexMultilineLabel label(nullptr);
    label.Lines()->Add("Release 6.0.1 Vantor Edition");
    label.Lines()->Add("Made by Quentrel");
    EXPECT_EQ(label.Caption(), "Release 6.0.1 Vantor Edition\r\nMade by Quentrel");
    EXPECT_EQ(label.Height(), 2 * TextHeightOf(label.Font()));
    label.SetCaption("one\r\ntwo\r\nthree");
    EXPECT_EQ(label.Lines()->Count(), 3);
    label.Lines()->Clear();
    EXPECT_EQ(label.Caption(), "");
}

TEST(JexRotLabel, AutoSizeTakesTheRotatedText) {
    TjexRotLabel label(nullptr);
    label.SetCaption("Rotated");
    int w = label.Width(), h = label.Height();
    label.SetAngle(90);
    EXPECT_EQ(label.Width(), h);
    EXPECT_EQ(label.Height(), w);
    label.SetAngle(-90);
    EXPECT_EQ(label.Angle(), 270);
    label.SetAngle(720);
    EXPECT_EQ(label.Angle(), 0);
    EXPECT_EQ(label.Width(), w);
    label.SetBorderStyle(jlbLowered);
    EXPECT_EQ(label.Width(), w + 4);
}

TEST(JexSuperLabel, MarginsAndBorderAddToTheTextSize) {
    TjexSuperLabel label(nullptr);
    label.SetCaption("Boxed");
    int w = label.Width(), h = label.Height();
    label.SetLeftMargin(3);
    label.SetTopMargin(2);
    label.SetRightMargin(5);
    label.SetBorderStyle(jlbSingle);
    EXPECT_EQ(label.Width(), w + 3 + 5 + 2);
    EXPECT_EQ(label.Height(), h + 2 + 2);
    EXPECT_EQ(label.TextRect(), Rect(4, 3, label.Width() - 6, label.Height() - 1));
    label.SetLeftMargin(-4);
    EXPECT_EQ(label.LeftMargin(), 0);
}

TEST(JexAutoLabel, NamesItsControlAndSitsBesideIt) {
    EXPECT_EQ(TjexAutoLabel::NameToWords("edtFirstName"), "First Name");
    EXPECT_EQ(TjexAutoLabel::NameToWords("Address2Line"), "Address 2 Line");
    EXPECT_EQ(TjexAutoLabel::NameToWords("cbo_zip_code"), "Zip code");
    TForm form(nullptr);
    auto* edit = new TEdit(&form);
    edit->SetName("edtFirstName");
    edit->SetParent(&form);
    edit->SetBounds(100, 40, 120, 21);
    auto* label = new TjexAutoLabel(&form);
    label->SetParent(&form);
    label->SetAutoFocusControl(edit);
    EXPECT_EQ(label->ShownText(), "First Name:");
    EXPECT_EQ(DescribeControl(label).Caption, "First Name:");
    EXPECT_EQ(label->Left() + label->Width(), 96);
    label->SetLayout(jalAbove);
    EXPECT_EQ(label->Left(), 100);
    EXPECT_EQ(label->Top() + label->Height(), 38);
    label->SetCaption("&Given name");
    EXPECT_EQ(label->ShownText(), "&Given name");
    edit->Free();
    EXPECT_EQ(label->FocusControl(), nullptr);
}

TEST(JexEditLabel, LabelAndEditShareTheControl) {
    TScriptedUI ui;
    auto* form = new TForm(nullptr);
    auto* e = new TjexEditLabel(form);
    e->SetName("EditLabel1");
    e->SetParent(form);
    e->SetBounds(0, 0, 200, 21);
    e->SetLabelCaption("Name:");
    EXPECT_EQ(e->Label()->Left(), 0);
    EXPECT_EQ(e->Edit()->Left(), 64);
    EXPECT_EQ(e->Edit()->Width(), 136);
    e->SetLayout(jelTop);
    e->SetBounds(0, 0, 200, 45);
    EXPECT_EQ(e->Edit()->Top(), 20);
    EXPECT_EQ(e->Edit()->Height(), 25);
    int changes = 0;
    e->OnChange = [&](rtl::TObject*) { ++changes; };
    form->Show();
    ui.Drive(form).Type("EditLabel1", "Ada");
    EXPECT_EQ(e->EditText(), "Ada");
    EXPECT_EQ(changes, 1);
    e->SetReadOnly(true);
    EXPECT_THROW(e->UserType("Bob"), rtl::EInvalidOperation);
    // The parts belong to the control, so a form file holds only the control and its values.
    rtl::RegisterClasses({TForm::StaticClass(), TjexEditLabel::StaticClass()});
    std::string text = rtl::WriteComponentText(form);
    EXPECT_EQ(text.find("TLabel"), std::string::npos);
    EXPECT_NE(text.find("Caption = 'Name:'"), std::string::npos);
    EXPECT_NE(text.find("Text = 'Ada'"), std::string::npos);
    rtl::TComponent* copy = rtl::ReadComponentText(text, nullptr);
    auto* e2 = dynamic_cast<TjexEditLabel*>(copy->FindComponent("EditLabel1"));
    ASSERT_NE(e2, nullptr);
    EXPECT_EQ(e2->Edit()->Top(), 20);
    EXPECT_EQ(e2->Label()->Caption(), "Name:");
    copy->Free();
    rtl::UnRegisterClasses({TForm::StaticClass(), TjexEditLabel::StaticClass()});
    form->Free();
}
