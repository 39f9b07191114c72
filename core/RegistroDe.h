// A record that releases itself: what hangs from it ends with it, by the release that matches the
// class and the way in which it was filled.
//
//   kx::RegistroDe registro(ordem);              // as CopiarPara
//   servidor.Grava(registro.GetPtr());           // released at the end of the block, come what may
//
//   kx::RegistroDe<CKXDadosCM_OrdemCompra> recebido;
//   servidor.Le(chave, recebido.Recebe());       // the server fills it from the task allocator
//   ordem.CopiarDe(recebido.GetPtr());
//
// Movable, not copyable. The bare way, a record and its ZerarDelete or ZerarGlobalAlloc, does the
// same by hand.
#pragma once

#include "core/Listas.h"

namespace kx {

// The record REG of the class C: its own, or another one that it converts to.
template <class C, class REG = typename C::Registro>
class RegistroDe {
 public:
  // An empty record: every byte zero.
  RegistroDe() noexcept : _Reg{} {}
  // The record of the object, as CopiarPara writes it. Throws std::bad_alloc; nothing leaks.
  explicit RegistroDe(const C& objeto) requires requires(REG* registro) {
    objeto.CopiarPara(registro);
  } : RegistroDe(C::kAlocador) {
    objeto.CopiarPara(&_Reg);
  }
  // The same for a class whose CopiarPara changes the object.
  explicit RegistroDe(C& objeto) requires(!requires(const C& constante, REG* registro) {
    constante.CopiarPara(registro);
  })
      : RegistroDe(C::kAlocador) {
    objeto.CopiarPara(&_Reg);
  }
  // The same as CopiarParaPS writes it, from the task allocator.
  static RegistroDe PS(const C& objeto) requires requires(REG* registro) {
    objeto.CopiarParaPS(registro);
  }
  {
    RegistroDe registro(Alocador::Tarefa);
    objeto.CopiarParaPS(&registro._Reg);
    return registro;
  }
  // Takes a filled record over, and what hangs from it, which came from that allocator. The bytes
  // given must not be released by anybody else.
  static RegistroDe Assume(const REG& registro, Alocador de) noexcept {
    RegistroDe dono(de);
    dono._Reg = registro;
    return dono;
  }

  RegistroDe(const RegistroDe&) = delete;
  RegistroDe& operator=(const RegistroDe&) = delete;
  // The other is left empty.
  RegistroDe(RegistroDe&& outro) noexcept : _De(outro._De), _Reg(outro.Entrega()) {}
  RegistroDe& operator=(RegistroDe&& outro) noexcept {
    if (this != &outro) {
      Libera();
      _De = outro._De;
      _Reg = outro.Entrega();
    }
    return *this;
  }
  ~RegistroDe() { Libera(); }

  // The record, to be read and edited; valid as long as this object. Arrays that are hung into it
  // must come from GetAlocador.
  REG* GetPtr() noexcept { return &_Reg; }
  const REG* GetPtr() const noexcept { return &_Reg; }
  REG& operator*() noexcept { return _Reg; }
  const REG& operator*() const noexcept { return _Reg; }
  REG* operator->() noexcept { return &_Reg; }
  const REG* operator->() const noexcept { return &_Reg; }
  // Where what hangs from the record came from.
  Alocador GetAlocador() const noexcept { return _De; }

  // Releases what there was and gives the empty record to whoever fills it from that allocator: a
  // server, from the task allocator.
  REG* Recebe(Alocador de = Alocador::Tarefa) noexcept {
    Libera();
    _De = de;
    return &_Reg;
  }

  // Gives the record up: whoever takes it releases what hangs from it. This one is left empty.
  [[nodiscard]] REG Entrega() noexcept {
    const REG registro = _Reg;
    _Reg = {};
    return registro;
  }

  // Releases what hangs from the record, now; every byte is zero afterwards.
  void Libera() noexcept {
    if constexpr (requires { C::LiberaFilhos(&_Reg, _De); }) C::LiberaFilhos(&_Reg, _De);
    _De == Alocador::Delete ? C::ZerarDelete(&_Reg) : C::ZerarGlobalAlloc(&_Reg);
    _Reg = {};
  }

 private:
  // A conversion fills the record.
  explicit RegistroDe(Alocador de) noexcept : _De(de) {}

  Alocador _De = Alocador::Tarefa;
  REG _Reg;
};

}  // namespace kx
