#pragma once
// CLxMap<K, V>: the hashed map of the library's interface, with value semantics (see CLxMapBase).
// Its one use is the name map of labour intensities, CLxMap<QKLoad::EQKLdQdType, CString>.

#include "foundation/CLxMapBase.h"

template <class K, class V>
class CLxMap : public CLxMapBase<K, const K&, V, const V&> {
 public:
  CLxMap() = default;
  CLxMap(const CLxMap&) = default;
  CLxMap& operator=(const CLxMap&) = default;
  ~CLxMap() override = default;
};
