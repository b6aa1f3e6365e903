// A print job call by call: its order, every call failing once, and ways to cancel it.
#include <gtest/gtest.h>

#include "tests/print/fake_measurer.h"
#include "tests/support/failure.h"
#include "tests/windows/base/picture.h"
#include "tests/windows/print/fake_printer.h"
#include "windows/base/gdi.h"
#include "windows/print/print_job.h"

namespace pricedown::testing {
namespace {

class Watcher final : public windows::PrintWatcher {
 public:
  bool Continue(std::int64_t sheet, std::int64_t count) override {
    seen += std::to_string(sheet) + "/" + std::to_string(count) + " ";
    return sheet != lastSheet;
  }
  std::int64_t lastSheet = 0;  // the sheet at which the user cancels
  std::string seen;
};

// Two pages; the font is one that every system has.
std::string JobName(UINT codePage = GetACP()) {
  return Utf8(windows::DocumentName(codePage).c_str());
}

class PrintJobTest : public ::testing::Test {
 protected:
  PrintJobTest() {
    document_.font.name = u"Tahoma";
    Fill(3000);
    printer_.UseDefault();
    spooler_.log.clear();
  }
  ~PrintJobTest() override { EXPECT_EQ(spooler_.contexts, 0); }

  void Fill(std::int32_t width) {
    document_.table.Clear();
    document_.table.AddColumn(u"text", width);
    for (int row = 0; row < 69; ++row) document_.table.AddCell(u"text");
  }
  // Calls are counted from here on.
  void FailCall(int call) { spooler_.failingCall = kCallsBefore + call; }
  bool Print(const PrintChoice& choice = {1, 9, 1, true}) {
    const PrintPages pages(document_, {}, u"", measurer_);
    return windows::RunPrintJob(printer_, pages, measurer_, {choice, pages.PageCount()}, watcher_);
  }

  static constexpr int kCallsBefore = 2;  // the query of the printer's paper
  PrintDocument document_;
  windows::DeviceMeasurer measurer_;
  FakeSpooler spooler_;
  FakeDialogs dialogs_;
  windows::Printer printer_{spooler_, dialogs_};
  Watcher watcher_;
};

TEST_F(PrintJobTest, SendsThePagesToThePrinterOneByOne) {
  EXPECT_TRUE(Print());
  EXPECT_EQ(spooler_.log,
            "open PDF portrait\n"
            "begin \"" +
                JobName() +
                "\"\n"
                "page\npage end\n"
                "page\npage end\n"
                "end\n"
                "close\n");
  EXPECT_EQ(watcher_.seen, "1/2 2/2 ");
}

TEST(PrintJobName, IsChineseWhereTheCodePageHasTheCharacters) {
  EXPECT_EQ(JobName(936), "物料类别维护-明细物料");
  EXPECT_EQ(JobName(CP_UTF8), "物料类别维护-明细物料");
  EXPECT_EQ(JobName(1252), "PriceDown item list");
}

TEST_F(PrintJobTest, UsesLandscapePaperForLandscapePages) {
  Fill(12000);
  EXPECT_TRUE(Print({1, 1, 1, true}));
  EXPECT_TRUE(spooler_.log.starts_with("open PDF landscape\n")) << spooler_.log;
}

TEST_F(PrintJobTest, PrintsNothingWhereNoPageIsChosen) {
  EXPECT_TRUE(Print({5, 6, 1, true}));
  EXPECT_EQ(spooler_.log, "");
}

// The document is aborted once it has begun, and everything is closed.
TEST_F(PrintJobTest, EndsAtEachCallThatFails) {
  const std::string closing = "close\n";
  struct Failing {
    std::string log;
    std::string message;
  };
  const std::vector<Failing> calls{
      {"open PDF portrait fails\n", "80070070 无法打开打印机 PDF："},
      {"begin \"" + JobName() + "\" fails\n" + closing, "80070070 打印作业无法开始："},
      {"page fails\nabort\n" + closing, "80070070 打印页无法开始："},
      {"page end fails\nabort\n" + closing, "80070070 打印页无法完成："},
      {"page fails\nabort\n" + closing, "80070070 打印页无法开始："},
      {"page end fails\nabort\n" + closing, "80070070 打印页无法完成："},
      {"end fails\nabort\n" + closing, "80070070 打印作业无法完成："}};
  for (std::size_t call = 0; call < calls.size(); ++call) {
    SCOPED_TRACE(call);
    FakeSpooler spooler;
    windows::Printer printer(spooler, dialogs_);
    printer.UseDefault();
    spooler.log.clear();
    spooler.failingCall = kCallsBefore + static_cast<int>(call) + 1;
    const PrintPages pages(document_, {}, u"", measurer_);
    const std::string failure = FailureOf([&] {
      windows::RunPrintJob(printer, pages, measurer_, {{1, 9, 1, true}, 2}, watcher_);
    });
    EXPECT_TRUE(failure.starts_with(calls[call].message)) << failure;
    EXPECT_GT(failure.size(), calls[call].message.size()) << "why is missing";
    EXPECT_TRUE(spooler.log.ends_with(calls[call].log)) << spooler.log;
    EXPECT_EQ(spooler.contexts, 0);
  }
}

TEST_F(PrintJobTest, ReportsNoReasonWhereTheSystemHasNone) {
  FailCall(3);
  spooler_.error = ERROR_SUCCESS;
  EXPECT_EQ(FailureOf([&] { Print(); }), "80004005 打印页无法开始。");
}

TEST_F(PrintJobTest, DoesNotBeginOnAPrinterWithoutAResolution) {
  for (const auto& dots : {PrinterDots{0, 300, 2480, 3508, 0, 0, 2480, 3508},
                           PrinterDots{300, 0, 2480, 3508, 0, 0, 2480, 3508}}) {
    spooler_.log.clear();
    spooler_.dots = dots;
    EXPECT_EQ(FailureOf([&] { Print(); }), "80004005 打印机没有给出分辨率。");
    EXPECT_EQ(spooler_.log, "open PDF portrait\nclose\n");
  }
}

TEST_F(PrintJobTest, IsAbortedWhenTheUserCancelsItHalfway) {
  watcher_.lastSheet = 2;
  EXPECT_FALSE(Print());
  EXPECT_TRUE(spooler_.log.ends_with("begin \"" + JobName() + "\"\npage\npage end\nabort\nclose\n"))
      << spooler_.log;
}

// Keeps what is printed as a picture, a pixel to each dot.
class PictureSpooler final : public FakeSpooler {
 public:
  PictureSpooler(int width, int height) : area_{0, 0, width, height} {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    bitmap_ = windows::GdiObject<HBITMAP>(
        CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  }
  HDC OpenContext(windows::PrinterUse use, const wchar_t* driver, const wchar_t* device,
                  const DEVMODEW* mode) override {
    const HDC context = FakeSpooler::OpenContext(use, driver, device, mode);
    if (use == windows::PrinterUse::Print) {
      SelectObject(context, bitmap_.Get());
      FillRect(context, &area_, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    }
    return context;
  }
  int FinishDocument(HDC context) override {
    picture = CapturePicture(context, area_);
    return FakeSpooler::FinishDocument(context);
  }
  // The middle of the first dark dots in that row or column; -1 when there are none.
  int FirstInk(bool acrossRow, int line) const {
    int first = -1;
    for (int i = 0; i < (acrossRow ? picture.width : picture.height); ++i) {
      const bool dark = (picture.At(acrossRow ? i : line, acrossRow ? line : i) & 0xFF) < 0x80;
      if (dark && first < 0) first = i;
      if (!dark && first >= 0) return (first + i - 1) / 2;
    }
    return first;
  }
  Picture picture;

 private:
  RECT area_;
  windows::GdiObject<HBITMAP> bitmap_;
};

// A dot's place on paper depends on the printer's unprintable margins.
TEST_F(PrintJobTest, CountsFromThePapersCornerAndNotFromWhereThePrinterCanPrint) {
  PictureSpooler spooler(1000, 1000);
  spooler.dots = spooler.turnedDots = {254, 508, 2100, 5940, 70, 90, 1900, 5800};
  windows::Printer printer(spooler, dialogs_);
  printer.UseDefault();
  const PrintPages pages(document_, {}, u"", measurer_);
  EXPECT_TRUE(windows::RunPrintJob(printer, pages, measurer_, {{1, 1, 1, true}, 1}, watcher_));
  const PageRule top = pages.PageAt(1).rules.front();
  // One dot per tenth across, two down; searches where the rule is the first dark thing.
  EXPECT_NEAR(spooler.FirstInk(false, top.left + 5 - 70), 2 * top.top - 90, 2);
  EXPECT_NEAR(spooler.FirstInk(true, 2 * top.top + 12 - 90), top.left - 70, 2);
}

// As when the printer prints to a file and the user enters no name.
TEST_F(PrintJobTest, EndsQuietlyWhenTheUserCancelsItInThePrintersOwnDialog) {
  FailCall(2);
  spooler_.error = ERROR_CANCELLED;
  EXPECT_FALSE(Print());
  EXPECT_TRUE(spooler_.log.ends_with("fails\nclose\n")) << spooler_.log;
}

}  // namespace
}  // namespace pricedown::testing
