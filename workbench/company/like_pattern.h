// A pattern of the server's LIKE, prepared once and matched against many texts.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace workbench {

// `%` stands for any run of characters, `_` for one, `[abc]`, `[a-f]` and `[^a-f]` for one of a
// class. Letters match in either case; blanks at the end of the text are ignored, those of the
// pattern are not. A class that is not closed matches nothing.
class LikePattern {
 public:
  explicit LikePattern(std::string_view pattern);

  bool Matches(std::string_view text) const noexcept;

 private:
  enum class ElementKind { Character, AnyCharacter, AnyRun, Class, Nothing };
  struct Element {
    ElementKind kind;
    char32_t character = 0;      // folded
    std::size_t firstRange = 0;  // of a class
    std::size_t rangeCount = 0;
    bool negated = false;
  };
  struct Range {
    char32_t first;
    char32_t last;
  };

  void AddClass(std::string_view pattern, std::size_t& position);
  bool MatchesOne(const Element& element, char32_t folded) const noexcept;

  std::vector<Element> elements_;
  std::vector<Range> ranges_;
};

}  // namespace workbench
