#include "due/month.h"

#include <algorithm>
#include <tuple>

#include "platform/format.h"

namespace due {
namespace {

using platform::Date;
using zorCrmParvel::fixed;
using zorCrmParvel::Statement;
using zorCrmParvel::value;

/// Where dates of one kind stand: day, code and name of the record.
struct Source {
  const char* what;
  const char* select;  // up to the condition on the date
  const char* date;
  bool driver = false;
};

constexpr Source kSources[] = {
    {"Apólice",
     "SELECT s.Validade, s.Matricula, s.Matricula FROM zor_PV_Seguros s INNER JOIN zor_PV_Viaturas v ON "
     "v.Matricula = s.Matricula WHERE (v.Inactiva IS NULL OR v.Inactiva = 0) AND s.Inactiva = 0",
     "s.Validade"},
    {"Acessório",
     "SELECT a.DataVal, a.Matricula, a.Matricula FROM zor_PV_Acessorios a INNER JOIN zor_PV_Viaturas v ON "
     "v.Matricula = a.Matricula WHERE (v.Inactiva IS NULL OR v.Inactiva = 0)",
     "a.DataVal"},
    {"Revisão",
     "SELECT DataPrxRev, Matricula, Matricula FROM zor_PV_Viaturas WHERE (Inactiva IS NULL OR Inactiva = 0)",
     "DataPrxRev"},
    {"Inspecção",
     "SELECT DataPrxInsp, Matricula, Matricula FROM zor_PV_Viaturas WHERE (Inactiva IS NULL OR Inactiva = 0)",
     "DataPrxInsp"},
    {"Selo",
     "SELECT DataSelo, Matricula, Matricula FROM zor_PV_Viaturas WHERE (Inactiva IS NULL OR Inactiva = 0) "
     "AND "
     "SeloPago = 0",
     "DataSelo"},
    {"Leasing",
     "SELECT ValContrato, Matricula, Matricula FROM zor_PV_Viaturas WHERE (Inactiva IS NULL OR Inactiva = 0)",
     "ValContrato"},
    {"Tacógrafo",
     "SELECT DtDescarga, Matricula, Matricula FROM zor_PV_Viaturas WHERE (Inactiva IS NULL OR Inactiva = 0) "
     "AND "
     "Tacografo = 1",
     "DtDescarga"},
    {"Carta de condução",
     "SELECT ValCartaCond, Codigo, Nome FROM zor_Funcionarios WHERE (Inactivo IS NULL OR Inactivo = 0)",
     "ValCartaCond", true},
    {"Classe da carta",
     "SELECT c.DataValidade, m.Codigo, m.Nome FROM zor_CartasCond c INNER JOIN zor_Funcionarios m ON "
     "m.Codigo = c.Motorista WHERE (m.Inactivo IS NULL OR m.Inactivo = 0)",
     "c.DataValidade", true},
    {"Bilhete de identidade",
     "SELECT DataValBI, Codigo, Nome FROM zor_Funcionarios WHERE (Inactivo IS NULL OR Inactivo = 0) AND BI > "
     "''",
     "DataValBI", true},
    {"Cartão de cidadão",
     "SELECT ValCartaoCid, Codigo, Nome FROM zor_Funcionarios WHERE (Inactivo IS NULL OR Inactivo = 0) AND "
     "CartaoCid > ''",
     "ValCartaoCid", true},
    {"Passaporte",
     "SELECT ValidadePassa, Codigo, Nome FROM zor_Funcionarios WHERE (Inactivo IS NULL OR Inactivo = 0)",
     "ValidadePassa", true},
    {"Cartão de condutor",
     "SELECT DtFimCartaoCondutor, Codigo, Nome FROM zor_Funcionarios WHERE (Inactivo IS NULL OR Inactivo = "
     "0) AND NoCartaoCondutor > ''",
     "DtFimCartaoCondutor", true},
};

std::string DayText(Date day) { return platform::FormatDate(day, "yyyy.mm.dd"); }

}  // namespace

std::vector<DueDate> DueBetween(const zorCrmParvel::DataAccessRef& bd, Date from, Date to) {
  const zorCrmParvel::Snapshot snapshot(bd);
  std::vector<DueDate> all;
  for (const Source& source : kSources) {
    const std::string first = DayText(from);
    const std::string behind = DayText(to.AddDays(1));
    Statement statement{fixed(source.select), " AND ", fixed(source.date)};
    statement << " >= '" << value(first) << "' AND " << fixed(source.date) << " < '" << value(behind) << "'";
    zorCrmParvel::RecordsetRef rows;
    bd->AbrirLeitura("", statement, rows);
    for (; !rows->Eof(); rows->MoveNext()) {
      const platform::Variant name = rows->Fields(std::size_t{2}).Value();
      all.push_back({.day = rows->Fields(std::size_t{0}).Value().ToDate().DayOnly(),
                     .what = source.what,
                     .record = name.IsNull() ? std::string() : name.ToText(),
                     .code = rows->Fields(std::size_t{1}).Value().ToText(),
                     .driver = source.driver});
    }
  }
  std::sort(all.begin(), all.end(), [](const DueDate& a, const DueDate& b) {
    return std::tie(a.day, a.record, a.what) < std::tie(b.day, b.record, b.what);
  });
  return all;
}

}  // namespace due
