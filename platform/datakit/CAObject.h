#pragma once
// CAObject: the root of the data-object library's classes (values, property stores), a CObject with
// a run-time class of its own.

#include "QKExport.h"
#include "mfc/CObject.h"

class QK_EXPORT CAObject : public CObject {
  DECLARE_DYNAMIC(CAObject)
 public:
  ~CAObject() override = default;

 protected:
  CAObject() = default;
  CAObject(const CAObject&) = default;
  CAObject& operator=(const CAObject&) = default;
};
