#include "commands/database/ImportAccessCommand.h"

#include <CLI/CLI.hpp>
#include <sqlite3.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "import/access/AccessReader.h"
#include "files/AtomicFile.h"
#include "files/OpenFiles.h"
#include "text/BoundedRead.h"
#include "files/ChildProcess.h"
#include "text/CsvTable.h"
#include "text/Output.h"
#include "files/SqliteFile.h"

namespace qkdb {

namespace {

namespace fs = std::filesystem;

// How long the child reading the Access file may go without a sign of progress before it is taken to
// be stuck. It beats at least once a second while rows come, so only a loop inside mdbtools (seen on
// damaged files) stays silent this long.
constexpr std::chrono::seconds kSilence{10};

// "" when path can be an Access file, else why not. Every Access file begins with a page header and
// the engine's name, "Standard Jet DB" (.mdb) or "Standard ACE DB" (.accdb), and is a whole number of
// pages: 2048 bytes for Jet 3 (version byte 0 at offset 0x14), 4096 for later versions. A file cut
// inside a page is refused here; one cut at a page boundary is caught while reading, when a page it
// needs is missing.
std::string NotAccess(const std::string& path) {
  std::error_code ec;
  if (!fs::exists(path, ec)) return "no file " + path;
  if (fs::is_directory(path, ec)) return path + " is a folder, not an Access file";
  if (std::string refused = RefusedFile(path, kAccessFileLimit, path); !refused.empty()) return refused;
  std::ifstream in(path, std::ios::binary);
  char head[0x15] = {};
  if (!in.read(head, sizeof head) && in.gcount() == 0)
    return in.eof() ? path + " is empty, not an Access file" : "cannot read " + path;
  if (in.gcount() < static_cast<std::streamsize>(sizeof head) ||
      (std::memcmp(head + 4, "Standard Jet DB", 15) != 0 && std::memcmp(head + 4, "Standard ACE DB", 15) != 0))
    return path + " is not an Access file (.mdb or .accdb)";
  const std::uintmax_t page = head[0x14] == 0 ? 2048 : 4096;
  if (fs::file_size(path, ec) % page != 0) return path + " is cut short: it ends inside a page";
  return "";
}

// An SQL identifier: in double quotes, any double quote inside doubled ("Order Details").
std::string Quoted(const std::string& name) {
  std::string quoted = "\"";
  for (char c : name) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + "\"";
}

const char* Declared(Affinity affinity) {
  switch (affinity) {
    case Affinity::Integer:
      return "INTEGER";
    case Affinity::Real:
      return "REAL";
    case Affinity::Numeric:
      return "NUMERIC";
    case Affinity::Text:
      return "TEXT";
    case Affinity::Blob:
      return "BLOB";
  }
  return "";
}

bool SameIgnoringCase(const std::string& a, const std::string& b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
         });
}

// The SQLite file the rows go into, on one connection.
class Target {
 public:
  explicit Target(const std::string& path) : m_path(path), m_db(path) {}
  ~Target() { sqlite3_finalize(m_insert); }
  Target(const Target&) = delete;
  Target& operator=(const Target&) = delete;

  void Execute(const std::string& sql) { m_db.Execute(sql, "write " + m_path); }
  // Creates the table and readies its INSERT, one bound parameter per column.
  void Create(const AccessRows& table) {
    std::string create = "CREATE TABLE " + Quoted(table.Name()) + " (";
    std::string insert = "INSERT INTO " + Quoted(table.Name()) + " VALUES (";
    for (const AccessColumn& column : table.Columns()) {
      const bool first = &column == &table.Columns().front();
      create += (first ? "" : ", ") + Quoted(column.name) + " " + Declared(column.affinity);
      insert += first ? "?" : ", ?";
    }
    Execute(create + ")");
    sqlite3_finalize(m_insert);
    m_insert = nullptr;
    if (sqlite3_prepare_v2(m_db.Handle(), (insert + ")").c_str(), -1, &m_insert, nullptr) != SQLITE_OK)
      m_db.Fail("write " + m_path);
  }
  void Insert(const std::vector<AccessValue>& row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      const int index = static_cast<int>(i) + 1;
      const AccessValue& value = row[i];
      if (const auto* n = std::get_if<std::int64_t>(&value))
        sqlite3_bind_int64(m_insert, index, *n);
      else if (const auto* x = std::get_if<double>(&value))
        sqlite3_bind_double(m_insert, index, *x);
      else if (const auto* text = std::get_if<std::string>(&value))
        sqlite3_bind_text64(m_insert, index, text->data(), text->size(), SQLITE_STATIC, SQLITE_UTF8);
      else if (const auto* bytes = std::get_if<Bytes>(&value))
        sqlite3_bind_blob64(m_insert, index, bytes->data.data(), bytes->data.size(), SQLITE_STATIC);
      else
        sqlite3_bind_null(m_insert, index);
    }
    const int rc = sqlite3_step(m_insert);
    sqlite3_reset(m_insert);
    if (rc != SQLITE_DONE) m_db.Fail("write " + m_path);
  }
  std::int64_t Count(const std::string& table) {
    return std::stoll(m_db.Rows("SELECT COUNT(*) FROM " + Quoted(table), {}, "count the rows of " + m_path).at(0).at(0));
  }

 private:
  std::string m_path;
  SqliteFile m_db;
  sqlite3_stmt* m_insert = nullptr;
};

// In the child process: copies the chosen tables of file into the SQLite file at path (empty, made by
// AtomicFile) and sends the report; out is the name the user gave for it. Returns the exit status.
int Copy(ChildProcess& child, const std::string& file, const std::string& path, const std::string& out,
         const std::vector<std::string>& wanted) {
  const std::unique_ptr<AccessReader> access = OpenAccessFile(file);
  std::vector<std::string> tables;
  for (const std::string& name : wanted) {
    const auto& all = access->UserTables();
    auto found = std::find(all.begin(), all.end(), name);
    if (found == all.end())
      found = std::find_if(all.begin(), all.end(), [&](const std::string& t) { return SameIgnoringCase(t, name); });
    if (found == all.end()) {
      child.Send("no table \"" + name + "\" in " + file);
      return 2;
    }
    if (std::find(tables.begin(), tables.end(), *found) == tables.end()) tables.push_back(*found);
  }
  if (wanted.empty()) tables = access->UserTables();

  Target target(path);
  // The file is renamed onto OUT only after a complete import, and AtomicFile::Commit flushes it to
  // disk once then; waiting for the disk at the commit below would buy nothing.
  target.Execute("PRAGMA synchronous = OFF");
  target.Execute("BEGIN");
  std::vector<std::vector<std::string>> report = {{"table", "columns", "read", "written"}};
  for (const std::string& name : tables) {
    child.Beat();
    const std::unique_ptr<AccessRows> table = access->OpenTable(name);
    target.Create(*table);
    std::vector<AccessValue> row;
    std::int64_t read = 0;
    while (table->Next(row)) {
      target.Insert(row);
      ++read;
      child.Beat();
    }
    const std::int64_t written = target.Count(name);
    if (written != read)
      throw DataError("table \"" + name + "\": " + std::to_string(read) + " rows read but " + std::to_string(written) +
                      " written");
    // A cut or damaged file loses data pages without an error from mdbtools; the table's own count tells.
    if (read != table->RecordedRows())
      throw DataError(file + " is damaged: table \"" + name + "\" holds " + std::to_string(table->RecordedRows()) +
                      " rows but only " + std::to_string(read) + " can be read");
    report.push_back({name, std::to_string(table->Columns().size()), std::to_string(read), std::to_string(written)});
  }
  target.Execute("COMMIT");

  std::ostringstream text;
  text << "Imported " << tables.size() << (tables.size() == 1 ? " table" : " tables") << " from " << file << " into "
       << out << ":\n";
  PrintColumns(text, report);
  child.Send(text.str());
  return 0;
}

}  // namespace

ImportAccessCommand::ImportAccessCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("import-access",
                                "Copy the tables of an Access file (.mdb, .accdb) into a new SQLite file");
  m_app->add_option("file", m_file, "The Access file to read")->required();
  m_app->add_option("--db", m_db, "The SQLite file to create")->required();
  m_app->add_option("--tables", m_tables, "Only these tables, by name, separated by commas")->delimiter(',');
  m_app->add_flag("--force", m_force, "Replace the SQLite file when it exists and no other program has it open");
  m_app->add_flag("--even-if-open", m_evenIfOpen, "With --force: replace it even while other programs have it open")
      ->needs("--force");
}

bool ImportAccessCommand::Chosen() const { return m_app->parsed(); }

int ImportAccessCommand::Run() const {
  if (m_db.find("://") != std::string::npos) return Tell(2, "import-access writes an SQLite file; give --db a file path");
  if (const std::string problem = NotAccess(m_file); !problem.empty()) return Tell(1, problem);
  std::error_code ec;
  const fs::path target = fs::absolute(m_db, ec);
  if (fs::equivalent(m_file, target, ec)) return Tell(2, "--db names the Access file itself");
  if (fs::exists(target, ec) && !m_force) return Tell(1, m_db + " already exists (--force replaces it)");
  if (fs::exists(target, ec) && !m_evenIfOpen)
    if (const std::string held = RefuseToReplaceHeld(target, "--even-if-open"); !held.empty()) return Tell(1, held);

  try {
    AtomicFile importing(target, "importing");
    const ChildProcess::Outcome outcome = ChildProcess::Run(
        [&](ChildProcess& child) { return Copy(child, m_file, importing.Path(), m_db, m_tables); }, kSilence);
    if (outcome.silent)
      return Tell(1, "cannot read " + m_file + ": the Access reader stopped making progress (the file is damaged)");
    if (!outcome.exited)
      return Tell(1, "cannot read " + m_file + ": the Access reader crashed on signal " +
                         std::to_string(outcome.status) + " (the file is damaged)");
    if (outcome.status != 0) {
      const std::string why = outcome.words.empty()
                                  ? "cannot import " + m_file + " (the reader ended with status " +
                                        std::to_string(outcome.status) + ")"
                                  : outcome.words;
      return Tell(outcome.status == 2 ? 2 : 1, why);
    }
    // mdbtools reads on past a page it cannot read (beyond the end of a cut file, of an unknown kind)
    // and only says so on standard error; whatever it read then is not to be trusted.
    if (!outcome.complaints.empty())
      return Tell(1, m_file + " is damaged: mdbtools: " + outcome.complaints.substr(0, outcome.complaints.find('\n')));
    importing.Commit();
    std::fputs(outcome.words.c_str(), stdout);
  } catch (const DataError& e) {
    return Tell(1, e.what());
  }
  return 0;
}

}  // namespace qkdb
