#pragma once
// CQKBSCategory: an envelope category (external walls, roofs, windows...), the upper level of the
// envelope catalogue, as a row of the category table. Read only: the catalogue administration lists
// the categories by the table's "OrderId" column, which this record neither reads nor writes.
// Stream: Name. Named item and column: "Name" (besides "ID").

#include "QKExport.h"
#include "foundation/CQKNamedData.h"
#include "foundation/QKRecordTable.h"
#include "tablekit/tagDBSTRUCT.h"

class QK_EXPORT CQKBSCategory : public tagDBSTRUCT, public CQKNamedData {
  QK_DECLARE_RECORD_TABLE(CQKBSCategory)

 public:
  CQKBSCategory() = default;
  CQKBSCategory(const CQKBSCategory&) = default;
  CQKBSCategory& operator=(const CQKBSCategory&) = default;
  ~CQKBSCategory() override = default;

  // ID 0, Name "".
  void Init() override;
};
