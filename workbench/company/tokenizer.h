// Splits a statement text for SQL Server into words, names, literals and symbols. Comments,
// variables and double-quoted names are not part of the dialect.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace workbench {

enum class TokenKind { Word, BracketedName, Text, Number, Symbol, End };

struct Token {
  TokenKind kind = TokenKind::End;
  std::size_t offset = 0;      // of its first code unit in the source
  std::u16string_view source;  // as written, quotes and brackets included

  // Requires: `keyword` in lower case.
  bool IsKeyword(std::u16string_view keyword) const noexcept;
  bool IsSymbol(std::u16string_view symbol) const noexcept;
};

// A name without its brackets. Requires: a Word or a BracketedName.
std::u16string NameOf(const Token& token);

// A text without its quotes, N prefix and doubled apostrophes, in UTF-8. Requires: a Text.
std::string TextOf(const Token& token);

// True for words that SQL Server keeps for itself, in any case of letters.
bool IsReservedWord(std::u16string_view word);

class Tokenizer {
 public:
  // The text must outlive the tokenizer and its tokens.
  explicit Tokenizer(std::u16string_view source) : source_(source) {}

  // Returns the next token and moves past it; End at the end of the text. Throws DatabaseError with
  // the position at an unknown character or unclosed quote.
  Token Next();

  std::u16string_view Source() const noexcept { return source_; }
  void MoveTo(std::size_t offset) noexcept { position_ = offset; }

 private:
  Token Make(TokenKind kind, std::size_t end) noexcept;
  Token QuotedText(std::size_t quote);
  Token BracketedName();
  Token Number();
  char16_t At(std::size_t offset) const noexcept {
    return offset < source_.size() ? source_[offset] : u'\0';
  }

  std::u16string_view source_;
  std::size_t position_ = 0;
};

}  // namespace workbench
