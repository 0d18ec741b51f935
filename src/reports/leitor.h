#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/data_access.h"
#include "platform/recordset.h"
#include "reports/soma.h"

namespace reports {

/// Reads rows where they are stored, one after the other. A column is named by its place in
/// the statement.
class Leitor {
 public:
  Leitor(const zorCrmParvel::DataAccessRef& bd, const zorCrmParvel::Statement& statement) {
    bd->AbrirLeitura("", statement, rows_);
  }
  /// The same of a table that a database may lack: then it has no rows.
  static Leitor DeTabelaPropria(const zorCrmParvel::DataAccessRef& bd,
                                const zorCrmParvel::Statement& statement);

  bool Avanca() {
    if (!rows_) return false;
    ++row_;
    if (row_ >= rows_->RowsAtHand()) rows_->FetchMore(kBloco);
    if (row_ >= rows_->RowsAtHand()) return false;
    linha_ = &rows_->CellAt(row_, 0);
    return true;
  }

  std::string_view Texto(std::size_t coluna) const {
    const platform::Cell& cell = Celula(coluna);
    return cell.IsNull() ? std::string_view() : cell.block();
  }
  std::string Copia(std::size_t coluna) const { return std::string(Texto(coluna)); }
  std::int64_t Inteiro(std::size_t coluna) const {
    const platform::Cell& cell = Celula(coluna);
    return cell.IsNull() ? 0 : cell.integer();
  }
  Currency Moeda(std::size_t coluna) const { return Currency::FromTenThousandths(Inteiro(coluna)); }
  /// The zero date for null.
  platform::Date Data(std::size_t coluna) const { return platform::Date::FromSeconds(Inteiro(coluna)); }
  bool Nulo(std::size_t coluna) const { return Celula(coluna).IsNull(); }

 private:
  static constexpr std::size_t kBloco = 256;  // what a processor keeps at hand

  Leitor() = default;
  const platform::Cell& Celula(std::size_t coluna) const { return linha_[coluna]; }

  zorCrmParvel::RecordsetRef rows_;
  std::size_t row_ = static_cast<std::size_t>(-1);
  const platform::Cell* linha_ = nullptr;  // the cells of the row
};

}  // namespace reports
