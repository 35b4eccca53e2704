#include "tests/faults/RecordedDisk.h"

#include <sys/stat.h>

#include <fstream>
#include <utility>

#include "platform/FileUpdate.h"

namespace quorvel::test {
namespace {

using Kind = FileChange::Kind;

RecordedDisk* current = nullptr;

/// 0 for a file that does not exist.
ino_t NumberOf(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

}  // namespace

RecordedDisk::RecordedDisk(std::filesystem::path folder) : m_folder(std::move(folder)) {
  for (const auto& each : std::filesystem::directory_iterator(m_folder)) {
    const ino_t file = m_before.names[each.path().filename()] = NumberOf(each.path().string());
    m_before.contents[file] = ReadWholeFile(each.path()).value_or("");
  }
  current = this;
  ObserveFileChanges([](const FileChange& change) { current->Record(change); });
}

RecordedDisk::~RecordedDisk() { ObserveFileChanges(nullptr); }

void RecordedDisk::Record(const FileChange& change) {
  const std::filesystem::path path(change.path);
  const bool isName = !path.empty();
  if (isName && path.parent_path() != m_folder) return;
  const ino_t file = NumberOf(isName ? change.path : "/proc/self/fd/" + std::to_string(change.file));
  m_changes.push_back({isName ? Kind::Name : change.kind, file, path.filename(), std::string(change.data),
                       static_cast<std::size_t>(change.at)});
}

void RecordedDisk::State::Apply(const Change& change, std::size_t size) {
  if (change.kind == Kind::Name) {
    names[change.name] = change.file;
    return;
  }
  std::string& content = contents[change.file];
  const std::string data = change.data.substr(0, size);
  const std::size_t end = change.at + data.size();
  if (content.size() < end || change.kind == Kind::Truncate) content.resize(end);
  content.replace(change.at, data.size(), data);
}

void RecordedDisk::LosePowerAfter(std::size_t count, std::minstd_rand& chance,
                                  const std::filesystem::path& into) const {
  constexpr std::size_t kSector = 512;
  const ino_t folder = NumberOf(m_folder.string());
  State disk = m_before;
  std::vector<const Change*> open;
  for (std::size_t i = 0; i < count; ++i) {
    const Change& change = m_changes[i];
    open.push_back(&change);
    if (change.kind != Kind::Sync) continue;
    std::erase_if(open, [&](const Change* each) {
      const bool isSynced = (each->kind == Kind::Name ? folder : each->file) == change.file;
      if (isSynced && each->kind != Kind::Sync) disk.Apply(*each);
      return isSynced;
    });
  }
  // From nothing to everything, in any order; names are kept in theirs, as file systems do.
  const std::size_t share = chance() % 5;
  bool losesNames = false;
  for (const Change* each : open) {
    const bool isLost = chance() % 4 >= share;
    if (each->kind == Kind::Name) losesNames = losesNames || isLost;
    if (each->kind == Kind::Name ? losesNames : isLost) continue;
    disk.Apply(*each, chance() % 4 == 0 ? chance() % 16 * kSector : std::string::npos);
  }
  for (const auto& [name, file] : disk.names) {
    if (file != 0 && !name.ends_with("-shm")) std::ofstream(into / name, std::ios::binary) << disk.contents[file];
  }
}

}  // namespace quorvel::test
