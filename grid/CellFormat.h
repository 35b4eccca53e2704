#pragma once

#include <string>

#include "platform/Value.h"

namespace quorvel {

enum class CellFormat {
  General,
  ShortDate,  ///< a date without its time
  Flag,       ///< a number: a check mark unless it is 0
};

/// The content that is drawn in a cell: a text or a check mark.
struct ShownCell {
  std::string text;
  bool isChecked = false;
};

/// A flag shows nothing for 0 and for null. A value that does not suit the format is shown as in General.
[[nodiscard]] ShownCell ShowCell(Value value, CellFormat format);

/// The value as text, for copying. Empty for null; a flag gives its number.
[[nodiscard]] std::string FormatCell(Value value, CellFormat format);

/// The whole value, of which ShowCell shows a part: a date with its time. Empty for other values.
[[nodiscard]] std::string CompleteCell(const Value& value, CellFormat format);

/// The value for screen readers: as FormatCell, but a flag is the column's caption and "checked", "not checked" or, for
/// null, "not set".
[[nodiscard]] std::string SpeakCell(Value value, CellFormat format, const std::string& caption);

}  // namespace quorvel
