// Exceptions and the text, number and file routines of the platform, with the platform's exact semantics.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace rtl {

// Root of every platform exception. Message is what a person is shown.
class Exception : public std::exception {
public:
    explicit Exception(std::string message) : FMessage(std::move(message)) {}
    const std::string& Message() const noexcept { return FMessage; }
    void SetMessage(std::string m) { FMessage = std::move(m); }
    const char* what() const noexcept override { return FMessage.c_str(); }
    // Name of the exception class ("EConvertError"), as the platform's exception box shows it.
    virtual const char* ClassName() const noexcept { return "Exception"; }
    int HelpContext = 0;

private:
    std::string FMessage;
};

#define JEX_DECLARE_EXCEPTION(Name, Parent)                                                              \
    class Name : public Parent {                                                                         \
    public:                                                                                              \
        using Parent::Parent;                                                                            \
        const char* ClassName() const noexcept override { return #Name; }                                \
    };

JEX_DECLARE_EXCEPTION(EAbort, Exception)
JEX_DECLARE_EXCEPTION(EConvertError, Exception)
JEX_DECLARE_EXCEPTION(EIntError, Exception)
JEX_DECLARE_EXCEPTION(ERangeError, EIntError)
JEX_DECLARE_EXCEPTION(EIntOverflow, EIntError)
JEX_DECLARE_EXCEPTION(EListError, Exception)
JEX_DECLARE_EXCEPTION(EStringListError, Exception)
JEX_DECLARE_EXCEPTION(EInvalidCast, Exception)
JEX_DECLARE_EXCEPTION(EInvalidOperation, Exception)
JEX_DECLARE_EXCEPTION(EPropertyError, Exception)
JEX_DECLARE_EXCEPTION(EComponentError, Exception)
JEX_DECLARE_EXCEPTION(EFilerError, Exception)
JEX_DECLARE_EXCEPTION(EReadError, EFilerError)
JEX_DECLARE_EXCEPTION(EWriteError, EFilerError)
JEX_DECLARE_EXCEPTION(EClassNotFound, EFilerError)
JEX_DECLARE_EXCEPTION(EParserError, Exception)
JEX_DECLARE_EXCEPTION(EInOutError, Exception)
JEX_DECLARE_EXCEPTION(EFOpenError, EInOutError)
JEX_DECLARE_EXCEPTION(EFCreateError, EInOutError)
JEX_DECLARE_EXCEPTION(EResNotFound, Exception)
JEX_DECLARE_EXCEPTION(EOutOfResources, Exception)
JEX_DECLARE_EXCEPTION(EInvalidGraphic, Exception)
JEX_DECLARE_EXCEPTION(EInvalidGraphicOperation, Exception)
JEX_DECLARE_EXCEPTION(EPackageError, Exception)

// Platform message texts that more than one layer raises.
inline constexpr const char* SInvalidInteger = "'%s' is not a valid integer value";
inline constexpr const char* SInvalidFloat = "'%s' is not a valid floating point value";
inline constexpr const char* SRangeError = "Range check error";
inline constexpr const char* SIntOverflow = "Integer overflow";
inline constexpr const char* SInvalidCast = "Invalid class typecast";
inline constexpr const char* SListIndexError = "List index out of bounds (%d)";
inline constexpr const char* SSortedListError = "Operation not allowed on sorted string list";
inline constexpr const char* SDuplicateString = "String list does not allow duplicates";
inline constexpr const char* SDuplicateName = "A component named %s already exists";
inline constexpr const char* SInvalidName = "'%s' is not a valid component name";
inline constexpr const char* SAssignError = "Cannot assign a %s to a %s";
inline constexpr const char* SInvalidPropertyValue = "Invalid property value";
inline constexpr const char* SUnknownProperty = "Property %s does not exist";
inline constexpr const char* SClassNotFound = "Class %s not found";
inline constexpr const char* SDuplicateClass = "A class named %s already exists";
inline constexpr const char* SFOpenError = "Cannot open file \"%s\"";
inline constexpr const char* SFCreateError = "Cannot create file \"%s\"";

// ---- Integers -------------------------------------------------------------------------------------
// StrToInt: optional leading spaces, sign, decimal digits or hex after '$', 'x', 'X', '0x', '0X';
// nothing may follow the digits; out of the 32-bit range is a failure. Raises EConvertError.
int32_t StrToInt(std::string_view s);
int32_t StrToIntDef(std::string_view s, int32_t def);
bool TryStrToInt(std::string_view s, int32_t& value);
int64_t StrToInt64(std::string_view s);
int64_t StrToInt64Def(std::string_view s, int64_t def);
bool TryStrToInt64(std::string_view s, int64_t& value);
std::string IntToStr(int64_t value);
// Upper-case hex with at least `digits` digits; a negative value is shown as its 64-bit pattern (pass
// uint32_t for the 32-bit one).
std::string IntToHex(int64_t value, int digits);

// ---- Floats (decimal separator '.') ----------------------------------------------------------------
double StrToFloat(std::string_view s);
double StrToFloatDef(std::string_view s, double def);
bool TryStrToFloat(std::string_view s, double& value);
// The platform's general float format: up to 15 significant digits, no trailing zeros, exponent form
// "1.5E20" when the number does not fit.
std::string FloatToStr(double value);

// ---- Text -------------------------------------------------------------------------------------------
std::string Trim(std::string_view s);      // removes every character <= ' ' at both ends
std::string TrimLeft(std::string_view s);
std::string TrimRight(std::string_view s);
std::string UpperCase(std::string_view s); // ASCII letters only
std::string LowerCase(std::string_view s);
int CompareText(std::string_view a, std::string_view b); // ASCII case-insensitive, <0, 0, >0
int CompareStr(std::string_view a, std::string_view b);
bool SameText(std::string_view a, std::string_view b);
std::string QuotedStr(std::string_view s);
std::string StringReplaceAll(std::string_view s, std::string_view from, std::string_view to);
bool IsValidIdent(std::string_view s);

// A Format argument: an integer, a float or a string.
class TVarRec {
public:
    enum Kind { vtInteger, vtFloat, vtString };
    TVarRec(int v) : FKind(vtInteger), FInt(v) {}
    TVarRec(long v) : FKind(vtInteger), FInt(v) {}
    TVarRec(long long v) : FKind(vtInteger), FInt(v) {}
    TVarRec(unsigned v) : FKind(vtInteger), FInt(v) {}
    TVarRec(unsigned long v) : FKind(vtInteger), FInt(static_cast<int64_t>(v)) {}
    TVarRec(double v) : FKind(vtFloat), FFloat(v) {}
    TVarRec(const char* v) : FKind(vtString), FStr(v ? v : "") {}
    TVarRec(std::string v) : FKind(vtString), FStr(std::move(v)) {}
    TVarRec(std::string_view v) : FKind(vtString), FStr(v) {}
    Kind VType() const { return FKind; }
    int64_t AsInteger() const { return FInt; }
    double AsFloat() const { return FFloat; }
    const std::string& AsString() const { return FStr; }

private:
    Kind FKind;
    int64_t FInt = 0;
    double FFloat = 0;
    std::string FStr;
};

// Format: "%" [index ":"] ["-"] [width] ["." prec] type, type one of d u x s f g e n m p and "%%".
// A mismatch between a specifier and its argument raises EConvertError "Format '%s' invalid or
// incompatible with argument".
std::string Format(std::string_view fmt, const std::vector<TVarRec>& args);

// ---- Files -----------------------------------------------------------------------------------------
inline constexpr char PathDelim = '/';
std::string ExtractFileExt(std::string_view fileName);  // from the last '.' after the last '/' or '\'
std::string ExtractFilePath(std::string_view fileName); // up to and including the last delimiter
std::string ExtractFileName(std::string_view fileName);
std::string ExtractFileDir(std::string_view fileName);
std::string ChangeFileExt(std::string_view fileName, std::string_view ext);
std::string IncludeTrailingPathDelimiter(std::string_view s);
std::string ExcludeTrailingPathDelimiter(std::string_view s);
bool FileExists(std::string_view fileName);      // a regular file (not a folder)
bool DirectoryExists(std::string_view dirName);
bool ForceDirectories(std::string_view dirName);
bool DeleteFile(std::string_view fileName);
std::string ExpandFileName(std::string_view fileName);
// Reads or writes a whole file as bytes; raise EFOpenError / EFCreateError with the platform text.
std::string ReadFileBytes(std::string_view fileName);
void WriteFileBytes(std::string_view fileName, std::string_view bytes);

// ---- Text encodings ----------------------------------------------------------------------------------
// Windows-1252 bytes to UTF-8 (undefined bytes map to U+FFFD), and back (unmappable -> '?').
std::string Cp1252ToUtf8(std::string_view bytes);
std::string Utf8ToCp1252(std::string_view s);
bool IsValidUtf8(std::string_view s);
std::string CodePointToUtf8(uint32_t cp);
// Decodes UTF-8 into code points; invalid bytes become U+FFFD.
std::u32string Utf8ToUtf32(std::string_view s);
std::string Utf32ToUtf8(std::u32string_view s);

// ---- System directory ---------------------------------------------------------------------------------
// Where bare INI file names and the registry file live. Defaults to $JEX_SYSTEM_DIR, else
// $XDG_CONFIG_HOME/jexdesign/system, else $HOME/.config/jexdesign/system; the folder is created by the
// first write into it. Setting an empty string goes back to the default.
std::string GetSystemDirectory();
void SetSystemDirectory(const std::string& dir);

} // namespace rtl
