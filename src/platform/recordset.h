#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/cell.h"
#include "platform/ref.h"
#include "platform/row_store.h"

namespace platform {

/// Declared width of nvarchar(max) and varbinary(max).
inline constexpr long kUnlimitedSize = 1073741823;

/// A column of a recordset, as the statement or whoever built it declares it.
struct FieldInfo {
  std::string name;  // spelled as in the statement
  FieldType type = FieldType::kText;
  long definedSize = 0;  // characters for text, bytes otherwise
  bool nullable = true;
  bool alone = false;  // known to share its name with no other field
};

/// Finds out which fields are `alone`.
void MarkThoseAlone(std::vector<FieldInfo>& fields);

/// Rows of named fields with one current row, which every read and write of the module goes through. After
/// opening, the first row is current or `Eof` is true at once. Rows come in as they are asked for, so any
/// member may raise the engine's errors; a cell that has come in stays where it is until the recordset goes.
/// `Close` lets go of what the rows come from; after it error 3704, without a current row 3021, for an
/// unknown field 3265. For one thread at a time.
class Recordset {
 public:
  /// One field of the current row: good for the statement it is asked for in.
  class Field {
   public:
    const std::string& Name() const { return info().name; }
    long DefinedSize() const { return info().definedSize; }
    const FieldInfo& info() const { return owner_->fields_[index_]; }
    /// A copy. What was assigned since the row became current, else what the row holds.
    Variant Value() const { return owner_->ValueOf(index_); }
    /// Stored with the next `Update`. A text longer than the field, or a null that the field refuses, raises
    /// error -2147217887; a value of another kind is converted.
    void SetValue(Variant value) { owner_->Assign(index_, std::move(value)); }

   private:
    friend class Recordset;
    Field(Recordset* owner, std::size_t index) : owner_(owner), index_(index) {}
    Recordset* owner_;
    std::size_t index_;
  };

  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;
  virtual ~Recordset() = default;

  bool IsOpen() const { return open_; }
  /// True behind the last row.
  bool Eof();
  // Moving drops what was assigned without an `Update`.
  void MoveNext();
  void MoveFirst();
  void MoveLast();
  /// The exact number of rows, without reading them.
  long RecordCount();
  /// Starts a row of nulls; `Update` stores it.
  void AddNew();
  /// Sends the fields assigned since `AddNew` or since the row became current; the row is then the current
  /// one.
  void Update();
  /// A second time it raises error 3704.
  void Close();

  /// Found without regard to case; of two fields with one name, the first.
  Field Fields(std::string_view name);
  /// By its place, from 0. Error 3265 outside.
  Field Fields(std::size_t index);
  const std::vector<FieldInfo>& FieldList() const { return fields_; }
  /// Index of a field, or nothing.
  std::optional<std::size_t> FindField(std::string_view name) const;

  /// Any cell of any row, without moving the current row; the others of the row stand behind it. Error 3021
  /// for a row and 9 for a column that there isn't.
  const Cell& CellAt(std::size_t row, std::size_t column);
  /// The number of rows read so far: reading one of these costs nothing.
  std::size_t RowsAtHand() const { return store_ ? store_->rows() : 0; }
  /// Reads up to `rows` further rows; false when there are no more.
  bool FetchMore(std::size_t rows);

 protected:
  using Assignments = std::vector<std::optional<Variant>>;

  Recordset() = default;
  /// Called by the opening operation of a derived class. Makes the first row current.
  void Opened(std::vector<FieldInfo> fields);
  RowStore& store() { return *store_; }

  /// Reads rows into the store until it holds `row`; false when there are fewer rows.
  virtual bool Reach(std::size_t row) = 0;
  virtual std::size_t Count() = 0;
  /// Stores a new row, and adds it to the store as its last one. Error 3251 unless the kind can write.
  virtual void Insert(const Assignments& values);
  /// Stores changed fields of a row, here and where it came from.
  virtual void Change(std::size_t row, const Assignments& values);
  /// Lets go of whatever the rows came from.
  virtual void Released() {}

  std::vector<FieldInfo> fields_;

 private:
  void RequireOpen() const;
  std::size_t Expected() const { return following_.empty() ? after_ : following_[after_]; }
  void Expect(std::size_t field);
  void MoveTo(std::size_t row);
  void ForgetAssignments();
  void RequireRow();
  Variant ValueOf(std::size_t column);
  void Assign(std::size_t column, Variant value);

  std::unique_ptr<RowStore> store_;
  bool open_ = false;
  bool adding_ = false;
  bool pending_ = false;  // `assigned_` holds something
  std::size_t row_ = 0;
  // Fields are mostly asked for in their order, or on every row in the same order.
  std::size_t after_ = 0;               // the place after the field found last
  std::vector<std::size_t> following_;  // the field asked for after each place; empty: the one in this place
  Assignments assigned_;
};

/// A value of the type of a field. Null stays null; errors 13 and 6 when it can't be.
Variant ConvertTo(FieldType type, Variant value);

/// A recordset with no statement behind it: fields are appended, it is opened, rows are added. They live in
/// memory alone.
class MemoryRecordset : public Recordset {
 public:
  /// Before `Open`. `size` is the width of a text in characters.
  void Append(std::string name, FieldType type, long size, bool nullable = true);
  void Open();

 protected:
  bool Reach(std::size_t row) override { return row < store().rows(); }
  std::size_t Count() override { return store().rows(); }
  void Insert(const Assignments& values) override;
  void Change(std::size_t row, const Assignments& values) override;

 private:
  std::vector<FieldInfo> appended_;
};

using RecordsetRef = Ref<Recordset>;

/// What the lookup and the report run their statement on, see `DataAccess::ObterLigacao`.
class Connection {
 public:
  virtual ~Connection() = default;
  /// Runs one statement for reading. Raises the engine's errors; values inside the statement are the caller's
  /// care.
  virtual RecordsetRef Execute(const std::string& statement) = 0;
};

}  // namespace platform
