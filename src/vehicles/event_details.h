#pragma once

#include <functional>
#include <string>
#include <vector>

#include "events/event_entity.h"
#include "vehicles/viaturas_fields.h"

namespace zorCrmParvel {

class Viaturas;

/// One thing that stands on a tab of events beside its grid, and what it shows of the event chosen there. All
/// of it is read only but what belongs to the vehicle itself.
struct Detalhe {
  enum Onde {
    kCampo,         // a field, in `Campo`
    kData,          // a date, in `DTPicker1`
    kLinha,         // a line of text, in `Titulo`
    kModalidade,    // the list of a policy's periods
    kDaViatura,     // a field of the vehicle
    kDataDaViatura  // a date of the vehicle
  };

  Onde onde;
  int indice = 0;
  const char* legenda = "";
  Escrita escrita = Escrita::kTexto;
  const char* formato = "dd-mm-yyyy";  // of a date
  bool esvazia = false;                // a line that goes with the event's fields when they are emptied
  /// Shows an event, codes by their names. Empty where events change nothing.
  std::function<void(Viaturas& ficha, const EventEntity& evento)> mostrar = nullptr;
};

/// The rows of details of a tab, from the top; the key goes through them in this order.
using Detalhes = std::vector<std::vector<Detalhe>>;

Detalhes DetalhesDaApolice();
Detalhes DetalhesDoAcessorio();
Detalhes DetalhesDoGasto();
Detalhes DetalhesDaInspeccao();
Detalhes DetalhesDaRevisao();
Detalhes DetalhesDoSinistro();
Detalhes DetalhesDaMulta();

/// The name that a code stands for in its table; what the entity begins with when there is none.
template <typename Entity>
std::string NomeDe(const DataAccessRef& bd, const std::string& codigo) {
  Entity entidade;
  entidade.bd = bd;
  entidade.Codigo = codigo;
  entidade.Ler();
  return entidade.Descrição;
}

}  // namespace zorCrmParvel
