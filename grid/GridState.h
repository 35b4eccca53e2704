#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "grid/GridContent.h"

namespace quorvel {

/// What a grid's table and renderer draw from. Texts are empty when they cannot be read.
struct GridState {
  GridContent content;
  std::int32_t currentLine = 0;
  /// Called with the error in flight when a text cannot be read while the toolkit draws.
  std::function<void()> readFailed;

  [[nodiscard]] std::string CellText(std::int32_t line, std::size_t place) const noexcept {
    return OrEmpty([&] { return content.CellText(line, place); });
  }
  [[nodiscard]] std::string HeadingText(const GridRows::Group& heading) const noexcept {
    return OrEmpty([&] { return content.HeadingText(heading); });
  }
  /// GridContent::LineText.
  [[nodiscard]] std::string LineText(std::int32_t line, std::string_view separator, std::size_t limit) const noexcept {
    return OrEmpty([&] { return content.LineText(line, separator, limit); });
  }

  template <typename Read>
  [[nodiscard]] std::string OrEmpty(Read read) const noexcept {
    try {
      return read();
    } catch (...) {
      readFailed();
      return {};
    }
  }
};

}  // namespace quorvel
