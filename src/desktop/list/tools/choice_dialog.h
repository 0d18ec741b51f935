#pragma once

#include <QDialog>
#include <string>
#include <utility>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;

namespace desktop {

/// What occurs in a column, each with the number of its rows, to be ticked.
class ChoiceDialog : public QDialog {
  Q_OBJECT

 public:
  ChoiceDialog(const QString& title, const std::vector<std::pair<std::string, long>>& occurring,
               const std::vector<std::string>& ticked, QWidget* parent);

  /// The texts that are ticked, in their order.
  std::vector<std::string> Ticked() const;
  QListWidget* list() const { return list_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Narrow(const QString& text);

  QLineEdit* search_;
  QListWidget* list_;
};

}  // namespace desktop
