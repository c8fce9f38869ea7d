// The reference database with a table or a column missing (an old file, or one a host trimmed). An
// operation whose query names what is gone gives its error value; the others go on as usual; a write
// skips a column the table lacks and stores the rest; the rows of the damaged table stay as they were.

#include <gtest/gtest.h>

#include <string>

#include "FaultDatabase.h"
#include "FaultOperations.h"
#include "geography/CQKCountry.h"
#include "rooms/CQKRULoadParam.h"

namespace {

class FaultMissingTable : public FaultFixture {};

TEST_F(FaultMissingTable, LookupsInTheMissingTableGiveErrors) {
  Alter("DROP TABLE Country; DROP TABLE RULoadParam;");
  EXPECT_EQ(RunLookups(),
            "Country.IsExist=DBS_ERROR Country.ReadData=0 \"\" Weather.IsExist=DBS_EXIST "
            "BoundingStructure.IsExist=DBS_EXIST RoomUse.IsExist=DBS_EXIST RULoadParam.IsExist=1 "
            "GetCityIdByName=1 2 GetBSCodeCWallDataAry=W1,W2");
}

TEST_F(FaultMissingTable, WritesToTheMissingTableGiveErrors) {
  Alter("DROP TABLE Country; DROP TABLE BoundingStructure;");
  EXPECT_EQ(RunWrites(),
            "Country.AddIfNotExist=DBS_ERROR Country.UpdateIfNoOther=DBS_ERROR Province.InsertData=1 "
            "City.UpdateData=1 City.RemoveData=1 BoundingStructure.AddOrUpdate=DBS_ERROR RULoadParam.AddOrUpdate=2 "
            "Weather.AddIfNotExist(update)=DBS_EXIST");
}

TEST_F(FaultMissingTable, TreesStopAboveTheMissingLevel) {
  Alter("DROP TABLE City; DROP TABLE BSType; DROP TABLE RoomUse;");
  // The tree of places with a weather file finds even its countries through the city table.
  EXPECT_EQ(RunTrees(),
            "cities=*(中国(北京)) withWeather=* envelope=*全部围护结构类型*(外墙) "
            "constructions=*全部材质类型*(砖(黏土砖)) rooms=*(办公)");
}

TEST_F(FaultMissingTable, ATreeWithoutItsTopLevelIsARoot) {
  Alter("DROP TABLE Country; DROP TABLE BSCategory; DROP TABLE TimberingType; DROP TABLE RoomType;");
  EXPECT_EQ(RunTrees(), kTreesRootsOnly);
}

TEST_F(FaultMissingTable, DeletionsInTheMissingTableFailWithTheirMessages) {
  Alter("DROP TABLE Country; DROP TABLE Weather; DROP TABLE BSCode; DROP TABLE RULoadParam;");
  EXPECT_EQ(RunDeletions(), kDeletionsFailed);
}

TEST_F(FaultMissingTable, RowsOfTheOtherTablesStayWhole) {
  Alter("DROP TABLE Country; DROP TABLE Weather; DROP TABLE BSCode; DROP TABLE RULoadParam;");
  const std::string before = StoredRows(path);
  RunLookups();
  RunDeletions();
  EXPECT_EQ(StoredRows(path), before);
  EXPECT_EQ(IntegrityCheck(path), "ok");
}

class FaultMissingColumn : public FaultFixture {};

TEST_F(FaultMissingColumn, ALookupByTheMissingKeyGivesError) {
  Alter("DROP INDEX CountryName; ALTER TABLE Country DROP COLUMN Name;");
  EXPECT_EQ(RunLookups(),
            "Country.IsExist=DBS_ERROR Country.ReadData=1 \"\" Weather.IsExist=DBS_EXIST "
            "BoundingStructure.IsExist=DBS_EXIST RoomUse.IsExist=DBS_EXIST RULoadParam.IsExist=2 "
            "GetCityIdByName=1 2 GetBSCodeCWallDataAry=W1,W2");
}

TEST_F(FaultMissingColumn, WritesThatLookUpTheMissingKeyGiveErrors) {
  Alter("DROP INDEX CountryName; ALTER TABLE Country DROP COLUMN Name;");
  EXPECT_EQ(RunWrites(),
            "Country.AddIfNotExist=DBS_ERROR Country.UpdateIfNoOther=DBS_ERROR Province.InsertData=1 "
            "City.UpdateData=1 City.RemoveData=1 BoundingStructure.AddOrUpdate=DBS_UPDATED RULoadParam.AddOrUpdate=2 "
            "Weather.AddIfNotExist(update)=DBS_EXIST");
}

TEST_F(FaultMissingColumn, AWriteSkipsTheMissingColumnAndStoresTheOthers) {
  Alter("ALTER TABLE RULoadParam DROP COLUMN XinFengL;");
  CQKRULoadParam load;
  load.RUId = 2;
  load.XinFengL = 99;
  load.DongJiSNSJWD = 18;
  EXPECT_EQ(load.AddOrUpdate(nullptr), 2);
  EXPECT_EQ(QueryOne(path, "SELECT DongJiSNSJWD FROM RULoadParam WHERE RUId = 2"), "18.0");
}

TEST_F(FaultMissingColumn, ATreeStopsAboveTheLevelMissingItsParentColumn) {
  Alter("DROP INDEX CityProvinceName; ALTER TABLE City DROP COLUMN PId;");
  // The tree of places with a weather file finds even its countries through the cities' PId, so it
  // keeps only its root.
  EXPECT_EQ(RunTrees(),
            "cities=*(中国(北京)) withWeather=* envelope=*全部围护结构类型*(外墙(砖墙)) "
            "constructions=*全部材质类型*(砖(黏土砖)) rooms=*(办公(办公室,会议室))");
}

TEST_F(FaultMissingColumn, RowsOfTheDamagedTableStayWhole) {
  Alter("DROP INDEX CountryName; ALTER TABLE Country DROP COLUMN Name;");
  const std::string before = StoredRows(path);
  RunLookups();
  CQKCountry added;
  added.Name = L"法国";
  added.AddIfNotExist(nullptr, 0);
  CQKCountry renamed;
  renamed.SetID(1);
  renamed.UpdateIfNoOther(nullptr, 0);
  EXPECT_EQ(StoredRows(path), before);
  EXPECT_EQ(IntegrityCheck(path), "ok");
}

}  // namespace
