#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "exchange/values/date_texts.h"

namespace exchange {

/// A piece of a column's value: a column of the file, or a text that is the same in every row.
struct Piece {
  std::string header;  // as the file has it; empty: by position alone
  int position = -1;   // from 0; -1: the piece is the constant
  std::string constant = {};
  bool section = false;  // the text of the section row above

  friend bool operator==(const Piece&, const Piece&) = default;
};

/// Where a column of ours gets its value.
struct ColumnMapping {
  std::string target;  // our column
  std::vector<Piece> pieces;
  std::string joint = " ";  // between the pieces that aren't empty
  bool asAbove = false;     // a blank cell means the one above
  bool turned = false;      // of numbers: the sign is turned round
  int impliedDecimals = 0;  // of numbers without a decimal mark

  friend bool operator==(const ColumnMapping&, const ColumnMapping&) = default;
};

/// Rows that are set aside: those whose cell is so.
struct AsideRule {
  enum class Test { kEquals, kDiffers, kContains, kBegins, kEmpty };
  Piece column;
  Test test = Test::kEquals;
  std::string value;  // compared without case and accents

  friend bool operator==(const AsideRule&, const AsideRule&) = default;
};

/// How the files of one sender become rows of one kind. Kept under its name, which operators choose.
struct Profile {
  std::string name;
  std::string kind;  // as `KindOf` knows it
  // The file.
  std::string sheet;                   // empty: the first
  std::string encoding;                // "UTF-8", …; empty: found out
  std::string separator;               // of text files; empty: found out
  std::string decimal;                 // "," or "."; empty: found out
  std::optional<DateOrder> dateOrder;  // none: found out
  bool calendar1904 = false;           // of days written as plain numbers
  // The shape.
  int headerRow = -1;               // rows before the header, which are set aside; -1: found out
  int headerRows = 1;               // 0: the file has none, and columns go by position
  std::vector<std::string> header;  // by which a file is recognised
  std::vector<AsideRule> aside;
  std::optional<Piece> recordType;  // only rows of these types are taken
  std::vector<std::string> recordTypes;
  std::optional<Piece> document;     // rows of one document are added into one event
  std::optional<Piece> transaction;  // a number that decides what is repeated
  // The columns.
  std::vector<ColumnMapping> columns;
  /// What has been learned: for each of our columns the folded texts of the file and what stands for them.
  std::map<std::string, std::map<std::string, std::string>> learned;
  bool proposeKm = false;    // for fills without kilometres
  bool creditNotes = false;  // amounts below zero are read like others, not set aside

  const ColumnMapping* Find(const std::string& target) const;
  ColumnMapping& At(const std::string& target);
  friend bool operator==(const Profile&, const Profile&) = default;
};

/// JSON with an indent, for people too.
std::string ToJson(const Profile& profile);
/// Throws std::runtime_error, in Portuguese, on anything that is no profile.
Profile ProfileFromJson(const std::string& json);

}  // namespace exchange
