#pragma once

#include <QDialog>
#include <memory>

#include "desktop/database/workspace.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSettings;

namespace desktop {

/// Asks where the data is: in a file or on a server. It closes only on a database that could be opened, and
/// the choice is kept in the settings then; the password never is.
class ConnectionDialog : public QDialog {
  Q_OBJECT

 public:
  /// Begins with the choice that the settings keep.
  ConnectionDialog(QSettings& settings, QWidget* parent);
  ~ConnectionDialog() override;

  /// Begins with this server instead. Error -2147467259 when the connection can't be read.
  void ShowServer(const QString& connection);
  /// Says why the dialog is shown.
  void ShowReason(const QString& text);
  /// The database that was opened; null when the user gave up.
  std::unique_ptr<Workspace> Take() { return std::move(workspace_); }

 private:
  void Build();
  QWidget* FilePart();
  QWidget* ServerPart();
  void SwitchPart();
  void ChooseFile();
  QString Connection() const;
  void TryAndClose();

  QSettings& settings_;
  QRadioButton* on_file_;
  QRadioButton* on_server_;
  QWidget* file_part_;
  QWidget* server_part_;
  QPushButton* choose_;
  QLineEdit* file_;
  QLineEdit* driver_;
  QLineEdit* server_;
  QLineEdit* port_;
  QLineEdit* database_;
  QLineEdit* user_;
  QLineEdit* password_;
  QLabel* reason_;
  QString kept_;  // the connection as it was, with what has no field here
  std::unique_ptr<Workspace> workspace_;
};

/// The setting that keeps the connection of the server which the user chose; empty for a file.
inline constexpr char kServerSetting[] = "servidor";

}  // namespace desktop
