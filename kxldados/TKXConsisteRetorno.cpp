#include "kxldados/TKXConsisteRetorno.h"

#include <utility>

KX_IMPLEMENTA_CLASSE(TKXConsisteRetorno, TKXBaseParaDados)

TKXConsisteRetornoItem::TKXConsisteRetornoItem(eConsiste tipo, KXModulo modulo,
                                               unsigned long codigo, bool flag) noexcept
    : _Tipo(tipo), _Modulo(modulo), _Codigo(static_cast<std::uint32_t>(codigo)), _Flag(flag) {}

TKXConsisteRetornoItem::TKXConsisteRetornoItem(eConsiste tipo, const CString& texto)
    : _Tipo(tipo), _Texto(texto) {}

TKXConsisteRetorno::TKXConsisteRetorno(TKXConsisteRetornoItem::eConsiste tipo, KXModulo modulo,
                                       unsigned long codigo, bool flag)
    : _Modulo(modulo) {
  _ListaItem.emplace_back(tipo, modulo, codigo, flag);
}

TKXConsisteRetorno::TKXConsisteRetorno(TKXConsisteRetornoItem::eConsiste tipo,
                                       const CString& texto) {
  _ListaItem.emplace_back(tipo, texto);
}

TKXConsisteRetorno& TKXConsisteRetorno::operator=(const TKXConsisteRetorno& outro) {
  Copiar(&outro);
  return *this;
}

TKXConsisteRetorno& TKXConsisteRetorno::operator=(TKXConsisteRetorno&& outro) noexcept {
  if (this == &outro) return *this;
  _Modulo = outro._Modulo;
  _ListaItem = std::move(outro._ListaItem);
  return *this;
}

TKXConsisteRetorno::~TKXConsisteRetorno() = default;

TKXConsisteRetorno& TKXConsisteRetorno::AdicionaItem(const TKXConsisteRetornoItem& item) {
  _ListaItem.push_back(item);
  return *this;
}

TKXConsisteRetorno& TKXConsisteRetorno::AdicionaItem(TKXConsisteRetornoItem&& item) {
  _ListaItem.push_back(std::move(item));
  return *this;
}

TKXConsisteRetorno& TKXConsisteRetorno::DeletarItem(long long indice) {
  _ListaItem.Deleta(indice);
  return *this;
}

TKXConsisteRetorno& TKXConsisteRetorno::RemoveTodosItem() noexcept {
  _ListaItem.clear();
  return *this;
}

const TKXConsisteRetornoItem& TKXConsisteRetorno::GetItem(long long indice) const {
  return _ListaItem.at(static_cast<std::size_t>(indice));
}

long long TKXConsisteRetorno::GetQuantidadeItem() const noexcept {
  return static_cast<long long>(_ListaItem.size());
}

bool TKXConsisteRetorno::operator==(const TKXConsisteRetorno& outro) const {
  return _Modulo == outro._Modulo && _ListaItem == outro._ListaItem;
}

void TKXConsisteRetorno::OnLimpar() {
  _Modulo = KXModulo::Nenhum;
  _ListaItem.clear();
  TKXBaseParaDados::OnLimpar();
}

void TKXConsisteRetorno::OnCopiar(const TKXBaseParaDados* origem) {
  TKXBaseParaDados::OnCopiar(origem);
  if (origem == nullptr) return;
  const auto& outro = static_cast<const TKXConsisteRetorno&>(*origem);
  _ListaItem = outro._ListaItem;
  _Modulo = outro._Modulo;
}

bool TKXConsisteRetorno::OnIgual(const TKXBaseParaDados* outro) const {
  const auto* retorno = dynamic_cast<const TKXConsisteRetorno*>(outro);
  return retorno != nullptr && *this == *retorno && TKXBaseParaDados::OnIgual(outro);
}

bool TKXConsisteRetorno::OnEstaVazio() const {
  return TKXBaseParaDados::OnEstaVazio() && _ListaItem.empty();
}
