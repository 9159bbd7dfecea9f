// Persistent objects and components: TPersistent, TComponent with ownership, names and notifications,
// collections, the streaming class registry, and the filer interfaces that DefineProperties uses.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "rtl/typinfo.h"

namespace rtl {

class TFiler;
class TReader;
class TWriter;
class TComponent;

class TPersistent : public TObject {
    JEX_CLASS(TPersistent, TObject)
    // Copies Source into this object; falls back to Source->AssignTo(this), and raises EConvertError
    // "Cannot assign a X to a Y" when neither side knows how.
    virtual void Assign(TPersistent* Source);
    // The object that owns this one in a property path (a component for its Font, a collection for its
    // items). Used for GetNamePath.
    virtual TPersistent* GetOwner() const { return nullptr; }
    // "Form1.Button1.Font": the path the designer and error messages use.
    virtual std::string GetNamePath() const;
    // Declares values streamed under names that are not published properties ("Strings", "Data").
    virtual void DefineProperties(TFiler& Filer) {}

protected:
    virtual void AssignTo(TPersistent* Dest);
    [[noreturn]] void AssignError(const TPersistent* Source);
};

// ---- Filer interfaces ----------------------------------------------------------------------------------
// The component reader and writer hand these to DefineProperties. A reader walks one value (a list, a
// string, an integer ...) of the form file; a writer produces one.
class TReader {
public:
    virtual ~TReader() = default;
    enum TValueType { vaNull, vaList, vaInteger, vaExtended, vaString, vaIdent, vaFalse, vaTrue, vaBinary, vaSet, vaCollection, vaNil };
    virtual TValueType NextValue() = 0;
    virtual void ReadListBegin() = 0;
    virtual bool EndOfList() = 0;
    virtual void ReadListEnd() = 0;
    virtual std::string ReadString() = 0; // UTF-8
    virtual int32_t ReadInteger() = 0;
    virtual int64_t ReadInt64() = 0;
    virtual double ReadFloat() = 0;
    virtual bool ReadBoolean() = 0;
    virtual std::string ReadIdent() = 0;
    // The component being read and the root of the tree, for references.
    virtual TComponent* Root() const = 0;
};

class TWriter {
public:
    virtual ~TWriter() = default;
    virtual void WriteListBegin() = 0;
    virtual void WriteListEnd() = 0;
    virtual void WriteString(std::string_view value) = 0; // UTF-8
    virtual void WriteInteger(int64_t value) = 0;
    virtual void WriteFloat(double value) = 0;
    virtual void WriteBoolean(bool value) = 0;
    virtual void WriteIdent(std::string_view ident) = 0;
    virtual TComponent* Root() const = 0;
};

// Passed to DefineProperties. Ancestor is the object of the ancestor form being compared against when
// writing an inherited form (nil otherwise).
class TFiler {
public:
    virtual ~TFiler() = default;
    using TReaderProc = std::function<void(TReader&)>;
    using TWriterProc = std::function<void(TWriter&)>;
    using TStreamReadProc = std::function<void(const std::vector<uint8_t>&)>;
    using TStreamWriteProc = std::function<void(std::vector<uint8_t>&)>;
    virtual void DefineProperty(const std::string& Name, TReaderProc ReadData, TWriterProc WriteData, bool HasData) = 0;
    virtual void DefineBinaryProperty(const std::string& Name, TStreamReadProc ReadData, TStreamWriteProc WriteData,
                                      bool HasData) = 0;
    TPersistent* Ancestor = nullptr;
};

// ---- Components ------------------------------------------------------------------------------------
JEX_ENUM(TComponentStateFlag, csLoading, csReading, csWriting, csDestroying, csDesigning, csAncestor, csUpdating,
         csFixups, csFreeNotification, csInline, csDesignInstance)
JEX_SET(TComponentState, TComponentStateFlag)
JEX_ENUM(TOperation, opInsert, opRemove)

using TGetChildProc = std::function<void(TComponent*)>;

// Hook through which a root component under design reports to its designer (rename checks, inserted and
// removed components). The design layer implements it; nil at run time.
class IDesignerNotify {
public:
    virtual ~IDesignerNotify() = default;
    virtual void Notification(TComponent* AComponent, TOperation Operation) = 0;
    virtual void ValidateRename(TComponent* AComponent, const std::string& CurName, const std::string& NewName) = 0;
};

class TComponent : public TPersistent {
    JEX_CLASS(TComponent, TPersistent)
    explicit TComponent(TComponent* AOwner);
    ~TComponent() override;
    void BeforeDestruction() override;

    TComponent* Owner() const { return FOwner; }
    int ComponentCount() const { return static_cast<int>(FComponents.size()); }
    TComponent* Components(int index) const; // raises EListError out of range
    const std::vector<TComponent*>& ComponentList() const { return FComponents; }
    int ComponentIndex() const;
    void SetComponentIndex(int value);

    const std::string& Name() const { return FName; }
    // Validates (identifier rules, unique among the owner's components ignoring case) and renames.
    virtual void SetName(const std::string& NewName);
    int32_t Tag() const { return FTag; }
    void SetTag(int32_t v) { FTag = v; }

    TComponentState ComponentState() const { return FComponentState; }
    bool IsDesigning() const { return FComponentState.Contains(csDesigning); }
    bool IsLoading() const { return FComponentState.Contains(csLoading); }
    bool IsDestroying() const { return FComponentState.Contains(csDestroying); }
    void SetDesigning(bool value, bool setChildren = true);
    void SetInline(bool value);
    void SetAncestor(bool value);
    void SetDesignInstance(bool value);
    // Marks loading state while a reader fills the component (csLoading + csReading), then Loaded.
    void BeginLoading();
    void EndLoading();

    // Case-insensitive lookup among the owned components; O(1).
    TComponent* FindComponent(std::string_view name) const;
    void InsertComponent(TComponent* AComponent);
    void RemoveComponent(TComponent* AComponent);
    void DestroyComponents();
    void Destroying();

    // Asks to be told (Notification with opRemove) when AComponent is destroyed, across owners.
    void FreeNotification(TComponent* AComponent);
    void RemoveFreeNotification(TComponent* AComponent);

    // Streaming hooks: which components are written as children, which parent a read child gets.
    virtual void GetChildren(const TGetChildProc& Proc, TComponent* Root);
    virtual TComponent* GetParentComponent() const { return nullptr; }
    virtual bool HasParent() const { return false; }
    virtual void SetParentComponent(TComponent* Value) {}
    virtual void SetChildOrder(TComponent* Child, int Order) {}
    virtual void Loaded();

    TPersistent* GetOwner() const override { return FOwner; }
    std::string GetNamePath() const override { return FName; }

    // The designer hook of a root under design (see IDesignerNotify); inherited by owned components.
    IDesignerNotify* Designer() const;
    void SetDesigner(IDesignerNotify* d) { FDesigner = d; }

protected:
    virtual void Notification(TComponent* AComponent, TOperation Operation);
    virtual void ValidateRename(TComponent* AComponent, const std::string& CurName, const std::string& NewName);
    virtual void ValidateInsert(TComponent* AComponent) {}
    virtual void ValidateContainer(TComponent* AComponent) {}
    void SetComponentStateFlag(TComponentStateFlag f, bool on);
    friend class TComponentAccess;

private:
    void Insert(TComponent* c);
    void Remove(TComponent* c);
    void ChangeName(const std::string& NewName);
    void IndexName(TComponent* c);
    void UnindexName(TComponent* c);
    void SendRemoveNotifications();

    struct CaseInsensitiveHash {
        using is_transparent = void;
        size_t operator()(std::string_view s) const noexcept;
    };
    struct CaseInsensitiveEqual {
        using is_transparent = void;
        bool operator()(std::string_view a, std::string_view b) const noexcept;
    };

    TComponent* FOwner = nullptr;
    std::string FName;
    int32_t FTag = 0;
    TComponentState FComponentState;
    std::vector<TComponent*> FComponents;
    std::unordered_map<std::string, TComponent*, CaseInsensitiveHash, CaseInsensitiveEqual> FNameIndex;
    std::vector<TComponent*> FFreeNotifies;
    IDesignerNotify* FDesigner = nullptr;
    bool FRemoveNotified = false;
};

// Lets the streaming and design layers call the protected notification entry points.
class TComponentAccess {
public:
    static void Notification(TComponent* target, TComponent* c, TOperation op) { target->Notification(c, op); }
    static void SetState(TComponent* c, TComponentStateFlag f, bool on) { c->SetComponentStateFlag(f, on); }
};

// ---- Collections ---------------------------------------------------------------------------------------
class TCollection;

class TCollectionItem : public TPersistent {
    JEX_CLASS(TCollectionItem, TPersistent)
    explicit TCollectionItem(TCollection* Collection);
    ~TCollectionItem() override;

    TCollection* Collection() const { return FCollection; }
    void SetCollection(TCollection* value);
    int Index() const;
    void SetIndex(int value);
    int ID() const { return FID; }
    virtual std::string GetDisplayName() const;
    virtual void SetDisplayName(const std::string& value) {}
    std::string DisplayName() const { return GetDisplayName(); }
    TPersistent* GetOwner() const override;
    std::string GetNamePath() const override;

protected:
    void Changed(bool AllItems);

private:
    friend class TCollection;
    TCollection* FCollection = nullptr;
    int FID = 0;
};

class TCollection : public TPersistent {
    JEX_CLASS(TCollection, TPersistent)
    explicit TCollection(TClass ItemClass);
    ~TCollection() override;

    TCollectionItem* Add();
    TCollectionItem* Insert(int index);
    void Delete(int index);
    void Clear();
    int Count() const { return static_cast<int>(FItems.size()); }
    TCollectionItem* Items(int index) const; // raises EListError out of range
    TCollectionItem* FindItemID(int id) const;
    TClass ItemClass() const { return FItemClass; }
    void BeginUpdate();
    void EndUpdate();
    int UpdateCount() const { return FUpdateCount; }
    void Assign(TPersistent* Source) override;
    std::string GetNamePath() const override;
    // The owner's property that holds this collection, for name paths ("Panels"); set by the owner.
    std::string PropName;

    // Called after any change; Item is nil when several items changed.
    virtual void Update(TCollectionItem* Item) {}
    TNotifyEvent OnChange;

protected:
    friend class TCollectionItem;
    void Changed();
    virtual void Notify(TCollectionItem* Item, bool Added) {}

private:
    void InsertItem(TCollectionItem* item);
    void RemoveItem(TCollectionItem* item);
    TClass FItemClass;
    std::vector<TCollectionItem*> FItems;
    int FNextID = 0;
    int FUpdateCount = 0;
    bool FClearing = false;
};

// A collection that knows its owning persistent (the usual kind for published collection properties).
class TOwnedCollection : public TCollection {
    JEX_CLASS(TOwnedCollection, TCollection)
    TOwnedCollection(TPersistent* AOwner, TClass ItemClass) : TCollection(ItemClass), FOwner(AOwner) {}
    TPersistent* GetOwner() const override { return FOwner; }

private:
    TPersistent* FOwner;
};

// ---- Streaming class registry ----------------------------------------------------------------------------
// Classes registered by name can be created from form files. Registering the same class twice is a no-op;
// another class under a taken name raises EFilerError "A class named %s already exists".
void RegisterClass(TClass AClass);
void RegisterClasses(std::initializer_list<TClass> classes);
void RegisterClasses(const std::vector<TClass>& classes);
void RegisterClassAlias(TClass AClass, const std::string& Alias);
void UnRegisterClass(TClass AClass);
void UnRegisterClasses(std::initializer_list<TClass> classes);
void UnRegisterClasses(const std::vector<TClass>& classes);
TClass GetClass(std::string_view ClassName);  // nil when not registered in an active group
TClass FindClass(std::string_view ClassName); // raises EClassNotFound "Class %s not found"
// Class groups: StartClassGroup makes a group rooted at AClass; classes registered later go to the group
// of their most derived root. ActivateClassGroup activates the group that holds AClass and returns the
// root of the group that was active before (nil when none).
void StartClassGroup(TClass AClass);
void GroupDescendentsWith(TClass AClass, TClass AClassGroup);
TClass ActivateClassGroup(TClass AClass);
TClass ClassGroupOf(TClass AClass);
// Number of times a class name is present in the registry (0 or 1); for checks and tests.
int RegisteredClassCount(std::string_view ClassName);
std::vector<TClass> RegisteredClasses();

} // namespace rtl
