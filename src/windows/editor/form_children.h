// Everything that the window of the item class form owns: its children, fonts and captions.
// Its parts do not know each other; the window brings them together.
#pragma once

#include <windows.h>

#include <array>
#include <memory>

#include "control/tool_strip.h"
#include "editor/form_view.h"
#include "windows/base/captioned_form.h"
#include "windows/base/frame_windows.h"
#include "windows/base/group_box.h"
#include "windows/base/plain_control.h"
#include "windows/base/tool_strip_window.h"
#include "windows/base/visual_styles.h"
#include "windows/editor/form_field.h"
#include "windows/editor/item_class_layout.h"
#include "windows/editor/member_list_window.h"

namespace pricedown::windows {

// The buttons of `tlbSPCA` by position; their texts come from the form.
inline constexpr std::array<ToolStripButton, 7> kFormTools{{
    {u"Add", u"", u""},
    {u"Save", u"", u""},
    {u"sp4", u"", u"", true},
    {u"AddItem", u"", u""},
    {u"DelItem", u"", u""},
    {u"sp7", u"", u"", true},
    {u"iExit", u"", u""},
}};

// A field with its label; the account fields have a lookup button.
struct FieldRow {
  FieldRow(FieldEvents& events, FormField field) : text(events, field) {}

  PlainControl label;
  FormFieldWindow text;
  PlainControl lookup;
};

struct FormChildren {
  FormChildren(HINSTANCE module, ToolStripEvents& stripEvents, FieldEvents& fieldEvents,
               MemberListEvents& memberEvents)
      : styles(module),
        strip(stripEvents, kFormTools),
        rows{{{fieldEvents, FormField::ClassNumber},
              {fieldEvents, FormField::ClassName},
              {fieldEvents, FormField::LossAccount},
              {fieldEvents, FormField::ReserveAccount},
              {fieldEvents, FormField::Percentage}}},
        members(memberEvents) {}

  FieldRow& Row(FormField field) { return rows[static_cast<std::size_t>(field)]; }

  VisualStyles styles;
  ToolStripWindow strip;
  LineWindow line;
  // By the number of the field.
  std::array<FieldRow, kFormFields.size()> rows;
  PlainControl lookupTips;
  GroupBox headerFrame;
  GroupBox itemFrame;
  MemberListWindow members;
  std::shared_ptr<CaptionedForm> form;
};

}  // namespace pricedown::windows
