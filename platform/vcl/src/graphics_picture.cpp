// TPicture and its registry of graphic file formats, and TRawGraphic, which keeps the data of formats this
// platform cannot decode so that form files keep it.
#include <algorithm>
#include <mutex>

#include "graphics_internal.h"

namespace vcl {

using namespace detail;

namespace {

struct TFileFormat {
    std::string Extension; // without the dot
    std::string Description;
    rtl::TClass GraphicClass;
};

class TFormatRegistry {
public:
    std::vector<TFileFormat> Formats() {
        std::lock_guard<std::mutex> lock(FLock);
        Init();
        return FFormats;
    }
    void Add(TFileFormat f) {
        std::lock_guard<std::mutex> lock(FLock);
        Init();
        FFormats.push_back(std::move(f));
    }
    void Remove(rtl::TClass cls) {
        std::lock_guard<std::mutex> lock(FLock);
        Init();
        std::erase_if(FFormats, [cls](const TFileFormat& f) { return f.GraphicClass == cls; });
    }

private:
    void Init() {
        if (FInitialised) return;
        FInitialised = true;
        FFormats.push_back({"bmp", "Bitmaps", TBitmap::StaticClass()});
        FFormats.push_back({"ico", "Icons", TIcon::StaticClass()});
    }
    std::mutex FLock;
    bool FInitialised = false;
    std::vector<TFileFormat> FFormats;
};

TFormatRegistry Registry;

std::unique_ptr<TGraphic> NewGraphic(rtl::TClass cls) {
    if (!cls || !cls->InheritsFrom(TGraphic::StaticClass()) || !cls->CanCreate())
        throw rtl::EInvalidGraphic("Cannot create a graphic of class " +
                                   (cls ? cls->ClassName() : std::string("nil")));
    return std::unique_ptr<TGraphic>(static_cast<TGraphic*>(cls->Create()));
}

uint32_t BE32(const uint8_t* p) {
    return (uint32_t(p[0]) << 24) | (p[1] << 16) | (p[2] << 8) | p[3];
}

} // namespace

// ---- TRawGraphic
// -------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TRawGraphic, TGraphic, "Graphics") {}

void TRawGraphic::Assign(TPersistent* Source) {
    if (auto* g = dynamic_cast<TRawGraphic*>(Source)) {
        FFormatName = g->FFormatName;
        FBytes = g->FBytes;
        FWidth = g->FWidth;
        FHeight = g->FHeight;
        FTransparent = g->FTransparent;
        Changed();
        return;
    }
    inherited::Assign(Source);
}

void TRawGraphic::SetWidth(int) {
    throw rtl::EInvalidGraphicOperation("Cannot change the size of a " + FFormatName + " image");
}
void TRawGraphic::SetHeight(int) {
    throw rtl::EInvalidGraphicOperation("Cannot change the size of a " + FFormatName + " image");
}

void TRawGraphic::LoadFromBytes(const std::vector<uint8_t>& bytes) {
    const uint8_t* p = bytes.data();
    size_t n = bytes.size();
    int w = 0, h = 0;
    if (n >= 10 && p[0] == 'G' && p[1] == 'I' && p[2] == 'F') {
        w = p[6] | (p[7] << 8);
        h = p[8] | (p[9] << 8);
    } else if (n >= 24 && p[0] == 0x89 && p[1] == 'P' && p[2] == 'N' && p[3] == 'G') {
        w = static_cast<int>(BE32(p + 16));
        h = static_cast<int>(BE32(p + 20));
    } else if (n >= 4 && p[0] == 0xFF && p[1] == 0xD8) {
        // JPEG: walk the segments to the first start-of-frame marker.
        size_t i = 2;
        while (i + 9 < n) {
            if (p[i] != 0xFF) break;
            uint8_t marker = p[i + 1];
            if (marker == 0xFF) {
                ++i;
                continue;
            }
            size_t len = (size_t(p[i + 2]) << 8) | p[i + 3];
            if (marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC) {
                h = (p[i + 5] << 8) | p[i + 6];
                w = (p[i + 7] << 8) | p[i + 8];
                break;
            }
            i += 2 + len;
        }
    }
    FBytes = bytes;
    FWidth = std::max(w, 0);
    FHeight = std::max(h, 0);
    Changed();
}

// ---- TPicture
// ----------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TPicture, TPersistent, "Graphics") {}

TPicture::TPicture() = default;
TPicture::~TPicture() = default;

void TPicture::RegisterFileFormat(const std::string& extension, const std::string& description,
                                  rtl::TClass graphicClass) {
    std::string ext = extension;
    if (!ext.empty() && ext[0] == '.') ext.erase(0, 1);
    Registry.Add({rtl::LowerCase(ext), description, graphicClass});
}

void TPicture::UnregisterGraphicClass(rtl::TClass graphicClass) {
    Registry.Remove(graphicClass);
}

rtl::TClass TPicture::FindGraphicClass(std::string_view className) {
    for (const auto& f : Registry.Formats())
        if (rtl::SameText(f.GraphicClass->ClassName(), className)) return f.GraphicClass;
    return nullptr;
}

std::string GraphicFilter(rtl::TClass graphicClass) {
    std::string all, entries;
    for (const auto& f : Registry.Formats()) {
        if (graphicClass && !f.GraphicClass->InheritsFrom(graphicClass)) continue;
        std::string mask = "*." + f.Extension;
        if (!all.empty()) all += ";";
        all += mask;
        entries += "|" + f.Description + " (" + mask + ")|" + mask;
    }
    if (all.empty()) return {};
    return "All (" + all + ")|" + all + entries;
}

std::string GraphicExtension(rtl::TClass graphicClass) {
    for (const auto& f : Registry.Formats())
        if (f.GraphicClass == graphicClass) return f.Extension;
    return {};
}

void TPicture::Changed(TObject*) {
    OnChange(this);
}

void TPicture::Take(std::unique_ptr<TGraphic> g) {
    FGraphic = std::move(g);
    if (FGraphic) FGraphic->OnChange = rtl::TNotifyEvent([this](TObject* sender) { Changed(sender); });
    Changed(this);
}

void TPicture::SetGraphic(TGraphic* g) {
    if (g == FGraphic.get()) return;
    if (!g) {
        Take(nullptr);
        return;
    }
    auto copy = NewGraphic(g->ClassType());
    copy->Assign(g);
    Take(std::move(copy));
}

void TPicture::Assign(TPersistent* Source) {
    if (!Source) {
        SetGraphic(nullptr);
        return;
    }
    if (auto* p = dynamic_cast<TPicture*>(Source)) {
        if (p != this) SetGraphic(p->Graphic());
        return;
    }
    if (auto* g = dynamic_cast<TGraphic*>(Source)) {
        SetGraphic(g);
        return;
    }
    inherited::Assign(Source);
}

TBitmap* TPicture::Bitmap() {
    if (!dynamic_cast<TBitmap*>(FGraphic.get())) Take(std::make_unique<TBitmap>());
    return static_cast<TBitmap*>(FGraphic.get());
}

int TPicture::Width() const {
    return FGraphic ? FGraphic->Width() : 0;
}
int TPicture::Height() const {
    return FGraphic ? FGraphic->Height() : 0;
}

void TPicture::LoadFromFile(const std::string& fileName) {
    std::string ext = rtl::ExtractFileExt(fileName);
    std::string bare = rtl::LowerCase(ext.empty() ? ext : ext.substr(1));
    rtl::TClass cls = nullptr;
    for (const auto& f : Registry.Formats())
        if (f.Extension == bare) {
            cls = f.GraphicClass;
            break;
        }
    if (!cls) throw rtl::EInvalidGraphic("Unknown picture file extension (" + ext + ")");
    auto g = NewGraphic(cls);
    g->LoadFromFile(fileName);
    Take(std::move(g));
}

void TPicture::SaveToFile(const std::string& fileName) const {
    if (FGraphic) FGraphic->SaveToFile(fileName);
}

void TPicture::DefineProperties(rtl::TFiler& Filer) {
    bool hasData;
    if (auto* ancestor = dynamic_cast<TPicture*>(Filer.Ancestor)) {
        TGraphic* a = ancestor->Graphic();
        hasData = FGraphic ? !FGraphic->Equals(a) : (a != nullptr && !a->Empty());
    } else {
        hasData = FGraphic && !FGraphic->Empty();
    }
    Filer.DefineBinaryProperty(
        "Data",
        [this](const std::vector<uint8_t>& data) {
            if (data.empty()) {
                SetGraphic(nullptr);
                return;
            }
            size_t len = data[0];
            if (len == 0 || 1 + len > data.size())
                throw rtl::EInvalidGraphic("Picture data is not valid: the graphic class name is missing");
            std::string name(data.begin() + 1, data.begin() + 1 + len);
            std::vector<uint8_t> rest(data.begin() + 1 + len, data.end());
            std::unique_ptr<TGraphic> g;
            if (rtl::TClass cls = FindGraphicClass(name)) {
                g = NewGraphic(cls);
            } else {
                auto raw = std::make_unique<TRawGraphic>();
                raw->SetFormatName(name);
                g = std::move(raw);
            }
            g->ReadData(rest);
            Take(std::move(g));
        },
        [this](std::vector<uint8_t>& data) {
            if (!FGraphic) return;
            std::string name = FGraphic->ClassName();
            if (auto* raw = dynamic_cast<TRawGraphic*>(FGraphic.get())) name = raw->FormatName();
            name.resize(std::min<size_t>(name.size(), 255));
            data.push_back(static_cast<uint8_t>(name.size()));
            data.insert(data.end(), name.begin(), name.end());
            FGraphic->WriteData(data);
        },
        hasData);
}

} // namespace vcl
