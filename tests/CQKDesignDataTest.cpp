// The design day: 25 fields carried in declared order through the ordered stream, each with its own
// item type, with no version and no scaling.

#include <gtest/gtest.h>

#include "datakit/ADataDef.h"
#include "datakit/CADataStream.h"
#include "mfc/CString.h"
#include "weather/CQKDesignData.h"

namespace {

// A design day in which every field differs from zero and from every other field of the same type,
// so a field read into the wrong place shows.
CQKDesignData Filled() {
  CQKDesignData d;
  d.Month = 8;
  d.DayOfMonth = 15;
  d.DayType = 3;
  d.MaxDryBulbTemp = 36.4;   // °C
  d.DailyTempRange = 9.7;    // K
  d.ExtraText1 = L"夏季设计日";
  d.ExtraText2 = L"湿球";
  d.HumIndType = 2;
  d.ExtraValue1 = 11.5;
  d.ExtraText3 = L"第三";
  d.HumMaxDryBulb = 27.3;
  d.ExtraValue2 = 12.5;
  d.ExtraValue3 = 13.5;
  d.BarPress = 100260.0;     // Pa
  d.WindSpeed = 2.6;         // m/s
  d.WindDirection = 135.0;   // degrees
  d.RainIndicator = 1;
  d.SnowIndicator = 4;
  d.DSTIndicator = 5;
  d.ExtraText4 = L"四";
  d.ExtraText5 = L"五号";
  d.ExtraText6 = L"六 号";
  d.ExtraValue4 = 14.5;
  d.ExtraValue5 = 15.5;
  d.SkyClearness = 0.9;
  return d;
}

void ExpectSameDesignDay(const CQKDesignData& expected, const CQKDesignData& actual) {
  EXPECT_EQ(actual.Month, expected.Month);
  EXPECT_EQ(actual.DayOfMonth, expected.DayOfMonth);
  EXPECT_EQ(actual.DayType, expected.DayType);
  EXPECT_DOUBLE_EQ(actual.MaxDryBulbTemp, expected.MaxDryBulbTemp);
  EXPECT_DOUBLE_EQ(actual.DailyTempRange, expected.DailyTempRange);
  EXPECT_EQ(actual.ExtraText1, expected.ExtraText1);
  EXPECT_EQ(actual.ExtraText2, expected.ExtraText2);
  EXPECT_EQ(actual.HumIndType, expected.HumIndType);
  EXPECT_DOUBLE_EQ(actual.ExtraValue1, expected.ExtraValue1);
  EXPECT_EQ(actual.ExtraText3, expected.ExtraText3);
  EXPECT_DOUBLE_EQ(actual.HumMaxDryBulb, expected.HumMaxDryBulb);
  EXPECT_DOUBLE_EQ(actual.ExtraValue2, expected.ExtraValue2);
  EXPECT_DOUBLE_EQ(actual.ExtraValue3, expected.ExtraValue3);
  EXPECT_DOUBLE_EQ(actual.BarPress, expected.BarPress);
  EXPECT_DOUBLE_EQ(actual.WindSpeed, expected.WindSpeed);
  EXPECT_DOUBLE_EQ(actual.WindDirection, expected.WindDirection);
  EXPECT_EQ(actual.RainIndicator, expected.RainIndicator);
  EXPECT_EQ(actual.SnowIndicator, expected.SnowIndicator);
  EXPECT_EQ(actual.DSTIndicator, expected.DSTIndicator);
  EXPECT_EQ(actual.ExtraText4, expected.ExtraText4);
  EXPECT_EQ(actual.ExtraText5, expected.ExtraText5);
  EXPECT_EQ(actual.ExtraText6, expected.ExtraText6);
  EXPECT_DOUBLE_EQ(actual.ExtraValue4, expected.ExtraValue4);
  EXPECT_DOUBLE_EQ(actual.ExtraValue5, expected.ExtraValue5);
  EXPECT_DOUBLE_EQ(actual.SkyClearness, expected.SkyClearness);
}

// The 25 stream items read back by hand, each with the type the declared field has.
struct RawDesignDay {
  int month = -1, dayOfMonth = -1, dayType = -1;
  double maxDryBulb = -1, range = -1;
  CString text1, text2;
  int humIndType = -1;
  double value1 = -1;
  CString text3;
  double humMaxDryBulb = -1, value2 = -1, value3 = -1, barPress = -1, windSpeed = -1, windDirection = -1;
  int rain = -1, snow = -1, dst = -1;
  CString text4, text5, text6;
  double value4 = -1, value5 = -1, skyClearness = -1;
  int failures = 0;  // reads that did not succeed
};

RawDesignDay ReadRaw(CADataStream& s) {
  RawDesignDay r;
  auto read = [&](auto* target) { r.failures += s.ReadItem(target) != 0 ? 1 : 0; };
  read(&r.month);
  read(&r.dayOfMonth);
  read(&r.dayType);
  read(&r.maxDryBulb);
  read(&r.range);
  read(&r.text1);
  read(&r.text2);
  read(&r.humIndType);
  read(&r.value1);
  read(&r.text3);
  read(&r.humMaxDryBulb);
  read(&r.value2);
  read(&r.value3);
  read(&r.barPress);
  read(&r.windSpeed);
  read(&r.windDirection);
  read(&r.rain);
  read(&r.snow);
  read(&r.dst);
  read(&r.text4);
  read(&r.text5);
  read(&r.text6);
  read(&r.value4);
  read(&r.value5);
  read(&r.skyClearness);
  return r;
}

}  // namespace

TEST(CQKDesignData, FreshObjectHasEmptyTextsAndZeroNumbers) {
  const CQKDesignData d;

  EXPECT_EQ(d.Month, 0);
  EXPECT_EQ(d.DayOfMonth, 0);
  EXPECT_EQ(d.DayType, 0);
  EXPECT_EQ(d.MaxDryBulbTemp, 0.0);
  EXPECT_EQ(d.DailyTempRange, 0.0);
  EXPECT_EQ(d.ExtraText1, L"");
  EXPECT_EQ(d.ExtraText2, L"");
  EXPECT_EQ(d.HumIndType, 0);
  EXPECT_EQ(d.ExtraValue1, 0.0);
  EXPECT_EQ(d.ExtraText3, L"");
  EXPECT_EQ(d.HumMaxDryBulb, 0.0);
  EXPECT_EQ(d.ExtraValue2, 0.0);
  EXPECT_EQ(d.ExtraValue3, 0.0);
  EXPECT_EQ(d.BarPress, 0.0);
  EXPECT_EQ(d.WindSpeed, 0.0);
  EXPECT_EQ(d.WindDirection, 0.0);
  EXPECT_EQ(d.RainIndicator, 0);
  EXPECT_EQ(d.SnowIndicator, 0);
  EXPECT_EQ(d.DSTIndicator, 0);
  EXPECT_EQ(d.ExtraText4, L"");
  EXPECT_EQ(d.ExtraText5, L"");
  EXPECT_EQ(d.ExtraText6, L"");
  EXPECT_EQ(d.ExtraValue4, 0.0);
  EXPECT_EQ(d.ExtraValue5, 0.0);
  EXPECT_EQ(d.SkyClearness, 0.0);
}

TEST(CQKDesignData, StreamRoundTripKeepsAll25Fields) {
  CQKDesignData out = Filled();
  CADataStream stream;
  ASSERT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);
  CQKDesignData in;

  ASSERT_EQ(in.DataInPut(stream), ADataDef::AD_OK);

  ExpectSameDesignDay(out, in);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKDesignData, StreamHoldsTheFieldsInDeclaredOrderEachWithItsOwnType) {
  CQKDesignData out = Filled();
  CADataStream stream;

  ASSERT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);

  RawDesignDay raw = ReadRaw(stream);
  EXPECT_EQ(raw.failures, 0);
  EXPECT_EQ(raw.month, 8);
  EXPECT_EQ(raw.dayOfMonth, 15);
  EXPECT_EQ(raw.dayType, 3);
  EXPECT_DOUBLE_EQ(raw.maxDryBulb, 36.4);
  EXPECT_DOUBLE_EQ(raw.range, 9.7);
  EXPECT_EQ(raw.text1, L"夏季设计日");
  EXPECT_EQ(raw.text2, L"湿球");
  EXPECT_EQ(raw.humIndType, 2);
  EXPECT_DOUBLE_EQ(raw.value1, 11.5);
  EXPECT_EQ(raw.text3, L"第三");
  EXPECT_DOUBLE_EQ(raw.humMaxDryBulb, 27.3);
  EXPECT_DOUBLE_EQ(raw.value2, 12.5);
  EXPECT_DOUBLE_EQ(raw.value3, 13.5);
  EXPECT_DOUBLE_EQ(raw.windSpeed, 2.6);
  EXPECT_DOUBLE_EQ(raw.windDirection, 135.0);
  EXPECT_EQ(raw.rain, 1);
  EXPECT_EQ(raw.snow, 4);
  EXPECT_EQ(raw.dst, 5);
  EXPECT_EQ(raw.text4, L"四");
  EXPECT_EQ(raw.text5, L"五号");
  EXPECT_EQ(raw.text6, L"六 号");
  EXPECT_DOUBLE_EQ(raw.value4, 14.5);
  EXPECT_DOUBLE_EQ(raw.value5, 15.5);
  EXPECT_DOUBLE_EQ(raw.skyClearness, 0.9);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKDesignData, StreamWritesBarPressInPaUnscaled) {
  CQKDesignData out = Filled();
  out.BarPress = 101325.0;  // Pa
  CADataStream stream;

  ASSERT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);

  RawDesignDay raw = ReadRaw(stream);
  ASSERT_EQ(raw.failures, 0);
  EXPECT_DOUBLE_EQ(raw.barPress, 101325.0);
}

TEST(CQKDesignData, CopyConstructorCopiesEveryField) {
  const CQKDesignData source = Filled();

  const CQKDesignData copy(source);

  ExpectSameDesignDay(source, copy);
}

TEST(CQKDesignData, AssignmentCopiesEveryField) {
  const CQKDesignData source = Filled();
  CQKDesignData target;
  target.ExtraText1 = L"旧";
  target.Month = 2;

  target = source;

  ExpectSameDesignDay(source, target);
}

TEST(CQKDesignData, ChangingACopyLeavesItsSourceUnchanged) {
  const CQKDesignData source = Filled();
  CQKDesignData copy(source);

  copy.ExtraText1 = L"改过";
  copy.ExtraText6 = L"另一个";
  copy.BarPress = 90000.0;
  copy.Month = 12;

  ExpectSameDesignDay(Filled(), source);
}
