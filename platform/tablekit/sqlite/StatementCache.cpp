#include "tablekit/sqlite/StatementCache.h"

#include <sqlite3.h>

namespace tablekit {

StatementCache::Kept* StatementCache::Find(const std::string& sql) {
  auto found = m_index.find(sql);
  if (found == m_index.end()) return nullptr;
  m_order.splice(m_order.begin(), m_order, found->second);
  return &found->second->second;
}

StatementCache::Kept& StatementCache::Keep(const std::string& sql, sqlite3_stmt* statement) {
  if (!m_order.empty() && m_order.size() >= m_capacity) {
    m_index.erase(m_order.back().first);
    sqlite3_finalize(m_order.back().second.statement);
    m_order.pop_back();
  }
  Kept kept;
  kept.statement = statement;
  m_order.emplace_front(sql, std::move(kept));
  m_index.emplace(m_order.front().first, m_order.begin());
  return m_order.front().second;
}

void StatementCache::Drop(const std::string& sql) {
  auto found = m_index.find(sql);
  if (found == m_index.end()) return;
  auto entry = found->second;
  m_index.erase(found);
  sqlite3_finalize(entry->second.statement);
  m_order.erase(entry);
}

void StatementCache::Clear() {
  m_index.clear();
  for (Entry& entry : m_order) sqlite3_finalize(entry.second.statement);
  m_order.clear();
}

}  // namespace tablekit
