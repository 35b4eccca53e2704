#include "data/DBConnect.h"

#include <fmt/format.h>

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
    ReadValues();
  } catch (...) {
    LogProblems();
    throw;
  }
  LogProblems();
  m_loaded = true;
}

void DBConnect::ReadValues() {
  m_server = Setting(modRegistry::kServer);
  m_database = Setting(modRegistry::kDatabase);
  m_userId = Setting(modRegistry::kUserId);
  m_password = Setting(modRegistry::kPassword);
}

}  // namespace quorvel
