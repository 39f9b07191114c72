#include "tests/apoio/Prova.h"

#include <algorithm>
#include <utility>

#include "ac/RegistrosAC.h"
#include "core/Financeiro.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace apoio {

namespace {

// The release of an installment leaves what its taxes own to their own release.
void LiberaComoAClasse(const Classe& classe, Registro& registro) {
  registro.EsqueceOsIlegiveis();
  if (classe.DeExecucao == CKXDadosCM_Parcela::GetThisClass()) {
    auto& parcela = *reinterpret_cast<tagREG_FATURA_ENTRADAPS*>(registro.Bytes());
    for (int i = 0; parcela.ListaItemImposto != nullptr && i < parcela.QtdItemImposto; ++i) {
      Libera(KXMetadados<tagREG_ITEM_IMPOSTOPS>::kInfo,
             reinterpret_cast<unsigned char*>(&parcela.ListaItemImposto[i]), registro.De());
    }
  }
  const bool deTarefa = registro.De() == kx::Alocador::Tarefa;
  (deTarefa ? classe.ZerarGlobalAlloc : classe.ZerarDelete)(registro.Bytes());
  KX_EXIGE(OQueFicou(*classe.Info, registro.Bytes()).empty(),
           OQueFicou(*classe.Info, registro.Bytes()));
}

std::string TextoDe(const unsigned char* registro, const KXCampo& campo) {
  const auto* texto = reinterpret_cast<const char*>(registro + campo.Posicao);
  return {texto, std::find(texto, texto + campo.Largura, '\0')};
}

// Whether the table says that the two are different, what hangs from them aside.
bool Diferem(const KXRegistroInfo& info, const unsigned char* a, const unsigned char* b) {
  return std::any_of(info.Campos.begin(), info.Campos.end(), [&](const KXCampo& campo) {
    if (!campo.Comparado || campo.Papel >= KXPapel::Contado) return false;
    if (campo.Tipo == KXTipoCampo::Texto) return TextoDe(a, campo) != TextoDe(b, campo);
    if (campo.Tipo == KXTipoCampo::Historico) {
      return TresLinhas(TextoDe(a, campo)) != TresLinhas(TextoDe(b, campo));
    }
    return std::memcmp(a + campo.Posicao, b + campo.Posicao, campo.Largura) != 0;
  });
}

// An approval rule names a product by its key and its status, or names none.
std::vector<unsigned char> ComoSeCompara(const KXRegistroInfo& info,
                                         const unsigned char* registro) {
  std::vector<unsigned char> bytes(registro, registro + info.Tamanho);
  ZeraOQueNaoViaja(info, bytes.data());
  if (info.Nome == std::string("tagREG_CM_AUTORIZACAO_CMSAUTPS")) {
    auto& regra = *reinterpret_cast<tagREG_CM_AUTORIZACAO_CMSAUTPS*>(bytes.data());
    if (regra.PonteiroProdutoServico == 0 || regra.StatusProdutoServico == 0) {
      regra.PonteiroProdutoServico = 0;
      regra.StatusProdutoServico = 0;
    }
  }
  return bytes;
}

// What the bytes of a field say is in the record alone, or does not travel.
bool PodeMudar(const KXRegistroInfo& info, std::size_t posicao) {
  return std::any_of(info.Campos.begin(), info.Campos.end(), [posicao](const KXCampo& campo) {
    const bool cobre = campo.Posicao <= posicao && posicao < campo.Posicao + campo.Largura;
    return cobre && (campo.Papel == KXPapel::Campo || campo.Papel == KXPapel::Reserva ||
                     campo.Papel == KXPapel::Zero);
  });
}

// Changes a byte of the record, or of an element in it, and then puts it back.
void ExigeIgualdade(Bytes& bytes, const Classe& classe, const Objeto& objeto,
                    const unsigned char* inteiro, const KXRegistroInfo& info,
                    unsigned char* mudado) {
  const std::size_t posicao = bytes.Valor<std::uint16_t>() % info.Tamanho;
  const std::uint8_t valor = bytes.Byte();
  if (!PodeMudar(info, posicao)) return;
  const auto antes = ComoSeCompara(info, mudado);
  const std::uint8_t era = std::exchange(mudado[posicao], valor);
  const bool iguais = !Diferem(info, antes.data(), ComoSeCompara(info, mudado).data());
  const std::string onde = std::string(info.Nome) + " + " + std::to_string(posicao);
  KX_EXIGE(objeto.IgualNasDiferencas(Objeto(classe, inteiro)) == iguais, onde);
  mudado[posicao] = era;
}

// A list with elements that can be read, and whose change equality sees; null when there is none.
const KXCampo* Lista(Bytes& bytes, const KXRegistroInfo& info, const unsigned char* registro) {
  std::vector<const KXCampo*> listas;
  for (const KXCampo& campo : info.Campos) {
    if (campo.Papel != KXPapel::Lista || campo.Nome == std::string("ListaCancelamento")) continue;
    const auto* array = Lido<const char*>(registro + campo.Posicao);
    const auto quantos = Lido<std::uint16_t>(registro + ContaDe(info, campo).Posicao);
    if (array != nullptr && array != Ilegivel() && quantos > 0) listas.push_back(&campo);
  }
  return listas.empty() ? nullptr : listas[bytes.Byte() % listas.size()];
}

void ExigeIgualdadeDosFilhos(Bytes& bytes, const Classe& classe, const Objeto& objeto,
                             const unsigned char* registro) {
  const KXCampo* const lista = Lista(bytes, *classe.Info, registro);
  if (lista == nullptr) return;
  const auto quantos = Lido<std::uint16_t>(registro + ContaDe(*classe.Info, *lista).Posicao);
  unsigned char* const elemento = Lido<unsigned char*>(registro + lista->Posicao) +
                                  std::size_t{lista->Elemento->Tamanho} * (bytes.Byte() % quantos);
  ExigeIgualdade(bytes, classe, objeto, registro, *lista->Elemento, elemento);
}

void ExigeCopias(const Classe& classe, const Objeto& objeto, const unsigned char* registro) {
  Objeto copia(objeto);
  KX_EXIGE(copia == objeto && objeto == copia);
  KX_EXIGE(copia->CalculaCRC(nullptr) == objeto->CalculaCRC(nullptr));
  Objeto atribuido(classe);
  atribuido = copia;
  KX_EXIGE(atribuido == objeto);
  Objeto& mesmo = atribuido;
  atribuido = mesmo;
  atribuido = std::move(mesmo);
  atribuido->Copiar(nullptr);
  KX_EXIGE(atribuido == objeto);
  const Objeto movido(std::move(copia));
  KX_EXIGE(movido == objeto);
  // NOLINTNEXTLINE(bugprone-use-after-move): what was moved from serves again
  copia.CopiarDe(registro);
  KX_EXIGE(copia == objeto);
  atribuido->Limpar();
  KX_EXIGE(atribuido->EstaVazio() && atribuido == Objeto(classe));
  *atribuido = *copia;  // through the base
  KX_EXIGE(atribuido == objeto);
  atribuido = Objeto(classe);
  KX_EXIGE(atribuido->EstaVazio());
  atribuido = std::move(copia);
  KX_EXIGE(atribuido == objeto);
}

}  // namespace

void Prova(const Classe& classe, Bytes& bytes) {
  const KXRegistroInfo& info = *classe.Info;
  const auto alocador = bytes.Byte() % 2 == 0 ? kx::Alocador::Delete : kx::Alocador::Tarefa;
  Registro esperado(info, alocador);
  Registro recebido(info, bytes, esperado);
  Registro escrito(info);

  const std::vector<unsigned char> antes(recebido.Bytes(), recebido.Bytes() + info.Tamanho);
  const Objeto objeto(classe, recebido.Bytes());
  KX_EXIGE(std::equal(antes.begin(), antes.end(), recebido.Bytes()), info.Nome);
  objeto.CopiarPara(escrito.Bytes());
  const std::string diferenca = Diferenca(info, esperado.Bytes(), escrito.Bytes());
  KX_EXIGE(diferenca.empty(), diferenca);
  KX_EXIGE(classe.Iguais(*classe.DeRegistro(recebido.Bytes()), *objeto), info.Nome);
  const Objeto volta(classe, escrito.Bytes());
  KX_EXIGE(volta == objeto && objeto == volta, info.Nome);
  KX_EXIGE(volta->CalculaCRC(nullptr) == objeto->CalculaCRC(nullptr), info.Nome);

  std::vector<unsigned char> mudado = antes;
  ExigeIgualdade(bytes, classe, objeto, mudado.data(), info, mudado.data());
  ExigeIgualdadeDosFilhos(bytes, classe, objeto, recebido.Bytes());
  ExigeCopias(classe, objeto, recebido.Bytes());
  LiberaComoAClasse(classe, recebido);
  LiberaComoAClasse(classe, escrito);
}

std::string TresLinhas(const std::string& texto) {
  std::string linhas;
  int quantas = 0;
  bool dentro = false;
  for (const char c : texto) {
    const bool fim = c == '\r' || c == '\n';
    if (fim) {
      dentro = false;
      continue;
    }
    if (!dentro && ++quantas > 3) break;
    if (!dentro) linhas += '\n';
    dentro = true;
    linhas += c;
  }
  return linhas;
}

}  // namespace apoio
