#pragma once
// CLxMapBase<K, ARG_K, V, ARG_V>: the framework's hashed map with value semantics. A copy reproduces
// its source exactly: the same bucket count and the same walk ("bucket order"), so the copy's
// archive form is byte for byte the source's. Lookup, insertion and the archive form are CMap's.
// Not safe for concurrent use.

#include <utility>
#include <vector>

#include "mfc/CMap.h"

template <class K, class ARG_K, class V, class ARG_V>
class CLxMapBase : public CMap<K, ARG_K, V, ARG_V> {
 public:
  CLxMapBase() = default;
  CLxMapBase(const CLxMapBase& other) : CMap<K, ARG_K, V, ARG_V>() { CopyFrom(other); }
  CLxMapBase& operator=(const CLxMapBase& other) {
    if (&other != this) {
      this->RemoveAll();
      CopyFrom(other);
    }
    return *this;
  }
  ~CLxMapBase() override = default;

 private:
  // Into an empty map. Within a bucket the newest key comes first, so inserting the source's entries
  // in the reverse of its walk rebuilds every bucket in the source's order.
  void CopyFrom(const CLxMapBase& other) {
    this->InitHashTable(other.GetHashTableSize());
    std::vector<std::pair<K, V>> entries;
    entries.reserve(static_cast<std::size_t>(other.GetCount()));
    for (POSITION pos = other.GetStartPosition(); pos != nullptr;) {
      std::pair<K, V> entry{};
      other.GetNextAssoc(pos, entry.first, entry.second);
      entries.push_back(std::move(entry));
    }
    for (auto it = entries.rbegin(); it != entries.rend(); ++it) this->SetAt(it->first, it->second);
  }
};
