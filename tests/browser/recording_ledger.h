// The ledger, recorded: each call is one line of the log.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "browser/print_commands.h"
#include "browser/print_ledger.h"
#include "tests/browser/recording_views.h"
#include "tests/support/recorder.h"
#include "tests/support/recording_factory.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

// Log lines: ledger clear, ledger rows 3, ledger columns 4, ledger format 1 0, ledger width 1 1800,
// ledger row 2 "01.001|螺栓|M8||", ledger refresh, ledger lines in 宋体 134,
// ledger header 1 "title" 20.0 bold underlined, ledger footer 1 "page" 9.0, ledger preview,
// ledger print.
class RecordingLedger : public PrintLedger, public PrintTable {
 public:
  explicit RecordingLedger(RecorderPtr recorder) : recorder_(std::move(recorder)) {}

  PrintTable& Table() override { return *this; }
  void Clear() override { Call("clear"); }
  void SetRowCount(std::int32_t count) override { Call("rows " + std::to_string(count)); }
  void SetColumnCount(std::int32_t count) override { Call("columns " + std::to_string(count)); }
  void SetColumnFormat(std::int32_t column, std::int32_t format) override {
    Call("format " + std::to_string(column) + " " + std::to_string(format));
  }
  void SetColumnWidth(std::int32_t column, std::int32_t twips) override {
    Call("width " + std::to_string(column) + " " + std::to_string(twips));
  }
  void SetRow(std::int32_t row, std::u16string_view text) override {
    Call("row " + std::to_string(row) + " " + Quoted(text));
  }
  void Refresh() override { Call("refresh"); }

  void SetLineTypeface(const LineTypeface& typeface) override {
    Call("lines in " + Utf8(typeface.name) + " " + std::to_string(typeface.charset));
  }
  void SetHeaderLine(std::int32_t line, std::u16string_view text, const LineFont& font) override {
    Call("header " + Line(line, text, font));
  }
  void SetFooterLine(std::int32_t line, std::u16string_view text, const LineFont& font) override {
    Call("footer " + Line(line, text, font));
  }
  LedgerAppearance& Appearance() override { return appearance; }
  void Preview() override {
    Call("preview");
    if (onPreview) onPreview();
  }
  void Print() override {
    Call("print");
    if (onPrint) onPrint();
  }

  LedgerAppearance appearance;
  // What happens while the window is open.
  std::function<void()> onPreview;
  std::function<void()> onPrint;

 private:
  static std::string Line(std::int32_t line, std::u16string_view text, const LineFont& font) {
    return std::to_string(line) + " " + Quoted(text) + " " + NumberInLog(font.size) +
           (font.bold ? " bold" : "") + (font.underlined ? " underlined" : "");
  }
  void Call(const std::string& line) { recorder_->Call("ledger " + line, u"ldgPara"); }

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

// The ledger's calls for the item list, in lines of that typeface: "宋体 134". Each row is written
// as in the log: "01.001|螺栓|M8||".
inline std::string FillingLedger(const std::string& typeface,
                                 const std::vector<std::string>& rows) {
  std::string table;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    table += "ledger row " + std::to_string(i + 2) + " \"" + rows[i] + "\"\nledger refresh\n";
  }
  return ReadingTitleFont() + "ledger lines in " + typeface + "\n" + Lines(R"(
      ledger header 1 "物料类别维护-明细物料" 20.0 bold underlined
      ledger header 2 "                              " 9.0
      ledger header 3 "|打印日期：&[日期]" 9.0
      ledger clear
      )") +
         "ledger rows " + std::to_string(rows.size() + 1) + "\n" + Lines(R"(
      ledger columns 4
      ledger format 1 0
      ledger format 2 0
      ledger format 3 0
      ledger format 4 0
      ledger width 1 1800
      ledger width 2 3000
      ledger width 3 2700
      ledger width 4 1800
      ledger refresh
      )") +
         table + Lines(R"(
      ledger row 1 "物料代码|物料名称|规格型号|标准单价|"
      ledger refresh
      ledger footer 1 "                              " 9.0
      ledger footer 2 "第 &[页] 页|共 &[总页] 页" 9.0
      )");
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
