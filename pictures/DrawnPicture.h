#pragma once

#include <span>
#include <string_view>

namespace quorvel {

/// One drawing of this folder in one size. The build draws them.
struct DrawnPicture {
  std::string_view name;    ///< the drawing's file name, without its extension
  int size;                 ///< width and height, in pixels
  std::string_view pixels;  ///< size * size pixels from the top left, a byte each for red, green, blue and opacity
};

/// All of them, the sizes of a drawing in ascending order.
[[nodiscard]] std::span<const DrawnPicture> DrawnPictures() noexcept;

}  // namespace quorvel
