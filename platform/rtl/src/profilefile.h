// Profile (INI) files as line lists that keep every byte they do not change, and the process-wide cache
// that TIniFile and TRegistry read through. Private to the rtl library.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace rtl::detail {

struct TProfileLine {
    enum TKind { lkOther, lkBlank, lkComment, lkSection, lkKey };
    std::string Raw;  // the bytes of the line as in the file, without its break
    std::string Eol;  // "\r\n", "\n", "\r", or "" for a last line without a break
    std::string Text; // Raw as UTF-8
    TKind Kind = lkOther;
    std::string Name;      // section or key name, blanks trimmed
    size_t ValueStart = 0; // for a key: offset in Text just after '='
};

class TProfileDocument {
public:
    void Parse(std::string_view bytes);
    std::string Serialize() const;

    // Header line of the first section of that name (ignoring case), or -1. Only the first of several
    // sections of one name is read, as with the platform's profile functions.
    int FindSection(std::string_view name) const;
    int SectionEnd(int header) const; // the next header's line, or the line count
    int FindKey(int header, std::string_view key) const;
    // A key line's value with the blanks around it removed (quotes kept).
    std::string RawValue(int line) const;
    std::vector<std::string> SectionNames() const; // each name once, in file order
    std::vector<std::string> KeyNames(int header) const;

    // Sets or adds key=valueText (valueText as it is to appear in the file); a new key goes after the last
    // key of its section, a new section at the end of the file.
    void SetValue(std::string_view section, std::string_view key, std::string_view valueText);
    bool DeleteKey(std::string_view section, std::string_view key);
    // Removes every section the predicate accepts, with all its lines. Returns whether any was removed.
    bool EraseSections(const std::function<bool(const std::string&)>& match);
    void EnsureSection(std::string_view section);

    const std::vector<TProfileLine>& Lines() const { return FLines; }

private:
    void SetText(TProfileLine& line, std::string text);
    void Classify(TProfileLine& line) const;
    void InsertLine(size_t at, std::string text);
    void AppendSection(std::string_view section);
    // Lookup tables by upper-case name, rebuilt on first use after a change.
    void BuildIndex() const;
    static std::string KeyIndexName(int header, std::string_view key);
    mutable bool FIndexValid = false;
    mutable std::unordered_map<std::string, int> FSectionIndex;
    mutable std::unordered_map<std::string, int> FKeyIndex;

    std::vector<TProfileLine> FLines;
    std::string FBom;
    bool FAnsi = false;           // the file is Windows-1252, not UTF-8
    std::string FNewEol = "\r\n"; // line break of new lines: the file's own, CR LF for a new file
};

// `path` is absolute and normalised (see ResolveProfilePath); it names the cache entry.
// Runs `read` on the current contents of the file (re-read only when it changed on disk). A missing or
// unreadable file reads as empty.
void ReadProfile(const std::string& path, const std::function<void(const TProfileDocument&)>& read);
// Runs `change` on a copy of the current contents; when it returns true the file is written at once
// (creating its folder) and becomes the cached contents. Raises EFOpenError when an existing file cannot
// be read (it would be lost) and EFCreateError when it cannot be written; the file is then unchanged.
void ChangeProfile(const std::string& path, const std::function<bool(TProfileDocument&)>& change);
// Forgets the cached copy of the file.
void FlushProfile(const std::string& path);

// A value as read: one matching pair of double or single quotes removed.
std::string UnquoteProfileValue(std::string value);
// A value as written so that it reads back unchanged: in double quotes when it has blanks at either end or
// is itself quoted. False when no line can hold it (a line break).
bool EncodeProfileValue(const std::string& value, std::string& text);
// A name a key line can hold: not empty, no '=', no line break, not starting like a comment or a section.
bool IsProfileKeyName(std::string_view name);

// The absolute, normalised path of a profile file; a name without a directory lives in the system directory.
std::string ResolveProfilePath(const std::string& fileName);

} // namespace rtl::detail
