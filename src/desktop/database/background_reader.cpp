#include "desktop/database/background_reader.h"

#include <algorithm>
#include <utility>

#include "platform/runtime_error.h"
#include "store/forwarding_store.h"

namespace desktop {
namespace {

using zorCrmParvel::RecordsetRef;
using zorCrmParvel::Store;

constexpr std::size_t kMostThreads = 3;

/// Ends a read that nobody waits for. No error of the module, which would look at it.
struct GivenUp {};

/// A connection for one read: it goes no further once the read was given up, and writes nothing.
class WantedStore : public store::ForwardingStore {
 public:
  WantedStore(std::shared_ptr<Store> connection, std::shared_ptr<std::atomic<bool>> wanted)
      : ForwardingStore(std::move(connection)), wanted_(std::move(wanted)) {}
  void BeginBatch() override { Refuse(); }

 protected:
  bool Execute(const std::string&) override { Refuse(); }
  RecordsetRef OpenForEditing(const std::string&) override { Refuse(); }
  RecordsetRef OpenForReading(const std::string& statement) override {
    if (!*wanted_) throw GivenUp();
    return ForwardingStore::OpenForReading(statement);
  }

 private:
  [[noreturn]] static void Refuse() {
    throw platform::RuntimeError(platform::kEngineFailure, "BackgroundReader",
                                 "Esta ligação é só para leitura.");
  }

  std::shared_ptr<std::atomic<bool>> wanted_;
};

}  // namespace

BackgroundReader::BackgroundReader(std::shared_ptr<Store> store, QObject* parent)
    : QObject(parent), store_(std::move(store)), opener_(store_->Opener()) {}

BackgroundReader::~BackgroundReader() {
  {
    const std::scoped_lock lock(mutex_);
    over_ = true;
    waiting_.clear();
    for (const JobRef& job : running_) *job->wanted = false;
  }
  changed_.notify_all();
  for (std::thread& thread : threads_) thread.join();
}

ReadTicket BackgroundReader::Add(Job job) {
  ReadTicket ticket;
  ticket.wanted_ = job.wanted = std::make_shared<std::atomic<bool>>(true);
  {
    const std::scoped_lock lock(mutex_);
    waiting_.push_back(std::make_shared<Job>(std::move(job)));
  }
  if (!held_) Staff();
  return ticket;
}

/// Has what waits read: by as many threads as there are reads, or here where there is no second connection.
void BackgroundReader::Staff() {
  std::size_t reads = 0;
  {
    const std::scoped_lock lock(mutex_);
    reads = running_.size() + waiting_.size();
  }
  if (!opener_) QMetaObject::invokeMethod(this, &BackgroundReader::RunHere, Qt::QueuedConnection);
  while (opener_ && threads_.size() < std::min(reads, kMostThreads))
    threads_.emplace_back([this] { Work(); });
  changed_.notify_all();
}

/// What a thread does: it opens its connection with its first read.
void BackgroundReader::Work() {
  std::shared_ptr<Store> connection;
  while (JobRef job = Next()) {
    Run(*job, [&] {
      if (connection == nullptr) connection = opener_();
      return connection;
    });
    {
      const std::scoped_lock lock(mutex_);
      std::erase(running_, job);
      finished_.push_back(std::move(job));  // what it holds goes on the window's thread
      if (!over_) QMetaObject::invokeMethod(this, &BackgroundReader::Deliver, Qt::QueuedConnection);
    }
    changed_.notify_all();
  }
}

/// The next read to run; null at the end.
BackgroundReader::JobRef BackgroundReader::Next() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return over_ || !waiting_.empty(); });
  if (over_) return nullptr;
  running_.push_back(waiting_.front());
  waiting_.pop_front();
  return running_.back();
}

void BackgroundReader::Run(Job& job, const std::function<std::shared_ptr<Store>()>& connection) {
  if (!*job.wanted) return;
  try {
    job.read(std::make_shared<WantedStore>(connection(), job.wanted));
  } catch (const GivenUp&) {
    *job.wanted = false;
  } catch (const std::exception& error) {
    job.failure = Describe(error);
  }
}

/// The next read on the window's own thread.
void BackgroundReader::RunHere() {
  if (waiting_.empty()) return;
  const JobRef job = waiting_.front();
  waiting_.pop_front();
  if (!waiting_.empty()) QMetaObject::invokeMethod(this, &BackgroundReader::RunHere, Qt::QueuedConnection);
  Run(*job, [this] { return store_; });
  finished_.push_back(job);
  Deliver();
}

void BackgroundReader::Deliver() {
  const auto next = [this]() -> JobRef {
    const std::scoped_lock lock(mutex_);
    if (finished_.empty()) return nullptr;
    JobRef job = finished_.front();
    finished_.pop_front();
    return job;
  };
  while (const JobRef job = next()) {
    if (!*job->wanted || job->whom == nullptr) continue;
    if (job->failure)
      job->failed(*job->failure);
    else
      job->done();
  }
}

void BackgroundReader::Hold() { held_ = true; }

void BackgroundReader::Begin() {
  if (std::exchange(held_, false)) Staff();
}

void BackgroundReader::Finish() {
  Begin();
  const auto rests = [this] { return waiting_.empty() && running_.empty(); };
  while (true) {
    while (!opener_ && !waiting_.empty()) RunHere();
    {
      std::unique_lock lock(mutex_);
      changed_.wait(lock, rests);
      if (finished_.empty()) return;
    }
    Deliver();
  }
}

}  // namespace desktop
