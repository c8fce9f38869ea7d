#pragma once
// SharedConnection: every record class reading and writing on one open connection, for as long as
// this object lives. Each command that works on the reference database holds one, so the database is
// opened once per command (qkdb init, the reading commands, export and the imports).
//
// Each record class keeps a connection of its own (m_pADODatabase, opened on first use on the path of
// S_Init). A command that let them would open the same file once per class it touches (five times for
// `qkdb weather`), and a build that must be one transaction cannot have thirteen: on a server, rows
// written on one connection are invisible to the others until commit, and tables made in the
// transaction do not exist for them at all. The class-wide pointer is public and is reopened only when
// found closed, so pointing every class at the command's open connection makes every record read and
// write, every lookup the verbs make and every statement of the command one connection's (and one
// transaction's, when the command has begun one). The classes' own pointers (and paths) are put back
// on destruction, before the command's connection goes away.

#include <string>
#include <vector>

#include "mfc/CString.h"

class CADODatabase;

namespace qkdb {

class SharedConnection {
 public:
  // db must be open and outlive this object; path is what S_Init is told (the file or the URI).
  SharedConnection(CADODatabase& db, const std::string& path);
  ~SharedConnection();
  SharedConnection(const SharedConnection&) = delete;
  SharedConnection& operator=(const SharedConnection&) = delete;

 private:
  struct Kept {
    CADODatabase* connection;
    CString path;
    CString table;
  };
  std::vector<Kept> m_kept;  // in the order of ForEachRecordClass
};

}  // namespace qkdb
