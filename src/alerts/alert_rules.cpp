#include "alerts/alert_rules.h"

#include "drivers/motoristas.h"
#include "events/seguros.h"
#include "events/upkeep.h"
#include "host/row.h"
#include "platform/host.h"
#include "vehicles/computed_dates.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel::Tools {
namespace {

using platform::Variant;

constexpr std::int64_t kMuitoBreve = 10;  // days
constexpr std::int32_t kFolgaDeKm = 1000;

/// Writes the answer of the ladder; true when it is a hit.
bool Julgar(std::int64_t dias, bool& Alerta) {
  Alerta = FaixaDosDias(dias) != Faixa::kNenhuma;
  return Alerta;
}

/// True when the column holds 0: null doesn't.
bool EZero(const Row& row, const char* coluna) {
  const Variant valor = row.value(coluna);
  return !valor.IsNull() && valor.ToInteger() == 0;
}

/// Reads the vehicle of a row into `viatura`; true when it is in service. An unknown plate leaves the vehicle
/// that was read before it.
bool ViaturaActiva(const Row& row, const DataAccessRef& bd, clViaturas& viatura) {
  viatura.Matricula = row.text("Matricula");
  viatura.bd = bd;
  viatura.Ler();
  return viatura.Inactiva == 0;
}

/// A card counts when its number is there; without a date it is no hit, but a null is an error.
bool CartaoPorRenovar(const Row& row, const char* numero, const char* validade, bool& Alerta) {
  if (row.textOrEmpty(numero).empty()) return false;
  const platform::Date data = row.date(validade);
  return !data.IsZero() && Julgar(DiasAte(data), Alerta);
}

bool DocumentoPorRenovar(const Row& row, const char* validade, bool& Alerta) {
  const Variant data = row.value(validade);
  return !SemData(data, "30-12-1899") && Julgar(DiasAte(data), Alerta);
}

bool RevisaoPorData(const Row& row, bool& Alerta) {
  const Variant data = row.value("DataPrxRev");
  return !data.IsNull() && Julgar(DiasAte(data), Alerta);
}

bool RevisaoPorKm(const Row& row, bool& Alerta) {
  const std::int32_t km = Variant(row.currency("KmActual") - row.currency("KmPrxRev")).ToLong();
  Alerta = km <= kFolgaDeKm;
  return Alerta;
}

}  // namespace

Faixa FaixaDosDias(std::int64_t dias, std::int64_t limite) {
  if (dias > limite) return Faixa::kNenhuma;
  if (dias >= kMuitoBreve && dias < limite) return Faixa::kBreve;
  if (dias >= 0 && dias < kMuitoBreve) return Faixa::kMuitoBreve;
  return Faixa::kPassada;
}

std::int64_t DiasAte(const Variant& data) { return platform::DaysBetween(platform::Now(), data.ToDate()); }

bool SemData(const Variant& data, const char* texto) {
  return data.IsNull() || platform::EqualsText(data.ToDate(), texto);
}

void VerificaAlertasApolices(const DataAccessRef& bd, bool& Alerta) {
  const Snapshot snapshot(bd);
  clViaturas viatura;
  clSeguros seguro;
  seguro.bd = bd;
  const RecordsetRef rs = seguro.LerApolices();
  const Row row(*rs);
  for (; !rs->Eof() && !Alerta; rs->MoveNext()) {
    if (!ViaturaActiva(row, bd, viatura)) continue;
    if (EZero(row, "Inactiva")) Julgar(DiasAte(row.value("Validade")), Alerta);
  }
  rs->Close();
}

void VerificaAlertasRevisoes(const DataAccessRef& bd, bool& Alerta) {
  clViaturas viatura;
  viatura.bd = bd;
  const RecordsetRef rs = viatura.LerViaturas();
  const Row row(*rs);
  for (; !rs->Eof(); rs->MoveNext())
    if (RevisaoPorData(row, Alerta) || RevisaoPorKm(row, Alerta)) break;
  rs->Close();
}

void VerificaAlertasInspecoes(const DataAccessRef& bd, bool& Alerta) {
  const Snapshot snapshot(bd);
  clViaturas viatura;
  viatura.bd = bd;
  const RecordsetRef rs = viatura.LerViaturas();
  const Row row(*rs);
  std::int16_t Dias = 0;
  std::string MesAno;
  for (; !rs->Eof(); rs->MoveNext()) {
    if (!EZero(row, "Inactiva")) continue;
    ProximaInspecao(row.text("Matricula"), row.integer("AnoMatricula"), row.date("DataMatricula"), Dias,
                    MesAno, row.text("Categoria"), bd);
    if (Julgar(Dias, Alerta)) break;
  }
  rs->Close();
}

void VerificaAlertasAcessorios(const DataAccessRef& bd, bool& Alerta) {
  const Snapshot snapshot(bd);
  clViaturas viatura;
  clAcessorios acessorio;
  acessorio.bd = bd;
  const RecordsetRef rs = acessorio.LerTodosAcessorios();
  const Row row(*rs);
  for (; !rs->Eof() && !Alerta; rs->MoveNext()) {
    const Variant validade = row.value("DataVal");
    if (SemData(validade, "00:00:00") || !ViaturaActiva(row, bd, viatura)) continue;
    Julgar(DiasAte(validade), Alerta);
  }
  rs->Close();
}

void VerificaAlertasMotoristas(const DataAccessRef& bd, bool& Alerta) {
  clMotoristas motorista;
  motorista.bd = bd;
  const RecordsetRef rs = motorista.LerMotoristas();
  const Row row(*rs);
  for (; !rs->Eof(); rs->MoveNext()) {
    if (!EZero(row, "Inactivo")) continue;
    if (CartaoPorRenovar(row, "BI", "DataValBI", Alerta) ||
        CartaoPorRenovar(row, "CartaoCid", "ValCartaoCid", Alerta) ||
        DocumentoPorRenovar(row, "ValCartaCond", Alerta) || DocumentoPorRenovar(row, "ValidadePassa", Alerta))
      break;
  }
  rs->Close();
}

}  // namespace zorCrmParvel::Tools
