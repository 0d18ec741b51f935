#pragma once

#include <QDialog>
#include <memory>

#include "desktop/print/table_printer.h"

class QLabel;
class QPrinter;
class QPrintPreviewWidget;
class QPushButton;

namespace desktop {

/// A table as it will be on paper, to be printed or kept as a PDF.
class ReportDialog : public QDialog {
  Q_OBJECT

 public:
  /// The source outlives the dialog.
  ReportDialog(const TableSource& source, QString title, QWidget* parent, PaperTable paper = {});
  ~ReportDialog() override;

  /// Writes the report as a PDF. False when the file can't be written; it is then as it was.
  bool WritePdf(const QString& file);

 private:
  void Build();
  QLayout* Buttons();
  void Turn(int pages);
  void ShowPage();
  void PrintOut();
  void AskAndWritePdf();

  QString title_;
  TablePrinter table_;
  std::unique_ptr<QPrinter> printer_;
  QPrintPreviewWidget* preview_;
  QLabel* page_;
  QPushButton* previous_;
  QPushButton* next_;
};

}  // namespace desktop
