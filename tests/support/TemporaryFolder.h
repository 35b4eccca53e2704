#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel::test {

/// A new folder for one test, removed with its content at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] std::filesystem::path Path() const { return m_path; }
  [[nodiscard]] std::string File(std::string_view name) const { return (m_path / name).string(); }

 private:
  std::filesystem::path m_path;
};

/// Sets an environment variable for the life of the object.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const std::string& value);
  ~ScopedVariable();
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

 private:
  const char* m_name;
  std::optional<std::string> m_before;
};

}  // namespace quorvel::test
