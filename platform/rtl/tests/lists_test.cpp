// TList, TStrings and TStringList: line splitting, files, sorting, duplicates, name=value pairs, comma text,
// change events and the "Strings" form-file property.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "rtl/lists.h"

using namespace rtl;
namespace fs = std::filesystem;

namespace {

class TempDir {
public:
    TempDir() {
        std::string templ = (fs::temp_directory_path() / "jexlistsXXXXXX").string();
        Path = mkdtemp(templ.data());
    }
    ~TempDir() { fs::remove_all(Path); }
    std::string File(const std::string& name) const { return Path + "/" + name; }
    std::string Path;
};

std::vector<std::string> Lines(std::string_view text) {
    TStringList l;
    l.SetText(text);
    return l.ToVector();
}

using V = std::vector<std::string>;

// Counts its own destructions, to see which list frees what.
class TTracked : public TObject {
public:
    explicit TTracked(int& deaths) : FDeaths(deaths) {}
    ~TTracked() override { ++FDeaths; }

private:
    int& FDeaths;
};

// The smallest TStrings: exercises what the base class does on its own (Put, Move, Exchange, Assign).
class TPlainStrings : public TStrings {
public:
    std::string Get(int index) const override {
        if (index < 0 || index >= GetCount()) Error(SListIndexError, index);
        return Items[index];
    }
    int GetCount() const override { return static_cast<int>(Items.size()); }
    void Insert(int index, const std::string& s) override {
        if (index < 0 || index > GetCount()) Error(SListIndexError, index);
        Items.insert(Items.begin() + index, s);
    }
    void Delete(int index) override {
        if (index < 0 || index >= GetCount()) Error(SListIndexError, index);
        Items.erase(Items.begin() + index);
    }
    void Clear() override { Items.clear(); }
    std::vector<std::string> Items;
};

} // namespace

TEST(TList, IndexingOutsideRaisesWithTheIndex) {
    TList l;
    int a = 1, b = 2, c = 3;
    EXPECT_EQ(l.Add(&a), 0);
    EXPECT_EQ(l.Add(&b), 1);
    l.Insert(0, &c);
    EXPECT_EQ(l.Items(0), &c);
    EXPECT_EQ(l.Last(), &b);
    try {
        l.Items(3);
        FAIL() << "no exception";
    } catch (const EListError& e) {
        EXPECT_EQ(e.Message(), "List index out of bounds (3)");
    }
    EXPECT_THROW(l.Delete(-1), EListError);
    EXPECT_THROW(l.Insert(4, &a), EListError);
    EXPECT_THROW(l.Move(0, 3), EListError);
    EXPECT_THROW(l.Exchange(5, 0), EListError);
    EXPECT_EQ(l.Count(), 3); // failed calls changed nothing
    TList empty;
    EXPECT_THROW(empty.First(), EListError);
}

TEST(TList, MoveExchangeRemovePackSort) {
    TList l;
    int v[4] = {30, 10, 40, 20};
    for (int& x : v)
        l.Add(&x);
    l.Move(0, 3); // 10 40 20 30
    EXPECT_EQ(l.Items(3), &v[0]);
    EXPECT_EQ(l.Items(0), &v[1]);
    l.Exchange(0, 1); // 40 10 20 30
    EXPECT_EQ(l.Items(0), &v[2]);
    EXPECT_EQ(l.Remove(&v[1]), 1);
    EXPECT_EQ(l.Remove(&v[1]), -1);
    l.Add(nullptr);
    l.Insert(0, nullptr);
    l.Pack();
    EXPECT_EQ(l.Count(), 3);
    EXPECT_EQ(l.IndexOf(nullptr), -1);
    l.Sort([](void* a, void* b) { return *static_cast<int*>(a) - *static_cast<int*>(b); });
    EXPECT_EQ(*static_cast<int*>(l.Items(0)), 20);
    EXPECT_EQ(*static_cast<int*>(l.Items(2)), 40);
    l.SetCount(5);
    EXPECT_EQ(l.Items(4), nullptr);
    EXPECT_THROW(l.SetCount(-1), EListError);
}

TEST(StringsText, SplitsOnEveryLineBreakKind) {
    EXPECT_EQ(Lines("a\r\nb\r\nc"), (V{"a", "b", "c"}));
    EXPECT_EQ(Lines("a\nb\n"), (V{"a", "b"}));
    EXPECT_EQ(Lines("a\rb\r"), (V{"a", "b"}));
    EXPECT_EQ(Lines("a\n\rb"), (V{"a", "", "b"})); // LF CR is two breaks
    EXPECT_EQ(Lines("a\r\n\r\n"), (V{"a", ""})); // a final break adds no line, an empty line before it stays
    EXPECT_EQ(Lines("\n\n"), (V{"", ""}));
    EXPECT_EQ(Lines(""), V{});
    EXPECT_EQ(Lines(std::string_view("a\nb\0c\nd", 8)), (V{"a", "b"})); // NUL ends the text
    EXPECT_EQ(Lines("x\r\r\ny"), (V{"x", "", "y"}));
}

TEST(StringsText, TextJoinsWithCrLfAfterEveryLine) {
    TStringList l;
    l.AddStrings(V{"one", "", "three"});
    EXPECT_EQ(l.Text(), "one\r\n\r\nthree\r\n");
    TStringList round;
    round.SetText(l.Text());
    EXPECT_TRUE(round.Equals(&l));
    TStringList empty;
    EXPECT_EQ(empty.Text(), "");
}

TEST(StringsFiles, LoadsCrLfOnlyAndCrOnlyFilesAndSavesCrLf) {
    TempDir dir;
    struct Case {
        const char* name;
        std::string bytes;
    } cases[] = {{"crlf.txt", "alpha\r\nbeta\r\n\r\ngamma"},
                 {"lf.txt", "alpha\nbeta\n\ngamma\n"},
                 {"cr.txt", "alpha\rbeta\r\rgamma\r"}};
    for (const Case& c : cases) {
        WriteFileBytes(dir.File(c.name), c.bytes);
        TStringList l;
        l.LoadFromFile(dir.File(c.name));
        EXPECT_EQ(l.ToVector(), (V{"alpha", "beta", "", "gamma"})) << c.name;
        l.SaveToFile(dir.File(std::string("out-") + c.name));
        EXPECT_EQ(ReadFileBytes(dir.File(std::string("out-") + c.name)), "alpha\r\nbeta\r\n\r\ngamma\r\n");
    }
}

TEST(StringsFiles, EncodingsAndErrors) {
    TempDir dir;
    // A Windows-1252 file (e-acute, euro sign) reads as UTF-8; a UTF-8 file with a byte-order mark loses the
    // mark.
    WriteFileBytes(dir.File("ansi.txt"), "caf\xE9\r\n\x80 5\r\n");
    WriteFileBytes(dir.File("bom.txt"), "\xEF\xBB\xBF"
                                        "caf\xC3\xA9\n");
    TStringList l;
    l.LoadFromFile(dir.File("ansi.txt"));
    EXPECT_EQ(l.ToVector(), (V{"caf\xC3\xA9", "\xE2\x82\xAC 5"}));
    l.LoadFromFile(dir.File("bom.txt"));
    EXPECT_EQ(l.ToVector(), V{"caf\xC3\xA9"});

    l.SetText("keep");
    EXPECT_THROW(l.LoadFromFile(dir.File("missing.txt")), EFOpenError);
    EXPECT_THROW(l.LoadFromFile(dir.Path), EFOpenError); // a folder is not a file
    EXPECT_EQ(l.ToVector(), V{"keep"});                  // a failed load loses nothing
    try {
        l.SaveToFile(dir.File("no/such/folder/x.txt"));
        FAIL() << "no exception";
    } catch (const EFCreateError& e) {
        EXPECT_NE(e.Message().find("Cannot create file"), std::string::npos);
    }
}

TEST(StringList, IndexOfIgnoresCaseUnlessCaseSensitive) {
    TStringList l;
    l.AddStrings(V{"Alpha", "beta", "BETA"});
    EXPECT_EQ(l.IndexOf("ALPHA"), 0);
    EXPECT_EQ(l.IndexOf("Beta"), 1);
    EXPECT_EQ(l.IndexOf("gamma"), -1);
    l.SetCaseSensitive(true);
    EXPECT_EQ(l.IndexOf("ALPHA"), -1);
    EXPECT_EQ(l.IndexOf("BETA"), 2);
}

TEST(StringList, SortedAddKeepsOrderAndDuplicatesDecide) {
    TStringList l;
    l.SetSorted(true);
    for (const char* s : {"pear", "Apple", "fig", "apple"})
        l.Add(s);
    EXPECT_EQ(l.ToVector(), (V{"Apple", "fig", "pear"})); // dupIgnore is the default
    EXPECT_EQ(l.Add("FIG"), 1);                           // an ignored duplicate returns the existing index
    EXPECT_EQ(l.Count(), 3);
    int index = -1;
    EXPECT_TRUE(l.Find("PEAR", index));
    EXPECT_EQ(index, 2);
    EXPECT_FALSE(l.Find("banana", index));
    EXPECT_EQ(index, 1);
    EXPECT_EQ(l.IndexOf("banana"), -1);

    l.SetDuplicates(dupAccept);
    l.Add("fig");
    EXPECT_EQ(l.ToVector(), (V{"Apple", "fig", "fig", "pear"}));

    l.SetDuplicates(dupError);
    try {
        l.Add("APPLE");
        FAIL() << "no exception";
    } catch (const EStringListError& e) {
        EXPECT_EQ(e.Message(), "String list does not allow duplicates");
    }
    EXPECT_EQ(l.Count(), 4);

    // Positional changes are refused on a sorted list, before anything changes.
    EXPECT_THROW(l.Insert(0, "zzz"), EStringListError);
    try {
        l.Move(0, 3);
        FAIL() << "no exception";
    } catch (const EStringListError& e) {
        EXPECT_EQ(e.Message(), "Operation not allowed on sorted string list");
    }
    EXPECT_THROW(l.Put(0, "x"), EStringListError);
    EXPECT_EQ(l.ToVector(), (V{"Apple", "fig", "fig", "pear"}));
}

TEST(StringList, SortingAndCaseSensitivity) {
    TStringList l;
    l.AddStrings(V{"b", "B", "a", "C"});
    l.Sort();
    EXPECT_EQ(l.ToVector(), (V{"a", "b", "B", "C"})); // ignoring case, stable for equal strings
    l.SetSorted(true);
    l.SetCaseSensitive(true); // a sorted list re-sorts under the new comparison
    EXPECT_EQ(l.ToVector(), (V{"B", "C", "a", "b"}));
    EXPECT_EQ(l.IndexOf("b"), 3);
    EXPECT_EQ(l.IndexOf("c"), -1);

    TStringList c;
    c.AddStrings(V{"10", "9", "100"});
    c.CustomSort(
        [](TStringList* list, int a, int b) { return StrToInt(list->Get(a)) - StrToInt(list->Get(b)); });
    EXPECT_EQ(c.ToVector(), (V{"9", "10", "100"}));
}

TEST(StringList, IndexErrorsAndMovesKeepObjects) {
    TStringList l;
    TObject o1, o2, o3;
    l.AddObject("one", &o1);
    l.AddObject("two", &o2);
    l.AddObject("three", &o3);
    try {
        l.Get(3);
        FAIL() << "no exception";
    } catch (const EListError& e) {
        EXPECT_EQ(e.Message(), "List index out of bounds (3)");
    }
    EXPECT_THROW(l.Delete(-1), EListError);
    EXPECT_THROW(l.Exchange(0, 3), EListError);
    EXPECT_THROW(l.Move(0, 3), EListError);
    EXPECT_THROW(l.Insert(4, "x"), EListError);
    EXPECT_THROW(l.Objects(7), EListError);
    EXPECT_EQ(l.ToVector(), (V{"one", "two", "three"}));

    l.Move(0, 2);
    EXPECT_EQ(l.ToVector(), (V{"two", "three", "one"}));
    EXPECT_EQ(l.Objects(2), &o1);
    l.Exchange(0, 1);
    EXPECT_EQ(l.ToVector(), (V{"three", "two", "one"}));
    EXPECT_EQ(l.Objects(0), &o3);
    EXPECT_EQ(l.IndexOfObject(&o2), 1);
    l.Put(1, "TWO");
    EXPECT_EQ(l.Objects(1), &o2);
}

TEST(StringList, OwnsObjectsFreesOnDeleteClearAndDestruction) {
    int deaths = 0;
    {
        TStringList l;
        l.OwnsObjects = true;
        for (int i = 0; i < 4; ++i)
            l.AddObject("x", new TTracked(deaths));
        l.Move(0, 3); // moving must not free anything
        EXPECT_EQ(deaths, 0);
        l.Delete(0);
        EXPECT_EQ(deaths, 1);
        l.Clear();
        EXPECT_EQ(deaths, 4);
        l.AddObject("y", new TTracked(deaths));
    }
    EXPECT_EQ(deaths, 5);
    TTracked kept(deaths);
    {
        TStringList unowned;
        unowned.AddObject("k", &kept);
    }
    EXPECT_EQ(deaths, 5);
}

TEST(StringList, NamesAndValues) {
    TStringList l;
    l.AddStrings(V{"Host=example", "port=8080", "novalue", "empty=", "a=b=c"});
    EXPECT_EQ(l.Values("HOST"), "example");
    EXPECT_EQ(l.Values("Port"), "8080");
    EXPECT_EQ(l.Values("novalue"), "");
    EXPECT_EQ(l.Values("a"), "b=c");
    EXPECT_EQ(l.Names(0), "Host");
    EXPECT_EQ(l.Names(2), "");
    EXPECT_EQ(l.IndexOfName("EMPTY"), 3);
    l.SetValues("port", "9090");
    EXPECT_EQ(l.Get(1), "port=9090");
    l.SetValues("user", "me");
    EXPECT_EQ(l.Get(5), "user=me");
    l.SetValues("HOST", ""); // an empty value removes the pair
    EXPECT_EQ(l.IndexOfName("host"), -1);
    EXPECT_EQ(l.Count(), 5);
}

TEST(StringList, CommaTextQuotesLikeThePlatform) {
    TStringList l;
    l.AddStrings(V{"plain", "two words", "say \"hi\"", "a,b", ""});
    EXPECT_EQ(l.CommaText(), "plain,\"two words\",\"say \"\"hi\"\"\",\"a,b\",");
    TStringList back;
    back.SetCommaText(l.CommaText() + "x"); // the empty last item needs a follower to survive a round trip
    EXPECT_EQ(back.ToVector(), (V{"plain", "two words", "say \"hi\"", "a,b", "x"}));

    back.SetCommaText("  a b , ,\"c");
    EXPECT_EQ(back.ToVector(), (V{"a", "b", "", "c"})); // blanks separate; an open quote runs to the end
    back.SetCommaText("a,");
    EXPECT_EQ(back.ToVector(), V{"a"});
    TStringList one;
    one.Add("");
    EXPECT_EQ(one.CommaText(), "\"\"");
}

TEST(Strings, BaseClassOperationsAndAssign) {
    TPlainStrings p;
    p.AddStrings(V{"a", "b", "c"});
    p.Put(1, "B");
    p.Move(2, 0);
    EXPECT_EQ(p.Items, (V{"c", "a", "B"}));
    p.Exchange(0, 2);
    EXPECT_EQ(p.Items, (V{"B", "a", "c"}));
    EXPECT_EQ(p.IndexOf("b"), 0);
    EXPECT_THROW(p.Move(0, 3), EListError);
    EXPECT_EQ(p.Count(), 3);

    TStringList l;
    l.SetSorted(true);
    l.Add("old");
    l.Assign(&p); // any TStrings; the sorted target sorts what it receives
    EXPECT_EQ(l.ToVector(), (V{"a", "B", "c"}));
    l.Assign(&l);
    EXPECT_EQ(l.Count(), 3);

    TPlainStrings q;
    q.Assign(&l);
    EXPECT_EQ(q.Items, (V{"a", "B", "c"}));

    TPersistent other;
    EXPECT_THROW(l.Assign(&other), EConvertError);
    EXPECT_EQ(l.Count(), 3);
}

TEST(StringList, ChangeEventsAreHeldDuringUpdates) {
    TStringList l;
    std::vector<std::string> log;
    l.OnChanging = [&](TObject* s) {
        log.push_back("changing:" + std::to_string(static_cast<TStrings*>(s)->Count()));
    };
    l.OnChange = [&](TObject* s) {
        log.push_back("change:" + std::to_string(static_cast<TStrings*>(s)->Count()));
    };
    l.Add("a");
    EXPECT_EQ(log, (V{"changing:0", "change:1"}));
    log.clear();
    l.BeginUpdate();
    l.Add("b");
    l.BeginUpdate();
    l.Delete(0);
    l.EndUpdate();
    EXPECT_EQ(log, V{"changing:1"});
    l.EndUpdate();
    EXPECT_EQ(log, (V{"changing:1", "change:1"}));
    log.clear();
    l.SetText("x\ny\nz"); // one pair for the whole assignment
    EXPECT_EQ(log, (V{"changing:1", "change:3"}));
    EXPECT_EQ(l.UpdateCount(), 0);
}

namespace {
// Stands in for the form reader and writer: a list of strings.
struct FakeReader : TReader {
    std::vector<std::string> Values;
    size_t Pos = 0;
    int Begins = 0, Ends = 0;
    TValueType NextValue() override { return vaString; }
    void ReadListBegin() override { ++Begins; }
    bool EndOfList() override { return Pos >= Values.size(); }
    void ReadListEnd() override { ++Ends; }
    std::string ReadString() override { return Values.at(Pos++); }
    int32_t ReadInteger() override { return 0; }
    int64_t ReadInt64() override { return 0; }
    double ReadFloat() override { return 0; }
    bool ReadBoolean() override { return false; }
    std::string ReadIdent() override { return {}; }
    TComponent* Root() const override { return nullptr; }
};
struct FakeWriter : TWriter {
    std::vector<std::string> Log;
    void WriteListBegin() override { Log.push_back("("); }
    void WriteListEnd() override { Log.push_back(")"); }
    void WriteString(std::string_view v) override { Log.emplace_back(v); }
    void WriteInteger(int64_t) override {}
    void WriteFloat(double) override {}
    void WriteBoolean(bool) override {}
    void WriteIdent(std::string_view) override {}
    TComponent* Root() const override { return nullptr; }
};
struct FakeFiler : TFiler {
    std::string Name;
    TReaderProc Read;
    TWriterProc Write;
    bool HasData = false;
    int Calls = 0;
    void DefineProperty(const std::string& n, TReaderProc r, TWriterProc w, bool has) override {
        Name = n;
        Read = std::move(r);
        Write = std::move(w);
        HasData = has;
        ++Calls;
    }
    void DefineBinaryProperty(const std::string&, TStreamReadProc, TStreamWriteProc, bool) override {}
};
} // namespace

TEST(Strings, DefinePropertiesStreamsTheLines) {
    TStringList l;
    FakeFiler f;
    l.DefineProperties(f);
    EXPECT_EQ(f.Calls, 1);
    EXPECT_EQ(f.Name, "Strings");
    EXPECT_FALSE(f.HasData);

    FakeReader r;
    r.Values = {"first", "", "third"};
    l.Add("replaced");
    f.Read(r);
    EXPECT_EQ(l.ToVector(), (V{"first", "", "third"}));
    EXPECT_EQ(r.Begins, 1);
    EXPECT_EQ(r.Ends, 1);

    l.DefineProperties(f);
    EXPECT_TRUE(f.HasData);
    FakeWriter w;
    f.Write(w);
    EXPECT_EQ(w.Log, (V{"(", "first", "", "third", ")"}));

    // Against an equal ancestor nothing needs writing.
    TStringList ancestor;
    ancestor.Assign(&l);
    f.Ancestor = &ancestor;
    l.DefineProperties(f);
    EXPECT_FALSE(f.HasData);
    ancestor.Add("more");
    l.DefineProperties(f);
    EXPECT_TRUE(f.HasData);
}
