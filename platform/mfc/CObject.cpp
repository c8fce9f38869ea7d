#include "mfc/CObject.h"

#include <map>
#include <string>

#include "mfc/Utf.h"

namespace {

// Function-local so that it exists before any class record of another translation unit registers.
std::map<std::string, const CRuntimeClass*>& Registry() {
  static std::map<std::string, const CRuntimeClass*> registry;
  return registry;
}

}  // namespace

const CRuntimeClass CObject::classCObject = {"CObject", static_cast<int>(sizeof(CObject)), nullptr, nullptr,
                                           &typeid(CObject)};
static const CRuntimeClassRegistration qk_register_CObject(&CObject::classCObject);

const CRuntimeClass* CObject::GetThisClass() { return &classCObject; }
const CRuntimeClass* CObject::GetRuntimeClass() const { return &classCObject; }

bool CObject::IsKindOf(const CRuntimeClass* cls) const { return GetRuntimeClass()->IsDerivedFrom(cls); }

CObject* CRuntimeClass::CreateObject() const { return m_pfnCreateObject ? m_pfnCreateObject() : nullptr; }

bool CRuntimeClass::IsExactClassOf(const CObject& obj) const {
  return m_pTypeInfo != nullptr && *m_pTypeInfo == typeid(obj);
}

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
  if (base == nullptr) return false;
  for (const CRuntimeClass* c = this; c != nullptr; c = c->m_pBaseClass) {
    if (c == base) return true;
  }
  return false;
}

const CRuntimeClass* CRuntimeClass::FromName(const char* className) {
  if (className == nullptr) return nullptr;
  auto it = Registry().find(className);
  return it == Registry().end() ? nullptr : it->second;
}

const CRuntimeClass* CRuntimeClass::FromName(const wchar_t* className) {
  return className ? FromName(qk::utf::ToUtf8(className).c_str()) : nullptr;
}

CObject* CRuntimeClass::CreateObject(const char* className) {
  const CRuntimeClass* cls = FromName(className);
  return cls ? cls->CreateObject() : nullptr;
}

CObject* CRuntimeClass::CreateObject(const wchar_t* className) {
  const CRuntimeClass* cls = FromName(className);
  return cls ? cls->CreateObject() : nullptr;
}

CRuntimeClassRegistration::CRuntimeClassRegistration(const CRuntimeClass* cls) {
  Registry()[cls->m_lpszClassName] = cls;
}
