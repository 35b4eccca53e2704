#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "grid/GridContent.h"

namespace quorvel {

/// The state that a grid's table and renderer draw from. Its reads never throw, since the toolkit calls them: a cell
/// that cannot be read is empty.
struct GridState {
  GridContent content;
  std::int32_t currentLine = 0;  ///< 0 when no line is current
  /// The line at which Down goes on while no line is current; Up goes on at the line before it.
  std::int32_t resumeLine = 1;
  std::string emptyText{};  ///< shown and spoken when there are no lines
  /// Explains a row to the user who rests on it; may be empty.
  std::function<std::string(std::int32_t rowIndex)> rowHint{};
  /// Called with the error in flight when something cannot be read.
  std::function<void()> readFailed;

  [[nodiscard]] ShownCell Cell(std::int32_t line, std::size_t position) const noexcept {
    return OrEmpty([&] { return content.Cell(line, position); });
  }
  [[nodiscard]] std::string CellText(std::int32_t line, std::size_t position) const noexcept {
    return OrEmpty([&] { return content.CellText(line, position); });
  }
  [[nodiscard]] std::string HeadingText(const RowGroup& group) const noexcept {
    return OrEmpty([&] { return content.HeadingText(group); });
  }
  [[nodiscard]] std::string SpokenLine(std::int32_t line) const noexcept {
    return OrEmpty([&] { return content.SpokenLine(line); });
  }
  [[nodiscard]] std::string CellTip(std::int32_t line, std::size_t position) const noexcept {
    return OrEmpty([&] { return content.CellTip(line, position); });
  }
  [[nodiscard]] std::string MarkOf(std::int32_t line) const noexcept {
    return OrEmpty([&] { return content.MarkOf(line); });
  }
  /// The explanation of the row on a line, else of its mark; empty where there is none.
  [[nodiscard]] std::string Hint(std::int32_t line) const noexcept {
    return OrEmpty([&] {
      const std::int32_t rowIndex = content.Rows().RowIndex(line);
      const std::string hint = rowIndex > 0 && rowHint ? rowHint(rowIndex) : "";
      return hint.empty() ? content.MarkOf(line) : hint;
    });
  }

 private:
  template <typename Read>
  [[nodiscard]] auto OrEmpty(Read read) const noexcept -> decltype(read()) {
    try {
      return read();
    } catch (...) {
      readFailed();
      return {};
    }
  }
};

}  // namespace quorvel
