#include "data/DBConnect.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "data/modRegistry.h"
#include "platform/Environment.h"

namespace quorvel {
namespace {

std::string Setting(std::string_view name) {
  return modRegistry::GetRegStringValue(registry::Hive::LocalMachine, modRegistry::kSettingsKey, name, "");
}

/// A wrong line can hide a value.
void LogProblems() {
  for (const auto& problem : registry::Key::Problems(registry::Hive::LocalMachine, modRegistry::kSettingsKey)) {
    LogWarning(fmt::format("Settings in {}: {}", registry::StoreLocation(), problem));
  }
}

}  // namespace

std::string DBConnect::ConnectionString() {
  Load();
  return fmt::format("Provider=SQLOLEDB.1;Data Source={}; Initial Catalog={}; User ID={}; Password={}", m_server,
                     m_database, m_userId, m_password);
}

const std::string& DBConnect::Server() {
  Load();
  return m_server;
}

const std::string& DBConnect::Database() {
  Load();
  return m_database;
}

void DBConnect::Reload() {
  m_loaded = false;
  Load();
}

void DBConnect::Load() {
  if (m_loaded) return;
  try {
    ReadTogether();
  } catch (...) {
    LogProblems();
    throw;
  }
  LogProblems();
  m_loaded = true;
}

// GetRegStringValue reads each value by itself, and another process may set all of them between two of them. What the
// store holds at one moment replaces such a mixture. It comes first, because the values are seldom missing, and reading
// each of them by itself takes as long as a query.
void DBConnect::ReadTogether() {
  constexpr int kMostReads = 10;
  for (int i = 0; i < kMostReads; ++i) {
    if (TakeTogether()) return;
    ReadValues();
  }
}

bool DBConnect::TakeTogether() {
  constexpr std::array kNames = {modRegistry::kServer, modRegistry::kDatabase, modRegistry::kUserId,
                                 modRegistry::kPassword};
  const std::array<std::string*, kNames.size()> values = {&m_server, &m_database, &m_userId, &m_password};
  const auto key = registry::Key::Create(registry::Hive::LocalMachine, modRegistry::kSettingsKey);
  const auto stored = key ? key->QueryTogether(kNames) : std::vector<std::optional<registry::StoredValue>>(1);
  const auto isText = [](const auto& value) { return value && value->type == registry::ValueType::String; };
  if (!std::ranges::all_of(stored, isText)) return false;
  for (std::size_t i = 0; i < values.size(); ++i) *values.at(i) = stored[i]->text;
  return true;
}

void DBConnect::ReadValues() {
  m_server = Setting(modRegistry::kServer);
  m_database = Setting(modRegistry::kDatabase);
  m_userId = Setting(modRegistry::kUserId);
  m_password = Setting(modRegistry::kPassword);
}

}  // namespace quorvel
