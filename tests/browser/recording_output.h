// A recording print output: its documents as text. It draws nothing; tests define what the user
// does in its windows.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "print/font_dialog.h"
#include "print/print_output.h"
#include "tests/browser/recording_views.h"
#include "tests/support/recorder.h"
#include "tests/support/recording_factory.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

// header "title" 宋体 134 20.0 bold underlined
inline std::string Readable(const PageLine& line) {
  const Font& font = line.font;
  return Quoted(line.text) + " " + Utf8(font.name) + " " + std::to_string(font.charset) + " " +
         NumberInLog(font.size) + (font.bold ? " bold" : "") + (font.italic ? " italic" : "") +
         (font.underlined ? " underlined" : "") + "\n";
}

// column "title" 1800
// row "01.001" "螺栓" "M8" ""
inline std::string Readable(const PrintTable& table) {
  std::string text;
  for (const PrintColumn& column : table.Columns()) {
    text += "column " + Quoted(column.title) + " " + std::to_string(column.width) + "\n";
  }
  for (std::int32_t row = 0; row < table.RowCount(); ++row) {
    text += "row";
    for (std::size_t column = 0; column < table.Columns().size(); ++column) {
      text += " " + Quoted(table.Cell(row, column));
    }
    text += "\n";
  }
  return text;
}

inline std::string Readable(const PrintDocument& document) {
  std::string text;
  for (const PageLine& line : document.header) text += "header " + Readable(line);
  text += Readable(document.table);
  for (const PageLine& line : document.footer) text += "footer " + Readable(line);
  return text;
}

// Log lines: output preview, output print.
class RecordingOutput : public PrintOutput {
 public:
  explicit RecordingOutput(RecorderPtr recorder) : recorder_(std::move(recorder)) {}

  void Preview(PrintDocument& document) override {
    Show("output preview", document);
    if (onPreview) onPreview(document);
  }
  void Print(const PrintDocument& document) override {
    Show("output print", document);
    if (onPrint) onPrint();
  }

  // The last document.
  std::string printed;
  Font font;
  std::int32_t rowHeight = 0;
  // What happens while the window is open.
  std::function<void(PrintDocument&)> onPreview;
  std::function<void()> onPrint;

 private:
  void Show(const char* call, const PrintDocument& document) {
    recorder_->Call(call, u"output");
    printed = Readable(document);
    font = document.font;
    rowHeight = document.rowHeight;
  }

  RecorderPtr recorder_;
};

// The suite's font for titles, and how reading it looks in the log.
inline void AnswerTitleFont(RecordingFactory& factory, Reply name, Reply charset) {
  factory.Object(u"ZEPPropsMgr.ShareProps").On(u"GetProperty", u"LANGUAGE=chs");
  factory.Object(u"ZEPFrmRes.FrmResLoader").On(u"GetQ7FontProps", factory.Answering(u"q7font"));
  factory.Object(u"q7font")
      .On(u"", R"("Font.Name")", std::move(name))
      .On(u"", R"("Font.Charset")", std::move(charset));
}
inline std::string ReadingTitleFont() {
  return Lines(R"(
      create ZEPFrmRes.FrmResLoader
      create ZEPPropsMgr.ShareProps
      ZEPPropsMgr.ShareProps.GetProperty("PropsString", ref Empty)
      release ZEPPropsMgr.ShareProps
      ZEPFrmRes.FrmResLoader.GetQ7FontProps("chs")
      q7font("Font.Name")
      q7font("Font.Charset")
      release q7font
      release ZEPFrmRes.FrmResLoader
      )");
}

// The document of the item list, with lines in that typeface, "宋体 134", and rows written as
// Readable writes them.
inline std::string PrintedList(const std::string& typeface, const std::string& rows) {
  const std::string blank = "\"" + std::string(30, ' ') + "\" " + typeface + " 9.0\n";
  return "header \"物料类别维护-明细物料\" " + typeface + " 20.0 bold underlined\n" + "header " +
         blank + "header \"|打印日期：&[日期]\" " + typeface + " 9.0\n" + Lines(R"(
      column "物料代码" 1800
      column "物料名称" 3000
      column "规格型号" 2700
      column "标准单价" 1800
      )") +
         rows + "footer " + blank + "footer \"第 &[页] 页|共 &[总页] 页\" " + typeface + " 9.0\n";
}

// Log line: dialog 宋体 9.0 flags 515. Returns `chosen`, or fails with `error` unless that is 0.
class RecordingFontDialog : public FontDialog {
 public:
  explicit RecordingFontDialog(RecorderPtr recorder) : recorder_(std::move(recorder)) {}

  Font Show(const Font& font, std::uint32_t flags) override {
    recorder_->Call("dialog " + FontInLog(font) + " flags " + std::to_string(flags), u"comDialog");
    if (onShow) onShow();
    if (error != 0) throw AutomationError(error, u"对话框出错");
    return chosen;
  }

  Font chosen;
  std::int32_t error = 0;
  std::function<void()> onShow;

 private:
  RecorderPtr recorder_;
};

}  // namespace pricedown::testing
