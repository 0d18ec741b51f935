#include "desktop/help/help_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>

#include "desktop/help/manual_reader.h"
#include "desktop/look/text.h"
#include "manual/pages.h"

namespace desktop {
namespace {

constexpr char kMessages[] = "mensagens";

/// A dialog of no subject of its own, a file's or one question, belongs to what it was opened from.
std::string SubjectOf(const QWidget& window) {
  for (const QWidget* widget = &window; widget != nullptr; widget = widget->parentWidget()) {
    std::string name = FromQt(widget->objectName());
    if (manual::PageAbout(name).name != manual::kIndex) return name;
  }
  return {};
}

void ShowHelpOn(QWidget& window) {
  const auto* box = qobject_cast<QMessageBox*>(&window);
  if (box == nullptr) {
    ShowManual(&window, SubjectOf(window));
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
