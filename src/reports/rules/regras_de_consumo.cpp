#include <algorithm>
#include <map>

#include "platform/format.h"
#include "reports/contador.h"
#include "reports/rules/regras.h"

namespace reports {
namespace {

constexpr std::size_t kJanelasAntes = 5;
constexpr std::size_t kAbastecimentosAntes = 10;

/// Quantities of one type of fill of one vehicle, in order; tells where one stands out.
class DoTipo {
 public:
  DoTipo(Relator& relator, const char* unidade) : relator_(relator), unidade_(unidade) {}

  void Le(const Evento& fill) {
    Deposito(fill);
    Consumo(fill);
  }

 private:
  /// A reading, and what had been filled by then.
  struct Leitura {
    Currency km;
    Soma litros;
  };

  void Deposito(const Evento& fill) {
    const Valor& deposito = relator_.frota().ViaturaDe(fill).deposito;
    if (relator_.Quer(Regra::kDeposito, fill)) {
      if (deposito && fill.qtd > *deposito) {
        relator_.Junta(Regra::kDeposito, fill,
                       Quantidade(fill.qtd) + " num depósito de " + Quantidade(*deposito) + ".");
      } else if (!deposito && vistos_ >= kAbastecimentosAntes &&
                 fill.qtd.ToDouble() > maior_.ToDouble() * relator_.Limiar(Regra::kDeposito).ToDouble()) {
        relator_.Junta(Regra::kDeposito, fill,
                       Quantidade(fill.qtd) + ", quando o maior abastecimento anterior foi de " +
                           Quantidade(maior_) + ".");
      }
    }
    ++vistos_;
    maior_ = std::max(maior_, fill.qtd);
  }

  void Consumo(const Evento& fill) {
    litros_ += fill.qtd;
    if (fill.km <= 0) return;
    const Leitura esta{fill.km, litros_};
    lidas_.push_back(esta);
    if (!contador_) {
      contador_.emplace(fill.km);
      ultimas_ = {esta};
      return;
    }
    const auto leitura = contador_->Le(fill.km, lidas_.size() - 1);
    if (leitura == Contador::Leitura::kNovaContagem) {
      ultimas_ = {lidas_[contador_->posicaoDaPrimeira()], lidas_[contador_->posicaoDaSegunda()], esta};
    } else if (leitura == Contador::Leitura::kAvanca) {
      ultimas_.push_back(esta);
      if (ultimas_.size() > 3) ultimas_.erase(ultimas_.begin());
    } else {
      return;
    }
    if (ultimas_.size() == 3) Janela(fill);
  }

  /// The last two intervals against all such before them.
  void Janela(const Evento& fill) {
    Soma litros = ultimas_.back().litros;
    litros -= ultimas_.front().litros;
    const Valor consumo = Por100(litros.valor(), ultimas_.back().km - ultimas_.front().km);
    if (!consumo) return;
    if (janelas_.size() >= kJanelasAntes && relator_.Quer(Regra::kConsumo, fill)) {
      Soma dobro(janelas_[janelas_.size() / 2]);
      dobro += janelas_[(janelas_.size() - 1) / 2];
      if (ForaDe(*consumo, dobro, relator_.Limiar(Regra::kConsumo)))
        relator_.Junta(Regra::kConsumo, fill,
                       Quantidade(*consumo) + " aos 100 km, quando o habitual é " +
                           Quantidade(Parte(dobro.valor().value_or(0), 1, 2)) + ".");
    }
    janelas_.insert(std::upper_bound(janelas_.begin(), janelas_.end(), *consumo), *consumo);
  }

  std::string Quantidade(Currency valor) const { return Numero(valor) + " " + unidade_; }

  Relator& relator_;
  std::string unidade_;
  std::size_t vistos_ = 0;
  Currency maior_;
  std::optional<Contador> contador_;
  Soma litros_;
  std::vector<Leitura> lidas_;     // of every fill with kilometres
  std::vector<Leitura> ultimas_;   // the last three readings of the count
  std::vector<Currency> janelas_;  // consumption over two intervals each, in order of size
};

}  // namespace

std::string Numero(Currency valor) { return platform::Format(valor, "###,##0.00"); }

bool ForaDe(Currency valor, const Soma& dobroDaMediana, Currency porCento) {
  const Valor dobro = dobroDaMediana.valor();
  if (!dobro || *dobro <= 0) return false;
  __extension__ using Largo = __int128;
  const Largo d = Largo{valor.tenThousandths()} * 2 - dobro->tenThousandths();
  constexpr int kCentesimos = 100 * 10000;  // of a per cent in ten-thousandths
  return (d < 0 ? -d : d) * kCentesimos > Largo{porCento.tenThousandths()} * dobro->tenThousandths();
}

void VerConsumo(Relator& relator, const std::vector<const Evento*>& fills) {
  if (!relator.Activa(Regra::kConsumo) && !relator.Activa(Regra::kDeposito)) return;
  std::map<int, DoTipo> tipos;
  for (const Evento* fill : fills)
    tipos.try_emplace(fill->tipo, relator, relator.frota().TipoDe(*fill).unidade.c_str())
        .first->second.Le(*fill);
}

}  // namespace reports
