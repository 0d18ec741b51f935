#include "desktop/list/tools/choice_dialog.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/parts.h"
#include "desktop/look/text.h"
#include "lists/condition.h"
#include "lists/words.h"

namespace desktop {
namespace {

constexpr int kTextRole = Qt::UserRole;
constexpr int kWidth = 22;  // in heights of a line
constexpr int kHeight = 28;

}  // namespace

ChoiceDialog::ChoiceDialog(const QString& title, const std::vector<std::pair<std::string, long>>& occurring,
                           const std::vector<std::string>& ticked, QWidget* parent)
    : QDialog(parent), search_(new QLineEdit(this)), list_(new QListWidget(this)) {
  setObjectName(QStringLiteral("escolher-valores"));
  setWindowTitle(title);
  auto* column = new QVBoxLayout(this);
  const int margin = WideGap(this);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(Gap(this));
  search_->setPlaceholderText(QStringLiteral("Procurar…"));
  search_->setAccessibleName(QStringLiteral("Procurar no que há"));
  search_->installEventFilter(this);
  connect(search_, &QLineEdit::textChanged, this, &ChoiceDialog::Narrow);
  column->addWidget(search_);
  list_->setAccessibleName(title);
  list_->setSpacing(Em(this) / 8);  // the boxes would touch
  for (const auto& [text, rows] : occurring) {
    const QString shown = ToQt(text.empty() ? lists::kNothingThere : text);
    auto* item = new QListWidgetItem(QStringLiteral("%1  (%2)").arg(shown, Grouped(rows)), list_);
    item->setData(kTextRole, ToQt(text));
    const bool on = std::find(ticked.begin(), ticked.end(), text) != ticked.end();
    item->setCheckState(on ? Qt::Checked : Qt::Unchecked);
  }
  if (list_->count() > 0) list_->setCurrentRow(0);
  connect(list_, &QListWidget::itemActivated, this, &QDialog::accept);
  column->addWidget(list_, 1);
  AddAnswers(*this, *column, new QPushButton(QStringLiteral("&Filtrar"), this));
  search_->setFocus();
  resize(QSize(Em(this) * kWidth, Em(this) * kHeight).boundedTo(RoomOnScreen(this)));
}

void ChoiceDialog::Narrow(const QString& text) {
  const std::string wanted = lists::Folded(FromQt(text));
  QListWidgetItem* first = nullptr;
  for (int i = 0; i < list_->count(); ++i) {
    const std::string folded = lists::Folded(FromQt(list_->item(i)->data(kTextRole).toString()));
    const bool shown = folded.find(wanted) != std::string::npos;
    list_->item(i)->setHidden(!shown);
    if (shown && first == nullptr) first = list_->item(i);
  }
  list_->setCurrentItem(first);
}

/// With nothing ticked, the one that stands under the cursor is meant.
std::vector<std::string> ChoiceDialog::Ticked() const {
  std::vector<std::string> ticked;
  for (int i = 0; i < list_->count(); ++i)
    if (list_->item(i)->checkState() == Qt::Checked)
      ticked.push_back(FromQt(list_->item(i)->data(kTextRole).toString()));
  const QListWidgetItem* current = list_->currentItem();
  if (ticked.empty() && current != nullptr) ticked.push_back(FromQt(current->data(kTextRole).toString()));
  return ticked;
}

/// Arrows move in the list while typing goes on in the search, and Ctrl+Space ticks.
bool ChoiceDialog::eventFilter(QObject* watched, QEvent* event) {
  if (watched != search_ || event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  QListWidgetItem* current = list_->currentItem();
  if (key->key() == Qt::Key_Space && key->modifiers() == Qt::ControlModifier && current != nullptr) {
    current->setCheckState(current->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    return true;
  }
  if (key->key() != Qt::Key_Down && key->key() != Qt::Key_Up) return false;
  const int step = key->key() == Qt::Key_Down ? 1 : -1;
  for (int row = list_->currentRow() + step; row >= 0 && row < list_->count(); row += step)
    if (!list_->item(row)->isHidden()) {
      list_->setCurrentRow(row);
      break;
    }
  return true;
}

}  // namespace desktop
