#include <gtest/gtest.h>

#include <string>

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
        "2026-03-01T10:20:30.Z", "2026-03-01T10:20:30ZZ", "0001-01-01T00:00:00+01:00"}) {
    EXPECT_EQ(DataHora(texto), "recusada") << texto;
  }
}

TEST(Datas, TextoDeNenhumaEDeInvalida) {
  EXPECT_EQ(kx::TextoDeData({}), "");
  EXPECT_EQ(kx::TextoDeDataHora({}), "");
  EXPECT_EQ(kx::TextoDeHora({}), "00:00:00");
  EXPECT_EQ(kx::TextoDeData({255, 0, 65535}), "255/00/65535");
}
