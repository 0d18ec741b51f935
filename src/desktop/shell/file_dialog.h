#pragma once

#include <QFileDialog>

namespace desktop {

/// The dialog for files, everywhere in the program. It looks at names alone: one that looks into the files of
/// a folder to tell their kinds would take away the locks of the database that is open.
class FileDialog : public QFileDialog {
 public:
  FileDialog(QWidget* parent, const QString& title, const QString& name = {}, const QString& filter = {});

  /// The file that the user chooses; empty when there is none.
  QString Ask();
};

}  // namespace desktop
