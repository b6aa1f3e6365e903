// A font chosen in the preview: in the pages, in tree and grid, in the settings, and next time.
// Runs the whole control on a scripted suite, with scripted answers of the font dialog.
#include <windows.h>

#include <dlgs.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/text.h"
#include "tests/windows/print/preview_world.h"
#include "windows/com/wide_text.h"

namespace pricedown::testing {
namespace {

// The control's output with the real preview.
class PreviewedOutput : public PrintOutput {
 public:
  void Preview(PrintDocument& document) override {
    windows::PreviewDialog dialog(GetModuleHandleW(nullptr), document, printing);
    shown = &document;
    if (ownDialog) {
      dialog.ShowModal(GetActiveWindow());
    } else {
      dialog.ShowModal(GetActiveWindow(), fonts);
    }
  }
  void Print(const PrintDocument&) override {}

  bool ownDialog = false;  // the system's
  // The control's, once it has been shown.
  const PrintDocument* shown = nullptr;

  ScriptedPrinting printing;
  ScriptedFonts fonts;
};

class PreviewFont : public ::testing::Test, public PreviewUser {
 protected:
  void Start() { world.Start(&output); }
  void Preview(Steps steps) {
    ModalSteps player(std::move(steps));
    world.control->PreviewPara();
    EXPECT_TRUE(player.Ended());
    RunMessages();
  }
  // Chooses by the preview's button and closes.
  void Choose(const Font& font) {
    output.fonts.answers = {font};
    Preview({[&] { ClickButton(u"Font"); }, [&] { CloseByFrame(); }});
  }
  // What was put under "GridFont", the last time.
  std::string Saved() const {
    std::string saved;
    for (const std::string& line : world.suite.log.Lines()) {
      if (line.find("put") != std::string::npos && line.find("GridFont") != std::string::npos) {
        saved = line;
      }
    }
    return saved;
  }
  static LOGFONTW FontOf(HWND window) {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font, &font);
    return font;
  }

  PreviewedOutput output;
  MessageBoxes boxes;
  UiWorld world;
};

TEST_F(PreviewFont, IsOfferedUnchangedWithTheFlagsOfTheView) {
  Start();
  Choose({u"宋体", 9, false, false});
  ASSERT_EQ(output.fonts.shown.size(), 1u);
  EXPECT_EQ(output.fonts.shown[0], Font());
  EXPECT_EQ(output.fonts.lastFlags, 515u);
}

struct FontCase {
  const char* name;
  Font font;
};

class ChangedFont : public PreviewFont, public ::testing::WithParamInterface<FontCase> {};

INSTANTIATE_TEST_SUITE_P(Parts, ChangedFont,
                         ::testing::Values(FontCase{"Name", {u"黑体", 9, false, false}},
                                           FontCase{"Size", {u"宋体", 14, false, false}},
                                           FontCase{"Bold", {u"宋体", 9, true, false}},
                                           FontCase{"Italic", {u"宋体", 9, false, true}}),
                         [](const auto& parameters) { return parameters.param.name; });

TEST_P(ChangedFont, IsShownAtOnceAndKept) {
  Start();
  const Font& font = GetParam().font;
  Choose(font);
  EXPECT_EQ(output.shown->font, font);
  const LOGFONTW tree = FontOf(world.Tree());
  EXPECT_EQ(Utf8(windows::FromWide(tree.lfFaceName)), Utf8(font.name));
  EXPECT_EQ(tree.lfWeight >= FW_BOLD, font.bold);
  EXPECT_EQ(tree.lfItalic != FALSE, font.italic);
  EXPECT_EQ(world.control->GetGrid().CellFont(), font);
  EXPECT_NE(Saved().find("FontName=" + Utf8(font.name)), std::string::npos) << Saved();
}

TEST_F(PreviewFont, UnchangedStoresNothing) {
  Start();
  Choose({u"宋体", 9, false, false});
  EXPECT_EQ(Saved(), "");
  // Cancelled.
  Preview({[&] { ClickButton(u"Font"); }, [&] { CloseByFrame(); }});
  EXPECT_EQ(Saved(), "");
  // Changed, and changed back.
  output.fonts.answers = {{u"宋体", 12, true, false}, {u"宋体", 9, false, false}};
  Preview({[&] { ClickButton(u"Font"); }, [&] { ClickButton(u"Font"); }, [&] { CloseByFrame(); }});
  EXPECT_EQ(output.fonts.shown.back().size, 12);
  EXPECT_EQ(Saved(), "");
  EXPECT_TRUE(boxes.All().empty());
}

TEST_F(PreviewFont, RebuildsThePages) {
  world.ScriptItems(u"01", 200);
  Start();
  Click(world.Tree(), world.NodePoint(2));
  output.fonts.answers = {{u"宋体", 18, false, false}};
  std::string before;
  Preview({[&] {
             before = Page();
             ClickButton(u"Font");
           },
           [&] {
             EXPECT_GT(std::stoi(TextIn(preview_ids::kPageCount).substr(4)),
                       std::stoi(before.substr(6)));
           },
           [&] { CloseByFrame(); }});
}

// In the system's dialog, by Apply; cancelling it afterwards reverts nothing.
TEST_F(PreviewFont, IsAppliedBehindTheOpenDialog) {
  output.ownDialog = true;
  Start();
  const auto dialogWindow = [] { return FindWindowW(L"#32770", nullptr); };
  const auto press = [&](int button) {
    PostMessageW(dialogWindow(), WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialogWindow(), button)));
  };
  boxes.WillPress({0});
  Preview({[&] { PostButton(u"Font"); }, [&] {}, [&] {},
           [&] {
             const HWND sizes = GetDlgItem(dialogWindow(), cmb3);
             ASSERT_NE(sizes, nullptr);
             EXPECT_EQ(GetWindow(dialogWindow(), GW_OWNER), Window());
             const LRESULT line = SendMessageW(sizes, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                               reinterpret_cast<LPARAM>(L"16"));
             SendMessageW(sizes, CB_SETCURSEL, static_cast<WPARAM>(line), 0);
             SendMessageW(dialogWindow(), WM_COMMAND, MAKEWPARAM(cmb3, CBN_SELCHANGE),
                          reinterpret_cast<LPARAM>(sizes));
             press(psh3);
           },
           [&] {
             EXPECT_EQ(output.shown->font, (Font{u"宋体", 16, false, false}));
             press(IDCANCEL);
           },
           [&] { CloseByFrame(); }});
  EXPECT_NE(Saved().find("FontSize=16"), std::string::npos) << Saved();
}

TEST_F(PreviewFont, AGreaterOneMakesTheGridsRowsHigherAtOnce) {
  Start();
  const auto before = world.control->GetGrid().RowHeight();
  const LRESULT treeBefore = SendMessageW(world.Tree(), TVM_GETITEMHEIGHT, 0, 0);
  Choose({u"宋体", 18, false, false});
  EXPECT_GT(world.control->GetGrid().RowHeight(), before);
  EXPECT_GT(SendMessageW(world.Tree(), TVM_GETITEMHEIGHT, 0, 0), treeBefore);
}

TEST_F(PreviewFont, IsThatOfTheNextPreviewAndOfTheNextControl) {
  Start();
  Choose({u"黑体", 12, true, true});
  Preview({[&] { ClickButton(u"Font"); }, [&] { CloseByFrame(); }});
  EXPECT_EQ(output.fonts.shown.back(), (Font{u"黑体", 12, true, true}));

  // Another process has the setting and an output of its own.
  const std::string saved = Saved();
  const std::size_t begin = saved.find("FontName=");
  ASSERT_NE(begin, std::string::npos);
  UiWorld next;
  next.suite.company.gridFont = FromUtf8(saved.substr(begin, saved.find('"', begin) - begin));
  PreviewedOutput nextOutput;
  next.Start(&nextOutput);
  EXPECT_EQ(next.control->GetGrid().CellFont(), (Font{u"黑体", 12, true, true}));
}

}  // namespace
}  // namespace pricedown::testing
