#include "history/net_rows.h"

#include <algorithm>

#include "history/reader.h"

namespace history {
namespace {

Nets& Of(NetsOfTables& all, const tsql::Table* table) {
  for (auto& [each, nets] : all)
    if (each == table) return nets;
  return all.emplace_back(table, Nets()).second;
}

/// The row before with what a change made of it.
Image Merged(Image row, const Image& changes) {
  for (std::size_t i = 0; i < row.size(); ++i)
    if (changes[i]) row[i] = changes[i];
  return row;
}

/// Columns that the row before lacks: a change leaves out the bytes that it leaves alone.
void Fill(Image& row, const Image& from) {
  for (std::size_t i = 0; i < row.size(); ++i)
    if (!row[i]) row[i] = from[i];
}

void Add(Nets& nets, const tsql::Table& table, Image* before, Image* after) {
  const Image* known = before != nullptr ? before : after;
  if (known == nullptr) return;
  const auto [net, fresh] = nets.Of(FoldedKey(table, *known));
  if (fresh && before != nullptr && after == nullptr)
    net.before = std::move(*before);
  else if (fresh && before != nullptr)
    net.before = *before;
  else if (net.before && before != nullptr)
    Fill(*net.before, *before);
  if (after == nullptr)
    net.after.reset();
  else if (before != nullptr)
    net.after = Merged(net.after ? std::move(*net.after) : std::move(*before), *after);
  else
    net.after = std::move(*after);
}

}  // namespace

NetsOfTables NetOf(KeepingStore& store, long operation) {
  NetsOfTables all;
  for (Step& step : ReadSteps(store, operation)) {
    if (step.table == nullptr) continue;
    Nets& nets = Of(all, step.table);
    const std::size_t rows = std::max(step.before.size(), step.after.size());
    for (std::size_t i = 0; i < rows; ++i)
      Add(nets, *step.table, step.before.empty() ? nullptr : &step.before[i],
          step.after.empty() ? nullptr : &step.after[i]);
  }
  return all;
}

}  // namespace history
