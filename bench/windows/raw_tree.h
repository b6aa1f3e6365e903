// Inserts nodes into a tree view without a copy of its own.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string_view>

#include "windows/com/wide_text.h"

namespace bench {

class RawTree {
 public:
  explicit RawTree(HWND tree) : tree_(tree) {}

  // Clears the tree but for its root and turns redraw off.
  void Begin() {
    SendMessageW(tree_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(tree_, TVM_DELETEITEM, 0, 0);
    root_ = Insert(nullptr, TVI_LAST, L"root");
    last_ = TVI_LAST;
  }
  void Insert(std::u16string_view text) {
    last_ = Insert(root_, last_, pricedown::windows::ToWide(text).c_str());
  }
  // Expands the root and turns redraw on.
  void End() {
    SendMessageW(tree_, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(root_));
    SendMessageW(tree_, WM_SETREDRAW, TRUE, 0);
  }

 private:
  HTREEITEM Insert(HTREEITEM parent, HTREEITEM after, const wchar_t* text) {
    TVINSERTSTRUCTW insertion{};
    insertion.hParent = parent;
    insertion.hInsertAfter = after;
    insertion.item.mask = TVIF_TEXT;
    // The message only reads the text.
    insertion.item.pszText = const_cast<wchar_t*>(text);
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insertion)));
  }

  HWND tree_;
  HTREEITEM root_ = nullptr;
  HTREEITEM last_ = nullptr;
};

}  // namespace bench
