// Tests of the common unit: memory blocks and wave images on disk and in form files, version items,
// string splitting, form-or-frame lookup and the sound references.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "jex/jexcommon.h"
#include "rtl/streaming.h"
#include "vcl/forms.h"

using namespace jex;

namespace {

std::filesystem::path TempDir() {
    auto dir = std::filesystem::temp_directory_path() /
               ("jexcommon_test_" + std::to_string(::getpid()) + "_" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(dir);
    return dir;
}

void WriteFile(const std::filesystem::path& p, const std::string& bytes) {
    std::ofstream f(p, std::ios::binary);
    f << bytes;
}

// A real PCM wave file: 8 kHz, mono, 16 bits, `samples` samples of a square wave.
std::string MakeWave(int samples) {
    auto le32 = [](uint32_t v) {
        return std::string{char(v & 0xFF), char((v >> 8) & 0xFF), char((v >> 16) & 0xFF),
                           char((v >> 24) & 0xFF)};
    };
    auto le16 = [](uint16_t v) { return std::string{char(v & 0xFF), char((v >> 8) & 0xFF)}; };
    std::string data;
    for (int i = 0; i < samples; ++i)
        data += le16((i / 8) % 2 ? 0x2000 : 0xE000);
    std::string fmt = le16(1) + le16(1) + le32(8000) + le32(16000) + le16(2) + le16(16);
    std::string body = "WAVE" + std::string("fmt ") + le32(16) + fmt + "data" + le32(data.size()) + data;
    return "RIFF" + le32(body.size()) + body;
}

// A component that owns a memory block and a wave image as published sub-objects.
class TMemoryHolder : public rtl::TComponent {
    JEX_CLASS(TMemoryHolder, rtl::TComponent)
    explicit TMemoryHolder(rtl::TComponent* owner) : rtl::TComponent(owner) {}
    TjexPersistentMemory* Memory() const { return const_cast<TjexPersistentMemory*>(&FMemory); }
    void SetMemory(TjexPersistentMemory* v) { FMemory.Assign(v); }
    TjexWaveImage* Sound() const { return const_cast<TjexWaveImage*>(&FSound); }
    void SetSound(TjexWaveImage* v) { FSound.Assign(v); }

private:
    TjexPersistentMemory FMemory;
    TjexWaveImage FSound;
};

class TSoundUser : public rtl::TComponent {
    JEX_CLASS(TSoundUser, rtl::TComponent)
    explicit TSoundUser(rtl::TComponent* owner) : rtl::TComponent(owner), FSounds(this) {}
    JEX_SOUND_ACCESSORS(FSounds)

protected:
    void Notification(rtl::TComponent* c, rtl::TOperation op) override {
        rtl::TComponent::Notification(c, op);
        FSounds.Notification(c, op);
    }

private:
    TjexSoundProps FSounds;
};

class TBeeps : public TjexCustomSoundList {
    JEX_CLASS(TBeeps, TjexCustomSoundList)
    using TjexCustomSoundList::TjexCustomSoundList;
    int SoundCount() const override { return 3; }
    bool PlaySound(int index) override {
        Played.push_back(index);
        return true;
    }
    std::vector<int> Played;
};

} // namespace

JEX_IMPLEMENT_CLASS(TMemoryHolder, rtl::TComponent, "jexcommon_test") {
    d.Property("Memory", &TMemoryHolder::Memory, &TMemoryHolder::SetMemory);
    d.Property("Sound", &TMemoryHolder::Sound, &TMemoryHolder::SetSound);
}
JEX_IMPLEMENT_CLASS(TSoundUser, rtl::TComponent, "jexcommon_test") {
    jexPublishSounds(d);
}
JEX_IMPLEMENT_CLASS(TBeeps, TjexCustomSoundList, "jexcommon_test") {}

TEST(JexCommon, EnumerationsHaveTheDesignersOrderAndCaptions) {
    const rtl::TTypeInfo* styles = TypeInfoOf(static_cast<TjexButtonStyle*>(nullptr));
    ASSERT_EQ(styles->EnumNames.size(), 19u);
    EXPECT_EQ(styles->Name, "TjexButtonStyle");
    EXPECT_EQ(jexButtonStyleCaption(jbsThin), "Thin");
    EXPECT_EQ(int(jbsThin), 3);
    EXPECT_EQ(jexButtonStyleCaption(jbsWin31), "Win 3.1");
    EXPECT_EQ(jexButtonStyleCaption(jbsRecessedBlackHighlight), "Recessed Black Highlight");
    EXPECT_EQ(jexButtonStyleCaption(static_cast<TjexButtonStyle>(19)), "");
    EXPECT_EQ(jexPictureHighlightCaption(jphDarken), "Darken");
    EXPECT_EQ(TypeInfoOf(static_cast<TjexButtonLayout*>(nullptr))->EnumNames.size(), 6u);
    EXPECT_EQ(rtl::GetEnumName(TypeInfoOf(static_cast<TjexTextStyle*>(nullptr)), jtsLowered), "jtsLowered");
}

TEST(JexCommon, DesignHooksDefaultToRunTime) {
    EXPECT_FALSE(jexDesigning);
    EXPECT_EQ(jexProjectNameFunc, nullptr);
    EXPECT_EQ(jexProjectName(), "");
    jexProjectNameFunc = [] { return std::string("Project1"); };
    EXPECT_EQ(jexProjectName(), "Project1");
    jexProjectNameFunc = nullptr;
}

TEST(JexPersistentMemory, FilesLoadSaveAndBadFilesKeepTheContent) {
    auto dir = TempDir();
    std::string bytes("\x00\x01\x02\xFFhello\r\n", 10);
    WriteFile(dir / "a.bin", bytes);
    TjexPersistentMemory m;
    int changes = 0;
    m.OnChange = [&](rtl::TObject*) { ++changes; };
    EXPECT_TRUE(m.GetEmpty());
    m.LoadFromFile((dir / "a.bin").string());
    EXPECT_EQ(m.Size(), 10u);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(m.Data()), m.Size()), bytes);
    EXPECT_EQ(changes, 1);

    EXPECT_THROW(m.LoadFromFile((dir / "missing.bin").string()), rtl::EFOpenError);
    EXPECT_THROW(m.LoadFromFile(dir.string()), rtl::EFOpenError); // a folder is not readable as a file
    EXPECT_EQ(m.Size(), 10u);
    EXPECT_EQ(changes, 1);

    m.SaveToFile((dir / "b.bin").string());
    TjexPersistentMemory copy;
    copy.LoadFromFile((dir / "b.bin").string());
    EXPECT_TRUE(copy.Equals(m));
    EXPECT_THROW(m.SaveToFile((dir / "no" / "such" / "c.bin").string()), rtl::EFCreateError);

    m.Clear();
    EXPECT_TRUE(m.GetEmpty());
    copy.Assign(nullptr);
    EXPECT_TRUE(copy.GetEmpty());
    std::filesystem::remove_all(dir);
}

TEST(JexWaveImage, AcceptsOnlyWaveSoundsAndReadsTheirFormat) {
    auto dir = TempDir();
    WriteFile(dir / "beep.wav", MakeWave(4000));
    WriteFile(dir / "text.wav", "this is not a sound at all");
    TjexWaveImage w;
    w.LoadFromFile((dir / "beep.wav").string());
    TjexWaveImage::TWaveFormat f = w.Format();
    EXPECT_EQ(f.FormatTag, 1);
    EXPECT_EQ(f.Channels, 1);
    EXPECT_EQ(f.SamplesPerSec, 8000);
    EXPECT_EQ(f.BitsPerSample, 16);
    EXPECT_EQ(f.DataSize, 8000u);
    EXPECT_EQ(w.DurationMs(), 500);

    size_t before = w.Size();
    try {
        w.LoadFromFile((dir / "text.wav").string());
        FAIL() << "a text file was taken for a wave";
    } catch (const rtl::EConvertError& e) {
        EXPECT_STREQ(e.what(), "Invalid wave data: not a RIFF WAVE file");
    }
    EXPECT_EQ(w.Size(), before);
    std::string noData = MakeWave(10).substr(0, 36);
    EXPECT_THROW(w.SetData(noData.data(), noData.size()), rtl::EConvertError);
    EXPECT_EQ(w.Size(), before);
    // A plain memory block does not check, a wave image refuses to take one that is not a sound.
    TjexPersistentMemory plain;
    plain.SetData("abc", 3);
    EXPECT_THROW(w.Assign(&plain), rtl::EConvertError);
    std::filesystem::remove_all(dir);
}

TEST(JexPersistentMemory, StreamsAsBinaryDataThroughAFormFile) {
    rtl::RegisterClass(TMemoryHolder::StaticClass());
    TMemoryHolder holder(nullptr);
    holder.SetName("Holder1");
    std::string bytes;
    for (int i = 0; i < 300; ++i)
        bytes += char(i * 7);
    holder.Memory()->SetData(bytes.data(), bytes.size());
    std::string wave = MakeWave(100);
    holder.Sound()->SetData(wave.data(), wave.size());
    std::string text = rtl::WriteComponentText(&holder);
    EXPECT_NE(text.find("Memory.Data = {"), std::string::npos) << text;
    EXPECT_NE(text.find("Sound.Data = {"), std::string::npos) << text;

    rtl::TComponent* read = rtl::ReadComponentText(text, nullptr);
    auto* back = dynamic_cast<TMemoryHolder*>(read);
    ASSERT_NE(back, nullptr);
    EXPECT_TRUE(back->Memory()->Equals(*holder.Memory()));
    EXPECT_TRUE(back->Sound()->Equals(*holder.Sound()));
    read->Free();

    // Empty blocks are left out of the form file.
    TMemoryHolder empty(nullptr);
    empty.SetName("Holder2");
    EXPECT_EQ(rtl::WriteComponentText(&empty).find("Data"), std::string::npos);
    rtl::UnRegisterClass(TMemoryHolder::StaticClass());
}

TEST(JexVersionInfoItem, ItemsKeepKeyAndCaptionAndNotify) {
    rtl::TComponent owner(nullptr);
    TjexVersionInfoItems items(&owner, TjexVersionInfoItem::StaticClass());
    int changes = 0;
    items.OnChange = [&](rtl::TObject*) { ++changes; };
    TjexVersionInfoItem* item = items.Add();
    EXPECT_EQ(changes, 1);
    item->SetKey("FileVersion");
    item->SetCaption("File Version:");
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(item->DisplayName(), "FileVersion");
    TjexVersionInfoItems copy(&owner, TjexVersionInfoItem::StaticClass());
    copy.Assign(&items);
    ASSERT_EQ(copy.Count(), 1);
    EXPECT_EQ(copy.Items(0)->Caption(), "File Version:");
    EXPECT_EQ(rtl::GetStrProp(copy.Items(0), "Key"), "FileVersion");
}

TEST(JexParseStringToList, SplitsKeepingOrDroppingEmptyParts) {
    rtl::TStringList list;
    list.Add("old");
    jexParseStringToList(",ACCELERATOR,AVI,,GROUP CURSOR,", ",", true, &list);
    ASSERT_EQ(list.Count(), 6);
    EXPECT_EQ(list[0], "");
    EXPECT_EQ(list[1], "ACCELERATOR");
    EXPECT_EQ(list[3], "");
    EXPECT_EQ(list[4], "GROUP CURSOR");
    EXPECT_EQ(list[5], "");
    jexParseStringToList(",ACCELERATOR,AVI,,GROUP CURSOR,", ",", false, &list);
    EXPECT_EQ(list.CommaText(), "ACCELERATOR,AVI,\"GROUP CURSOR\"");
    jexParseStringToList("a::b:c", "::", true, &list);
    ASSERT_EQ(list.Count(), 2);
    EXPECT_EQ(list[1], "b:c");
    jexParseStringToList("", ",", true, &list);
    EXPECT_EQ(list.Count(), 0);
    jexParseStringToList("a,b", "", true, &list);
    ASSERT_EQ(list.Count(), 1);
    EXPECT_EQ(list[0], "a,b");
}

TEST(JexParentFormorFrameOf, FindsTheNearestFormOrFrame) {
    auto* form = new vcl::TForm(nullptr);
    auto* panel = new vcl::TCustomControl(form);
    panel->SetParent(form);
    auto* frame = new vcl::TFrame(form);
    frame->SetParent(panel);
    auto* inFrame = new vcl::TCustomControl(frame);
    inFrame->SetParent(frame);
    auto* onForm = new vcl::TCustomControl(form);
    onForm->SetParent(panel);
    rtl::TComponent* nonVisual = new rtl::TComponent(frame);
    auto* unparented = new vcl::TCustomControl(form);

    EXPECT_EQ(jexParentFormorFrameOf(onForm), form);
    EXPECT_EQ(jexParentFormorFrameOf(inFrame), frame);
    EXPECT_EQ(jexParentFormorFrameOf(static_cast<rtl::TComponent*>(inFrame)), frame);
    EXPECT_EQ(jexParentFormorFrameOf(nonVisual), frame);
    EXPECT_EQ(jexParentFormorFrameOf(frame), form);
    EXPECT_EQ(jexParentFormorFrameOf(unparented), form);
    EXPECT_EQ(jexParentFormorFrameOf(form), nullptr);
    rtl::TComponent loose(nullptr);
    EXPECT_EQ(jexParentFormorFrameOf(&loose), nullptr);
    form->Free();
}

TEST(JexSoundProps, PlaysThroughTheListAndForgetsAFreedList) {
    rtl::TComponent form(nullptr);
    auto* beeps = new TBeeps(&form);
    TSoundUser user(nullptr);
    EXPECT_FALSE(user.Sounds().PlayDown());
    rtl::SetObjectProp(&user, "SoundList", beeps);
    rtl::SetOrdProp(&user, "SoundDown", 2);
    user.SetSoundOver(5);
    EXPECT_TRUE(user.Sounds().PlayDown());
    EXPECT_FALSE(user.Sounds().PlayOver()); // out of the list's range
    EXPECT_EQ(beeps->Played, std::vector<int>{2});
    EXPECT_TRUE(rtl::IsDefaultPropValue(&user, rtl::GetPropInfoOrRaise(&user, "SoundOver")) == false);
    beeps->Free();
    EXPECT_EQ(user.SoundList(), nullptr);
    EXPECT_FALSE(user.Sounds().PlayDown());
}
