#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "reports/rules/excepcoes.h"

namespace reports {

/// Where rules put what they find.
class Relator {
 public:
  Relator(const Frota& frota, const Pedido& pedido, const Ajustes& ajustes, std::vector<Achado>& achados)
      : frota_(frota),
        seleccao_(frota, pedido),
        periodo_(pedido.periodo),
        ajustes_(ajustes),
        achados_(achados) {}

  bool Activa(Regra regra) const { return ajustes_[static_cast<std::size_t>(regra)].activa; }
  /// True when the rule is on and the event is one that is asked for: only then a text is worth making.
  bool Quer(Regra regra, const Evento& evento) const { return Activa(regra) && Interessa(evento); }
  /// True when the event is one that is asked for.
  bool Interessa(const Evento& evento) const { return periodo_.Tem(evento.data) && seleccao_.Passa(evento); }
  Currency Limiar(Regra regra) const { return ajustes_[static_cast<std::size_t>(regra)].limiar; }
  void Junta(Regra regra, const Evento& evento, std::string texto) {
    achados_.push_back({regra, &evento, std::move(texto)});
  }
  const Frota& frota() const { return frota_; }

 private:
  const Frota& frota_;
  Seleccao seleccao_;
  Periodo periodo_;
  const Ajustes& ajustes_;
  std::vector<Achado>& achados_;
};

/// True when `valor` differs from half of `dobroDaMediana` by more than so many per cent of it.
bool ForaDe(Currency valor, const Soma& dobroDaMediana, Currency porCento);

/// Twice the median of unit prices of each type in each month, over the whole fleet.
class PrecosDoMes {
 public:
  explicit PrecosDoMes(const Frota& frota, const Periodo& periodo);
  Currency DobroDaMediana(const Evento& fill) const;

 private:
  /// Place of the fill's month and type; none outside of the period's months.
  std::optional<std::size_t> Lugar(const Evento& fill) const;

  std::size_t tipos_;
  Dia de_ = 0;
  std::vector<std::size_t> mesDoDia_;  // from `de_` on
  std::vector<Currency> medianas_;     // by month and type
};

/// The rules on what a vehicle uses: consumption and tank.
void VerConsumo(Relator& relator, const std::vector<const Evento*>& fills);
/// The rules on readings: kilometres that go back, and too many of them a day.
void VerQuilometros(Relator& relator, const std::vector<const Evento*>& fills);
/// The rules that look at a fill by itself and at those of its day.
void VerAbastecimentos(Relator& relator, const std::vector<const Evento*>& fills, const PrecosDoMes& precos);
/// The rules that any event may break.
void VerEventos(Relator& relator, const Evento* inicio, const Evento* fim);

/// A figure in a finding: two decimals, "1.234,50".
std::string Numero(Currency valor);

}  // namespace reports
