#include "foundation/CQKDataProp.h"

#include <cwchar>
#include <new>

#include "tablekit/CADORecordset.h"

template <class T>
int CQKDataProp::Read(const wchar_t* name, T* value) const {
  // The record set's own result is ignored: a failed read leaves *value as it was.
  if (m_pRecordset && value) m_pRecordset->GetFieldValue(name, *value);
  return 0;
}

template <class T>
int CQKDataProp::Write(const wchar_t* name, T value) {
  // A column the table lacks, or any other failure of the record set, must not stop the other items
  // of the exchange from being written: swallow it.
  try {
    if (m_pRecordset) m_pRecordset->SetFieldValue(name, value);
  } catch (...) {
  }
  return 0;
}

unsigned short CQKDataProp::ReadLow16(const wchar_t* name) const {
  int wide = 0;
  Read(name, &wide);
  return static_cast<unsigned short>(static_cast<unsigned int>(wide) & 0xFFFFu);
}

int CQKDataProp::readChar(const wchar_t*, char*) { return 0; }
int CQKDataProp::writeChar(const wchar_t* name, char value) { return Write(name, static_cast<int>(value)); }

int CQKDataProp::readString(const wchar_t* name, wchar_t** value) {
  if (value == nullptr) return 0;
  CString text;
  Read(name, &text);
  std::size_t size = static_cast<std::size_t>(text.GetLength()) + 1;  // with the terminating zero
  *value = new (std::nothrow) wchar_t[size];
  if (*value) std::wmemcpy(*value, text.GetString(), size);
  return 0;
}
int CQKDataProp::writeString(const wchar_t* name, const wchar_t* value) { return Write(name, CString(value)); }

int CQKDataProp::readInt32(const wchar_t* name, long* value) { return Read(name, value); }
int CQKDataProp::writeInt32(const wchar_t* name, long value) { return Write(name, value); }

int CQKDataProp::readInt16(const wchar_t* name, short* value) {
  if (value) *value = static_cast<short>(ReadLow16(name));
  return 0;
}
int CQKDataProp::writeInt16(const wchar_t* name, short value) { return Write(name, static_cast<int>(value)); }

int CQKDataProp::readUInt32(const wchar_t* name, unsigned long* value) { return Read(name, value); }
int CQKDataProp::writeUInt32(const wchar_t* name, unsigned long value) { return Write(name, value); }

int CQKDataProp::readUInt16(const wchar_t* name, unsigned short* value) {
  if (value) *value = ReadLow16(name);
  return 0;
}
int CQKDataProp::writeUInt16(const wchar_t* name, unsigned short value) {
  return Write(name, static_cast<int>(value));
}

int CQKDataProp::readInt(const wchar_t* name, int* value) { return Read(name, value); }
int CQKDataProp::writeInt(const wchar_t* name, int value) { return Write(name, value); }

int CQKDataProp::readBool(const wchar_t* name, bool* value) { return Read(name, value); }
int CQKDataProp::writeBool(const wchar_t* name, bool value) { return Write(name, value); }

int CQKDataProp::readDouble(const wchar_t* name, double* value) { return Read(name, value); }
int CQKDataProp::writeDouble(const wchar_t* name, double value) { return Write(name, value); }

int CQKDataProp::readBytes(const wchar_t*, void*, unsigned long) { return 0; }
int CQKDataProp::writeBytes(const wchar_t*, const void*, unsigned long) { return 0; }
