#include "datakit/CAData.h"

#include <memory>
#include <typeinfo>

IMPLEMENT_DYNCREATE(CAData, CAObject)

unsigned long CAData::kCurrentVersionNumber = 4;

CAData* CAData::Clone() const {
  std::unique_ptr<CObject> created(GetRuntimeClass()->CreateObject());
  auto* copy = dynamic_cast<CAData*>(created.get());
  if (copy == nullptr || copy->Copy(this) != ADataDef::AD_OK) return nullptr;
  created.release();
  return copy;
}

ADataDef::ErrorCode CAData::Copy(const CAData* other) {
  if (other == nullptr) return ADataDef::AD_INCOMPATIBLE;
  if (other == this) return ADataDef::AD_OK;
  const CRuntimeClass* mine = GetRuntimeClass();
  if (!other->IsKindOf(mine)) return ADataDef::AD_INCOMPATIBLE;
  // A class that declares no run-time class reports CAData's; only the C++ type tells it apart.
  if (mine == RUNTIME_CLASS(CAData) && typeid(*other) != typeid(*this)) return ADataDef::AD_INCOMPATIBLE;
  CADataStream stream;
  const_cast<CAData*>(other)->DataOutPut(stream);
  return DataInPut(stream);
}

ADataDef::ErrorCode CAData::DataInPut(CADataStream) { return ADataDef::AD_OK; }
ADataDef::ErrorCode CAData::DataOutPut(CADataStream) { return ADataDef::AD_OK; }
ADataDef::ErrorCode CAData::DataInPro(CADataExchange) { return ADataDef::AD_OK; }
ADataDef::ErrorCode CAData::DataOutPro(CADataExchange) { return ADataDef::AD_OK; }
void CAData::Init() {}
