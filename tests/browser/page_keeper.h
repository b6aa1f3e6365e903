// An output that keeps the first page of its document; texts are measured by rule.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "print/print_output.h"
#include "print/print_pages.h"
#include "tests/print/fake_measurer.h"

namespace pricedown::testing {

class PageKeeper : public PrintOutput {
 public:
  void Preview(PrintDocument& document) override {
    Keep(document);
    if (onPreview) onPreview(document);
  }
  void Print(const PrintDocument& document) override { Keep(document); }

  // The distance of the first two rules.
  Tenths RowHeight() const { return firstPage.rules[1].top - firstPage.rules[0].top; }
  // The texts of the first page in the order in which they are drawn, one a line.
  std::string Texts() const {
    std::string texts;
    for (const PageText& text : firstPage.texts) texts += Utf8(text.text) + "\n";
    return texts;
  }

  // What the user does in the preview.
  std::function<void(PrintDocument&)> onPreview;
  FakeMeasurer measurer;
  std::int32_t pageCount = 0;
  Page firstPage;  // valid until the document is filled again
  std::vector<Font> fonts;

 private:
  void Keep(const PrintDocument& document) {
    const PrintPages pages(document, {}, u"2008-03-31", measurer);
    pageCount = pages.PageCount();
    firstPage = pages.PageAt(1);
    fonts = pages.Fonts();
  }
};

}  // namespace pricedown::testing
