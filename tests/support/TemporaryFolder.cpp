#include "tests/support/TemporaryFolder.h"

#include <cstdlib>
#include <stdexcept>

namespace quorvel::test {

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "quorvel-test-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("cannot make a temporary folder");
  m_path = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(m_path, ignored);
}

ScopedVariable::ScopedVariable(const char* name, const std::string& value) : m_name(name) {
  if (const char* before = std::getenv(name)) m_before = before;
  ::setenv(name, value.c_str(), 1);
}

ScopedVariable::~ScopedVariable() {
  ::unsetenv(m_name);
  if (m_before) ::setenv(m_name, m_before->c_str(), 1);
}

}  // namespace quorvel::test
