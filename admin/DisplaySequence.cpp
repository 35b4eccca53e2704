// Links are removed last: a failure on the way leaves a type too much in the context, which the administrator sees and
// can remove again, and not a gap.

#include "admin/DisplaySequence.h"

#include <fmt/format.h>

#include "admin/ChildLists.h"
#include "admin/LinkFlags.h"
#include "admin/Query.h"
#include "data/modDatabase.h"
#include "platform/Value.h"

namespace quorvel {
namespace {

// The keys stand in the braces.
constexpr std::string_view kPositionsInContext =
    "SELECT  DisplaySeq "
    "FROM ttwRemarkContext "
    "WHERE ContextKey = {}"
    "ORDER BY DisplaySeq";
constexpr std::string_view kPosition =
    "SELECT DisplaySeq "
    "FROM ttwRemarkContext "
    "WHERE ContextKey = {}"
    "and RemarkTypeKey = {}";
constexpr std::string_view kLaterLinks =
    "SELECT RemarkTypeKey, DisplaySeq "
    "FROM ttwRemarkContext "
    "WHERE ContextKey = {}"
    "and DisplaySeq > {}";
constexpr std::string_view kListedLink =
    "SELECT RemarkTypeKey, Priority, DisplaySeq "
    "FROM ttwRemarkContext "
    "WHERE RemarkTypeKey = {}"
    "  AND ContextKey = {}";

std::int32_t Number(const ado::Recordset& row, std::string_view column) { return ToInt32(row.Fields(column).Value()); }

void Call(std::string_view procedure, const ContextLink& link) {
  modDatabase::ExecSP(procedure, {{"@RemarkTypeKey", std::int64_t{link.remarkTypeKey}},
                                  {"@ContextKey", std::int64_t{link.contextKey}}});
}

void WritePositionOf(const ContextLink& link, std::int32_t position) {
  WriteLink({"ttwRemarkContext", "ContextKey", link.contextKey, "RemarkTypeKey", link.remarkTypeKey}, "DisplaySeq",
            position);
}

}  // namespace

void AppendLink(const ContextLink& link) {
  const auto positions = Query(fmt::format(kPositionsInContext, link.contextKey));
  Call("spTWCqvAddRemarkContext", link);
  if (!positions->EndOfFile()) positions->MoveLast();
  WritePositionOf(link, positions->EndOfFile() ? 0 : Number(*positions, "DisplaySeq") + 1);
}

void RemoveLink(const ContextLink& link) {
  const std::int32_t position =
      Number(*QueryLink(fmt::format(kPosition, link.contextKey, link.remarkTypeKey)), "DisplaySeq");
  const auto later = Query(fmt::format(kLaterLinks, link.contextKey, position));
  for (; !later->EndOfFile(); later->MoveNext()) {
    WritePositionOf({link.contextKey, Number(*later, "RemarkTypeKey")}, Number(*later, "DisplaySeq") - 1);
  }
  Call("spTWCqvRemoveRemarkContext", link);
}

std::shared_ptr<ado::Recordset> ListedTypes::Link(std::int32_t remarkTypeKey) const {
  return QueryLink(fmt::format(kListedLink, remarkTypeKey, m_contextKey));
}

void ListedTypes::Append(std::int32_t remarkTypeKey) const {
  Call("spTWCqvAddRemarkContext", {m_contextKey, remarkTypeKey});
  WritePosition(remarkTypeKey, m_list.Count() > 0 ? Position(m_list.Count() - 1) + 1 : 0);
}

void ListedTypes::RemoveCurrent() const {
  const std::int32_t removed = SelectedKey(m_list);
  std::int32_t position = Position(m_list.ListIndex());
  for (std::int32_t index = m_list.ListIndex() + 1; index < m_list.Count(); ++index, ++position) {
    WritePosition(m_list.Datum(index), position);
  }
  Call("spTWCqvRemoveRemarkContext", {m_contextKey, removed});
}

void ListedTypes::Exchange(std::int32_t index, std::int32_t otherIndex) const {
  const std::int32_t position = Position(index);
  const std::int32_t otherPosition = Position(otherIndex);
  WritePosition(m_list.Datum(index), otherPosition);
  WritePosition(m_list.Datum(otherIndex), position);
}

std::int32_t ListedTypes::Position(std::int32_t index) const {
  return Number(*Link(m_list.Datum(index)), "DisplaySeq");
}

void ListedTypes::WritePosition(std::int32_t remarkTypeKey, std::int32_t position) const {
  WriteLink({"ttwRemarkContext", "RemarkTypeKey", remarkTypeKey, "ContextKey", m_contextKey}, "DisplaySeq", position);
}

}  // namespace quorvel
