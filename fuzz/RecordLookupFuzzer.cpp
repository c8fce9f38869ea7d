// Arbitrary names (UTF-8) formatted into the library's own lookup queries, run on a real SQLite
// database built from data/schema.sql: the name verbs of the geography, room and construction
// records, and the city lookup of the weather, which puts the name in single quotes. A name holds
// whatever a user typed, so it may close its quotes and try to add a statement of its own.
//
// Every one of these lookups only reads. A second connection watches the file: SQLite's data_version
// changes whenever another connection commits a change, so an unchanged version after the input
// shows that nothing but the one select of each lookup ran. A table FuzzSentinel with one row is the
// obvious target of such a statement, so it is checked too.

#include <sqlite3.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "construction/CQKTimberingType.h"
#include "geography/CQKCity.h"
#include "geography/CQKCountry.h"
#include "geography/CQKProvince.h"
#include "rooms/CQKRoomType.h"
#include "rooms/CQKRoomUse.h"
#include "tablekit/RvAfxMessageBox.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace {

[[noreturn]] void Fail(const std::string& what) {
  std::fprintf(stderr, "%s\n", what.c_str());
  std::abort();
}

// A single number read through the watching connection.
long long Number(sqlite3* db, const char* sql) {
  sqlite3_stmt* st = nullptr;
  if (sqlite3_prepare_v2(db, sql, -1, &st, nullptr) != SQLITE_OK || sqlite3_step(st) != SQLITE_ROW)
    Fail(std::string("cannot read ") + sql + ": " + sqlite3_errmsg(db));
  const long long value = sqlite3_column_int64(st, 0);
  sqlite3_finalize(st);
  return value;
}

struct Database {
  std::string path;
  sqlite3* watcher = nullptr;
  long long version = 0;

  Database() {
    char folder[] = "/tmp/qk-fuzz-XXXXXX";
    if (mkdtemp(folder) == nullptr) Fail("mkdtemp failed");
    path = std::string(folder) + "/reference.db";
    std::ifstream schema(QK_SCHEMA_FILE);
    std::ostringstream sql;
    sql << schema.rdbuf()
        << "CREATE TABLE FuzzSentinel (x INTEGER);"
           "INSERT INTO FuzzSentinel VALUES (1);"
           "INSERT INTO Country (ID, Name) VALUES (1, '中国');"
           "INSERT INTO Province (ID, CId, Name) VALUES (1, 1, '河南');"
           "INSERT INTO City (ID, PId, Name) VALUES (1, 1, '郑州');";
    if (sqlite3_open(path.c_str(), &watcher) != SQLITE_OK ||
        sqlite3_exec(watcher, sql.str().c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
      Fail("cannot build " + path + ": " + sqlite3_errmsg(watcher));
    version = Number(watcher, "PRAGMA data_version");

    const CString file = CString::FromUtf8(path);
    CQKCountry::S_Init(file, L"Country");
    CQKProvince::S_Init(file, L"Province");
    CQKCity::S_Init(file, L"City");
    CQKRoomType::S_Init(file, L"RoomType");
    CQKRoomUse::S_Init(file, L"RoomUse");
    CQKTimberingType::S_Init(file, L"TimberingType");
    // A refused statement is reported through the message box; at this rate, silently.
    SetRvAfxMessageBoxHandler([](const wchar_t*, unsigned int, HWND) { return 0; });
  }

  ~Database() {
    sqlite3_close(watcher);
    std::error_code ec;
    std::filesystem::remove_all(std::filesystem::path(path).parent_path(), ec);
  }

  void CheckUntouched(const std::string& name) {
    if (Number(watcher, "PRAGMA data_version") != version || Number(watcher, "SELECT count(*) FROM FuzzSentinel") != 1)
      Fail("the database changed during the lookups of the name \"" + name + "\"");
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Database database;
  const std::string text(reinterpret_cast<const char*>(data), size);
  const CString name = CString::FromUtf8(text);

  CQKCountry country;
  country.Name = name;
  country.IsExist(nullptr);
  country.UpdateTableData(nullptr);
  CQKProvince province;
  province.CId = 1;
  province.Name = name;
  province.IsExist(nullptr);
  CQKCity city;
  city.PId = 1;
  city.Name = name;
  city.IsExist(nullptr);
  CQKWeatherDataAdmin::GetCityIdByName(city);
  CQKRoomType::HasRoomType(name, nullptr);
  CQKRoomUse::HasRoomUse(name, nullptr);
  CQKTimberingType::HasTimberingType(name, nullptr);

  database.CheckUntouched(text);
  return 0;
}
