// TList, TStrings and TStringList: the platform's pointer and string lists, including its line-break,
// comma-text and name=value conventions and the "Strings" form-file property.
#include "rtl/lists.h"

#include <algorithm>
#include <numeric>

namespace rtl {

namespace {
constexpr const char* SListCountError = "List count out of bounds (%d)";

[[noreturn]] void ListIndexError(int index) {
    throw EListError(Format(SListIndexError, {index}));
}
} // namespace

// ---- TList ------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TList, TObject, "Classes") {}

int TList::Add(void* item) {
    FItems.push_back(item);
    return Count() - 1;
}

void TList::Insert(int index, void* item) {
    if (index < 0 || index > Count()) ListIndexError(index);
    FItems.insert(FItems.begin() + index, item);
}

void TList::Delete(int index) {
    if (index < 0 || index >= Count()) ListIndexError(index);
    FItems.erase(FItems.begin() + index);
}

int TList::Remove(void* item) {
    int i = IndexOf(item);
    if (i >= 0) Delete(i);
    return i;
}

int TList::IndexOf(void* item) const {
    auto it = std::find(FItems.begin(), FItems.end(), item);
    return it == FItems.end() ? -1 : static_cast<int>(it - FItems.begin());
}

void TList::Clear() {
    FItems.clear();
}

void TList::Exchange(int a, int b) {
    if (a < 0 || a >= Count()) ListIndexError(a);
    if (b < 0 || b >= Count()) ListIndexError(b);
    std::swap(FItems[a], FItems[b]);
}

void TList::Move(int from, int to) {
    if (from < 0 || from >= Count()) ListIndexError(from);
    if (to < 0 || to >= Count()) ListIndexError(to);
    if (from == to) return;
    void* item = FItems[from];
    FItems.erase(FItems.begin() + from);
    FItems.insert(FItems.begin() + to, item);
}

void TList::Pack() {
    FItems.erase(std::remove(FItems.begin(), FItems.end(), nullptr), FItems.end());
}

void TList::Sort(int (*compare)(void*, void*)) {
    // A merge sort stays within bounds even when the comparison is not a strict ordering.
    std::stable_sort(FItems.begin(), FItems.end(), [compare](void* a, void* b) { return compare(a, b) < 0; });
}

void* TList::Items(int index) const {
    if (index < 0 || index >= Count()) ListIndexError(index);
    return FItems[index];
}

void TList::SetItem(int index, void* item) {
    if (index < 0 || index >= Count()) ListIndexError(index);
    FItems[index] = item;
}

void* TList::First() const {
    return Items(0);
}
void* TList::Last() const {
    return Items(Count() - 1);
}

void TList::SetCount(int n) {
    if (n < 0) throw EListError(Format(SListCountError, {n}));
    FItems.resize(static_cast<size_t>(n), nullptr);
}

// ---- TStrings ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TStrings, TPersistent, "Classes") {}

void TStrings::Error(const char* msg, int index) const {
    if (msg == SListIndexError) throw EListError(Format(msg, {index}));
    throw EStringListError(Format(msg, {index}));
}

int TStrings::CompareStrings(std::string_view a, std::string_view b) const {
    return CompareText(a, b);
}

void TStrings::Put(int index, const std::string& s) {
    TObject* obj = GetObject(index);
    Delete(index);
    InsertObject(index, s, obj);
}

void TStrings::InsertObject(int index, const std::string& s, TObject* obj) {
    Insert(index, s);
    PutObject(index, obj);
}

int TStrings::Add(const std::string& s) {
    int result = GetCount();
    Insert(result, s);
    return result;
}

int TStrings::AddObject(const std::string& s, TObject* obj) {
    int result = Add(s);
    PutObject(result, obj);
    return result;
}

int TStrings::IndexOf(std::string_view s) const {
    for (int i = 0, n = GetCount(); i < n; ++i)
        if (CompareStrings(Get(i), s) == 0) return i;
    return -1;
}

void TStrings::Exchange(int a, int b) {
    int n = GetCount();
    if (a < 0 || a >= n) Error(SListIndexError, a);
    if (b < 0 || b >= n) Error(SListIndexError, b);
    if (a == b) return;
    BeginUpdate();
    try {
        std::string sa = Get(a);
        TObject* oa = GetObject(a);
        Put(a, Get(b));
        PutObject(a, GetObject(b));
        Put(b, sa);
        PutObject(b, oa);
    } catch (...) {
        EndUpdate();
        throw;
    }
    EndUpdate();
}

void TStrings::Move(int from, int to) {
    // Both indexes are checked first so that a bad target cannot drop the line being moved.
    int n = GetCount();
    if (from < 0 || from >= n) Error(SListIndexError, from);
    if (to < 0 || to >= n) Error(SListIndexError, to);
    if (from == to) return;
    BeginUpdate();
    try {
        std::string s = Get(from);
        TObject* obj = GetObject(from);
        Delete(from);
        InsertObject(to, s, obj);
    } catch (...) {
        EndUpdate();
        throw;
    }
    EndUpdate();
}

std::string TStrings::GetText() const {
    std::string result;
    for (int i = 0, n = GetCount(); i < n; ++i) {
        result += Get(i);
        result += "\r\n";
    }
    return result;
}

void TStrings::SetText(std::string_view text) {
    size_t nul = text.find('\0');
    if (nul != std::string_view::npos) text = text.substr(0, nul);
    BeginUpdate();
    try {
        Clear();
        size_t i = 0, n = text.size();
        while (i < n) {
            size_t start = i;
            while (i < n && text[i] != '\r' && text[i] != '\n')
                ++i;
            Add(std::string(text.substr(start, i - start)));
            if (i < n) {
                // CR LF is one break; LF CR is two.
                if (text[i] == '\r' && i + 1 < n && text[i + 1] == '\n')
                    i += 2;
                else
                    ++i;
            }
        }
    } catch (...) {
        EndUpdate();
        throw;
    }
    EndUpdate();
}

void TStrings::AddStrings(const TStrings* strings) {
    if (!strings) return;
    BeginUpdate();
    try {
        // Snapshot the count: adding a list to itself must terminate.
        for (int i = 0, n = strings->GetCount(); i < n; ++i)
            AddObject(strings->Get(i), strings->GetObject(i));
    } catch (...) {
        EndUpdate();
        throw;
    }
    EndUpdate();
}

void TStrings::AddStrings(const std::vector<std::string>& strings) {
    BeginUpdate();
    try {
        for (const std::string& s : strings)
            Add(s);
    } catch (...) {
        EndUpdate();
        throw;
    }
    EndUpdate();
}

int TStrings::IndexOfObject(const TObject* obj) const {
    for (int i = 0, n = GetCount(); i < n; ++i)
        if (GetObject(i) == obj) return i;
    return -1;
}

int TStrings::IndexOfName(std::string_view name) const {
    for (int i = 0, n = GetCount(); i < n; ++i) {
        std::string s = Get(i);
        size_t eq = s.find('=');
        if (eq != std::string::npos && CompareStrings(std::string_view(s).substr(0, eq), name) == 0) return i;
    }
    return -1;
}

std::string TStrings::Names(int index) const {
    std::string s = Get(index);
    size_t eq = s.find('=');
    return eq == std::string::npos ? std::string() : s.substr(0, eq);
}

std::string TStrings::Values(std::string_view name) const {
    int i = IndexOfName(name);
    if (i < 0) return {};
    std::string s = Get(i);
    return s.substr(s.find('=') + 1);
}

void TStrings::SetValues(std::string_view name, const std::string& value) {
    int i = IndexOfName(name);
    std::string line = std::string(name) + "=" + value;
    if (!value.empty()) {
        if (i < 0)
            Add(line);
        else
            Put(i, line);
    } else if (i >= 0) {
        Delete(i);
    }
}

std::string TStrings::CommaText() const {
    int n = GetCount();
    if (n == 1 && Get(0).empty()) return "\"\"";
    std::string result;
    for (int i = 0; i < n; ++i) {
        std::string s = Get(i);
        bool quote = std::any_of(s.begin(), s.end(), [](char c) {
            return static_cast<unsigned char>(c) <= ' ' || c == '"' || c == ',';
        });
        if (quote) s = "\"" + StringReplaceAll(s, "\"", "\"\"") + "\"";
        if (i > 0) result += ',';
        result += s;
    }
    return result;
}

void TStrings::SetCommaText(std::string_view text) {
    size_t nul = text.find('\0');
    if (nul != std::string_view::npos) text = text.substr(0, nul);
    auto blank = [&](size_t p) { return p < text.size() && static_cast<unsigned char>(text[p]) <= ' '; };
    BeginUpdate();
    try {
        Clear();
        size_t p = 0, n = text.size();
        while (blank(p))
            ++p;
        while (p < n) {
            std::string s;
            if (text[p] == '"') {
                // A doubled quote inside stands for one; an unterminated quote runs to the end.
                ++p;
                while (p < n) {
                    if (text[p] == '"') {
                        if (p + 1 < n && text[p + 1] == '"') {
                            s += '"';
                            p += 2;
                            continue;
                        }
                        ++p;
                        break;
                    }
                    s += text[p++];
                }
            } else {
                size_t start = p;
                while (p<n&& static_cast<unsigned char>(text[p])> ' ' && text[p] != ',')
                    ++p;
                s = std::string(text.substr(start, p - start));
            }
            Add(s);
            while (blank(p))
                ++p;
            if (p < n && text[p] == ',') {
                do
                    ++p;
                while (blank(p));
            }
        }
    } catch (...) {
        EndUpdate();
        throw;
    }
    EndUpdate();
}

bool TStrings::Equals(const TStrings* other) const {
    if (!other) return false;
    int n = GetCount();
    if (n != other->GetCount()) return false;
    for (int i = 0; i < n; ++i)
        if (Get(i) != other->Get(i)) return false;
    return true;
}

std::vector<std::string> TStrings::ToVector() const {
    std::vector<std::string> result;
    result.reserve(static_cast<size_t>(GetCount()));
    for (int i = 0, n = GetCount(); i < n; ++i)
        result.push_back(Get(i));
    return result;
}

void TStrings::BeginUpdate() {
    if (FUpdateCount == 0) SetUpdateState(true);
    ++FUpdateCount;
}

void TStrings::EndUpdate() {
    if (FUpdateCount == 0) return; // unbalanced call: nothing is held
    if (--FUpdateCount == 0) SetUpdateState(false);
}

void TStrings::LoadFromFile(const std::string& fileName) {
    LoadFromBytes(ReadFileBytes(fileName));
}

void TStrings::SaveToFile(const std::string& fileName) const {
    WriteFileBytes(fileName, SaveToBytes());
}

void TStrings::LoadFromBytes(std::string_view bytes) {
    // Lines are kept as UTF-8. Files written by the original platform are Windows-1252; a file that is not
    // valid UTF-8 is taken to be one of those.
    size_t nul = bytes.find('\0');
    if (nul != std::string_view::npos) bytes = bytes.substr(0, nul);
    if (bytes.substr(0, 3) == "\xEF\xBB\xBF") bytes.remove_prefix(3);
    if (IsValidUtf8(bytes))
        SetText(bytes);
    else
        SetText(Cp1252ToUtf8(bytes));
}

std::string TStrings::SaveToBytes() const {
    return GetText();
}

void TStrings::Assign(TPersistent* Source) {
    if (auto* src = dynamic_cast<TStrings*>(Source)) {
        if (src == this) return;
        BeginUpdate();
        try {
            Clear();
            AddStrings(src);
        } catch (...) {
            EndUpdate();
            throw;
        }
        EndUpdate();
        return;
    }
    TPersistent::Assign(Source);
}

void TStrings::DefineProperties(TFiler& Filer) {
    // Against an ancestor (inherited forms) the lines are written only when they differ from it.
    bool hasData;
    if (Filer.Ancestor) {
        auto* anc = dynamic_cast<TStrings*>(Filer.Ancestor);
        hasData = !anc || !Equals(anc);
    } else {
        hasData = GetCount() > 0;
    }
    Filer.DefineProperty(
        "Strings",
        [this](TReader& Reader) {
            Reader.ReadListBegin();
            BeginUpdate();
            try {
                Clear();
                while (!Reader.EndOfList())
                    Add(Reader.ReadString());
            } catch (...) {
                EndUpdate();
                throw;
            }
            EndUpdate();
            Reader.ReadListEnd();
        },
        [this](TWriter& Writer) {
            Writer.WriteListBegin();
            for (int i = 0, n = GetCount(); i < n; ++i)
                Writer.WriteString(Get(i));
            Writer.WriteListEnd();
        },
        hasData);
}

// ---- TStringList ------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TStringList, TStrings, "Classes") {}

TStringList::~TStringList() {
    OnChange = nullptr;
    OnChanging = nullptr;
    if (OwnsObjects)
        for (Item& it : FItems)
            rtl::Free(it.Obj);
}

std::string TStringList::Get(int index) const {
    if (index < 0 || index >= GetCount()) Error(SListIndexError, index);
    return FItems[index].Str;
}

TObject* TStringList::GetObject(int index) const {
    if (index < 0 || index >= GetCount()) Error(SListIndexError, index);
    return FItems[index].Obj;
}

void TStringList::Put(int index, const std::string& s) {
    if (FSorted) Error(SSortedListError, 0);
    if (index < 0 || index >= GetCount()) Error(SListIndexError, index);
    Changing();
    FItems[index].Str = s;
    Changed();
}

void TStringList::PutObject(int index, TObject* obj) {
    if (index < 0 || index >= GetCount()) Error(SListIndexError, index);
    Changing();
    FItems[index].Obj = obj;
    Changed();
}

void TStringList::Insert(int index, const std::string& s) {
    InsertObject(index, s, nullptr);
}

void TStringList::InsertObject(int index, const std::string& s, TObject* obj) {
    if (FSorted) Error(SSortedListError, 0);
    if (index < 0 || index > GetCount()) Error(SListIndexError, index);
    InsertItem(index, s, obj);
}

void TStringList::InsertItem(int index, const std::string& s, TObject* obj) {
    Changing();
    FItems.insert(FItems.begin() + index, Item{s, obj});
    Changed();
}

void TStringList::Delete(int index) {
    if (index < 0 || index >= GetCount()) Error(SListIndexError, index);
    Changing();
    TObject* obj = FItems[index].Obj;
    FItems.erase(FItems.begin() + index);
    if (OwnsObjects) rtl::Free(obj);
    Changed();
}

void TStringList::Clear() {
    if (FItems.empty()) return;
    Changing();
    std::vector<Item> old;
    old.swap(FItems);
    if (OwnsObjects)
        for (Item& it : old)
            rtl::Free(it.Obj);
    Changed();
}

int TStringList::Add(const std::string& s) {
    return AddObject(s, nullptr);
}

int TStringList::AddObject(const std::string& s, TObject* obj) {
    int index = GetCount();
    if (FSorted && Find(s, index)) {
        switch (FDuplicates) {
        case dupIgnore:
            return index;
        case dupError:
            Error(SDuplicateString, 0);
        case dupAccept:
            break;
        }
    }
    InsertItem(index, s, obj);
    return index;
}

int TStringList::IndexOf(std::string_view s) const {
    if (!FSorted) return TStrings::IndexOf(s);
    int index;
    return Find(s, index) ? index : -1;
}

void TStringList::Exchange(int a, int b) {
    if (a < 0 || a >= GetCount()) Error(SListIndexError, a);
    if (b < 0 || b >= GetCount()) Error(SListIndexError, b);
    Changing();
    std::swap(FItems[a], FItems[b]);
    Changed();
}

void TStringList::Move(int from, int to) {
    // Moved in place rather than by Delete + Insert: an owned object must not be freed on the way, and a
    // sorted list refuses before anything changes.
    if (from < 0 || from >= GetCount()) Error(SListIndexError, from);
    if (to < 0 || to >= GetCount()) Error(SListIndexError, to);
    if (from == to) return;
    if (FSorted) Error(SSortedListError, 0);
    Changing();
    Item it = std::move(FItems[from]);
    FItems.erase(FItems.begin() + from);
    FItems.insert(FItems.begin() + to, std::move(it));
    Changed();
}

bool TStringList::Find(std::string_view s, int& index) const {
    // The first of equal strings, so that lookups are stable when duplicates are accepted.
    int lo = 0, hi = GetCount() - 1;
    bool found = false;
    while (lo <= hi) {
        int mid = (lo + hi) / 2;
        int c = CompareStrings(FItems[mid].Str, s);
        if (c < 0) {
            lo = mid + 1;
        } else {
            hi = mid - 1;
            if (c == 0) found = true;
        }
    }
    index = lo;
    return found;
}

void TStringList::SortItems(const std::function<int(int, int)>& compare) {
    if (FItems.size() < 2) return;
    Changing();
    std::vector<int> order(FItems.size());
    std::iota(order.begin(), order.end(), 0);
    // The comparison sees the list in its original order while the permutation is worked out.
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return compare(a, b) < 0; });
    std::vector<Item> sorted;
    sorted.reserve(FItems.size());
    for (int i : order)
        sorted.push_back(std::move(FItems[i]));
    FItems.swap(sorted);
    Changed();
}

void TStringList::Sort() {
    SortItems([this](int a, int b) { return CompareStrings(FItems[a].Str, FItems[b].Str); });
}

void TStringList::CustomSort(int (*compare)(TStringList* list, int a, int b)) {
    // A sorted list keeps its own order (the platform ignores a custom sort there).
    if (FSorted || !compare) return;
    SortItems([this, compare](int a, int b) { return compare(this, a, b); });
}

void TStringList::SetSorted(bool value) {
    if (FSorted == value) return;
    if (value) Sort();
    FSorted = value;
}

void TStringList::SetCaseSensitive(bool value) {
    if (FCaseSensitive == value) return;
    FCaseSensitive = value;
    if (FSorted) Sort();
}

void TStringList::SetUpdateState(bool updating) {
    if (updating)
        Changing();
    else
        Changed();
}

void TStringList::Changed() {
    if (UpdateCount() == 0) OnChange(this);
}

void TStringList::Changing() {
    if (UpdateCount() == 0) OnChanging(this);
}

int TStringList::CompareStrings(std::string_view a, std::string_view b) const {
    return FCaseSensitive ? CompareStr(a, b) : CompareText(a, b);
}

} // namespace rtl
