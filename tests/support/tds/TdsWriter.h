#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ado/engine/Session.h"

namespace quorvel::test::tds {

/// Writes the tokens of an answer, one after the other.
class Writer {
 public:
  void DatabaseChanged(std::string_view database);
  void LoggedIn();
  /// An error, or a message when the severity is 10 or less.
  void Message(const ado::Diagnostic& diagnostic, std::uint8_t severity);
  void Rows(const ado::RowSet& rows);
  void ReturnStatus();  ///< of success
  void ReturnValue(std::uint16_t ordinal, std::string_view name, const ado::Column& type, const Value& value);

  enum class Last : std::uint8_t { InBatch = 0xFD, InProcedure = 0xFF, OfProcedure = 0xFE };
  struct DoneFlags {
    bool more = false;
    bool error = false;
    bool attention = false;
  };
  void Done(Last kind, DoneFlags flags, std::optional<std::int64_t> count = std::nullopt);

  [[nodiscard]] const std::string& Bytes() const noexcept { return m_bytes; }
  /// The number of bytes up to the middle of the last result set's rows.
  [[nodiscard]] std::size_t AmidRows() const noexcept { return (m_rowsBegin + m_rowsEnd) / 2; }

 private:
  template <typename Number>
  void Put(Number number);
  void PutShortText(std::string_view text);  ///< its length in one byte
  void PutColumn(const ado::Column& column, bool isLong);
  void PutValue(const ado::Column& column, bool isLong, const Value& value);
  void PutText(std::string_view text, bool isLong);
  template <typename Write>
  void Token(std::uint8_t token, const Write& write);
  void Change(std::uint8_t what, std::string_view now);

  std::string m_bytes;
  std::size_t m_rowsBegin = 0;
  std::size_t m_rowsEnd = 0;
};

/// The answer before the login: no encryption.
[[nodiscard]] std::string PreLoginAnswer();

}  // namespace quorvel::test::tds
