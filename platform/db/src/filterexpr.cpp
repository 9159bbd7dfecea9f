// The filter-expression language: field names (bare or [bracketed]), quoted strings, numbers,
// TRUE/FALSE/NULL, comparisons, LIKE, IS [NOT] NULL, arithmetic, AND/OR/NOT and the functions UPPER, LOWER
// and TRIM.
#include "filterexpr.h"

#include <cctype>
#include <cmath>

namespace db::filter {

using rtl::Format;

enum class TOp {
    Lit,
    Field,
    Eq,
    Ne,
    Lt,
    Gt,
    Le,
    Ge,
    Like,
    IsNull,
    NotNull,
    And,
    Or,
    Not,
    Add,
    Sub,
    Mul,
    Div,
    Neg,
    Upper,
    Lower,
    Trim
};

struct TNode {
    TOp Op = TOp::Lit;
    Variant Value;
    int Column = -1;
    TFieldType Type = ftUnknown;
    std::unique_ptr<TNode> L, R;
};

namespace {

struct TToken {
    enum Kind { End, Ident, Str, Num, Sym } K = End;
    std::string Text;
    size_t Pos = 0;
};

class TParser {
public:
    TParser(const std::string& text, const TResolveField& resolve) : S(text), Resolve(resolve) { Advance(); }

    std::unique_ptr<TNode> Parse() {
        auto n = ParseOr();
        if (T.K != TToken::End) Fail("unexpected '" + T.Text + "'");
        return n;
    }

private:
    [[noreturn]] void Fail(const std::string& what) {
        throw EDatabaseError(Format(SFilterSyntax, {what + " at position " + rtl::IntToStr(T.Pos + 1)}));
    }
    bool IsKeyword(const char* kw) const { return T.K == TToken::Ident && rtl::SameText(T.Text, kw); }
    bool IsSym(const char* s) const { return T.K == TToken::Sym && T.Text == s; }

    void Advance() {
        while (P < S.size() && std::isspace(static_cast<unsigned char>(S[P])))
            ++P;
        T = TToken();
        T.Pos = P;
        if (P >= S.size()) return;
        char c = S[P];
        if (c == '\'' || c == '"') {
            std::string v;
            size_t i = P + 1;
            for (;;) {
                if (i >= S.size()) Fail("unterminated string");
                if (S[i] == c) {
                    if (i + 1 < S.size() && S[i + 1] == c) {
                        v += c;
                        i += 2;
                        continue;
                    }
                    break;
                }
                v += S[i++];
            }
            T.K = TToken::Str;
            T.Text = v;
            P = i + 1;
        } else if (c == '[') {
            size_t e = S.find(']', P);
            if (e == std::string::npos) Fail("missing ']'");
            T.K = TToken::Ident;
            T.Text = S.substr(P + 1, e - P - 1);
            P = e + 1;
            Bracketed = true;
            return;
        } else if (std::isdigit(static_cast<unsigned char>(c)) ||
                   (c == '.' && P + 1 < S.size() && std::isdigit(static_cast<unsigned char>(S[P + 1])))) {
            size_t i = P;
            while (i < S.size() && (std::isdigit(static_cast<unsigned char>(S[i])) || S[i] == '.'))
                ++i;
            if (i < S.size() && (S[i] == 'e' || S[i] == 'E')) {
                size_t j = i + 1;
                if (j < S.size() && (S[j] == '+' || S[j] == '-')) ++j;
                if (j < S.size() && std::isdigit(static_cast<unsigned char>(S[j]))) {
                    i = j;
                    while (i < S.size() && std::isdigit(static_cast<unsigned char>(S[i])))
                        ++i;
                }
            }
            T.K = TToken::Num;
            T.Text = S.substr(P, i - P);
            P = i;
        } else if (std::isalpha(static_cast<unsigned char>(c)) || c == '_' ||
                   static_cast<unsigned char>(c) >= 0x80) {
            size_t i = P;
            while (i < S.size() && (std::isalnum(static_cast<unsigned char>(S[i])) || S[i] == '_' ||
                                    S[i] == '.' || static_cast<unsigned char>(S[i]) >= 0x80))
                ++i;
            T.K = TToken::Ident;
            T.Text = S.substr(P, i - P);
            P = i;
        } else {
            static const char* two[] = {"<>", "<=", ">=", "!="};
            for (const char* t : two)
                if (S.compare(P, 2, t) == 0) {
                    T.K = TToken::Sym;
                    T.Text = t;
                    P += 2;
                    Bracketed = false;
                    return;
                }
            if (std::string("=<>()+-*/,").find(c) == std::string::npos)
                Fail(std::string("unexpected '") + c + "'");
            T.K = TToken::Sym;
            T.Text = std::string(1, c);
            ++P;
        }
        Bracketed = false;
    }

    static std::unique_ptr<TNode> Make(TOp op, std::unique_ptr<TNode> l = nullptr,
                                       std::unique_ptr<TNode> r = nullptr) {
        auto n = std::make_unique<TNode>();
        n->Op = op;
        n->L = std::move(l);
        n->R = std::move(r);
        return n;
    }

    std::unique_ptr<TNode> ParseOr() {
        auto l = ParseAnd();
        while (IsKeyword("OR")) {
            Advance();
            l = Make(TOp::Or, std::move(l), ParseAnd());
        }
        return l;
    }
    std::unique_ptr<TNode> ParseAnd() {
        auto l = ParseNot();
        while (IsKeyword("AND")) {
            Advance();
            l = Make(TOp::And, std::move(l), ParseNot());
        }
        return l;
    }
    std::unique_ptr<TNode> ParseNot() {
        if (IsKeyword("NOT")) {
            Advance();
            return Make(TOp::Not, ParseNot());
        }
        return ParseCompare();
    }
    std::unique_ptr<TNode> ParseCompare() {
        auto l = ParseSum();
        if (IsKeyword("IS")) {
            Advance();
            bool neg = false;
            if (IsKeyword("NOT")) {
                neg = true;
                Advance();
            }
            if (!IsKeyword("NULL")) Fail("NULL expected");
            Advance();
            return Make(neg ? TOp::NotNull : TOp::IsNull, std::move(l));
        }
        bool notLike = false;
        if (IsKeyword("NOT")) {
            Advance();
            if (!IsKeyword("LIKE")) Fail("LIKE expected");
            notLike = true;
        }
        if (IsKeyword("LIKE")) {
            Advance();
            auto n = Make(TOp::Like, std::move(l), ParseSum());
            return notLike ? Make(TOp::Not, std::move(n)) : std::move(n);
        }
        static const std::pair<const char*, TOp> ops[] = {{"=", TOp::Eq}, {"<>", TOp::Ne}, {"!=", TOp::Ne},
                                                          {"<", TOp::Lt}, {">", TOp::Gt},  {"<=", TOp::Le},
                                                          {">=", TOp::Ge}};
        for (auto& [sym, op] : ops)
            if (IsSym(sym)) {
                Advance();
                auto r = ParseSum();
                // Comparing with NULL means testing for it.
                if (r->Op == TOp::Lit && r->Value.IsNull() && (op == TOp::Eq || op == TOp::Ne))
                    return Make(op == TOp::Eq ? TOp::IsNull : TOp::NotNull, std::move(l));
                auto n = Make(op, std::move(l), std::move(r));
                CoerceLiteral(*n);
                return n;
            }
        return l;
    }
    // A text literal compared with a date, number or Boolean field is read as that type.
    static void CoerceLiteral(TNode& n) {
        TNode* f = n.L->Op == TOp::Field ? n.L.get() : (n.R->Op == TOp::Field ? n.R.get() : nullptr);
        TNode* lit = f == n.L.get() ? n.R.get() : n.L.get();
        if (!f || lit->Op != TOp::Lit || !lit->Value.IsString()) return;
        const std::string s = lit->Value.AsString();
        switch (f->Type) {
        case ftDate:
        case ftTime:
        case ftDateTime:
        case ftTimeStamp: {
            TDateTime d;
            if (TryStrToDateTime(s, d)) lit->Value = Variant(d);
            break;
        }
        case ftBoolean:
            if (rtl::SameText(s, "True"))
                lit->Value = Variant(true);
            else if (rtl::SameText(s, "False"))
                lit->Value = Variant(false);
            break;
        default:
            break;
        }
    }
    std::unique_ptr<TNode> ParseSum() {
        auto l = ParseTerm();
        while (IsSym("+") || IsSym("-")) {
            TOp op = T.Text == "+" ? TOp::Add : TOp::Sub;
            Advance();
            l = Make(op, std::move(l), ParseTerm());
        }
        return l;
    }
    std::unique_ptr<TNode> ParseTerm() {
        auto l = ParseUnary();
        while (IsSym("*") || IsSym("/")) {
            TOp op = T.Text == "*" ? TOp::Mul : TOp::Div;
            Advance();
            l = Make(op, std::move(l), ParseUnary());
        }
        return l;
    }
    std::unique_ptr<TNode> ParseUnary() {
        if (IsSym("-")) {
            Advance();
            return Make(TOp::Neg, ParseUnary());
        }
        return ParsePrimary();
    }
    std::unique_ptr<TNode> ParsePrimary() {
        if (IsSym("(")) {
            Advance();
            auto n = ParseOr();
            if (!IsSym(")")) Fail("')' expected");
            Advance();
            return n;
        }
        if (T.K == TToken::Str) {
            auto n = Make(TOp::Lit);
            n->Value = Variant(T.Text);
            Advance();
            return n;
        }
        if (T.K == TToken::Num) {
            auto n = Make(TOp::Lit);
            int64_t i;
            double d;
            if (rtl::TryStrToInt64(T.Text, i))
                n->Value = Variant(i);
            else if (rtl::TryStrToFloat(T.Text, d))
                n->Value = Variant(d);
            else
                Fail("invalid number '" + T.Text + "'");
            Advance();
            return n;
        }
        if (T.K == TToken::Ident) {
            std::string name = T.Text;
            bool bracketed = Bracketed;
            if (!bracketed) {
                if (rtl::SameText(name, "NULL") || rtl::SameText(name, "TRUE") ||
                    rtl::SameText(name, "FALSE")) {
                    auto n = Make(TOp::Lit);
                    if (!rtl::SameText(name, "NULL")) n->Value = Variant(rtl::SameText(name, "TRUE"));
                    Advance();
                    return n;
                }
                static const std::pair<const char*, TOp> funcs[] = {
                    {"UPPER", TOp::Upper}, {"LOWER", TOp::Lower}, {"TRIM", TOp::Trim}};
                size_t save = P;
                for (auto& [fname, op] : funcs)
                    if (rtl::SameText(name, fname)) {
                        Advance();
                        if (!IsSym("(")) {
                            P = save; // a field that happens to have a function's name
                            T = TToken{TToken::Ident, name, save - name.size()};
                            break;
                        }
                        Advance();
                        auto arg = ParseOr();
                        if (!IsSym(")")) Fail("')' expected");
                        Advance();
                        return Make(op, std::move(arg));
                    }
            }
            auto n = Make(TOp::Field);
            if (!Resolve(name, n->Column, n->Type)) throw EDatabaseError(Format(SFieldNotFound, {name}));
            Advance();
            return n;
        }
        if (T.K == TToken::End) Fail("unexpected end of expression");
        Fail("unexpected '" + T.Text + "'");
    }

    const std::string& S;
    const TResolveField& Resolve;
    size_t P = 0;
    TToken T;
    bool Bracketed = false;
};

bool LikeMatch(std::string_view s, std::string_view p, bool ci) {
    size_t si = 0, pi = 0, star = std::string_view::npos, mark = 0;
    auto eq = [ci](char a, char b) {
        return ci ? std::toupper(static_cast<unsigned char>(a)) == std::toupper(static_cast<unsigned char>(b))
                  : a == b;
    };
    while (si < s.size()) {
        if (pi < p.size() && (p[pi] == '_' || eq(p[pi], s[si]))) {
            ++si;
            ++pi;
        } else if (pi < p.size() && p[pi] == '%') {
            star = pi++;
            mark = si;
        } else if (star != std::string_view::npos) {
            pi = star + 1;
            si = ++mark;
        } else {
            return false;
        }
    }
    while (pi < p.size() && p[pi] == '%')
        ++pi;
    return pi == p.size();
}

Variant Eval(const TNode& n, const std::vector<Variant>& row, TFilterOptions opt);

bool Truth(const Variant& v) {
    return !v.IsNull() && v.AsBoolean();
}

Variant Compare(const TNode& n, const std::vector<Variant>& row, TFilterOptions opt) {
    Variant a = Eval(*n.L, row, opt), b = Eval(*n.R, row, opt);
    if (a.IsNull() || b.IsNull()) return Variant(n.Op == TOp::Ne ? a.IsNull() != b.IsNull() : false);
    bool ci = opt.Contains(foCaseInsensitive);
    // 'abc*' compared for equality matches every value that starts with "abc".
    if ((n.Op == TOp::Eq || n.Op == TOp::Ne) && !opt.Contains(foNoPartialCompare) && n.R->Op == TOp::Lit &&
        b.IsString()) {
        std::string pat = b.AsString();
        if (!pat.empty() && pat.back() == '*') {
            pat.pop_back();
            std::string s = a.AsString();
            bool m = s.size() >= pat.size() &&
                     (ci ? rtl::SameText(s.substr(0, pat.size()), pat) : s.compare(0, pat.size(), pat) == 0);
            return Variant(n.Op == TOp::Eq ? m : !m);
        }
    }
    int c = CompareVariants(a, b, ci);
    switch (n.Op) {
    case TOp::Eq:
        return Variant(c == 0);
    case TOp::Ne:
        return Variant(c != 0);
    case TOp::Lt:
        return Variant(c < 0);
    case TOp::Gt:
        return Variant(c > 0);
    case TOp::Le:
        return Variant(c <= 0);
    default:
        return Variant(c >= 0);
    }
}

Variant Arith(const TNode& n, const std::vector<Variant>& row, TFilterOptions opt) {
    Variant a = Eval(*n.L, row, opt), b = Eval(*n.R, row, opt);
    if (a.IsNull() || b.IsNull()) return Variant();
    if (n.Op == TOp::Add && (a.IsString() || b.IsString())) {
        double x, y;
        if (!(rtl::TryStrToFloat(a.AsString(), x) && rtl::TryStrToFloat(b.AsString(), y)))
            return Variant(a.AsString() + b.AsString());
    }
    if (a.IsInteger() && b.IsInteger() && n.Op != TOp::Div) {
        int64_t x = a.AsInteger(), y = b.AsInteger();
        return Variant(n.Op == TOp::Add ? x + y : n.Op == TOp::Sub ? x - y : x * y);
    }
    double x = a.AsFloat(), y = b.AsFloat();
    switch (n.Op) {
    case TOp::Add:
        return Variant(x + y);
    case TOp::Sub:
        return Variant(x - y);
    case TOp::Mul:
        return Variant(x * y);
    default:
        return y == 0 ? Variant() : Variant(x / y);
    }
}

Variant Eval(const TNode& n, const std::vector<Variant>& row, TFilterOptions opt) {
    switch (n.Op) {
    case TOp::Lit:
        return n.Value;
    case TOp::Field:
        return n.Column >= 0 && n.Column < static_cast<int>(row.size()) ? row[static_cast<size_t>(n.Column)]
                                                                        : Variant();
    case TOp::Eq:
    case TOp::Ne:
    case TOp::Lt:
    case TOp::Gt:
    case TOp::Le:
    case TOp::Ge:
        return Compare(n, row, opt);
    case TOp::Like: {
        Variant a = Eval(*n.L, row, opt), b = Eval(*n.R, row, opt);
        if (a.IsNull() || b.IsNull()) return Variant(false);
        return Variant(LikeMatch(a.AsString(), b.AsString(), opt.Contains(foCaseInsensitive)));
    }
    case TOp::IsNull:
        return Variant(Eval(*n.L, row, opt).IsNull());
    case TOp::NotNull:
        return Variant(!Eval(*n.L, row, opt).IsNull());
    case TOp::And:
        return Variant(Truth(Eval(*n.L, row, opt)) && Truth(Eval(*n.R, row, opt)));
    case TOp::Or:
        return Variant(Truth(Eval(*n.L, row, opt)) || Truth(Eval(*n.R, row, opt)));
    case TOp::Not:
        return Variant(!Truth(Eval(*n.L, row, opt)));
    case TOp::Add:
    case TOp::Sub:
    case TOp::Mul:
    case TOp::Div:
        return Arith(n, row, opt);
    case TOp::Neg: {
        Variant a = Eval(*n.L, row, opt);
        if (a.IsNull()) return a;
        return a.IsInteger() ? Variant(-a.AsInteger()) : Variant(-a.AsFloat());
    }
    case TOp::Upper:
    case TOp::Lower:
    case TOp::Trim: {
        Variant a = Eval(*n.L, row, opt);
        if (a.IsNull()) return a;
        std::string s = a.AsString();
        return Variant(n.Op == TOp::Upper   ? rtl::UpperCase(s)
                       : n.Op == TOp::Lower ? rtl::LowerCase(s)
                                            : rtl::Trim(s));
    }
    }
    return Variant();
}

} // namespace

TExpression::TExpression(const std::string& Text, const TResolveField& Resolve, TFilterOptions Options)
    : FOptions(Options) {
    TParser p(Text, Resolve);
    FRoot = p.Parse();
}

TExpression::~TExpression() = default;

bool TExpression::Matches(const std::vector<Variant>& Values) const {
    if (!FRoot) return true;
    try {
        return Truth(Eval(*FRoot, Values, FOptions));
    } catch (const rtl::EConvertError&) {
        return false; // a value that cannot be compared does not match
    }
}

} // namespace db::filter
