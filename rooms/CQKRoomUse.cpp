#include "rooms/CQKRoomUse.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKRoomUse, CQKRoomUseData)

namespace {

CString FindRoomUseSql(const CString& table, const wchar_t* columns, long rtId, const CString& name) {
  CString sql;
  sql.Format(L"select %s from %s where RTId=%d and Name=\"%s\"", columns, table.GetString(), static_cast<int>(rtId),
             name.GetString());
  return sql;
}

}  // namespace

CQKRoomUse CQKRoomUse::KeyProbe() const {
  CQKRoomUse probe;
  probe.Name = Name;
  probe.RTId = RTId;
  return probe;
}

QKLoad::DBStatusCode CQKRoomUse::IsExist(CADODatabase* db) {
  return QKRecordVerbs::LoadFirst(*this, FindRoomUseSql(GetTableName(), L"*", RTId, Name), db);
}

QKLoad::DBStatusCode CQKRoomUse::AddIfNotExist(CADODatabase* db, int bTakeExisting) {
  return QKRecordVerbs::AddIfNotExist(*this, KeyProbe(), db, bTakeExisting);
}

QKLoad::DBStatusCode CQKRoomUse::UpdateIfNoOther(CADODatabase* db, int bTakeOther) {
  return QKRecordVerbs::UpdateIfNoOther(*this, KeyProbe(), db, bTakeOther);
}

void CQKRoomUse::UpdateTableData(CADODatabase* db) {
  QKRecordVerbs::ReadKey(*this, FindRoomUseSql(GetTableName(), L"ID", RTId, Name), db);
}

int CQKRoomUse::UpdateData(long id, CADODatabase* db) {
  if (db == nullptr) db = GetUserDatabase();
  return tagDBSTRUCT::UpdateData(id, db);
}

int CQKRoomUse::UpdateData(const wchar_t*, CADODatabase*) { return 1; }

int CQKRoomUse::HasRoomUse(const wchar_t* name, CADODatabase* db) {
  return static_cast<int>(QKRecordVerbs::FirstIdByName(s_m_strTableName, name, db ? db : m_pADODatabase));
}

void CQKRoomUse::UpdateRoomUseTableData(CADODatabase*, CADODatabase*) {}
