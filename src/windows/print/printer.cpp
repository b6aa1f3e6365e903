// The printer's set-up is kept as the dialogs hand it over: a DEVMODE with the driver's own data,
// and the three names of a DEVNAMES. Nothing of the driver's data is looked into.
#include "windows/print/printer.h"

#include <algorithm>
#include <cmath>
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

constexpr int kTenthsPerInch = 254;
constexpr Tenths kUsualMargin = 200;
// Ten metres: more is a driver's mistake, and would be too much to count with.
constexpr std::int64_t kMostTenths = 100'000;
// Of the shorter side at most, so that a label has more than margins.
constexpr Tenths kMarginShare = 6;

Tenths Nearest(int dots, int perInch) {
  const std::int64_t tenths = (std::int64_t{dots} * kTenthsPerInch + perInch / 2) / perInch;
  return static_cast<Tenths>(std::min(tenths, kMostTenths));
}

Tenths RoundedUp(std::int64_t dots, int perInch) {
  if (dots <= 0) return 0;
  const std::int64_t tenths = (dots * kTenthsPerInch + perInch - 1) / perInch;
  return static_cast<Tenths>(std::min(tenths, kMostTenths));
}

PageBox Larger(const PageBox& one, const PageBox& other) {
  return {std::max(one.left, other.left), std::max(one.top, other.top),
          std::max(one.right, other.right), std::max(one.bottom, other.bottom)};
}

// The text that begins at that character of a DEVNAMES; empty when it is not inside.
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

Paper PaperOf(const PrinterDots& dots) {
  Paper paper;
  paper.margins = {};
  const int x = dots.perInchX;
  const int y = dots.perInchY;
  if (x <= 0 || y <= 0 || dots.paperWidth <= 0 || dots.paperHeight <= 0) return paper;
  paper.width = Nearest(dots.paperWidth, x);
  paper.height = Nearest(dots.paperHeight, y);
  const auto rest = [](int whole, int before, int inside) {
    return std::int64_t{whole} - before - inside;
  };
  paper.margins = {RoundedUp(dots.offsetX, x), RoundedUp(dots.offsetY, y),
                   RoundedUp(rest(dots.paperWidth, dots.offsetX, dots.printableWidth), x),
                   RoundedUp(rest(dots.paperHeight, dots.offsetY, dots.printableHeight), y)};
  return paper;
}

void Printer::UseDefault() {
  if (chosen_) return;
  PRINTDLGW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.Flags = PD_RETURNDEFAULT | PD_NOWARNING;
  DWORD error = 0;
  const BOOL answer = dialogs_.Print(dialog, error);
  const GlobalMemory mode(dialog.hDevMode);
  const GlobalMemory names(dialog.hDevNames);
  if (answer == FALSE || names.Get() == nullptr) {
    // Whatever keeps the system from naming one, there is none to begin with.
    setUp_ = {{}, {}, {}, {}, setUp_.paper, {}};
    return;
  }
  SetUp setUp = Read(mode.Get(), names.Get());
  try {
    AskForPaper(setUp);
  } catch (const AutomationError&) {
    setUp.paper = {};
    if (marginsChosen_) setUp.paper.margins = setUp_.paper.margins;
  }
  setUp_ = std::move(setUp);
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
  AskForPaper(setUp);
  setUp_ = std::move(setUp);
  chosen_ = true;
}

void Printer::ChoosePaper(const Paper& paper) {
  setUp_.paper = paper;
  setUp_.paper.margins = Larger(paper.margins, setUp_.unprintable);
  marginsChosen_ = true;
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

Printer::SetUp Printer::Read(HGLOBAL mode, HGLOBAL names) const {
  const GlobalBytes nameBytes(names);
  const GlobalBytes modeBytes(mode);
  DEVNAMES offsets{};
  if (nameBytes.Get().size() < sizeof offsets) return {{}, {}, {}, {}, setUp_.paper, {}};
  std::memcpy(&offsets, nameBytes.Get().data(), sizeof offsets);
  return {NameAt(nameBytes.Get(), offsets.wDeviceOffset),
          NameAt(nameBytes.Get(), offsets.wDriverOffset),
          NameAt(nameBytes.Get(), offsets.wOutputOffset),
          {modeBytes.Get().begin(), modeBytes.Get().end()},
          setUp_.paper,
          {}};
}

void Printer::AskForPaper(SetUp& setUp) const {
  if (setUp.device.empty()) return;
  const auto ask = [&](bool turned) {
    const PrinterContext context = OpenFor(PrinterUse::Ask, setUp, turned);
    return PaperOf(spooler_.AskDots(context.Get()));
  };
  const PageBox margins = setUp.paper.margins;
  setUp.paper = ask(false);
  setUp.unprintable = Larger(setUp.paper.margins, ask(true).margins);
  const Tenths usual =
      std::min(kUsualMargin, std::min(setUp.paper.width, setUp.paper.height) / kMarginShare);
  setUp.paper.margins =
      Larger(marginsChosen_ ? margins : PageBox{usual, usual, usual, usual}, setUp.unprintable);
}

std::vector<std::byte> Printer::ModeFor(const SetUp& setUp, bool turned) {
  DEVMODEW head{};
  std::vector<std::byte> bytes = setUp.mode;
  if (bytes.empty()) {
    head.dmSpecVersion = DM_SPECVERSION;
    head.dmSize = sizeof head;
    bytes.resize(sizeof head);
  } else {
    // An older or cut one has less; what it lacks reads as not set.
    std::memcpy(&head, bytes.data(), std::min(bytes.size(), sizeof head));
  }
  const bool landscape =
      (head.dmFields & DM_ORIENTATION) != 0 && head.dmOrientation == DMORIENT_LANDSCAPE;
  head.dmOrientation = landscape != turned ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
  // Copies are printed one by one, so that every printer makes them.
  head.dmCopies = 1;
  head.dmCollate = DMCOLLATE_FALSE;
  head.dmFields |= DM_ORIENTATION | DM_COPIES | DM_COLLATE;
  std::memcpy(bytes.data(), &head, std::min(bytes.size(), sizeof head));
  return bytes;
}

}  // namespace pricedown::windows
