#pragma once
// CList<TYPE, ARG_TYPE>: the framework's doubly linked list. A POSITION names one element and stays
// valid until that element is removed; null marks the end of a walk. Like the framework's, the list
// cannot be copied. Asking for the head or tail of an empty list throws std::invalid_argument.
//
// The archive form (StoreTo / LoadFrom, over CADataStream or any stream with the same calls) is the
// element count in the archive count encoding, then each element: a trivially copyable element as
// its raw bytes, a CString as a stream string. Loading appends to the end of the list.

#include <cstdint>
#include <stdexcept>

#include "mfc/ArchiveElements.h"
#include "mfc/CObject.h"
#include "mfc/WinTypes.h"

template <class TYPE, class ARG_TYPE = const TYPE&>
class CList : public CObject {
  struct Node : __POSITION {
    explicit Node(ARG_TYPE v) : data(v) {}
    TYPE data;
    Node* prev = nullptr;
    Node* next = nullptr;
  };

 public:
  CList() = default;
  CList(const CList&) = delete;
  CList& operator=(const CList&) = delete;
  ~CList() override { RemoveAll(); }

  int GetCount() const { return m_count; }
  int GetSize() const { return m_count; }
  bool IsEmpty() const { return m_count == 0; }

  TYPE& GetHead() { return NonEmpty(m_head)->data; }
  const TYPE& GetHead() const { return NonEmpty(m_head)->data; }
  TYPE& GetTail() { return NonEmpty(m_tail)->data; }
  const TYPE& GetTail() const { return NonEmpty(m_tail)->data; }

  POSITION AddHead(ARG_TYPE element) { return InsertBefore(m_head, element); }
  POSITION AddTail(ARG_TYPE element) { return InsertAfter(m_tail, element); }
  TYPE RemoveHead() {
    TYPE value = GetHead();
    Unlink(m_head);
    return value;
  }
  TYPE RemoveTail() {
    TYPE value = GetTail();
    Unlink(m_tail);
    return value;
  }
  void RemoveAll() {
    while (m_head) Unlink(m_head);
  }

  POSITION GetHeadPosition() const { return m_head; }
  POSITION GetTailPosition() const { return m_tail; }
  // Returns the element at pos and moves pos to the next one (null after the tail).
  TYPE& GetNext(POSITION& pos) {
    Node* n = AsNode(pos);
    pos = n->next;
    return n->data;
  }
  const TYPE& GetNext(POSITION& pos) const {
    Node* n = AsNode(pos);
    pos = n->next;
    return n->data;
  }
  TYPE& GetPrev(POSITION& pos) {
    Node* n = AsNode(pos);
    pos = n->prev;
    return n->data;
  }
  TYPE& GetAt(POSITION pos) { return AsNode(pos)->data; }
  const TYPE& GetAt(POSITION pos) const { return AsNode(pos)->data; }
  void SetAt(POSITION pos, ARG_TYPE element) { AsNode(pos)->data = element; }
  void RemoveAt(POSITION pos) { Unlink(AsNode(pos)); }

  // A null position inserts at the head (InsertBefore) or the tail (InsertAfter).
  POSITION InsertBefore(POSITION pos, ARG_TYPE element) {
    Node* at = pos ? AsNode(pos) : m_head;
    Node* n = new Node(element);
    n->next = at;
    n->prev = at ? at->prev : m_tail;
    Link(n);
    return n;
  }
  POSITION InsertAfter(POSITION pos, ARG_TYPE element) {
    Node* at = pos ? AsNode(pos) : m_tail;
    Node* n = new Node(element);
    n->prev = at;
    n->next = at ? at->next : nullptr;
    Link(n);
    return n;
  }

  // The position of the first element equal to value at or after startAfter's successor, or null.
  POSITION Find(ARG_TYPE value, POSITION startAfter = nullptr) const {
    for (Node* n = startAfter ? AsNode(startAfter)->next : m_head; n; n = n->next) {
      if (n->data == value) return n;
    }
    return nullptr;
  }
  // The position of the index-th element (from 0), or null when there is none.
  POSITION FindIndex(int index) const {
    if (index < 0 || index >= m_count) return nullptr;
    Node* n = m_head;
    while (index-- > 0) n = n->next;
    return n;
  }

  template <class Stream>
  int StoreTo(Stream& s) const {
    int rc = s.WriteCount(static_cast<std::uint64_t>(m_count));
    for (Node* n = m_head; n && rc == 0; n = n->next) rc = qk::archive::StoreElement(s, n->data);
    return rc;
  }
  // Reads a count and appends that many elements. A count the stream cannot hold fails before any
  // element is read; a failure part-way keeps the elements read so far.
  template <class Stream>
  int LoadFrom(Stream& s) {
    std::uint64_t count = 0;
    int rc = s.ReadCount(&count, qk::archive::MinElementBytes<TYPE>());
    for (std::uint64_t i = 0; i < count && rc == 0; ++i) {
      TYPE e{};
      rc = qk::archive::LoadElement(s, e);
      if (rc == 0) AddTail(e);
    }
    return rc;
  }

 private:
  static Node* AsNode(POSITION pos) {
    if (pos == nullptr) throw std::invalid_argument("CList: null position");
    return static_cast<Node*>(pos);
  }
  static Node* NonEmpty(Node* n) {
    if (n == nullptr) throw std::invalid_argument("CList: the list is empty");
    return n;
  }
  void Link(Node* n) {
    if (n->prev) n->prev->next = n; else m_head = n;
    if (n->next) n->next->prev = n; else m_tail = n;
    ++m_count;
  }
  void Unlink(Node* n) {
    if (n->prev) n->prev->next = n->next; else m_head = n->next;
    if (n->next) n->next->prev = n->prev; else m_tail = n->prev;
    --m_count;
    delete n;
  }

  Node* m_head = nullptr;
  Node* m_tail = nullptr;
  int m_count = 0;
};
