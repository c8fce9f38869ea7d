#pragma once
// The fault tests' database: a reference database with a few committed rows in every family
// (places and weather, the envelope catalogue with a construction, rooms and their load
// parameters), every record class pointed at it, and the tools to put the file into a fault:
// children that run the library as another user or under a file-size limit, and a copy of every
// stored row to prove afterwards that none was lost.

#include <gtest/gtest.h>
#include <sys/types.h>

#include <functional>
#include <string>

#include "MessageCapture.h"
#include "TestDatabase.h"
#include "mfc/CString.h"

// Every table the seed fills, with its rows in ID order, one line per row and the values split by
// "|": the committed state that no fault may change. A table that cannot be read shows its error.
std::string StoredRows(const CString& path);

// "ok" for a sound file; the first problem SQLite finds otherwise.
std::string IntegrityCheck(const CString& path);

// The bytes of a file, to show that no write reached it.
std::string FileBytes(const CString& path);

// Runs body in a child process as RunUnprivileged does (uid "nobody" when the tests run as root) and
// returns the text it made; "<child failed>" when it did not finish.
std::string UnprivilegedText(const std::function<std::string()>& body);

// Runs body in a child process in which no file may grow past limitBytes: a write beyond that fails
// with EFBIG (SIGXFSZ is ignored, so it is an error and not the end of the process), as on a full
// disk. Returns the text body made; "<child failed>" when it did not finish.
std::string TextUnderFileSizeLimit(off_t limitBytes, const std::function<std::string()>& body);

class FaultFixture : public ::testing::Test {
 protected:
  // Builds the database, seeds it and points every record class at it; no connection is opened yet,
  // so a child process forked by the test opens its own.
  void SetUp() override;
  // Closes the record classes' connections (the library never does) and forgets their tables.
  void TearDown() override;

  // Runs sql straight on the file with SQLite: how a test puts the database into a fault.
  void Alter(const std::string& sql) { CreateDatabase(path, sql); }
  // Makes the folder and the file reachable by "nobody", who may then read the file, and write it
  // only when fileMode and folderMode allow.
  void OpenToOthers(mode_t fileMode, mode_t folderMode);

  TempDir dir;
  CString path;
  MessageCapture capture;
};
