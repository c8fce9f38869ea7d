#include "geography/CQKProvince.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKProvince, CQKProvinceData)

CQKProvince CQKProvince::KeyProbe() const {
  CQKProvince probe;
  probe.Name = Name;
  probe.CId = CId;
  return probe;
}

QKLoad::DBStatusCode CQKProvince::IsExist(CADODatabase* db) {
  CString sql;
  sql.Format(L"select * from %s where CId=%d and Name=\"%s\"", s_m_strTableName.GetString(), static_cast<int>(CId),
             Name.GetString());
  return QKRecordVerbs::LoadFirst(*this, sql, db);
}

QKLoad::DBStatusCode CQKProvince::AddIfNotExist(CADODatabase* db, int bTakeExisting) {
  CQKProvince probe = KeyProbe();
  return QKRecordVerbs::AddIfNotExist(*this, probe, db, bTakeExisting);
}

QKLoad::DBStatusCode CQKProvince::UpdateIfNoOther(CADODatabase* db, int bTakeOther) {
  CQKProvince probe = KeyProbe();
  return QKRecordVerbs::UpdateIfNoOther(*this, probe, db, bTakeOther);
}

void CQKProvince::UpdateTableData(CADODatabase* db) {
  if (db == nullptr) db = GetUserDatabase();
  CString sql;
  // The trailing blank is the query's own; it changes nothing.
  sql.Format(L"select ID from %s where CId=%d and Name=\"%s\" ", GetTableName().GetString(), static_cast<int>(CId),
             Name.GetString());
  QKRecordVerbs::ReadKey(*this, sql, db);
}

void CQKProvince::UpdateProvinceTableData(CADODatabase*, CADODatabase*) {}
