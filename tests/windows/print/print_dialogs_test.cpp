// The system's print and page set-up dialogs, with scripted answers.
#include <gtest/gtest.h>

#include <cderr.h>

#include <limits>

#include "tests/support/failure.h"
#include "tests/windows/print/fake_printer.h"
#include "windows/print/page_setup_dialog.h"
#include "windows/print/print_dialog.h"

namespace pricedown::testing {
namespace {

class PrintDialogTest : public ::testing::Test {
 protected:
  PrintDialogTest() { printer_.UseDefault(); }
  ~PrintDialogTest() override {
    EXPECT_TRUE(dialogs_.AllFreed());
    EXPECT_EQ(spooler_.contexts, 0);
  }

  // The dialog's memory for another printer, as a user's choice leaves it.
  template <typename Dialog>
  static void ChooseOther(Dialog& dialog) {
    GlobalFree(dialog.hDevMode);
    GlobalFree(dialog.hDevNames);
    dialog.hDevMode = NewMode(DMORIENT_LANDSCAPE);
    dialog.hDevNames = NewNames(L"Other");
  }

  FakeSpooler spooler_;
  FakeDialogs dialogs_;
  windows::Printer printer_{spooler_, dialogs_};
};

TEST_F(PrintDialogTest, OffersAllPagesAndHidesUnavailableOptions) {
  const HWND owner = GetDesktopWindow();
  dialogs_.onPrint = [&](PRINTDLGW& dialog, DWORD&) {
    EXPECT_EQ(dialog.hwndOwner, owner);
    EXPECT_EQ(dialog.nMinPage, 1);
    EXPECT_EQ(dialog.nMaxPage, 7);
    EXPECT_EQ(dialog.nFromPage, 1);
    EXPECT_EQ(dialog.nToPage, 7);
    EXPECT_EQ(dialog.nCopies, 1);
    EXPECT_EQ(dialog.Flags & (PD_PAGENUMS | PD_SELECTION | PD_NOPAGENUMS), 0u);
    EXPECT_NE(dialog.Flags & PD_NOSELECTION, 0u);
    EXPECT_NE(dialog.hDevMode, nullptr);
    EXPECT_NE(dialog.hDevNames, nullptr);
    return TRUE;
  };
  const auto choice = AskPrint(owner, printer_, 7);
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->first, 1);
  EXPECT_EQ(choice->last, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(choice->copies, 1);
}

TEST_F(PrintDialogTest, CountsNoMorePagesThanItsFieldsHold) {
  dialogs_.onPrint = [&](PRINTDLGW& dialog, DWORD&) {
    EXPECT_EQ(dialog.nMaxPage, 0xFFFE);
    EXPECT_EQ(dialog.nToPage, 0xFFFE);
    return TRUE;
  };
  EXPECT_TRUE(AskPrint(nullptr, printer_, 100'000));
}

TEST_F(PrintDialogTest, ReturnsPagesAndCopies) {
  dialogs_.onPrint = [&](PRINTDLGW& dialog, DWORD&) {
    dialog.Flags = PD_PAGENUMS;
    dialog.nFromPage = 5;
    dialog.nToPage = 2;
    dialog.nCopies = 3;
    return TRUE;
  };
  const auto choice = AskPrint(nullptr, printer_, 7);
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->first, 5);
  EXPECT_EQ(choice->last, 2);
  EXPECT_EQ(choice->copies, 3);
  EXPECT_FALSE(choice->collated);
  dialogs_.onPrint = [&](PRINTDLGW& dialog, DWORD&) {
    dialog.Flags = PD_COLLATE;
    return TRUE;
  };
  EXPECT_TRUE(AskPrint(nullptr, printer_, 7)->collated);
}

TEST_F(PrintDialogTest, UsesTheChosenPrinter) {
  dialogs_.onPrint = [&](PRINTDLGW& dialog, DWORD&) {
    ChooseOther(dialog);
    return TRUE;
  };
  EXPECT_TRUE(AskPrint(nullptr, printer_, 1));
  EXPECT_EQ(printer_.Name(), L"Other");
}

TEST_F(PrintDialogTest, ChangesNothingWhenItIsCancelled) {
  dialogs_.onPrint = [&](PRINTDLGW& dialog, DWORD&) {
    ChooseOther(dialog);
    return FALSE;
  };
  EXPECT_FALSE(AskPrint(nullptr, printer_, 1));
  EXPECT_EQ(printer_.Name(), L"PDF");
}

TEST_F(PrintDialogTest, IsNotShownWithoutAPrinter) {
  dialogs_.defaultDevice.clear();
  printer_.UseDefault();
  EXPECT_EQ(FailureOf([&] { AskPrint(nullptr, printer_, 1); }),
            "80004005 没有安装打印机，请先在系统中添加打印机。");
  EXPECT_EQ(dialogs_.shown, 0);
}

TEST_F(PrintDialogTest, ReportsWhyItDoesNotOpen) {
  DWORD code = PDERR_NODEVICES;
  dialogs_.onPrint = [&](PRINTDLGW&, DWORD& error) {
    error = code;
    return FALSE;
  };
  EXPECT_EQ(FailureOf([&] { AskPrint(nullptr, printer_, 1); }),
            "80004005 没有安装打印机，请先在系统中添加打印机。");
  code = CDERR_INITIALIZATION;
  EXPECT_EQ(FailureOf([&] { AskPrint(nullptr, printer_, 1); }),
            "80004005 打印对话框无法打开：对话框错误 2。");
}

TEST_F(PrintDialogTest, FallsBackToTheDefaultWhenTheChosenPrinterIsGone) {
  dialogs_.onPrint = [&](PRINTDLGW& dialog, DWORD&) {
    ChooseOther(dialog);
    return TRUE;
  };
  AskPrint(nullptr, printer_, 1);
  int shown = 0;
  dialogs_.onPrint = [&](PRINTDLGW&, DWORD& error) {
    error = ++shown == 1 ? PDERR_PRINTERNOTFOUND : 0;
    return shown > 1 ? TRUE : FALSE;
  };
  EXPECT_TRUE(AskPrint(nullptr, printer_, 1));
  EXPECT_EQ(printer_.Name(), L"PDF");
  dialogs_.onPrint = [&](PRINTDLGW&, DWORD& error) {
    error = PDERR_PRINTERNOTFOUND;
    return FALSE;
  };
  EXPECT_EQ(FailureOf([&] { AskPrint(nullptr, printer_, 1); }),
            "80004005 打印对话框无法打开：对话框错误 4107。");
}

TEST_F(PrintDialogTest, KeepsTheOldPrinterWhenTheChosenOneCannotBeQueried) {
  dialogs_.onPrint = [&](PRINTDLGW& dialog, DWORD&) {
    ChooseOther(dialog);
    return TRUE;
  };
  spooler_.failingCall = 3;
  EXPECT_TRUE(FailureOf([&] {
                AskPrint(nullptr, printer_, 1);
              }).starts_with("80070070 无法打开打印机 Other："));
  EXPECT_EQ(printer_.Name(), L"PDF");
}

using PageSetupTest = PrintDialogTest;

TEST_F(PageSetupTest, ShowsTheMarginsAndReadsThemInHundredths) {
  dialogs_.onPageSetup = [&](PAGESETUPDLGW& dialog, DWORD&) {
    EXPECT_NE(dialog.Flags & PSD_INHUNDREDTHSOFMILLIMETERS, 0u);
    EXPECT_NE(dialog.Flags & PSD_MARGINS, 0u);
    EXPECT_EQ(dialog.rtMargin.left, 2000);
    EXPECT_EQ(dialog.rtMargin.bottom, 2000);
    dialog.rtMargin = {1004, 1005, 0, 2540};
    return TRUE;
  };
  EXPECT_TRUE(windows::AskPageSetup(nullptr, printer_));
  EXPECT_EQ(printer_.CurrentPaper(), (Paper{2100, 2970, {100, 101, 0, 254}}));
}

TEST_F(PageSetupTest, UsesPrinterAndPaper) {
  dialogs_.onPageSetup = [&](PAGESETUPDLGW& dialog, DWORD&) {
    ChooseOther(dialog);
    return TRUE;
  };
  // Requested as it is set up: landscape.
  spooler_.turnedDots = {254, 254, 4200, 2970, 50, 50, 4100, 2870};
  EXPECT_TRUE(windows::AskPageSetup(nullptr, printer_));
  EXPECT_EQ(printer_.Name(), L"Other");
  EXPECT_EQ(printer_.CurrentPaper(), (Paper{4200, 2970, {200, 200, 200, 200}}));
}

TEST_F(PageSetupTest, ChangesNothingWhenItIsCancelled) {
  dialogs_.onPageSetup = [&](PAGESETUPDLGW& dialog, DWORD&) {
    ChooseOther(dialog);
    dialog.rtMargin = {};
    return FALSE;
  };
  const Paper before = printer_.CurrentPaper();
  EXPECT_FALSE(windows::AskPageSetup(nullptr, printer_));
  EXPECT_EQ(printer_.CurrentPaper(), before);
  EXPECT_EQ(printer_.Name(), L"PDF");
}

TEST_F(PageSetupTest, UsesThePaperWithoutAPrinter) {
  dialogs_.defaultDevice.clear();
  printer_.UseDefault();
  dialogs_.onPageSetup = [&](PAGESETUPDLGW& dialog, DWORD&) {
    EXPECT_EQ(dialog.hDevNames, nullptr);
    dialog.ptPaperSize = {14800, 21000};
    dialog.rtMargin = {1000, 1000, 1000, 1000};
    return TRUE;
  };
  EXPECT_TRUE(windows::AskPageSetup(nullptr, printer_));
  EXPECT_EQ(printer_.CurrentPaper(), (Paper{1480, 2100, {100, 100, 100, 100}}));
}

TEST_F(PageSetupTest, FallsBackToTheDefaultWhenTheChosenPrinterIsGone) {
  dialogs_.onPageSetup = [&](PAGESETUPDLGW& dialog, DWORD&) {
    ChooseOther(dialog);
    return TRUE;
  };
  EXPECT_TRUE(windows::AskPageSetup(nullptr, printer_));
  ASSERT_EQ(printer_.Name(), L"Other");
  int shown = 0;
  dialogs_.onPageSetup = [&](PAGESETUPDLGW& dialog, DWORD& error) {
    error = ++shown == 1 ? PDERR_PRINTERNOTFOUND : 0;
    dialog.rtMargin = {3000, 3000, 3000, 3000};
    return shown > 1 ? TRUE : FALSE;
  };
  EXPECT_TRUE(windows::AskPageSetup(nullptr, printer_));
  EXPECT_EQ(shown, 2);
  EXPECT_EQ(printer_.Name(), L"PDF");
  EXPECT_EQ(printer_.CurrentPaper(), (Paper{2100, 2970, {300, 300, 300, 300}}));
  dialogs_.onPageSetup = [&](PAGESETUPDLGW&, DWORD& error) {
    error = PDERR_PRINTERNOTFOUND;
    return FALSE;
  };
  EXPECT_EQ(FailureOf([&] { windows::AskPageSetup(nullptr, printer_); }),
            "80004005 页面设置对话框无法打开：对话框错误 4107。");
}

TEST_F(PageSetupTest, ReportsWhyItDoesNotOpen) {
  DWORD code = PDERR_NODEFAULTPRN;
  dialogs_.onPageSetup = [&](PAGESETUPDLGW&, DWORD& error) {
    error = code;
    return FALSE;
  };
  EXPECT_EQ(FailureOf([&] { windows::AskPageSetup(nullptr, printer_); }),
            "80004005 没有安装打印机，请先在系统中添加打印机。");
  code = CDERR_MEMALLOCFAILURE;
  EXPECT_EQ(FailureOf([&] { windows::AskPageSetup(nullptr, printer_); }),
            "80004005 页面设置对话框无法打开：对话框错误 9。");
}

}  // namespace
}  // namespace pricedown::testing
