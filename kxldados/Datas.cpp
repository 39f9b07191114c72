#include "kxldados/Datas.h"

namespace kx {

namespace {

using std::chrono::sys_days;
using std::chrono::sys_seconds;
using std::chrono::year_month_day;

constexpr std::size_t kTamanhoData = 10;  // AAAA-MM-DD
constexpr std::size_t kTamanhoHora = 8;   // hh:mm:ss
constexpr std::size_t kInicioHora = kTamanhoData + 1;

constexpr int kPrimeiroAno = 1;
constexpr int kUltimoAno = 9999;
constexpr sys_days kPrimeiroDia = std::chrono::year(kPrimeiroAno) / 1 / 1;
constexpr sys_days kUltimoDia = std::chrono::year(kUltimoAno) / 12 / 31;

year_month_day Calendario(const REG_KXDMA& data) noexcept {
  return {std::chrono::year(data.Ano), std::chrono::month(data.Mes), std::chrono::day(data.Dia)};
}

// Of a day within the years of the calendar.
REG_KXDMA Data(const year_month_day& calendario) noexcept {
  return {static_cast<std::uint8_t>(static_cast<unsigned>(calendario.day())),
          static_cast<std::uint8_t>(static_cast<unsigned>(calendario.month())),
          static_cast<std::uint16_t>(static_cast<int>(calendario.year()))};
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

// The digits of a date, whatever stands between them.
bool LeData(std::string_view dia, std::string_view mes, std::string_view ano,
            REG_KXDMA& destino) noexcept {
  const REG_KXDMA data{Numero<std::uint8_t>(dia), Numero<std::uint8_t>(mes),
                       Numero<std::uint16_t>(ano)};
  if (!DataValida(data)) return false;
  destino = data;
  return true;
}

bool LeDataISO(std::string_view texto, REG_KXDMA& destino) noexcept {
  return TemForma(texto, "9999-99-99") &&
         LeData(texto.substr(8, 2), texto.substr(5, 2), texto.substr(0, 4), destino);
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

std::string ComZeros(unsigned valor, std::size_t largura) {
  const std::string digitos = std::to_string(valor);
  return digitos.size() < largura ? std::string(largura - digitos.size(), '0') + digitos : digitos;
}

}  // namespace

bool DataValida(const REG_KXDMA& data) noexcept {
  return data.Ano >= kPrimeiroAno && data.Ano <= kUltimoAno && Calendario(data).ok();
}

bool HoraValida(const REG_KXHMS& hora) noexcept {
  return hora.Hora <= 23 && hora.Minuto <= 59 && hora.Segundo <= 59;
}

bool DataHoraValida(const REG_KXDMAHMSUTC& dataHora) noexcept {
  return DataValida(dataHora.Data) && HoraValida(dataHora.Hora);
}

std::optional<year_month_day> CalendarioDeData(const REG_KXDMA& data) noexcept {
  if (!DataValida(data)) return {};
  return Calendario(data);
}

std::optional<REG_KXDMA> DataDeCalendario(const year_month_day& calendario) noexcept {
  const int ano = static_cast<int>(calendario.year());
  if (ano < kPrimeiroAno || ano > kUltimoAno || !calendario.ok()) return {};
  return Data(calendario);
}

std::optional<std::int32_t> DiasEntre(const REG_KXDMA& de, const REG_KXDMA& ate) noexcept {
  if (!DataValida(de) || !DataValida(ate)) return {};
  const auto dias = sys_days(Calendario(ate)) - sys_days(Calendario(de));
  return static_cast<std::int32_t>(dias.count());
}

// Compared before it is added: a count of days may be kept in 32 bits.
std::optional<REG_KXDMA> SomaDias(const REG_KXDMA& data, std::int32_t dias) noexcept {
  if (!DataValida(data)) return {};
  const sys_days dia = Calendario(data);
  if (dias < (kPrimeiroDia - dia).count() || dias > (kUltimoDia - dia).count()) return {};
  return Data(dia + std::chrono::days(dias));
}

std::optional<REG_KXDMAHMSUTC> SomaDias(const REG_KXDMAHMSUTC& dataHora,
                                        std::int32_t dias) noexcept {
  const std::optional<REG_KXDMA> data = SomaDias(dataHora.Data, dias);
  if (!data || !HoraValida(dataHora.Hora)) return {};
  return REG_KXDMAHMSUTC{*data, dataHora.Hora};
}

std::optional<sys_seconds> MomentoDeDataHora(const REG_KXDMAHMSUTC& dataHora) noexcept {
  if (!DataHoraValida(dataHora)) return {};
  return sys_days(Calendario(dataHora.Data)) + std::chrono::hours(dataHora.Hora.Hora) +
         std::chrono::minutes(dataHora.Hora.Minuto) + std::chrono::seconds(dataHora.Hora.Segundo);
}

std::optional<REG_KXDMAHMSUTC> DataHoraDeMomento(sys_seconds momento) noexcept {
  if (momento < kPrimeiroDia || momento >= kUltimoDia + std::chrono::days(1)) return {};
  const auto dia = std::chrono::floor<std::chrono::days>(momento);
  const auto segundos = (momento - dia).count();
  return REG_KXDMAHMSUTC{
      Data(dia),
      {static_cast<std::uint8_t>(segundos / 3600), static_cast<std::uint8_t>(segundos / 60 % 60),
       static_cast<std::uint8_t>(segundos % 60), 0}};
}

bool DataDeTexto(std::string_view texto, REG_KXDMA& destino) noexcept {
  return TemForma(texto, "99/99/9999") &&
         LeData(texto.substr(0, 2), texto.substr(3, 2), texto.substr(6, 4), destino);
}

bool DataHoraDeTexto(std::string_view texto, REG_KXDMAHMSUTC& destino) noexcept {
  REG_KXDMAHMSUTC lida;
  if (texto.size() <= kInicioHora || texto[kTamanhoData] != ' ' ||
      !DataDeTexto(texto.substr(0, kTamanhoData), lida.Data) ||
      !LeHora(texto.substr(kInicioHora), lida.Hora)) {
    return false;
  }
  destino = lida;
  return true;
}

bool DataDeISO(std::string_view texto, REG_KXDMA& destino) noexcept {
  constexpr std::string_view kDepoisDaData = "TZ+- ";
  if (texto.size() > kTamanhoData && kDepoisDaData.find(texto[kTamanhoData]) == std::string::npos) {
    return false;
  }
  return LeDataISO(texto.substr(0, kTamanhoData), destino);
}

bool DataHoraDeISO(std::string_view texto, REG_KXDMAHMSUTC& destino) noexcept {
  constexpr std::size_t kFimHora = kInicioHora + kTamanhoHora;
  if (texto.size() <= kFimHora || texto[kTamanhoData] != 'T') return false;
  REG_KXDMAHMSUTC local;
  std::chrono::minutes fuso;
  if (!LeDataISO(texto.substr(0, kTamanhoData), local.Data) ||
      !LeHora(texto.substr(kInicioHora, kTamanhoHora), local.Hora) ||
      !LeFuso(SemFracao(texto.substr(kFimHora)), fuso)) {
    return false;
  }
  const auto momento = MomentoDeDataHora(local);
  const auto lida = momento ? DataHoraDeMomento(*momento - fuso) : std::nullopt;
  if (!lida) return false;
  destino = *lida;
  return true;
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
