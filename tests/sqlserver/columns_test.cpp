// Values of every kind on their way to the columns of a server, and back.

#include "server_fixture.h"

namespace sqlserver_tests {
namespace {

using ColumnsTest = ServerTest;

TEST_F(ColumnsTest, EveryKindOfValueGoesAsItsColumnTakesIt) {
  using platform::FieldType;
  using platform::Variant;
  const auto bound = [&](FieldType type, long width, const Variant& value) {
    sqlserver::Parameters parameters;
    platform::FieldInfo field;
    field.type = type;
    field.definedSize = width;
    parameters.Add(field, value);
    Bindings();
    session().Write("DELETE FROM PT_Codigos WHERE Codigo = ?", parameters);
    return Bindings();
  };
  EXPECT_EQ(bound(FieldType::kBool, 2, true) + bound(FieldType::kInteger, 2, std::int16_t{7}) +
                bound(FieldType::kLong, 4, 7) + bound(FieldType::kDouble, 8, 0.5) +
                bound(FieldType::kCurrency, 8, platform::Currency(12)) +
                bound(FieldType::kDate, 16, platform::Date::FromParts(2024, 1, 2)),
            "-7/-7/1/0/1/ -15/5/5/0/2/ -16/4/10/0/4/ 8/8/15/0/8/ 1/3/19/4/2/ 93/93/23/3/16/ ");
  EXPECT_EQ(
      bound(FieldType::kText, 10, "ação") + bound(FieldType::kText, 10, Variant::Null{}) +
          bound(FieldType::kText, 0, "x") +
          bound(FieldType::kText, platform::kUnlimitedSize, std::string(4000, 'x')) +
          bound(FieldType::kText, platform::kUnlimitedSize, std::string(4001, 'x')) +
          bound(FieldType::kBytes, platform::kUnlimitedSize, platform::Bytes(8000)) +
          bound(FieldType::kBytes, platform::kUnlimitedSize, platform::Bytes(8001)),
      "-8/-9/10/0/8/ -8/-9/10/0/-1/ -8/-9/1/0/2/ -8/-9/4000/0/8000/ -8/-10/4001/0/8002/ -2/-3/8000/0/8000/ "
      "-2/-4/8001/0/8001/ ");
}

TEST_F(ColumnsTest, EveryTypeOfColumnIsReadAsTheProgramKnowsIt) {
  const std::pair<const char*, const char*> columns[] = {{"bit", "1"},
                                                         {"tinyint", "2"},
                                                         {"smallint", "3"},
                                                         {"integer", "4"},
                                                         {"bigint", "5"},
                                                         {"real", "0.5"},
                                                         {"float", "0.25"},
                                                         {"double", "0.125"},
                                                         {"decimal(9,2)", "1.5"},
                                                         {"money", "12.3456"},
                                                         {"smallmoney", "-0.0001"},
                                                         {"date", "'2024-02-29'"},
                                                         {"datetime", "'2024-02-29 08:09:10'"},
                                                         {"binary(4)", "x'0102'"},
                                                         {"varbinary(9)", "x'010203'"},
                                                         {"varchar(7)", "'ação'"},
                                                         {"nvarchar(8000)", "'a'"},
                                                         {"nvarchar(8001)", "'b'"},
                                                         {"text", "'c'"},
                                                         {"blob", "x'00FF'"},
                                                         {"bigint", "3000000000"}};
  sqlserver::Parameters none;
  std::string all;
  for (const auto& column : columns) {
    const std::string type = column.first;
    const std::string value = column.second;
    for (const std::string& sql :
         {std::string("DROP TABLE IF EXISTS tipos"), "CREATE TABLE tipos (c " + type + ")",
          "INSERT INTO tipos VALUES (NULL), (" + value + ")"})
      session().Write(sql, none);
    const std::string error = ErrorOf([&] {
      session().Read("SELECT c FROM tipos ORDER BY c", [&](sqlserver::ResultReader& reader) {
        platform::RowStore store(1);
        reader.ReadAll(store);
        const platform::FieldInfo& field = reader.fields()[0];
        const platform::Variant read = store.At(1, 0).ToVariant();
        all += type + " " + std::to_string(static_cast<int>(field.type)) + "/" +
               std::to_string(field.definedSize) + " " + (store.At(0, 0).IsNull() ? "" : "? ") +
               (field.type == platform::FieldType::kBytes ? std::to_string(read.ToBytes().size())
                                                          : read.ToText()) +
               "\n";
      });
    });
    if (!error.empty()) all += error + "\n";
  }
  // The driver takes "binary" for a text, which then is longer than it says.
  EXPECT_EQ(all, R"(bit 0/2 True
tinyint 1/2 2
smallint 1/2 3
integer 2/4 4
bigint 2/4 5
real 3/8 0,5
float 3/8 0,25
double 3/8 0,125
decimal(9,2) 6/9 1.5
money 4/8 12,3456
smallmoney 4/8 -0,0001
date 5/16 29-02-2024
datetime 5/16 29-02-2024 08:09:10
-2147467259: O servidor enviou um texto maior do que a coluna declara.
varbinary(9) 7/9 3
varchar(7) 6/7 ação
nvarchar(8000) 6/8000 a
nvarchar(8001) 6/1073741823 b
text 6/1073741823 c
blob 7/255 2
-2147217900: Arithmetic overflow error converting expression to data type int.
)");
}

}  // namespace
}  // namespace sqlserver_tests
