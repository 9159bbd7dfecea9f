// TIniFile: the platform's profile (INI) files. Sections and keys ignore case, every write reaches the file
// at once and leaves all other lines as they were; a bare file name lives in the system directory.
#pragma once

#include <cstdint>
#include <string>

#include "rtl/lists.h"

namespace rtl {

// Raised for names and values an INI file cannot hold (a line break, a key with '=').
JEX_DECLARE_EXCEPTION(EIniFileException, Exception)

class TIniFile : public TObject {
    JEX_CLASS(TIniFile, TObject)
    explicit TIniFile(const std::string& FileName);

    // The name as given, and the file it stands for.
    const std::string& FileName() const { return FFileName; }
    const std::string& FullPath() const { return FPath; }

    // The value without the blanks around it and without one matching pair of quotes; Default when the
    // section or the key is missing.
    std::string ReadString(const std::string& Section, const std::string& Ident,
                           const std::string& Default) const;
    // "0x1F" reads as hexadecimal; text that is not an integer gives Default.
    int32_t ReadInteger(const std::string& Section, const std::string& Ident, int32_t Default) const;
    // A number other than 0 is true; anything that is not a number ("true") gives Default.
    bool ReadBool(const std::string& Section, const std::string& Ident, bool Default) const;
    double ReadFloat(const std::string& Section, const std::string& Ident, double Default) const;

    // A value with blanks at either end, or one that is itself quoted, is written in double quotes so that
    // it reads back unchanged. Raise EIniFileException for what a line cannot hold, EFCreateError when the
    // file cannot be written.
    void WriteString(const std::string& Section, const std::string& Ident, const std::string& Value);
    void WriteInteger(const std::string& Section, const std::string& Ident, int32_t Value);
    void WriteBool(const std::string& Section, const std::string& Ident, bool Value); // 1 or 0
    void WriteFloat(const std::string& Section, const std::string& Ident, double Value);

    // Fill Strings (cleared first): the section's keys; the section names; the section's "key=value" lines.
    void ReadSection(const std::string& Section, TStrings* Strings) const;
    void ReadSections(TStrings* Strings) const;
    void ReadSectionValues(const std::string& Section, TStrings* Strings) const;
    // Removes the section header and all its lines (every section of that name).
    void EraseSection(const std::string& Section);
    void DeleteKey(const std::string& Section, const std::string& Ident);
    // As on the platform, a section exists when it has at least one key.
    bool SectionExists(const std::string& Section) const;
    bool ValueExists(const std::string& Section, const std::string& Ident) const;
    // Writes are never held back; this drops the cached contents so the next read goes to the file.
    void UpdateFile();

private:
    std::string FFileName;
    std::string FPath;
};

} // namespace rtl
