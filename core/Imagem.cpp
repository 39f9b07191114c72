#include "core/Imagem.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>

#include "core/Checksum.h"

namespace kx {

namespace {

static_assert(std::endian::native == std::endian::little && sizeof(std::size_t) == 8,
              "records are little-endian, and their pointers have 64 bits");

constexpr std::size_t kAlinhamento = 8;
constexpr std::size_t kNome = 48;
constexpr char kMarca[] = {'K', 'X', 'I', 'M', 'A', 'G', 'E', 'M'};
constexpr std::uint16_t kFormato = 1;
constexpr std::uint16_t kComChecksum = 1;
constexpr std::uint16_t kAberta = 0x8000;

struct Cabecalho {
  char Marca[sizeof(kMarca)];
  std::uint16_t Formato;
  std::uint16_t Opcoes;
  std::uint32_t Checksum;
  std::uint64_t Tamanho;
  std::uint64_t Leiaute;
  char Registro[kNome];
};
static_assert(sizeof(Cabecalho) == kCabecalhoDaImagem && sizeof(Cabecalho) % kAlinhamento == 0);
constexpr std::size_t kComeco = offsetof(Cabecalho, Tamanho);  // of what the checksum covers

template <class T>
T Le(const void* onde) noexcept {
  static_assert(std::is_trivially_copyable_v<T>);
  T valor;
  std::memcpy(&valor, onde, sizeof(valor));
  return valor;
}

template <class T>
void Poe(void* onde, T valor) noexcept {
  std::memcpy(onde, &valor, sizeof(valor));
}

// The number of bytes with what makes it a multiple of the alignment.
constexpr std::size_t Alinha(std::size_t bytes) noexcept {
  return (bytes + kAlinhamento - 1) / kAlinhamento * kAlinhamento;
}

// The count of a list, the size of a text; 0 of a text without a size.
std::size_t LeMedida(const KXPendente& pendente, const unsigned char* registro) noexcept {
  const unsigned char* const onde = registro + pendente.Medida;
  if (pendente.Papel == KXPapel::Contado) return Le<std::uint32_t>(onde);
  return pendente.Papel == KXPapel::Terminado ? 0 : Le<std::uint16_t>(onde);
}

void PoeMedida(const KXPendente& pendente, unsigned char* registro, std::size_t medida) noexcept {
  unsigned char* const onde = registro + pendente.Medida;
  if (pendente.Papel == KXPapel::Contado) {
    Poe(onde, static_cast<std::uint32_t>(medida));
    Poe(onde + sizeof(std::uint32_t), std::uint32_t{0});
  } else if (pendente.Papel != KXPapel::Terminado) {
    Poe(onde, static_cast<std::uint16_t>(medida));
  }
}

// The most characters that a text of the row may have: its size counts the terminator.
std::size_t Maximo(const KXPendente& pendente, std::size_t dita) noexcept {
  constexpr std::size_t kContado = std::numeric_limits<std::uint32_t>::max() - 1U;
  constexpr std::size_t kCorrido = std::numeric_limits<std::uint16_t>::max() - 1U;
  if (pendente.Papel == KXPapel::Terminado) return std::numeric_limits<std::ptrdiff_t>::max();
  return std::min(dita, pendente.Papel == KXPapel::Contado ? kContado : kCorrido);
}

// Walks a record in the order of the blocks, under one guard: it owns nothing and throws nothing.
// Saida takes them: Registros gives the bytes in which the rows are to be read, null to leave them
// alone, Texto takes characters, and Fim tells where the next block stands. Those bytes are copies,
// to be corrected, when Saida writes.
template <class Saida>
class Percurso {
 public:
  explicit Percurso(Saida& saida) : _saida(saida) {}

  // The whole record. Throws RegistroIlegivel where a fault stops it.
  void Tudo(const KXRegistroInfo& info, const void* registro) {
    _info = &info;
    _registro = registro;
    _nome = info.Nome;
    const auto anda = [](void* percurso) {
      auto& este = *static_cast<Percurso*>(percurso);
      este.Registros(*este._info, este._registro, 1);
    };
    if (registro == nullptr || !plataforma::Protege(anda, this)) throw RegistroIlegivel(_nome);
  }

 private:
  void Registros(const KXRegistroInfo& info, const void* origem, std::size_t quantos) noexcept {
    const std::size_t bytes = quantos * info.Tamanho;
    auto* registro = _saida.Registros(origem, bytes);
    if (registro == nullptr || info.Pendentes.empty()) return;
    for (const auto* const fim = registro + bytes; registro != fim; registro += info.Tamanho) {
      for (const KXPendente& pendente : info.Pendentes) Pendente(pendente, registro);
    }
  }

  void Pendente(const KXPendente& pendente, auto* registro) noexcept {
    if (pendente.Papel == KXPapel::Lista) return Lista(pendente, registro);
    if (pendente.Papel == KXPapel::Zero) {
      if constexpr (Saida::kEscreve) std::memset(registro + pendente.Posicao, 0, pendente.Medida);
      return;
    }
    const auto* alvo = Le<const char*>(registro + pendente.Posicao);
    const char* const nome = _nome;
    if (alvo != nullptr) _nome = pendente.Nome;
    const std::size_t dita = LeMedida(pendente, registro);
    const std::size_t medida = alvo == nullptr ? 0 : Medida(pendente, dita, alvo);
    if constexpr (Saida::kEscreve) {
      if (alvo != nullptr) Poe(registro + pendente.Posicao, medida == 0 ? 0 : _saida.Fim());
      if (medida != dita || pendente.Papel == KXPapel::Contado) {
        PoeMedida(pendente, registro, medida);
      }
    }
    if (medida != 0) _saida.Texto(alvo, medida);
    _nome = nome;
  }

  void Lista(const KXPendente& pendente, auto* registro) noexcept {
    const void* const alvo = Le<const void*>(registro + pendente.Posicao);
    const auto quantos = Le<std::uint16_t>(registro + pendente.Medida);
    if (alvo == nullptr || quantos == 0) {
      if constexpr (Saida::kEscreve) {
        Poe(registro + pendente.Posicao, std::uint64_t{0});
        Poe(registro + pendente.Medida, std::uint16_t{0});
      }
      return;
    }
    if constexpr (Saida::kEscreve) Poe(registro + pendente.Posicao, _saida.Fim());
    const char* const nome = std::exchange(_nome, pendente.Nome);
    Registros(*pendente.Elemento, alvo, quantos);
    _nome = nome;
  }

  // Characters of a text, the terminator included.
  static std::size_t Medida(const KXPendente& pendente, std::size_t dita,
                            const char* alvo) noexcept {
    const std::size_t caracteres = strnlen(alvo, Maximo(pendente, dita));
    return caracteres == 0 ? 0 : caracteres + 1;
  }

  Saida& _saida;
  const KXRegistroInfo* _info = nullptr;
  const void* _registro = nullptr;
  const char* _nome = nullptr;  // of the row that is being read
};

// Counts.
class Contador {
 public:
  static constexpr bool kEscreve = false;

  const unsigned char* Registros(const void* origem, std::size_t bytes) noexcept {
    _fim += Alinha(bytes);
    return static_cast<const unsigned char*>(origem);
  }
  void Texto(const char* /*texto*/, std::size_t tamanho) noexcept { _fim += Alinha(tamanho); }
  std::size_t Fim() const noexcept { return _fim; }

 private:
  std::size_t _fim = sizeof(Cabecalho);
};

// Copies, as long as there is room.
class Copiador {
 public:
  static constexpr bool kEscreve = true;

  explicit Copiador(std::span<std::byte> destino)
      : _base(reinterpret_cast<unsigned char*>(destino.data())),
        _limite(destino.size()),
        _cabe(_fim <= _limite) {}

  bool Cabe() const noexcept { return _cabe; }
  std::size_t Fim() const noexcept { return _fim; }

  unsigned char* Registros(const void* origem, std::size_t bytes) noexcept {
    return Bloco(origem, bytes, Alinha(bytes));
  }
  // The terminator is of the zeros that follow.
  void Texto(const char* texto, std::size_t tamanho) noexcept {
    Bloco(texto, tamanho - 1, Alinha(tamanho));
  }

 private:
  unsigned char* Bloco(const void* origem, std::size_t bytes, std::size_t ocupa) noexcept {
    _cabe = _cabe && ocupa <= _limite - _fim;
    if (!_cabe) return nullptr;
    unsigned char* const bloco = _base + _fim;
    std::memcpy(bloco, origem, bytes);
    if (bytes != ocupa) std::memset(bloco + bytes, 0, ocupa - bytes);
    _fim += ocupa;
    return bloco;
  }

  unsigned char* _base;
  std::size_t _limite;
  std::size_t _fim = sizeof(Cabecalho);
  bool _cabe;
};

// Walks an image in the same order, and takes nothing for granted. Where the bytes may be written,
// positions become pointers on the way.
template <class Byte>
class Conferente {
  static constexpr bool kAbre = !std::is_const_v<Byte>;

 public:
  explicit Conferente(Byte* base, std::size_t tamanho) : _base(base), _tamanho(tamanho) {}

  // Pointers so far.
  std::size_t Postos() const noexcept { return _postos; }

  void Tudo(const KXRegistroInfo& info) {
    Registros(info, 1, kComeco);
    if (_fim != _tamanho) throw ImagemInvalida(ErroImagem::Bloco, _fim);
  }

 private:
  void Registros(const KXRegistroInfo& info, std::size_t quantos, std::size_t onde) {
    std::size_t registro = _fim;
    Bloco(quantos * info.Tamanho, onde);
    if (info.Pendentes.empty()) return;
    for (std::size_t i = 0; i < quantos; ++i) {
      for (const KXPendente& pendente : info.Pendentes) Pendente(pendente, registro);
      registro += info.Tamanho;
    }
  }

  // The row of the record that begins there.
  void Pendente(const KXPendente& pendente, std::size_t registro) {
    const std::size_t onde = registro + pendente.Posicao;
    if (pendente.Papel == KXPapel::Zero) {
      ExigeZeros(onde, onde + pendente.Medida);
    } else if (pendente.Papel == KXPapel::Lista) {
      const auto quantos = Le<std::uint16_t>(_base + registro + pendente.Medida);
      if (Aponta(pendente, onde, quantos != 0)) Registros(*pendente.Elemento, quantos, onde);
    } else {
      const std::size_t tamanho = LeMedida(pendente, _base + registro);
      const bool exato = pendente.Papel != KXPapel::Terminado;
      if (pendente.Papel == KXPapel::Contado) {
        ExigeZeros(registro + pendente.Medida + sizeof(std::uint32_t), onde);
      }
      const bool temTexto = exato ? tamanho != 0 : Le<std::uint64_t>(_base + onde) != 0;
      if (Aponta(pendente, onde, temTexto)) {
        Texto(pendente, exato ? tamanho : _tamanho - _fim, exato);
      }
    }
  }

  // Whether a block hangs from the row: one that is told stands where the next block must be.
  bool Aponta(const KXPendente& pendente, std::size_t onde, bool tem) {
    const auto posicao = Le<std::uint64_t>(_base + onde);
    if (posicao != (tem ? _fim : 0)) throw ImagemInvalida(ErroImagem::Bloco, onde, pendente.Nome);
    if constexpr (kAbre) {
      if (tem) {
        Poe(_base + onde, _base + posicao);
        ++_postos;
      }
    }
    return tem;
  }

  // Of at most so many bytes, or of exactly so many, the terminator included.
  void Texto(const KXPendente& pendente, std::size_t bytes, bool exato) {
    const unsigned char* const inicio = _base + _fim;
    const std::size_t olhados = std::min(bytes, _tamanho - _fim);
    const void* fim = std::memchr(inicio, 0, olhados);
    if (fim == nullptr) throw ImagemInvalida(ErroImagem::Texto, _fim, pendente.Nome);
    const auto ocupa =
        static_cast<std::size_t>(static_cast<const unsigned char*>(fim) - inicio) + 1;
    if (ocupa == 1 || (exato && ocupa != bytes)) {
      throw ImagemInvalida(ErroImagem::Texto, _fim, pendente.Nome);
    }
    Bloco(ocupa, _fim);
  }

  void Bloco(std::size_t bytes, std::size_t onde) {
    if (bytes > _tamanho - _fim) throw ImagemInvalida(ErroImagem::Bloco, onde);
    const std::size_t cheio = _fim + bytes;
    _fim += Alinha(bytes);  // the whole is a multiple of the alignment
    ExigeZeros(cheio, _fim);
  }

  void ExigeZeros(std::size_t de, std::size_t ate) const {
    for (; de < ate; ++de) {
      if (_base[de] != 0) throw ImagemInvalida(ErroImagem::Enchimento, de);
    }
  }

  Byte* _base;
  std::size_t _tamanho;
  std::size_t _fim = sizeof(Cabecalho);
  std::size_t _postos = 0;
};

// Turns the first pointers, in the order of the walk, back into positions.
void TiraPonteiros(const KXRegistroInfo& info, unsigned char* registro, std::size_t quantos,
                   const unsigned char* base, std::size_t& postos) noexcept {
  for (std::size_t i = 0; i < quantos; ++i, registro += info.Tamanho) {
    for (const KXPendente& pendente : info.Pendentes) {
      if (postos == 0) return;
      if (pendente.Papel == KXPapel::Zero) continue;
      auto* const alvo = Le<unsigned char*>(registro + pendente.Posicao);
      if (alvo == nullptr) continue;
      Poe(registro + pendente.Posicao, static_cast<std::uint64_t>(alvo - base));
      --postos;
      if (pendente.Papel == KXPapel::Lista) {
        TiraPonteiros(*pendente.Elemento, alvo, LeMedida(pendente, registro), base, postos);
      }
    }
  }
}

std::uint32_t ChecksumDe(std::span<const std::byte> bytes) noexcept {
  return CalculaChecksum(bytes.data() + kComeco, bytes.size() - kComeco);
}

void ExigeOpcoes(std::uint16_t opcoes) {
  constexpr std::size_t kOnde = offsetof(Cabecalho, Opcoes);
  if ((opcoes & kAberta) != 0) throw ImagemInvalida(ErroImagem::Aberta, kOnde);
  if (opcoes > kComChecksum) throw ImagemInvalida(ErroImagem::Formato, kOnde);
}

void ExigeChecksum(const Cabecalho& cabecalho, std::span<const std::byte> bytes,
                   ChecksumDaImagem checksum) {
  const bool tem = cabecalho.Opcoes == kComChecksum;
  const bool olha = checksum == ChecksumDaImagem::Com;
  const bool confere =
      tem ? !olha || cabecalho.Checksum == ChecksumDe(bytes) : !olha && cabecalho.Checksum == 0;
  if (!confere) throw ImagemInvalida(ErroImagem::Checksum, offsetof(Cabecalho, Checksum));
}

// What the messages show of a name that anybody may have written.
std::string Visivel(std::string_view nome) {
  std::string visivel(nome);
  for (char& c : visivel) {
    if (c <= ' ' || c > '~') c = '?';
  }
  return visivel;
}

std::uint64_t Mistura(std::uint64_t impressao, const void* dados, std::size_t bytes) noexcept {
  const auto* inicio = static_cast<const unsigned char*>(dados);
  for (std::size_t i = 0; i < bytes; ++i) impressao = (impressao ^ inicio[i]) * 1099511628211U;
  return impressao;
}

std::uint64_t Mistura(std::uint64_t impressao, const char* nome) noexcept {
  return Mistura(impressao, nome, std::strlen(nome) + 1);
}

std::uint64_t Mistura(std::uint64_t impressao, const KXRegistroInfo& info) noexcept {
  impressao = Mistura(Mistura(impressao, info.Nome), &info.Tamanho, sizeof(info.Tamanho));
  for (const KXCampo& campo : info.Campos) {
    const std::uint16_t numeros[] = {campo.Posicao, campo.Largura,
                                     static_cast<std::uint16_t>(campo.Tipo),
                                     static_cast<std::uint16_t>(campo.Papel)};
    impressao = Mistura(Mistura(impressao, campo.Nome), numeros, sizeof(numeros));
    if (campo.Elemento != nullptr) impressao = Mistura(impressao, *campo.Elemento);
  }
  return impressao;
}

const char* Descricao(ErroImagem erro) noexcept {
  switch (erro) {
    case ErroImagem::Alinhamento:
      return "os bytes n\xE3o come\xE7"
             "am em um m\xFAltiplo de 8";
    case ErroImagem::Cortada:
      return "est\xE1 incompleta";
    case ErroImagem::Marca:
      return "n\xE3o \xE9 uma imagem";
    case ErroImagem::Formato:
      return "o formato n\xE3o \xE9 conhecido";
    case ErroImagem::Aberta:
      return "j\xE1 foi aberta";
    case ErroImagem::Registro:
      return "\xE9 de outro registro";
    case ErroImagem::Leiaute:
      return "o leiaute do registro mudou";
    case ErroImagem::Tamanho:
      return "o tamanho n\xE3o \xE9 o dos bytes";
    case ErroImagem::Checksum:
      return "o checksum n\xE3o confere";
    case ErroImagem::Bloco:
      return "um bloco n\xE3o est\xE1 no lugar";
    case ErroImagem::Texto:
      return "um texto n\xE3o termina no lugar";
    case ErroImagem::Enchimento:
      return "h\xE1 bytes que deveriam ser zero";
  }
  return "";
}

std::string Mensagem(ErroImagem erro, std::size_t posicao, std::string_view detalhe) {
  std::string texto =
      "Imagem inv\xE1lida, byte " + std::to_string(posicao) + ": " + Descricao(erro);
  if (!detalhe.empty()) texto.append(" (").append(detalhe) += ')';
  return texto += '.';
}

}  // namespace

ImagemInvalida::ImagemInvalida(ErroImagem erro, std::size_t posicao, std::string_view detalhe)
    : std::runtime_error(Mensagem(erro, posicao, detalhe)), _erro(erro), _posicao(posicao) {}

ImagemInvalida::~ImagemInvalida() = default;

RegistroIlegivel::RegistroIlegivel(const char* nome)
    : std::runtime_error(std::string("O registro n\xE3o tem imagem: ") + nome +
                         " n\xE3o pode ser lido.") {}

RegistroIlegivel::~RegistroIlegivel() = default;

LeiauteDeImagem::LeiauteDeImagem(const KXRegistroInfo& info) noexcept
    : _info(&info), _impressao(Mistura(14695981039346656037U, info)) {}

ImagemInfo LeCabecalho(std::span<const std::byte> bytes) {
  if (bytes.size() < sizeof(Cabecalho)) throw ImagemInvalida(ErroImagem::Cortada, bytes.size());
  const auto cabecalho = Le<Cabecalho>(bytes.data());
  if (std::memcmp(cabecalho.Marca, kMarca, sizeof(kMarca)) != 0) {
    throw ImagemInvalida(ErroImagem::Marca, 0);
  }
  if (cabecalho.Formato != kFormato) {
    throw ImagemInvalida(ErroImagem::Formato, offsetof(Cabecalho, Formato));
  }
  ExigeOpcoes(cabecalho.Opcoes);
  constexpr std::size_t kOnde = offsetof(Cabecalho, Registro);
  const char* const nome = reinterpret_cast<const char*>(bytes.data()) + kOnde;
  const std::size_t letras = static_cast<std::size_t>(std::find(nome, nome + kNome, '\0') - nome);
  const auto* const sobra =
      std::find_if(nome + letras, nome + kNome, [](char c) { return c != 0; });
  if (letras == kNome || sobra != nome + kNome) {
    throw ImagemInvalida(ErroImagem::Enchimento, kOnde + letras);
  }
  return {{nome, letras}, cabecalho.Leiaute, cabecalho.Tamanho, cabecalho.Opcoes == kComChecksum};
}

namespace {

// All but the blocks.
void ExigeCabecalho(const LeiauteDeImagem& leiaute, std::span<const std::byte> bytes,
                    ChecksumDaImagem checksum) {
  const ImagemInfo imagem = LeCabecalho(bytes);
  if (imagem.Registro != leiaute.GetInfo().Nome) {
    throw ImagemInvalida(ErroImagem::Registro, offsetof(Cabecalho, Registro),
                         Visivel(imagem.Registro));
  }
  if (imagem.Leiaute != leiaute.GetImpressao()) {
    throw ImagemInvalida(ErroImagem::Leiaute, offsetof(Cabecalho, Leiaute), imagem.Registro);
  }
  if (imagem.Tamanho > bytes.size()) throw ImagemInvalida(ErroImagem::Cortada, bytes.size());
  if (imagem.Tamanho != bytes.size() || bytes.size() % kAlinhamento != 0) {
    throw ImagemInvalida(ErroImagem::Tamanho, offsetof(Cabecalho, Tamanho));
  }
  ExigeChecksum(Le<Cabecalho>(bytes.data()), bytes, checksum);
}

}  // namespace

std::size_t TamanhoDaImagem(const LeiauteDeImagem& leiaute, const void* registro) {
  Contador contador;
  Percurso(contador).Tudo(leiaute.GetInfo(), registro);
  return contador.Fim();
}

std::size_t EscreveImagem(const LeiauteDeImagem& leiaute, const void* registro,
                          std::span<std::byte> destino, ChecksumDaImagem checksum) {
  Copiador copiador(destino);
  const KXRegistroInfo& info = leiaute.GetInfo();
  Percurso(copiador).Tudo(info, registro);
  if (!copiador.Cabe()) throw std::length_error("A imagem n\xE3o cabe no destino.");
  Cabecalho cabecalho{};
  std::memcpy(cabecalho.Marca, kMarca, sizeof(kMarca));
  cabecalho.Formato = kFormato;
  cabecalho.Tamanho = copiador.Fim();
  cabecalho.Leiaute = leiaute.GetImpressao();
  std::memcpy(cabecalho.Registro, info.Nome, std::min(std::strlen(info.Nome), kNome - 1));
  Poe(destino.data(), cabecalho);
  if (checksum == ChecksumDaImagem::Com) {
    Poe(destino.data() + offsetof(Cabecalho, Opcoes), kComChecksum);
    Poe(destino.data() + offsetof(Cabecalho, Checksum),
        ChecksumDe(destino.first(cabecalho.Tamanho)));
  }
  return cabecalho.Tamanho;
}

void VerificaImagem(const LeiauteDeImagem& leiaute, std::span<const std::byte> bytes,
                    ChecksumDaImagem checksum) {
  ExigeCabecalho(leiaute, bytes, checksum);
  const auto* const base = reinterpret_cast<const unsigned char*>(bytes.data());
  Conferente(base, bytes.size()).Tudo(leiaute.GetInfo());
}

const void* AbreImagem(const LeiauteDeImagem& leiaute, std::span<std::byte> bytes,
                       ChecksumDaImagem checksum) {
  auto* const base = reinterpret_cast<unsigned char*>(bytes.data());
  if (reinterpret_cast<std::uintptr_t>(base) % kAlinhamento != 0) {
    throw ImagemInvalida(ErroImagem::Alinhamento, 0);
  }
  ExigeCabecalho(leiaute, bytes, checksum);
  unsigned char* const registro = base + sizeof(Cabecalho);
  Conferente conferente(base, bytes.size());
  try {
    conferente.Tudo(leiaute.GetInfo());
  } catch (const ImagemInvalida&) {
    std::size_t postos = conferente.Postos();
    TiraPonteiros(leiaute.GetInfo(), registro, 1, base, postos);
    throw;
  }
  unsigned char* const opcoes = base + offsetof(Cabecalho, Opcoes);
  Poe(opcoes, static_cast<std::uint16_t>(Le<std::uint16_t>(opcoes) | kAberta));
  return registro;
}

}  // namespace kx
