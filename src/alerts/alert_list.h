#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "alerts/alert_counts.h"
#include "host/list_frame.h"
#include "host/member_of.h"

namespace zorCrmParvel {

/// A band's style on the grid.
struct EstiloDeAlerta {
  const char* nome;
  std::uint32_t cor;  // 0xRRGGBB
};

/// What tells one alert list from another.
struct ListaDeAlertas {
  const char* titulo;  // also the head of the error source
  RecordsetRef (*linhas)(const DataAccessRef& bd);
  std::vector<EstiloDeAlerta> estilos;
  std::vector<ColunaDeLista> colunas;
  std::vector<platform::FormatCondition> condicoes;  // the first that a row meets colours it
  const char* chave;                                 // column that holds the key of a row's ficha
  const char* ficha;                                 // by its name in the catalogue
  const char* rotina;                                // of the ficha, takes the key
};

/// What is due, found anew with every start. Rows are coloured by their band and open the ficha of what they
/// speak of; they can't be added or removed.
class AlertList : public ListFrame {
 public:
  explicit AlertList(const ListaDeAlertas& lista) : lista_(lista) {}

  void ICrmVwList_Remover(GridRow* /*row*/) override {}
  void ICrmVwList_BeforePopUpViewListEdit(PopUpMenu& menu) override;
  /// Finds the rows and counts them by band, without a grid. Errors carry the list's title as their source.
  ContagemDeAlertas Contar();
  /// True when rows of the list can be in the band.
  bool TemFaixa(Tools::Faixa faixa) const;

 protected:
  std::string Titulo() const override { return lista_.titulo; }
  RecordsetRef AbrirLinhas() override { return lista_.linhas(mybd); }
  const std::vector<ColunaDeLista>& Colunas() const override { return lista_.colunas; }
  void PreencheGrid(const RecordsetRef& linhas) override;
  const char* ColunaChave() const override { return lista_.chave; }
  /// The ficha of what the row speaks of, where the catalogue knows it.
  std::unique_ptr<Ficha> FichaDe(const std::string& chave, const GridRow& row) override;

  /// A column of the grid that is set up without rows.
  struct ColunaSolta {
    const char* nome;
    const char* legenda;
    float largura;  // twips
    int limite;     // characters
    const char* formato = "";
    bool escondida = false;
  };
  /// Sets the master grid up without rows: a heading style, the list's own styles, columns and the bands of
  /// `Dias`.
  void PreparaGrelha(const std::vector<ColunaSolta>& colunas);
  void PreparaGrelhaDeMotoristas();

 private:
  const ListaDeAlertas& lista_;
};

extern const ListaDeAlertas kAlertasDeApolices;
extern const ListaDeAlertas kAlertasDeRevisoes;
extern const ListaDeAlertas kAlertasDeViaturas;
extern const ListaDeAlertas kAlertasDeInspeccoes;
extern const ListaDeAlertas kAlertasDeMotoristas;
extern const ListaDeAlertas kAlertasDeAcessorios;

using VwLstAlertas = MemberOf<AlertList, kAlertasDeApolices>;
using VwLstAlertasRev = MemberOf<AlertList, kAlertasDeRevisoes>;
using VwLstAlertasViat = MemberOf<AlertList, kAlertasDeViaturas>;

class VwLstAlertasInsp : public MemberOf<AlertList, kAlertasDeInspeccoes> {
 public:
  /// Another set-up of the grid, for hosts that fill it themselves.
  void Act_GrelhaInsp();
};

class VwLstAlertasMot : public MemberOf<AlertList, kAlertasDeMotoristas> {
 public:
  /// Another set-up of the grid, for hosts that fill it themselves.
  void Act_GrelhaMot() { PreparaGrelhaDeMotoristas(); }
};

class VwLstAlertasAcess : public MemberOf<AlertList, kAlertasDeAcessorios> {
 public:
  /// The set-up of the drivers' grid, whose columns aren't those of this list's rows.
  void Act_GrelhaMot() { PreparaGrelhaDeMotoristas(); }
};

}  // namespace zorCrmParvel
