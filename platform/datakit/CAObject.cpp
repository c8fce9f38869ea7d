#include "datakit/CAObject.h"

IMPLEMENT_DYNAMIC(CAObject, CObject)
