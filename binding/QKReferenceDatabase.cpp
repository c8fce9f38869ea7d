#include "binding/QKReferenceDatabase.h"

#include "binding/ReferenceTables.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/CADORecordset.h"

namespace {

int Fail(CString* error, const CString& reason) {
  if (error != nullptr) *error = reason;
  return 0;
}

}  // namespace

int QKReferenceDatabase::Bind(const wchar_t* path, CString* error) {
  if (path == nullptr || *path == L'\0') return Fail(error, L"no database named");
  CADODatabase db;
  if (!db.OpenAccess(path, L"", L"")) return Fail(error, CString(L"cannot open ") + path + L": " + db.GetLastError());
  CString missing;
  ForEachRecordClass([&]<typename Record>(const wchar_t* table) {
    if (!missing.IsEmpty()) return;
    CADORecordset rs(&db);
    CString sql;
    sql.Format(L"select count(*) from [%s] where 1=0", table);
    if (!rs.Open(sql)) missing = CString(path) + L" has no table " + table + L" (" + rs.GetLastError() + L")";
  });
  if (!missing.IsEmpty()) return Fail(error, missing);
  db.Close();
  ForEachRecordClass([&]<typename Record>(const wchar_t* table) { Record::S_Init(path, table); });
  return 1;
}
