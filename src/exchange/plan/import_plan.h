#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "exchange/plan/plan_data.h"

namespace exchange {

class PlanRun;

/// Rows and their sum.
struct Tally {
  long rows = 0;
  platform::Currency amount;
};

/// All rows of a file by what becomes of them. `stored` + `known` + `aside` + `refused` = `file`.
struct Reconciliation {
  Tally file;
  Tally stored;  // also those with warnings
  Tally warned;  // of the stored
  Tally known;
  Tally aside;
  Tally credits;  // of those aside
  Tally refused;
  /// What the file itself says it adds up to: its sum rows, where one or all of them can be that; else the
  /// last. None: it says nothing.
  std::optional<platform::Currency> declared;
};

/// What an import stored.
struct StoredImport {
  long number = 0;  // of the table of imports
  Reconciliation rows;
  std::vector<std::string> vehicles;  // whose events they are
};

/// Called within an import's batch, after its last row: the import's number and how many rows it stored.
using BeforeCommit = std::function<void(long number, long rows)>;

/// What nobody but the operator knows.
struct Question {
  enum class About { kDateOrder, kDecimal } about;
  std::string example;
};

/// A file on its way into the database: its rows, what a profile makes of them, what would become of each.
/// Looking changes nothing in the database; `Store` stores all rows that pass, at once.
class ImportPlan {
 public:
  /// Throws std::runtime_error on a profile of an unknown kind.
  ImportPlan(platform::Ref<zorCrmParvel::Store> bd, Profile profile);
  ~ImportPlan();

  /// Reads the file. Errors of the reader, and when the file doesn't fit the profile, as std::runtime_error.
  void Load(TableReader& reader, const Progress& progress = {});
  /// What must be answered before `Check`; the answers go into the profile.
  const std::vector<Question>& questions() const { return questions_; }
  void Answer(DateOrder order);
  void Answer(char decimal);

  const Profile& profile() const { return data_->profile; }
  const std::vector<ImportColumn>& columns() const { return data_->mapper->columns(); }
  std::size_t size() const { return data_->table.rows.size(); }
  const PlanRow& row(std::size_t row) const { return data_->table.rows[row]; }
  /// What becomes of a row; one that is added into another's event shares its fate.
  RowState StateOf(std::size_t row) const;
  /// Why a row's state is what it is; an empty reason where there is nothing to say.
  const Why& why(std::size_t row) const { return data_->table.WhyOf(row); }
  /// A row's values as they would be stored, in the order of the columns; what can't be read as it stands.
  std::vector<std::string> Values(std::size_t row) const;
  /// The same with their kinds; what can't be read is its text.
  ImportRow Read(std::size_t row) const;
  /// Which of the columns the file or the operator fills, or must.
  std::vector<std::size_t> ColumnsInUse() const;
  /// A row's cells as the file has them.
  std::vector<std::string> Cells(std::size_t row) const;

  /// Sets the state of every row. Throws std::runtime_error while there are questions, Cancelled when
  /// `progress` gave up.
  void Check(const Progress& progress = {});
  /// Puts a text in the place of a value, and checks the rows of its vehicle (or code) again.
  void Correct(std::size_t row, const std::string& column, const std::string& text);
  /// Sets a row aside by hand, or takes it back in.
  void SetAside(std::size_t row, bool aside);
  /// From now on `text` means `code` in a column, in this file and the profile's next.
  void Learn(const std::string& column, const std::string& text, const std::string& code);
  /// The unknown codes of all rows, with what would be created for them.
  std::vector<NewCode> UnknownCodes();
  /// Settles them all in one act: texts that nearly equal a code that is there mean it, the others will be
  /// created as proposed. The rows are to be checked again.
  void SettleUnknownCodes();
  /// They will be created with the import. The rows are to be checked again.
  void Create(std::vector<NewCode> codes);
  /// False: rows whose kilometres would be proposed are refused. True without saying.
  void AcceptProposals(bool accept) { data_->acceptProposals = accept; }

  Reconciliation Sums() const;
  /// Stores all rows that pass, with the profile when it has a name and an entry in the table of imports.
  /// `beforeCommit` writes what is to be kept with it.
  StoredImport Store(const std::string& file, const std::string& checksum, const std::string& who,
                     const Progress& progress = {}, const BeforeCommit& beforeCommit = {});
  /// The refused rows in the shape in which they came, below the file's header, as CSV.
  void WriteRefused(std::ostream& out) const;

 private:
  void Prepare(const Progress& progress = {});
  void LookAtAll(const Progress& progress = {});
  void Look(std::size_t row, std::vector<TableCell>& cells);
  void Arrange();
  void Order();
  std::uint32_t OwnerOf(const std::string& text);
  std::unique_ptr<zorCrmParvel::LargeBatch> BatchToCheck(const PlanRun& run) const;
  void JoinDocuments();
  void SplitLicences();
  void CheckOwner(std::uint32_t owner);
  void CheckRows(const std::vector<std::uint32_t>& rows, const Progress& progress);
  std::optional<platform::Currency> DeclaredTotal(platform::Currency sum) const;
  void RequireAnswers() const;

  std::unique_ptr<PlanData> data_;
  std::vector<Question> questions_;
  std::vector<std::uint32_t> order_;  // in which rows are stored
};

}  // namespace exchange
