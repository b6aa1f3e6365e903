// Blocks of rows through GetString, cut at delimiters. All counts are checked, to detect a text
// that contains a delimiter.
#include "platform/text_blocks.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"

namespace pricedown {
namespace {

constexpr std::int32_t kClipString = 2;  // ADO StringFormatEnum
// The control characters that are meant for this.
constexpr char16_t kColumnEnd = 0x1F;
constexpr char16_t kRowEnd = 0x1E;
constexpr std::u16string_view kColumnDelimiter(&kColumnEnd, 1);
constexpr std::u16string_view kRowDelimiter(&kRowEnd, 1);

bool IsText(std::int32_t type) {
  switch (type) {
    case 8:    // BSTR
    case 129:  // Char
    case 130:  // WChar
    case 200:  // VarChar
    case 201:  // LongVarChar
    case 202:  // VarWChar
    case 203:  // LongVarWChar
      return true;
    default:
      return false;
  }
}

// Their texts depend on the user's settings, but never hold a control character.
bool IsNumber(std::int32_t type) {
  return (type >= 2 && type <= 6) || type == 14 || (type >= 16 && type <= 21) ||
         type == ado::kNumeric;
}

// The first delimiter from `at` on. Requires: there is one.
const char16_t* Delimiter(const char16_t* at) {
  static_assert(kRowEnd < kColumnEnd);
  for (;; ++at) {
    while (*at > kColumnEnd) ++at;
    if (*at >= kRowEnd) return at;
  }
}

// The cells of the requested columns as parts of one text.
class CutText final : public CellBlock {
 public:
  explicit CutText(std::size_t columns) : columns_(columns) {}

  // False when `text` is not the text of `rows` rows of `width` cells, each with its delimiter.
  bool Cut(Value text, std::size_t rows, std::size_t width,
           const std::vector<std::size_t>& picked) {
    text_ = std::move(text);
    const std::u16string_view whole = text_.Text();
    if (whole.empty() || whole.back() != kRowEnd) return false;
    cells_.resize(rows * columns_);
    std::vector<std::u16string_view> row(width);
    const char16_t* at = whole.data();
    const char16_t* const end = at + whole.size();
    for (; rows_ < rows; ++rows_) {
      for (std::size_t column = 0; column < width; ++column) {
        if (at == end) return false;
        const char16_t* const start = at;
        at = Delimiter(at);
        if (*at != (column + 1 < width ? kColumnEnd : kRowEnd)) return false;
        row[column] = {start, static_cast<std::size_t>(at - start)};
        ++at;
      }
      for (std::size_t i = 0; i < columns_; ++i) cells_[rows_ * columns_ + i] = row[picked[i]];
    }
    return at == end;
  }

  std::size_t ColumnCount() const override { return columns_; }
  std::size_t RowCount() const override { return rows_; }
  CellView Cell(std::size_t column, std::size_t row) const override {
    return {.kind = CellView::Kind::Text, .text = cells_[row * columns_ + column]};
  }
  Value CellValue(std::size_t column, std::size_t row) const override {
    return cells_[row * columns_ + column];
  }

 private:
  std::size_t columns_;
  std::size_t rows_ = 0;
  Value text_;  // unchanged: copying it would cost as much as splitting it
  std::vector<std::u16string_view> cells_;  // row by row
};

}  // namespace

std::optional<TextBlocks> TextBlocks::Of(const Recordset& recordset,
                                         const std::vector<std::u16string_view>& fields) {
  try {
    AutomationObject& object = *RequireObject(recordset.Object(), u"记录集");
    object.Find(u"GetString");
    const std::int32_t position = ToInt32(object.Get(u"AbsolutePosition"));
    const std::int32_t rows = recordset.RecordCount();
    if (position < 1 || rows < position) return std::nullopt;
    TextBlocks blocks(recordset, position, rows);
    if (!blocks.FindColumns(fields)) return std::nullopt;
    return blocks;
  } catch (const AutomationError&) {
    // The other way of reading reports a failure that matters.
    return std::nullopt;
  }
}

bool TextBlocks::FindColumns(const std::vector<std::u16string_view>& fields) {
  const std::vector<FieldDefinition> declared = recordset_.Fields();
  columnCount_ = declared.size();
  for (const FieldDefinition& field : declared) {
    if (!IsText(field.type) && !IsNumber(field.type)) return false;
  }
  for (std::u16string_view name : fields) {
    const auto found = std::find_if(declared.begin(), declared.end(), [&](const auto& field) {
      return EqualsIgnoringCase(field.name, name);
    });
    if (found == declared.end() || !IsText(found->type)) return false;
    columns_.push_back(static_cast<std::size_t>(found - declared.begin()));
  }
  return true;
}

CellBlockPtr TextBlocks::Read() {
  const std::int32_t rows = std::min(kRowsPerBlock, rows_ - position_ + 1);
  if (rows < 1) return nullptr;
  AutomationObject& object = *recordset_.Object();
  const auto block = std::make_shared<CutText>(columns_.size());
  try {
    Value answer = object.Call(u"GetString",
                               {kClipString, kRowsPerBlock, kColumnDelimiter, kRowDelimiter, u""});
    if (block->Cut(std::move(answer), static_cast<std::size_t>(rows), columnCount_, columns_)) {
      position_ += rows;
      return block;
    }
  } catch (const AutomationError&) {
    // As for a delimiter in a cell: the rows are read again the other way, which may fail too.
  }
  object.Put(u"AbsolutePosition", position_);
  return nullptr;
}

}  // namespace pricedown
