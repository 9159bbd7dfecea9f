// One test over every component class the library lists: each is created on a form by its class
// reference, its published properties are moved off their defaults, the form is written to a form file
// and read back, and every published value (nested sub-objects included) must come back equal.
#include <gtest/gtest.h>

#include <set>

#include "jex/jexcommon.h"
#include "jex/jexdock.h"
#include "rtl/streaming.h"
#include "vcl/extctrls.h"
#include "vcl/forms.h"
#include "vcl/imglist.h"
#include "vcl/menus.h"
#include "vcl/stdctrls.h"
#ifdef JEX_HAVE_DB
#include "db/db.h"
#endif

using namespace jex;

namespace {

// A sound list the tests can create (the library's own lists live in other units).
class TTestSoundList : public TjexCustomSoundList {
    JEX_CLASS(TTestSoundList, TjexCustomSoundList)
    using TjexCustomSoundList::TjexCustomSoundList;
    int SoundCount() const override { return 2; }
    bool PlaySound(int) override { return true; }
};

std::string WaveBytes() {
    auto le32 = [](uint32_t v) {
        return std::string{char(v & 0xFF), char((v >> 8) & 0xFF), char((v >> 16) & 0xFF),
                           char((v >> 24) & 0xFF)};
    };
    auto le16 = [](uint16_t v) { return std::string{char(v & 0xFF), char((v >> 8) & 0xFF)}; };
    std::string data(64, '\x10');
    std::string fmt = le16(1) + le16(1) + le32(8000) + le32(8000) + le16(1) + le16(8);
    std::string body = "WAVEfmt " + le32(16) + fmt + "data" + le32(data.size()) + data;
    return "RIFF" + le32(body.size()) + body;
}

// Components that reference properties point to: one per kind, on the form.
struct THelpers {
    std::vector<rtl::TComponent*> List;
    rtl::TComponent* For(rtl::TClass cls) const {
        for (rtl::TComponent* c : List)
            if (c->ClassType()->InheritsFrom(cls)) return c;
        return nullptr;
    }
};

// Moves every writable published property of obj off its current value. Setters may refuse a value
// (a range, a state); those properties simply keep theirs.
void Perturb(rtl::TObject* obj, const THelpers& helpers, int depth) {
    if (depth > 3 || !obj) return;
    if (auto* strings = dynamic_cast<rtl::TStrings*>(obj)) {
        strings->Add("first line");
        strings->Add("second, line");
        return;
    }
    if (auto* picture = dynamic_cast<vcl::TPicture*>(obj)) {
        vcl::TBitmap bmp;
        bmp.SetSize(4, 2);
        bmp.SetPixelRGB(1, 1, vcl::RGB(200, 10, 10));
        picture->Assign(&bmp);
        return;
    }
    if (auto* bitmap = dynamic_cast<vcl::TBitmap*>(obj)) {
        bitmap->SetSize(3, 3);
        bitmap->SetPixelRGB(0, 0, vcl::RGB(1, 2, 3));
        return;
    }
    if (auto* memory = dynamic_cast<TjexPersistentMemory*>(obj)) {
        std::string bytes =
            dynamic_cast<TjexWaveImage*>(memory) ? WaveBytes() : std::string("\x01\x02\x00\xFF", 4);
        memory->SetData(bytes.data(), bytes.size());
        return;
    }
    if (auto* collection = dynamic_cast<rtl::TCollection*>(obj)) {
        try {
            Perturb(collection->Add(), helpers, depth + 1);
        } catch (const rtl::Exception&) {
        }
        return;
    }
    for (const rtl::TPropInfo* p : obj->ClassType()->Properties()) {
        // Hidden aligned controls are placed in a different order while a form loads; the platform's
        // concern, not the library's, so controls stay visible here.
        if (p->Name == "Name" || p->Name == "Visible") continue;
        try {
            switch (p->PropType->Kind) {
            case rtl::tkEnumeration: {
                if (!p->SetOrd) break;
                int64_t cur = rtl::GetOrdProp(obj, *p);
                int64_t count = static_cast<int64_t>(p->PropType->EnumNames.size());
                if (count < 2) break;
                rtl::SetOrdProp(obj, *p, (cur + 1) % count);
                break;
            }
            case rtl::tkInteger: {
                if (!p->SetOrd) break;
                int64_t cur = rtl::GetOrdProp(obj, *p);
                int64_t v = cur + 3;
                if (p->PropType->Name == "TColor") v = cur == vcl::clRed ? vcl::clBlue : vcl::clRed;
                if (p->PropType->Name == "TCursor") v = vcl::crHandPoint;
                if (p->PropType->MaxValue > p->PropType->MinValue)
                    v = std::clamp(v, p->PropType->MinValue, p->PropType->MaxValue);
                rtl::SetOrdProp(obj, *p, v);
                break;
            }
            case rtl::tkChar:
                if (p->SetOrd) rtl::SetOrdProp(obj, *p, 'x');
                break;
            case rtl::tkSet:
                if (p->SetOrd) rtl::SetOrdProp(obj, *p, rtl::GetOrdProp(obj, *p) ^ 1);
                break;
            case rtl::tkFloat:
                if (p->SetFloat) rtl::SetFloatProp(obj, *p, rtl::GetFloatProp(obj, *p) + 1.25);
                break;
            case rtl::tkString:
            case rtl::tkLString:
            case rtl::tkWString:
                if (p->SetStr) rtl::SetStrProp(obj, *p, "v" + p->Name);
                break;
            case rtl::tkMethod:
                if (p->SetMethod) rtl::SetMethodProp(obj, *p, rtl::TMethod{"Form1" + p->Name, {}});
                break;
            case rtl::tkClass: {
                rtl::TClass cls = p->PropType->ClassType;
                rtl::TObject* value = rtl::GetObjectProp(obj, *p);
                bool reference = cls->InheritsFrom(rtl::TComponent::StaticClass());
                if (reference) {
                    if (rtl::TComponent* helper = helpers.For(cls); helper && helper != obj && p->SetObj)
                        rtl::SetObjectProp(obj, *p, helper);
                } else if (value) {
                    Perturb(value, helpers, depth + 1);
                }
                break;
            }
            default:
                break;
            }
        } catch (const rtl::Exception&) {
            // The component refused this value; it keeps the one it had.
        }
    }
}

void ExpectSameValues(const rtl::TObject* a, const rtl::TObject* b, const std::string& path, int depth) {
    ASSERT_TRUE(a && b) << path;
    ASSERT_EQ(a->ClassType(), b->ClassType()) << path;
    if (depth > 4) return;
    if (auto* sa = dynamic_cast<const rtl::TStrings*>(a)) {
        EXPECT_EQ(sa->Text(), dynamic_cast<const rtl::TStrings*>(b)->Text()) << path;
        return;
    }
    if (auto* ma = dynamic_cast<const TjexPersistentMemory*>(a)) {
        EXPECT_TRUE(ma->Equals(*dynamic_cast<const TjexPersistentMemory*>(b))) << path;
        return;
    }
    if (auto* ca = dynamic_cast<const rtl::TCollection*>(a)) {
        auto* cb = dynamic_cast<const rtl::TCollection*>(b);
        ASSERT_EQ(ca->Count(), cb->Count()) << path;
        for (int i = 0; i < ca->Count(); ++i)
            ExpectSameValues(ca->Items(i), cb->Items(i), path + "[" + std::to_string(i) + "]", depth + 1);
        return;
    }
    for (const rtl::TPropInfo* p : a->ClassType()->Properties()) {
        std::string where = path + "." + p->Name;
        switch (p->PropType->Kind) {
        case rtl::tkInteger:
        case rtl::tkChar:
        case rtl::tkEnumeration:
        case rtl::tkSet:
        case rtl::tkInt64:
            EXPECT_EQ(rtl::GetOrdProp(a, *p), rtl::GetOrdProp(b, *p)) << where;
            break;
        case rtl::tkFloat:
            EXPECT_DOUBLE_EQ(rtl::GetFloatProp(a, *p), rtl::GetFloatProp(b, *p)) << where;
            break;
        case rtl::tkString:
        case rtl::tkLString:
        case rtl::tkWString:
            EXPECT_EQ(rtl::GetStrProp(a, *p), rtl::GetStrProp(b, *p)) << where;
            break;
        case rtl::tkMethod:
            EXPECT_EQ(rtl::GetMethodProp(a, *p).Name, rtl::GetMethodProp(b, *p).Name) << where;
            break;
        case rtl::tkClass: {
            rtl::TObject* va = rtl::GetObjectProp(a, *p);
            rtl::TObject* vb = rtl::GetObjectProp(b, *p);
            if (!va || !vb) {
                EXPECT_EQ(va == nullptr, vb == nullptr) << where;
            } else if (auto* comp = dynamic_cast<rtl::TComponent*>(va)) {
                EXPECT_EQ(comp->Name(), dynamic_cast<rtl::TComponent*>(vb)->Name()) << where;
            } else {
                ExpectSameValues(va, vb, where, depth + 1);
            }
            break;
        }
        default:
            break;
        }
    }
}

// The first line where two form texts differ, with its number, or empty when they are equal.
std::string FirstDifference(const std::string& a, const std::string& b) {
    std::vector<std::string> la, lb;
    rtl::TStringList sa, sb;
    sa.SetText(a);
    sb.SetText(b);
    for (int i = 0; i < std::max(sa.Count(), sb.Count()); ++i) {
        std::string x = i < sa.Count() ? sa[i] : "<end>", y = i < sb.Count() ? sb[i] : "<end>";
        if (x != y) return "line " + std::to_string(i + 1) + ": '" + x + "' / '" + y + "'";
    }
    return {};
}

class LibraryClass : public ::testing::TestWithParam<rtl::TClass> {
protected:
    void SetUp() override {
        for (rtl::TClass c : LibraryClasses())
            rtl::RegisterClass(c);
        rtl::RegisterClasses({vcl::TForm::StaticClass(), vcl::TImageList::StaticClass(), vcl::TPage::StaticClass(),
                              vcl::TPopupMenu::StaticClass(), vcl::TMainMenu::StaticClass(),
                              vcl::TMenuItem::StaticClass(), vcl::TEdit::StaticClass(),
                              TTestSoundList::StaticClass()});
#ifdef JEX_HAVE_DB
        rtl::RegisterClass(db::TDataSource::StaticClass());
#endif
    }
    void TearDown() override {
        for (rtl::TClass c : LibraryClasses())
            rtl::UnRegisterClass(c);
        rtl::UnRegisterClasses({vcl::TForm::StaticClass(), vcl::TImageList::StaticClass(), vcl::TPage::StaticClass(),
                                vcl::TPopupMenu::StaticClass(), vcl::TMainMenu::StaticClass(),
                                vcl::TMenuItem::StaticClass(), vcl::TEdit::StaticClass(),
                                TTestSoundList::StaticClass()});
#ifdef JEX_HAVE_DB
        rtl::UnRegisterClass(db::TDataSource::StaticClass());
#endif
    }

    // A form holding one component of each referenced kind.
    static vcl::TForm* NewFormWithHelpers(THelpers& helpers) {
        auto* form = new vcl::TForm(nullptr);
        form->SetName("Form1");
        auto add = [&](rtl::TComponent* c, const char* name) {
            c->SetName(name);
            if (auto* control = dynamic_cast<vcl::TControl*>(c)) control->SetParent(form);
            helpers.List.push_back(c);
        };
        auto* images = new vcl::TImageList(form);
        vcl::TBitmap strip;
        strip.SetSize(32, 16);
        images->Add(&strip, nullptr);
        add(images, "ImageList1");
        add(new vcl::TPopupMenu(form), "PopupMenu1");
        auto* menu = new vcl::TMainMenu(form);
        auto* item = new vcl::TMenuItem(form);
        item->SetCaption("&File");
        menu->Items()->Add(item);
        add(menu, "MainMenu1");
        add(item, "MenuItem1");
        add(new vcl::TEdit(form), "Edit1");
        add(new TTestSoundList(form), "SoundList1");
#ifdef JEX_HAVE_DB
        add(new db::TDataSource(form), "DataSource1");
#endif
        add(new TjexDock(form), "HelperDock");
        return form;
    }
};

TEST(LibraryClasses, ListsEveryClassOnceWithItsUnit) {
    std::vector<rtl::TClass> classes = LibraryClasses();
    ASSERT_FALSE(classes.empty());
    std::set<std::string> names;
    for (rtl::TClass c : classes) {
        EXPECT_TRUE(names.insert(c->ClassName()).second) << c->ClassName() << " listed twice";
        EXPECT_EQ(c->ClassName().rfind("Tjex", 0), 0u) << c->ClassName();
        EXPECT_FALSE(LibraryUnitOf(c).empty()) << c->ClassName();
        EXPECT_EQ(LibraryUnitOf(c), c->UnitName()) << c->ClassName() << " listed by another unit";
    }
    EXPECT_EQ(LibraryUnitOf(rtl::TComponent::StaticClass()), "");
}

TEST_P(LibraryClass, PublishesEachPropertyOnce) {
    rtl::TClass cls = GetParam();
    std::set<std::string> seen;
    for (const rtl::TPropInfo* p : cls->Properties()) {
        std::string upper = rtl::UpperCase(p->Name);
        EXPECT_TRUE(seen.insert(upper).second) << cls->ClassName() << "." << p->Name << " published twice";
        EXPECT_NE(p->PropType, nullptr) << p->Name;
        EXPECT_TRUE(p->Writable() || p->PropType->Kind == rtl::tkClass) << cls->ClassName() << "." << p->Name;
    }
}

TEST_P(LibraryClass, CreatedByReferenceStreamsBackWithTheSameValues) {
    rtl::TClass cls = GetParam();
    ASSERT_TRUE(cls->CanCreateComponent()) << cls->ClassName();
    THelpers helpers;
    vcl::TForm* form = NewFormWithHelpers(helpers);
    rtl::TComponent* component = cls->CreateComponent(form);
    ASSERT_NE(component, nullptr);
    EXPECT_EQ(component->ClassType(), cls);
    component->SetName("Subject1");
    if (auto* control = dynamic_cast<vcl::TControl*>(component)) control->SetParent(form);

    // Defaults first, then every property moved off its default.
    for (int round = 0; round < 2; ++round) {
        if (round == 1) Perturb(component, helpers, 0);
        std::string text = rtl::WriteComponentText(form);
        rtl::TComponent* read = nullptr;
        try {
            read = rtl::ReadComponentText(text, nullptr);
        } catch (const rtl::Exception& e) {
            FAIL() << e.ClassName() << ": " << e.what();
        }
        ASSERT_NE(read, nullptr);
        rtl::TComponent* copy = read->FindComponent("Subject1");
        ASSERT_NE(copy, nullptr);
        ExpectSameValues(component, copy, cls->ClassName(), 0);
        // What the copy writes is what the original wrote (defined properties included).
        EXPECT_EQ(FirstDifference(text, rtl::WriteComponentText(read)), "");
        read->Free();
    }
    form->Free();
}

TEST_P(LibraryClass, CreatedAndFreedWithoutOwner) {
    rtl::TComponent* c = GetParam()->CreateComponent(nullptr);
    ASSERT_NE(c, nullptr);
    c->SetDesigning(true);
    c->Free();
}

INSTANTIATE_TEST_SUITE_P(Jexc60, LibraryClass, ::testing::ValuesIn(LibraryClasses()),
                         [](const ::testing::TestParamInfo<rtl::TClass>& info) {
                             return info.param->ClassName();
                         });

} // namespace

JEX_IMPLEMENT_CLASS(TTestSoundList, TjexCustomSoundList, "jexclasses_test") {}
