// The window of `frmItemClass`: fields, tool bar and item list, shown as the form says.
// It decides nothing; what the user does is handed to the attached ItemClassForm.
#pragma once

#include <windows.h>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "editor/form_view.h"
#include "windows/base/modal_frame_window.h"
#include "windows/base/tool_strip_events.h"
#include "windows/editor/form_field.h"
#include "windows/editor/item_class_layout.h"
#include "windows/editor/member_list_window.h"

namespace pricedown {
class ItemClassForm;
}

namespace pricedown::windows {

struct FormChildren;

// One object serves any number of showings; the system's windows live for one. Every method is
// harmless while there are none: texts are empty and nothing is shown.
class ItemClassWindow final : public ItemClassFormView,
                              public ModalFrameWindow,
                              private ToolStripEvents,
                              private FieldEvents,
                              private MemberListEvents {
 public:
  explicit ItemClassWindow(HINSTANCE module);
  ~ItemClassWindow() override;

  // Window events go to `form`; null detaches. Requires: detached before `form` dies.
  void Attach(ItemClassForm* form) { form_ = form; }
  MemberListView& Members();

  // Makes the windows, hidden, for the next showing; `owner` may be null. Throws AutomationError.
  void Create(HWND owner);
  // Shows the rows that the form has asked for, then the window. `unloading` is called when the
  // form is unloaded, while the window is still there. Throws what a row throws.
  void Show(std::function<void()> unloading);
  // A message of the modal loop; true when it was used up.
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
  void GiveFonts(HFONT font) override;
  void TakeResolution(Dpi dpi) override;
  void PlaceChildren(SIZE client, Dpi dpi) override;
  SIZE LeastSize(Dpi dpi) const override;
  std::array<HWND, 2> ThemedChildren() const override;
  void FocusFirst() override;
  void OnEscape() override { PressTool(FormTool::Exit); }
  void OnEnter() override;
  void OnChildCommand(HWND child, int id, int code) override;
  LRESULT OnNotify(NMHDR& header) override;
  void OnClose() override;
  void OnDestroy() override;

  // ToolStripEvents
  void ToolStripButtonClicked(std::size_t position) override;
  void TabPressed(bool backwards) override { FocusNext(backwards); }
  void FocusEntered(HWND) override {}
  // FieldEvents
  bool FieldKeyPressed(FormField field, char16_t character) override;
  void FieldKeyDown(FormField field, std::int32_t keyCode) override;
  // MemberListEvents
  std::u16string MemberRow(std::int32_t row) override;
  void InsertPressed() override;

  template <typename Command>
  void Fire(Command&& command);
  void PressTool(FormTool tool);

  void CreateRow(FormField field);
  void AddLookupTips();
  void ListCaptions();
  FormMeasures Measures() const;
  BoundWindow* Captioned(FormCaption target);

  std::unique_ptr<FormChildren> children_;
  ItemClassForm* form_ = nullptr;
  std::function<void()> unloading_;
  // Of the last showing, so that the next one has it again; 0 before the first.
  SIZE lastSize_{};
  int lastDpi_ = 0;
  // A command runs; others wait for the user's next click, and closing for its end.
  bool busy_ = false;
  bool closing_ = false;
  bool destroying_ = false;
};

}  // namespace pricedown::windows
