#include <nlohmann/json.hpp>
#include <sstream>

#include "console/program_fixture.h"
#include "embedded/database.h"
#include "events/expense_figures.h"
#include "history/act.h"
#include "masterdata/code_table.h"
#include "support/database_test.h"
#include "support/fleet.h"

namespace console {
namespace {

/// A database in which two operators changed the same code, one after the other.
class HistoryCommandTest : public ProgramFixture {
 protected:
  HistoryCommandTest() {
    Write("ana", "Renault");
    Write("ana", "Renault SA");
    Write("rui", "Grupo Renault");
  }
  void Write(const char* who, const char* name) const {
    history::Options options;
    options.who = {who, "posto 1"};
    options.clock = [] { return platform::Date::FromParts(2024, 3, 1, 10, 12, 0); };
    const auto store = std::make_shared<history::KeepingStore>(embedded::Database::Open(database), options);
    history::Act(store.get(), "Marcas: Confirmar", [&] {
      testing_support::AddCode<zorCrmParvel::clMarcas>(zorCrmParvel::DataAccessRef(store), "REN", name);
    });
  }
  std::string Name() const {
    const zorCrmParvel::DataAccessRef bd(embedded::Database::Open(database));
    return testing_support::Rows(bd, "SELECT Nome FROM zor_PV_Marcas")[0][0];
  }
};

TEST_F(HistoryCommandTest, WhatWasDoneIsShownAndUndone) {
  EXPECT_EQ(OnDatabase({"historico"}), kDone);
  EXPECT_EQ(out.str(),
            "3  01-03-2024 10:12  rui  Marcas: Confirmar, REN\n"
            "2  01-03-2024 10:12  ana  Marcas: Confirmar, REN\n"
            "1  01-03-2024 10:12  ana  Marcas: Confirmar, REN\n");
  EXPECT_EQ(OnDatabase({"anular", "2"}), kRefused);
  EXPECT_EQ(err.str(),
            "Depois da operação 2 alguém alterou o mesmo:\n"
            "  Marcas REN Nome: agora «Grupo Renault», ficaria «Renault»\n"
            "Nada foi anulado. Para pôr mesmo assim tudo como estava antes: --sobrepor\n");
  EXPECT_EQ(Name(), "Grupo Renault");
  EXPECT_EQ(OnDatabase({"anular", "2", "--sobrepor"}), kDone) << err.str();
  EXPECT_EQ(out.str(), "Anulada a operação 2, pela operação 4.\n");
  EXPECT_EQ(Name(), "Renault");
  EXPECT_EQ(OnDatabase({"historico"}), kDone);
  EXPECT_NE(out.str().find("\n2  01-03-2024 10:12  ana  Marcas: Confirmar, REN  (anulada por 4)\n1  "),
            std::string::npos)
      << out.str();
  EXPECT_EQ(OnDatabase({"anular", "2"}), kFailed);
  EXPECT_NE(err.str().find("já foi anulada, pela operação 4"), std::string::npos) << err.str();

  const struct {
    std::vector<std::string> words;
    std::vector<long> numbers;
  } cases[] = {
      {{"REN"}, {4, 3, 2, 1}}, {{"--operador", "ana"}, {2, 1}}, {{"--texto", "anular"}, {4}},
      {{"OUTRO"}, {}},         {{"--texto", "nada disto"}, {}}, {{"REN", "--operador", "rui"}, {3}},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.words.back());
    std::vector<std::string> words = {"historico", "--json"};
    words.insert(words.end(), each.words.begin(), each.words.end());
    EXPECT_EQ(OnDatabase(words), kDone);
    std::vector<long> numbers;
    for (const auto& operation : nlohmann::json::parse(out.str())) numbers.push_back(operation.at("numero"));
    EXPECT_EQ(numbers, each.numbers);
  }
  EXPECT_EQ(OnDatabase({"historico", "--json", "--texto", "anular"}), kDone);
  const auto undoing = nlohmann::json::parse(out.str())[0];
  EXPECT_EQ(undoing.at("anula"), 2);
  EXPECT_EQ(undoing.at("texto"), "Anular: Marcas: Confirmar, REN");
}

TEST_F(HistoryCommandTest, TheSizeIsToldBeforeAndAfterItIsCleared) {
  EXPECT_EQ(OnDatabase({"historico", "limpar", "--antes-de", "01-03-2024"}), kDone);
  EXPECT_EQ(out.str(), "0 operações e 0 documentos saíram do histórico.\n");
  EXPECT_EQ(OnDatabase({"historico", "limpar", "--antes-de", "02-03-2024"}), kDone);
  EXPECT_EQ(out.str(), "3 operações e 0 documentos saíram do histórico.\n");
  EXPECT_EQ(OnDatabase({"historico", "tamanho"}), kDone);
  EXPECT_EQ(out.str().substr(0, out.str().find('\n')), "O histórico está vazio.");
  EXPECT_NE(out.str().find(" KB do ficheiro."), std::string::npos) << out.str();
  Write("ana", "Outra");
  EXPECT_EQ(OnDatabase({"historico", "tamanho"}), kDone);
  EXPECT_EQ(out.str().substr(0, out.str().find('\n')), "1 operação desde 01-03-2024, 1 linha.");
}

TEST_F(HistoryCommandTest, WrongFiguresAreToldCorrectedAndRightAfterwards) {
  {
    const zorCrmParvel::DataAccessRef bd(embedded::Database::Open(database));
    testing_support::AddFleet(bd, 10000);
    testing_support::AddExpense(bd, "12-AB-34", platform::Date::FromParts(2024, 2, 1), "GASOLEO", "40", "60",
                                10500);
    zorCrmParvel::RecalcularViatura(bd, "12-AB-34");
    bd->ExecutarSql("", "UPDATE zor_PV_Viaturas SET CustoTotal = 166");
  }
  const std::string wrong = "12-AB-34\n  CustoTotal: 166 → 60\n1 viatura com figuras ";
  EXPECT_EQ(OnDatabase({"verificar", "--figuras"}), kRefused);
  EXPECT_EQ(out.str(), wrong + "erradas. Para as corrigir: --corrigir\n");
  EXPECT_EQ(OnDatabase({"verificar", "--figuras", "--corrigir"}), kDone);
  EXPECT_EQ(out.str(), wrong + "corrigidas.\n");
  EXPECT_EQ(OnDatabase({"verificar", "--figuras"}), kDone);
  EXPECT_EQ(out.str(), "As figuras de todas as viaturas estão certas.\n");
  const zorCrmParvel::DataAccessRef bd(embedded::Database::Open(database));
  testing_support::AddVehicle(bd, "99-ZZ-99");
  testing_support::AddExpense(bd, "99-ZZ-99", platform::Date::FromParts(2024, 2, 1), "GASOLEO", "40", "60",
                              0);
  bd->ExecutarSql("", "UPDATE zor_PV_Viaturas SET CustoTotal = 166");
  EXPECT_EQ(OnDatabase({"verificar", "--figuras"}), kRefused);
  EXPECT_NE(out.str().find("\n2 viaturas com figuras erradas."), std::string::npos) << out.str();
  // Whoever still reads keeps in the file what was there.
  const zorCrmParvel::Snapshot snapshot(bd);
  testing_support::Rows(bd, "SELECT * FROM zor_Funcionarios");
  EXPECT_EQ(OnDatabase({"motorista", "1", "--apagar-dados-pessoais", "--confirmar", "1"}), kDone);
  EXPECT_EQ(err.str().find("Do ficheiro, ou dos ficheiros do servidor, ainda não saiu tudo: "), 0U)
      << err.str();
}

}  // namespace
}  // namespace console
