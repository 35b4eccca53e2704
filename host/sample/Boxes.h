#pragma once

#include <wx/string.h>

#include "host/sample/EditUntilSettled.h"

class wxWindow;

namespace sample {

inline constexpr const char* kProgramTitle = "Customers and Orders";

// The message boxes of this program.

/// A failure with its advice, as text.
[[nodiscard]] wxString Describe(const ComponentError& failure);

/// `parent` is null while there is no window.
void ShowFailure(wxWindow* parent, const wxString& text);

/// Asks what becomes of changes that are not in the database. `place` is the caption of the place, which does not save
/// by itself when `failure` is null.
[[nodiscard]] UnsavedAnswer AskAboutUnsaved(wxWindow& parent, const wxString& place, const ComponentError* failure);

}  // namespace sample
