#include "host/error_text.h"

#include <gtest/gtest.h>

namespace zorCrmParvel {
namespace {

using platform::RuntimeError;

TEST(TextOf, TellsASentenceAndKeepsNumberAndWordsApart) {
  const struct {
    RuntimeError error;
    const char* message;  // what the sentence holds
    const char* details;
  } cases[] = {
      {RuntimeError(platform::kTypeMismatch), "Um dos campos não tem o número ou a data",
       "Erro 13: Type mismatch"},
      {RuntimeError(platform::kTypeMismatch, SourceInField("Custo", "12x")),
       "O campo «Custo» tem «12x», que não é o número ou a data que devia ser.",
       "Erro 13: Type mismatch\nOrigem: O campo «Custo» tem «12x»"},
      {RuntimeError(platform::kOverflow, SourceInField("Custo", "9e99")),
       "tem «9e99», que é um número grande", "Erro 6: Overflow\nOrigem: O campo «Custo» tem «9e99»"},
      {RuntimeError(platform::kOverflow, "Gastos::Iniciar"), "Um número, ou o resultado",
       "Erro 6: Overflow\nOrigem: Gastos::Iniciar"},
      {RuntimeError(platform::kFileNotFound, "/a/b.png"), "O ficheiro «/a/b.png» não existe",
       "Erro 53: File not found\nOrigem: /a/b.png"},
      {RuntimeError(platform::kMultipleStep, "Nome"), "O valor de «Nome» não cabe",
       "Erro -2147217887: Multiple-step operation generated errors. Check each status value.\nOrigem: Nome"},
      {RuntimeError(platform::kObjectNotSet), "O programa não conseguiu",
       "Erro 91: Object variable or With block variable not set"},
      {{platform::kStatementRefused, "", "Incorrect syntax near 'Rua. São e de'."},
       "Retire os apóstrofos",
       "Erro -2147217900: Incorrect syntax near 'Rua. São e de'."},
      {{platform::kStatementRefused, "", "Unclosed quotation mark after the character string 'D'Água. Não'."},
       "Retire os apóstrofos",
       "Erro -2147217900: Unclosed quotation mark after the character string 'D'Água. Não'."},
      {{platform::kStatementRefused, "", "String or binary data would be truncated."},
       "mais comprido",
       "Erro -2147217900: String or binary data would be truncated."},
      {{platform::kStatementRefused, "", "attempt to write a readonly database"},
       "só permite leitura",
       "Erro -2147217900: attempt to write a readonly database"},
      {{platform::kStatementRefused, "", "Something else."},
       "A base de dados recusou o pedido.",
       "Erro -2147217900: Something else."},
      {{platform::kInvalidObject, "Catalog", "Invalid object name 'zor_X'."},
       "Falta a tabela «zor_X»",
       "Erro -2147217865: Invalid object name 'zor_X'.\nOrigem: Catalog"},
      {{platform::kConstraint, "",
        "Cannot insert the value NULL into column 'Nome', table 'zor_X'; column does not allow nulls."},
       "Falta o valor de «Nome»",
       "Erro -2147217873: Cannot insert the value NULL into column 'Nome', table 'zor_X'; column does not "
       "allow nulls."},
      {{platform::kConstraint, "",
        "Violation of PRIMARY KEY constraint 'PK_é'. Cannot insert duplicate key in object 'é'."},
       "Já há um registo com o mesmo código",
       "Erro -2147217873: Violation of PRIMARY KEY constraint 'PK_é'. Cannot insert duplicate key in object "
       "'é'."},
      {{platform::kConstraint, "", "CHECK constraint failed"},
       "que não respeita as suas regras",
       "Erro -2147217873: CHECK constraint failed"},
      {{platform::kEngineFailure, "ODBC HY000/0", "General error"},
       "A base de dados não concluiu",
       "Erro -2147467259: General error\nOrigem: ODBC HY000/0"},
      {{4711, "", "Whatever."}, "O programa não conseguiu", "Erro 4711: Whatever."},
  };
  for (const auto& c : cases) {
    const ErrorText text = TextOf(c.error);
    EXPECT_NE(text.message.find(c.message), std::string::npos) << text.message;
    EXPECT_EQ(text.message.find('%'), std::string::npos) << text.message;
    EXPECT_EQ(text.details, c.details);
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
  const RuntimeError busy(platform::kEngineFailure, "SQLite: database is locked",
                          "A base de dados está ocupada.");
  EXPECT_EQ(TextOf(busy).message, "A base de dados está ocupada.");
  EXPECT_EQ(TextOf(busy).details, "Erro -2147467259: SQLite: database is locked");
  const RuntimeError lost(platform::kEngineFailure, "ODBC 08S01/10054",
                          "A ligação a «x» perdeu-se. (TCP Provider: error 0x2746 (10054).)");
  EXPECT_EQ(TextOf(lost).message, "A ligação a «x» perdeu-se.");
  EXPECT_EQ(TextOf(lost).details,
            "Erro -2147467259: TCP Provider: error 0x2746 (10054).\nOrigem: ODBC 08S01/10054");
  const RuntimeError advised(
      -2147217900, "ODBC 42000/229",
      "The SELECT permission was denied on 'é. ã'. O utilizador não tem permissão para "
      "isto. Peça ao administrador.");
  EXPECT_EQ(TextOf(advised).message, "O utilizador não tem permissão para isto. Peça ao administrador.");
  EXPECT_EQ(TextOf(advised).details,
            "Erro -2147217900: The SELECT permission was denied on 'é. ã'.\nOrigem: ODBC 42000/229");
}

}  // namespace
}  // namespace zorCrmParvel
