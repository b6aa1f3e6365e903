// The designs, on a grid of 16 units.
// Straight edges are boxes, so that they stay sharp at every size.
#include "windows/base/icon_art.h"

#include <array>
#include <initializer_list>
#include <vector>

namespace pricedown::windows {
namespace {

constexpr IconColour kInk = 0x4A5568;
constexpr IconColour kPaper = 0xFFFFFF;
constexpr IconColour kLines = 0x9AA5B4;
constexpr IconColour kGreen = 0x1F9D55;
constexpr IconColour kRed = 0xD64545;
constexpr IconColour kBlue = 0x2B6CB0;
constexpr IconColour kPaleBlue = 0xCFE4F7;
constexpr IconColour kAmber = 0xF2B33D;
constexpr IconColour kDarkAmber = 0xC07F12;
constexpr IconColour kPaleAmber = 0xFCDD94;
constexpr IconColour kWood = 0xE8C48A;

void Polygon(IconCanvas& canvas, std::initializer_list<IconPoint> points, IconColour colour) {
  canvas.Polygon(std::span(points.begin(), points.size()), colour);
}

// A sheet of paper with lines of text.
void Page(IconCanvas& canvas, double left, double right) {
  canvas.Box(left, 1, right, 15, kInk);
  canvas.Box(left + 1, 2, right - 1, 14, kPaper);
  for (const double y : {4.0, 7.0, 10.0}) canvas.Box(left + 2, y, right - 2, y + 1, kLines);
}

// The sign of adding, over the lower right of a picture.
void Plus(IconCanvas& canvas) {
  canvas.Box(7, 9, 16, 14, kPaper);
  canvas.Box(9, 7, 14, 16, kPaper);
  canvas.Box(8, 10, 15, 13, kGreen);
  canvas.Box(10, 8, 13, 15, kGreen);
}

void DrawAdd(IconCanvas& canvas) {
  Page(canvas, 1, 12);
  Plus(canvas);
}

void DrawEdit(IconCanvas& canvas) {
  Page(canvas, 1, 12);
  canvas.Stroke({5.2, 12.4}, {13.6, 4.0}, 5.4, kPaper);
  canvas.Stroke({6.9, 10.7}, {12.4, 5.2}, 3.4, kAmber);
  canvas.Stroke({12.2, 5.4}, {14.0, 3.6}, 3.4, kRed);
  Polygon(canvas, {{5.7, 9.5}, {8.1, 11.9}, {4.4, 13.2}}, kWood);
  Polygon(canvas, {{5.0, 11.5}, {6.1, 12.6}, {4.4, 13.2}}, kInk);
}

void DrawDelete(IconCanvas& canvas) {
  canvas.Stroke({3, 3}, {13, 13}, 3, kRed);
  canvas.Stroke({13, 3}, {3, 13}, 3, kRed);
}

void DrawPrint(IconCanvas& canvas) {
  canvas.Box(4, 1, 12, 7, kInk);
  canvas.Box(5, 2, 11, 7, kPaper);
  canvas.Box(1, 6, 15, 12, kInk);
  canvas.Box(2, 7, 14, 11, kLines);
  canvas.Box(11, 8, 13, 9, kGreen);
  canvas.Box(3, 10, 13, 15, kInk);
  canvas.Box(4, 11, 12, 14, kPaper);
  canvas.Box(5, 12, 11, 13, kLines);
}

void DrawPreview(IconCanvas& canvas) {
  Page(canvas, 1, 12);
  canvas.Disc({9.5, 9}, 5.0, kPaper);
  canvas.Stroke({11.5, 11}, {15, 14.5}, 3.6, kPaper);
  canvas.Stroke({11.8, 11.3}, {14.9, 14.4}, 2.2, kDarkAmber);
  canvas.Disc({9.5, 9}, 4.2, kBlue);
  canvas.Disc({9.5, 9}, 2.8, kPaleBlue);
}

void DrawExit(IconCanvas& canvas) {
  canvas.Box(1, 1, 9, 15, kInk);
  canvas.Box(2, 2, 8, 14, kWood);
  canvas.Box(6, 7, 7, 9, kInk);
  canvas.Box(7, 6, 12, 10, kPaper);
  canvas.Box(8, 7, 12, 9, kRed);
  Polygon(canvas, {{11, 3.5}, {15.8, 8}, {11, 12.5}}, kRed);
}

// The back of a folder, with its tab.
void FolderBack(IconCanvas& canvas, IconColour fill) {
  canvas.Box(1, 2, 7, 6, kDarkAmber);
  canvas.Box(1, 4, 15, 14, kDarkAmber);
  canvas.Box(2, 3, 6, 6, fill);
  canvas.Box(2, 5, 14, 13, fill);
}

void DrawFolder(IconCanvas& canvas) {
  FolderBack(canvas, kAmber);
  canvas.Box(2, 6, 14, 7, kPaleAmber);
}

void DrawOpenFolder(IconCanvas& canvas) {
  FolderBack(canvas, kPaleAmber);
  Polygon(canvas, {{3.2, 7}, {16, 7}, {13.6, 14}, {0.8, 14}}, kDarkAmber);
  Polygon(canvas, {{4.0, 8}, {14.6, 8}, {12.9, 13}, {2.2, 13}}, kAmber);
}

void DrawSave(IconCanvas& canvas) {
  Polygon(canvas, {{1, 1}, {13, 1}, {15, 3}, {15, 15}, {1, 15}}, kBlue);
  canvas.Box(4, 2, 12, 6, kPaleBlue);
  canvas.Box(9, 2, 11, 5, kInk);
  canvas.Box(3, 8, 13, 14, kPaper);
  canvas.Box(4, 10, 12, 11, kLines);
  canvas.Box(4, 12, 12, 13, kLines);
}

// A parcel.
void Parcel(IconCanvas& canvas) {
  canvas.Box(1, 3, 13, 14, kDarkAmber);
  canvas.Box(2, 4, 12, 13, kAmber);
  canvas.Box(2, 4, 12, 6, kPaleAmber);
  canvas.Box(6, 3, 8, 9, kDarkAmber);
}

void DrawAddItem(IconCanvas& canvas) {
  Parcel(canvas);
  Plus(canvas);
}

void DrawRemoveItem(IconCanvas& canvas) {
  Parcel(canvas);
  canvas.Box(7, 9, 16, 14, kPaper);
  canvas.Box(8, 10, 15, 13, kRed);
}

// Paper with the lines of its margins.
void DrawPageSetup(IconCanvas& canvas) {
  canvas.Box(2, 1, 14, 15, kInk);
  canvas.Box(3, 2, 13, 14, kPaper);
  canvas.Box(5, 2, 6, 14, kBlue);
  canvas.Box(10, 2, 11, 14, kBlue);
  canvas.Box(3, 4, 13, 5, kBlue);
  canvas.Box(3, 11, 13, 12, kBlue);
}

void DrawFont(IconCanvas& canvas) {
  canvas.Stroke({2.2, 14}, {7.4, 1.6}, 2.2, kBlue);
  canvas.Stroke({13.8, 14}, {8.6, 1.6}, 2.2, kBlue);
  canvas.Box(5, 9, 11, 11, kBlue);
}

void DrawPrevious(IconCanvas& canvas) { Polygon(canvas, {{11, 2}, {11, 14}, {4, 8}}, kBlue); }

void DrawNext(IconCanvas& canvas) { Polygon(canvas, {{5, 2}, {5, 14}, {12, 8}}, kBlue); }

void DrawFirst(IconCanvas& canvas) {
  canvas.Box(3, 2, 5, 14, kBlue);
  Polygon(canvas, {{13, 2}, {13, 14}, {6, 8}}, kBlue);
}

void DrawLast(IconCanvas& canvas) {
  canvas.Box(11, 2, 13, 14, kBlue);
  Polygon(canvas, {{3, 2}, {3, 14}, {10, 8}}, kBlue);
}

// A magnifying glass with a minus sign.
void DrawZoomOut(IconCanvas& canvas) {
  canvas.Stroke({9.5, 9.5}, {14.5, 14.5}, 2.6, kDarkAmber);
  canvas.Disc({6.5, 6.5}, 6, kBlue);
  canvas.Disc({6.5, 6.5}, 4.6, kPaleBlue);
  canvas.Box(4, 6, 9, 7, kInk);
}

void DrawZoomIn(IconCanvas& canvas) {
  DrawZoomOut(canvas);
  canvas.Box(6, 4, 7, 9, kInk);
}

void DrawFitPage(IconCanvas& canvas) {
  canvas.Box(0, 1, 16, 15, kInk);
  canvas.Box(1, 2, 15, 14, kLines);
  canvas.Box(4, 3, 12, 13, kPaper);
  for (const double y : {5.0, 8.0}) canvas.Box(6, y, 10, y + 1, kLines);
}

void DrawFitWidth(IconCanvas& canvas) {
  canvas.Box(0, 1, 16, 15, kInk);
  canvas.Box(1, 2, 15, 14, kLines);
  canvas.Box(2, 4, 14, 14, kPaper);
  canvas.Box(5, 8, 11, 10, kBlue);
  Polygon(canvas, {{6, 6}, {6, 12}, {2.6, 9}}, kBlue);
  Polygon(canvas, {{10, 6}, {10, 12}, {13.4, 9}}, kBlue);
}

struct Button {
  std::u16string_view key;
  Icon icon;
};
constexpr std::array<Button, 21> kButtons{
    {{u"Add", Icon::Add},         {u"Edit", Icon::Edit},           {u"Del", Icon::Delete},
     {u"Print", Icon::Print},     {u"PrintView", Icon::Preview},   {u"Exit", Icon::Exit},
     {u"Save", Icon::Save},       {u"AddItem", Icon::AddItem},     {u"DelItem", Icon::RemoveItem},
     {u"iExit", Icon::Exit},      {u"PageSetup", Icon::PageSetup}, {u"Font", Icon::Font},
     {u"First", Icon::First},     {u"Previous", Icon::Previous},   {u"Next", Icon::Next},
     {u"Last", Icon::Last},       {u"ZoomIn", Icon::ZoomIn},       {u"ZoomOut", Icon::ZoomOut},
     {u"FitPage", Icon::FitPage}, {u"FitWidth", Icon::FitWidth},   {u"Close", Icon::Exit}}};

}  // namespace

const Icon* IconOfButton(std::u16string_view key) {
  for (const Button& button : kButtons) {
    if (button.key == key) return &button.icon;
  }
  return nullptr;
}

IconCanvas DrawIcon(Icon icon, int size) {
  IconCanvas canvas(size);
  switch (icon) {
    case Icon::Add:
      DrawAdd(canvas);
      break;
    case Icon::Edit:
      DrawEdit(canvas);
      break;
    case Icon::Delete:
      DrawDelete(canvas);
      break;
    case Icon::Print:
      DrawPrint(canvas);
      break;
    case Icon::Preview:
      DrawPreview(canvas);
      break;
    case Icon::Exit:
      DrawExit(canvas);
      break;
    case Icon::Folder:
      DrawFolder(canvas);
      break;
    case Icon::OpenFolder:
      DrawOpenFolder(canvas);
      break;
    case Icon::Save:
      DrawSave(canvas);
      break;
    case Icon::AddItem:
      DrawAddItem(canvas);
      break;
    case Icon::RemoveItem:
      DrawRemoveItem(canvas);
      break;
    case Icon::PageSetup:
      DrawPageSetup(canvas);
      break;
    case Icon::Font:
      DrawFont(canvas);
      break;
    case Icon::First:
      DrawFirst(canvas);
      break;
    case Icon::Previous:
      DrawPrevious(canvas);
      break;
    case Icon::Next:
      DrawNext(canvas);
      break;
    case Icon::Last:
      DrawLast(canvas);
      break;
    case Icon::ZoomIn:
      DrawZoomIn(canvas);
      break;
    case Icon::ZoomOut:
      DrawZoomOut(canvas);
      break;
    case Icon::FitPage:
      DrawFitPage(canvas);
      break;
    case Icon::FitWidth:
      DrawFitWidth(canvas);
      break;
  }
  return canvas;
}

}  // namespace pricedown::windows
