#include "engines.h"
#include "platform/currency.h"
#include "platform/date.h"

namespace contract_tests {
namespace {

using platform::Bytes;
using platform::Currency;
using platform::Date;
using platform::Variant;

class RecordsetContract : public ContractTest {
 protected:
  /// A new row with one field set, as it reads afterwards.
  Variant Stored(const char* field, const Variant& value) {
    const RecordsetRef rows = Edit("SELECT * FROM PT_Tudo WHERE Id = 0");
    rows->AddNew();
    rows->Fields(field).SetValue(value);
    rows->Update();
    const RecordsetRef read = Open("SELECT * FROM PT_Tudo WHERE Id = " + rows->Fields("Id").Value().ToText());
    return read->Fields(field).Value();
  }
};

INSTANTIATE_TEST_SUITE_P(Engine, RecordsetContract, testing::ValuesIn(Engines()),
                         [](const auto& engine) { return engine.param.name; });

TEST_P(RecordsetContract, ValuesOfEveryTypeComeBackAsTheyWent) {
  const Bytes picture = {0, 255, 1, 0};
  const std::vector<std::pair<const char*, Variant>> values = {
      {"Nome", "Ávila çã"},
      {"Nome", ""},
      {"Nome", "12345678\U0001F600"},
      {"Notas", std::string(3, ' ') + "fim"},
      {"Activa", true},
      {"Activa", false},
      {"Ano", std::int16_t{-32768}},
      {"Km", std::int32_t{2147483647}},
      {"Valor", Currency::FromTenThousandths(0)},
      {"Valor", Currency::FromTenThousandths(5)},
      {"Valor", Currency::FromTenThousandths(-123450000)},
      {"Valor", Currency::FromTenThousandths(INT64_MAX)},
      {"Valor", Currency::FromTenThousandths(INT64_MIN)},
      {"Razao", 0.1},
      {"Razao", -1e300},
      {"Data", Date()},
      {"Data", Date::FromParts(1899, 12, 29, 23, 0, 1)},
      {"Data", Date::FromParts(2024, 2, 29, 23, 59, 59)},
      {"Foto", picture}};
  for (const auto& [field, value] : values) {
    SCOPED_TRACE(std::string(field) + (value.As<Bytes>() ? "" : " = " + value.ToText()));
    EXPECT_EQ(Stored(field, value), value);
    EXPECT_TRUE(Stored(field, Variant::Null{}).IsNull());
  }
  EXPECT_EQ(Stored("Activa", std::int16_t{-1}), Variant(true));
  EXPECT_EQ(Stored("Ano", 2024), Variant(std::int16_t{2024}));
}

TEST_P(RecordsetContract, ADateThatNoColumnHoldsIsRefusedWithItsName) {
  const Date first = Date::FromParts(1753, 1, 1);
  const Date last = Date::FromParts(9999, 12, 31, 23, 59, 59);
  EXPECT_EQ(Stored("Data", first), Variant(first));
  EXPECT_EQ(Stored("Data", last), Variant(last));
  const std::string words =
      "-2147217887: A data de «Data» tem de estar entre 01-01-1753 e 31-12-9999, e nada foi gravado. "
      "Corrija-a "
      "e tente de novo.";
  const RecordsetRef rows = Edit("SELECT * FROM PT_Tudo ORDER BY Id");
  for (const Date date : {Date::FromParts(202, 1, 24), Date::FromSeconds(first.seconds() - 1),
                          Date::FromSeconds(last.seconds() + 1)}) {
    EXPECT_EQ(ErrorOf([&] { Stored("Data", date); }), words);
    rows->Fields("Data").SetValue(date);
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), words);
  }
  EXPECT_EQ(Open("SELECT * FROM PT_Tudo")->RecordCount(), 2);
}

TEST_P(RecordsetContract, LongTextsPicturesAndStatementsComeWhole) {
  std::string text;
  for (int i = 0; i < 9000; ++i) text += "açúcar \U0001F697 ";
  Bytes picture(200000);
  for (std::size_t i = 0; i < picture.size(); ++i) picture[i] = static_cast<std::uint8_t>(i * 7);
  const RecordsetRef rows = Edit("SELECT * FROM PT_Tudo WHERE Id = 0");
  for (int i = 0; i < 2; ++i) {
    rows->AddNew();
    rows->Fields("Notas").SetValue(text);
    rows->Fields("Ano").SetValue(i);
    rows->Fields("Foto").SetValue(picture);
    rows->Update();
  }
  const RecordsetRef read = Open("SELECT Notas, Ano, Foto FROM PT_Tudo ORDER BY Id");
  ASSERT_EQ(read->RecordCount(), 2);
  read->MoveLast();
  EXPECT_EQ(read->Fields("Notas").Value(), Variant(text));
  EXPECT_EQ(read->Fields("Ano").Value(), Variant(std::int16_t{1}));
  EXPECT_EQ(read->Fields("Foto").Value(), Variant(picture));
  const std::string name(12000, 'x');
  Run("UPDATE PT_Tudo SET Notas = '" + name + "' WHERE Ano = 1");
  EXPECT_EQ(Rows("SELECT Ano FROM PT_Tudo WHERE Notas = '" + name + "'"), (Table{{"1"}}));
}

TEST_P(RecordsetContract, FieldsTellTheirWidthsAndAreFoundWithoutCase) {
  const RecordsetRef rows = Open("SELECT * FROM PT_Tudo");
  EXPECT_TRUE(rows->Eof());
  EXPECT_EQ(rows->Fields("NOME").DefinedSize(), 10);
  EXPECT_EQ(rows->Fields("nome").Name(), "Nome");
  EXPECT_EQ(rows->Fields("Notas").DefinedSize(), 1073741823);
  EXPECT_EQ(rows->Fields("Foto").DefinedSize(), 1073741823);
  EXPECT_EQ(NumberOf([&] { rows->Fields("Nada"); }), platform::kNoSuchField);
  EXPECT_EQ(NumberOf([&] { rows->Fields("Nome").Value(); }), platform::kNoCurrentRecord);
  const RecordsetRef named = Open("SELECT nome, Nome AS outro FROM PT_Codigos");
  if (GetParam().speaksTsql) {  // SQLite spells a column as its table does
    EXPECT_EQ(named->FieldList()[0].name, "nome");
  }
  EXPECT_EQ(named->Fields("OUTRO").DefinedSize(), 50);
  named->Close();
  EXPECT_EQ(NumberOf([&] { named->Eof(); }), platform::kObjectClosed);
}

TEST_P(RecordsetContract, CountsAtOnceAndMovesToTheEnds) {
  AddCodes(300);
  const RecordsetRef rows = Open("SELECT Codigo FROM PT_Codigos ORDER BY Codigo");
  EXPECT_EQ(rows->RecordCount(), 300);
  EXPECT_EQ(rows->Fields("Codigo").Value(), Variant("C1001"));
  EXPECT_EQ(rows->CellAt(120, 0).block(), "C1121");
  rows->MoveLast();
  EXPECT_EQ(rows->Fields("Codigo").Value(), Variant("C1300"));
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
  EXPECT_EQ(NumberOf([&] { rows->MoveNext(); }), platform::kNoCurrentRecord);
  rows->MoveFirst();
  EXPECT_EQ(rows->Fields("Codigo").Value(), Variant("C1001"));
}

TEST_P(RecordsetContract, ManyAreOpenAtOnceAndShowTheTableAsItWas) {
  AddCodes(150);
  const RecordsetRef grid = Open("SELECT Codigo, Nome FROM PT_Codigos");
  const RecordsetRef outer = Open("SELECT Codigo FROM PT_Codigos ORDER BY Codigo");
  std::size_t found = 0;
  for (; !outer->Eof(); outer->MoveNext()) {
    const std::string code = outer->Fields("Codigo").Value().ToText();
    found += Rows("SELECT Nome FROM PT_Codigos WHERE Codigo = '" + code + "'").size();
    Run("DELETE FROM PT_Codigos WHERE Codigo = '" + code + "'");
  }
  EXPECT_EQ(found, 150u);
  EXPECT_EQ(grid->RecordCount(), 150);
  EXPECT_EQ(Open("SELECT Codigo FROM PT_Codigos")->RecordCount(), 0);
}

TEST_P(RecordsetContract, ANewRowIsCurrentAndHasItsNumber) {
  const RecordsetRef rows = Edit("SELECT Nome, Id FROM PT_Tudo WHERE Id = 0");
  for (const char* name : {"um", "dois"}) {
    rows->AddNew();
    EXPECT_TRUE(rows->Fields("Nome").Value().IsNull());
    rows->Fields("nome").SetValue(name);
    rows->Update();
    EXPECT_EQ(Rows("SELECT Nome FROM PT_Tudo WHERE Id = " + rows->Fields("Id").Value().ToText()),
              (Table{{name}}));
  }
  EXPECT_EQ(rows->RecordCount(), 2);
  rows->Fields("Nome").SetValue("outro");
  rows->Update();
  EXPECT_EQ(Rows("SELECT Nome FROM PT_Tudo ORDER BY Id"), (Table{{"um"}, {"outro"}}));
}

TEST_P(RecordsetContract, UpdateSendsOnlyWhatWasAssigned) {
  AddCodes(2);
  const RecordsetRef first = Edit("SELECT Nome, Codigo FROM PT_Codigos WHERE Codigo = 'C1002'");
  const RecordsetRef second = Edit("SELECT Nome FROM PT_Codigos WHERE Codigo = 'C1002'");
  const RecordsetRef third = Edit("SELECT Codigo FROM PT_Codigos WHERE Codigo = 'C1002'");
  EXPECT_EQ(second->FieldList().size(), 1u);
  first->Fields("Nome").SetValue("novo");
  first->Update();
  second->Fields("Nome").SetValue("mais novo");
  second->Update();
  third->Fields("Codigo").SetValue("X");
  third->Update();
  third->Fields("Codigo").SetValue("Y");
  third->Update();
  EXPECT_EQ(Rows("SELECT * FROM PT_Codigos ORDER BY Codigo"),
            (Table{{"C1001", "Nome 1001"}, {"Y", "mais novo"}}));
  EXPECT_EQ(first->Fields("Nome").Value(), Variant("novo"));
  Run("DELETE FROM PT_Codigos");
  third->Fields("Codigo").SetValue("Z");
  EXPECT_EQ(ErrorOf([&] { third->Update(); }),
            "-2147217864: Row cannot be located for updating. Some values may have been changed since it was "
            "last read.");
}

TEST_P(RecordsetContract, FieldsRefuseWhatTheirColumnsCannotHold) {
  AddCodes(1);
  const char* const statement =
      "SELECT Codigo, Nome, Nome AS Outro, COALESCE(Nome, '') AS Texto, 1 AS Soma FROM PT_Codigos";
  for (const auto& [computed, value] : {std::pair{"Soma", Variant(2)}, {"Texto", Variant("x")}}) {
    const RecordsetRef rows = Edit(statement);
    rows->Fields(computed).SetValue(value);
    EXPECT_EQ(NumberOf([&] { rows->Update(); }), platform::kMultipleStep) << computed;
  }
  const RecordsetRef rows = Edit(statement);
  for (const Variant& value : {Variant("01234567890"), Variant(Variant::Null{})})
    EXPECT_EQ(NumberOf([&] { rows->Fields("Codigo").SetValue(value); }), platform::kMultipleStep);
  rows->AddNew();
  rows->Fields("Nome").SetValue("sem código");
  EXPECT_EQ(NumberOf([&] { rows->Update(); }), platform::kConstraint);
  const RecordsetRef numbered = Edit("SELECT Id FROM PT_Tudo");
  numbered->AddNew();
  numbered->Fields("Id").SetValue(5);
  EXPECT_EQ(NumberOf([&] { numbered->Update(); }), platform::kMultipleStep);
}

TEST_P(RecordsetContract, RecordsetsOutliveTheirDatabase) {
  AddCodes(200);
  const RecordsetRef rows = Open("SELECT Codigo FROM PT_Codigos");
  const RecordsetRef edited = Edit("SELECT Codigo, Nome FROM PT_Codigos WHERE Codigo = 'C1001'");
  platform::Ref<platform::Connection> connection;
  store_->ObterLigacao(connection);
  store_.reset();
  EXPECT_EQ(rows->RecordCount(), 200);
  long count = 0;
  for (; !rows->Eof(); rows->MoveNext()) ++count;
  EXPECT_EQ(count, 200);
  edited->Fields("Nome").SetValue("depois");
  edited->Update();
  const RecordsetRef read = connection->Execute("SELECT Nome FROM PT_Codigos WHERE Codigo = 'C1001'");
  EXPECT_EQ(read->Fields("Nome").Value(), Variant("depois"));
}

}  // namespace
}  // namespace contract_tests
