// What the preview looks like: where the page's ink is, and pictures for people.
// The positions themselves are those of the core's pages.
#include <gtest/gtest.h>

#include <array>

#include "tests/windows_print/preview_world.h"
#include "windows/ui/dpi.h"

namespace pricedown::testing {
namespace {

class PreviewLook : public PreviewWorld {
 protected:
  std::string Name(const std::string& what) const {
    return "preview " + what + " " + std::to_string(windows::Dpi::Of(nullptr).Value());
  }
};

TEST_F(PreviewLook, ShowsTheWholePageThenItsWidthThenItsDetails) {
  Show(200, {[&] { KeepPicture(Window(), Name("whole")); }, [&] { ClickButton(u"FitWidth"); },
             [&] { KeepPicture(Window(), Name("width")); }, [&] { ClickButton(u"Last"); },
             [&] { ClickButton(u"ZoomIn"); }, [&] { KeepPicture(Window(), Name("detail")); },
             [&] { SetWindowPos(Window(), nullptr, 0, 0, 300, 300, SWP_NOMOVE | SWP_NOZORDER); },
             [&] { KeepPicture(Window(), Name("narrow")); }, [&] { CloseByFrame(); }});
}

}  // namespace
}  // namespace pricedown::testing
