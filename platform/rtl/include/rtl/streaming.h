// Component streaming in the text form-file format: writing a component tree from its type information,
// reading one back by registered class names, the designer clipboard's variant, and the concrete filers
// that DefineProperties implementations are handed.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rtl/classes.h"
#include "rtl/dfm.h"

namespace rtl {

// ---- Writing ---------------------------------------------------------------------------------------------
// Writes Root and, through GetChildren(proc, Root) recursively, its children: published properties in
// declaration order (left out when not stored or equal to their default), nested persistents with dotted
// names, collections as `< item ... end >`, component references by name ("Form2.Button1" when owned by
// another root), events by handler name, then DefineProperties values. Lines end with CR LF.
std::string WriteComponentText(TComponent* Root);
// The same as a syntax tree; Root is the component that references are named against.
TDfmObject WriteComponentTree(TComponent* Instance, TComponent* Root);
// The designer clipboard: each component (siblings under one root) as consecutive object blocks, with
// references named against the component's owner.
std::string WriteComponentsText(const std::vector<TComponent*>& Components);

// ---- Reading ---------------------------------------------------------------------------------------------
struct TComponentReadOptions {
    // Code page of raw (non-ASCII, not #NNN) bytes in strings, as an iconv name ("CP1250"). Empty: UTF-8
    // where the bytes are valid UTF-8, else Windows-1252.
    std::string RawCodePage;
};

// Reads a text form. Without Root, creates the root by its registered class name (EClassNotFound
// "Class %s not found") with Owner as owner; with Root, fills that instance. Children are created by
// registered class, owned by the root (by an inline component for what is inside it), attached with
// SetParentComponent; `inherited` objects update the root's existing component of that name, `inline` ones
// are created with SetInline(true). References are resolved after the whole tree is read, then every
// component read gets EndLoading (Loaded), root first.
// Errors: EParserError for malformed text, EClassNotFound, EReadError "Error reading Form1.Button1.Foo:
// <reason> (line N)". On any error everything this read created is freed and a given Root gets back the
// published values, name and state it had (values written by DefineProperties readers excepted).
TComponent* ReadComponentText(const std::string& Text, TComponent* Owner, TComponent* Root = nullptr);
TComponent* ReadComponentText(const std::string& Text, TComponent* Owner, TComponent* Root,
                              const TComponentReadOptions& Options);

// Gives the name to use for a pasted component whose name is already taken in the root (the designer
// passes its unique-name service).
using TRenameProc = std::function<std::string(TComponent* Component, const std::string& TakenName)>;
// Reads clipboard text (one or more object blocks) into Root, each top-level component attached to Parent
// (when given). Names that are taken go through Rename (EReadError when there is none); references follow
// renamed components, and references to components that do not exist in Root are left nil. Returns the
// top-level components read, in order; on error nothing read remains.
std::vector<TComponent*> ReadComponentsText(const std::string& Text, TComponent* Root, TComponent* Parent,
                                            const TRenameProc& Rename = {});

// ---- Hooks
// ------------------------------------------------------------------------------------------------- Finds a
// root component by name for references to other roots ("Form2.Button1"). Several procs may be registered;
// the first that finds the name wins.
using TFindGlobalComponent = TComponent* (*)(const std::string& Name);
void RegisterFindGlobalComponentProc(TFindGlobalComponent Proc);
void UnRegisterFindGlobalComponentProc(TFindGlobalComponent Proc);
TComponent* FindGlobalComponent(const std::string& Name);

// Integer properties of a named type may be written and read as identifiers (colours: clBtnFace,
// charsets, cursors). A registration replaces an earlier one for the same type.
using TIdentToInt = std::function<bool(std::string_view Ident, int64_t& Value)>;
using TIntToIdent = std::function<bool(int64_t Value, std::string& Ident)>;
void RegisterIntegerConsts(const TTypeInfo* IntegerType, TIdentToInt IdentToInt, TIntToIdent IntToIdent);
void UnRegisterIntegerConsts(const TTypeInfo* IntegerType);
bool IdentToIntOf(const TTypeInfo* IntegerType, std::string_view Ident, int64_t& Value);
bool IntToIdentOf(const TTypeInfo* IntegerType, int64_t Value, std::string& Ident);

// ---- Filers
// -------------------------------------------------------------------------------------------------- Reads
// one property value of a form text (a list, a string, an integer ...). Reading a value of another kind, or
// past the end of a list, raises EReadError "Invalid property value".
class TDfmValueReader : public TReader {
public:
    TDfmValueReader(const TDfmValue& Value, TComponent* Root, std::string RawCodePage = {});
    TValueType NextValue() override;
    void ReadListBegin() override;
    bool EndOfList() override;
    void ReadListEnd() override;
    std::string ReadString() override;
    int32_t ReadInteger() override;
    int64_t ReadInt64() override;
    double ReadFloat() override;
    bool ReadBoolean() override;
    std::string ReadIdent() override;
    TComponent* Root() const override { return FRoot; }
    // The value the next Read call takes, or nullptr at the end of a list or of the whole value.
    const TDfmValue* Current() const;
    // Takes the next value whatever its kind.
    const TDfmValue& ReadValue();

private:
    struct TFrame {
        const TDfmValue* List;
        size_t Index;
    };
    const TDfmValue& FValue;
    TComponent* FRoot;
    std::string FRawCodePage;
    bool FTopTaken = false;
    std::vector<TFrame> FStack;
};

// Builds one property value; exactly one top-level value (which may be a list) is expected.
class TDfmValueWriter : public TWriter {
public:
    explicit TDfmValueWriter(TComponent* Root) : FRoot(Root) {}
    void WriteListBegin() override;
    void WriteListEnd() override;
    void WriteString(std::string_view value) override;
    void WriteInteger(int64_t value) override;
    void WriteFloat(double value) override;
    void WriteBoolean(bool value) override;
    void WriteIdent(std::string_view ident) override;
    TComponent* Root() const override { return FRoot; }
    void WriteValue(TDfmValue value);
    // The value written, once every list is closed; raises EWriteError otherwise.
    bool HasValue() const { return FResult.has_value(); }
    TDfmValue TakeValue();

private:
    TComponent* FRoot;
    std::vector<TDfmValue> FOpen;
    std::optional<TDfmValue> FResult;
};

} // namespace rtl
