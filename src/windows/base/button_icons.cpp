// The icon of each button.
#include "windows/base/button_icons.h"

#include <array>

#include "platform/icon_ids.h"

namespace pricedown::windows {
namespace {

struct ButtonIcon {
  std::u16string_view key;
  int icon;
};
constexpr std::array<ButtonIcon, 21> kButtonIcons{{{u"Add", PRICEDOWN_ICON_ADD},
                                                   {u"Edit", PRICEDOWN_ICON_EDIT},
                                                   {u"Del", PRICEDOWN_ICON_DELETE},
                                                   {u"Print", PRICEDOWN_ICON_PRINT},
                                                   {u"PrintView", PRICEDOWN_ICON_PREVIEW},
                                                   {u"Exit", PRICEDOWN_ICON_EXIT},
                                                   {u"Save", PRICEDOWN_ICON_SAVE},
                                                   {u"AddItem", PRICEDOWN_ICON_ADD_ITEM},
                                                   {u"DelItem", PRICEDOWN_ICON_REMOVE_ITEM},
                                                   {u"iExit", PRICEDOWN_ICON_EXIT},
                                                   {u"PageSetup", PRICEDOWN_ICON_PAGE_SETUP},
                                                   {u"Font", PRICEDOWN_ICON_FONT},
                                                   {u"First", PRICEDOWN_ICON_FIRST},
                                                   {u"Previous", PRICEDOWN_ICON_PREVIOUS},
                                                   {u"Next", PRICEDOWN_ICON_NEXT},
                                                   {u"Last", PRICEDOWN_ICON_LAST},
                                                   {u"ZoomIn", PRICEDOWN_ICON_ZOOM_IN},
                                                   {u"ZoomOut", PRICEDOWN_ICON_ZOOM_OUT},
                                                   {u"FitPage", PRICEDOWN_ICON_FIT_PAGE},
                                                   {u"FitWidth", PRICEDOWN_ICON_FIT_WIDTH},
                                                   {u"Close", PRICEDOWN_ICON_EXIT}}};

}  // namespace

int IconOfButton(std::u16string_view key) {
  for (const ButtonIcon& button : kButtonIcons) {
    if (button.key == key) return button.icon;
  }
  return 0;
}

}  // namespace pricedown::windows
