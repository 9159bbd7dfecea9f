// The data-aware effects image: its picture comes from a graphic field of the current record and changes
// through the transition effect when the record changes.
#pragma once

#include "jex/jexdbctrls.h"
#include "jex/jexeffects.h"

namespace jex {

// Shows the bitmap held by DataField (a BMP file's bytes, as a graphic field keeps them); an empty field
// or a closed data set shows nothing, and bytes that are no bitmap show nothing as well (BadData tells).
class TjexDBEffectsImage : public TjexCustomEffectsImage {
    JEX_CLASS(TjexDBEffectsImage, TjexCustomEffectsImage)
    explicit TjexDBEffectsImage(rtl::TComponent* AOwner);
    ~TjexDBEffectsImage() override;
    JEX_FIELD_BINDING_ACCESSORS(FBinding)
    // Whether the current field value could not be read as a picture.
    bool BadData() const { return FBadData; }
    // Takes the field's picture again and brings it in (with the effect once the control is loaded).
    void LoadPicture();

private:
    TjexFieldBinding FBinding;
    bool FBadData = false;
};

} // namespace jex
