#pragma once

#include <QPointer>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>

#include "desktop/database/workspace.h"
#include "desktop/shell/message_box.h"
#include "reports/pedido.h"

namespace desktop {

/// A read of the database, and what is done with it on the window's thread.
struct BackgroundRead {
  std::function<void(const zorCrmParvel::DataAccessRef& database)> read;
  std::function<void()> done;
  std::function<void(const ErrorText& failure)> failed;
};

/// Runs a read on a thread with a connection of its own. A database in memory and one on a server have one
/// connection: there it runs on the window's thread, when that has nothing else to do. Nothing is told once
/// `whom` has gone, nor of a read that ends with `Cancelado`.
void StartRead(Workspace& workspace, QObject* whom, const BackgroundRead& job);
/// Waits until no read holds a database any more; what they found is still told.
void WaitForReads();

/// The same for a `read` that gives something back, which `done` takes.
template <typename Read, typename Done>
void InBackground(Workspace& workspace, QObject* whom, Read read, Done done,
                  std::function<void(const ErrorText&)> failed) {
  using Result = std::invoke_result_t<Read&, const zorCrmParvel::DataAccessRef&>;
  const auto result = std::make_shared<std::optional<Result>>();
  StartRead(workspace, whom,
            {[read, result](const zorCrmParvel::DataAccessRef& database) { result->emplace(read(database)); },
             [done, result] { done(std::move(**result)); }, std::move(failed)});
}

}  // namespace desktop
