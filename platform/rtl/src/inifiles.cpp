// TIniFile on top of the shared profile-file cache: value reading rules of the platform's profile functions
// and immediate, line-preserving writes.
#include "rtl/inifiles.h"

#include "profilefile.h"

namespace rtl {

using detail::TProfileDocument;

JEX_IMPLEMENT_CLASS(TIniFile, TObject, "IniFiles") {}

namespace {

bool HasLineBreak(std::string_view s) {
    return s.find_first_of("\r\n") != std::string_view::npos;
}

void CheckSection(const std::string& section) {
    if (HasLineBreak(section) || section.find(']') != std::string::npos)
        throw EIniFileException("Invalid INI section name '" + section + "'");
}

void CheckIdent(const std::string& ident) {
    if (!detail::IsProfileKeyName(ident)) throw EIniFileException("Invalid INI key name '" + ident + "'");
}

std::string EncodeValue(const std::string& value) {
    std::string text;
    if (!detail::EncodeProfileValue(value, text))
        throw EIniFileException("An INI value cannot hold a line break");
    return text;
}

} // namespace

TIniFile::TIniFile(const std::string& FileName)
    : FFileName(FileName), FPath(detail::ResolveProfilePath(FileName)) {}

std::string TIniFile::ReadString(const std::string& Section, const std::string& Ident,
                                 const std::string& Default) const {
    std::string result = Default;
    detail::ReadProfile(FPath, [&](const TProfileDocument& doc) {
        int k = doc.FindKey(doc.FindSection(Section), Ident);
        if (k >= 0) result = detail::UnquoteProfileValue(doc.RawValue(k));
    });
    return result;
}

int32_t TIniFile::ReadInteger(const std::string& Section, const std::string& Ident, int32_t Default) const {
    std::string s = ReadString(Section, Ident, "");
    if (s.size() > 2 && s[0] == '0' && (s[1] == 'x' || s[1] == 'X')) s = "$" + s.substr(2);
    return StrToIntDef(s, Default);
}

bool TIniFile::ReadBool(const std::string& Section, const std::string& Ident, bool Default) const {
    return ReadInteger(Section, Ident, Default ? 1 : 0) != 0;
}

double TIniFile::ReadFloat(const std::string& Section, const std::string& Ident, double Default) const {
    std::string s = ReadString(Section, Ident, "");
    return s.empty() ? Default : StrToFloatDef(s, Default);
}

void TIniFile::WriteString(const std::string& Section, const std::string& Ident, const std::string& Value) {
    CheckSection(Section);
    CheckIdent(Ident);
    std::string text = EncodeValue(Value);
    detail::ChangeProfile(FPath, [&](TProfileDocument& doc) {
        int k = doc.FindKey(doc.FindSection(Section), Ident);
        if (k >= 0 && doc.RawValue(k) == text) return false; // already there: leave the file alone
        doc.SetValue(Section, Ident, text);
        return true;
    });
}

void TIniFile::WriteInteger(const std::string& Section, const std::string& Ident, int32_t Value) {
    WriteString(Section, Ident, IntToStr(Value));
}

void TIniFile::WriteBool(const std::string& Section, const std::string& Ident, bool Value) {
    WriteString(Section, Ident, Value ? "1" : "0");
}

void TIniFile::WriteFloat(const std::string& Section, const std::string& Ident, double Value) {
    WriteString(Section, Ident, FloatToStr(Value));
}

void TIniFile::ReadSection(const std::string& Section, TStrings* Strings) const {
    std::vector<std::string> keys;
    detail::ReadProfile(FPath,
                        [&](const TProfileDocument& doc) { keys = doc.KeyNames(doc.FindSection(Section)); });
    Strings->BeginUpdate();
    try {
        Strings->Clear();
        Strings->AddStrings(keys);
    } catch (...) {
        Strings->EndUpdate();
        throw;
    }
    Strings->EndUpdate();
}

void TIniFile::ReadSections(TStrings* Strings) const {
    std::vector<std::string> names;
    detail::ReadProfile(FPath, [&](const TProfileDocument& doc) { names = doc.SectionNames(); });
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

void TIniFile::ReadSectionValues(const std::string& Section, TStrings* Strings) const {
    std::vector<std::string> lines;
    detail::ReadProfile(FPath, [&](const TProfileDocument& doc) {
        int h = doc.FindSection(Section);
        for (const std::string& key : doc.KeyNames(h))
            lines.push_back(key + "=" + detail::UnquoteProfileValue(doc.RawValue(doc.FindKey(h, key))));
    });
    Strings->BeginUpdate();
    try {
        Strings->Clear();
        Strings->AddStrings(lines);
    } catch (...) {
        Strings->EndUpdate();
        throw;
    }
    Strings->EndUpdate();
}

void TIniFile::EraseSection(const std::string& Section) {
    std::string name = Trim(Section);
    detail::ChangeProfile(FPath, [&](TProfileDocument& doc) {
        return doc.EraseSections([&](const std::string& s) { return SameText(s, name); });
    });
}

void TIniFile::DeleteKey(const std::string& Section, const std::string& Ident) {
    detail::ChangeProfile(FPath, [&](TProfileDocument& doc) { return doc.DeleteKey(Section, Ident); });
}

bool TIniFile::SectionExists(const std::string& Section) const {
    bool result = false;
    detail::ReadProfile(FPath, [&](const TProfileDocument& doc) {
        result = !doc.KeyNames(doc.FindSection(Section)).empty();
    });
    return result;
}

bool TIniFile::ValueExists(const std::string& Section, const std::string& Ident) const {
    bool result = false;
    detail::ReadProfile(FPath, [&](const TProfileDocument& doc) {
        result = doc.FindKey(doc.FindSection(Section), Ident) >= 0;
    });
    return result;
}

void TIniFile::UpdateFile() {
    detail::FlushProfile(FPath);
}

} // namespace rtl
