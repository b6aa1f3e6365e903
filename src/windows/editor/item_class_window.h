// The window of `frmItemClass`: tool strip, fields and member list.
#pragma once

#include <windows.h>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "editor/form_layout.h"
#include "editor/form_view.h"
#include "windows/base/modal_frame_window.h"
#include "windows/base/tool_strip_events.h"
#include "windows/editor/form_field.h"
#include "windows/editor/member_list_window.h"

namespace pricedown {
class ItemClassForm;
}

namespace pricedown::windows {

struct FieldRow;
struct FormChildren;

// One object serves any number of showings; the system's windows live for one. While there are
// none, texts are empty and every other method is a no-op.
class ItemClassWindow final : public ItemClassFormView,
                              public ModalFrameWindow,
                              private ToolStripEvents,
                              private FieldEvents,
                              private MemberListEvents {
 public:
  explicit ItemClassWindow(HINSTANCE module);
  ~ItemClassWindow() override;

  // Window events go to `form`; null detaches. Requires: detached before `form` is destroyed.
  void Attach(ItemClassForm* form) { form_ = form; }
  MemberListView& Members();

  // Creates the windows, hidden, for the next showing; `owner` may be null. Throws AutomationError.
  void Create(HWND owner);
  // Shows the window over its owner. `unloading` is called when the form is unloaded, while the
  // window still exists.
  void Show(std::function<void()> unloading);
  // Handles a message of the modal loop; returns whether it was handled.
  bool TranslateKey(MSG& message);

  // ItemClassFormView
  std::u16string Text(FormField field) const override;
  void SetText(FormField field, std::u16string_view text) override;
  void Focus(FormField field) override;
  void SetCaption(FormCaption target, std::u16string_view text) override;
  void SetToolTexts(FormTool tool, std::u16string_view caption,
                    std::u16string_view toolTip) override;
  void SetToolEnabled(FormTool tool, bool enabled) override;
  ObjectPtr FormObject() override;
  void Unload() override;

 private:
  // ModalFrameWindow
  void CreateChildren() override;
  void SetFonts(HFONT font) override;
  void UpdateResolution(Dpi dpi) override;
  void PlaceChildren(SIZE client, Dpi dpi) override;
  SIZE MinimumSize(Dpi dpi) const override;
  std::array<HWND, 2> ThemedChildren() const override;
  void FocusFirst() override;
  void OnEscape() override { PressTool(FormTool::Exit); }
  void OnEnter() override;
  void OnChildCommand(HWND child, int id, int code) override;
  LRESULT OnNotify(NMHDR& header) override;
  void Close() override;
  void OnDestroy() override;

  // ToolStripEvents
  void CommandChosen(const Command& command) override;
  void TabPressed(bool backwards) override { FocusNext(backwards); }
  void FocusEntered() override {}
  // FieldEvents
  void LookupPressed(FormField field) override;
  // MemberListEvents
  void ToolChosen(FormTool tool) override { PressTool(tool); }
  void MenuRequested(POINT place) override;

  template <typename Command>
  void Run(Command&& command);
  void PressTool(FormTool tool);

  void CreateRow(FieldRow& row);
  void AddLookupTips();
  void ShowLookupPictures(Dpi dpi);
  void ListCaptions();
  FormMeasures Measures() const;
  BoundWindow* Captioned(FormCaption target);

  std::unique_ptr<FormChildren> children_;
  ItemClassForm* form_ = nullptr;
  std::function<void()> unloading_;
  // Of the last showing, for the next one; 0 before the first.
  SIZE lastSize_{};
  int lastDpi_ = 0;
};

}  // namespace pricedown::windows
