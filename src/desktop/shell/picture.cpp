#include "desktop/shell/picture.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPalette>
#include <QTabBar>
#include <QTemporaryDir>
#include <QThreadPool>
#include <QTimer>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/shell/main_window.h"
#include "desktop/start/alert_board.h"

namespace desktop {
namespace {

constexpr int kWidth = 84;  // in lines of text
constexpr int kHeight = 46;

/// For the toolkit; large enough for any ficha at any scale.
constexpr char kScreen[] = R"({"screens":[{"name":"retrato","x":0,"y":0,"width":7680,"height":4320,)"
                           R"("logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]})";

/// A dialog with a plain frame and title: there is no window manager to give it one.
void PaintDialog(QPainter& painter, QWidget& dialog, const QPoint& place) {
  const QPalette palette = dialog.palette();
  const QRect inside(place, dialog.size());
  const QRect bar = inside.adjusted(0, -Em(&dialog) * 2, 0, -inside.height());
  painter.fillRect(bar, Blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.12));
  painter.setPen(palette.color(QPalette::WindowText));
  painter.drawText(bar, Qt::AlignCenter, dialog.windowTitle());
  painter.drawPixmap(place, dialog.grab());
  painter.setPen(Blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.4));
  painter.drawRect(bar.united(inside).adjusted(-1, -1, 0, 0));
}

/// The window's picture with the dialogs that are open over it.
QImage Paint(MainWindow& window) {
  QPixmap picture = window.grab();
  QPainter painter(&picture);
  for (QWidget* dialog : QApplication::topLevelWidgets()) {
    if (!dialog->isVisible() || !dialog->isModal()) continue;
    const QSize room = (window.size() - dialog->size()) / 2;
    PaintDialog(painter, *dialog, {room.width(), room.height()});
  }
  painter.end();
  return picture.toImage();
}

void TurnToTab(int number) {
  const QWidget* dialog = QApplication::activeModalWidget();
  auto* tabs = dialog != nullptr ? dialog->findChild<QTabBar*>() : nullptr;
  if (tabs != nullptr && number > 0) tabs->setCurrentIndex(number - 1);
}

void CloseDialogs() {
  while (QWidget* dialog = QApplication::activeModalWidget()) dialog->close();
}

}  // namespace

void UseScreenOfItsOwn(const QTemporaryDir& folder) {
  QFile description(folder.filePath(QStringLiteral("ecra.json")));
  const bool described =
      description.open(QIODevice::WriteOnly) && description.write(kScreen) > 0 && description.flush();
  qputenv("QT_QPA_PLATFORM",
          described ? "offscreen:configfile=" + QFile::encodeName(description.fileName()) : "offscreen");
}

void UseDarkColors() {
  QPalette palette;
  const QColor window(38, 40, 43);
  const QColor text(232, 232, 232);
  const QColor muted(140, 142, 145);
  palette.setColor(QPalette::Window, window);
  palette.setColor(QPalette::Base, QColor(28, 30, 32));
  palette.setColor(QPalette::AlternateBase, window);
  palette.setColor(QPalette::Button, QColor(56, 59, 63));
  palette.setColor(QPalette::ToolTipBase, window);
  palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::PlaceholderText, muted);
  for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, muted);
  }
  QApplication::setPalette(palette);
}

bool TakePicture(MainWindow& window, const Options& options) {
  window.resize(Em(&window) * kWidth, Em(&window) * kHeight);
  window.alerts().Finish();
  QImage picture;
  const auto take = [&] {
    TurnToTab(options.tab.toInt());
    QApplication::processEvents();
    QThreadPool::globalInstance()->waitForDone();  // photos
    QApplication::processEvents();
    picture = Paint(window);
    CloseDialogs();
  };
  if (options.first_record || !options.ficha.isEmpty()) {
    QTimer::singleShot(0, &window, take);
    if (options.first_record)
      window.page()->Edit();
    else
      window.workspace()->sistema().MostraFicha(FromQt(options.ficha));
  }
  if (picture.isNull()) take();
  return picture.save(options.picture);
}

}  // namespace desktop
