#pragma once
// CAData: the base of every serialisable value. A value writes its items to an ordered stream
// (DataOutPut, read back by DataInPut) and to a named exchange (DataOutPro / DataInPro); derived
// classes first call the base's operation, then move their own fields.
//
// CAData itself owns no items: its four serialisation verbs move nothing and return 0, so a derived
// stream begins directly with the derived class's items.
//
// Copy and Clone work for any derived class through the ordered stream: Copy writes the other object
// to a fresh stream and reads this one from it. A class whose stream does not round-trip exactly
// overrides Copy. Copy refuses (23) an object of an unrelated class: for a class that declares its own
// run-time class, one whose run-time class does not derive from it; for a class that declares none
// (it reports its base's), any object of another C++ type. Clone creates by run-time class, so it
// needs DECLARE_DYNCREATE on the object's own class, and returns null otherwise.
//
// kCurrentVersionNumber is the stream version shared by every value (the newest version this
// library writes, 4, unless a host sets another); classes with optional stream blocks consult it.

#include "QKExport.h"
#include "datakit/ADataDef.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAObject.h"

class QK_EXPORT CAData : public CAObject {
  DECLARE_DYNCREATE(CAData)
 public:
  CAData() = default;
  CAData(const CAData&) = default;
  CAData& operator=(const CAData&) = default;
  ~CAData() override = default;

  // A new object of this object's run-time class holding a copy of it; null when that class cannot
  // be created by name or the copy fails. The caller owns it.
  virtual CAData* Clone() const;
  // Makes this object a copy of other; 23 for an unrelated class or a null other.
  virtual ADataDef::ErrorCode Copy(const CAData* other);
  virtual ADataDef::ErrorCode DataInPut(CADataStream stream);
  virtual ADataDef::ErrorCode DataOutPut(CADataStream stream);
  virtual ADataDef::ErrorCode DataInPro(CADataExchange exchange);
  virtual ADataDef::ErrorCode DataOutPro(CADataExchange exchange);
  // Sets the defaults; CAData has none.
  virtual void Init();

  static unsigned long kCurrentVersionNumber;
};
