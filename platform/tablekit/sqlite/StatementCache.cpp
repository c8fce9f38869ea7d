#include "tablekit/sqlite/StatementCache.h"

#include <sqlite3.h>

namespace tablekit {

sqlite3_stmt* StatementCache::Find(const std::string& sql) {
  auto found = m_index.find(sql);
  if (found == m_index.end()) return nullptr;
  m_order.splice(m_order.begin(), m_order, found->second);
  return found->second->second;
}

void StatementCache::Keep(const std::string& sql, sqlite3_stmt* statement) {
  if (!m_order.empty() && m_order.size() >= m_capacity) {
    m_index.erase(m_order.back().first);
    sqlite3_finalize(m_order.back().second);
    m_order.pop_back();
  }
  m_order.emplace_front(sql, statement);
  m_index.emplace(m_order.front().first, m_order.begin());
}

void StatementCache::Drop(const std::string& sql) {
  auto found = m_index.find(sql);
  if (found == m_index.end()) return;
  auto entry = found->second;
  m_index.erase(found);
  sqlite3_finalize(entry->second);
  m_order.erase(entry);
}

void StatementCache::Clear() {
  m_index.clear();
  for (Entry& entry : m_order) sqlite3_finalize(entry.second);
  m_order.clear();
}

}  // namespace tablekit
