#include "weather/CQKDesignData.h"

namespace {

// Reading and writing walk the fields in the same order, so the list is written once.
template <class Visit>
void EachField(CQKDesignData& d, Visit&& visit) {
  visit(d.Month);
  visit(d.DayOfMonth);
  visit(d.DayType);
  visit(d.MaxDryBulbTemp);
  visit(d.DailyTempRange);
  visit(d.ExtraText1);
  visit(d.ExtraText2);
  visit(d.HumIndType);
  visit(d.ExtraValue1);
  visit(d.ExtraText3);
  visit(d.HumMaxDryBulb);
  visit(d.ExtraValue2);
  visit(d.ExtraValue3);
  visit(d.BarPress);
  visit(d.WindSpeed);
  visit(d.WindDirection);
  visit(d.RainIndicator);
  visit(d.SnowIndicator);
  visit(d.DSTIndicator);
  visit(d.ExtraText4);
  visit(d.ExtraText5);
  visit(d.ExtraText6);
  visit(d.ExtraValue4);
  visit(d.ExtraValue5);
  visit(d.SkyClearness);
}

}  // namespace

ADataDef::ErrorCode CQKDesignData::DataInPut(CADataStream stream) {
  EachField(*this, [&stream](auto& field) { stream.ReadItem(&field); });
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKDesignData::DataOutPut(CADataStream stream) {
  EachField(*this, [&stream](auto& field) { stream.WriteItem(field); });
  return ADataDef::AD_OK;
}
