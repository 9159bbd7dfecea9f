// Reading gettext translation catalogues (.po) for module string resources. Private to the rtl library.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace rtl::detail {

// One usable translation: fuzzy, obsolete, plural, context-less and untranslated entries are left out.
struct TPoMessage {
    std::string Context;
    std::string MsgId;
    std::string MsgStr;
};

// Parses a catalogue's bytes, converting from the header's charset to UTF-8. On the first error returns
// false with `error` as "<fileName>:<line>: <problem>"; `messages` is then incomplete.
bool ParsePoCatalogue(std::string_view bytes, const std::string& fileName, std::vector<TPoMessage>& messages,
                      std::string& error);

} // namespace rtl::detail
