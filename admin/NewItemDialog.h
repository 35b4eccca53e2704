#pragma once

#include <cstdint>
#include <string>

namespace quorvel {

/// The answer to the question for a new context or remark type. An empty ID means that the user cancelled.
struct NewItem {
  std::string id;
  std::int32_t entityKey = 0;
};

/// Asks for the ID of a new record and for its remark entity, in a dialog. Texts are UTF-8.
class NewItemDialog {
 public:
  virtual ~NewItemDialog() = default;
  [[nodiscard]] virtual NewItem AskForContext() = 0;
  [[nodiscard]] virtual NewItem AskForRemarkType() = 0;
};

}  // namespace quorvel
