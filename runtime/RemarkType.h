#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "runtime/Publishable.h"

namespace quorvel {

class RemarkContext;

/// One kind of remark, with the current user's rights on it. Plain data; used on the thread that made it.
class RemarkType : public Publishable {
 public:
  /// The context that loaded the type. A strong reference: RemarkContext::Dispose sets it to null and so breaks the
  /// cycle.
  [[nodiscard]] const std::shared_ptr<RemarkContext>& Context() const noexcept { return m_context; }
  void SetContext(std::shared_ptr<RemarkContext> context) noexcept { m_context = std::move(context); }
  /// The identifier of the context that shows the remarks of this type; stays when Context has loaded another one.
  [[nodiscard]] const std::string& ContextID() const noexcept { return m_contextID; }
  void SetContextID(std::string contextID) noexcept { m_contextID = std::move(contextID); }
  [[nodiscard]] const std::string& TypeID() const noexcept { return m_typeID; }
  void SetTypeID(std::string typeID) noexcept { m_typeID = std::move(typeID); }
  [[nodiscard]] const std::string& Caption() const noexcept { return m_caption; }
  void SetCaption(std::string caption) noexcept { m_caption = std::move(caption); }
  [[nodiscard]] bool ShowPopup() const noexcept { return m_showPopup; }
  void SetShowPopup(bool showPopup) noexcept { m_showPopup = showPopup; }

  /// The rights; 0 means not granted. The reader decides whether a negative value counts.
  [[nodiscard]] std::int32_t CanCreate() const noexcept { return m_canCreate; }
  void SetCanCreate(std::int32_t right) noexcept { m_canCreate = right; }
  [[nodiscard]] std::int32_t CanRead() const noexcept { return m_canRead; }
  void SetCanRead(std::int32_t right) noexcept { m_canRead = right; }
  [[nodiscard]] std::int32_t CanUpdate() const noexcept { return m_canUpdate; }
  void SetCanUpdate(std::int32_t right) noexcept { m_canUpdate = right; }
  [[nodiscard]] std::int32_t CanDelete() const noexcept { return m_canDelete; }
  void SetCanDelete(std::int32_t right) noexcept { m_canDelete = right; }

 private:
  std::shared_ptr<RemarkContext> m_context;
  std::string m_contextID;
  std::string m_typeID;
  std::string m_caption;
  std::int32_t m_canCreate = 0;
  std::int32_t m_canRead = 0;
  std::int32_t m_canUpdate = 0;
  std::int32_t m_canDelete = 0;
  bool m_showPopup = false;
};

}  // namespace quorvel
