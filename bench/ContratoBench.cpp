// The purchase contract against its hand-written floor, with 1, 10, 100 and 1,000 children in each
// of its seven collections; amendments and stages have a description of 20 characters. The floor
// copies the children without a description as whole arrays, where the contract makes objects.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "bench/Piso.h"
#include "cc/DadosCC.h"

namespace {

CKXDadosCM_CCContrato Contrato(std::int64_t filhos) {
  CKXDadosCM_CCContrato contrato;
  contrato.SetObservacao("reajuste anual pelo indice do contrato");
  contrato.SetDescricaoContrato("manutencao predial");
  for (std::int64_t i = 0; i < filhos; ++i) {
    contrato.AdicionaReajuste(CKXDadosCM_CCReajuste().SetSaldoAnterior(CY{i}));
    contrato.AdicionaAditivo(CKXDadosCM_CCAditivo().SetDescricao("prorrogacao do prazo"));
    contrato.AdicionaNotaFiscal(CKXDadosCM_CCNotaFiscal().SetValorTotal(CY{i}));
    contrato.AdicionaUsuarios(CKXDadosCM_CCUsuario().SetPossuiAcesso('S'));
    contrato.AdicionaClassificacao(CKXDadosCM_CCClassificacao().SetPercRateio(CY{i + 1}));
    contrato.AdicionaExecucao(CKXDadosCM_CCExecucao().SetDescricao("fundacao e alvenaria"));
    contrato.AdicionaParcela(CKXDadosCM_CCParcela().SetPercentualJuros(CY{i + 1}));
  }
  return contrato;
}

struct Registro {
  explicit Registro(const CKXDadosCM_CCContrato& contrato) { contrato.CopiarPara(&Reg); }
  Registro(const Registro&) = delete;
  Registro& operator=(const Registro&) = delete;
  ~Registro() { CKXDadosCM_CCContrato::ZerarDelete(&Reg); }

  tagREG_CONTRATO_COMPRAPS Reg;
};

// A child with a description of its own.
template <class REG>
struct PisoDescrito {
  REG Reg;
  std::string Descricao;
};

struct PisoContrato {
  tagREG_CONTRATO_COMPRAPS Reg;
  std::string Observacao;
  std::string Descricao;
  std::vector<tagREG_CONTRATO_COMPRA_REAJUSTEPS> Reajuste;
  std::vector<PisoDescrito<tagREG_CONTRATO_COMPRA_ADITIVOPS>> Aditivo;
  std::vector<tagREG_CONTRATO_COMPRA_NOTA_FISCALPS> NotaFiscal;
  std::vector<tagREG_CONTRATO_COMPRA_USUARIOPS> Usuarios;
  std::vector<tagREG_CONTRATO_COMPRA_CLASSIFICACAOPS> Classificacao;
  std::vector<PisoDescrito<tagREG_CONTRATO_COMPRA_EXECUCAOPS>> Execucao;
  std::vector<tagREG_CONTRATO_COMPRA_PARCELAPS> Parcela;
};

template <class REG>
void LeDescritos(std::vector<PisoDescrito<REG>>& lista, const REG* array, std::uint16_t total) {
  lista.reserve(total);
  for (std::size_t i = 0; i < total; ++i) {
    lista.push_back(
        {array[i], std::string(array[i].TextoDescricao, array[i].TamanhoDescricao - 1U)});
  }
}

void LePiso(PisoContrato& contrato, const tagREG_CONTRATO_COMPRAPS& registro) {
  std::memcpy(&contrato.Reg, &registro, sizeof(registro));
  contrato.Observacao = registro.TextoObservacao;
  contrato.Descricao = registro.TextoDescricaoContrato;
  LePiso(contrato.Reajuste, registro.ListaReajuste, registro.QtdReajuste);
  LeDescritos(contrato.Aditivo, registro.ListaAditivo, registro.QtdAditivo);
  LePiso(contrato.NotaFiscal, registro.ListaNotaFiscal, registro.QtdNotaFiscal);
  LePiso(contrato.Usuarios, registro.ListaUsuarios, registro.QtdUsuarios);
  LePiso(contrato.Classificacao, registro.ListaClassificacao, registro.QtdClassificacao);
  LeDescritos(contrato.Execucao, registro.ListaExecucao, registro.QtdExecucao);
  LePiso(contrato.Parcela, registro.ListaParcela, registro.QtdParcela);
}

char* EscreveTexto(const std::string& texto) {
  char* const copia = new char[texto.size() + 1];
  std::memcpy(copia, texto.c_str(), texto.size() + 1);
  return copia;
}

template <class REG>
void EscreveDescritos(const std::vector<PisoDescrito<REG>>& lista, REG*& array,
                      std::uint16_t& total) {
  total = static_cast<std::uint16_t>(lista.size());
  array = new REG[total];
  for (std::size_t i = 0; i < total; ++i) {
    std::memcpy(&array[i], &lista[i].Reg, sizeof(REG));
    array[i].TextoDescricao = EscreveTexto(lista[i].Descricao);
    array[i].TamanhoDescricao = static_cast<std::uint16_t>(lista[i].Descricao.size() + 1);
  }
}

void EscrevePiso(const PisoContrato& contrato, tagREG_CONTRATO_COMPRAPS& registro) {
  std::memcpy(&registro, &contrato.Reg, sizeof(registro));
  registro.TextoObservacao = EscreveTexto(contrato.Observacao);
  registro.TextoDescricaoContrato = EscreveTexto(contrato.Descricao);
  EscrevePiso(contrato.Reajuste, registro.ListaReajuste, registro.QtdReajuste);
  EscreveDescritos(contrato.Aditivo, registro.ListaAditivo, registro.QtdAditivo);
  EscrevePiso(contrato.NotaFiscal, registro.ListaNotaFiscal, registro.QtdNotaFiscal);
  EscrevePiso(contrato.Usuarios, registro.ListaUsuarios, registro.QtdUsuarios);
  EscrevePiso(contrato.Classificacao, registro.ListaClassificacao, registro.QtdClassificacao);
  EscreveDescritos(contrato.Execucao, registro.ListaExecucao, registro.QtdExecucao);
  EscrevePiso(contrato.Parcela, registro.ListaParcela, registro.QtdParcela);
}

template <class REG>
void LiberaDescritos(const REG* array, std::uint16_t total) {
  for (std::size_t i = 0; i < total; ++i) delete[] array[i].TextoDescricao;
  delete[] array;
}

void LiberaPiso(const tagREG_CONTRATO_COMPRAPS& registro) {
  delete[] registro.TextoObservacao;
  delete[] registro.TextoDescricaoContrato;
  delete[] registro.ListaReajuste;
  LiberaDescritos(registro.ListaAditivo, registro.QtdAditivo);
  delete[] registro.ListaNotaFiscal;
  delete[] registro.ListaUsuarios;
  delete[] registro.ListaClassificacao;
  LiberaDescritos(registro.ListaExecucao, registro.QtdExecucao);
  delete[] registro.ListaParcela;
}

void ContratoCopiarDe(benchmark::State& estado) {
  const Registro registro(Contrato(estado.range(0)));
  for (auto _ : estado) {
    auto contrato = std::make_unique<CKXDadosCM_CCContrato>();
    contrato->CopiarDe(&registro.Reg);
    benchmark::DoNotOptimize(contrato.get());
  }
}

void ContratoCopiarDePiso(benchmark::State& estado) {
  const Registro registro(Contrato(estado.range(0)));
  for (auto _ : estado) {
    auto contrato = std::make_unique<PisoContrato>();
    LePiso(*contrato, registro.Reg);
    benchmark::DoNotOptimize(contrato.get());
  }
}

void ContratoCopiarParaELibera(benchmark::State& estado) {
  const CKXDadosCM_CCContrato contrato = Contrato(estado.range(0));
  for (auto _ : estado) {
    tagREG_CONTRATO_COMPRAPS registro;
    contrato.CopiarPara(&registro);
    benchmark::DoNotOptimize(&registro);
    CKXDadosCM_CCContrato::ZerarDelete(&registro);
  }
}

void ContratoCopiarParaELiberaPiso(benchmark::State& estado) {
  PisoContrato contrato{};
  LePiso(contrato, Registro(Contrato(estado.range(0))).Reg);
  for (auto _ : estado) {
    tagREG_CONTRATO_COMPRAPS registro;
    EscrevePiso(contrato, registro);
    benchmark::DoNotOptimize(&registro);
    LiberaPiso(registro);
  }
}

// One percentage to its value, and the value back to its percentage.
void ContratoJuros(benchmark::State& estado) {
  CKXDadosCM_CCParcela parcela;
  parcela.SetValorParcela(CY{12345678900}).SetPercentualJuros(CY{24999});
  for (auto _ : estado) {
    benchmark::DoNotOptimize(parcela.CalculaValorJuros(parcela.GetValorParcela()));
    benchmark::DoNotOptimize(parcela.CalculaPercentualJuros(parcela.GetValorParcela()));
  }
}

}  // namespace

BENCHMARK(ContratoCopiarDePiso)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(ContratoCopiarDe)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(ContratoCopiarParaELiberaPiso)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(ContratoCopiarParaELibera)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(ContratoJuros);
