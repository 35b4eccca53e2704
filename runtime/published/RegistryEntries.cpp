// Builds the list of registry values that describe the component to COM, to type library readers and to the event
// viewer. It writes nothing; see Registration.h.
#include "runtime/published/RegistryEntries.h"

#include <fmt/format.h>
#include <quorvel/quorvel.h>

#include "platform/com/Text.h"

namespace quorvel::published {
namespace {

constexpr std::string_view kClasses = R"(Software\Classes)";
constexpr std::string_view kEventSources = R"(SYSTEM\CurrentControlSet\Services\EventLog\Application)";
/// The system's marshaller that reads interfaces from their type library.
constexpr std::string_view kAutomationMarshaller = "{00020424-0000-0000-C000-000000000046}";

std::string LibraryVersion() { return fmt::format("{:x}.{:x}", kLibraryMajor, kLibraryMinor); }

std::string FolderOf(const std::string& path) { return path.substr(0, path.find_last_of('\\')); }

/// Adds entries under one key of Software\Classes.
class Entries {
 public:
  Entries(std::vector<RegistryEntry>& entries, std::string_view parent, std::string key, bool shared)
      : m_entries(entries),
        m_parent(parent.empty() ? std::string(kClasses) : fmt::format("{}\\{}", kClasses, parent)),
        m_key(std::move(key)),
        m_shared(shared) {}

  /// `below` is the path from the key; empty for the key itself.
  Entries& Add(std::string_view below, std::string_view name, std::string_view text) {
    std::string key = below.empty() ? m_key : fmt::format("{}\\{}", m_key, below);
    m_entries.push_back({m_parent, std::move(key), std::string(name), std::string(text), m_shared});
    return *this;
  }

 private:
  std::vector<RegistryEntry>& m_entries;
  std::string m_parent;
  std::string m_key;
  bool m_shared;
};

void AddCreatableClass(std::vector<RegistryEntry>& entries, const PublishedClass& published, const ServerFile& file) {
  const std::string classId = com::TextOf(published.classId);
  const std::string progId = com::FromWide(kLibraryName) + '.' + com::FromWide(published.name);
  Entries(entries, "CLSID", classId, false)
      .Add("", "", progId)
      .Add("InprocServer32", "", file.path)
      .Add("InprocServer32", "ThreadingModel", "Apartment")
      .Add("ProgID", "", progId)
      .Add("Programmable", "", "")
      .Add("TypeLib", "", com::TextOf(LIBID_Quorvel))
      .Add("Version", "", LibraryVersion());
  Entries(entries, "", progId, true).Add("", "", progId).Add("CLSID", "", classId);
}

void AddInterface(std::vector<RegistryEntry>& entries, const PublishedClass& published) {
  Entries(entries, "Interface", com::TextOf(published.interfaceId), false)
      .Add("", "", com::FromWide(published.interfaceName))
      .Add("ProxyStubClsid32", "", kAutomationMarshaller)
      .Add("TypeLib", "", com::TextOf(LIBID_Quorvel))
      .Add("TypeLib", "Version", LibraryVersion());
}

/// Some marshallers look for the library under the neutral language only.
constexpr LCID kNeutralLocale = 0;

RegistryEntry LibraryFileIn(LCID locale, const ServerFile& file) {
  std::vector<RegistryEntry> entries;
  const std::string below = fmt::format("{}\\{:x}\\{}", LibraryVersion(), locale, file.is64Bit ? "win64" : "win32");
  Entries(entries, "TypeLib", com::TextOf(LIBID_Quorvel), false).Add(below, "", file.path);
  return entries.front();
}

}  // namespace

std::vector<RegistryEntry> ClassEntries(std::span<const PublishedClass> classes, const ServerFile& file) {
  std::vector<RegistryEntry> entries;
  Entries(entries, "TypeLib", com::TextOf(LIBID_Quorvel), true)
      .Add(LibraryVersion(), "", kLibraryDescription)
      .Add(LibraryVersion() + "\\FLAGS", "", "0")
      .Add(LibraryVersion() + "\\HELPDIR", "", FolderOf(file.path));
  entries.push_back(LibraryFileEntry(file));
  entries.push_back(LibraryFileIn(kNeutralLocale, file));
  for (const PublishedClass& published : classes) {
    AddInterface(entries, published);
    if (published.create != nullptr) AddCreatableClass(entries, published, file);
  }
  return entries;
}

RegistryEntry LibraryFileEntry(const ServerFile& file) { return LibraryFileIn(kLibraryLocale, file); }

RegistryEntry EventSourceEntry(const ServerFile& file) {
  return {std::string(kEventSources), com::FromWide(kLibraryName), "EventMessageFile", file.path, true};
}

}  // namespace quorvel::published
