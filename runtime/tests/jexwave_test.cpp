// Tests of the sounds, sound lists and media players: what reaches the desktop (through the scripted
// user interface), what is refused, module resources, and sounds kept in form files.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "jex/jexwave.h"
#include "rtl/resources.h"
#include "rtl/streaming.h"
#include "vcl/extctrls.h"
#include "vcl/forms.h"
#include "vcl/scripted_ui.h"

using namespace jex;
using namespace vcl;

namespace {

std::string Wave(int samples) {
    auto le32 = [](uint32_t v) {
        return std::string{char(v & 0xFF), char((v >> 8) & 0xFF), char((v >> 16) & 0xFF),
                           char((v >> 24) & 0xFF)};
    };
    std::string data(samples, '\x80');
    std::string fmt =
        std::string("\x01\x00\x01\x00", 4) + le32(8000) + le32(8000) + std::string("\x01\x00\x08\x00", 4);
    return "RIFF" + le32(36 + data.size()) + "WAVEfmt " + le32(16) + fmt + "data" + le32(data.size()) + data;
}

class WaveTest : public ::testing::Test {
protected:
    void SetUp() override {
        dir = std::filesystem::temp_directory_path() /
              ("jexwave_test_" + std::to_string(::getpid()) + "_" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(dir);
        std::ofstream(dir / "ding.wav", std::ios::binary) << Wave(100);
        std::ofstream(dir / "notes.txt") << "not a sound";
    }
    void TearDown() override { std::filesystem::remove_all(dir); }
    std::string P(const std::string& name) const { return (dir / name).string(); }
    std::filesystem::path dir;
};

TEST_F(WaveTest, SoundsGoToTheDesktopOnlyWhenThereIsOne) {
    TjexWave wave(nullptr);
    EXPECT_FALSE(wave.Play()); // no user interface, no sound
    TScriptedUI ui;
    EXPECT_FALSE(wave.Play()); // nothing to play
    wave.Sound()->LoadFromFile(P("ding.wav"));
    EXPECT_TRUE(wave.Play());
    ASSERT_EQ(ui.ShellExecutes().size(), 1u);
    EXPECT_EQ(ui.ShellExecutes()[0].Verb, "play");
    EXPECT_EQ(ui.ShellExecutes()[0].ShowCmd, SW_HIDE);
    ui.ShellExecuteResult = 31; // the desktop has no player
    EXPECT_FALSE(wave.Play());

    TjexWaveFile file(nullptr);
    file.SetFileName(P("missing.wav"));
    ui.ShellExecuteResult = 42;
    EXPECT_FALSE(file.Play());
    file.SetFileName(P("ding.wav"));
    EXPECT_TRUE(file.Play());
    EXPECT_EQ(ui.ShellExecutes().back().File, P("ding.wav"));
}

TEST_F(WaveTest, ResourceSoundsComeFromTheirModule) {
    TScriptedUI ui;
    rtl::TResourceModule module("jexwave_testres");
    std::string wave = Wave(20);
    module.AddRawData("CHIME", wave.data(), wave.size());
    module.AddRawData("BROKEN", "xyz", 3);
    rtl::RegisterModule(&module);
    TjexWaveRes res(nullptr);
    res.SetResourceDLL("jexwave_testres");
    res.SetResourceName("chime");
    EXPECT_TRUE(res.Play());
    res.SetResourceName("BROKEN");
    EXPECT_FALSE(res.Play());
    TjexWaveImage sound;
    EXPECT_THROW(jexLoadWaveResource("jexwave_testres", "NOPE", sound), rtl::EResNotFound);
    EXPECT_THROW(jexLoadWaveResource("jexwave_testres", "BROKEN", sound), rtl::EConvertError);

    TjexWaveResList list(nullptr);
    list.SetResourceDLL("jexwave_testres");
    list.Items()->SetText("CHIME\nNOPE");
    EXPECT_EQ(list.SoundCount(), 2);
    EXPECT_TRUE(list.PlaySound(0));
    EXPECT_FALSE(list.PlaySound(1));
    EXPECT_FALSE(list.PlaySound(2));
    rtl::UnregisterModule(&module);
}

TEST_F(WaveTest, WaveListsKeepTheirSoundsInTheFormFile) {
    rtl::RegisterClasses({TForm::StaticClass(), TjexWaveList::StaticClass()});
    TScriptedUI ui;
    auto* form = new TForm(nullptr);
    form->SetName("Form1");
    auto* list = new TjexWaveList(form);
    list->SetName("Sounds1");
    EXPECT_EQ(list->AddFromFile("Ding", P("ding.wav")), 0);
    EXPECT_THROW(list->AddFromFile("Text", P("notes.txt")), rtl::EConvertError);
    EXPECT_EQ(list->SoundCount(), 1);
    list->Items()->Add("Silent");
    list->SetItemIndex(1);
    EXPECT_FALSE(list->Play()); // the second line has no sound yet
    list->SetItemIndex(0);
    EXPECT_TRUE(list->Play());
    EXPECT_THROW(list->Sounds(5), rtl::EListError);

    std::string text = rtl::WriteComponentText(form);
    EXPECT_NE(text.find("WaveData = {"), std::string::npos);
    auto* copy = rtl::ReadComponentText(text, nullptr);
    auto* list2 = dynamic_cast<TjexWaveList*>(copy->FindComponent("Sounds1"));
    ASSERT_NE(list2, nullptr);
    EXPECT_EQ(list2->Items()->Text(), "Ding\r\nSilent\r\n");
    EXPECT_TRUE(list2->Sounds(0)->Equals(*list->Sounds(0)));
    EXPECT_TRUE(list2->Sounds(1)->GetEmpty());
    EXPECT_EQ(list2->ItemIndex(), 0);
    copy->Free();
    // Data that is cut short (one sound of 16 bytes announced, none there) is refused.
    EXPECT_THROW(rtl::ReadComponentText("object Form1: TForm\r\n  object Sounds1: TjexWaveList\r\n"
                                        "    WaveData = {0100000010000000}\r\n  end\r\nend\r\n",
                                        nullptr),
                 rtl::EReadError);
    form->Free();
    rtl::UnRegisterClasses({TForm::StaticClass(), TjexWaveList::StaticClass()});
}

TEST_F(WaveTest, WaveFileListsNameFilesInTheirFolder) {
    TScriptedUI ui;
    TjexWaveFileList list(nullptr);
    list.SetFilePath(dir.string());
    list.Items()->SetText("ding\nother.wav\n/abs/x");
    EXPECT_EQ(list.FileOf(0), P("ding.wav"));
    EXPECT_EQ(list.FileOf(1), P("other.wav"));
    EXPECT_EQ(list.FileOf(2), "/abs/x.wav");
    EXPECT_TRUE(list.PlaySound(0));
    EXPECT_FALSE(list.PlaySound(1));
    list.SetFileExt("snd");
    EXPECT_EQ(list.FileOf(0), P("ding.snd"));
}

TEST_F(WaveTest, MediaPlayersOpenOnlyWhatExistsAndIsKnown) {
    TjexMCIFilePlayer player(nullptr);
    player.SetFileName(P("missing.avi"));
    EXPECT_THROW(player.Open(), EjexMCIDeviceError);
    player.SetRaiseExceptions(false);
    EXPECT_FALSE(player.Open());
    EXPECT_EQ(player.Error(), 275);
    EXPECT_NE(player.ErrorMessage().find("missing.avi"), std::string::npos);
    player.SetFileName(P("notes.txt"));
    EXPECT_FALSE(player.Open());
    EXPECT_EQ(player.Error(), 266);
    player.SetDeviceType(jdtOther);
    EXPECT_TRUE(player.Open());
    EXPECT_EQ(player.Mode(), jmmStopped);
    player.SetDeviceType(jdtAutoSelect);
    player.SetFileName(P("ding.wav"));
    EXPECT_EQ(player.Mode(), jmmNotReady);
    EXPECT_EQ(player.ResolvedDeviceType(), jdtWaveAudio);
    EXPECT_FALSE(player.Play()); // not open, no AutoOpen
    player.SetAutoOpen(true);
    EXPECT_FALSE(player.Play()); // no user interface
    TScriptedUI ui;
    EXPECT_TRUE(player.Play());
    EXPECT_EQ(ui.ShellExecutes().back().File, P("ding.wav"));

    auto* display = new TPanel(nullptr);
    player.SetDisplay(display);
    display->Free();
    EXPECT_EQ(player.Display(), nullptr);
}

TEST_F(WaveTest, StreamPlayersWriteTheirDataToAFileOfItsKind) {
    TScriptedUI ui;
    TjexMCIStreamPlayer player(nullptr);
    EXPECT_THROW(player.Open(), EjexMCIDeviceError);
    player.MCIData()->LoadFromFile(P("ding.wav"));
    ASSERT_TRUE(player.Open());
    EXPECT_TRUE(player.Play());
    std::string file = ui.ShellExecutes().back().File;
    EXPECT_EQ(rtl::ExtractFileExt(file), ".wav");
    std::ifstream in(file, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), {});
    EXPECT_EQ(bytes, Wave(100));
    player.MCIData()->SetData("MThd", 4);
    EXPECT_EQ(player.Mode(), jmmNotReady);
    player.SetAutoOpen(true);
    EXPECT_TRUE(player.Play());
    EXPECT_EQ(rtl::ExtractFileExt(ui.ShellExecutes().back().File), ".mid");
}

} // namespace
