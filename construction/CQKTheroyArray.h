#pragma once
// CQKTheroyArray<T, ARG>: the growable array that holds a wall's layers (T = tagQKTIMBERINGCHARACTER).
// It is the framework's array (size, grow step, index access, add, insert, remove; a negative index or
// an insertion count below 1 throws std::invalid_argument; new elements are default-constructed) with
// value copying: a copy assigns every element, so it shares nothing with its source.

#include "mfc/CArray.h"

template <class T, class ARG = const T&>
class CQKTheroyArray : public CArray<T, ARG> {
 public:
  CQKTheroyArray() = default;
  CQKTheroyArray(const CQKTheroyArray& other) : CArray<T, ARG>() { this->Copy(other); }
  CQKTheroyArray& operator=(const CQKTheroyArray& other) {
    this->Copy(other);  // Copy ignores a copy onto itself
    return *this;
  }
  ~CQKTheroyArray() override = default;
};
