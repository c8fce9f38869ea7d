#pragma once
// CQKBoundingStructure: the bounding structure of an envelope code as a row of the bounding-structure
// table, found by the code's ID (BSCId): one row per code. The row holds the three layer texts;
// every read from the table also copies the key into Id and rebuilds the layer arrays (MakeArray),
// and every write stores the texts only.
//
// The table also has a column "TId" that this record neither reads nor writes; only the lookup
// HasBoundingStructure asks for it. Not safe for concurrent use.

#include "QKExport.h"
#include "envelope/CQKBoundingStructureData.h"
#include "foundation/QKLoad.h"
#include "foundation/QKRecordTable.h"
#include "tablekit/tagDBSTRUCT.h"

class QK_EXPORT CQKBoundingStructure : public CQKBoundingStructureData, public tagDBSTRUCT {
  QK_DECLARE_RECORD_TABLE(CQKBoundingStructure)

 public:
  CQKBoundingStructure() = default;
  CQKBoundingStructure(const CQKBoundingStructure&) = default;
  CQKBoundingStructure& operator=(const CQKBoundingStructure&) = default;
  ~CQKBoundingStructure() override = default;

  // ID 0, then the value's Init.
  void Init() override;

  // Looks BSCId up: DBS_EXIST (with exactly one row this record takes its ID; with several it keeps
  // its own), DBS_NOTEXIST, DBS_ERROR.
  QKLoad::DBStatusCode IsExist(CADODatabase* db);
  // Inserts this structure when its code has none (DBS_ADDED), else writes it into the row with this
  // record's ID (DBS_UPDATED); DBS_ERROR when the lookup or the write fails. A null db is the
  // record's own.
  QKLoad::DBStatusCode AddOrUpdate(CADODatabase* db);

  // The ID of the first row of code bscId whose "TId" is tId: 0 when there is none, -1 when the query
  // cannot run. A null db is the class-wide connection as it stands: it is not opened here.
  static int HasBoundingStructure(long bscId, long tId, CADODatabase* db);
  // Does nothing, whatever it is given; kept as an entry point for hosts.
  static void UpdateBoundingStructureTableData(CADODatabase* from, CADODatabase* to);
};
