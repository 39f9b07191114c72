#include "kxldados/Datas.h"

#include <chrono>

namespace kx {

namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr std::size_t kTamanhoData = 10;  // AAAA-MM-DD
constexpr std::size_t kTamanhoHora = 8;   // hh:mm:ss

year_month_day Calendario(const REG_KXDMA& data) noexcept {
  return {std::chrono::year(data.Ano), std::chrono::month(data.Mes), std::chrono::day(data.Dia)};
}

bool EhDigito(char c) noexcept { return c >= '0' && c <= '9'; }

// True when the text has the form of the mask, in which 9 stands for any digit.
bool TemForma(std::string_view texto, std::string_view mascara) noexcept {
  if (texto.size() != mascara.size()) return false;
  for (std::size_t i = 0; i < mascara.size(); ++i) {
    if (mascara[i] == '9' ? !EhDigito(texto[i]) : texto[i] != mascara[i]) return false;
  }
  return true;
}

template <class T>
T Numero(std::string_view digitos) noexcept {
  int valor = 0;
  for (const char c : digitos) valor = valor * 10 + (c - '0');
  return static_cast<T>(valor);
}

bool LeData(std::string_view texto, REG_KXDMA& destino) noexcept {
  if (!TemForma(texto, "9999-99-99")) return false;
  const REG_KXDMA data{Numero<std::uint8_t>(texto.substr(8, 2)),
                       Numero<std::uint8_t>(texto.substr(5, 2)),
                       Numero<std::uint16_t>(texto.substr(0, 4))};
  if (!DataValida(data)) return false;
  destino = data;
  return true;
}

bool LeHora(std::string_view texto, REG_KXHMS& destino) noexcept {
  if (!TemForma(texto, "99:99:99")) return false;
  destino = {Numero<std::uint8_t>(texto.substr(0, 2)), Numero<std::uint8_t>(texto.substr(3, 2)),
             Numero<std::uint8_t>(texto.substr(6, 2)), 0};
  return HoraValida(destino);
}

// Reads "Z", "+hh:mm" or "-hh:mm" as what must be added to UTC to get the local time.
bool LeFuso(std::string_view texto, std::chrono::minutes& fuso) noexcept {
  fuso = {};
  if (texto == "Z") return true;
  if (!TemForma(texto, "+99:99") && !TemForma(texto, "-99:99")) return false;
  const int horas = Numero<int>(texto.substr(1, 2));
  const int minutos = Numero<int>(texto.substr(4, 2));
  fuso = std::chrono::minutes((horas * 60 + minutos) * (texto[0] == '-' ? -1 : 1));
  return horas <= 23 && minutos <= 59;
}

std::string_view SemFracao(std::string_view texto) noexcept {
  if (texto.size() < 2 || texto[0] != '.' || !EhDigito(texto[1])) return texto;
  std::size_t fim = 1;
  while (fim < texto.size() && EhDigito(texto[fim])) ++fim;
  return texto.substr(fim);
}

// False when the moment falls outside the years of the calendar.
bool ParaUTC(const REG_KXDMA& data, const REG_KXHMS& hora, std::chrono::minutes fuso,
             REG_KXDMAHMSUTC& destino) noexcept {
  const auto momento = sys_days(Calendario(data)) + std::chrono::hours(hora.Hora) +
                       std::chrono::minutes(hora.Minuto) - fuso;
  const auto dia = std::chrono::floor<std::chrono::days>(momento);
  const year_month_day calendario(dia);
  const int ano = static_cast<int>(calendario.year());
  if (ano < 1 || ano > 9999) return false;
  const auto minutos = (momento - dia).count();
  destino.Data = {static_cast<std::uint8_t>(static_cast<unsigned>(calendario.day())),
                  static_cast<std::uint8_t>(static_cast<unsigned>(calendario.month())),
                  static_cast<std::uint16_t>(ano)};
  destino.Hora = {static_cast<std::uint8_t>(minutos / 60), static_cast<std::uint8_t>(minutos % 60),
                  hora.Segundo, 0};
  return true;
}

std::string ComZeros(unsigned valor, std::size_t largura) {
  const std::string digitos = std::to_string(valor);
  return digitos.size() < largura ? std::string(largura - digitos.size(), '0') + digitos : digitos;
}

}  // namespace

bool DataValida(const REG_KXDMA& data) noexcept {
  return data.Ano >= 1 && data.Ano <= 9999 && Calendario(data).ok();
}

bool HoraValida(const REG_KXHMS& hora) noexcept {
  return hora.Hora <= 23 && hora.Minuto <= 59 && hora.Segundo <= 59;
}

bool DataDeISO(std::string_view texto, REG_KXDMA& destino) noexcept {
  constexpr std::string_view kDepoisDaData = "TZ+- ";
  if (texto.size() > kTamanhoData && kDepoisDaData.find(texto[kTamanhoData]) == std::string::npos) {
    return false;
  }
  return LeData(texto.substr(0, kTamanhoData), destino);
}

bool DataHoraDeISO(std::string_view texto, REG_KXDMAHMSUTC& destino) noexcept {
  constexpr std::size_t kInicioHora = kTamanhoData + 1;
  constexpr std::size_t kFimHora = kInicioHora + kTamanhoHora;
  if (texto.size() <= kFimHora || texto[kTamanhoData] != 'T') return false;
  REG_KXDMA data;
  REG_KXHMS hora;
  std::chrono::minutes fuso;
  return LeData(texto.substr(0, kTamanhoData), data) &&
         LeHora(texto.substr(kInicioHora, kTamanhoHora), hora) &&
         LeFuso(SemFracao(texto.substr(kFimHora)), fuso) && ParaUTC(data, hora, fuso, destino);
}

std::string TextoDeData(const REG_KXDMA& data) {
  if (DataVazia(data)) return {};
  return ComZeros(data.Dia, 2) + '/' + ComZeros(data.Mes, 2) + '/' + ComZeros(data.Ano, 4);
}

std::string TextoDeHora(const REG_KXHMS& hora) {
  return ComZeros(hora.Hora, 2) + ':' + ComZeros(hora.Minuto, 2) + ':' + ComZeros(hora.Segundo, 2);
}

std::string TextoDeDataHora(const REG_KXDMAHMSUTC& dataHora) {
  if (dataHora == REG_KXDMAHMSUTC{}) return {};
  return TextoDeData(dataHora.Data) + ' ' + TextoDeHora(dataHora.Hora);
}

}  // namespace kx
