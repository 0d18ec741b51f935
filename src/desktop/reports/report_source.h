#pragma once

#include <memory>

#include "desktop/list/table_source.h"
#include "reports/pages/resultado.h"

namespace desktop {

/// The rows of one table of a report. Where a consumption can't be given, its place says why.
class ReportSource : public TableSource {
 public:
  using ResultRef = std::shared_ptr<const reports::Resultado>;

  /// Shows another table from now on; whoever shows the source looks at it anew.
  void Show(ResultRef result, std::size_t table);
  const ResultRef& result() const { return result_; }
  std::size_t table() const { return table_; }
  reports::LinhaDaTabela RowAt(long row) const;

  long Rows() const override;
  QString Text(long row, std::size_t column) const override;
  platform::Variant Value(long row, std::size_t column) const override;
  void Refresh() override;

 private:
  const reports::Tabela& Table() const { return result_->relatorio.tabelas[table_]; }
  const reports::LinhaDaTabela& Line(long row) const;
  bool IsBare(std::size_t column) const;

  ResultRef result_;
  std::size_t table_ = 0;
  std::optional<std::size_t> reason_, reasoned_;  // the column of reasons, and the one where they stand
  mutable reports::LinhaDaTabela made_;           // the last row of a table that makes its rows
  mutable long made_row_ = -1;
};

}  // namespace desktop
