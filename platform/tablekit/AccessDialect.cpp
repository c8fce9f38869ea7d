#include "tablekit/AccessDialect.h"

#include <cwctype>
#include <deque>
#include <string_view>
#include <vector>

#include "mfc/Utf.h"
#include "tablekit/reads/BoundSql.h"

namespace tablekit {
namespace {

enum class Kind { Space, Word, Number, Literal, Identifier, Punct };

struct Token {
  Kind kind;
  // As it will be written out: a view into the statement, into a constant, or into the texts the
  // translation made (Made), so that a token costs no allocation of its own.
  std::wstring_view text;
};

// The texts the translation makes (requoted texts and names, lower-cased names), kept in place for
// the tokens that view them.
using Made = std::deque<std::wstring>;

bool IsWordStart(wchar_t c) { return c == L'_' || (c < 0x80 ? std::iswalpha(c) != 0 : true); }
bool IsWordChar(wchar_t c) { return IsWordStart(c) || (c >= L'0' && c <= L'9'); }
bool IsBlank(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n' || c == L'\f' || c == L'\v'; }

// word is a lower-case ASCII keyword, so folding the ASCII letters of the token is enough: no other
// character can equal one of its letters.
bool IsWord(const Token& t, const wchar_t* word) {
  if (t.kind != Kind::Word) return false;
  std::size_t i = 0;
  for (; i < t.text.size() && word[i] != L'\0'; ++i) {
    const wchar_t c = t.text[i];
    if ((c >= L'A' && c <= L'Z' ? c + (L'a' - L'A') : c) != word[i]) return false;
  }
  return i == t.text.size() && word[i] == L'\0';
}

bool IsComparison(const Token& t) {
  if (t.kind == Kind::Punct) {
    return t.text == L"=" || t.text == L"<>" || t.text == L"<" || t.text == L">" || t.text == L"<=" ||
           t.text == L">=" || t.text == L"!=";
  }
  return IsWord(t, L"like") || IsWord(t, L"is") || IsWord(t, L"in") || IsWord(t, L"between");
}

// Reads the run from sql[i] (its opening character) to the next close, and appends it as a token
// wrapped in quote, with quote doubled inside. Advances i past the run.
bool Requote(std::wstring_view sql, std::size_t& i, wchar_t close, wchar_t quote, Kind kind,
             std::vector<Token>& tokens, Made& made, std::string& error) {
  std::size_t end = sql.find(close, i + 1);
  if (end == std::wstring_view::npos) {
    error = kind == Kind::Literal ? "unterminated double-quoted text" : "unterminated bracketed name";
    return false;
  }
  std::wstring& text = made.emplace_back(1, quote);
  for (wchar_t ch : sql.substr(i + 1, end - i - 1)) {
    if (ch == quote) text.push_back(quote);
    text.push_back(ch);
  }
  text.push_back(quote);
  tokens.push_back({kind, text});
  i = end + 1;
  return true;
}

// Splits the statement into tokens, converting Access texts and names on the way.
bool Tokenize(std::wstring_view sql, std::vector<Token>& tokens, Made& made, std::string& error) {
  tokens.reserve(sql.size() / 3);
  std::size_t i = 0;
  while (i < sql.size()) {
    wchar_t c = sql[i];
    if (IsBlank(c)) {
      std::size_t j = i;
      while (j < sql.size() && IsBlank(sql[j])) ++j;
      tokens.push_back({Kind::Space, L" "});
      i = j;
    } else if (c == L'"') {  // Access text: becomes a standard string literal
      if (!Requote(sql, i, L'"', L'\'', Kind::Literal, tokens, made, error)) return false;
    } else if (c == L'\'') {
      std::size_t j = i + 1;
      for (;;) {
        j = sql.find(L'\'', j);
        if (j == std::wstring_view::npos) {
          error = "unterminated single-quoted text";
          return false;
        }
        if (j + 1 < sql.size() && sql[j + 1] == L'\'') {
          j += 2;
          continue;
        }
        break;
      }
      tokens.push_back({Kind::Literal, sql.substr(i, j + 1 - i)});
      i = j + 1;
    } else if (c == L'[') {  // Access name: becomes a standard quoted identifier
      if (!Requote(sql, i, L']', L'"', Kind::Identifier, tokens, made, error)) return false;
    } else if (c == L';') {
      for (std::size_t j = i + 1; j < sql.size(); ++j) {
        if (!IsBlank(sql[j]) && sql[j] != L';') {
          error = "more than one statement";
          return false;
        }
      }
      break;
    } else if (c >= L'0' && c <= L'9') {
      std::size_t j = i;
      while (j < sql.size() && (IsWordChar(sql[j]) || sql[j] == L'.')) ++j;
      tokens.push_back({Kind::Number, sql.substr(i, j - i)});
      i = j;
    } else if (IsWordStart(c)) {
      std::size_t j = i;
      while (j < sql.size() && IsWordChar(sql[j])) ++j;
      tokens.push_back({Kind::Word, sql.substr(i, j - i)});
      i = j;
    } else {
      std::wstring_view two = sql.substr(i, 2);
      // Access has no comments and no backquoted names, but the backends have both: a ";" after
      // "--" or inside `...` would look quoted to this layer and end the statement there.
      if (two == L"--" || two == L"/*" || c == L'`') {
        error = c == L'`' ? "a backquote, which Access SQL does not have" : "a comment, which Access SQL does not have";
        return false;
      }
      std::size_t n = (two == L"<>" || two == L"<=" || two == L">=" || two == L"!=" || two == L"||") ? 2 : 1;
      tokens.push_back({Kind::Punct, sql.substr(i, n)});
      i += n;
    }
  }
  return true;
}

// +1 for an opening parenthesis, -1 for a closing one, 0 otherwise.
int DepthChange(const Token& t) {
  if (t.kind != Kind::Punct) return 0;
  return t.text == L"(" ? 1 : (t.text == L")" ? -1 : 0);
}

// Index of the next token that is not a blank, at or after i.
std::size_t SkipBlanks(const std::vector<Token>& t, std::size_t i) {
  while (i < t.size() && t[i].kind == Kind::Space) ++i;
  return i;
}

// "select [distinct|all] top N ..." loses "top N"; N is returned for the LIMIT.
bool TakeTop(std::vector<Token>& t, std::wstring& limit, std::string& error) {
  std::size_t i = SkipBlanks(t, 0);
  if (i >= t.size() || !IsWord(t[i], L"select")) return true;
  i = SkipBlanks(t, i + 1);
  if (i < t.size() && (IsWord(t[i], L"distinct") || IsWord(t[i], L"all"))) i = SkipBlanks(t, i + 1);
  if (i >= t.size() || !IsWord(t[i], L"top")) return true;
  std::size_t n = SkipBlanks(t, i + 1);
  if (n >= t.size() || t[n].kind != Kind::Number || t[n].text.find_first_not_of(L"0123456789") != std::wstring_view::npos) {
    error = "\"top\" needs a whole number";
    return false;
  }
  std::size_t after = SkipBlanks(t, n + 1);
  if (after < t.size() && IsWord(t[after], L"percent")) {
    error = "\"top N percent\" is not supported";
    return false;
  }
  limit = std::wstring(t[n].text);
  std::size_t last = n + 1 < t.size() && t[n + 1].kind == Kind::Space ? n + 2 : n + 1;  // with its blank
  t.erase(t.begin() + static_cast<std::ptrdiff_t>(i), t.begin() + static_cast<std::ptrdiff_t>(last));
  return true;
}

// Rewrites each comparison term of the outermost "order by" so that true sorts first.
void RewriteOrderBy(std::vector<Token>& t) {
  int depth = 0;
  std::size_t start = t.size();
  for (std::size_t i = 0; i < t.size(); ++i) {
    depth += DepthChange(t[i]);
    if (depth == 0 && IsWord(t[i], L"order")) {
      std::size_t j = SkipBlanks(t, i + 1);
      if (j < t.size() && IsWord(t[j], L"by")) start = j + 1;
    }
  }
  if (start >= t.size()) return;

  std::vector<Token> out(t.begin(), t.begin() + static_cast<std::ptrdiff_t>(start));
  std::size_t i = start;
  while (i <= t.size()) {
    // One term: up to the next comma at depth 0.
    std::size_t end = i;
    depth = 0;
    while (end < t.size() && !(depth == 0 && t[end].kind == Kind::Punct && t[end].text == L",")) {
      depth += DepthChange(t[end++]);
    }
    // Its direction word, if any, stays outside the rewritten expression.
    std::size_t exprEnd = end;
    while (exprEnd > i && t[exprEnd - 1].kind == Kind::Space) --exprEnd;
    std::size_t dir = exprEnd;
    if (exprEnd > i && (IsWord(t[exprEnd - 1], L"asc") || IsWord(t[exprEnd - 1], L"desc"))) dir = exprEnd - 1;
    bool comparison = false;
    depth = 0;
    for (std::size_t k = i; k < dir; ++k) {
      depth += DepthChange(t[k]);
      if (depth == 0 && IsComparison(t[k])) comparison = true;
    }
    if (comparison) {
      std::size_t first = SkipBlanks(t, i);
      std::size_t last = dir;
      while (last > first && t[last - 1].kind == Kind::Space) --last;
      out.push_back({Kind::Word, L" CASE WHEN "});
      out.insert(out.end(), t.begin() + static_cast<std::ptrdiff_t>(first), t.begin() + static_cast<std::ptrdiff_t>(last));
      out.push_back({Kind::Word, L" THEN 0 ELSE 1 END"});
      out.insert(out.end(), t.begin() + static_cast<std::ptrdiff_t>(last), t.begin() + static_cast<std::ptrdiff_t>(end));
    } else {
      out.insert(out.end(), t.begin() + static_cast<std::ptrdiff_t>(i), t.begin() + static_cast<std::ptrdiff_t>(end));
    }
    if (end >= t.size()) break;
    out.push_back(t[end]);  // the comma
    i = end + 1;
  }
  t = std::move(out);
}

// A word that starts a search condition (true) or ends one (false); others leave it as it is.
bool StartsCondition(const Token& t) { return IsWord(t, L"where") || IsWord(t, L"on") || IsWord(t, L"having"); }
bool EndsCondition(const Token& t) {
  for (const wchar_t* word : {L"select", L"order", L"group", L"limit", L"union", L"intersect", L"except", L"set"}) {
    if (IsWord(t, word)) return true;
  }
  return false;
}

// Whether the blank-separated neighbour of t[i] on either side is a comparison.
bool NextToComparison(const std::vector<Token>& t, std::size_t i) {
  std::size_t before = i;
  while (before > 0 && t[before - 1].kind == Kind::Space) --before;
  if (before > 0 && IsComparison(t[before - 1])) return true;
  std::size_t after = SkipBlanks(t, i + 1);
  return after < t.size() && IsComparison(t[after]);
}

// The value of a literal token that can be bound without changing the statement: a whole number
// that fits 64 bits, or a quoted text. False for anything else (decimals stay in the text).
bool BindableValue(const Token& t, FieldValue& value) {
  if (t.kind == Kind::Number) {
    if (t.text.size() > 18 || t.text.find_first_not_of(L"0123456789") != std::wstring_view::npos) return false;
    long long n = 0;
    for (wchar_t c : t.text) n = n * 10 + (c - L'0');
    value = FieldValue::Int(n);
    return true;
  }
  if (t.kind != Kind::Literal) return false;
  std::wstring text;  // between the quotes, with each doubled quote single again
  for (std::size_t i = 1; i + 1 < t.text.size(); ++i) {
    text.push_back(t.text[i]);
    if (t.text[i] == L'\'' && t.text[i + 1] == L'\'') ++i;
  }
  value = FieldValue::Text(CString(text.c_str()));
  return true;
}

// Replaces each bindable literal of a search condition with "?", its value appended to values.
// Which clause a token is in is kept per parenthesis depth: a sub-select in a condition has a select
// list of its own, and a parenthesised condition stays one.
void TakeConditionLiterals(std::vector<Token>& t, std::vector<FieldValue>& values) {
  // A statement with parameter marks of its own keeps its literals: values of ours would take the
  // marks' places.
  for (const Token& token : t) {
    if (token.kind == Kind::Punct && (token.text == L"?" || token.text == L":" || token.text == L"@" || token.text == L"$"))
      return;
  }
  std::vector<bool> inCondition{false};
  for (std::size_t i = 0; i < t.size(); ++i) {
    Token& token = t[i];
    const int depth = DepthChange(token);
    if (depth > 0) {
      inCondition.push_back(inCondition.back());
    } else if (depth < 0) {
      if (inCondition.size() > 1) inCondition.pop_back();
    } else if (token.kind == Kind::Word) {
      if (StartsCondition(token)) inCondition.back() = true;
      if (EndsCondition(token)) inCondition.back() = false;
    } else if (inCondition.back() && NextToComparison(t, i)) {
      FieldValue value;
      if (!BindableValue(token, value)) continue;
      values.push_back(std::move(value));
      token = {Kind::Punct, L"?"};
    }
  }
}

// Tokenizes and applies the rewrites every dialect shares; limit receives the N of "top N".
bool TranslateTokens(const wchar_t* accessSql, std::vector<Token>& tokens, Made& made, std::wstring& limit,
                     std::string& error) {
  if (accessSql == nullptr) {
    error = "no statement";
    return false;
  }
  if (!Tokenize(accessSql, tokens, made, error)) return false;
  if (SkipBlanks(tokens, 0) >= tokens.size()) {
    error = "empty statement";
    return false;
  }
  if (!TakeTop(tokens, limit, error)) return false;
  RewriteOrderBy(tokens);
  return true;
}

std::string Join(const std::vector<Token>& tokens, const std::wstring& limit) {
  std::wstring sql;
  for (const Token& t : tokens) sql += t.text;
  while (!sql.empty() && sql.back() == L' ') sql.pop_back();
  if (!limit.empty()) sql += L" LIMIT " + limit;
  return qk::utf::ToUtf8(sql);
}

}  // namespace

bool TranslateAccessSql(const wchar_t* accessSql, std::string& out, std::string& error, SqlDialect dialect) {
  std::vector<Token> tokens;
  Made made;
  std::wstring limit;
  if (!TranslateTokens(accessSql, tokens, made, limit, error)) return false;
  if (dialect == SqlDialect::PostgreSQL) {
    for (Token& t : tokens) {
      if (t.kind != Kind::Identifier) continue;
      std::wstring& lower = made.emplace_back(t.text);
      for (wchar_t& c : lower) {
        if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
      }
      t.text = lower;
    }
  }
  out = Join(tokens, limit);
  return true;
}

bool TranslateAccessSqlBound(const wchar_t* accessSql, BoundSql& out, std::string& error) {
  std::vector<Token> tokens;
  Made made;
  std::wstring limit;
  if (!TranslateTokens(accessSql, tokens, made, limit, error)) return false;
  out.values.clear();
  TakeConditionLiterals(tokens, out.values);
  out.text = Join(tokens, limit);
  return true;
}

}  // namespace tablekit
