#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "platform/InstallationHive.h"

namespace quorvel::test {

/// The content of a hive: its keys, and its texts by key and name.
struct HiveContent {
  std::set<std::string> keys;
  std::map<std::pair<std::string, std::string>, std::string> texts;
  bool operator==(const HiveContent&) const = default;
};

/// A hive in memory that can fail on request. Like the system's, it creates missing parent keys.
class MemoryRegistry : public registry::InstallationHive {
 public:
  MemoryRegistry() = default;
  explicit MemoryRegistry(HiveContent held) : content(std::move(held)) {}

  HiveContent content;
  /// The number of the Write that fails, counted from 0, and its result. Later ones succeed.
  int failingWrite = -1;
  registry::Outcome failure = registry::Outcome::Failed;
  /// Whether existing values may not be deleted.
  bool closed = false;
  /// Whether the caller is a 32-bit program, which has its own CLSID and Interface and shares the other keys.
  bool isFor32Bit = false;

  [[nodiscard]] std::optional<std::string> Text(const std::string& key, const std::string& name) const override {
    const auto found = content.texts.find({Seen(key), name});
    return found != content.texts.end() ? std::optional(found->second) : std::nullopt;
  }

  [[nodiscard]] registry::Outcome Write(const std::string& asked, const std::string& name,
                                        const std::string& text) override {
    const std::string key = Seen(asked);
    // A failing Write may still create the key.
    for (std::size_t end = 0; end != std::string::npos;) {
      end = key.find('\\', end + 1);
      content.keys.insert(key.substr(0, end));
    }
    if (failingWrite-- == 0) return failure;
    content.texts[{key, name}] = text;
    return registry::Outcome::Done;
  }

  [[nodiscard]] registry::Outcome DeleteValue(const std::string& asked, const std::string& name) override {
    const std::string key = Seen(asked);
    if (closed && content.keys.contains(key)) return registry::Outcome::Denied;
    content.texts.erase({key, name});
    return registry::Outcome::Done;
  }

  [[nodiscard]] registry::Outcome DeleteEmptyKey(const std::string& asked) override {
    const std::string key = Seen(asked);
    const auto below = content.keys.upper_bound(key + '\\');
    const bool hasKeys = below != content.keys.end() && below->starts_with(key + '\\');
    const auto text = content.texts.lower_bound({key, ""});
    if (!hasKeys && (text == content.texts.end() || text->first.first != key)) content.keys.erase(key);
    return registry::Outcome::Done;
  }

 private:
  [[nodiscard]] std::string Seen(std::string key) const {
    constexpr std::string_view kClasses = R"(Software\Classes\)";
    const bool isApart =
        key.starts_with(R"(Software\Classes\CLSID)") || key.starts_with(R"(Software\Classes\Interface)");
    return isFor32Bit && isApart ? key.insert(kClasses.size(), R"(WOW6432Node\)") : key;
  }
};

}  // namespace quorvel::test
