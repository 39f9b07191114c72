// Two objects to the rows in which they differ, by the same walk as equality: the record, then the
// parts; then what equality leaves out.
//
// Internal to the library's sources: classes name kx::Diferenciador as their friend.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

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
    if (Identicos(a, b)) return;
    if constexpr (requires { a._Reg; }) Registro<C>(a._Reg, b._Reg, saida);
    Herdadas herdadas;
    Partes<C>(a, b, saida, herdadas, true);
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
  // The members of bases that a derived class has compared; few, and no class may be slow for them.
  struct Herdadas {
    std::array<const void*, 4> Membros{};
    std::size_t Quantas = 0;
  };

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
  static void Partes(const C& a, const C& b, Comparacao& saida, Herdadas& herdadas,
                     bool comparado) {
    const Diferencas<C> partes{a, b, saida, herdadas, comparado};
    if constexpr (requires { C::Partes(partes); }) C::Partes(partes);
    if constexpr (requires { typename C::Base::Esta; }) {
      Partes<typename C::Base>(a, b, saida, herdadas, false);
    }
  }

  // What core/Motor.h lists, of two objects.
  template <class C>
  struct Diferencas {
    const C& A;
    const C& B;
    Comparacao& Saida;
    Herdadas& DasBases;
    bool DaClasse;
    void Lista(auto membro, auto array, auto) const { DaLinha(array, membro, true); }
    void ListaHerdada(auto membro, auto array, auto) const {
      DaLinha(array, membro, true);
      DasBases.Membros.at(DasBases.Quantas++) = &(A.*membro);
    }
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
      const auto fim = DasBases.Membros.begin() + DasBases.Quantas;
      if (!DaClasse && std::find(DasBases.Membros.begin(), fim, &valor) != fim) return;
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

  // Calls the function for every part, whatever it is.
  template <class Funcao>
  struct ACadaParte {
    Funcao Usa;
    void Lista(auto membro, auto, auto) const { Usa(membro); }
    void ListaHerdada(auto membro, auto, auto) const { Usa(membro); }
    void ListaSeAmbas(auto membro, auto, auto) const { Usa(membro); }
    void ListaSoLida(auto membro, auto, auto) const { Usa(membro); }
    void Contado(auto membro, auto, auto...) const { Usa(membro); }
    void Corrido(auto membro, auto, auto, auto...) const { Usa(membro); }
    void Terminado(auto membro, auto) const { Usa(membro); }
    void Condicao(auto membro) const { Usa(membro); }
    void Local(auto, auto membro, auto...) const { Usa(membro); }
    void NaoComparado(auto, auto membro) const { Usa(membro); }
    void Auxiliar(auto, auto membro) const { Usa(membro); }
  };
  template <class C>
  static void VisitaPartes(auto usa) {
    const ACadaParte<decltype(usa)> partes{usa};
    if constexpr (requires { C::Partes(partes); }) C::Partes(partes);
    if constexpr (requires { typename C::Base::Esta; }) VisitaPartes<typename C::Base>(usa);
  }

  // Whether there is nothing to be told of the two.
  template <class T>
  static bool Identicos(const T& a, const T& b) {
    if constexpr (requires { a._Reg; }) {
      if (std::memcmp(&a._Reg, &b._Reg, sizeof(a._Reg)) != 0) return false;
    }
    if constexpr (requires { typename T::Esta; }) {
      bool identicos = true;
      if constexpr (requires { a.Get_CRC(); }) {
        identicos = a.Get_CRC() == b.Get_CRC() &&
                    a.GetLinhaArquivoImportacao() == b.GetLinhaArquivoImportacao();
      }
      VisitaPartes<T>(
          [&](auto membro) { identicos = identicos && Identicos(a.*membro, b.*membro); });
      return identicos;
    } else if constexpr (requires { KXMetadados<T>::kInfo; }) {
      return std::memcmp(&a, &b, sizeof(a)) == 0;
    } else {
      return a == b;
    }
  }
  template <class T>
  static bool Identicos(const CKXVector<T>& a, const CKXVector<T>& b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(),
                      [](const T& x, const T& y) { return Identicos(x, y); });
  }

  // The checksum of what an element holds, continued.
  template <class T>
  static std::uint32_t Resumo(const T& valor, std::uint32_t anterior) {
    if constexpr (requires { valor._Reg; }) {
      anterior = CalculaChecksum(&valor._Reg, sizeof(valor._Reg), anterior);
    }
    if constexpr (requires { typename T::Esta; }) {
      VisitaPartes<T>([&](auto membro) { anterior = Resumo(valor.*membro, anterior); });
    } else if constexpr (std::is_same_v<T, CString>) {
      anterior = CalculaChecksum(valor.GetString(), valor.Vista().size() + 1, anterior);
    } else if constexpr (std::has_unique_object_representations_v<T>) {
      anterior = CalculaChecksum(&valor, sizeof(valor), anterior);
    }
    return anterior;
  }
  template <class T>
  static std::uint32_t Resumo(const CKXVector<T>& lista, std::uint32_t anterior) {
    const std::uint64_t quantos = lista.size();
    anterior = CalculaChecksum(&quantos, sizeof(quantos), anterior);
    for (const T& elemento : lista) anterior = Resumo(elemento, anterior);
    return anterior;
  }
};

}  // namespace kx
