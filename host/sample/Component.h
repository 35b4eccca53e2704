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
  /// Opens the editor. After an error this object still has the changes, and Edit shows them again.
  void Edit();
  /// Whether changes are unsaved because the place leaves saving to this program.
  [[nodiscard]] bool IsLeftToSave() const;

 private:
  std::unique_ptr<Quorvel::_RemarkContext, ContextCloser> m_context;
};

/// The connection string that the component makes from its settings.
[[nodiscard]] wxString ConnectionString();

/// Opens the administration of users, rights and places, and waits until it is closed.
void OpenAdministration();

}  // namespace sample
