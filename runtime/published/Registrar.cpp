#include "runtime/published/Registrar.h"

#include <algorithm>
#include <optional>

namespace quorvel::published {
namespace {

using registry::InstallationHive;
using registry::Outcome;
using Entries = std::vector<RegistryEntry>;

/// The hives differ in what they may hold.
enum class Scope { Machine, User };

Outcome FirstFailure(Outcome first, Outcome second) { return first != Outcome::Done ? first : second; }

/// Deletes the entry's key and the component's own keys above it, as far as they are empty.
Outcome DeleteEmptyKeys(InstallationHive& tree, const RegistryEntry& entry) {
  Outcome outcome = Outcome::Done;
  for (std::string key = entry.key; !key.empty();) {
    outcome = FirstFailure(outcome, tree.DeleteEmptyKey(entry.parent + '\\' + key));
    const std::size_t end = key.find_last_of('\\');
    key.resize(end == std::string::npos ? 0 : end);
  }
  return outcome;
}

Outcome DeleteEntry(InstallationHive& tree, const RegistryEntry& entry) {
  const Outcome outcome = tree.DeleteValue(entry.Path(), entry.name);
  return FirstFailure(outcome, DeleteEmptyKeys(tree, entry));
}

/// Puts back what stood there before the first `count` entries were written, as far as the hive lets it.
void TakeBack(InstallationHive& tree, const Entries& entries, const std::vector<std::optional<std::string>>& before) {
  for (std::size_t i = before.size(); i-- > 0;) {
    if (before[i]) {
      static_cast<void>(tree.Write(entries[i].Path(), entries[i].name, *before[i]));
    } else {
      static_cast<void>(DeleteEntry(tree, entries[i]));
    }
  }
}

/// All or nothing.
Outcome Write(InstallationHive& tree, const Entries& entries) {
  std::vector<std::optional<std::string>> before;
  for (const RegistryEntry& entry : entries) {
    // Noted first: a key may be made whose value is then refused.
    before.push_back(tree.Text(entry.Path(), entry.name));
    const Outcome outcome = tree.Write(entry.Path(), entry.name, entry.text);
    if (outcome == Outcome::Done) continue;
    TakeBack(tree, entries, before);
    return outcome;
  }
  return Outcome::Done;
}

Entries AllEntries(const ServerFile& file, Scope scope) {
  Entries entries = ClassEntries(Classes(), file);
  if (scope == Scope::Machine) entries.push_back(EventSourceEntry(file));
  return entries;
}

std::optional<ServerFile> OtherFile(const InstallationHive& tree, const ServerFile& file) {
  const RegistryEntry entry = LibraryFileEntry({{}, !file.is64Bit});
  const auto path = tree.Text(entry.Path(), entry.name);
  return path ? std::optional(ServerFile{*path, !file.is64Bit}) : std::nullopt;
}

/// Lets the shared entries say what the other file would have written: they may name the file that goes.
void LeaveTo(const ServerFile& other, InstallationHive& tree, Scope scope) {
  for (const RegistryEntry& entry : AllEntries(other, scope)) {
    if (entry.shared) static_cast<void>(tree.Write(entry.Path(), entry.name, entry.text));
  }
}

Outcome Remove(InstallationHive& tree, const ServerFile& file, Scope scope) {
  const std::optional<ServerFile> other = OtherFile(tree, file);
  Outcome outcome = Outcome::Done;
  for (const RegistryEntry& entry : AllEntries(file, scope)) {
    if (!entry.shared || !other) outcome = FirstFailure(outcome, DeleteEntry(tree, entry));
  }
  if (other) LeaveTo(*other, tree, scope);
  return outcome;
}

}  // namespace

Outcome Register(InstallationHive& machine, InstallationHive& user, const ServerFile& file) {
  const Entries entries = ClassEntries(Classes(), file);
  const Outcome outcome = Write(machine, entries);
  if (outcome == Outcome::Denied) return Write(user, entries);
  if (outcome != Outcome::Done) return outcome;
  static_cast<void>(Remove(user, file, Scope::User));
  // Without it the event viewer shows the texts in a clumsier way; that is no reason to refuse the component.
  static_cast<void>(Write(machine, {EventSourceEntry(file)}));
  return Outcome::Done;
}

Outcome Unregister(InstallationHive& machine, InstallationHive& user, const ServerFile& file) {
  const Outcome outcome = Remove(machine, file, Scope::Machine);
  return FirstFailure(outcome, Remove(user, file, Scope::User));
}

}  // namespace quorvel::published
