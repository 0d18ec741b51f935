#include "vehicles/event_details.h"

#include "drivers/motoristas.h"
#include "events/gastos.h"
#include "events/incidents.h"
#include "events/seguros.h"
#include "events/upkeep.h"
#include "masterdata/tipos_gastos.h"
#include "platform/format.h"
#include "platform/host.h"
#include "vehicles/viaturas_form.h"

namespace zorCrmParvel {
namespace {

using platform::Currency;
using platform::Date;

/// The usual details of an event, by the property that each shows.
template <typename Evento>
struct De {
  using Texto_ = std::string Evento::*;
  using Numero_ = Currency Evento::*;

  static Detalhe Texto(int indice, const char* legenda, Texto_ texto, Escrita escrita = Escrita::kTexto) {
    return {.onde = Detalhe::kCampo,
            .indice = indice,
            .legenda = legenda,
            .escrita = escrita,
            .mostrar = [=](Viaturas& ficha, const EventEntity& evento) {
              ficha.Campo[indice].Text = static_cast<const Evento&>(evento).*texto;
            }};
  }
  static Detalhe Notas(int indice, Texto_ texto) {
    return Texto(indice, "Observações", texto, Escrita::kNotas);
  }
  template <typename Tabela>
  static Detalhe Nome(int indice, const char* legenda, Texto_ codigo) {
    return {.onde = Detalhe::kCampo,
            .indice = indice,
            .legenda = legenda,
            .mostrar = [=](Viaturas& ficha, const EventEntity& evento) {
              ficha.Campo[indice].Text =
                  NomeDe<Tabela>(ficha.mybd, static_cast<const Evento&>(evento).*codigo);
            }};
  }
  static Detalhe Numero(int indice, const char* legenda, Numero_ numero, Escrita escrita = Escrita::kValor) {
    return {.onde = Detalhe::kCampo,
            .indice = indice,
            .legenda = legenda,
            .escrita = escrita,
            .mostrar = [=](Viaturas& ficha, const EventEntity& evento) {
              ficha.Campo[indice].Text = (static_cast<const Evento&>(evento).*numero).ToText();
            }};
  }
  static Detalhe Km(int indice, const char* legenda, Numero_ numero) {
    return Numero(indice, legenda, numero, Escrita::kKm);
  }
  /// `texto` is worked out from the event.
  static Detalhe Linha(int indice, std::string (*texto)(const Viaturas&, const Evento&), bool esvazia) {
    return {.onde = Detalhe::kLinha,
            .indice = indice,
            .esvazia = esvazia,
            .mostrar = [=](Viaturas& ficha, const EventEntity& evento) {
              ficha.Titulo[indice].Caption = texto(ficha, static_cast<const Evento&>(evento));
            }};
  }
};

/// The date that orders the events, as it stands.
Detalhe DataDoEvento(int indice, const char* legenda = "Data") {
  return {.onde = Detalhe::kData,
          .indice = indice,
          .legenda = legenda,
          .mostrar = [=](Viaturas& ficha, const EventEntity& evento) {
            ficha.DTPicker1[indice].Value = evento.Data;
          }};
}

/// The same as far as its format shows it.
Detalhe DataNoFormato(int indice, const char* formato) {
  return {.onde = Detalhe::kData,
          .indice = indice,
          .legenda = "Data",
          .formato = formato,
          .mostrar = [=](Viaturas& ficha, const EventEntity& evento) {
            ficha.DTPicker1[indice].Value = Date::Parse(platform::FormatDate(evento.Data, formato));
          }};
}

Detalhe CampoProprio(int indice) { return {.onde = Detalhe::kDaViatura, .indice = indice}; }
Detalhe DataPropria(int indice) { return {.onde = Detalhe::kDataDaViatura, .indice = indice}; }

std::string PrazoDaApolice(const Viaturas&, const clSeguros& seguro) {
  if (seguro.Inactiva != 0) return {};
  const auto dias = platform::DaysBetween(platform::Today(), seguro.Validade);
  if (dias < 0) return "Prazo de pagamento ultrapassado!";
  return "Faltam ...  " + std::to_string(dias) + " dias";
}

/// How far the accessory has gone: up to its last km, or to the vehicle's.
Currency Percurso(const Viaturas& ficha, const clAcessorios& acessorio) {
  return (acessorio.KmFinal == 0 ? ficha.viatura().KmActual : acessorio.KmFinal) - acessorio.KmInicial;
}

std::string LinhaDoPercurso(const Viaturas& ficha, const clAcessorios& acessorio) {
  return "Acessório com " + platform::Format(Percurso(ficha, acessorio), "###,##0") + " Km";
}

std::string LinhaDoCusto(const Viaturas& ficha, const clAcessorios& acessorio) {
  const Currency km = Percurso(ficha, acessorio);
  const double custo = km <= 0 ? 0 : platform::Divide(acessorio.Custo.ToDouble(), km.ToDouble());
  return "Custo/Km " + platform::Format(custo, "#,##0.00") + " €";
}

Detalhe ModalidadeDaApolice() {
  return {.onde = Detalhe::kModalidade,
          .legenda = "Modalidade",
          .mostrar = [](Viaturas& ficha, const EventEntity& evento) {
            ficha.Combo1.ListIndex = static_cast<const clSeguros&>(evento).Modalidade;
          }};
}

}  // namespace

Detalhes DetalhesDaApolice() {
  using E = clSeguros;
  using D = De<E>;
  return {{D::Nome<clCompanhias>(25, "Companhia", &E::Companhia)},
          {D::Nome<clTiposSeguros>(26, "Tipo Apólice", &E::TipoSeguro)},
          {D::Texto(15, "Apólice", &E::Apolice)},
          {DataDoEvento(5, "Data Validade")},
          {ModalidadeDaApolice()},
          {D::Numero(27, "Prémio", &E::Premio), D::Numero(28, "Franquia", &E::Franquia)},
          {D::Linha(64, &PrazoDaApolice, false)}};
}

Detalhes DetalhesDaRevisao() {
  using E = clRevisoes;
  using D = De<E>;
  return {{D::Nome<clTiposManut>(50, "Tipo Manutenção", &E::TipoManut)},
          {DataDoEvento(7)},
          {D::Km(51, "Km", &E::Km), D::Numero(52, "Custo", &E::Custo)},
          {D::Notas(54, &E::Obs)},
          {CampoProprio(53)},
          {DataPropria(8)}};
}

Detalhes DetalhesDaInspeccao() {
  using E = clInspecoes;
  using D = De<E>;
  return {{DataDoEvento(6)},
          {D::Km(46, "Km", &E::Km), D::Numero(47, "Custo", &E::Custo)},
          {D::Notas(45, &E::Obs)},
          {DataPropria(9)},
          {{.onde = Detalhe::kLinha, .indice = 67}},  // the next inspection
          {{.onde = Detalhe::kLinha, .indice = 63}}};
}

Detalhes DetalhesDoAcessorio() {
  using E = clAcessorios;
  using D = De<E>;
  return {{D::Nome<clTiposAcessorios>(30, "Tipo Acessório", &E::TipoAcessorio)},
          {D::Texto(18, "Marca", &E::Marca), D::Texto(29, "Modelo", &E::Modelo)},
          {DataDoEvento(2)},
          {D::Numero(31, "Qtd.", &E::Qtd), D::Numero(34, "Custo", &E::Custo)},
          {D::Km(32, "Km Iniciais", &E::KmInicial), D::Km(33, "Km Finais", &E::KmFinal)},
          {D::Notas(35, &E::Obs)},
          {D::Linha(2, &LinhaDoPercurso, true)},
          {D::Linha(51, &LinhaDoCusto, true)}};
}

Detalhes DetalhesDoGasto() {
  using E = clGastos;
  using D = De<E>;
  return {{D::Nome<clTiposGastos>(44, "Tipo Gasto", &E::TipoGasto)},
          {DataNoFormato(4, "dd-mm-yyyy hh:mm")},
          {D::Nome<clMotoristas>(39, "Motorista", &E::Motorista)},
          {D::Numero(38, "Qtd.", &E::Qtd), D::Numero(40, "Custo", &E::Custo)},
          {D::Notas(42, &E::Obs)}};
}

Detalhes DetalhesDoSinistro() {
  using E = clSinistros;
  using D = De<E>;
  return {{D::Nome<clMotoristas>(55, "Motorista", &E::Motorista)},
          {DataNoFormato(10, "dd-mm-yyyy")},
          {D::Texto(57, "Local", &E::LocalAc)},
          {D::Notas(58, &E::Obs)}};
}

Detalhes DetalhesDaMulta() {
  using E = clMultas;
  using D = De<E>;
  return {{D::Nome<clMotoristas>(59, "Motorista", &E::Motorista)},
          {DataNoFormato(11, "dd-mm-yyyy")},
          {D::Numero(62, "Valor", &E::Valor)},
          {D::Notas(60, &E::Obs)}};
}

}  // namespace zorCrmParvel
