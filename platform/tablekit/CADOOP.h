#pragma once
// CADOOP: the option block a record set is opened with. Its lock type decides whether the record set
// may write: a read-only one refuses AddNew, Edit and field writes. Every record set here is static
// (its rows are read once, at Open), so there is no cursor type to choose.

struct CADOOP {
  enum LockType { lockReadOnly = 1, lockOptimistic = 3 };

  int nLockType = lockOptimistic;
};
