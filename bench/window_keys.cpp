// The real window on a server 20 ms away, with 500 vehicles: no key waits more than 100 ms for anything but
// its own statement. What the module itself must have answered before the key is dealt with is its own;
// lists, lookups, counts, the window's own columns and whatever else it shows beside are not.

#include <QDialog>
#include <QPushButton>
#include <QSettings>
#include <cstring>

#include "desktop/database/workspace.h"
#include "desktop/look/house_style.h"
#include "desktop/look/portuguese.h"
#include "desktop/shell/desktop_host.h"
#include "desktop/shell/main_actions.h"
#include "desktop/shell/main_window.h"
#include "desktop/shell/sidebar.h"
#include "desktop/start/alert_board.h"
#include "far_fleet.h"
#include "history/act.h"
#include "key_waits.h"

namespace {

using bench::KeyWaits;
using desktop::MainWindow;

constexpr std::chrono::milliseconds kTrip{20};
constexpr int kVehicles = 500;

QDialog* Dialog() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }

void Close(KeyWaits& keys, const char* what) {
  keys.Do(what, 0, [] {
    if (Dialog() != nullptr) Dialog()->reject();
  });
}

void PressButton(KeyWaits& keys, const char* what, const char* text, long own) {
  keys.Do(what, own, [text] {
    for (auto* button : Dialog()->findChildren<QPushButton*>())
      if (button->text().remove('&') == QString::fromUtf8(text) || button->toolTip().startsWith(text))
        return button->click();
  });
}

/// The start page, and every page that the side bar leads to.
void Pages(KeyWaits& keys, MainWindow& window, const std::shared_ptr<zorCrmParvel::Store>& store) {
  keys.Do("opening, with the start page", 0,
          [&] { window.Open(std::make_unique<desktop::Workspace>(store)); });
  keys.Until([&] { return window.alerts().Total().has_value(); });
  keys.Do("to the side bar", 0, [&] { window.findChild<desktop::Sidebar*>()->setFocus(); });
  for (const desktop::ListEntry& entry : desktop::AllLists())
    keys.Press(std::string("side bar: ") + entry.group + ", " + entry.title, Qt::Key_Down);
}

void ShowList(KeyWaits& keys, MainWindow& window, const char* key) {
  keys.Do(std::string("list ") + key, 0, [&] { window.ShowList(key); });
  keys.Until([&] { return window.page()->table().model()->rowCount() > 0; });
}

void List(KeyWaits& keys, MainWindow& window) {
  ShowList(keys, window, "Gastos");
  keys.Press("16,000 rows: Ctrl+F", Qt::Key_F, 0, Qt::ControlModifier);
  keys.Type("search, letter by letter", "v10002");
  keys.Press("down, to the rows", Qt::Key_Down);
  for (const auto& [what, key] : {std::pair("down", Qt::Key_Down),
                                  {"page down", Qt::Key_PageDown},
                                  {"all rows again (Esc)", Qt::Key_Escape},
                                  {"End", Qt::Key_End},
                                  {"page up", Qt::Key_PageUp},
                                  {"Home", Qt::Key_Home}})
    keys.Press(what, key);
}

/// A record of the list shown: its ficha, through which Tab goes; of each field the module's own reads.
void Record(KeyWaits& keys, const std::string& what, long own, const std::vector<long>& fields) {
  keys.Press(what + ": ficha (Enter)", Qt::Key_Return, own);
  keys.Until([] { return Dialog() != nullptr; });
  for (std::size_t i = 0; i < fields.size(); ++i)
    keys.Press(what + ": Tab " + std::to_string(i + 1), Qt::Key_Tab, fields[i]);
}

/// A fill of a vehicle, with lookups and the ficha of a code above it, until it is stored.
void NewExpense(KeyWaits& keys, MainWindow& window) {
  keys.Press("new expense (Ctrl+N)", Qt::Key_N, 0, Qt::ControlModifier);
  keys.Until([] { return Dialog() != nullptr; });
  keys.Type("plate in small letters", "v100001");
  keys.Press("Tab, which reads the vehicle", Qt::Key_Tab, 2);
  keys.Press("Tab from the date", Qt::Key_Tab);
  keys.Press("F3, types of expense", Qt::Key_F3);
  keys.Press("Escape", Qt::Key_Escape);
  keys.Press("F3", Qt::Key_F3);
  keys.Type("search in the lookup", "gas");
  keys.Press("Enter, which reads the type", Qt::Key_Return, 1);
  keys.Press("F4, a new driver", Qt::Key_F4, 1);
  Close(keys, "closed again");
  keys.Type("driver", "m100000");
  keys.Press("Tab, which reads the driver", Qt::Key_Tab, 1);
  keys.Press("Tab from the journey", Qt::Key_Tab);
  keys.Type("quantity", "40");
  keys.Press("Tab from the quantity", Qt::Key_Tab);
  keys.Press("Tab from the price", Qt::Key_Tab);
  keys.Press("Tab from the cost", Qt::Key_Tab);
  keys.Type("kilometres", "200100");
  keys.Press("Tab, which reads the fill before", Qt::Key_Tab, 1);
  PressButton(keys, "Confirmar, with the history", "Confirmar", 7);
  PressButton(keys, "Sair, with the list again", "Sair", 0);
  keys.Until([&] { return Dialog() == nullptr && window.page()->table().model()->rowCount() > 16000; });
}

void Fichas(KeyWaits& keys, MainWindow& window) {
  Record(keys, "expense", 6, {2, 0, 1, 1, 0, 0, 0, 0, 1});
  PressButton(keys, "the expense before it", "Registo anterior", 8);
  Close(keys, "closed, with the list again");
  NewExpense(keys, window);
  ShowList(keys, window, "Viaturas");
  Record(keys, "vehicle, 285 fines and accidents", 15, {});
  // A tab reads the record that its first row shows, with the names of its codes.
  for (const long own : {1L, 3L, 0L, 0L, 1L, 2L, 6L, 4L, 4L, 0L, 0L})
    keys.Press("next tab", Qt::Key_PageDown, own, Qt::ControlModifier);
  Close(keys, "closed, with the list again");
  ShowList(keys, window, "Motoristas");
  Record(keys, "driver with ten licence classes", 11, {1, 0, 0});
  Close(keys, "closed, with the list again");
}

}  // namespace

int main(int argc, char** argv) {
  const bench::Folder folder("parvel-bench-window-keys-user");
  const std::string home = std::filesystem::path(folder.File()).parent_path().string();
  for (const char* place : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
    qputenv(place, QByteArray::fromStdString(home));
  std::filesystem::permissions(home, std::filesystem::perms::owner_all);
  if (qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setStyle(new desktop::HouseStyle);
  QApplication::setQuitOnLastWindowClosed(false);
  desktop::SpeakPortuguese();

  QSettings settings(QString::fromStdString(home + "/definicoes.ini"), QSettings::IniFormat);
  desktop::DesktopHost host(settings);
  history::PausingHost pausing(host);
  const platform::HostInstallation installation(pausing);
  KeyWaits keys;
  if (argc > 1 && std::strcmp(argv[1], "--statements") == 0) keys.PrintStatements();
  bench::TellTrips([&](const std::string& text, bench::Milliseconds took) { keys.Trip(text, took); });
  bench::FarFleet fleet("parvel-bench-window-keys", kVehicles);
  bench::DelayTrips(kTrip);
  MainWindow window(settings);
  host.SetMainWindow(&window);
  window.show();
  std::printf("%-52s %6s %6s %8s\n", "500 vehicles, 20 ms a trip", "trips", "own", "ms");
  std::thread user([&] {
    Pages(keys, window, fleet.store());
    List(keys, window);
    Fichas(keys, window);
    QMetaObject::invokeMethod(
        qApp, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
  });
  QApplication::exec();
  user.join();
  return keys.held() ? 0 : 1;
}
