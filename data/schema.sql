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
