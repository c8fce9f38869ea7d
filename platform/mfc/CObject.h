#pragma once
// CObject and CRuntimeClass: the framework's root class with run-time class information and
// creation by class name.
//
// A class declares its run-time class with DECLARE_DYNAMIC (type test only) or DECLARE_DYNCREATE
// (type test and creation by name) in its body, and defines it with the matching IMPLEMENT_ macro in
// one source file. The class record is the static member class<Name> (for example
// CQKMateralData::classCQKMateralData); GetThisClass() returns it, RUNTIME_CLASS(Name) names it.
// Defining the record registers the class, so CRuntimeClass::FromName finds it once the library is
// loaded. A class that declares nothing reports the run-time class of its nearest declaring base.

#include <typeinfo>

#include "QKExport.h"

class CObject;

struct QK_EXPORT CRuntimeClass {
  const char* m_lpszClassName;
  int m_nObjectSize;
  CObject* (*m_pfnCreateObject)();  // null when the class cannot be created by name
  const CRuntimeClass* m_pBaseClass;
  const std::type_info* m_pTypeInfo;  // the C++ class that declared this record

  // True iff obj is of exactly the class that declared this record (not of an undeclared subclass).
  bool IsExactClassOf(const CObject& obj) const;

  // A new object of this class, or null when the class is not creatable. The caller owns it.
  CObject* CreateObject() const;
  // True iff this class is base or this class derives from base (each class derives from itself).
  bool IsDerivedFrom(const CRuntimeClass* base) const;

  // The registered class of that name (exact, case-sensitive), or null.
  static const CRuntimeClass* FromName(const char* className);
  static const CRuntimeClass* FromName(const wchar_t* className);
  // A new object of the named class, or null for an unknown or non-creatable class.
  static CObject* CreateObject(const char* className);
  static CObject* CreateObject(const wchar_t* className);
};

// Adds a class record to the by-name registry; used by the IMPLEMENT_ macros.
struct QK_EXPORT CRuntimeClassRegistration {
  explicit CRuntimeClassRegistration(const CRuntimeClass* cls);
};

class QK_EXPORT CObject {
 public:
  virtual ~CObject() = default;
  virtual const CRuntimeClass* GetRuntimeClass() const;
  static const CRuntimeClass* GetThisClass();
  // True iff the object's run-time class is cls or derives from it.
  bool IsKindOf(const CRuntimeClass* cls) const;

  static const CRuntimeClass classCObject;

 protected:
  CObject() = default;
  CObject(const CObject&) = default;
  CObject& operator=(const CObject&) = default;
};

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

#define DECLARE_DYNAMIC(class_name)                        \
 public:                                                   \
  static const CRuntimeClass class##class_name;            \
  static const CRuntimeClass* GetThisClass();              \
  const CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(class_name) \
  DECLARE_DYNAMIC(class_name)         \
  static CObject* CreateObject();

#define QK_IMPLEMENT_RUNTIMECLASS(class_name, base_name, pfnNew)                                        \
  const CRuntimeClass class_name::class##class_name = {#class_name, static_cast<int>(sizeof(class_name)), \
                                                       pfnNew, RUNTIME_CLASS(base_name), &typeid(class_name)}; \
  const CRuntimeClass* class_name::GetThisClass() { return &class_name::class##class_name; }       \
  const CRuntimeClass* class_name::GetRuntimeClass() const { return &class_name::class##class_name; } \
  static const CRuntimeClassRegistration qk_register_##class_name(&class_name::class##class_name);

#define IMPLEMENT_DYNAMIC(class_name, base_name) QK_IMPLEMENT_RUNTIMECLASS(class_name, base_name, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_name)                        \
  CObject* class_name::CreateObject() { return new class_name; }         \
  QK_IMPLEMENT_RUNTIMECLASS(class_name, base_name, class_name::CreateObject)
