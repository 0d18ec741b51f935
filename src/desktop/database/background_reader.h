#pragma once

#include <QObject>
#include <QPointer>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <type_traits>
#include <vector>

#include "desktop/shell/message_box.h"
#include "store/store.h"

namespace desktop {

/// A read that was asked for. It goes on whether or not somebody keeps this.
class ReadTicket {
 public:
  ReadTicket() = default;
  /// Nobody waits for it any more: nothing of it is delivered, and it ends at its next statement.
  void GiveUp() {
    if (wanted_) *wanted_ = false;
    wanted_.reset();
  }

 private:
  friend class BackgroundReader;
  std::shared_ptr<std::atomic<bool>> wanted_;
};

/// Reads a database away from the window's thread, on connections of its own, so that keys never wait for it.
/// Reads run side by side, a few at a time, in the order in which they were asked for. A database in memory
/// has no second connection: there they run on the window's thread, when it has nothing else to do.
///
/// A read gets a data-access object that is good for it alone; it writes nothing, and what it gives back
/// holds no recordset. It may ask the host for the time and use lists and records of the module, but no
/// dialogs and no fichas.
class BackgroundReader : public QObject {
  Q_OBJECT

 public:
  using StoreRef = std::shared_ptr<zorCrmParvel::Store>;
  using Failed = std::function<void(const ErrorText& failure)>;

  /// Reads the database that a store is on, for as long as this lives.
  explicit BackgroundReader(StoreRef store, QObject* parent = nullptr);
  /// Gives up what was asked for, and waits until nothing of it runs any more.
  ~BackgroundReader() override;

  /// Runs `read` (it takes a data-access object) and hands what it gives to `done`, or its error to `failed`;
  /// both on the window's thread, and neither once `whom` has gone.
  template <typename Read, typename Done>
  ReadTicket Ask(QObject* whom, Read read, Done done, const Failed& failed) {
    using Result = std::invoke_result_t<Read&, const StoreRef&>;
    auto result = std::make_shared<std::optional<Result>>();
    return Add({.wanted = {},
                .whom = whom,
                .read = [read, result](const StoreRef& bd) { result->emplace(read(bd)); },
                .done = [done, result] { done(std::move(**result)); },
                .failed = failed,
                .failure = {}});
  }
  /// Lets what is asked for wait until `Begin`: a window that is not painted yet has better to do.
  void Hold();
  void Begin();
  /// Waits for all that was asked for, held or not, and delivers it before it returns.
  void Finish();

 private:
  struct Job {
    std::shared_ptr<std::atomic<bool>> wanted;
    QPointer<QObject> whom;
    std::function<void(const StoreRef& bd)> read;
    std::function<void()> done;
    Failed failed;
    std::optional<ErrorText> failure;
  };
  using JobRef = std::shared_ptr<Job>;

  ReadTicket Add(Job job);
  void Staff();
  void Work();
  JobRef Next();
  void RunHere();
  void Deliver();
  static void Run(Job& job, const std::function<StoreRef()>& connection);

  StoreRef store_;
  std::function<StoreRef()> opener_;
  std::vector<std::thread> threads_;
  bool held_ = false;
  std::mutex mutex_;  // of what follows
  std::condition_variable changed_;
  std::deque<JobRef> waiting_;
  std::vector<JobRef> running_;
  std::deque<JobRef> finished_;
  bool over_ = false;
};

}  // namespace desktop
