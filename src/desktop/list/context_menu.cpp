#include "desktop/list/context_menu.h"

#include <QAction>
#include <QMenu>
#include <QVariant>

#include "desktop/look/text.h"
#include "platform/screen/control.h"

namespace desktop {
namespace {

/// A key as menus show it, behind a tab.
QString KeyText(int key) {
  return key == platform::kKeyDelete ? QStringLiteral("\tDel")
         : key == platform::kKeyF2   ? QStringLiteral("\tF2")
                                     : QString();
}

}  // namespace

void FillMenu(QMenu& menu, const platform::PopUpMenu& commands, const std::function<void(long)>& run,
              const std::function<QString(long)>& whyNot) {
  menu.setToolTipsVisible(true);
  for (const platform::MenuItem& item : commands.Items()) {
    if (!item.visible) continue;
    QAction* action = menu.addAction(ToQt(item.caption) + KeyText(item.key));
    action->setToolTip(PlainToolTip(ToQt(item.toolTip)));
    Allow(*action, item.enabled, whyNot ? whyNot(item.id) : QString());
    QObject::connect(action, &QAction::triggered, &menu, [run, id = item.id] { run(id); });
  }
}

void Allow(QAction& action, bool enabled, const QString& whyNot) {
  constexpr char kUsual[] = "dica";
  action.setEnabled(enabled && whyNot.isEmpty());
  const bool told = action.property(kUsual).isValid();
  if (whyNot.isEmpty() && !told) return;
  if (!told) action.setProperty(kUsual, action.toolTip());
  action.setToolTip(whyNot.isEmpty() ? action.property(kUsual).toString() : PlainToolTip(whyNot));
}

}  // namespace desktop
