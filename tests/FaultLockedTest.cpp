// The reference database locked by another process that is in the middle of a write: it began an
// immediate transaction and inserted a row it has not committed. Readers still see the committed
// rows; every write of the library waits kBusyTimeoutMs (2 s) for the lock, then gives its error
// value, and no committed row is lost. Each write waits its 2 s, so the writing tests take seconds.
// A process that took the exclusive lock (as a writer does while it commits) keeps readers out too:
// then a read waits its 2 s and fails.

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "FaultDatabase.h"
#include "FaultOperations.h"
#include "geography/CQKCountry.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace {

class FaultLocked : public FaultFixture {
 protected:
  void SetUp() override {
    FaultFixture::SetUp();
    rowsBefore = StoredRows(path);
    ASSERT_EQ(pipe(m_ready), 0);
    ASSERT_EQ(pipe(m_release), 0);
    std::fflush(nullptr);
    m_holder = fork();
    ASSERT_GE(m_holder, 0);
    if (m_holder == 0) HoldWriteLock();
    close(m_ready[1]);
    close(m_release[0]);
    char ready = 0;
    ASSERT_EQ(read(m_ready[0], &ready, 1), 1) << "the locking process did not start its transaction";
  }
  void TearDown() override {
    Release();
    FaultFixture::TearDown();
  }

  std::string rowsBefore;  // every stored row, read before the lock was taken

  // What the locking process runs and then holds, uncommitted.
  virtual const char* LockingStatements() const {
    return "BEGIN IMMEDIATE; INSERT INTO Country (Name) VALUES ('未提交');";
  }

  // Lets the locking process roll back and end; the second call does nothing.
  void Release() {
    if (m_holder <= 0) return;
    close(m_release[1]);
    int status = 0;
    waitpid(m_holder, &status, 0);
    close(m_ready[0]);
    m_holder = 0;
  }

 private:
  // The child: opens the file, takes the write lock with an uncommitted insert, says so, and holds
  // the lock until the parent closes the release pipe.
  [[noreturn]] void HoldWriteLock() {
    close(m_ready[0]);
    close(m_release[1]);
    sqlite3* db = nullptr;
    const bool locked = sqlite3_open(path.ToUtf8().c_str(), &db) == SQLITE_OK &&
                        sqlite3_exec(db, LockingStatements(), nullptr, nullptr, nullptr) == SQLITE_OK;
    if (locked && write(m_ready[1], "1", 1) == 1) {
      char wait = 0;
      while (read(m_release[0], &wait, 1) > 0) {
      }
    }
    sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    _exit(locked ? 0 : 1);
  }

  int m_ready[2] = {-1, -1};
  int m_release[2] = {-1, -1};
  pid_t m_holder = 0;
};

TEST_F(FaultLocked, LookupsStillFindTheCommittedRows) { EXPECT_EQ(RunLookups(), kLookupsFound); }

TEST_F(FaultLocked, WritesGiveTheirErrorValuesAfterWaiting) { EXPECT_EQ(RunWrites(), kWritesRefused); }

TEST_F(FaultLocked, TreesStillBuild) { EXPECT_EQ(RunTrees(), kTreesWhole); }

TEST_F(FaultLocked, DeletionsFailWithTheirMessagesAfterWaiting) { EXPECT_EQ(RunDeletions(), kDeletionsFailed); }

TEST_F(FaultLocked, WritesSucceedOnceTheLockIsReleased) {
  CQKCountry refused;
  refused.Name = L"法国";
  ASSERT_EQ(refused.AddIfNotExist(nullptr, 0), QKLoad::DBS_ERROR);
  Release();
  CQKCountry added;
  added.Name = L"法国";
  EXPECT_EQ(added.AddIfNotExist(nullptr, 0), QKLoad::DBS_ADDED);
  EXPECT_EQ(QueryOne(path, "SELECT count(*) FROM Country"), "2");
}

TEST_F(FaultLocked, CommittedRowsStayWhole) {
  CQKCountry added;
  added.Name = L"法国";
  added.AddIfNotExist(nullptr, 0);
  CQKWeatherDataAdmin places;
  CQKCountry country;
  country.SetID(1);
  places.DeleteCountry(country);
  Release();
  EXPECT_EQ(StoredRows(path), rowsBefore);
  EXPECT_EQ(IntegrityCheck(path), "ok");
}

class FaultLockedExclusive : public FaultLocked {
 protected:
  const char* LockingStatements() const override {
    return "BEGIN EXCLUSIVE; INSERT INTO Country (Name) VALUES ('未提交');";
  }
};

TEST_F(FaultLockedExclusive, ALookupGivesErrorAfterWaiting) {
  CQKCountry country;
  country.Name = L"中国";
  EXPECT_EQ(country.IsExist(nullptr), QKLoad::DBS_ERROR);
}

TEST_F(FaultLockedExclusive, ATreeHasOnlyItsRootAfterWaiting) {
  CQKWeatherDataAdmin places;
  const CQKWeatherDataAdmin::tagCityNode* root = places.GetCityNodes(1, false);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->arrChild.GetSize(), 0);
}

TEST_F(FaultLockedExclusive, CommittedRowsStayWhole) {
  CQKCountry added;
  added.Name = L"法国";
  added.AddIfNotExist(nullptr, 0);
  Release();
  EXPECT_EQ(StoredRows(path), rowsBefore);
  EXPECT_EQ(IntegrityCheck(path), "ok");
}

}  // namespace
