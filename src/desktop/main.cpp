#include <QApplication>
#include <QFontDatabase>
#include <QIcon>
#include <QLocale>
#include <QPointer>
#include <QTemporaryDir>
#include <QTimer>
#include <chrono>
#include <functional>
#include <iostream>
#include <optional>
#include <thread>
#include <utility>

#include "desktop/look/house_style.h"
#include "desktop/look/portuguese.h"
#include "desktop/look/text.h"
#include "desktop/shell/desktop_host.h"
#include "desktop/shell/main_window.h"
#include "desktop/shell/message_box.h"
#include "desktop/shell/picture.h"
#include "desktop/shell/start_up.h"
#include "history/act.h"
#include "store/password.h"

namespace {

using namespace desktop;

constexpr int kFailure = 3;

constexpr auto kPatience = std::chrono::seconds(1);

/// Does what can wait when a window has been painted once; or after a while, since one that starts as an icon
/// is not painted.
class OncePainted : public QObject {
 public:
  OncePainted(QWidget& window, std::function<void()> act) : window_(window), act_(std::move(act)) {
    window_.installEventFilter(this);
    QTimer::singleShot(kPatience, this, &OncePainted::Act);
  }
  bool eventFilter(QObject* /*window*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) QTimer::singleShot(0, this, &OncePainted::Act);
    return false;
  }

 private:
  void Act() {
    window_.removeEventFilter(this);
    if (const auto act = std::exchange(act_, nullptr)) act();
  }

  QWidget& window_;
  std::function<void()> act_;
};

/// The theme's folders are looked through for it.
void SetIcon() { QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("parvel"))); }

int RunWindow(QApplication& application, Options& options) {
  QSettings settings;
  KeepPrivate(settings);
  DesktopHost host(settings);
  history::PausingHost pausing(host);
  const platform::HostInstallation installation(pausing);
  std::unique_ptr<Workspace> workspace = OpenAtStart(options, settings, nullptr);
  options.password.reset();  // the connection keeps it, to connect anew
  if (workspace == nullptr) return 0;
  if (options.demo) workspace->FillDemo();
  MainWindow window(settings);
  host.SetMainWindow(&window);
  host.AskRights([&window](const std::string& ficha) { return window.WhyNotConfirm(ficha); });
  const QPointer<BackgroundReader> reader(&workspace->reader());
  reader->Hold();
  window.Open(std::move(workspace));
  if (!options.list.isEmpty()) window.ShowList(FromQt(options.list).c_str());
  const OncePainted painted(window, [&] {
    if (options.until_painted) return QCoreApplication::exit(0);
    if (reader != nullptr) reader->Begin();
    SetIcon();
  });
  window.show();
  return application.exec();
}

/// Nobody is there to answer: a database that can't be used is an error, and nothing is remembered.
int RunPicture(const Options& options) {
  QTemporaryDir forgotten;
  QSettings settings(forgotten.filePath(QStringLiteral("retrato.ini")), QSettings::IniFormat);
  DesktopHost host(settings);
  history::PausingHost pausing(host);
  const platform::HostInstallation installation(pausing);
  auto workspace = OpenUnasked(options, settings);
  if (options.demo) workspace->FillDemo();
  MainWindow window(settings);
  host.SetMainWindow(&window);
  host.AskRights([&window](const std::string& ficha) { return window.WhyNotConfirm(ficha); });
  window.Open(std::move(workspace));
  window.ShowList(options.list.isEmpty() ? "Marcas" : FromQt(options.list).c_str());
  window.show();
  if (TakePicture(window, options)) return 0;
  std::cerr << "Não foi possível escrever " << FromQt(options.picture) << ".\n";
  return kFailure;
}

}  // namespace

int main(int argc, char** argv) {
  QStringList words;
  for (int i = 1; i < argc; ++i) words << QString::fromLocal8Bit(argv[i]);
  Options options;
  if (const std::optional<Reply> reply = ReadOptions(words, options)) {
    (reply->exit_code == 0 ? std::cout : std::cerr) << FromQt(reply->text);
    return reply->exit_code;
  }
  std::optional<QTemporaryDir> screen;
  if (!options.picture.isEmpty() && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    UseScreenOfItsOwn(screen.emplace());
  options.password = store::TakePassword();
  int arguments = 1;  // the words are the program's own, not Qt's
  QApplication application(arguments, argv);
  // Which fonts there are takes long to find out; the database is opened meanwhile.
  const std::jthread fonts([] { QFontDatabase::families(); });
  QApplication::setOrganizationName(QStringLiteral("parvel"));
  QApplication::setApplicationName(QStringLiteral("parvel-desktop"));
  QGuiApplication::setDesktopFileName(QStringLiteral("pt.parvel.Parvel"));
  QApplication::setStyle(new HouseStyle);
  QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Portugal));
  SpeakPortuguese();
  if (options.dark) UseDarkColors();
  try {
    return options.picture.isEmpty() ? RunWindow(application, options) : RunPicture(options);
  } catch (const std::exception& error) {
    std::cerr << FromQt(WithDetails(Describe(error))) << '\n';
    return kFailure;
  }
}
