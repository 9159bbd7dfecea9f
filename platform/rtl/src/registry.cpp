// TRegistry over the shared profile-file cache: keys are sections named by their full path, values are
// lines, and a key exists when its own section or one of a key below it does.
#include "rtl/registry.h"

#include "profilefile.h"

namespace rtl {

using detail::TProfileDocument;

JEX_IMPLEMENT_CLASS(TRegistry, TObject, "Registry") {}

namespace {

constexpr const char* SRegGetDataFailed = "Failed to get data for '%s'";
constexpr const char* SRegSetDataFailed = "Failed to set data for '%s'";
constexpr const char* SInvalidRegType = "Invalid data type for '%s'";
constexpr const char* SRegCreateFailed = "Failed to create key %s";
constexpr const char* SDefaultValueName = "@"; // the unnamed value, as registry export files write it

const char* RootName(HKEY key) {
    switch (key) {
    case HKEY_CLASSES_ROOT:
        return "HKEY_CLASSES_ROOT";
    case HKEY_CURRENT_USER:
        return "HKEY_CURRENT_USER";
    case HKEY_LOCAL_MACHINE:
        return "HKEY_LOCAL_MACHINE";
    case HKEY_USERS:
        return "HKEY_USERS";
    case HKEY_CURRENT_CONFIG:
        return "HKEY_CURRENT_CONFIG";
    default:
        return nullptr;
    }
}

bool StartsWithText(std::string_view s, std::string_view prefix) {
    return s.size() >= prefix.size() && SameText(s.substr(0, prefix.size()), prefix);
}

// True for the section of `key` itself and for the sections of keys below it.
bool InTree(std::string_view section, std::string_view key) {
    return SameText(section, key) ||
           (section.size() > key.size() && section[key.size()] == '\\' && StartsWithText(section, key));
}

std::string ValueKey(const std::string& name) {
    return name.empty() ? SDefaultValueName : name;
}

bool ParseDword(std::string_view raw, int32_t& value) {
    if (!StartsWithText(raw, "dword:")) return false;
    std::string_view digits = raw.substr(6);
    if (digits.empty() || digits.size() > 8) return false;
    uint32_t v = 0;
    for (char c : digits) {
        int d = (c >= '0' && c <= '9')   ? c - '0'
                : (c >= 'a' && c <= 'f') ? c - 'a' + 10
                : (c >= 'A' && c <= 'F') ? c - 'A' + 10
                                         : -1;
        if (d < 0) return false;
        v = v * 16 + static_cast<uint32_t>(d);
    }
    value = static_cast<int32_t>(v);
    return true;
}

} // namespace

struct TRegistry::TValue {
    TRegDataType Type = rdUnknown;
    std::string Str;
    int32_t Int = 0;
};

TRegistry::TRegistry() : FFile(detail::ResolveProfilePath("registry.ini")) {}

void TRegistry::SetRootKey(HKEY value) {
    if (!RootName(value)) throw ERegistryException("Invalid root key");
    FRootKey = value;
    CloseKey();
}

std::string TRegistry::Resolve(const std::string& Key, bool& valid) const {
    // Empty parts ("a\\b\") are dropped; a part with blanks at its ends or a character a section header
    // cannot hold makes the path invalid.
    valid = true;
    bool absolute = !Key.empty() && Key[0] == '\\';
    std::string path;
    size_t i = 0;
    while (i <= Key.size()) {
        size_t j = Key.find('\\', i);
        if (j == std::string::npos) j = Key.size();
        std::string part = Key.substr(i, j - i);
        if (!part.empty()) {
            if (Trim(part) != part || part.find_first_of("]\r\n") != std::string::npos) valid = false;
            if (!path.empty()) path += '\\';
            path += part;
        }
        i = j + 1;
    }
    if (!absolute && FOpen && !FCurrentPath.empty())
        path = path.empty() ? FCurrentPath : FCurrentPath + "\\" + path;
    return path;
}

std::string TRegistry::Section(const std::string& path) const {
    std::string s = RootName(FRootKey);
    if (!path.empty()) s += "\\" + path;
    return s;
}

bool TRegistry::Exists(const std::string& path) const {
    if (path.empty()) return true; // a root key always exists
    std::string sec = Section(path);
    bool found = false;
    detail::ReadProfile(FFile, [&](const TProfileDocument& doc) {
        for (const std::string& name : doc.SectionNames())
            if (InTree(name, sec)) {
                found = true;
                break;
            }
    });
    return found;
}

bool TRegistry::OpenKey(const std::string& Key, bool CanCreate) {
    bool valid;
    std::string path = Resolve(Key, valid);
    if (!valid) return false;
    if (!Exists(path)) {
        bool relative = Key.empty() || Key[0] != '\\';
        if (!CanCreate || (FReadOnly && FOpen && relative)) return false;
        try {
            detail::ChangeProfile(FFile, [&](TProfileDocument& doc) {
                doc.EnsureSection(Section(path));
                return true;
            });
        } catch (const EInOutError&) {
            return false; // as on the platform, a key that cannot be created is simply not opened
        }
    }
    FOpen = true;
    FReadOnly = false;
    FCurrentPath = path;
    return true;
}

bool TRegistry::OpenKeyReadOnly(const std::string& Key) {
    bool valid;
    std::string path = Resolve(Key, valid);
    if (!valid || !Exists(path)) return false;
    FOpen = true;
    FReadOnly = true;
    FCurrentPath = path;
    return true;
}

void TRegistry::CloseKey() {
    FOpen = false;
    FReadOnly = false;
    FCurrentPath.clear();
}

bool TRegistry::CreateKey(const std::string& Key) {
    bool valid;
    std::string path = Resolve(Key, valid);
    if (!valid || path.empty()) throw ERegistryException(Format(SRegCreateFailed, {Key}));
    if (Exists(path)) return true;
    try {
        detail::ChangeProfile(FFile, [&](TProfileDocument& doc) {
            doc.EnsureSection(Section(path));
            return true;
        });
    } catch (const EInOutError& e) {
        throw ERegistryException(Format(SRegCreateFailed, {Key}) + " (" + e.Message() + ")");
    }
    return true;
}

bool TRegistry::KeyExists(const std::string& Key) const {
    bool valid;
    std::string path = Resolve(Key, valid);
    return valid && Exists(path);
}

bool TRegistry::DeleteKey(const std::string& Key) {
    bool valid;
    std::string path = Resolve(Key, valid);
    bool relative = Key.empty() || Key[0] != '\\';
    if (!valid || path.empty() || (FReadOnly && FOpen && relative) || !Exists(path)) return false;
    std::string sec = Section(path);
    detail::ChangeProfile(FFile, [&](TProfileDocument& doc) {
        return doc.EraseSections([&](const std::string& name) { return InTree(name, sec); });
    });
    // The open key went with it: nothing may write it back into existence.
    if (FOpen && InTree(Section(FCurrentPath), sec)) CloseKey();
    return true;
}

void TRegistry::GetKeyNames(TStrings* Strings) const {
    std::vector<std::string> names;
    if (FOpen) {
        std::string prefix = Section(FCurrentPath) + "\\";
        detail::ReadProfile(FFile, [&](const TProfileDocument& doc) {
            for (const std::string& sec : doc.SectionNames()) {
                if (sec.size() <= prefix.size() || !StartsWithText(sec, prefix)) continue;
                std::string child = sec.substr(prefix.size(), sec.find('\\', prefix.size()) - prefix.size());
                if (child.empty()) continue;
                bool seen = false;
                for (const std::string& n : names)
                    seen = seen || SameText(n, child);
                if (!seen) names.push_back(child);
            }
        });
    }
    Strings->BeginUpdate();
    try {
        Strings->Clear();
        Strings->AddStrings(names);
    } catch (...) {
        Strings->EndUpdate();
        throw;
    }
    Strings->EndUpdate();
}

bool TRegistry::HasSubKeys() const {
    TStringList names;
    GetKeyNames(&names);
    return names.Count() > 0;
}

bool TRegistry::Lookup(const std::string& Name, TValue& value) const {
    if (!FOpen) return false;
    std::string key = ValueKey(Name);
    if (!detail::IsProfileKeyName(key)) return false;
    bool found = false;
    detail::ReadProfile(FFile, [&](const TProfileDocument& doc) {
        int k = doc.FindKey(doc.FindSection(Section(FCurrentPath)), key);
        if (k < 0) return;
        found = true;
        std::string raw = doc.RawValue(k);
        if (ParseDword(raw, value.Int)) {
            value.Type = rdInteger;
            return;
        }
        value.Type = rdString;
        value.Str = detail::UnquoteProfileValue(raw);
        if (StartsWithText(value.Str, "sz:")) value.Str.erase(0, 3);
    });
    return found;
}

bool TRegistry::ValueExists(const std::string& Name) const {
    TValue v;
    return Lookup(Name, v);
}

TRegDataType TRegistry::GetDataType(const std::string& Name) const {
    TValue v;
    return Lookup(Name, v) ? v.Type : rdUnknown;
}

void TRegistry::GetValueNames(TStrings* Strings) const {
    std::vector<std::string> names;
    if (FOpen) {
        detail::ReadProfile(FFile, [&](const TProfileDocument& doc) {
            names = doc.KeyNames(doc.FindSection(Section(FCurrentPath)));
        });
        for (std::string& n : names)
            if (n == SDefaultValueName) n.clear();
    }
    Strings->BeginUpdate();
    try {
        Strings->Clear();
        Strings->AddStrings(names);
    } catch (...) {
        Strings->EndUpdate();
        throw;
    }
    Strings->EndUpdate();
}

bool TRegistry::DeleteValue(const std::string& Name) {
    if (!FOpen || FReadOnly) return false;
    bool removed = false;
    std::string sec = Section(FCurrentPath), key = ValueKey(Name);
    detail::ChangeProfile(FFile, [&](TProfileDocument& doc) { return removed = doc.DeleteKey(sec, key); });
    return removed;
}

void TRegistry::CheckWritable(const std::string& Name) const {
    if (!FOpen || FReadOnly || !detail::IsProfileKeyName(ValueKey(Name)))
        throw ERegistryException(Format(SRegSetDataFailed, {Name}));
}

namespace {
void PutValue(const std::string& file, const std::string& section, const std::string& name,
              const std::string& key, const std::string& text) {
    try {
        detail::ChangeProfile(file, [&](TProfileDocument& doc) {
            int k = doc.FindKey(doc.FindSection(section), key);
            if (k >= 0 && doc.RawValue(k) == text) return false;
            doc.SetValue(section, key, text);
            return true;
        });
    } catch (const EInOutError& e) {
        throw ERegistryException(Format(SRegSetDataFailed, {name}) + " (" + e.Message() + ")");
    }
}
} // namespace

std::string TRegistry::ReadString(const std::string& Name) const {
    TValue v;
    // As on the platform, a missing string value reads as empty; only a value of another type is an error.
    if (!Lookup(Name, v)) return {};
    if (v.Type != rdString) throw ERegistryException(Format(SInvalidRegType, {Name}));
    return v.Str;
}

void TRegistry::WriteString(const std::string& Name, const std::string& Value) {
    CheckWritable(Name);
    // A string that would read as typed text keeps an explicit "sz:" mark.
    std::string plain =
        StartsWithText(Value, "sz:") || StartsWithText(Value, "dword:") ? "sz:" + Value : Value;
    std::string text;
    if (!detail::EncodeProfileValue(plain, text)) throw ERegistryException(Format(SRegSetDataFailed, {Name}));
    PutValue(FFile, Section(FCurrentPath), Name, ValueKey(Name), text);
}

int32_t TRegistry::ReadInteger(const std::string& Name) const {
    TValue v;
    if (!Lookup(Name, v)) throw ERegistryException(Format(SRegGetDataFailed, {Name}));
    if (v.Type != rdInteger) throw ERegistryException(Format(SInvalidRegType, {Name}));
    return v.Int;
}

void TRegistry::WriteInteger(const std::string& Name, int32_t Value) {
    CheckWritable(Name);
    PutValue(FFile, Section(FCurrentPath), Name, ValueKey(Name),
             "dword:" + LowerCase(IntToHex(static_cast<uint32_t>(Value), 8)));
}

bool TRegistry::ReadBool(const std::string& Name) const {
    return ReadInteger(Name) != 0;
}

void TRegistry::WriteBool(const std::string& Name, bool Value) {
    WriteInteger(Name, Value ? 1 : 0);
}

} // namespace rtl
