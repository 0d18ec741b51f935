#include "desktop/list/tools/column_menu.h"

#include <QMenu>
#include <algorithm>

#include "desktop/list/table_view.h"

namespace desktop {
namespace {

using Keys = std::vector<std::string>;

Keys ShownKeys(const TableView& table) {
  Keys keys;
  for (std::size_t column : table.grid().source().VisibleColumns())
    keys.push_back(table.grid().source().Columns()[column].key);
  return keys;
}

QString Caption(const TableColumn& column) {
  return QString(column.caption).replace(QLatin1Char('&'), QLatin1String("&&"));
}

class Filler {
 public:
  Filler(QMenu& menu, TableView& table, std::function<void()> changed)
      : menu_(menu), table_(table), changed_(std::move(changed)) {}

  void AddPlaces(std::size_t column) {
    const TableColumn& shown = table_.grid().source().Columns()[column];
    const Keys keys = ShownKeys(table_);
    const auto place = std::find(keys.begin(), keys.end(), shown.key) - keys.begin();
    const auto count = static_cast<std::ptrdiff_t>(keys.size());
    if (place == count) return;
    Add(QStringLiteral("&Esconder «%1»").arg(Caption(shown)), count > 1, [keys, place](TableView& table) {
      Keys left = keys;
      left.erase(left.begin() + place);
      table.ChooseColumns(left);
    });
    Add(QStringLiteral("Mover para a es&querda"), place > 0, [keys, place](TableView& table) {
      Keys moved = keys;
      std::swap(moved[static_cast<std::size_t>(place)], moved[static_cast<std::size_t>(place - 1)]);
      table.ChooseColumns(moved);
    });
    Add(QStringLiteral("Mover para a &direita"), place + 1 < count, [keys, place](TableView& table) {
      Keys moved = keys;
      std::swap(moved[static_cast<std::size_t>(place)], moved[static_cast<std::size_t>(place + 1)]);
      table.ChooseColumns(moved);
    });
    menu_.addSeparator();
    const auto& sort = table_.grid().order().sort();
    const bool sorted = sort && sort->column == column;
    const bool rises = sorted && sort->direction == SortDirection::kAscending;
    Add(rises    ? QStringLiteral("&Ordenar ao contrário")
        : sorted ? QStringLiteral("&Ordem da lista")
                 : QStringLiteral("&Ordenar por «%1»").arg(Caption(shown)),
        true, [column](TableView& table) { table.TurnSort(static_cast<int>(column)); });
    const bool grouped = table_.grid().order().group() == column;
    Add(grouped ? QStringLiteral("Des&agrupar") : QStringLiteral("&Agrupar por «%1»").arg(Caption(shown)),
        true, [column, grouped](TableView& table) {
          table.Reorder([&](RowOrder& order) {
            order.GroupBy(grouped ? std::nullopt : std::optional<std::size_t>(column));
          });
        });
  }

  void AddGroups() {
    if (!table_.grid().order().group()) return;
    for (const bool open : {true, false})
      Add(open ? QStringLiteral("A&brir todos os grupos") : QStringLiteral("&Fechar todos os grupos"), true,
          [open](TableView& table) { table.Reorder([open](RowOrder& order) { order.OpenAll(open); }); });
  }

  void AddChoice() {
    const Keys keys = ShownKeys(table_);
    for (std::size_t column : table_.grid().source().OfferedColumns()) {
      const TableColumn& offered = table_.grid().source().Columns()[column];
      const bool shown = std::find(keys.begin(), keys.end(), offered.key) != keys.end();
      QAction* action = Add(Caption(offered), !shown || keys.size() > 1,
                            [keys, shown, key = offered.key](TableView& table) {
                              Keys chosen = keys;
                              if (shown)
                                std::erase(chosen, key);
                              else
                                chosen.push_back(key);
                              table.ChooseColumns(chosen);
                            });
      action->setCheckable(true);
      action->setChecked(shown);
    }
    menu_.addSeparator();
    Add(QStringLiteral("&Repor colunas"), true, [](TableView& table) {
      table.SetUserWidths({});
      table.ChooseColumns({});
    });
  }

 private:
  QAction* Add(const QString& text, bool enabled, const std::function<void(TableView&)>& change) {
    QAction* action = menu_.addAction(text);
    action->setEnabled(enabled);
    QObject::connect(action, &QAction::triggered, &table_, [&table = table_, changed = changed_, change] {
      change(table);
      changed();
    });
    return action;
  }

  QMenu& menu_;
  TableView& table_;
  std::function<void()> changed_;
};

}  // namespace

void FillColumnMenu(QMenu& menu, TableView& table, int section, const std::function<void()>& changed) {
  Filler filler(menu, table, changed);
  if (section >= 0) filler.AddPlaces(static_cast<std::size_t>(section));
  filler.AddGroups();
  menu.addSeparator();
  filler.AddChoice();
}

}  // namespace desktop
