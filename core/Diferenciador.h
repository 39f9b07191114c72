// Two objects to the rows in which they differ, by the same walk as equality: the record, then the
// parts; then what equality leaves out.
//
// Internal to the library's sources: classes name kx::Diferenciador as their friend.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <vector>

#include "core/Checksum.h"
#include "core/Diferenca.h"
#include "core/Emparelha.h"
#include "kxldados/CKXVector.h"
#include "kxldados/CString.h"

namespace kx {

// ListaDiferencas, of any class.
struct Diferenciador {
  template <class C>
  static void Objeto(const C& a, const C& b, Comparacao& saida) {
    if constexpr (requires { a._Reg; }) Registro<C>(a._Reg, b._Reg, saida);
    Vistos vistos;
    Partes<C>(a, b, saida, vistos, true);
    if constexpr (requires { a.Get_CRC(); }) {
      Valor("CRC", false, static_cast<std::uint32_t>(a.Get_CRC()),
            static_cast<std::uint32_t>(b.Get_CRC()), saida);
      Valor("LinhaArquivoImportacao", false, a.GetLinhaArquivoImportacao(),
            b.GetLinhaArquivoImportacao(), saida);
    }
  }

  template <class T>
  static void Valor(std::string_view nome, bool comparado, const T& a, const T& b,
                    Comparacao& saida) {
    if constexpr (Comparavel<T>) {
      saida.Entra(nome, comparado);
      ComparaEm(saida, a, b);
      saida.Sai();
    } else if constexpr (std::is_same_v<T, CString>) {
      if (a != b) saida.Texto(nome, comparado, a, b);
    } else if constexpr (requires { KXMetadados<T>::kInfo; }) {
      saida.Entra(nome, comparado);
      Campos(a, b, saida);
      saida.Sai();
    } else if constexpr (requires { TipoDe<T>::valor; }) {
      if (a != b) saida.Valor(nome, comparado, kTipoDe<T>, &a, &b, sizeof(T));
    } else if constexpr (std::is_enum_v<T> || std::is_same_v<T, bool>) {
      Valor(nome, comparado, static_cast<std::int32_t>(a), static_cast<std::int32_t>(b), saida);
    } else {  // bytes that mean nothing to people
      if (a != b) saida.Valor(nome, comparado, KXTipoCampo::Bytes, &a, &b, sizeof(T));
    }
  }

  // What is the same at both ends, then what is between.
  template <class T>
  static void Valor(std::string_view nome, bool comparado, const CKXVector<T>& a,
                    const CKXVector<T>& b, Comparacao& saida) {
    if (a.empty() && b.empty()) return;
    const Lista<T> lista{nome, comparado && saida.Comparado(), a, b, saida};
    const std::size_t menor = std::min(a.size(), b.size());
    std::size_t inicio = 0;
    while (inicio < menor && lista.Igual(inicio, inicio)) ++inicio;
    std::size_t fim = 0;
    while (fim < menor - inicio && lista.SaoIguais(a.size() - 1 - fim, b.size() - 1 - fim)) ++fim;
    lista.Meio(inicio, a.size() - fim, b.size() - fim);
    for (; fim > 0; --fim) lista.Elemento(a.size() - fim, b.size() - fim);
  }

 private:
  // The members that have been compared.
  using Vistos = std::vector<const void*>;

  template <class C>
  static void Registro(const typename C::Registro& a, const typename C::Registro& b,
                       Comparacao& saida) {
    if (std::memcmp(&a, &b, sizeof(a)) == 0) return;
    if constexpr (requires { C::ComoSeCompara(a); }) {
      const auto comoA = C::ComoSeCompara(a);
      const auto comoB = C::ComoSeCompara(b);
      saida.Campos(KXMetadados<typename C::Registro>::kInfo, &a, &b, &comoA, &comoB);
    } else {
      Campos(a, b, saida);
    }
  }

  template <class REG>
  static void Campos(const REG& a, const REG& b, Comparacao& saida) {
    saida.Campos(KXMetadados<REG>::kInfo, &a, &b, &a, &b);
  }

  // Of the class, and then of its bases, at which its equality does not look.
  template <class C>
  static void Partes(const C& a, const C& b, Comparacao& saida, Vistos& vistos, bool comparado) {
    const Diferencas<C> partes{a, b, saida, vistos, comparado};
    if constexpr (requires { C::Partes(partes); }) C::Partes(partes);
    if constexpr (requires { typename C::Base::Esta; }) {
      Partes<typename C::Base>(a, b, saida, vistos, false);
    }
  }

  // What core/Motor.h lists, of two objects.
  template <class C>
  struct Diferencas {
    const C& A;
    const C& B;
    Comparacao& Saida;
    Vistos& Comparados;
    bool DaClasse;
    void Lista(auto membro, auto array, auto) const { DaLinha(array, membro, true); }
    void ListaHerdada(auto membro, auto array, auto) const { DaLinha(array, membro, true); }
    void ListaSeAmbas(auto membro, auto array, auto) const {
      DaLinha(array, membro, !(A.*membro).empty() && !(B.*membro).empty());
    }
    void ListaSoLida(auto membro, auto array, auto) const { DaLinha(array, membro, false); }
    void Contado(auto membro, auto campo, auto...) const { DaLinha(campo, membro, true); }
    void Corrido(auto membro, auto texto, auto, auto...) const { DaLinha(texto, membro, true); }
    void Terminado(auto membro, auto texto) const { DaLinha(texto, membro, true); }
    void Condicao(auto membro) const { Compara("CondicaoPagamento", membro, true); }
    void Local(std::string_view nome, auto membro, auto...) const { Compara(nome, membro, true); }
    void NaoComparado(std::string_view nome, auto membro) const { Compara(nome, membro, false); }
    void Auxiliar(std::string_view nome, auto membro) const { Compara(nome, membro, false); }

    void DaLinha(auto campo, auto membro, bool comparado) const {
      const auto* lugar = reinterpret_cast<const char*>(&(A._Reg.*campo));
      Compara(NomeDe(static_cast<std::size_t>(lugar - reinterpret_cast<const char*>(&A._Reg))),
              membro, comparado);
    }
    static std::string_view NomeDe(std::size_t posicao) {
      for (const KXPendente& pendente : KXMetadados<typename C::Registro>::kInfo.Pendentes) {
        const bool contado = pendente.Papel == KXPapel::Contado;
        if ((contado ? pendente.Medida : pendente.Posicao) == posicao) return pendente.Nome;
      }
      return {};
    }
    void Compara(std::string_view nome, auto membro, bool comparado) const {
      const auto& valor = A.*membro;
      if (std::find(Comparados.begin(), Comparados.end(), &valor) != Comparados.end()) return;
      Comparados.push_back(&valor);
      Valor(nome, comparado && DaClasse, valor, B.*membro, Saida);
    }
  };

  // Two collections.
  template <class T>
  struct Lista {
    std::string_view Nome;
    bool Comparada;
    const CKXVector<T>& A;
    const CKXVector<T>& B;
    Comparacao& Saida;

    // The rows of two elements.
    void Elemento(std::size_t a, std::size_t b) const {
      if constexpr (Comparavel<T> || requires { KXMetadados<T>::kInfo; }) {
        Saida.Entra(Nome, Comparada, b);
        if constexpr (Comparavel<T>) {
          ComparaEm(Saida, A.at(a), B.at(b));
        } else {
          Campos(A.at(a), B.at(b), Saida);
        }
        Saida.Sai();
      } else {
        Saida.Entra(Nome, Comparada, b);
        Valor({}, true, A.at(a), B.at(b), Saida);
        Saida.Sai();
      }
    }
    // The same, unless they are no equal elements.
    bool Igual(std::size_t a, std::size_t b) const {
      const std::size_t marca = Saida.Marca();
      Elemento(a, b);
      const bool difere = Saida.DifereDesde(marca, Comparada);
      if (difere) Saida.Volta(marca);
      return !difere;
    }
    bool SaoIguais(std::size_t a, std::size_t b) const {
      const std::size_t marca = Saida.Marca();
      const bool iguais = Igual(a, b);
      Saida.Volta(marca);
      return iguais;
    }
    // From there to before both ends.
    void Meio(std::size_t inicio, std::size_t fimA, std::size_t fimB) const {
      std::size_t a = inicio;
      std::size_t b = inicio;
      const auto ate = [&](std::size_t proximoA, std::size_t proximoB) {
        for (; a < proximoA; ++a) SoUm(TipoDeDiferenca::Retirado, a);
        for (; b < proximoB; ++b) SoUm(TipoDeDiferenca::Acrescentado, b);
      };
      if (inicio < fimA && inicio < fimB) {
        for (const Par& par : Emparelha(Resume(A, inicio, fimA), Resume(B, inicio, fimB), Info())) {
          ate(inicio + par.A, inicio + par.B);
          Elemento(a++, b++);
        }
      }
      ate(fimA, fimB);
    }
    void SoUm(TipoDeDiferenca tipo, std::size_t indice) const {
      Saida.Entra(Nome, Comparada, indice);
      Saida.Elemento(tipo);
      Saida.Sai();
    }
    static const KXRegistroInfo* Info() {
      if constexpr (requires(const T& valor) { valor._Reg; }) {
        return &KXMetadados<typename T::Registro>::kInfo;
      } else if constexpr (requires { KXMetadados<T>::kInfo; }) {
        return &KXMetadados<T>::kInfo;
      } else {
        return nullptr;
      }
    }
    static Colecao Resume(const CKXVector<T>& lista, std::size_t de, std::size_t ate) {
      Colecao colecao;
      for (; de < ate; ++de) {
        const T& elemento = lista.at(de);
        colecao.Resumos.push_back(Resumo(elemento, 0));
        if constexpr (requires { elemento._Reg; }) {
          colecao.Registros.push_back(&elemento._Reg);
        } else if constexpr (requires { KXMetadados<T>::kInfo; }) {
          colecao.Registros.push_back(&elemento);
        }
      }
      return colecao;
    }
  };

  // The checksum of what an element holds, continued.
  template <class T>
  static std::uint32_t Resumo(const T& valor, std::uint32_t anterior) {
    if constexpr (requires { T::Partes(Resumidor<T>{valor, anterior}); }) {
      if constexpr (requires { valor._Reg; }) {
        anterior = CalculaChecksum(&valor._Reg, sizeof(valor._Reg), anterior);
      }
      T::Partes(Resumidor<T>{valor, anterior});
      return anterior;
    } else if constexpr (requires { valor._Reg; }) {
      return CalculaChecksum(&valor._Reg, sizeof(valor._Reg), anterior);
    } else if constexpr (std::is_same_v<T, CString>) {
      return CalculaChecksum(valor.GetString(), valor.Vista().size() + 1, anterior);
    } else if constexpr (std::has_unique_object_representations_v<T>) {
      return CalculaChecksum(&valor, sizeof(valor), anterior);
    } else {
      return anterior;
    }
  }
  template <class T>
  static std::uint32_t Resumo(const CKXVector<T>& lista, std::uint32_t anterior) {
    const std::uint64_t quantos = lista.size();
    anterior = CalculaChecksum(&quantos, sizeof(quantos), anterior);
    for (const T& elemento : lista) anterior = Resumo(elemento, anterior);
    return anterior;
  }
  template <class C>
  struct Resumidor {
    const C& Objeto;
    std::uint32_t& Valor;
    void Lista(auto membro, auto, auto) const { Junta(membro); }
    void ListaHerdada(auto membro, auto, auto) const { Junta(membro); }
    void ListaSeAmbas(auto membro, auto, auto) const { Junta(membro); }
    void ListaSoLida(auto, auto, auto) const noexcept {}
    void Contado(auto membro, auto, auto...) const { Junta(membro); }
    void Corrido(auto membro, auto, auto, auto...) const { Junta(membro); }
    void Terminado(auto membro, auto) const { Junta(membro); }
    void Condicao(auto membro) const { Junta(membro); }
    void Local(auto, auto membro, auto...) const { Junta(membro); }
    void NaoComparado(auto, auto) const noexcept {}
    void Auxiliar(auto, auto) const noexcept {}
    void Junta(auto membro) const { Valor = Resumo(Objeto.*membro, Valor); }
  };
};

}  // namespace kx
