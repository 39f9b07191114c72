#include "kxldados/CObject.h"

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const noexcept {
  const CRuntimeClass* classe = this;
  while (classe != nullptr && classe != base) {
    classe = classe->m_pfnGetBaseClass != nullptr ? classe->m_pfnGetBaseClass() : nullptr;
  }
  return classe != nullptr;
}

const CRuntimeClass* CObject::GetThisClass() noexcept {
  static constexpr CRuntimeClass classe{"CObject", sizeof(CObject), nullptr};
  return &classe;
}

const CRuntimeClass* CObject::GetRuntimeClass() const { return GetThisClass(); }

void CObject::Serialize(CArchive& /*arquivo*/) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext& /*contexto*/) const {}

bool CObject::IsKindOf(const CRuntimeClass* classe) const noexcept {
  return classe != nullptr && GetRuntimeClass()->IsDerivedFrom(classe);
}
