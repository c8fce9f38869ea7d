#pragma once
// CAMemoryDataProp: a property store in memory, so any value can be exchanged by name without a
// database (copy and paste, tests, host project files).
//
// Items keep the order of their first writing; writing an existing name replaces its value in place.
// Names are compared ignoring ASCII case, like the columns of a table. Numbers (char, int, the 16- and
// 32-bit integers, bool, double) convert into one another on reading, as a database column would
// (a double read as an integer is rounded to nearest); text and bytes are read only as what they are.
// Reading an item that is absent, or of another kind, returns non-zero and leaves the target as it was.
// Clones and copies share the same items.

#include <memory>

#include "QKExport.h"
#include "datakit/CADataPropBase.h"
#include "mfc/CString.h"

class QK_EXPORT CAMemoryDataProp : public CADataPropBase {
 public:
  CAMemoryDataProp();
  CAMemoryDataProp(const CAMemoryDataProp&) = default;
  CAMemoryDataProp& operator=(const CAMemoryDataProp&) = default;
  ~CAMemoryDataProp() override;

  int readChar(const wchar_t* name, char* value) override;
  int writeChar(const wchar_t* name, char value) override;
  int readString(const wchar_t* name, wchar_t** value) override;
  int writeString(const wchar_t* name, const wchar_t* value) override;
  int readInt32(const wchar_t* name, long* value) override;
  int writeInt32(const wchar_t* name, long value) override;
  int readInt16(const wchar_t* name, short* value) override;
  int writeInt16(const wchar_t* name, short value) override;
  int readUInt32(const wchar_t* name, unsigned long* value) override;
  int writeUInt32(const wchar_t* name, unsigned long value) override;
  int readUInt16(const wchar_t* name, unsigned short* value) override;
  int writeUInt16(const wchar_t* name, unsigned short value) override;
  int readInt(const wchar_t* name, int* value) override;
  int writeInt(const wchar_t* name, int value) override;
  int readBool(const wchar_t* name, bool* value) override;
  int writeBool(const wchar_t* name, bool value) override;
  int readDouble(const wchar_t* name, double* value) override;
  int writeDouble(const wchar_t* name, double value) override;
  int readBytes(const wchar_t* name, void* buffer, unsigned long size) override;
  int writeBytes(const wchar_t* name, const void* buffer, unsigned long size) override;
  CADataPropBase* Clone() const override;

  // Number of items, and the name of the index-th in writing order ("" outside the range).
  int GetCount() const;
  CString GetName(int index) const;
  bool HasItem(const wchar_t* name) const;
  void RemoveAll();

 private:
  struct Items;
  std::shared_ptr<Items> m_items;
};
