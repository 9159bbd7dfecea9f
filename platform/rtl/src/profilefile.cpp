// Profile files: parsing that keeps unchanged lines byte for byte, in-place edits, and a cache keyed by path
// that is refreshed when the file's identity, size or times change.
#include "profilefile.h"

#include <sys/stat.h>

#include <ctime>
#include <map>
#include <memory>
#include <mutex>

#include "rtl/sysutils.h"

namespace rtl::detail {

// ---- TProfileDocument -----------------------------------------------------------------------------------
void TProfileDocument::Parse(std::string_view bytes) {
    FIndexValid = false;
    FLines.clear();
    FBom.clear();
    FNewEol = "\r\n";
    if (bytes.substr(0, 3) == "\xEF\xBB\xBF") {
        FBom = bytes.substr(0, 3);
        bytes.remove_prefix(3);
    }
    FAnsi = !IsValidUtf8(bytes);
    bool eolSeen = false;
    size_t i = 0, n = bytes.size();
    while (i < n) {
        size_t start = i;
        while (i < n && bytes[i] != '\r' && bytes[i] != '\n')
            ++i;
        TProfileLine line;
        line.Raw = bytes.substr(start, i - start);
        if (i < n) {
            size_t len = (bytes[i] == '\r' && i + 1 < n && bytes[i + 1] == '\n') ? 2 : 1;
            line.Eol = bytes.substr(i, len);
            i += len;
            if (!eolSeen) FNewEol = line.Eol, eolSeen = true;
        }
        line.Text = FAnsi ? Cp1252ToUtf8(line.Raw) : line.Raw;
        Classify(line);
        FLines.push_back(std::move(line));
    }
}

std::string TProfileDocument::Serialize() const {
    std::string out = FBom;
    for (const TProfileLine& l : FLines) {
        out += l.Raw;
        out += l.Eol;
    }
    return out;
}

void TProfileDocument::Classify(TProfileLine& line) const {
    line.Kind = TProfileLine::lkOther;
    line.Name.clear();
    line.ValueStart = 0;
    std::string t = Trim(line.Text);
    if (t.empty()) {
        line.Kind = TProfileLine::lkBlank;
    } else if (t[0] == ';') {
        line.Kind = TProfileLine::lkComment;
    } else if (t[0] == '[') {
        size_t close = t.find(']');
        line.Kind = TProfileLine::lkSection;
        line.Name =
            Trim(std::string_view(t).substr(1, close == std::string::npos ? std::string::npos : close - 1));
    } else if (size_t eq = line.Text.find('='); eq != std::string::npos) {
        std::string name = Trim(std::string_view(line.Text).substr(0, eq));
        if (!name.empty()) {
            line.Kind = TProfileLine::lkKey;
            line.Name = std::move(name);
            line.ValueStart = eq + 1;
        }
    }
}

void TProfileDocument::SetText(TProfileLine& line, std::string text) {
    FIndexValid = false;
    if (FAnsi && Cp1252ToUtf8(Utf8ToCp1252(text)) != text) {
        // The new text has characters Windows-1252 lacks: the file becomes UTF-8 rather than lose them.
        // Other lines keep their meaning, only their bytes change.
        FAnsi = false;
        for (TProfileLine& l : FLines)
            l.Raw = l.Text;
    }
    line.Raw = FAnsi ? Utf8ToCp1252(text) : text;
    line.Text = std::move(text);
    Classify(line);
}

void TProfileDocument::InsertLine(size_t at, std::string text) {
    FIndexValid = false;
    TProfileLine line;
    line.Eol = FNewEol;
    if (at == FLines.size() && !FLines.empty() && FLines.back().Eol.empty()) {
        // Keep a missing final line break missing: the new last line takes it over.
        FLines.back().Eol = FNewEol;
        line.Eol.clear();
    }
    auto it = FLines.insert(FLines.begin() + static_cast<ptrdiff_t>(at), std::move(line));
    SetText(*it, std::move(text));
}

void TProfileDocument::BuildIndex() const {
    FSectionIndex.clear();
    FKeyIndex.clear();
    int header = -1;
    for (size_t i = 0; i < FLines.size(); ++i) {
        const TProfileLine& l = FLines[i];
        if (l.Kind == TProfileLine::lkSection) {
            header = static_cast<int>(i);
            FSectionIndex.emplace(UpperCase(l.Name), header); // keeps the first of equal names
        } else if (l.Kind == TProfileLine::lkKey && header >= 0) {
            FKeyIndex.emplace(KeyIndexName(header, l.Name), static_cast<int>(i));
        }
    }
    FIndexValid = true;
}

std::string TProfileDocument::KeyIndexName(int header, std::string_view key) {
    return std::to_string(header) + '\x01' + UpperCase(key);
}

int TProfileDocument::FindSection(std::string_view name) const {
    if (!FIndexValid) BuildIndex();
    auto it = FSectionIndex.find(UpperCase(Trim(name)));
    return it == FSectionIndex.end() ? -1 : it->second;
}

int TProfileDocument::SectionEnd(int header) const {
    size_t i = static_cast<size_t>(header) + 1;
    while (i < FLines.size() && FLines[i].Kind != TProfileLine::lkSection)
        ++i;
    return static_cast<int>(i);
}

int TProfileDocument::FindKey(int header, std::string_view key) const {
    if (header < 0) return -1;
    if (!FIndexValid) BuildIndex();
    auto it = FKeyIndex.find(KeyIndexName(header, Trim(key)));
    return it == FKeyIndex.end() ? -1 : it->second;
}

std::string TProfileDocument::RawValue(int line) const {
    const TProfileLine& l = FLines[static_cast<size_t>(line)];
    return Trim(std::string_view(l.Text).substr(l.ValueStart));
}

std::vector<std::string> TProfileDocument::SectionNames() const {
    std::vector<std::string> names;
    for (const TProfileLine& l : FLines) {
        if (l.Kind != TProfileLine::lkSection) continue;
        bool seen = false;
        for (const std::string& n : names)
            seen = seen || SameText(n, l.Name);
        if (!seen) names.push_back(l.Name);
    }
    return names;
}

std::vector<std::string> TProfileDocument::KeyNames(int header) const {
    std::vector<std::string> names;
    if (header < 0) return names;
    for (int i = header + 1, end = SectionEnd(header); i < end; ++i) {
        const TProfileLine& l = FLines[i];
        if (l.Kind != TProfileLine::lkKey) continue;
        bool seen = false;
        for (const std::string& n : names)
            seen = seen || SameText(n, l.Name);
        if (!seen) names.push_back(l.Name);
    }
    return names;
}

void TProfileDocument::AppendSection(std::string_view section) {
    // A blank line sets the new section apart from the one before it.
    if (!FLines.empty() && FLines.back().Kind != TProfileLine::lkBlank) InsertLine(FLines.size(), "");
    InsertLine(FLines.size(), "[" + std::string(section) + "]");
}

void TProfileDocument::SetValue(std::string_view section, std::string_view key, std::string_view valueText) {
    int h = FindSection(section);
    if (h < 0) {
        AppendSection(Trim(section));
        InsertLine(FLines.size(), Trim(key) + "=" + std::string(valueText));
        return;
    }
    int k = FindKey(h, key);
    if (k >= 0) {
        // Keep the key as spelt in the file and the blanks around '='; only the value changes.
        TProfileLine& l = FLines[static_cast<size_t>(k)];
        size_t v = l.ValueStart;
        while (v < l.Text.size() && (l.Text[v] == ' ' || l.Text[v] == '\t'))
            ++v;
        SetText(l, l.Text.substr(0, v) + std::string(valueText));
        return;
    }
    int at = h;
    for (int i = h + 1, end = SectionEnd(h); i < end; ++i)
        if (FLines[i].Kind == TProfileLine::lkKey) at = i;
    InsertLine(static_cast<size_t>(at) + 1, Trim(key) + "=" + std::string(valueText));
}

bool TProfileDocument::DeleteKey(std::string_view section, std::string_view key) {
    int h = FindSection(section);
    bool removed = false;
    for (int k; (k = FindKey(h, key)) >= 0; removed = true) {
        bool wasLast = static_cast<size_t>(k) + 1 == FLines.size();
        std::string eol = FLines[static_cast<size_t>(k)].Eol;
        FLines.erase(FLines.begin() + k);
        FIndexValid = false;
        if (wasLast && !FLines.empty() && eol.empty()) FLines.back().Eol.clear();
    }
    return removed;
}

bool TProfileDocument::EraseSections(const std::function<bool(const std::string&)>& match) {
    bool removed = false;
    for (size_t i = 0; i < FLines.size();) {
        if (FLines[i].Kind == TProfileLine::lkSection && match(FLines[i].Name)) {
            size_t end = static_cast<size_t>(SectionEnd(static_cast<int>(i)));
            bool keepNoFinalBreak = end == FLines.size() && FLines.back().Eol.empty();
            FLines.erase(FLines.begin() + static_cast<ptrdiff_t>(i),
                         FLines.begin() + static_cast<ptrdiff_t>(end));
            if (i == FLines.size()) {
                // The blank lines that set the last section apart go with it.
                while (!FLines.empty() && FLines.back().Kind == TProfileLine::lkBlank)
                    FLines.pop_back();
            }
            if (keepNoFinalBreak && !FLines.empty()) FLines.back().Eol.clear();
            FIndexValid = false;
            removed = true;
        } else {
            ++i;
        }
    }
    return removed;
}

void TProfileDocument::EnsureSection(std::string_view section) {
    if (FindSection(section) < 0) AppendSection(Trim(section));
}

// ---- The cache --------------------------------------------------------------------------------------------
namespace {

struct TFileStamp {
    bool Exists = false;
    dev_t Dev = 0;
    ino_t Ino = 0;
    off_t Size = 0;
    timespec MTime{}, CTime{};
    bool operator==(const TFileStamp& o) const {
        return Exists == o.Exists && Dev == o.Dev && Ino == o.Ino && Size == o.Size &&
               MTime.tv_sec == o.MTime.tv_sec && MTime.tv_nsec == o.MTime.tv_nsec &&
               CTime.tv_sec == o.CTime.tv_sec && CTime.tv_nsec == o.CTime.tv_nsec;
    }
};

TFileStamp StampOf(const std::string& path) {
    TFileStamp s;
    struct stat st;
    if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) return s;
    s.Exists = true;
    s.Dev = st.st_dev;
    s.Ino = st.st_ino;
    s.Size = st.st_size;
    s.MTime = st.st_mtim;
    s.CTime = st.st_ctim;
    return s;
}

// A file changed less than one timestamp tick ago may change again without its stamp changing, so such a
// file is compared by content as well. Linux file systems stamp from a clock of a few milliseconds; one that
// keeps whole seconds only (no nanoseconds in either time) gets two seconds.
bool RecentlyChanged(const TFileStamp& s) {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    auto ns = [](const timespec& t) { return static_cast<int64_t>(t.tv_sec) * 1000000000 + t.tv_nsec; };
    int64_t window = (s.MTime.tv_nsec == 0 && s.CTime.tv_nsec == 0) ? 2000000000 : 100000000;
    return ns(now) - ns(s.MTime) < window || ns(now) - ns(s.CTime) < window;
}

struct TCacheEntry {
    TFileStamp Stamp;
    std::string Bytes;
    bool Readable = true;
    TProfileDocument Doc;
};

std::mutex gProfileLock;
std::map<std::string, std::unique_ptr<TCacheEntry>> gProfiles;

// The up-to-date entry of a file; the lock is held by the caller.
TCacheEntry& Current(const std::string& path) {
    std::unique_ptr<TCacheEntry>& slot = gProfiles[path];
    TFileStamp stamp = StampOf(path);
    if (slot && slot->Stamp == stamp && !RecentlyChanged(stamp)) return *slot;
    auto fresh = std::make_unique<TCacheEntry>();
    fresh->Stamp = stamp;
    if (stamp.Exists) {
        try {
            fresh->Bytes = ReadFileBytes(path);
        } catch (const EInOutError&) {
            fresh->Readable = false;
        }
    }
    if (slot && slot->Readable && fresh->Readable && slot->Bytes == fresh->Bytes &&
        slot->Stamp.Exists == stamp.Exists) {
        slot->Stamp = stamp;
        return *slot;
    }
    fresh->Doc.Parse(fresh->Bytes);
    slot = std::move(fresh);
    return *slot;
}

} // namespace

void ReadProfile(const std::string& path, const std::function<void(const TProfileDocument&)>& read) {
    std::lock_guard<std::mutex> lock(gProfileLock);
    read(Current(path).Doc);
}

void ChangeProfile(const std::string& path, const std::function<bool(TProfileDocument&)>& change) {
    std::lock_guard<std::mutex> lock(gProfileLock);
    const std::string& key = path;
    TCacheEntry& entry = Current(key);
    if (!entry.Readable) throw EFOpenError(Format(SFOpenError, {path}));
    TProfileDocument doc = entry.Doc;
    if (!change(doc)) return;
    std::string bytes = doc.Serialize();
    std::string dir = ExtractFileDir(key);
    if (!dir.empty() && !DirectoryExists(dir) && !ForceDirectories(dir))
        throw EFCreateError(Format(SFCreateError, {path}));
    WriteFileBytes(key, bytes);
    entry.Doc = std::move(doc);
    entry.Bytes = std::move(bytes);
    entry.Stamp = StampOf(key);
}

void FlushProfile(const std::string& path) {
    std::lock_guard<std::mutex> lock(gProfileLock);
    gProfiles.erase(path);
}

std::string UnquoteProfileValue(std::string v) {
    if (v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.back() == v.front())
        return v.substr(1, v.size() - 2);
    return v;
}

bool EncodeProfileValue(const std::string& value, std::string& text) {
    if (value.find_first_of("\r\n") != std::string::npos) return false;
    bool blankEnds = !value.empty() && (static_cast<unsigned char>(value.front()) <= ' ' ||
                                        static_cast<unsigned char>(value.back()) <= ' ');
    bool quoted = UnquoteProfileValue(value).size() != value.size();
    text = blankEnds || quoted ? "\"" + value + "\"" : value;
    return true;
}

bool IsProfileKeyName(std::string_view name) {
    std::string k = Trim(name);
    return !k.empty() && name.find_first_of("\r\n") == std::string_view::npos &&
           k.find('=') == std::string::npos && k[0] != ';' && k[0] != '[';
}

std::string ResolveProfilePath(const std::string& fileName) {
    if (!fileName.empty() && ExtractFilePath(fileName).empty())
        return ExpandFileName(IncludeTrailingPathDelimiter(GetSystemDirectory()) + fileName);
    return ExpandFileName(fileName);
}

} // namespace rtl::detail
