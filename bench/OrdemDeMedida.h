// The purchase order that is measured. An item has two apportionment lines with one management
// account each, two deliveries with one receipt each, and a totals record. Two fields in three have
// a value; texts fill a third of their width, at most 30 characters.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "core/Metadados.h"
#include "oc/DadosOC.h"

struct Registro {
  explicit Registro(const CKXDadosCM_OrdemCompra& ordem) { ordem.CopiarPara(&Reg); }
  Registro(const Registro&) = delete;
  Registro& operator=(const Registro&) = delete;
  ~Registro() { CKXDadosCM_OrdemCompra::ZerarDelete(&Reg); }

  char* Dados() { return reinterpret_cast<char*>(&Reg); }

  tagREG_ORDEMPS Reg;
};

inline void PreencheCampo(const KXCampo& campo, char* bytes, std::size_t numero) {
  const std::size_t texto = std::min<std::size_t>(campo.Largura / 3, 30);
  const std::int64_t valor = static_cast<std::int64_t>(numero) * 12345 + 1;
  switch (campo.Tipo) {
    case KXTipoCampo::Texto:
    case KXTipoCampo::Historico:
      std::memset(bytes, 'a', texto);
      break;
    case KXTipoCampo::Dinheiro:
      std::memcpy(bytes, &valor, sizeof(valor));
      break;
    case KXTipoCampo::Data: {
      const REG_KXDMA data{15, 3, 2026};
      std::memcpy(bytes, &data, sizeof(data));
      break;
    }
    default:
      bytes[0] = static_cast<char>(numero % 100 + 1);
  }
}

// The records of a row that is a list.
inline std::vector<char*> Filhos(const KXRegistroInfo& info, const KXCampo& lista,
                                 const char* registro) {
  const std::string conta = std::string("Qtd") + (lista.Nome + std::strlen("Lista"));
  const auto linha = std::find_if(info.Campos.begin(), info.Campos.end(),
                                  [&conta](const KXCampo& campo) { return conta == campo.Nome; });
  std::uint16_t quantos = 0;
  std::memcpy(&quantos, registro + linha->Posicao, sizeof(quantos));
  char* array = nullptr;
  std::memcpy(&array, registro + lista.Posicao, sizeof(array));
  std::vector<char*> filhos;
  for (std::size_t i = 0; i < quantos; ++i) filhos.push_back(array + i * lista.Elemento->Tamanho);
  return filhos;
}

// The record and those that hang from it.
inline void Preenche(const KXRegistroInfo& info, char* registro) {
  std::size_t numero = 0;
  for (const KXCampo& linha : info.Campos) {
    if (linha.Papel == KXPapel::Campo && ++numero % 3 != 0) {
      PreencheCampo(linha, registro + linha.Posicao, numero);
    }
    if (linha.Papel != KXPapel::Lista) continue;
    for (char* filho : Filhos(info, linha, registro)) Preenche(*linha.Elemento, filho);
  }
}

// Size of the record and of those that hang from it; the measured order has no counted texts.
inline std::size_t Bytes(const KXRegistroInfo& info, const char* registro) {
  std::size_t bytes = info.Tamanho;
  for (const KXCampo& linha : info.Campos) {
    if (linha.Papel != KXPapel::Lista) continue;
    for (const char* filho : Filhos(info, linha, registro)) bytes += Bytes(*linha.Elemento, filho);
  }
  return bytes;
}

inline CKXDadosCM_OrdemCompra Ordem(std::int64_t itens) {
  CKXDadosCM_ItemOrdemCompra item;
  CKXDadosCM_RateioOrdemCompra rateio;
  rateio.AdicionaGerencial(TKXGerencial());
  CKXDadosCM_ProgramacaoOrdemCompra entrega;
  entrega.AdicionaRecebimento(CKXDadosCM_RecebimentoOrdemCompra());
  for (int i = 0; i < 2; ++i) item.AdicionaRateio(rateio).AdicionaProgramacao(entrega);
  item.AdicionaTotais(CKXDadosCM_ItemTotaisOrdemCompra());
  CKXDadosCM_OrdemCompra ordem;
  for (std::int64_t i = 0; i < itens; ++i) ordem.AdicionaItem(item);

  Registro registro(ordem);
  Preenche(KXMetadados<tagREG_ORDEMPS>::kInfo, registro.Dados());
  ordem.CopiarDe(&registro.Reg);
  return ordem;
}
