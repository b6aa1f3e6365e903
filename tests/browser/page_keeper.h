// The core's own ledger with a user who looks at its first page. Pages are measured by rule.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "browser/print_document.h"
#include "tests/print/fake_measurer.h"

namespace pricedown::testing {

class PageKeeper : public LedgerDocument {
 public:
  void Preview() override {
    Keep();
    if (onPreview) onPreview();
  }
  void Print() override { Keep(); }

  // The distance between the first two rules.
  Tenths RowHeight() const { return firstPage.rules[1].top - firstPage.rules[0].top; }
  // The texts of the first page in the order in which they are drawn, one a line.
  std::string Texts() const {
    std::string texts;
    for (const PageText& text : firstPage.texts) texts += Utf8(text.text) + "\n";
    return texts;
  }

  // What the user does in the preview.
  std::function<void()> onPreview;
  FakeMeasurer measurer;
  std::int32_t pageCount = 0;
  Page firstPage;
  std::vector<PageFont> fonts;

 private:
  void Keep() {
    const LedgerPages pages = Pages({}, u"2008-03-31", measurer);
    pageCount = pages.PageCount();
    firstPage = pages.PageAt(1);
    fonts = pages.Fonts();
  }
};

}  // namespace pricedown::testing
