#include "vehicles/vehicle_events.h"

#include "events/gastos.h"
#include "events/incidents.h"
#include "events/seguros.h"
#include "events/upkeep.h"
#include "host/tools.h"
#include "platform/host.h"

namespace zorCrmParvel {

RespostaAosAvisos AvisarDosEventos(const DataAccessRef& bd, const std::string& matricula,
                                   const AvisosDeAnulacao& avisos) {
  constexpr std::array<EventosDaViatura, 7> kTipos = {
      &LerEventos<clAcessorios, &clAcessorios::LerAcessorios>,
      &LerEventos<clSeguros, &clSeguros::LerApolices>,
      &LerEventos<clSinistros, &clSinistros::LerSinistros>,
      &LerEventos<clMultas, &clMultas::LerMultas>,
      &LerEventos<clRevisoes, &clRevisoes::LerRevisoes>,
      &LerEventos<clGastos, &clGastos::LerGastos>,
      &LerEventos<clInspecoes, &clInspecoes::LerInspecoes>,
  };
  RespostaAosAvisos resposta = RespostaAosAvisos::kSemAvisos;
  for (std::size_t i = 0; i < kTipos.size(); ++i) {
    const RecordsetRef eventos = kTipos[i](bd, matricula);
    const bool existem = eventos->RecordCount() > 0;
    eventos->Close();
    if (!existem) continue;
    if (Tools::Mensagem("", avisos[i], Tools::kOkCancelar) != platform::kOk)
      return RespostaAosAvisos::kRecusados;
    resposta = RespostaAosAvisos::kAceites;
  }
  return resposta;
}

}  // namespace zorCrmParvel
