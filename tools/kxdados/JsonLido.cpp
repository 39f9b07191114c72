#include "JsonLido.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <deque>
#include <limits>
#include <nlohmann/json.hpp>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Falha.h"
#include "FormasJson.h"
#include "compras/KXDadosCompras.h"
#include "kxldados/ChaveNFe.h"
#include "kxldados/Datas.h"
#include "kxldados/Dinheiro.h"
#include "kxldados/Latin1.h"

namespace kxdados {

namespace {

using Json = nlohmann::json;

constexpr char kLinha[] = "linha";

// Words of the document, for a message on one line: without control characters, and not too many.
std::string Visivel(std::string_view texto) {
  constexpr std::size_t kMaximo = 60;
  const auto continua = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
  std::size_t fim = std::min(texto.size(), kMaximo);
  while (fim < texto.size() && fim > 0 && continua(texto[fim])) --fim;
  std::string visivel(texto.substr(0, fim));
  for (char& c : visivel) {
    if (static_cast<unsigned char>(c) < ' ' || c == '\x7F') c = '?';
  }
  return fim < texto.size() ? visivel + "..." : visivel;
}

std::string EntreAspas(std::string_view texto) { return '"' + Visivel(texto) + '"'; }

struct Nomes;

// A member that an object may have.
struct Nome {
  const char* Texto;
  KXTipoCampo Tipo;
  std::uint16_t Posicao;
  std::uint16_t Largura;
  const KXPendente* Pendente;  // null of a value
  const Nomes* Dentro;         // of the elements of a list, of the members of an object
  bool Conta = false;          // it is the count of a list too
};

// All of them, in the order in which they are written.
struct Nomes {
  std::uint32_t Tamanho;
  std::vector<Nome> Lista;
  std::unordered_map<std::string_view, std::size_t> Posicoes;

  void Acrescenta(const Nome& nome) {
    Posicoes.emplace(nome.Texto, Lista.size());
    Lista.push_back(nome);
  }
  // Its place, if there is one; looked for at the one that is expected first.
  std::size_t Procura(std::string_view nome, std::size_t esperado) const {
    if (esperado < Lista.size() && nome == Lista[esperado].Texto) return esperado;
    const auto achado = Posicoes.find(nome);
    return achado == Posicoes.end() ? Lista.size() : achado->second;
  }
};

Nomes NomesDosMembros(KXTipoCampo tipo) {
  Nomes nomes{};
  for (const KXCampo& membro : MembrosDe(tipo)) {
    nomes.Acrescenta({membro.Nome, membro.Tipo, membro.Posicao, membro.Largura, nullptr, nullptr});
  }
  return nomes;
}

const Nomes* Dentro(KXTipoCampo tipo) {
  static const Nomes chave = NomesDosMembros(KXTipoCampo::ChaveDocumento);
  static const Nomes posicao = NomesDosMembros(KXTipoCampo::PosicaoProduto);
  if (tipo == KXTipoCampo::ChaveDocumento) return &chave;
  return tipo == KXTipoCampo::PosicaoProduto ? &posicao : nullptr;
}

using NomesPorRegistro = std::unordered_map<const KXRegistroInfo*, Nomes>;

bool EhConta(const KXRegistroInfo& info, const KXCampo& campo) {
  return std::any_of(info.Pendentes.begin(), info.Pendentes.end(), [&](const KXPendente& pendente) {
    return pendente.Papel == KXPapel::Lista && pendente.Medida == campo.Posicao;
  });
}

const Nomes& Acrescenta(NomesPorRegistro& todos, const KXRegistroInfo& info) {
  const auto [lugar, novo] = todos.try_emplace(&info);
  Nomes& nomes = lugar->second;  // stays where it is
  if (!novo) return nomes;
  nomes.Tamanho = info.Tamanho;
  for (const KXCampo& campo : info.Campos) {
    if (!EhValor(campo.Papel)) continue;
    nomes.Acrescenta({campo.Nome, campo.Tipo, campo.Posicao, campo.Largura, nullptr,
                      Dentro(campo.Tipo), EhConta(info, campo)});
  }
  for (const KXPendente& pendente : info.Pendentes) {
    if (pendente.Papel == KXPapel::Zero) continue;
    const bool lista = pendente.Papel == KXPapel::Lista;
    nomes.Acrescenta({pendente.Nome, KXTipoCampo::Ponteiro, pendente.Posicao, sizeof(void*),
                      &pendente, lista ? &Acrescenta(todos, *pendente.Elemento) : nullptr});
  }
  return nomes;
}

// Of every record, made once.
const Nomes& NomesDe(const KXRegistroInfo& info) {
  static const NomesPorRegistro todos = [] {
    NomesPorRegistro nomes;
    for (const KXRegistroInfo* cada : KXRegistros()) Acrescenta(nomes, *cada);
    return nomes;
  }();
  return todos.at(&info);
}

// What a member must be, for a message.
std::string Esperado(const Nome& nome) {
  if (nome.Pendente != nullptr) return nome.Dentro != nullptr ? "uma lista" : "um texto";
  if (nome.Dentro != nullptr) return "um objeto";
  switch (nome.Tipo) {
    case KXTipoCampo::Texto:
    case KXTipoCampo::Historico:
      return "um texto";
    case KXTipoCampo::Dinheiro:
      return "um valor entre aspas, com ponto e até quatro casas decimais";
    case KXTipoCampo::Data:
    case KXTipoCampo::DataHora32:
      return "uma data entre aspas, AAAA-MM-DD";
    case KXTipoCampo::DataHora:
      return "uma data e hora entre aspas, AAAA-MM-DDThh:mm:ssZ";
    case KXTipoCampo::ChaveNFe:
      return "uma chave de acesso entre aspas";
    case KXTipoCampo::SemSinal64:
    case KXTipoCampo::ComSinal64:
      return "um número inteiro entre aspas";
    case KXTipoCampo::Bytes:
      return "\"hex:\" e " + std::to_string(2 * nome.Largura) + " algarismos hexadecimais";
    default:
      return "um número inteiro";
  }
}

[[noreturn]] void Invalido(std::size_t posicao) {
  throw Falha(kLinha, "JSON inválido, no byte " + std::to_string(posicao));
}

// Finds the record's name, wherever it stands, and stops there.
class ProcuraRegistro {
 public:
  std::string Achado;

  bool null() { return Outro(); }
  bool boolean(bool /*valor*/) { return Outro(); }
  bool number_integer(std::int64_t /*valor*/) { return Outro(); }
  bool number_unsigned(std::uint64_t /*valor*/) { return Outro(); }
  bool number_float(double /*valor*/, const std::string& /*texto*/) { return Outro(); }
  bool binary(const Json::binary_t& /*valor*/) { return Outro(); }
  bool string(std::string& texto) {
    if (!_aqui) return Outro();
    Achado = texto;
    return false;
  }
  bool start_object(std::size_t /*quantos*/) {
    if (_fundo != 0) Outro();
    ++_fundo;
    return true;
  }
  bool start_array(std::size_t /*quantos*/) {
    Outro();
    ++_fundo;
    return true;
  }
  bool end_object() { return --_fundo, true; }
  bool end_array() { return --_fundo, true; }
  bool key(const std::string& nome) {
    _aqui = _fundo == 1 && nome == kRegistro;
    return true;
  }
  bool parse_error(std::size_t posicao, const std::string& /*texto*/,
                   const Json::exception& /*erro*/) {
    Invalido(posicao);
  }

 private:
  bool Outro() const {
    if (_fundo == 0) throw Falha(kLinha, "deve ser um objeto JSON");
    if (_aqui) throw Falha(std::string(kRegistro), "deve ser o nome de um registro, entre aspas");
    return true;
  }

  std::size_t _fundo = 0;
  bool _aqui = false;  // its value comes next
};

const KXRegistroInfo& InfoDe(std::string_view linha) {
  ProcuraRegistro procura;
  if (Json::sax_parse(linha.begin(), linha.end(), &procura)) {
    throw Falha(std::string(kRegistro), "falta o nome do registro");
  }
  const KXRegistroInfo* const info = KXProcuraRegistro(procura.Achado);
  if (info == nullptr) {
    throw Falha(std::string(kRegistro), "não há registro com o nome " + EntreAspas(procura.Achado));
  }
  return *info;
}

// Fills a record as the parser goes through the line. Goes as deep as the tables do.
class Leitor {
 public:
  explicit Leitor(const KXRegistroInfo& info)
      : _info(info),
        _memoria(std::make_unique<std::pmr::monotonic_buffer_resource>(2 * info.Tamanho)),
        _registro(Aloca(info.Tamanho)) {
    std::memset(_registro, 0, info.Tamanho);
  }

  RegistroLido Lido() { return {_info, _registro, std::move(_memoria)}; }

  bool null() { TipoErrado(); }
  bool boolean(bool /*valor*/) { TipoErrado(); }
  bool binary(const Json::binary_t& /*valor*/) { TipoErrado(); }
  bool number_integer(std::int64_t valor) { return Numero(valor); }
  bool number_unsigned(std::uint64_t valor) { return Numero(valor); }
  bool number_float(double /*valor*/, const std::string& texto) {
    if (EmLista() || Atual().Pendente != nullptr) TipoErrado();
    const bool inteiro = ComInteiro(Atual().Tipo, [](auto /*tipo*/) {});
    if (!inteiro) TipoErrado();
    Recusa(Visivel(texto) + " não é um número inteiro que caiba no campo");
  }

  bool string(const std::string& texto) {
    if (std::exchange(_nomeDoRegistro, false)) return true;
    if (EmLista()) TipoErrado();
    const Nome& nome = Atual();
    if (nome.Pendente != nullptr) {
      Pendente(nome, texto);
    } else if (texto.starts_with(kHex)) {
      Hex(nome, std::string_view(texto).substr(kHex.size()));
    } else {
      Valor(nome, texto);
    }
    return true;
  }

  bool start_object(std::size_t /*quantos*/) {
    if (_fundo == 0) {
      Abre(NomesDe(_info), _registro);
    } else if (EmLista()) {
      Quadro& dono = Topo();
      const Nomes& nomes = *Atual().Dentro;
      if (dono.Quantos == std::numeric_limits<std::uint16_t>::max()) {
        Recusa("a lista tem mais do que 65.535 elementos");
      }
      dono.Elementos.resize((dono.Quantos + 1) * nomes.Tamanho);
      char* const elemento = dono.Elementos.data() + dono.Quantos * nomes.Tamanho;
      ++dono.Quantos;
      Abre(nomes, elemento);
    } else {
      if (Atual().Pendente != nullptr || Atual().Dentro == nullptr) TipoErrado();
      Abre(*Atual().Dentro, Onde());
    }
    return true;
  }
  bool end_object() {
    Quadro& quadro = Topo();
    for (const auto& [lugar, dita] : quadro.Ditas) {
      quadro.Atual = lugar;
      char* const conta = quadro.Base + Atual().Posicao;
      if (std::memcmp(conta, dita.data(), sizeof(std::uint16_t)) != 0) {
        Recusa("não é o número de elementos da lista");
      }
      std::memcpy(conta, dita.data(), Atual().Largura);
    }
    --_fundo;
    return true;
  }

  bool key(const std::string& nome) {
    Quadro& quadro = Topo();
    if (_fundo == 1 && nome == kRegistro) {
      if (std::exchange(_temNome, true)) throw Falha(nome, "está repetido");
      _nomeDoRegistro = true;
      return true;
    }
    const std::size_t achado = quadro.Membros->Procura(nome, quadro.Proximo);
    if (achado == quadro.Membros->Lista.size()) {
      throw Falha(Caminho(nome.empty() ? EntreAspas(nome) : Visivel(nome)),
                  "não existe no registro");
    }
    quadro.Atual = achado;
    quadro.Proximo = achado + 1;
    if (quadro.Vistos[achado]) Recusa("está repetido");
    quadro.Vistos[achado] = true;
    if (Atual().Conta) quadro.Ditas.emplace_back(achado, Dita{});
    return true;
  }

  bool start_array(std::size_t /*quantos*/) {
    if (EmLista() || Atual().Pendente == nullptr || Atual().Dentro == nullptr) TipoErrado();
    Quadro& quadro = Topo();
    quadro.EmLista = true;
    quadro.Quantos = 0;
    quadro.Elementos.clear();
    return true;
  }
  bool end_array() {
    Quadro& quadro = Topo();
    quadro.EmLista = false;
    if (quadro.Quantos == 0) return true;
    Poe(Onde(), Guarda(quadro.Elementos.data(), quadro.Elementos.size()));
    Poe(quadro.Base + Atual().Pendente->Medida, static_cast<std::uint16_t>(quadro.Quantos));
    return true;
  }

  bool parse_error(std::size_t posicao, const std::string& /*texto*/,
                   const Json::exception& /*erro*/) {
    Invalido(posicao);
  }

 private:
  // What a document says of a field that is the count of a list too, which may be wider than that.
  using Dita = std::array<char, sizeof(std::uint64_t)>;

  // An object that is being read, and its list that is.
  struct Quadro {
    const Nomes* Membros = nullptr;
    char* Base = nullptr;
    std::size_t Proximo = 0;
    std::size_t Atual = 0;
    std::vector<bool> Vistos;
    std::vector<std::pair<std::size_t, Dita>> Ditas;  // compared at the end
    bool EmLista = false;
    std::size_t Quantos = 0;
    std::vector<char> Elementos;
  };

  template <class T>
  static void Poe(char* onde, T valor) {
    std::memcpy(onde, &valor, sizeof(valor));
  }

  Quadro& Topo() { return _quadros[_fundo - 1]; }
  const Quadro& Topo() const { return _quadros[_fundo - 1]; }
  bool EmLista() const { return Topo().EmLista; }
  const Nome& Atual() const { return Topo().Membros->Lista[Topo().Atual]; }
  // Of the value. A count is the list's own to set: more than there are would be read.
  char* Onde() {
    if (Atual().Conta) return Topo().Ditas.back().second.data();
    return Topo().Base + Atual().Posicao;
  }

  void Abre(const Nomes& membros, char* base) {
    if (_fundo == _quadros.size()) _quadros.emplace_back();
    Quadro& quadro = _quadros[_fundo++];
    quadro.Membros = &membros;
    quadro.Base = base;
    quadro.Proximo = 0;
    quadro.Vistos.assign(membros.Lista.size(), false);
    quadro.Ditas.clear();
  }

  char* Aloca(std::size_t bytes) { return static_cast<char*>(_memoria->allocate(bytes)); }
  char* Guarda(const char* dados, std::size_t bytes) {
    char* const copia = Aloca(bytes);
    std::memcpy(copia, dados, bytes);
    return copia;
  }

  // To the member of that name in the object that is being read.
  std::string Caminho(const std::string& nome) const {
    std::string caminho;
    for (std::size_t i = 0; i + 1 < _fundo; ++i) {
      const Quadro& quadro = _quadros[i];
      caminho += quadro.Membros->Lista[quadro.Atual].Texto;
      if (quadro.EmLista) caminho += '[' + std::to_string(quadro.Quantos - 1) + ']';
      caminho += '.';
    }
    return caminho + nome;
  }

  [[noreturn]] void Recusa(const std::string& motivo) const {
    std::string nome = Atual().Texto;
    if (EmLista()) nome += '[' + std::to_string(Topo().Quantos) + ']';
    throw Falha(Caminho(nome), motivo);
  }
  [[noreturn]] void TipoErrado() const {
    Recusa("deve ser " + (EmLista() ? "um objeto" : Esperado(Atual())));
  }
  [[noreturn]] void NaoE(std::string_view texto) const {
    Recusa(EntreAspas(texto) + " não é " + Esperado(Atual()));
  }

  template <class Lido>
  bool Numero(Lido valor) {
    if (EmLista() || Atual().Pendente != nullptr) TipoErrado();
    const bool inteiro = ComInteiro(Atual().Tipo, [&]<class T>(T /*tipo*/) {
      if (kEntreAspas<T>) TipoErrado();
      if (!std::in_range<T>(valor)) ForaDaFaixa<T>(std::to_string(valor));
      Poe(Onde(), static_cast<T>(valor));
    });
    if (!inteiro) TipoErrado();
    return true;
  }

  template <class T>
  [[noreturn]] void ForaDaFaixa(std::string_view valor) const {
    using Faixa = std::numeric_limits<T>;
    Recusa(Visivel(valor) + " está fora da faixa, de " + std::to_string(Faixa::min()) + " a " +
           std::to_string(Faixa::max()));
  }

  void Valor(const Nome& nome, std::string_view texto) {
    switch (nome.Tipo) {
      case KXTipoCampo::Texto:
      case KXTipoCampo::Historico: {
        const std::string latin1 = Latin1(texto, nome.Largura - 1U);
        std::memcpy(Onde(), latin1.data(), latin1.size());
        return;
      }
      case KXTipoCampo::Dinheiro:
        return Poe(Onde(), Dinheiro(texto));
      case KXTipoCampo::Data:
      case KXTipoCampo::DataHora32: {
        constexpr std::size_t kTamanho = 10;  // whatever follows would be dropped
        REG_KXDMA data{};
        if (texto.size() != kTamanho || !kx::DataDeISO(texto, data)) NaoE(texto);
        return Poe(Onde(), data);
      }
      case KXTipoCampo::DataHora: {
        REG_KXDMAHMSUTC dataHora{};
        const bool fracao = texto.find('.') != std::string_view::npos;
        if (fracao || !kx::DataHoraDeISO(texto, dataHora)) NaoE(texto);
        return Poe(Onde(), dataHora);
      }
      case KXTipoCampo::ChaveNFe: {
        _KX_NFE_ps chave{};
        const kx::ErroChave erro = kx::ChaveDeTexto(texto, chave);
        if (erro != kx::ErroChave::Nenhum) Recusa(kx::UTF8DeLatin1(kx::MensagemErroChave(erro)));
        return Poe(Onde(), chave);
      }
      case KXTipoCampo::SemSinal64:
        return Poe(Onde(), Inteiro64<std::uint64_t>(texto));
      case KXTipoCampo::ComSinal64:
        return Poe(Onde(), Inteiro64<std::int64_t>(texto));
      default:
        TipoErrado();
    }
  }

  template <class T>
  T Inteiro64(std::string_view texto) const {
    T valor{};
    const char* const fim = texto.data() + texto.size();
    const auto [ate, erro] = std::from_chars(texto.data(), fim, valor);
    if (erro == std::errc::invalid_argument || ate != fim) NaoE(texto);
    if (erro != std::errc()) ForaDaFaixa<T>(texto);
    return valor;
  }

  CY Dinheiro(std::string_view texto) const {
    constexpr std::size_t kCasas = 4;
    CY valor{};
    const kx::ErroDinheiro erro = kx::DinheiroDeTexto(texto, valor);
    const bool limpo = texto.find_first_not_of("+-.0123456789") == std::string_view::npos;
    const std::size_t ponto = std::min(texto.find('.'), texto.size());
    if (erro == kx::ErroDinheiro::ForaDaFaixa) {
      Recusa(Visivel(texto) + " está fora da faixa de um valor em dinheiro");
    }
    if (erro != kx::ErroDinheiro::Nenhum || !limpo) NaoE(texto);
    if (texto.size() > ponto + 1 + kCasas)
      Recusa(Visivel(texto) + " tem mais de quatro casas decimais");
    return valor;
  }

  // UTF-8, which the parser has looked at, as Latin-1.
  std::string Latin1(std::string_view utf8, std::size_t maximo) const {
    std::string latin1;
    latin1.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size(); ++i) {
      const auto byte = static_cast<unsigned char>(utf8[i]);
      if (byte == 0) Recusa("tem o caractere de código zero, que acabaria o texto");
      if (byte > 0xC3) {
        Recusa("tem um caractere que não há em Latin-1: " +
               EntreAspas(utf8.substr(i, byte < 0xE0   ? 2
                                         : byte < 0xF0 ? 3
                                                       : 4)));
      }
      const bool dois = byte >= 0x80;
      latin1 += dois ? static_cast<char>((byte & 3U) << 6U |
                                         (static_cast<unsigned char>(utf8[++i]) & 0x3FU))
                     : utf8[i];
    }
    if (latin1.size() > maximo) {
      Recusa("tem " + std::to_string(latin1.size()) + " caracteres, e no campo cabem " +
             std::to_string(maximo));
    }
    return latin1;
  }

  void Hex(const Nome& nome, std::string_view algarismos) {
    if (algarismos.size() != 2U * nome.Largura) {
      Recusa("deve ter " + std::to_string(2 * nome.Largura) + " algarismos hexadecimais, e não " +
             std::to_string(algarismos.size()));
    }
    for (std::size_t i = 0; i < nome.Largura; ++i) {
      const char* const par = algarismos.data() + 2 * i;
      std::uint8_t byte = 0;
      if (std::from_chars(par, par + 2, byte, 16).ptr != par + 2) {
        Recusa(EntreAspas({par, 2}) + " não são algarismos hexadecimais");
      }
      Poe(Onde() + i, byte);
    }
  }

  // A text that hangs from the record; an empty one is none.
  void Pendente(const Nome& nome, std::string_view texto) {
    if (nome.Dentro != nullptr) TipoErrado();
    const bool corrido = nome.Pendente->Papel == KXPapel::Corrido;
    const std::size_t maximo = corrido ? std::numeric_limits<std::uint16_t>::max() - 1U
                                       : std::numeric_limits<std::uint32_t>::max() - 1U;
    const std::string latin1 = Latin1(texto, maximo);
    if (latin1.empty()) return;
    const std::size_t tamanho = latin1.size() + 1;
    Poe(Onde(), Guarda(latin1.c_str(), tamanho));
    char* const medida = Topo().Base + nome.Pendente->Medida;
    if (corrido) Poe(medida, static_cast<std::uint16_t>(tamanho));
    if (nome.Pendente->Papel == KXPapel::Contado) Poe(medida, static_cast<std::uint32_t>(tamanho));
  }

  const KXRegistroInfo& _info;
  std::unique_ptr<std::pmr::memory_resource> _memoria;
  char* _registro;
  std::deque<Quadro> _quadros;  // those beyond the depth keep their memory
  std::size_t _fundo = 0;
  bool _temNome = false;
  bool _nomeDoRegistro = false;  // its value comes next
};

}  // namespace

RegistroLido RegistroDeJson(std::string_view linha) {
  // The parser would take it as the end.
  const std::size_t zero = linha.find('\0');
  if (zero != std::string_view::npos) Invalido(zero + 1);
  Leitor leitor(InfoDe(linha));
  Json::sax_parse(linha.begin(), linha.end(), &leitor);
  return leitor.Lido();
}

}  // namespace kxdados
