#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "exchange/plan/row_mapper.h"
#include "exchange/plan/table_loader.h"
#include "store/store.h"

namespace exchange {

/// The texts of one code that the database lacks, and what would be created for them.
struct NewCode {
  std::string column;  // of the kind; where several hold codes of one table, the first
  std::string table;
  std::string code;  // proposed: at most 10 characters, of no other
  std::string name;
  bool fuel = false;               // of expense types
  long rows = 0;                   // in which the texts stand
  std::vector<std::string> texts;  // of the file; near-equal ones together
  std::vector<NamedCode> similar;  // what the table has already and may be meant
};

/// What the parts of a plan share.
struct PlanData {
  platform::Ref<zorCrmParvel::Store> bd;
  Profile profile;
  const ImportKind& kind;
  LoadedTable table;
  Reading reading;
  CodeFinder codes;
  std::unique_ptr<RowMapper> mapper;
  std::unordered_map<std::size_t, Corrections> corrections;         // by row
  std::unordered_map<std::size_t, std::vector<std::size_t>> added;  // rows added into another, by that one
  std::vector<std::string> owners = {""};                           // by `PlanRow::owner`
  std::unordered_map<std::string, std::uint32_t> ownerOf;
  std::vector<NewCode> created;
  bool acceptProposals = true;  // of kilometres; else rows that need them are refused

  /// A row's cells, unpacked into `cells`, with what belongs to them.
  SourceRow Source(std::size_t row, std::vector<TableCell>& cells) const {
    UnpackInto(row, cells);
    const auto corrected = corrections.find(row);
    return {cells, table.sections[table.rows[row].section],
            corrected == corrections.end() ? nullptr : &corrected->second};
  }
  void UnpackInto(std::size_t row, std::vector<TableCell>& cells) const;
};

}  // namespace exchange
