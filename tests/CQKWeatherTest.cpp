// The weather record: a city's design climate as a row of the weather table, found by the city's id.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "WeatherFixture.h"
#include "datakit/CAMemoryDataProp.h"
#include "weather/CQKWeather.h"

using namespace QKLoad;

namespace {

using CQKWeatherTest = WeatherFixture;

// A climate in which every exchanged field differs from the Beijing defaults. Values are chosen so
// that the unit changes on the way to the table (Pa/100, fraction*100) and back are exact in doubles
// to the last bit or within one rounding, which the assertions allow.
CQKWeather Guangzhou(long cityId) {
  CQKWeather w;
  w.CId = cityId;
  w.DistrictCode = 8;
  w.JD = 113.32 * std::numbers::pi / 180.0;
  w.WD = 23.17 * std::numbers::pi / 180.0;
  w.DjDqy = 101950.0;
  w.XjDqy = 100450.0;
  w.DjCnSwGqWd = 8.0;
  w.DjKtSwGqWd = 5.2;
  w.XjKtSwGqWd = 34.2;
  w.XjKtRPjWd = 30.7;
  w.XjJsRJC = 6.6;
  w.XjKtSwSqWd = 27.8;
  w.Xjzdfx = 135.0;
  w.Xjswzdfxpjfs = 2.3;
  w.Djzdfx = 0.0;
  w.Djswzdfxpjfs = 2.6;  // shares its column with DjSwZdFxPjFs (see DjSwZdFxPjFsFillsBoth...)
  w.ZlYPjXdSd = 0.72;
  w.ZRYPjXdSd = 0.83;
  w.DjSwZdFxPjFs = 2.6;
  w.XjSwPjFs = 1.7;
  w.XjKtDqTmDDj = 5;
  w.XjTfSwGqWd = 31.8;
  w.XjTfSwXdSd = 0.66;
  w.DjTfSwGqWd = 13.6;
  w.DjKtSwXdSd = 0.68;
  w.DjSwPjFs = 1.7;
  for (int k = 0; k < 8; ++k) w.DjLfStCxXz[k] = 1.0 + 0.05 * (k + 1);
  w.DBMNPJWD = 24.1;
  w.DBMZRYPJWD = 32.0;
  w.DBMZLYPJWD = 15.3;
  w.CityType = 1;
  w.EpwName = L"CHN_Guangdong.Guangzhou.592870_CSWD.epw";
  w.EpwType = 3;
  w.Elevation = 41.7;
  w.TimeZone = 8.0;
  w.SumDesignDay.MaxDryBulbTemp = 35.9;
  w.SumDesignDay.DailyTempRange = 6.8;
  w.SumDesignDay.HumMaxDryBulb = 26.1;
  w.SumDesignDay.BarPress = 100450.0;
  w.SumDesignDay.WindSpeed = 1.8;
  w.SumDesignDay.WindDirection = 135.0;
  w.SumDesignDay.SkyClearness = 0.9;
  w.SumDesignDay.RainIndicator = 1;
  w.SumDesignDay.SnowIndicator = 0;
  w.SumDesignDay.DayOfMonth = 15;
  w.SumDesignDay.Month = 8;
  w.SumDesignDay.DayType = 2;
  w.SumDesignDay.DSTIndicator = 1;
  w.SumDesignDay.HumIndType = 2;
  w.WinDesignDay.MaxDryBulbTemp = 5.2;
  w.WinDesignDay.DailyTempRange = 7.5;
  w.WinDesignDay.HumMaxDryBulb = 1.1;
  w.WinDesignDay.BarPress = 101950.0;
  w.WinDesignDay.WindSpeed = 2.6;
  w.WinDesignDay.WindDirection = 0.0;
  w.WinDesignDay.SkyClearness = 0.4;
  w.WinDesignDay.RainIndicator = 0;
  w.WinDesignDay.SnowIndicator = 1;
  w.WinDesignDay.DayOfMonth = 10;
  w.WinDesignDay.Month = 2;
  w.WinDesignDay.DayType = 3;
  w.WinDesignDay.DSTIndicator = 0;
  w.WinDesignDay.HumIndType = 1;
  w.SumWindDef = L"SE";
  w.WinWindDef = L"NNE";
  return w;
}

// Every field that travels through the named exchange, compared within one rounding of the unit
// change (relative 1e-12; the values differ by far more than that from their defaults).
void ExpectSameExchangedFields(const CQKWeatherData& a, const CQKWeatherData& b) {
  auto near = [](double x, double y) { return std::fabs(x - y) <= 1e-12 * std::fmax(1.0, std::fabs(x)); };
  EXPECT_EQ(a.CId, b.CId);
  EXPECT_EQ(a.DistrictCode, b.DistrictCode);
  EXPECT_PRED2(near, a.JD, b.JD);
  EXPECT_PRED2(near, a.WD, b.WD);
  EXPECT_PRED2(near, a.DjDqy, b.DjDqy);
  EXPECT_PRED2(near, a.XjDqy, b.XjDqy);
  EXPECT_EQ(a.DjCnSwGqWd, b.DjCnSwGqWd);
  EXPECT_EQ(a.DjKtSwGqWd, b.DjKtSwGqWd);
  EXPECT_EQ(a.XjKtSwGqWd, b.XjKtSwGqWd);
  EXPECT_EQ(a.XjKtRPjWd, b.XjKtRPjWd);
  EXPECT_EQ(a.XjJsRJC, b.XjJsRJC);
  EXPECT_EQ(a.XjKtSwSqWd, b.XjKtSwSqWd);
  EXPECT_EQ(a.Xjzdfx, b.Xjzdfx);
  EXPECT_EQ(a.Xjswzdfxpjfs, b.Xjswzdfxpjfs);
  EXPECT_EQ(a.Djzdfx, b.Djzdfx);
  EXPECT_EQ(a.Djswzdfxpjfs, b.Djswzdfxpjfs);
  EXPECT_PRED2(near, a.ZlYPjXdSd, b.ZlYPjXdSd);
  EXPECT_PRED2(near, a.ZRYPjXdSd, b.ZRYPjXdSd);
  EXPECT_EQ(a.DjSwZdFxPjFs, b.DjSwZdFxPjFs);
  EXPECT_EQ(a.XjSwPjFs, b.XjSwPjFs);
  EXPECT_EQ(a.XjKtDqTmDDj, b.XjKtDqTmDDj);
  EXPECT_EQ(a.XjTfSwGqWd, b.XjTfSwGqWd);
  EXPECT_PRED2(near, a.XjTfSwXdSd, b.XjTfSwXdSd);
  EXPECT_EQ(a.DjTfSwGqWd, b.DjTfSwGqWd);
  EXPECT_PRED2(near, a.DjKtSwXdSd, b.DjKtSwXdSd);
  EXPECT_EQ(a.DjSwPjFs, b.DjSwPjFs);
  for (int k = 0; k < 8; ++k) EXPECT_EQ(a.DjLfStCxXz[k], b.DjLfStCxXz[k]) << k;
  EXPECT_EQ(a.DBMNPJWD, b.DBMNPJWD);
  EXPECT_EQ(a.DBMZRYPJWD, b.DBMZRYPJWD);
  EXPECT_EQ(a.DBMZLYPJWD, b.DBMZLYPJWD);
  EXPECT_EQ(a.CityType, b.CityType);
  EXPECT_EQ(a.EpwName, b.EpwName);
  EXPECT_EQ(a.EpwType, b.EpwType);
  EXPECT_EQ(a.Elevation, b.Elevation);
  EXPECT_EQ(a.TimeZone, b.TimeZone);
  for (auto [x, y] : {std::pair{&a.SumDesignDay, &b.SumDesignDay}, std::pair{&a.WinDesignDay, &b.WinDesignDay}}) {
    EXPECT_EQ(x->MaxDryBulbTemp, y->MaxDryBulbTemp);
    EXPECT_EQ(x->DailyTempRange, y->DailyTempRange);
    EXPECT_EQ(x->HumMaxDryBulb, y->HumMaxDryBulb);
    EXPECT_EQ(x->BarPress, y->BarPress);
    EXPECT_EQ(x->WindSpeed, y->WindSpeed);
    EXPECT_EQ(x->WindDirection, y->WindDirection);
    EXPECT_EQ(x->SkyClearness, y->SkyClearness);
    EXPECT_EQ(x->RainIndicator, y->RainIndicator);
    EXPECT_EQ(x->SnowIndicator, y->SnowIndicator);
    EXPECT_EQ(x->DayOfMonth, y->DayOfMonth);
    EXPECT_EQ(x->Month, y->Month);
    EXPECT_EQ(x->DayType, y->DayType);
    EXPECT_EQ(x->DSTIndicator, y->DSTIndicator);
    EXPECT_EQ(x->HumIndType, y->HumIndType);
  }
  EXPECT_EQ(a.SumWindDef, b.SumWindDef);
  EXPECT_EQ(a.WinWindDef, b.WinWindDef);
}

}  // namespace

TEST(CQKWeather, ConstructorKeepsTheDefaultsAndStoresItsIntInAux2) {
  CQKWeather w(7);
  EXPECT_EQ(w.Aux2, 7);
  EXPECT_EQ(w.CId, 8);
  EXPECT_EQ(w.CityName, L"北 京");
  EXPECT_EQ(w.DjDqy, 102040.0);
  EXPECT_EQ(w.GetID(), 0);
  EXPECT_EQ(CQKWeather().Aux2, 0);
}

TEST_P(CQKWeatherTest, TheTableHasAColumnForEveryNamedItem) {
  CAMemoryDataProp items;
  CQKWeatherData().DataOutPro(CADataExchange(items));
  // 72 items under 71 names: the store, like a row, takes "Djswzdfxpjfs" and "DjSwZdFxPjFs" as one.
  ASSERT_EQ(items.GetCount(), 71);
  // The table's columns, by each backend's catalogue (the server keeps names in lower case).
  const std::string columns = OnSQLite() ? "pragma_table_info('Weather')"
                                         : "information_schema.columns where table_name='weather' and";
  const std::string where = OnSQLite() ? " where" : "";
  for (int i = 0; i < items.GetCount(); ++i) {
    const std::string column = items.GetName(i).ToUtf8();
    const std::string name = OnSQLite() ? "name" : "column_name";
    EXPECT_EQ(Query("select count(*) from " + columns + where + " lower(" + name + ")=lower('" + column + "')"), "1")
        << column;
  }
  // "ID" and one column per name.
  EXPECT_EQ(Query("select count(*) from " + (OnSQLite() ? columns : columns.substr(0, columns.size() - 4))), "72");
}

TEST_P(CQKWeatherTest, DjSwZdFxPjFsFillsBothItemsOfItsColumn) {
  CQKWeather out;
  out.CId = 3;
  out.DjSwZdFxPjFs = 3.1;
  out.Djswzdfxpjfs = 1.9;
  ASSERT_EQ(out.AddIfNotExist(nullptr, 0), DBS_ADDED);
  EXPECT_EQ(Query("select DjSwZdFxPjFs from Weather"), "3.1");

  CQKWeather in;
  ASSERT_TRUE(in.ReadData(out.GetID(), nullptr));
  EXPECT_EQ(in.DjSwZdFxPjFs, 3.1);
  EXPECT_EQ(in.Djswzdfxpjfs, 3.1);
}

// A row of nulls but its key, its city and its weather file: the null columns leave every number as
// it was, the scaled ones (pressures, humidities) included, bit for bit.
TEST_P(CQKWeatherTest, NullColumnsLeaveEveryFieldAsItWas) {
  Seed("INSERT INTO Weather (CId, EpwName) VALUES (8, 'CHN_Beijing.Beijing.545110_CSWD.epw');");
  CQKWeather in;
  ASSERT_TRUE(in.ReadData(1, nullptr));
  const CQKWeather defaults;
  EXPECT_EQ(in.DjDqy, defaults.DjDqy);
  EXPECT_EQ(in.XjDqy, defaults.XjDqy);
  EXPECT_EQ(in.ZlYPjXdSd, defaults.ZlYPjXdSd);
  EXPECT_EQ(in.ZRYPjXdSd, defaults.ZRYPjXdSd);
  EXPECT_EQ(in.XjTfSwXdSd, defaults.XjTfSwXdSd);
  EXPECT_EQ(in.DjKtSwXdSd, defaults.DjKtSwXdSd);
  // Every other field, through the stream that carries them all; only the record's key differs, and
  // the two texts: a text item reads a null column as "" (the store's rule for texts).
  CQKWeather expected = defaults;
  expected.SetID(in.GetID());
  expected.SumWindDef = L"";
  expected.WinWindDef = L"";
  CADataStream read, fresh;
  in.DataOutPut(read);
  expected.DataOutPut(fresh);
  EXPECT_EQ(read.GetBytes(), fresh.GetBytes());
}

// Pressures and humidities are stored with the decimals they were given: 58 %, not 57.99999999999999,
// and read back as the very doubles that were written.
TEST_P(CQKWeatherTest, ScaledItemsAreStoredWithTheirDecimalsAndReadBackExactly) {
  CQKWeather out;
  out.CId = 4;
  out.XjTfSwXdSd = 58.0 / 100.0;
  out.DjKtSwXdSd = 0.29;
  out.DjDqy = 99580.0;  // 石家庄: 99580 * 0.01 is 995.8000000000001
  out.XjDqy = 100450.0;
  ASSERT_EQ(out.AddIfNotExist(nullptr, 0), DBS_ADDED);
  EXPECT_EQ(Query("select XjTfSwXdSd from Weather"), "58.0");
  EXPECT_EQ(Query("select DjKtSwXdSd from Weather"), "29.0");
  EXPECT_EQ(Query("select DjDqy from Weather"), "995.8");
  EXPECT_EQ(Query("select XjDqy from Weather"), "1004.5");
  CQKWeather in;
  ASSERT_TRUE(in.ReadData(out.GetID(), nullptr));
  EXPECT_EQ(in.XjTfSwXdSd, out.XjTfSwXdSd);
  EXPECT_EQ(in.DjKtSwXdSd, out.DjKtSwXdSd);
  EXPECT_EQ(in.DjDqy, out.DjDqy);
  EXPECT_EQ(in.XjDqy, out.XjDqy);
}

TEST_P(CQKWeatherTest, IsExistWithoutARowIsNotExist) {
  CQKWeather w;
  w.CId = 3;
  EXPECT_EQ(w.IsExist(nullptr), DBS_NOTEXIST);
  EXPECT_EQ(w.GetID(), 0);
}

TEST_P(CQKWeatherTest, IsExistWithOneRowTakesItsKeyOnly) {
  AddWeather(3, 1.0, 0.5, "a.epw", 30.0);
  AddWeather(4, 1.0, 0.5, "b.epw", 31.0);
  CQKWeather w;
  w.CId = 4;
  EXPECT_EQ(w.IsExist(nullptr), DBS_EXIST);
  EXPECT_EQ(w.GetID(), 2);
  EXPECT_EQ(w.XjKtSwGqWd, 33.2);  // the row's climate is not read
  EXPECT_EQ(w.EpwName, L"CHN_Beijing.Beijing.545110_CSWD.epw");
}

TEST_P(CQKWeatherTest, IsExistWithTwoRowsForOneCityLeavesTheKeyAlone) {
  AddWeather(3, 1.0, 0.5, "a.epw", 30.0);
  AddWeather(3, 1.0, 0.5, "b.epw", 31.0);
  CQKWeather w;
  w.CId = 3;
  w.SetID(77);
  EXPECT_EQ(w.IsExist(nullptr), DBS_EXIST);
  EXPECT_EQ(w.GetID(), 77);
}

TEST_P(CQKWeatherTest, IsExistWithoutTheTableIsAnError) {
  CQKWeather::S_Init(path, L"NoSuchTable");
  CQKWeather w;
  EXPECT_EQ(w.IsExist(nullptr), DBS_ERROR);
}

TEST_P(CQKWeatherTest, AddIfNotExistInsertsInTheTablesUnits) {
  CQKWeather w;
  w.CId = 12;
  ASSERT_EQ(w.AddIfNotExist(nullptr, 0), DBS_ADDED);
  EXPECT_EQ(w.GetID(), 1);
  EXPECT_EQ(Query("select CId from Weather where ID=1"), "12");
  EXPECT_EQ(Query("select DjDqy from Weather"), "1020.4");       // hPa
  EXPECT_EQ(Query("select XjDqy from Weather"), "998.6");
  EXPECT_EQ(Query("select ZlYPjXdSd from Weather"), "45.0");     // percent
  EXPECT_EQ(Query("select DjKtSwXdSd from Weather"), "37.0");    // percent here, unlike the stream
  EXPECT_EQ(Query("select round(JD * 180 / pi(), 10) from Weather"), "116.47");  // radians
  EXPECT_EQ(Query("select SumBarPress from Weather"), "100950.0");  // a design day's pressure stays in Pa
  EXPECT_EQ(Query("select WinMonth from Weather"), "1");
  EXPECT_EQ(Query("select WinWindDef from Weather"), "N");
}

TEST_P(CQKWeatherTest, AddIfNotExistOnAStoredCityWithoutUpdateChangesNothing) {
  AddWeather(12, 1.0, 0.5, "a.epw", 30.0);
  CQKWeather w;
  w.CId = 12;
  EXPECT_EQ(w.AddIfNotExist(nullptr, 0), DBS_EXIST);
  EXPECT_EQ(w.GetID(), 1);
  EXPECT_EQ(Query("select XjKtSwGqWd from Weather"), "30.0");
  EXPECT_EQ(Query("select count(*) from Weather"), "1");
}

TEST_P(CQKWeatherTest, AddIfNotExistWithUpdateOverwritesTheStoredRow) {
  AddWeather(12, 1.0, 0.5, "a.epw", 30.0);
  CQKWeather w;
  w.CId = 12;
  w.XjKtSwGqWd = 35.5;
  EXPECT_EQ(w.AddIfNotExist(&db, 1), DBS_EXIST);
  EXPECT_EQ(Query("select XjKtSwGqWd from Weather where ID=1"), "35.5");
  EXPECT_EQ(Query("select count(*) from Weather"), "1");
}

TEST_P(CQKWeatherTest, AddIfNotExistUpdatesInTheRecordsOwnDatabaseWhateverDatabaseIsGiven) {
  // The same city is stored in the record's own database and in another one; the update asked of
  // the other lands in the record's own, as the record's contract has it.
  AddWeather(12, 1.0, 0.5, "own.epw", 30.0);
  const CString otherPath = CreateReferenceDatabase(dir, "other.db");
  CreateDatabase(otherPath, "INSERT INTO Weather (CId, XjKtSwGqWd) VALUES (12, 20.0);");
  CADODatabase other;
  ASSERT_TRUE(other.OpenAccess(otherPath, L"", L""));
  CQKWeather w;
  w.CId = 12;
  w.XjKtSwGqWd = 35.5;
  EXPECT_EQ(w.AddIfNotExist(&other, 1), DBS_EXIST);
  EXPECT_EQ(Query("select XjKtSwGqWd from Weather"), "35.5");
  EXPECT_EQ(QueryOne(otherPath, "select XjKtSwGqWd from Weather"), "20.0");
}

TEST_P(CQKWeatherTest, AddIfNotExistInsertsIntoTheGivenDatabase) {
  const CString otherPath = CreateReferenceDatabase(dir, "other.db");
  CADODatabase other;
  ASSERT_TRUE(other.OpenAccess(otherPath, L"", L""));
  CQKWeather w;
  w.CId = 5;
  EXPECT_EQ(w.AddIfNotExist(&other, 1), DBS_ADDED);
  EXPECT_EQ(QueryOne(otherPath, "select CId from Weather"), "5");
  EXPECT_EQ(Query("select count(*) from Weather"), "0");
}

TEST_P(CQKWeatherTest, AddIfNotExistWithoutTheTableIsAnErrorAndWritesNothing) {
  CQKWeather::S_Init(path, L"NoSuchTable");
  CQKWeather w;
  EXPECT_EQ(w.AddIfNotExist(nullptr, 1), DBS_ERROR);
  EXPECT_EQ(Query("select count(*) from Weather"), "0");
}

TEST_P(CQKWeatherTest, AddIfNotExistOnAReadOnlyDatabaseIsAnErrorAndKeepsItsRows) {
  const CString readOnly = CreateReadOnlyDatabase(dir, "readonly.db",
                                                  "CREATE TABLE Weather (ID INTEGER PRIMARY KEY AUTOINCREMENT, "
                                                  "CId INTEGER, XjKtSwGqWd REAL);"
                                                  "INSERT INTO Weather (CId, XjKtSwGqWd) VALUES (1, 30.0);");
  const int result = RunUnprivileged([&] {
    CADODatabase ro;
    if (!ro.OpenAccess(readOnly, L"", L"")) return 10;
    CQKWeather stored;
    stored.CId = 1;
    if (stored.IsExist(&ro) != DBS_EXIST) return 11;
    CQKWeather added;
    added.CId = 2;
    if (added.AddIfNotExist(&ro, 0) != DBS_ERROR) return 12;
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(QueryOne(readOnly, "select group_concat(CId || ':' || XjKtSwGqWd) from Weather"), "1:30.0");
}

TEST_P(CQKWeatherTest, UpdateDataWithoutADatabaseWritesTheRecordsOwn) {
  AddWeather(12, 1.0, 0.5, "a.epw", 30.0);
  CQKWeather w;
  w.CId = 12;
  w.EpwName = L"重写.epw";
  EXPECT_TRUE(w.UpdateData(1, nullptr));
  EXPECT_EQ(Query("select EpwName from Weather where ID=1"), "重写.epw");
}

TEST_P(CQKWeatherTest, UpdateDataOfAMissingRowFails) {
  CQKWeather w;
  EXPECT_FALSE(w.UpdateData(5, nullptr));
  EXPECT_EQ(Query("select count(*) from Weather"), "0");
}

TEST_P(CQKWeatherTest, AFullClimateRoundTripsThroughTheDatabase) {
  CQKWeather out = Guangzhou(21);
  ASSERT_EQ(out.AddIfNotExist(nullptr, 0), DBS_ADDED);
  EXPECT_EQ(Query("select DjKtSwXdSd from Weather"), "68.0");
  EXPECT_EQ(Query("select XjDqy from Weather"), "1004.5");

  CQKWeather in;
  ASSERT_TRUE(in.ReadData(out.GetID(), nullptr));
  EXPECT_EQ(in.GetID(), out.GetID());
  ExpectSameExchangedFields(in, out);
  // What the row does not hold keeps the reader's defaults.
  EXPECT_EQ(in.CityName, L"北 京");
  EXPECT_EQ(in.MonthTemp1[0], 8.36);
}

TEST(CQKWeather, ConversionToTheValueTakesOnlyItsListedFields) {
  CQKWeather w = Guangzhou(21);
  w.CityName = L"广州";
  w.ProvinceName = L"广东省";
  w.CountryName = L"中华人民共和国";
  w.Aux1 = 9;
  w.Aux2 = 4;
  w.MonthTemp1[0] = 13.5;
  w.MonthTemp2[0] = 13.6;
  w.LfStCxAngle[0] = -170.0;
  w.FlushDjLfStCxXz();

  const CQKWeatherData v = w.operator CQKWeatherData();

  const CQKWeatherData defaults;
  EXPECT_EQ(v.CId, 21);
  EXPECT_EQ(v.CityName, L"广州");
  EXPECT_EQ(v.ProvinceName, L"广东省");
  EXPECT_EQ(v.CountryName, L"中华人民共和国");
  EXPECT_EQ(v.JD, w.JD);
  EXPECT_EQ(v.XjDqy, 100450.0);
  EXPECT_EQ(v.DjKtSwXdSd, 0.68);
  EXPECT_EQ(v.DjLfStCxXz[7], w.DjLfStCxXz[7]);
  EXPECT_EQ(v.DistrictCode, 8);
  EXPECT_EQ(v.DBMZLYPJWD, 15.3);
  EXPECT_EQ(v.Aux2, 4);
  EXPECT_EQ(v.EpwName, w.EpwName);
  EXPECT_EQ(v.Elevation, 41.7);
  EXPECT_EQ(v.CityType, 1);
  EXPECT_EQ(v.SumDesignDay.MaxDryBulbTemp, 35.9);
  EXPECT_EQ(v.WinDesignDay.Month, 2);
  // Not taken: these keep the defaults.
  EXPECT_EQ(v.Xjzdfx, defaults.Xjzdfx);
  EXPECT_EQ(v.Xjswzdfxpjfs, defaults.Xjswzdfxpjfs);
  EXPECT_EQ(v.Djzdfx, defaults.Djzdfx);
  EXPECT_EQ(v.Djswzdfxpjfs, defaults.Djswzdfxpjfs);
  EXPECT_EQ(v.SumWindDef, L"N");
  EXPECT_EQ(v.WinWindDef, L"N");
  EXPECT_EQ(v.EpwType, 0);
  EXPECT_EQ(v.Aux1, 0);
  EXPECT_EQ(v.MonthTemp1[0], 8.36);
  EXPECT_EQ(v.MonthTemp2[0], 0.14);
  EXPECT_EQ(v.LfStCxAngle[0], -180.0);
  EXPECT_EQ(v.LfStCxXz[0], 0.0);
}

TEST(CQKWeather, ImplicitConversionToTheValueCopiesEveryField) {
  CQKWeather w = Guangzhou(21);
  w.EpwType = 3;
  const CQKWeatherData v = w;  // a copy of the base, not the partial conversion
  EXPECT_EQ(v.EpwType, 3);
  EXPECT_EQ(v.SumWindDef, L"SE");
}

TEST(CQKWeather, StreamIsTheValuesStream) {
  CQKWeather w = Guangzhou(21);
  w.SetID(5);
  CADataStream fromRecord, fromValue;
  w.DataOutPut(fromRecord);
  static_cast<CQKWeatherData&>(w).CQKWeatherData::DataOutPut(fromValue);
  EXPECT_EQ(fromRecord.GetBytes(), fromValue.GetBytes());
}

QK_ON_BOTH_BACKENDS(CQKWeatherTest);
