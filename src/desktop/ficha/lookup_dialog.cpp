#include "desktop/ficha/lookup_dialog.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "desktop/database/late_reading.h"
#include "desktop/list/sources.h"
#include "desktop/list/table_view.h"
#include "desktop/look/house_style.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

constexpr int kLines = 16;

}  // namespace

LookupDialog::LookupDialog(platform::ListaPesquisa& list, QWidget* parent, BackgroundReader* reader)
    : QDialog(parent),
      list_(list),
      search_(new QLineEdit(this)),
      table_(new TableView(std::make_unique<DialogSource>(list), true, this)),
      count_(new QLabel(this)),
      choose_(new QPushButton(QStringLiteral("&Escolher"), this)) {
  setObjectName(QStringLiteral("lista-de-codigos"));
  setWindowTitle(ToQt(list.Titulo));
  Build();
  search_->installEventFilter(this);
  table_->installEventFilter(this);
  connect(search_, &QLineEdit::textChanged, this, &LookupDialog::Narrow);
  connect(table_, &TableView::RowOpened, this, &LookupDialog::Choose);
  if (reader != nullptr) ReadRows(*reader);
  ShowRows();
  SizeToColumns();
  search_->setFocus();
}

void LookupDialog::ReadRows(BackgroundReader& reader) {
  is_reading_ = ReadLate(
      reader, this, list_.Linhas(),
      [this] {
        is_reading_ = false;
        ShowRows();
        for (const int key : std::exchange(waiting_, {})) {
          QKeyEvent again(QEvent::KeyPress, key, Qt::NoModifier);
          QApplication::sendEvent(search_, &again);
        }
      },
      [this](const ErrorText& failure) {
        count_->setText(failure.headline);
        count_->setToolTip(PlainToolTip(WithDetails(failure)));
      });
}

void LookupDialog::ShowRows() {
  if (!is_reading_) table_->Refresh();
  Narrow(search_->text());
}

void LookupDialog::Build() {
  auto* column = new QVBoxLayout(this);
  const int margin = WideGap(this);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(Gap(this));
  search_->setPlaceholderText(QStringLiteral("Procurar…"));
  search_->setClearButtonEnabled(true);
  search_->setAccessibleName(QStringLiteral("Procurar na lista"));
  table_->setAccessibleName(windowTitle());
  column->addWidget(search_);
  column->addWidget(table_, 1);

  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(Gap(this));
  SetMuted(count_);
  buttons->addWidget(count_, 1);
  auto* cancel = new QPushButton(QStringLiteral("&Cancelar"), this);
  cancel->setAutoDefault(false);
  choose_->setDefault(true);
  HouseStyle::SetAccent(choose_);
  buttons->addWidget(cancel);
  buttons->addWidget(choose_);
  column->addLayout(buttons);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(choose_, &QPushButton::clicked, this, &LookupDialog::Choose);
}

void LookupDialog::SizeToColumns() {
  int width = std::max(table_->WidthWanted(), FromTwips(static_cast<float>(list_.Largura), this));
  width += table_->verticalScrollBar()->sizeHint().width() + 2 * (table_->frameWidth() + WideGap(this));
  const int height = table_->verticalHeader()->defaultSectionSize() * kLines + Em(this) * 6;
  resize(QSize(width, height).boundedTo(RoomOnScreen(this)));
}

void LookupDialog::Narrow(const QString& text) {
  table_->Search(text);
  const RowOrder& order = table_->grid().order();
  if (table_->CurrentRow() < 0 && order.Count() > 0) table_->SetCurrentRow(order.RowAt(0));
  choose_->setEnabled(table_->CurrentRow() >= 0);
  ShowCount();
}

void LookupDialog::ShowCount() {
  if (is_reading_) return count_->setText(QStringLiteral("A ler a lista…"));
  const long shown = table_->grid().order().Count();
  const long all = table_->grid().source().Rows();
  count_->setText(shown == all ? Counted(all, QStringLiteral("registo"), QStringLiteral("registos"))
                               : QStringLiteral("%1 de %2").arg(shown).arg(all));
}

void LookupDialog::Choose() {
  if (table_->CurrentRow() >= 0) accept();
}

std::string LookupDialog::Key() const {
  const long row = table_->CurrentRow();
  return row < 0 ? std::string() : list_.Linhas()->CellAt(static_cast<std::size_t>(row), 0).ToText();
}

/// Keys that move in the rows, or choose one, wait until there are some.
bool LookupDialog::Waits(const QKeyEvent& key) {
  constexpr int kForRows[] = {Qt::Key_Down,   Qt::Key_Up,     Qt::Key_PageDown,
                              Qt::Key_PageUp, Qt::Key_Return, Qt::Key_Enter};
  if (std::find(std::begin(kForRows), std::end(kForRows), key.key()) == std::end(kForRows)) return false;
  waiting_.push_back(key.key());
  return true;
}

/// Arrows move in the rows while typing goes on in the search; typing in the rows goes to the search.
bool LookupDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  auto* key = static_cast<QKeyEvent*>(event);
  if (is_reading_ && Waits(*key)) return true;
  if (watched == search_) {
    const bool moves = key->key() == Qt::Key_Down || key->key() == Qt::Key_Up ||
                       key->key() == Qt::Key_PageDown || key->key() == Qt::Key_PageUp;
    return moves && QApplication::sendEvent(table_, event);
  }
  const QString text = key->text();
  if (watched != table_ || text.isEmpty() || !text.front().isPrint() ||
      key->modifiers() & Qt::ControlModifier)
    return false;
  search_->setFocus();
  return QApplication::sendEvent(search_, event);
}

}  // namespace desktop
