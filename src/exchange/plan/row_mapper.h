#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "exchange/import.h"
#include "exchange/plan/code_finder.h"
#include "exchange/table/table_reader.h"
#include "exchange/values/words.h"

namespace exchange {

/// How the values of a file are read, as far as the profile tells or the file showed.
struct Reading {
  char decimal = ',';
  DateOrder order = DateOrder::kDayFirst;
  bool calendar1904 = false;
};

/// What the operator wrote in place of a row's values, by our columns.
using Corrections = std::map<std::string, std::string, std::less<>>;

/// A row of the file in our columns.
struct MappedRow {
  ImportRow row;
  std::optional<Refusal> refusal;  // the first
  std::string warning;
  std::string transaction;  // the sender's number; empty: none
};

/// What the mapper takes a row from.
struct SourceRow {
  const std::vector<TableCell>& cells;
  const std::string& section;      // the section row above; empty: none
  const Corrections* corrections;  // null: none
};

/// Turns the rows of a file into ours, as a profile tells.
class RowMapper {
 public:
  /// Throws std::runtime_error when the file lacks a column that the profile reads, or the profile a column
  /// that the kind needs.
  RowMapper(const Profile& profile, const ImportKind& kind, const std::vector<std::string>& header,
            Reading reading, CodeFinder& codes);

  void Map(const SourceRow& source, MappedRow& out);
  /// The date that orders the rows; none where there is none to read.
  std::optional<platform::Date> DateOf(const SourceRow& source) const;
  /// What is added up.
  std::optional<platform::Currency> AmountOf(const SourceRow& source) const;
  /// The text of one of our columns, its code found where it holds one.
  std::string TextOf(const std::string& column, const SourceRow& source);
  /// The text of one of our columns that is no code yet; none where there is nothing, or it is one.
  std::optional<std::string> UnknownCode(const std::string& column, const SourceRow& source);

  const std::vector<ImportColumn>& columns() const { return columns_; }
  bool IsMapped(std::string_view column) const;

 private:
  struct Source {
    const ColumnMapping* mapping = nullptr;
    std::vector<int> places;  // of the pieces; -1: constant
    const char* codes = nullptr;
    std::optional<WordSet> words;
  };
  void Fill(std::size_t column, const SourceRow& source, MappedRow& out);
  void FillText(std::size_t column, const SourceRow& source, MappedRow& out);
  std::string RawText(std::size_t place, const SourceRow& source) const;
  std::string JoinedText(const Source& from, const SourceRow& source, const ImportColumn& column) const;
  std::optional<platform::Currency> Number(std::size_t column, const SourceRow& source) const;
  std::optional<platform::Currency> NumberOfText(const Source& from, std::string_view column,
                                                 const std::string& text) const;
  std::optional<platform::Date> Date(std::size_t column, const SourceRow& source) const;
  std::optional<platform::Date> FirstDate(const TableCell& cell) const;
  std::size_t PlaceOfColumn(std::string_view column) const;

  const Profile& profile_;
  const ImportKind& kind_;
  const std::vector<ImportColumn>& columns_;
  Reading reading_;
  CodeFinder& codes_;
  std::vector<Source> sources_;
  std::optional<int> transaction_;
};

}  // namespace exchange
