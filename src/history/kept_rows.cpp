#include "history/kept_rows.h"

#include "platform/runtime_error.h"

namespace history {

using zorCrmParvel::RecordsetRef;

KeptRows::KeptRows(KeepingStore& store, const tsql::Table& table, RecordsetRef inner)
    : store_(store),
      table_(table),
      inner_(std::move(inner)),
      fieldOf_(PlacesOf(table_, *inner_)),
      readIn_(store.InUnit() ? store.unit() : 0) {
  Opened(inner_->FieldList());
}

bool KeptRows::Reach(std::size_t row) {
  while (store().rows() <= row) {
    const std::size_t next = store().rows();
    if (next >= inner_->RowsAtHand() && !inner_->FetchMore(1)) return false;
    store().AddRow();
    TakeRow(next);
  }
  return true;
}

void KeptRows::TakeRow(std::size_t row) {
  for (std::size_t i = 0; i < fields_.size(); ++i) store().Put(row, i, inner_->CellAt(row, i));
}

std::size_t KeptRows::Count() { return static_cast<std::size_t>(inner_->RecordCount()); }

void KeptRows::Released() { inner_->Close(); }

void KeptRows::Send(const Assignments& values) {
  for (std::size_t i = 0; i < values.size(); ++i)
    if (values[i]) inner_->Fields(i).SetValue(*values[i]);
  inner_->Update();
}

void KeptRows::GoTo(std::size_t row) {
  if (row < innerRow_) {
    inner_->MoveFirst();
    innerRow_ = 0;
  }
  for (; innerRow_ < row; ++innerRow_) inner_->MoveNext();
}

Image KeptRows::RowAt(std::size_t row) const { return ImageAt(table_, *inner_, row, fieldOf_); }

void KeptRows::Insert(const Assignments& values) {
  store_.Within([&] {
    inner_->AddNew();
    Send(values);
    const std::size_t row = inner_->RowsAtHand() - 1;
    innerRow_ = row;
    Image after = RowAt(row);
    for (auto& value : after)
      if (!value) value = platform::Variant::Null{};  // the columns that were not opened
    store_.Changed(table_, nullptr, &after);
    Reach(row);
  });
}

/// True when all that the history needs was read with the rows.
bool KeptRows::KnowsWhole(const Assignments& values) const {
  for (std::size_t i = 0; i < fieldOf_.size(); ++i)
    if (!fieldOf_[i] && !HoldsBytes(table_.columns[i])) return false;
  return readIn_ == store_.unit() && values.size() == fields_.size();
}

Image KeptRows::Before(std::size_t row, const Assignments& values) {
  Image read = RowAt(row);
  if (KnowsWhole(values)) return read;
  std::vector<const tsql::Column*> columns;
  for (std::size_t i = 0; i < fieldOf_.size(); ++i)
    if (!HoldsBytes(table_.columns[i]) || (fieldOf_[i] && values[*fieldOf_[i]]))
      columns.push_back(&table_.columns[i]);
  RecordsetRef rows;
  store_.inner()->AbrirLeitura("",
                               ("SELECT " + NamesOf(columns) + " FROM " + Bracketed(table_.name) + " WHERE " +
                                KeyCondition(table_, read))
                                   .c_str(),
                               rows);
  // The write will miss a row that is gone.
  Image now = rows->Eof() ? std::move(read) : ImageAt(table_, *rows, 0, PlacesOf(table_, *rows));
  rows->Close();
  return now;
}

void KeptRows::Change(std::size_t row, const Assignments& values) {
  store_.Within([&] {
    const Image before = Before(row, values);
    GoTo(row);
    Send(values);
    Image after = before;
    for (std::size_t i = 0; i < after.size(); ++i)
      if (fieldOf_[i] && values[*fieldOf_[i]])
        after[i] = platform::ConvertTo(tsql::FieldTypeOf(table_.columns[i].type.base), *values[*fieldOf_[i]]);
    store_.Changed(table_, &before, &after);
    TakeRow(row);
  });
}

}  // namespace history
