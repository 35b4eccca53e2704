#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "admin/Manager.h"
#include "data/Controls.h"

namespace quorvel {

/// The view "Entities": the kinds of owner record, and the contexts and remark types that belong to each.
class EntityMgr final : public Manager {
 public:
  struct Controls {
    TextField* txtCaption = nullptr;
    TextField* txtComment = nullptr;
    TextField* txtProcedure = nullptr;
    TextField* txtEntity = nullptr;  ///< the host's number for the entity
    RowsView* grdContexts = nullptr;
    RowsView* grdRemarks = nullptr;
  };

  EntityMgr();

  void BindControls(const Controls& controls) { m_controls = controls; }

  /// Also makes the first entity of the recordset current.
  void Init(Choice& cboID) override;
  void Create() override;
  void Delete() override;
  void AddChild(std::int32_t /*key*/) override {}
  void RemoveChild(std::int32_t /*key*/) override {}
  void ShowRight(std::int32_t /*key*/) override {}
  void Update(std::string_view field) override;
  void InitControls() override {}

 protected:
  void ShowFields(const ado::Recordset* row) override;
  void ShowChildren() override;
  [[nodiscard]] bool IsDefined(const std::string& id) const override;

 private:
  /// Shows the tab's rows and returns their number.
  std::int32_t ShowContexts();
  std::int32_t ShowRemarkTypes();

  Controls m_controls;
};

}  // namespace quorvel
