#include "tests/apoio/RegistroAleatorio.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

namespace apoio {

namespace {

const KXCampo& CampoDe(const KXRegistroInfo& info, const std::string& nome) {
  for (const KXCampo& campo : info.Campos) {
    if (nome == campo.Nome) return campo;
  }
  throw std::out_of_range("sem campo " + nome);
}

const KXCampo& TamanhoDe(const KXRegistroInfo& info, const KXCampo& corrido) {
  return CampoDe(info, std::string("Tamanho") + (corrido.Nome + std::strlen("Texto")));
}

bool EhTextoSolto(const KXCampo& campo) {
  return campo.Papel == KXPapel::Corrido || campo.Papel == KXPapel::Terminado;
}

bool DiferemTextos(const char* a, const char* b, std::size_t tamanho) {
  if (a == nullptr || b == nullptr) return a != b;
  return std::memcmp(a, b, tamanho) != 0;
}

// Fills a record and, beside it, the one that must come back of it.
class Montador {
  struct TextoRecebido {
    char* Texto;
    std::size_t Tamanho;
    std::string Lido;
    bool Ilegivel = false;
  };

 public:
  Montador(Bytes& bytes, kx::Alocador alocador, std::vector<unsigned char*>* ilegiveis)
      : _bytes(bytes),
        _alocador(alocador),
        _comErros(ilegiveis != nullptr),
        _ilegiveis(ilegiveis) {}

  void Preenche(const KXRegistroInfo& info, unsigned char* recebido, unsigned char* esperado) {
    Conteudo(info, recebido);
    std::memcpy(esperado, recebido, info.Tamanho);
    ZeraOQueNaoViaja(info, esperado);
    for (const KXCampo& campo : info.Campos) {
      if (campo.Papel == KXPapel::Lista) {
        Lista(campo, ContaDe(info, campo).Posicao, recebido, esperado);
      } else if (campo.Papel == KXPapel::Contado) {
        TextoComTamanho<std::uint32_t>(campo.Posicao + offsetof(KXStringPS, Texto),
                                       campo.Posicao + offsetof(KXStringPS, Tamanho), recebido,
                                       esperado);
      } else if (campo.Papel == KXPapel::Corrido) {
        TextoComTamanho<std::uint16_t>(campo.Posicao, TamanhoDe(info, campo).Posicao, recebido,
                                       esperado);
      } else if (campo.Papel == KXPapel::Terminado) {
        TextoTerminado(campo.Posicao, recebido, esperado);
      }
    }
  }

  // The bytes themselves; of a careless sender also zeros or garbage, and then a few bytes in
  // places of their own.
  void Conteudo(const KXRegistroInfo& info, unsigned char* registro) {
    const unsigned modo = Modo(7);
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
    if (_comErros) return;
    ZeraOQueNaoViaja(info, registro);
    for (const KXCampo& campo : info.Campos) {
      if (!EhTextoFixo(campo)) continue;
      const std::string texto = Caracteres(campo.Largura - 1U);
      std::memset(registro + campo.Posicao, 0, campo.Largura);
      std::copy(texto.begin(), texto.end(), registro + campo.Posicao);
    }
  }

  void Lista(const KXCampo& campo, std::uint16_t conta, unsigned char* recebido,
             unsigned char* esperado) {
    const unsigned modo = Modo(7);
    const auto quantos = static_cast<std::uint16_t>(_comErros ? std::min(_bytes.Ate(3), _restam)
                                                              : 1 + _bytes.Ate(1));
    if (_comErros) _restam -= quantos;
    const bool semArray = modo == 5;
    const bool semConta = modo == 6;
    const bool ilegivel = modo == 7 && quantos > 0 && CabeIlegivel();
    const std::uint16_t esperados = semArray || semConta || ilegivel ? std::uint16_t{0} : quantos;

    unsigned char* const origem = semArray || quantos == 0 ? nullptr : Array(campo, quantos);
    unsigned char* const copia = esperados == 0 ? nullptr : Array(campo, esperados);
    Poe(recebido + campo.Posicao, origem);
    Poe(recebido + conta, semConta ? std::uint16_t{0} : quantos);
    Poe(esperado + campo.Posicao, copia);
    Poe(esperado + conta, esperados);
    for (std::size_t i = 0; i < esperados; ++i) {
      const std::size_t posicao = i * campo.Elemento->Tamanho;
      Preenche(*campo.Elemento, origem + posicao, copia + posicao);
    }
    if (ilegivel) TornaIlegivel(recebido + campo.Posicao, origem);
  }

  unsigned char* Array(const KXCampo& campo, std::size_t quantos) const {
    const std::size_t tamanho = quantos * campo.Elemento->Tamanho;
    auto* const array = kx::AlocaArray<unsigned char>(_alocador, tamanho);
    std::memset(array, 0, tamanho);
    return array;
  }

  // Each costs a fault, thousands of times as long as anything else here.
  void TornaIlegivel(unsigned char* ponteiro, void* antes) {
    kx::LiberaArray(_alocador, static_cast<char*>(antes));
    Poe(ponteiro, Ilegivel());
    _ilegiveis->push_back(ponteiro);
  }

  // Of a careless sender, terminators too.
  std::string Caracteres(std::size_t maximo) {
    if (_comErros) return _bytes.Texto(maximo);
    std::string texto(_bytes.Valor<std::uint16_t>() % (maximo + 1), '\0');
    for (char& c : texto) c = static_cast<char>(1 + _bytes.Ate(254));
    return texto;
  }

  TextoRecebido Texto(bool semTamanho) {
    const unsigned modo = Modo(9);
    const std::string texto = Caracteres(40);
    const std::string lido = texto.c_str();
    if (!_comErros && texto.empty()) return {nullptr, 0, ""};
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

 private:
  unsigned Modo(unsigned ate) { return _comErros ? _bytes.Ate(ate) : 0; }
  bool CabeIlegivel() const { return _ilegiveis->size() < 2; }

  Bytes& _bytes;
  kx::Alocador _alocador;
  bool _comErros;
  unsigned _restam = 24;  // elements of a careless sender, so that a short input is a short run
  std::vector<unsigned char*>* _ilegiveis;
};

}  // namespace

const KXCampo& ContaDe(const KXRegistroInfo& info, const KXCampo& lista) {
  return CampoDe(info, std::string("Qtd") + (lista.Nome + std::strlen("Lista")));
}

void ZeraOQueNaoViaja(const KXRegistroInfo& info, unsigned char* registro) {
  const bool deTexto = info.Nome == std::string("tagREG_FATURA_CONHECIMENTOPS");
  for (const KXCampo& campo : info.Campos) {
    unsigned char* const fim = registro + campo.Posicao + campo.Largura;
    unsigned char* inicio = fim;
    if (campo.Papel == KXPapel::Zero) inicio = registro + campo.Posicao;
    if (campo.Tipo == KXTipoCampo::DataHora32) inicio = fim - campo.Largura + sizeof(REG_KXDMA);
    // The freight bill's installment alone takes its text as a text.
    if (deTexto && EhTextoFixo(campo)) inicio = std::find(fim - campo.Largura, fim - 1, '\0');
    std::fill(inicio, fim, std::uint8_t{0});
  }
}

std::string Diferenca(const KXRegistroInfo& info, const void* a, const void* b) {
  const auto* bytesA = static_cast<const unsigned char*>(a);
  const auto* bytesB = static_cast<const unsigned char*>(b);
  for (const KXCampo& campo : info.Campos) {
    const unsigned char* campoA = bytesA + campo.Posicao;
    const unsigned char* campoB = bytesB + campo.Posicao;
    std::string onde = std::string(info.Nome) + "." + campo.Nome;
    if (campo.Papel == KXPapel::Lista) {
      const auto quantos = Lido<std::uint16_t>(bytesA + ContaDe(info, campo).Posicao);
      const auto* arrayA = Lido<const unsigned char*>(campoA);
      const auto* arrayB = Lido<const unsigned char*>(campoB);
      if ((arrayA == nullptr) != (arrayB == nullptr)) return onde;
      for (std::size_t i = 0; i < quantos; ++i) {
        const std::size_t posicao = i * campo.Elemento->Tamanho;
        const std::string dentro = Diferenca(*campo.Elemento, arrayA + posicao, arrayB + posicao);
        if (!dentro.empty()) return onde.append(" / ").append(dentro);
      }
    } else if (campo.Papel == KXPapel::Contado) {
      const auto textoA = Lido<KXStringPS>(campoA);
      const auto textoB = Lido<KXStringPS>(campoB);
      if (textoA.Tamanho != textoB.Tamanho) return onde;
      if (DiferemTextos(textoA.Texto, textoB.Texto, textoA.Tamanho)) return onde;
    } else if (EhTextoSolto(campo)) {
      const auto* textoA = Lido<const char*>(campoA);
      const std::size_t tamanho = textoA == nullptr ? 0 : std::strlen(textoA) + 1;
      if (DiferemTextos(textoA, Lido<const char*>(campoB), tamanho)) return onde;
    } else if (std::memcmp(campoA, campoB, campo.Largura) != 0) {
      return onde;
    }
  }
  return {};
}

std::string OQueFicou(const KXRegistroInfo& info, const void* registro) {
  for (const KXCampo& campo : info.Campos) {
    if (campo.Papel < KXPapel::Contado) continue;  // the roles after it own memory or measure it
    const auto* inicio = static_cast<const unsigned char*>(registro) + campo.Posicao;
    if (std::any_of(inicio, inicio + campo.Largura, [](unsigned char c) { return c != 0; })) {
      return campo.Nome;
    }
  }
  return {};
}

void Libera(const KXRegistroInfo& info, unsigned char* registro, kx::Alocador alocador) {
  for (const KXCampo& campo : info.Campos) {
    unsigned char* const ponteiro = PonteiroDe(campo, registro);
    if (ponteiro == nullptr) continue;
    auto* const bloco = Lido<unsigned char*>(ponteiro);
    if (campo.Papel == KXPapel::Lista && bloco != nullptr) {
      const auto quantos = Lido<std::uint16_t>(registro + ContaDe(info, campo).Posicao);
      for (std::size_t i = 0; i < quantos; ++i) {
        Libera(*campo.Elemento, bloco + i * campo.Elemento->Tamanho, alocador);
      }
    }
    kx::LiberaArray(alocador, bloco);
    Poe<char*>(ponteiro, nullptr);
  }
}

Registro::Registro(const KXRegistroInfo& info, unsigned semente, bool comCancelamentos,
                   kx::Alocador alocador)
    : Registro(info, alocador) {
  apoio::Bytes bytes(semente);
  Registro semUso(info, alocador);
  Montador(bytes, alocador, nullptr).Preenche(info, Bytes(), semUso.Bytes());
  if (!comCancelamentos) TiraOQueSoSeRecebe();
}

Registro::Registro(const KXRegistroInfo& info, apoio::Bytes& bytes, Registro& esperado)
    : Registro(info, esperado.De()) {
  Montador(bytes, _alocador, &_ilegiveis).Preenche(info, Bytes(), esperado.Bytes());
  esperado.TiraOQueSoSeRecebe();
}

Registro::~Registro() {
  EsqueceOsIlegiveis();
  Libera(_info, Bytes(), _alocador);
}

void Registro::EsqueceOsIlegiveis() {
  for (unsigned char* ponteiro : _ilegiveis) Poe<void*>(ponteiro, nullptr);
  _ilegiveis.clear();
}

// An order's cancellations.
void Registro::TiraOQueSoSeRecebe() {
  for (const KXCampo& campo : _info.Campos) {
    if (campo.Nome != std::string("ListaCancelamento")) continue;
    kx::LiberaArray(_alocador, Lido<char*>(Bytes() + campo.Posicao));
    Poe<char*>(Bytes() + campo.Posicao, nullptr);
    Poe(Bytes() + ContaDe(_info, campo).Posicao, std::uint16_t{0});
  }
}

}  // namespace apoio
