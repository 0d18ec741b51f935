#include "sqlserver/network_watch.h"

#include <sys/socket.h>

#include <charconv>
#include <filesystem>

namespace sqlserver {
namespace {

using std::chrono::steady_clock;

using AddressOf = int (*)(int, sockaddr*, socklen_t*);

/// One end of a connection to another machine; empty for anything else.
std::string End(int number, AddressOf addressOf) {
  sockaddr_storage address{};
  socklen_t length = sizeof address;
  if (addressOf(number, reinterpret_cast<sockaddr*>(&address), &length) != 0) return {};
  if (address.ss_family != AF_INET && address.ss_family != AF_INET6) return {};
  return {reinterpret_cast<const char*>(&address), length};
}

std::string Ends(int number) {
  const std::string there = End(number, &getpeername);
  return there.empty() ? there : there + End(number, &getsockname);
}

}  // namespace

std::vector<Socket> OpenSockets() {
  std::vector<Socket> sockets;
  std::error_code unknown;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", unknown)) {
    const std::string name = entry.path().filename();
    int number = -1;
    std::from_chars(name.data(), name.data() + name.size(), number);
    if (std::string ends = Ends(number); !ends.empty()) sockets.push_back({number, std::move(ends)});
  }
  return sockets;
}

NetworkWatch::NetworkWatch(std::vector<Socket> sockets) : sockets_(std::move(sockets)) {
  if (!sockets_.empty()) thread_ = std::thread([this] { Run(); });
}

NetworkWatch::~NetworkWatch() {
  if (!thread_.joinable()) return;
  {
    const std::scoped_lock lock(mutex_);
    over_ = true;
  }
  changed_.notify_one();
  thread_.join();
}

void NetworkWatch::Begin(std::chrono::milliseconds limit) {
  if (!thread_.joinable() || limit.count() == 0) return;
  {
    const std::scoped_lock lock(mutex_);
    end_ = steady_clock::now() + limit;
  }
  changed_.notify_one();
}

void NetworkWatch::Rest() {
  const std::scoped_lock lock(mutex_);
  end_.reset();
}

bool NetworkWatch::BrokeOff() const {
  const std::scoped_lock lock(mutex_);
  return broke_;
}

void NetworkWatch::Run() {
  std::unique_lock lock(mutex_);
  while (!over_) {
    if (!end_) {
      changed_.wait(lock);
    } else if (steady_clock::now() < *end_) {
      changed_.wait_until(lock, *end_);
    } else {
      ShutDown();
      broke_ = true;
      end_.reset();
    }
  }
}

void NetworkWatch::ShutDown() const {
  for (const Socket& socket : sockets_)
    if (Ends(socket.number) == socket.ends) shutdown(socket.number, SHUT_RDWR);
}

}  // namespace sqlserver
