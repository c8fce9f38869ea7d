#include "tablekit/tagDBSTRUCT.h"

#include "tablekit/CADODatabase.h"
#include "tablekit/CADORecordset.h"

CADODatabase* tagDBSTRUCT::GetUserDatabase() const { return nullptr; }
CString tagDBSTRUCT::GetTableName() { return CString(); }
CString tagDBSTRUCT::GetDataBasePath() { return CString(); }
int tagDBSTRUCT::IsIDSort() const { return 1; }
int tagDBSTRUCT::IsDefaultData() const { return 0; }
int tagDBSTRUCT::AsUserVerData() { return 1; }

CString tagDBSTRUCT::SelectRow(long id) {
  CString sql;
  sql.Format(L"select * from [%s] where ID=%ld", GetTableName().GetString(), id);
  return sql;
}

CADODatabase* tagDBSTRUCT::Resolve(CADODatabase* db) const { return db ? db : GetUserDatabase(); }

int tagDBSTRUCT::ReadRecords(const wchar_t* sql, CADORecordset& rs, CADODatabase* db) {
  db = Resolve(db);
  if (db == nullptr || !db->IsOpen()) return 0;
  return rs.Open(db->GetActiveConnection(), db->GetActiveAdoap(), db->GetCurrentConnectType(), sql, 0);
}

int tagDBSTRUCT::ExecSql(const wchar_t* sql, CADORecordset* rs, CADODatabase* db) {
  if (rs) return ReadRecords(sql, *rs, db);
  db = Resolve(db);
  return db != nullptr && db->Execute(sql);
}

int tagDBSTRUCT::ReadData(long id, CADODatabase* db) {
  CADORecordset rs;
  CString sql = SelectRow(id);
  if (!ReadRecords(sql, rs, db) || rs.IsEOF()) return 0;
  return GetDataFromRecordSet(rs);
}

int tagDBSTRUCT::UpdateData(long id, CADODatabase* db) {
  CADORecordset rs;
  CString sql = SelectRow(id);
  if (!ReadRecords(sql, rs, db) || rs.IsEOF() || !rs.Edit()) return 0;
  if (!SetDataToRecordSet(rs)) {
    rs.CancelUpdate();
    return 0;
  }
  return rs.Update();
}

int tagDBSTRUCT::InsertData(CADODatabase* db) {
  CString sql;
  sql.Format(L"select * from [%s] where 1=0", GetTableName().GetString());
  CADORecordset rs;
  if (!ReadRecords(sql, rs, db) || !rs.AddNew()) return 0;
  if (!SetDataToRecordSet(rs)) {
    rs.CancelUpdate();
    return 0;
  }
  long newId = 0;
  if (!rs.Update() || !rs.GetFieldValue(L"ID", newId)) return 0;
  SetID(newId);
  return 1;
}

int tagDBSTRUCT::RemoveData(long id, CADODatabase* db) {
  CString sql;
  sql.Format(L"delete from [%s] where ID=%ld", GetTableName().GetString(), id);
  return ExecSql(sql, nullptr, db);
}

int tagDBSTRUCT::UpdateID(long id, CADODatabase* db) {
  CString sql;
  sql.Format(L"update [%s] set ID=%ld where ID=%ld", GetTableName().GetString(), id, ID);
  if (!ExecSql(sql, nullptr, db)) return 0;
  SetID(id);
  return 1;
}

int tagDBSTRUCT::GetDataFromRecordSet(CADORecordset& rs) {
  long id = 0;
  if (!rs.GetFieldValue(L"ID", id)) return 0;
  SetID(id);
  return 1;
}

int tagDBSTRUCT::SetDataToRecordSet(CADORecordset& rs) { return rs.SetFieldValue(L"ID", ID); }
