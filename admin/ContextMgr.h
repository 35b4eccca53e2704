#pragma once

#include <array>

#include "admin/ChildLists.h"
#include "admin/DisplaySequence.h"
#include "admin/LinkFlags.h"
#include "admin/Manager.h"
#include "admin/NewItemDialog.h"
#include "data/Controls.h"

namespace quorvel {

/// The view "Contexts": places in the host, their display settings, and the remark types that they offer in order.
/// Unlike the other managers this one compares the names of fields with their letter case.
class ContextMgr final : public Manager {
 public:
  struct Controls {
    TextField* txtCaption = nullptr;
    TextField* txtComment = nullptr;
    TextField* txtEntity = nullptr;  ///< only shown
    ChildLists remarkTypes;          ///< lstCurrent in the order of DisplaySeq
    CheckField* chkRight = nullptr;  ///< priority of the type
    EnabledControl* cmdUp = nullptr;
    EnabledControl* cmdDown = nullptr;
    CheckField* chkGroupByType = nullptr;
    NumberField* udRowHeight = nullptr;
    TextField* txtRowHeight = nullptr;
    CheckField* chkAllowRowSizing = nullptr;
    Choice* cboEditBehavior = nullptr;  ///< filled by the window; a datum is the stored number
    NewItemDialog* frmNewContext = nullptr;
  };

  ContextMgr();

  void BindControls(const Controls& controls);

  void Create() override;
  void Delete() override;
  void AddChild(std::int32_t key) override;
  void RemoveChild(std::int32_t key) override;
  void ShowRight(std::int32_t key) override;
  void Update(std::string_view field) override;
  void InitControls() override;

 protected:
  void ShowFields(const ado::Recordset* row) override;
  void ShowChildren() override;
  void ShowGeneralPanel() override;

 private:
  [[nodiscard]] ListedTypes Types() const;
  void ShowEditBehavior(const ado::Recordset* row);
  void EnableMoves();
  void WriteNumber(std::string_view column, std::int32_t number);
  void WritePriority();
  /// Exchanges the selected type with the one before (-1) or after it (1), if there is one.
  void MoveSelected(std::int32_t offset);
  /// Reads lstCurrent again and selects a type in it.
  void ListTypes(std::int32_t selectedKey);
  void ListTypesAfterFailure(std::int32_t selectedKey) noexcept;

  Controls m_controls;
  std::array<LinkFlag, 1> m_priority;
  std::int32_t m_entityKey = 0;  ///< the entity of the current context
};

}  // namespace quorvel
