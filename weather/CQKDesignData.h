#pragma once
// CQKDesignData: one design day for hourly simulation (month, day, temperatures, pressure, wind, sky).
// The weather value holds one for summer and one for winter and sets their named fields; the extra
// texts and values are only carried, for the hosts that use them. A plain value: copies share nothing.
//
// The ordered stream holds the 25 fields in declared order, each with its own type; no version, no
// scaling (BarPress stays in Pa here, unlike the weather value's own pressures). It is not a CAData.

#include "QKExport.h"
#include "datakit/ADataDef.h"
#include "datakit/CADataStream.h"
#include "mfc/CString.h"

class QK_EXPORT CQKDesignData {
 public:
  // Empty texts and every number 0.
  CQKDesignData() = default;
  CQKDesignData(const CQKDesignData&) = default;
  CQKDesignData& operator=(const CQKDesignData&) = default;
  virtual ~CQKDesignData() = default;

  // Each returns 0; an item that cannot be read leaves its field as it was.
  virtual ADataDef::ErrorCode DataInPut(CADataStream stream);
  virtual ADataDef::ErrorCode DataOutPut(CADataStream stream);

  int Month = 0;             // 1..12
  int DayOfMonth = 0;
  int DayType = 0;
  double MaxDryBulbTemp = 0.0;  // °C
  double DailyTempRange = 0.0;  // K
  CString ExtraText1;
  CString ExtraText2;
  int HumIndType = 0;          // what HumMaxDryBulb stands for
  double ExtraValue1 = 0.0;
  CString ExtraText3;
  double HumMaxDryBulb = 0.0;  // the humidity-indicating value at the maximum dry-bulb
  double ExtraValue2 = 0.0;
  double ExtraValue3 = 0.0;
  double BarPress = 0.0;       // Pa
  double WindSpeed = 0.0;      // m/s
  double WindDirection = 0.0;  // degrees
  int RainIndicator = 0;
  int SnowIndicator = 0;
  int DSTIndicator = 0;        // daylight saving
  CString ExtraText4;
  CString ExtraText5;
  CString ExtraText6;
  double ExtraValue4 = 0.0;
  double ExtraValue5 = 0.0;
  double SkyClearness = 0.0;
};
