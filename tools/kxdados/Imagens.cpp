#include "Imagens.h"

#include <algorithm>
#include <iostream>
#include <span>

#include "Arquivo.h"
#include "Classes.h"
#include "Falha.h"
#include "Json.h"
#include "compras/KXDadosCompras.h"
#include "core/Imagem.h"
#include "kxldados/Latin1.h"

namespace kxdados {

namespace {

constexpr std::uint64_t kMaximoMiB = 1024;

void Erro(const std::string& origem, const Falha& falha) {
  std::cout.flush();
  std::cerr << origem << ": " << falha.Elemento() << ": " << falha.what() << '\n';
}

struct Documento {
  const KXRegistroInfo* Info;
  const void* Registro;
};

// The images of a file, which must outlive what is opened in it.
class Imagens {
 public:
  explicit Imagens(const std::string& caminho)
      : Origem(caminho == "-" ? kEntradaPadrao : caminho),
        _bytes(LeArquivo(caminho, kMaximoMiB, "")),
        _resto(std::as_writable_bytes(std::span(_bytes))) {
    if (_resto.empty()) throw Falha("imagem", "o arquivo está vazio");
  }

  const std::string Origem;

  bool Acabou() const { return _resto.empty(); }

  // The next one. Throws Falha, where there is no header as to all that follows.
  Documento Abre() try {
    const kx::ImagemInfo imagem = kx::LeCabecalho(_resto);
    const std::string nome(imagem.Registro);
    const std::size_t tamanho = std::clamp(imagem.Tamanho, kx::kCabecalhoDaImagem, _resto.size());
    const std::span<std::byte> bytes = _resto.first(tamanho);
    _resto = _resto.subspan(tamanho);
    const KXRegistroInfo* const info = KXProcuraRegistro(nome);
    if (info == nullptr) throw Falha("imagem", "não há registro com esse nome: " + nome);
    const auto checksum =
        imagem.ComChecksum ? kx::ChecksumDaImagem::Com : kx::ChecksumDaImagem::Sem;
    return {info, kx::AbreImagem(kx::LeiauteDeImagem(*info), bytes, checksum)};
  } catch (const kx::ImagemInvalida& erro) {
    const bool semCabecalho = erro.GetErro() == kx::ErroImagem::Marca ||
                              erro.GetErro() == kx::ErroImagem::Formato ||
                              erro.GetErro() == kx::ErroImagem::Aberta;
    if (semCabecalho || _resto.size() < kx::kCabecalhoDaImagem) _resto = {};
    throw Falha("imagem", kx::UTF8DeLatin1(erro.what()));
  }

 private:
  std::string _bytes;
  std::span<std::byte> _resto;
};

void MostraUm(const Documento& documento, bool json) {
  const Classe* const classe = ClasseDe(*documento.Info);
  if (json || classe == nullptr) {
    std::cout << JsonDeRegistro(*documento.Info, documento.Registro, json ? -1 : 2) << '\n';
  } else {
    std::cout << documento.Info->Nome << '\n' << classe->Descreve(documento.Registro) << '\n';
  }
}

// Whether all of them were shown.
bool MostraArquivo(const std::string& caminho, bool json) try {
  Imagens imagens(caminho);
  bool todas = true;
  while (!imagens.Acabou()) try {
      MostraUm(imagens.Abre(), json);
    } catch (const Falha& falha) {
      Erro(imagens.Origem, falha);
      todas = false;
    }
  return todas;
} catch (const Falha& falha) {
  Erro(caminho == "-" ? kEntradaPadrao : caminho, falha);
  return false;
}

Documento AbreSo(Imagens& imagens) {
  const Documento documento = imagens.Abre();
  if (!imagens.Acabou()) throw Falha("arquivo", "tem mais do que uma imagem");
  return documento;
}

}  // namespace

int Mostra(const OpcoesImagens& opcoes) {
  bool todas = true;
  if (opcoes.Caminhos.empty()) todas = MostraArquivo("-", opcoes.Json);
  for (const std::string& caminho : opcoes.Caminhos) {
    todas = MostraArquivo(caminho, opcoes.Json) && todas;
  }
  return todas ? 0 : 1;
}

int Compara(const OpcoesImagens& opcoes) {
  constexpr int kImpossivel = 2;
  std::string origem = opcoes.Caminhos.front();
  try {
    Imagens antes(opcoes.Caminhos.front());
    const Documento a = AbreSo(antes);
    origem = opcoes.Caminhos.back();
    Imagens depois(opcoes.Caminhos.back());
    const Documento b = AbreSo(depois);
    if (a.Info != b.Info) {
      throw Falha("imagem", std::string("é de ") + b.Info->Nome + ", e não de " + a.Info->Nome);
    }
    const Classe* const classe = ClasseDe(*a.Info);
    if (classe == nullptr) throw Falha("imagem", "nenhuma classe guarda esse registro");
    const auto diferencas = classe->Diferencas(a.Registro, b.Registro);
    for (const kx::Diferenca& diferenca : diferencas) {
      opcoes.Json ? std::cout << JsonDeDiferenca(diferenca) << '\n'
                  : std::cout << diferenca << '\n';
    }
    const auto vista = [](const kx::Diferenca& diferenca) { return diferenca.Comparado; };
    return std::any_of(diferencas.begin(), diferencas.end(), vista) ? 1 : 0;
  } catch (const Falha& falha) {
    Erro(origem, falha);
    return kImpossivel;
  }
}

}  // namespace kxdados
