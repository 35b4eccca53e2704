#include "ado/embedded/VariableReferences.h"

#include <fmt/format.h>

#include <algorithm>

#include "ado/engine/DriverError.h"
#include "platform/Text.h"

namespace quorvel::ado::embedded {

std::size_t VariableReferences::Find(const std::string& name, int line) const {
  const auto found = std::find_if(m_declared.begin(), m_declared.end(), [&](const Variable& variable) {
    return EqualIgnoringCase(variable.info.name, name);
  });
  if (found == m_declared.end()) {
    throw DriverError("42000", 137, fmt::format("Must declare the scalar variable \"{}\".", name), line);
  }
  return static_cast<std::size_t>(found - m_declared.begin());
}

std::size_t VariableReferences::Read(const std::string& name, int line) {
  const std::size_t number = Find(name, line);
  m_read.insert(number);
  return number;
}

}  // namespace quorvel::ado::embedded
