#pragma once

#include <string>

#include "events/event_tables.h"
#include "host/data_access.h"
#include "host/row.h"

namespace zorCrmParvel {

/// An event of a vehicle: one row of its table in memory, reached by its id or in the sequence of plates and
/// dates. `bd` is set before a call. Reads and writes fail with the caller; a removal answers false instead.
class EventEntity {
 public:
  /// `tabela` must outlive the event.
  explicit EventEntity(const TabelaDeEventos& tabela) : tabela_(tabela) {}
  EventEntity(const EventEntity&) = delete;
  EventEntity& operator=(const EventEntity&) = delete;
  virtual ~EventEntity() = default;

  std::string Codigo;  // the vehicle's plate
  std::int32_t Id = 0;
  platform::Date Data;  // orders the sequence
  std::string Obs;
  DataAccessRef bd;

  /// True, and `Id` that of the first (last) event of the sequence; false when there is none.
  bool LerPrimeiro();
  bool LerUltimo();
  /// `Id` becomes that of the second row at or past the plate and day in hand, or of the only one. Always
  /// true; error 3021 when there is no row. Events of one vehicle on one day are one place of the sequence,
  /// so that the walk stops at its second.
  bool LerProximo();
  bool LerAnterior();
  /// False, and every property as it was, when no row has the id.
  bool Ler();
  /// Inserts when no row has the id, else updates everything but the plate. Always true; a new id isn't read
  /// back.
  bool Escrever();
  /// False when the database refused.
  bool Anular();
  /// The id that the user picks, as a text, empty when none. With `TipoMostrar` 1 the events of `Codigo`
  /// alone, where the lookup can be limited.
  std::string MostraLista(int TipoMostrar);
  /// Prints the table, where it has a report. Always false.
  bool MostraMapa();

 protected:
  virtual void LerCampos(const Row& row) = 0;
  virtual void EscreverCampos(Row& row) const = 0;
  /// Opens a statement for reading. The caller closes the rows.
  RecordsetRef Abrir(const Statement& statement) const;
  /// The events of the vehicle in `Codigo`, in no order.
  RecordsetRef LerDaViatura() const;
  /// The same in an order; those of all vehicles when `Codigo` is empty.
  RecordsetRef LerDaViaturaOuTodos(const char* ordem) const;

 private:
  Statement Seleccao() const;
  bool LerExtremo(const Statement& statement);
  Statement Sequencia(const char* comparacao) const;
  bool Passo(const Statement& statement);

  const TabelaDeEventos& tabela_;
};

}  // namespace zorCrmParvel
