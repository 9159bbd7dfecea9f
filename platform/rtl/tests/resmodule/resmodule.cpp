// jexresmod: a loadable module with strings, a bitmap and raw data in its resource table, as a package
// declares them, for the resource tests.
#include "rtl/resources.h"

JEX_MODULE("jexresmod")

JEX_RESOURCESTRING(_sresCapFirst, "First");
JEX_RESOURCESTRING_ID(_sresCapNext, 65293, "Next");
JEX_RESOURCESTRING(_sresMultiLine, "Line one\nLine \"two\"\tend");

namespace {

// A 2x2 24-bit BMP: blue, green / red, white (rows bottom-up, each padded to 4 bytes).
const unsigned char Glyph[] = {
    'B',  'M',  70,   0,    0,    0,    0,  0, 0, 0, 54,   0,    0, 0, // file header
    40,   0,    0,    0,    2,    0,    0,  0, 2, 0, 0,    0,    1, 0, // info header
    24,   0,    0,    0,    0,    0,    16, 0, 0, 0, 0x13, 0x0B, 0, 0, //
    0x13, 0x0B, 0,    0,    0,    0,    0,  0, 0, 0, 0,    0,          //
    0xFF, 0,    0,    0,    0xFF, 0,    0,  0,                         // blue, green
    0,    0,    0xFF, 0xFF, 0xFF, 0xFF, 0,  0,                         // red, white
};
const unsigned char PackageInfo[] = {0x01, 0x00, 0x00, 0x00, 0x03, 'j', 'e', 'x', 0x00};
const char16_t Description[] = u"Resource test module";
const unsigned char NotABitmap[] = "GIF89a";

// Generated code registers tables like this; a string table's entries have numbers only.
[[maybe_unused]] const bool Registered = [] {
    rtl::TResourceModule& m = jexThisModule();
    m.AddString("", 4711, "Only by number");
    m.AddBitmap("TJEXGLYPH", Glyph, sizeof Glyph);
    m.AddRawData("PACKAGEINFO", PackageInfo, sizeof PackageInfo);
    m.AddRawData("DESCRIPTION", Description, sizeof Description - sizeof(char16_t));
    m.AddBitmap("BROKEN", NotABitmap, sizeof NotABitmap); // refused, and reported
    return true;
}();

} // namespace

// Lets the tests resolve the module's own resource strings from outside.
extern "C" __attribute__((visibility("default"))) const rtl::TResourceString* ResModString(int which) {
    switch (which) {
    case 0:
        return &_sresCapFirst;
    case 1:
        return &_sresCapNext;
    default:
        return &_sresMultiLine;
    }
}
