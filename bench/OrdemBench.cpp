// The purchase order against its hand-written floor, for orders of 1, 10, 100 and 1,000 items.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <vector>

#include "bench/OrdemDeMedida.h"
#include "bench/Piso.h"

namespace {

struct PisoRateio {
  tagREG_RATEIO_COMPRAPS Reg;
  std::vector<tagREG_GERENCIALPS> Gerencial;
};
struct PisoProgramacao {
  tagREG_PROGRAMACAO_COMPRAPS Reg;
  std::vector<tagREG_RECEBIMENTO_COMPRAPS> Recebimento;
};
struct PisoItem {
  tagREG_ITENS_ORDEMPS Reg;
  std::vector<PisoRateio> Rateio;
  std::vector<PisoProgramacao> Programacao;
  std::vector<tagREG_ITEM_TOTAIS_ORDEMPS> Totais;
};
struct PisoOrdem {
  tagREG_ORDEMPS Reg;
  std::vector<PisoItem> Item;
};

void LePiso(PisoOrdem& ordem, const tagREG_ORDEMPS& registro) {
  std::memcpy(&ordem.Reg, &registro, sizeof(registro));
  ordem.Item.reserve(registro.QtdItem);
  for (std::size_t i = 0; i < registro.QtdItem; ++i) {
    const tagREG_ITENS_ORDEMPS& de = registro.ListaItem[i];
    PisoItem& item = ordem.Item.emplace_back(PisoItem{de, {}, {}, {}});
    item.Rateio.reserve(de.QtdRateio);
    for (std::size_t j = 0; j < de.QtdRateio; ++j) {
      PisoRateio& rateio = item.Rateio.emplace_back(PisoRateio{de.ListaRateio[j], {}});
      LePiso(rateio.Gerencial, de.ListaRateio[j].ListaGerencial, de.ListaRateio[j].QtdGerencial);
    }
    item.Programacao.reserve(de.QtdProgramacao);
    for (std::size_t j = 0; j < de.QtdProgramacao; ++j) {
      const tagREG_PROGRAMACAO_COMPRAPS& entrega = de.ListaProgramacao[j];
      PisoProgramacao& programacao = item.Programacao.emplace_back(PisoProgramacao{entrega, {}});
      LePiso(programacao.Recebimento, entrega.ListaRecebimento, entrega.QtdRecebimento);
    }
    LePiso(item.Totais, de.ListaTotais, de.QtdTotais);
  }
}

void EscrevePiso(const PisoOrdem& ordem, tagREG_ORDEMPS& registro) {
  std::memcpy(&registro, &ordem.Reg, sizeof(registro));
  registro.QtdItem = static_cast<std::uint16_t>(ordem.Item.size());
  registro.ListaItem = new tagREG_ITENS_ORDEMPS[registro.QtdItem];
  for (std::size_t i = 0; i < registro.QtdItem; ++i) {
    const PisoItem& item = ordem.Item[i];
    tagREG_ITENS_ORDEMPS& para = registro.ListaItem[i];
    std::memcpy(&para, &item.Reg, sizeof(para));
    para.QtdRateio = static_cast<std::uint16_t>(item.Rateio.size());
    para.ListaRateio = new tagREG_RATEIO_COMPRAPS[para.QtdRateio];
    for (std::size_t j = 0; j < para.QtdRateio; ++j) {
      std::memcpy(&para.ListaRateio[j], &item.Rateio[j].Reg, sizeof(item.Rateio[j].Reg));
      EscrevePiso(item.Rateio[j].Gerencial, para.ListaRateio[j].ListaGerencial,
                  para.ListaRateio[j].QtdGerencial);
    }
    para.QtdProgramacao = static_cast<std::uint16_t>(item.Programacao.size());
    para.ListaProgramacao = new tagREG_PROGRAMACAO_COMPRAPS[para.QtdProgramacao];
    for (std::size_t j = 0; j < para.QtdProgramacao; ++j) {
      tagREG_PROGRAMACAO_COMPRAPS& entrega = para.ListaProgramacao[j];
      std::memcpy(&entrega, &item.Programacao[j].Reg, sizeof(entrega));
      EscrevePiso(item.Programacao[j].Recebimento, entrega.ListaRecebimento,
                  entrega.QtdRecebimento);
    }
    EscrevePiso(item.Totais, para.ListaTotais, para.QtdTotais);
  }
}

void LiberaPiso(tagREG_ORDEMPS& registro) {
  for (std::size_t i = 0; i < registro.QtdItem; ++i) {
    tagREG_ITENS_ORDEMPS& item = registro.ListaItem[i];
    for (std::size_t j = 0; j < item.QtdRateio; ++j) delete[] item.ListaRateio[j].ListaGerencial;
    for (std::size_t j = 0; j < item.QtdProgramacao; ++j) {
      delete[] item.ListaProgramacao[j].ListaRecebimento;
    }
    delete[] item.ListaRateio;
    delete[] item.ListaProgramacao;
    delete[] item.ListaTotais;
  }
  delete[] registro.ListaItem;
}

void OrdemCopiarDe(benchmark::State& estado) {
  const Registro registro(Ordem(estado.range(0)));
  for (auto _ : estado) {
    auto ordem = std::make_unique<CKXDadosCM_OrdemCompra>();
    ordem->CopiarDe(&registro.Reg);
    benchmark::DoNotOptimize(ordem.get());
  }
}

// Constructed from the record: nothing is cleared that is then overwritten.
void OrdemDeRegistro(benchmark::State& estado) {
  const Registro registro(Ordem(estado.range(0)));
  for (auto _ : estado) {
    const auto ordem = std::make_unique<CKXDadosCM_OrdemCompra>(&registro.Reg);
    benchmark::DoNotOptimize(ordem.get());
  }
}

void OrdemDeRegistroPiso(benchmark::State& estado) {
  const Registro registro(Ordem(estado.range(0)));
  for (auto _ : estado) {
    const auto ordem = std::make_unique_for_overwrite<PisoOrdem>();
    LePiso(*ordem, registro.Reg);
    benchmark::DoNotOptimize(ordem.get());
  }
}

// One object for all: its memory is used again.
void OrdemCopiarDeReusando(benchmark::State& estado) {
  const Registro registro(Ordem(estado.range(0)));
  CKXDadosCM_OrdemCompra ordem;
  for (auto _ : estado) {
    ordem.CopiarDe(&registro.Reg);
    benchmark::DoNotOptimize(&ordem);
  }
}

void OrdemCopiarDePiso(benchmark::State& estado) {
  const Registro registro(Ordem(estado.range(0)));
  for (auto _ : estado) {
    auto ordem = std::make_unique<PisoOrdem>();
    LePiso(*ordem, registro.Reg);
    benchmark::DoNotOptimize(ordem.get());
  }
}

void OrdemCopiarParaELibera(benchmark::State& estado) {
  const CKXDadosCM_OrdemCompra ordem = Ordem(estado.range(0));
  for (auto _ : estado) {
    tagREG_ORDEMPS registro;
    ordem.CopiarPara(&registro);
    benchmark::DoNotOptimize(&registro);
    CKXDadosCM_OrdemCompra::ZerarDelete(&registro);
  }
  Registro registro(ordem);
  estado.counters["bytes"] =
      static_cast<double>(Bytes(KXMetadados<tagREG_ORDEMPS>::kInfo, registro.Dados()));
}

void OrdemCopiarParaELiberaPiso(benchmark::State& estado) {
  PisoOrdem ordem{};
  LePiso(ordem, Registro(Ordem(estado.range(0))).Reg);
  for (auto _ : estado) {
    tagREG_ORDEMPS registro;
    EscrevePiso(ordem, registro);
    benchmark::DoNotOptimize(&registro);
    LiberaPiso(registro);
  }
}

void OrdemIgualdade(benchmark::State& estado) {
  const CKXDadosCM_OrdemCompra a = Ordem(estado.range(0));
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): to be compared
  const CKXDadosCM_OrdemCompra b = a;
  for (auto _ : estado) benchmark::DoNotOptimize(a == b);
}

// The commercial content alone, as Igual sees it.
void OrdemIgualNoConteudo(benchmark::State& estado) {
  const CKXDadosCM_OrdemCompra a = Ordem(estado.range(0));
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): to be compared
  const CKXDadosCM_OrdemCompra b = a;
  for (auto _ : estado) benchmark::DoNotOptimize(a.Igual(b, 0, 1));
}

void OrdemEstaVazia(benchmark::State& estado) {
  const CKXDadosCM_OrdemCompra vazia;
  for (auto _ : estado) benchmark::DoNotOptimize(vazia.EstaVazio());
}

void OrdemEstaVaziaPiso(benchmark::State& estado) {
  const tagREG_ORDEMPS zero{};
  const CKXDadosCM_OrdemCompra vazia;
  for (auto _ : estado) {
    benchmark::DoNotOptimize(std::memcmp(&vazia.GetReg(), &zero, sizeof(zero)));
  }
}

void OrdemDiferencasDeIguais(benchmark::State& estado) {
  const CKXDadosCM_OrdemCompra a = Ordem(estado.range(0));
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): to be compared
  const CKXDadosCM_OrdemCompra b = a;
  for (auto _ : estado) benchmark::DoNotOptimize(kx::Diferencas(a, b));
}

// Every item has changed, and the first was taken out.
void OrdemDiferencas(benchmark::State& estado) {
  CKXDadosCM_OrdemCompra a = Ordem(estado.range(0));
  std::int32_t produto = 0;
  for (auto& item : a.GetListaItem()) item.SetPonteiroProdutoServico(++produto);
  CKXDadosCM_OrdemCompra b = a;
  b.DeletarItem(0);
  for (auto& item : b.GetListaItem()) item.SetValorIPI(CY{++produto});
  for (auto _ : estado) benchmark::DoNotOptimize(kx::Diferencas(a, b));
}

bool BlocosIguais(const PisoOrdem& a, const PisoOrdem& b) {
  bool iguais = std::memcmp(&a.Reg, &b.Reg, sizeof(a.Reg)) == 0;
  for (std::size_t i = 0; iguais && i < a.Item.size(); ++i) {
    const PisoItem& itemA = a.Item[i];
    const PisoItem& itemB = b.Item[i];
    iguais = std::memcmp(&itemA.Reg, &itemB.Reg, sizeof(itemA.Reg)) == 0 &&
             BlocosIguais(itemA.Totais, itemB.Totais);
    for (std::size_t j = 0; iguais && j < itemA.Rateio.size(); ++j) {
      iguais = std::memcmp(&itemA.Rateio[j].Reg, &itemB.Rateio[j].Reg,
                           sizeof(itemA.Rateio[j].Reg)) == 0 &&
               BlocosIguais(itemA.Rateio[j].Gerencial, itemB.Rateio[j].Gerencial);
    }
    for (std::size_t j = 0; iguais && j < itemA.Programacao.size(); ++j) {
      const PisoProgramacao& entregaA = itemA.Programacao[j];
      const PisoProgramacao& entregaB = itemB.Programacao[j];
      iguais = std::memcmp(&entregaA.Reg, &entregaB.Reg, sizeof(entregaA.Reg)) == 0 &&
               BlocosIguais(entregaA.Recebimento, entregaB.Recebimento);
    }
  }
  return iguais;
}

void OrdemIgualdadePiso(benchmark::State& estado) {
  const Registro registro(Ordem(estado.range(0)));
  PisoOrdem a{};
  PisoOrdem b{};
  LePiso(a, registro.Reg);
  LePiso(b, registro.Reg);
  // Both were read from one record: their pointers are equal, so every block is compared.
  if (!BlocosIguais(a, b)) estado.SkipWithError("the floor's orders differ");
  for (auto _ : estado) benchmark::DoNotOptimize(BlocosIguais(a, b));
}

}  // namespace

BENCHMARK(OrdemCopiarDePiso)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(OrdemCopiarDe)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(OrdemDeRegistroPiso)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(OrdemDeRegistro)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(OrdemCopiarDeReusando)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(OrdemCopiarParaELiberaPiso)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(OrdemCopiarParaELibera)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(OrdemIgualdadePiso)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(OrdemIgualdade)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(OrdemDiferencasDeIguais)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(OrdemDiferencas)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(OrdemIgualNoConteudo)->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(OrdemEstaVazia)->Arg(1);
BENCHMARK(OrdemEstaVaziaPiso)->Arg(1);
