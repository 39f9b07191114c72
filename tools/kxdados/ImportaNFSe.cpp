#include "ImportaNFSe.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "kxldados/Datas.h"
#include "kxldados/Dinheiro.h"
#include "kxldados/Latin1.h"

namespace kxdados {

namespace {

using Entrada = CKXDadosCM_RERegistroEntrada;
using Servico = CKXDadosCM_REItemServico;
using Imposto = CKXDadosCM_ItemImposto;
using Referida = CKXDadosCM_RENFReferidas;
using No = pugi::xml_node;

constexpr CY kUm{10'000};
constexpr CY kZero{};

// Where the number and the model stand within the 50 positions of a key.
constexpr std::size_t kTamanhoDaChave = 50;
constexpr std::size_t kNumeroNaChave = 23;
constexpr std::size_t kDigitosDoNumero = 13;

// The groups of an invoice that are read.
struct Grupos {
  explicit Grupos(No nfse)
      : Inf(Exige(nfse, "infNFSe")),
        Dps(Exige(Exige(Inf, "DPS"), "infDPS")),
        Apurados(Exige(Inf, "valores")),
        Declarados(Exige(Dps, "valores")),
        Municipal(Desce(Declarados, "trib/tribMun")),
        Federal(Desce(Declarados, "trib/tribFed")),
        Servico(Exige(Dps, "serv")) {}

  No Inf;         // what the system made of the declaration
  No Dps;         // what was declared
  No Apurados;    // values of the one
  No Declarados;  // values of the other
  No Municipal;
  No Federal;
  No Servico;

  bool ISSRetidoPor(std::string_view quem) const {
    return Valor(Filho(Municipal, "tpRetISSQN")) == quem;
  }
  bool ISSRetido() const { return ISSRetidoPor("2") || ISSRetidoPor("3"); }
};

constexpr RegraTexto<Entrada> kNumero[] = {
    {"nNFSe", "NumeroNotaFiscal", &Entrada::SetNumeroNotaFiscal, &Entrada::GetNumeroNotaFiscal},
};

constexpr RegraTexto<Entrada> kSerie[] = {
    {"serie", "SerieNotaFiscal", &Entrada::SetSerieNotaFiscal, &Entrada::GetSerieNotaFiscal},
};

constexpr RegraTexto<Entrada> kOrigem[] = {
    {"UF", "EstadoOrigem", &Entrada::SetEstadoOrigem, &Entrada::GetEstadoOrigem},
};

constexpr RegraTexto<Servico> kComplemento[] = {
    {"xDescServ", "ComplementoServico", &Servico::SetComplementoServico,
     &Servico::GetComplementoServico},
};

// The two digits that the codes of a state's towns begin with (IBGE).
struct Estado {
  std::string_view Codigo;
  const char* Sigla;
};
constexpr std::array<Estado, 27> kEstados{
    {{"11", "RO"}, {"12", "AC"}, {"13", "AM"}, {"14", "RR"}, {"15", "PA"}, {"16", "AP"},
     {"17", "TO"}, {"21", "MA"}, {"22", "PI"}, {"23", "CE"}, {"24", "RN"}, {"25", "PB"},
     {"26", "PE"}, {"27", "AL"}, {"28", "SE"}, {"29", "BA"}, {"31", "MG"}, {"32", "ES"},
     {"33", "RJ"}, {"35", "SP"}, {"41", "PR"}, {"42", "SC"}, {"43", "RS"}, {"50", "MS"},
     {"51", "MT"}, {"52", "GO"}, {"53", "DF"}}};

const char* EstadoDoMunicipio(std::string_view codigo) {
  const auto achado = std::find_if(kEstados.begin(), kEstados.end(), [codigo](const Estado& e) {
    return codigo.substr(0, 2) == e.Codigo;
  });
  return achado != kEstados.end() ? achado->Sigla : "";
}

// In UTF-8, on one line.
std::string Linha(No pai, std::string_view nome) {
  return kx::LinhaDeLatin1(Texto(pai, nome).Vista());
}

// Modulo 11 with the weights 2 to 9 from the right; a remainder of 0 or 1 gives the digit 0.
char DigitoDe(std::string_view posicoes) {
  int soma = 0;
  int peso = 2;
  for (auto i = posicoes.rbegin(); i != posicoes.rend(); ++i) {
    soma += (*i - '0') * peso;
    peso = peso == 9 ? 2 : peso + 1;
  }
  const int resto = soma % 11;
  return static_cast<char>(resto < 2 ? '0' : '0' + 11 - resto);
}

const char* ErroDaChave(std::string_view chave) {
  const auto aceito = [](char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z'); };
  if (chave.size() != kTamanhoDaChave) return "a chave da NFS-e não tem 50 posições";
  if (!std::all_of(chave.begin(), chave.end(), aceito)) {
    return "a chave da NFS-e tem um caractere que não cabe nela";
  }
  const auto semDigito = chave.substr(0, kTamanhoDaChave - 1);
  return DigitoDe(semDigito) == chave.back() ? nullptr
                                             : "o dígito verificador da chave da NFS-e não confere";
}

std::string_view SemZeros(std::string_view numero) {
  return numero.substr(std::min(numero.find_first_not_of('0'), numero.size()));
}

std::string_view NumeroDaChave(std::string_view chave) {
  return SemZeros(chave.substr(kNumeroNaChave, kDigitosDoNumero));
}

// Of the 50 positions the field holds 45: town, issuer, number and month, and part of a code drawn
// by lot. They still tell one invoice from another.
void ImportaChave(const Grupos& grupos, NotaDeServico& nota) {
  std::string chave = grupos.Inf.attribute("Id").value();
  if (chave.starts_with("NFS")) chave.erase(0, 3);
  if (const char* const erro = ErroDaChave(chave)) {
    nota.Chaves.emplace_back("infNFSe/@Id", erro);
    return;
  }
  nota.Chave = chave;
  nota.Entrada.SetChaveNFSe(CString(chave));
  nota.Avisos.push_back("cortado: ChaveNFSe: infNFSe/@Id tem " + std::to_string(kTamanhoDaChave) +
                        " posições, couberam " +
                        std::to_string(nota.Entrada.GetChaveNFSe().GetLength()));
  const std::string numero = Linha(grupos.Inf, "nNFSe");
  if (NumeroDaChave(chave) != SemZeros(numero)) {
    nota.Avisos.push_back("contradição: a chave é da nota " + std::string(NumeroDaChave(chave)) +
                          ", e nNFSe diz " + numero);
  }
}

void ImportaParte(const char* papel, No parte, NotaDeServico& nota) {
  if (!parte) return;
  std::string inscricao;
  for (const char* tipo : {"CNPJ", "CPF", "NIF"}) {
    const std::string numero = Linha(parte, tipo);
    if (!numero.empty()) inscricao = std::string(tipo) + " " + numero;
  }
  nota.Partes.push_back({papel, Linha(parte, "xNome"), inscricao});
}

// Whoever declares the invoice is its issuer: not always the one who rendered the service.
void ImportaPartes(const Grupos& grupos, NotaDeServico& nota) {
  const No emitente = Exige(grupos.Inf, "emit");
  const std::string tipo = Valor(Filho(grupos.Dps, "tpEmit"));
  nota.Emitente = Linha(emitente, "xNome");
  ImportaParte("emitente", emitente, nota);
  if (tipo == "2" || tipo == "3") {
    ImportaParte("prestador", Filho(grupos.Dps, "prest"), nota);
    nota.Avisos.push_back(std::string("emitida pelo ") +
                          (tipo == "2" ? "tomador" : "intermediário") +
                          ", e não por quem prestou o serviço");
  } else {
    Aplica(kOrigem, Filho(emitente, "enderNac"), nota.Entrada, nota);
  }
  ImportaParte("tomador", Filho(grupos.Dps, "toma"), nota);
  ImportaParte("intermediário", Filho(grupos.Dps, "interm"), nota);
  const std::string municipio = Linha(Desce(grupos.Dps, "toma/end/endNac"), "cMun");
  nota.Entrada.SetEstadoDestino(EstadoDoMunicipio(municipio));
}

void ImportaIdentificacao(const Grupos& grupos, NotaDeServico& nota) {
  TextoExigido(grupos.Inf, "nNFSe");
  TextoExigido(grupos.Dps, "dhEmi");
  Aplica(kNumero, grupos.Inf, nota.Entrada, nota);
  Aplica(kSerie, grupos.Dps, nota.Entrada, nota);
  nota.Entrada.SetRegDataEmissao(Data(grupos.Dps, "dhEmi"));
  if (Valor(Filho(grupos.Dps, "tpAmb")) == "2") {
    nota.Avisos.push_back("nota de teste: emitida em ambiente de homologação, sem valor fiscal");
  }
}

// An invoice that this one takes the place of: its number is part of the key.
void ImportaSubstituida(const Grupos& grupos, NotaDeServico& nota) {
  const std::string chave = Valor(Desce(grupos.Dps, "subst/chSubstda"));
  if (chave.empty()) return;
  Referida referida;
  if (chave.size() == kTamanhoDaChave) {
    referida.SetNumeroNotaFiscalOrigem(CString(NumeroDaChave(chave)));
  }
  nota.Entrada.AdicionaReferidas(std::move(referida));
  nota.Ditos.push_back({"substitui", kx::LinhaDeLatin1(kx::Latin1DeUTF8(chave))});
}

// A document that is deducted from the base, by whichever of its numbers there is.
CString DescricaoDaDeducao(No documento) {
  for (const char* elemento : {"chNFSe", "chNFe", "nDocFisc", "nDoc", "xDescOutDed"}) {
    const CString texto = Texto(documento, elemento);
    if (!texto.IsEmpty()) return texto;
  }
  return {};
}

void ImportaDeducoes(const Grupos& grupos, Imposto& iss, NotaDeServico& nota) {
  for (const No documento : Filhos(Desce(grupos.Declarados, "vDedRed/documentos"), "docDedRed")) {
    CKXDadosCM_ImpostoDeducao deducao;
    const CString descricao = DescricaoDaDeducao(documento);
    deducao.SetValor(Dinheiro(documento, "vDeducaoReducao")).SetDescricao(descricao);
    const int couberam = deducao.GetDescricao().GetLength();
    if (couberam < descricao.GetLength()) {
      AvisaCorte(nota, documento, "", "Descricao", descricao.GetLength(), couberam);
    }
    iss.AdicionaDeducao(std::move(deducao));
  }
  ExigeQueCaiba(iss.GetListaDeducao(), "DPS/infDPS/valores/vDedRed/documentos/docDedRed");
}

// Adds the tax to the item if the invoice states anything of it.
void Adiciona(const char* nome, Imposto imposto, const Grupos& grupos, Servico& item,
              NotaDeServico& nota) {
  if (imposto.GetValor() == kZero && imposto.GetBaseCalculo() == kZero &&
      imposto.GetValorDeducao() == kZero && imposto.GetListaDeducao().empty()) {
    return;
  }
  imposto.SetRegDataFatoGerador(Data(grupos.Dps, "dCompet"));
  item.AdicionaImposto(std::move(imposto));
  nota.Impostos.emplace_back(nome);
}

// Withheld by an intermediary, the tax is off the net value, but not the receiver's to pay.
void ImportaISS(const Grupos& grupos, Servico& item, NotaDeServico& nota) {
  Imposto iss;
  iss.SetBaseCalculo(Dinheiro(grupos.Apurados, "vBC"))
      .SetAliquota(Dinheiro(grupos.Apurados, "pAliqAplic"))
      .SetValor(Dinheiro(grupos.Apurados, "vISSQN"))
      .SetValorDeducao(CKXCurrencyEx(Dinheiro(grupos.Apurados, "vCalcDR")) +
                       Dinheiro(grupos.Apurados, "vCalcBM"))
      .SetRetido(grupos.ISSRetidoPor("2") ? 1 : 0);
  ImportaDeducoes(grupos, iss, nota);
  Adiciona("ISS", std::move(iss), grupos, item, nota);
}

Imposto Retido(CY valor) { return Imposto().SetValor(valor).SetRetido(1); }

// Which contributions vRetCSLL sums up; until layout 1.00 ended, PIS and COFINS were beside it.
const char* NomeDasContribuicoes(std::string_view tipo) {
  constexpr std::array<const char*, 10> kNomes{
      "CSLL",   "CSLL",          "CSLL", "PIS, COFINS e CSLL", "PIS e COFINS", "PIS",
      "COFINS", "COFINS e CSLL", "CSLL", "PIS e CSLL"};
  const bool conhecido = tipo.size() == 1 && tipo[0] >= '0' && tipo[0] <= '9';
  return conhecido ? kNomes[static_cast<std::size_t>(tipo[0] - '0')]
                   : "contribuições (CSLL e outras)";
}

// PIS and COFINS are the provider's own, unless the first layout said that they were withheld.
bool ContribuicoesRetidasAParte(const Grupos& grupos) {
  return Valor(Desce(grupos.Federal, "piscofins/tpRetPisCofins")) == "1";
}

void ImportaContribuicoes(const Grupos& grupos, Servico& item, NotaDeServico& nota) {
  const No contribuicoes = Filho(grupos.Federal, "piscofins");
  if (ContribuicoesRetidasAParte(grupos)) {
    const CY base = Dinheiro(contribuicoes, "vBCPisCofins");
    Adiciona("PIS",
             Retido(Dinheiro(contribuicoes, "vPis"))
                 .SetBaseCalculo(base)
                 .SetAliquota(Dinheiro(contribuicoes, "pAliqPis")),
             grupos, item, nota);
    Adiciona("COFINS",
             Retido(Dinheiro(contribuicoes, "vCofins"))
                 .SetBaseCalculo(base)
                 .SetAliquota(Dinheiro(contribuicoes, "pAliqCofins")),
             grupos, item, nota);
  }
  Adiciona(NomeDasContribuicoes(Valor(Filho(contribuicoes, "tpRetPisCofins"))),
           Retido(Dinheiro(grupos.Federal, "vRetCSLL")), grupos, item, nota);
}

void ImportaServico(const Grupos& grupos, NotaDeServico& nota) {
  constexpr std::uint8_t kCasas = 2;
  const No prestado = Exige(grupos.Declarados, "vServPrest");
  const No descontos = Filho(grupos.Declarados, "vDescCondIncond");
  const CY valor = DinheiroExigido(prestado, "vServ");
  const CY desconto = Dinheiro(descontos, "vDescIncond");
  const CY liquido = CKXCurrencyEx(valor) - desconto;
  const CY previdencia = Dinheiro(grupos.Federal, "vRetCP");
  const CY renda = Dinheiro(grupos.Federal, "vRetIRRF");
  Servico item;
  item.SetIDItem(1).SetQuantidade(kUm).SetQtdCasasVlrUnitario(kCasas);
  item.SetValorUnitarioV8(valor).SetValorTotal(valor).SetValorLiquido(liquido);
  item.SetValorDescontoUnitarioV8(desconto).SetValorDescontoTotal(desconto);
  item.SetValorINSS(previdencia);
  Aplica(kComplemento, Exige(grupos.Servico, "cServ"), item, nota);
  ImportaISS(grupos, item, nota);
  Adiciona("INSS", Retido(previdencia), grupos, item, nota);
  Adiciona("IRRF", Retido(renda), grupos, item, nota);
  ImportaContribuicoes(grupos, item, nota);
  nota.Entrada.AdicionaServico(std::move(item));
  nota.Entrada.SetValorTotalServicos(valor)
      .SetValorTotalNotaFiscalNFe(valor)
      .SetValorTotalDescontoServicos(desconto)
      .SetValorLiquidoServicos(liquido)
      .SetValorTotalINSS(previdencia)
      .SetValorTotalIRRF(renda);
}

// What comes off the net value, as the taxes are stated one by one.
CKXCurrencyEx SomaRetida(const Grupos& grupos, CY declarado) {
  CKXCurrencyEx soma;
  for (const char* elemento : {"vRetCP", "vRetIRRF", "vRetCSLL"}) {
    soma += Dinheiro(grupos.Federal, elemento);
  }
  if (grupos.ISSRetido()) soma += Dinheiro(grupos.Apurados, "vISSQN");
  const No contribuicoes = Filho(grupos.Federal, "piscofins");
  const CKXCurrencyEx comAsDoPrestador =
      soma + Dinheiro(contribuicoes, "vPis") + Dinheiro(contribuicoes, "vCofins");
  const bool aParte = ContribuicoesRetidasAParte(grupos) && comAsDoPrestador == declarado;
  return aParte ? comAsDoPrestador : soma;
}

// To the cent, as the tax is stated.
CKXCurrencyEx ISSCalculado(CY base, CY aliquota) {
  constexpr int kPorCento = 100;
  constexpr std::int64_t kCentavo = 100;
  const CY exato = CKXCurrencyEx(base) * CKXCurrencyEx(aliquota) / kPorCento;
  return CY{(exato.int64 + kCentavo / 2) / kCentavo * kCentavo};
}

void ComparaTotais(const Grupos& grupos, NotaDeServico& nota) {
  const No apurados = grupos.Apurados;
  const CY liquido = DinheiroExigido(apurados, "vLiq");
  nota.Entrada.SetValorTotalLiquidoNotaFiscal(liquido).SetTotalAPagar(liquido);
  const CY base = Dinheiro(apurados, "vBC");
  const CY aliquota = Dinheiro(apurados, "pAliqAplic");
  if (base != kZero && aliquota != kZero) {
    nota.Totais.push_back({"vISSQN", ISSCalculado(base, aliquota), Dinheiro(apurados, "vISSQN")});
  }
  const CY retido = Dinheiro(apurados, "vTotalRet");
  const CKXCurrencyEx soma = SomaRetida(grupos, retido);
  const bool declara = static_cast<bool>(Filho(apurados, "vTotalRet"));
  if (declara) nota.Totais.push_back({"vTotalRet", soma, retido});
  const CKXCurrencyEx calculado =
      CKXCurrencyEx(nota.Entrada.GetValorLiquidoServicos()) -
      Dinheiro(Filho(grupos.Declarados, "vDescCondIncond"), "vDescCond") -
      (declara ? CKXCurrencyEx(retido) : soma);
  nota.Totais.push_back({"vLiq", calculado, liquido});
}

void Diz(const char* nome, std::string texto, NotaDeServico& nota) {
  if (!texto.empty()) nota.Ditos.push_back({nome, std::move(texto)});
}

// Enough of a long text to know it by.
std::string Inicio(const CString& texto) {
  constexpr int kMaximo = 70;
  if (texto.GetLength() <= kMaximo) return kx::LinhaDeLatin1(texto.Vista());
  return kx::LinhaDeLatin1(texto.Left(kMaximo).Vista()) + "...";
}

// Some tools write the remark of the town among the values, as the first layout did.
void ImportaObservacoes(const Grupos& grupos, NotaDeServico& nota) {
  const No complemento = Filho(grupos.Servico, "infoCompl");
  const No doFisco = Filho(grupos.Inf, "xOutInf") ? grupos.Inf : grupos.Apurados;
  nota.Entrada.SetObservacaoGeral(Observacao(complemento, "xInfComp", "ObservacaoGeral", nota))
      .SetObservacaoFisco(Observacao(doFisco, "xOutInf", "ObservacaoFisco", nota));
  const No codigos = Filho(grupos.Servico, "cServ");
  Diz("DPS", Linha(grupos.Dps, "nDPS"), nota);
  Diz("competência", kx::TextoDeData(Data(grupos.Dps, "dCompet")), nota);
  Diz("serviço", Linha(codigos, "cTribNac") + " " + Inicio(Texto(codigos, "xDescServ")), nota);
  Diz("incidência", Linha(grupos.Inf, "cLocIncid") + " " + Linha(grupos.Inf, "xLocIncid"), nota);
  Diz("pedido", Linha(complemento, "xPed"), nota);
  Diz("referência", Linha(complemento, "docRef"), nota);
  Diz("obra", Linha(Filho(grupos.Servico, "obra"), "cObra"), nota);
}

void AvisaDosImpostosNovos(const Grupos& grupos, NotaDeServico& nota) {
  const No totais = Desce(grupos.Inf, "IBSCBS/totCIBS");
  if (!totais) return;
  nota.Avisos.push_back("não guardado: IBS " +
                        kx::TextoDeDinheiro(Dinheiro(Filho(totais, "gIBS"), "vIBSTot")) +
                        " e CBS " + kx::TextoDeDinheiro(Dinheiro(Filho(totais, "gCBS"), "vCBS")) +
                        ", para os quais o registro não tem campo");
}

}  // namespace

NotaDeServico ImportaNFSe(No nfse) {
  const Grupos grupos(nfse);
  NotaDeServico nota;
  ImportaChave(grupos, nota);
  ImportaIdentificacao(grupos, nota);
  ImportaPartes(grupos, nota);
  ImportaSubstituida(grupos, nota);
  ImportaServico(grupos, nota);
  ComparaTotais(grupos, nota);
  ImportaObservacoes(grupos, nota);
  AvisaDosImpostosNovos(grupos, nota);
  return nota;
}

}  // namespace kxdados
