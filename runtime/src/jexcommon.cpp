// The library's common unit: design-time hooks, shared enumerations, memory blocks, version items,
// helpers and the list of the library's component classes.
#include "jex/jexcommon.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <mutex>

#include "rtl/resources.h"
#include "vcl/forms.h"

JEX_MODULE("jexc60")

namespace jex {

rtl::TResourceModule& LibraryModule() {
    return jexThisModule();
}

bool jexDesigning = false;
TjexProjectNameFunc jexProjectNameFunc = nullptr;

std::string jexProjectName() {
    return jexProjectNameFunc ? jexProjectNameFunc() : std::string();
}

JEX_DEFINE_ENUM(TjexButtonLayout)
JEX_DEFINE_ENUM(TjexTextStyle)
JEX_DEFINE_ENUM(TjexButtonStyle)
JEX_DEFINE_ENUM(TjexPictureHighlight)
JEX_DEFINE_ENUM(TjexAlignHorz)
JEX_DEFINE_ENUM(TjexAlignVert)

std::string jexButtonStyleCaption(TjexButtonStyle Style) {
    static const char* const names[] = {"AutoDetect",
                                        "New",
                                        "Win 3.1",
                                        "Thin",
                                        "Thin Black",
                                        "Thin Gray",
                                        "Thin Highlight",
                                        "Mid Highlight",
                                        "Thick Highlight",
                                        "Framed",
                                        "Framed Black",
                                        "Framed Raised",
                                        "Framed Highlight",
                                        "Framed Black Highlight",
                                        "Recessed",
                                        "Recessed Black",
                                        "Recessed Raised",
                                        "Recessed Highlight",
                                        "Recessed Black Highlight"};
    int i = static_cast<int>(Style);
    return i >= 0 && i < static_cast<int>(std::size(names)) ? names[i] : std::string();
}

std::string jexPictureHighlightCaption(TjexPictureHighlight Highlight) {
    static const char* const names[] = {"Normal", "Gray", "Fade", "Darken"};
    int i = static_cast<int>(Highlight);
    return i >= 0 && i < static_cast<int>(std::size(names)) ? names[i] : std::string();
}

// ---- Sounds ----------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomSoundList, rtl::TComponent, "jexcommon") {}

void TjexSoundProps::SetSoundList(TjexCustomSoundList* Value) {
    if (FSoundList == Value) return;
    if (FSoundList && FOwner) FSoundList->RemoveFreeNotification(FOwner);
    FSoundList = Value;
    if (FSoundList && FOwner) FSoundList->FreeNotification(FOwner);
}

bool TjexSoundProps::Play(int Index) {
    if (!FSoundList || Index < 0 || Index >= FSoundList->SoundCount()) return false;
    return FSoundList->PlaySound(Index);
}

void TjexSoundProps::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    if (Operation == rtl::opRemove && AComponent == FSoundList) FSoundList = nullptr;
}

// ---- Memory blocks ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexPersistentMemory, rtl::TPersistent, "jexcommon") {}

void TjexPersistentMemory::Assign(rtl::TPersistent* Source) {
    if (!Source) {
        Clear();
        return;
    }
    if (auto* m = dynamic_cast<TjexPersistentMemory*>(Source)) {
        if (m != this) SetBytes(m->FData);
        return;
    }
    rtl::TPersistent::Assign(Source);
}

void TjexPersistentMemory::SetData(const void* Data, size_t Size) {
    const auto* p = static_cast<const uint8_t*>(Data);
    SetBytes(Size ? std::vector<uint8_t>(p, p + Size) : std::vector<uint8_t>());
}

void TjexPersistentMemory::SetBytes(std::vector<uint8_t> Bytes) {
    CheckData(Bytes);
    FData = std::move(Bytes);
    Changed();
}

void TjexPersistentMemory::Clear() {
    if (FData.empty()) return;
    FData.clear();
    FData.shrink_to_fit();
    Changed();
}

void TjexPersistentMemory::LoadFromFile(const std::string& FileName) {
    std::string bytes = rtl::ReadFileBytes(FileName); // EFOpenError before anything changes
    SetBytes(std::vector<uint8_t>(bytes.begin(), bytes.end()));
}

void TjexPersistentMemory::SaveToFile(const std::string& FileName) const {
    rtl::WriteFileBytes(FileName,
                        std::string_view(reinterpret_cast<const char*>(FData.data()), FData.size()));
}

void TjexPersistentMemory::DefineProperties(rtl::TFiler& Filer) {
    bool hasData = !FData.empty();
    if (auto* ancestor = dynamic_cast<TjexPersistentMemory*>(Filer.Ancestor)) hasData = !Equals(*ancestor);
    Filer.DefineBinaryProperty(
        "Data", [this](const std::vector<uint8_t>& data) { SetBytes(data); },
        [this](std::vector<uint8_t>& data) { data = FData; }, hasData);
}

void TjexPersistentMemory::Changed() {
    OnChange(this);
}

// ---- Wave images -----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexWaveImage, TjexPersistentMemory, "jexcommon") {}

namespace {
uint32_t Le32(const uint8_t* p) {
    return p[0] | (p[1] << 8) | (p[2] << 16) | (uint32_t(p[3]) << 24);
}
uint16_t Le16(const uint8_t* p) {
    return static_cast<uint16_t>(p[0] | (p[1] << 8));
}
[[noreturn]] void BadWave(const char* reason) {
    throw rtl::EConvertError(std::string("Invalid wave data: ") + reason);
}
} // namespace

TjexWaveImage::TWaveFormat TjexWaveImage::ParseWave(const std::vector<uint8_t>& Bytes) {
    TWaveFormat f;
    if (Bytes.empty()) return f;
    if (Bytes.size() < 12 || std::memcmp(Bytes.data(), "RIFF", 4) != 0 ||
        std::memcmp(Bytes.data() + 8, "WAVE", 4) != 0)
        BadWave("not a RIFF WAVE file");
    size_t pos = 12;
    bool haveFmt = false, haveData = false;
    while (pos + 8 <= Bytes.size()) {
        const uint8_t* chunk = Bytes.data() + pos;
        uint32_t size = Le32(chunk + 4);
        size_t bodyAt = pos + 8;
        size_t available = Bytes.size() - bodyAt;
        if (std::memcmp(chunk, "fmt ", 4) == 0) {
            if (size < 16 || available < 16) BadWave("format chunk too short");
            const uint8_t* b = Bytes.data() + bodyAt;
            f.FormatTag = Le16(b);
            f.Channels = Le16(b + 2);
            f.SamplesPerSec = static_cast<int>(Le32(b + 4));
            f.BlockAlign = Le16(b + 12);
            f.BitsPerSample = Le16(b + 14);
            if (f.Channels == 0 || f.SamplesPerSec <= 0) BadWave("no channels or sample rate");
            haveFmt = true;
        } else if (std::memcmp(chunk, "data", 4) == 0) {
            // A truncated last chunk still plays up to the end of the file, as players accept it.
            f.DataSize = static_cast<uint32_t>(std::min<size_t>(size, available));
            haveData = true;
        }
        if (size > available) break;
        pos = bodyAt + size + (size & 1);
    }
    if (!haveFmt) BadWave("no format chunk");
    if (!haveData) BadWave("no data chunk");
    return f;
}

void TjexWaveImage::CheckData(const std::vector<uint8_t>& Bytes) const {
    ParseWave(Bytes);
}

TjexWaveImage::TWaveFormat TjexWaveImage::Format() const {
    return ParseWave(Bytes());
}

int64_t TjexWaveImage::DurationMs() const {
    TWaveFormat f = Format();
    int bytesPerSec = f.BlockAlign > 0 ? f.BlockAlign * f.SamplesPerSec
                                       : f.Channels * f.SamplesPerSec * std::max(1, f.BitsPerSample / 8);
    if (bytesPerSec <= 0) return 0;
    return static_cast<int64_t>(f.DataSize) * 1000 / bytesPerSec;
}

// ---- Version information items ---------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexVersionInfoItem, rtl::TCollectionItem, "jexcommon") {
    d.Property("Key", &TjexVersionInfoItem::Key, &TjexVersionInfoItem::SetKey);
    d.Property("Caption", &TjexVersionInfoItem::Caption, &TjexVersionInfoItem::SetCaption);
}

void TjexVersionInfoItem::Assign(rtl::TPersistent* Source) {
    if (auto* item = dynamic_cast<TjexVersionInfoItem*>(Source)) {
        FKey = item->FKey;
        FCaption = item->FCaption;
        Changed(false);
        return;
    }
    rtl::TCollectionItem::Assign(Source);
}

void TjexVersionInfoItem::SetKey(const std::string& Value) {
    if (FKey == Value) return;
    FKey = Value;
    Changed(false);
}

void TjexVersionInfoItem::SetCaption(const std::string& Value) {
    if (FCaption == Value) return;
    FCaption = Value;
    Changed(false);
}

std::string TjexVersionInfoItem::GetDisplayName() const {
    return FKey.empty() ? rtl::TCollectionItem::GetDisplayName() : FKey;
}

JEX_IMPLEMENT_CLASS(TjexVersionInfoItems, rtl::TOwnedCollection, "jexcommon") {}

TjexVersionInfoItems::TjexVersionInfoItems(rtl::TPersistent* Owner, rtl::TClass ItemClass)
    : rtl::TOwnedCollection(Owner, ItemClass) {
    if (!ItemClass || !ItemClass->InheritsFrom(TjexVersionInfoItem::StaticClass()))
        throw rtl::EInvalidCast(rtl::SInvalidCast);
    PropName = "VersionInfo";
}

void TjexVersionInfoItems::Update(rtl::TCollectionItem* Item) {
    // Adding and deleting raise OnChange themselves; a change of one item only reaches Update.
    if (Item) OnChange(this);
}

// ---- Helpers ---------------------------------------------------------------------------------------------
void jexParseStringToList(std::string_view Text, std::string_view Separator, bool KeepEmpty,
                          rtl::TStrings* List) {
    if (!List) return;
    List->BeginUpdate();
    try {
        List->Clear();
        if (!Text.empty()) {
            if (Separator.empty()) {
                List->Add(std::string(Text));
            } else {
                size_t start = 0;
                while (true) {
                    size_t at = Text.find(Separator, start);
                    std::string_view part = Text.substr(
                        start, at == std::string_view::npos ? std::string_view::npos : at - start);
                    if (KeepEmpty || !part.empty()) List->Add(std::string(part));
                    if (at == std::string_view::npos) break;
                    start = at + Separator.size();
                }
            }
        }
    } catch (...) {
        List->EndUpdate();
        throw;
    }
    List->EndUpdate();
}

namespace {
vcl::TScrollingWinControl* AsFormOrFrame(const rtl::TObject* obj) {
    auto* c = const_cast<rtl::TObject*>(obj);
    if (dynamic_cast<vcl::TCustomForm*>(c) || dynamic_cast<vcl::TCustomFrame*>(c))
        return static_cast<vcl::TScrollingWinControl*>(dynamic_cast<vcl::TWinControl*>(c));
    return nullptr;
}
} // namespace

vcl::TScrollingWinControl* jexParentFormorFrameOf(const vcl::TControl* Control) {
    return jexParentFormorFrameOf(static_cast<const rtl::TComponent*>(Control));
}

vcl::TScrollingWinControl* jexParentFormorFrameOf(const rtl::TComponent* Component) {
    if (!Component) return nullptr;
    if (auto* control = dynamic_cast<const vcl::TControl*>(Component)) {
        for (const vcl::TControl* p = control->Parent(); p; p = p->Parent())
            if (auto* f = AsFormOrFrame(p)) return f;
    }
    // A control not (yet) parented, and a non-visual component, belong to the form or frame owning them.
    for (const rtl::TComponent* o = Component->Owner(); o; o = o->Owner())
        if (auto* f = AsFormOrFrame(o)) return f;
    return nullptr;
}

// ---- The library's component classes ---------------------------------------------------------------------
namespace {
struct TUnitList {
    std::mutex Lock;
    std::vector<const TjexLibraryUnitBase*> Units;
};
TUnitList& Units() {
    static TUnitList list;
    return list;
}
} // namespace

TjexLibraryUnitBase::TjexLibraryUnitBase(const char* UnitName, std::vector<TClassRef> Classes)
    : FUnitName(UnitName), FClasses(std::move(Classes)) {
    TUnitList& l = Units();
    std::lock_guard<std::mutex> g(l.Lock);
    l.Units.push_back(this);
}

TjexLibraryUnitBase::~TjexLibraryUnitBase() {
    TUnitList& l = Units();
    std::lock_guard<std::mutex> g(l.Lock);
    l.Units.erase(std::remove(l.Units.begin(), l.Units.end(), this), l.Units.end());
}

namespace {
std::vector<const TjexLibraryUnitBase*> SortedUnits() {
    TUnitList& l = Units();
    std::lock_guard<std::mutex> g(l.Lock);
    std::vector<const TjexLibraryUnitBase*> units = l.Units;
    std::stable_sort(units.begin(), units.end(),
                     [](auto* a, auto* b) { return std::strcmp(a->UnitName(), b->UnitName()) < 0; });
    return units;
}
} // namespace

std::vector<rtl::TClass> LibraryClasses() {
    std::vector<rtl::TClass> result;
    for (const TjexLibraryUnitBase* u : SortedUnits())
        for (auto ref : u->ClassRefs()) {
            rtl::TClass c = ref();
            if (std::find(result.begin(), result.end(), c) == result.end()) result.push_back(c);
        }
    return result;
}

std::string LibraryUnitOf(rtl::TClass Class) {
    for (const TjexLibraryUnitBase* u : SortedUnits())
        for (auto ref : u->ClassRefs())
            if (ref() == Class) return u->UnitName();
    return {};
}

} // namespace jex
