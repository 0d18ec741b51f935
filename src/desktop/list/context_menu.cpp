#include "desktop/list/context_menu.h"

#include <QMenu>

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

void FillMenu(QMenu& menu, const platform::PopUpMenu& commands, const std::function<void(long)>& run) {
  for (const platform::MenuItem& item : commands.Items()) {
    if (!item.visible) continue;
    QAction* action = menu.addAction(ToQt(item.caption) + KeyText(item.key));
    action->setToolTip(PlainToolTip(ToQt(item.toolTip)));
    action->setEnabled(item.enabled);
    QObject::connect(action, &QAction::triggered, &menu, [run, id = item.id] { run(id); });
  }
}

}  // namespace desktop
