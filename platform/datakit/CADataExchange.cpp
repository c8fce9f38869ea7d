#include "datakit/CADataExchange.h"

#include <memory>

using ADataDef::AD_NOSTORE;

CADataExchange::CADataExchange(const CADataPropBase& store) : m_pStore(store.Clone()) {}

CADataExchange::CADataExchange(const CADataExchange& other)
    : m_pStore(other.m_pStore ? other.m_pStore->Clone() : nullptr) {}

CADataExchange& CADataExchange::operator=(const CADataExchange& other) {
  if (this != &other) {
    CADataPropBase* copy = other.m_pStore ? other.m_pStore->Clone() : nullptr;
    delete m_pStore;
    m_pStore = copy;
  }
  return *this;
}

CADataExchange::~CADataExchange() { delete m_pStore; }

int CADataExchange::ReadItem(const wchar_t* name, int* value) {
  return m_pStore ? m_pStore->readInt(name, value) : AD_NOSTORE;
}

int CADataExchange::ReadItem(const wchar_t* name, long* value) {
  return m_pStore ? m_pStore->readInt32(name, value) : AD_NOSTORE;
}

int CADataExchange::ReadItem(const wchar_t* name, unsigned long* value) {
  return m_pStore ? m_pStore->readUInt32(name, value) : AD_NOSTORE;
}

int CADataExchange::ReadItem(const wchar_t* name, double* value) {
  return m_pStore ? m_pStore->readDouble(name, value) : AD_NOSTORE;
}

int CADataExchange::ReadItem(const wchar_t* name, CString* value) {
  if (!m_pStore) return AD_NOSTORE;
  wchar_t* text = nullptr;
  int rc = m_pStore->readString(name, &text);
  std::unique_ptr<wchar_t[]> owned(text);  // the store allocated it for us
  if (rc == 0 && text) *value = text;
  return rc;
}

int CADataExchange::WriteItem(const wchar_t* name, int value) {
  return m_pStore ? m_pStore->writeInt(name, value) : AD_NOSTORE;
}

int CADataExchange::WriteItem(const wchar_t* name, long value) {
  return m_pStore ? m_pStore->writeInt32(name, value) : AD_NOSTORE;
}

int CADataExchange::WriteItem(const wchar_t* name, unsigned long value) {
  return m_pStore ? m_pStore->writeUInt32(name, value) : AD_NOSTORE;
}

int CADataExchange::WriteItem(const wchar_t* name, double value) {
  return m_pStore ? m_pStore->writeDouble(name, value) : AD_NOSTORE;
}

int CADataExchange::WriteItem(const wchar_t* name, const CString& value) {
  return m_pStore ? m_pStore->writeString(name, value.GetString()) : AD_NOSTORE;
}
