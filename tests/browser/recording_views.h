// Recording fakes of the browser's windows: each call is one line of the log. They share count and
// failure switch with the suite's objects.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>

#include "browser/class_tree_view.h"
#include "browser/display_font.h"
#include "browser/grid.h"
#include "platform/error.h"
#include "tests/env/recording_screen.h"
#include "tests/support/recorder.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

inline std::string NumberInLog(double number) { return Readable(Value(number)); }

inline std::string FontInLog(const Font& font) {
  return Utf8(font.name) + " " + NumberInLog(font.size) + (font.bold ? " bold" : "") +
         (font.italic ? " italic" : "");
}

// Log lines: tree clear, tree insert 2 under 1 "01(原料)", tree select 2, tree redraw off.
class RecordingTreeView : public ClassTreeView {
 public:
  explicit RecordingTreeView(RecorderPtr recorder) : recorder_(std::move(recorder)) {}

  void ClearNodes() override {
    recorder_->Call("tree clear", u"tree");
    texts.clear();
    selected = kNoNode;
  }
  void InsertNode(NodeIndex index, NodeIndex parent, std::u16string_view text) override {
    recorder_->Call("tree insert " + std::to_string(index) + " under " + std::to_string(parent) +
                        " " + Quoted(text),
                    u"tree");
    if (text == refusedText) throw AutomationError(kInjectedFailure, u"refused");
    texts[index] = Utf8(text);
  }
  void SelectNode(NodeIndex index) override {
    recorder_->Call("tree select " + std::to_string(index), u"tree");
    selected = index;
  }
  NodeIndex SelectedNode() const override {
    recorder_->QuietCall("tree selected", u"tree");
    return selected;
  }
  void MarkNode(NodeIndex index) override { marked = index; }
  void SetRedraw(bool on) override {
    recorder_->Call(on ? "tree redraw on" : "tree redraw off", u"tree");
    redraw = on;
  }

  std::map<NodeIndex, std::string> texts;
  NodeIndex selected = kNoNode;
  NodeIndex marked = kNoNode;
  bool redraw = true;
  std::u16string refusedText;

 private:
  RecorderPtr recorder_;
};

// Log lines: grid changed 3 rows, grid metrics. Attach it to see them.
class RecordingGridView : public GridView {
 public:
  RecordingGridView(RecorderPtr recorder, const Grid& grid)
      : recorder_(std::move(recorder)), grid_(grid) {}

  void GridChanged() override {
    recorder_->Add("grid changed " + std::to_string(grid_.MaxRows()) + " rows");
  }
  void GridMetricsChanged() override { recorder_->Add("grid metrics"); }
  void AcceptTyping() override {
    if (onAcceptTyping) onAcceptTyping();
  }

  std::function<void()> onAcceptTyping;

 private:
  RecorderPtr recorder_;
  const Grid& grid_;
};

// Log lines: font tree 宋体 9.0, font label 宋体 9.0. A label is as high as `labelHeight`.
class RecordingFontView : public FontView {
 public:
  explicit RecordingFontView(RecorderPtr recorder) : recorder_(std::move(recorder)) {}

  void SetTreeFont(const Font& font) override {
    recorder_->Call("font tree " + FontInLog(font), u"font");
  }
  std::int32_t MeasureLabel(const Font& font) override {
    recorder_->Call("font label " + FontInLog(font), u"font");
    return labelHeight;
  }

  std::int32_t labelHeight = 240;

 private:
  RecorderPtr recorder_;
};

}  // namespace pricedown::testing
