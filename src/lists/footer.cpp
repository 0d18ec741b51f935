#include "lists/footer.h"

#include "platform/format.h"

namespace lists {

std::string FooterText(const RowOrder& order, const std::vector<SummedColumn>& columns,
                       const std::vector<long>& rows) {
  std::string text;
  for (const SummedColumn& column : columns) {
    const Figures figures = order.FiguresOf(column.column, rows);
    if (figures.count == 0 || column.summed == Summed::kNo) continue;
    text += (text.empty() ? "" : " · ") + column.caption + ": ";
    if (column.summed == Summed::kSumAndMean)
      text += "soma " + platform::FormatNumber(figures.sum, column.mask) + ", ";
    text += "média " + platform::FormatNumber(figures.Mean(), column.mask);
  }
  return text;
}

std::string SubtotalText(const RowOrder& order, const SummedColumn& column, const std::vector<long>& rows) {
  if (column.summed == Summed::kNo) return {};
  const Figures figures = order.FiguresOf(column.column, rows);
  if (figures.count == 0) return {};
  if (column.summed == Summed::kSumAndMean) return platform::FormatNumber(figures.sum, column.mask);
  return "⌀ " + platform::FormatNumber(figures.Mean(), column.mask);
}

}  // namespace lists
