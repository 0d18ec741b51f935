#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "exchange/assistant/import_session.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QTableWidget;

namespace desktop {

/// The first page of the assistant: the file, its sheet, what its rows are.
class ImportFilePage : public QWidget {
  Q_OBJECT

 public:
  explicit ImportFilePage(QWidget* parent);
  /// Shows what the session has; null before there is a file.
  void Show(exchange::ImportSession* session);
  /// The file that was typed and is not open yet; empty when there is none.
  QString Named() const;

 Q_SIGNALS:
  void FileWanted();
  void NameTyped();

 private:
  void ShowChoices();

  exchange::ImportSession* session_ = nullptr;
  QLineEdit* file_;
  QLabel* facts_;
  QComboBox* sheet_;
  QComboBox* profile_;
  QComboBox* kind_;
  bool showing_ = false;
};

/// The second page: above each column of the file the one of ours that it goes into, and texts for what the
/// file lacks.
class ImportColumnsPage : public QWidget {
  Q_OBJECT

 public:
  explicit ImportColumnsPage(QWidget* parent);
  void Show(exchange::ImportSession* session);
  /// Puts what the user typed into the session's profile. Why the page can't be left yet; empty when it can.
  QString Take();

 private:
  QWidget* Chooser(std::size_t column);
  void ShowConstants();

  exchange::ImportSession* session_ = nullptr;
  QTableWidget* table_;
  QFormLayout* constants_;
  QWidget* constants_place_;
  std::vector<std::pair<std::string, QLineEdit*>> texts_;
  QCheckBox* propose_;
  QLineEdit* name_;
};

}  // namespace desktop
