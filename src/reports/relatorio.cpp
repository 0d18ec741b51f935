#include "reports/relatorio.h"

#include <algorithm>

#include "platform/runtime_error.h"

namespace reports {
namespace {

// Most vehicles were filled within this many days before a period; those that were not cost one more
// statement.
constexpr Dia kDiasDaBase = 92;
// Days of a period so long that all before it may be read as well.
constexpr Dia kPeriodoLongo = 1000;

std::string Junta(const std::vector<std::string>& textos) {
  std::string junto;
  for (const std::string& texto : textos)
    junto += (junto.empty() ? "" : ", ") + (texto.empty() ? "(sem valor)" : texto);
  return junto;
}

/// The period and the filters, in words.
std::vector<std::string> Filtros(const Pedido& pedido) {
  const auto dia = [](Dia d) { return Date().AddDays(d).ToText(); };
  std::vector<std::string> notas = {"De " + dia(pedido.periodo.de) + " a " + dia(pedido.periodo.ate)};
  const std::pair<const char*, const std::vector<std::string>*> listas[] = {
      {"Viaturas", &pedido.viaturas},
      {"Departamentos", &pedido.departamentos},
      {"Categorias", &pedido.categorias},
      {"Marcas", &pedido.marcas},
      {"Motoristas", &pedido.motoristas}};
  for (const auto& [nome, lista] : listas)
    if (!lista->empty()) notas.push_back(std::string(nome) + ": " + Junta(*lista));
  if (!pedido.combustiveis.empty()) {
    static constexpr const char* kCombustiveis[] = {"Diesel", "Gasolina", "GPL", "Eléctrico"};
    std::vector<std::string> nomes;
    for (const int c : pedido.combustiveis)
      nomes.emplace_back(c >= 0 && c < 4 ? kCombustiveis[c] : std::to_string(c));
    notas.push_back("Combustíveis: " + Junta(nomes));
  }
  if (!pedido.tipos.empty()) notas.push_back("Tipos: " + Junta(pedido.tipos));
  if (pedido.soActivas) notas.emplace_back("Só viaturas ao serviço");
  if (pedido.soInactivas) notas.emplace_back("Só viaturas fora de serviço");
  return notas;
}

}  // namespace

const std::vector<TextosDoRelatorio>& Relatorios() {
  static const std::vector<TextosDoRelatorio> kRelatorios = {
      {TipoDeRelatorio::kConsumos,
       "consumos",
       "Mapa de consumos",
       "Consumo por viatura e combustível, de abastecimento a abastecimento.",
       false,
       false,
       {Por::kViatura, Por::kDepartamento, Por::kCategoria, Por::kMarca, Por::kTipo}},
      {TipoDeRelatorio::kCustos,
       "custos",
       "Custos",
       "Custos por período, e a diferença para o anterior.",
       true,
       true,
       {Por::kViatura, Por::kDepartamento, Por::kCategoria, Por::kMarca, Por::kMotorista, Por::kTipo}},
      {TipoDeRelatorio::kTotal,
       "total",
       "Custo total e classificação",
       "Tudo o que cada viatura custou, por km, e o seu lugar na categoria.",
       false,
       false,
       {Por::kViatura}},
      {TipoDeRelatorio::kQuilometros,
       "quilometros",
       "Quilómetros",
       "Quilómetros por período, repartidos pelos dias entre leituras.",
       true,
       false,
       {Por::kViatura, Por::kDepartamento, Por::kCategoria, Por::kMarca}},
      {TipoDeRelatorio::kExcepcoes,
       "excepcoes",
       "Excepções",
       "O que é estranho nos eventos.",
       false,
       true,
       {Por::kViatura}},
      {TipoDeRelatorio::kMovimentos,
       "movimentos",
       "Movimentos",
       "Todos os eventos, com acumulados.",
       false,
       true,
       {Por::kViatura, Por::kMotorista}},
      {TipoDeRelatorio::kEmissoes,
       "emissoes",
       "Emissões",
       "kg de CO2 dos abastecimentos.",
       true,
       true,
       {Por::kViatura, Por::kDepartamento, Por::kCategoria, Por::kMarca, Por::kMotorista, Por::kTipo}},
  };
  return kRelatorios;
}

const TextosDoRelatorio& TextosDe(TipoDeRelatorio tipo) {
  return Relatorios()[static_cast<std::size_t>(tipo)];
}

const std::vector<PalavraDeGrupo>& Grupos() {
  static const std::vector<PalavraDeGrupo> kGrupos = {
      {Por::kViatura, "viatura", "Viatura"},       {Por::kDepartamento, "departamento", "Departamento"},
      {Por::kCategoria, "categoria", "Categoria"}, {Por::kMarca, "marca", "Marca"},
      {Por::kMotorista, "motorista", "Motorista"}, {Por::kTipo, "tipo", "Tipo"}};
  return kGrupos;
}

const PalavraDeGrupo& TextosDe(Por por) { return Grupos()[static_cast<std::size_t>(por)]; }

std::string Objeccao(TipoDeRelatorio tipo, const Pedido& pedido) {
  const TextosDoRelatorio& textos = TextosDe(tipo);
  if (pedido.periodo.ate < pedido.periodo.de)
    return "O período acaba antes de começar. Troque as duas datas.";
  if (std::find(textos.por.begin(), textos.por.end(), pedido.por) == textos.por.end()) {
    std::vector<std::string> pode;
    for (const Por por : textos.por) pode.emplace_back(TextosDe(por).chave);
    return std::string("O relatório ") + textos.chave + " não se agrupa por " + TextosDe(pedido.por).chave +
           ". Pode ser por: " + Junta(pode) + ".";
  }
  if (!pedido.motoristas.empty() && !textos.motoristas)
    return std::string("O relatório ") + textos.chave + " não conhece motoristas. Tire esse filtro.";
  return {};
}

Necessidade NecessidadeDe(TipoDeRelatorio tipo, const Pedido& pedido) {
  Necessidade n;
  n.cancelar = pedido.cancelar;
  const Dia antes = pedido.periodo.Anterior().de;
  const Dia ate = pedido.periodo.ate;
  const auto todas = [&n](Dia de, Dia fim) {
    for (Leitura& leitura : n.especies) leitura = {true, de, fim};
    n.De(Especie::kApolice) = {true};  // a premium reaches into days after its own
  };
  n.motoristas = TextosDe(tipo).motoristas;
  switch (tipo) {
    case TipoDeRelatorio::kConsumos:
      n.De(Especie::kGasto) = {true, Leitura::kPrimeiroDia, ate};
      if (ate - pedido.periodo.de > kPeriodoLongo) break;
      n.De(Especie::kGasto).de = pedido.periodo.de - kDiasDaBase;
      n.basesAntesDe = pedido.periodo.de;
      break;
    case TipoDeRelatorio::kCustos:
      n.motoristas = pedido.por == Por::kMotorista || !pedido.motoristas.empty();
      n.km = n.quantidades = false;
      n.tipos = pedido.por == Por::kTipo;
      todas(antes, ate);
      break;
    case TipoDeRelatorio::kTotal:
      todas(pedido.periodo.de, ate);
      n.De(Especie::kGasto) = n.De(Especie::kRevisao) = {true};
      break;
    case TipoDeRelatorio::kQuilometros:
      n.De(Especie::kGasto) = n.De(Especie::kRevisao) = {true};
      n.De(Especie::kGasto).soComKm = n.De(Especie::kRevisao).soComKm = true;
      n.custos = n.quantidades = false;
      break;
    case TipoDeRelatorio::kExcepcoes:
      todas(pedido.periodo.de, ate);
      n.De(Especie::kGasto).de = Leitura::kPrimeiroDia;
      n.precos = true;
      break;
    case TipoDeRelatorio::kMovimentos:
      todas(pedido.periodo.de, ate);
      n.De(Especie::kApolice) = {true, pedido.periodo.de, ate};
      n.precos = n.notas = true;
      break;
    case TipoDeRelatorio::kEmissoes:
      n.De(Especie::kGasto) = {true, antes, ate};
      n.custos = n.km = false;
      n.motoristas = pedido.por == Por::kMotorista || !pedido.motoristas.empty();
      break;
  }
  return n;
}

Relatorio Fazer(const zorCrmParvel::DataAccessRef& bd, TipoDeRelatorio tipo, const Pedido& pedido,
                bool vistos) {
  std::shared_ptr<const Frota> frota;
  return Fazer(bd, tipo, pedido, NecessidadeDe(tipo, pedido), vistos, frota);
}

Relatorio Fazer(const zorCrmParvel::DataAccessRef& bd, TipoDeRelatorio tipo, const Pedido& pedido,
                const Necessidade& necessidade, bool vistos, std::shared_ptr<const Frota>& daFrota) {
  if (const std::string objeccao = Objeccao(tipo, pedido); !objeccao.empty())
    throw platform::RuntimeError(platform::kInvalidCall, TextosDe(tipo).chave, objeccao);
  daFrota = std::make_shared<const Frota>(Carregar(bd, necessidade));
  const Frota& frota = *daFrota;
  const auto faz = [&] {
    switch (tipo) {
      case TipoDeRelatorio::kConsumos:
        return TabelasDeConsumos(frota, pedido);
      case TipoDeRelatorio::kCustos:
        return TabelasDeCustos(frota, pedido);
      case TipoDeRelatorio::kTotal:
        return TabelasDoTotal(frota, pedido);
      case TipoDeRelatorio::kQuilometros:
        return TabelasDeQuilometros(frota, pedido);
      case TipoDeRelatorio::kMovimentos:
        return TabelasDeMovimentos(daFrota, pedido);
      case TipoDeRelatorio::kEmissoes:
        return TabelasDeEmissoes(frota, pedido);
      case TipoDeRelatorio::kExcepcoes:
        break;
    }
    return TabelasDeExcepcoes(frota, pedido, CarregarAjustes(bd), CarregarVistos(bd), vistos);
  };
  Relatorio relatorio = faz();
  relatorio.titulo = TextosDe(tipo).titulo;
  const auto filtros = Filtros(pedido);
  relatorio.notas.insert(relatorio.notas.begin(), filtros.begin(), filtros.end());
  return relatorio;
}

}  // namespace reports
