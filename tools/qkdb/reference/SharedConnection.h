#pragma once
// SharedConnection: every record class writing on one connection, the one the build holds, for as
// long as this object lives.
//
// Each record class keeps a connection of its own (m_pADODatabase, opened on first use on the path of
// S_Init). A build that must be one transaction cannot have thirteen: on a server, rows written on
// one connection are invisible to the others until commit, and tables made in the transaction do not
// exist for them at all. The class-wide pointer is public and is reopened only when found closed, so
// pointing every class at the build's open connection makes every record write, every lookup the
// verbs make and every statement of the build one transaction's. The classes' own pointers (and
// paths) are put back on destruction, before the build's connection goes away.

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
