// What the test of the debugger's printers looks at: it stops in Parada.
#include <cstdint>
#include <cstring>

#include "ac/ArvoreAC.h"
#include "kxldados/ChaveNFe.h"
#include "re/DadosRE.h"

namespace {

template <class... T>
[[gnu::noinline]] void Parada(const T&...) {}

// A value of the type whose every byte is the one given: uninitialised or released memory.
template <class T>
struct Lixo {
  explicit Lixo(int byte) { std::memset(Bytes, byte, sizeof(Bytes)); }
  const T& Valor() const { return reinterpret_cast<const T&>(Bytes); }
  alignas(T) unsigned char Bytes[sizeof(T)];
};

CKXDadosCM_RERegistroEntrada Entrada() {
  CKXDadosCM_RERegistroEntrada entrada;
  entrada.SetNumeroNotaFiscal("N\xE3o").SetPonteiroFilial(3).SetObservacaoGeral("S\xE3o Jos\xE9");
  entrada.AdicionaProduto(CKXDadosCM_REItemProduto().SetValorTotal(CY{12345678}));
  entrada.AdicionaProduto(CKXDadosCM_REItemProduto().SetValorTotal(CY{-5000}));
  return entrada;
}

}  // namespace

int main() {
  const CY dinheiro{12345678};
  const CKXCurrencyEx negativo(CY{-1});
  const REG_KXDMA data{28, 2, 2026};
  const REG_KXDMA semData{};
  const REG_KXHMS hora{9, 5, 7, 0};
  const REG_KXDMAHMSUTC momento{data, hora};
  const REG_KXDMC documento{data, 12};
  const KXDataHora32 longa{data, {}};
  _KX_NFE_ps chave{};
  kx::ChaveDeTexto("35260212ABC34501DE35550010000012341000056786", chave);
  const _KX_NFE_ps chaveErrada{{1, 2, 3}};
  const CString texto = "Jos\xE9 \"da\" Silva";
  const CString comprido = "abcdefghijklmnopqrstuvwxyz";
  char caracteres[] = "abc";
  const KXStringPS contado{4, 0, caracteres};
  const KXStringPS exagerado{0xFFFFFFFF, 0, caracteres};

  const CKXVector<CString> textos{"a", "b"};
  const CKXVector<int> vazio;
  CArray<unsigned long> array;
  array.Add(7);
  CList<CY> lista;
  lista.AddTail(CY{10000});
  lista.AddTail(CY{25000});

  const CKXDadosCM_RERegistroEntrada entrada = Entrada();
  tagREG_ENTRADAPS registro;
  entrada.CopiarPara(&registro);
  tagREG_ENTRADAPS quebrado{};
  quebrado.QtdProduto = 9;
  quebrado.ListaProduto = reinterpret_cast<tagREG_ITEM_ENTRADA_PRODUTOPS*>(16);
  quebrado.QtdServico = 9;
  quebrado.ObservacaoGeral = {9, 0, reinterpret_cast<char*>(16)};
  quebrado.Reserva_48[2] = 1;

  CKXDadosCM_ACTreeAutorizacaoCompra arvore(tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS{1, 0});
  arvore.AdicionaExNodes(
      CKXDadosCM_ACTreeAutorizacaoCompra(tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS{2, 1}));

  const Lixo<CKXDadosCM_RERegistroEntrada> lixo(0xA5);
  const CKXDadosCM_RERegistroEntrada& objetoLixo = lixo.Valor();
  const Lixo<CList<CY>> lixoDeLista(0x5A);
  const CList<CY>& listaLixo = lixoDeLista.Valor();
  const Lixo<CKXDadosCM_ACTreeAutorizacaoCompra> zeros(0);
  const CKXDadosCM_ACTreeAutorizacaoCompra& arvoreZerada = zeros.Valor();
  const CKXDadosCM_RERegistroEntrada* nulo = nullptr;

  Parada(dinheiro, negativo, data, semData, hora, momento, documento, longa, chave, chaveErrada,
         texto, comprido, contado, exagerado, textos, vazio, array, lista, entrada, registro,
         quebrado, arvore, objetoLixo, listaLixo, arvoreZerada, nulo);

  CKXDadosCM_RERegistroEntrada::ZerarGlobalAlloc(&registro);
  return 0;
}
