#include <utility>

#include "data/modDatabase.h"
#include "data/modUserName.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "runtime/RemarkContext.h"

namespace quorvel {
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

/// A column that holds an identifier may be of fixed width. Whatever else stands there is left for the look-up to miss.
Value TrimmedId(const ado::Field& field) {
  Value value = field.Value();
  auto* id = std::get_if<std::string>(&value);
  if (id != nullptr && id->ends_with(' ')) *id = std::string(TrimBlanks(*id));
  return value;
}

[[noreturn]] void Fail(const char* source, std::string description) {
  throw Error(ErrorNumber::Component, source, std::move(description));
}

constexpr const char* kLoadMemos = "RemarkContext.LoadMemos";

/// Whatever keeps the lookup from running, the host is told the one thing it can mend.
std::shared_ptr<ado::Recordset> LookUpOwner(const std::string& procedure, const std::string& ownerID) {
  try {
    return ExecDeclaredSP(procedure, {Id("@OwnerID", ownerID)});
  } catch (const std::exception&) {
    Fail(kLoadMemos, "Context has not been loaded");
  }
}

}  // namespace

void RemarkContext::Load(const std::string& i_sContextID, const std::string& i_sOwnerID, const std::string& i_sUserID) {
  RefuseWhileEdited("RemarkContext.Load");
  modDatabase::EnsureConnection();
  Save(false);
  m_contextID = i_sContextID;
  LoadContext();
  LoadRemarkTypes();
  m_userID = i_sUserID.empty() ? modUserName::GetUserName() : i_sUserID;
  LoadUserRights();
  m_ownerID = i_sOwnerID;
  LoadMemos();
}

void RemarkContext::LoadContext() {
  const auto row = ExecDeclaredSP("spTWCqvGetContext", {Id("@ContextID", m_contextID)});
  if (row->EndOfFile()) Fail("RemarkContext.LoadContext", "ContextID [" + m_contextID + "] not found");
  m_caption = ToText(row->Fields("Caption").Value());
  m_entityKey = ToInt32(row->Fields("EntityKey").Value());
  m_entityName = ToText(row->Fields("EntityName").Value());
  m_ownerProcedure = ToText(row->Fields("spGetOwnerName").Value());
  m_groupByType = ToBoolean(row->Fields("GroupByType").Value());
  m_allowRowSizing = ToBoolean(row->Fields("AllowRowSizing").Value());
  m_rowHeight = ToInt32(row->Fields("RowHeight").Value());
  m_editBehavior = static_cast<quorvel::EditBehavior>(ToInt32(row->Fields("EditBehavior").Value()));
}

void RemarkContext::LoadRemarkTypes() {
  m_types = std::make_shared<RemarkTypes>();
  const auto rows = ExecDeclaredSP("spTWCqvGetRemarkTypes", {Id("@ContextID", m_contextID)});
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    auto type = std::make_shared<RemarkType>();
    type->SetContext(shared_from_this());
    type->SetTypeID(std::string(TrimBlanks(ToText(rows->Fields("TypeID").Value()))));
    type->SetCaption(ToText(rows->Fields("Caption").Value()));
    type->SetShowPopup(ToBoolean(rows->Fields("Priority").Value()));
    const std::string key = type->TypeID();
    m_types->Add(std::move(type), key);
  }
}

void RemarkContext::LoadUserRights() {
  const auto rows = ExecDeclaredSP("spTWCqvGetUserRights", {Id("@UserID", m_userID)});
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    const auto type = Item(TrimmedId(rows->Fields("TypeID")));
    if (!type) continue;
    type->SetCanCreate(ToInt32(rows->Fields("CanCreate").Value()));
    type->SetCanRead(ToInt32(rows->Fields("CanRead").Value()));
    type->SetCanUpdate(ToInt32(rows->Fields("CanUpdate").Value()));
    type->SetCanDelete(ToInt32(rows->Fields("CanDelete").Value()));
  }
}

void RemarkContext::LoadMemos() {
  m_ownerKey = 0;
  m_ownerName.clear();
  m_remarkList = std::make_shared<quorvel::RemarkList>();
  if (m_ownerID.empty()) return;
  const auto row = LookUpOwner(m_ownerProcedure, m_ownerID);
  if (row->EndOfFile()) Fail(kLoadMemos, "OwnerID [" + m_ownerID + "] not found");
  m_ownerKey = ToInt32(row->Fields("OwnerKey").Value());
  m_ownerName = ToText(row->Fields("OwnerName").Value());
  RefreshRemarkList();
}

void RemarkContext::RefreshRemarkList() {
  if (m_ownerID.empty()) return;
  Save(false);
  m_remarkList = std::make_shared<quorvel::RemarkList>();
  const auto rows =
      ExecDeclaredSP("spTWCqvGetFilteredMemos",
                     {Id("@ContextID", m_contextID), Integer("@EntityType", ado::DataType::SmallInt, m_entityKey),
                      Integer("@OwnerKey", ado::DataType::Integer, m_ownerKey)});
  if (rows->EndOfFile()) return;
  // An owner may have thousands of remarks: the columns are looked up once.
  const ado::Field typeID = rows->Fields("TypeID");
  const ado::Field memoKey = rows->Fields("MemoKey");
  const ado::Field dateStamp = rows->Fields("DateStamp");
  const ado::Field userID = rows->Fields("UserID");
  const ado::Field memoText = rows->Fields("MemoText");
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    const auto type = Item(TrimmedId(typeID));
    if (!type || type->CanRead() <= 0) continue;
    const auto remark = m_remarkList->Add();
    remark->SetRemarkType(type);
    remark->SetMemoKey(ToInt32(memoKey.Value()));
    remark->SetDateStamp(ToDateTime(dateStamp.Value()));
    remark->SetUserID(ToText(userID.Value()));
    remark->SetMemoText(ToText(memoText.Value()));
  }
}

}  // namespace quorvel
