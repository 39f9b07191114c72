#include "kxldados/TKXBaseParaDados.h"

KX_IMPLEMENTA_CLASSE(TKXBaseParaDados, CObject)

TKXBaseParaDados& TKXBaseParaDados::operator=(const TKXBaseParaDados& outro) {
  Copiar(&outro);
  return *this;
}

void TKXBaseParaDados::OnLimpar() {}

void TKXBaseParaDados::OnCopiar(const TKXBaseParaDados* /*origem*/) {}

bool TKXBaseParaDados::OnIgual(const TKXBaseParaDados* /*outro*/) const { return true; }

unsigned long TKXBaseParaDados::OnCalculaCRC(unsigned long* anterior) const {
  return anterior != nullptr ? *anterior : 0;
}

bool TKXBaseParaDados::OnEstaVazio() const { return true; }

CString TKXBaseParaDados::OnGetNomeClasse() const { return {}; }

CString TKXBaseParaDados::OnToXML() const { return {}; }

bool TKXBaseParaDados::OnFromXML(const CString& /*xml*/) { return false; }

bool TKXBaseParaDados::OnPodeGravar() const { return true; }

void TKXBaseParaDados::OnAntesDeGravar() {}

void TKXBaseParaDados::OnDepoisDeGravar() {}

void TKXBaseParaDados::OnAntesDeLer() {}

void TKXBaseParaDados::OnDepoisDeLer() {}

int TKXBaseParaDados::OnGetVersao() const { return 1; }

CString TKXBaseParaDados::OnGetDescricao() const { return {}; }
