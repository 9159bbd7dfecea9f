// Sounds and media players: a sound kept in the form, in a file or in a module's resources; numbered
// lists of such sounds (the sound lists buttons and labels refer to); and media players for a file or
// for media data kept in the form. Playing goes to the desktop through the user-interface service (the
// shell's "play" verb); nothing here claims that a sound played when the desktop did not take it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "jex/jexcommon.h"
#include "vcl/controls.h"

namespace rtl {
class TResourceModule;
}

namespace jex {

// How a sound is asked to play (the desktop's player decides what it can honour).
JEX_ENUM(TjexPlayOption, jwpAsync, jwpSync, jwpLoop)

// The module a resource name is looked up in: the one registered under ModuleName, or the host's when
// the name is empty; nil when there is none.
rtl::TResourceModule* jexResourceModule(const std::string& ModuleName);
// The wave resource Name of a module into Sound; raises EResNotFound when there is none and what the
// wave check raises for data that is no wave.
void jexLoadWaveResource(const std::string& ModuleName, const std::string& Name, TjexWaveImage& Sound);

// ---- Single sounds ----------------------------------------------------------------------------------------
class TjexCustomWave : public rtl::TComponent {
    JEX_CLASS(TjexCustomWave, rtl::TComponent)
    using rtl::TComponent::TComponent;
    TjexPlayOption PlayOption() const { return FPlayOption; }
    void SetPlayOption(TjexPlayOption Value) { FPlayOption = Value; }
    // Hands the sound to the desktop; true when it started.
    virtual bool Play() = 0;

private:
    TjexPlayOption FPlayOption = jwpAsync;
};

// A sound kept in the form file.
class TjexWave : public TjexCustomWave {
    JEX_CLASS(TjexWave, TjexCustomWave)
    explicit TjexWave(rtl::TComponent* AOwner);
    ~TjexWave() override;
    TjexWaveImage* Sound() const { return FSound.get(); }
    void SetSound(TjexWaveImage* Value) { FSound->Assign(Value); }
    bool Play() override;

private:
    std::unique_ptr<TjexWaveImage> FSound;
};

// A sound in a wave file (not played when the file does not exist).
class TjexWaveFile : public TjexCustomWave {
    JEX_CLASS(TjexWaveFile, TjexCustomWave)
    using TjexCustomWave::TjexCustomWave;
    std::string FileName() const { return FFileName; }
    void SetFileName(const std::string& Value) { FFileName = Value; }
    bool Play() override;

private:
    std::string FFileName;
};

// A sound among a module's raw resources (ResourceDLL: the module's name, empty for the host's).
class TjexWaveRes : public TjexCustomWave {
    JEX_CLASS(TjexWaveRes, TjexCustomWave)
    using TjexCustomWave::TjexCustomWave;
    std::string ResourceDLL() const { return FResourceDLL; }
    void SetResourceDLL(const std::string& Value) { FResourceDLL = Value; }
    std::string ResourceName() const { return FResourceName; }
    void SetResourceName(const std::string& Value) { FResourceName = Value; }
    // Plays the resource; false (not raising) when it cannot be found or is no wave.
    bool Play() override;

private:
    std::string FResourceDLL, FResourceName;
};

// ---- Sound lists
// ------------------------------------------------------------------------------------------- A list of
// sounds by number: one line of Items per sound, ItemIndex the current one (Play plays it).
class TjexCustomWaveList : public TjexCustomSoundList {
    JEX_CLASS(TjexCustomWaveList, TjexCustomSoundList)
    explicit TjexCustomWaveList(rtl::TComponent* AOwner);
    ~TjexCustomWaveList() override;
    rtl::TStrings* Items() const { return FItems.get(); }
    void SetItems(rtl::TStrings* Value) { FItems->Assign(Value); }
    int ItemIndex() const { return FItemIndex; }
    void SetItemIndex(int Value);
    TjexPlayOption PlayOption() const { return FPlayOption; }
    void SetPlayOption(TjexPlayOption Value) { FPlayOption = Value; }
    int SoundCount() const override { return FItems->Count(); }
    bool Play() { return PlaySound(FItemIndex); }

private:
    std::unique_ptr<rtl::TStringList> FItems;
    int FItemIndex = -1;
    TjexPlayOption FPlayOption = jwpAsync;
};

// Sounds kept in the form file, one per line of Items (the line names it). The form file holds them as
// "WaveData".
class TjexWaveList : public TjexCustomWaveList {
    JEX_CLASS(TjexWaveList, TjexCustomWaveList)
    explicit TjexWaveList(rtl::TComponent* AOwner);
    ~TjexWaveList() override;
    // The sound of line Index (empty until one is loaded); raises EListError outside the lines.
    TjexWaveImage* Sounds(int Index);
    // Adds a line with a sound read from a wave file; the line's index.
    int AddFromFile(const std::string& Name, const std::string& FileName);
    bool PlaySound(int Index) override;
    void DefineProperties(rtl::TFiler& Filer) override;

private:
    std::vector<std::unique_ptr<TjexWaveImage>> FSounds;
};

// Wave files: line I names a file in FilePath, FileExt added to a name without extension.
class TjexWaveFileList : public TjexCustomWaveList {
    JEX_CLASS(TjexWaveFileList, TjexCustomWaveList)
    explicit TjexWaveFileList(rtl::TComponent* AOwner);
    std::string FileExt() const { return FFileExt; }
    void SetFileExt(const std::string& Value) { FFileExt = Value; }
    std::string FilePath() const { return FFilePath; }
    void SetFilePath(const std::string& Value) { FFilePath = Value; }
    std::string FileOf(int Index) const;
    bool PlaySound(int Index) override;

private:
    std::string FFileExt = ".wav";
    std::string FFilePath;
};

// Wave resources of one module: line I names a resource.
class TjexWaveResList : public TjexCustomWaveList {
    JEX_CLASS(TjexWaveResList, TjexCustomWaveList)
    using TjexCustomWaveList::TjexCustomWaveList;
    std::string ResourceDLL() const { return FResourceDLL; }
    void SetResourceDLL(const std::string& Value) { FResourceDLL = Value; }
    bool PlaySound(int Index) override;

private:
    std::string FResourceDLL;
};

// ---- Media players -------------------------------------------------------------------------------------
JEX_ENUM(TjexMCIDeviceType, jdtAutoSelect, jdtAVIVideo, jdtCDAudio, jdtDAT, jdtDigitalVideo, jdtMMMovie,
         jdtOther, jdtOverlay, jdtScanner, jdtSequencer, jdtVCR, jdtVideodisc, jdtWaveAudio)
JEX_ENUM(TjexMCIMode, jmmNotReady, jmmStopped, jmmPlaying, jmmRecording, jmmSeeking, jmmPaused, jmmOpen)

// A media device that could not be opened or used.
class EjexMCIDeviceError : public rtl::Exception {
public:
    using Exception::Exception;
    const char* ClassName() const noexcept override { return "EjexMCIDeviceError"; }
};

// Base of the media players. Open checks the media (it must exist and its device type must be known,
// from DeviceType or, with jdtAutoSelect, from the file's extension); Play opens when needed (AutoOpen) and
// hands the media to the desktop. A failure raises EjexMCIDeviceError with RaiseExceptions, otherwise it
// is kept in Error / ErrorMessage and the call returns false. Display names the window a video is meant
// for.
class TjexCustomMCIPlayer : public rtl::TComponent {
    JEX_CLASS(TjexCustomMCIPlayer, rtl::TComponent)
    explicit TjexCustomMCIPlayer(rtl::TComponent* AOwner);
    bool AutoClose() const { return FAutoClose; }
    void SetAutoClose(bool Value) { FAutoClose = Value; }
    bool AutoOpen() const { return FAutoOpen; }
    void SetAutoOpen(bool Value) { FAutoOpen = Value; }
    bool AutoRepeat() const { return FAutoRepeat; }
    void SetAutoRepeat(bool Value) { FAutoRepeat = Value; }
    bool AutoRewind() const { return FAutoRewind; }
    void SetAutoRewind(bool Value) { FAutoRewind = Value; }
    TjexMCIDeviceType DeviceType() const { return FDeviceType; }
    void SetDeviceType(TjexMCIDeviceType Value) { FDeviceType = Value; }
    vcl::TWinControl* Display() const { return FDisplay; }
    void SetDisplay(vcl::TWinControl* Value);
    bool RaiseExceptions() const { return FRaiseExceptions; }
    void SetRaiseExceptions(bool Value) { FRaiseExceptions = Value; }
    bool Shareable() const { return FShareable; }
    void SetShareable(bool Value) { FShareable = Value; }

    TjexMCIMode Mode() const { return FMode; }
    int Error() const { return FError; }
    std::string ErrorMessage() const { return FErrorMessage; }
    // The device type the media is opened with (DeviceType, or what the extension says).
    TjexMCIDeviceType ResolvedDeviceType() const;
    static TjexMCIDeviceType DeviceTypeOf(const std::string& Extension);
    bool Open();
    void Close();
    bool Play();
    void Loaded() override;

protected:
    // The file the media is in (a stream player writes its data to one); empty when there is none.
    virtual std::string MediaFile() = 0;
    virtual std::string MediaExtension() const = 0;
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;
    bool Fail(int Code, const std::string& Message);

private:
    bool FAutoClose = false, FAutoOpen = false, FAutoRepeat = false, FAutoRewind = true;
    TjexMCIDeviceType FDeviceType = jdtAutoSelect;
    vcl::TWinControl* FDisplay = nullptr;
    bool FRaiseExceptions = true, FShareable = false;
    TjexMCIMode FMode = jmmNotReady;
    int FError = 0;
    std::string FErrorMessage;
    std::string FOpenFile;
};

class TjexMCIFilePlayer : public TjexCustomMCIPlayer {
    JEX_CLASS(TjexMCIFilePlayer, TjexCustomMCIPlayer)
    using TjexCustomMCIPlayer::TjexCustomMCIPlayer;
    std::string FileName() const { return FFileName; }
    void SetFileName(const std::string& Value);

protected:
    std::string MediaFile() override { return FFileName; }
    std::string MediaExtension() const override { return rtl::ExtractFileExt(FFileName); }

private:
    std::string FFileName;
};

// Media data kept in the form file; playing writes it once to a file in the temporary folder named by
// its content, with the extension its kind calls for (RIFF WAVE, RIFF AVI, MIDI) or DeviceType's.
class TjexMCIStreamPlayer : public TjexCustomMCIPlayer {
    JEX_CLASS(TjexMCIStreamPlayer, TjexCustomMCIPlayer)
    explicit TjexMCIStreamPlayer(rtl::TComponent* AOwner);
    ~TjexMCIStreamPlayer() override;
    TjexPersistentMemory* MCIData() const { return FData.get(); }
    void SetMCIData(TjexPersistentMemory* Value) { FData->Assign(Value); }

protected:
    std::string MediaFile() override;
    std::string MediaExtension() const override;

private:
    std::unique_ptr<TjexPersistentMemory> FData;
};

} // namespace jex
