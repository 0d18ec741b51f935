#pragma once

#include <QHeaderView>
#include <map>

class QLineEdit;

namespace desktop {

/// The headings of a table, with a row of fields under them, if wanted: what is typed into one says which
/// rows are shown.
class FilterHeader : public QHeaderView {
  Q_OBJECT

 public:
  explicit FilterHeader(QWidget* parent);

  void ShowFields(bool shown);
  bool ShowsFields() const { return shown_; }
  /// Shows what a column is filtered by, without a signal.
  void SetText(int section, const QString& text);
  /// Marks a field whose text can't be read, and says why; an empty text takes the mark away.
  void SetObjection(int section, const QString& objection);
  /// Gives the keyboard to a column's field, or to the first one that is shown.
  void FocusField(int section = -1);
  /// The field of a column; null while there are none.
  QLineEdit* FieldOf(int section) const;
  QSize sizeHint() const override;

 Q_SIGNALS:
  void Typed(int section, const QString& text);
  /// What occurs in the column is to be chosen from.
  void ChoiceWanted(int section);
  /// Back to the rows; `clear`: and all of them to be shown.
  void Left(bool clear);

 protected:
  void updateGeometries() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place();
  void Make(int section);
  bool OpenMenu(const QObject* field);
  void BringIntoView(const QObject* field);
  int FieldHeight() const;

  bool shown_ = false;
  std::map<int, QLineEdit*> fields_;
};

}  // namespace desktop
