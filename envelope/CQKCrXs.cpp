#include "envelope/CQKCrXs.h"

void CQKCrXs::Init() {
  WHrXs = 18.6;
  DjWHrXs = 23.0;
  NHrXs = 8.7;
  Spare1 = Spare2 = Spare3 = Spare4 = Spare5 = 0.0;
}
