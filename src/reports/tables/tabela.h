#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "reports/frota.h"

/// Reports as tables of cells, for whoever prints, draws or exports them.
namespace reports {

enum class Formato {
  kTexto,
  kEuros,       // two decimals
  kMedida,      // up to two decimals: litres, kilometres, kg
  kPorUnidade,  // four decimals: euros a km
  kInteiro,
  kData,
  kLogico
};

/// Nothing where a figure is absent.
using Celula = std::variant<std::monostate, std::string, Currency, std::int64_t, Date, bool>;

struct ColunaDaTabela {
  std::string chave;   // in JSON
  std::string titulo;  // for the eye
  Formato formato = Formato::kTexto;
  bool celula = false;          // one of the columns of time, which JSON keeps together in `celulas`
  bool soParaMaquinas = false;  // in JSON alone
};

/// What a row opens: a vehicle's rows, or an event's ficha.
struct Alvo {
  std::string matricula;
  std::optional<Especie> especie;
  std::int32_t id = 0;
};

struct LinhaDaTabela {
  std::vector<Celula> celulas;  // as many as columns
  Alvo alvo;
};

struct Tabela {
  std::string nome;    // of its member in JSON
  std::string titulo;  // above it, where there are several
  std::vector<ColunaDaTabela> colunas;
  std::vector<LinhaDaTabela> linhas;
  bool umSo = false;  // one row, in JSON an object and not a list
  /// For long tables: makes a row when it is looked at, of so many, instead of `linhas`.
  std::function<LinhaDaTabela(std::size_t)> faz;
  std::size_t porFazer = 0;

  std::size_t Quantas() const { return faz ? porFazer : linhas.size(); }
  LinhaDaTabela Linha(std::size_t numero) const { return faz ? faz(numero) : linhas[numero]; }
};

struct Relatorio {
  std::string titulo;
  std::vector<Tabela> tabelas;     // the first is the report's own, the others sum it up
  std::vector<std::string> notas;  // what stands below: the filters, what was left out
};

Celula DoValor(const Valor& valor);
/// As a person reads it: "1.234,50", "31-01-2026"; empty for nothing.
std::string TextoDa(const Celula& celula, Formato formato);
/// True when cells of the column stand at the right.
bool ENumero(Formato formato);
/// The cell of a row under a key, as a person reads it; empty where the table has no such column.
std::string TextoDaChave(const Tabela& tabela, const LinhaDaTabela& linha, std::string_view chave);
/// The columns that stand in print, by number.
std::vector<std::size_t> ColunasParaPessoas(const Tabela& tabela);

}  // namespace reports
