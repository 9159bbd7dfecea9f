// The host's test package: requires the host's own platform packages by their real names and registers a
// container component whose editor shows a modal dialog and asks a question, a dialog-backed property
// editor, a palette page with "&&" in its caption, and the exported component description routine.
#include <cstring>

#include "ide/compedit.h"
#include "ide/package.h"
#include "ide/palette.h"
#include "ide/propedit.h"
#include "vcl/dialogs.h"
#include "vcl/extctrls.h"
#include "vcl/stdctrls.h"

JEX_MODULE("dcljexhosttest")

namespace gauges {

using namespace ide;

class TTestGauge : public vcl::TPanel {
    JEX_CLASS(TTestGauge, vcl::TPanel)
    using TPanel::TPanel;
    int MaxValue() const { return FMaxValue; }
    void SetMaxValue(int v) { FMaxValue = v; }
    std::string Title() const { return FTitle; }
    void SetTitle(const std::string& v) { FTitle = v; }
    bool ShowText() const { return FShowText; }
    void SetShowText(bool v) { FShowText = v; }

private:
    int FMaxValue = 100;
    std::string FTitle;
    bool FShowText = true;
};
JEX_IMPLEMENT_CLASS(TTestGauge, vcl::TPanel, "TestGauge") {
    d.Property("MaxValue", &TTestGauge::MaxValue, &TTestGauge::SetMaxValue).Default(100);
    d.Property("Title", &TTestGauge::Title, &TTestGauge::SetTitle);
    d.Property("ShowText", &TTestGauge::ShowText, &TTestGauge::SetShowText).Default(1);
}

// The gauge's setup dialog: title, maximum and whether the value shows as text.
class TGaugeSetupDialog : public vcl::TForm {
    JEX_CLASS(TGaugeSetupDialog, vcl::TForm)
    explicit TGaugeSetupDialog(rtl::TComponent* AOwner) : TForm(AOwner) {
        SetName("GaugeSetupDialog");
        SetCaption("Gauge Setup");
        SetBorderStyle(vcl::bsDialog);
        TitleEdit = new vcl::TEdit(this);
        TitleEdit->SetName("TitleEdit");
        TitleEdit->SetParent(this);
        MaxEdit = new vcl::TEdit(this);
        MaxEdit->SetName("MaxEdit");
        MaxEdit->SetParent(this);
        ShowTextCheck = new vcl::TCheckBox(this);
        ShowTextCheck->SetName("ShowTextCheck");
        ShowTextCheck->SetParent(this);
        ShowTextCheck->SetCaption("Show the value as text");
        OKButton = new vcl::TButton(this);
        OKButton->SetName("OKButton");
        OKButton->SetParent(this);
        OKButton->SetCaption("OK");
        OKButton->SetModalResult(vcl::mrOk);
        OKButton->SetDefault(true);
        OKButton->OnClick = rtl::TNotifyEvent(this, &TGaugeSetupDialog::OKClick);
        CancelButton = new vcl::TButton(this);
        CancelButton->SetName("CancelButton");
        CancelButton->SetParent(this);
        CancelButton->SetCaption("Cancel");
        CancelButton->SetModalResult(vcl::mrCancel);
        CancelButton->SetCancel(true);
    }
    vcl::TEdit* TitleEdit;
    vcl::TEdit* MaxEdit;
    vcl::TCheckBox* ShowTextCheck;
    vcl::TButton* OKButton;
    vcl::TButton* CancelButton;

private:
    // A maximum that is no number keeps the dialog open with an error box, as the platform's dialogs do.
    void OKClick(rtl::TObject*) {
        int v;
        if (!rtl::TryStrToInt(MaxEdit->Text(), v)) {
            SetModalResult(vcl::mrNone);
            vcl::MessageDlg("'" + MaxEdit->Text() + "' is not a number", vcl::mtError, {vcl::mbOK}, 0);
        }
    }
};
JEX_IMPLEMENT_CLASS(TGaugeSetupDialog, vcl::TForm, "GaugeDlg") {}

// A modeless window that shows the last hint the application showed, through Application.OnShowHint,
// keeping the handler that was installed before it in the chain until it closes.
class TGaugeMonitor : public vcl::TForm {
    JEX_CLASS(TGaugeMonitor, vcl::TForm)
    explicit TGaugeMonitor(rtl::TComponent* AOwner) : TForm(AOwner) {
        SetName("GaugeMonitor");
        SetCaption("Gauge Monitor");
        HintLabel = new vcl::TLabel(this);
        HintLabel->SetName("HintLabel");
        HintLabel->SetParent(this);
        CloseButton = new vcl::TButton(this);
        CloseButton->SetName("CloseButton");
        CloseButton->SetParent(this);
        CloseButton->SetCaption("Close");
        CloseButton->OnClick = rtl::TNotifyEvent(this, &TGaugeMonitor::CloseClick);
        OnClose = vcl::TCloseEvent(this, &TGaugeMonitor::FormClose);
        FOldShowHint = vcl::Application()->OnShowHint;
        vcl::Application()->OnShowHint = vcl::TShowHintEvent(this, &TGaugeMonitor::AppShowHint);
    }
    ~TGaugeMonitor() override { vcl::Application()->OnShowHint = FOldShowHint; }
    vcl::TLabel* HintLabel;
    vcl::TButton* CloseButton;

private:
    void AppShowHint(std::string& HintStr, bool& CanShow, vcl::THintInfo& HintInfo) {
        FOldShowHint(HintStr, CanShow, HintInfo);
        HintLabel->SetCaption("Hint: " + HintStr);
    }
    void CloseClick(rtl::TObject*) { Close(); }
    void FormClose(rtl::TObject*, vcl::TCloseAction& Action) { Action = vcl::caFree; }
    vcl::TShowHintEvent FOldShowHint;
};
JEX_IMPLEMENT_CLASS(TGaugeMonitor, vcl::TForm, "GaugeDlg") {}

class TGaugeEditor : public TComponentEditor {
    JEX_CLASS(TGaugeEditor, TComponentEditor)
    int GetVerbCount() override { return 3; }
    std::string GetVerb(int index) override {
        return index == 0 ? "&Configure..." : index == 1 ? "&Reset" : "&Monitor";
    }
    void ExecuteVerb(int index) override {
        auto* g = static_cast<TTestGauge*>(Component());
        if (index == 0) {
            auto* dlg = vcl::NewForm<TGaugeSetupDialog>(nullptr);
            try {
                dlg->TitleEdit->SetText(g->Title());
                dlg->MaxEdit->SetText(std::to_string(g->MaxValue()));
                dlg->ShowTextCheck->SetChecked(g->ShowText());
                if (dlg->ShowModal() == vcl::mrOk) {
                    g->SetTitle(dlg->TitleEdit->Text());
                    g->SetMaxValue(rtl::StrToInt(dlg->MaxEdit->Text()));
                    g->SetShowText(dlg->ShowTextCheck->Checked());
                    Designer()->Modified();
                }
            } catch (...) {
                dlg->Free();
                throw;
            }
            dlg->Free();
        } else if (index == 2) {
            vcl::NewForm<TGaugeMonitor>(vcl::Application())->Show();
        } else if (vcl::MessageDlg("Reset " + g->Name() + " to its defaults?", vcl::mtConfirmation,
                                   {vcl::mbYes, vcl::mbNo}, 0) == vcl::mrYes) {
            g->SetTitle("");
            g->SetMaxValue(100);
            g->SetShowText(true);
            Designer()->Modified();
        }
    }
};
JEX_IMPLEMENT_CLASS(TGaugeEditor, TComponentEditor, "GaugeEdit") {}

// The title is typed in a small input box.
class TGaugeTitleProperty : public TStringProperty {
    JEX_CLASS(TGaugeTitleProperty, TStringProperty)
    TPropertyAttributes GetAttributes() override { return {paDialog, paRevertable}; }
    void Edit() override {
        std::string value = GetStrValue();
        if (vcl::InputQuery("Gauge Title", "Title:", value)) SetStrValue(value);
    }
};
JEX_IMPLEMENT_CLASS(TGaugeTitleProperty, TStringProperty, "GaugeEdit") {}

namespace {
TUnitGuard RegGuard;
void RegStart() {
    RegGuard.Start();
}
void RegStop() {
    RegGuard.Stop();
}

constexpr TPackageUnitEntry Units[] = {
    {BuiltinUnitStart<"vcl60", "Controls">, BuiltinUnitStop<"vcl60", "Controls">},
    {BuiltinUnitStart<"vcl60", "ExtCtrls">, BuiltinUnitStop<"vcl60", "ExtCtrls">},
    {BuiltinUnitStart<"designide60", "DesignIntf">, BuiltinUnitStop<"designide60", "DesignIntf">},
    {RegStart, RegStop},
};
constexpr TPackageInfoTable Table{4, Units};

TPackageInfo Info() {
    TPackageInfo info;
    info.Flags = pfPackageModule | pfProducerNative | pfNeverBuild | pfDesignOnly;
    info.Requires = {{"vcl60.bpl"}, {"designide60.bpl"}};
    info.Contains = {{"dcljexhosttest", ufMainUnit | ufPackageUnit}, {"gaugereg"}};
    return info;
}
TPackageOptions Options() {
    TPackageOptions o;
    o.DesignOnly = true;
    o.Description = "Test gauges";
    return o;
}
} // namespace

} // namespace gauges

JEX_PACKAGE_ENTRY_POINTS(gauges::Table)
JEX_PACKAGE_RESOURCES(gauges::Info(), "Test gauges (design)", gauges::Options());

JEX_PACKAGE_REGISTER(gaugereg) {
    using namespace ide;
    using gauges::TTestGauge;
    RegisterComponents("Gauges && Meters", {TTestGauge::StaticClass(), TTestGauge::StaticClass()});
    RegisterComponentEditor(TTestGauge::StaticClass(), gauges::TGaugeEditor::StaticClass());
    RegisterPropertyEditor(rtl::TypeInfo_String(), TTestGauge::StaticClass(), "Title",
                           gauges::TGaugeTitleProperty::StaticClass());
}

extern "C" __attribute__((visibility("default"))) size_t
JexComponentDescription(const char* ClassName, char* Buffer, size_t BufferSize) {
    std::string text;
    if (ClassName && std::strcmp(ClassName, "TTestGauge") == 0)
        text = "TTestGauge is a container that shows a value against its maximum.";
    if (Buffer && BufferSize > 0) {
        size_t n = std::min(text.size(), BufferSize - 1);
        std::memcpy(Buffer, text.data(), n);
        Buffer[n] = '\0';
    }
    return text.size();
}
