#include "platform/recordset.h"

#include <gtest/gtest.h>

#include <functional>

#include "platform/row_store.h"
#include "support/errors.h"
#include "support/grid_window.h"

namespace platform {
namespace {

using testing_support::NumberOf;

Ref<MemoryRecordset> Alerts() {
  auto rs = MakeRef<MemoryRecordset>();
  rs->Append("Matricula", FieldType::kText, 10);
  rs->Append("Dias", FieldType::kLong, 32);
  rs->Append("Codigo", FieldType::kText, 10, false);
  rs->Open();
  return rs;
}

void Add(Recordset& rs, const char* plate, const Variant& days) {
  rs.AddNew();
  rs.Fields("MATRICULA").SetValue(plate);
  rs.Fields("Dias").SetValue(days);
  rs.Update();
}

TEST(Recordset, WalksAddsAndChangesRows) {
  auto rs = Alerts();
  EXPECT_TRUE(rs->Eof());
  EXPECT_EQ(NumberOf([&] { rs->MoveNext(); }), kNoCurrentRecord);
  Add(*rs, "00-AA-00", 5);
  Add(*rs, "11-BB-11", Variant::Null{});
  EXPECT_EQ(rs->Fields("matricula").Value().ToText(), "11-BB-11");  // the new row is the current one
  EXPECT_EQ(rs->RecordCount(), 2);

  rs->MoveFirst();
  rs->Fields("Dias").SetValue("7");
  EXPECT_EQ(rs->Fields("Dias").Value().ToLong(), 7);
  rs->Update();
  rs->MoveNext();
  EXPECT_TRUE(rs->Fields("Dias").Value().IsNull());
  rs->MoveNext();
  EXPECT_TRUE(rs->Eof());
  EXPECT_EQ(NumberOf([&] { rs->Fields("Dias").Value(); }), kNoCurrentRecord);
  EXPECT_EQ(NumberOf([&] { rs->Fields("Dias").SetValue(1); }), kNoCurrentRecord);
  EXPECT_EQ(NumberOf([&] { rs->Update(); }), kNoCurrentRecord);
  EXPECT_EQ(NumberOf([&] { rs->MoveNext(); }), kNoCurrentRecord);
  EXPECT_EQ(rs->CellAt(0, 1).integer(), 7);
}

TEST(Recordset, FindsFieldsInWhateverOrderTheyAreAskedFor) {
  auto rs = MakeRef<MemoryRecordset>();
  for (const char* name : {"A", "B", "C", "a", "D"}) rs->Append(name, FieldType::kText, 10);
  rs->Open();
  for (int row = 0; row < 4; ++row) {
    rs->AddNew();
    for (std::size_t i = 0; i < 5; ++i) rs->Fields(i).SetValue(std::to_string(i));
    rs->Update();
  }
  rs->MoveFirst();
  for (const char* names : {"DABCA", "DABCA", "DABCA", "BDDaa"}) {
    std::string found;
    for (const char* name = names; *name != '\0'; ++name)
      found += rs->Fields(std::string(1, *name)).Value().ToText();
    EXPECT_EQ(found, names[0] == 'D' ? "40120" : "14400");  // of two fields with one name, the first
    EXPECT_EQ(NumberOf([&] { rs->Fields("E"); }), kNoSuchField);
    rs->MoveNext();
  }
}

TEST(Recordset, DropsAssignmentsThatWereNotStored) {
  auto rs = Alerts();
  Add(*rs, "00-AA-00", 5);
  rs->AddNew();
  rs->Fields("Dias").SetValue(9);
  rs->MoveFirst();
  rs->Update();
  EXPECT_EQ(rs->RecordCount(), 1);
  EXPECT_EQ(rs->Fields("Dias").Value().ToLong(), 5);
}

TEST(Recordset, RefusesWhatAFieldCannotHold) {
  auto rs = Alerts();
  rs->AddNew();
  EXPECT_EQ(NumberOf([&] { rs->Fields("Matricula").SetValue("12345678901"); }), kMultipleStep);
  EXPECT_EQ(NumberOf([&] { rs->Fields("Codigo").SetValue(Variant::Null{}); }), kMultipleStep);
  EXPECT_EQ(NumberOf([&] { rs->Fields("Dias").SetValue("muitos"); }), kTypeMismatch);
  EXPECT_EQ(NumberOf([&] { rs->Fields("Nada"); }), kNoSuchField);
  rs->Close();
  EXPECT_EQ(NumberOf([&] { rs->Close(); }), kObjectClosed);
  const std::function<void()> uses[] = {
      [&] { rs->Eof(); },      [&] { rs->MoveNext(); },     [&] { rs->MoveFirst(); },
      [&] { rs->MoveLast(); }, [&] { rs->AddNew(); },       [&] { rs->RecordCount(); },
      [&] { rs->Update(); },   [&] { rs->Fields("Dias"); }, [&] { rs->FetchMore(1); }};
  for (const auto& use : uses) EXPECT_EQ(NumberOf(use), kObjectClosed) << &use - uses;
  RecordsetRef unset;
  EXPECT_EQ(NumberOf([&] { unset->Eof(); }), kObjectNotSet);
}

TEST(Grid, TakesColumnsFromItsSourceAndColoursRowsByTheFirstConditionMet) {
  auto rs = Alerts();
  Add(*rs, "00-AA-00", -1);
  Add(*rs, "11-BB-11", 10);
  Add(*rs, "22-CC-22", Variant::Null{});
  Add(*rs, "33-DD-33", 1234);
  testing_support::GridWindow form;
  SGGrid& grid = form.grid;
  grid.SetDataSource(rs);
  grid.AddStyle("PintarG").color = 0xFF0000;
  grid.AddStyle("PintarMG").color = 0xFF8000;
  EXPECT_EQ(NumberOf([&] { grid.AddStyle("pintarg"); }), kKeyInUse);
  grid.AddCondition({.style = "PintarG", .op = kGridLess, .value1 = 0, .column = "dias"});
  grid.AddCondition({.style = "PINTARMG", .op = kGridBetween, .value1 = 0, .value2 = 10, .column = "Dias"});
  ASSERT_NE(grid.StyleOf(0), nullptr);
  EXPECT_EQ(grid.StyleOf(0)->name, "PintarG");
  EXPECT_EQ(grid.StyleOf(1)->name, "PintarMG");
  EXPECT_EQ(grid.StyleOf(2), nullptr);
  EXPECT_EQ(grid.StyleOf(3), nullptr);
  grid.Column("Dias").format = "#,###,###";
  EXPECT_EQ(grid.CellText(3, 1), "1.234");
  EXPECT_EQ(grid.CellText(2, 1), "");
  EXPECT_EQ(NumberOf([&] { grid.Column("Km"); }), kNoSuchField);

  grid.SetDataSource(Alerts());
  EXPECT_EQ(grid.RowCount(), 0);
  EXPECT_FALSE(rs->IsOpen()) << "a grid closes the recordset that it lets go";
}

TEST(Grid, WhatLiesOutsideIsRefused) {
  testing_support::GridWindow form;
  SGGrid& grid = form.grid;
  grid.AddColumn("A", "A", 100);
  grid.SetRowCount(2);
  MSFlexGrid files(form, "Ficheiros");
  auto rs = Alerts();
  Add(*rs, "00-AA-00", 5);
  ControlArray<Label> labels(form, "Titulo", 2);
  const std::function<void()> acts[] = {[&] { grid.SetRowCount(-1); },
                                        [&] { grid.SetCell(2, "A", 1); },
                                        [&] { grid.SetCell(-1, "A", 1); },
                                        [&] { grid.CellValue(2, 0); },
                                        [&] { grid.CellText(0, 1); },
                                        [&] { grid.CellText(-1, 0); },
                                        [&] { grid.SetRow(2); },
                                        [&] { grid.RowAt(0).Cell(1); },
                                        [&] { files.SetRows(-1); },
                                        [&] { (void)files.TextMatrix(1, 0); },
                                        [&] { files.SetTextMatrix(0, 1, ""); },
                                        [&] { form.UserSelectsRow(files, 1); },
                                        [&] { rs->CellAt(0, 3); },
                                        [&] { labels.Add(form, "Titulo", -1); },
                                        [&] { (void)labels[2]; },
                                        [&] {
                                          grid.SetDataSource(rs);
                                          grid.SetCell(0, "Dias", 1);  // a bound grid has no cells of its own
                                        }};
  for (const auto& act : acts) EXPECT_EQ(NumberOf(act), kSubscriptOutOfRange) << &act - acts;
  EXPECT_EQ(NumberOf([&] { rs->Fields(std::size_t{3}); }), kNoSuchField);
  EXPECT_EQ(NumberOf([&] { rs->CellAt(1, 0); }), kNoCurrentRecord);
}

/// Rows of a number, its text and a null; the text of every hundredth is long.
std::string TextOf(std::size_t row) {
  return std::string(row % 100 == 0 ? 50000 : row % 30, 'x') + std::to_string(row);
}

void FillStore(RowStore& store, std::size_t rows) {
  for (std::size_t row = store.rows(); row < rows; ++row) {
    ASSERT_EQ(store.AddRow(), row);
    store.Put(row, 0, Cell::Number(FieldType::kLong, static_cast<std::int64_t>(row)));
    store.Put(row, 1, Cell::Block(FieldType::kText, TextOf(row)));
  }
}

void ExpectFilled(const RowStore& store, std::size_t rows) {
  ASSERT_EQ(store.rows(), rows);
  for (std::size_t row = 0; row < rows; ++row) {
    ASSERT_EQ(store.At(row, 0).integer(), static_cast<std::int64_t>(row));
    ASSERT_EQ(store.At(row, 1).block(), TextOf(row));
    ASSERT_TRUE(store.At(row, 2).IsNull()) << row;
  }
}

TEST(RowStore, KeepsRowsWhereTheyAreAndTakesMemoryUsedBefore) {
  for (const std::size_t rows : {3u, 16u, 17u, 5000u, 5000u}) {
    RowStore store(3);
    FillStore(store, 1);
    const Cell& first = store.At(0, 1);
    FillStore(store, rows);
    ExpectFilled(store, rows);
    EXPECT_EQ(&first, &store.At(0, 1));
    RowStore beside(3);
    FillStore(beside, rows);
    ExpectFilled(store, rows);
    ExpectFilled(beside, rows);
  }
}

TEST(RowStore, TakesRowsAsWideAsABlockOfMemory) {
  RowStore store(4096);
  for (int i = 0; i < 20; ++i) store.AddRow();
  store.Put(19, 4095, Cell::Number(FieldType::kLong, 7));
  EXPECT_EQ(store.At(19, 4095).integer(), 7);
  EXPECT_TRUE(store.At(18, 4095).IsNull());
  EXPECT_THROW(RowStore(4097), std::length_error);
}

}  // namespace
}  // namespace platform
