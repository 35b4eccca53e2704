#include "admin/Query.h"

#include "data/modDatabase.h"
#include "platform/Error.h"

namespace quorvel {

std::shared_ptr<ado::Recordset> Query(std::string_view sql) {
  auto rows = modDatabase::LoadRst(sql);
  if (!rows) ThrowObjectNotSet();
  return rows;
}

std::shared_ptr<ado::Recordset> QueryDetached(std::string_view sql) {
  auto rows = modDatabase::LoadDisconnectedRst(sql);
  if (!rows) ThrowObjectNotSet();
  return rows;
}

}  // namespace quorvel
