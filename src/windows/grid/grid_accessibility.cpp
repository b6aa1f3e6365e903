// Compares the grid with its last state, and raises the events of what differs.
#include "windows/grid/grid_accessibility.h"

#include <utility>

#include "windows/com/variant.h"

namespace pricedown::windows {

LRESULT GridAccessibility::ReturnProvider(WPARAM wParam, LPARAM lParam) {
  return provider_.Return(access_.Window(), wParam, lParam, [&] {
    reported_ = Now();
    return MakeCom<GridProvider>(access_, provider_.System());
  });
}

GridAccessibility::State GridAccessibility::Now() const {
  const GridElements elements = access_.Elements();
  State state;
  state.focused = GetFocus() == access_.Window();
  state.current = elements.Current();
  if (state.current) state.text = elements.Text(*state.current);
  state.range = elements.Range();
  state.rows = elements.Rows();
  state.vertical = VerticalExtent(access_.Viewport());
  state.horizontal = HorizontalExtent(access_.Viewport());
  return state;
}

void GridAccessibility::Update() noexcept {
  // A client in this process may end the window inside the event.
  const ComPtr<GridProvider> provider = provider_.Get();
  if (!provider || steps_ > 0) return;
  AtBoundary([&] {
    const State now = Now();
    const State before = std::exchange(reported_, now);
    if (!provider_.IsListenedTo()) return;
    std::u16string text;
    if (before.current && before.rows == now.rows) {
      text = access_.Elements().Text(*before.current);
    }
    Report(*provider.get(), provider_.System(), before, now, text);
  });
}

void GridAccessibility::Speak(std::u16string_view text) noexcept {
  const ComPtr<GridProvider> provider = provider_.Get();
  if (text.empty() || !provider_.IsListenedTo()) return;
  AtBoundary([&] { provider_.System().RaiseNotification(provider.get(), text); });
}

void GridAccessibility::Announce(std::u16string_view text) noexcept {
  if (!provider_.Get() || text == announced_) return;
  AtBoundary([&] {
    announced_ = text;
    Speak(text);
  });
}

void GridAccessibility::Report(GridProvider& provider, UiAutomation& automation,
                               const State& before, const State& now, std::u16string_view text) {
  const bool otherRows = now.rows != before.rows;
  const bool otherCell = otherRows || now.current != before.current;
  if (otherRows) automation.RaiseChildrenInvalidated(&provider);
  if (before.current && !otherRows && text != before.text) {
    Variant value;
    value.attach(PropertyText(text));
    automation.RaisePropertyChanged(provider.Element(*before.current).get(),
                                    UIA_ValueValuePropertyId, value.get());
  }
  if (now.current) {
    const auto cell = provider.Element(*now.current);
    if (now.focused && (otherCell || !before.focused)) {
      automation.RaiseEvent(cell.get(), UIA_AutomationFocusChangedEventId);
    }
    if (otherRows || now.range != before.range) {
      const bool isBlock = now.range.column != now.range.column2 || now.range.row != now.range.row2;
      if (isBlock) {
        automation.RaiseEvent(&provider, UIA_Selection_InvalidatedEventId);
      } else {
        automation.RaiseEvent(cell.get(), UIA_SelectionItem_ElementSelectedEventId);
      }
    }
  }
  if (now.vertical.percent != before.vertical.percent) {
    automation.RaisePropertyChanged(&provider, UIA_ScrollVerticalScrollPercentPropertyId,
                                    PropertyNumber(now.vertical.percent));
  }
  if (now.horizontal.percent != before.horizontal.percent) {
    automation.RaisePropertyChanged(&provider, UIA_ScrollHorizontalScrollPercentPropertyId,
                                    PropertyNumber(now.horizontal.percent));
  }
}

}  // namespace pricedown::windows
