#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/calendario.h"
#include "host/data_access.h"
#include "host/form_catalog.h"
#include "host/list_view.h"

namespace zorCrmParvel {

/// An object of the host that the module keeps and hands back.
class HostApi {
 public:
  virtual ~HostApi() = default;
};

/// What a host sets on a module before it calls it, and can read back unchanged. What is a pointer stays the
/// host's.
class ICrmSistema {
 public:
  virtual ~ICrmSistema() = default;

  Form* ICrmSistema_AppOwnerWnd = nullptr;
  std::string ICrmSistema_AppNome;
  std::string ICrmSistema_AppPercUserIni;
  std::string ICrmSistema_AppFileUserIni;
  DataAccessRef ICrmSistema_ZorDataAccess;  // everything is read and written through this one
  DataAccessRef ICrmSistema_NxtDataAccess;
  HostApi* ICrmSistema_NxtApi = nullptr;
  /// Appends to the host's open alert recordset one row for each family that has something due.
  virtual void ICrmSistema_AlertasAdd(RecordsetRef& alertas) = 0;
};

/// The entry class: a host creates one, sets the properties of `ICrmSistema`, and from then on asks for lists
/// and fichas. It routes; it holds references and nothing else. The order of the members is the one hosts
/// expect. It and all that it gives are for the thread of the user's screens alone; without a data-access
/// object whatever reads raises error 91.
class Sistema : public ICrmSistema {
 public:
  Sistema();

  /// Listens to the host's calendar from now on, and to no other, until this object goes.
  void Calendario(zorCrmParvel::Calendario& calendario);
  /// A new list by its key, compared character for character; null for an unknown key. It isn't started.
  std::unique_ptr<ICrmVwList> MostraListas(const std::string& NomeLista);
  std::string QualquerCoisa() const { return {}; }

  // Each shows the ficha of its name, empty and modal over the host's window.
  void Viaturas_MostraFicha() { MostraFicha("Viaturas"); }
  void Motoristas_MostraFicha() { MostraFicha("Motoristas"); }
  void Multas_MostraFicha() { MostraFicha("Multas"); }
  void Inspecoes_MostraFicha() { MostraFicha("Inspecoes"); }
  void Acessorios_MostraFicha() { MostraFicha("Acessorios"); }
  void Sinistros_MostraFicha() { MostraFicha("Sinistros"); }
  void Seguros_MostraFicha() { MostraFicha("Seguros"); }
  void Revisoes_MostraFicha() { MostraFicha("Revisoes"); }
  void Alertas_Mostra() {}
  // Each answers in `Alerta` whether something of its family is due; a family without rows leaves it as it
  // came.
  void VerificaAlertasMotoristas(bool& Alerta);
  void VerificaAlertasInspecoes(bool& Alerta);
  void VerificaAlertasRevisoes(bool& Alerta);
  void VerificaAlertasAcessorios(bool& Alerta);
  void VerificaAlertasApolices(bool& Alerta);
  void Gastos_MostraFicha() { MostraFicha("Gastos"); }
  void Categorias_MostraFicha() { MostraFicha("Categorias"); }
  void Departamentos_MostraFicha() { MostraFicha("Departamentos"); }
  void Modelos_MostraFicha() { MostraFicha("Modelos"); }
  void TiposManut_MostraFicha() { MostraFicha("TiposManut"); }
  void TiposAcessorios_MostraFicha() { MostraFicha("TiposAcessorios"); }
  void TiposGastos_MostraFicha() { MostraFicha("TiposGastos"); }
  void Companhias_MostraFicha() { MostraFicha("Companhias"); }
  void TiposSeguro_MostraFicha() { MostraFicha("TiposSeguro"); }
  void Viagens_MostraFicha() { MostraFicha("Viagens"); }
  void Marcas_MostraFicha() { MostraFicha("Marcas"); }

  void ICrmSistema_AlertasAdd(RecordsetRef& alertas) override;

  /// The keys that `MostraListas` knows, in its own order.
  static std::vector<std::string> ChavesDasListas();
  static bool TemLista(const std::string& NomeLista);
  /// The ficha of this name, for hosts that offer them from a table. An unknown name does nothing.
  void MostraFicha(const std::string& nome);

 private:
  zorCrmParvel::Calendario::Assinatura myCalendario_;
};

}  // namespace zorCrmParvel
