#pragma once

#include <sstream>
#include <string>

#include "reports/frota.h"

/// A fleet as it is told in a test: plates AA, BB; drivers 1, 2; types G and H (fuels in litres), E (in kWh)
/// and P (no fuel).
namespace testing_support {

inline platform::Currency Money(const std::string& text) {
  return platform::Currency::FromDouble(std::stod(text));
}

inline reports::Dia Day(const std::string& text) { return platform::Date::Parse(text).days(); }

class WrittenFleet {
 public:
  WrittenFleet() {
    frota.viaturas.resize(2);
    frota.viaturas[0].matricula = "AA";
    frota.viaturas[1].matricula = "BB";
    frota.motoristas.resize(2);
    frota.motoristas[0].codigo = "1";
    frota.motoristas[1].codigo = "2";
    for (const char* code : {"G", "H", "E", "P"}) {
      reports::Tipo tipo;
      tipo.codigo = code;
      tipo.combustivel = *code != 'P';
      tipo.unidade = *code == 'E' ? "kWh" : "L";
      frota.tipos.push_back(tipo);
    }
  }

  reports::Viatura& AA() { return frota.viaturas[0]; }

  /// Adds an event; "-" is no date.
  reports::Evento& Add(reports::Especie especie, const std::string& date, int viatura = 0) {
    reports::Evento evento;
    evento.especie = especie;
    if (date != "-") evento.data = platform::Date::Parse(date);
    evento.viatura = viatura;
    evento.id = static_cast<int>(frota.eventos.size()) + 1;
    frota.eventos.push_back(evento);
    return frota.eventos.back();
  }

  /// Adds expenses of AA: "date type quantity km cost", parted by semicolons.
  WrittenFleet& Fills(const std::string& text) {
    std::istringstream all(text);
    for (std::string one; std::getline(all, one, ';');) {
      std::istringstream words(one);
      std::string date, type, qtd, km, custo;
      words >> date >> type >> qtd >> km >> custo;
      reports::Evento& fill = Add(reports::Especie::kGasto, date);
      fill.tipo = static_cast<int>(std::string("GHEP").find(type));
      fill.qtd = Money(qtd);
      fill.km = Money(km);
      fill.custo = Money(custo);
    }
    return *this;
  }

  const reports::Frota& Ready() {
    frota.Ordenar();
    return frota;
  }

  reports::Frota frota;
};

inline std::string Shown(const reports::Valor& valor) { return valor ? valor->ToText('.') : "-"; }

}  // namespace testing_support
