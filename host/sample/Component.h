#pragma once

#include <memory>

#include <quorvel/quorvel.h>
#include <wx/string.h>

namespace sample {

/// What the component says of a call that failed.
struct ComponentError {
  long number;
  wxString source;
  wxString description;
};

struct ContextCloser {
  void operator()(Quorvel::_RemarkContext* context) const noexcept;
};

/// The remarks on one of the business's records, as one user may see them from one place in this program. All calls
/// throw ComponentError.
class OwnersRemarks {
 public:
  OwnersRemarks(const wxString& place, const wxString& owner, const wxString& user);

  /// How many must be seen.
  [[nodiscard]] long PopupCount() const;
  /// Shows those, one by one.
  void PopUp();
  /// Opens the editor. After an error what was typed is still in this object: Edit shows it again.
  void Edit();
  /// Whether the place leaves it to this program to save, and there is something unsaved.
  [[nodiscard]] bool IsLeftToSave() const;

 private:
  std::unique_ptr<Quorvel::_RemarkContext, ContextCloser> m_context;
};

/// Where the component's settings say that the database is.
[[nodiscard]] wxString ConnectionString();

/// Opens the window in which users, rights and places are looked after, and waits until it is closed.
void OpenAdministration();

}  // namespace sample
