#pragma once
// CQKRULoadParam: the load parameters of one room use as a row of the load-parameter table, found by
// the room use's ID (RUId). The row is the value's named exchange, so humidities are stored in percent
// and the labour intensity as its int id.
//
// Its verbs answer with their own codes, unlike the geography and weather records: IsExist and
// AddOrUpdate use 0 both for "no row" and for "row inserted", 2 for an existing row and 1 for a failed
// query. Not safe for concurrent use.

#include "QKExport.h"
#include "foundation/QKLoad.h"
#include "foundation/QKRecordTable.h"
#include "rooms/CQKRURoomUseParamBaseData.h"
#include "tablekit/tagDBSTRUCT.h"

class QK_EXPORT CQKRULoadParam : public CQKRURoomUseParamBaseData, public tagDBSTRUCT {
  QK_DECLARE_RECORD_TABLE(CQKRULoadParam)

 public:
  CQKRULoadParam() = default;
  CQKRULoadParam(const CQKRULoadParam&) = default;
  CQKRULoadParam& operator=(const CQKRULoadParam&) = default;
  ~CQKRULoadParam() override = default;

  // Stores id in LoadParamLDQDId and, when the labour table knows it, its name in LaoDongQD. ET_OK.
  QKLoad::ErrorType SetLDQDId(QKLoad::EQKLdQdType id);
  // The id of the stored name LaoDongQD (not of LDQDId or LoadParamLDQDId); LdQdSitting for a name the
  // labour table does not know.
  QKLoad::EQKLdQdType GetLDQDId() const;

  // Loads the first row of room use ruId from the record's own database: 1, or 0 (nothing changed)
  // when there is none or the query fails.
  int ReadDataByRUId(int ruId);
  // Looks RUId up: 2 when stored (with exactly one row, ID becomes its key; with several ID is left
  // alone), 0 when not, 1 when the query fails.
  int IsExist(CADODatabase* db);
  // Writes these parameters into db (null: the record's own): 2 after updating the stored row, 0
  // after inserting a new one, 1 on failure.
  int AddOrUpdate(CADODatabase* db);
  // The ID of the first row whose "Name" is name: 0 when there is none, -1 when the query cannot run.
  // The load-parameter table of this library has no "Name" column (the parameters are filed by RUId),
  // so there this gives -1; it serves tables that do. A null db is the class-wide connection as it
  // stands: it is not opened here.
  static int HasRULoadParam(const wchar_t* name, CADODatabase* db);

  int LoadParamLDQDId = 0;  // written only by SetLDQDId
};
