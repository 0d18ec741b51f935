#include "host/error_text.h"

#include <gtest/gtest.h>

namespace zorCrmParvel {
namespace {

using platform::RuntimeError;

TEST(TextOf, TellsASentenceAndKeepsNumberAndWordsApart) {
  using namespace platform;
  const std::pair<RuntimeError, const char*> cases[] = {
      {RuntimeError(kTypeMismatch), "Um dos campos não tem o número ou a data"},
      {RuntimeError(kTypeMismatch, SourceInField("Custo", "12x")),
       "O campo «Custo» tem «12x», que não é o número ou a data que devia ser."},
      {RuntimeError(kOverflow, SourceInField("Custo", "9e99")), "tem «9e99», que é um número grande"},
      {RuntimeError(kOverflow, "Gastos::Iniciar"), "Um número, ou o resultado"},
      {RuntimeError(kFileNotFound, "/a/b.png"), "O ficheiro «/a/b.png» não existe"},
      {RuntimeError(kMultipleStep, "Nome"), "O valor de «Nome» não cabe"},
      {RuntimeError(kObjectNotSet), "O programa não conseguiu"},
      {{kStatementRefused, "", "Incorrect syntax near 'Rua. São e de'."}, "Retire os apóstrofos"},
      {{kStatementRefused, "", "Unclosed quotation mark after the character string 'D'Água. Não'."},
       "Retire os apóstrofos"},
      {{kStatementRefused, "", "String or binary data would be truncated."}, "mais comprido"},
      {{kStatementRefused, "", "attempt to write a readonly database"}, "só permite leitura"},
      {{kStatementRefused, "", "Something else."}, "A base de dados recusou o pedido."},
      {{kInvalidObject, "Catalog", "Invalid object name 'zor_X'."}, "Falta a tabela «zor_X»"},
      {{kConstraint, "",
        "Cannot insert the value NULL into column 'Nome', table 'zor_X'; column does not allow nulls."},
       "Falta o valor de «Nome»"},
      {{kConstraint, "",
        "Violation of PRIMARY KEY constraint 'PK_é'. Cannot insert duplicate key in object 'é'."},
       "Já há um registo com o mesmo código"},
      {{kConstraint, "", "CHECK constraint failed"}, "que não respeita as suas regras"},
      {{kEngineFailure, "ODBC HY000/0", "General error"}, "A base de dados não concluiu"},
      {{4711, "", "Whatever."}, "O programa não conseguiu"},
  };
  for (const auto& [error, message] : cases) {
    const ErrorText text = TextOf(error);
    EXPECT_NE(text.message.find(message), std::string::npos) << text.message;
    EXPECT_EQ(text.message.find('%'), std::string::npos) << text.message;
    EXPECT_EQ(text.details, "Erro " + std::to_string(error.number()) + ": " + error.description() +
                                (error.source().empty() ? "" : "\nOrigem: " + error.source()));
  }
}

TEST(TextOf, LeavesWhatIsPortugueseAsItIs) {
  const RuntimeError own[] = {
      {platform::kEngineFailure, "/tmp/x", "O disco está cheio e nada foi gravado (a última vez)."},
      {platform::kInvalidObject, "p",
       "Faltam tabelas em p: zor_X. Crie-as com «parvel esquema --aplicar» e repita."},
      {platform::kKeyInUse, "demo", "A base de dados já tem registos."}};
  for (const RuntimeError& error : own) {
    EXPECT_EQ(TextOf(error).message, error.description());
    EXPECT_EQ(TextOf(error).details, "");
  }
  const struct {
    RuntimeError error;
    const char* message;
    const char* details;
  } cases[] = {{{platform::kEngineFailure, "SQLite: database is locked", "A base de dados está ocupada."},
                "A base de dados está ocupada.",
                "Erro -2147467259: SQLite: database is locked"},
               {{platform::kEngineFailure, "ODBC 08S01/10054",
                 "A ligação a «x» perdeu-se. (TCP Provider: error 0x2746 (10054).)"},
                "A ligação a «x» perdeu-se.",
                "Erro -2147467259: TCP Provider: error 0x2746 (10054).\nOrigem: ODBC 08S01/10054"},
               {{platform::kStatementRefused, "ODBC 42000/229",
                 "The SELECT permission was denied on 'é. ã'. O utilizador não tem permissão para isto. Peça "
                 "ao administrador."},
                "O utilizador não tem permissão para isto. Peça ao administrador.",
                "Erro -2147217900: The SELECT permission was denied on 'é. ã'.\nOrigem: ODBC 42000/229"}};
  for (const auto& c : cases) {
    EXPECT_EQ(TextOf(c.error).message, c.message);
    EXPECT_EQ(TextOf(c.error).details, c.details);
  }
}

}  // namespace
}  // namespace zorCrmParvel
