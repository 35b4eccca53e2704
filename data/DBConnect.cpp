#include "data/DBConnect.h"

#include <fmt/format.h>

#include "data/modRegistry.h"

namespace quorvel {
namespace {

std::string Setting(std::string_view name) {
  return modRegistry::GetRegStringValue(registry::Hive::LocalMachine, modRegistry::kSettingsKey, name, "");
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
  m_server = Setting(modRegistry::kServer);
  m_database = Setting(modRegistry::kDatabase);
  m_userId = Setting(modRegistry::kUserId);
  m_password = Setting(modRegistry::kPassword);
  m_loaded = true;
}

}  // namespace quorvel
