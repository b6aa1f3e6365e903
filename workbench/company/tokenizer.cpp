// Splitting a text into tokens, and what words mean.
#include "workbench/company/tokenizer.h"

#include <algorithm>
#include <iterator>

#include "workbench/company/dialect_error.h"
#include "workbench/company/utf.h"

namespace workbench {
namespace {

constexpr std::u16string_view kReservedWords[] = {
    // clang-format off
    u"add", u"all", u"alter", u"and", u"any", u"as", u"asc", u"authorization", u"backup",
    u"begin", u"between", u"break", u"browse", u"bulk", u"by", u"cascade", u"case", u"check",
    u"checkpoint", u"close", u"clustered", u"coalesce", u"collate", u"column", u"commit",
    u"compute", u"constraint", u"contains", u"containstable", u"continue", u"convert", u"create",
    u"cross", u"current", u"current_date", u"current_time", u"current_timestamp",
    u"current_user", u"cursor", u"database", u"dbcc", u"deallocate", u"declare", u"default",
    u"delete", u"deny", u"desc", u"disk", u"distinct", u"distributed", u"double", u"drop",
    u"dump", u"else", u"end", u"errlvl", u"escape", u"except", u"exec", u"execute", u"exists",
    u"exit", u"external", u"fetch", u"file", u"fillfactor", u"for", u"foreign", u"freetext",
    u"freetexttable", u"from", u"full", u"function", u"goto", u"grant", u"group", u"having",
    u"holdlock", u"identity", u"identity_insert", u"identitycol", u"if", u"in", u"index",
    u"inner", u"insert", u"intersect", u"into", u"is", u"join", u"key", u"kill", u"left",
    u"like", u"lineno", u"load", u"merge", u"national", u"nocheck", u"nonclustered", u"not",
    u"null", u"nullif", u"of", u"off", u"offsets", u"on", u"open", u"opendatasource",
    u"openquery", u"openrowset", u"openxml", u"option", u"or", u"order", u"outer", u"over",
    u"percent", u"pivot", u"plan", u"precision", u"primary", u"print", u"proc", u"procedure",
    u"public", u"raiserror", u"read", u"readtext", u"reconfigure", u"references",
    u"replication", u"restore", u"restrict", u"return", u"revert", u"revoke", u"right",
    u"rollback", u"rowcount", u"rowguidcol", u"rule", u"save", u"schema", u"securityaudit",
    u"select", u"session_user", u"set", u"setuser", u"shutdown", u"some", u"statistics",
    u"system_user", u"table", u"tablesample", u"textsize", u"then", u"to", u"top", u"tran",
    u"transaction", u"trigger", u"truncate", u"try_convert", u"tsequal", u"union", u"unique",
    u"unpivot", u"update", u"updatetext", u"use", u"user", u"values", u"varying", u"view",
    u"waitfor", u"when", u"where", u"while", u"with", u"within", u"writetext",
    // clang-format on
};
static_assert(std::is_sorted(std::begin(kReservedWords), std::end(kReservedWords)));

constexpr char16_t ToLower(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

bool IsBlank(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n';
}

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

bool IsLetter(char16_t unit) {
  if (unit < 0x80) return (ToLower(unit) >= u'a' && ToLower(unit) <= u'z') || unit == u'_';
  // The Latin letters beyond ASCII and the ideographs; punctuation of any script is none.
  const bool latin = unit >= 0xC0 && unit <= 0x24F && unit != 0xD7 && unit != 0xF7;
  const bool ideograph = (unit >= 0x3400 && unit <= 0x4DBF) || (unit >= 0x4E00 && unit <= 0x9FFF);
  return latin || ideograph;
}

}  // namespace

bool Token::IsKeyword(std::u16string_view keyword) const noexcept {
  return kind == TokenKind::Word && source.size() == keyword.size() &&
         std::equal(source.begin(), source.end(), keyword.begin(),
                    [](char16_t left, char16_t right) { return ToLower(left) == right; });
}

bool Token::IsSymbol(std::u16string_view symbol) const noexcept {
  return kind == TokenKind::Symbol && source == symbol;
}

std::u16string NameOf(const Token& token) {
  if (token.kind == TokenKind::Word) return std::u16string(token.source);
  std::u16string name;
  const std::u16string_view inside = token.source.substr(1, token.source.size() - 2);
  for (std::size_t i = 0; i < inside.size(); ++i) {
    name += inside[i];
    if (inside[i] == u']') ++i;
  }
  return name;
}

std::string TextOf(const Token& token) {
  const std::size_t quote = token.source.front() == u'\'' ? 0 : 1;
  std::u16string_view rest = token.source.substr(quote + 1, token.source.size() - quote - 2);
  std::string text;
  text.reserve(rest.size());
  std::size_t doubled = rest.find(u'\'');
  while (doubled != std::u16string_view::npos) {
    AppendUtf8(text, rest.substr(0, doubled + 1));
    rest.remove_prefix(doubled + 2);
    doubled = rest.find(u'\'');
  }
  AppendUtf8(text, rest);
  return text;
}

bool IsReservedWord(std::u16string_view word) {
  std::u16string lower(word);
  std::transform(lower.begin(), lower.end(), lower.begin(), ToLower);
  return std::binary_search(std::begin(kReservedWords), std::end(kReservedWords),
                            std::u16string_view(lower));
}

Token Tokenizer::Next() {
  while (position_ < source_.size() && IsBlank(source_[position_])) ++position_;
  if (position_ >= source_.size()) return Make(TokenKind::End, position_);

  const char16_t first = source_[position_];
  const char16_t second = At(position_ + 1);
  if (first == u'\'') return QuotedText(position_);
  if (ToLower(first) == u'n' && second == u'\'') return QuotedText(position_ + 1);
  if (first == u'[') return BracketedName();
  if (IsDigit(first) || (first == u'.' && IsDigit(second))) return Number();
  if (IsLetter(first)) {
    std::size_t end = position_ + 1;
    while (end < source_.size() && (IsLetter(source_[end]) || IsDigit(source_[end]))) ++end;
    return Make(TokenKind::Word, end);
  }
  constexpr std::u16string_view kPairs[] = {u"<>", u"<=", u">=", u"!="};
  const std::u16string_view pair = source_.substr(position_, 2);
  if (std::find(std::begin(kPairs), std::end(kPairs), pair) != std::end(kPairs)) {
    return Make(TokenKind::Symbol, position_ + 2);
  }
  const bool comment = pair == u"--" || pair == u"/*";
  if (!comment && std::u16string_view(u"(),.;*=<>+-").find(first) != std::u16string_view::npos) {
    return Make(TokenKind::Symbol, position_ + 1);
  }
  ThrowSyntaxError(source_, position_, source_.substr(position_, comment ? 2 : 1));
}

Token Tokenizer::Make(TokenKind kind, std::size_t end) noexcept {
  const Token token{kind, position_, source_.substr(position_, end - position_)};
  position_ = end;
  return token;
}

Token Tokenizer::QuotedText(std::size_t quote) {
  for (std::size_t i = quote + 1; i < source_.size(); ++i) {
    if (source_[i] == u'\0') ThrowSyntaxError(source_, i, u"\\0");
    if (source_[i] != u'\'') continue;
    if (At(i + 1) != u'\'') return Make(TokenKind::Text, i + 1);
    ++i;
  }
  ThrowUnclosedQuote(source_, quote);
}

Token Tokenizer::BracketedName() {
  for (std::size_t i = position_ + 1; i < source_.size(); ++i) {
    if (source_[i] == u'\0') ThrowSyntaxError(source_, i, u"\\0");
    if (source_[i] != u']') continue;
    if (At(i + 1) == u']') {
      ++i;
      continue;
    }
    if (i == position_ + 1) break;
    return Make(TokenKind::BracketedName, i + 1);
  }
  ThrowSyntaxError(source_, position_, source_.substr(position_));
}

Token Tokenizer::Number() {
  std::size_t end = position_;
  const auto skipDigits = [this, &end] {
    while (IsDigit(At(end))) ++end;
  };
  skipDigits();
  if (At(end) == u'.') {
    ++end;
    skipDigits();
  }
  if (ToLower(At(end)) == u'e') {
    const bool hasSign = At(end + 1) == u'+' || At(end + 1) == u'-';
    if (IsDigit(At(end + (hasSign ? 2 : 1)))) {
      end += 2;
      skipDigits();
    }
  }
  // On the server 1a is the number 1 with the alias a, and 0x1F a binary constant; neither is in
  // the dialect.
  if (IsLetter(At(end))) {
    ThrowSyntaxError(source_, position_, source_.substr(position_, end + 1 - position_));
  }
  return Make(TokenKind::Number, end);
}

}  // namespace workbench
