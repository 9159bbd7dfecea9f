// Sounds, sound lists and media players.
#include "jex/jexwave.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "jex/jexbuttons.h"
#include "jexpanelpub.h"
#include "rtl/resources.h"
#include "vcl/uiservice.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexPlayOption)
JEX_DEFINE_ENUM(TjexMCIDeviceType)
JEX_DEFINE_ENUM(TjexMCIMode)

rtl::TResourceModule* jexResourceModule(const std::string& ModuleName) {
    return ModuleName.empty() ? rtl::MainInstance() : rtl::FindResourceModule(ModuleName);
}

void jexLoadWaveResource(const std::string& ModuleName, const std::string& Name, TjexWaveImage& Sound) {
    rtl::TResourceModule* module = jexResourceModule(ModuleName);
    const std::vector<uint8_t>* bytes = module ? rtl::FindRawResource(*module, Name) : nullptr;
    if (!bytes)
        throw rtl::EResNotFound(
            rtl::Format(rtl::SResNotFound, {ModuleName.empty() ? Name : ModuleName + ":" + Name}));
    Sound.SetBytes(*bytes);
}

// ---- Single sounds ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomWave, rtl::TComponent, "jexwave") {}

JEX_IMPLEMENT_CLASS(TjexWave, TjexCustomWave, "jexwave") {
    d.Property("PlayOption", &TjexWave::PlayOption, &TjexWave::SetPlayOption).Default(jwpAsync);
    d.Property("Sound", &TjexWave::Sound, &TjexWave::SetSound);
}

TjexWave::TjexWave(rtl::TComponent* AOwner)
    : TjexCustomWave(AOwner), FSound(std::make_unique<TjexWaveImage>()) {}

TjexWave::~TjexWave() = default;

bool TjexWave::Play() {
    return jexPlayWave(*FSound);
}

JEX_IMPLEMENT_CLASS(TjexWaveFile, TjexCustomWave, "jexwave") {
    d.Property("FileName", &TjexWaveFile::FileName, &TjexWaveFile::SetFileName, rtl::TypeInfo_TFileName());
    d.Property("PlayOption", &TjexWaveFile::PlayOption, &TjexWaveFile::SetPlayOption).Default(jwpAsync);
}

bool TjexWaveFile::Play() {
    return rtl::FileExists(FFileName) && jexPlayWaveFile(FFileName);
}

JEX_IMPLEMENT_CLASS(TjexWaveRes, TjexCustomWave, "jexwave") {
    d.Property("PlayOption", &TjexWaveRes::PlayOption, &TjexWaveRes::SetPlayOption).Default(jwpAsync);
    d.Property("ResourceDLL", &TjexWaveRes::ResourceDLL, &TjexWaveRes::SetResourceDLL);
    d.Property("ResourceName", &TjexWaveRes::ResourceName, &TjexWaveRes::SetResourceName);
}

bool TjexWaveRes::Play() {
    TjexWaveImage sound;
    try {
        jexLoadWaveResource(FResourceDLL, FResourceName, sound);
    } catch (const rtl::Exception&) {
        return false;
    }
    return jexPlayWave(sound);
}

// ---- Sound lists
// -------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomWaveList, TjexCustomSoundList, "jexwave") {}

TjexCustomWaveList::TjexCustomWaveList(rtl::TComponent* AOwner)
    : TjexCustomSoundList(AOwner), FItems(std::make_unique<rtl::TStringList>()) {}

TjexCustomWaveList::~TjexCustomWaveList() = default;

void TjexCustomWaveList::SetItemIndex(int Value) {
    // While a form file is read the lines may come after the index.
    FItemIndex = IsLoading() ? Value : (Value >= 0 && Value < FItems->Count() ? Value : -1);
}

template <class C> static void PublishList(rtl::TClassDecl<C>& d) {
    d.Property("Items", &C::Items, &C::SetItems);
    d.Property("ItemIndex", &C::ItemIndex, &C::SetItemIndex).Default(-1);
    d.Property("PlayOption", &C::PlayOption, &C::SetPlayOption).Default(jwpAsync);
}

JEX_IMPLEMENT_CLASS(TjexWaveList, TjexCustomWaveList, "jexwave") {
    PublishList(d);
}

TjexWaveList::TjexWaveList(rtl::TComponent* AOwner) : TjexCustomWaveList(AOwner) {}

TjexWaveList::~TjexWaveList() = default;

TjexWaveImage* TjexWaveList::Sounds(int Index) {
    if (Index < 0 || Index >= Items()->Count())
        throw rtl::EListError(rtl::Format(rtl::SListIndexError, {Index}));
    if (static_cast<int>(FSounds.size()) <= Index) FSounds.resize(Index + 1);
    if (!FSounds[Index]) FSounds[Index] = std::make_unique<TjexWaveImage>();
    return FSounds[Index].get();
}

int TjexWaveList::AddFromFile(const std::string& Name, const std::string& FileName) {
    TjexWaveImage sound;
    sound.LoadFromFile(FileName); // checked before the line exists
    int i = Items()->Add(Name);
    Sounds(i)->Assign(&sound);
    return i;
}

bool TjexWaveList::PlaySound(int Index) {
    if (Index < 0 || Index >= Items()->Count()) return false;
    return jexPlayWave(*Sounds(Index));
}

void TjexWaveList::DefineProperties(rtl::TFiler& Filer) {
    TjexCustomWaveList::DefineProperties(Filer);
    bool any = false;
    for (const auto& s : FSounds)
        any = any || (s && !s->GetEmpty());
    // One block: the number of sounds, then each sound's length and bytes (little-endian 32-bit lengths).
    Filer.DefineBinaryProperty(
        "WaveData",
        [this](const std::vector<uint8_t>& data) {
            auto le32 = [&](size_t at) {
                if (at + 4 > data.size()) throw rtl::EReadError("Wave list data is cut short");
                return static_cast<uint32_t>(data[at]) | static_cast<uint32_t>(data[at + 1]) << 8 |
                       static_cast<uint32_t>(data[at + 2]) << 16 | static_cast<uint32_t>(data[at + 3]) << 24;
            };
            uint32_t count = le32(0);
            size_t at = 4;
            std::vector<std::unique_ptr<TjexWaveImage>> sounds;
            for (uint32_t i = 0; i < count; ++i) {
                uint32_t size = le32(at);
                at += 4;
                if (at + size > data.size()) throw rtl::EReadError("Wave list data is cut short");
                auto sound = std::make_unique<TjexWaveImage>();
                sound->SetBytes(std::vector<uint8_t>(data.begin() + at, data.begin() + at + size));
                sounds.push_back(std::move(sound));
                at += size;
            }
            FSounds = std::move(sounds);
        },
        [this](std::vector<uint8_t>& data) {
            auto put = [&](uint32_t v) {
                for (int i = 0; i < 4; ++i)
                    data.push_back(static_cast<uint8_t>(v >> (8 * i)));
            };
            put(static_cast<uint32_t>(FSounds.size()));
            for (const auto& s : FSounds) {
                put(s ? static_cast<uint32_t>(s->Size()) : 0);
                if (s) data.insert(data.end(), s->Bytes().begin(), s->Bytes().end());
            }
        },
        any);
}

JEX_IMPLEMENT_CLASS(TjexWaveFileList, TjexCustomWaveList, "jexwave") {
    d.Property("FileExt", &TjexWaveFileList::FileExt, &TjexWaveFileList::SetFileExt);
    d.Property("FilePath", &TjexWaveFileList::FilePath, &TjexWaveFileList::SetFilePath);
    PublishList(d);
}

TjexWaveFileList::TjexWaveFileList(rtl::TComponent* AOwner) : TjexCustomWaveList(AOwner) {}

std::string TjexWaveFileList::FileOf(int Index) const {
    if (Index < 0 || Index >= Items()->Count()) return {};
    std::string name = (*Items())[Index];
    if (rtl::ExtractFileExt(name).empty() && !FFileExt.empty())
        name += FFileExt[0] == '.' ? FFileExt : "." + FFileExt;
    if (FFilePath.empty() || (!name.empty() && name[0] == '/')) return name;
    return rtl::IncludeTrailingPathDelimiter(FFilePath) + name;
}

bool TjexWaveFileList::PlaySound(int Index) {
    std::string file = FileOf(Index);
    return !file.empty() && rtl::FileExists(file) && jexPlayWaveFile(file);
}

JEX_IMPLEMENT_CLASS(TjexWaveResList, TjexCustomWaveList, "jexwave") {
    PublishList(d);
    d.Property("ResourceDLL", &TjexWaveResList::ResourceDLL, &TjexWaveResList::SetResourceDLL);
}

bool TjexWaveResList::PlaySound(int Index) {
    if (Index < 0 || Index >= Items()->Count()) return false;
    TjexWaveImage sound;
    try {
        jexLoadWaveResource(FResourceDLL, (*Items())[Index], sound);
    } catch (const rtl::Exception&) {
        return false;
    }
    return jexPlayWave(sound);
}

// ---- Media players -------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomMCIPlayer, rtl::TComponent, "jexwave") {}

template <class C> static void PublishPlayer(rtl::TClassDecl<C>& d) {
    d.Property("AutoClose", &C::AutoClose, &C::SetAutoClose).Default(false);
    d.Property("AutoOpen", &C::AutoOpen, &C::SetAutoOpen).Default(false);
    d.Property("AutoRepeat", &C::AutoRepeat, &C::SetAutoRepeat).Default(false);
    d.Property("AutoRewind", &C::AutoRewind, &C::SetAutoRewind).Default(true);
    d.Property("DeviceType", &C::DeviceType, &C::SetDeviceType).Default(jdtAutoSelect);
    d.Property("Display", &C::Display, &C::SetDisplay);
    d.Property("RaiseExceptions", &C::RaiseExceptions, &C::SetRaiseExceptions).Default(true);
    d.Property("Shareable", &C::Shareable, &C::SetShareable).Default(false);
}

TjexCustomMCIPlayer::TjexCustomMCIPlayer(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}

void TjexCustomMCIPlayer::SetDisplay(TWinControl* Value) {
    pubx::SetReference(this, FDisplay, Value);
}

void TjexCustomMCIPlayer::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    rtl::TComponent::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FDisplay) FDisplay = nullptr;
}

TjexMCIDeviceType TjexCustomMCIPlayer::DeviceTypeOf(const std::string& Extension) {
    std::string e = rtl::UpperCase(Extension);
    if (e == ".WAV") return jdtWaveAudio;
    if (e == ".AVI") return jdtAVIVideo;
    if (e == ".MID" || e == ".MIDI" || e == ".RMI") return jdtSequencer;
    if (e == ".MPG" || e == ".MPEG" || e == ".MP4" || e == ".MOV") return jdtDigitalVideo;
    if (e == ".CDA") return jdtCDAudio;
    return jdtAutoSelect;
}

TjexMCIDeviceType TjexCustomMCIPlayer::ResolvedDeviceType() const {
    return FDeviceType != jdtAutoSelect ? FDeviceType : DeviceTypeOf(MediaExtension());
}

bool TjexCustomMCIPlayer::Fail(int Code, const std::string& Message) {
    FError = Code;
    FErrorMessage = Message;
    if (FRaiseExceptions) throw EjexMCIDeviceError(Message);
    return false;
}

bool TjexCustomMCIPlayer::Open() {
    FError = 0;
    FErrorMessage.clear();
    std::string file;
    try {
        file = MediaFile();
    } catch (const rtl::Exception& e) {
        return Fail(263, e.Message());
    }
    if (file.empty()) return Fail(263, "There is no media to open");
    if (!rtl::FileExists(file)) return Fail(275, "Cannot find the media file \"" + file + "\"");
    if (ResolvedDeviceType() == jdtAutoSelect)
        return Fail(266, "No media device plays files of the kind \"" + MediaExtension() + "\"");
    FOpenFile = file;
    FMode = jmmStopped;
    return true;
}

void TjexCustomMCIPlayer::Close() {
    FOpenFile.clear();
    FMode = jmmNotReady;
}

bool TjexCustomMCIPlayer::Play() {
    if (FMode == jmmNotReady) {
        if (!FAutoOpen) return Fail(263, "The media player is not open");
        if (!Open()) return false;
    }
    if (!UIInstalled()) return Fail(263, "No user interface is installed to play the media");
    if (vcl::ShellExecute("play", FOpenFile, {}, {}, SW_SHOWNORMAL) <= 32)
        return Fail(263, "The desktop could not play \"" + FOpenFile + "\"");
    // The desktop's player takes it from here; the component cannot follow its progress.
    if (FAutoClose) Close();
    return true;
}

void TjexCustomMCIPlayer::Loaded() {
    rtl::TComponent::Loaded();
    if (!FAutoOpen || IsDesigning()) return;
    // A form being read does not fail for media that is missing; the error is kept.
    bool raise = FRaiseExceptions;
    FRaiseExceptions = false;
    Open();
    FRaiseExceptions = raise;
}

JEX_IMPLEMENT_CLASS(TjexMCIFilePlayer, TjexCustomMCIPlayer, "jexwave") {
    PublishPlayer(d);
    d.Property("FileName", &TjexMCIFilePlayer::FileName, &TjexMCIFilePlayer::SetFileName);
}

void TjexMCIFilePlayer::SetFileName(const std::string& Value) {
    FFileName = Value;
    if (Mode() != jmmNotReady) Close();
}

JEX_IMPLEMENT_CLASS(TjexMCIStreamPlayer, TjexCustomMCIPlayer, "jexwave") {
    PublishPlayer(d);
    d.Property("MCIData", &TjexMCIStreamPlayer::MCIData, &TjexMCIStreamPlayer::SetMCIData);
}

TjexMCIStreamPlayer::TjexMCIStreamPlayer(rtl::TComponent* AOwner)
    : TjexCustomMCIPlayer(AOwner), FData(std::make_unique<TjexPersistentMemory>()) {
    FData->OnChange = [this](rtl::TObject*) {
        if (Mode() != jmmNotReady) Close();
    };
}

TjexMCIStreamPlayer::~TjexMCIStreamPlayer() {
    FData->OnChange = nullptr;
}

std::string TjexMCIStreamPlayer::MediaExtension() const {
    const std::vector<uint8_t>& b = FData->Bytes();
    auto at = [&](size_t i, const char* tag) {
        return b.size() >= i + 4 && std::equal(tag, tag + 4, b.begin() + i);
    };
    if (at(0, "RIFF") && at(8, "WAVE")) return ".wav";
    if (at(0, "RIFF") && at(8, "AVI ")) return ".avi";
    if (at(0, "MThd")) return ".mid";
    switch (DeviceType()) {
    case jdtWaveAudio:
        return ".wav";
    case jdtAVIVideo:
        return ".avi";
    case jdtSequencer:
        return ".mid";
    case jdtDigitalVideo:
        return ".mpg";
    default:
        return ".dat";
    }
}

std::string TjexMCIStreamPlayer::MediaFile() {
    if (FData->GetEmpty()) return {};
    // Named after the content (FNV-1a), so the same media is written once and never clobbered by another.
    uint64_t hash = 1469598103934665603ull;
    for (uint8_t b : FData->Bytes())
        hash = (hash ^ b) * 1099511628211ull;
    char name[48];
    std::snprintf(name, sizeof name, "jexmedia-%016llx", static_cast<unsigned long long>(hash));
    std::string file = (std::filesystem::temp_directory_path() / (name + MediaExtension())).string();
    if (!rtl::FileExists(file) || std::filesystem::file_size(file) != FData->Size()) FData->SaveToFile(file);
    return file;
}

static const TjexLibraryUnit<TjexWave, TjexWaveFile, TjexWaveRes, TjexWaveList, TjexWaveFileList,
                             TjexWaveResList, TjexMCIFilePlayer, TjexMCIStreamPlayer>
    jexwaveUnit("jexwave");

} // namespace jex
