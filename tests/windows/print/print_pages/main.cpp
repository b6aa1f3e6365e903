// print_pages DOCUMENT [PICTURE DPI]: prints a document of known contents on the user's default
// printer and prints where each element must be; with PICTURE, also draws page 1 as a preview does.
// print_pages DOCUMENT off: cancels the job before its second page.
//
// Lines, in points from the paper's top left corner, separated by tabs:
//   pages COUNT, paper WIDTH HEIGHT upright|turned, rule PAGE LEFT TOP RIGHT BOTTOM,
//   text PAGE LEFT RIGHT TOP BOTTOM TEXT
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/failure.h"
#include "platform/text.h"
#include "tests/windows/print/print_pages/documents.h"
#include "tests/windows/print/print_pages/page_picture.h"
#include "windows/print/device_measurer.h"
#include "windows/print/print_job.h"
#include "windows/print/printer.h"

namespace {

using namespace pricedown;
using namespace pricedown::testing;
namespace win = pricedown::windows;

constexpr double kPointsPerTenth = 72 / 254.0;

class User final : public win::PrintWatcher {
 public:
  explicit User(std::int64_t pages) : pages_(pages) {}
  bool Continue(std::int64_t sheet, std::int64_t) override { return sheet <= pages_; }

 private:
  std::int64_t pages_;  // wanted
};

void PrintTexts(std::int32_t number, const Page& page, const std::vector<Font>& fonts,
                win::DeviceMeasurer& measurer) {
  for (const PageRule& rule : page.rules) {
    std::printf("rule\t%d\t%.2f\t%.2f\t%.2f\t%.2f\n", number, rule.left * kPointsPerTenth,
                rule.top * kPointsPerTenth, rule.right * kPointsPerTenth,
                rule.bottom * kPointsPerTenth);
  }
  for (const PageText& text : page.texts) {
    const Font& font = fonts[text.font];
    const Tenths width = measurer.Width(font, text.text);
    Tenths left = text.anchor;
    if (text.alignment == TextAlignment::Right) left -= width;
    if (text.alignment == TextAlignment::Centre) left -= width / 2;
    std::printf("text\t%d\t%.2f\t%.2f\t%.2f\t%.2f\t%s\n", number, left * kPointsPerTenth,
                (left + width) * kPointsPerTenth, text.top * kPointsPerTenth,
                (text.top + measurer.LineHeight(font)) * kPointsPerTenth,
                ToUtf8(text.text).c_str());
  }
}

int Run(std::string_view name, bool calledOff, const char* picture, int dotsPerInch) {
  win::Spooler spooler;
  win::PrintDialogs dialogs;
  win::Printer printer(spooler, dialogs);
  printer.UseDefault();
  if (!printer.Exists()) {
    std::fprintf(stderr, "print_pages: no printer\n");
    return 1;
  }
  win::DeviceMeasurer measurer;
  PrintDocument document;
  if (!FillKnownDocument(name, printer.CurrentPaper(), measurer, document)) {
    std::fprintf(stderr, "print_pages: no such document\n");
    return 2;
  }
  const PrintPages pages(document, printer.CurrentPaper(), kKnownDate, measurer);
  User user(calledOff ? 1 : pages.PageCount());
  if (!win::RunPrintJob(printer, pages, measurer, {{}, pages.PageCount()}, user)) {
    std::printf("called off\n");
    return 0;
  }
  const Paper& paper = pages.PrintedPaper();
  std::printf("pages\t%d\n", pages.PageCount());
  std::printf("paper\t%.2f\t%.2f\t%s\n", paper.width * kPointsPerTenth,
              paper.height * kPointsPerTenth, pages.IsTurned() ? "turned" : "upright");
  for (std::int32_t number = 1; number <= pages.PageCount(); ++number) {
    PrintTexts(number, pages.PageAt(number), pages.Fonts(), measurer);
  }
  if (picture != nullptr) WritePagePicture(pages, 1, measurer, dotsPerInch, picture);
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  const bool calledOff = count == 3 && std::string_view(arguments[2]) == "off";
  if (count != 2 && count != 4 && !calledOff) {
    std::fprintf(stderr, "usage: print_pages DOCUMENT [PICTURE DPI | off]\n");
    return 2;
  }
  try {
    return Run(arguments[1], calledOff, count == 4 ? arguments[2] : nullptr,
               count == 4 ? std::atoi(arguments[3]) : 0);
  } catch (...) {
    const auto failure = pricedown::CurrentFailure();
    std::fprintf(stderr, "print_pages: %s\n", ToUtf8(failure.description).c_str());
    return 1;
  }
}
