// Texts, dates, access keys and checksums against plain versions of themselves.
#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <vector>

#include "core/Checksum.h"
#include "core/TKXCMBaseParaDados.h"
#include "core/TextoFixo.h"
#include "fuzz/Fuzz.h"
#include "kxldados/ChaveNFe.h"
#include "kxldados/Datas.h"
#include "kxldados/Latin1.h"
#include "tests/apoio/Prova.h"

namespace {

using fuzz::Bytes;

// A text of few different characters, so that searches find something.
std::string TextoPobre(Bytes& bytes, std::string_view caracteres, std::size_t maximo) {
  std::string texto = bytes.Texto(maximo);
  for (char& c : texto) c = caracteres[static_cast<unsigned char>(c) % caracteres.size()];
  return texto;
}

void Historico(Bytes& bytes) {
  using namespace std::string_view_literals;
  const std::string a = TextoPobre(bytes, "\r\n\nabAB \0\xE7"sv, 40);
  // The other one is often the same with a line end more, or with another tail.
  std::string b = bytes.Byte() % 4 == 0 ? TextoPobre(bytes, "\r\n\nab"sv, 40) : a;
  b.insert(bytes.Byte() % (b.size() + 1), TextoPobre(bytes, "\r\n\nc"sv, 3));
  const auto compara = &TKXCMBaseParaDados::ComparaComplementoHistorico;
  const CString textoA{std::string_view(a)};
  const CString textoB{std::string_view(b)};
  KX_EXIGE(compara(textoA, textoB) == (apoio::TresLinhas(a) == apoio::TresLinhas(b)), a + "|" + b);
  KX_EXIGE(compara(textoB, textoA) == compara(textoA, textoB) && compara(textoA, textoA));
}

// What the operations say of one another: the pieces make up the whole, and what is found stands
// there.
void ExigeBuscas(const CString& texto, const std::string& trecho, int a, int b) {
  const int tamanho = texto.GetLength();
  const int de = std::clamp(a, 0, tamanho);
  const int quantos = std::clamp(b, 0, tamanho - de);
  const int resto = tamanho - de - quantos;
  const CString meio = texto.Mid(a, b);
  KX_EXIGE(texto.Left(a).GetLength() == de && meio.GetLength() == quantos);
  KX_EXIGE(texto.Left(a) + meio + texto.Right(resto) == texto &&
           texto.Left(de) + texto.Mid(a) == texto);
  KX_EXIGE(texto.Right(a).GetLength() == de && texto.Left(tamanho - de) + texto.Right(a) == texto);

  const std::string_view vista = texto.Vista();
  const auto posicao = [](std::size_t i) {
    return i == std::string::npos ? -1 : static_cast<int>(i);
  };
  const auto inicio = static_cast<std::size_t>(de);
  KX_EXIGE(texto.Find(trecho.c_str(), a) == posicao(vista.find(trecho, inicio)));
  KX_EXIGE(texto.Find('a', a) == posicao(vista.find('a', inicio)));
  KX_EXIGE(texto.ReverseFind('a') == posicao(vista.rfind('a')));

  std::string palavras;
  int fim = 0;
  for (CString palavra = texto.Tokenize(trecho.c_str(), fim); fim != -1;
       palavra = texto.Tokenize(trecho.c_str(), fim)) {
    KX_EXIGE(!palavra.IsEmpty() && texto.Left(fim).Right(palavra.GetLength()) == palavra);
    KX_EXIGE(fim == tamanho || trecho.find(texto[fim]) != std::string::npos);
    palavras += palavra.Vista();
  }
  std::string semSeparadores(vista);
  std::erase_if(semSeparadores, [&](char c) { return trecho.find(c) != std::string::npos; });
  KX_EXIGE(palavras == semSeparadores);

  bool fora = false;
  try {
    KX_EXIGE(texto.GetAt(a) == texto.GetString()[a]);
  } catch (const std::out_of_range&) {
    fora = true;
  }
  KX_EXIGE(fora == (a < 0 || a > tamanho));
}

void ExigeMudancas(const CString& texto, const std::string& trecho, const std::string& outro, int a,
                   int b) {
  CString mudado = texto;
  mudado.TrimLeft(trecho.c_str());
  KX_EXIGE(texto.Right(mudado.GetLength()) == mudado);
  KX_EXIGE(mudado.IsEmpty() || trecho.find(mudado[0]) == std::string::npos);
  const CString tirado = texto.Left(texto.GetLength() - mudado.GetLength());
  KX_EXIGE(tirado.Vista().find_first_not_of(trecho) == std::string::npos);
  mudado = texto;
  const std::size_t depois = texto.Vista().find_last_not_of(trecho) + 1;
  KX_EXIGE(mudado.TrimRight(trecho.c_str()).Vista() == texto.Vista().substr(0, depois));
  KX_EXIGE(mudado.TrimLeft(trecho.c_str()) == CString(texto).Trim(trecho.c_str()));
  KX_EXIGE(mudado.MakeLower().CompareNoCase(CString(mudado).MakeUpper()) == 0);

  std::string esperado(texto.Vista());
  int trocas = 0;
  for (std::size_t i = 0; !trecho.empty() && (i = esperado.find(trecho, i)) != std::string::npos;
       i += outro.size(), ++trocas) {
    esperado.replace(i, trecho.size(), outro);
  }
  mudado = texto;
  KX_EXIGE(mudado.Replace(trecho.c_str(), outro.c_str()) == trocas && mudado.Vista() == esperado);
  const CString antes = texto.Left(a);
  const CString depoisDe = texto.Mid(std::max(a, 0));
  mudado = texto;
  KX_EXIGE(mudado.Delete(a, b) == mudado.GetLength());
  KX_EXIGE(mudado == antes + depoisDe.Mid(std::max(b, 0)));
  KX_EXIGE(mudado.Insert(a, texto.Mid(a, b)) == texto.GetLength() && mudado == texto);
  mudado.Format("%d|%s|%c", a, mudado.GetString(), 'x');
  KX_EXIGE(mudado.Vista() == std::to_string(a) + "|" + texto.GetString() + "|x");
}

int Sinal(int n) { return (n > 0) - (n < 0); }

void OperacoesDeTexto(Bytes& bytes) {
  const std::string plano = TextoPobre(bytes, "aAbB, \t\n\xE7\xC7\x8A\x9A\xFF\x9F\xD7\xF7", 48);
  const std::string trecho = TextoPobre(bytes, "ab, \xE7", 3);
  const std::string outro = TextoPobre(bytes, "abB\xC7,", 4);
  const int a = bytes.Byte() % 8 == 0 ? bytes.Valor<std::int32_t>() : bytes.Valor<std::int8_t>();
  const int b = bytes.Byte() % 8 == 0 ? bytes.Valor<std::int32_t>() : bytes.Valor<std::int8_t>();
  const CString texto(plano.c_str());
  ExigeBuscas(texto, trecho, a, b);
  ExigeMudancas(texto, trecho, outro, a, b);
  KX_EXIGE(texto.Compare(outro.c_str()) == Sinal(plano.compare(outro)));
}

// Field and text each in memory of exactly their size.
void TextoFixo(Bytes& bytes) {
  const std::size_t largura = 1 + bytes.Ate(39);
  const std::string origem = bytes.Texto(60);
  const int tamanho = bytes.Byte() % 16 == 0 && origem.size() >= largura
                          ? -1 - bytes.Byte()
                          : static_cast<int>(origem.size());
  const std::size_t ate = tamanho < 0 ? largura : origem.size();
  std::string esperado = origem.substr(0, std::min(ate, largura - 1));
  esperado.resize(largura);

  const std::vector<char> texto(origem.begin(), origem.end());
  std::vector<char> campo(largura, '#');
  kx::CopiaTextoFixo(campo.data(), largura, texto.data(), tamanho, "fuzz", 1);
  KX_EXIGE(std::equal(campo.begin(), campo.end(), esperado.begin()));
  KX_EXIGE(kx::LeTextoFixo(campo.data(), largura).Vista() == esperado.c_str());

  // From within the field itself.
  const std::string antes = esperado;
  const std::size_t inicio = bytes.Byte() % largura;
  const std::size_t quantos = bytes.Byte() % (largura - inicio + 1);
  esperado = antes.substr(inicio, std::min(quantos, largura - 1));
  esperado.resize(largura);
  kx::CopiaTextoFixo(campo.data(), largura, campo.data() + inicio, static_cast<int>(quantos),
                     "fuzz", 2);
  KX_EXIGE(std::equal(campo.begin(), campo.end(), esperado.begin()));
}

std::string Formatado(const char* formato, auto... valores) {
  CString texto;
  texto.Format(formato, valores...);
  return std::string(texto.Vista());
}

void Datas(Bytes& bytes) {
  const int ano = bytes.Valor<std::uint16_t>() % 10001;
  const int mes = static_cast<int>(bytes.Ate(13));
  const int dia = static_cast<int>(bytes.Ate(32));
  const int hora = static_cast<int>(bytes.Ate(24));
  const int minuto = static_cast<int>(bytes.Ate(60));
  const int segundo = static_cast<int>(bytes.Ate(60));
  const int horas = static_cast<int>(bytes.Ate(24));
  const int minutos = static_cast<int>(bytes.Ate(60));
  const char sinal = bytes.Byte() % 2 == 0 ? '+' : '-';
  const std::string texto = Formatado("%04d-%02d-%02d", ano, mes, dia);
  using namespace std::chrono;
  const year_month_day calendario(year(ano), month(static_cast<unsigned>(mes)),
                                  day(static_cast<unsigned>(dia)));
  const bool existe = calendario.ok() && ano >= 1 && ano <= 9999;

  REG_KXDMA data{9, 9, 9};
  KX_EXIGE(kx::DataDeISO(texto, data) == existe, texto);
  const std::string escrita =
      existe ? Formatado("%02d/%02d/%04d", dia, mes, ano) : std::string("09/09/0009");
  KX_EXIGE(kx::TextoDeData(data) == escrita, texto);

  const std::string completo =
      texto + Formatado("T%02d:%02d:%02d%c%02d:%02d", hora, minuto, segundo, sinal, horas, minutos);
  const int fuso = (horas * 60 + minutos) * (sinal == '-' ? -1 : 1);
  const sys_seconds momento =
      sys_days(calendario) + hours(hora) + minutes(minuto - fuso) + seconds(segundo);
  const year_month_day emUTC(floor<days>(momento));
  const hh_mm_ss<seconds> relogio(momento - floor<days>(momento));
  const bool valida = existe && hora <= 23 && minuto <= 59 && segundo <= 59 && horas <= 23 &&
                      minutos <= 59 && emUTC.year() >= year(1) && emUTC.year() <= year(9999);
  REG_KXDMAHMSUTC dataHora{};
  KX_EXIGE(kx::DataHoraDeISO(completo, dataHora) == valida, completo);
  const std::string escrito =
      valida ? Formatado("%02u/%02u/%04d %02d:%02d:%02d", unsigned(emUTC.day()),
                         unsigned(emUTC.month()), int(emUTC.year()),
                         static_cast<int>(relogio.hours().count()),
                         static_cast<int>(relogio.minutes().count()),
                         static_cast<int>(relogio.seconds().count()))
             : std::string();
  KX_EXIGE(kx::TextoDeDataHora(dataHora) == escrito, completo);
}

// Whatever is taken for a date was one: it is written with the digits that were read.
void DatasQuaisquer(Bytes& bytes) {
  const std::string texto = TextoPobre(bytes, "01239--::TZ+. ", 32);
  REG_KXDMA data{};
  if (kx::DataDeISO(texto, data)) {
    KX_EXIGE(kx::DataValida(data));
    KX_EXIGE(kx::TextoDeData(data) ==
             texto.substr(8, 2) + "/" + texto.substr(5, 2) + "/" + texto.substr(0, 4));
  } else {
    KX_EXIGE(kx::DataVazia(data));
  }
  REG_KXDMAHMSUTC dataHora{};
  if (kx::DataHoraDeISO(texto, dataHora)) {
    KX_EXIGE(kx::DataValida(dataHora.Data) && kx::HoraValida(dataHora.Hora), texto);
  } else {
    KX_EXIGE(dataHora == REG_KXDMAHMSUTC{});
  }
}

char DigitoDaChave(const std::string& chave) {
  constexpr int kPesos[] = {2, 3, 4, 5, 6, 7, 8, 9};
  int soma = 0;
  for (int i = 0; i < 43; ++i) {
    soma += (chave[static_cast<std::size_t>(42 - i)] - '0') * kPesos[i % 8];
  }
  const int digito = 11 - soma % 11;
  return static_cast<char>('0' + (digito >= 10 ? 0 : digito));
}

void Chaves(Bytes& bytes) {
  constexpr std::string_view kCaracteres = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  std::string texto(44, '0');
  for (std::size_t i = 0; i < texto.size(); ++i) {
    texto[i] = kCaracteres[bytes.Byte() % (i >= 6 && i < 18 ? 36 : 10)];
  }
  texto.back() = DigitoDaChave(texto);
  _KX_NFE_ps chave{{1, 2, 3}};
  KX_EXIGE(kx::ChaveDeTexto(texto, chave) == kx::ErroChave::Nenhum, texto);
  KX_EXIGE(kx::TextoDeChave(chave) == texto, texto);
  KX_EXIGE(kx::ModeloDaChave(chave) == std::stoi(texto.substr(20, 2)), texto);
  KX_EXIGE(kx::SerieDaChave(chave) == std::stoi(texto.substr(22, 3)), texto);
  KX_EXIGE(kx::NumeroDaChave(chave) == std::stoi(texto.substr(25, 9)), texto);

  // One character changed is refused, unless the digit has the same value: 10 and 11 are one, and
  // letters lie farther apart than the digits of modulo 11.
  std::string errado = texto;
  errado[bytes.Byte() % errado.size()] = static_cast<char>(bytes.Byte());
  _KX_NFE_ps outra{{1, 2, 3}};
  if (kx::ChaveDeTexto(errado, outra) == kx::ErroChave::Nenhum) {
    KX_EXIGE(DigitoDaChave(errado) == errado.back() && kx::TextoDeChave(outra) == errado, errado);
  } else {
    KX_EXIGE(outra == (_KX_NFE_ps{{1, 2, 3}}), errado);
  }

  const auto qualquer = bytes.Valor<_KX_NFE_ps>();
  const std::string lida = kx::TextoDeChave(qualquer);
  KX_EXIGE(lida.empty() ||
           (kx::ChaveDeTexto(lida, outra) == kx::ErroChave::Nenhum && outra == qualquer));
}

void Checksums(Bytes& bytes) {
  const auto anterior = bytes.Valor<std::uint32_t>();
  const unsigned corte = bytes.Byte();
  // Long enough for the carry-less multiplication, whatever the length of the input.
  std::string dados = bytes.Tudo();
  while (!dados.empty() && dados.size() < 600) dados += dados + 'x';
  std::uint32_t plano = anterior;
  for (const char c : dados) {
    plano ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) plano = (plano >> 1) ^ ((plano & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  KX_EXIGE(kx::CalculaChecksumTabela(dados.data(), dados.size(), anterior) == plano);
  KX_EXIGE(kx::CalculaChecksum(dados.data(), dados.size(), anterior) == plano);
  const std::size_t meio = std::min<std::size_t>(corte, dados.size());
  const std::uint32_t primeiro = kx::CalculaChecksum(dados.data(), meio, anterior);
  KX_EXIGE(kx::CalculaChecksum(dados.data() + meio, dados.size() - meio, primeiro) == plano);
}

void Transcodifica(Bytes& bytes) {
  const std::string texto = bytes.Texto(60);
  const std::string utf8 = kx::UTF8DeLatin1(texto);
  KX_EXIGE(kx::EhUTF8(utf8), utf8);
  const std::string qualquer(kx::Latin1DeUTF8(texto).Vista());
  KX_EXIGE(qualquer.size() <= texto.size() * 3);
  KX_EXIGE(kx::Latin1DeUTF8(utf8).Vista() == texto, texto);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  constexpr void (*kProvas[])(Bytes&) = {Historico, OperacoesDeTexto, TextoFixo,
                                         Datas,     DatasQuaisquer,   Chaves,
                                         Checksums, Transcodifica};
  Bytes bytes(dados, tamanho);
  kProvas[bytes.Ate(7)](bytes);
  return 0;
}
