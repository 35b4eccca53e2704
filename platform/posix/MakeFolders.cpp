#include "platform/posix/MakeFolders.h"

#include <sys/stat.h>

#include <cerrno>

namespace quorvel {

std::error_code MakeFolders(const std::filesystem::path& folder, mode_t mode) {
  std::error_code failure;
  if (folder.empty() || std::filesystem::is_directory(folder, failure)) return {};
  if (folder != folder.parent_path()) failure = MakeFolders(folder.parent_path(), mode);
  if (failure || ::mkdir(folder.c_str(), mode) == 0 || errno == EEXIST) return failure;
  return {errno, std::generic_category()};
}

}  // namespace quorvel
