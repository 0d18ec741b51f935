#include "desktop/sidebar.h"

#include <QEvent>
#include <QScrollBar>

#include "desktop/item_painter.h"
#include "desktop/look.h"
#include "host/sistema.h"

namespace desktop {
namespace {

/// Index of the list in the catalogue; headings have none.
constexpr int kEntryRole = Qt::UserRole;
constexpr int kWidthInCharacters = 24;

}  // namespace

Sidebar::Sidebar(QWidget* parent) : QListWidget(parent) {
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setAccessibleName(QStringLiteral("Listas"));
  viewport()->setBackgroundRole(QPalette::Window);
  setItemDelegate(new ItemPainter(this));
  Fill();
  StyleItems();
  connect(this, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
    if (!marking_ && EntryOf(item) != nullptr) Q_EMIT Chosen(EntryOf(item), false);
  });
  const auto work = [this](QListWidgetItem* item) {
    if (EntryOf(item) != nullptr) Q_EMIT Chosen(EntryOf(item), true);
  };
  connect(this, &QListWidget::itemClicked, this, work);
  connect(this, &QListWidget::itemActivated, this, work);
}

void Sidebar::Fill() {
  QString group;
  for (std::size_t i = 0; i < AllLists().size(); ++i) {
    const ListEntry& entry = AllLists()[i];
    if (!zorCrmParvel::Sistema::TemLista(entry.key)) continue;
    if (group != QString::fromUtf8(entry.group)) {
      group = QString::fromUtf8(entry.group);
      AddGroup(group);
    }
    AddList(static_cast<int>(i));
  }
}

void Sidebar::AddGroup(const QString& title) {
  auto* item = new QListWidgetItem(title, this);
  item->setFlags(Qt::ItemIsEnabled);
}

void Sidebar::AddList(int index) {
  auto* item = new QListWidgetItem(
      QStringLiteral("  ") + QString::fromUtf8(AllLists()[static_cast<std::size_t>(index)].title), this);
  item->setData(kEntryRole, index);
  item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
}

void Sidebar::StyleItems() {
  QFont heading = font();
  heading.setBold(true);
  heading.setPointSizeF(heading.pointSizeF() * 0.85);
  for (int i = 0; i < count(); ++i) {
    const bool list = EntryOf(item(i)) != nullptr;
    item(i)->setSizeHint({0, Em(this) * (list ? 7 : 9) / 4});
    if (list) continue;
    item(i)->setFont(heading);
    item(i)->setForeground(MutedText(palette()));
    item(i)->setTextAlignment(Qt::AlignLeft | Qt::AlignBottom);
  }
}

void Sidebar::Mark(const ListEntry& entry) {
  marking_ = true;
  for (int i = 0; i < count(); ++i)
    if (EntryOf(item(i)) == &entry) setCurrentItem(item(i));
  marking_ = false;
}

QSize Sidebar::sizeHint() const {
  return {fontMetrics().averageCharWidth() * kWidthInCharacters + 2 * WideGap(this), 0};
}

void Sidebar::changeEvent(QEvent* event) {
  QListWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) StyleItems();
}

const ListEntry* Sidebar::EntryOf(const QListWidgetItem* item) {
  if (item == nullptr || !item->data(kEntryRole).isValid()) return nullptr;
  return &AllLists()[static_cast<std::size_t>(item->data(kEntryRole).toInt())];
}

}  // namespace desktop
