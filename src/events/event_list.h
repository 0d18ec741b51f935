#pragma once

#include <memory>
#include <string>
#include <vector>

#include "events/event_form.h"
#include "host/list_frame.h"
#include "host/member_of.h"

namespace zorCrmParvel {

/// What tells one list of events from another.
struct ListaDeEventos {
  const char* titulo;  // also the head of the error source
  const char* sql;
  std::vector<ColunaDeLista> colunas;
  std::unique_ptr<EventForm> (*ficha)();
  bool anulaComMatricula;          // a removal names the vehicle, whose figures it brings up to date
  bool editaComMatricula = false;  // the ficha knows the row's vehicle even when its event has gone
};

template <typename T>
std::unique_ptr<EventForm> NovaFichaDeEvento() {
  return std::make_unique<T>();
}

/// The list of all events of one kind, of all vehicles. The record's id is in the column `Seg_Id`.
class EventList : public ListFrame {
 public:
  explicit EventList(const ListaDeEventos& lista) : lista_(lista) {}

 protected:
  std::string Titulo() const override { return lista_.titulo; }
  RecordsetRef AbrirLinhas() override;
  const std::vector<ColunaDeLista>& Colunas() const override { return lista_.colunas; }
  const char* ColunaChave() const override { return "Seg_Id"; }
  std::unique_ptr<Ficha> FichaNova() override;
  std::unique_ptr<Ficha> FichaDe(const std::string& id, const GridRow& row) override;
  void Anular(const std::string& id, const GridRow& row) override;

 private:
  std::unique_ptr<EventForm> NovaFicha() const;

  const ListaDeEventos& lista_;
};

extern const ListaDeEventos kListaDeGastos;
extern const ListaDeEventos kListaDeInspecoes;
extern const ListaDeEventos kListaDeRevisoes;
extern const ListaDeEventos kListaDeMultas;
extern const ListaDeEventos kListaDeSinistros;
extern const ListaDeEventos kListaDeSeguros;
extern const ListaDeEventos kListaDeAcessorios;

using VwLstGastos = MemberOf<EventList, kListaDeGastos>;
using VwLstInspecoes = MemberOf<EventList, kListaDeInspecoes>;
using VwLstRevisoes = MemberOf<EventList, kListaDeRevisoes>;
using VwLstMultas = MemberOf<EventList, kListaDeMultas>;
using VwLstSinistros = MemberOf<EventList, kListaDeSinistros>;
using VwLstSeguros = MemberOf<EventList, kListaDeSeguros>;
using VwLstAcessorios = MemberOf<EventList, kListaDeAcessorios>;

}  // namespace zorCrmParvel
