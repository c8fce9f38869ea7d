#pragma once
// CLxArray<T>: the framework's growable array with value semantics, so arrays of entities can be
// returned and passed by value across the library's interface. A copy is independent of its source:
// every element is copied through T's assignment. Not safe for concurrent use.

#include "mfc/CArray.h"

template <class T>
class CLxArray : public CArray<T, const T&> {
 public:
  CLxArray() = default;
  CLxArray(const CLxArray& other) : CArray<T, const T&>() { this->Copy(other); }
  CLxArray& operator=(const CLxArray& other) {
    this->Copy(other);  // Copy ignores a copy onto itself
    return *this;
  }
  ~CLxArray() override { this->RemoveAll(); }
};
