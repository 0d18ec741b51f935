#pragma once

#include <initializer_list>

namespace zorCrmParvel {

/// What tells one vehicle event from another: its table and the texts of its lookup and report.
struct TabelaDeEventos {
  const char* tabela;
  const char* id;    // surrogate key, numbered by the database
  const char* data;  // the date that orders the events of a vehicle
  const char* tituloLista;
  const char* sqlLista;
  bool listaPorViatura;  // the lookup can be limited to one vehicle
  long larguraLista;     // twips, as the columns
  std::initializer_list<float> colunasLista;
  const char* tituloMapa = nullptr;  // null: the event has no report
  const char* sqlMapa = nullptr;     // those that the server rejects stand as they are
  const char* fimDoUltimo = "";      // stands behind the table's name in the read of the last event
};

extern const TabelaDeEventos kTabelaDeGastos;
extern const TabelaDeEventos kTabelaDeSeguros;
extern const TabelaDeEventos kTabelaDeRevisoes;
extern const TabelaDeEventos kTabelaDeInspecoes;
extern const TabelaDeEventos kTabelaDeAcessorios;
extern const TabelaDeEventos kTabelaDeMultas;
extern const TabelaDeEventos kTabelaDeSinistros;

}  // namespace zorCrmParvel
