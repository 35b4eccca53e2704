#pragma once

#include <cstdint>
#include <memory>

#include "grid/GridEXWrapper.h"
#include "remark_ui/EditedRemark.h"
#include "remark_ui/RemarkRows.h"

namespace quorvel {

class EditControls;
class RemarkContext;

/// The user's actions in the editor while it is open on one context. They change the context's list and show the result
/// in the controls. Every step that leaves a remark (selecting another one, New, Delete, Close, an error) first commits
/// the typed text and type. The host may change the list meanwhile: an action meets the remark that the user sees, or
/// none.
class EditSession {
 public:
  /// Borrows the controls and shares the context.
  EditSession(EditControls& controls, RemarkContext& context);
  ~EditSession();
  EditSession(const EditSession&) = delete;
  EditSession& operator=(const EditSession&) = delete;

  /// Sets up the grid as the context asks for and selects the first remark.
  void Start();

  void New();
  void Save();
  void Delete();
  /// Commits what was typed and calls the context's Save(false).
  void Close();
  /// Another line of the grid has become current.
  void RowChanged();
  void TypeChosen();
  void TextEdited();
  /// Shows the list again if the host has changed it. The shown remark stays selected if the list still has it, else
  /// none is. What the user has typed stays in the controls.
  void FollowList();

  /// Saves the edited remark in the list if it is pending, and shows nothing.
  EditedRemark::Outcome CommitPending();

 private:
  static void ExplainNew();
  void SetUpGrid();
  void Refetch(const std::shared_ptr<Remark>& remark, std::int32_t line = 0);
  [[nodiscard]] std::shared_ptr<Remark> CurrentRemark() const;
  void ShowSaved(EditedRemark::Outcome outcome);
  void ShowSelected();

  EditControls& m_controls;
  std::shared_ptr<RemarkContext> m_context;
  RemarkRows m_rows;
  GridEXWrapper m_wrapper;
  EditedRemark m_edited;
  bool m_isRefetching = false;  ///< the session itself changes the current line
};

}  // namespace quorvel
