#include "construction/CQKTimberingType.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKTimberingType, CQKNamedData)

CQKTimberingType CQKTimberingType::KeyProbe() const {
  CQKTimberingType probe;
  probe.Name = Name;
  return probe;
}

void CQKTimberingType::Init() {
  ID = 0;
  CQKNamedData::Init();
}

QKLoad::DBStatusCode CQKTimberingType::IsExist(CADODatabase* db) {
  CString sql;
  // The class table, not the virtual GetTableName, as for the construction.
  sql.Format(L"select * from %s where Name=\"%s\"", s_m_strTableName.GetString(), Name.GetString());
  return QKRecordVerbs::LoadFirst(*this, sql, db);
}

QKLoad::DBStatusCode CQKTimberingType::AddIfNotExist(CADODatabase* db, int bTakeExisting) {
  return QKRecordVerbs::AddIfNotExist(*this, KeyProbe(), db, bTakeExisting);
}

QKLoad::DBStatusCode CQKTimberingType::UpdateIfNoOther(CADODatabase* db, int bTakeOther) {
  return QKRecordVerbs::UpdateIfNoOther(*this, KeyProbe(), db, bTakeOther);
}

int CQKTimberingType::HasTimberingType(const wchar_t* name, CADODatabase* db) {
  CString sql;
  // Blanks around "=" here, unlike the other name lookups: the text as it has always read.
  sql.Format(L"select ID from %s where Name = \"%s\"", s_m_strTableName.GetString(), name ? name : L"");
  return static_cast<int>(QKRecordVerbs::FirstId(sql, db ? db : m_pADODatabase));
}

void CQKTimberingType::UpdateTimberingTypeTableData(CADODatabase*, CADODatabase*) {}
