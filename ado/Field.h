#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "ado/engine/DataType.h"
#include "platform/Value.h"

namespace quorvel::ado {

class Recordset;

/// One column of a recordset; its value is that of the recordset's current row. A field may be kept while
/// the recordset moves, but must not outlive it.
class Field {
 public:
  Field(const Recordset& recordset, std::size_t column) : m_recordset(&recordset), m_column(column) {}

  [[nodiscard]] const std::string& Name() const;
  [[nodiscard]] DataType Type() const;
  /// 0-based among the recordset's fields.
  [[nodiscard]] std::size_t Position() const noexcept { return m_column; }
  /// adErrNoCurrentRecord at the end of the file.
  [[nodiscard]] quorvel::Value Value() const;
  /// The same for a text, without a copy: valid as long as the recordset is open. Nothing when the value is no text.
  [[nodiscard]] std::optional<std::string_view> Text() const;

 private:
  const Recordset* m_recordset;
  std::size_t m_column;
};

}  // namespace quorvel::ado
