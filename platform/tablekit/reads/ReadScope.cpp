#include "tablekit/reads/ReadScope.h"

#include <algorithm>
#include <vector>

#include "tablekit/CADOConnection.h"

namespace tablekit {
namespace {

// The library is used from one thread at a time, but a host may use it from several, each with its
// own connections: the scope is per thread.
thread_local int t_depth = 0;
thread_local std::vector<CADOConnection*> t_joined;

}  // namespace

ReadScope::ReadScope() { ++t_depth; }

ReadScope::~ReadScope() {
  if (--t_depth == 0) Pause();
}

bool ReadScope::Active() { return t_depth > 0; }

void ReadScope::Pause() {
  std::vector<CADOConnection*> joined;
  joined.swap(t_joined);
  for (CADOConnection* connection : joined) connection->EndReadScope();
}

void ReadScope::Joined(CADOConnection* connection) { t_joined.push_back(connection); }

void ReadScope::Left(CADOConnection* connection) {
  t_joined.erase(std::remove(t_joined.begin(), t_joined.end(), connection), t_joined.end());
}

}  // namespace tablekit
