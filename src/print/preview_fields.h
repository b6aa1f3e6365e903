// The texts of the preview's fields: page number and count, zoom; and of the progress window.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "print/preview_commands.h"

namespace pricedown {

std::u16string PageCountText(std::int32_t count);
// The percentage as a whole number: "125%".
std::u16string ZoomText(double percent);
// The lines of the zoom's list: 整页, 页宽, then the usual sizes.
std::vector<std::u16string> ZoomChoices();
// The command of a line of that list; nothing for the sizes.
std::optional<PreviewCommand> ZoomCommandOf(std::int32_t line);

// Whole numbers in digits of either width, a percentage with or without its sign; nothing for
// other texts. Numbers beyond any page or size are capped.
std::optional<std::int32_t> TypedPage(std::u16string_view text);
// Above 0.
std::optional<std::int32_t> TypedPercent(std::u16string_view text);

std::u16string PrintProgressText(std::int64_t sheet, std::int64_t count);

}  // namespace pricedown
