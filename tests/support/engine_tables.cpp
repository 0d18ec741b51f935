#include "support/engine_tables.h"

#include <string_view>

namespace testing_support {
namespace {

using zorCrmParvel::RecordsetRef;

constexpr std::string_view kTables = R"(-- versão 3
CREATE TABLE @Tudo (
  Id int IDENTITY(1,1) NOT NULL,
  Nome nvarchar(10) NULL,
  Notas nvarchar(max) NULL,
  Activa bit NULL,
  Ano smallint NULL,
  Km int NULL,
  Valor money NULL,
  Razao float NULL,
  Data datetime NULL,
  Foto varbinary(max) NULL,
  CONSTRAINT PK_@Tudo PRIMARY KEY (Id)
);
CREATE TABLE @Codigos (
  Codigo nvarchar(10) NOT NULL,
  Nome nvarchar(50) NULL,
  CONSTRAINT PK_@Codigos PRIMARY KEY (Codigo)
);
CREATE UNIQUE INDEX UX_@Codigos ON @Codigos (Nome);
)";

}  // namespace

std::string EngineTables(const std::string& prefix) {
  std::string schema;
  for (const char c : kTables)
    if (c == '@')
      schema += prefix;
    else
      schema += c;
  return schema;
}

RecordsetRef EngineUser::Open(const std::string& statement) const {
  RecordsetRef rows;
  store_->AbrirLeitura("", statement.c_str(), rows);
  return rows;
}

RecordsetRef EngineUser::Edit(const std::string& statement) const {
  RecordsetRef rows;
  store_->AbrirEdicao(statement.c_str(), rows);
  return rows;
}

void EngineUser::AddCodes(int count) const {
  for (int i = 1; i <= count; ++i) {
    const std::string number = std::to_string(1000 + i);
    std::string statement = "INSERT INTO " + codes_ + " (Codigo, Nome) VALUES ('C";
    Run(statement.append(number).append("', 'Nome ").append(number).append("')"));
  }
}

}  // namespace testing_support
