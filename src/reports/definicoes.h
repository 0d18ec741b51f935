#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/data_access.h"
#include "reports/rules/excepcoes.h"
#include "reports/tables/tabela.h"

namespace reports {

/// What an office sets for its reports: one of the hosts' own tables.
struct Definicao {
  struct Campo {
    const char* coluna;
    const char* nome;  // for people
    enum class Genero { kTexto, kInteiro, kNumero, kData } tipo = Genero::kTexto;
  };
  const char* chave;   // "viaturas"
  const char* titulo;  // what it is for
  const char* tabela;
  std::vector<Campo> chaves;
  std::vector<Campo> valores;
};
/// A field as the heading of a column: "Depósito".
std::string TituloDe(const Definicao::Campo& campo);
const std::vector<Definicao>& Definicoes();
/// Null when there is none of that name.
const Definicao* DefinicaoDe(const std::string& chave);

/// All that is set, in the order of its keys.
Tabela Ver(const zorCrmParvel::DataAccessRef& bd, const Definicao& definicao);
/// Sets values, by column, of the row with these keys; a new row when there is none. An empty text takes a
/// value away. Error 5 tells what is wrong with a key or a value, and nothing is written.
void Gravar(const zorCrmParvel::DataAccessRef& bd, const Definicao& definicao,
            const std::vector<std::string>& chaves, const std::map<std::string, std::string>& valores);
void Remover(const zorCrmParvel::DataAccessRef& bd, const Definicao& definicao,
             const std::vector<std::string>& chaves);

/// Takes a finding off the list, with a note; or puts it back.
void MarcarVisto(const zorCrmParvel::DataAccessRef& bd, const std::string& regra, const std::string& tabela,
                 std::int32_t id, const std::string& nota);
void DesmarcarVisto(const zorCrmParvel::DataAccessRef& bd, const std::string& regra,
                    const std::string& tabela, std::int32_t id);

}  // namespace reports
