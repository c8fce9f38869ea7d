#include "envelope/CQKBSType.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKBSType, CQKNamedData)

CQKBSType CQKBSType::KeyProbe() const {
  CQKBSType probe;
  probe.Name = Name;
  return probe;
}

void CQKBSType::Init() {
  ID = 0;
  CQKNamedData::Init();
  BSDLId = 0;
}

ADataDef::ErrorCode CQKBSType::DataInPut(CADataStream stream) {
  CQKNamedData::DataInPut(stream);
  stream.ReadItem(&BSDLId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKBSType::DataOutPut(CADataStream stream) {
  CQKNamedData::DataOutPut(stream);
  stream.WriteItem(BSDLId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKBSType::DataInPro(CADataExchange exchange) {
  CQKNamedData::DataInPro(exchange);
  exchange.ReadItem(L"BSDLId", &BSDLId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKBSType::DataOutPro(CADataExchange exchange) {
  CQKNamedData::DataOutPro(exchange);
  exchange.WriteItem(L"BSDLId", BSDLId);
  return ADataDef::AD_OK;
}

QKLoad::DBStatusCode CQKBSType::IsExist(CADODatabase* db) {
  CString sql;
  sql.Format(L"select * from %s where Name=\"%s\"", GetTableName().GetString(), Name.GetString());
  return QKRecordVerbs::LoadFirst(*this, sql, db);
}

QKLoad::DBStatusCode CQKBSType::AddIfNotExist(CADODatabase* db, int bTakeExisting) {
  return QKRecordVerbs::AddIfNotExist(*this, KeyProbe(), db, bTakeExisting);
}

QKLoad::DBStatusCode CQKBSType::UpdateIfNoOther(CADODatabase* db, int bTakeOther) {
  return QKRecordVerbs::UpdateIfNoOther(*this, KeyProbe(), db, bTakeOther);
}
