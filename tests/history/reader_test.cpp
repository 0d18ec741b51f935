// A history that is longer than what is looked at in one go, and rows with columns of every type.

#include "history/reader.h"

#include "history/kept_fleet.h"
#include "history/retention.h"
#include "history/undo.h"
#include "support/errors.h"

namespace schema {
extern const char* const kTables;
}

namespace history {
namespace {

/// Operations 1 to 13,000, ten a day from 1 January 2020 on, but that 7001 to 9500 are what 7000 did.
class LongHistoryTest : public KeptFleetTest {
 protected:
  LongHistoryTest() {
    store->inner()->ExecutarSql("", "DELETE FROM parvel_historico");
    for (std::int32_t number = 1; number <= 13000; ++number) rows_.push_back(RowOf(number));
    std::vector<const RowValues*> rows;
    for (const RowValues& row : rows_) rows.push_back(&row);
    store->inner()->AddRows("parvel_historico",
                            {"Id", "Operacao", "Momento", "Operador", "Posto", "Texto", "Registo", "Anula",
                             "Tabela", "Chave", "Linhas", "Antes", "Depois"},
                            rows);
  }

  static RowValues RowOf(std::int32_t number) {
    using platform::Variant;
    const Variant null = Variant::Null{};
    const auto when = [&](std::initializer_list<int> numbers, const char* text) {
      return std::find(numbers.begin(), numbers.end(), number) == numbers.end() ? null : Variant(text);
    };
    const auto undoes = std::map<int, int>{{44, 30}, {45, 44}, {46, 31}};
    const Date day = Date::FromParts(2020, 1, 1).AddDays(number / 10);
    const bool step = number > 7000 && number <= 9500;
    const bool eva = number == 5200;  // while the clock was put back
    return {number,
            step ? Variant(7000) : null,
            step ? null : Variant(eva ? Date::FromParts(2020, 2, 1, 23, 30) : day),
            eva                                                 ? "eva"
            : number == 40 || number == 6000 || number == 12500 ? "rui"
                                                                : "ana",
            "posto 1",
            "Acto 100% " + std::to_string(number),
            number % 4000 == 0 ? "R1" : "R",
            undoes.contains(number) ? Variant(undoes.at(number)) : null,
            step             ? "zor_PV_Gastos"
            : number == 7000 ? "zor_PV_Viaturas"
                             : "zor_PV_Marcas",
            "*",
            1,
            when({42, 43, 44}, "{}"),
            when({41, 42, 45}, "{}")};
  }

  /// The numbers that are found, the slices that it takes, and whether the first found any.
  std::string Found(const Filter& filter) {
    std::vector<long> numbers;
    int slices = 0;
    for (long below = 0; slices == 0 || below != 0; ++slices) {
      const Slice slice = ReadOperations(*store, filter, below);
      for (const Operation& each : slice.operations) numbers.push_back(each.number);
      below = slice.next;
    }
    std::string text;
    for (const long number : numbers)
      if (numbers.size() < 6 || number == numbers.front() || number == numbers.back())
        text += std::to_string(number) + " ";
    return text + "(" + std::to_string(numbers.size()) + " in " + std::to_string(slices) + ")";
  }

 private:
  std::vector<RowValues> rows_;
};

TEST_F(LongHistoryTest, IsReadInSlicesThatEndWhereNothingMoreCanBe) {
  const auto day = [](int year, int month, int number) { return Date::FromParts(year, month, number); };
  const struct {
    Filter filter;
    const char* found;
  } cases[] = {
      {{}, "13000 1 (10500 in 106)"},
      {{.operador = "rui"}, "12500 6000 40 (3 in 2)"},
      {{.operador = "rui", .from = day(2021, 1, 1)}, "12500 6000 (2 in 2)"},
      {{.operador = "rui", .from = day(2023, 1, 1)}, "12500 (1 in 1)"},
      {{.operador = "rui", .to = day(2020, 1, 5)}, "40 (1 in 1)"},
      {{.operador = "rui", .to = day(2020, 1, 4)}, "(0 in 1)"},
      {{.operador = "rui", .from = day(2020, 1, 5), .to = day(2021, 8, 23)}, "6000 40 (2 in 2)"},
      {{.operador = "eva", .to = day(2020, 2, 1)}, "5200 (1 in 1)"},
      {{.operador = "eva", .from = day(2020, 2, 2)}, "(0 in 2)"},
      {{.record = "r1"}, "12000 4000 (2 in 1)"},
      {{.text = "R1"}, "12000 4000 (2 in 1)"},
      {{.text = "acto 100% 1299"}, "12999 1299 (11 in 2)"},
      {{.text = "100_"}, "(0 in 2)"},
      {{.text = "VA"}, "5200 (1 in 2)"},
      {{.table = "zor_PV_Gastos"}, "7000 (1 in 6)"},
      {{.table = "zor_PV_Viaturas"}, "7000 (1 in 7)"},
      {{.operador = "rui", .table = "zor_PV_Marcas"}, "12500 6000 40 (3 in 7)"},
      {{.table = "zor_PV_Marcas", .kind = Kind::kUndoing}, "46 45 44 (3 in 7)"},
      {{.kind = Kind::kCreation}, "41 (1 in 2)"},
      {{.kind = Kind::kChange}, "42 (1 in 2)"},
      {{.kind = Kind::kRemoval}, "43 (1 in 2)"},
      {{.kind = Kind::kUndoing}, "46 45 44 (3 in 2)"},
  };
  for (const auto& each : cases)
    EXPECT_EQ(Found(each.filter), each.found)
        << each.filter.operador << each.filter.text << each.filter.table;
  std::string undone;
  for (const Operation& each : ReadOperations(*store, std::vector<long>{30, 44, 7001, 31, 13001}))
    undone += std::to_string(each.number) + "<" + std::to_string(each.undoneBy) + " ";
  EXPECT_EQ(undone, "44<45 31<46 30<0 ") << "an undoing that was undone does not count";
  EXPECT_EQ(ReadOperators(*store), (std::vector<std::string>{"ana", "rui"})) << "of the newest part";
}

TEST_F(LongHistoryTest, IsForgottenUpToADayAndItsSizeTold) {
  EXPECT_EQ(ShownSize(SizeOf(*store)), "10500 operações desde 01-01-2020, 13000 linhas.");
  EXPECT_EQ(ClearBefore(*store, Date::FromParts(2022, 6, 1), true).operations, 0);
  EXPECT_EQ(KeepWithin(*store, {.years = 0, .documentYears = 0}, Clock()).operations, 0);
  EXPECT_EQ(KeepWithin(*store, {.years = 4}, Date::FromParts(2024, 1, 1)).operations, 0);
  EXPECT_EQ(KeepWithin(*store, {.years = 4}, Date::FromParts(2024, 1, 2)).operations, 9);
  EXPECT_EQ(ClearBefore(*store, Date::FromParts(2022, 6, 1)).operations, 6991);
  EXPECT_EQ(ShownSize(SizeOf(*store)), "3500 operações desde 08-08-2022, 3500 linhas.");
  EXPECT_EQ(ClearBefore(*store, Date::FromParts(2030, 1, 1)).operations, 3500);
  EXPECT_EQ(ShownSize(SizeOf(*store)), "O histórico está vazio.");
}

TEST(HistorySizeTest, IsToldInTheWordsOfOneAndOfSeveral) {
  const Date day = Date::FromParts(2024, 3, 1, 10, 12, 0);
  EXPECT_EQ(ShownSize({.operations = 1, .rows = 1, .documents = 1, .oldest = day}),
            "1 operação desde 01-03-2024, 1 linha; 1 documento removido ainda se pode repor.");
  EXPECT_EQ(ShownSize({.operations = 2, .rows = 3, .documents = 4, .oldest = {}}),
            "2 operações, 3 linhas; 4 documentos removidos ainda se podem repor.");
}

/// A table whose key and other columns are of every type but bytes.
TEST(HistoryTypesTest, EveryTypeOfColumnComesBackAloneAndInLists) {
  const TemporaryFolder folder;
  embedded::OpenOptions tables;
  tables.schema =
      std::string(schema::kTables) +
      "CREATE TABLE Tudo (Codigo nvarchar(10) NOT NULL, Activa bit NOT NULL, Ano smallint NOT NULL, Valor "
      "money NOT NULL, Razao float NOT NULL, Data datetime NOT NULL, Km int NULL, Nota nvarchar(50) NULL, "
      "Preco money NULL, Desvio float NULL, Dia datetime NULL, Sim bit NULL, CONSTRAINT PT PRIMARY KEY "
      "(Codigo, Activa, Ano, Valor, Razao, Data));";
  Options options;
  options.schema = tables.schema;
  const auto store =
      std::make_shared<KeepingStore>(embedded::Database::Open(folder.File("a.db"), tables), options);
  const DataAccessRef bd(store);
  const auto all = [&] { return Rows(bd, "SELECT * FROM Tudo ORDER BY Codigo"); };
  const auto add = [&](int count) {
    RecordsetRef rows;
    bd->AbrirEdicao("SELECT * FROM Tudo", rows);
    for (int i = 0; i < count; ++i) {
      rows->AddNew();
      const std::pair<const char*, platform::Variant> values[] = {
          {"Codigo", "c" + std::to_string(i)},
          {"Activa", i % 2 == 0},
          {"Ano", -i},
          {"Valor", platform::Currency::FromTenThousandths(-12345LL * i)},
          {"Razao", 0.1 * i},
          {"Data", Date::FromParts(2024, 12, 31, 23, 59, 9).AddDays(-i)},
          {"Km", 1000000 * (i - 3)},
          {"Nota", "linha\n\"é\" \\ " + std::to_string(i)},
          {"Preco", platform::Currency::FromTenThousandths(5)},
          {"Desvio", -1.5e-7},
          {"Dia", Date::FromParts(1753, 1, 1)}};
      for (const auto& [name, value] : values) rows->Fields(name).SetValue(value);
      if (i != 1) rows->Fields("Sim").SetValue(i == 0);
      rows->Update();
    }
  };
  const auto change = [&](int) {
    bd->ExecutarSql("",
                    "UPDATE Tudo SET Km = -7, Nota = NULL, Preco = -0.05, Desvio = 2.25, Dia = '2024-02-29 "
                    "23:59:58', Sim = 0 WHERE Codigo <> 'c99';");
  };
  const auto changeBackwards = [&](int) {
    RecordsetRef rows;
    bd->AbrirEdicao("SELECT * FROM Tudo ORDER BY Codigo", rows);
    rows->MoveNext();
    rows->MoveNext();
    for (const char* note : {"terceira", "primeira"}) {
      rows->Fields("Nota").SetValue(note);
      rows->Update();
      rows->MoveFirst();
    }
  };
  const auto remove = [&](int) { bd->ExecutarSql("", "DELETE FROM Tudo"); };
  std::string kept;
  for (const int count : {8, 9}) {
    std::vector<std::pair<long, Table>> acts;
    for (const std::function<void(int)>& work :
         std::initializer_list<std::function<void(int)>>{add, change, changeBackwards, remove}) {
      const Table before = all();
      Act(store.get(), "Acto", [&] { work(count); });
      acts.emplace_back(store->LastOperation(), before);
      kept += std::to_string(ReadSteps(*store, store->LastOperation()).size()) + " ";
    }
    EXPECT_TRUE(all().empty());
    for (auto act = acts.rbegin(); act != acts.rend(); ++act) {
      EXPECT_TRUE(Conflicts(*store, act->first).empty());
      Undo(store, act->first);
      EXPECT_EQ(all(), act->second);
    }
  }
  EXPECT_EQ(kept, "8 8 2 8 9 9 2 2 ") << "more than eight that go stand together, but for the first";
}

}  // namespace
}  // namespace history
