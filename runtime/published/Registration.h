#pragma once

#include <span>
#include <string>
#include <vector>

#include "runtime/published/Classes.h"

namespace quorvel::published {

/// What the type library says of itself.
inline constexpr std::string_view kLibraryDescription = "Quorvel remarks";

/// One text of the registration in a hive of the registry.
struct RegistryEntry {
  std::string parent;   ///< the key under which many programs write; never deleted
  std::string key;      ///< below it; all its parts are the component's own
  std::string name;     ///< of the value; empty for the key's own
  std::string text;     ///< UTF-8
  bool shared = false;  ///< both bitnesses write it in the same place

  [[nodiscard]] std::string Path() const { return parent + '\\' + key; }
};

/// A file of the component. The system keeps the two bitnesses apart by itself where they would be in each other's
/// way, and lets them share the rest.
struct ServerFile {
  std::string path;  ///< full, UTF-8
  bool is64Bit = true;
};

/// What tells the system of the classes that hosts may create, of the interfaces and of the type library.
[[nodiscard]] std::vector<RegistryEntry> ClassEntries(std::span<const PublishedClass> classes, const ServerFile& file);

/// The one entry of a registration that tells whether a file of that bitness is registered, and which.
[[nodiscard]] RegistryEntry LibraryFileEntry(const ServerFile& file);

/// What tells the event viewer where the texts of the component's log entries are. The system knows event sources of
/// the machine only.
[[nodiscard]] RegistryEntry EventSourceEntry(const ServerFile& file);

}  // namespace quorvel::published
