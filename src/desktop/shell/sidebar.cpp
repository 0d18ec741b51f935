#include "desktop/shell/sidebar.h"

#include <QEvent>
#include <QPainter>
#include <QScrollBar>

#include "desktop/database/rights.h"
#include "desktop/list/item_painter.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/shell/pages.h"
#include "desktop/start/alert_board.h"

namespace desktop {
namespace {

/// Index of the list in the catalogue; headings have none.
constexpr int kEntryRole = Qt::UserRole;
constexpr int kCountRole = Qt::UserRole + 1;
/// Place of a view; its heading has -1.
constexpr int kViewRole = Qt::UserRole + 2;
constexpr int kViewsBegin = 1;  // below the start page

/// True for what can be chosen.
bool IsEntry(const QModelIndex& index) {
  const QVariant view = index.data(kViewRole);
  return view.isValid() ? view.toInt() >= 0 : index.data(kEntryRole).isValid();
}

constexpr int kStartIndex = -1;
constexpr int kWidthInCharacters = 24;

/// Paints an entry behind the edge of its group's heading, with its number at the right.
class SidebarPainter : public ItemPainter {
 public:
  using ItemPainter::ItemPainter;
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    ItemPainter::initStyleOption(option, index);
    if (IsEntry(index)) option->text.prepend(QStringLiteral("  "));
  }
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    ItemPainter::paint(painter, option, index);
    const QString count = index.data(kCountRole).toString();
    if (count.isEmpty()) return;
    const bool strong = option.state.testFlag(QStyle::State_Selected) && HasKeyboard(option);
    painter->save();
    painter->setFont(option.font);
    painter->setPen(strong ? QColor(Qt::white) : option.palette.color(QPalette::Text));
    painter->drawText(option.rect.adjusted(0, 0, -WideGap(option.widget), 0),
                      Qt::AlignRight | Qt::AlignVCenter, count);
    painter->restore();
  }
};

}  // namespace

Sidebar::Sidebar(QWidget* parent) : QListWidget(parent) {
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setAccessibleName(QStringLiteral("Listas"));
  viewport()->setBackgroundRole(QPalette::Window);
  setItemDelegate(new SidebarPainter(this));
  Fill();
  StyleItems();
  connect(this, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
    if (!marking_) Choose(item, false);
  });
  const auto work = [this](QListWidgetItem* item) { Choose(item, true); };
  connect(this, &QListWidget::itemClicked, this, work);
  connect(this, &QListWidget::itemActivated, this, work);
}

void Sidebar::Choose(const QListWidgetItem* item, bool to_work) {
  if (EntryOf(item) != nullptr) Q_EMIT Chosen(EntryOf(item), to_work);
  if (item != nullptr && item == this->item(0)) Q_EMIT StartChosen(to_work);
  const QVariant view = item != nullptr ? item->data(kViewRole) : QVariant();
  if (view.isValid() && view.toInt() >= 0) Q_EMIT ViewChosen(view.toInt(), to_work);
}

void Sidebar::ShowRights(const Rights& rights) {
  for (int row = 0; row < count(); ++row) {
    const ListEntry* entry = EntryOf(item(row));
    if (entry == nullptr) continue;
    const QString why_not = rights.WhyNot(zorCrmParvel::TableUse::kRead, *entry);
    item(row)->setToolTip(PlainToolTip(why_not));
    const Qt::ItemFlags usual = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    item(row)->setFlags(why_not.isEmpty() ? usual : Qt::NoItemFlags);
  }
}

void Sidebar::RemoveViews() {
  while (count() > kViewsBegin && item(kViewsBegin)->data(kViewRole).isValid()) delete takeItem(kViewsBegin);
}

void Sidebar::ShowViews(const std::vector<lists::ListView>& views) {
  marking_ = true;
  RemoveViews();
  const auto add = [this](const QString& title, int view, Qt::ItemFlags flags) {
    auto* item = new QListWidgetItem(title);
    item->setData(kViewRole, view);
    item->setFlags(flags);
    insertItem(kViewsBegin + view + 1, item);
  };
  if (!views.empty()) add(QStringLiteral("VISTAS"), -1, Qt::NoItemFlags);
  for (std::size_t i = 0; i < views.size(); ++i)
    add(ToQt(views[i].name), static_cast<int>(i), Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  StyleItems();
  marking_ = false;
}

void Sidebar::Fill() {
  AddItem(QStringLiteral("Início"), kStartIndex);
  QString group;
  for (std::size_t i = 0; i < AllLists().size(); ++i) {
    const ListEntry& entry = AllLists()[i];
    if (!HasPage(entry)) continue;
    if (group != QString::fromUtf8(entry.group)) {
      group = QString::fromUtf8(entry.group);
      AddGroup(group);
    }
    AddItem(QString::fromUtf8(entry.title), static_cast<int>(i));
  }
}

void Sidebar::AddGroup(const QString& title) {
  auto* item = new QListWidgetItem(title, this);
  item->setFlags(Qt::NoItemFlags);  // the keyboard passes it by
}

void Sidebar::AddItem(const QString& title, int index) {
  auto* item = new QListWidgetItem(title, this);
  item->setData(kEntryRole, index);
  item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
}

void Sidebar::StyleItems() {
  QFont heading = font();
  heading.setBold(true);
  heading.setPointSizeF(heading.pointSizeF() * 0.85);
  for (int i = 0; i < count(); ++i) {
    const bool heading_item = !IsEntry(indexFromItem(item(i)));
    item(i)->setSizeHint({0, Em(this) * (heading_item ? 9 : 7) / 4});
    if (!heading_item) continue;
    item(i)->setFont(heading);
    item(i)->setForeground(MutedText(palette()));
    item(i)->setTextAlignment(Qt::AlignLeft | Qt::AlignBottom);
  }
}

void Sidebar::Mark(const ListEntry& entry) {
  for (int i = 0; i < count(); ++i)
    if (EntryOf(item(i)) == &entry) MarkItem(item(i));
}

void Sidebar::MarkView(int view) {
  for (int i = 0; i < count(); ++i)
    if (item(i)->data(kViewRole).isValid() && item(i)->data(kViewRole).toInt() == view) MarkItem(item(i));
}

void Sidebar::MarkStart() { MarkItem(item(0)); }

void Sidebar::MarkItem(QListWidgetItem* item) {
  marking_ = true;
  setCurrentItem(item);
  marking_ = false;
}

void Sidebar::ShowCounts(const AlertBoard& board) {
  for (int i = 0; i < count(); ++i) {
    const ListEntry* entry = EntryOf(item(i));
    if (entry == nullptr) continue;
    for (const AlertFamily& family : board.families())
      if (family.entry == entry) ShowCount(*item(i), *entry, family.counts ? family.counts->linhas : 0);
  }
}

/// Shows a number behind a list, and reads it out; nothing for none.
void Sidebar::ShowCount(QListWidgetItem& item, const ListEntry& entry, long rows) {
  const QString title = QString::fromUtf8(entry.title);
  item.setData(kCountRole, rows > 0 ? QLocale().toString(static_cast<qlonglong>(rows)) : QString());
  item.setData(Qt::AccessibleTextRole,
               rows > 0 ? title + QStringLiteral(", ") + AlertsCounted(rows) : QString());
}

QSize Sidebar::sizeHint() const {
  return {fontMetrics().averageCharWidth() * kWidthInCharacters + 2 * WideGap(this), 0};
}

void Sidebar::changeEvent(QEvent* event) {
  QListWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) StyleItems();
}

const ListEntry* Sidebar::EntryOf(const QListWidgetItem* item) {
  bool listed = false;
  const int index = item != nullptr ? item->data(kEntryRole).toInt(&listed) : kStartIndex;
  return listed && index != kStartIndex ? &AllLists()[static_cast<std::size_t>(index)] : nullptr;
}

}  // namespace desktop
