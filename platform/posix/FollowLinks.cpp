#include "platform/posix/FollowLinks.h"

#include <system_error>

namespace quorvel {

std::filesystem::path FollowLinks(const std::filesystem::path& path) {
  constexpr int kMostLinks = 40;  // the system's own limit
  std::error_code failure;
  std::filesystem::path file = std::filesystem::absolute(path, failure);
  for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(file, failure); ++i) {
    file = file.parent_path() / std::filesystem::read_symlink(file, failure);
  }
  const std::filesystem::path plain = std::filesystem::weakly_canonical(file, failure);
  return failure ? file : plain;
}

}  // namespace quorvel
