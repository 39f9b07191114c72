// Every class of data objects that the headers declare, as data: the sweeps walk this table, and
// are compiled once in place of once a class.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/Bloco.h"
#include "core/Diferenca.h"
#include "core/Metadados.h"
#include "kxldados/TKXBaseParaDados.h"

namespace apoio {

using Base = TKXBaseParaDados;

// What lives in an object beside its record: a member or a collection, its class's own or a base's.
struct Parte {
  const char* Nome;
  // Sets it to something that is not its default; false when the accessors do not agree.
  bool (*Enche)(Base&);
  bool (*Iguais)(const Base&, const Base&);
  bool (*EhDe)(const Base&);
};

struct Classe {
  const char* Nome;
  const CRuntimeClass* DeExecucao;
  std::size_t Tamanho;
  std::unique_ptr<Base> (*Nova)();
  std::unique_ptr<Base> (*Copia)(const Base&);
  std::unique_ptr<Base> (*Movida)(Base&);
  void (*Atribui)(Base&, const Base&);
  void (*AtribuiMovendo)(Base&, Base&);
  bool (*Iguais)(const Base&, const Base&);
  std::string (*Descreve)(const Base&);
  std::vector<kx::Diferenca> (*Diferencas)(const Base&, const Base&);
  std::vector<Parte> Partes;

  // Null for a class without a record.
  const KXRegistroInfo* Info = nullptr;
  const kx::Posicao* Posicao = nullptr;
  const void* (*Registro)(const Base&) = nullptr;
  void (*CopiarDe)(Base&, const void*) = nullptr;
  std::unique_ptr<Base> (*DeRegistro)(const void*) = nullptr;
  void (*CopiarPara)(Base&, void*) = nullptr;
  void (*CopiarParaPS)(Base&, void*) = nullptr;  // null where there is none
  void (*ZerarDelete)(void*) = nullptr;
  void (*ZerarGlobalAlloc)(void*) = nullptr;
  // Through kx::RegistroDe, moved and given up on the way: whether the same object comes back.
  bool (*PorDono)(Base&) = nullptr;
};

const std::vector<Classe>& Classes();
// Those with a record.
const std::vector<Classe>& ClassesDeRegistro();

// An object of any of them, with the operations of its class.
class Objeto {
 public:
  explicit Objeto(const Classe& classe) : _classe(&classe), _objeto(classe.Nova()) {}
  // One that holds the record.
  Objeto(const Classe& classe, const void* registro) : Objeto(classe) { CopiarDe(registro); }
  Objeto(const Objeto& outro) : _classe(outro._classe), _objeto(_classe->Copia(*outro)) {}
  // NOLINTNEXTLINE(performance-noexcept-move-constructor): the moved object stays, and serves again
  Objeto(Objeto&& outro) : _classe(outro._classe), _objeto(_classe->Movida(*outro)) {}
  ~Objeto() = default;
  Objeto& operator=(const Objeto& outro) {  // NOLINT(bugprone-unhandled-self-assignment)
    _classe->Atribui(*_objeto, *outro);
    return *this;
  }
  Objeto& operator=(Objeto&& outro) noexcept {
    _classe->AtribuiMovendo(*_objeto, *outro);
    return *this;
  }
  bool operator==(const Objeto& outro) const { return _classe->Iguais(*_objeto, *outro); }
  // The same, when their differences agree: objects are equal exactly when no row says that
  // equality sees it. What does not agree is thrown (KX_EXIGE).
  bool IgualNasDiferencas(const Objeto& outro) const;

  Objeto& CopiarDe(const void* registro) {
    _classe->CopiarDe(*_objeto, registro);
    return *this;
  }
  void CopiarPara(void* registro) const { _classe->CopiarPara(*_objeto, registro); }
  Base& operator*() const { return *_objeto; }
  Base* operator->() const { return _objeto.get(); }

 private:
  const Classe* _classe;
  std::unique_ptr<Base> _objeto;
};

}  // namespace apoio
