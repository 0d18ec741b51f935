#include "desktop/reports/in_background.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>
#include <set>

namespace desktop {
namespace {

/// Those that run; of the window's thread alone.
std::set<QThread*>& Running() {
  static std::set<QThread*> threads;
  return threads;
}

struct Outcome {
  bool told = true;
  std::optional<ErrorText> failure;
};

Outcome Run(const BackgroundRead& job, const std::function<zorCrmParvel::DataAccessRef()>& open) {
  try {
    job.read(open());
    return {};
  } catch (const reports::Cancelado&) {
    return {false, {}};
  } catch (const std::exception& error) {
    return {true, Describe(error)};
  }
}

void Tell(const BackgroundRead& job, const QPointer<QObject>& whom, const Outcome& outcome) {
  if (whom == nullptr || !outcome.told) return;
  if (outcome.failure)
    job.failed(*outcome.failure);
  else
    job.done();
}

}  // namespace

void StartRead(Workspace& workspace, QObject* whom, const BackgroundRead& job) {
  const QPointer<QObject> listener(whom);
  const std::string path = workspace.file() != nullptr ? workspace.Place() : std::string();
  if (path.empty() || path == ":memory:") {
    const auto here = [listener, job, store = workspace.store()] {
      Tell(job, listener, Run(job, [&] { return zorCrmParvel::DataAccessRef(store); }));
    };
    QTimer::singleShot(0, whom, here);
    return;
  }
  const auto outcome = std::make_shared<Outcome>();
  QThread* const thread = QThread::create([job, path, outcome] {
    *outcome = Run(job, [&] { return zorCrmParvel::DataAccessRef(embedded::Database::Open(path)); });
  });
  Running().insert(thread);
  const auto ended = [thread, job, listener, outcome] {
    Running().erase(thread);
    thread->deleteLater();
    Tell(job, listener, *outcome);
  };
  QObject::connect(thread, &QThread::finished, qApp, ended);
  thread->start();
}

void WaitForReads() {
  for (QThread* thread : Running()) thread->wait();
}

}  // namespace desktop
