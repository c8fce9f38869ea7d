#pragma once
// StatementCache: the prepared statements of one SQLite connection, kept by their SQL text so that a
// query asked again is not prepared again (preparing is most of what a small query costs).
//
// Bounded: past its capacity the statement used least recently is finalised. The cache owns every
// statement in it; Clear finalises them all, and the connection clears it before it closes (SQLite
// will not close a database that still has statements) and when a statement of its own changes the
// schema. A statement prepared with sqlite3_prepare_v2 prepares itself again when another connection
// changes the schema, so a kept statement never runs against a table that is not there. Internal to
// the record-access library (exported for its tests only).

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "QKExport.h"
#include "mfc/CString.h"

struct sqlite3_stmt;

namespace tablekit {

class QK_EXPORT StatementCache {
 public:
  // capacity: the most statements kept (at least one is, the one kept last).
  explicit StatementCache(std::size_t capacity) : m_capacity(capacity) {}
  ~StatementCache() { Clear(); }
  StatementCache(const StatementCache&) = delete;
  StatementCache& operator=(const StatementCache&) = delete;

  // A kept statement, with what its connection last read of its columns: the connection names them
  // once, and again only after SQLite prepared the statement anew.
  struct Kept {
    sqlite3_stmt* statement = nullptr;
    std::vector<CString> columns;
    std::string table;
    int preparation = -1;  // SQLITE_STMTSTATUS_REPREPARE when the columns were read; -1: never
  };

  // The statement kept for sql, now the most recently used; null if none.
  Kept* Find(const std::string& sql);
  // Keeps statement (owned from now on) for sql, which must not be kept already.
  Kept& Keep(const std::string& sql, sqlite3_stmt* statement);
  // Finalises the statement kept for sql, if there is one.
  void Drop(const std::string& sql);
  void Clear();
  std::size_t Size() const { return m_order.size(); }

 private:
  using Entry = std::pair<std::string, Kept>;
  std::size_t m_capacity;
  std::list<Entry> m_order;  // most recently used first
  // Keyed by a view of the text held in the entry, which a list node keeps in place.
  std::unordered_map<std::string_view, std::list<Entry>::iterator> m_index;
};

}  // namespace tablekit
