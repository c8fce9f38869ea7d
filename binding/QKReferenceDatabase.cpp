#include "binding/QKReferenceDatabase.h"

#include "binding/ReferenceTables.h"
#include "tablekit/CADODatabase.h"

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
  const CString missing = MissingReferenceTable(db);
  if (!missing.IsEmpty()) return Fail(error, missing);
  db.Close();
  ForEachRecordClass([&]<typename Record>(const wchar_t* table) { Record::S_Init(path, table); });
  return 1;
}
