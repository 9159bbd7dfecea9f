// Form descriptions: walking a control tree into plain data, and writing that data as JSON text.
#include "vcl/formdesc.h"

#include <cstdio>

#include "vcl/controls.h"
#include "vcl/menus.h"

namespace vcl {

const TControlDesc* TControlDesc::Find(const std::string& name) const {
    if (rtl::SameText(Name, name)) return this;
    for (const auto& c : Children)
        if (const TControlDesc* f = c.Find(name)) return f;
    return nullptr;
}

TMenuItemDesc DescribeMenuItem(const TMenuItem* item) {
    TMenuItemDesc d;
    d.Name = item->Name();
    d.Caption = item->Caption();
    d.ShortCut = ShortCutToText(item->ShortCut());
    d.Enabled = item->Enabled();
    d.Visible = item->Visible();
    d.Checked = item->Checked();
    for (int i = 0; i < item->Count(); ++i)
        d.Items.push_back(DescribeMenuItem(item->Items(i)));
    return d;
}

TControlDesc DescribeControl(const TControl* control) {
    TControlDesc d;
    control->Describe(d);
    if (auto* w = dynamic_cast<const TWinControl*>(control)) {
        d.Focused = w->Focused();
        for (TControl* c : w->ControlList())
            d.Children.push_back(DescribeControl(c));
    }
    if (d.Menu.empty() && control->PopupMenu()) {
        TMenuItem* root = control->PopupMenu()->Items();
        for (int i = 0; i < root->Count(); ++i)
            d.Menu.push_back(DescribeMenuItem(root->Items(i)));
    }
    return d;
}

// ---- JSON ---------------------------------------------------------------------------------------------
std::string JsonQuote(const std::string& text) {
    // Invalid UTF-8 becomes U+FFFD first, so that the result is always valid JSON text.
    std::string s = rtl::IsValidUtf8(text) ? text : rtl::Utf32ToUtf8(rtl::Utf8ToUtf32(text));
    std::string out;
    out.reserve(s.size() + 2);
    out += '"';
    for (unsigned char ch : s) {
        switch (ch) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\b':
            out += "\\b";
            break;
        case '\f':
            out += "\\f";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            if (ch < 0x20 || ch == 0x7F) {
                char buf[8];
                std::snprintf(buf, sizeof buf, "\\u%04x", ch);
                out += buf;
            } else {
                out += static_cast<char>(ch);
            }
        }
    }
    out += '"';
    return out;
}

namespace {
class JsonWriter {
public:
    explicit JsonWriter(bool pretty) : FPretty(pretty) {}
    std::string Out;

    void BeginObject() {
        Value();
        Out += '{';
        FFirst.push_back(true);
    }
    void EndObject() { Close('}'); }
    void BeginArray() {
        Value();
        Out += '[';
        FFirst.push_back(true);
    }
    void EndArray() { Close(']'); }
    void Key(const char* k) {
        Separator();
        Out += JsonQuote(k);
        Out += FPretty ? ": " : ":";
        FAfterKey = true;
    }
    void Str(const std::string& s) {
        Value();
        Out += JsonQuote(s);
    }
    void Int(long long v) {
        Value();
        Out += std::to_string(v);
    }
    void Bool(bool v) {
        Value();
        Out += v ? "true" : "false";
    }

private:
    void Value() {
        if (FAfterKey)
            FAfterKey = false;
        else if (!FFirst.empty())
            Separator();
    }
    void Separator() {
        if (FFirst.empty()) return;
        if (!FFirst.back()) Out += ',';
        FFirst.back() = false;
        Newline(FFirst.size());
    }
    void Close(char c) {
        bool empty = FFirst.back();
        FFirst.pop_back();
        if (!empty) Newline(FFirst.size());
        Out += c;
    }
    void Newline(size_t depth) {
        if (!FPretty) return;
        Out += '\n';
        Out.append(depth * 2, ' ');
    }
    bool FPretty;
    bool FAfterKey = false;
    std::vector<bool> FFirst;
};

void WriteMenu(JsonWriter& w, const TMenuItemDesc& m) {
    w.BeginObject();
    w.Key("name");
    w.Str(m.Name);
    w.Key("caption");
    w.Str(m.Caption);
    if (!m.ShortCut.empty()) {
        w.Key("shortCut");
        w.Str(m.ShortCut);
    }
    w.Key("enabled");
    w.Bool(m.Enabled);
    w.Key("visible");
    w.Bool(m.Visible);
    w.Key("checked");
    w.Bool(m.Checked);
    if (!m.Items.empty()) {
        w.Key("items");
        w.BeginArray();
        for (const auto& i : m.Items)
            WriteMenu(w, i);
        w.EndArray();
    }
    w.EndObject();
}

void WriteNode(JsonWriter& w, const TNodeDesc& n) {
    w.BeginObject();
    w.Key("text");
    w.Str(n.Text);
    w.Key("expanded");
    w.Bool(n.Expanded);
    w.Key("selected");
    w.Bool(n.Selected);
    if (!n.Children.empty()) {
        w.Key("children");
        w.BeginArray();
        for (const auto& c : n.Children)
            WriteNode(w, c);
        w.EndArray();
    }
    w.EndObject();
}

void WriteOptInt(JsonWriter& w, const char* key, const std::optional<int>& v) {
    if (!v) return;
    w.Key(key);
    w.Int(*v);
}

void WriteOptBool(JsonWriter& w, const char* key, const std::optional<bool>& v) {
    if (!v) return;
    w.Key(key);
    w.Bool(*v);
}

void WriteControl(JsonWriter& w, const TControlDesc& d) {
    w.BeginObject();
    w.Key("kind");
    w.Str(d.Kind);
    w.Key("name");
    w.Str(d.Name);
    w.Key("left");
    w.Int(d.Left);
    w.Key("top");
    w.Int(d.Top);
    w.Key("width");
    w.Int(d.Width);
    w.Key("height");
    w.Int(d.Height);
    w.Key("caption");
    w.Str(d.Caption);
    if (!d.Hint.empty()) {
        w.Key("hint");
        w.Str(d.Hint);
    }
    w.Key("enabled");
    w.Bool(d.Enabled);
    w.Key("visible");
    w.Bool(d.Visible);
    if (d.Focused) {
        w.Key("focused");
        w.Bool(true);
    }
    if (d.ReadOnly) {
        w.Key("readOnly");
        w.Bool(true);
    }
    if (d.Default) {
        w.Key("default");
        w.Bool(true);
    }
    if (d.Cancel) {
        w.Key("cancel");
        w.Bool(true);
    }
    WriteOptInt(w, "modalResult", d.ModalResult);
    WriteOptBool(w, "checked", d.Checked);
    WriteOptBool(w, "grayed", d.Grayed);
    if (!d.Items.empty()) {
        w.Key("items");
        w.BeginArray();
        for (const auto& i : d.Items)
            w.Str(i);
        w.EndArray();
    }
    WriteOptInt(w, "itemIndex", d.ItemIndex);
    if (!d.SelectedItems.empty()) {
        w.Key("selectedItems");
        w.BeginArray();
        for (int i : d.SelectedItems)
            w.Int(i);
        w.EndArray();
    }
    WriteOptInt(w, "value", d.Value);
    WriteOptInt(w, "minValue", d.MinValue);
    WriteOptInt(w, "maxValue", d.MaxValue);
    if (!d.Cells.empty()) {
        w.Key("cells");
        w.BeginArray();
        for (const auto& row : d.Cells) {
            w.BeginArray();
            for (const auto& cell : row)
                w.Str(cell);
            w.EndArray();
        }
        w.EndArray();
    }
    WriteOptInt(w, "col", d.Col);
    WriteOptInt(w, "row", d.Row);
    WriteOptInt(w, "fixedCols", d.FixedCols);
    WriteOptInt(w, "fixedRows", d.FixedRows);
    if (!d.Nodes.empty()) {
        w.Key("nodes");
        w.BeginArray();
        for (const auto& n : d.Nodes)
            WriteNode(w, n);
        w.EndArray();
    }
    WriteOptInt(w, "pictureWidth", d.PictureWidth);
    WriteOptInt(w, "pictureHeight", d.PictureHeight);
    if (!d.Menu.empty()) {
        w.Key("menu");
        w.BeginArray();
        for (const auto& m : d.Menu)
            WriteMenu(w, m);
        w.EndArray();
    }
    if (!d.Children.empty()) {
        w.Key("children");
        w.BeginArray();
        for (const auto& c : d.Children)
            WriteControl(w, c);
        w.EndArray();
    }
    w.EndObject();
}
} // namespace

std::string ToJson(const TControlDesc& desc, bool pretty) {
    JsonWriter w(pretty);
    WriteControl(w, desc);
    return w.Out;
}

std::string ToJson(const TMenuItemDesc& desc, bool pretty) {
    JsonWriter w(pretty);
    WriteMenu(w, desc);
    return w.Out;
}

} // namespace vcl
