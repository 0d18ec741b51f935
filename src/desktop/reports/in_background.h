#pragma once

#include <QTimer>
#include <functional>
#include <type_traits>

#include "desktop/database/workspace.h"
#include "desktop/shell/message_box.h"
#include "reports/pedido.h"

namespace desktop {

/// Runs `read` on the database and hands what it gives to `done`, or its error to `failed`; neither once
/// `whom` has gone. A read that ends with `Cancelado` is told to nobody.
template <typename Read, typename Done>
void InBackground(Workspace& workspace, QObject* whom, Read read, Done done,
                  std::function<void(const ErrorText&)> failed) {
  QTimer::singleShot(0, whom, [store = workspace.store(), read, done, failed] {
    try {
      done(read(zorCrmParvel::DataAccessRef(store)));
    } catch (const reports::Cancelado&) {
    } catch (const std::exception& error) {
      failed(Describe(error));
    }
  });
}

}  // namespace desktop
