#pragma once

#include "host/sample/Component.h"

namespace sample {

/// The user's wish for changes that are not in the database.
enum class UnsavedAnswer { Save, OpenAgain, ThrowAway };

/// Opens the editor, and lets no change be lost unasked: where saving failed, or where the place leaves saving to this
/// program, `ask` asks until the changes are saved or thrown away. `ask` gets the failure, or null where there was
/// none, and returns an UnsavedAnswer. Other errors pass through. `Remarks` is OwnersRemarks, or stands in for it.
template <typename Remarks, typename Ask>
void EditUntilSettled(Remarks& remarks, Ask ask) {
  UnsavedAnswer answer = UnsavedAnswer::OpenAgain;
  while (answer != UnsavedAnswer::ThrowAway) {
    try {
      answer == UnsavedAnswer::Save ? remarks.Save() : remarks.Edit();
      // Elsewhere the component has saved, or the user has said No to its question.
      if (!remarks.IsLeftToSave() || !remarks.IsUnsaved()) return;
      answer = ask(nullptr);
    } catch (const ComponentError& failure) {
      if (!remarks.IsUnsaved()) throw;
      answer = ask(&failure);
    }
  }
}

}  // namespace sample
