#pragma once
// CADOOP: the option block a record set is opened with. Only the lock type has an effect here:
// a read-only record set refuses AddNew, Edit and field writes. The cursor type is carried for hosts
// that pass it on; every record set here is static (its rows are read once, at Open).

struct CADOOP {
  enum CursorType { cursorStatic = 3 };
  enum LockType { lockReadOnly = 1, lockOptimistic = 3 };

  int nCursorType = cursorStatic;
  int nLockType = lockOptimistic;
};
