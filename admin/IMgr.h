#pragma once

#include <cstdint>
#include <string_view>

#include "data/Controls.h"

namespace quorvel {

/// The contract between the administration window and the six managers, one for each view. The order of the operations
/// is the order of the interface's slots. Errors go to the caller, which shows them; a manager's own refusals are
/// message boxes.
class IMgr {
 public:
  /// Keeps the combo box of records. The window calls it once, before all others.
  virtual void Init(Choice& cboID) = 0;
  /// Fills cboID with the records, selects the current one in it and shows its General panel. For a switch to the view.
  virtual void Refresh() = 0;
  /// Shows the tab with that caption, in any letter case, and remembers it. Other captions do nothing.
  virtual void selectTab(std::string_view caption) = 0;
  /// Makes the record with that key current and shows its General panel.
  virtual void SelectKey(std::int32_t key) = 0;
  /// Asks for a new record, adds it and makes it current.
  virtual void Create() = 0;
  /// Deletes the current record, after a question when others are linked to it.
  virtual void Delete() = 0;
  /// Links the current record with a child of the current tab. The lists still have their old contents. Disables the
  /// check boxes of the links, which may show another link.
  virtual void AddChild(std::int32_t key) = 0;
  /// Removes that link. The lists still have their old contents.
  virtual void RemoveChild(std::int32_t key) = 0;
  /// Shows what the link with that child holds in the check boxes, and enables them.
  virtual void ShowRight(std::int32_t key) = 0;
  /// Writes the value of the control that belongs to `field`. Names that the manager does not use are ignored.
  virtual void Update(std::string_view field) = 0;
  /// Disables the check boxes of the links, because no link is selected.
  virtual void InitControls() = 0;

 protected:
  // Not virtual: it would take slots of the interface.
  ~IMgr() = default;
};

}  // namespace quorvel
