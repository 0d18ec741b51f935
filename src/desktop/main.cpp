#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <iostream>
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

/// Does what can wait when the window has been painted once.
class OncePainted : public QObject {
 public:
  explicit OncePainted(std::function<void()> act) : act_(std::move(act)) {}
  bool eventFilter(QObject* window, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    window->removeEventFilter(this);
    QTimer::singleShot(0, qApp, act_);
    return false;
  }

 private:
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
  window.Open(std::move(workspace));
  if (!options.list.isEmpty()) window.ShowList(FromQt(options.list).c_str());
  OncePainted painted([&options] { options.until_painted ? QCoreApplication::exit(0) : SetIcon(); });
  window.installEventFilter(&painted);
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
  const QTemporaryDir screen;
  if (!options.picture.isEmpty() && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) UseScreenOfItsOwn(screen);
  options.password = store::TakePassword();
  int arguments = 1;  // the words are the program's own, not Qt's
  QApplication application(arguments, argv);
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
