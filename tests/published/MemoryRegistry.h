#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "platform/InstallationHive.h"

namespace quorvel::test {

/// What a hive holds: its keys, and the texts by key and name.
struct HiveContent {
  std::set<std::string> keys;
  std::map<std::pair<std::string, std::string>, std::string> texts;
  bool operator==(const HiveContent&) const = default;
};

/// A hive in memory that can be told to fail. As the system's, it makes the keys above one that it makes.
class MemoryRegistry : public registry::InstallationHive {
 public:
  MemoryRegistry() = default;
  explicit MemoryRegistry(HiveContent held) : content(std::move(held)) {}

  HiveContent content;
  /// Which writing fails, counted from 0, and how; further ones succeed.
  int failingWrite = -1;
  registry::Outcome failure = registry::Outcome::Failed;
  /// Whether existing values may not be deleted.
  bool closed = false;

  [[nodiscard]] std::optional<std::string> Text(const std::string& key, const std::string& name) const override {
    const auto found = content.texts.find({key, name});
    return found != content.texts.end() ? std::optional(found->second) : std::nullopt;
  }

  [[nodiscard]] registry::Outcome Write(const std::string& key, const std::string& name,
                                        const std::string& text) override {
    // The key may be made and the value then refused.
    for (std::size_t end = 0; end != std::string::npos;) {
      end = key.find('\\', end + 1);
      content.keys.insert(key.substr(0, end));
    }
    if (failingWrite-- == 0) return failure;
    content.texts[{key, name}] = text;
    return registry::Outcome::Done;
  }

  [[nodiscard]] registry::Outcome DeleteValue(const std::string& key, const std::string& name) override {
    if (closed && content.keys.contains(key)) return registry::Outcome::Denied;
    content.texts.erase({key, name});
    return registry::Outcome::Done;
  }

  [[nodiscard]] registry::Outcome DeleteEmptyKey(const std::string& key) override {
    const auto below = content.keys.upper_bound(key + '\\');
    const bool hasKeys = below != content.keys.end() && below->starts_with(key + '\\');
    const auto text = content.texts.lower_bound({key, ""});
    if (!hasKeys && (text == content.texts.end() || text->first.first != key)) content.keys.erase(key);
    return registry::Outcome::Done;
  }
};

}  // namespace quorvel::test
