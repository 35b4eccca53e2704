#pragma once

#include <memory>

#include <quorvel/quorvel.h>
#include <wx/string.h>

namespace sample {

/// The component's error of a failed call.
struct ComponentError {
  long number;
  wxString source;
  wxString description;
};

struct ContextCloser {
  void operator()(Quorvel::_RemarkContext* context) const noexcept;
};

/// The remarks on one record that one user may see in one place of this program. All calls throw ComponentError.
class OwnersRemarks {
 public:
  OwnersRemarks(const wxString& place, const wxString& owner, const wxString& user);

  /// The number of remarks that pop up.
  [[nodiscard]] long PopupCount() const;
  /// Shows them one by one.
  void PopUp();
  /// Opens the editor. After an error this object still has the changes: Edit shows them again, and Save writes them.
  void Edit();
  /// Writes all changes, whatever the place says about saving.
  void Save();
  /// Whether changes are not in the database.
  [[nodiscard]] bool IsUnsaved() const;
  /// Whether the place leaves saving to this program: the editor then closes without a word, and nothing is written.
  [[nodiscard]] bool IsLeftToSave() const;

 private:
  std::unique_ptr<Quorvel::_RemarkContext, ContextCloser> m_context;
};

/// The connection string that the component makes from its settings.
[[nodiscard]] wxString ConnectionString();

/// Opens the administration of users, rights and places, and waits until it is closed.
void OpenAdministration();

}  // namespace sample
