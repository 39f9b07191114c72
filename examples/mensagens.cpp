// What cannot be stored or read is reported to the message library that the program brings along
// (mensagens/KXMens.cpp). Succeeds when both reports came, and nothing else was lost.
#include <cstdint>

#include "core/Mensagem.h"
#include "oc/DadosOC.h"

extern "C" int RelatosRecebidos();

int main() {
  CKXDadosCM_OrdemCompra ordem;
  ordem.SetCodigo(CString(std::string(100, '7')));  // more than its field: cut, and reported
  const bool cortado = ordem.GetCodigo() == std::string(51, '7');

  tagREG_ORDEMPS recebido{};  // an array that is not there: left out, and reported
  recebido.PonteiroFornecedor = 58;
  recebido.QtdItem = 3;
  recebido.ListaItem = reinterpret_cast<tagREG_ITENS_ORDEMPS*>(std::uintptr_t{0x10000});
  ordem.CopiarDe(&recebido);
  const bool lido = ordem.GetPonteiroFornecedor() == 58 && ordem.GetQuantidadeItem() == 0;
  return cortado && lido && RelatosRecebidos() == 2 ? 0 : 1;
}
