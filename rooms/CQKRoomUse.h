#pragma once
// CQKRoomUse: a room use as a row of the room-use table, filed under its room type by RTId. The
// natural key is (RTId, Name). Its load parameters are a row of their own (CQKRULoadParam). Not safe
// for concurrent use.

#include "QKExport.h"
#include "foundation/QKLoad.h"
#include "foundation/QKRecordTable.h"
#include "rooms/CQKRoomUseData.h"
#include "tablekit/tagDBSTRUCT.h"

class QK_EXPORT CQKRoomUse : public tagDBSTRUCT, public CQKRoomUseData {
  QK_DECLARE_RECORD_TABLE(CQKRoomUse)

 public:
  CQKRoomUse() = default;
  CQKRoomUse(const CQKRoomUse&) = default;
  CQKRoomUse& operator=(const CQKRoomUse&) = default;
  ~CQKRoomUse() override = default;

  // Looks (RTId, Name) up in the table GetTableName gives: DBS_EXIST (this record becomes the first
  // matching row), DBS_NOTEXIST, DBS_ERROR.
  QKLoad::DBStatusCode IsExist(CADODatabase* db);
  // DBS_ADDED, DBS_EXIST (taken when bTakeExisting is nonzero), DBS_ERROR.
  QKLoad::DBStatusCode AddIfNotExist(CADODatabase* db, int bTakeExisting);
  // DBS_UPDATED, DBS_EXIST when another row holds (RTId, Name), DBS_ERROR.
  QKLoad::DBStatusCode UpdateIfNoOther(CADODatabase* db, int bTakeOther);
  // Re-reads this record's ID by (RTId, Name); no such row leaves it unchanged.
  void UpdateTableData(CADODatabase* db);
  // Writes this record into the row with key id of db (null: the record's own).
  int UpdateData(long id, CADODatabase* db = nullptr) override;
  // Does nothing and succeeds (1); kept as an entry point for hosts.
  int UpdateData(const wchar_t* name, CADODatabase* db);

  // The ID of the first room use named name under any room type: 0 when there is none, -1 when the
  // query cannot run. A null db is the class-wide connection as it stands: it is not opened here.
  static int HasRoomUse(const wchar_t* name, CADODatabase* db);
  // Does nothing, whatever it is given; kept as an entry point for hosts.
  static void UpdateRoomUseTableData(CADODatabase* from, CADODatabase* to);

 private:
  CQKRoomUse KeyProbe() const;
};
