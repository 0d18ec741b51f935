#include "console/record_command.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <span>
#include <sstream>
#include <string>

#include "console/list_printer.h"
#include "drivers/licence_classes.h"
#include "host/literal.h"
#include "platform/recordset.h"
#include "platform/text.h"

namespace console {
namespace {

using zorCrmParvel::DataAccessRef;
using zorCrmParvel::RecordsetRef;
using zorCrmParvel::Statement;

/// Rows that are told of a record: a statement that ends where the record's key goes, as a text.
struct Section {
  const char* word;   // in JSON
  const char* title;  // over the table
  const char* sql;
  const char* order;  // the newest first, of one moment those recorded last
};

constexpr const char* kVehicle =
    "SELECT V.Matricula, M.Nome AS Marca, O.Nome AS Modelo, C.Nome AS Categoria, D.Nome AS Departamento, "
    "V.Responsavel, CASE V.Combustivel WHEN 0 THEN 'Diesel' WHEN 1 THEN 'Gasolina' WHEN 2 THEN 'GPL' "
    "WHEN 3 THEN N'Eléctrico' END AS Combustivel, V.AnoMatricula, V.DataMatricula, V.NoMotor, V.NoChassis, "
    "V.Cilindrada, V.KmInicial, V.DataKmInicial, V.KmActual, V.Media, V.CustoMedioKmC, V.CustoMedioKmT, "
    "V.CustoTotal, V.CompLeasing, V.NoContrato, V.ValContrato, V.ValorInicial, V.ValorResidual, "
    "V.Mensalidade, V.DataPrxRev, V.KmPrxRev, V.DataPrxInsp, V.DataSelo, V.SeloPago, V.DtDescarga, "
    "V.Inactiva, V.Obs FROM zor_PV_Viaturas AS V LEFT JOIN zor_PV_Marcas AS M ON M.Codigo = V.Marca "
    "LEFT JOIN zor_PV_Modelos AS O ON O.Codigo = V.Modelo "
    "LEFT JOIN zor_PV_Categorias AS C ON C.Codigo = V.Categoria "
    "LEFT JOIN zor_PV_Departamentos AS D ON D.Codigo = V.Departamento WHERE V.Matricula = N'";

constexpr Section kVehicleEvents[] = {
    {"gastos", "Gastos",
     "SELECT G.Data, T.Nome AS Tipo, G.Qtd, G.ValorUn, G.Custo, G.Km, G.Motorista, G.Viagem, G.Obs "
     "FROM zor_PV_Gastos AS G LEFT JOIN zor_PV_TiposGastos AS T ON T.Codigo = G.TipoGasto "
     "WHERE G.Matricula = N'",
     "G.Data DESC, G.Gst_Id DESC"},
    {"apolices", "Apólices de seguro",
     "SELECT S.Apolice, C.Nome AS Companhia, T.Nome AS Tipo, S.DataInicio, S.Validade, S.Premio, S.Franquia, "
     "S.Inactiva FROM zor_PV_Seguros AS S LEFT JOIN zor_PV_Companhias AS C ON C.Codigo = S.Companhia "
     "LEFT JOIN zor_PV_TiposSeguro AS T ON T.Codigo = S.TipoSeguro WHERE S.Matricula = N'",
     "S.Validade DESC, S.Seg_Id DESC"},
    {"revisoes", "Revisões",
     "SELECT R.Data, T.Nome AS Tipo, R.Km, R.Custo, R.Obs FROM zor_PV_Revisoes AS R "
     "LEFT JOIN zor_PV_TiposManut AS T ON T.Codigo = R.TipoManut WHERE R.Matricula = N'",
     "R.Data DESC, R.Manu_Id DESC"},
    {"inspeccoes", "Inspecções",
     "SELECT I.Data, I.Km, I.Custo, I.Obs FROM zor_PV_Inspecoes AS I WHERE I.Matricula = N'",
     "I.Data DESC, I.Insp_Id DESC"},
    {"multas", "Multas",
     "SELECT M.Data, M.Motorista, M.ValorMulta, M.Responsabilidade, M.Obs FROM zor_PV_Multas AS M "
     "WHERE M.Matricula = N'",
     "M.Data DESC, M.Id DESC"},
    {"sinistros", "Sinistros",
     "SELECT S.Data, S.Motorista, S.LocalAc, S.Responsavel, S.Custo, S.Obs FROM zor_PV_Sinistros AS S "
     "WHERE S.Matricula = N'",
     "S.Data DESC, S.Id DESC"},
    {"acessorios", "Acessórios",
     "SELECT A.Data, T.Nome AS Tipo, A.Marca, A.Modelo, A.KmInicial, A.KmFinal, A.Qtd, A.Custo, A.DataVal, "
     "A.Obs FROM zor_PV_Acessorios AS A LEFT JOIN zor_PV_TiposAcessorios AS T ON T.Codigo = A.TipoAcessorio "
     "WHERE A.Matricula = N'",
     "A.Data DESC, A.Id DESC"},
};

constexpr const char* kDriver = "SELECT * FROM zor_Funcionarios WHERE Codigo = N'";

constexpr Section kDriverEvents[] = {
    {"gastos", "Gastos",
     "SELECT G.Data, G.Matricula, T.Nome AS Tipo, G.Qtd, G.Custo, G.Km, G.Viagem, G.Obs "
     "FROM zor_PV_Gastos AS G LEFT JOIN zor_PV_TiposGastos AS T ON T.Codigo = G.TipoGasto "
     "WHERE G.Motorista = N'",
     "G.Data DESC, G.Gst_Id DESC"},
    {"multas", "Multas",
     "SELECT M.Data, M.Matricula, M.ValorMulta, M.Responsabilidade, M.Obs FROM zor_PV_Multas AS M "
     "WHERE M.Motorista = N'",
     "M.Data DESC, M.Id DESC"},
    {"sinistros", "Sinistros",
     "SELECT S.Data, S.Matricula, S.LocalAc, S.Responsavel, S.Custo, S.Obs FROM zor_PV_Sinistros AS S "
     "WHERE S.Motorista = N'",
     "S.Data DESC, S.Id DESC"},
};

/// A statement with the key put in; an apostrophe in it stays a part of it.
RecordsetRef Open(const DataAccessRef& bd, const char* sql, const std::string& key, const char* order) {
  Statement statement{zorCrmParvel::fixed(sql), zorCrmParvel::value(zorCrmParvel::InsideLiteral(key)), "'"};
  if (order != nullptr) statement << " ORDER BY " << zorCrmParvel::fixed(order);
  RecordsetRef rows;
  bd->AbrirLeitura("", statement, rows);
  return rows;
}

/// The driver's licence classes, by name.
RecordsetRef Licences(const DataAccessRef& bd, const std::string& code) {
  const RecordsetRef stored =
      Open(bd, "SELECT TipoCarta, DataValidade FROM zor_CartasCond WHERE Motorista = N'", code, "TipoCarta");
  auto licences = platform::MakeRef<platform::MemoryRecordset>();
  licences->Append("Classe", platform::FieldType::kText, 50);
  licences->Append("Validade", platform::FieldType::kDate, 8);
  licences->Open();
  for (; !stored->Eof(); stored->MoveNext()) {
    const std::int32_t type = stored->Fields("TipoCarta").Value().ToLong();
    const auto& names = zorCrmParvel::TiposCarta();
    const bool known = type >= 0 && static_cast<std::size_t>(type) < names.size();
    licences->AddNew();
    licences->Fields("Classe").SetValue(known ? std::string(names[static_cast<std::size_t>(type)])
                                              : std::to_string(type));
    licences->Fields("Validade").SetValue(stored->Fields("DataValidade").Value());
    licences->Update();
  }
  stored->Close();
  return licences;
}

class RecordPrinter {
 public:
  RecordPrinter(bool json, std::ostream& out) : json_(json), out_(out) {}

  void Record(RecordsetRef row) {
    GridForm form;
    form.Grelha.SetDataSource(std::move(row));
    if (json_) {
      object_ = Rows(form.Grelha).at(0);
      return;
    }
    std::size_t width = 0;
    for (const auto& column : form.Grelha.Columns())
      width = std::max(width, platform::Length(column.caption));
    for (std::size_t i = 0; i < form.Grelha.Columns().size(); ++i) {
      const std::string text = Told(form.Grelha, i);
      const std::string& name = form.Grelha.Columns()[i].caption;
      if (!text.empty()) out_ << name << std::string(width - platform::Length(name) + 2, ' ') << text << '\n';
    }
  }

  void Events(const char* word, const char* title, RecordsetRef rows) {
    GridForm form;
    form.Grelha.SetDataSource(std::move(rows));
    if (json_) {
      object_[word] = Rows(form.Grelha);
    } else if (form.Grelha.RowCount() > 0) {
      out_ << '\n' << title << ": " << form.Grelha.RowCount() << '\n';
      PrintList(out_, form.Grelha, Output::kTable);
    }
  }

  void Events(const DataAccessRef& bd, const std::string& key, std::span<const Section> sections) {
    for (const Section& section : sections)
      Events(section.word, section.title, Open(bd, section.sql, key, section.order));
  }

  void End() {
    if (json_) out_ << object_.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
  }

 private:
  /// A value for the eye; empty when there is nothing to tell.
  static std::string Told(const platform::SGGrid& grid, std::size_t column) {
    const platform::Variant value = grid.CellValue(0, column);
    const auto* date = value.As<platform::Date>();
    if (date != nullptr && *date == platform::Date()) return {};  // stands for no date
    if (const auto* truth = value.As<bool>()) return *truth ? "Sim" : "Não";
    return grid.CellText(0, column);
  }

  static nlohmann::ordered_json Rows(const platform::SGGrid& grid) {
    std::ostringstream rows;
    PrintList(rows, grid, Output::kJson);
    return nlohmann::ordered_json::parse(rows.str());
  }

  bool json_;
  std::ostream& out_;
  nlohmann::ordered_json object_;
};

}  // namespace

bool PrintVehicle(const DataAccessRef& bd, const std::string& plate, bool json, std::ostream& out) {
  const RecordsetRef row = Open(bd, kVehicle, plate, nullptr);
  if (row->Eof()) return false;
  RecordPrinter printer(json, out);
  printer.Record(row);
  printer.Events(bd, plate, kVehicleEvents);
  printer.End();
  return true;
}

bool PrintDriver(const DataAccessRef& bd, const std::string& code, bool json, std::ostream& out) {
  const RecordsetRef row = Open(bd, kDriver, code, nullptr);
  if (row->Eof()) return false;
  RecordPrinter printer(json, out);
  printer.Record(row);
  printer.Events("cartas", "Classes da carta", Licences(bd, code));
  printer.Events(bd, code, kDriverEvents);
  printer.End();
  return true;
}

}  // namespace console
