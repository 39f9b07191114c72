// Record tree to object to record, for every class with a record: the bytes decide the class, the
// contents, the counts and the texts, and how arrays and texts are wrong.
#include <algorithm>
#include <type_traits>
#include <vector>

#include "fuzz/Fuzz.h"
#include "tests/apoio/ClassesDeRegistro.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

using fuzz::Bytes;

// A place that no process can read.
void* const kIlegivel = reinterpret_cast<void*>(16);

template <class T>
T Lido(const unsigned char* onde) {
  T valor{};
  std::memcpy(&valor, onde, sizeof(valor));
  return valor;
}

template <class T>
void Poe(unsigned char* onde, const T& valor) {
  std::memcpy(onde, &valor, sizeof(valor));
}

// Fills a record as someone may send it and, beside it, the one that must come back of it.
class Montador {
 public:
  Montador(Bytes& bytes, kx::Alocador alocador) : _bytes(bytes), _alocador(alocador) {}

  void Preenche(const KXRegistroInfo& info, unsigned char* recebido, unsigned char* esperado) {
    Conteudo(info, recebido);
    std::memcpy(esperado, recebido, info.Tamanho);
    apoio::ZeraOQueNaoViaja(info, esperado);
    for (const KXCampo& campo : info.Campos) {
      switch (campo.Papel) {
        case KXPapel::Lista:
          Lista(campo, apoio::ContaDe(info, campo).Posicao, recebido, esperado);
          break;
        case KXPapel::Contado:
          TextoComTamanho<std::uint32_t>(campo.Posicao + offsetof(KXStringPS, Texto),
                                         campo.Posicao + offsetof(KXStringPS, Tamanho), recebido,
                                         esperado);
          break;
        case KXPapel::Corrido:
          TextoComTamanho<std::uint16_t>(campo.Posicao, apoio::TamanhoDe(info, campo).Posicao,
                                         recebido, esperado);
          break;
        case KXPapel::Terminado:
          TextoTerminado(campo.Posicao, recebido, esperado);
          break;
        default:
          break;
      }
    }
  }

  // What cannot be read cannot be released.
  void EsqueceOsIlegiveis() const {
    for (unsigned char* ponteiro : _ilegiveis) Poe<void*>(ponteiro, nullptr);
  }

 private:
  // All zeros, garbage or the bytes themselves, and then a few bytes in places of their own.
  void Conteudo(const KXRegistroInfo& info, unsigned char* registro) {
    const unsigned modo = _bytes.Ate(7);
    std::memset(registro, 0, info.Tamanho);
    if (modo == 0) _bytes.Enche(registro, info.Tamanho);
    if (modo == 1) {
      unsigned valor = _bytes.Byte();
      for (std::uint32_t i = 0; i < info.Tamanho; ++i) {
        valor = valor * 1103515245U + 12345U;
        registro[i] = static_cast<unsigned char>(valor >> 16);
      }
    }
    for (unsigned i = modo; i > 0; --i) {
      const std::uint32_t posicao = _bytes.Valor<std::uint16_t>() % info.Tamanho;
      registro[posicao] = _bytes.Byte();
    }
  }

  void Lista(const KXCampo& campo, std::uint16_t conta, unsigned char* recebido,
             unsigned char* esperado) {
    const unsigned modo = _bytes.Ate(7);
    const auto quantos = static_cast<std::uint16_t>(std::min(_bytes.Ate(3), _restam));
    _restam -= quantos;
    const bool semArray = modo == 5;
    const bool semConta = modo == 6;
    const bool ilegivel = modo == 7 && quantos > 0 && CabeIlegivel();
    const std::uint16_t esperados = semArray || semConta ? std::uint16_t{0} : quantos;

    unsigned char* const origem = semArray || quantos == 0 ? nullptr : Array(campo, quantos);
    unsigned char* const copia = esperados == 0 ? nullptr : Array(campo, esperados);
    for (std::size_t i = 0; i < esperados && !ilegivel; ++i) {
      const std::size_t posicao = i * campo.Elemento->Tamanho;
      Preenche(*campo.Elemento, origem + posicao, copia + posicao);
    }
    Poe(recebido + campo.Posicao, origem);
    Poe(recebido + conta, semConta ? std::uint16_t{0} : quantos);
    Poe(esperado + campo.Posicao, copia);
    Poe(esperado + conta, esperados);
    if (ilegivel) TornaIlegivel(recebido + campo.Posicao, origem);
  }

  // Elements whose every byte is zero: what an element that cannot be read reads as.
  unsigned char* Array(const KXCampo& campo, std::size_t quantos) const {
    const std::size_t tamanho = quantos * campo.Elemento->Tamanho;
    auto* const array = kx::AlocaArray<unsigned char>(_alocador, tamanho);
    std::memset(array, 0, tamanho);
    return array;
  }

  // Each costs a fault, thousands of times as long as anything else here.
  bool CabeIlegivel() const { return _ilegiveis.size() < 2; }

  void TornaIlegivel(unsigned char* ponteiro, void* antes) {
    kx::LiberaArray(_alocador, static_cast<char*>(antes));
    Poe(ponteiro, kIlegivel);
    _ilegiveis.push_back(ponteiro);
  }

  struct TextoRecebido {
    char* Texto;
    std::size_t Tamanho;
    std::string Lido;
    bool Ilegivel = false;
  };

  // In memory of exactly as many bytes as may be read.
  TextoRecebido Texto(bool semTamanho) {
    const unsigned modo = _bytes.Ate(9);
    const std::string texto = _bytes.Texto(40);
    const std::string lido = texto.c_str();
    if (modo == 5 || texto.empty()) return {nullptr, texto.size(), ""};
    if (modo == 6) return {nullptr, texto.size(), "", CabeIlegivel()};
    const bool terminado = modo != 7 || semTamanho;
    const std::size_t ocupa = texto.size() + (terminado ? 1 : 0);
    auto* const copia = kx::AlocaArray<char>(_alocador, ocupa);
    // NOLINTNEXTLINE(bugprone-not-null-terminated-result): as a careless sender leaves it
    std::memcpy(copia, texto.c_str(), ocupa);
    if (modo == 8) return {copia, ocupa + 1000, lido};
    if (modo == 9 && !semTamanho) return {copia, 0, ""};
    return {copia, ocupa, lido};
  }

  // As it must be written: terminated, and null when empty. Gives its size, the terminator
  // included.
  std::size_t Escreve(const std::string& texto, unsigned char* ponteiro) const {
    char* copia = nullptr;
    const std::size_t tamanho = texto.empty() ? 0 : texto.size() + 1;
    if (tamanho > 0) {
      copia = kx::AlocaArray<char>(_alocador, tamanho);
      std::memcpy(copia, texto.c_str(), tamanho);
    }
    Poe(ponteiro, copia);
    return tamanho;
  }

  template <class Tamanho>
  void TextoComTamanho(std::size_t texto, std::size_t tamanho, unsigned char* recebido,
                       unsigned char* esperado) {
    const TextoRecebido lido = Texto(false);
    Poe(recebido + texto, lido.Texto);
    Poe(recebido + tamanho, static_cast<Tamanho>(lido.Tamanho));
    Poe(esperado + tamanho, static_cast<Tamanho>(Escreve(lido.Lido, esperado + texto)));
    if (lido.Ilegivel) TornaIlegivel(recebido + texto, nullptr);
  }

  void TextoTerminado(std::size_t texto, unsigned char* recebido, unsigned char* esperado) {
    const TextoRecebido lido = Texto(true);
    Poe(recebido + texto, lido.Texto);
    Escreve(lido.Lido, esperado + texto);
    if (lido.Ilegivel) TornaIlegivel(recebido + texto, nullptr);
  }

  Bytes& _bytes;
  kx::Alocador _alocador;
  unsigned _restam = 24;  // elements, so that a short input is a short run
  std::vector<unsigned char*> _ilegiveis;
};

// A record that its class releases.
template <class Classe>
class Posse {
 public:
  using REG = typename Classe::Registro;

  explicit Posse(kx::Alocador alocador) : _alocador(alocador) {
    std::memset(&Reg, 0xAB, sizeof(Reg));
  }
  Posse(const Posse&) = delete;
  Posse& operator=(const Posse&) = delete;
  ~Posse() { Libera(); }

  void Libera() {
    // The release of an installment leaves what its taxes own to their own release.
    if constexpr (std::is_same_v<Classe, CKXDadosCM_Parcela>) {
      for (int i = 0; Reg.ListaItemImposto != nullptr && i < Reg.QtdItemImposto; ++i) {
        LiberaCom<CKXDadosCM_ItemImposto>(&Reg.ListaItemImposto[i]);
      }
    }
    LiberaCom<Classe>(&Reg);
  }
  unsigned char* Bytes() { return reinterpret_cast<unsigned char*>(&Reg); }

  REG Reg;

 private:
  template <class C>
  void LiberaCom(typename C::Registro* registro) const {
    _alocador == kx::Alocador::Delete ? C::ZerarDelete(registro) : C::ZerarGlobalAlloc(registro);
  }

  kx::Alocador _alocador;
};

template <class Classe>
Classe Le(const typename Classe::Registro& registro) {
  Classe objeto;
  objeto.CopiarDe(&registro);
  return objeto;
}

std::string TextoDe(const unsigned char* registro, const KXCampo& campo) {
  const auto* texto = reinterpret_cast<const char*>(registro + campo.Posicao);
  return {texto, strnlen(texto, campo.Largura)};
}

// Whether the table says that the two are different, what hangs from them aside.
bool Diferem(const KXRegistroInfo& info, const void* a, const void* b) {
  const auto* bytesA = static_cast<const unsigned char*>(a);
  const auto* bytesB = static_cast<const unsigned char*>(b);
  return std::any_of(info.Campos.begin(), info.Campos.end(), [&](const KXCampo& campo) {
    if (!campo.Comparado || campo.Papel >= KXPapel::Contado) return false;
    if (campo.Tipo == KXTipoCampo::Texto) return TextoDe(bytesA, campo) != TextoDe(bytesB, campo);
    if (campo.Tipo == KXTipoCampo::Historico) {
      return fuzz::TresLinhas(TextoDe(bytesA, campo)) != fuzz::TresLinhas(TextoDe(bytesB, campo));
    }
    // Of a date-and-time value the date alone is an installment's.
    const bool soData = campo.Tipo == KXTipoCampo::DataHora32;
    const std::size_t largura = soData ? sizeof(REG_KXDMA) : campo.Largura;
    return std::memcmp(bytesA + campo.Posicao, bytesB + campo.Posicao, largura) != 0;
  });
}

template <class REG>
REG ComoSeCompara(const REG& registro) {
  return registro;
}

// An approval rule names a product by its key and its status, or names none.
tagREG_CM_AUTORIZACAO_CMSAUTPS ComoSeCompara(const tagREG_CM_AUTORIZACAO_CMSAUTPS& registro) {
  tagREG_CM_AUTORIZACAO_CMSAUTPS regra = registro;
  if (regra.PonteiroProdutoServico == 0 || regra.StatusProdutoServico == 0) {
    regra.PonteiroProdutoServico = 0;
    regra.StatusProdutoServico = 0;
  }
  return regra;
}

// What the bytes of a field say is in the record alone, or does not travel.
bool PodeMudar(const KXRegistroInfo& info, std::size_t posicao) {
  return std::any_of(info.Campos.begin(), info.Campos.end(), [posicao](const KXCampo& campo) {
    const bool cobre = campo.Posicao <= posicao && posicao < campo.Posicao + campo.Largura;
    return cobre && (campo.Papel == KXPapel::Campo || campo.Papel == KXPapel::Reserva ||
                     campo.Papel == KXPapel::Zero);
  });
}

template <class Classe>
void ExigeIgualdadeDaTabela(Bytes& bytes, const Classe& objeto,
                            const typename Classe::Registro& registro) {
  const KXRegistroInfo& info = KXMetadados<typename Classe::Registro>::kInfo;
  typename Classe::Registro outro = registro;
  const std::size_t posicao = bytes.Valor<std::uint16_t>() % info.Tamanho;
  const std::uint8_t valor = bytes.Byte();
  if (!PodeMudar(info, posicao)) return;
  reinterpret_cast<unsigned char*>(&outro)[posicao] = valor;
  const auto a = ComoSeCompara(registro);
  const auto b = ComoSeCompara(outro);
  const std::string onde = std::string(info.Nome) + " + " + std::to_string(posicao);
  KX_EXIGE((objeto == Le<Classe>(outro)) == !Diferem(info, &a, &b), onde);
}

// A list with elements that can be read, and whose change equality sees; null when there is none.
const KXCampo* Lista(Bytes& bytes, const KXRegistroInfo& info, const unsigned char* registro) {
  std::vector<const KXCampo*> listas;
  for (const KXCampo& campo : info.Campos) {
    if (campo.Papel != KXPapel::Lista || campo.Nome == std::string_view("ListaCancelamento"))
      continue;
    const auto array = Lido<const void*>(registro + campo.Posicao);
    const auto quantos = Lido<std::uint16_t>(registro + apoio::ContaDe(info, campo).Posicao);
    if (array != nullptr && array != kIlegivel && quantos > 0) listas.push_back(&campo);
  }
  return listas.empty() ? nullptr : listas[bytes.Byte() % listas.size()];
}

// The same for a byte of a child.
template <class Classe>
void ExigeIgualdadeDosFilhos(Bytes& bytes, const Classe& objeto,
                             const typename Classe::Registro& registro) {
  const KXRegistroInfo& info = KXMetadados<typename Classe::Registro>::kInfo;
  const auto* inicio = reinterpret_cast<const unsigned char*>(&registro);
  const KXCampo* const lista = Lista(bytes, info, inicio);
  if (lista == nullptr) return;
  const KXRegistroInfo& filho = *lista->Elemento;
  const auto quantos = Lido<std::uint16_t>(inicio + apoio::ContaDe(info, *lista).Posicao);
  unsigned char* const elemento = Lido<unsigned char*>(inicio + lista->Posicao) +
                                  std::size_t{filho.Tamanho} * (bytes.Byte() % quantos);
  const std::size_t posicao = bytes.Valor<std::uint16_t>() % filho.Tamanho;
  if (!PodeMudar(filho, posicao)) return;
  const std::vector<unsigned char> antes(elemento, elemento + filho.Tamanho);
  elemento[posicao] = bytes.Byte();
  const bool iguais = !Diferem(filho, antes.data(), elemento);
  const std::string onde = std::string(lista->Nome) + " + " + std::to_string(posicao);
  KX_EXIGE((objeto == Le<Classe>(registro)) == iguais, onde);
  elemento[posicao] = antes[posicao];
}

template <class Classe>
void ExigeCopias(const Classe& objeto, const typename Classe::Registro& registro) {
  Classe copia(objeto);
  KX_EXIGE(copia == objeto && objeto == copia);
  Classe atribuido;
  atribuido = copia;
  KX_EXIGE(atribuido == objeto);
  const Classe movido(std::move(copia));
  KX_EXIGE(movido == objeto);
  // NOLINTNEXTLINE(bugprone-use-after-move): what was moved from serves again
  copia.CopiarDe(&registro);
  KX_EXIGE(copia == objeto);
  atribuido.Limpar();
  KX_EXIGE(atribuido.EstaVazio() && atribuido == Classe());
  atribuido = std::move(copia);
  KX_EXIGE(atribuido == objeto);
  atribuido = Classe();
  KX_EXIGE(atribuido.EstaVazio());
}

// Cancellations are received and never sent.
template <class REG>
void TiraOQueSoSeRecebe(REG& registro, kx::Alocador alocador) {
  if constexpr (requires { registro.ListaCancelamento; }) {
    kx::Liberador{alocador}.Lista(registro.ListaCancelamento, registro.QtdCancelamento);
  }
}

template <class Classe>
void Prova(Bytes& bytes) {
  using REG = typename Classe::Registro;
  const KXRegistroInfo& info = KXMetadados<REG>::kInfo;
  const auto alocador = bytes.Byte() % 2 == 0 ? kx::Alocador::Delete : kx::Alocador::Tarefa;
  Posse<Classe> recebido(alocador);
  Posse<Classe> esperado(alocador);
  Montador montador(bytes, alocador);
  montador.Preenche(info, recebido.Bytes(), esperado.Bytes());
  TiraOQueSoSeRecebe(esperado.Reg, alocador);

  const REG antes = recebido.Reg;
  Classe objeto = Le<Classe>(recebido.Reg);
  KX_EXIGE(std::memcmp(&antes, &recebido.Reg, sizeof(REG)) == 0, info.Nome);

  Posse<Classe> escrito(alocador == kx::Alocador::Delete ? kx::Alocador::Tarefa
                                                         : kx::Alocador::Delete);
  objeto.CopiarPara(&escrito.Reg);
  const std::string diferenca = apoio::Diferenca(info, &esperado.Reg, &escrito.Reg);
  KX_EXIGE(diferenca.empty(), diferenca);
  const Classe volta = Le<Classe>(escrito.Reg);
  KX_EXIGE(volta == objeto && objeto == volta, info.Nome);
  KX_EXIGE(volta.CalculaCRC(nullptr) == objeto.CalculaCRC(nullptr), info.Nome);

  ExigeIgualdadeDaTabela(bytes, objeto, recebido.Reg);
  ExigeIgualdadeDosFilhos(bytes, objeto, recebido.Reg);
  ExigeCopias(objeto, recebido.Reg);

  montador.EsqueceOsIlegiveis();
  recebido.Libera();
  escrito.Libera();
  KX_EXIGE(apoio::OQueFicou(info, &recebido.Reg).empty(), apoio::OQueFicou(info, &recebido.Reg));
  KX_EXIGE(apoio::OQueFicou(info, &escrito.Reg).empty(), apoio::OQueFicou(info, &escrito.Reg));
}

template <class T>
struct Provas;
template <template <class...> class Lista, class... Classes>
struct Provas<Lista<Classes...>> {
  static constexpr void (*kTodas[])(Bytes&) = {Prova<Classes>...};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  constexpr auto& kTodas = Provas<apoio::ClassesDeRegistro>::kTodas;
  Bytes bytes(dados, tamanho);
  kTodas[bytes.Byte() % std::size(kTodas)](bytes);
  return 0;
}
