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
  CQKCountry probe = KeyProbe();
  return QKRecordVerbs::AddIfNotExist(*this, probe, db, bTakeExisting);
}

QKLoad::DBStatusCode CQKCountry::UpdateIfNoOther(CADODatabase* db, int bTakeOther) {
  CQKCountry probe = KeyProbe();
  return QKRecordVerbs::UpdateIfNoOther(*this, probe, db, bTakeOther);
}

void CQKCountry::UpdateTableData(CADODatabase* db) {
  if (db == nullptr) db = GetUserDatabase();
  CString sql;
  sql.Format(L"select ID from %s where Name=\"%s\"", GetTableName().GetString(), Name.GetString());
  QKRecordVerbs::ReadKey(*this, sql, db);
}

void CQKCountry::UpdateCountryTableData(CADODatabase*, CADODatabase*) {}
