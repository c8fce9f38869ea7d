#include "envelope/CQKBSCategory.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKBSCategory, CQKNamedData)

void CQKBSCategory::Init() {
  ID = 0;
  CQKNamedData::Init();
}
