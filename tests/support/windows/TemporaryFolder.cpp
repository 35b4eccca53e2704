#include "tests/support/TemporaryFolder.h"

#include <cstdlib>
#include <random>
#include <string>

namespace quorvel::test {

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  do {
    m_path = std::filesystem::temp_directory_path() / ("quorvel-test-" + std::to_string(random()));
  } while (!std::filesystem::create_directory(m_path));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(m_path, ignored);
}

ScopedVariable::ScopedVariable(const char* name, const std::string& value) : m_name(name) {
  const char* before = std::getenv(name);
  m_wasSet = before != nullptr;
  if (m_wasSet) m_before = before;
  ::_putenv_s(name, value.c_str());
}

ScopedVariable::~ScopedVariable() { ::_putenv_s(m_name, m_wasSet ? m_before.c_str() : ""); }

}  // namespace quorvel::test
