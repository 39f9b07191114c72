#include "tests/apoio/Classes.h"

#include <algorithm>
#include <concepts>
#include <cstring>
#include <type_traits>
#include <utility>

#include "gerado/Cabecalhos.inc"
#include "tests/apoio/Bytes.h"

namespace apoio {

namespace {

const std::vector<Parte>& TodasAsPartes();

// Something that is not the default of its type.
template <class T>
void Enche(T& valor) {
  if constexpr (std::is_same_v<T, bool>) {
    valor = true;
  } else if constexpr (std::is_pointer_v<T>) {
    valor = reinterpret_cast<T>(8);
  } else if constexpr (std::is_same_v<T, CString>) {
    valor = "texto";
  } else if constexpr (std::is_same_v<T, CIEVinculo>) {
    valor.SetTipo(3);
  } else if constexpr (std::is_base_of_v<TKXConsisteRetorno, T>) {
    valor.AdicionaItem({TKXConsisteRetornoItem::eConsiste::Erro, "texto"});
  } else if constexpr (std::is_base_of_v<Base, T>) {
    for (const Parte& parte : TodasAsPartes()) {
      if (parte.EhDe(valor)) parte.Enche(valor);
    }
  } else {
    static_assert(std::is_trivially_copyable_v<T>);
    std::memset(&valor, 3, sizeof(T));
  }
}

template <class C>
const C& De(const Base& objeto) {
  return static_cast<const C&>(objeto);
}

// Whether two values are the same in all that they hold.
template <class T>
bool Iguais(const T& a, const T& b) {
  if constexpr (requires { a == b; }) {
    return a == b;
  } else {
    return std::memcmp(&a, &b, sizeof(T)) == 0;
  }
}

template <class C>
constexpr bool kComparavel = requires(const C& c) {
  { c.C::operator==(c) } -> std::same_as<bool>;
};

template <class C>
bool Volta(const kx::RegistroDe<C>& dono, const C& objeto) {
  C volta;
  volta.CopiarDe(dono.GetPtr());
  return volta == objeto;
}

template <class C>
bool PorDono(C& objeto) {
  using Dono = kx::RegistroDe<C>;
  Dono primeiro(objeto);
  Dono segundo(std::move(primeiro));
  Dono terceiro = Dono::Assume(segundo.Entrega(), segundo.GetAlocador());
  bool certo = Volta(terceiro, objeto) && Volta(primeiro, C{}) && Volta(segundo, C{});
  if constexpr (requires(const C& o) { Dono::PS(o); }) {
    primeiro = Dono::PS(objeto);
    certo = certo && primeiro.GetAlocador() == kx::Alocador::Tarefa && Volta(primeiro, objeto);
  }
  objeto.CopiarPara(terceiro.Recebe(C::kAlocador));
  return certo && Volta(terceiro, objeto);
}

template <class C>
void JuntaClasse(std::vector<Classe>& classes) {
  if constexpr (kComparavel<C> && std::is_default_constructible_v<C>) {
    static_assert(std::is_nothrow_move_constructible_v<C>, "a collection grows by moving");
    Classe classe{
        C::GetThisClass()->m_lpszClassName,
        C::GetThisClass(),
        sizeof(C),
        []() -> std::unique_ptr<Base> { return std::make_unique<C>(); },
        [](const Base& o) -> std::unique_ptr<Base> { return std::make_unique<C>(De<C>(o)); },
        [](Base& o) -> std::unique_ptr<Base> { return std::make_unique<C>(static_cast<C&&>(o)); },
        [](Base& a, const Base& b) { static_cast<C&>(a) = De<C>(b); },
        [](Base& a, Base& b) { static_cast<C&>(a) = static_cast<C&&>(b); },
        [](const Base& a, const Base& b) {
          const bool iguais = De<C>(a) == De<C>(b);
          return iguais && !(De<C>(a) != De<C>(b));
        },
        [](const Base& o) {
          if constexpr (kx::Descritivel<C>) return kx::Descreve(De<C>(o));
          return std::string("(none)");
        },
        [](const Base& a, const Base& b) { return kx::Diferencas(De<C>(a), De<C>(b)); },
        {}};
    if constexpr (requires { typename C::Registro; }) {
      using REG = typename C::Registro;
      classe.Info = &KXMetadados<REG>::kInfo;
      classe.Posicao = &C::kPosicao;
      classe.Registro = [](const Base& o) -> const void* { return &De<C>(o).GetReg(); };
      classe.CopiarDe = [](Base& o, const void* registro) {
        static_cast<C&>(o).CopiarDe(static_cast<const REG*>(registro));
      };
      classe.CopiarPara = [](Base& o, void* registro) {
        static_cast<C&>(o).CopiarPara(static_cast<REG*>(registro));
      };
      classe.DeRegistro = [](const void* registro) -> std::unique_ptr<Base> {
        return std::make_unique<C>(static_cast<const REG*>(registro));
      };
      if constexpr (requires(const C& o, REG* r) { o.CopiarParaPS(r); }) {
        classe.CopiarParaPS = [](Base& o, void* registro) {
          De<C>(o).CopiarParaPS(static_cast<REG*>(registro));
        };
      }
      classe.ZerarDelete = [](void* r) { C::ZerarDelete(static_cast<REG*>(r)); };
      classe.ZerarGlobalAlloc = [](void* r) { C::ZerarGlobalAlloc(static_cast<REG*>(r)); };
      classe.PorDono = [](Base& o) { return PorDono(static_cast<C&>(o)); };
    }
    const C objeto{};
    for (const Parte& parte : TodasAsPartes()) {
      if (parte.EhDe(objeto)) classe.Partes.push_back(parte);
    }
    classes.push_back(std::move(classe));
  }
}

#undef KX_MEMBRO
#undef KX_COLECAO
#define KX_LINHA(Classe, Nome, ...)                                       \
  {#Nome,                                                                 \
   [](Base& base) {                                                       \
     auto& o = static_cast<Classe&>(base);                                \
     __VA_ARGS__                                                          \
   },                                                                     \
   [](const Base& a, const Base& b) {                                     \
     return Iguais(De<Classe>(a).Get##Nome(), De<Classe>(b).Get##Nome()); \
   },                                                                     \
   [](const Base& o) { return dynamic_cast<const Classe*>(&o) != nullptr; }},
#define KX_MEMBRO(Classe, T, Nome)                \
  KX_LINHA(Classe, Nome, T valor{}; Enche(valor); \
           return &o.Set##Nome(valor) == &o && Iguais<T>(o.Get##Nome(), valor);)
#define KX_COLECAO(Classe, Nome, T) \
  KX_LINHA(Classe, Lista##Nome,     \
           return &o.Adiciona##Nome(T{}) == &o && o.GetQuantidade##Nome() == 1;)
const std::vector<Parte>& TodasAsPartes() {
  static const std::vector<Parte> partes{
#include "Partes.def"
  };
  return partes;
}

}  // namespace

const std::vector<Classe>& Classes() {
  static const std::vector<Classe> todas = [] {
    std::vector<Classe> classes;
#define KX_CLASSE_COM_REGISTRO(Classe, Cabecalho) JuntaClasse<::Classe>(classes);
#define KX_CLASSE_OUTRA(Classe, Cabecalho) JuntaClasse<::Classe>(classes);
#include "gerado/Classes.def"
    return classes;
  }();
  return todas;
}

const std::vector<Classe>& ClassesDeRegistro() {
  static const std::vector<Classe> comRegistro = [] {
    std::vector<Classe> classes = Classes();
    std::erase_if(classes, [](const Classe& classe) { return classe.Info == nullptr; });
    return classes;
  }();
  return comRegistro;
}

bool Objeto::IgualNasDiferencas(const Objeto& outro) const {
  const bool iguais = *this == outro;
  const auto diferencas = _classe->Diferencas(*_objeto, *outro);
  const auto vista = std::find_if(diferencas.begin(), diferencas.end(),
                                  [](const kx::Diferenca& linha) { return linha.Comparado; });
  KX_EXIGE(iguais == (vista == diferencas.end()), iguais ? vista->Caminho : "nenhuma");
  return iguais;
}

}  // namespace apoio
