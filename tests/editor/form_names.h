// The names of fields, captions and tools of the form in logs: control names, and tool keys.
#pragma once

#include <string>

#include "editor/form_view.h"

namespace pricedown::testing {

inline std::string NameOf(FormTool tool) {
  switch (tool) {
    case FormTool::Add:
      return "Add";
    case FormTool::Save:
      return "Save";
    case FormTool::AddItem:
      return "AddItem";
    case FormTool::DelItem:
      return "DelItem";
    case FormTool::Exit:
      return "iExit";
  }
  return "?";
}

inline std::string NameOf(FormCaption caption) {
  switch (caption) {
    case FormCaption::Title:
      return "title";
    case FormCaption::Frame1:
      return "Frame1";
    case FormCaption::FrameAdd:
      return "FrameAdd";
    case FormCaption::Label5:
      return "Label5";
    case FormCaption::Label4:
      return "Label4";
    case FormCaption::Label3:
      return "Label3";
    case FormCaption::Label2:
      return "Label2";
    case FormCaption::Label1:
      return "Label1";
  }
  return "?";
}

inline std::string NameOf(FormField field) {
  switch (field) {
    case FormField::ClassNumber:
      return "itemClassNumber";
    case FormField::ClassName:
      return "ItemClassName";
    case FormField::LossAccount:
      return "txtitem(0)";
    case FormField::ReserveAccount:
      return "txtitem(1)";
    case FormField::Percentage:
      return "txtPencent";
  }
  return "?";
}

}  // namespace pricedown::testing
