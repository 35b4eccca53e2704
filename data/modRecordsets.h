#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "ado/Recordset.h"

/// The seven recordsets that the administration shows, searches and reads again after each change: one set per thread,
/// detached from the connection. A recordset is null before its first load and after a failed one, which LoadRst has
/// shown to the user.
///
/// Everybody reads the same recordsets, so a caller that sets a filter clears it after reading. The filters insert an
/// identifier between quotes as it is; one with a single quote makes criteria that the recordset refuses
/// (adErrInvalidArgument). Setting or clearing a filter of a null recordset is error 91.
namespace quorvel::modRecordsets {

using SharedRecordset = std::shared_ptr<ado::Recordset>;

[[nodiscard]] const SharedRecordset& Users();
[[nodiscard]] const SharedRecordset& Groups();
[[nodiscard]] const SharedRecordset& Contexts();
[[nodiscard]] const SharedRecordset& Rights();
[[nodiscard]] const SharedRecordset& RemarkTypes();
[[nodiscard]] const SharedRecordset& RemarkEntities();
[[nodiscard]] const SharedRecordset& Branches();

/// Loads all seven, in the order above.
void InitGlobalRecordsets();

/// Loads the recordset again that is the same object as `rst`. Error -1 when it is none of the seven.
void InitGlobalRecordset(const SharedRecordset& rst);

void FilterUser(std::string_view userID);
void ClearUserFilter();
void FilterGroup(std::string_view groupID);
void ClearGroupFilter();
void FilterContext(std::string_view contextID);
void ClearContextFilter();
void FilterRight(std::string_view rightID);
void ClearRightFilter();
void FilterRemarkType(std::string_view remarkTypeID);
void ClearRemarkTypeFilter();
/// By key, unlike the others.
void FilterEntity(std::int16_t entityKey);
void ClearEntityFilter();

}  // namespace quorvel::modRecordsets
