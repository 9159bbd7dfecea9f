// Lists: TList of untyped pointers, and TStrings / TStringList with objects per line, sorting, and the
// platform's line-break and file rules.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "rtl/classes.h"

namespace rtl {

// A list of unowned pointers. Indexing outside the list raises EListError "List index out of bounds (%d)".
class TList : public TObject {
    JEX_CLASS(TList, TObject)
    TList() = default;
    int Add(void* item);
    void Insert(int index, void* item);
    void Delete(int index);
    int Remove(void* item); // index it had, or -1
    int IndexOf(void* item) const;
    void Clear();
    void Exchange(int a, int b);
    void Move(int from, int to);
    void Pack(); // removes nil entries
    void Sort(int (*compare)(void*, void*));
    void* Items(int index) const;
    void SetItem(int index, void* item);
    void* First() const;
    void* Last() const;
    int Count() const { return static_cast<int>(FItems.size()); }
    void SetCount(int n);
    const std::vector<void*>& List() const { return FItems; }

private:
    std::vector<void*> FItems;
};

enum TDuplicates { dupIgnore, dupAccept, dupError };

// Abstract list of strings with an object per line. Text joins lines with CR LF; assigning Text or loading a
// file splits on CR LF, LF or CR alone (LF followed by CR is two breaks), a final line without a break
// counts, a final break adds no empty line, and a NUL ends the text.
class TStrings : public TPersistent {
    JEX_CLASS(TStrings, TPersistent)
    TStrings() = default;

    virtual std::string Get(int index) const = 0;
    virtual int GetCount() const = 0;
    virtual TObject* GetObject(int index) const { return nullptr; }
    virtual void Put(int index, const std::string& s);
    virtual void PutObject(int index, TObject* obj) {}
    virtual void Insert(int index, const std::string& s) = 0;
    virtual void InsertObject(int index, const std::string& s, TObject* obj);
    virtual void Delete(int index) = 0;
    virtual void Clear() = 0;
    virtual int Add(const std::string& s);
    virtual int AddObject(const std::string& s, TObject* obj);
    virtual int IndexOf(std::string_view s) const; // ignoring case (TStringList: unless CaseSensitive)
    virtual void Exchange(int a, int b);
    virtual void Move(int from, int to);
    virtual std::string GetText() const;
    virtual void SetText(std::string_view text);

    int Count() const { return GetCount(); }
    std::string Strings(int index) const { return Get(index); }
    std::string operator[](int index) const { return Get(index); }
    TObject* Objects(int index) const { return GetObject(index); }
    void Append(const std::string& s) { Add(s); }
    void AddStrings(const TStrings* strings);
    void AddStrings(const std::vector<std::string>& strings);
    int IndexOfObject(const TObject* obj) const;
    int IndexOfName(std::string_view name) const;
    std::string Names(int index) const; // text before the first '='
    std::string Values(std::string_view name) const;
    void SetValues(std::string_view name, const std::string& value);
    std::string Text() const { return GetText(); }
    std::string CommaText() const;
    void SetCommaText(std::string_view text);
    bool Equals(const TStrings* other) const;
    std::vector<std::string> ToVector() const;

    void BeginUpdate();
    void EndUpdate();
    int UpdateCount() const { return FUpdateCount; }

    void LoadFromFile(const std::string& fileName);     // raises EFOpenError
    void SaveToFile(const std::string& fileName) const; // every line followed by CR LF; raises EFCreateError
    void LoadFromBytes(std::string_view bytes);
    std::string SaveToBytes() const;

    void Assign(TPersistent* Source) override;
    void DefineProperties(TFiler& Filer) override; // "Strings" = ( 'line' ... )

protected:
    virtual void SetUpdateState(bool updating) {}
    // How IndexOf, IndexOfName and Values compare: ignoring case here, TStringList honours CaseSensitive.
    virtual int CompareStrings(std::string_view a, std::string_view b) const;
    [[noreturn]] void Error(const char* msg, int index) const;

private:
    int FUpdateCount = 0;
};

class TStringList : public TStrings {
    JEX_CLASS(TStringList, TStrings)
    TStringList() = default;
    ~TStringList() override;

    std::string Get(int index) const override;
    int GetCount() const override { return static_cast<int>(FItems.size()); }
    TObject* GetObject(int index) const override;
    void Put(int index, const std::string& s) override;
    void PutObject(int index, TObject* obj) override;
    void Insert(int index, const std::string& s) override;
    void InsertObject(int index, const std::string& s, TObject* obj) override;
    void Delete(int index) override;
    void Clear() override;
    int Add(const std::string& s) override;
    int AddObject(const std::string& s, TObject* obj) override;
    int IndexOf(std::string_view s) const override;
    void Exchange(int a, int b) override;
    void Move(int from, int to) override; // in place; raises on a sorted list

    // Binary search on a sorted list: true and the index when found, else false and the insert position.
    bool Find(std::string_view s, int& index) const;
    void Sort();
    void CustomSort(int (*compare)(TStringList* list, int a, int b));
    bool Sorted() const { return FSorted; }
    void SetSorted(bool value);
    TDuplicates Duplicates() const { return FDuplicates; }
    void SetDuplicates(TDuplicates d) { FDuplicates = d; }
    bool CaseSensitive() const { return FCaseSensitive; }
    void SetCaseSensitive(bool value);
    // When set, the list frees its objects on Delete, Clear and destruction.
    bool OwnsObjects = false;

    TNotifyEvent OnChange;
    TNotifyEvent OnChanging;

protected:
    void SetUpdateState(bool updating) override;
    virtual void Changed();
    virtual void Changing();
    int CompareStrings(std::string_view a, std::string_view b) const override;

private:
    struct Item {
        std::string Str;
        TObject* Obj = nullptr;
    };
    void InsertItem(int index, const std::string& s, TObject* obj);
    void SortItems(const std::function<int(int, int)>& compare);
    std::vector<Item> FItems;
    bool FSorted = false;
    bool FCaseSensitive = false;
    TDuplicates FDuplicates = dupIgnore;
};

} // namespace rtl
