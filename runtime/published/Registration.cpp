// Writes the entries of RegistryEntries.h to a hive as a transaction, and removes them without harming the registration
// of the other bitness.
#include "runtime/published/Registration.h"

#include <algorithm>
#include <optional>

namespace quorvel::published {
namespace {

using registry::InstallationHive;
using registry::Outcome;
using Entries = std::vector<RegistryEntry>;

/// Only the machine's hive may hold an event source.
enum class Scope { Machine, User };

Outcome FirstFailure(Outcome first, Outcome second) { return first != Outcome::Done ? first : second; }

/// Deletes the entry's key and the component's own keys above it if they are empty.
Outcome DeleteEmptyKeys(InstallationHive& hive, const RegistryEntry& entry) {
  Outcome outcome = Outcome::Done;
  for (std::string key = entry.key; !key.empty();) {
    outcome = FirstFailure(outcome, hive.DeleteEmptyKey(entry.parent + '\\' + key));
    const std::size_t end = key.find_last_of('\\');
    key.resize(end == std::string::npos ? 0 : end);
  }
  return outcome;
}

Outcome DeleteEntry(InstallationHive& hive, const RegistryEntry& entry) {
  const Outcome outcome = hive.DeleteValue(entry.Path(), entry.name);
  return FirstFailure(outcome, DeleteEmptyKeys(hive, entry));
}

/// Restores the values that the first entries had before, as far as the hive permits; `before` has one for each.
void TakeBack(InstallationHive& hive, const Entries& entries, const std::vector<std::optional<std::string>>& before) {
  for (std::size_t i = before.size(); i-- > 0;) {
    if (before[i]) {
      static_cast<void>(hive.Write(entries[i].Path(), entries[i].name, *before[i]));
    } else {
      static_cast<void>(DeleteEntry(hive, entries[i]));
    }
  }
}

/// Writes all entries or, after a failure, none.
Outcome Write(InstallationHive& hive, const Entries& entries) {
  std::vector<std::optional<std::string>> before;
  for (const RegistryEntry& entry : entries) {
    // Recorded before writing, because a failing Write may still have created the key.
    before.push_back(hive.Text(entry.Path(), entry.name));
    const Outcome outcome = hive.Write(entry.Path(), entry.name, entry.text);
    if (outcome == Outcome::Done) continue;
    TakeBack(hive, entries, before);
    return outcome;
  }
  return Outcome::Done;
}

Entries AllEntries(const ServerFile& file, Scope scope) {
  Entries entries = ClassEntries(PublishedClasses(), file);
  if (scope == Scope::Machine) entries.push_back(EventSourceEntry(file));
  return entries;
}

std::optional<ServerFile> OtherFile(const InstallationHive& hive, const ServerFile& file) {
  const RegistryEntry entry = LibraryFileEntry({{}, !file.is64Bit});
  const auto path = hive.Text(entry.Path(), entry.name);
  return path ? std::optional(ServerFile{*path, !file.is64Bit}) : std::nullopt;
}

/// Writes the shared entries as `other` would have written them; they may name the file that is being removed.
void LeaveTo(const ServerFile& other, InstallationHive& hive, Scope scope) {
  for (const RegistryEntry& entry : AllEntries(other, scope)) {
    if (entry.shared) static_cast<void>(hive.Write(entry.Path(), entry.name, entry.text));
  }
}

Outcome Remove(InstallationHive& hive, const ServerFile& file, Scope scope) {
  const std::optional<ServerFile> other = OtherFile(hive, file);
  Outcome outcome = Outcome::Done;
  for (const RegistryEntry& entry : AllEntries(file, scope)) {
    if (!entry.shared || !other) outcome = FirstFailure(outcome, DeleteEntry(hive, entry));
  }
  if (other) LeaveTo(*other, hive, scope);
  return outcome;
}

}  // namespace

Outcome Register(InstallationHive& machine, InstallationHive& user, const ServerFile& file) {
  const Entries entries = ClassEntries(PublishedClasses(), file);
  const Outcome outcome = Write(machine, entries);
  if (outcome == Outcome::Denied) return Write(user, entries);
  if (outcome != Outcome::Done) return outcome;
  static_cast<void>(Remove(user, file, Scope::User));
  // A failure is not a reason to refuse the component: only the event viewer's display suffers.
  static_cast<void>(Write(machine, {EventSourceEntry(file)}));
  return Outcome::Done;
}

Outcome Unregister(InstallationHive& machine, InstallationHive& user, const ServerFile& file) {
  const Outcome outcome = Remove(machine, file, Scope::Machine);
  return FirstFailure(outcome, Remove(user, file, Scope::User));
}

}  // namespace quorvel::published
