#include "rooms/CQKRULoadParam.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKRULoadParam, CQKRURoomUseParamBaseData)

namespace {

constexpr int kFound = 2;
constexpr int kFailed = 1;
constexpr int kNone = 0;  // also "inserted"

}  // namespace

QKLoad::ErrorType CQKRULoadParam::SetLDQDId(QKLoad::EQKLdQdType id) {
  LoadParamLDQDId = id;
  LDQDId2Name(id, LaoDongQD);
  return QKLoad::ET_OK;
}

QKLoad::EQKLdQdType CQKRULoadParam::GetLDQDId() const {
  QKLoad::EQKLdQdType id = QKLoad::LdQdSitting;
  LDQDName2Id(id, LaoDongQD);
  return id;
}

int CQKRULoadParam::ReadDataByRUId(int ruId) {
  CString sql;
  sql.Format(L"select * from %s where RUId=%d", GetTableName().GetString(), ruId);
  return QKRecordVerbs::LoadFirst(*this, sql, nullptr) == QKLoad::DBS_EXIST ? 1 : 0;
}

int CQKRULoadParam::IsExist(CADODatabase* db) {
  CString sql;
  sql.Format(L"select ID from %s where RUId=%d", GetTableName().GetString(), static_cast<int>(RUId));
  const long rows = QKRecordVerbs::CountKeyRows(*this, sql, db);
  if (rows < 0) return kFailed;
  return rows == 0 ? kNone : kFound;
}

int CQKRULoadParam::AddOrUpdate(CADODatabase* db) {
  if (db == nullptr) db = GetUserDatabase();
  switch (IsExist(db)) {
    case kFound:
      return UpdateData(GetID(), db) ? kFound : kFailed;
    case kNone:
      return InsertData(db) ? kNone : kFailed;
    default:
      return kFailed;
  }
}

int CQKRULoadParam::HasRULoadParam(const wchar_t* name, CADODatabase* db) {
  return static_cast<int>(QKRecordVerbs::FirstIdByName(s_m_strTableName, name, db ? db : m_pADODatabase));
}
