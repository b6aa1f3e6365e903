// What the item class form's window owns: its children and their captions.
#pragma once

#include <windows.h>

#include <algorithm>
#include <array>
#include <memory>

#include "editor/form_tools.h"
#include "editor/form_view.h"
#include "windows/base/captioned_form.h"
#include "windows/base/frame_windows.h"
#include "windows/base/group_box.h"
#include "windows/base/image_list.h"
#include "windows/base/plain_control.h"
#include "windows/base/tool_strip_window.h"
#include "windows/base/visual_styles.h"
#include "windows/editor/form_field.h"
#include "windows/editor/form_ids.h"
#include "windows/editor/member_list_window.h"

namespace pricedown::windows {

// A field with its label; the account fields have a lookup button.
struct FieldRow {
  FieldRow(FieldEvents& events, FormField theField, FormCaption theCaption, int theLabelId,
           int theFieldId, int theLookupId = 0)
      : field(theField),
        caption(theCaption),
        labelId(theLabelId),
        fieldId(theFieldId),
        lookupId(theLookupId),
        text(events, theField) {}

  const FormField field;
  const FormCaption caption;
  const int labelId;
  const int fieldId;
  const int lookupId;  // 0 for none
  PlainControl label;
  FormFieldWindow text;
  PlainControl lookup;
};

struct FormChildren {
  FormChildren(HINSTANCE module, ToolStripEvents& toolStripEvents, FieldEvents& fields,
               MemberListEvents& memberEvents)
      : styles(module),
        toolStrip(toolStripEvents, RowsOf(kFormTools)),
        rows{{{fields, FormField::ClassNumber, FormCaption::Label1, form_ids::kLabel1,
               form_ids::kClassNumber},
              {fields, FormField::ClassName, FormCaption::Label2, form_ids::kLabel1 + 1,
               form_ids::kClassName},
              {fields, FormField::LossAccount, FormCaption::Label3, form_ids::kLabel1 + 2,
               form_ids::kLossAccount, form_ids::kLossLookup},
              {fields, FormField::ReserveAccount, FormCaption::Label4, form_ids::kLabel1 + 3,
               form_ids::kReserveAccount, form_ids::kReserveLookup},
              {fields, FormField::Percentage, FormCaption::Label5, form_ids::kLabel1 + 4,
               form_ids::kPercentage}}},
        members(memberEvents) {}

  FieldRow& Row(FormField field) { return rows[static_cast<std::size_t>(field)]; }
  // The row for which `property` of it is `value`; null for none.
  template <typename Property, typename Value>
  FieldRow* Find(Property property, const Value& value) {
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const FieldRow& r) { return r.*property == value; });
    return row == rows.end() ? nullptr : &*row;
  }

  VisualStyles styles;
  ToolStripWindow toolStrip;
  LineWindow line;
  // By the number of the field.
  std::array<FieldRow, kFormFields.size()> rows;
  PlainControl lookupTips;
  IconHandle lookupPicture;
  GroupBox headerFrame;
  GroupBox itemFrame;
  MemberListWindow members;
  std::shared_ptr<CaptionedForm> form;
};

}  // namespace pricedown::windows
