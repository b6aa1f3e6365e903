// The steps of a parser, and the refusals at the current token.
#include "workbench/company/token_cursor.h"

#include <string>

#include "workbench/company/dialect_error.h"

namespace workbench {

TokenCursor::TokenCursor(std::u16string_view source)
    : tokenizer_(source), current_(tokenizer_.Next()) {}

Token TokenCursor::Next() {
  const Token token = current_;
  current_ = tokenizer_.Next();
  return token;
}

Token TokenCursor::Following() const {
  Tokenizer copy = tokenizer_;
  return copy.Next();
}

bool TokenCursor::AtName() const {
  return current_.kind == TokenKind::BracketedName ||
         (current_.kind == TokenKind::Word && !IsReservedWord(current_.source));
}

bool TokenCursor::AtStatement() const noexcept {
  return AtKeyword(u"insert") || AtKeyword(u"delete") || AtKeyword(u"update") ||
         AtKeyword(u"select");
}

bool TokenCursor::ConsumeKeyword(std::u16string_view keyword) {
  if (!AtKeyword(keyword)) return false;
  Next();
  return true;
}

bool TokenCursor::ConsumeSymbol(std::u16string_view symbol) {
  if (!AtSymbol(symbol)) return false;
  Next();
  return true;
}

void TokenCursor::ExpectKeyword(std::u16string_view keyword) {
  if (!ConsumeKeyword(keyword)) Refuse();
}

void TokenCursor::ExpectSymbol(std::u16string_view symbol) {
  if (!ConsumeSymbol(symbol)) Refuse();
}

Token TokenCursor::ExpectName() {
  if (!AtName()) Refuse();
  return Next();
}

void TokenCursor::MoveTo(std::size_t offset) {
  tokenizer_.MoveTo(offset);
  current_ = tokenizer_.Next();
}

void TokenCursor::Refuse() const {
  if (AtEnd()) {
    ThrowAt(Source(), current_.offset, u"语句不完整。", server_error::kSyntax);
  }
  if (current_.kind == TokenKind::Word && IsReservedWord(current_.source)) {
    ThrowAt(Source(), current_.offset,
            u"关键字 '" + std::u16string(current_.source) + u"' 附近有语法错误。",
            server_error::kSyntaxAtKeyword);
  }
  ThrowSyntaxError(Source(), current_.offset, current_.source);
}

void TokenCursor::RefuseUnsupported() const {
  if (AtEnd()) Refuse();
  ThrowNotSupported(Source(), current_.offset, current_.source);
}

}  // namespace workbench
