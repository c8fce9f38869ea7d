#include "FaultDatabase.h"

#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "GeographyFixture.h"
#include "construction/CQKTimbering.h"
#include "construction/CQKTimberingType.h"
#include "envelope/CQKBSCategory.h"
#include "envelope/CQKBSCode.h"
#include "envelope/CQKBSType.h"
#include "envelope/CQKBoundingStructure.h"
#include "geography/CQKCity.h"
#include "geography/CQKCountry.h"
#include "geography/CQKProvince.h"
#include "rooms/CQKRULoadParam.h"
#include "rooms/CQKRoomType.h"
#include "rooms/CQKRoomUse.h"
#include "weather/CQKWeather.h"

namespace {

constexpr const char* kSeed = R"(
INSERT INTO Country (ID, Name) VALUES (1, '中国');
INSERT INTO Province (ID, CId, Name) VALUES (1, 1, '北京');
INSERT INTO City (ID, PId, Name) VALUES (1, 1, '北京'), (2, 1, '延庆');
INSERT INTO Weather (ID, CId, EpwName, XjKtSwGqWd) VALUES (1, 1, 'beijing.epw', 33.5), (2, 2, NULL, 32.1);
INSERT INTO BSCategory (ID, Name, OrderId) VALUES (1, '外墙', 1);
INSERT INTO BSType (ID, Name, BSDLId) VALUES (1, '砖墙', 1);
INSERT INTO BSCode (ID, BSTId, Name) VALUES (1, 1, 'W1'), (2, 1, 'W2');
INSERT INTO BoundingStructure (ID, BSCId, TIdS, HouDuS, XzXsS) VALUES (1, 1, '1', '240', '1'), (2, 2, '1', '370', '1');
INSERT INTO TimberingType (ID, Name) VALUES (1, '砖');
INSERT INTO Timbering (ID, TTId, Name, GMD, DrXs) VALUES (1, 1, '黏土砖', 1800, 0.81);
INSERT INTO RoomType (ID, Name) VALUES (1, '办公');
INSERT INTO RoomUse (ID, RTId, Name) VALUES (1, 1, '办公室'), (2, 1, '会议室');
INSERT INTO RULoadParam (ID, RUId, XinFengL) VALUES (1, 1, 30), (2, 2, 10);
)";

// The tables of the seed, in the order StoredRows lists them.
constexpr const char* kSeededTables[] = {
    "Country",           "Province",      "City",      "Weather",  "BSCategory", "BSType",     "BSCode",
    "BoundingStructure", "TimberingType", "Timbering", "RoomType", "RoomUse",    "RULoadParam"};

// The seeded database, built once per test program and copied for each test: building it takes
// dozens of synced commits (most of a second here), a copy takes a millisecond.
const CString& SeededTemplate() {
  static TempDir folder;
  static const CString file = [] {
    const CString made = CreateReferenceDatabase(folder, "seeded.db");
    CreateDatabase(made, kSeed);
    return made;
  }();
  return file;
}

std::string TableRows(sqlite3* db, const std::string& table) {
  std::string out = table + ":\n";
  sqlite3_stmt* st = nullptr;
  const std::string sql = "SELECT * FROM \"" + table + "\" ORDER BY ID";
  if (sqlite3_prepare_v2(db, sql.c_str(), -1, &st, nullptr) != SQLITE_OK) {
    return out + "<error: " + sqlite3_errmsg(db) + ">\n";
  }
  int rc;
  while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
    for (int i = 0; i < sqlite3_column_count(st); ++i) {
      const unsigned char* text = sqlite3_column_text(st, i);
      out += (i ? "|" : "") + std::string(text ? reinterpret_cast<const char*>(text) : "<null>");
    }
    out += "\n";
  }
  if (rc != SQLITE_DONE) out += std::string("<error: ") + sqlite3_errmsg(db) + ">\n";
  sqlite3_finalize(st);
  return out;
}

// Forks body into a child prepared by prepare, and reads back through a pipe the text body made.
std::string TextFromChild(const std::function<std::string()>& body,
                          const std::function<int(const std::function<int()>&)>& run) {
  int fds[2];
  if (pipe(fds) != 0) return "<child failed>";
  const int status = run([&]() {
    close(fds[0]);
    const std::string text = body();
    const bool written = write(fds[1], text.data(), text.size()) == static_cast<ssize_t>(text.size());
    close(fds[1]);
    return written ? 0 : 1;
  });
  close(fds[1]);
  std::string text;
  char buffer[4096];
  ssize_t n;
  while ((n = read(fds[0], buffer, sizeof buffer)) > 0) text.append(buffer, static_cast<std::size_t>(n));
  close(fds[0]);
  return status == 0 ? text : "<child failed>";
}

}  // namespace

std::string StoredRows(const CString& path) {
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(path.ToUtf8().c_str(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
    sqlite3_close(db);
    return "<error: open>";
  }
  std::string out;
  for (const char* table : kSeededTables) out += TableRows(db, table);
  sqlite3_close(db);
  return out;
}

std::string IntegrityCheck(const CString& path) { return QueryOne(path, "PRAGMA integrity_check"); }

std::string FileBytes(const CString& path) {
  std::ifstream file(path.ToUtf8(), std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

std::string UnprivilegedText(const std::function<std::string()>& body) {
  return TextFromChild(body, [](const std::function<int()>& child) { return RunUnprivileged(child); });
}

std::string TextUnderFileSizeLimit(off_t limitBytes, const std::function<std::string()>& body) {
  return TextFromChild(body, [limitBytes](const std::function<int()>& child) {
    std::fflush(nullptr);
    const pid_t pid = fork();
    if (pid < 0) return -1;
    if (pid == 0) {
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{static_cast<rlim_t>(limitBytes), static_cast<rlim_t>(limitBytes)};
      if (setrlimit(RLIMIT_FSIZE, &limit) != 0) _exit(126);
      _exit(child());
    }
    int status = 0;
    if (waitpid(pid, &status, 0) != pid || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status);
  });
}

void FaultFixture::SetUp() {
  path = dir.File("reference.db");
  std::filesystem::copy_file(SeededTemplate().ToUtf8(), path.ToUtf8());
  CQKCountry::S_Init(path, L"Country");
  CQKProvince::S_Init(path, L"Province");
  CQKCity::S_Init(path, L"City");
  CQKWeather::S_Init(path, L"Weather");
  CQKBSCategory::S_Init(path, L"BSCategory");
  CQKBSType::S_Init(path, L"BSType");
  CQKBSCode::S_Init(path, L"BSCode");
  CQKBoundingStructure::S_Init(path, L"BoundingStructure");
  CQKTimberingType::S_Init(path, L"TimberingType");
  CQKTimbering::S_Init(path, L"Timbering");
  CQKRoomType::S_Init(path, L"RoomType");
  CQKRoomUse::S_Init(path, L"RoomUse");
  CQKRULoadParam::S_Init(path, L"RULoadParam");
}

void FaultFixture::TearDown() {
  ForgetClassTable<CQKCountry>();
  ForgetClassTable<CQKProvince>();
  ForgetClassTable<CQKCity>();
  ForgetClassTable<CQKWeather>();
  ForgetClassTable<CQKBSCategory>();
  ForgetClassTable<CQKBSType>();
  ForgetClassTable<CQKBSCode>();
  ForgetClassTable<CQKBoundingStructure>();
  ForgetClassTable<CQKTimberingType>();
  ForgetClassTable<CQKTimbering>();
  ForgetClassTable<CQKRoomType>();
  ForgetClassTable<CQKRoomUse>();
  ForgetClassTable<CQKRULoadParam>();
}

void FaultFixture::OpenToOthers(mode_t fileMode, mode_t folderMode) {
  chmod(path.ToUtf8().c_str(), fileMode);
  chmod(dir.path().c_str(), folderMode);
}
