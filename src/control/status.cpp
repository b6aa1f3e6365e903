// The texts of the status bar.
#include "control/status.h"

#include <algorithm>

#include "env/translation.h"
#include "platform/convert.h"
#include "platform/text.h"

namespace pricedown {

std::u16string StatusText(const BrowserState& browser, const NodeCollection& nodes,
                          std::int32_t items) {
  std::u16string text;
  if (browser.currentNode && !browser.itemRecordset) {
    // The form holds the rows, so commands have no class.
    text = Translate(u"请重新选择物料类别    ");
  } else if (browser.currentNode) {
    const NodeIndex node = nodes.Find(*browser.currentNode);
    if (node != kNoNode) text = Concatenate({nodes.TextOf(node), u"    "});
  }
  return Concatenate({text, Translate(u"共 "), NumberText(items), Translate(u" 项物料")});
}

std::u16string ElapsedText(std::chrono::nanoseconds elapsed) {
  const auto hundredths = std::max<std::int64_t>(
      std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count() / 10, 1);
  return Concatenate(
      {Translate(u"用时 "), NumberText(static_cast<double>(hundredths) / 100), Translate(u" 秒")});
}

bool LongWork::BeginWait(Time now) {
  waiting_ = true;
  waitBegan_ = now;
  return IsLong(lastWait_);
}

std::chrono::nanoseconds LongWork::EndWait(Time now) {
  waiting_ = false;
  lastWait_ = now - waitBegan_;
  return lastWait_;
}

}  // namespace pricedown
