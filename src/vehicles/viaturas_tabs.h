#pragma once

#include <array>
#include <memory>
#include <vector>

#include "vehicles/event_details.h"
#include "vehicles/vehicle_events.h"
#include "vehicles/viaturas_form.h"

namespace zorCrmParvel {

/// The tabs of the vehicle's ficha.
enum SeparadorDaViatura : int {
  kIdentificacao,
  kDUC,
  kApolices,
  kLeasing,
  kRevisoes,
  kInspeccao,
  kAcessorios,
  kGastos,
  kSinistros,
  kMultas,
  kObs
};

/// The hidden last column of every grid: the key of the event.
inline constexpr const char* kColunaId = "Id";

struct ColunaDaGrelha {
  const char* chave;
  const char* titulo;
  float largura;        // twips
  const char* formato;  // mask of a number, empty for plain text
  const char* origem;   // the column of the table
  /// What the cell shows for a value; null shows it as it is.
  platform::Variant (*converter)(const platform::Variant& valor, const DataAccessRef& bd) = nullptr;
};

/// What tells one tab of events from another: its grid, the events in it, their details and their ficha.
struct SeparadorDeEventos {
  int indice;
  platform::SGGrid Viaturas::*grelha;
  std::vector<ColunaDaGrelha> colunas;
  const char* origemId;    // the column of the table with the event's key
  const char* preenchida;  // the column that isn't empty in a row with an event
  EventosDaViatura eventos;
  std::unique_ptr<EventEntity> (*novo)();  // an event to read one into
  int campoId;                             // the field with the key of the event on the tab, out of sight
  Detalhes detalhes;
  platform::PushButton Viaturas::*editar;
  int arquivo;  // place of its archive button
  const char* ficha;
  const char* carrega;  // the ficha's routine that loads an event
  bool mudaValores;     // its ficha may have changed the vehicle's figures
};

/// In the order in which a vehicle's events are read.
const std::array<SeparadorDeEventos, 7>& SeparadoresDeEventos();

}  // namespace zorCrmParvel
