// Wrappers that make any flat record a base data object with byte-wise semantics.
//
//   T_KXDadosRegistro<tagREG_CM_SITUACAO_PS> situacao;
//   situacao.CopiarDe(&recebido);
//
// Equality and emptiness look at every byte of the record, those that no accessor shows included.
#pragma once

#include <cstring>

#include "core/Bloco.h"
#include "core/Descreve.h"
#include "core/Diferenca.h"
#include "kxldados/TKXBaseParaDados.h"

// One record, held by value; it owns no memory beyond it.
template <class REG>
class KX_API_MODELO T_KXDadosRegistro : public TKXBaseParaDados {
 public:
  T_KXDadosRegistro() noexcept : _Reg{} {}
  T_KXDadosRegistro(const T_KXDadosRegistro& outro) noexcept = default;
  T_KXDadosRegistro& operator=(const T_KXDadosRegistro& outro) {
    Copiar(&outro);
    return *this;
  }
  ~T_KXDadosRegistro() override = default;

  // Igual, and its negation.
  bool operator==(const T_KXDadosRegistro& outro) const { return Igual(&outro); }
  bool operator!=(const T_KXDadosRegistro& outro) const { return !Igual(&outro); }

  // The record itself, every byte of it.
  REG& GetReg() { return _Reg; }
  const REG& GetReg() const { return _Reg; }

  // Writes the fields that are not empty, where the record has a table (core/Descreve.h).
  void Descreve(kx::Descricao& descricao) const requires requires { KXMetadados<REG>::kCampos; }
  {
    for (const KXCampo& campo : KXMetadados<REG>::kCampos) {
      if (campo.Papel == KXPapel::Campo) descricao.Campo(campo, &_Reg);
    }
  }
  // What kx::Diferencas answers (core/Diferenca.h), where the record has a table: every row counts.
  void ListaDiferencas(const T_KXDadosRegistro& depois,
                       kx::Comparacao& saida) const requires requires {
    KXMetadados<REG>::kCampos;
  }
  {
    for (const KXCampo& campo : KXMetadados<REG>::kCampos) {
      const char* const a = reinterpret_cast<const char*>(&_Reg) + campo.Posicao;
      const char* const b = reinterpret_cast<const char*>(&depois._Reg) + campo.Posicao;
      if (campo.Papel != KXPapel::Parte && std::memcmp(a, b, campo.Largura) != 0) {
        saida.Valor(campo.Nome, true, campo.Tipo, a, b, campo.Largura);
      }
    }
  }
  // Clears the object and fills it from the record; null, or memory that cannot be read, clears.
  virtual void CopiarDe(const REG* origem) {
    Limpar();
    if (origem != nullptr &&
        kx::CopiaBloco(&_Reg, origem, sizeof(REG), kFonte, __LINE__) == nullptr) {
      std::memset(&_Reg, 0, sizeof(REG));
    }
  }
  // Overwrites the whole destination, which must not be null.
  virtual void CopiarPara(REG* destino) const {
    kx::CopiaBloco(destino, &_Reg, sizeof(REG), kFonte, __LINE__);
  }
  // The same; derived classes take nested arrays from the task allocator here.
  virtual void CopiarParaPS(REG* destino) const {
    kx::CopiaBloco(destino, &_Reg, sizeof(REG), kFonte, __LINE__);
  }

 protected:
  // Every byte zero.
  void OnLimpar() override {
    std::memset(&_Reg, 0, sizeof(REG));
    TKXBaseParaDados::OnLimpar();
  }
  // An object of another class clears the record.
  void OnCopiar(const TKXBaseParaDados* origem) override {
    TKXBaseParaDados::OnCopiar(origem);
    const auto* outro = dynamic_cast<const T_KXDadosRegistro*>(origem);
    if (outro == nullptr) {
      std::memset(&_Reg, 0, sizeof(REG));
    } else {
      _Reg = outro->_Reg;
    }
  }
  // False for an object of another class.
  bool OnIgual(const TKXBaseParaDados* outro) const override {
    const auto* mesmo = dynamic_cast<const T_KXDadosRegistro*>(outro);
    return mesmo != nullptr && std::memcmp(&_Reg, &mesmo->_Reg, sizeof(REG)) == 0 &&
           TKXBaseParaDados::OnIgual(outro);
  }
  bool OnEstaVazio() const override {
    static constexpr REG kVazio{};
    return TKXBaseParaDados::OnEstaVazio() && std::memcmp(&_Reg, &kVazio, sizeof(REG)) == 0;
  }

  // The record as it was last set.
  REG _Reg;

 private:
  static constexpr const char* kFonte = "DadosRegistro";
};

// A record with child arrays: derived classes override the three hooks to replace the copied array
// pointers by deep copies; by default the hooks do nothing.
template <class REG>
class KX_API_MODELO T_KXDadosRegistroComLista : public T_KXDadosRegistro<REG> {
 public:
  void CopiarDe(const REG* origem) override {
    T_KXDadosRegistro<REG>::CopiarDe(origem);
    OnCopiarDe();
  }
  void CopiarPara(REG* destino) const override {
    T_KXDadosRegistro<REG>::CopiarPara(destino);
    OnCopiarPara(destino);
  }
  void CopiarParaPS(REG* destino) const override {
    T_KXDadosRegistro<REG>::CopiarParaPS(destino);
    OnCopiarParaPS(destino);
  }

 protected:
  // Called after each conversion; the record is this object's, or the destination.
  virtual void OnCopiarDe() {}
  virtual void OnCopiarPara(REG* /*destino*/) const {}
  virtual void OnCopiarParaPS(REG* /*destino*/) const {}
};
