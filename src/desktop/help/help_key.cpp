#include "desktop/help/help_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>

#include "desktop/help/manual_reader.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

constexpr char kMessages[] = "mensagens";

void ShowHelpOn(QWidget& window) {
  const auto* box = qobject_cast<QMessageBox*>(&window);
  if (box == nullptr) {
    ShowManual(&window, FromQt(window.objectName()));
    return;
  }
  ShowManual(&window, kMessages).ShowMessage(box->text());
}

}  // namespace

HelpKey::HelpKey(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  const bool help = key->key() == Qt::Key_F1 && key->modifiers() == Qt::NoModifier;
  auto* widget = qobject_cast<QWidget*>(watched);
  QWidget* modal = QApplication::activeModalWidget();
  if (!help || modal == nullptr || widget == nullptr || widget->window() != modal) return false;
  if (!key->isAutoRepeat()) ShowHelpOn(*modal);
  return true;
}

}  // namespace desktop
