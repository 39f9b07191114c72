#include "LeitorXML.h"

#include <algorithm>
#include <charconv>
#include <new>
#include <utility>

#include "kxldados/Datas.h"
#include "kxldados/Dinheiro.h"
#include "kxldados/Latin1.h"

namespace kxdados {

namespace {

constexpr const char* kAusente = "elemento obrigatório ausente ou vazio";

std::string_view SemBrancos(std::string_view texto) noexcept {
  constexpr std::string_view kBrancos = " \t\r\n";
  const std::size_t inicio = texto.find_first_not_of(kBrancos);
  if (inicio == std::string_view::npos) return {};
  return texto.substr(inicio, texto.find_last_not_of(kBrancos) - inicio + 1);
}

// The places that Latin-1 leaves to control characters are those that Windows fills with
// typographic ones: files that declare Latin-1 often hold them.
const char* Tipografico(unsigned char byte) noexcept {
  switch (byte) {
    case 0x80:
      return "EUR";
    case 0x85:
      return "...";
    case 0x91:
    case 0x92:
      return "'";
    case 0x93:
    case 0x94:
      return "\"";
    case 0x95:
      return "*";
    case 0x96:
    case 0x97:
      return "-";
    case 0x99:
      return "TM";
    default:
      return "?";
  }
}

bool TemMarcaUTF16(std::string_view bytes) noexcept {
  return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

std::string Entre(std::string_view valor) {
  constexpr std::size_t kMaximo = 60;
  std::string curto(valor.substr(0, kMaximo));
  std::replace_if(
      curto.begin(), curto.end(), [](unsigned char c) { return c < 0x20 || c > 0x7E; }, '?');
  return "\"" + curto + (valor.size() > kMaximo ? "..." : "") + "\"";
}

const char* Motivo(kx::ErroDinheiro erro) noexcept {
  return erro == kx::ErroDinheiro::ForaDaFaixa ? "valor além do campo monetário: "
                                               : "não é um número: ";
}

// The element that holds a document whole. Inside a CT-e, infNFe is a carried invoice.
bool EhCorpo(pugi::xml_node no) {
  const std::string_view nome = NomeLocal(no);
  return nome == "infCte" || nome == "infNFSe" ||
         (nome == "infNFe" && NomeLocal(no.parent()) == "NFe");
}

std::string Aparado(pugi::xml_node pai, std::string_view nome) {
  return std::string(SemBrancos(Valor(Filho(pai, nome))));
}

// Asks for the place only to name it in a Falha.
std::uint64_t InteiroDeTexto(std::string_view texto, auto lugar, std::uint64_t maximo) {
  if (texto.empty()) return 0;
  std::uint64_t valor = 0;
  const char* fim = texto.data() + texto.size();
  const auto lido = std::from_chars(texto.data(), fim, valor);
  const bool enorme = lido.ec == std::errc::result_out_of_range;
  if (lido.ptr != fim || (lido.ec != std::errc() && !enorme)) {
    throw Falha(lugar(), "não é um número inteiro: " + Entre(texto));
  }
  if (enorme || valor > maximo) {
    throw Falha(lugar(),
                "valor além do campo, que vai até " + std::to_string(maximo) + ": " + Entre(texto));
  }
  return valor;
}

}  // namespace

void AbreXML(std::string_view bytes, pugi::xml_document& documento) {
  if (SemBrancos(bytes).empty()) throw Falha("XML", "arquivo vazio");
  const bool utf16 = TemMarcaUTF16(bytes);
  const std::size_t nulo = bytes.find('\0');
  if (!utf16 && nulo != std::string_view::npos) {
    throw Falha("XML", "byte nulo na posição " + std::to_string(nulo));
  }
  const auto codificacao = utf16 || kx::EhUTF8(bytes) ? pugi::encoding_auto : pugi::encoding_latin1;
  const auto resultado =
      documento.load_buffer(bytes.data(), bytes.size(), pugi::parse_default, codificacao);
  if (resultado.status == pugi::status_out_of_memory) throw std::bad_alloc();
  if (resultado.status == pugi::status_no_document_element) throw Falha("XML", "não é XML");
  if (!resultado) {
    throw Falha("XML", "malformado ou cortado, na posição " + std::to_string(resultado.offset));
  }
}

std::string_view NomeLocal(pugi::xml_node no) noexcept {
  const std::string_view nome = no.name();
  const std::size_t prefixo = nome.find(':');
  return prefixo == std::string_view::npos ? nome : nome.substr(prefixo + 1);
}

pugi::xml_node Filho(pugi::xml_node pai, std::string_view nome) {
  return pai.find_child([nome](pugi::xml_node no) { return NomeLocal(no) == nome; });
}

pugi::xml_node Desce(pugi::xml_node pai, std::string_view caminho) {
  const std::size_t barra = caminho.find('/');
  if (barra == std::string_view::npos) return Filho(pai, caminho);
  return Desce(Filho(pai, caminho.substr(0, barra)), caminho.substr(barra + 1));
}

pugi::xml_node PrimeiroElemento(pugi::xml_node pai) {
  return pai.find_child([](pugi::xml_node no) { return no.type() == pugi::node_element; });
}

std::vector<pugi::xml_node> Filhos(pugi::xml_node pai, std::string_view nome) {
  std::vector<pugi::xml_node> filhos;
  for (const pugi::xml_node no : pai.children()) {
    if (NomeLocal(no) == nome) filhos.push_back(no);
  }
  return filhos;
}

pugi::xml_node Exige(pugi::xml_node pai, std::string_view nome) {
  const pugi::xml_node no = Filho(pai, nome);
  if (!no) throw Falha(Caminho(pai, nome), kAusente);
  return no;
}

std::string Caminho(pugi::xml_node no, std::string_view nome) { return Caminhos().De(no, nome); }

int Caminhos::Ordem(pugi::xml_node no) {
  const auto contada = _ordens.find(no.hash_value());
  if (contada != _ordens.end()) return contada->second;
  int irmaos = 0;
  for (const pugi::xml_node irmao : no.parent().children()) {
    if (NomeLocal(irmao) == NomeLocal(no)) _ordens[irmao.hash_value()] = ++irmaos;
  }
  if (irmaos == 1) _ordens[no.hash_value()] = 0;
  return _ordens[no.hash_value()];
}

std::string Caminhos::De(pugi::xml_node no, std::string_view nome) {
  std::string caminho(nome);
  for (; no && no.type() == pugi::node_element && !EhCorpo(no); no = no.parent()) {
    std::string passo(NomeLocal(no));
    if (const int ordem = Ordem(no); ordem > 0)
      passo.append("[").append(std::to_string(ordem)).append("]");
    if (!caminho.empty()) passo.append("/").append(caminho);
    caminho = std::move(passo);
  }
  return caminho.empty() ? std::string(NomeLocal(no)) : caminho;
}

std::string Valor(pugi::xml_node no) {
  std::string valor;
  for (const pugi::xml_node trecho : no.children()) {
    const auto tipo = trecho.type();
    if (tipo == pugi::node_pcdata || tipo == pugi::node_cdata) valor += trecho.value();
  }
  return valor;
}

CString Texto(pugi::xml_node pai, std::string_view nome) {
  const CString texto = kx::Latin1DeUTF8(Valor(Filho(pai, nome)));
  std::string sem;
  for (const char c : texto.Vista()) {
    const auto byte = static_cast<unsigned char>(c);
    byte >= 0x80 && byte < 0xA0 ? sem += Tipografico(byte) : sem += c;
  }
  return sem;
}

CY Dinheiro(pugi::xml_node pai, std::string_view nome) {
  CY valor{};
  const std::string texto = Aparado(pai, nome);
  if (texto.empty()) return valor;
  const kx::ErroDinheiro erro = kx::DinheiroDeTexto(texto, valor);
  if (erro != kx::ErroDinheiro::Nenhum) {
    throw Falha(Caminho(pai, nome), Motivo(erro) + Entre(texto));
  }
  return valor;
}

REG_KXDMA Data(pugi::xml_node pai, std::string_view nome) {
  REG_KXDMA data{};
  const std::string texto = Aparado(pai, nome);
  if (!texto.empty() && !kx::DataDeISO(texto, data)) {
    throw Falha(Caminho(pai, nome), "data que não existe: " + Entre(texto));
  }
  return data;
}

std::uint64_t Inteiro(pugi::xml_node pai, std::string_view nome, std::uint64_t maximo) {
  return InteiroDeTexto(
      Aparado(pai, nome), [&] { return Caminho(pai, nome); }, maximo);
}

std::uint64_t InteiroDoAtributo(pugi::xml_node no, const char* nome, std::uint64_t maximo) {
  const auto lugar = [&] { return Caminho(no) + "/@" + nome; };
  return InteiroDeTexto(SemBrancos(no.attribute(nome).value()), lugar, maximo);
}

CString TextoExigido(pugi::xml_node pai, std::string_view nome) {
  CString texto = Texto(pai, nome);
  if (texto.IsEmpty()) throw Falha(Caminho(pai, nome), kAusente);
  return texto;
}

CY DinheiroExigido(pugi::xml_node pai, std::string_view nome) {
  if (Aparado(pai, nome).empty()) throw Falha(Caminho(pai, nome), kAusente);
  return Dinheiro(pai, nome);
}

}  // namespace kxdados
