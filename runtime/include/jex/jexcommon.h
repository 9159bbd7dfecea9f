// The library's common unit: the design-time hooks, the enumerations and small persistent types that
// every unit of jexc60 shares, a few helpers, and the library-wide list of component classes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "rtl/classes.h"
#include "rtl/lists.h"
#include "vcl/controls.h"

namespace rtl {
class TResourceModule;
}
namespace vcl {
class TScrollingWinControl;
}

namespace jex {

// ---- Design-time hooks ----------------------------------------------------------------------------------
// True while the design package is loaded (it sets the flag at its start and clears it at its stop).
extern bool jexDesigning;
// Returns the name of the project being designed; installed by the design package, nil otherwise.
using TjexProjectNameFunc = std::string (*)();
extern TjexProjectNameFunc jexProjectNameFunc;
// The current project name through the hook, or empty when no hook is installed.
std::string jexProjectName();

// jexc60's own resource table (strings, bitmaps, raw data such as its "VERSIONINFO"). It is declared here,
// once for the whole library (JEX_MODULE("jexc60")); every unit adds to it through jexThisModule(). The
// loader that opens the library registers it (rtl::RegisterModule).
rtl::TResourceModule& LibraryModule();

// ---- Shared enumerations ----------------------------------------------------------------------------------
// The jex prefixes keep these apart from the platform's button and text enumerations of similar names.

// Where a picture button puts its glyph relative to its caption (Center: glyph centred under the caption;
// Tile: the glyph tiled over the whole face).
JEX_ENUM(TjexButtonLayout, jblGlyphLeft, jblGlyphRight, jblGlyphTop, jblGlyphBottom, jblGlyphCenter,
         jblGlyphTile)
// How a caption is drawn: flat, or embossed raised or lowered.
JEX_ENUM(TjexTextStyle, jtsNormal, jtsRaised, jtsLowered)
// The frame of a picture button; the ordinal is the index of the navigator designers' style list.
JEX_ENUM(TjexButtonStyle, jbsAutoDetect, jbsNew, jbsWin31, jbsThin, jbsThinBlack, jbsThinGray,
         jbsThinHighlight, jbsMidHighlight, jbsThickHighlight, jbsFramed, jbsFramedBlack, jbsFramedRaised,
         jbsFramedHighlight, jbsFramedBlackHighlight, jbsRecessed, jbsRecessedBlack, jbsRecessedRaised,
         jbsRecessedHighlight, jbsRecessedBlackHighlight)
// How a picture button's glyph looks while the mouse is not over the button.
JEX_ENUM(TjexPictureHighlight, jphNormal, jphGray, jphFade, jphDarken)
// Horizontal and vertical alignment of a caption inside a button or label.
JEX_ENUM(TjexAlignHorz, jahLeft, jahCenter, jahRight)
JEX_ENUM(TjexAlignVert, javTop, javCenter, javBottom)

// The texts a person sees for these values ("Win 3.1", "Framed Black Highlight", "Darken").
std::string jexButtonStyleCaption(TjexButtonStyle Style);
std::string jexPictureHighlightCaption(TjexPictureHighlight Highlight);

// ---- Sounds -------------------------------------------------------------------------------------------
// Base of every component that holds a numbered list of sounds (the wave list components derive from it).
// Buttons and labels refer to one through their SoundList property and play entry SoundDown when pressed
// and SoundOver when the mouse enters (-1: no sound).
class TjexCustomSoundList : public rtl::TComponent {
    JEX_CLASS(TjexCustomSoundList, rtl::TComponent)
    using rtl::TComponent::TComponent;
    virtual int SoundCount() const = 0;
    // Plays sound Index; false when Index is out of range or nothing could be played.
    virtual bool PlaySound(int Index) = 0;
};

// The SoundList / SoundDown / SoundOver values of a component, with the reference cleared when the list
// is destroyed. The owning component forwards its Notification here.
class TjexSoundProps {
public:
    explicit TjexSoundProps(rtl::TComponent* Owner) : FOwner(Owner) {}
    TjexCustomSoundList* SoundList() const { return FSoundList; }
    void SetSoundList(TjexCustomSoundList* Value);
    int SoundDown = -1;
    int SoundOver = -1;
    // Plays SoundDown / SoundOver (or any index) through the list, when there is one.
    bool PlayDown() { return Play(SoundDown); }
    bool PlayOver() { return Play(SoundOver); }
    bool Play(int Index);
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation);

private:
    rtl::TComponent* FOwner;
    TjexCustomSoundList* FSoundList = nullptr;
};

// Accessors over a TjexSoundProps member, for the class body of a component with sounds:
//   JEX_SOUND_ACCESSORS(FSounds)
// and, in its property declarations, jexPublishSounds(d) to publish them.
#define JEX_SOUND_ACCESSORS(Member)                                                                          \
    ::jex::TjexSoundProps& Sounds() {                                                                        \
        return Member;                                                                                       \
    }                                                                                                        \
    const ::jex::TjexSoundProps& Sounds() const {                                                            \
        return Member;                                                                                       \
    }                                                                                                        \
    int SoundDown() const {                                                                                  \
        return Member.SoundDown;                                                                             \
    }                                                                                                        \
    void SetSoundDown(int Value) {                                                                           \
        Member.SoundDown = Value;                                                                            \
    }                                                                                                        \
    int SoundOver() const {                                                                                  \
        return Member.SoundOver;                                                                             \
    }                                                                                                        \
    void SetSoundOver(int Value) {                                                                           \
        Member.SoundOver = Value;                                                                            \
    }                                                                                                        \
    ::jex::TjexCustomSoundList* SoundList() const {                                                          \
        return Member.SoundList();                                                                           \
    }                                                                                                        \
    void SetSoundList(::jex::TjexCustomSoundList* Value) {                                                   \
        Member.SetSoundList(Value);                                                                          \
    }

// Publishes "SoundDown", "SoundList" and "SoundOver" of a class that uses JEX_SOUND_ACCESSORS.
template <class C> void jexPublishSounds(rtl::TClassDecl<C>& d) {
    d.Property("SoundDown", &C::SoundDown, &C::SetSoundDown).Default(-1);
    d.Property("SoundList", &C::SoundList, &C::SetSoundList);
    d.Property("SoundOver", &C::SoundOver, &C::SetSoundOver).Default(-1);
}

// ---- Memory blocks ------------------------------------------------------------------------------------
// A block of bytes kept inside a form file (as the binary value "Data"): embedded resources, media
// streams and sounds. Loading validates the bytes first (CheckData), so a failed load keeps the old
// content.
class TjexPersistentMemory : public rtl::TPersistent {
    JEX_CLASS(TjexPersistentMemory, rtl::TPersistent)
    TjexPersistentMemory() = default;
    // Another memory block (its bytes), or nil (empties this one).
    void Assign(rtl::TPersistent* Source) override;

    bool GetEmpty() const { return FData.empty(); }
    size_t Size() const { return FData.size(); }
    const uint8_t* Data() const { return FData.data(); }
    const std::vector<uint8_t>& Bytes() const { return FData; }
    // Replaces the content; raises what CheckData raises and then keeps the old content.
    void SetData(const void* Data, size_t Size);
    void SetBytes(std::vector<uint8_t> Bytes);
    void Clear();
    // Raises EFOpenError for a file that cannot be read (and what CheckData raises for bad content); the
    // old content stays in both cases.
    void LoadFromFile(const std::string& FileName);
    // Raises EFCreateError when the file cannot be written.
    void SaveToFile(const std::string& FileName) const;
    bool Equals(const TjexPersistentMemory& Other) const { return FData == Other.FData; }

    // "Data", written when the block is not empty (or differs from the ancestor's).
    void DefineProperties(rtl::TFiler& Filer) override;
    // After every change of the content.
    rtl::TNotifyEvent OnChange;

protected:
    // Refuses content this kind of block cannot hold (raise a platform exception); the base accepts all.
    virtual void CheckData(const std::vector<uint8_t>& Bytes) const {}
    virtual void Changed();

private:
    std::vector<uint8_t> FData;
};

// A memory block that holds one wave sound: empty, or a RIFF file of form type "WAVE" with a "fmt " chunk.
class TjexWaveImage : public TjexPersistentMemory {
    JEX_CLASS(TjexWaveImage, TjexPersistentMemory)
    TjexWaveImage() = default;
    struct TWaveFormat {
        int FormatTag = 0; // 1: PCM
        int Channels = 0;
        int SamplesPerSec = 0;
        int BitsPerSample = 0;
        int BlockAlign = 0;
        uint32_t DataSize = 0; // bytes of sound data
    };
    // The format of the held sound; all zero for an empty block.
    TWaveFormat Format() const;
    // Length of the sound in milliseconds (0 when empty).
    int64_t DurationMs() const;
    // Raises EConvertError "Invalid wave data: <reason>" for bytes that are not a wave sound.
    static TWaveFormat ParseWave(const std::vector<uint8_t>& Bytes);

protected:
    void CheckData(const std::vector<uint8_t>& Bytes) const override;
};

// ---- Version information items ---------------------------------------------------------------------------
// One line of a version label: a version-resource key ("FileVersion") and the caption shown before its
// value ("File Version:").
class TjexVersionInfoItem : public rtl::TCollectionItem {
    JEX_CLASS(TjexVersionInfoItem, rtl::TCollectionItem)
    explicit TjexVersionInfoItem(rtl::TCollection* Collection) : rtl::TCollectionItem(Collection) {}
    void Assign(rtl::TPersistent* Source) override;
    std::string Key() const { return FKey; }
    void SetKey(const std::string& Value);
    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& Value);
    // The key, or the class name while the key is empty.
    std::string GetDisplayName() const override;

private:
    std::string FKey;
    std::string FCaption;
};

class TjexVersionInfoItems : public rtl::TOwnedCollection {
    JEX_CLASS(TjexVersionInfoItems, rtl::TOwnedCollection)
    // ItemClass: TjexVersionInfoItem or a descendant (passed explicitly, as TOwnedCollection takes it).
    TjexVersionInfoItems(rtl::TPersistent* Owner, rtl::TClass ItemClass);
    TjexVersionInfoItem* Add() { return static_cast<TjexVersionInfoItem*>(rtl::TCollection::Add()); }
    TjexVersionInfoItem* Items(int Index) const {
        return static_cast<TjexVersionInfoItem*>(rtl::TCollection::Items(Index));
    }
    // OnChange follows every change, of the list or of one item.
    void Update(rtl::TCollectionItem* Item) override;
};

// ---- Helpers ------------------------------------------------------------------------------------------
// Clears List and fills it with the parts of Text between Separator occurrences, in order. With KeepEmpty
// an empty part (a leading, trailing or doubled separator) becomes an empty line; without it, empty parts
// are dropped. Parts are not trimmed. An empty Text gives no lines; an empty Separator gives Text as one
// line.
void jexParseStringToList(std::string_view Text, std::string_view Separator, bool KeepEmpty,
                          rtl::TStrings* List);

// The form or frame that holds a control (the nearest one among its parents) or a non-visual component
// (the nearest one among its owners); nil when there is none.
vcl::TScrollingWinControl* jexParentFormorFrameOf(const vcl::TControl* Control);
vcl::TScrollingWinControl* jexParentFormorFrameOf(const rtl::TComponent* Component);

// ---- The library's component classes ----------------------------------------------------------------------
// Every unit lists the component classes it declares once, in its source file, with one line naming the
// unit as its JEX_IMPLEMENT_CLASS lines do:
//   static const jex::TjexLibraryUnit<TjexDock, TjexToolbar, TjexToolWindow> jexdockUnit("jexdock");
// The list is the library's own (the design package decides what goes on the palette and into the
// streaming registry); it is filled when the library is loaded and emptied when it is unloaded.
class TjexLibraryUnitBase {
public:
    using TClassRef = rtl::TClass (*)();
    TjexLibraryUnitBase(const char* UnitName, std::vector<TClassRef> Classes);
    ~TjexLibraryUnitBase();
    TjexLibraryUnitBase(const TjexLibraryUnitBase&) = delete;
    TjexLibraryUnitBase& operator=(const TjexLibraryUnitBase&) = delete;
    const char* UnitName() const { return FUnitName; }
    const std::vector<TClassRef>& ClassRefs() const { return FClasses; }

private:
    const char* FUnitName;
    std::vector<TClassRef> FClasses;
};

template <class... C> class TjexLibraryUnit : public TjexLibraryUnitBase {
public:
    explicit TjexLibraryUnit(const char* UnitName) : TjexLibraryUnitBase(UnitName, {&C::StaticClass...}) {}
};

// Every listed class: units in order of their names, each unit's classes in the order listed.
std::vector<rtl::TClass> LibraryClasses();
// The unit that listed a class ("jexdock"), or empty when the class is not listed.
std::string LibraryUnitOf(rtl::TClass Class);

} // namespace jex
