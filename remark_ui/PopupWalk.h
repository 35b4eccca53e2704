#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace quorvel {

class Remark;
class RemarkContext;

/// What the pop-up window shows. A new one holds what its controls are drawn with before anything was read.
struct PopupDisplay {
  bool previousEnabled = true;
  bool previousVisible = true;
  std::string nextCaption = "Next";
  std::string remarkType = "Text1";
  std::string remark = "Text1";
  std::string counter = "Label1";
};

/// The way through the remarks of a context that pop up. It starts at the first remark of the list whatever that is,
/// and takes the place in the list for the number of the remark wherever it decides what may be pressed: right as long
/// as the remarks that pop up stand first, which is how they are read.
///
/// An error leaves the walk where it cannot go on.
class PopupWalk {
 public:
  /// Counts once; what pops up later is not counted. Keeps the context.
  explicit PopupWalk(std::shared_ptr<const RemarkContext> context);

  [[nodiscard]] std::int32_t PopupCount() const noexcept { return m_popupCount; }
  /// Whether Next finishes.
  [[nodiscard]] bool IsAtEnd() const noexcept { return m_listIndex == m_popupCount; }
  /// To the remark that pops up before or behind this one. Error 91 when the list ends before there is one.
  void Previous();
  void Next();
  /// Puts the remark of now into `display`. A text that cannot be made stays as it was there.
  void Fill(PopupDisplay& display) const noexcept;

 private:
  void Move(std::int32_t step);
  [[nodiscard]] std::shared_ptr<Remark> CurrentRemark() const;

  std::shared_ptr<const RemarkContext> m_context;
  std::int32_t m_listIndex = 1;
  std::int32_t m_popupOrdinal = 1;
  std::int32_t m_popupCount;
};

}  // namespace quorvel
