#pragma once
// CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>: the framework's hashed map. Keys are spread over a fixed
// number of buckets (17 unless InitHashTable chose another number before the first insertion) by
// HashKey; within a bucket the newest key comes first. A walk with GetStartPosition / GetNextAssoc,
// and the archive form, visit the buckets in index order: this "bucket order" is what callers see.
// Like the framework's, the map cannot be copied.
//
// The archive form (StoreTo / LoadFrom) is the count in the archive count encoding, then each key and
// its value in bucket order (see ArchiveElements.h for how each travels). Loading inserts with SetAt.

#include <cstdint>
#include <type_traits>
#include <vector>

#include "mfc/ArchiveElements.h"
#include "mfc/CObject.h"
#include "mfc/CString.h"
#include "mfc/WinTypes.h"

// The framework's hash of integer-like keys: the value shifted right by 4 bits, so small keys
// (enumerations, ids 0..15) share bucket 0.
template <class KEY>
unsigned int HashKey(KEY key) {
  static_assert(std::is_integral_v<KEY> || std::is_enum_v<KEY>, "HashKey needs an overload for this key");
  return static_cast<unsigned int>(static_cast<std::uintptr_t>(key)) >> 4;
}

// The framework's string hash: h = h * 33 + c over the characters.
inline unsigned int HashKey(const CString& key) {
  unsigned int h = 0;
  for (wchar_t c : key.str()) h = (h << 5) + h + static_cast<unsigned int>(c);
  return h;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap : public CObject {
  struct Assoc : __POSITION {
    Assoc(ARG_KEY k, unsigned int h) : key(k), hash(h) {}
    KEY key;
    VALUE value{};
    unsigned int hash;
    Assoc* next = nullptr;
  };

 public:
  CMap() = default;
  CMap(const CMap&) = delete;
  CMap& operator=(const CMap&) = delete;
  ~CMap() override { RemoveAll(); }

  int GetCount() const { return m_count; }
  int GetSize() const { return m_count; }
  bool IsEmpty() const { return m_count == 0; }
  unsigned int GetHashTableSize() const { return m_tableSize; }

  // Chooses the bucket count. Only honoured while the map is empty, as in the framework.
  void InitHashTable(unsigned int size) {
    if (m_count == 0 && size > 0) {
      m_buckets.clear();
      m_tableSize = size;
    }
  }

  // True and value set iff key is present.
  bool Lookup(ARG_KEY key, VALUE& value) const {
    const Assoc* a = Find(key);
    if (a == nullptr) return false;
    value = a->value;
    return true;
  }
  // The value of key, inserted value-initialised when absent.
  VALUE& operator[](ARG_KEY key) {
    if (Assoc* a = Find(key)) return a->value;
    if (m_buckets.empty()) m_buckets.assign(m_tableSize, nullptr);
    unsigned int h = HashKey(key);
    Assoc* a = new Assoc(key, h);
    Assoc*& head = m_buckets[h % m_tableSize];
    a->next = head;
    head = a;
    ++m_count;
    return a->value;
  }
  void SetAt(ARG_KEY key, ARG_VALUE value) { (*this)[key] = value; }
  // True iff key was present (and is now removed).
  bool RemoveKey(ARG_KEY key) {
    if (m_buckets.empty()) return false;
    Assoc** link = &m_buckets[HashKey(key) % m_tableSize];
    for (; *link; link = &(*link)->next) {
      if ((*link)->key == key) {
        Assoc* gone = *link;
        *link = gone->next;
        delete gone;
        --m_count;
        return true;
      }
    }
    return false;
  }
  void RemoveAll() {
    for (Assoc*& head : m_buckets) {
      while (head) {
        Assoc* next = head->next;
        delete head;
        head = next;
      }
    }
    m_buckets.clear();
    m_count = 0;
  }

  // Null for an empty map.
  POSITION GetStartPosition() const { return FirstFrom(0); }
  // Gives the entry at pos and moves pos to the next one in bucket order (null after the last).
  void GetNextAssoc(POSITION& pos, KEY& key, VALUE& value) const {
    const Assoc* a = static_cast<const Assoc*>(pos);
    key = a->key;
    value = a->value;
    pos = After(a);
  }

  template <class Stream>
  int StoreTo(Stream& s) const {
    int rc = s.WriteCount(static_cast<std::uint64_t>(m_count));
    for (POSITION pos = GetStartPosition(); pos && rc == 0;) {
      const Assoc* a = static_cast<const Assoc*>(pos);
      rc = qk::archive::StoreElement(s, a->key);
      if (rc == 0) rc = qk::archive::StoreElement(s, a->value);
      pos = After(a);
    }
    return rc;
  }
  template <class Stream>
  int LoadFrom(Stream& s) {
    std::uint64_t count = 0;
    int rc = s.ReadCount(&count, qk::archive::MinElementBytes<KEY>() + qk::archive::MinElementBytes<VALUE>());
    for (std::uint64_t i = 0; i < count && rc == 0; ++i) {
      KEY key{};
      VALUE value{};
      rc = qk::archive::LoadElement(s, key);
      if (rc == 0) rc = qk::archive::LoadElement(s, value);
      if (rc == 0) SetAt(key, value);
    }
    return rc;
  }

 private:
  Assoc* Find(ARG_KEY key) const {
    if (m_buckets.empty()) return nullptr;
    for (Assoc* a = m_buckets[HashKey(key) % m_tableSize]; a; a = a->next) {
      if (a->key == key) return a;
    }
    return nullptr;
  }
  // The entry after a in bucket order, or null.
  POSITION After(const Assoc* a) const { return a->next ? a->next : FirstFrom(a->hash % m_tableSize + 1); }
  POSITION FirstFrom(std::size_t bucket) const {
    for (; bucket < m_buckets.size(); ++bucket) {
      if (m_buckets[bucket]) return m_buckets[bucket];
    }
    return nullptr;
  }

  std::vector<Assoc*> m_buckets;  // allocated on the first insertion
  unsigned int m_tableSize = 17;
  int m_count = 0;
};
