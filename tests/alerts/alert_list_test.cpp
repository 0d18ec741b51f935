#include "alerts/alert_list.h"

#include <map>

#include "alerts/alert_builders.h"
#include "alerts/alerts_fixture.h"
#include "host/sistema.h"
#include "support/grid_window.h"

namespace zorCrmParvel {
namespace {

class AlertListTest : public AlertsFixture {
 protected:
  AlertListTest() { sistema.ICrmSistema_ZorDataAccess = bd; }

  /// A vehicle and a driver of whom everything is due on one day.
  void Everything() {
    Vehicle("A");
    Policy("A");
    Accessory("A");
    Sql("UPDATE zor_PV_Viaturas SET SeloPago=0, Tacografo=1, DataPrxRev=" + Day() + ", DataSelo=" + Day() +
        ", DtDescarga=" + Day());
    Driver("1");
    Sql("UPDATE zor_Funcionarios SET ValidadePassa=" + Day() + ", NoCartaoCondutor='C', DtDescarga=" + Day());
  }
  /// Starts the list of a key on the grid.
  ICrmVwList& Start(const std::string& key) {
    list = sistema.MostraListas(key);
    window.Start(*list);
    return *list;
  }
  std::string Text(long row, const char* column) { return grid.CellText(row, grid.ColumnIndex(column)); }

  Sistema sistema;
  testing_support::GridWindow window;
  SGGrid& grid = window.grid;
  std::unique_ptr<ICrmVwList> list;
};

TEST_F(AlertListTest, AFailureCarriesTheListsTitle) {
  Driver("1");
  Sql("INSERT INTO zor_CartasCond (Motorista, TipoCarta, DataValidade) VALUES ('1', 10, " + Day() + ")");
  const auto expect = [&](const char* source, const std::function<void()>& act) {
    const platform::RuntimeError error = testing_support::FailureOf(act);
    EXPECT_EQ(error.number(), platform::kSubscriptOutOfRange) << "there is no such licence class";
    EXPECT_EQ(error.source(), source);
  };
  expect("Alertas - Motoristas::Iniciar", [&] { Start("AlertasMot"); });
  EXPECT_EQ(grid.RowCount(), 0);
  expect("Alertas - Motoristas::Contar", [&] { dynamic_cast<AlertList&>(*list).Contar(); });
}

TEST_F(AlertListTest, WhatWasBuiltBeforeAFailureStays) {
  Driver("1");
  Driver("2");
  Sql("UPDATE zor_Funcionarios SET ValidadePassa=" + Day());
  Sql("UPDATE zor_Funcionarios SET Inactivo=NULL WHERE Codigo='2'");
  const RecordsetRef rs = Tools::RsAlertasMot();
  EXPECT_EQ(testing_support::NumberOf([&] { Tools::EncheAlertasMot(rs, bd); }), platform::kInvalidUseOfNull);
  EXPECT_EQ(rs->RecordCount(), 1);
}

TEST_F(AlertListTest, KnowsWhichBandsItHas) {
  for (const std::string& key : Sistema::ChavesDasListas()) {
    const auto one = sistema.MostraListas(key);
    const auto* alerts = dynamic_cast<const AlertList*>(one.get());
    if (alerts == nullptr) continue;
    EXPECT_TRUE(alerts->TemFaixa(Tools::Faixa::kPassada) && alerts->TemFaixa(Tools::Faixa::kBreve)) << key;
    EXPECT_EQ(alerts->TemFaixa(Tools::Faixa::kMuitoBreve), key != "AlertasViat");
  }
}

/// Stands in for a ficha of the catalogue and keeps what it was asked.
class Stub : public Ficha {
 public:
  static inline std::string asked;
  void Chamar(std::string_view rotina, const platform::Variant& argumento) override {
    EXPECT_TRUE(IsLoaded() && mybd);
    asked = std::string(rotina) + " " + argumento.ToText();
  }
};

TEST_F(AlertListTest, EditarOpensWhatTheRowSpeaksOfAndReloads) {
  Everything();
  DaysToGo(5);
  const std::map<std::string, std::string> opened = {
      {"AlertasAp", "CarregaViatura A"},   {"AlertasRev", "CarregaViatura A"},
      {"AlertasViat", "CarregaViatura A"}, {"AlertasInsp", "CarregaViatura A"},
      {"AlertasMot", "CarregaFicha 1"},    {"AlertasAcess", "CarregaAcessorio 1"}};
  for (const char* name : {"Viaturas", "Motoristas", "Acessorios"})
    FormCatalog::Shared().Register(name, [] { return std::make_unique<Stub>(); });
  for (const auto& [key, asked] : opened) {
    SCOPED_TRACE(key);
    Start(key);
    Stub::asked.clear();
    list->ICrmVwList_Editar(nullptr);
    GridRow group(grid, 0, true);
    list->ICrmVwList_Editar(&group);
    EXPECT_EQ(Stub::asked, "");
    const RecordsetRef before = grid.DataSource();
    host.NextForm([](platform::Form&) {});
    GridRow row = grid.RowAt(0);
    list->ICrmVwList_Editar(&row);
    EXPECT_EQ(Stub::asked, asked);
    EXPECT_FALSE(grid.DataSource() == before);
  }
  FormCatalog::Shared().Register("Motoristas", [] { return nullptr; });
  Start("AlertasMot");
  GridRow row = grid.RowAt(0);
  list->ICrmVwList_Editar(&row);
  EXPECT_EQ(list->ICrmVwList_NumeroItens(), 2) << "a ficha that isn't there only reloads";
}

TEST_F(AlertListTest, RowsFilledInCodeHaveTheirFields) {
  const std::map<platform::FieldType, std::string> types = {{platform::FieldType::kText, "varchar"},
                                                            {platform::FieldType::kLong, "long"},
                                                            {platform::FieldType::kDouble, "double"}};
  const auto fields = [&](const RecordsetRef& rows) {
    std::string text;
    for (const platform::FieldInfo& field : rows->FieldList())
      text += (text.empty() ? "" : ", ") + field.name + " " + types.at(field.type) +
              std::to_string(field.definedSize) + (field.nullable ? " NULL" : "");
    return text;
  };
  EXPECT_EQ(fields(Tools::RsAlertasInsp()),
            "Matricula varchar15 NULL, KmActuais double32, MesAno varchar10 NULL, DataPrx varchar10, Notas "
            "varchar50 NULL, Dias long32");
  EXPECT_EQ(fields(Tools::RsAlertasMot()),
            "Motorista varchar80 NULL, Documento varchar60 NULL, Data varchar10, Notas varchar80 NULL, Dias "
            "long32, Codigo varchar15 NULL");
  EXPECT_EQ(fields(Tools::RsAlertasAcess()),
            "Matricula varchar10 NULL, Acessorio varchar10 NULL, Marca varchar60 NULL, Data varchar10, Notas "
            "varchar80 NULL, Dias long32, Id long32");
}

TEST_F(AlertListTest, TheGridsCanBeSetUpWithoutRows) {
  VwLstAlertasAcess accessories;
  accessories.ICrmVwList_GridMaster(&grid);
  accessories.Act_GrelhaMot();
  EXPECT_EQ(grid.Column("Doc").textLimit, 20) << "the drivers' columns, here too";
  EXPECT_TRUE(grid.Column("Codigo").hidden);
  VwLstAlertasInsp inspections;
  inspections.ICrmVwList_GridMaster(&grid);
  inspections.Act_GrelhaInsp();
  grid.SetRowCount(1);
  grid.SetCell(0, "KmActuais", 1234.0);
  grid.SetCell(0, "Dias", 12);
  EXPECT_EQ(Text(0, "KmActuais"), "1.234");
  EXPECT_EQ(grid.StyleOf(0)->name, "PintarMnG");
}

}  // namespace
}  // namespace zorCrmParvel
