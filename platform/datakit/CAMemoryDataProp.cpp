#include "datakit/CAMemoryDataProp.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <variant>
#include <vector>

#include "datakit/ADataDef.h"

using ADataDef::AD_NOITEM;
using ADataDef::AD_OK;
using ADataDef::AD_OUTOFRANGE;
using ADataDef::AD_WRONGTYPE;

namespace {

using Bytes = std::vector<std::uint8_t>;
using Value = std::variant<long long, double, CString, Bytes>;

struct Item {
  CString name;
  Value value;
};

}  // namespace

struct CAMemoryDataProp::Items {
  std::vector<Item> list;

  Item* Find(const wchar_t* name) {
    if (name == nullptr) return nullptr;
    for (auto& item : list) {
      if (item.name.CompareNoCase(name) == 0) return &item;
    }
    return nullptr;
  }
  int Put(const wchar_t* name, Value value) {
    if (name == nullptr) return AD_NOITEM;
    if (Item* item = Find(name)) {
      item->value = std::move(value);
    } else {
      list.push_back({CString(name), std::move(value)});
    }
    return AD_OK;
  }
  // The item as an integer of the range [lo, hi]; doubles round to nearest.
  int GetInteger(const wchar_t* name, long long lo, long long hi, long long& out) {
    Item* item = Find(name);
    if (!item) return AD_NOITEM;
    long long v;
    if (auto i = std::get_if<long long>(&item->value)) {
      v = *i;
    } else if (auto d = std::get_if<double>(&item->value)) {
      double r = std::nearbyint(*d);
      if (!(r >= -9.2e18 && r <= 9.2e18)) return AD_OUTOFRANGE;
      v = static_cast<long long>(r);
    } else {
      return AD_WRONGTYPE;
    }
    if (v < lo || v > hi) return AD_OUTOFRANGE;
    out = v;
    return AD_OK;
  }
  template <class T>
  int ReadInteger(const wchar_t* name, T* value) {
    long long v;
    int rc = GetInteger(name, std::numeric_limits<T>::min(), std::numeric_limits<T>::max(), v);
    if (rc == AD_OK) *value = static_cast<T>(v);
    return rc;
  }
};

CAMemoryDataProp::CAMemoryDataProp() : m_items(std::make_shared<Items>()) {}
CAMemoryDataProp::~CAMemoryDataProp() = default;

int CAMemoryDataProp::readChar(const wchar_t* n, char* v) { return m_items->ReadInteger(n, v); }
int CAMemoryDataProp::writeChar(const wchar_t* n, char v) { return m_items->Put(n, static_cast<long long>(v)); }

int CAMemoryDataProp::readString(const wchar_t* name, wchar_t** value) {
  Item* item = m_items->Find(name);
  if (!item) return AD_NOITEM;
  auto text = std::get_if<CString>(&item->value);
  if (!text) return AD_WRONGTYPE;
  auto* copy = new wchar_t[static_cast<std::size_t>(text->GetLength()) + 1];
  std::wmemcpy(copy, text->GetString(), static_cast<std::size_t>(text->GetLength()) + 1);
  *value = copy;
  return AD_OK;
}

int CAMemoryDataProp::writeString(const wchar_t* n, const wchar_t* v) { return m_items->Put(n, CString(v)); }
int CAMemoryDataProp::readInt32(const wchar_t* n, long* v) {
  // "Int32" means 32 bits whatever the platform's long is.
  std::int32_t narrow;
  int rc = m_items->ReadInteger(n, &narrow);
  if (rc == AD_OK) *v = narrow;
  return rc;
}
int CAMemoryDataProp::writeInt32(const wchar_t* n, long v) { return m_items->Put(n, static_cast<long long>(v)); }
int CAMemoryDataProp::readInt16(const wchar_t* n, short* v) { return m_items->ReadInteger(n, v); }
int CAMemoryDataProp::writeInt16(const wchar_t* n, short v) { return m_items->Put(n, static_cast<long long>(v)); }
int CAMemoryDataProp::readUInt32(const wchar_t* n, unsigned long* v) {
  std::uint32_t narrow;
  int rc = m_items->ReadInteger(n, &narrow);
  if (rc == AD_OK) *v = narrow;
  return rc;
}
int CAMemoryDataProp::writeUInt32(const wchar_t* n, unsigned long v) {
  return m_items->Put(n, static_cast<long long>(v));
}
int CAMemoryDataProp::readUInt16(const wchar_t* n, unsigned short* v) { return m_items->ReadInteger(n, v); }
int CAMemoryDataProp::writeUInt16(const wchar_t* n, unsigned short v) {
  return m_items->Put(n, static_cast<long long>(v));
}
int CAMemoryDataProp::readInt(const wchar_t* n, int* v) { return m_items->ReadInteger(n, v); }
int CAMemoryDataProp::writeInt(const wchar_t* n, int v) { return m_items->Put(n, static_cast<long long>(v)); }

int CAMemoryDataProp::readBool(const wchar_t* name, bool* value) {
  long long v;
  int rc = m_items->GetInteger(name, std::numeric_limits<long long>::min(), std::numeric_limits<long long>::max(), v);
  if (rc == AD_OK) *value = v != 0;
  return rc;
}

int CAMemoryDataProp::writeBool(const wchar_t* n, bool v) { return m_items->Put(n, static_cast<long long>(v)); }

int CAMemoryDataProp::readDouble(const wchar_t* name, double* value) {
  Item* item = m_items->Find(name);
  if (!item) return AD_NOITEM;
  if (auto d = std::get_if<double>(&item->value)) {
    *value = *d;
  } else if (auto i = std::get_if<long long>(&item->value)) {
    *value = static_cast<double>(*i);
  } else {
    return AD_WRONGTYPE;
  }
  return AD_OK;
}

int CAMemoryDataProp::writeDouble(const wchar_t* n, double v) { return m_items->Put(n, v); }

// A byte item is read only into a buffer of exactly its size.
int CAMemoryDataProp::readBytes(const wchar_t* name, void* buffer, unsigned long size) {
  Item* item = m_items->Find(name);
  if (!item) return AD_NOITEM;
  auto bytes = std::get_if<Bytes>(&item->value);
  if (!bytes || bytes->size() != size) return AD_WRONGTYPE;
  if (size) std::memcpy(buffer, bytes->data(), size);
  return AD_OK;
}

int CAMemoryDataProp::writeBytes(const wchar_t* name, const void* buffer, unsigned long size) {
  auto p = static_cast<const std::uint8_t*>(buffer);
  return m_items->Put(name, size && p ? Bytes(p, p + size) : Bytes());
}

CADataPropBase* CAMemoryDataProp::Clone() const { return new CAMemoryDataProp(*this); }

int CAMemoryDataProp::GetCount() const { return static_cast<int>(m_items->list.size()); }

CString CAMemoryDataProp::GetName(int index) const {
  if (index < 0 || index >= GetCount()) return CString();
  return m_items->list[static_cast<std::size_t>(index)].name;
}

bool CAMemoryDataProp::HasItem(const wchar_t* name) const { return m_items->Find(name) != nullptr; }

void CAMemoryDataProp::RemoveAll() { m_items->list.clear(); }
