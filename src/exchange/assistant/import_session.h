#pragma once

#include <memory>
#include <string>
#include <vector>

#include "exchange/plan/import_plan.h"
#include "exchange/profile/import_kinds.h"
#include "exchange/profile/profile.h"
#include "exchange/table/table_reader.h"
#include "store/store.h"

namespace exchange {

/// A file on its way in, as an operator leads it: which sheet, records of which kind, which of the file's
/// columns are ours. What can be guessed is guessed; what comes of it is an `ImportPlan`.
class ImportSession {
 public:
  /// Opens the file and guesses. Errors of `OpenTable`.
  ImportSession(platform::Ref<zorCrmParvel::Store> bd, std::string file);

  const std::string& file() const { return file_; }
  const std::vector<SheetInfo>& sheets() const { return reader_->Sheets(); }
  std::size_t sheet() const { return sheet_; }
  /// What the file is, for people: "CSV, separado por «;», Windows-1252".
  std::string Facts() const;

  /// Reads the first rows of another sheet, and guesses anew.
  void OpenSheet(std::size_t sheet);
  /// The database's profiles that this file may be of, the best first.
  const std::vector<Profile>& known() const { return known_; }
  void Use(const Profile& profile) { profile_ = profile; }
  /// Rows of another kind from now on; the columns are guessed anew.
  void Choose(const ImportKind& kind);
  const ImportKind& kind() const { return *KindOf(profile_.kind); }
  Profile& profile() { return profile_; }

  std::size_t columns() const { return width_; }
  /// The file's own heading of a column, else "Coluna 3".
  std::string Heading(std::size_t column) const;
  /// The first texts of a column below the header.
  std::vector<std::string> Samples(std::size_t column, std::size_t count) const;
  bool IsHidden(std::size_t column) const;

  /// Our column that a column of the file goes into; empty: none.
  std::string TargetOf(std::size_t column) const;
  /// Sends a column of the file into one of ours, behind what goes there already; empty: nowhere.
  void Map(std::size_t column, const std::string& target);
  /// The text that one of our columns has in every row; empty: none.
  std::string ConstantOf(const std::string& target) const;
  void SetConstant(const std::string& target, const std::string& text);
  /// Columns of ours that every row must have and that nothing goes into.
  std::vector<std::string> Missing() const;

  /// Reads the whole file by the profile. Errors as of `ImportPlan`.
  std::unique_ptr<ImportPlan> Plan(const Progress& progress);

 private:
  void Drop(std::size_t column);
  bool Reads(const Piece& piece, std::size_t column) const;

  platform::Ref<zorCrmParvel::Store> bd_;
  std::string file_;
  std::unique_ptr<TableReader> reader_;
  std::size_t sheet_ = 0;
  std::vector<TableRow> first_;  // rows of the sheet
  std::vector<std::string> header_;
  std::size_t below_ = 0;  // the first of them below the header
  std::size_t width_ = 0;
  std::vector<Profile> known_;
  Profile profile_;
};

}  // namespace exchange
