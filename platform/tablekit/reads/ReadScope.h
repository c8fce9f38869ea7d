#pragma once
// ReadScope: one read transaction per connection for the length of a call that only reads.
//
// Each query on SQLite otherwise takes the database's shared lock and lets it go again, and checks
// on the way whether another process changed the file: a call that makes a hundred small queries
// pays for that a hundred times. While a ReadScope lives on this thread, a SQLite connection that
// runs a query and is not inside a transaction already begins one (deferred, so it takes only the
// shared lock), and the outermost scope ends every transaction it began when it goes. The rows a call
// reads then also come from one state of the file.
//
// Rules: a scope is made inside one call of the library and never outlives it, so no lock is held
// between a host's calls. A connection already inside a transaction (the host's own) is left alone. A
// write on a connection in the scope first ends the read transaction, so no row is ever written
// inside one and nothing written can be lost by its end. A message box ends the transactions first
// (Pause), so that no lock is held while a host waits for its user. Internal to the record-access library
// (exported for its tests only).

#include "QKExport.h"

class CADOConnection;

namespace tablekit {

class QK_EXPORT ReadScope {
 public:
  ReadScope();
  ~ReadScope();
  ReadScope(const ReadScope&) = delete;
  ReadScope& operator=(const ReadScope&) = delete;

  // Whether a scope lives on this thread.
  static bool Active();
  // Ends the transactions begun so far; the scope stays, and the next query begins one again.
  static void Pause();
  // A connection that began a read transaction for the scope; the outermost scope ends it.
  static void Joined(CADOConnection* connection);
  // A connection whose read transaction ended before the scope (it wrote, or it is closing).
  static void Left(CADOConnection* connection);
};

}  // namespace tablekit
