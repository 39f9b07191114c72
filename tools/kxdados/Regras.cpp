#include "Regras.h"

#include <utility>

#include "kxldados/ChaveNFe.h"
#include "kxldados/Latin1.h"

namespace kxdados {

namespace {

using No = pugi::xml_node;
using Parcela = CKXDadosCM_Parcela;

constexpr RegraTexto<Parcela> kParcela[] = {
    {"nDup", "NumeroDocumento", &Parcela::SetNumeroDocumento, &Parcela::GetNumeroDocumento},
};

// Places are told of wrong keys alone: a document may hold thousands.
_KX_NFE_ps LeChave(const std::string& texto, auto lugar, Documento& documento) {
  _KX_NFE_ps chave{};
  const kx::ErroChave erro = kx::ChaveDeTexto(texto, chave);
  if (erro != kx::ErroChave::Nenhum) {
    documento.Chaves.emplace_back(lugar(), kx::LinhaDeLatin1(kx::MensagemErroChave(erro)));
  }
  return chave;
}

}  // namespace

void AvisaCorte(Documento& documento, No pai, const char* elemento, const char* campo,
                int caracteres, int couberam) {
  documento.Avisos.push_back(
      "cortado: " + std::string(campo) + ": " + documento.Lugares.De(pai, elemento) + " tem " +
      std::to_string(caracteres) + " caracteres, couberam " + std::to_string(couberam));
}

CString Observacao(No pai, const char* elemento, const char* campo, Documento& documento) {
  constexpr int kMaximo = 7000;
  CString texto = Texto(pai, elemento);
  if (texto.GetLength() <= kMaximo) return texto;
  AvisaCorte(documento, pai, elemento, campo, texto.GetLength(), kMaximo);
  return texto.Left(kMaximo);
}

_KX_NFE_ps LeChave(No no, Documento& documento) {
  return LeChave(
      Valor(no), [&] { return documento.Lugares.De(no); }, documento);
}

_KX_NFE_ps LeChavePropria(No inf, const char* prefixo, const char* protocolo,
                          Documento& documento) {
  std::string texto = inf.attribute("Id").value();
  const No doProtocolo = Desce(inf.parent().parent(), protocolo);
  if (texto.empty() && doProtocolo) return LeChave(doProtocolo, documento);
  const std::string_view inicio(prefixo);
  if (texto.starts_with(inicio)) texto.erase(0, inicio.size());
  return LeChave(
      texto, [inf] { return std::string(NomeLocal(inf)) + "/@Id"; }, documento);
}

CString TextoDeNumero(int valor) {
  CString texto;
  texto.Format("%d", valor);
  return texto;
}

void ImportaEmitente(No inf, Documento& documento) {
  documento.Emitente = kx::LinhaDeLatin1(TextoExigido(Exige(inf, "emit"), "xNome").Vista());
}

void ImportaParcelas(No cobr, CKXDadosCM_CondicaoPagamento& condicao, Documento& documento) {
  for (const No dup : Filhos(cobr, "dup")) {
    Parcela parcela;
    parcela.SetRegDataVencimento(Data(dup, "dVenc")).SetValor(Dinheiro(dup, "vDup"));
    Aplica(kParcela, dup, parcela, documento);
    condicao.AdicionaParcela(std::move(parcela));
  }
  ExigeQueCaiba(condicao.GetListaParcela(), "cobr/dup");
}

}  // namespace kxdados
