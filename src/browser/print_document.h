// The data half of the ledger: it keeps what it is given and makes pages of it.
// Its windows and its printer are a device's matter and come with a derived class.
#pragma once

#include <string>

#include "browser/print_ledger.h"
#include "print/ledger_content.h"
#include "print/ledger_pages.h"

namespace pricedown {

class LedgerDocument : public PrintLedger {
 public:
  LedgerDocument() = default;
  LedgerDocument(const LedgerDocument&) = delete;
  LedgerDocument& operator=(const LedgerDocument&) = delete;

  PrintTable& Table() override { return table_; }
  void SetLineTypeface(const LineTypeface& typeface) override {
    content_.SetLineTypeface(typeface);
  }
  void SetHeaderLine(std::int32_t line, std::u16string_view text, const LineFont& font) override;
  void SetFooterLine(std::int32_t line, std::u16string_view text, const LineFont& font) override;
  LedgerAppearance& Appearance() override { return appearance_; }

  // What was given so far as pages, in the font and row height of now; make them anew when one of
  // these changes. `date` stands for "&[日期]". Throws what the measurer throws. Requires:
  // document and measurer outlive the pages, and nothing is set meanwhile.
  LedgerPages Pages(const Paper& paper, std::u16string date, TextMeasurer& measurer) const;

 private:
  // Nothing is laid out before pages are asked for: a refresh has nothing to do.
  class Rows final : public PrintTable {
   public:
    explicit Rows(LedgerContent& content) : content_(content) {}
    void Clear() override { content_.Clear(); }
    void SetRowCount(std::int32_t count) override { content_.SetRowCount(count); }
    void SetColumnCount(std::int32_t count) override { content_.SetColumnCount(count); }
    void SetColumnFormat(std::int32_t column, std::int32_t format) override {
      content_.SetColumnFormat(column, format);
    }
    void SetColumnWidth(std::int32_t column, std::int32_t twips) override {
      content_.SetColumnWidth(column, twips);
    }
    void SetRow(std::int32_t row, std::u16string_view text) override { content_.SetRow(row, text); }
    void Refresh() override {}

   private:
    LedgerContent& content_;
  };

  LedgerContent content_;
  Rows table_{content_};
  LedgerAppearance appearance_;
};

}  // namespace pricedown
