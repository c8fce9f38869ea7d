#include "geography/CQKCountry.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKCountry, CQKCountryData)

CQKCountry CQKCountry::KeyProbe() const {
  CQKCountry probe;
  probe.Name = Name;
  return probe;
}

QKLoad::DBStatusCode CQKCountry::IsExist(CADODatabase* db) {
  CString sql;
  sql.Format(L"select * from %s where Name=\"%s\"", s_m_strTableName.GetString(), Name.GetString());
  return QKRecordVerbs::LoadFirst(*this, sql, db);
}

QKLoad::DBStatusCode CQKCountry::AddIfNotExist(CADODatabase* db, int bTakeExisting) {
  return QKRecordVerbs::AddIfNotExist(*this, KeyProbe(), db, bTakeExisting);
}

QKLoad::DBStatusCode CQKCountry::UpdateIfNoOther(CADODatabase* db, int bTakeOther) {
  return QKRecordVerbs::UpdateIfNoOther(*this, KeyProbe(), db, bTakeOther);
}

void CQKCountry::UpdateTableData(CADODatabase* db) {
  CString sql;
  sql.Format(L"select ID from %s where Name=\"%s\"", GetTableName().GetString(), Name.GetString());
  QKRecordVerbs::ReadKey(*this, sql, db);
}

void CQKCountry::UpdateCountryTableData(CADODatabase*, CADODatabase*) {}
