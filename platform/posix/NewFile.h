#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/UniqueHandle.h"

namespace quorvel {

struct DescriptorTraits {
  using Type = int;
  static constexpr int Invalid() { return -1; }
  static void Close(int descriptor);
};
using Descriptor = UniqueHandle<DescriptorTraits>;

/// A file that is written completely before it gets its name. Until then it has no name, so that a process that is
/// killed leaves no copy of it; on a file system without such files it has a temporary one. The caller keeps other
/// writers of the target out. Every function is false after a failure, and errno then says why.
class NewFile {
 public:
  /// The file will stand at `target`. Its mode is 0640, or less with a stricter umask.
  explicit NewFile(std::filesystem::path target);
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile();

  /// Whether there is a file that a killed writer of `target` has left, or that another one is writing.
  [[nodiscard]] static bool HasLeftover(const std::filesystem::path& target);

  /// Removes what a killed writer of `target` has left.
  static void RemoveLeftover(const std::filesystem::path& target);

  /// Takes over the owner, the group and a narrower mode of the file that will be replaced.
  [[nodiscard]] bool TakeAccess(const struct stat& replaced);

  /// Writes the content to the disk.
  [[nodiscard]] bool Fill(std::string_view content);

  /// Names the file; EEXIST when the target exists.
  [[nodiscard]] bool Create();

  /// Names the file in place of the target.
  [[nodiscard]] bool Replace();

 private:
  [[nodiscard]] bool Link(const std::filesystem::path& name) const;

  std::filesystem::path m_target;
  std::filesystem::path m_temporary;
  bool m_isNamed = false;  ///< the file stands under the temporary name
  Descriptor m_file;
};

}  // namespace quorvel
