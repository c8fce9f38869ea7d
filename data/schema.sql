-- The reference database of QKModelDataBase, for SQLite.
--
-- Each table holds one record class of the library. The table names are this database's choice: a
-- host tells every record class its table with S_Init. Every table has the key "ID", assigned by the
-- database (AUTOINCREMENT: a deleted key is never handed out again, so a key a host has kept in a
-- project file never comes to name another row). Texts compare ignoring case, as Access compares
-- them, and every other column is named exactly as the record's named item.
--
-- Names are unique only within their parent, and the library does not ask the database to enforce
-- even that (a name stored twice is read as its first row), so the indexes below speed the lookups by
-- natural key without refusing rows.

-- Geography: country, then province (CId = ID of its country), then city (PId = ID of its province).
CREATE TABLE Country (
  ID   INTEGER PRIMARY KEY AUTOINCREMENT,
  Name TEXT NOT NULL DEFAULT '' COLLATE NOCASE
);
CREATE INDEX CountryName ON Country (Name);

CREATE TABLE Province (
  ID   INTEGER PRIMARY KEY AUTOINCREMENT,
  CId  INTEGER NOT NULL DEFAULT 0,
  Name TEXT NOT NULL DEFAULT '' COLLATE NOCASE
);
CREATE INDEX ProvinceCountryName ON Province (CId, Name);

CREATE TABLE City (
  ID   INTEGER PRIMARY KEY AUTOINCREMENT,
  PId  INTEGER NOT NULL DEFAULT 0,
  Name TEXT NOT NULL DEFAULT '' COLLATE NOCASE
);
CREATE INDEX CityProvinceName ON City (PId, Name);

-- Weather: the design climate of a city (CId = ID of its city), one column per named item of the
-- weather value, in that value's exchange units: pressures in hPa, relative humidities in percent,
-- JD/WD (longitude, latitude) in radians as the value holds them. "EpwName" is null or '' for a city
-- without a weather file; the lookups then borrow a neighbour's climate. The "Sum…"/"Win…" columns
-- are the summer and winter design days (BarPress in Pa). The place names are not stored here: they
-- come from the geography tables through CId.
CREATE TABLE Weather (
  ID                 INTEGER PRIMARY KEY AUTOINCREMENT,
  CId                INTEGER NOT NULL DEFAULT 0,
  DistrictCode       INTEGER,
  WD                 REAL,
  JD                 REAL,
  DjDqy              REAL,
  XjDqy              REAL,
  DjCnSwGqWd         REAL,
  DjKtSwGqWd         REAL,
  XjKtSwGqWd         REAL,
  XjKtRPjWd          REAL,
  XjJsRJC            REAL,
  XjKtSwSqWd         REAL,
  Xjzdfx             REAL,
  Xjswzdfxpjfs       REAL,
  Djzdfx             REAL,
  ZlYPjXdSd          REAL,
  ZRYPjXdSd          REAL,
  -- Also the column of the item "Djswzdfxpjfs": the two names differ only in case, and column names
  -- ignore case (in Access as here). Both stand for the winter mean speed of the most frequent wind
  -- direction; a row stores the value of "DjSwZdFxPjFs", written after the other, and fills both.
  DjSwZdFxPjFs       REAL,
  XjSwPjFs           REAL,
  XjKtDqTmDDj        INTEGER,
  XjTfSwGqWd         REAL,
  XjTfSwXdSd         REAL,
  DjTfSwGqWd         REAL,
  DjKtSwXdSd         REAL,
  DjSwPjFs           REAL,
  DjLfStCxXz_N       REAL,
  DjLfStCxXz_NE      REAL,
  DjLfStCxXz_E       REAL,
  DjLfStCxXz_SE      REAL,
  DjLfStCxXz_S       REAL,
  DjLfStCxXz_SW      REAL,
  DjLfStCxXz_W       REAL,
  DjLfStCxXz_NW      REAL,
  DBMNPJWD           REAL,
  DBMZRYPJWD         REAL,
  DBMZLYPJWD         REAL,
  CityType           INTEGER,
  EpwName            TEXT COLLATE NOCASE,
  EpwType            INTEGER,
  Elevation          REAL,
  TimeZone           REAL,
  SumMaxDryBulbTemp  REAL,
  SumDailyTempRange  REAL,
  SumHumMaxDryBulb   REAL,
  SumBarPress        REAL,
  SumWindSpeed       REAL,
  SumWindDirection   REAL,
  SumSkyClearness    REAL,
  SumRainIndicator   INTEGER,
  SumSnowIndicator   INTEGER,
  SumDayOfMonth      INTEGER,
  SumMonth           INTEGER,
  SumDayType         INTEGER,
  SumDSTIndicator    INTEGER,
  SumHumIndType      INTEGER,
  WinMaxDryBulbTemp  REAL,
  WinDailyTempRange  REAL,
  WinHumMaxDryBulb   REAL,
  WinBarPress        REAL,
  WinWindSpeed       REAL,
  WinWindDirection   REAL,
  WinSkyClearness    REAL,
  WinRainIndicator   INTEGER,
  WinSnowIndicator   INTEGER,
  WinDayOfMonth      INTEGER,
  WinMonth           INTEGER,
  WinDayType         INTEGER,
  WinDSTIndicator    INTEGER,
  WinHumIndType      INTEGER,
  SumWindDef         TEXT COLLATE NOCASE,
  WinWindDef         TEXT COLLATE NOCASE
);
-- No index on JD/WD: the neighbour search gives ties to the earlier row in the order the rows come
-- back, and an index on position would hand them back sorted by longitude instead of as stored.
CREATE INDEX WeatherCity ON Weather (CId);

-- Beside the weather table, two tables the library does not read (qkdb init fills them; qkdb reads
-- them). WeatherFileSource: where each city's weather file comes from. The file is the city's own
-- (Own 1: its station's, or one within 20 km of it) or the nearest station's that has one (Own 0);
-- WmoId and Station name the file's station, Source its archive source (CSWD, IWEC, SWERA …), and
-- DistanceKm is the great-circle distance from the city to that station (null when the city's
-- position is not known).
CREATE TABLE WeatherFileSource (
  ID         INTEGER PRIMARY KEY AUTOINCREMENT,
  CId        INTEGER NOT NULL DEFAULT 0,
  EpwName    TEXT COLLATE NOCASE,
  WmoId      TEXT COLLATE NOCASE,
  Station    TEXT COLLATE NOCASE,
  Source     TEXT COLLATE NOCASE,
  DistanceKm REAL,
  Own        INTEGER NOT NULL DEFAULT 0
);
CREATE INDEX WeatherFileSourceCity ON WeatherFileSource (CId);

-- CityAlias: the other names an engineer types for a city (CId): its official name with the
-- administrative suffix, today's name of a renamed city, the standard's station names, English names.
-- Kind says which, Source where the name comes from.
CREATE TABLE CityAlias (
  ID     INTEGER PRIMARY KEY AUTOINCREMENT,
  CId    INTEGER NOT NULL DEFAULT 0,
  Alias  TEXT NOT NULL DEFAULT '' COLLATE NOCASE,
  Kind   TEXT COLLATE NOCASE,
  Source TEXT COLLATE NOCASE
);
CREATE INDEX CityAliasName ON CityAlias (Alias);

-- Rooms: room types, then room uses (RTId = ID of its room type), then the load parameters of each
-- room use (RUId = ID of its room use), one column per named item: humidities in percent, LaoDongQD
-- the labour intensity as its id 0..4 (静坐, 极轻劳动, 轻度劳动, 中等劳动, 重度劳动).
CREATE TABLE RoomType (
  ID   INTEGER PRIMARY KEY AUTOINCREMENT,
  Name TEXT NOT NULL DEFAULT '' COLLATE NOCASE
);
CREATE INDEX RoomTypeName ON RoomType (Name);

CREATE TABLE RoomUse (
  ID   INTEGER PRIMARY KEY AUTOINCREMENT,
  RTId INTEGER NOT NULL DEFAULT 0,
  Name TEXT NOT NULL DEFAULT '' COLLATE NOCASE
);
CREATE INDEX RoomUseTypeName ON RoomUse (RTId, Name);
CREATE INDEX RoomUseName ON RoomUse (Name);

CREATE TABLE RULoadParam (
  ID             INTEGER PRIMARY KEY AUTOINCREMENT,
  RUId           INTEGER NOT NULL DEFAULT 0,
  DongJiSNSJWD   REAL,
  DongJiSNSJXDSD REAL,
  XiaJiSNSJWD    REAL,
  XiaJiSNSJXDSD  REAL,
  RenYuanMD      REAL,
  ZhaoMingBZ     REAL,
  SheBeiBZ       REAL,
  XinFengL       REAL,
  ZaoYin         INTEGER,
  ZongLengZB     REAL,
  ZongReZB       REAL,
  WeiHuLZB       REAL,
  RenYuanLZB     REAL,
  XinFengLZB     REAL,
  QiTaLZB        REAL,
  WeiHuRZB       REAL,
  RenYuanRZB     REAL,
  XinFengRZB     REAL,
  LaoDongQD      INTEGER,
  ShenTouL       REAL
);
CREATE INDEX RULoadParamRoomUse ON RULoadParam (RUId);

-- Beside the room tables, a table the library does not read (qkdb init fills it; qkdb rooms
-- --schedules reads it): the hourly schedules of each room use (RUId) as the sources give them, for
-- hosts that simulate hour by hour. One row per room use, Kind (occupancy, lighting, equipment,
-- ventilation, heating_setpoint, cooling_setpoint) and DayType (monday … sunday, holiday,
-- summer_design_day, winter_design_day). Unit: fraction (0 to 1), on_off (0 or 1) or degC. H01 is the
-- value from 00:00 to 01:00, H24 from 23:00 to 24:00; null where the source's value was not kept
-- (Note says why). A set-point of -50 °C (heating) or 50 °C (cooling) is the sources' way of saying
-- the room is not heated or not cooled at that hour.
CREATE TABLE RoomUseSchedule (
  ID       INTEGER PRIMARY KEY AUTOINCREMENT,
  RUId     INTEGER NOT NULL DEFAULT 0,
  Kind     TEXT NOT NULL DEFAULT '' COLLATE NOCASE,
  DayType  TEXT NOT NULL DEFAULT '' COLLATE NOCASE,
  Unit     TEXT NOT NULL DEFAULT '' COLLATE NOCASE,
  H01      REAL,
  H02      REAL,
  H03      REAL,
  H04      REAL,
  H05      REAL,
  H06      REAL,
  H07      REAL,
  H08      REAL,
  H09      REAL,
  H10      REAL,
  H11      REAL,
  H12      REAL,
  H13      REAL,
  H14      REAL,
  H15      REAL,
  H16      REAL,
  H17      REAL,
  H18      REAL,
  H19      REAL,
  H20      REAL,
  H21      REAL,
  H22      REAL,
  H23      REAL,
  H24      REAL,
  Source   TEXT COLLATE NOCASE,
  Note     TEXT COLLATE NOCASE
);
CREATE INDEX RoomUseScheduleRoomUse ON RoomUseSchedule (RUId);

-- Constructions: construction types, then constructions (TTId = ID of its construction type). A
-- construction row is a material: the columns are the material's named items, each defaulting to the
-- material's own default, so a row written with a name alone reads back as a default material.
-- Units: GMD kg/m³, DrXs W/(m·K), BRr kJ/(kg·K); the optical values are fractions.
CREATE TABLE TimberingType (
  ID   INTEGER PRIMARY KEY AUTOINCREMENT,
  Name TEXT NOT NULL DEFAULT '' COLLATE NOCASE
);
CREATE INDEX TimberingTypeName ON TimberingType (Name);

CREATE TABLE Timbering (
  ID             INTEGER PRIMARY KEY AUTOINCREMENT,
  TTId           INTEGER NOT NULL DEFAULT 0,
  Name           TEXT NOT NULL DEFAULT '' COLLATE NOCASE,
  GMD            REAL NOT NULL DEFAULT 0,
  DrXs           REAL NOT NULL DEFAULT 0,
  BRr            REAL NOT NULL DEFAULT 0,
  Roughness      INTEGER NOT NULL DEFAULT 0,
  TheAbs         REAL NOT NULL DEFAULT 0.8,
  SolAbs         REAL NOT NULL DEFAULT 0.8,
  VisAbs         REAL NOT NULL DEFAULT 0.8,
  SolarT         REAL NOT NULL DEFAULT 0.85,
  SolarRFront    REAL NOT NULL DEFAULT 0.075,
  SolarRBack     REAL NOT NULL DEFAULT 0.075,
  VisibleT       REAL NOT NULL DEFAULT 0.901,
  VisibleRFront  REAL NOT NULL DEFAULT 0.081,
  VisibleRBack   REAL NOT NULL DEFAULT 0.081,
  InfraredT      REAL NOT NULL DEFAULT 0,
  InfraredEFront REAL NOT NULL DEFAULT 0.84,
  InfraredEBack  REAL NOT NULL DEFAULT 0.84
);
CREATE INDEX TimberingTypeId ON Timbering (TTId);
CREATE INDEX TimberingName ON Timbering (Name);

-- Envelope catalogue: categories (listed by OrderId), then types (BSDLId = ID of its category), then
-- codes (BSTId = ID of its type), then the bounding structure of each code (BSCId = ID of its code).
-- Type and code names are unique in the whole catalogue (the records look them up by name alone) and
-- name the demonstration pictures, so they must be usable as file names.
CREATE TABLE BSCategory (
  ID      INTEGER PRIMARY KEY AUTOINCREMENT,
  Name    TEXT NOT NULL DEFAULT '' COLLATE NOCASE,
  OrderId INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE BSType (
  ID     INTEGER PRIMARY KEY AUTOINCREMENT,
  Name   TEXT NOT NULL DEFAULT '' COLLATE NOCASE,
  BSDLId INTEGER NOT NULL DEFAULT 0
);
CREATE INDEX BSTypeName ON BSType (Name);

CREATE TABLE BSCode (
  ID    INTEGER PRIMARY KEY AUTOINCREMENT,
  BSTId INTEGER NOT NULL DEFAULT 0,
  Name  TEXT NOT NULL DEFAULT '' COLLATE NOCASE
);
CREATE INDEX BSCodeTypeId ON BSCode (BSTId);
CREATE INDEX BSCodeName ON BSCode (Name);

-- The layers of a code, outside to inside, as comma-separated lists without blanks: TIdS the IDs of
-- the constructions, HouDuS the thicknesses in mm, XzXsS the correction factors of the conductivity
-- (for example '12,7,40', '20,240,20', '1,1,1'). The name of this table is fixed: the usage test that
-- guards the deletion of a construction names it. "TId" is not moved by the record; only the lookup
-- HasBoundingStructure asks for it.
CREATE TABLE BoundingStructure (
  ID          INTEGER PRIMARY KEY AUTOINCREMENT,
  BSCId       INTEGER NOT NULL DEFAULT 0,
  TIdS        TEXT NOT NULL DEFAULT '',
  HouDuS      TEXT NOT NULL DEFAULT '',
  XzXsS       TEXT NOT NULL DEFAULT '',
  HaveDemoBMP INTEGER NOT NULL DEFAULT 0,
  TId         INTEGER NOT NULL DEFAULT 0
);
CREATE INDEX BoundingStructureCode ON BoundingStructure (BSCId);
