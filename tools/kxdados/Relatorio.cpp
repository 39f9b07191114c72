#include "Relatorio.h"

#include <algorithm>
#include <cstddef>
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

// Two columns, as wide as characters are seen; bytes of UTF-8 that go on with one are not counted.
std::ostream& Rotulo(std::ostream& saida, std::string_view nome) {
  constexpr std::ptrdiff_t kLargura = 11;
  const auto largura = std::count_if(nome.begin(), nome.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  });
  const auto brancos = std::max<std::ptrdiff_t>(1, kLargura - largura);
  return saida << "  " << nome << std::string(static_cast<std::size_t>(brancos), ' ');
}

long long QuantidadeDeLinhasDeEstoque(const Entrada& entrada) {
  long long linhas = 0;
  for (const auto& item : entrada.GetListaProduto()) linhas += item.GetQuantidadeEntradaEstoque();
  return linhas;
}

void EscreveTitulo(std::ostream& saida, const std::string& origem, const char* especie,
                   const Entrada& entrada) {
  saida << origem << ": " << especie << ' ' << kx::LinhaDeLatin1(entrada.GetNumeroNotaFiscal())
        << ", série " << kx::LinhaDeLatin1(entrada.GetSerieNotaFiscal()) << ", emitida em "
        << kx::TextoDeData(entrada.GetRegDataEmissao()) << '\n';
}

void EscreveConteudo(std::ostream& saida, const Entrada& entrada) {
  Rotulo(saida, "conteúdo")
      << Contado(entrada.GetQuantidadeProduto(), "produto", "produtos") << ", "
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

// Their order is that of the invoice, and the records have no name for them.
void EscreveImpostos(std::ostream& saida, const NotaDeServico& nota) {
  if (nota.Impostos.empty()) return;
  Rotulo(saida, "impostos") << "base, alíquota, valor\n";
  for (std::size_t i = 0; i < nota.Impostos.size(); ++i) {
    constexpr int kValor = 16;
    const auto& imposto = nota.Entrada.GetServico(0).GetImposto(static_cast<long long>(i));
    saida << "    " << std::right;
    for (const CY& valor : {imposto.GetBaseCalculo(), imposto.GetAliquota(), imposto.GetValor()}) {
      saida << std::setw(kValor) << kx::TextoDeDinheiro(valor);
    }
    saida << "  " << nota.Impostos[i] << (imposto.GetRetido() != 0 ? ", retido" : "") << '\n';
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

void EscreveChave(std::ostream& saida, const std::string& texto) {
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
  EscreveTitulo(saida, origem, "nota", entrada);
  EscreveChave(saida, kx::TextoDeChave(entrada.GetRegNFe()));
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
  EscreveChave(saida, kx::TextoDeChave(objeto.GetRegCTe()));
  Rotulo(saida, "emitente") << conhecimento.Emitente << '\n';
  Rotulo(saida, "valor") << kx::TextoDeDinheiro(objeto.GetValorTotalCTe()) << ", a receber "
                         << kx::TextoDeDinheiro(objeto.GetValorConhecimentoTransporteLiquido())
                         << '\n';
  Rotulo(saida, "conteúdo") << Contado(objeto.GetQuantidadeNotaFiscal(), "nota transportada",
                                       "notas transportadas")
                            << ", "
                            << Contado(objeto.GetCondicaoPagamento().GetNumeroParcelas(), "parcela",
                                       "parcelas")
                            << '\n';
  EscreveTotais(saida, conhecimento.Totais, "no conhecimento");
  EscreveFim(saida, conhecimento, viagem);
}

void EscreveRelatorio(std::ostream& saida, const std::string& origem, const NotaDeServico& nota,
                      const Viagem& viagem) {
  EscreveTitulo(saida, origem, "nota de serviço", nota.Entrada);
  EscreveChave(saida, nota.Chave);
  for (const auto& parte : nota.Partes) {
    Rotulo(saida, parte.Papel) << parte.Nome << (parte.Nome.empty() ? "" : ", ") << parte.Inscricao
                               << '\n';
  }
  for (const auto& dito : nota.Ditos) Rotulo(saida, dito.Nome) << dito.Texto << '\n';
  EscreveImpostos(saida, nota);
  EscreveTotais(saida, nota.Totais, "na nota");
  EscreveFim(saida, nota, viagem);
}

}  // namespace kxdados
