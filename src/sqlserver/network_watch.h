#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace sqlserver {

/// The end of a connection on this machine, as the system knows it.
struct Socket {
  int number = -1;
  std::string ends;  // both addresses, by which a number that was given away again is told

  bool operator==(const Socket&) const = default;
};

/// The connections to other machines that the program has open.
std::vector<Socket> OpenSockets();

/// Breaks off calls to a server that has gone silent. Drivers ask a silent server to stop and wait for its
/// answer, some several times over; once the sockets are shut down they come back at once.
class NetworkWatch {
 public:
  /// For a connection whose sockets are these; with none there is nothing to watch.
  explicit NetworkWatch(std::vector<Socket> sockets);
  ~NetworkWatch();
  NetworkWatch(const NetworkWatch&) = delete;
  NetworkWatch& operator=(const NetworkWatch&) = delete;

  /// From now on a call may take so long; 0: for ever. To be ended by `Rest`.
  void Begin(std::chrono::milliseconds limit);
  void Rest();
  /// True once a call was broken off: the connection is of no use any more.
  bool BrokeOff() const;

 private:
  void Run();
  void ShutDown() const;

  std::vector<Socket> sockets_;
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<std::chrono::steady_clock::time_point> end_;  // of the call under way
  bool broke_ = false;
  bool over_ = false;
  std::thread thread_;
};

/// A call under way. Without a watch it may take for ever.
class WatchedCall {
 public:
  WatchedCall(NetworkWatch* watch, std::chrono::milliseconds limit) : watch_(watch) {
    if (watch_ != nullptr) watch_->Begin(limit);
  }
  ~WatchedCall() {
    if (watch_ != nullptr) watch_->Rest();
  }
  WatchedCall(const WatchedCall&) = delete;
  WatchedCall& operator=(const WatchedCall&) = delete;

 private:
  NetworkWatch* watch_;
};

}  // namespace sqlserver
