#include "foundation/QKRecordVerbs.h"

#include <new>

#include "datakit/CADataProp.h"
#include "foundation/CQKDataProp.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/RvAfxMessageBox.h"

namespace QKRecordVerbs {

CADODatabase* OpenOnDemand(CADODatabase*& connection, const CString& path) {
  if (connection == nullptr) connection = new (std::nothrow) CADODatabase;
  if (connection != nullptr && !connection->IsOpen()) connection->OpenAccess(path, L"", L"");
  return connection;
}

void ReadItems(CADORecordset& rs, CAData& value) {
  CQKDataProp row(&rs);
  value.DataInPro(CADataExchange(CADataProp<CQKDataProp>(&row)));
}

void WriteItems(CADORecordset& rs, CAData& value) {
  CQKDataProp row(&rs);
  value.DataOutPro(CADataExchange(CADataProp<CQKDataProp>(&row)));
}

void ReadKey(tagDBSTRUCT& record, const wchar_t* sql, CADODatabase* db) {
  CADORecordset rs;
  if (!record.ExecSql(sql, &rs, db)) return;
  long id = record.GetID();
  if (rs.GetFieldValue(L"ID", id)) record.SetID(id);
  rs.Close();
}

int OpenOnConnection(CADORecordset& rs, const wchar_t* sql, CADODatabase* db) {
  return db != nullptr && rs.Open(db->GetActiveConnection(), db->GetActiveAdoap(), db->GetCurrentConnectType(), sql, 0);
}

long FirstId(const wchar_t* sql, CADODatabase* db) {
  CADORecordset rs;
  if (!OpenOnConnection(rs, sql, db)) return -1;
  long id = 0;
  if (!rs.IsEOF()) rs.GetFieldValue(L"ID", id);
  return id;
}

long FirstIdByName(const CString& table, const wchar_t* name, CADODatabase* db) {
  CString sql;
  sql.Format(L"select ID from %s where Name=\"%s\"", table.GetString(), name ? name : L"");
  return FirstId(sql, db);
}

long CountKeyRows(tagDBSTRUCT& record, const wchar_t* sql, CADODatabase* db) {
  CADORecordset rs;
  if (!record.ExecSql(sql, &rs, db)) return -1;
  const long rows = static_cast<long>(rs.GetRecordCount());
  long id = record.GetID();
  if (rows == 1 && rs.GetFieldValue(L"ID", id)) record.SetID(id);
  return rows;
}

CString DeleteFailedText(const CString& table, const wchar_t* format) {
  CString text;
  text.Format(format, table.GetString());
  return text;
}

int DeleteWhereOrTell(tagDBSTRUCT& record, const CString& table, const wchar_t* column, long id, CADODatabase* db,
                      unsigned int style, const wchar_t* format, CString* message) {
  CString sql;
  sql.Format(L"delete from %s where %s=%d", table.GetString(), column, static_cast<int>(id));
  if (db != nullptr && record.ExecSql(sql, nullptr, db)) return 1;
  const CString text = DeleteFailedText(table, format);
  if (message != nullptr) *message = text;
  RvAfxMessageBox(text, style);
  return 0;
}

int DeleteRowOrTell(tagDBSTRUCT& record, const CString& table, long id, CADODatabase* db, unsigned int style) {
  return DeleteWhereOrTell(record, table, L"Id", id, db, style);
}

}  // namespace QKRecordVerbs
