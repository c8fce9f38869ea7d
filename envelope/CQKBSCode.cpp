#include "envelope/CQKBSCode.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKBSCode, CQKNamedData)

CQKBSCode CQKBSCode::KeyProbe() const {
  CQKBSCode probe;
  probe.Name = Name;
  return probe;
}

void CQKBSCode::Init() {
  ID = 0;
  CQKNamedData::Init();
  BSTId = 0;
}

ADataDef::ErrorCode CQKBSCode::DataInPut(CADataStream stream) {
  CQKNamedData::DataInPut(stream);
  stream.ReadItem(&BSTId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKBSCode::DataOutPut(CADataStream stream) {
  CQKNamedData::DataOutPut(stream);
  stream.WriteItem(BSTId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKBSCode::DataInPro(CADataExchange exchange) {
  CQKNamedData::DataInPro(exchange);
  exchange.ReadItem(L"BSTId", &BSTId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKBSCode::DataOutPro(CADataExchange exchange) {
  CQKNamedData::DataOutPro(exchange);
  exchange.WriteItem(L"BSTId", BSTId);
  return ADataDef::AD_OK;
}

QKLoad::DBStatusCode CQKBSCode::IsExist(CADODatabase* db) {
  CString sql;
  sql.Format(L"select * from %s where Name=\"%s\"", GetTableName().GetString(), Name.GetString());
  return QKRecordVerbs::LoadFirst(*this, sql, db);
}

QKLoad::DBStatusCode CQKBSCode::AddIfNotExist(CADODatabase* db, int bTakeExisting) {
  return QKRecordVerbs::AddIfNotExist(*this, KeyProbe(), db, bTakeExisting);
}

QKLoad::DBStatusCode CQKBSCode::UpdateIfNoOther(CADODatabase* db, int bTakeOther) {
  return QKRecordVerbs::UpdateIfNoOther(*this, KeyProbe(), db, bTakeOther);
}

int CQKBSCode::HasBSCode(const wchar_t* name, CADODatabase* db) {
  return static_cast<int>(QKRecordVerbs::FirstIdByName(s_m_strTableName, name, db ? db : m_pADODatabase));
}

void CQKBSCode::UpdateBSCodeTableData(CADODatabase*, CADODatabase*) {}
