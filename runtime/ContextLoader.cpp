// Runs the five read procedures with declared parameters and copies their rows into the runtime's objects.

#include "runtime/ContextLoader.h"

#include <algorithm>
#include <array>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include "data/modDatabase.h"
#include "platform/Environment.h"
#include "platform/Error.h"
#include "platform/SharedText.h"
#include "platform/Text.h"
#include "runtime/MemoDigest.h"

namespace quorvel::contextLoader {
namespace {

using modDatabase::ExecDeclaredSP;

constexpr std::int32_t kIdSize = 30;

ado::Parameter Id(const char* name, const std::string& id) {
  return ado::Command::CreateParameter(name, ado::DataType::VarChar, ado::ParameterDirection::Input, kIdSize,
                                       std::string(TrimBlanks(id)));
}

ado::Parameter Integer(const char* name, ado::DataType type, std::int32_t number) {
  return ado::Command::CreateParameter(name, type, ado::ParameterDirection::Input, 0, std::int64_t{number});
}

/// A host's identifier columns may be of fixed width.
std::string_view Trimmed(std::string_view id) {
  const bool hasBlanks = id.starts_with(' ') || id.ends_with(' ');
  return hasBlanks ? TrimBlanks(id) : id;
}

/// Error 94 for NULL.
std::string TextOf(const ado::Field& field) {
  const auto text = field.Text();
  return text ? std::string(*text) : ToText(field.Value());
}

/// Null when there is no such type, which is no error.
std::shared_ptr<RemarkType> FindType(const RemarkTypes& types, const ado::Field& typeID) {
  const auto text = typeID.Text();
  return text ? types.Find(Trimmed(*text)) : types.Item(typeID.Value());
}

[[noreturn]] void Fail(const char* source, std::string description) {
  throw Error(ErrorNumber::Component, source, std::move(description));
}

constexpr const char* kLoadMemos = "RemarkContext.LoadMemos";

/// Every failure has the same description: it names the one thing that the host can correct. The system's log has the
/// cause, and it is nested in the error, for the command line.
std::shared_ptr<ado::Recordset> LookUpOwner(const std::string& procedure, const std::string& ownerID) {
  try {
    return ExecDeclaredSP(procedure, {Id("@OwnerID", ownerID)});
  } catch (const std::exception& cause) {
    LogWarning("The lookup of an owner by " + procedure + " has failed: " + cause.what());
    std::throw_with_nested(Error(ErrorNumber::Component, kLoadMemos, "Context has not been loaded"));
  }
}

/// An owner may have thousands of remarks, so the columns are looked up once.
struct MemoColumns {
  explicit MemoColumns(const ado::Recordset& rows)
      : typeID(rows.Fields("TypeID")),
        memoKey(rows.Fields("MemoKey")),
        dateStamp(rows.Fields("DateStamp")),
        userID(rows.Fields("UserID")),
        memoText(rows.Fields("MemoText")) {}

  ado::Field typeID;
  ado::Field memoKey;
  ado::Field dateStamp;
  ado::Field userID;
  ado::Field memoText;
};

/// A file of the embedded engine can hold a date of another program that is none, and a host's table may allow NULL. It
/// must hide neither the remark's text nor the owner's other remarks; `quorvel doctor` names the remark.
DateTime DateOf(const ado::Field& field) {
  const Value date = field.Value();
  if (IsNull(date)) return kZeroDate;
  try {
    return ToDateTime(date);
  } catch (const Error& error) {
    if (error.Number() != ErrorNumber::TypeMismatch) throw;
    return kZeroDate;
  }
}

/// Gives remarks of the same author the same text. Few authors write the remarks of one record, so it knows the last
/// few.
class Authors {
 public:
  [[nodiscard]] SharedText Share(std::string_view userID) {
    const auto known = std::ranges::find(m_known, userID, &SharedText::Get);
    if (known != m_known.end()) return *known;
    m_next = (m_next + 1) % m_known.size();
    return m_known[m_next] = SharedText(std::string(userID));
  }

 private:
  std::array<SharedText, 8> m_known;
  std::size_t m_next = 0;
};

void Fill(Remark& remark, const MemoOwner& owner, const MemoColumns& row, Authors& authors) {
  try {
    remark.SetMemoKey(ToInt32(row.memoKey.Value()));
    remark.SetDateStamp(DateOf(row.dateStamp));
    remark.SetUserID(authors.Share(Trimmed(TextOf(row.userID))));
    remark.SetMemoText(TextOf(row.memoText));
    remark.SetStored(owner);
  } catch (const Error& error) {
    // The list keeps the remark: the host's next change of it must reach this memo, and no other owner.
    if (remark.MemoKey() != 0) remark.SetStored(owner);
    throw Error(error.Number(), error.Source(),
                error.Description() + " (MemoKey " + modDatabase::FieldText(row.memoKey) + ")");
  }
}

std::shared_ptr<ado::Recordset> ReadMemos(const std::string& contextID, const MemoOwner& owner) {
  return ExecDeclaredSP("spTWCqvGetFilteredMemos",
                        {Id("@ContextID", contextID), Integer("@EntityType", ado::DataType::SmallInt, owner.entityKey),
                         Integer("@OwnerKey", ado::DataType::Integer, owner.ownerKey)});
}

std::uint32_t DigestOf(const MemoColumns& row) {
  using modDatabase::FieldText;
  return MemoDigest(FieldText(row.typeID), FieldText(row.userID), FieldText(row.memoText));
}

}  // namespace

ContextQueries::ContextQueries(std::string contextID, const std::string& userID) : m_contextID(std::move(contextID)) {
  m_calls.Add("spTWCqvGetContext", {Id("@ContextID", m_contextID)});
  m_calls.Add("spTWCqvGetRemarkTypes", {Id("@ContextID", m_contextID)});
  try {
    m_calls.Add("spTWCqvGetUserRights", {Id("@UserID", userID)});
  } catch (const Error&) {
    m_unfitUserID = std::current_exception();
  }
}

void ContextQueries::LoadContext(ContextRecord& record) {
  const auto row = m_calls.Next();
  if (row->EndOfFile()) Fail("RemarkContext.LoadContext", "ContextID [" + m_contextID + "] not found");
  record.caption = ToText(row->Fields("Caption").Value());
  record.entityKey = ToInt32(row->Fields("EntityKey").Value());
  record.entityName = ToText(row->Fields("EntityName").Value());
  record.ownerProcedure = ToText(row->Fields("spGetOwnerName").Value());
  record.groupByType = ToBoolean(row->Fields("GroupByType").Value());
  record.allowRowSizing = ToBoolean(row->Fields("AllowRowSizing").Value());
  record.rowHeight = ToInt32(row->Fields("RowHeight").Value());
  record.editBehavior = static_cast<EditBehavior>(ToInt32(row->Fields("EditBehavior").Value()));
}

void ContextQueries::LoadTypes(const std::shared_ptr<RemarkContext>& context, RemarkTypes& types) {
  const auto rows = m_calls.Next();
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    auto type = std::make_shared<RemarkType>();
    type->SetContext(context);
    type->SetContextID(m_contextID);
    type->SetTypeID(std::string(TrimBlanks(ToText(rows->Fields("TypeID").Value()))));
    type->SetCaption(ToText(rows->Fields("Caption").Value()));
    type->SetShowPopup(ToBoolean(rows->Fields("Priority").Value()));
    const std::string key = type->TypeID();
    types.Add(std::move(type), key);
  }
}

void ContextQueries::LoadRights(const RemarkTypes& types) {
  if (m_unfitUserID) std::rethrow_exception(m_unfitUserID);
  const auto rows = m_calls.Next();
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    const auto type = FindType(types, rows->Fields("TypeID"));
    if (!type) continue;
    type->SetCanCreate(ToInt32(rows->Fields("CanCreate").Value()));
    type->SetCanRead(ToInt32(rows->Fields("CanRead").Value()));
    type->SetCanUpdate(ToInt32(rows->Fields("CanUpdate").Value()));
    type->SetCanDelete(ToInt32(rows->Fields("CanDelete").Value()));
  }
}

void LoadOwner(const std::string& procedure, const std::string& ownerID, OwnerRecord& record) {
  const auto row = LookUpOwner(procedure, ownerID);
  if (row->EndOfFile()) Fail(kLoadMemos, "OwnerID [" + ownerID + "] not found");
  record.key = ToInt32(row->Fields("OwnerKey").Value());
  record.name = ToText(row->Fields("OwnerName").Value());
}

void LoadRemarks(const std::string& contextID, const MemoOwner& owner, const RemarkTypes* types, RemarkList& remarks) {
  const auto rows = ReadMemos(contextID, owner);
  if (rows->EndOfFile()) return;
  const MemoColumns row(*rows);
  Authors authors;
  remarks.Reserve(rows->RecordCount());
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    auto type = types != nullptr ? FindType(*types, row.typeID) : nullptr;
    if (!type || type->CanRead() <= 0) continue;
    const auto remark = remarks.AddRead();
    remark->SetRemarkType(std::move(type));
    Fill(*remark, owner, row, authors);
  }
}

FoundMemo FindMemo(const std::string& contextID, const MemoOwner& owner, std::int32_t memoKey, std::uint32_t digest) {
  const auto rows = ReadMemos(contextID, owner);
  if (rows->EndOfFile()) return FoundMemo::None;
  const MemoColumns row(*rows);
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    if (ToInt32(row.memoKey.Value()) == memoKey) return DigestOf(row) == digest ? FoundMemo::Same : FoundMemo::Other;
  }
  return FoundMemo::None;
}

}  // namespace quorvel::contextLoader
