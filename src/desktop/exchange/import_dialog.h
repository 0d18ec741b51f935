#pragma once

#include <QDialog>
#include <QPointer>
#include <memory>

#include "exchange/assistant/import_session.h"

class QDropEvent;
class QLabel;
class QPushButton;
class QStackedWidget;

namespace desktop {

/// The one file that is dragged here; empty for anything else.
QString DroppedFile(const QDropEvent& event);

class ImportColumnsPage;
class ImportFilePage;
class ImportPreviewPage;
class WorkBar;

/// Brings a file of any kind in: which file, which columns, what becomes of each row; and takes it back
/// whole. A file that a profile recognises goes straight to the preview.
class ImportDialog : public QDialog {
  Q_OBJECT

 public:
  ImportDialog(std::shared_ptr<zorCrmParvel::Store> store, QWidget* parent);
  ~ImportDialog() override;

  /// Opens a file. One that can't be read is told, and the page stays.
  void OpenFile(const QString& file);
  /// True once something was stored or taken back.
  bool HasWritten() const { return written_; }
  void reject() override;

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  enum Page : int { kFile, kColumns, kPreview, kEnd };

  void Build();
  void AskForFile();
  void GoTo(Page page);
  void Next();
  void Back();
  void ShowButtons();
  void Hold(bool working);
  bool MakePlan();
  bool AskQuestions();
  bool Ask(const exchange::Question& question);
  void CreateCodes();
  void Check();
  void WriteRefused();
  void Export();
  void Store();
  void ShowEnd();
  void TakeBack();

  std::shared_ptr<zorCrmParvel::Store> store_;
  std::unique_ptr<exchange::ImportSession> session_;
  std::unique_ptr<exchange::ImportPlan> plan_;
  exchange::StoredImport stored_;
  bool written_ = false;
  QPointer<QWidget> held_focus_;

  QLabel* title_;
  QStackedWidget* pages_;
  ImportFilePage* file_page_;
  ImportColumnsPage* columns_page_;
  ImportPreviewPage* preview_page_;
  QLabel* end_;
  WorkBar* work_;
  QPushButton* back_;
  QPushButton* next_;
  QPushButton* take_back_;
  QPushButton* close_;
};

}  // namespace desktop
