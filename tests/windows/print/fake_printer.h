// A spooler whose printer is a list of calls, and dialogs with scripted answers.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/utf8.h"
#include "windows/com/wide_text.h"
#include "windows/print/print_system.h"

namespace pricedown::testing {

inline std::string Utf8(const wchar_t* text) {
  return text == nullptr ? "none" : Utf8(windows::FromWide(text));
}

// Log lines: open PDF portrait, ask PDF landscape, begin "document", page, page end, end, abort,
// close. A failing call ends in " fails".
class FakeSpooler : public windows::Spooler {
 public:
  HDC OpenContext(windows::PrinterUse use, const wchar_t*, const wchar_t* device,
                  const DEVMODEW* mode) override {
    landscape = mode->dmOrientation == DMORIENT_LANDSCAPE;
    lastMode = *mode;
    const bool asks = use == windows::PrinterUse::Ask;
    if (Fails((asks ? "ask " : "open ") + Utf8(device) +
              (landscape ? " landscape" : " portrait"))) {
      return nullptr;
    }
    ++contexts;
    return CreateCompatibleDC(nullptr);
  }
  PrinterDots AskDots(HDC) override { return landscape ? turnedDots : dots; }
  void CloseContext(HDC context) override {
    log += "close\n";
    --contexts;
    DeleteDC(context);
  }
  int BeginDocument(HDC, const DOCINFOW& document) override {
    return Fails("begin \"" + Utf8(document.lpszDocName) + "\"") ? SP_ERROR : 7;
  }
  int BeginPage(HDC) override { return Fails("page") ? SP_ERROR : 1; }
  int FinishPage(HDC) override { return Fails("page end") ? 0 : 1; }
  int FinishDocument(HDC) override { return Fails("end") ? SP_ERROR : 1; }
  void AbortDocument(HDC) override { log += "abort\n"; }

  // 300 dots an inch, A4.
  PrinterDots dots{300, 300, 2480, 3508, 0, 0, 2480, 3508};
  PrinterDots turnedDots{300, 300, 3508, 2480, 0, 0, 3508, 2480};
  std::string log;
  int contexts = 0;     // open ones
  int failingCall = 0;  // from 1, of those that can fail
  DWORD error = ERROR_DISK_FULL;
  DEVMODEW lastMode{};

 private:
  bool Fails(const std::string& call) {
    const bool fails = ++calls_ == failingCall;
    log += call + (fails ? " fails\n" : "\n");
    // As after any successful call: must not be read.
    SetLastError(fails ? error : ERROR_FILE_NOT_FOUND);
    return fails;
  }

  bool landscape = false;
  int calls_ = 0;
};

// A set-up as a printer's driver returns it, followed by four private bytes.
struct DriversMode {
  DEVMODEW mode{};
  char own[4] = {'o', 'w', 'n', '!'};
};

HGLOBAL NewMode(short orientation = DMORIENT_PORTRAIT, short copies = 1);
HGLOBAL NewNames(const std::wstring& device);

// By default the printer is "PDF" and the user presses OK.
class FakeDialogs : public windows::PrintDialogs {
 public:
  BOOL Print(PRINTDLGW& dialog, DWORD& error) override {
    error = 0;
    if ((dialog.Flags & PD_RETURNDEFAULT) != 0) {
      ++defaultsAsked;
      if (defaultDevice.empty()) {
        error = defaultError;
        return FALSE;
      }
      dialog.hDevMode = NewMode(defaultOrientation);
      dialog.hDevNames = NewNames(defaultDevice);
      return TRUE;
    }
    ++shown;
    const BOOL answer = onPrint ? onPrint(dialog, error) : TRUE;
    modes.push_back(dialog.hDevMode);
    modes.push_back(dialog.hDevNames);
    return answer;
  }
  BOOL PageSetup(PAGESETUPDLGW& dialog, DWORD& error) override {
    error = 0;
    ++shown;
    const BOOL answer = onPageSetup ? onPageSetup(dialog, error) : TRUE;
    modes.push_back(dialog.hDevMode);
    modes.push_back(dialog.hDevNames);
    return answer;
  }
  // Whether all memory that went through a dialog has been freed.
  bool AllFreed() const {
    for (const HGLOBAL memory : modes) {
      if (memory != nullptr && GlobalFlags(memory) != GMEM_INVALID_HANDLE) return false;
    }
    return true;
  }

  std::wstring defaultDevice = L"PDF";
  short defaultOrientation = DMORIENT_PORTRAIT;
  DWORD defaultError = 0x1008;  // PDERR_NODEFAULTPRN
  std::function<BOOL(PRINTDLGW& dialog, DWORD& error)> onPrint;
  std::function<BOOL(PAGESETUPDLGW& dialog, DWORD& error)> onPageSetup;
  int defaultsAsked = 0;
  int shown = 0;
  std::vector<HGLOBAL> modes;
};

}  // namespace pricedown::testing
