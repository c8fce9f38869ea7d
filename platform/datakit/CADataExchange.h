#pragma once
// CADataExchange: the named exchange through which values read and write their items by name
// (DataInPro / DataOutPro). It forwards each item to a property store: the database row
// (CQKDataProp), an in-memory store (CAMemoryDataProp), or any other CADataPropBase.
//
// The exchange owns a clone of the adapter it was built on; copies clone it again, and every clone
// reaches the same underlying items, so an exchange passed by value writes into the caller's store.
// An exchange made without a store fails every item with AD_NOSTORE.

#include "QKExport.h"
#include "datakit/ADataDef.h"
#include "datakit/CADataPropBase.h"
#include "mfc/CString.h"

class QK_EXPORT CADataExchange {
 public:
  CADataExchange() = default;
  explicit CADataExchange(const CADataPropBase& store);
  CADataExchange(const CADataExchange& other);
  CADataExchange& operator=(const CADataExchange& other);
  virtual ~CADataExchange();

  // Each returns the store's result (0 on success); a failed read leaves *value unchanged.
  virtual int ReadItem(const wchar_t* name, int* value);
  virtual int ReadItem(const wchar_t* name, long* value);
  virtual int ReadItem(const wchar_t* name, unsigned long* value);
  virtual int ReadItem(const wchar_t* name, double* value);
  virtual int ReadItem(const wchar_t* name, CString* value);
  virtual int WriteItem(const wchar_t* name, int value);
  virtual int WriteItem(const wchar_t* name, long value);
  virtual int WriteItem(const wchar_t* name, unsigned long value);
  virtual int WriteItem(const wchar_t* name, double value);
  virtual int WriteItem(const wchar_t* name, const CString& value);

  // The store this exchange forwards to, or null.
  CADataPropBase* GetStore() const { return m_pStore; }

 private:
  CADataPropBase* m_pStore = nullptr;  // owned clone
};
