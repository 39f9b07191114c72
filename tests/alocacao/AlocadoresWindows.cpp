// A spy of the task allocator: its blocks are counted and made to fail with all others, and one
// that it does not know is never released by it.
#include <objbase.h>

#include <cstdio>
#include <cstdlib>

#include "Alocadores.h"
#include "tests/apoio/ContaAlocacoes.h"

namespace {

class Espia final : public IMallocSpy {
 public:
  Espia() { CoRegisterMallocSpy(this); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** interface_) override {
    if (id != IID_IUnknown && id != IID_IMallocSpy) return E_NOINTERFACE;
    *interface_ = this;
    return S_OK;
  }
  // It lives as long as the program.
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T n) override {
    return apoio::PermiteAlocacao(n) ? n : 0;  // 0: the allocation fails
  }
  void* STDMETHODCALLTYPE PostAlloc(void* bloco) override {
    if (bloco != nullptr) apoio::ContaViva(1);
    return bloco;
  }
  void* STDMETHODCALLTYPE PreFree(void* bloco, BOOL nosso) override {
    if (bloco != nullptr && nosso == FALSE) {
      std::fputs("the task allocator was given a block that is not its own\n", stderr);
      std::abort();
    }
    if (bloco != nullptr) apoio::ContaViva(-1);
    return bloco;
  }
  void STDMETHODCALLTYPE PostFree(BOOL) override {}
  SIZE_T STDMETHODCALLTYPE PreRealloc(void* bloco, SIZE_T n, void** novo, BOOL) override {
    *novo = bloco;
    return n;
  }
  void* STDMETHODCALLTYPE PostRealloc(void* bloco, BOOL) override { return bloco; }
  void* STDMETHODCALLTYPE PreGetSize(void* bloco, BOOL) override { return bloco; }
  SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T n, BOOL) override { return n; }
  void* STDMETHODCALLTYPE PreDidAlloc(void* bloco, BOOL) override { return bloco; }
  int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int fez) override { return fez; }
  void STDMETHODCALLTYPE PreHeapMinimize() override {}
  void STDMETHODCALLTYPE PostHeapMinimize() override {}
};

Espia gEspia;

}  // namespace

bool AlocadoresDistintos() { return true; }

bool EhDaTarefa(const void* bloco) {
  IMalloc* alocador = nullptr;
  if (FAILED(CoGetMalloc(1, &alocador))) return false;
  const bool fez = alocador->DidAlloc(const_cast<void*>(bloco)) == 1;
  alocador->Release();
  return fez;
}
