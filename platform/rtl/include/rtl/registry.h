// TRegistry: the platform's system registry, kept in one human-editable file, "registry.ini" in the system
// directory, with a section per key ("[HKEY_CURRENT_USER\Software\Acme\App\1.0]") and a line per value.
#pragma once

#include <cstdint>
#include <string>

#include "rtl/lists.h"

namespace rtl {

JEX_DECLARE_EXCEPTION(ERegistryException, Exception)

using HKEY = uint32_t;
inline constexpr HKEY HKEY_CLASSES_ROOT = 0x80000000u;
inline constexpr HKEY HKEY_CURRENT_USER = 0x80000001u;
inline constexpr HKEY HKEY_LOCAL_MACHINE = 0x80000002u;
inline constexpr HKEY HKEY_USERS = 0x80000003u;
inline constexpr HKEY HKEY_CURRENT_CONFIG = 0x80000005u;

enum TRegDataType { rdUnknown, rdString, rdExpandString, rdInteger, rdBinary };

// Key paths use backslashes and compare ignoring case. A path starting with '\' starts at the root key;
// any other is relative to the open key (or the root when none is open). In the file a string value is
// written as its text, an integer as "dword:" and eight hex digits, the unnamed value as "@".
class TRegistry : public TObject {
    JEX_CLASS(TRegistry, TObject)
    TRegistry(); // RootKey HKEY_CURRENT_USER, no key open

    HKEY RootKey() const { return FRootKey; }
    void SetRootKey(HKEY value); // closes the open key; raises ERegistryException for an unknown root
    // The open key's path below the root ("Software\Acme"), empty when none is open or the root itself is.
    const std::string& CurrentPath() const { return FCurrentPath; }
    bool KeyOpen() const { return FOpen; }
    // The file that holds the registry.
    const std::string& FileName() const { return FFile; }

    // Opens a key, creating it (and the keys above it) when CanCreate; false when it does not exist.
    bool OpenKey(const std::string& Key, bool CanCreate);
    // Opens an existing key for reading only; false when it does not exist.
    bool OpenKeyReadOnly(const std::string& Key);
    void CloseKey();
    bool CreateKey(const std::string& Key); // creates without opening
    bool KeyExists(const std::string& Key) const;
    // Deletes a key with everything below it; false when it did not exist.
    bool DeleteKey(const std::string& Key);
    bool HasSubKeys() const;
    void GetKeyNames(TStrings* Strings) const; // the open key's direct subkeys (Strings cleared first)

    bool ValueExists(const std::string& Name) const;
    TRegDataType GetDataType(const std::string& Name) const; // rdUnknown when missing
    void GetValueNames(TStrings* Strings) const;
    bool DeleteValue(const std::string& Name);

    // ReadString of a missing value returns ""; reading a missing integer or boolean raises
    // ERegistryException "Failed to get data for '%s'"; a value of the
    // other type "Invalid data type for '%s'". Writing without an open key, to a read-only key, or a name
    // the file cannot hold raises "Failed to set data for '%s'".
    std::string ReadString(const std::string& Name) const;
    void WriteString(const std::string& Name, const std::string& Value);
    int32_t ReadInteger(const std::string& Name) const;
    void WriteInteger(const std::string& Name, int32_t Value);
    bool ReadBool(const std::string& Name) const; // an integer other than 0
    void WriteBool(const std::string& Name, bool Value);

private:
    std::string Resolve(const std::string& Key, bool& valid) const;
    std::string Section(const std::string& path) const;
    bool Exists(const std::string& path) const;
    void CheckWritable(const std::string& Name) const;
    struct TValue;
    bool Lookup(const std::string& Name, TValue& value) const;

    std::string FFile;
    HKEY FRootKey = HKEY_CURRENT_USER;
    bool FOpen = false;
    bool FReadOnly = false;
    std::string FCurrentPath;
};

} // namespace rtl
