#include "BackendDatabase.h"

ReferenceDatabase::ReferenceDatabase(Backend backend, const TempDir& dir, const std::string& name)
    : m_backend(backend) {
  if (backend == Backend::SQLite) {
    m_path = CreateReferenceDatabase(dir, name);
  } else {
    m_pg = std::make_unique<PgTestDatabase>();
    m_path = m_pg->Uri();
  }
}

void ReferenceDatabase::Seed(const std::string& sql) const {
  if (m_pg) {
    m_pg->Run(sql);
  } else {
    CreateDatabase(m_path, sql);
  }
}

std::string ReferenceDatabase::Query(const std::string& sql) const {
  return m_pg ? m_pg->QueryOne(sql) : QueryOne(m_path, sql);
}

void BackendFixture::SetUp() {
  reference = std::make_unique<ReferenceDatabase>(GetParam(), dir);
  if (!reference->Available()) {
    if (std::getenv("QK_PG_REQUIRED")) FAIL() << "PostgreSQL required: " << reference->Why();
    GTEST_SKIP() << reference->Why();
  }
  path = reference->Path();
  ASSERT_TRUE(db.OpenAccess(path, L"", L"")) << db.GetLastError().ToUtf8();
}

std::unique_ptr<ReferenceDatabase> BackendFixture::Another(const std::string& name) const {
  return std::make_unique<ReferenceDatabase>(GetParam(), dir, name);
}

std::string BackendName(const ::testing::TestParamInfo<Backend>& info) {
  return info.param == Backend::SQLite ? "SQLite" : "PostgreSQL";
}
