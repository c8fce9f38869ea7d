#pragma once
// CADataProp<T>: adapts any class T that has the store's operations by name (readString,
// writeDouble, ...) to the abstract CADataPropBase, so a CADataExchange can run over it. It holds a
// pointer to the wrapped store and does not own it; the store must outlive the adapter and its clones.

#include "datakit/CADataPropBase.h"

template <class T>
class CADataProp : public CADataPropBase {
 public:
  explicit CADataProp(T* store) : m_pStore(store) {}

  int readChar(const wchar_t* n, char* v) override { return m_pStore->readChar(n, v); }
  int writeChar(const wchar_t* n, char v) override { return m_pStore->writeChar(n, v); }
  int readString(const wchar_t* n, wchar_t** v) override { return m_pStore->readString(n, v); }
  int writeString(const wchar_t* n, const wchar_t* v) override { return m_pStore->writeString(n, v); }
  int readInt32(const wchar_t* n, long* v) override { return m_pStore->readInt32(n, v); }
  int writeInt32(const wchar_t* n, long v) override { return m_pStore->writeInt32(n, v); }
  int readInt16(const wchar_t* n, short* v) override { return m_pStore->readInt16(n, v); }
  int writeInt16(const wchar_t* n, short v) override { return m_pStore->writeInt16(n, v); }
  int readUInt32(const wchar_t* n, unsigned long* v) override { return m_pStore->readUInt32(n, v); }
  int writeUInt32(const wchar_t* n, unsigned long v) override { return m_pStore->writeUInt32(n, v); }
  int readUInt16(const wchar_t* n, unsigned short* v) override { return m_pStore->readUInt16(n, v); }
  int writeUInt16(const wchar_t* n, unsigned short v) override { return m_pStore->writeUInt16(n, v); }
  int readInt(const wchar_t* n, int* v) override { return m_pStore->readInt(n, v); }
  int writeInt(const wchar_t* n, int v) override { return m_pStore->writeInt(n, v); }
  int readBool(const wchar_t* n, bool* v) override { return m_pStore->readBool(n, v); }
  int writeBool(const wchar_t* n, bool v) override { return m_pStore->writeBool(n, v); }
  int readDouble(const wchar_t* n, double* v) override { return m_pStore->readDouble(n, v); }
  int writeDouble(const wchar_t* n, double v) override { return m_pStore->writeDouble(n, v); }
  int readBytes(const wchar_t* n, void* b, unsigned long s) override { return m_pStore->readBytes(n, b, s); }
  int writeBytes(const wchar_t* n, const void* b, unsigned long s) override { return m_pStore->writeBytes(n, b, s); }
  CADataPropBase* Clone() const override { return new CADataProp<T>(m_pStore); }

 private:
  T* m_pStore;
};
