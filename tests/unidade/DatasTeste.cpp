#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <chrono>
#include <limits>
#include <random>
#include <set>
#include <string>
#include <type_traits>
#include <unordered_set>

#include "kxldados/Datas.h"

namespace {

std::string Data(std::string_view texto) {
  REG_KXDMA data{};
  return kx::DataDeISO(texto, data) ? kx::TextoDeData(data) : "recusada";
}

std::string DataHora(std::string_view texto) {
  REG_KXDMAHMSUTC dataHora{};
  return kx::DataHoraDeISO(texto, dataHora) ? kx::TextoDeDataHora(dataHora) : "recusada";
}

}  // namespace

TEST(Datas, SoDiasDoCalendario) {
  EXPECT_EQ(Data("2024-02-29"), "29/02/2024");
  EXPECT_EQ(Data("2000-02-29"), "29/02/2000");
  EXPECT_EQ(Data("0001-01-01"), "01/01/0001");
  EXPECT_EQ(Data("9999-12-31"), "31/12/9999");
  for (const char* texto : {"2023-02-29", "1900-02-29", "2024-04-31", "2024-00-10", "2024-13-01",
                            "2024-01-00", "0000-01-01"}) {
    EXPECT_EQ(Data(texto), "recusada") << texto;
  }
  EXPECT_FALSE(kx::DataValida({}));
  EXPECT_FALSE(kx::DataValida({1, 1, 10000}));
}

TEST(Datas, FormaISO) {
  EXPECT_EQ(Data("2026-03-01T23:59:59-03:00"), "01/03/2026");
  EXPECT_EQ(Data("2026-03-01-03:00"), "01/03/2026");
  for (const char* texto : {"", "2026-03-0", "2026-03-011", "2026-3-01", "2026/03/01",
                            " 2026-03-01", "+026-03-01", "01-03-2026"}) {
    EXPECT_EQ(Data(texto), "recusada") << texto;
  }
}

TEST(Datas, RecusaNaoTocaNoDestino) {
  REG_KXDMA data{1, 2, 2003};
  EXPECT_FALSE(kx::DataDeISO("2023-02-30", data));
  EXPECT_EQ(data, (REG_KXDMA{1, 2, 2003}));
  REG_KXDMAHMSUTC dataHora{{1, 2, 2003}, {4, 5, 6, 0}};
  EXPECT_FALSE(kx::DataHoraDeISO("9999-12-31T23:00:00-03:00", dataHora));
  EXPECT_EQ(dataHora, (REG_KXDMAHMSUTC{{1, 2, 2003}, {4, 5, 6, 0}}));
}

TEST(Datas, DataHoraVaiParaUTC) {
  EXPECT_EQ(DataHora("2026-03-01T10:20:30Z"), "01/03/2026 10:20:30");
  EXPECT_EQ(DataHora("2026-02-28T23:30:15-03:00"), "01/03/2026 02:30:15");
  EXPECT_EQ(DataHora("2026-01-01T00:10:00.1234567+05:30"), "31/12/2025 18:40:00");
  for (const char* texto :
       {"2026-03-01", "2026-03-01T10:20:30", "2026-03-01T10:20Z", "2026-03-01T24:00:00Z",
        "2026-03-01T10:60:00Z", "2026-03-01T10:20:60Z", "2026-03-01 10:20:30Z",
        "2026-03-01T10:20:30-0300", "2026-03-01T10:20:30-24:00", "2026-03-01T10:20:30+03:60",
        "2026-03-01T10:20:30.Z", "2026-03-01T10:20:30.:Z", "2026-03-01T10:20:30ZZ",
        "0001-01-01T00:00:00+01:00"}) {
    EXPECT_EQ(DataHora(texto), "recusada") << texto;
  }
}

TEST(Datas, TextoDeNenhumaEDeInvalida) {
  EXPECT_EQ(kx::TextoDeData({}), "");
  EXPECT_EQ(kx::TextoDeDataHora({}), "");
  EXPECT_EQ(kx::TextoDeHora({}), "00:00:00");
  EXPECT_EQ(kx::TextoDeData({255, 0, 65535}), "255/00/65535");
}

// Every day of some years in each century, counted by the rule of leap years alone.
TEST(Datas, ContaDiasComoOCalendario) {
  const REG_KXDMA primeiro{1, 1, 1};
  REG_KXDMA dia = primeiro;
  REG_KXDMA anterior{};
  std::int32_t numero = 0;
  while (dia.Ano <= 9999) {
    if (dia.Ano % 100 < 6 || dia.Ano == 9999) {
      const std::string texto = kx::TextoDeData(dia);
      REG_KXDMA lida{};
      ASSERT_TRUE(anterior < dia && kx::SomaDias(primeiro, numero) == dia &&
                  kx::SomaDias(dia, -numero) == primeiro &&
                  kx::DiasEntre(primeiro, dia) == numero &&
                  kx::DiasEntre(dia, primeiro) == -numero && kx::DataDeTexto(texto, lida) &&
                  lida == dia && kx::DataDeCalendario(*kx::CalendarioDeData(dia)) == dia)
          << texto;
    }
    anterior = dia;
    ++numero;
    const bool bissexto = dia.Ano % 4 == 0 && (dia.Ano % 100 != 0 || dia.Ano % 400 == 0);
    const int dias[] = {31, bissexto ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (++dia.Dia <= dias[dia.Mes - 1]) continue;
    dia.Dia = 1;
    if (++dia.Mes <= 12) continue;
    dia.Mes = 1;
    ++dia.Ano;
  }
  EXPECT_EQ(numero, 3'652'059);
  EXPECT_EQ(kx::SomaDias(primeiro, numero), std::nullopt);
  EXPECT_EQ(kx::SomaDias(primeiro, -1), std::nullopt);
}

TEST(Datas, SemDataNaoHaConta) {
  constexpr auto kMuitos = std::numeric_limits<std::int32_t>::max();
  const REG_KXDMA boa{23, 11, 2026};
  for (const REG_KXDMA& data : {REG_KXDMA{}, {29, 2, 2023}, {1, 13, 2024}, {1, 1, 10000}}) {
    EXPECT_EQ(kx::SomaDias(data, 0), std::nullopt);
    EXPECT_EQ(kx::DiasEntre(data, boa), std::nullopt);
    EXPECT_EQ(kx::DiasEntre(boa, data), std::nullopt);
    EXPECT_EQ(kx::CalendarioDeData(data), std::nullopt);
    EXPECT_EQ(kx::MomentoDeDataHora({data, {}}), std::nullopt);
    EXPECT_FALSE(kx::DataHoraValida({data, {}}));
  }
  EXPECT_EQ(kx::SomaDias(boa, kMuitos), std::nullopt);
  EXPECT_EQ(kx::SomaDias(boa, -kMuitos - 1), std::nullopt);
  EXPECT_EQ(kx::SomaDias(REG_KXDMAHMSUTC{boa, {24, 0, 0, 0}}, 1), std::nullopt);
  EXPECT_EQ(kx::SomaDias(REG_KXDMAHMSUTC{boa, {23, 59, 58, 7}}, 8),
            (REG_KXDMAHMSUTC{{1, 12, 2026}, {23, 59, 58, 7}}));
  EXPECT_EQ(kx::MomentoDeDataHora({boa, {23, 60, 0, 0}}), std::nullopt);
  using std::chrono::year;
  EXPECT_EQ(kx::DataDeCalendario(year(2023) / 2 / 29), std::nullopt);
  EXPECT_EQ(kx::DataDeCalendario(year(0) / 1 / 1), std::nullopt);
  EXPECT_EQ(kx::DataDeCalendario(year(10000) / 1 / 1), std::nullopt);
}

TEST(Datas, MomentosIdaEVolta) {
  const REG_KXDMAHMSUTC inicio{{1, 1, 1}, {}};
  const REG_KXDMAHMSUTC fim{{31, 12, 9999}, {23, 59, 59, 0}};
  const auto primeiro = *kx::MomentoDeDataHora(inicio);
  const auto ultimo = *kx::MomentoDeDataHora(fim);
  const std::chrono::seconds um(1);
  EXPECT_EQ(kx::DataHoraDeMomento(primeiro), inicio);
  EXPECT_EQ(kx::DataHoraDeMomento(primeiro - um), std::nullopt);
  EXPECT_EQ(kx::DataHoraDeMomento(ultimo + um), std::nullopt);
  EXPECT_EQ(kx::DataHoraDeMomento(std::chrono::sys_seconds::max()), std::nullopt);
  EXPECT_EQ(kx::DataHoraDeMomento(std::chrono::sys_seconds(std::chrono::seconds(1'000'000'000))),
            (REG_KXDMAHMSUTC{{9, 9, 2001}, {1, 46, 40, 0}}));
  std::mt19937_64 sorteio(3);
  for (int i = 0; i < 10'000; ++i) {
    const auto momento = primeiro + um * static_cast<std::int64_t>(sorteio() % 315'537'897'600);
    const REG_KXDMAHMSUTC dataHora = *kx::DataHoraDeMomento(momento);
    ASSERT_EQ(kx::MomentoDeDataHora(dataHora), momento);
    ASSERT_TRUE(momento == ultimo || dataHora < kx::DataHoraDeMomento(momento + um));
    REG_KXDMAHMSUTC lida{};
    ASSERT_TRUE(kx::DataHoraDeTexto(kx::TextoDeDataHora(dataHora), lida));
    ASSERT_EQ(lida, dataHora);
  }
}

TEST(Datas, TextoBrasileiroEstrito) {
  const REG_KXDMAHMSUTC antes{{1, 2, 2003}, {4, 5, 6, 7}};
  REG_KXDMAHMSUTC lida = antes;
  for (const char* texto : {"", "1/02/2026", "01/02/26", "01-02-2026", " 01/02/2026", "01/02/2026 ",
                            "30/02/2026", "02/13/2026", "00/00/0000", "2026/02/01"}) {
    EXPECT_FALSE(kx::DataDeTexto(texto, lida.Data)) << texto;
    EXPECT_FALSE(kx::DataHoraDeTexto(texto + std::string(" 10:20:30"), lida)) << texto;
  }
  for (const char* hora :
       {"", " ", "T10:20:30", " 10:20", " 24:00:00", " 10:20:60", " 10:20:30Z"}) {
    EXPECT_FALSE(kx::DataHoraDeTexto(std::string("01/02/2026") + hora, lida)) << hora;
  }
  EXPECT_EQ(lida, antes);
}

TEST(Datas, OrdemEIgualdadeConcordam) {
  const REG_KXDMAHMSUTC a{{31, 1, 2026}, {10, 0, 0, 0}};
  EXPECT_TRUE(a < (REG_KXDMAHMSUTC{{1, 2, 2026}, {}}) && a > (REG_KXDMAHMSUTC{{31, 1, 2026}, {}}));
  EXPECT_TRUE(a < (REG_KXDMAHMSUTC{a.Data, {10, 0, 0, 1}}));
  EXPECT_TRUE(REG_KXDMA{} < (REG_KXDMA{1, 1, 1}) && (REG_KXDMA{31, 12, 2025}) < a.Data);
  EXPECT_TRUE((REG_KXDMC{a.Data, 9}) < (REG_KXDMC{a.Data, 10}));
  EXPECT_TRUE((REG_KXDMC{{1, 2, 2026}, 1}) > (REG_KXDMC{a.Data, 10}));
}

// Values that differ in one byte are keys of their own, and their hashes spread.
template <class T>
void ProvaChave() {
  static_assert(std::is_trivially_copyable_v<T> && std::is_aggregate_v<T>);
  std::set<T> ordenadas;
  std::unordered_set<T> espalhadas;
  std::set<std::size_t> hashes;
  for (std::size_t i = 0; i < sizeof(T) * 256; ++i) {
    std::array<unsigned char, sizeof(T)> bytes{};
    bytes[i / 256] = static_cast<unsigned char>(i % 256);
    const auto valor = std::bit_cast<T>(bytes);
    ordenadas.insert(valor);
    espalhadas.insert(valor);
    hashes.insert(std::hash<T>()(valor) % 65'536);
  }
  const std::size_t quantos = sizeof(T) * 255 + 1;
  EXPECT_EQ(ordenadas.size(), quantos);
  EXPECT_EQ(espalhadas.size(), quantos);
  EXPECT_GT(hashes.size(), quantos * 9 / 10);
}

TEST(Datas, ValoresSaoChavesDeMapas) {
  ProvaChave<CY>();
  ProvaChave<REG_KXDMA>();
  ProvaChave<REG_KXHMS>();
  ProvaChave<REG_KXDMAHMSUTC>();
  ProvaChave<REG_KXDMC>();
  ProvaChave<_KX_NFE_ps>();
  ProvaChave<_REG_POSICAO_PRODUTOPS>();
  ProvaChave<KXDataHora32>();
}
