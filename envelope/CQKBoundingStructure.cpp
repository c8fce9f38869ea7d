#include "envelope/CQKBoundingStructure.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE_BASICS(CQKBoundingStructure)

int CQKBoundingStructure::GetDataFromRecordSet(CADORecordset& rs) {
  if (!tagDBSTRUCT::GetDataFromRecordSet(rs)) return 0;
  QKRecordVerbs::ReadItems(rs, static_cast<CQKBoundingStructureData&>(*this));
  Id = ID;
  // Every structure loaded from the table carries its layers.
  MakeArray();
  return 1;
}

int CQKBoundingStructure::SetDataToRecordSet(CADORecordset& rs) {
  if (!tagDBSTRUCT::SetDataToRecordSet(rs)) return 0;
  QKRecordVerbs::WriteItems(rs, static_cast<CQKBoundingStructureData&>(*this));
  return 1;
}

void CQKBoundingStructure::Init() {
  ID = 0;
  CQKBoundingStructureData::Init();
}

QKLoad::DBStatusCode CQKBoundingStructure::IsExist(CADODatabase* db) {
  CString sql;
  sql.Format(L"select ID from %s where BSCId=%d", GetTableName().GetString(), static_cast<int>(BSCId));
  const long rows = QKRecordVerbs::CountKeyRows(*this, sql, db);
  if (rows < 0) return QKLoad::DBS_ERROR;
  return rows == 0 ? QKLoad::DBS_NOTEXIST : QKLoad::DBS_EXIST;
}

QKLoad::DBStatusCode CQKBoundingStructure::AddOrUpdate(CADODatabase* db) {
  if (db == nullptr) db = GetUserDatabase();
  switch (IsExist(db)) {
    case QKLoad::DBS_NOTEXIST:
      return InsertData(db) ? QKLoad::DBS_ADDED : QKLoad::DBS_ERROR;
    case QKLoad::DBS_EXIST:
      return UpdateData(ID, db) ? QKLoad::DBS_UPDATED : QKLoad::DBS_ERROR;
    default:
      return QKLoad::DBS_ERROR;
  }
}

int CQKBoundingStructure::HasBoundingStructure(long bscId, long tId, CADODatabase* db) {
  CString sql;
  sql.Format(L"select ID from %s where BSCId=%d and TId=%d", s_m_strTableName.GetString(), static_cast<int>(bscId),
             static_cast<int>(tId));
  return static_cast<int>(QKRecordVerbs::FirstId(sql, db ? db : m_pADODatabase));
}

void CQKBoundingStructure::UpdateBoundingStructureTableData(CADODatabase*, CADODatabase*) {}
