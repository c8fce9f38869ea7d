#include "rooms/CQKRoomType.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKRoomType, CQKRoomTypeData)

CQKRoomType CQKRoomType::KeyProbe() const {
  CQKRoomType probe;
  probe.Name = Name;
  return probe;
}

QKLoad::DBStatusCode CQKRoomType::IsExist(CADODatabase* db) {
  CString sql;
  sql.Format(L"select * from %s where Name=\"%s\"", GetTableName().GetString(), Name.GetString());
  return QKRecordVerbs::LoadFirst(*this, sql, db);
}

QKLoad::DBStatusCode CQKRoomType::AddIfNotExist(CADODatabase* db, int bTakeExisting) {
  return QKRecordVerbs::AddIfNotExist(*this, KeyProbe(), db, bTakeExisting);
}

QKLoad::DBStatusCode CQKRoomType::UpdateIfNoOther(CADODatabase* db, int bTakeOther) {
  return QKRecordVerbs::UpdateIfNoOther(*this, KeyProbe(), db, bTakeOther);
}

void CQKRoomType::UpdateTableData(CADODatabase* db) {
  CString sql;
  sql.Format(L"select ID from %s where Name=\"%s\"", GetTableName().GetString(), Name.GetString());
  QKRecordVerbs::ReadKey(*this, sql, db);
}

int CQKRoomType::UpdateData(long id, CADODatabase* db) {
  if (db == nullptr) db = GetUserDatabase();
  return tagDBSTRUCT::UpdateData(id, db);
}

int CQKRoomType::HasRoomType(const wchar_t* name, CADODatabase* db) {
  return static_cast<int>(QKRecordVerbs::FirstIdByName(s_m_strTableName, name, db ? db : m_pADODatabase));
}

void CQKRoomType::UpdateRoomTypeTableData(CADODatabase*, CADODatabase*) {}
