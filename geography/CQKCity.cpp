#include "geography/CQKCity.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKCity, CQKCityData)

namespace {

// The city's lookup by its natural key. UpdateTableData runs the same text (all columns, of which it
// reads only "ID"), and on the class's table too.
CString FindCitySql(long pId, const CString& name) {
  CString sql;
  sql.Format(L"select * from %s where PId=%d and Name=\"%s\"", CQKCity::s_m_strTableName.GetString(),
             static_cast<int>(pId), name.GetString());
  return sql;
}

}  // namespace

CQKCity CQKCity::KeyProbe() const {
  CQKCity probe;
  probe.Name = Name;
  probe.PId = PId;
  return probe;
}

QKLoad::DBStatusCode CQKCity::IsExist(CADODatabase* db) {
  return QKRecordVerbs::LoadFirst(*this, FindCitySql(PId, Name), db);
}

QKLoad::DBStatusCode CQKCity::AddIfNotExist(CADODatabase* db, int bTakeExisting) {
  return QKRecordVerbs::AddIfNotExist(*this, KeyProbe(), db, bTakeExisting);
}

QKLoad::DBStatusCode CQKCity::UpdateIfNoOther(CADODatabase* db, int bTakeOther) {
  return QKRecordVerbs::UpdateIfNoOther(*this, KeyProbe(), db, bTakeOther);
}

void CQKCity::UpdateTableData(CADODatabase* db) {
  QKRecordVerbs::ReadKey(*this, FindCitySql(PId, Name), db);
}

void CQKCity::UpdateCityTableData(CADODatabase*, CADODatabase*) {}
