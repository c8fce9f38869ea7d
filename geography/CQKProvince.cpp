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
  return QKRecordVerbs::AddIfNotExist(*this, KeyProbe(), db, bTakeExisting);
}

QKLoad::DBStatusCode CQKProvince::UpdateIfNoOther(CADODatabase* db, int bTakeOther) {
  return QKRecordVerbs::UpdateIfNoOther(*this, KeyProbe(), db, bTakeOther);
}

void CQKProvince::UpdateTableData(CADODatabase* db) {
  CString sql;
  // The trailing blank is the query's own; it changes nothing.
  sql.Format(L"select ID from %s where CId=%d and Name=\"%s\" ", GetTableName().GetString(), static_cast<int>(CId),
             Name.GetString());
  QKRecordVerbs::ReadKey(*this, sql, db);
}

void CQKProvince::UpdateProvinceTableData(CADODatabase*, CADODatabase*) {}
