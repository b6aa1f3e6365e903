// A print job call by call: its order, every call failing once, and ways to call it off.
#include <gtest/gtest.h>

#include "browser/print_table.h"
#include "tests/print/fake_measurer.h"
#include "tests/support/failure.h"
#include "tests/windows_print/fake_printer.h"
#include "windows/print/print_job.h"

namespace pricedown::testing {
namespace {

using windows::PrintChoice;
using windows::PrintOrder;

std::string Sheets(const PrintChoice& choice, std::int32_t pageCount) {
  const PrintOrder order(choice, pageCount);
  std::string pages;
  for (std::int64_t sheet = 0; sheet < order.SheetCount(); ++sheet) {
    pages += std::to_string(order.PageOn(sheet)) + " ";
  }
  return pages;
}

TEST(PrintOrder, PrintsWholeCopiesOrEachPageOften) {
  EXPECT_EQ(Sheets({1, 9, 1, true}, 3), "1 2 3 ");
  EXPECT_EQ(Sheets({2, 3, 2, true}, 3), "2 3 2 3 ");
  EXPECT_EQ(Sheets({2, 3, 2, false}, 3), "2 2 3 3 ");
}

TEST(PrintOrder, LeavesPagesOutThatThereAreNot) {
  EXPECT_EQ(Sheets({0, 2, 1, true}, 3), "1 2 ");
  EXPECT_EQ(Sheets({4, 9, 2, true}, 3), "");
  EXPECT_EQ(Sheets({1, 1, 0, true}, 3), "1 ");
}

class Watcher final : public windows::PrintWatcher {
 public:
  bool Continue(std::int64_t sheet, std::int64_t count) override {
    seen += std::to_string(sheet) + "/" + std::to_string(count) + " ";
    return sheet != lastSheet;
  }
  std::int64_t lastSheet = 0;  // the sheet at which the user has had enough
  std::string seen;
};

// Two pages; the font is one that every system has.
class PrintJobTest : public ::testing::Test {
 protected:
  PrintJobTest() {
    content_.SetRowCount(70);
    content_.SetColumnCount(1);
    content_.SetColumnWidth(1, 3000);
    for (std::int32_t row = 1; row <= 70; ++row) content_.SetRow(row, u"text|");
    printer_.UseDefault();
    spooler_.log.clear();
  }
  ~PrintJobTest() override { EXPECT_EQ(spooler_.contexts, 0); }

  // Counted from here on.
  void FailCall(int call) { spooler_.failingCall = kCallsBefore + call; }
  bool Print(const PrintChoice& choice = {1, 9, 1, true}) {
    const LedgerPages pages(content_, {{u"Tahoma", 9, false, false, false}, 285, paper_, u""},
                            measurer_);
    return windows::RunPrintJob(printer_, pages, measurer_, {choice, pages.PageCount()}, watcher_);
  }

  static constexpr int kCallsBefore = 2;  // the printer was asked for its paper
  LedgerContent content_;
  Paper paper_;
  windows::DeviceMeasurer measurer_;
  FakeSpooler spooler_;
  FakeDialogs dialogs_;
  windows::Printer printer_{spooler_, dialogs_};
  Watcher watcher_;
};

TEST_F(PrintJobTest, HandsThePagesToThePrinterOneByOne) {
  EXPECT_TRUE(Print());
  EXPECT_EQ(spooler_.log,
            "open PDF portrait\n"
            "begin \"PriceDown item list\"\n"
            "page\npage end\n"
            "page\npage end\n"
            "end\n"
            "close\n");
  EXPECT_EQ(watcher_.seen, "1/2 2/2 ");
}

TEST_F(PrintJobTest, TurnsThePaperForPagesThatAreTurned) {
  content_.SetColumnWidth(1, 12000);
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
      {"begin \"PriceDown item list\" fails\n" + closing, "80070070 打印作业无法开始："},
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
    const LedgerPages pages(content_, {{u"Tahoma", 9, false, false, false}, 285, paper_, u""},
                            measurer_);
    const std::string failure = FailureOf([&] {
      windows::RunPrintJob(printer, pages, measurer_, {{1, 9, 1, true}, 2}, watcher_);
    });
    EXPECT_TRUE(failure.starts_with(calls[call].message)) << failure;
    EXPECT_GT(failure.size(), calls[call].message.size()) << "why is missing";
    EXPECT_TRUE(spooler.log.ends_with(calls[call].log)) << spooler.log;
    EXPECT_EQ(spooler.contexts, 0);
  }
}

TEST_F(PrintJobTest, NamesNoReasonWhereTheSystemKnowsNone) {
  FailCall(3);
  spooler_.error = ERROR_SUCCESS;
  EXPECT_EQ(FailureOf([&] { Print(); }), "80004005 打印页无法开始。");
}

TEST_F(PrintJobTest, IsAbortedWhenTheUserCallsItOffHalfway) {
  watcher_.lastSheet = 2;
  EXPECT_FALSE(Print());
  EXPECT_TRUE(
      spooler_.log.ends_with("begin \"PriceDown item list\"\npage\npage end\nabort\nclose\n"))
      << spooler_.log;
}

// As when the printer prints to a file and the user gives it no name.
TEST_F(PrintJobTest, EndsQuietlyWhenTheUserCancelsItInThePrintersOwnDialog) {
  FailCall(2);
  spooler_.error = ERROR_CANCELLED;
  EXPECT_FALSE(Print());
  EXPECT_TRUE(spooler_.log.ends_with("fails\nclose\n")) << spooler_.log;
}

}  // namespace
}  // namespace pricedown::testing
