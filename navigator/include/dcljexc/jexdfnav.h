// Jexdfnav: the navigator panel wizard, which fills a navigator panel or toolbar with buttons, and the
// glyph, caption-style and button-size pages it shares with the navigator button editor.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "jex/jexbuttons.h"
#include "jex/jexnav.h"
#include "rtl/inifiles.h"
#include "rtl/resources.h"
#include "vcl/buttons.h"
#include "vcl/dialogs.h"
#include "vcl/extctrls.h"
#include "vcl/forms.h"
#include "vcl/grids.h"
#include "vcl/outline.h"
#include "vcl/spin.h"
#include "vcl/stdctrls.h"

namespace dcljexc {

// The footer texts and the hint line of the caption-style page, which both navigator dialogs show.
JEX_DECLARE_RESOURCESTRING(_sjexnpdsgnBtnPrev);
JEX_DECLARE_RESOURCESTRING(_sjexnpdsgnBtnNext);
JEX_DECLARE_RESOURCESTRING(_sjexnpdsgnBtnCreate);
JEX_DECLARE_RESOURCESTRING(_sjexnpdsgnBtnCancel);
JEX_DECLARE_RESOURCESTRING(_sjexnpdsgnPageHintCaptionStyle);
// The caption the previews show ("Caption").
JEX_DECLARE_RESOURCESTRING(_sjexnpdsgnSampleCaption);

// The custom-button INI file (a bare name: it lives in the system directory) and its section.
inline constexpr const char* jexNavIniFileName = "jex_4_d.ini";
inline constexpr const char* jexNavIniSection = "NavPanel Custom Buttons";

// Items of the glyph-style radio group that are not a glyph set of the package's resources.
inline constexpr int jexGlyphStyleCustom = 6;
inline constexpr int jexGlyphStyleNone = 7;

// The pages, controls, previews and helpers that the panel wizard and the button editor share.
//
// How a dialog uses it: derive from it; in the constructor set the notebook's pages (Notebook->Pages())
// and call BuildGlyphsPage, BuildCaptionStylePage and BuildButtonSizePage with the page each set of
// controls goes on (any windowed control will do); wire btnPrev and btnNext to the dialog's own
// navigation (btnCancel already closes); open the INI file with OpenIniFile in the dialog's FormCreate
// (it is freed with the form, or earlier by CloseIniFile in FormDestroy). After each page change the
// dialog calls ShowPageState with its own hint line and whether the next press finishes. The wizard
// builds its panel-margin spin edits into spePanelMarginH/V; a dialog without them has margins of 0.
class TjexdfNavDesignForm : public vcl::TForm {
    JEX_CLASS(TjexdfNavDesignForm, vcl::TForm)
    explicit TjexdfNavDesignForm(rtl::TComponent* AOwner);
    ~TjexdfNavDesignForm() override;

    // Footer.
    vcl::TLabel* lblPageHint;
    vcl::TNotebook* Notebook;
    vcl::TButton* btnPrev;
    vcl::TBitBtn* btnNext;
    vcl::TButton* btnCancel;

    // Glyphs page.
    vcl::TRadioGroup* rgGlyphStyles = nullptr;
    vcl::TRadioGroup* rgGlyphOrient = nullptr;
    vcl::TCheckBox* chkCaption = nullptr;
    vcl::TCheckBox* chkHints = nullptr;
    vcl::TLabel* lblBtnStyle = nullptr;
    vcl::TComboBox* cboBtnStyle = nullptr;
    vcl::TLabel* lblBtnPicHighlight = nullptr;
    vcl::TComboBox* cboBtnPicHighlight = nullptr;
    vcl::TCheckBox* chkPopup = nullptr;
    vcl::TButton* BtnColor = nullptr;
    jex::TjexPicSpeedBtn* btnGlyphSample = nullptr;

    // CaptionStyle page.
    vcl::TRadioGroup* rgCaptionTextStyle = nullptr;
    vcl::TRadioGroup* rgGlyphPos = nullptr;
    vcl::TLabel* lblBtnMargin = nullptr;
    vcl::TSpinEdit* speBtnMargin = nullptr;
    vcl::TButton* btnButtonFont = nullptr;
    jex::TjexPicSpeedBtn* btnCaptionSample = nullptr;

    // ButtonSize page.
    vcl::TRadioGroup* rgBtnSize = nullptr;
    vcl::TGroupBox* grpCustomSize = nullptr;
    vcl::TLabel* lblBtnWidth = nullptr;
    vcl::TSpinEdit* speBtnWidth = nullptr;
    vcl::TLabel* lblBtnHeight = nullptr;
    vcl::TSpinEdit* speBtnHeight = nullptr;
    vcl::TGroupBox* grpSizeSample = nullptr; // the preview area pnlSample is centred in
    vcl::TPanel* pnlSample = nullptr;
    jex::TjexPicSpeedBtn* btnSizeSample = nullptr;
    // Built by the wizard only; nil means a margin of 0.
    vcl::TSpinEdit* spePanelMarginH = nullptr;
    vcl::TSpinEdit* spePanelMarginV = nullptr;

    vcl::TColorDialog* ColorDialog;
    vcl::TFontDialog* FontDialog;
    // "jex_4_d.ini" while the dialog runs (see OpenIniFile).
    rtl::TIniFile* IniFile = nullptr;
    // True while the size page is being set up: margin changes then leave the preview alone.
    bool Initialising = false;

    // The chosen glyph set (item of rgGlyphStyles) and orientation.
    int GlyphStyle() const;
    bool VerticalGlyphs() const;

    // Loads the package's bitmap resource ResName into the button's picture at 4 bits per pixel with two
    // glyphs. A missing resource leaves the button as it was.
    void LoadBitmapRes(jex::TjexCustomPicSpeedBtn* Button, const std::string& ResName);
    // Looks Name up in the custom-button section: the file of Name + "Vert" (vertical; falling back to
    // Name) or Name, joined to "Path" with a backslash. A backslash is this system's folder delimiter in
    // the file, so FileName comes back with it turned into "/". False (FileName empty, NumGlyphs
    // untouched) when no file is named or the file does not exist; otherwise NumGlyphs is the value of
    // Name + "NumGlyphs" (default 2).
    bool GetINIFileBtnInfo(const std::string& Name, bool Vert, std::string& FileName, int& NumGlyphs) const;
    // Gives a picture button the glyph of the chosen style: the INI file's bitmap for custom glyphs
    // (ERangeError, with the button unchanged, for a glyph count outside 1..5), else the package bitmap
    // of the first catalogue kind the button is an instance of. Other controls are left alone.
    void SetButtonGlyph(vcl::TControl* Control);
    // The caption preview takes picture, colour, style, highlight and popup of the glyph preview.
    void InitCaptionSample();
    // The glyph preview starts with the medium coloured "First" glyph and the "Thin" style.
    void InitNavGlyphSample();
    // Centres pnlSample (W x H plus the panel margins) in the preview area, btnSizeSample inside it.
    void CenterSizeSample(int W, int H);
    // The size preview takes the look of the other previews: without a caption 23 x 22 and size item 2,
    // with one "Caption", the caption preview's text look, size item 6 and 50 x 50 (sic: the item and the
    // sample differ until a size is picked).
    void InitSizeSample();
    // The size of item Index of rgBtnSize (the last item is the custom size).
    void BtnSizeOf(int Index, int& W, int& H) const;

    // Handlers of the shared controls.
    void CancelClick(rtl::TObject* Sender);
    void GlyphSampleChange(rtl::TObject* Sender);
    void chkCaptionClick(rtl::TObject* Sender);
    void chkPopupClick(rtl::TObject* Sender);
    void BtnColorClick(rtl::TObject* Sender);
    void btnButtonFontClick(rtl::TObject* Sender);
    void cboBtnStyleClick(rtl::TObject* Sender);
    void cboBtnPicHighlightClick(rtl::TObject* Sender);
    void rgCaptionTextStyleClick(rtl::TObject* Sender);
    void rgGlyphPosClick(rtl::TObject* Sender);
    void speBtnMarginChange(rtl::TObject* Sender);
    void rgBtnSizeClick(rtl::TObject* Sender);
    void speBtnWidthChange(rtl::TObject* Sender);

protected:
    void BuildGlyphsPage(vcl::TWinControl* Page);
    void BuildCaptionStylePage(vcl::TWinControl* Page);
    void BuildButtonSizePage(vcl::TWinControl* Page);
    void OpenIniFile();
    void CloseIniFile();
    // Sets the hint line, enables btnPrev from the second page on, and shows "&Create" (one glyph) when
    // the next press finishes, else "&Next" (two glyphs).
    void ShowPageState(const std::string& Hint, bool Finishing);
    // A control owned by the form, named and placed on Parent.
    template <class T> T* Place(vcl::TWinControl* Parent, const char* Name, int Left, int Top, int Width,
                                int Height) {
        T* c = new T(this);
        c->SetName(Name);
        c->SetParent(Parent);
        c->SetBounds(Left, Top, Width, Height);
        return c;
    }
    vcl::TLabel* PlaceLabel(vcl::TWinControl* Parent, const char* Name, const std::string& Caption, int Left,
                            int Top, vcl::TWinControl* FocusControl);
    vcl::TRadioGroup* PlaceRadioGroup(vcl::TWinControl* Parent, const char* Name, const std::string& Caption,
                                      const std::vector<std::string>& Items, int ItemIndex, int Left, int Top,
                                      int Width, int Height);
    vcl::TSpinEdit* PlaceSpinEdit(vcl::TWinControl* Parent, const char* Name, int Min, int Max, int Value,
                                  int Left, int Top);

private:
    // The glyph of a kind's package bitmap, or of the INI file for custom glyphs.
    void LoadCustomGlyph(jex::TjexCustomPicSpeedBtn* Button, const std::string& Name, bool ClearIfMissing);
    int MarginH() const;
    int MarginV() const;
};

// The wizard. Pages: 0 Buttons, 1 Glyphs, 2 CaptionStyle, 3 ButtonSize, 4 Captions, 5 Hints.
class TjexdfNavPanelEdit : public TjexdfNavDesignForm {
    JEX_CLASS(TjexdfNavPanelEdit, TjexdfNavDesignForm)
    explicit TjexdfNavPanelEdit(rtl::TComponent* AOwner);

    // Page 0.
    vcl::TLabel* lblButtons;
    vcl::TOutline* outButtons;
    vcl::TLabel* lblSelected;
    vcl::TListBox* lstSelected;
    vcl::TButton* btnAdd;
    vcl::TButton* btnAddAll;
    vcl::TButton* btnRemove;
    vcl::TButton* btnRemoveAll;
    vcl::TButton* btnUp;
    vcl::TButton* btnDown;
    // Page 3, besides the shared size controls.
    vcl::TGroupBox* grpPanelMargin;
    vcl::TLabel* lblPanelMarginH;
    vcl::TLabel* lblPanelMarginV;
    vcl::TGroupBox* grpBtnAlign;
    vcl::TLabel* lblBtnOffsetH;
    vcl::TSpinEdit* speBtnOffsetH;
    vcl::TLabel* lblBtnOffsetV;
    vcl::TSpinEdit* speBtnOffsetV;
    vcl::TLabel* lblBtnRows;
    vcl::TSpinEdit* speBtnRows;
    vcl::TLabel* lblBtnCols;
    vcl::TSpinEdit* speBtnCols;
    // Pages 4 and 5.
    vcl::TStringGrid* grdCaptions;
    vcl::TStringGrid* grdHints;

    // The navigator panel or toolbar being filled; the toolbar also as ToolWindow (else nil).
    vcl::TWinControl* Panel = nullptr;
    jex::TjexNavToolbar* ToolWindow = nullptr;
    int SelectedCount = 0;
    int ButtonTotal = 0;
    int ColCount = 1;
    int RowCount = 1;
    uint8_t LastChanged = 0; // 0 rows, 1 columns
    bool InRowColChange = false;

    void FormCreate(rtl::TObject* Sender);
    void FormDestroy(rtl::TObject* Sender);
    void PrevClick(rtl::TObject* Sender);
    void NextClick(rtl::TObject* Sender);
    void btnAddClick(rtl::TObject* Sender);
    void btnAddAllClick(rtl::TObject* Sender);
    void btnRemoveClick(rtl::TObject* Sender);
    void btnRemoveAllClick(rtl::TObject* Sender);
    void btnUpClick(rtl::TObject* Sender);
    void btnDownClick(rtl::TObject* Sender);
    void outButtonsDblClick(rtl::TObject* Sender);
    void spePanelMarginChange(rtl::TObject* Sender);
    void speBtnRowsChange(rtl::TObject* Sender);
    void speBtnColsChange(rtl::TObject* Sender);

    void InitOutline();
    void RefreshButtons();
    void InitButtonSize();
    void InitDefaultCaptions();
    void InitDefaultHints();
    // Creates one component per selected entry, styles and lays out every control of the panel.
    void CreateButtons();
    void CreateButton(int Index);
    void AdjustAllButtons();

    // Columns needed for Total buttons in Rows rows (Rows is normalised into 1..Total, 0 for none).
    static int GetColCount(int Total, int& Rows);
    static int GetRowCount(int Total, int& Cols);

    // The button kind of selected entry Index.
    int SelectedKind(int Index) const;

private:
    // The rows/cols handlers' common part: Changed now shows Count's new value; OtherCount follows, and with
    // StepToChange (rows on horizontal panels, columns on vertical ones) Count steps on until OtherCount
    // really changes.
    void StepGrid(vcl::TSpinEdit* Changed, vcl::TSpinEdit* Other, int& Count, int& OtherCount, bool StepToChange);
    void AppendEntry(int OutlineIndex);
    void FocusIfShowing(vcl::TWinControl* Control);
    std::string UniqueComponentName(rtl::TComponent* Owner, const std::string& Base);
    // Within one CreateButtons run, where each name base's search for a free number stopped: the first
    // free number of a base only grows while buttons are added, so the search goes on from there.
    std::map<std::string, int> FNextNumbers;
};

// Runs the wizard on a navigator panel or toolbar; true when the user finished it (the buttons were
// created). Raises EInvalidOperation for a nil panel.
bool ExecjexdfNavPanelEdit(vcl::TWinControl* Panel);

} // namespace dcljexc
