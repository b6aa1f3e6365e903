// The printer's paper and set-up, from the system's numbers and from what dialogs leave.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "tests/support/case_name.h"
#include "tests/support/failure.h"
#include "tests/windows/print/fake_printer.h"

#include "windows/base/global_memory.h"
#include "windows/print/printer.h"

namespace pricedown::testing {
namespace {

using windows::Printer;

class PrinterTest : public ::testing::Test {
 protected:
  ~PrinterTest() override { EXPECT_EQ(spooler_.contexts, 0); }

  void Choose(const std::wstring& device, short orientation = DMORIENT_PORTRAIT) {
    const windows::GlobalMemory mode(NewMode(orientation, 3));
    const windows::GlobalMemory names(NewNames(device));
    printer_.Choose(mode.Get(), names.Get());
  }

  FakeSpooler spooler_;
  FakeDialogs dialogs_;
  Printer printer_{spooler_, dialogs_};
};

TEST_F(PrinterTest, DefaultsToA4WithoutADefaultPrinter) {
  dialogs_.defaultDevice.clear();
  printer_.UseDefault();
  EXPECT_FALSE(printer_.Exists());
  EXPECT_EQ(printer_.CurrentPaper(), (Paper{2100, 2970, {200, 200, 200, 200}}));
  EXPECT_EQ(printer_.CopyMode(), nullptr);
  EXPECT_EQ(printer_.CopyNames(), nullptr);
  EXPECT_EQ(spooler_.log, "");
}

TEST_F(PrinterTest, IsTheUsersDefaultOne) {
  printer_.UseDefault();
  EXPECT_EQ(printer_.Name(), L"PDF");
  EXPECT_EQ(printer_.CurrentPaper(), (Paper{2100, 2970, {200, 200, 200, 200}}));
  EXPECT_EQ(spooler_.log, "ask PDF portrait\nclose\nask PDF landscape\nclose\n");
}

TEST_F(PrinterTest, HasA4UntilItsPaperIsKnown) {
  spooler_.failingCall = 1;
  printer_.UseDefault();
  EXPECT_EQ(printer_.Name(), L"PDF");
  EXPECT_EQ(printer_.CurrentPaper(), (Paper{2100, 2970, {200, 200, 200, 200}}));
  spooler_.dots = {254, 254, 1480, 2100, 0, 0, 1480, 2100};
  printer_.UseDefault();
  EXPECT_EQ(printer_.CurrentPaper().width, 1480);
}

TEST_F(PrinterTest, FollowsTheUsersDefaultWhereNoDialogHasChosen) {
  printer_.UseDefault();
  dialogs_.defaultDevice = L"Other";
  printer_.UseDefault();
  EXPECT_EQ(printer_.Name(), L"Other");
  dialogs_.defaultDevice.clear();
  printer_.UseDefault();
  EXPECT_FALSE(printer_.Exists());
}

TEST_F(PrinterTest, StaysTheChosenOneUntilItIsForgotten) {
  printer_.UseDefault();
  Choose(L"Chosen");
  printer_.UseDefault();
  EXPECT_EQ(printer_.Name(), L"Chosen");
  printer_.Forget();
  EXPECT_EQ(printer_.Name(), L"PDF");
}

TEST_F(PrinterTest, LeavesMarginsForItsUnprintableAreaInBothOrientations) {
  spooler_.dots = {254, 254, 2100, 2970, 250, 10, 1840, 2950};
  spooler_.turnedDots = {254, 254, 2970, 2100, 10, 300, 2950, 1790};
  printer_.UseDefault();
  EXPECT_EQ(printer_.CurrentPaper().margins, (Margins{250, 300, 200, 200}));
  printer_.ChoosePaper({2100, 2970, {0, 310, 0, 5}});
  EXPECT_EQ(printer_.CurrentPaper().margins, (Margins{250, 310, 10, 10}));
}

TEST_F(PrinterTest, LeavesRoomOnALabel) {
  spooler_.dots = {254, 254, 600, 300, 0, 0, 600, 300};
  spooler_.turnedDots = {254, 254, 300, 600, 0, 0, 300, 600};
  printer_.UseDefault();
  EXPECT_EQ(printer_.CurrentPaper(), (Paper{600, 300, {50, 50, 50, 50}}));
}

TEST_F(PrinterTest, KeepsChosenMarginsOnAnotherPrinter) {
  printer_.UseDefault();
  printer_.ChoosePaper({2100, 2970, {100, 110, 120, 130}});
  spooler_.dots = {254, 254, 1480, 2100, 0, 0, 1480, 2100};
  Choose(L"Small");
  EXPECT_EQ(printer_.CurrentPaper(), (Paper{1480, 2100, {100, 110, 120, 130}}));
}

TEST_F(PrinterTest, PrintsPortraitOrLandscapeAsSetUp) {
  Choose(L"A");
  (void)printer_.Open(false);
  (void)printer_.Open(true);
  Choose(L"B", DMORIENT_LANDSCAPE);
  spooler_.log.clear();
  (void)printer_.Open(false);
  (void)printer_.Open(true);
  EXPECT_EQ(spooler_.log, "open B landscape\nclose\nopen B portrait\nclose\n");
}

TEST_F(PrinterTest, RequestsOneCopyFromTheDriverBecauseCopiesAreOurs) {
  Choose(L"A");
  (void)printer_.Open(false);
  EXPECT_EQ(spooler_.lastMode.dmCopies, 1);
  EXPECT_NE(spooler_.lastMode.dmFields & DM_COPIES, 0u);
  EXPECT_EQ(spooler_.lastMode.dmCollate, DMCOLLATE_FALSE);
}

TEST_F(PrinterTest, ReturnsToDialogsWhatTheyLeft) {
  Choose(L"二楼打印机", DMORIENT_LANDSCAPE);
  const windows::GlobalMemory mode(printer_.CopyMode());
  const windows::GlobalMemory expectedMode(NewMode(DMORIENT_LANDSCAPE, 3));
  const windows::GlobalMemory names(printer_.CopyNames());
  const windows::GlobalMemory expectedNames(NewNames(L"二楼打印机"));
  const auto bytes = [](const windows::GlobalMemory& memory) {
    const windows::GlobalBytes locked(memory.Get());
    return std::vector<std::byte>(locked.Get().begin(), locked.Get().end());
  };
  EXPECT_EQ(bytes(mode), bytes(expectedMode));
  EXPECT_EQ(bytes(names), bytes(expectedNames));
}

TEST_F(PrinterTest, ReadsNoNameBeyondTheEndOfWhatADialogLeft) {
  const windows::GlobalMemory names(NewNames(L"P"));
  auto* head = static_cast<DEVNAMES*>(GlobalLock(names.Get()));
  head->wDeviceOffset = 0xFFFF;
  GlobalUnlock(names.Get());
  printer_.Choose(nullptr, names.Get());
  EXPECT_FALSE(printer_.Exists());
}

TEST_F(PrinterTest, StaysUnchangedWhenAnotherOneCannotBeQueried) {
  Choose(L"Good");
  for (const int failing : {3, 4}) {
    SCOPED_TRACE(failing);
    FakeSpooler spooler;
    Printer printer(spooler, dialogs_);
    printer.UseDefault();
    spooler.dots = {254, 254, 1480, 2100, 0, 0, 1480, 2100};
    spooler.failingCall = failing;
    spooler.error = ERROR_ACCESS_DENIED;
    const windows::GlobalMemory mode(NewMode());
    const windows::GlobalMemory names(NewNames(L"Bad"));
    const std::string failure = FailureOf([&] { printer.Choose(mode.Get(), names.Get()); });
    EXPECT_TRUE(failure.starts_with("80070005 无法打开打印机 Bad：")) << failure;
    EXPECT_EQ(printer.Name(), L"PDF");
    EXPECT_EQ(printer.CurrentPaper().width, 2100);
    EXPECT_EQ(spooler.contexts, 0);
  }
}

TEST_F(PrinterTest, ReportsWhyItCannotBeOpened) {
  printer_.UseDefault();
  spooler_.failingCall = 3;
  spooler_.error = ERROR_INVALID_PRINTER_NAME;
  const std::string failure = FailureOf([&] { (void)printer_.Open(false); });
  EXPECT_TRUE(failure.starts_with("80070709 无法打开打印机 PDF：")) << failure;
  spooler_.failingCall = 4;
  spooler_.error = ERROR_SUCCESS;
  EXPECT_EQ(FailureOf([&] { (void)printer_.Open(false); }), "80004005 无法打开打印机 PDF。");
}

}  // namespace
}  // namespace pricedown::testing
