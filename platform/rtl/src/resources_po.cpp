// Reading gettext catalogues (.po) for module string resources.
// Parsed here rather than with the gettext parsing library: that library loses memory on every read and
// keeps process-wide parser state, and catalogues are re-read whenever a translator saves one.
#include "resources_po.h"

#include <iconv.h>

#include <algorithm>
#include <cctype>
#include <set>

#include "rtl/sysutils.h"

namespace rtl::detail {
namespace {

struct TRawMessage {
    TPoMessage Message;
    int Line = 0;
};

class TPoParser {
public:
    TPoParser(std::string_view bytes, const std::string& fileName) : FText(bytes), FFileName(fileName) {}

    bool Run(std::vector<TPoMessage>& messages, std::string& error) {
        if (FText.substr(0, 3) == "\xEF\xBB\xBF") FText.remove_prefix(3);
        if (size_t nul = FText.find('\0'); nul != std::string_view::npos)
            return Fail(1 + int(std::count(FText.begin(), FText.begin() + nul, '\n')),
                        "NUL byte in catalogue", error);
        size_t pos = 0;
        while (pos <= FText.size() && !FFailed) {
            size_t end = FText.find('\n', pos);
            if (end == std::string_view::npos) end = FText.size();
            std::string_view line = FText.substr(pos, end - pos);
            if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
            ++FLine;
            Line(line);
            if (end == FText.size()) break;
            pos = end + 1;
        }
        if (!FFailed) EndEntry();
        if (!FFailed) Convert(messages);
        if (FFailed) error = FError;
        return !FFailed;
    }

private:
    // The entry being read; `Current` is the field that continuation strings append to.
    struct TEntry {
        bool HasContext = false, HasId = false, HasPlural = false, HasStr = false, Fuzzy = false;
        std::string Context, Id, Str, Ignored;
        int Line = 0;
        std::string* Current = nullptr;
        bool Started() const { return HasContext || HasId; }
    };

    bool Fail(int line, const std::string& problem, std::string& error) {
        Fail(line, problem);
        error = FError;
        return false;
    }
    void Fail(int line, const std::string& problem) {
        if (FFailed) return;
        FFailed = true;
        FError = FFileName + ":" + std::to_string(line) + ": " + problem;
    }

    static size_t SkipBlanks(std::string_view s, size_t pos) {
        while (pos < s.size() && (s[pos] == ' ' || s[pos] == '\t' || s[pos] == '\f' || s[pos] == '\v'))
            ++pos;
        return pos;
    }

    void Line(std::string_view line) {
        size_t pos = SkipBlanks(line, 0);
        if (pos == line.size()) return;
        if (line[pos] == '#') {
            // Comments belong to the next entry, so the current one is complete.
            if (FEntry.Started() && !EndEntry()) return;
            FEntry.Current = nullptr;
            if (line.substr(pos, 2) == "#,") ReadFlags(line.substr(pos + 2));
            return; // "#~" obsolete entries, "#|" previous strings and other comments are not used
        }
        if (line[pos] == '"') {
            if (!FEntry.Current) return Fail(FLine, "string without a keyword before it");
            ReadStrings(line, pos, *FEntry.Current);
            return;
        }
        size_t start = pos;
        while (pos < line.size() && (std::isalpha(static_cast<unsigned char>(line[pos])) || line[pos] == '_'))
            ++pos;
        std::string keyword(line.substr(start, pos - start));
        int index = -1;
        if (pos < line.size() && line[pos] == '[') {
            size_t close = line.find(']', pos);
            if (close == std::string_view::npos || close == pos + 1)
                return Fail(FLine, "invalid plural index");
            index = 0;
            for (size_t i = pos + 1; i < close; ++i) {
                if (!std::isdigit(static_cast<unsigned char>(line[i])) || index > 1000)
                    return Fail(FLine, "invalid plural index");
                index = index * 10 + (line[i] - '0');
            }
            pos = close + 1;
        }
        std::string* field = Keyword(keyword, index);
        if (FFailed) return;
        pos = SkipBlanks(line, pos);
        if (pos >= line.size() || line[pos] != '"')
            return Fail(FLine, "'" + keyword + "' is not followed by a string");
        field->clear();
        FEntry.Current = field;
        ReadStrings(line, pos, *field);
    }

    // Checks that `keyword` may come now and returns the field it fills.
    std::string* Keyword(const std::string& keyword, int index) {
        TEntry& e = FEntry;
        bool plainKeyword = index < 0;
        if (keyword == "msgctxt" && plainKeyword) {
            if (e.Started() && !EndEntry()) return nullptr;
            e.HasContext = true;
            e.Line = FLine;
            return &e.Context;
        }
        if (keyword == "msgid" && plainKeyword) {
            if (e.HasId && !EndEntry()) return nullptr;
            if (!e.HasContext) e.Line = FLine;
            e.HasId = true;
            return &e.Id;
        }
        if (keyword == "msgid_plural" && plainKeyword) {
            if (!e.HasId || e.HasPlural || e.HasStr) return Misplaced(keyword);
            e.HasPlural = true;
            return &e.Ignored;
        }
        if (keyword == "msgstr") {
            if (!e.HasId) return Misplaced(keyword);
            if (e.HasPlural != !plainKeyword) {
                Fail(FLine, e.HasPlural ? "a plural message needs 'msgstr[n]'"
                                        : "'msgstr[n]' without 'msgid_plural'");
                return nullptr;
            }
            if (plainKeyword && e.HasStr) return Misplaced(keyword);
            e.HasStr = true;
            return index > 0 ? &e.Ignored : &e.Str;
        }
        Fail(FLine, "unknown keyword '" + keyword + "'");
        return nullptr;
    }

    std::string* Misplaced(const std::string& keyword) {
        Fail(FLine, "'" + keyword + "' is out of place");
        return nullptr;
    }

    void ReadFlags(std::string_view flags) {
        size_t pos = 0;
        while (pos < flags.size()) {
            size_t comma = flags.find(',', pos);
            if (comma == std::string_view::npos) comma = flags.size();
            if (Trim(flags.substr(pos, comma - pos)) == "fuzzy") FEntry.Fuzzy = true;
            pos = comma + 1;
        }
    }

    // One or more "..." strings up to the end of the line, appended to `out`.
    void ReadStrings(std::string_view line, size_t pos, std::string& out) {
        while (pos < line.size()) {
            if (line[pos] != '"') return Fail(FLine, "unexpected text after a string");
            ++pos;
            for (;;) {
                if (pos >= line.size()) return Fail(FLine, "end of line within a string");
                char c = line[pos++];
                if (c == '"') break;
                if (c != '\\') {
                    out += c;
                    continue;
                }
                if (pos >= line.size()) return Fail(FLine, "end of line within a string");
                if (!Escape(line, pos, out)) return;
            }
            pos = SkipBlanks(line, pos);
        }
    }

    bool Escape(std::string_view line, size_t& pos, std::string& out) {
        char c = line[pos++];
        switch (c) {
        case 'n':
            out += '\n';
            return true;
        case 't':
            out += '\t';
            return true;
        case 'r':
            out += '\r';
            return true;
        case 'a':
            out += '\a';
            return true;
        case 'b':
            out += '\b';
            return true;
        case 'f':
            out += '\f';
            return true;
        case 'v':
            out += '\v';
            return true;
        case '\\':
        case '"':
        case '\'':
        case '?':
            out += c;
            return true;
        case 'x': {
            unsigned value = 0;
            size_t digits = 0;
            while (pos < line.size() && std::isxdigit(static_cast<unsigned char>(line[pos]))) {
                char h = line[pos++];
                value = value * 16 +
                        (std::isdigit(static_cast<unsigned char>(h)) ? h - '0' : (h | 0x20) - 'a' + 10);
                if (++digits > 2) break;
            }
            if (digits == 0 || digits > 2) {
                Fail(FLine, "invalid \\x escape");
                return false;
            }
            out += static_cast<char>(value);
            return true;
        }
        default:
            if (c >= '0' && c <= '7') {
                unsigned value = c - '0';
                for (int i = 0; i < 2 && pos < line.size() && line[pos] >= '0' && line[pos] <= '7'; ++i)
                    value = value * 8 + (line[pos++] - '0');
                if (value > 0xFF || value == 0) {
                    Fail(FLine, "invalid octal escape");
                    return false;
                }
                out += static_cast<char>(value);
                return true;
            }
            Fail(FLine, std::string("invalid escape sequence '\\") + c + "'");
            return false;
        }
    }

    // Completes the current entry; false (and failed) when it lacks its translation or repeats one.
    bool EndEntry() {
        TEntry e = std::move(FEntry);
        FEntry = TEntry();
        if (!e.Started()) return true;
        if (!e.HasId) {
            Fail(e.Line, "'msgctxt' without 'msgid'");
            return false;
        }
        if (!e.HasStr) {
            Fail(e.Line, "message without 'msgstr'");
            return false;
        }
        std::string key = (e.HasContext ? "c" + e.Context : std::string("-")) + '\x04' + e.Id;
        if (!FKeys.insert(std::move(key)).second) {
            Fail(e.Line, "duplicate message definition");
            return false;
        }
        if (!e.HasContext && e.Id.empty()) {
            ReadCharset(e.Str);
            FCharsetLine = e.Line;
            return true;
        }
        if (e.Fuzzy || e.HasPlural || !e.HasContext || e.Str.empty()) return true;
        FMessages.push_back({{std::move(e.Context), std::move(e.Id), std::move(e.Str)}, e.Line});
        return true;
    }

    void ReadCharset(const std::string& header) {
        std::string lower = LowerCase(header);
        size_t at = lower.find("charset=");
        if (at == std::string::npos) return;
        size_t start = at + 8, end = start;
        while (end < header.size() && !std::isspace(static_cast<unsigned char>(header[end])) &&
               header[end] != ';')
            ++end;
        FCharset = UpperCase(header.substr(start, end - start));
    }

    void Convert(std::vector<TPoMessage>& messages) {
        static const std::set<std::string> utf8Names = {"",      "UTF-8",    "UTF8",          "CHARSET",
                                                        "ASCII", "US-ASCII", "ANSI_X3.4-1968"};
        bool isUtf8 = utf8Names.count(FCharset) != 0;
        iconv_t cd = (iconv_t)-1;
        if (!isUtf8) {
            cd = iconv_open("UTF-8", FCharset.c_str());
            if (cd == (iconv_t)-1) return Fail(FCharsetLine, "unsupported charset '" + FCharset + "'");
        }
        for (TRawMessage& raw : FMessages) {
            for (std::string* s : {&raw.Message.Context, &raw.Message.MsgId, &raw.Message.MsgStr}) {
                if (isUtf8 ? IsValidUtf8(*s) : Recode(cd, *s)) continue;
                Fail(raw.Line, isUtf8 ? "text is not valid UTF-8" : "text is not valid " + FCharset);
                break;
            }
            if (FFailed) break;
            messages.push_back(std::move(raw.Message));
        }
        if (cd != (iconv_t)-1) iconv_close(cd);
    }

    static bool Recode(iconv_t cd, std::string& s) {
        iconv(cd, nullptr, nullptr, nullptr, nullptr);
        std::string out(s.size() * 4 + 16, '\0');
        char* in = s.data();
        size_t inLeft = s.size();
        char* o = out.data();
        size_t outLeft = out.size();
        // Every source byte becomes at most 4 UTF-8 bytes, so the buffer never runs out.
        if (iconv(cd, &in, &inLeft, &o, &outLeft) == (size_t)-1) return false;
        if (iconv(cd, nullptr, nullptr, &o, &outLeft) == (size_t)-1) return false;
        out.resize(out.size() - outLeft);
        s = std::move(out);
        return true;
    }

    std::string_view FText;
    const std::string& FFileName;
    int FLine = 0;
    bool FFailed = false;
    std::string FError;
    TEntry FEntry;
    std::string FCharset;
    int FCharsetLine = 0;
    std::set<std::string> FKeys;
    std::vector<TRawMessage> FMessages;
};

} // namespace

bool ParsePoCatalogue(std::string_view bytes, const std::string& fileName, std::vector<TPoMessage>& messages,
                      std::string& error) {
    return TPoParser(bytes, fileName).Run(messages, error);
}

} // namespace rtl::detail
