#pragma once

#include <sys/types.h>

#include <cstddef>
#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "tests/faults/SystemCalls.h"

namespace quorvel::test {

/// Records how this program changes the files of one folder, and makes what a loss of power would leave of them. A file
/// has what was written before its last sync, and a name counts from the next sync of the folder. Of the rest, chance
/// decides what has reached the disk, and in which part. One object at a time.
class RecordedDisk {
 public:
  explicit RecordedDisk(std::filesystem::path folder);
  ~RecordedDisk();
  RecordedDisk(const RecordedDisk&) = delete;
  RecordedDisk& operator=(const RecordedDisk&) = delete;

  /// How many changes were recorded.
  [[nodiscard]] std::size_t Count() const { return m_changes.size(); }
  /// Makes the files in an empty folder as they are when the power fails after so many changes.
  void LosePowerAfter(std::size_t count, std::minstd_rand& chance, const std::filesystem::path& into) const;

 private:
  struct Change {
    FileChange::Kind kind;
    ino_t file;
    std::string name;
    std::string data;
    std::size_t at;
  };
  /// Files by their numbers, and names of files.
  struct State {
    std::map<ino_t, std::string> contents;
    std::map<std::string, ino_t> names;
    /// Applies the change, or so many bytes of it.
    void Apply(const Change& change, std::size_t size = std::string::npos);
  };
  void Record(const FileChange& change);

  std::filesystem::path m_folder;
  State m_before;
  std::vector<Change> m_changes;
};

}  // namespace quorvel::test
