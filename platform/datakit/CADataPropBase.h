#pragma once
// CADataPropBase: the abstract property store behind a named exchange (CADataExchange). A store
// holds items by name; each operation reads or writes one item of one type and returns 0 on
// success. readString allocates: the caller owns *value and frees it with delete[].

#include "QKExport.h"
#include "datakit/CAObject.h"

class QK_EXPORT CADataPropBase : public CAObject {
 public:
  ~CADataPropBase() override = default;

  virtual int readChar(const wchar_t* name, char* value) = 0;
  virtual int writeChar(const wchar_t* name, char value) = 0;
  virtual int readString(const wchar_t* name, wchar_t** value) = 0;
  virtual int writeString(const wchar_t* name, const wchar_t* value) = 0;
  virtual int readInt32(const wchar_t* name, long* value) = 0;
  virtual int writeInt32(const wchar_t* name, long value) = 0;
  virtual int readInt16(const wchar_t* name, short* value) = 0;
  virtual int writeInt16(const wchar_t* name, short value) = 0;
  virtual int readUInt32(const wchar_t* name, unsigned long* value) = 0;
  virtual int writeUInt32(const wchar_t* name, unsigned long value) = 0;
  virtual int readUInt16(const wchar_t* name, unsigned short* value) = 0;
  virtual int writeUInt16(const wchar_t* name, unsigned short value) = 0;
  virtual int readInt(const wchar_t* name, int* value) = 0;
  virtual int writeInt(const wchar_t* name, int value) = 0;
  virtual int readBool(const wchar_t* name, bool* value) = 0;
  virtual int writeBool(const wchar_t* name, bool value) = 0;
  virtual int readDouble(const wchar_t* name, double* value) = 0;
  virtual int writeDouble(const wchar_t* name, double value) = 0;
  virtual int readBytes(const wchar_t* name, void* buffer, unsigned long size) = 0;
  virtual int writeBytes(const wchar_t* name, const void* buffer, unsigned long size) = 0;
  // A new store of the same kind over the same items; the caller owns it.
  virtual CADataPropBase* Clone() const = 0;

 protected:
  CADataPropBase() = default;
  CADataPropBase(const CADataPropBase&) = default;
  CADataPropBase& operator=(const CADataPropBase&) = default;
};
