#pragma once
// CQKRoomType: a room type as a row of the room-type table, bound to it as CQKCountry is to its own
// (QKRecordTable.h). The natural key is Name. Names go into the SQL between double quotes without
// escaping: a name holding a double quote fails its query. Not safe for concurrent use.

#include "QKExport.h"
#include "foundation/QKLoad.h"
#include "foundation/QKRecordTable.h"
#include "rooms/CQKRoomTypeData.h"
#include "tablekit/tagDBSTRUCT.h"

class QK_EXPORT CQKRoomType : public tagDBSTRUCT, public CQKRoomTypeData {
  QK_DECLARE_RECORD_TABLE(CQKRoomType)

 public:
  CQKRoomType() = default;
  CQKRoomType(const CQKRoomType&) = default;
  CQKRoomType& operator=(const CQKRoomType&) = default;
  ~CQKRoomType() override = default;

  // Looks the name up in the table GetTableName gives: DBS_EXIST (this record becomes the first
  // matching row, its ID included), DBS_NOTEXIST, DBS_ERROR.
  QKLoad::DBStatusCode IsExist(CADODatabase* db);
  // DBS_ADDED, DBS_EXIST (taken when bTakeExisting is nonzero), DBS_ERROR.
  QKLoad::DBStatusCode AddIfNotExist(CADODatabase* db, int bTakeExisting);
  // DBS_UPDATED, DBS_EXIST when another row holds the name, DBS_ERROR.
  QKLoad::DBStatusCode UpdateIfNoOther(CADODatabase* db, int bTakeOther);
  // Re-reads this record's ID by name; no such row leaves it unchanged.
  void UpdateTableData(CADODatabase* db);
  // Writes this record into the row with key id of db (null: the record's own).
  int UpdateData(long id, CADODatabase* db = nullptr) override;

  // The ID of the first room type named name: 0 when there is none, -1 when the query cannot run. A
  // null db is the class-wide connection as it stands: it is not opened here.
  static int HasRoomType(const wchar_t* name, CADODatabase* db);
  // Does nothing, whatever it is given; kept as an entry point for hosts.
  static void UpdateRoomTypeTableData(CADODatabase* from, CADODatabase* to);

 private:
  CQKRoomType KeyProbe() const;
};
