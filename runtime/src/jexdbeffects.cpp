// The data-aware effects image.
#ifdef JEX_HAVE_DB

#include "jex/jexdbeffects.h"

#include "jexeffectspub.h"

namespace jex {

using namespace vcl;

JEX_IMPLEMENT_CLASS(TjexDBEffectsImage, TjexCustomEffectsImage, "jexdbeffects") {
    jexPublishEffectsImage(d, false);
    d.Property("DataField", &TjexDBEffectsImage::DataField, &TjexDBEffectsImage::SetDataField);
    d.Property("DataSource", &TjexDBEffectsImage::DataSource, &TjexDBEffectsImage::SetDataSource);
}

TjexDBEffectsImage::TjexDBEffectsImage(rtl::TComponent* AOwner) : TjexCustomEffectsImage(AOwner) {
    FBinding.Link()->SetControl(this);
    FBinding.OnDataChange = [this] { LoadPicture(); };
    FBinding.OnActiveChange = [this] { LoadPicture(); };
}

TjexDBEffectsImage::~TjexDBEffectsImage() {
    FBinding.OnDataChange = nullptr;
    FBinding.OnActiveChange = nullptr;
}

void TjexDBEffectsImage::LoadPicture() {
    if (IsDestroying()) return;
    std::string bytes;
    db::TField* field = FBinding.Field();
    if (field && FBinding.Active() && !field->IsNull()) bytes = field->AsString();
    FBadData = false;
    TBitmap bmp;
    if (!bytes.empty()) {
        try {
            bmp.LoadFromBytes(std::vector<uint8_t>(bytes.begin(), bytes.end()));
        } catch (const rtl::Exception&) {
            FBadData = true;
        }
    }
    // The picture is not part of the form file here; the field is.
    if (bmp.Empty())
        Picture()->Assign(nullptr);
    else
        Picture()->Assign(&bmp);
    if (!IsLoading() && !IsDesigning()) Execute();
}

static const TjexLibraryUnit<TjexDBEffectsImage> jexdbeffectsUnit("jexdbeffects");

} // namespace jex

#endif // JEX_HAVE_DB
