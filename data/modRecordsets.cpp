#include "data/modRecordsets.h"

#include <fmt/format.h>

#include <array>
#include <cstddef>
#include <string>

#include "data/modDatabase.h"
#include "platform/Error.h"
#include "platform/PerThread.h"

namespace quorvel::modRecordsets {
namespace {

enum Kind : std::size_t { kUsers, kGroups, kContexts, kRights, kRemarkTypes, kRemarkEntities, kBranches, kKinds };

constexpr std::array<std::string_view, kKinds> kStatements = {
    "SELECT UserKey, UserID, LastName, FirstName, BranchID, IsActive "
    "FROM ttwUser "
    "ORDER BY UserID",
    "SELECT GroupKey, GroupID, Caption, Comments "
    "FROM ttwGroup "
    "ORDER BY GroupID",
    "SELECT ContextKey, ContextID, Caption, RemarkEntityKey, Comments, GroupByType, RowHeight, AllowRowSizing, "
    "EditBehavior "
    "FROM ttwContext "
    "ORDER BY ContextID",
    "SELECT RightKey, RightID, Caption, Comments "
    "FROM ttwRight "
    "ORDER BY RightID",
    "SELECT RemarkTypeKey, RemarkTypeID, Caption, RemarkEntityKey, Comments "
    "FROM ttwRemarkType "
    "ORDER BY RemarkTypeID",
    "Select RemarkEntityKey, RemarkEntityID, Caption, spGetOwnerName, AcuityEntityKey, Comments "
    "FROM ttwRemarkEntity "
    "ORDER BY RemarkEntityID",
    "SELECT BranchID, BranchName, WhseKey, ShipMethKey, SalesTerritoryKey, SalesAcctKey "
    "From ttwBranch "
    "ORDER BY BranchID"};

struct State {
  std::array<SharedRecordset, kKinds> recordsets;
};

SharedRecordset& Of(Kind kind) { return PerThread<State>().recordsets.at(kind); }

void Load(std::size_t kind) {
  SharedRecordset& recordset = PerThread<State>().recordsets.at(kind);
  recordset = nullptr;  // stays so when the load fails
  recordset = modDatabase::LoadDisconnectedRst(kStatements.at(kind));
}

void SetFilter(Kind kind, std::string_view criteria) {
  if (!Of(kind)) ThrowObjectNotSet();
  Of(kind)->SetFilter(criteria);
}

void FilterID(Kind kind, std::string_view column, std::string_view id) {
  SetFilter(kind, fmt::format("{}='{}'", column, id));
}

}  // namespace

const SharedRecordset& Users() { return Of(kUsers); }
const SharedRecordset& Groups() { return Of(kGroups); }
const SharedRecordset& Contexts() { return Of(kContexts); }
const SharedRecordset& Rights() { return Of(kRights); }
const SharedRecordset& RemarkTypes() { return Of(kRemarkTypes); }
const SharedRecordset& RemarkEntities() { return Of(kRemarkEntities); }
const SharedRecordset& Branches() { return Of(kBranches); }

void InitGlobalRecordsets() {
  for (std::size_t kind = 0; kind < kKinds; ++kind) Load(kind);
}

void InitGlobalRecordset(const SharedRecordset& rst) {
  for (std::size_t kind = 0; kind < kKinds; ++kind) {
    if (PerThread<State>().recordsets.at(kind) == rst) return Load(kind);
  }
  throw Error(ErrorNumber::Component, "modRecordsets.InitGlobalRecordset", "Unknown recordset passed");
}

void FilterUser(std::string_view userID) { FilterID(kUsers, "UserID", userID); }
void ClearUserFilter() { SetFilter(kUsers, {}); }
void FilterGroup(std::string_view groupID) { FilterID(kGroups, "GroupID", groupID); }
void ClearGroupFilter() { SetFilter(kGroups, {}); }
void FilterContext(std::string_view contextID) { FilterID(kContexts, "ContextID", contextID); }
void ClearContextFilter() { SetFilter(kContexts, {}); }
void FilterRight(std::string_view rightID) { FilterID(kRights, "RightID", rightID); }
void ClearRightFilter() { SetFilter(kRights, {}); }
void FilterRemarkType(std::string_view remarkTypeID) { FilterID(kRemarkTypes, "RemarkTypeID", remarkTypeID); }
void ClearRemarkTypeFilter() { SetFilter(kRemarkTypes, {}); }
void FilterEntity(std::int16_t entityKey) {
  SetFilter(kRemarkEntities, fmt::format("RemarkEntityKey='{}'", entityKey));
}
void ClearEntityFilter() { SetFilter(kRemarkEntities, {}); }

}  // namespace quorvel::modRecordsets
