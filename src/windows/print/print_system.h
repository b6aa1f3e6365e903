// The calls to the system's spooler and dialogs that printing consists of, each behind a member
// that tests make fail.
#pragma once

#include <windows.h>

#include <commdlg.h>

#include "print/paper.h"

namespace pricedown::windows {

enum class PrinterUse { Print, Ask };

// Members return what the system's functions of nearly the same name return, and set GetLastError
// as these do.
class Spooler {
 public:
  virtual ~Spooler() = default;

  // A device context of the printer; null when there is none. `driver` may be null.
  virtual HDC OpenContext(PrinterUse use, const wchar_t* driver, const wchar_t* device,
                          const DEVMODEW* mode);
  virtual PrinterDots AskDots(HDC context);
  virtual void CloseContext(HDC context);

  virtual int BeginDocument(HDC context, const DOCINFOW& document);
  virtual int BeginPage(HDC context);
  virtual int FinishPage(HDC context);
  virtual int FinishDocument(HDC context);
  virtual void AbortDocument(HDC context);
};

class PrintDialogs {
 public:
  virtual ~PrintDialogs() = default;

  // FALSE with `error` 0 after a cancel, else with CommDlgExtendedError.
  virtual BOOL Print(PRINTDLGW& dialog, DWORD& error);
  virtual BOOL PageSetup(PAGESETUPDLGW& dialog, DWORD& error);
};

// Owns a printer's context; move-only.
class PrinterContext {
 public:
  PrinterContext(Spooler& spooler, HDC context) : spooler_(&spooler), context_(context) {}
  PrinterContext(PrinterContext&& other) noexcept
      : spooler_(other.spooler_), context_(other.context_) {
    other.context_ = nullptr;
  }
  PrinterContext& operator=(PrinterContext&&) = delete;
  ~PrinterContext() {
    if (context_ != nullptr) spooler_->CloseContext(context_);
  }
  HDC Get() const { return context_; }

 private:
  Spooler* spooler_;
  HDC context_;
};

}  // namespace pricedown::windows
