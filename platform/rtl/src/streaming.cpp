// Component streaming in the text form-file format: the component writer and reader on top of the syntax
// tree of rtl/dfm.h, the clipboard variant, and the concrete filers handed to DefineProperties.
#include "rtl/streaming.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <unordered_map>

namespace rtl {

namespace {
constexpr int kMaxPersistentDepth = 32; // nested persistents deeper than this are a cycle
constexpr int kMaxChildDepth = 190;     // the text parser refuses deeper objects anyway

// An EReadError that already names the property and line, so that outer levels pass it on unchanged.
class EPositionedReadError : public EReadError {
public:
    using EReadError::EReadError;
};

[[noreturn]] void InvalidValue(const std::string& reason = {}) {
    throw EReadError(reason.empty() ? std::string(SInvalidPropertyValue)
                                    : std::string(SInvalidPropertyValue) + ": " + reason);
}

const char* KindWord(TDfmValueKind k) {
    switch (k) {
    case TDfmValueKind::Integer:
        return "an integer";
    case TDfmValueKind::Float:
        return "a float";
    case TDfmValueKind::String:
        return "a string";
    case TDfmValueKind::Ident:
        return "an identifier";
    case TDfmValueKind::Set:
        return "a set";
    case TDfmValueKind::List:
        return "a list";
    case TDfmValueKind::Binary:
        return "binary data";
    case TDfmValueKind::Collection:
        return "a collection";
    }
    return "a value";
}

[[noreturn]] void WrongKind(const char* expected, const TDfmValue& v) {
    InvalidValue(std::string(expected) + " expected but " + KindWord(v.Kind) + " found");
}

struct TIntegerConsts {
    TIdentToInt IdentToInt;
    TIntToIdent IntToIdent;
};

std::unordered_map<const TTypeInfo*, TIntegerConsts>& IntegerConsts() {
    static std::unordered_map<const TTypeInfo*, TIntegerConsts> map;
    return map;
}

std::vector<TFindGlobalComponent>& GlobalFinders() {
    static std::vector<TFindGlobalComponent> procs;
    return procs;
}

std::vector<std::string> SplitDots(std::string_view s) {
    std::vector<std::string> parts;
    size_t start = 0;
    for (;;) {
        size_t dot = s.find('.', start);
        parts.emplace_back(
            s.substr(start, dot == std::string_view::npos ? std::string_view::npos : dot - start));
        if (dot == std::string_view::npos) break;
        start = dot + 1;
    }
    return parts;
}

// A Single is written with the digits of its own precision (0.1, not 0.100000001490116).
double FloatForText(double v, TFloatType ft) {
    if (ft != ftSingle) return v;
    char buf[32];
    auto r = std::to_chars(buf, buf + sizeof buf, static_cast<float>(v));
    double d = v;
    std::from_chars(buf, r.ptr, d);
    return d;
}
} // namespace

// ---- Hooks
// ---------------------------------------------------------------------------------------------------
void RegisterFindGlobalComponentProc(TFindGlobalComponent Proc) {
    auto& v = GlobalFinders();
    if (Proc && std::find(v.begin(), v.end(), Proc) == v.end()) v.push_back(Proc);
}

void UnRegisterFindGlobalComponentProc(TFindGlobalComponent Proc) {
    auto& v = GlobalFinders();
    v.erase(std::remove(v.begin(), v.end(), Proc), v.end());
}

TComponent* FindGlobalComponent(const std::string& Name) {
    for (TFindGlobalComponent p : GlobalFinders())
        if (TComponent* c = p(Name)) return c;
    return nullptr;
}

void RegisterIntegerConsts(const TTypeInfo* IntegerType, TIdentToInt IdentToInt, TIntToIdent IntToIdent) {
    IntegerConsts()[IntegerType] = TIntegerConsts{std::move(IdentToInt), std::move(IntToIdent)};
}

void UnRegisterIntegerConsts(const TTypeInfo* IntegerType) {
    IntegerConsts().erase(IntegerType);
}

bool IdentToIntOf(const TTypeInfo* IntegerType, std::string_view Ident, int64_t& Value) {
    auto& m = IntegerConsts();
    auto it = m.find(IntegerType);
    return it != m.end() && it->second.IdentToInt && it->second.IdentToInt(Ident, Value);
}

bool IntToIdentOf(const TTypeInfo* IntegerType, int64_t Value, std::string& Ident) {
    auto& m = IntegerConsts();
    if (m.empty()) return false;
    auto it = m.find(IntegerType);
    return it != m.end() && it->second.IntToIdent && it->second.IntToIdent(Value, Ident);
}

// ---- TDfmValueReader
// ---------------------------------------------------------------------------------------
TDfmValueReader::TDfmValueReader(const TDfmValue& Value, TComponent* Root, std::string RawCodePage)
    : FValue(Value), FRoot(Root), FRawCodePage(std::move(RawCodePage)) {}

const TDfmValue* TDfmValueReader::Current() const {
    if (FStack.empty()) return FTopTaken ? nullptr : &FValue;
    const TFrame& f = FStack.back();
    return f.Index < f.List->Items.size() ? &f.List->Items[f.Index] : nullptr;
}

const TDfmValue& TDfmValueReader::ReadValue() {
    const TDfmValue* v = Current();
    if (!v) InvalidValue("no more values");
    if (FStack.empty())
        FTopTaken = true;
    else
        ++FStack.back().Index;
    return *v;
}

TReader::TValueType TDfmValueReader::NextValue() {
    const TDfmValue* v = Current();
    if (!v) return vaNull;
    switch (v->Kind) {
    case TDfmValueKind::Integer:
        return vaInteger;
    case TDfmValueKind::Float:
        return vaExtended;
    case TDfmValueKind::String:
        return vaString;
    case TDfmValueKind::Set:
        return vaSet;
    case TDfmValueKind::List:
        return vaList;
    case TDfmValueKind::Binary:
        return vaBinary;
    case TDfmValueKind::Collection:
        return vaCollection;
    case TDfmValueKind::Ident:
        if (v->IsIdent("False")) return vaFalse;
        if (v->IsIdent("True")) return vaTrue;
        if (v->IsIdent("nil")) return vaNil;
        return vaIdent;
    }
    return vaNull;
}

void TDfmValueReader::ReadListBegin() {
    const TDfmValue* v = Current();
    if (!v) InvalidValue("no more values");
    if (v->Kind != TDfmValueKind::List) WrongKind("a list", *v);
    FStack.push_back(TFrame{v, 0});
}

bool TDfmValueReader::EndOfList() {
    if (FStack.empty()) InvalidValue("not inside a list");
    return FStack.back().Index >= FStack.back().List->Items.size();
}

void TDfmValueReader::ReadListEnd() {
    if (FStack.empty()) InvalidValue("not inside a list");
    if (!EndOfList()) InvalidValue("end of list expected");
    FStack.pop_back();
    if (FStack.empty())
        FTopTaken = true;
    else
        ++FStack.back().Index;
}

std::string TDfmValueReader::ReadString() {
    const TDfmValue* v = Current();
    if (v && v->Kind != TDfmValueKind::String) WrongKind("a string", *v);
    return ReadValue().Str.ToUtf8(FRawCodePage);
}

int64_t TDfmValueReader::ReadInt64() {
    const TDfmValue* v = Current();
    if (v && v->Kind != TDfmValueKind::Integer) WrongKind("an integer", *v);
    return ReadValue().Int;
}

int32_t TDfmValueReader::ReadInteger() {
    const TDfmValue* v = Current();
    if (v && v->Kind == TDfmValueKind::Integer && (v->Int < INT32_MIN || v->Int > INT32_MAX))
        InvalidValue(SRangeError);
    return static_cast<int32_t>(ReadInt64());
}

double TDfmValueReader::ReadFloat() {
    const TDfmValue* v = Current();
    if (v && v->Kind != TDfmValueKind::Float && v->Kind != TDfmValueKind::Integer) WrongKind("a number", *v);
    const TDfmValue& r = ReadValue();
    return r.Kind == TDfmValueKind::Integer ? static_cast<double>(r.Int) : r.Float;
}

bool TDfmValueReader::ReadBoolean() {
    const TDfmValue* v = Current();
    if (v && !v->IsIdent("False") && !v->IsIdent("True")) WrongKind("True or False", *v);
    return ReadValue().IsIdent("True");
}

std::string TDfmValueReader::ReadIdent() {
    const TDfmValue* v = Current();
    if (v && v->Kind != TDfmValueKind::Ident) WrongKind("an identifier", *v);
    return ReadValue().Text;
}

// ---- TDfmValueWriter
// ---------------------------------------------------------------------------------------
void TDfmValueWriter::WriteValue(TDfmValue value) {
    if (!FOpen.empty())
        FOpen.back().Items.push_back(std::move(value));
    else if (FResult)
        throw EWriteError("A property value was written twice");
    else
        FResult = std::move(value);
}

void TDfmValueWriter::WriteListBegin() {
    FOpen.push_back(TDfmValue::MakeList());
}

void TDfmValueWriter::WriteListEnd() {
    if (FOpen.empty()) throw EWriteError("List end written without a list");
    TDfmValue list = std::move(FOpen.back());
    FOpen.pop_back();
    WriteValue(std::move(list));
}

void TDfmValueWriter::WriteString(std::string_view value) {
    WriteValue(TDfmValue::MakeUtf8String(value));
}
void TDfmValueWriter::WriteInteger(int64_t value) {
    WriteValue(TDfmValue::MakeInteger(value));
}
void TDfmValueWriter::WriteFloat(double value) {
    WriteValue(TDfmValue::MakeFloat(value));
}
void TDfmValueWriter::WriteBoolean(bool value) {
    WriteValue(TDfmValue::MakeIdent(value ? "True" : "False"));
}
void TDfmValueWriter::WriteIdent(std::string_view ident) {
    if (!IsValidIdent(ident) && !SameText(ident, "nil"))
        throw EWriteError("'" + std::string(ident) + "' is not an identifier");
    WriteValue(TDfmValue::MakeIdent(std::string(ident)));
}

TDfmValue TDfmValueWriter::TakeValue() {
    if (!FOpen.empty()) throw EWriteError("A list was not closed");
    if (!FResult) throw EWriteError("No property value was written");
    TDfmValue v = std::move(*FResult);
    FResult.reset();
    return v;
}

// ---- Writing components
// ----------------------------------------------------------------------------------------
namespace {
// Collects the values that DefineProperties declares, under the current property path.
class TWriteFiler : public TFiler {
public:
    TWriteFiler(std::string prefix, std::vector<TDfmProperty>& out, TComponent* root)
        : FPrefix(std::move(prefix)), FOut(out), FRoot(root) {}
    void DefineProperty(const std::string& Name, TReaderProc, TWriterProc WriteData, bool HasData) override {
        if (!HasData || !WriteData) return;
        TDfmValueWriter w(FRoot);
        WriteData(w);
        if (!w.HasValue()) return;
        FOut.push_back(TDfmProperty{FPrefix + Name, w.TakeValue()});
    }
    void DefineBinaryProperty(const std::string& Name, TStreamReadProc, TStreamWriteProc WriteData,
                              bool HasData) override {
        if (!HasData || !WriteData) return;
        std::vector<uint8_t> bytes;
        WriteData(bytes);
        FOut.push_back(TDfmProperty{FPrefix + Name, TDfmValue::MakeBinary(std::move(bytes))});
    }

private:
    std::string FPrefix;
    std::vector<TDfmProperty>& FOut;
    TComponent* FRoot;
};

class TComponentWriter {
public:
    TDfmObject WriteComponent(TComponent* c, TComponent* root, int depth = 0) {
        if (depth > kMaxChildDepth)
            throw EWriteError("Children of " + c->Name() + " nest too deeply (a parent cycle?)");
        TDfmObject node;
        TComponentState st = c->ComponentState();
        node.Kind = st.Contains(csInline) && c != root ? TDfmObjectKind::Inline
                    : st.Contains(csAncestor)          ? TDfmObjectKind::Inherited
                                                       : TDfmObjectKind::Object;
        node.Name = c->Name();
        node.ClassName = c->ClassName();
        WriteProperties(c, std::string(), node.Properties, root, 0);
        // An inline component is the root of what it owns: its children and references are named within it.
        TComponent* childRoot = node.Kind == TDfmObjectKind::Inline ? c : root;
        c->GetChildren(
            [&](TComponent* child) { node.Children.push_back(WriteComponent(child, childRoot, depth + 1)); },
            childRoot);
        return node;
    }

    void WriteProperties(TPersistent* obj, const std::string& prefix, std::vector<TDfmProperty>& out,
                         TComponent* root, int depth) {
        if (depth > kMaxPersistentDepth)
            throw EWriteError("Nested properties of " + prefix + " form a cycle");
        for (const TPropInfo* p : obj->ClassType()->Properties())
            WriteProperty(obj, *p, prefix, out, root, depth);
        TWriteFiler filer(prefix, out, root);
        obj->DefineProperties(filer);
    }

    // The name a reference is written with: "Button1" within the root, "Frame1.Button1" inside an inline
    // component, "Form2.Button1" in another root; empty when some owner on the way has no name.
    static std::string ReferenceName(TComponent* c, TComponent* root) {
        if (c == root) return c->Name();
        std::vector<const std::string*> names;
        for (TComponent* cur = c; cur && cur != root; cur = cur->Owner()) {
            if (cur->Name().empty()) return {};
            names.push_back(&cur->Name());
            TComponent* o = cur->Owner();
            if (!o || (o != root && o->Name().empty())) break; // cur is a root of its own
        }
        std::string path;
        for (auto it = names.rbegin(); it != names.rend(); ++it) {
            if (!path.empty()) path += '.';
            path += **it;
        }
        return path;
    }

    void WriteProperty(TPersistent* obj, const TPropInfo& p, const std::string& prefix,
                       std::vector<TDfmProperty>& out, TComponent* root, int depth) {
        if (!p.IsStored(obj)) return;
        const TTypeInfo* t = p.PropType;
        if (t->Kind != tkClass && (!p.Writable() || IsDefaultPropValue(obj, p))) return;
        std::string name = prefix + p.Name;
        auto add = [&](TDfmValue v) { out.push_back(TDfmProperty{std::move(name), std::move(v)}); };
        switch (t->Kind) {
        case tkInteger:
        case tkInt64: {
            int64_t v = GetOrdProp(obj, p);
            std::string ident;
            if (IntToIdentOf(t, v, ident))
                add(TDfmValue::MakeIdent(std::move(ident)));
            else
                add(TDfmValue::MakeInteger(v));
            break;
        }
        case tkChar:
        case tkWChar: {
            int64_t v = GetOrdProp(obj, p);
            add(TDfmValue::MakeString(TDfmString(std::u32string(1, static_cast<char32_t>(v)))));
            break;
        }
        case tkEnumeration: {
            int64_t v = GetOrdProp(obj, p);
            std::string n = GetEnumName(t, v);
            add(n.empty() ? TDfmValue::MakeInteger(v) : TDfmValue::MakeIdent(std::move(n)));
            break;
        }
        case tkSet: {
            uint64_t bits = static_cast<uint64_t>(GetOrdProp(obj, p));
            TDfmValue set;
            set.Kind = TDfmValueKind::Set;
            for (int i = 0; i < 64; ++i) {
                if (!(bits & (uint64_t(1) << i))) continue;
                std::string n = GetEnumName(t->CompType, i);
                set.Items.push_back(n.empty() ? TDfmValue::MakeInteger(i)
                                              : TDfmValue::MakeIdent(std::move(n)));
            }
            add(std::move(set));
            break;
        }
        case tkFloat:
            add(TDfmValue::MakeFloat(FloatForText(GetFloatProp(obj, p), t->FloatType)));
            break;
        case tkString:
        case tkLString:
        case tkWString:
            add(TDfmValue::MakeUtf8String(GetStrProp(obj, p)));
            break;
        case tkMethod:
            add(TDfmValue::MakeIdent(GetMethodProp(obj, p).Name));
            break;
        case tkClass: {
            TObject* value = GetObjectProp(obj, p);
            if (!value) return;
            if (auto* comp = dynamic_cast<TComponent*>(value)) {
                if (!p.Writable()) return;
                std::string ref = ReferenceName(comp, root);
                if (!ref.empty()) add(TDfmValue::MakeIdent(std::move(ref)));
            } else if (auto* coll = dynamic_cast<TCollection*>(value)) {
                TDfmValue v = TDfmValue::MakeCollection();
                for (int i = 0; i < coll->Count(); ++i) {
                    TDfmItem item;
                    WriteProperties(coll->Items(i), std::string(), item.Properties, root, depth + 1);
                    v.CollectionItems.push_back(std::move(item));
                }
                add(std::move(v));
            } else if (auto* sub = dynamic_cast<TPersistent*>(value)) {
                WriteProperties(sub, name + ".", out, root, depth + 1);
            }
            break;
        }
        default:
            break;
        }
    }
};
} // namespace

TDfmObject WriteComponentTree(TComponent* Instance, TComponent* Root) {
    TComponentWriter w;
    return w.WriteComponent(Instance, Root ? Root : Instance);
}

std::string WriteComponentText(TComponent* Root) {
    return WriteDfm(WriteComponentTree(Root, Root));
}

std::string WriteComponentsText(const std::vector<TComponent*>& Components) {
    TDfmDocument doc;
    for (TComponent* c : Components) {
        if (!c) continue;
        doc.Objects.push_back(WriteComponentTree(c, c->Owner() ? c->Owner() : c));
    }
    return WriteDfm(doc);
}

// ---- Reading components
// --------------------------------------------------------------------------------------
namespace {
// Hands a defined property's value to the DefineProperties reader of that name.
class TReadFiler : public TFiler {
public:
    TReadFiler(std::string_view name, const TDfmValue& value, TComponent* root, const std::string& codePage)
        : FName(name), FValue(value), FRoot(root), FCodePage(codePage) {}
    bool Handled = false;
    void DefineProperty(const std::string& Name, TReaderProc ReadData, TWriterProc, bool) override {
        if (Handled || !SameText(Name, FName)) return;
        Handled = true;
        if (!ReadData) throw EReadError("Property " + Name + " cannot be read");
        TDfmValueReader r(FValue, FRoot, FCodePage);
        ReadData(r);
        if (r.Current()) InvalidValue("more values than the property reads");
    }
    void DefineBinaryProperty(const std::string& Name, TStreamReadProc ReadData, TStreamWriteProc,
                              bool) override {
        if (Handled || !SameText(Name, FName)) return;
        Handled = true;
        if (!ReadData) throw EReadError("Property " + Name + " cannot be read");
        if (FValue.Kind != TDfmValueKind::Binary) WrongKind("binary data", FValue);
        ReadData(FValue.Bytes);
    }

private:
    std::string_view FName;
    const TDfmValue& FValue;
    TComponent* FRoot;
    const std::string& FCodePage;
};

struct TFixup {
    TObject* Instance;
    const TPropInfo* Prop;
    std::string Name;       // as written
    TComponent* LookupRoot; // the root (or inline component) the name is relative to
    std::string Path;       // for messages
    int Line;
    bool Preexisting;
};

class TComponentLoader {
public:
    TComponentLoader(const TComponentReadOptions& options, bool strictReferences, TRenameProc rename)
        : FOptions(options), FStrict(strictReferences), FRename(std::move(rename)) {}

    TComponent* ReadRoot(const TDfmObject& node, TComponent* owner, TComponent* root) {
        try {
            TComponent* comp = root;
            if (root) {
                FRoot = root;
                BeginPreexisting(root, node.Kind == TDfmObjectKind::Inherited);
                if (!node.Name.empty() && node.Name != root->Name()) {
                    std::string old = root->Name();
                    Guard(root->Name(), node.Line, [&] { root->SetName(node.Name); });
                    FUndo.push_back([root, old] { root->SetName(old); });
                }
            } else {
                TClass cls = FindComponentClass(node);
                comp = Guard(node.Name, node.Line, [&] { return cls->CreateComponent(owner); });
                FCreated.push_back(comp);
                FRoot = comp;
                comp->BeginLoading();
                FLoaded.push_back(comp);
                if (node.Kind == TDfmObjectKind::Inline) comp->SetInline(true);
                if (!node.Name.empty()) Guard(node.Name, node.Line, [&] { comp->SetName(node.Name); });
            }
            std::string path = comp->Name().empty() ? comp->ClassName() : comp->Name();
            ReadBody(node, comp, comp, comp, path, root != nullptr);
            Finish();
            return comp;
        } catch (...) {
            Rollback();
            throw;
        }
    }

    std::vector<TComponent*> ReadList(const TDfmDocument& doc, TComponent* root, TComponent* parent) {
        std::vector<TComponent*> result;
        try {
            FRoot = root;
            for (const TDfmObject& node : doc.Objects) {
                TComponent* c = ReadChild(node, parent, root,
                                          root->Name().empty() ? root->ClassName() : root->Name(), true);
                result.push_back(c);
            }
            Finish();
            return result;
        } catch (...) {
            Rollback();
            throw;
        }
    }

private:
    const TComponentReadOptions& FOptions;
    bool FStrict;
    TRenameProc FRename;
    TComponent* FRoot = nullptr;
    std::vector<TComponent*> FCreated; // in creation order
    std::vector<TComponent*> FLoaded;  // in loading state, root first
    std::vector<std::pair<TComponent*, TComponentState>> FSavedStates;
    std::vector<std::function<void()>> FUndo; // restores objects that existed before the read
    std::vector<TFixup> FFixups;
    std::unordered_map<std::string, std::string> FRenamed; // upper-case name as written -> name given

    static std::string Upper(std::string_view s) { return UpperCase(s); }

    // Runs f; a platform error other than a positioned read error becomes one naming path and line.
    template <class F> auto Guard(const std::string& path, int line, F&& f) -> decltype(f()) {
        try {
            return f();
        } catch (EPositionedReadError&) {
            throw;
        } catch (EClassNotFound&) {
            throw;
        } catch (Exception& e) {
            throw EPositionedReadError("Error reading " + path + ": " + e.Message() + " (line " +
                                       IntToStr(line) + ")");
        }
    }

    TClass FindComponentClass(const TDfmObject& node) {
        TClass cls = GetClass(node.ClassName);
        if (!cls) throw EClassNotFound(Format(SClassNotFound, {node.ClassName}));
        if (!cls->InheritsFrom(TComponent::StaticClass()) || !cls->CanCreateComponent())
            throw EPositionedReadError("Error reading " + node.Name + ": Class " + node.ClassName +
                                       " is not a component class (line " + IntToStr(node.Line) + ")");
        return cls;
    }

    void BeginPreexisting(TComponent* c, bool ancestor) {
        FSavedStates.emplace_back(c, c->ComponentState());
        c->BeginLoading();
        if (ancestor) TComponentAccess::SetState(c, csAncestor, true);
        FLoaded.push_back(c);
    }

    std::string NameFor(TComponent* comp, const std::string& written, TComponent* owner) {
        if (!FRename || written.empty()) return written;
        TComponent* taken = owner->FindComponent(written);
        if (!taken || taken == comp) return written;
        std::string fresh = FRename(comp, written);
        FRenamed[Upper(written)] = fresh;
        return fresh;
    }

    TComponent* ReadChild(const TDfmObject& node, TComponent* parent, TComponent* lookupRoot,
                          const std::string& rootPath, bool pasting = false) {
        std::string path = rootPath + "." + (node.Name.empty() ? node.ClassName : node.Name);
        TComponent* comp;
        bool preexisting = false;
        if (node.Kind == TDfmObjectKind::Inherited && !pasting) {
            comp = node.Name.empty() ? nullptr : lookupRoot->FindComponent(node.Name);
            if (!comp)
                throw EPositionedReadError("Error reading " + path + ": Ancestor for '" + node.Name +
                                           "' not found (line " + IntToStr(node.Line) + ")");
            preexisting = true;
            BeginPreexisting(comp, true);
        } else {
            TClass cls = FindComponentClass(node);
            comp = Guard(path, node.Line, [&] { return cls->CreateComponent(lookupRoot); });
            FCreated.push_back(comp);
            comp->BeginLoading();
            FLoaded.push_back(comp);
            if (node.Kind == TDfmObjectKind::Inline) comp->SetInline(true);
            if (!node.Name.empty())
                Guard(path, node.Line, [&] { comp->SetName(NameFor(comp, node.Name, lookupRoot)); });
            if (parent) Guard(path, node.Line, [&] { comp->SetParentComponent(parent); });
        }
        if (node.Order && parent)
            Guard(path, node.Line, [&] { parent->SetChildOrder(comp, static_cast<int>(*node.Order)); });
        // What an inline component holds is named and owned within it.
        TComponent* childRoot = node.Kind == TDfmObjectKind::Inline ? comp : lookupRoot;
        ReadBody(node, comp, lookupRoot, childRoot, path, preexisting);
        return comp;
    }

    // propRoot names the references in comp's own properties; childRoot owns and names what is inside comp.
    void ReadBody(const TDfmObject& node, TComponent* comp, TComponent* propRoot, TComponent* childRoot,
                  const std::string& path, bool preexisting) {
        for (const TDfmProperty& prop : node.Properties)
            Guard(path + "." + prop.Name, prop.Line,
                  [&] { ReadProperty(comp, prop.Name, prop.Value, path, prop.Line, propRoot, preexisting); });
        for (const TDfmObject& child : node.Children)
            ReadChild(child, comp, childRoot, path);
    }

    // Sets a possibly dotted property ("Font.Style", "Items.Strings") of obj.
    void ReadProperty(TPersistent* obj, const std::string& name, const TDfmValue& value,
                      const std::string& path, int line, TComponent* lookupRoot, bool preexisting) {
        std::vector<std::string> segs = SplitDots(name);
        TPersistent* target = obj;
        for (size_t i = 0; i + 1 < segs.size(); ++i) {
            const TPropInfo* p = target->ClassType()->FindProperty(segs[i]);
            if (!p) throw EReadError(Format(SUnknownProperty, {segs[i]}));
            if (p->PropType->Kind != tkClass)
                throw EReadError("Invalid property path: " + segs[i] + " has no properties");
            auto* next = dynamic_cast<TPersistent*>(GetObjectProp(target, *p));
            if (!next) throw EReadError("Invalid property path: " + segs[i] + " is nil");
            target = next;
        }
        const std::string& last = segs.back();
        if (const TPropInfo* p = target->ClassType()->FindProperty(last)) {
            SetValue(target, *p, value, path + "." + name, line, lookupRoot, preexisting);
            return;
        }
        TReadFiler filer(last, value, FRoot, FOptions.RawCodePage);
        target->DefineProperties(filer);
        if (!filer.Handled) throw EReadError(Format(SUnknownProperty, {last}));
    }

    void SaveForUndo(TObject* obj, const TPropInfo& p) {
        switch (p.PropType->Kind) {
        case tkInteger:
        case tkInt64:
        case tkChar:
        case tkWChar:
        case tkEnumeration:
        case tkSet:
            if (p.GetOrd && p.SetOrd) FUndo.push_back([obj, &p, v = p.GetOrd(obj)] { p.SetOrd(obj, v); });
            break;
        case tkFloat:
            if (p.GetFloat && p.SetFloat)
                FUndo.push_back([obj, &p, v = p.GetFloat(obj)] { p.SetFloat(obj, v); });
            break;
        case tkString:
        case tkLString:
        case tkWString:
            if (p.GetStr && p.SetStr) FUndo.push_back([obj, &p, v = p.GetStr(obj)] { p.SetStr(obj, v); });
            break;
        case tkClass:
            if (p.GetObj && p.SetObj) FUndo.push_back([obj, &p, v = p.GetObj(obj)] { p.SetObj(obj, v); });
            break;
        case tkMethod:
            if (p.GetMethod && p.SetMethod)
                FUndo.push_back([obj, &p, v = p.GetMethod(obj)] { p.SetMethod(obj, v); });
            break;
        default:
            break;
        }
    }

    static int64_t EnumValue(const TTypeInfo* t, const TDfmValue& v) {
        if (v.Kind != TDfmValueKind::Ident) WrongKind("an identifier", v);
        int n = GetEnumValue(t, v.Text);
        if (n < 0) InvalidValue("'" + v.Text + "' is not a " + t->Name + " value");
        return n;
    }

    void SetValue(TObject* obj, const TPropInfo& p, const TDfmValue& v, const std::string& path, int line,
                  TComponent* lookupRoot, bool preexisting) {
        const TTypeInfo* t = p.PropType;
        if (t->Kind == tkClass) {
            SetClassValue(obj, p, v, path, line, lookupRoot, preexisting);
            return;
        }
        if (preexisting) SaveForUndo(obj, p);
        switch (t->Kind) {
        case tkInteger:
        case tkInt64: {
            int64_t n = 0;
            if (v.Kind == TDfmValueKind::Integer) {
                n = v.Int;
                // Eight hex digits spell a 32-bit pattern ($FF00000F), as colour values are written.
                if (!v.Text.empty() && v.Text[0] == '$' && t->Kind == tkInteger && t->OrdType == otSLong &&
                    n > INT32_MAX && n <= int64_t(UINT32_MAX))
                    n = static_cast<int32_t>(static_cast<uint32_t>(n));
            } else if (v.Kind == TDfmValueKind::Ident) {
                if (!IdentToIntOf(t, v.Text, n))
                    InvalidValue("'" + v.Text + "' is not a " + t->Name + " value");
            } else {
                WrongKind("an integer", v);
            }
            SetOrdProp(obj, p, n);
            break;
        }
        case tkChar:
        case tkWChar: {
            int64_t n = 0;
            if (v.Kind == TDfmValueKind::Integer)
                n = v.Int;
            else if (v.Kind == TDfmValueKind::String && v.Str.Length() == 1)
                n = v.Str.Units[0] & ~TDfmString::RawByte;
            else
                WrongKind("a character", v);
            SetOrdProp(obj, p, n);
            break;
        }
        case tkEnumeration:
            SetOrdProp(obj, p, EnumValue(t, v));
            break;
        case tkSet: {
            if (v.Kind != TDfmValueKind::Set) WrongKind("a set", v);
            uint64_t bits = 0;
            for (const TDfmValue& m : v.Items) {
                int64_t bit = m.Kind == TDfmValueKind::Integer ? m.Int : EnumValue(t->CompType, m);
                if (bit < 0 || bit > 63) throw ERangeError(SRangeError);
                bits |= uint64_t(1) << bit;
            }
            SetOrdProp(obj, p, static_cast<int64_t>(bits));
            break;
        }
        case tkFloat:
            if (v.Kind == TDfmValueKind::Integer)
                SetFloatProp(obj, p, static_cast<double>(v.Int));
            else if (v.Kind == TDfmValueKind::Float)
                SetFloatProp(obj, p, v.Float);
            else
                WrongKind("a number", v);
            break;
        case tkString:
        case tkLString:
        case tkWString:
            if (v.Kind != TDfmValueKind::String) WrongKind("a string", v);
            SetStrProp(obj, p, v.Str.ToUtf8(FOptions.RawCodePage));
            break;
        case tkMethod: {
            if (v.Kind != TDfmValueKind::Ident) WrongKind("a method name", v);
            TMethod m;
            if (!v.IsIdent("nil")) m.Name = v.Text;
            SetMethodProp(obj, p, m);
            break;
        }
        default:
            InvalidValue("properties of type " + t->Name + " cannot be read");
        }
    }

    void SetClassValue(TObject* obj, const TPropInfo& p, const TDfmValue& v, const std::string& path,
                       int line, TComponent* lookupRoot, bool preexisting) {
        TClass cls = p.PropType->ClassType;
        if (v.Kind == TDfmValueKind::Ident) {
            if (v.IsIdent("nil")) {
                if (preexisting) SaveForUndo(obj, p);
                SetObjectProp(obj, p, nullptr);
                return;
            }
            if (!cls || !cls->InheritsFrom(TComponent::StaticClass())) WrongKind("a collection or nil", v);
            if (!p.SetObj) throw EPropertyError("Property " + p.Name + " is read only");
            FFixups.push_back(TFixup{obj, &p, v.Text, lookupRoot, path, line, preexisting});
            return;
        }
        if (v.Kind == TDfmValueKind::Collection) {
            auto* coll = dynamic_cast<TCollection*>(GetObjectProp(obj, p));
            if (!coll) InvalidValue(p.Name + " is not a collection");
            ReadCollection(coll, v, path, lookupRoot, preexisting);
            return;
        }
        WrongKind("a component name", v);
    }

    void ReadCollection(TCollection* coll, const TDfmValue& v, const std::string& path,
                        TComponent* lookupRoot, bool preexisting) {
        if (preexisting && coll->Count() > 0) {
            // Keep a copy to put back if the read fails; items that cannot be copied are not restored.
            try {
                auto copy = std::make_shared<TCollection>(coll->ItemClass());
                copy->Assign(coll);
                FUndo.push_back([coll, copy] { coll->Assign(copy.get()); });
            } catch (Exception&) {
            }
        } else if (preexisting) {
            FUndo.push_back([coll] { coll->Clear(); });
        }
        coll->BeginUpdate();
        try {
            coll->Clear();
            for (size_t i = 0; i < v.CollectionItems.size(); ++i) {
                const TDfmItem& item = v.CollectionItems[i];
                TCollectionItem* ci = coll->Add();
                std::string itemPath = path + "[" + IntToStr(static_cast<int64_t>(i)) + "]";
                for (const TDfmProperty& prop : item.Properties)
                    Guard(itemPath + "." + prop.Name, prop.Line, [&] {
                        ReadProperty(ci, prop.Name, prop.Value, itemPath, prop.Line, lookupRoot, false);
                    });
            }
        } catch (...) {
            coll->EndUpdate();
            throw;
        }
        coll->EndUpdate();
    }

    TComponent* FindLocal(TComponent* root, std::string_view name) {
        if (TComponent* c = root->FindComponent(name)) return c;
        if (SameText(root->Name(), name)) return root;
        return nullptr;
    }

    TComponent* Resolve(const TFixup& f) {
        std::vector<std::string> segs = SplitDots(f.Name);
        if (segs.size() == 1) {
            auto it = FRenamed.find(Upper(segs[0]));
            if (it != FRenamed.end()) segs[0] = it->second;
        }
        TComponent* c = FindLocal(f.LookupRoot, segs[0]);
        if (!c && f.LookupRoot != FRoot) c = FindLocal(FRoot, segs[0]);
        if (!c) c = FindGlobalComponent(segs[0]);
        for (size_t i = 1; c && i < segs.size(); ++i)
            c = c->FindComponent(segs[i]);
        return c;
    }

    void Finish() {
        for (const TFixup& f : FFixups) {
            TComponent* target = Resolve(f);
            bool otherRoot = f.Name.find('.') != std::string::npos;
            if (!target) {
                // References into roots that are not loaded, and pasted references to what the root lacks,
                // stay nil, as the designer shows them.
                if (!FStrict || otherRoot) continue;
                throw EPositionedReadError("Error reading " + f.Path + ": " + SInvalidPropertyValue +
                                           ": component '" + f.Name + "' not found (line " +
                                           IntToStr(f.Line) + ")");
            }
            Guard(f.Path, f.Line, [&] {
                TClass want = f.Prop->PropType->ClassType;
                if (want && !target->InheritsFrom(want))
                    InvalidValue("'" + f.Name + "' is a " + target->ClassName() + ", not a " +
                                 want->ClassName());
                if (f.Preexisting) SaveForUndo(f.Instance, *f.Prop);
                SetObjectProp(f.Instance, *f.Prop, target);
            });
        }
        FFixups.clear();
        for (TComponent* c : FLoaded)
            c->EndLoading();
        FLoaded.clear();
        FCreated.clear();
        FUndo.clear();
        FSavedStates.clear();
    }

    void Rollback() noexcept {
        for (auto it = FUndo.rbegin(); it != FUndo.rend(); ++it) {
            try {
                (*it)();
            } catch (...) {
            }
        }
        for (auto it = FSavedStates.rbegin(); it != FSavedStates.rend(); ++it) {
            TComponent* c = it->first;
            for (TComponentStateFlag f : {csLoading, csReading, csAncestor})
                TComponentAccess::SetState(c, f, it->second.Contains(f));
        }
        // Children were created after their parents and owners: freeing backwards never frees twice.
        for (auto it = FCreated.rbegin(); it != FCreated.rend(); ++it) {
            try {
                (*it)->Free();
            } catch (...) {
            }
        }
        FCreated.clear();
        FLoaded.clear();
        FUndo.clear();
        FSavedStates.clear();
        FFixups.clear();
    }
};
} // namespace

TComponent* ReadComponentText(const std::string& Text, TComponent* Owner, TComponent* Root,
                              const TComponentReadOptions& Options) {
    TDfmDocument doc = ParseDfm(Text);
    if (doc.Objects.size() != 1)
        throw EReadError("One root object expected, but the text holds " +
                         IntToStr(static_cast<int64_t>(doc.Objects.size())));
    TComponentLoader loader(Options, true, {});
    return loader.ReadRoot(doc.Objects.front(), Owner, Root);
}

TComponent* ReadComponentText(const std::string& Text, TComponent* Owner, TComponent* Root) {
    return ReadComponentText(Text, Owner, Root, TComponentReadOptions{});
}

std::vector<TComponent*> ReadComponentsText(const std::string& Text, TComponent* Root, TComponent* Parent,
                                            const TRenameProc& Rename) {
    if (!Root) throw EReadError("Components can only be read into a root");
    TDfmDocument doc = ParseDfm(Text);
    TComponentReadOptions options;
    TComponentLoader loader(options, false, Rename);
    return loader.ReadList(doc, Root, Parent);
}

} // namespace rtl
