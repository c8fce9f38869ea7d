#pragma once
// Each record class with its table in the reference schema (data/schema.sql): the one list that
// QKReferenceDatabase::Bind binds, and that qkdb and the tests walk over; and the check that a
// connection holds all those tables, which Bind makes and qkdb makes on the one connection a command
// holds. Internal to the project, not installed: a host binds with QKReferenceDatabase::Bind.
//
//   ForEachRecordClass([]<typename Record>(const wchar_t* table) { Record::S_Init(path, table); });

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

// "" when the open connection db holds every table of ForEachRecordClass, else "<path> has no table
// <table> (<the backend's reason>)" for the first it lacks. Reads no row: each table is asked for
// none.
inline CString MissingReferenceTable(CADODatabase& db) {
  CString missing;
  ForEachRecordClass([&]<typename Record>(const wchar_t* table) {
    if (!missing.IsEmpty()) return;
    CADORecordset rs(&db);
    CString sql;
    sql.Format(L"select count(*) from [%s] where 1=0", table);
    if (!rs.Open(sql)) missing = db.GetPath() + L" has no table " + table + L" (" + rs.GetLastError() + L")";
  });
  return missing;
}
