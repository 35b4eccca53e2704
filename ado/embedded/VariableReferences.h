#pragma once

#include <set>
#include <string>
#include <vector>

#include "ado/embedded/Variable.h"

namespace quorvel::ado::embedded {

/// Finds the variables that a batch has declared and remembers which of them one statement reads.
class VariableReferences {
 public:
  explicit VariableReferences(const std::vector<Variable>& declared) : m_declared(declared) {}

  /// The variable's number. DriverError with that line when it is not declared.
  [[nodiscard]] std::size_t Find(const std::string& name, int line) const;
  /// The same for a variable that the statement reads.
  [[nodiscard]] std::size_t Read(const std::string& name, int line);
  [[nodiscard]] DataType TypeOf(std::size_t number) const { return m_declared[number].info.type; }
  [[nodiscard]] std::vector<std::size_t> NumbersRead() const { return {m_read.begin(), m_read.end()}; }

 private:
  const std::vector<Variable>& m_declared;
  std::set<std::size_t> m_read;
};

}  // namespace quorvel::ado::embedded
