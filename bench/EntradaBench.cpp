// The goods receipt against a hand-written floor that makes the same block copies and the same
// number of allocations, for entries of 1, 100 and 1,000 product items. An item has two
// apportionment lines with one management account each, a tax, a stock entry and a totals record.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <vector>

#include "bench/Piso.h"
#include "re/DadosRE.h"

namespace {

CKXDadosCM_RERegistroEntrada Entrada(std::int64_t itens) {
  CKXDadosCM_REItemProduto item;
  CKXDadosCM_RERateioProduto rateio;
  rateio.AdicionaGerencial(TKXGerencial().SetPonteiroGerencial(7));
  item.AdicionaRateio(rateio).AdicionaRateio(rateio);
  item.AdicionaImposto(CKXDadosCM_ItemImposto().SetValor(CY{1}));
  item.AdicionaEntradaEstoque(CKXDadosCM_REEntradaEstoque().SetQuantidade(CY{2}));
  item.AdicionaTotais(CKXDadosCM_REItemProdutoTotais().SetValorIPI(CY{3}));
  CKXDadosCM_RERegistroEntrada entrada;
  for (std::int64_t i = 0; i < itens; ++i) {
    item.SetIDItem(static_cast<std::uint32_t>(i));
    entrada.AdicionaProduto(item);
  }
  return entrada;
}

// A flat record that owns its arrays.
struct Registro {
  explicit Registro(const CKXDadosCM_RERegistroEntrada& entrada) { entrada.CopiarPara(&Reg); }
  Registro(const Registro&) = delete;
  Registro& operator=(const Registro&) = delete;
  ~Registro() { CKXDadosCM_RERegistroEntrada::ZerarGlobalAlloc(&Reg); }

  tagREG_ENTRADAPS Reg;
};

// The floor's objects: the same records and collections, nothing else.
struct PisoRateio {
  tagREG_RATEIOPRODUTO_ENTRADAPS Reg;
  std::vector<tagREG_GERENCIALPS> Gerencial;
};
struct PisoItem {
  tagREG_ITEM_ENTRADA_PRODUTOPS Reg;
  std::vector<PisoRateio> Rateio;
  std::vector<tagREG_ITEM_IMPOSTOPS> Imposto;
  std::vector<_REG_ENTRADA_ESTOQUE_ENTRADAPS> EntradaEstoque;
  std::vector<tagREG_ITEM_TOTAIS_ENTRADAPS> Totais;
};
struct PisoEntrada {
  tagREG_ENTRADAPS Reg;
  std::vector<PisoItem> Produto;
};

void LePiso(PisoEntrada& entrada, const tagREG_ENTRADAPS& registro) {
  std::memcpy(&entrada.Reg, &registro, sizeof(registro));
  entrada.Produto.reserve(registro.QtdProduto);
  for (std::size_t i = 0; i < registro.QtdProduto; ++i) {
    const tagREG_ITEM_ENTRADA_PRODUTOPS& de = registro.ListaProduto[i];
    PisoItem& item = entrada.Produto.emplace_back(PisoItem{de, {}, {}, {}, {}});
    item.Rateio.reserve(de.QtdRateio);
    for (std::size_t j = 0; j < de.QtdRateio; ++j) {
      PisoRateio& rateio = item.Rateio.emplace_back(PisoRateio{de.ListaRateio[j], {}});
      LePiso(rateio.Gerencial, de.ListaRateio[j].ListaGerencial, de.ListaRateio[j].QtdGerencial);
    }
    LePiso(item.Imposto, de.ListaImposto, de.QtdImposto);
    LePiso(item.EntradaEstoque, de.ListaEntradaEstoque, de.QtdEntradaEstoque);
    LePiso(item.Totais, de.ListaTotais, de.QtdTotais);
  }
}

void EscrevePiso(const PisoEntrada& entrada, tagREG_ENTRADAPS& registro) {
  std::memcpy(&registro, &entrada.Reg, sizeof(registro));
  registro.QtdProduto = static_cast<std::uint16_t>(entrada.Produto.size());
  registro.ListaProduto = new tagREG_ITEM_ENTRADA_PRODUTOPS[registro.QtdProduto];
  for (std::size_t i = 0; i < registro.QtdProduto; ++i) {
    const PisoItem& item = entrada.Produto[i];
    tagREG_ITEM_ENTRADA_PRODUTOPS& para = registro.ListaProduto[i];
    std::memcpy(&para, &item.Reg, sizeof(para));
    para.QtdRateio = static_cast<std::uint16_t>(item.Rateio.size());
    para.ListaRateio = new tagREG_RATEIOPRODUTO_ENTRADAPS[para.QtdRateio];
    for (std::size_t j = 0; j < para.QtdRateio; ++j) {
      std::memcpy(&para.ListaRateio[j], &item.Rateio[j].Reg, sizeof(item.Rateio[j].Reg));
      EscrevePiso(item.Rateio[j].Gerencial, para.ListaRateio[j].ListaGerencial,
                  para.ListaRateio[j].QtdGerencial);
    }
    EscrevePiso(item.Imposto, para.ListaImposto, para.QtdImposto);
    EscrevePiso(item.EntradaEstoque, para.ListaEntradaEstoque, para.QtdEntradaEstoque);
    EscrevePiso(item.Totais, para.ListaTotais, para.QtdTotais);
  }
}

void LiberaPiso(tagREG_ENTRADAPS& registro) {
  for (std::size_t i = 0; i < registro.QtdProduto; ++i) {
    tagREG_ITEM_ENTRADA_PRODUTOPS& item = registro.ListaProduto[i];
    for (std::size_t j = 0; j < item.QtdRateio; ++j) delete[] item.ListaRateio[j].ListaGerencial;
    delete[] item.ListaRateio;
    delete[] item.ListaImposto;
    delete[] item.ListaEntradaEstoque;
    delete[] item.ListaTotais;
  }
  delete[] registro.ListaProduto;
}

void CopiarDe(benchmark::State& estado) {
  const Registro registro(Entrada(estado.range(0)));
  for (auto _ : estado) {
    auto entrada = std::make_unique<CKXDadosCM_RERegistroEntrada>();
    entrada->CopiarDe(&registro.Reg);
    benchmark::DoNotOptimize(entrada.get());
  }
}

void CopiarDePiso(benchmark::State& estado) {
  const Registro registro(Entrada(estado.range(0)));
  for (auto _ : estado) {
    auto entrada = std::make_unique<PisoEntrada>();
    LePiso(*entrada, registro.Reg);
    benchmark::DoNotOptimize(entrada.get());
  }
}

void CopiarParaELibera(benchmark::State& estado) {
  const CKXDadosCM_RERegistroEntrada entrada = Entrada(estado.range(0));
  for (auto _ : estado) {
    tagREG_ENTRADAPS registro;
    entrada.CopiarPara(&registro);
    benchmark::DoNotOptimize(&registro);
    CKXDadosCM_RERegistroEntrada::ZerarGlobalAlloc(&registro);
  }
}

void CopiarParaELiberaPiso(benchmark::State& estado) {
  PisoEntrada entrada{};
  LePiso(entrada, Registro(Entrada(estado.range(0))).Reg);
  for (auto _ : estado) {
    tagREG_ENTRADAPS registro;
    EscrevePiso(entrada, registro);
    benchmark::DoNotOptimize(&registro);
    LiberaPiso(registro);
  }
}

void Igualdade(benchmark::State& estado) {
  const CKXDadosCM_RERegistroEntrada a = Entrada(estado.range(0));
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): to be compared
  const CKXDadosCM_RERegistroEntrada b = a;
  for (auto _ : estado) benchmark::DoNotOptimize(a == b);
}

// memcmp over the same blocks of two floor objects.
bool BlocosIguais(const PisoEntrada& a, const PisoEntrada& b) {
  bool iguais = std::memcmp(&a.Reg, &b.Reg, sizeof(a.Reg)) == 0;
  for (std::size_t i = 0; iguais && i < a.Produto.size(); ++i) {
    const PisoItem& itemA = a.Produto[i];
    const PisoItem& itemB = b.Produto[i];
    iguais = std::memcmp(&itemA.Reg, &itemB.Reg, sizeof(itemA.Reg)) == 0 &&
             BlocosIguais(itemA.EntradaEstoque, itemB.EntradaEstoque) &&
             BlocosIguais(itemA.Imposto, itemB.Imposto) && BlocosIguais(itemA.Totais, itemB.Totais);
    for (std::size_t j = 0; iguais && j < itemA.Rateio.size(); ++j) {
      iguais = std::memcmp(&itemA.Rateio[j].Reg, &itemB.Rateio[j].Reg,
                           sizeof(itemA.Rateio[j].Reg)) == 0 &&
               BlocosIguais(itemA.Rateio[j].Gerencial, itemB.Rateio[j].Gerencial);
    }
  }
  return iguais;
}

void IgualdadePiso(benchmark::State& estado) {
  const Registro registro(Entrada(estado.range(0)));
  PisoEntrada a{};
  PisoEntrada b{};
  LePiso(a, registro.Reg);
  LePiso(b, registro.Reg);
  // Both were read from one record: their pointers are equal, so every block is compared.
  if (!BlocosIguais(a, b)) estado.SkipWithError("the floor's entries differ");
  for (auto _ : estado) benchmark::DoNotOptimize(BlocosIguais(a, b));
}

void AdicionaItens(benchmark::State& estado) {
  const CKXDadosCM_REItemProduto item = Entrada(1).GetProduto(0);
  for (auto _ : estado) {
    CKXDadosCM_RERegistroEntrada entrada;
    for (std::int64_t i = 0; i < estado.range(0); ++i) entrada.AdicionaProduto(item);
    benchmark::DoNotOptimize(&entrada);
  }
}

}  // namespace

BENCHMARK(CopiarDePiso)->Arg(1)->Arg(100)->Arg(1000);
BENCHMARK(CopiarDe)->Arg(1)->Arg(100)->Arg(1000);
BENCHMARK(CopiarParaELiberaPiso)->Arg(1)->Arg(100)->Arg(1000);
BENCHMARK(CopiarParaELibera)->Arg(1)->Arg(100)->Arg(1000);
BENCHMARK(IgualdadePiso)->Arg(1)->Arg(100)->Arg(1000);
BENCHMARK(Igualdade)->Arg(1)->Arg(100)->Arg(1000);
BENCHMARK(AdicionaItens)->Arg(100)->Arg(1000);
