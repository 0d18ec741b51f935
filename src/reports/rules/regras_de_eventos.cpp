#include <algorithm>
#include <optional>

#include "reports/contador.h"
#include "reports/rules/regras.h"

namespace reports {
namespace {

std::string Quando(Date data) { return data.DayOnly().ToText(); }

std::string Km(Currency km) { return km.ToText() + " km"; }

void VerDia(Relator& relator, const std::vector<const Evento*>& fills, std::size_t i) {
  const Evento& fill = *fills[i];
  for (std::size_t j = i; j-- > 0 && fills[j]->data.days() == fill.data.days();) {
    if (fills[j]->tipo != fill.tipo) continue;
    relator.Junta(
        Regra::kMesmoDia, fill,
        "Mais um abastecimento de " + relator.frota().TipoDe(fill).codigo + " em " + Quando(fill.data) + ".");
    return;
  }
}

void VerPreco(Relator& relator, const Evento& fill, const PrecosDoMes& precos) {
  if (fill.valorUn <= 0) return;
  const Soma dobro(precos.DobroDaMediana(fill));
  if (!ForaDe(fill.valorUn, dobro, relator.Limiar(Regra::kPreco))) return;
  relator.Junta(Regra::kPreco, fill,
                "Preço de " + fill.valorUn.ToText() + " €, quando no mês o habitual é " +
                    Parte(dobro.valor().value_or(0), 1, 2).ToText() + " €.");
}

void VerHora(Relator& relator, const Evento& fill) {
  if (!relator.Activa(Regra::kFimDeSemana) && !relator.Activa(Regra::kNoite)) return;
  const Dia dia = fill.data.days();
  const bool fimDeSemana = (dia + 6) % 7 == 6 || (dia + 6) % 7 == 0;  // the zero date was a Saturday
  if (fimDeSemana && relator.Activa(Regra::kFimDeSemana))
    relator.Junta(Regra::kFimDeSemana, fill, "Abastecimento ao fim-de-semana, em " + Quando(fill.data) + ".");
  const bool semHora = fill.data == fill.data.DayOnly();
  const int hora = fill.data.hour();
  if (!semHora && (hora >= 22 || hora < 6) && relator.Activa(Regra::kNoite))
    relator.Junta(Regra::kNoite, fill, "Abastecimento de noite, em " + fill.data.ToText() + ".");
}

void VerCombustivel(Relator& relator, const Evento& fill) {
  const Frota& frota = relator.frota();
  const Viatura& viatura = frota.ViaturaDe(fill);
  const auto aceites = frota.tiposDoCombustivel.find(viatura.combustivel);
  if (!viatura.existe || aceites == frota.tiposDoCombustivel.end()) return;
  const auto& tipos = aceites->second;
  if (std::find(tipos.begin(), tipos.end(), fill.tipo) != tipos.end()) return;
  relator.Junta(Regra::kCombustivel, fill, "A viatura não leva " + frota.TipoDe(fill).codigo + ".");
}

void VerRepetido(Relator& relator, const Evento* inicio, const Evento* evento) {
  const std::int64_t inicioDoDia = evento->data.days() * kSegundosDoDia;
  for (const Evento* outro = evento; outro != inicio;) {
    --outro;
    if (outro->data.seconds() < inicioDoDia) return;
    if (outro->especie != Especie::kGasto || outro->tipo != evento->tipo || outro->custo != evento->custo)
      continue;
    relator.Junta(Regra::kRepetido, *evento,
                  "Repete o gasto n.º " + std::to_string(outro->id) + ": " + Numero(evento->custo) +
                      " € no mesmo dia.");
    return;
  }
}

/// The earliest end, before the day, of what the driver may drive with.
void VerCarta(Relator& relator, const Evento& evento) {
  const Frota& frota = relator.frota();
  const Motorista& motorista = frota.motoristas[static_cast<std::size_t>(evento.motorista)];
  const auto acabou = [&evento](Date fim) { return !SemData(fim) && fim.days() < evento.data.days(); };
  if (acabou(motorista.validadeDaCarta)) {
    relator.Junta(
        Regra::kCarta, evento,
        "A carta de " + motorista.codigo + " tinha caducado em " + Quando(motorista.validadeDaCarta) + ".");
    return;
  }
  const auto classe = frota.classeDaCategoria.find(frota.ViaturaDe(evento).categoria);
  if (classe == frota.classeDaCategoria.end()) return;
  const auto validade = motorista.classes.find(classe->second);
  if (validade == motorista.classes.end() || !acabou(validade->second)) return;
  relator.Junta(Regra::kCarta, evento,
                "A classe da carta de " + motorista.codigo + " para esta viatura tinha caducado em " +
                    Quando(validade->second) + ".");
}

}  // namespace

PrecosDoMes::PrecosDoMes(const Frota& frota, const Periodo& periodo) : tipos_(frota.tipos.size()) {
  const auto primeiroDoMes = [](Date data) { return Date::FromParts(data.year(), data.month(), 1); };
  Dia primeiro = periodo.ate;
  Dia ultimo = periodo.de;
  for (const Evento& evento : frota.eventos) {
    if (evento.valorUn <= 0 || !periodo.Tem(evento.data)) continue;
    primeiro = std::min(primeiro, evento.data.days());
    ultimo = std::max(ultimo, evento.data.days());
  }
  if (primeiro > ultimo) return;
  de_ = primeiroDoMes(Date().AddDays(primeiro)).days();
  const Dia fim = primeiroDoMes(Date().AddDays(ultimo)).AddMonths(1).days();
  std::size_t meses = 0;
  for (Date mes = Date().AddDays(de_); mes.days() < fim; mes = mes.AddMonths(1))
    mesDoDia_.resize(static_cast<std::size_t>(mes.AddMonths(1).days() - de_), meses++);
  std::vector<std::vector<Currency>> precos(meses * tipos_);
  for (const Evento& evento : frota.eventos) {
    if (evento.valorUn <= 0 || SemData(evento.data) || !frota.EAbastecimento(evento)) continue;
    if (const auto lugar = Lugar(evento)) precos[*lugar].push_back(evento.valorUn);
  }
  medianas_.resize(precos.size());
  for (std::size_t i = 0; i < precos.size(); ++i) {
    auto& valores = precos[i];
    if (valores.empty()) continue;
    const auto meio = valores.begin() + static_cast<std::ptrdiff_t>(valores.size() / 2);
    std::nth_element(valores.begin(), meio, valores.end());
    const Currency outro = valores.size() % 2 != 0 ? *meio : *std::max_element(valores.begin(), meio);
    Soma dobro(*meio);
    dobro += outro;
    medianas_[i] = dobro.valor().value_or(0);
  }
}

std::optional<std::size_t> PrecosDoMes::Lugar(const Evento& fill) const {
  const Dia dia = fill.data.days() - de_;
  if (dia < 0 || dia >= static_cast<Dia>(mesDoDia_.size())) return {};
  return mesDoDia_[static_cast<std::size_t>(dia)] * tipos_ + static_cast<std::size_t>(fill.tipo);
}

Currency PrecosDoMes::DobroDaMediana(const Evento& fill) const {
  const auto lugar = Lugar(fill);
  return lugar ? medianas_[*lugar] : Currency();
}

void VerQuilometros(Relator& relator, const std::vector<const Evento*>& fills) {
  Currency maior;
  std::optional<Contador> contador;
  Dia ultimaLeitura = 0;
  for (const Evento* fill : fills) {
    if (fill->km <= 0) continue;
    if (fill->km < maior && relator.Quer(Regra::kKmRecua, *fill))
      relator.Junta(Regra::kKmRecua, *fill, Km(fill->km) + ", abaixo dos " + Km(maior) + " já lidos.");
    maior = std::max(maior, fill->km);
    const Currency antes = contador ? contador->maximo() : fill->km;
    if (!contador) contador.emplace(fill->km);
    const auto leitura = contador->Le(fill->km, 0);
    if (leitura == Contador::Leitura::kRecuo) continue;
    const std::int64_t dias = std::max<std::int64_t>(1, fill->data.days() - ultimaLeitura);
    const Currency limiar = relator.Limiar(Regra::kKmPorDia);
    if (leitura == Contador::Leitura::kAvanca &&
        (fill->km - antes).ToDouble() > limiar.ToDouble() * static_cast<double>(dias) &&
        relator.Quer(Regra::kKmPorDia, *fill))
      relator.Junta(Regra::kKmPorDia, *fill,
                    Km(fill->km - antes) + " em " + std::to_string(dias) + (dias == 1 ? " dia." : " dias."));
    ultimaLeitura = fill->data.days();
  }
}

void VerAbastecimentos(Relator& relator, const std::vector<const Evento*>& fills, const PrecosDoMes& precos) {
  for (std::size_t i = 0; i < fills.size(); ++i) {
    const Evento& fill = *fills[i];
    if (!relator.Interessa(fill)) continue;
    const Viatura& viatura = relator.frota().ViaturaDe(fill);
    if (relator.Activa(Regra::kMesmoDia)) VerDia(relator, fills, i);
    if (relator.Activa(Regra::kPreco)) VerPreco(relator, fill, precos);
    if (!SemData(viatura.foraDeServico) && fill.data.days() > viatura.foraDeServico.days() &&
        relator.Activa(Regra::kInactiva))
      relator.Junta(Regra::kInactiva, fill,
                    "A viatura saiu de serviço em " + Quando(viatura.foraDeServico) + ".");
    VerHora(relator, fill);
    if (relator.Activa(Regra::kCombustivel)) VerCombustivel(relator, fill);
  }
}

void VerEventos(Relator& relator, const Evento* inicio, const Evento* fim) {
  for (const Evento* evento = inicio; evento != fim; ++evento) {
    if (!relator.Interessa(*evento)) continue;
    if (evento->especie == Especie::kGasto && relator.Activa(Regra::kRepetido))
      VerRepetido(relator, inicio, evento);
    const Viatura& viatura = relator.frota().ViaturaDe(*evento);
    if (!viatura.existe && !viatura.matricula.empty() && relator.Activa(Regra::kSemViatura))
      relator.Junta(Regra::kSemViatura, *evento, "A viatura " + viatura.matricula + " não existe.");
    if (evento->motorista < 0) continue;
    const Motorista& motorista = relator.frota().motoristas[static_cast<std::size_t>(evento->motorista)];
    if (!motorista.existe && relator.Activa(Regra::kSemMotorista))
      relator.Junta(Regra::kSemMotorista, *evento, "O motorista " + motorista.codigo + " não existe.");
    if (motorista.existe && relator.Activa(Regra::kCarta)) VerCarta(relator, *evento);
  }
}

}  // namespace reports
