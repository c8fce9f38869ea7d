#include "datakit/CAData.h"

#include <memory>
#include <typeinfo>

IMPLEMENT_DYNCREATE(CAData, CAObject)

unsigned long CAData::kCurrentVersionNumber = 4;

CAData* CAData::Clone() const {
  // A class that declares no run-time class of its own would be created as its nearest declaring
  // base: that is not a clone.
  if (!GetRuntimeClass()->IsExactClassOf(*this)) return nullptr;
  std::unique_ptr<CObject> created(GetRuntimeClass()->CreateObject());
  auto* copy = dynamic_cast<CAData*>(created.get());
  if (copy == nullptr || copy->Copy(this) != ADataDef::AD_OK) return nullptr;
  (void)created.release();  // the caller owns it, through copy
  return copy;
}

ADataDef::ErrorCode CAData::Copy(const CAData* other) {
  if (other == nullptr) return ADataDef::AD_INCOMPATIBLE;
  if (other == this) return ADataDef::AD_OK;
  // A class with a run-time class of its own accepts its derived classes; one without (it reports
  // its base's) can only be told apart by its C++ type, and accepts exactly that type.
  const CRuntimeClass* mine = GetRuntimeClass();
  bool related = mine->IsExactClassOf(*this) ? other->IsKindOf(mine) : typeid(*other) == typeid(*this);
  if (!related) return ADataDef::AD_INCOMPATIBLE;
  CADataStream stream;
  const_cast<CAData*>(other)->DataOutPut(stream);
  return DataInPut(stream);
}

ADataDef::ErrorCode CAData::DataInPut(CADataStream) { return ADataDef::AD_OK; }
ADataDef::ErrorCode CAData::DataOutPut(CADataStream) { return ADataDef::AD_OK; }
ADataDef::ErrorCode CAData::DataInPro(CADataExchange) { return ADataDef::AD_OK; }
ADataDef::ErrorCode CAData::DataOutPro(CADataExchange) { return ADataDef::AD_OK; }
void CAData::Init() {}
