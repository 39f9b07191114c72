#include "Relatorio.h"

#include <iomanip>
#include <ostream>
#include <sstream>

#include "Totais.h"
#include "kxldados/ChaveNFe.h"
#include "kxldados/Datas.h"
#include "kxldados/Latin1.h"

namespace kxdados {

namespace {

using Entrada = CKXDadosCM_RERegistroEntrada;

std::string Contado(long long quantos, const char* um, const char* varios) {
  return std::to_string(quantos) + " " + (quantos == 1 ? um : varios);
}

std::string Contado(std::size_t quantos, const char* um, const char* varios) {
  return Contado(static_cast<long long>(quantos), um, varios);
}

std::ostream& Rotulo(std::ostream& saida, const char* nome) {
  constexpr int kLargura = 11;
  return saida << "  " << std::left << std::setw(kLargura) << nome;
}

long long QuantidadeDeLinhasDeEstoque(const Entrada& entrada) {
  long long linhas = 0;
  for (const auto& item : entrada.GetListaProduto()) linhas += item.GetQuantidadeEntradaEstoque();
  return linhas;
}

void EscreveConteudo(std::ostream& saida, const Entrada& entrada) {
  Rotulo(saida, "conteúdo")
      << " " << Contado(entrada.GetQuantidadeProduto(), "produto", "produtos") << ", "
      << Contado(entrada.GetQuantidadeServico(), "serviço", "serviços") << ", "
      << Contado(QuantidadeDeLinhasDeEstoque(entrada), "entrada de estoque", "entradas de estoque")
      << ", " << Contado(entrada.GetQuantidadeReferidas(), "nota referida", "notas referidas")
      << ", " << entrada.GetQuantidadeObservacoesCFOP() << " obs. de CFOP, "
      << Contado(entrada.GetCondicaoPagamento().GetNumeroParcelas(), "parcela", "parcelas") << '\n';
}

void EscreveTotal(std::ostream& saida, const Total& total) {
  constexpr int kNome = 13;
  constexpr int kValor = 24;
  saida << "    " << std::left << std::setw(kNome) << total.Elemento << std::right
        << std::setw(kValor) << kx::TextoDeDinheiro(total.Calculado)
        << (total.Calculado == total.Declarado ? " = " : " ≠ ") << std::setw(kValor)
        << kx::TextoDeDinheiro(total.Declarado);
  if (total.Calculado != total.Declarado) {
    saida << "  difere em " << kx::TextoDeDinheiro(total.Calculado - total.Declarado);
  }
  saida << '\n';
}

void EscreveTotais(std::ostream& saida, const std::vector<Total>& totais, const char* onde) {
  if (totais.empty()) return;
  Rotulo(saida, "totais") << "calculado = declarado " << onde << '\n';
  for (const Total& total : totais) EscreveTotal(saida, total);
}

void EscreveTotais(std::ostream& saida, const Nota& nota) {
  EscreveTotais(saida, ComparaTotais(nota), "na nota");
  if (nota.ForaDoTotal != CY{}) {
    saida << "    (itens fora do total da nota: " << kx::TextoDeDinheiro(nota.ForaDoTotal) << ")\n";
  }
}

void EscreveRegistro(std::ostream& saida, const Viagem& viagem) {
  std::ostringstream checksum;
  checksum.exceptions(std::ios::badbit);
  checksum << std::uppercase << std::hex << std::setfill('0') << std::setw(8) << viagem.Checksum;
  Rotulo(saida, "registro") << viagem.Registro.Bytes << " bytes, em "
                            << Contado(viagem.Registro.Listas, "lista", "listas") << " e "
                            << Contado(viagem.Registro.Textos, "texto", "textos") << "; checksum 0x"
                            << checksum.str() << '\n';
  Rotulo(saida, "volta") << (viagem.Igual ? "ida e volta: igual" : "ida e volta: DIFERENTE")
                         << "; memória liberada\n";
}

void EscreveFim(std::ostream& saida, const Documento& documento, const Viagem& viagem) {
  for (const std::string& aviso : documento.Avisos) saida << "  " << aviso << '\n';
  EscreveRegistro(saida, viagem);
  if (!viagem.Campos.empty()) saida << "  campos\n" << viagem.Campos;
}

// Each line below the headings of the report.
std::string Recuado(std::string_view linhas) {
  std::string recuado;
  while (!linhas.empty()) {
    const std::size_t fim = linhas.find('\n') + 1;
    recuado.append(4, ' ').append(linhas.substr(0, fim));
    linhas.remove_prefix(fim);
  }
  return recuado;
}

void EscreveChave(std::ostream& saida, const _KX_NFE_ps& chave) {
  const std::string texto = kx::TextoDeChave(chave);
  Rotulo(saida, "chave") << (texto.empty() ? "(nenhuma)" : texto) << '\n';
}

}  // namespace

template <class Objeto>
Viagem Viaja(const Objeto& objeto, bool comCampos) {
  kx::RegistroDe ida(objeto);
  Objeto volta;
  volta.CopiarDe(ida.GetPtr());

  Viagem viagem;
  viagem.Igual = volta == objeto;
  unsigned long inicio = 0;
  viagem.Checksum = static_cast<std::uint32_t>(objeto.CalculaCRC(&inicio));
  viagem.Registro = MedeRegistro(*ida);
  if (comCampos) viagem.Campos = Recuado(kx::Descreve(objeto));
  return viagem;
}

template Viagem Viaja(const CKXDadosCM_RERegistroEntrada& objeto, bool comCampos);
template Viagem Viaja(const CKXDadosCM_CTConhecimentoTransporte& objeto, bool comCampos);

void EscreveRelatorio(std::ostream& saida, const std::string& origem, const Nota& nota,
                      const Viagem& viagem) {
  const Entrada& entrada = nota.Entrada;
  saida << origem << ": nota " << kx::LinhaDeLatin1(entrada.GetNumeroNotaFiscal()) << ", série "
        << kx::LinhaDeLatin1(entrada.GetSerieNotaFiscal()) << ", emitida em "
        << kx::TextoDeData(entrada.GetRegDataEmissao()) << '\n';
  EscreveChave(saida, entrada.GetRegNFe());
  Rotulo(saida, "emitente") << nota.Emitente << '\n';
  EscreveConteudo(saida, entrada);
  EscreveTotais(saida, nota);
  EscreveFim(saida, nota, viagem);
}

void EscreveRelatorio(std::ostream& saida, const std::string& origem,
                      const Conhecimento& conhecimento, const Viagem& viagem) {
  const auto& objeto = conhecimento.Objeto;
  saida << origem << ": conhecimento "
        << kx::LinhaDeLatin1(objeto.GetNumeroConhecimentoTransporte()) << ", série "
        << kx::LinhaDeLatin1(objeto.GetSerieConhecimentoTransporte()) << ", emitido em "
        << kx::TextoDeData(objeto.GetRegDataEmissao()) << '\n';
  EscreveChave(saida, objeto.GetRegCTe());
  Rotulo(saida, "emitente") << conhecimento.Emitente << '\n';
  Rotulo(saida, "valor") << kx::TextoDeDinheiro(objeto.GetValorTotalCTe()) << ", a receber "
                         << kx::TextoDeDinheiro(objeto.GetValorConhecimentoTransporteLiquido())
                         << '\n';
  Rotulo(saida, "conteúdo") << " "
                            << Contado(objeto.GetQuantidadeNotaFiscal(), "nota transportada",
                                       "notas transportadas")
                            << ", "
                            << Contado(objeto.GetCondicaoPagamento().GetNumeroParcelas(), "parcela",
                                       "parcelas")
                            << '\n';
  EscreveTotais(saida, conhecimento.Totais, "no conhecimento");
  EscreveFim(saida, conhecimento, viagem);
}

}  // namespace kxdados
