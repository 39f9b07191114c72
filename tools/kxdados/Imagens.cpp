#include "Imagens.h"

#include <algorithm>
#include <istream>
#include <map>

#include "Arquivo.h"
#include "Falha.h"
#include "Resumo.h"
#include "compras/KXDadosCompras.h"
#include "kxldados/Latin1.h"

namespace kxdados {

namespace {

constexpr std::size_t kMaximo = std::size_t{1} << 30;

Falha Invalida(const kx::ImagemInvalida& erro) { return {"imagem", kx::UTF8DeLatin1(erro.what())}; }

class FonteDeImagens : public Fonte {
 public:
  FonteDeImagens(const std::string& caminho, const Filtro& filtro)
      : _filtro(filtro), _entrada(AbreArquivo(caminho)) {
    if (_entrada->peek() == std::istream::traits_type::eof()) {
      throw _entrada->bad() ? Falha("arquivo", "não pode ser lido")
                            : Falha("imagem", "o arquivo está vazio");
    }
  }

  std::optional<Lido> Proximo() override {
    while (LeUma()) {
      const Lido lido = AbreLido(_bytes, false);
      if (_filtro.Aceita(ResumoDe(*lido.Info, lido.Registro))) return lido;
    }
    return {};
  }

 private:
  // Where no header is, nothing tells where the next image would begin.
  bool LeUma() try {
    _bytes.clear();
    if (!Mais(kx::kCabecalhoDaImagem)) return false;
    const std::size_t tamanho = kx::LeCabecalho(_bytes).Tamanho;
    if (tamanho > kMaximo) throw Falha("imagem", "diz ter mais de 1 GiB");
    Mais(std::max(tamanho, kx::kCabecalhoDaImagem) - kx::kCabecalhoDaImagem);
    return true;
  } catch (const kx::ImagemInvalida& erro) {
    _acabou = true;
    throw Invalida(erro);
  } catch (const Falha&) {
    _acabou = true;
    throw;
  }

  // Up to so many more bytes, in pieces: what a header says is not yet believed.
  bool Mais(std::size_t quantos) {
    constexpr std::size_t kPedaco = std::size_t{1} << 20;
    const std::size_t antes = _bytes.size();
    while (!_acabou && quantos > 0) {
      const std::size_t pedaco = std::min(quantos, kPedaco);
      const std::size_t fim = _bytes.size();
      _bytes.resize(fim + pedaco);
      _entrada->read(reinterpret_cast<char*>(_bytes.data() + fim),
                     static_cast<std::streamsize>(pedaco));
      const auto lidos = static_cast<std::size_t>(_entrada->gcount());
      _bytes.resize(fim + lidos);
      quantos -= lidos;
      _acabou = lidos < pedaco;
    }
    if (_entrada->bad()) throw Falha("arquivo", "não pode ser lido");
    return _bytes.size() > antes;
  }

  const Filtro _filtro;
  const std::unique_ptr<std::istream, FechaEntrada> _entrada;
  std::vector<std::byte> _bytes;
  bool _acabou = false;
};

}  // namespace

const kx::LeiauteDeImagem& LeiauteDe(const KXRegistroInfo& info) {
  static std::map<const KXRegistroInfo*, kx::LeiauteDeImagem> leiautes;
  return leiautes.try_emplace(&info, info).first->second;
}

Lido AbreLido(std::span<std::byte> bytes, bool exigeChecksum) try {
  const kx::ImagemInfo imagem = kx::LeCabecalho(bytes);
  const std::string nome(imagem.Registro);
  const KXRegistroInfo* const info = KXProcuraRegistro(nome);
  if (info == nullptr) throw Falha("imagem", "não há registro com esse nome: " + nome);
  const auto checksum =
      exigeChecksum || imagem.ComChecksum ? kx::ChecksumDaImagem::Com : kx::ChecksumDaImagem::Sem;
  return {info, kx::AbreImagem(LeiauteDe(*info), bytes, checksum)};
} catch (const kx::ImagemInvalida& erro) {
  throw Invalida(erro);
}

std::vector<std::byte> ImagemDe(const Lido& lido) {
  const kx::LeiauteDeImagem& leiaute = LeiauteDe(*lido.Info);
  std::vector<std::byte> bytes(kx::TamanhoDaImagem(leiaute, lido.Registro));
  kx::EscreveImagem(leiaute, lido.Registro, bytes);
  return bytes;
}

std::unique_ptr<Fonte> AbreImagens(const std::string& caminho, const Filtro& filtro) {
  return std::make_unique<FonteDeImagens>(caminho, filtro);
}

}  // namespace kxdados
