#pragma once

#include <wx/string.h>

namespace sample {

/// Advice to the user about a failure, as a sentence; empty when its description says all.

/// `number` is that of a ComponentError.
[[nodiscard]] wxString AdviceOnCall(long number);
/// `result` is SQLite's result code, basic or extended, of reading the business's own file.
[[nodiscard]] wxString AdviceOnFile(int result);

}  // namespace sample
