#include "reports/carregar.h"

#include <algorithm>

#include "platform/format.h"
#include "reports/indice.h"
#include "reports/leitor.h"

namespace reports {
namespace {

using zorCrmParvel::DataAccessRef;
using zorCrmParvel::fixed;
using zorCrmParvel::Statement;
using zorCrmParvel::value;

/// Where a table of events keeps what an event has; null where it keeps nothing of the kind.
struct Colunas {
  const char* id;
  const char* data;
  const char* custo;
  const char* km;
  const char* qtd;
  const char* preco;
  const char* motorista;
  const char* tipo;
  const char* validade;
  const char* nota;
};

const Colunas& ColunasDa(Especie especie) {
  static constexpr std::array<Colunas, kEspecies> kColunas = {{
      {"Gst_Id", "Data", "Custo", "Km", "Qtd", "ValorUn", "Motorista", "TipoGasto", nullptr, "Obs"},
      {"Manu_Id", "Data", "Custo", "Km", nullptr, nullptr, nullptr, nullptr, nullptr, "Obs"},
      {"Insp_Id", "Data", "Custo", "Km", nullptr, nullptr, nullptr, nullptr, nullptr, "Obs"},
      {"Id", "Data", "Custo", "KmInicial", "Qtd", nullptr, nullptr, nullptr, nullptr, "Obs"},
      {"Id", "Data", "ValorMulta", nullptr, nullptr, nullptr, "Motorista", nullptr, nullptr, "Obs"},
      {"Id", "Data", "Custo", nullptr, nullptr, nullptr, "Motorista", nullptr, nullptr, "Obs"},
      {"Seg_Id", "DataInicio", "Premio", nullptr, nullptr, nullptr, nullptr, nullptr, "Validade", "Apolice"},
  }};
  return kColunas[static_cast<std::size_t>(especie)];
}

std::string DataDoTexto(Dia dia) { return platform::FormatDate(Date().AddDays(dia), "yyyy.mm.dd"); }

class Carregador {
 public:
  Carregador(const DataAccessRef& bd, const Necessidade& necessidade) : bd_(bd), necessidade_(necessidade) {}

  Frota Le() {
    const zorCrmParvel::Snapshot snapshot(bd_);
    Tipos();
    Nomes("zor_PV_Departamentos", frota_.departamentos, departamentos_);
    Nomes("zor_PV_Categorias", frota_.categorias, categorias_);
    Nomes("zor_PV_Marcas", frota_.marcas, marcas_);
    Viaturas();
    if (necessidade_.motoristas) Motoristas();
    Proprias();
    for (std::size_t i = 0; i < kEspecies; ++i)
      if (necessidade_.especies[i].le) Eventos(static_cast<Especie>(i), necessidade_.especies[i], {});
    if (necessidade_.basesAntesDe) BasesMaisAntigas(*necessidade_.basesAntesDe);
    frota_.Ordenar();
    return std::move(frota_);
  }

 private:
  static constexpr std::size_t kMaisNomeadas = 200;  // plates in one statement
  static constexpr std::size_t kLinhasEntrePerguntas = 8192;

  /// Codes in one spelling each, that of their table where it has them.
  struct Codigos {
    Indice indice;
    std::vector<std::string> grafias;
    std::string Um(std::string_view codigo) {
      if (codigo.empty()) return {};
      const auto numero = indice.Acha(codigo, [this](const std::string& novo) { return Junta(novo); });
      return grafias[static_cast<std::size_t>(numero)];
    }
    std::int32_t Junta(const std::string& grafia) {
      grafias.push_back(grafia);
      return static_cast<std::int32_t>(grafias.size()) - 1;
    }
  };

  void Nomes(const char* tabela, reports::Nomes& nomes, Codigos& codigos) {
    Leitor rs(bd_, {"SELECT Codigo, Nome FROM ", fixed(tabela)});
    while (rs.Avanca()) {
      nomes[rs.Copia(0)] = rs.Copia(1);
      codigos.indice.Junta(rs.Copia(0), codigos.Junta(rs.Copia(0)));
    }
  }

  void Tipos() {
    Leitor rs(bd_, "SELECT Codigo, Nome, Combustivel FROM zor_PV_TiposGastos ORDER BY Codigo");
    while (rs.Avanca()) {
      tipos_.Junta(rs.Copia(0), static_cast<std::int32_t>(frota_.tipos.size()));
      frota_.tipos.push_back({rs.Copia(0), rs.Copia(1), rs.Inteiro(2) == 1, true, "L", {}});
    }
  }
  std::int32_t Tipo(std::string_view codigo) {
    if (codigo.empty()) return -1;
    return tipos_.Acha(codigo, [this](const std::string& novo) {
      frota_.tipos.push_back({novo, "", false, false, "", {}});
      return static_cast<std::int32_t>(frota_.tipos.size()) - 1;
    });
  }

  void Viaturas() {
    Leitor rs(
        bd_,
        "SELECT Matricula, Marca, Modelo, Categoria, Departamento, Responsavel, Combustivel, KmInicial, "
        "DataKmInicial, DataMatricula, ValContrato, ValorInicial, ValorResidual, Mensalidade, Inactiva "
        "FROM zor_PV_Viaturas ORDER BY Matricula");
    while (rs.Avanca()) {
      Viatura v;
      v.matricula = rs.Copia(0);
      v.marca = marcas_.Um(rs.Texto(1));
      v.modelo = rs.Copia(2);
      v.categoria = categorias_.Um(rs.Texto(3));
      v.departamento = departamentos_.Um(rs.Texto(4));
      v.responsavel = rs.Copia(5);
      v.combustivel = rs.Nulo(6) ? -1 : static_cast<int>(rs.Inteiro(6));
      v.kmInicial = rs.Moeda(7);
      v.dataKmInicial = rs.Data(8);
      v.dataMatricula = rs.Data(9);
      v.valContrato = rs.Data(10);
      v.valorInicial = rs.Moeda(11);
      v.valorResidual = rs.Moeda(12);
      v.mensalidade = rs.Moeda(13);
      v.inactiva = rs.Inteiro(14) == 1;
      viaturas_.Junta(v.matricula, static_cast<std::int32_t>(frota_.viaturas.size()));
      frota_.viaturas.push_back(std::move(v));
    }
  }
  std::int32_t NumeroDaViatura(std::string_view matricula) {
    return viaturas_.Acha(matricula, [this](const std::string& nova) {
      frota_.viaturas.emplace_back();
      frota_.viaturas.back().matricula = nova;
      frota_.viaturas.back().existe = false;
      return static_cast<std::int32_t>(frota_.viaturas.size()) - 1;
    });
  }

  void Motoristas() {
    Leitor rs(bd_, "SELECT Codigo, Nome, ValCartaCond FROM zor_Funcionarios ORDER BY Codigo");
    while (rs.Avanca()) {
      motoristas_.Junta(rs.Copia(0), static_cast<std::int32_t>(frota_.motoristas.size()));
      frota_.motoristas.push_back({rs.Copia(0), rs.Copia(1), rs.Data(2), {}, true});
    }
    Leitor classes(bd_, "SELECT Motorista, TipoCarta, DataValidade FROM zor_CartasCond");
    while (classes.Avanca())
      if (const std::int32_t m = NumeroDoMotorista(classes.Texto(0)); m >= 0)
        frota_.motoristas[static_cast<std::size_t>(m)].classes[static_cast<int>(classes.Inteiro(1))] =
            classes.Data(2);
  }
  std::int32_t NumeroDoMotorista(std::string_view codigo) {
    if (codigo.empty()) return -1;
    return motoristas_.Acha(codigo, [this](const std::string& novo) {
      frota_.motoristas.emplace_back();
      frota_.motoristas.back().codigo = novo;
      frota_.motoristas.back().existe = false;
      return static_cast<std::int32_t>(frota_.motoristas.size()) - 1;
    });
  }

  void Proprias() {
    Leitor unidades = Leitor::DeTabelaPropria(bd_, "SELECT TipoGasto, Unidade FROM parvel_TiposGastos");
    while (unidades.Avanca())
      if (const std::int32_t t = Tipo(unidades.Texto(0)); t >= 0)
        frota_.tipos[static_cast<std::size_t>(t)].unidade = unidades.Copia(1);
    Leitor factores = Leitor::DeTabelaPropria(bd_, "SELECT TipoGasto, Desde, Kg FROM parvel_FactoresCO2");
    while (factores.Avanca())
      if (const std::int32_t t = Tipo(factores.Texto(0)); t >= 0)
        frota_.tipos[static_cast<std::size_t>(t)].co2[factores.Data(1).days()] = factores.Moeda(2);
    Leitor aceites = Leitor::DeTabelaPropria(bd_, "SELECT Combustivel, TipoGasto FROM parvel_TiposAceites");
    while (aceites.Avanca())
      frota_.tiposDoCombustivel[static_cast<int>(aceites.Inteiro(0))].push_back(Tipo(aceites.Texto(1)));
    Leitor classes = Leitor::DeTabelaPropria(bd_, "SELECT Categoria, Classe FROM parvel_ClassesCategorias");
    while (classes.Avanca())
      frota_.classeDaCategoria[categorias_.Um(classes.Texto(0))] = static_cast<int>(classes.Inteiro(1));
    Leitor dados = Leitor::DeTabelaPropria(
        bd_,
        "SELECT Matricula, Deposito, ForaDeServico, LimiteKm, InicioLeasing, EurosKm FROM parvel_Viaturas");
    while (dados.Avanca()) {
      Viatura& v = frota_.viaturas[static_cast<std::size_t>(NumeroDaViatura(dados.Texto(0)))];
      if (!dados.Nulo(1)) v.deposito = dados.Moeda(1);
      v.foraDeServico = dados.Data(2);
      if (!dados.Nulo(3)) v.leasing = Leasing{dados.Moeda(3), dados.Data(4), dados.Moeda(5)};
    }
  }

  /// Reads what is older of those vehicles whose fills in the period have no base among what was read.
  void BasesMaisAntigas(Dia de) {
    const auto tipos = frota_.tipos.size();
    std::vector<char> tem(frota_.viaturas.size() * tipos), pede(tem.size());
    for (const Evento& evento : frota_.eventos) {
      if (!frota_.EAbastecimento(evento) || SemData(evento.data)) continue;
      const auto lugar =
          static_cast<std::size_t>(evento.viatura) * tipos + static_cast<std::size_t>(evento.tipo);
      if (evento.data.days() >= de) pede[lugar] = 1;
      if (evento.data.days() < de && evento.km > 0) tem[lugar] = 1;
    }
    std::vector<std::string> viaturas;
    for (std::size_t i = 0; i < tem.size(); ++i)
      if (pede[i] > tem[i] && (viaturas.empty() || viaturas.back() != frota_.viaturas[i / tipos].matricula))
        viaturas.push_back(frota_.viaturas[i / tipos].matricula);
    if (viaturas.empty()) return;
    if (viaturas.size() > kMaisNomeadas) viaturas.clear();
    Leitura antigas = necessidade_.especies[static_cast<std::size_t>(Especie::kGasto)];
    antigas.ate = antigas.de - 1;
    antigas.de = Leitura::kPrimeiroDia;
    antigas.semDatas = false;
    Eventos(Especie::kGasto, antigas, viaturas);
  }

  /// The events of all vehicles, or of those named.
  void Eventos(Especie especie, const Leitura& leitura, const std::vector<std::string>& viaturas) {
    const Colunas& c = ColunasDa(especie);
    Statement s{"SELECT Matricula, ", fixed(c.id), ", ", fixed(c.data)};
    std::size_t colunas = 3;
    const auto pede = [&](const char* coluna, bool precisa) {
      if (coluna == nullptr || !precisa) return std::size_t{0};
      s << ", " << fixed(coluna);
      return colunas++;
    };
    const std::size_t custo = pede(c.custo, necessidade_.custos);
    const std::size_t km = pede(c.km, necessidade_.km);
    const std::size_t qtd = pede(c.qtd, necessidade_.quantidades);
    const std::size_t preco = pede(c.preco, necessidade_.precos);
    const std::size_t motorista = pede(c.motorista, necessidade_.motoristas);
    const std::size_t tipo = pede(c.tipo, necessidade_.tipos);
    const std::size_t validade = pede(c.validade, true);
    const std::size_t nota = pede(c.nota, necessidade_.notas);
    s << " FROM " << fixed(TextosDe(especie).tabela);
    Onde(s, c, leitura, viaturas);
    Leitor rs(bd_, s);
    while (rs.Avanca()) {
      if (++lidas_ % kLinhasEntrePerguntas == 0 && necessidade_.cancelar && necessidade_.cancelar())
        throw Cancelado();
      Evento& e = frota_.eventos.emplace_back();
      e.especie = especie;
      e.viatura = NumeroDaViatura(rs.Texto(0));
      e.id = static_cast<std::int32_t>(rs.Inteiro(1));
      e.data = rs.Data(2);
      if (custo != 0) e.custo = rs.Moeda(custo);
      if (km != 0) e.km = rs.Moeda(km);
      if (qtd != 0) e.qtd = rs.Moeda(qtd);
      if (preco != 0) e.valorUn = rs.Moeda(preco);
      if (motorista != 0) e.motorista = NumeroDoMotorista(rs.Texto(motorista));
      if (tipo != 0) e.tipo = Tipo(rs.Texto(tipo));
      if (validade != 0) e.validade = rs.Data(validade);
      if (nota == 0 || rs.Texto(nota).empty()) continue;
      e.nota = static_cast<std::int32_t>(frota_.notas.size());
      frota_.notas.push_back(rs.Copia(nota));
    }
  }

  /// Narrows what is read to days; without a date all is read.
  static void Onde(Statement& s, const Colunas& c, const Leitura& leitura,
                   const std::vector<std::string>& viaturas) {
    const char* ligacao = " WHERE ";
    if (leitura.soComKm) {
      s << ligacao << fixed(c.km) << ">0";
      ligacao = " AND ";
    }
    if (!viaturas.empty()) {
      const char* separa = "Matricula IN (N'";
      s << ligacao;
      for (const std::string& matricula : viaturas) {
        s << fixed(separa) << value(matricula) << "'";
        separa = ", N'";
      }
      s << ")";
      ligacao = " AND ";
    }
    if (leitura.de <= Leitura::kPrimeiroDia && leitura.ate >= Leitura::kUltimoDia) return;
    s << ligacao << "(";
    if (leitura.semDatas)
      s << fixed(c.data) << " IS NULL OR (" << fixed(c.data) << ">='1899.12.30' AND " << fixed(c.data)
        << "<'1899.12.31') OR ";
    s << "(" << fixed(c.data) << ">='" << value(DataDoTexto(std::max(leitura.de, Leitura::kPrimeiroDia)))
      << "' AND " << fixed(c.data) << "<='" << value(DataDoTexto(leitura.ate) + " 23:59:59") << "'))";
  }

  const DataAccessRef& bd_;
  const Necessidade& necessidade_;
  Frota frota_;
  std::size_t lidas_ = 0;
  Indice viaturas_, motoristas_, tipos_;
  Codigos departamentos_, categorias_, marcas_;
};

}  // namespace

Frota Carregar(const DataAccessRef& bd, const Necessidade& necessidade) {
  return Carregador(bd, necessidade).Le();
}

}  // namespace reports
