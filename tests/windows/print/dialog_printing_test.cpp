// Printing end to end, with the user in the dialogs and recorded printer calls, and the progress
// window of a job.
#include <gtest/gtest.h>

#include <oleauto.h>

#include <chrono>
#include <cmath>
#include <string>
#include <thread>

#include "tests/support/failure.h"
#include "tests/windows/base/picture.h"
#include "tests/windows/control/ui_world.h"
#include "tests/windows/print/fake_printer.h"
#include "windows/base/plain_control.h"
#include "windows/com/wide_text.h"
#include "windows/print/dialog_printing.h"
#include "windows/print/preview_ids.h"
#include "windows/print/print_progress.h"

namespace pricedown::testing {
namespace {

PrintDocument DocumentOf(std::int32_t rows) {
  PrintDocument document;
  document.font.name = u"Tahoma";
  document.table.AddColumn(u"text", 3000);
  for (std::int32_t row = 0; row < rows; ++row) document.table.AddCell(u"text");
  return document;
}

class DialogPrinting : public ::testing::Test {
 protected:
  ~DialogPrinting() override {
    EXPECT_EQ(spooler_.contexts, 0);
    EXPECT_TRUE(dialogs_.AllFreed());
  }
  bool Print() {
    return windows::PrintWithDialog(GetModuleHandleW(nullptr), nullptr, document_, printer_,
                                    lifetime_);
  }
  std::size_t Count(const std::string& line) const {
    std::size_t count = 0;
    for (auto at = spooler_.log.find(line); at != std::string::npos;
         at = spooler_.log.find(line, at + 1)) {
      ++count;
    }
    return count;
  }

  PrintDocument document_ = DocumentOf(100);
  FakeSpooler spooler_;
  FakeDialogs dialogs_;
  windows::Printer printer_{spooler_, dialogs_};
  Lifetime lifetime_;
};

TEST_F(DialogPrinting, PrintsAllPagesOnTheDefaultPrinter) {
  WORD pages = 0;
  dialogs_.onPrint = [&](PRINTDLGW& dialog, DWORD&) {
    pages = dialog.nMaxPage;
    return TRUE;
  };
  EXPECT_TRUE(Print());
  EXPECT_GT(pages, 1);
  EXPECT_EQ(Count("page\n"), pages);
  EXPECT_EQ(Count("end\nclose\n"), 1u) << spooler_.log;
}

TEST_F(DialogPrinting, PrintsNothingAndShowsNoMessageWhenTheDialogIsCancelled) {
  dialogs_.onPrint = [](PRINTDLGW&, DWORD&) { return FALSE; };
  EXPECT_FALSE(Print());
  EXPECT_EQ(Count("open"), 0u);
}

TEST_F(DialogPrinting, PrintsNothingWhenItsControlEndsDuringTheDialog) {
  dialogs_.onPrint = [&](PRINTDLGW&, DWORD&) {
    lifetime_.End();
    return TRUE;
  };
  EXPECT_FALSE(Print());
  EXPECT_EQ(dialogs_.shown, 1);
  EXPECT_EQ(Count("open"), 0u) << spooler_.log;
}

TEST_F(DialogPrinting, ReportsThatThereIsNoPrinter) {
  dialogs_.defaultDevice.clear();
  EXPECT_EQ(FailureOf([&] { Print(); }), "80004005 没有安装打印机，请先在系统中添加打印机。");
  EXPECT_EQ(dialogs_.shown, 0);
  EXPECT_EQ(spooler_.log, "");
}

// A page half as high takes about half the rows.
TEST_F(DialogPrinting, LaysThePagesOutForThePaperChosenInTheDialog) {
  WORD pages = 0;
  dialogs_.onPrint = [&](PRINTDLGW& dialog, DWORD&) {
    pages = dialog.nMaxPage;
    spooler_.dots = {254, 254, 2100, 1485, 0, 0, 2100, 1485};
    return TRUE;
  };
  EXPECT_TRUE(Print());
  EXPECT_GT(Count("page\n"), 2u * pages - 1);
}

TEST_F(DialogPrinting, PrintsThePagesAndCopiesChosen) {
  dialogs_.onPrint = [&](PRINTDLGW& dialog, DWORD&) {
    dialog.Flags |= PD_PAGENUMS;
    dialog.nFromPage = dialog.nToPage = 2;
    dialog.nCopies = 4;
    return TRUE;
  };
  EXPECT_TRUE(Print());
  EXPECT_EQ(Count("page\n"), 4u);
}

TEST_F(DialogPrinting, DatesThePagesInTheUsersFormat) {
  const auto today = [] {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    DATE date = 0;
    SystemTimeToVariantTime(&now, &date);
    return std::floor(date);
  };
  const DATE before = today();
  std::wstring text = windows::ToWide(windows::TodayText());
  DATE read = 0;
  ASSERT_EQ(VarDateFromStr(text.data(), LOCALE_USER_DEFAULT, 0, &read), S_OK);
  // The day may change in between.
  EXPECT_TRUE(before <= read && read <= today()) << read;
}

class PrintProgressTest : public ::testing::Test {
 protected:
  static HWND Window() { return FindWindowW(L"PriceDown.PrintProgress", nullptr); }
  static std::string Text() {
    return Utf8(windows::TextOf(GetDlgItem(Window(), windows::preview_ids::kProgressText)));
  }
  static constexpr DWORD kAtOnce = 0;

  HostWindow host_{600, 400};
};

TEST_F(PrintProgressTest, IsNotShownByAShortJob) {
  windows::PrintProgress progress(GetModuleHandleW(nullptr), host_.Handle(), 60'000);
  EXPECT_TRUE(progress.Continue(1, 2));
  EXPECT_TRUE(progress.Continue(2, 2));
  EXPECT_EQ(Window(), nullptr);
  EXPECT_TRUE(IsWindowEnabled(host_.Handle()));
}

TEST_F(PrintProgressTest, AppearsDuringALongJob) {
  windows::PrintProgress progress(GetModuleHandleW(nullptr), host_.Handle(), 30);
  EXPECT_TRUE(progress.Continue(1, 2));
  std::this_thread::sleep_for(std::chrono::milliseconds(60));
  EXPECT_TRUE(progress.Continue(2, 2));
  EXPECT_NE(Window(), nullptr);
}

TEST_F(PrintProgressTest, ShowsTheJobsProgressAndDisablesItsOwner) {
  {
    windows::PrintProgress progress(GetModuleHandleW(nullptr), host_.Handle(), kAtOnce);
    EXPECT_TRUE(progress.Continue(1, 40));
    EXPECT_EQ(Text(), "正在打印第 1 页，共 40 页…");
    EXPECT_TRUE(progress.Continue(21, 40));
    EXPECT_EQ(Text(), "正在打印第 21 页，共 40 页…");
    EXPECT_EQ(SendDlgItemMessageW(Window(), windows::preview_ids::kProgressBar, PBM_GETPOS, 0, 0),
              500);
    EXPECT_TRUE(IsWindowVisible(Window()));
    EXPECT_EQ(GetWindow(Window(), GW_OWNER), host_.Handle());
    EXPECT_FALSE(IsWindowEnabled(host_.Handle()));
    EXPECT_NE(SendMessageW(Window(), WM_GETICON, ICON_SMALL, 0), 0);
    KeepPicture(Window(), "print-progress");
  }
  EXPECT_EQ(Window(), nullptr);
  EXPECT_TRUE(IsWindowEnabled(host_.Handle()));
}

TEST_F(PrintProgressTest, IsWhollyOnTheScreenWhereverItsOwnerIs) {
  RECT work{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  const auto place = [&] {
    windows::PrintProgress progress(GetModuleHandleW(nullptr), host_.Handle(), kAtOnce);
    EXPECT_TRUE(progress.Continue(1, 9));
    RECT area{};
    GetWindowRect(Window(), &area);
    return area;
  };
  const auto isInside = [&](const RECT& area) {
    RECT common{};
    IntersectRect(&common, &area, &work);
    return EqualRect(&common, &area) != FALSE;
  };
  for (const int left : {work.left - 590L, work.right - 10L}) {
    SetWindowPos(host_.Handle(), nullptr, left, work.top - 300, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_TRUE(isInside(place())) << left;
  }
  ShowWindow(host_.Handle(), SW_MINIMIZE);
  const RECT area = place();
  EXPECT_NEAR(area.left + area.right, work.left + work.right, 2) << "in the middle";
  EXPECT_TRUE(isInside(area));
}

TEST_F(PrintProgressTest, CancelsTheJobByItsButtonKeyOrFrame) {
  const auto press = [](UINT message, WPARAM wParam, LPARAM lParam) {
    HostWindow host(600, 400);
    windows::PrintProgress progress(GetModuleHandleW(nullptr), host.Handle(), kAtOnce);
    EXPECT_TRUE(progress.Continue(1, 9));
    const HWND target = message == WM_KEYDOWN ? GetFocus() : Window();
    PostMessageW(target, message, wParam, lParam);
    return !progress.Continue(2, 9);
  };
  EXPECT_TRUE(press(WM_COMMAND, IDCANCEL, 0));
  EXPECT_TRUE(press(WM_KEYDOWN, VK_ESCAPE, 1));
  EXPECT_TRUE(press(WM_CLOSE, 0, 0));
  EXPECT_FALSE(press(WM_COMMAND, 4711, 0));
}

TEST_F(PrintProgressTest, CancelsTheJobByEnterOnItsButton) {
  windows::PrintProgress progress(GetModuleHandleW(nullptr), host_.Handle(), kAtOnce);
  EXPECT_TRUE(progress.Continue(1, 9));
  ASSERT_EQ(GetFocus(), GetDlgItem(Window(), IDCANCEL));
  PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
  EXPECT_FALSE(progress.Continue(2, 9));
}

// As when the user returns from another program.
TEST_F(PrintProgressTest, GivesTheFocusOfItsFrameToItsButton) {
  windows::PrintProgress progress(GetModuleHandleW(nullptr), host_.Handle(), kAtOnce);
  EXPECT_TRUE(progress.Continue(1, 9));
  SetFocus(nullptr);
  SetFocus(Window());
  EXPECT_EQ(GetFocus(), GetDlgItem(Window(), IDCANCEL));
}

TEST_F(PrintProgressTest, CancelsTheJobWhenItsOwnerIsDestroyed) {
  windows::PrintProgress progress(GetModuleHandleW(nullptr), host_.Handle(), kAtOnce);
  EXPECT_TRUE(progress.Continue(1, 9));
  DestroyWindow(host_.Handle());
  EXPECT_FALSE(progress.Continue(2, 9));
}

TEST_F(PrintProgressTest, LeavesTheEndOfTheProgramToItsOwnLoop) {
  MSG message{};
  {
    windows::PrintProgress progress(GetModuleHandleW(nullptr), host_.Handle(), kAtOnce);
    EXPECT_TRUE(progress.Continue(1, 9));
    PostQuitMessage(3);
    EXPECT_FALSE(progress.Continue(2, 9));
  }
  ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(message.wParam, 3u);
}

TEST_F(PrintProgressTest, AbortsACancelledJob) {
  FakeSpooler spooler;
  FakeDialogs dialogs;
  windows::Printer printer(spooler, dialogs);
  printer.UseDefault();
  const PrintDocument document = DocumentOf(2000);
  windows::DeviceMeasurer measurer;
  const PrintPages pages(document, printer.CurrentPaper(), u"", measurer);
  windows::PrintProgress progress(GetModuleHandleW(nullptr), host_.Handle(), kAtOnce);
  EXPECT_TRUE(progress.Continue(1, 1));
  PostMessageW(Window(), WM_COMMAND, IDCANCEL, 0);
  const PrintOrder order({1, 999, 1, true}, pages.PageCount());
  EXPECT_FALSE(windows::RunPrintJob(printer, pages, measurer, order, progress));
  EXPECT_TRUE(spooler.log.ends_with("abort\nclose\n")) << spooler.log;
}

}  // namespace
}  // namespace pricedown::testing
