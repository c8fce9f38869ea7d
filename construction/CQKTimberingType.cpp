#include "construction/CQKTimberingType.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKTimberingType, CQKNamedData)
QK_IMPLEMENT_VERBS_BY_NAME(CQKTimberingType, s_m_strTableName, Name, L"select * from %s where Name=\"%s\"")

void CQKTimberingType::Init() {
  ID = 0;
  CQKNamedData::Init();
}

int CQKTimberingType::HasTimberingType(const wchar_t* name, CADODatabase* db) {
  CString sql;
  // Blanks around "=" here, unlike the other name lookups: the text as it has always read.
  sql.Format(L"select ID from %s where Name = \"%s\"", s_m_strTableName.GetString(), name ? name : L"");
  return static_cast<int>(QKRecordVerbs::FirstId(sql, db ? db : m_pADODatabase));
}

void CQKTimberingType::UpdateTimberingTypeTableData(CADODatabase*, CADODatabase*) {}
