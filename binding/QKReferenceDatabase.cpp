#include "binding/QKReferenceDatabase.h"

#include "construction/CQKTimbering.h"
#include "construction/CQKTimberingType.h"
#include "envelope/CQKBSCategory.h"
#include "envelope/CQKBSCode.h"
#include "envelope/CQKBSType.h"
#include "envelope/CQKBoundingStructure.h"
#include "geography/CQKCity.h"
#include "geography/CQKCountry.h"
#include "geography/CQKProvince.h"
#include "rooms/CQKRULoadParam.h"
#include "rooms/CQKRoomType.h"
#include "rooms/CQKRoomUse.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/CADORecordset.h"
#include "weather/CQKWeather.h"

namespace {

// Each record class with its table in the reference schema (data/schema.sql).
template <typename Visit>
void ForEachRecordClass(Visit visit) {
  visit.template operator()<CQKCountry>(L"Country");
  visit.template operator()<CQKProvince>(L"Province");
  visit.template operator()<CQKCity>(L"City");
  visit.template operator()<CQKWeather>(L"Weather");
  visit.template operator()<CQKTimberingType>(L"TimberingType");
  visit.template operator()<CQKTimbering>(L"Timbering");
  visit.template operator()<CQKBSCategory>(L"BSCategory");
  visit.template operator()<CQKBSType>(L"BSType");
  visit.template operator()<CQKBSCode>(L"BSCode");
  visit.template operator()<CQKBoundingStructure>(L"BoundingStructure");
  visit.template operator()<CQKRoomType>(L"RoomType");
  visit.template operator()<CQKRoomUse>(L"RoomUse");
  visit.template operator()<CQKRULoadParam>(L"RULoadParam");
}

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
