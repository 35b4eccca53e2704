#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>
#include <vector>

namespace quorvel::ado {

/// One diagnostic record as a driver gives it.
struct Diagnostic {
  std::string sqlState;  ///< five characters
  std::int32_t nativeError = 0;
  std::string message;  ///< UTF-8, without the driver's bracketed prefixes
  int line = 0;         ///< 1-based line of the batch that the record is about; 0 when not known
};

/// An engine's failure: every record that the driver gave, at least one, the leading error first.
class DriverError : public std::exception {
 public:
  explicit DriverError(std::vector<Diagnostic> records) : m_records(std::move(records)) {}
  DriverError(std::string sqlState, std::int32_t nativeError, std::string message, int line = 0)
      : m_records{{std::move(sqlState), nativeError, std::move(message), line}} {}
  [[nodiscard]] const std::vector<Diagnostic>& Records() const noexcept { return m_records; }
  [[nodiscard]] const char* what() const noexcept override { return m_records.front().message.c_str(); }

 private:
  std::vector<Diagnostic> m_records;
};

}  // namespace quorvel::ado
