// The rows of the clipboard in both formats, and the offsets that its HTML header gives.
#include "platform/copied_cells.h"

#include <utility>

#include "platform/text.h"

namespace pricedown {
namespace {

// Each offset has as many digits as kOffset, so that the header's length is known before them.
constexpr std::string_view kOffset = "0000000000";
constexpr std::string_view kHtmlStart =
    "<html><head><meta charset=\"utf-8\"><style>td{white-space:pre}"
    "td.t{mso-number-format:\"\\@\"}</style></head><body>\r\n";
constexpr std::string_view kFragmentStart = "<!--StartFragment-->";
constexpr std::string_view kFragmentEnd = "<!--EndFragment-->";
constexpr std::string_view kHtmlEnd = "\r\n</body></html>";

void AppendEscaped(std::string_view text, std::string& html) {
  for (const char character : text) {
    switch (character) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      default:
        html += character;
        break;
    }
  }
}

std::string OffsetText(std::size_t offset) {
  std::string text(kOffset);
  for (std::size_t i = text.size(); i > 0 && offset > 0; offset /= 10) {
    text[--i] = static_cast<char>('0' + offset % 10);
  }
  return text;
}

// The header of the format says where in the whole the document and the copied part are.
std::string ClipboardHtml(std::string_view rows) {
  const std::string table = "<table>" + std::string(rows) + "</table>";
  std::string header = "Version:0.9\r\n";
  const auto line = [](std::string_view name, std::size_t offset) {
    return std::string(name) + OffsetText(offset) + "\r\n";
  };
  const std::size_t start = header.size() + line("StartHTML:", 0).size() +
                            line("EndHTML:", 0).size() + line("StartFragment:", 0).size() +
                            line("EndFragment:", 0).size();
  const std::size_t fragment = start + kHtmlStart.size() + kFragmentStart.size();
  const std::size_t fragmentEnd = fragment + table.size();
  const std::size_t end = fragmentEnd + kFragmentEnd.size() + kHtmlEnd.size();
  header += line("StartHTML:", start) + line("EndHTML:", end) + line("StartFragment:", fragment) +
            line("EndFragment:", fragmentEnd);
  header += kHtmlStart;
  header += kFragmentStart;
  header += table;
  header += kFragmentEnd;
  header += kHtmlEnd;
  return header;
}

}  // namespace

void CellCopier::Add(std::u16string_view cell, CellKind kind) {
  copied_.html += rowIsOpen_ ? "" : "<tr>";
  if (std::exchange(rowIsOpen_, true)) copied_.text += u'\t';
  // As text a tab or a line break would begin another cell.
  for (const char16_t unit : cell)
    copied_.text += unit == u'\t' || unit == u'\r' || unit == u'\n' ? u' ' : unit;
  copied_.html += kind == CellKind::Text ? "<td class=t>" : "<td>";
  AppendEscaped(ToUtf8(cell), copied_.html);
  copied_.html += "</td>";
}

void CellCopier::EndRow() {
  copied_.text += kLineBreak;
  copied_.html += "</tr>\r\n";
  rowIsOpen_ = false;
}

CopiedCells CellCopier::Finish(bool isSingleCell) {
  if (isSingleCell) copied_.text.erase(copied_.text.size() - kLineBreak.size());
  copied_.html = ClipboardHtml(copied_.html);
  return std::move(copied_);
}

}  // namespace pricedown
