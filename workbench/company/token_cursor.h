// The reading position in a statement text: the current token and the steps a parser takes.
#pragma once

#include <cstddef>
#include <string_view>

#include "workbench/company/tokenizer.h"

namespace workbench {

class TokenCursor {
 public:
  explicit TokenCursor(std::u16string_view source);

  std::u16string_view Source() const noexcept { return tokenizer_.Source(); }
  const Token& Current() const noexcept { return current_; }
  Token Next();
  // The token after the current one.
  Token Following() const;

  // `keyword` in lower case.
  bool AtKeyword(std::u16string_view keyword) const noexcept { return current_.IsKeyword(keyword); }
  bool AtSymbol(std::u16string_view symbol) const noexcept { return current_.IsSymbol(symbol); }
  bool AtEnd() const noexcept { return current_.kind == TokenKind::End; }
  // A word or bracketed name that may name a table or column.
  bool AtName() const;
  // SELECT, INSERT, DELETE or UPDATE: begins a statement once the previous one is complete.
  bool AtStatement() const noexcept;

  bool ConsumeKeyword(std::u16string_view keyword);
  bool ConsumeSymbol(std::u16string_view symbol);
  void ExpectKeyword(std::u16string_view keyword);
  void ExpectSymbol(std::u16string_view symbol);
  Token ExpectName();

  // To the token that begins at the offset.
  void MoveTo(std::size_t offset);

  // A syntax error at the current token.
  [[noreturn]] void Refuse() const;
  [[noreturn]] void RefuseUnsupported() const;

 private:
  Tokenizer tokenizer_;
  Token current_;
};

}  // namespace workbench
