#include "history/view/browser.h"

#include <algorithm>

#include "history/view/life.h"
#include "history/view/table_names.h"
#include "platform/text.h"

namespace history {
namespace {

/// The lines of one row of a step.
void Tell(const Step& step, std::size_t row, std::vector<DetailLine>& lines) {
  const tsql::Table& table = *step.table;
  const Image* before = row < step.before.size() ? &step.before[row] : nullptr;
  const Image* after = row < step.after.size() ? &step.after[row] : nullptr;
  if (before == nullptr && after == nullptr) return;
  const std::string record =
      NameOfTable(table.name) + " " + KeyText(table, before != nullptr ? *before : *after);
  if (before == nullptr || after == nullptr)
    lines.push_back({record, before == nullptr ? "Criado" : "Removido"});
  for (std::string& words : Describe(table, before, after)) lines.push_back({record, std::move(words)});
}

}  // namespace

void Browser::Ask(Filter filter) {
  filter_ = std::move(filter);
  operations_.clear();
  below_ = 0;
  ended_ = false;
}

void Browser::Take(Slice slice) {
  for (Operation& each : slice.operations) operations_.push_back(std::move(each));
  below_ = slice.next;
  ended_ = below_ == 0;
}

std::vector<DetailLine> Browser::DetailOf(long number, std::size_t most) const {
  std::vector<DetailLine> lines;
  std::size_t left = 0;
  for (const Step& step : ReadSteps(*store_, number)) {
    const std::size_t rows = std::max(step.before.size(), step.after.size());
    for (std::size_t row = 0; row < rows && step.table != nullptr; ++row)
      if (lines.size() < most)
        Tell(step, row, lines);
      else
        ++left;
  }
  if (left > 0) lines.push_back({"…", "e mais " + std::to_string(left) + " registos"});
  return lines;
}

std::string ShownMoment(platform::Date moment) {
  const auto two = [](int number) { return platform::Padded(number, 2); };
  return two(moment.day()) + "-" + two(moment.month()) + "-" + std::to_string(moment.year()) + " " +
         two(moment.hour()) + ":" + two(moment.minute());
}

std::string ShownWords(const Operation& operation) {
  if (operation.record.empty() || operation.words.ends_with(operation.record)) return operation.words;
  return operation.words + ", " + operation.record;
}

std::string ShownState(const Operation& operation) {
  if (operation.undoneBy != 0) return "anulada pela operação " + std::to_string(operation.undoneBy);
  if (operation.undoes != 0) return "anula a operação " + std::to_string(operation.undoes);
  return operation.emptied ? "já não se pode anular" : "";
}

}  // namespace history
