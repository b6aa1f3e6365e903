// The tour's steps through the print preview: opened by the mouse, pages turned, sizes changed,
// closed. Nothing is printed: a machine may have no printer.
#include <windows.h>

#include <cstddef>
#include <string_view>

#include "windows/base/plain_control.h"
#include "windows/print/preview_ids.h"
#include "workbench/host/tour.h"
#include "workbench/host/tour_input.h"

namespace workbench {

namespace preview_ids = pricedown::windows::preview_ids;

namespace {

// Positions, from 1: of the control's tool strip, and of the preview's two bars.
constexpr std::size_t kPreview = 6;
constexpr int kNextPage = 7;
constexpr int kLastPage = 8;
constexpr int kZoomIn = 2;
constexpr int kFitPage = 3;
constexpr int kFitWidth = 4;
constexpr int kClose = 6;

HWND Preview() { return RequireReady(FindWindowW(L"PriceDown.Preview", nullptr)); }

HWND PreviewChild(int id) { return RequireWindow(GetDlgItem(Preview(), id)); }

void PressDocument(int position) {
  PressButton(PreviewChild(preview_ids::kDocumentBar), position - 1);
}

void PressView(int position) { PressButton(PreviewChild(preview_ids::kViewBar), position - 1); }

// Throws unless the preview shows that page number.
void ExpectPage(std::u16string_view number) {
  Require(pricedown::windows::TextOf(PreviewChild(preview_ids::kPage)) == number,
          u"预览显示的是另一页。");
}

}  // namespace

void Tour::AddPrinting() {
  steps_.push_back({nullptr, [this] { frame_.OpenChild(kItemClassesCaption); }});
  steps_.push_back({nullptr, [this] { SelectClass(5); }});
  steps_.push_back({nullptr, [this] { PressStrip(kPreview); }});
  steps_.push_back({L"34-preview", [] { ExpectPage(u"1"); }});
  steps_.push_back({L"35-preview-page-width", [] { PressView(kFitWidth); }});
  steps_.push_back({nullptr, [] { PressDocument(kNextPage); }});
  steps_.push_back({L"36-preview-larger", [] {
                      ExpectPage(u"2");
                      PressView(kZoomIn);
                    }});
  steps_.push_back({nullptr, [] { PressView(kFitPage); }});
  steps_.push_back({L"37-preview-last-page", [] { PressDocument(kLastPage); }});
  steps_.push_back({nullptr, [] {
                      const HWND field = PreviewChild(preview_ids::kPage);
                      SetFocus(field);
                      SendMessageW(field, EM_SETSEL, 0, -1);
                      PostText(field, L"1");
                      PostKey(field, VK_RETURN);
                    }});
  steps_.push_back({nullptr, [] {
                      ExpectPage(u"1");
                      PressView(kClose);
                    }});
  steps_.push_back({L"38-preview-closed", [this] {
                      const HWND preview = FindWindowW(L"PriceDown.Preview", nullptr);
                      Require(preview == nullptr, u"预览没有关闭。");
                      frame_.CloseChildren();
                    }});
}

}  // namespace workbench
