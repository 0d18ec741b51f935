#include "desktop/exchange/import_dialog.h"

#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMimeData>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>

#include "desktop/exchange/import_pages.h"
#include "desktop/exchange/import_preview_page.h"
#include "desktop/exchange/work_bar.h"
#include "desktop/look/house_style.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/shell/file_dialog.h"
#include "desktop/shell/message_box.h"
#include "platform/host.h"

namespace desktop {
namespace {

constexpr int kWidth = 62;  // in lines of text
constexpr int kHeight = 38;
constexpr const char* kTitles[] = {"1. O ficheiro e o que tem", "2. As colunas", "3. O que vai acontecer",
                                   "Importação feita"};

}  // namespace

QString DroppedFile(const QDropEvent& event) {
  const QList<QUrl> files = event.mimeData()->urls();
  return files.size() == 1 ? files[0].toLocalFile() : QString();
}

ImportDialog::ImportDialog(std::shared_ptr<zorCrmParvel::Store> store, QWidget* parent)
    : QDialog(parent),
      store_(std::move(store)),
      title_(new QLabel(this)),
      pages_(new QStackedWidget(this)),
      file_page_(new ImportFilePage(this)),
      columns_page_(new ImportColumnsPage(this)),
      preview_page_(new ImportPreviewPage(this)),
      end_(new QLabel(this)),
      work_(new WorkBar(this)),
      back_(new QPushButton(QStringLiteral("< &Voltar"), this)),
      next_(new QPushButton(this)),
      take_back_(new QPushButton(QStringLiteral("&Anular esta importação"), this)),
      close_(new QPushButton(this)) {
  setObjectName(QStringLiteral("importar"));
  setWindowTitle(QStringLiteral("Importar"));
  setAcceptDrops(true);
  Build();
  resize(QSize(Em(this) * kWidth, Em(this) * kHeight).boundedTo(RoomOnScreen(this)));
  GoTo(kFile);
}

ImportDialog::~ImportDialog() { preview_page_->Show(nullptr); }

void ImportDialog::Build() {
  auto* column = new QVBoxLayout(this);
  column->setSpacing(Gap(this) * 2);
  SetTitleFont(title_, 1.15);
  column->addWidget(title_);
  end_->setTextFormat(Qt::PlainText);
  end_->setWordWrap(true);
  end_->setAlignment(Qt::AlignTop);
  end_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  for (QWidget* page : std::initializer_list<QWidget*>{file_page_, columns_page_, preview_page_, end_})
    pages_->addWidget(page);
  column->addWidget(pages_, 1);
  column->addWidget(work_);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(take_back_);
  buttons->addStretch(1);
  for (QPushButton* button : {back_, next_, close_}) buttons->addWidget(button);
  HouseStyle::SetAccent(next_);
  next_->setDefault(true);
  column->addLayout(buttons);
  connect(file_page_, &ImportFilePage::FileWanted, this, &ImportDialog::AskForFile);
  connect(file_page_, &ImportFilePage::NameTyped, this, &ImportDialog::ShowButtons);
  connect(preview_page_, &ImportPreviewPage::CodesWanted, this, &ImportDialog::CreateCodes);
  connect(preview_page_, &ImportPreviewPage::RefusedWanted, this, &ImportDialog::WriteRefused);
  connect(preview_page_, &ImportPreviewPage::TableWanted, this, &ImportDialog::Export);
  connect(preview_page_, &ImportPreviewPage::Corrected, this, &ImportDialog::ShowButtons);
  connect(work_, &WorkBar::Working, this, &ImportDialog::Hold);
  connect(back_, &QPushButton::clicked, this, &ImportDialog::Back);
  connect(next_, &QPushButton::clicked, this, &ImportDialog::Next);
  connect(take_back_, &QPushButton::clicked, this, &ImportDialog::TakeBack);
  connect(close_, &QPushButton::clicked, this, &ImportDialog::reject);
}

void ImportDialog::reject() {
  if (work_->IsBusy()) return work_->Cancel();
  QDialog::reject();
}

/// While work is under way nothing but its end can be asked for.
void ImportDialog::Hold(bool working) {
  if (working) held_focus_ = focusWidget();
  for (QWidget* part : std::initializer_list<QWidget*>{pages_, back_, next_, take_back_})
    part->setEnabled(!working);
  if (!working && held_focus_ != nullptr) held_focus_->setFocus();
}

void ImportDialog::AskForFile() {
  FileDialog dialog(
      this, QStringLiteral("Importar"), {},
      QStringLiteral("Tabelas (*.csv *.txt *.tsv *.xlsx *.ods *.xls *.htm *.html);;Todos os ficheiros (*)"));
  dialog.setFileMode(FileDialog::ExistingFile);
  const QString file = dialog.Ask();
  if (!file.isEmpty()) OpenFile(file);
}

/// Another file may take the first one's place as long as nothing was told about its columns.
void ImportDialog::dragEnterEvent(QDragEnterEvent* event) {
  const bool asked = pages_->currentIndex() == kFile && !work_->IsBusy();
  if (asked && !DroppedFile(*event).isEmpty()) event->acceptProposedAction();
}

void ImportDialog::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  QTimer::singleShot(0, this, [this, file = DroppedFile(*event)] { OpenFile(file); });
}

void ImportDialog::OpenFile(const QString& file) {
  const auto open = [&] {
    auto session = std::make_unique<exchange::ImportSession>(store_, FromQt(file));
    session_ = std::move(session);
    file_page_->Show(session_.get());
  };
  if (!Guarded(this, open)) return;
  GoTo(kFile);
  next_->setFocus();
  if (!session_->known().empty()) Next();
}

void ImportDialog::GoTo(Page page) {
  title_->setText(QString::fromUtf8(kTitles[page]));
  pages_->setCurrentIndex(page);
  ShowButtons();
  // Where nothing can be stored yet, Enter must not cancel.
  if (page == kPreview) (next_->isEnabled() ? static_cast<QWidget*>(next_) : preview_page_)->setFocus();
}

void ImportDialog::ShowButtons() {
  const int page = pages_->currentIndex();
  back_->setVisible(page == kColumns || page == kPreview);
  next_->setVisible(page != kEnd);
  take_back_->setVisible(page == kEnd && stored_.number != 0);
  close_->setText(page == kEnd ? QStringLiteral("&Fechar") : QStringLiteral("Ca&ncelar"));
  next_->setText(QStringLiteral("&Continuar >"));
  next_->setEnabled(session_ != nullptr || !file_page_->Named().isEmpty());
  if (page != kPreview || plan_ == nullptr) return;
  const long rows = plan_->Sums().stored.rows;
  next_->setText(QStringLiteral("&Guardar ") +
                 Counted(rows, QStringLiteral("registo"), QStringLiteral("registos")));
  next_->setEnabled(rows > 0);
}

void ImportDialog::Next() {
  switch (pages_->currentIndex()) {
    case kFile: {
      if (!file_page_->Named().isEmpty()) return OpenFile(file_page_->Named());
      columns_page_->Show(session_.get());
      const bool recognised = !session_->profile().name.empty();
      if (recognised && MakePlan()) return GoTo(kPreview);
      return GoTo(kColumns);
    }
    case kColumns: {
      const QString missing = columns_page_->Take();
      if (!missing.isEmpty()) {
        ShowMessage(this, missing, platform::kOkOnly | platform::kExclamation, windowTitle());
        return;
      }
      if (MakePlan()) GoTo(kPreview);
      return;
    }
    default:
      return Store();
  }
}

void ImportDialog::Back() {
  if (pages_->currentIndex() == kPreview) columns_page_->Show(session_.get());
  GoTo(pages_->currentIndex() == kPreview ? kColumns : kFile);
}

}  // namespace desktop
