#include "Classes.h"

#include <algorithm>
#include <concepts>
#include <string_view>
#include <type_traits>
#include <utility>

#include "gerado/Cabecalhos.inc"

namespace kxdados {

namespace {

template <class C, class REG>
concept LeRegistro = requires(C objeto, const REG* registro) {
  objeto.CopiarDe(registro);
};

template <class C, class REG>
concept GuardaRegistro = requires(const C& objeto) {
  { objeto.GetReg() } -> std::same_as<const REG&>;
};

template <class... REG>
struct Lista {};
#define KX_REGISTRO(Registro) , Registro
using Registros = Lista<void
#include "gerado/Registros.def"
                        >;
#undef KX_REGISTRO

template <class C, class REG>
C Lido(const void* registro) {
  C objeto;
  objeto.CopiarDe(static_cast<const REG*>(registro));
  return objeto;
}

template <class C, class REG>
void JuntaUm(std::vector<Classe>& todas, const char* cabecalho) {
  if constexpr (LeRegistro<C, REG>) {
    constexpr bool kGuarda = GuardaRegistro<C, REG>;
    constexpr bool kPorValor = requires { requires C::kLePorValor; };
    Classe& classe =
        todas.emplace_back(Classe{C::GetThisClass()->m_lpszClassName, cabecalho,
                                  &KXMetadados<REG>::kInfo, kGuarda, kGuarda && kPorValor});
    if constexpr (kGuarda) {
      classe.Descreve = [](const void* registro) { return kx::Descreve(Lido<C, REG>(registro)); };
      classe.Diferencas = [](const void* antes, const void* depois) {
        return kx::Diferencas(Lido<C, REG>(antes), Lido<C, REG>(depois));
      };
    }
  }
}

// Each record that the class reads.
template <class C, class... REG>
void Junta(std::vector<Classe>& todas, const char* cabecalho, Lista<void, REG...> /*todos*/) {
  (JuntaUm<C, REG>(todas, cabecalho), ...);
}

}  // namespace

std::vector<Classe> Classes() {
  std::vector<Classe> todas;
#define KX_CLASSE_COM_REGISTRO(Classe, Cabecalho) Junta<::Classe>(todas, Cabecalho, Registros{});
#define KX_CLASSE_OUTRA(Classe, Cabecalho) KX_CLASSE_COM_REGISTRO(Classe, Cabecalho)
#include "gerado/Classes.def"
#undef KX_CLASSE_OUTRA
#undef KX_CLASSE_COM_REGISTRO
  return todas;
}

const Classe* ClasseDe(const KXRegistroInfo& registro) {
  static const std::vector<Classe> todas = Classes();
  const auto achada = std::find_if(todas.begin(), todas.end(), [&](const Classe& classe) {
    return classe.Guarda && classe.Registro->Nome == std::string_view(registro.Nome);
  });
  return achada == todas.end() ? nullptr : &*achada;
}

}  // namespace kxdados
