#pragma once

#include <span>
#include <string>
#include <vector>

#include "runtime/published/PublishedClasses.h"

namespace quorvel::published {

/// The type library's own description.
inline constexpr std::string_view kLibraryDescription = "Quorvel remarks";

/// One text value of the registration.
struct RegistryEntry {
  std::string parent;   ///< a key that many programs write under; never deleted
  std::string key;      ///< the path from there; all its parts belong to the component
  std::string name;     ///< of the value; empty for the key's default value
  std::string text;     ///< UTF-8
  bool shared = false;  ///< both bitnesses write it to the same place

  [[nodiscard]] std::string Path() const { return parent + '\\' + key; }
};

/// A file of the component. The system separates the two bitnesses where they would conflict and lets them share the
/// other keys.
struct ServerFile {
  std::string path;  ///< full, UTF-8
  bool is64Bit = true;
};

/// The entries for the classes that hosts may create, for the interfaces and for the type library.
[[nodiscard]] std::vector<RegistryEntry> ClassEntries(std::span<const PublishedClass> classes, const ServerFile& file);

/// The entry that names the registered file of that bitness.
[[nodiscard]] RegistryEntry LibraryFileEntry(const ServerFile& file);

/// The entry that names the file with the message texts of the component's log entries. Event sources exist for the
/// machine only.
[[nodiscard]] RegistryEntry EventSourceEntry(const ServerFile& file);

}  // namespace quorvel::published
