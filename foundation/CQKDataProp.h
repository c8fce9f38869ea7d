#pragma once
// CQKDataProp: the property store that binds named items to the columns of the current row of a
// record set, so that the item "Name" of a value's named exchange is the row's column "Name". Every
// record class reads and writes its row through it: wrapped in CADataProp<CQKDataProp> and then in a
// CADataExchange, it lets the value class's DataInPro / DataOutPro move the row.
//
// It does not own the record set and must not outlive it; it is made on the stack around the record
// set being read or written. Every operation returns 0:
//  - a write that fails (a column the table lacks, a read-only result) is swallowed, so the other
//    items of the same exchange are still written;
//  - a read that fails leaves the target as it was, except readString, which yields "" for a missing
//    or null column.

#include "QKExport.h"
#include "datakit/CAObject.h"

class CADORecordset;

class QK_EXPORT CQKDataProp : public CAObject {
 public:
  CQKDataProp() = default;
  explicit CQKDataProp(CADORecordset* rs) : m_pRecordset(rs) {}
  CQKDataProp(const CQKDataProp&) = default;
  CQKDataProp& operator=(const CQKDataProp&) = default;
  ~CQKDataProp() override = default;

  // Does nothing: *value is left as it was.
  virtual int readChar(const wchar_t* name, char* value);
  virtual int writeChar(const wchar_t* name, char value);
  // Allocates a new array of length + 1 holding the column's text ("" when missing or null) and
  // stores it in *value; the caller owns it and frees it with delete[].
  virtual int readString(const wchar_t* name, wchar_t** value);
  virtual int writeString(const wchar_t* name, const wchar_t* value);
  virtual int readInt32(const wchar_t* name, long* value);
  virtual int writeInt32(const wchar_t* name, long value);
  // The 16-bit reads take the column as an int and keep its low 16 bits: 70000 reads as 4464.
  virtual int readInt16(const wchar_t* name, short* value);
  virtual int writeInt16(const wchar_t* name, short value);
  virtual int readUInt32(const wchar_t* name, unsigned long* value);
  virtual int writeUInt32(const wchar_t* name, unsigned long value);
  virtual int readUInt16(const wchar_t* name, unsigned short* value);
  virtual int writeUInt16(const wchar_t* name, unsigned short value);
  virtual int readInt(const wchar_t* name, int* value);
  virtual int writeInt(const wchar_t* name, int value);
  virtual int readBool(const wchar_t* name, bool* value);
  virtual int writeBool(const wchar_t* name, bool value);
  virtual int readDouble(const wchar_t* name, double* value);
  virtual int writeDouble(const wchar_t* name, double value);
  // Binary items are not kept in tables: both do nothing.
  virtual int readBytes(const wchar_t* name, void* buffer, unsigned long size);
  virtual int writeBytes(const wchar_t* name, const void* buffer, unsigned long size);

 private:
  // The column as an int, cut to its low 16 bits; 0 when it cannot be read.
  unsigned short ReadLow16(const wchar_t* name) const;
  template <class T>
  int Read(const wchar_t* name, T* value) const;
  template <class T>
  int Write(const wchar_t* name, T value);

  CADORecordset* m_pRecordset = nullptr;  // the row source, not owned
};
