#include "desktop/help/manual_reader.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>

#include "desktop/help/manual_browser.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "manual/pages.h"
#include "manual/search.h"

namespace desktop {
namespace {

constexpr int kWidth = 62;  // in lines of text
constexpr int kHeight = 40;
constexpr int kListWidth = 16;

QStringList WordsOf(const QString& text) { return text.split(QLatin1Char(' '), Qt::SkipEmptyParts); }

}  // namespace

ManualReader::ManualReader(QWidget* parent)
    : QDialog(parent, Qt::Window),
      search_(new QLineEdit(this)),
      pages_(new QListWidget(this)),
      nothing_(new QLabel(QStringLiteral("Nenhuma página tem estas palavras."), this)),
      back_(new QPushButton(QStringLiteral("< &Voltar"), this)),
      browser_(new ManualBrowser(this)) {
  setObjectName(QStringLiteral("manual"));
  setWindowTitle(QStringLiteral("Manual"));
  setAttribute(Qt::WA_DeleteOnClose);
  Build();
  Connect();
  Fill();
  browser_->setFocus();
  resize(QSize(Em(this) * kWidth, Em(this) * kHeight).boundedTo(RoomOnScreen(this)));
}

void ManualReader::Build() {
  search_->setPlaceholderText(QStringLiteral("Procurar no manual…"));
  search_->setAccessibleName(QStringLiteral("Procurar no manual"));
  search_->setToolTip(QStringLiteral("Procurar no manual (Ctrl+F)"));
  search_->setClearButtonEnabled(true);
  search_->installEventFilter(this);
  pages_->setAccessibleName(QStringLiteral("Páginas"));
  pages_->setFrameShape(QFrame::NoFrame);
  pages_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  nothing_->setWordWrap(true);
  SetMuted(nothing_);
  nothing_->hide();
  back_->setToolTip(QStringLiteral("A página de antes (Alt+←)"));
  back_->setAutoDefault(false);
  back_->setEnabled(false);

  auto* side = new QWidget(this);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(Gap(this), Gap(this), 0, 0);
  column->setSpacing(Gap(this));
  column->addWidget(search_);
  column->addWidget(nothing_);
  column->addWidget(pages_, 1);
  auto* reading = new QWidget(this);
  auto* right = new QVBoxLayout(reading);
  right->setContentsMargins(0, Gap(this), 0, 0);
  right->setSpacing(Gap(this));
  auto* bar = new QHBoxLayout;
  bar->setContentsMargins(Gap(this), 0, Gap(this), 0);
  bar->addWidget(back_);
  bar->addStretch(1);
  right->addLayout(bar);
  right->addWidget(browser_, 1);
  auto* splitter = new QSplitter(this);
  splitter->addWidget(side);
  splitter->addWidget(reading);
  splitter->setStretchFactor(1, 1);
  splitter->setChildrenCollapsible(false);
  splitter->setSizes({Em(this) * kListWidth, Em(this) * (kWidth - kListWidth)});
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(splitter);
  setTabOrder(search_, pages_);
  setTabOrder(pages_, browser_);
  setTabOrder(browser_, back_);
}

void ManualReader::Connect() {
  connect(search_, &QLineEdit::textChanged, this, &ManualReader::Fill);
  connect(pages_, &QListWidget::currentItemChanged, this, &ManualReader::ShowChosen);
  connect(pages_, &QListWidget::itemActivated, browser_, [this] { browser_->setFocus(); });
  connect(back_, &QPushButton::clicked, browser_, &QTextBrowser::backward);
  connect(browser_, &QTextBrowser::backwardAvailable, back_, &QWidget::setEnabled);
  // The browser tells before it knows itself what it shows.
  connect(browser_, &QTextBrowser::sourceChanged, this,
          [this](const QUrl& page) { Mark(ManualBrowser::NameOf(page)); });
}

/// The pages, or those that the search finds, each with what it says of the words.
void ManualReader::Fill() {
  const QSignalBlocker quiet(pages_);
  pages_->clear();
  const QString words = search_->text().trimmed();
  const auto add = [this](const manual::Page& page, const std::string& paragraph) {
    auto* item = new QListWidgetItem(ToQt(page.title), pages_);
    item->setData(Qt::UserRole, ToQt(page.name));
    if (!paragraph.empty()) item->setToolTip(PlainToolTip(ToQt(paragraph)));
  };
  if (words.isEmpty())
    for (const manual::Page& page : manual::Pages()) add(page, {});
  for (const manual::Hit& hit : manual::Search(FromQt(words))) add(*hit.page, hit.paragraph);
  nothing_->setVisible(pages_->count() == 0);
  if (words.isEmpty()) browser_->MarkWords({});
  Mark(browser_->PageName());
}

void ManualReader::ShowChosen() {
  const QListWidgetItem* item = pages_->currentItem();
  if (item == nullptr) return;
  const manual::Page* page = manual::FindPage(FromQt(item->data(Qt::UserRole).toString()));
  if (page == nullptr) return;
  browser_->ShowPage(*page);
  if (!search_->text().trimmed().isEmpty()) browser_->MarkWords(WordsOf(search_->text()));
}

/// The list follows the links of the pages.
void ManualReader::Mark(const QString& shown) {
  const QSignalBlocker quiet(pages_);
  pages_->setCurrentRow(-1);
  for (int row = 0; row < pages_->count(); ++row)
    if (pages_->item(row)->data(Qt::UserRole).toString() == shown) pages_->setCurrentRow(row);
}

void ManualReader::ShowPage(std::string_view name) {
  if (const manual::Page* page = manual::FindPage(name)) browser_->ShowPage(*page);
}

void ManualReader::Search(const QString& words) {
  search_->setText(words);
  pages_->setCurrentRow(-1);
  pages_->setCurrentRow(0);
}

bool ManualReader::ShowMessage(const QString& shown) {
  const std::optional<manual::Hit> hit = manual::FindMessage(FromQt(shown));
  if (!hit) return false;
  browser_->ShowPage(*hit->page);
  browser_->MarkWords({ToQt(hit->paragraph)});
  return true;
}

/// From the search the arrows lead to what it found; Escape takes it back before it closes the window.
bool ManualReader::eventFilter(QObject* watched, QEvent* event) {
  if (watched != search_ || event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Escape && !search_->text().isEmpty()) {
    search_->clear();
    return true;
  }
  if (key != Qt::Key_Down && key != Qt::Key_Return && key != Qt::Key_Enter) return false;
  pages_->setFocus();
  if (!search_->text().trimmed().isEmpty() && pages_->count() > 0) {
    pages_->setCurrentRow(-1);
    pages_->setCurrentRow(0);
  }
  return true;
}

void ManualReader::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Find)) {
    search_->setFocus();
    search_->selectAll();
  } else {
    QDialog::keyPressEvent(event);
  }
}

ManualReader& ShowManual(QWidget* window, std::string_view subject) {
  auto* reader = window->findChild<ManualReader*>(QString(), Qt::FindDirectChildrenOnly);
  if (reader == nullptr) reader = new ManualReader(window);
  reader->ShowPage(manual::PageAbout(subject).name);
  reader->show();
  reader->raise();
  reader->activateWindow();
  return *reader;
}

}  // namespace desktop
