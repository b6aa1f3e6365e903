// The printer's set-up is kept as the dialogs hand it over: a DEVMODE with the driver's own data,
// which is opaque, and the three names of a DEVNAMES.
#include "windows/print/printer.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <utility>

#include "platform/error.h"
#include "platform/text.h"
#include "windows/base/global_memory.h"
#include "windows/com/wide_text.h"
#include "windows/print/print_failure.h"

namespace pricedown::windows {
namespace {

// The text that begins at that character of a DEVNAMES; empty beyond its end.
std::wstring NameAt(std::span<const std::byte> names, WORD offset) {
  const std::size_t length = names.size() / sizeof(wchar_t);
  std::wstring text;
  for (std::size_t i = offset; i < length; ++i) {
    wchar_t unit = 0;
    std::memcpy(&unit, names.data() + i * sizeof unit, sizeof unit);
    if (unit == 0) break;
    text += unit;
  }
  return text;
}

const wchar_t* OrNull(const std::wstring& text) { return text.empty() ? nullptr : text.c_str(); }

}  // namespace

void Printer::UseDefault() {
  if (chosen_) return;
  PRINTDLGW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.Flags = PD_RETURNDEFAULT | PD_NOWARNING;
  DWORD error = 0;
  const BOOL answer = dialogs_.Print(dialog, error);
  const GlobalMemory mode(dialog.hDevMode);
  const GlobalMemory names(dialog.hDevNames);
  // Without a default printer there is none, for any reason.
  SetUp setUp = answer == FALSE || names.Get() == nullptr ? SetUp{} : Read(mode.Get(), names.Get());
  PaperChoice paper = paper_;
  try {
    AskForPaper(setUp, paper);
  } catch (const AutomationError&) {
    paper.SetUnknownPrinter();
  }
  setUp_ = std::move(setUp);
  paper_ = paper;
}

void Printer::Forget() {
  chosen_ = false;
  UseDefault();
}

HGLOBAL Printer::CopyMode() const {
  return setUp_.mode.empty() ? nullptr : CopyToGlobal(setUp_.mode);
}

HGLOBAL Printer::CopyNames() const {
  if (setUp_.device.empty()) return nullptr;
  DEVNAMES names{};
  std::wstring text;
  const auto add = [&](const std::wstring& name) {
    const std::size_t offset = sizeof names / sizeof(wchar_t) + text.size();
    text += name;
    text += L'\0';
    return static_cast<WORD>(offset);
  };
  names.wDriverOffset = add(setUp_.driver);
  names.wDeviceOffset = add(setUp_.device);
  names.wOutputOffset = add(setUp_.output);
  std::vector<std::byte> bytes(sizeof names + text.size() * sizeof(wchar_t));
  std::memcpy(bytes.data(), &names, sizeof names);
  std::memcpy(bytes.data() + sizeof names, text.data(), text.size() * sizeof(wchar_t));
  return CopyToGlobal(bytes);
}

void Printer::Choose(HGLOBAL mode, HGLOBAL names) {
  if (names == nullptr) return;
  SetUp setUp = Read(mode, names);
  PaperChoice paper = paper_;
  AskForPaper(setUp, paper);
  setUp_ = std::move(setUp);
  paper_ = paper;
  chosen_ = true;
}

PrinterContext Printer::Open(bool turned) const {
  return OpenFor(PrinterUse::Print, setUp_, turned);
}

PrinterContext Printer::OpenFor(PrinterUse use, const SetUp& setUp, bool turned) const {
  const std::vector<std::byte> mode = ModeFor(setUp, turned);
  SetLastError(ERROR_SUCCESS);
  const HDC context = spooler_.OpenContext(use, OrNull(setUp.driver), setUp.device.c_str(),
                                           reinterpret_cast<const DEVMODEW*>(mode.data()));
  const DWORD error = GetLastError();
  if (context == nullptr) {
    ThrowPrintFailure(Concatenate({u"无法打开打印机 ", FromWide(setUp.device)}), error);
  }
  return {spooler_, context};
}

Printer::SetUp Printer::Read(HGLOBAL mode, HGLOBAL names) {
  const GlobalBytes nameBytes(names);
  const GlobalBytes modeBytes(mode);
  DEVNAMES offsets{};
  if (nameBytes.Get().size() < sizeof offsets) return {};
  std::memcpy(&offsets, nameBytes.Get().data(), sizeof offsets);
  return {NameAt(nameBytes.Get(), offsets.wDeviceOffset),
          NameAt(nameBytes.Get(), offsets.wDriverOffset),
          NameAt(nameBytes.Get(), offsets.wOutputOffset),
          {modeBytes.Get().begin(), modeBytes.Get().end()}};
}

void Printer::AskForPaper(const SetUp& setUp, PaperChoice& paper) const {
  if (setUp.device.empty()) {
    paper.SetNoPrinter();
    return;
  }
  const auto ask = [&](bool turned) {
    const PrinterContext context = OpenFor(PrinterUse::Ask, setUp, turned);
    return PaperOf(spooler_.AskDots(context.Get()));
  };
  const Paper upright = ask(false);
  paper.SetPrinter(upright, ask(true));
}

std::vector<std::byte> Printer::ModeFor(const SetUp& setUp, bool turned) {
  DEVMODEW head{};
  std::vector<std::byte> bytes = setUp.mode;
  if (bytes.empty()) {
    head.dmSpecVersion = DM_SPECVERSION;
    head.dmSize = sizeof head;
    bytes.resize(sizeof head);
  } else {
    // An older or truncated one has less; what it lacks counts as not set.
    std::memcpy(&head, bytes.data(), std::min(bytes.size(), sizeof head));
  }
  const bool landscape =
      (head.dmFields & DM_ORIENTATION) != 0 && head.dmOrientation == DMORIENT_LANDSCAPE;
  head.dmOrientation = landscape != turned ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
  // Copies are printed one by one, so that they work with every printer.
  head.dmCopies = 1;
  head.dmCollate = DMCOLLATE_FALSE;
  head.dmFields |= DM_ORIENTATION | DM_COPIES | DM_COLLATE;
  std::memcpy(bytes.data(), &head, std::min(bytes.size(), sizeof head));
  return bytes;
}

}  // namespace pricedown::windows
