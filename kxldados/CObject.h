// Root of the object tree, with run-time classes: each class can name itself and its base at run
// time, independently of the language's own type information.
#pragma once

#include <cstddef>

#include "platform/Exporta.h"

class CArchive;
class CDumpContext;

// Description of one class. There is one constant instance per class; compare addresses.
struct KX_API CRuntimeClass {
  const char* m_lpszClassName;                  // as it is written in C++
  std::size_t m_nObjectSize;                    // bytes of one object
  const CRuntimeClass* (*m_pfnGetBaseClass)();  // null for the root

  // True for the class itself and for every class above it.
  bool IsDerivedFrom(const CRuntimeClass* base) const noexcept;
};

class KX_API CObject {
 public:
  CObject() noexcept = default;
  CObject(const CObject&) noexcept = default;
  CObject& operator=(const CObject&) noexcept = default;

  // The description of the object's class.
  virtual const CRuntimeClass* GetRuntimeClass() const;
  virtual ~CObject() = default;
  // Hooks for derived classes; they do nothing here.
  virtual void Serialize(CArchive& arquivo);
  virtual void AssertValid() const;
  virtual void Dump(CDumpContext& contexto) const;

  // The description of this class.
  static const CRuntimeClass* GetThisClass() noexcept;

  // True when the object is of the class given or of one derived from it.
  bool IsKindOf(const CRuntimeClass* classe) const noexcept;
};

// In the class body: declares GetThisClass, GetRuntimeClass and _GetBaseClass.
#define KX_DECLARA_CLASSE(Classe)                       \
 public:                                                \
  static const CRuntimeClass* GetThisClass() noexcept;  \
  static const CRuntimeClass* _GetBaseClass() noexcept; \
  const CRuntimeClass* GetRuntimeClass() const override;

// In the source: the definitions. Base is the class that _GetBaseClass reports.
#define KX_IMPLEMENTA_CLASSE(Classe, Base)                                                  \
  const CRuntimeClass* Classe::_GetBaseClass() noexcept { return Base::GetThisClass(); }    \
  const CRuntimeClass* Classe::GetThisClass() noexcept {                                    \
    static constexpr CRuntimeClass classe{#Classe, sizeof(Classe), &Classe::_GetBaseClass}; \
    return &classe;                                                                         \
  }                                                                                         \
  const CRuntimeClass* Classe::GetRuntimeClass() const { return GetThisClass(); }
