// The base data object: a value with copying, clearing, equality, emptiness and a checksum behind
// five virtual hooks. One object is used by one thread at a time.
#pragma once

#include "kxldados/CObject.h"
#include "kxldados/CString.h"
#include "kxldados/TKXBase.h"

class KX_API TKXBaseParaDados : public CObject, public TKXBase {
  KX_DECLARA_CLASSE(TKXBaseParaDados)

 public:
  TKXBaseParaDados() noexcept = default;
  TKXBaseParaDados(const TKXBaseParaDados&) noexcept = default;
  TKXBaseParaDados& operator=(const TKXBaseParaDados& outro);
  ~TKXBaseParaDados() override = default;

  // Sets every field back to its default.
  void Limpar() { OnLimpar(); }
  // Makes this object equal to the source, children included. The classes of a module take the
  // source for one of their own type without a test; the record wrappers test it.
  void Copiar(const TKXBaseParaDados* origem) { OnCopiar(origem); }
  // Answers OnIgual. Classes that define operator== alone leave OnIgual at its default, true.
  bool Igual(const TKXBaseParaDados* outro) const { return OnIgual(outro); }
  bool EstaVazio() const { return OnEstaVazio(); }
  // Continues the checksum from the value that the pointer designates, from 0 when it is null.
  unsigned long CalculaCRC(unsigned long* anterior) const { return OnCalculaCRC(anterior); }

 protected:
  // The hooks, in slot order after those of CObject: derived classes keep the order and append
  // theirs.
  virtual void OnLimpar();
  virtual void OnCopiar(const TKXBaseParaDados* origem);
  virtual bool OnIgual(const TKXBaseParaDados* outro) const;          // true
  virtual unsigned long OnCalculaCRC(unsigned long* anterior) const;  // *anterior, or 0
  virtual bool OnEstaVazio() const;                                   // true
  virtual CString OnGetNomeClasse() const;                            // empty
  virtual CString OnToXML() const;                                    // empty
  virtual bool OnFromXML(const CString& xml);                         // false
  virtual bool OnPodeGravar() const;                                  // true
  virtual void OnAntesDeGravar();
  virtual void OnDepoisDeGravar();
  virtual void OnAntesDeLer();
  virtual void OnDepoisDeLer();
  virtual int OnGetVersao() const;         // 1
  virtual CString OnGetDescricao() const;  // empty

  // What move assignment takes over from the base: nothing.
  void MoveDe(TKXBaseParaDados& /*outro*/) noexcept {}
};
