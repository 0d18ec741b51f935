#include "exchange/table/streamed_table.h"

#include <algorithm>
#include <ctime>
#include <utility>

#include "exchange/table/limits.h"

namespace exchange {
namespace {

constexpr std::size_t kCellCost = 48;  // bytes, whatever stands in it

/// What this thread has worked so far, in seconds: a machine that is busy elsewhere makes no file too large.
double Worked() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

}  // namespace

StreamedTable::StreamedTable() : began_(Worked()) {}

void StreamedTable::CheckTime() const {
  if (Worked() - began_ > kFirstRowSeconds)
    throw TooLarge("passaram 5 segundos sem se chegar às primeiras linhas");
}

void StreamedTable::Open(std::size_t sheet) {
  if (sheet >= sheets_.size()) throw std::runtime_error("O ficheiro não tem essa folha.");
  hiddenColumns_.clear();
  rows_.clear();
  delivered_ = 0;
  began_ = Worked();
  Begin(sheet);
  Fill();
}

bool StreamedTable::Fill() {
  while (rows_.empty()) {
    if (!Feed()) return !rows_.empty();
    if (delivered_ == 0) CheckTime();
  }
  return true;
}

bool StreamedTable::Next(TableRow& row) {
  if (!Fill()) return false;
  StreamedRow& next = rows_.front();
  row.line = next.line;
  row.hidden = next.hidden;
  row.cells.clear();
  for (const StreamedCell& cell : next.cells) {
    row.cells.resize(cell.column);
    row.cells.insert(row.cells.end(), cell.repeated, cell.cell);
    delivered_ += cell.repeated * (cell.cell.text.size() + kCellCost);
  }
  if (delivered_ > kDeliveredLimit) throw TooLarge("repete as mesmas células vezes sem conta");
  ++next.line;
  if (--next.repeated == 0) rows_.pop_front();
  return true;
}

void StreamedTable::Add(StreamedRow row) {
  if (row.cells.empty()) return;
  if (row.line + row.repeated - 1 > kRowLimit) throw TooLarge("tem mais de 1.048.576 linhas numa folha");
  rows_.push_back(std::move(row));
}

void StreamedTable::HideColumns(std::size_t first, std::size_t count) {
  const std::size_t end = std::min(first + count, kColumnLimit);
  if (hiddenColumns_.size() < end) hiddenColumns_.resize(end, false);
  for (std::size_t i = first; i < end; ++i) hiddenColumns_[i] = true;
}

}  // namespace exchange
