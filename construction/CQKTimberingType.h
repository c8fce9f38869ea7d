#pragma once
// CQKTimberingType: a construction type (walls, roofs, glazing...) as a row of the construction-type
// table; constructions name theirs by "TTId". The natural key is Name. Names go into the SQL between
// double quotes without escaping: a name holding a double quote fails its query and writes nothing.
// Not safe for concurrent use.

#include "QKExport.h"
#include "foundation/CQKNamedData.h"
#include "foundation/QKLoad.h"
#include "foundation/QKRecordTable.h"
#include "tablekit/tagDBSTRUCT.h"

class QK_EXPORT CQKTimberingType : public tagDBSTRUCT, public CQKNamedData {
  QK_DECLARE_RECORD_TABLE(CQKTimberingType)

 public:
  CQKTimberingType() = default;
  CQKTimberingType(const CQKTimberingType&) = default;
  CQKTimberingType& operator=(const CQKTimberingType&) = default;
  ~CQKTimberingType() override = default;

  // ID 0, Name "".
  void Init() override;

  // The verbs by name; IsExist looks in the class table (s_m_strTableName), whatever a subclass's
  // GetTableName says.
  QK_DECLARE_VERBS_BY_NAME(CQKTimberingType)

  // The ID of the first construction type named name: 0 when there is none, -1 when the query cannot
  // run. A null db is the class-wide connection as it stands: it is not opened here.
  static int HasTimberingType(const wchar_t* name, CADODatabase* db);
  // Does nothing, whatever it is given; kept as an entry point for hosts.
  static void UpdateTimberingTypeTableData(CADODatabase* from, CADODatabase* to);
};
