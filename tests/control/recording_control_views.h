// The control's own window and its container, recorded: each call is one line of the log.
// They share call count and failure switch with the suite's objects.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "control/views.h"
#include "platform/error.h"
#include "tests/support/recorder.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

inline std::string InLog(const Rectangle& rectangle) {
  return std::to_string(rectangle.left) + "," + std::to_string(rectangle.top) + " " +
         std::to_string(rectangle.width) + "x" + std::to_string(rectangle.height);
}

inline const char* PaneName(FindPane pane) { return pane == FindPane::Tree ? "tree" : "grid"; }

// Log lines: view title "物料类别维护", view place 9000x6000, view bar 3600,1140 75x4530...
class RecordingPriceDownView : public PriceDownView {
 public:
  explicit RecordingPriceDownView(RecorderPtr recorder) : recorder_(std::move(recorder)) {}

  void SetTitle(std::u16string_view text) override { Log("view title " + Quoted(text)); }
  void SetTitleFont(const Font& font) override {
    Log("view title font " + Quoted(font.name) + " " + std::to_string(font.charset) + " " +
        Readable(Value(font.size)));
  }
  void SetPeriod(std::u16string_view text) override { Log("view period " + Quoted(text)); }
  void DisableButton(const Command& command) override {
    Log("view disable button " + Utf8(command.key));
  }
  void OpenFind(FindPane pane, std::u16string_view text) override {
    Log(std::string("find open ") + PaneName(pane) + " " + Quoted(text));
  }
  void CloseFind(FindPane pane) override {
    Log(std::string("find close ") + PaneName(pane));
    if (whenFindCloses) whenFindCloses();
  }
  std::function<void()> whenFindCloses;
  void ShowFindCount(std::u16string_view text, bool counting) override {
    findCount = Utf8(text);
    findCounting = counting;
  }
  void ShowFoundCell(std::int32_t column, std::int32_t row) override {
    currentRow = row;
    Log("find cell " + std::to_string(column) + "," + std::to_string(row));
  }
  void ShowFoundNode(std::int32_t node) override { Log("find node " + std::to_string(node)); }
  std::int32_t CurrentRow() const override { return currentRow; }
  FindPane FocusedPane() const override { return focusedPane; }
  void CopyCells(bool titled) override { Log(titled ? "view copy titled" : "view copy"); }
  bool HasWindow() const override { return hasWindow; }
  Size ControlSize() const override {
    recorder_->QuietCall("view size", u"view");
    return size;
  }
  void Place(const Layout& layout) override {
    Log("view place");
    placed = layout;
  }
  void ShowDragBar(const Rectangle& bar) override { Log("view bar " + InLog(bar)); }
  void HideDragBar() override {
    Log("view bar hidden");
    if (whenBarHides) whenBarHides();
  }
  std::function<void()> whenBarHides;

  bool hasWindow = true;
  Size size{12000, 8000};
  Layout placed;
  std::int32_t currentRow = 1;
  FindPane focusedPane = FindPane::Grid;
  std::string findCount;
  bool findCounting = false;

 private:
  void Log(const std::string& line) { recorder_->Call(line, u"view"); }

  RecorderPtr recorder_;
};

// Log lines: container caption, container close.
class RecordingContainer : public ContainerWindow {
 public:
  explicit RecordingContainer(RecorderPtr recorder) : recorder_(std::move(recorder)) {}

  std::u16string Caption() const override {
    recorder_->Call("container caption", u"container");
    return caption;
  }
  void Close() override {
    recorder_->Call("container close", u"container");
    if (onClose) onClose();
  }

  std::u16string caption = u"物料类别维护";
  // What the host does when its window receives a close request.
  std::function<void()> onClose;

 private:
  RecorderPtr recorder_;
};

}  // namespace pricedown::testing
