#include "desktop/list/filter_header.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {

FilterHeader::FilterHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  connect(this, &QHeaderView::sectionResized, this, &FilterHeader::Place);
  connect(this, &QHeaderView::sectionMoved, this, &FilterHeader::Place);
  connect(this, &QHeaderView::geometriesChanged, this, &FilterHeader::Place);
  if (auto* table = qobject_cast<QTableView*>(parent))
    connect(table->horizontalScrollBar(), &QScrollBar::valueChanged, this, &FilterHeader::Place);
}

void FilterHeader::ShowFields(bool shown) {
  shown_ = shown;
  for (const auto& [section, field] : fields_) field->setVisible(shown);
  updateGeometries();
  updateGeometry();
  Place();
}

int FilterHeader::FieldHeight() const { return Em(this) * 7 / 4; }

QSize FilterHeader::sizeHint() const {
  QSize size = QHeaderView::sizeHint();
  if (shown_) size.rheight() += FieldHeight();
  return size;
}

void FilterHeader::updateGeometries() {
  setViewportMargins(0, 0, 0, shown_ ? FieldHeight() : 0);
  QHeaderView::updateGeometries();
  Place();
}

void FilterHeader::Make(int section) {
  auto* field = new QLineEdit(this);
  field->setFrame(true);
  field->setClearButtonEnabled(false);
  field->installEventFilter(this);
  connect(field, &QLineEdit::textEdited, this,
          [this, section](const QString& text) { Q_EMIT Typed(section, text); });
  fields_[section] = field;
}

void FilterHeader::Place() {
  if (!shown_) return;
  const int top = height() - FieldHeight();
  QWidget* before = nullptr;
  for (int place = 0; place < count(); ++place) {
    const int section = logicalIndex(place);
    const bool visible = !isSectionHidden(section);
    if (visible && fields_.count(section) == 0) Make(section);
    if (fields_.count(section) == 0) continue;
    QLineEdit* field = fields_[section];
    field->setVisible(visible);
    if (!visible) continue;
    const QString heading = model()->headerData(section, Qt::Horizontal).toString();
    field->setAccessibleName(QStringLiteral("Filtro de %1").arg(heading));
    field->setGeometry(sectionViewportPosition(section), top, sectionSize(section), FieldHeight());
    if (before != nullptr) setTabOrder(before, field);
    before = field;
  }
}

QLineEdit* FilterHeader::FieldOf(int section) const {
  const auto found = fields_.find(section);
  return found == fields_.end() ? nullptr : found->second;
}

void FilterHeader::SetText(int section, const QString& text) {
  QLineEdit* field = FieldOf(section);
  if (field != nullptr && field->text() != text) field->setText(text);
  if (text.isEmpty()) SetObjection(section, {});
}

/// In the muted colour and slanted: the bands' colours are kept for what is due.
void FilterHeader::SetObjection(int section, const QString& objection) {
  QLineEdit* field = FieldOf(section);
  if (field == nullptr) return;
  QFont font = this->font();
  font.setItalic(!objection.isEmpty());
  font.setStrikeOut(!objection.isEmpty());
  field->setFont(font);
  const QString help =
      QStringLiteral("Mostrar só as linhas com isto; F3 escolhe do que há, Esc mostra tudo de novo");
  field->setToolTip(objection.isEmpty() ? help : PlainToolTip(objection));
  field->setAccessibleDescription(objection);
}

void FilterHeader::FocusField(int section) {
  QLineEdit* field = FieldOf(section);
  for (int place = 0; field == nullptr && place < count(); ++place)
    if (!isSectionHidden(logicalIndex(place))) field = FieldOf(logicalIndex(place));
  if (field == nullptr) return;
  field->setFocus(Qt::ShortcutFocusReason);
  field->selectAll();
}

/// The keyboard asks for the menu of the heading above its field.
bool FilterHeader::OpenMenu(const QObject* field) {
  for (const auto& [section, one] : fields_)
    if (one == field) Q_EMIT customContextMenuRequested({sectionViewportPosition(section) + Gap(this), 0});
  return true;
}

/// The field that got the keyboard comes into sight, with its column.
void FilterHeader::BringIntoView(const QObject* field) {
  auto* table = qobject_cast<QTableView*>(parentWidget());
  for (const auto& [section, one] : fields_) {
    if (one != field || table == nullptr) continue;
    const int left = sectionViewportPosition(section);
    const int beyond = left + sectionSize(section) - table->viewport()->width();
    QScrollBar* bar = table->horizontalScrollBar();
    if (left < 0 || beyond > 0) bar->setValue(bar->value() + (left < 0 ? left : std::min(left, beyond)));
    return;
  }
}

bool FilterHeader::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) BringIntoView(watched);
  if (event->type() == QEvent::ContextMenu && contextMenuPolicy() == Qt::CustomContextMenu &&
      static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard)
    return OpenMenu(watched);
  if (event->type() != QEvent::KeyPress) return QHeaderView::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  const bool down = key->key() == Qt::Key_Down;
  if (key->key() == Qt::Key_F3 || (down && key->modifiers() == Qt::AltModifier)) {
    for (const auto& [section, field] : fields_)
      if (field == watched) Q_EMIT ChoiceWanted(section);
    return true;
  }
  if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter || down) {
    Q_EMIT Left(false);
    return true;
  }
  if (key->key() != Qt::Key_Escape) return QHeaderView::eventFilter(watched, event);
  Q_EMIT Left(true);
  return true;
}

}  // namespace desktop
