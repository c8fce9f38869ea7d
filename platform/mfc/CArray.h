#pragma once
// CArray<TYPE, ARG_TYPE>: the framework's growable array. Elements are stored contiguously and
// addressed by int index. Like the framework's, it cannot be copied (use Copy, or CLxArray which adds
// value copying), and an invalid argument (an index outside the array, a negative size, an insertion
// count below 1) throws std::invalid_argument. New elements made by SetSize are value-initialised
// (0 for numbers, empty for strings).
//
// The grow step of SetSize(n, growBy) is the number of extra slots reserved whenever the array must
// grow, so a caller that knows it will add many elements avoids repeated reallocation. The default
// (-1) lets the array choose: it grows geometrically.

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

#include "mfc/CObject.h"

template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject {
 public:
  CArray() = default;
  CArray(const CArray&) = delete;
  CArray& operator=(const CArray&) = delete;
  ~CArray() override = default;

  int GetSize() const { return static_cast<int>(m_data.size()); }
  int GetCount() const { return GetSize(); }
  bool IsEmpty() const { return m_data.empty(); }
  int GetUpperBound() const { return GetSize() - 1; }

  void SetSize(int newSize, int growBy = -1) {
    if (newSize < 0) throw std::invalid_argument("CArray::SetSize: negative size");
    if (growBy >= 0) m_growBy = growBy;
    Reserve(static_cast<std::size_t>(newSize));
    m_data.resize(static_cast<std::size_t>(newSize));
  }
  void FreeExtra() { m_data.shrink_to_fit(); }
  void RemoveAll() { m_data.clear(); }

  const TYPE& GetAt(int index) const { return m_data[Checked(index)]; }
  TYPE& GetAt(int index) { return m_data[Checked(index)]; }
  void SetAt(int index, ARG_TYPE element) { m_data[Checked(index)] = element; }
  TYPE& ElementAt(int index) { return m_data[Checked(index)]; }
  const TYPE& ElementAt(int index) const { return m_data[Checked(index)]; }
  const TYPE& operator[](int index) const { return GetAt(index); }
  TYPE& operator[](int index) { return GetAt(index); }
  const TYPE* GetData() const { return m_data.data(); }
  TYPE* GetData() { return m_data.data(); }

  // Sets the element at index, growing the array (value-initialised gaps) when index is past the end.
  void SetAtGrow(int index, ARG_TYPE element) {
    if (index < 0 || index == std::numeric_limits<int>::max())
      throw std::invalid_argument("CArray::SetAtGrow: index outside what an array can hold");
    if (index >= GetSize()) SetSize(index + 1);
    m_data[static_cast<std::size_t>(index)] = element;
  }
  // Appends and returns the new element's index.
  int Add(ARG_TYPE element) {
    TYPE copy(element);  // element may refer into this array, which Reserve can move
    Reserve(m_data.size() + 1);
    m_data.push_back(std::move(copy));
    return GetSize() - 1;
  }
  // Appends every element of src; returns the index of the first appended one.
  int Append(const CArray& src) {
    int first = GetSize();
    if (&src == this) {
      std::vector<TYPE> copy(src.m_data);
      Reserve(m_data.size() + copy.size());
      m_data.insert(m_data.end(), copy.begin(), copy.end());
    } else {
      Reserve(m_data.size() + src.m_data.size());
      m_data.insert(m_data.end(), src.m_data.begin(), src.m_data.end());
    }
    return first;
  }
  // Makes this array an element-wise copy of src (each element through TYPE's assignment).
  void Copy(const CArray& src) {
    if (&src == this) return;
    SetSize(src.GetSize());
    for (std::size_t i = 0; i < m_data.size(); ++i) m_data[i] = src.m_data[i];
  }
  // Inserts count copies of element before index; an index at or past the end appends (growing the
  // array with value-initialised elements up to index first, as the framework does).
  void InsertAt(int index, ARG_TYPE element, int count = 1) {
    if (index < 0 || count < 1) throw std::invalid_argument("CArray::InsertAt: negative index or count below 1");
    TYPE copy(element);
    if (index > GetSize()) SetSize(index);
    Reserve(m_data.size() + static_cast<std::size_t>(count));
    m_data.insert(m_data.begin() + index, static_cast<std::size_t>(count), copy);
  }
  void InsertAt(int startIndex, const CArray* newArray) {
    if (newArray == nullptr || startIndex < 0) throw std::invalid_argument("CArray::InsertAt: bad array or index");
    if (newArray->IsEmpty()) return;
    std::vector<TYPE> copy(newArray->m_data);
    if (startIndex > GetSize()) SetSize(startIndex);
    Reserve(m_data.size() + copy.size());
    m_data.insert(m_data.begin() + startIndex, copy.begin(), copy.end());
  }
  void RemoveAt(int index, int count = 1) {
    // Compared as count > size - index: index + count could overflow an int.
    if (index < 0 || count < 0 || index > GetSize() || count > GetSize() - index)
      throw std::invalid_argument("CArray::RemoveAt: range outside the array");
    m_data.erase(m_data.begin() + index, m_data.begin() + index + count);
  }

 private:
  std::size_t Checked(int index) const {
    if (index < 0 || index >= GetSize()) throw std::invalid_argument("CArray: index out of range");
    return static_cast<std::size_t>(index);
  }
  // Grows the storage to hold at least needed elements, by the grow step when one was given.
  void Reserve(std::size_t needed) {
    if (needed <= m_data.capacity()) return;
    if (m_growBy > 0) {
      m_data.reserve(needed + static_cast<std::size_t>(m_growBy));
    } else {
      m_data.reserve(std::max(needed, m_data.capacity() * 2));
    }
  }

  std::vector<TYPE> m_data;
  int m_growBy = -1;
};
