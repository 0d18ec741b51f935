#pragma once

#include <QApplication>
#include <QEvent>
#include <QTest>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "stand_in.h"

namespace bench {

/// Presses keys in a window from a thread beside it, and asks the window's thread for an answer all the time:
/// how long that takes is how long a key would wait. Of each key what its own statement takes is left out. To
/// be made on the window's thread.
class KeyWaits {
 public:
  using Act = std::function<void()>;

  /// On any thread: it waited for the server.
  void Trip(const std::string& text, Milliseconds took) {
    if (std::this_thread::get_id() != window_) return;
    const std::scoped_lock lock(mutex_);
    texts_.push_back(text);
    waited_ += took;
  }

  // On the thread beside the window.
  /// Does something on the window's thread and waits until nothing more comes of it. `own`: how many trips
  /// the module itself needs before the key is dealt with.
  void Do(const std::string& what, long own, const Act& act) {
    Measure(what, own, 1, [&](std::size_t) {
      const Milliseconds all = Ask(act);
      return all - Own(own);
    });
  }
  void Press(const std::string& what, Qt::Key key, long own = 0,
             Qt::KeyboardModifiers with = Qt::NoModifier) {
    Do(what, own, [key, with] { QTest::keyClick(Focus(), key, with); });
  }
  /// Each letter is a key of its own; the longest wait of them is told.
  void Type(const std::string& what, const std::string& text) {
    Measure(what, 0, text.size(),
            [&](std::size_t i) { return Ask([letter = text[i]] { QTest::keyClick(Focus(), letter); }); });
  }
  /// Waits until something holds; false when it doesn't within seconds.
  bool Until(const std::function<bool()>& holds) {
    const auto begin = std::chrono::steady_clock::now();
    bool held = false;
    while (!held && std::chrono::steady_clock::now() - begin < kLongest) Ask([&] { held = holds(); });
    held_ = held_ && held;
    return held;
  }

  /// Prints what went to the server from the window's thread as well.
  void PrintStatements() { statements_ = true; }
  bool held() const { return held_; }

 private:
  static constexpr Milliseconds kLimit{100};
  static constexpr std::chrono::milliseconds kAfterwards{400};
  static constexpr std::chrono::seconds kLongest{20};

  class Question : public QEvent {
   public:
    explicit Question(std::shared_ptr<std::promise<void>> answer)
        : QEvent(QEvent::User), answer_(std::move(answer)) {}
    ~Question() override { answer_->set_value(); }

   private:
    std::shared_ptr<std::promise<void>> answer_;
  };

  static QWidget* Focus() {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr) window = QApplication::activeWindow();
    return window->focusWidget() != nullptr ? window->focusWidget() : window;
  }

  /// How long the window's thread takes until it has done this, and what it had to do before it and at once
  /// after it.
  Milliseconds Ask(const Act& act) {
    const auto begin = std::chrono::steady_clock::now();
    auto answer = std::make_shared<std::promise<void>>();
    const std::future<void> answered = answer->get_future();
    if (act) QMetaObject::invokeMethod(qApp, act, Qt::QueuedConnection);
    QCoreApplication::postEvent(qApp, new Question(std::move(answer)), Qt::LowEventPriority);
    answered.wait();
    return std::chrono::steady_clock::now() - begin;
  }

  /// What the module's own trips took of those that there were.
  Milliseconds Own(long own) {
    const std::scoped_lock lock(mutex_);
    const auto trips = static_cast<double>(texts_.size());
    return trips == 0 ? Milliseconds(0) : waited_ * std::min(static_cast<double>(own) / trips, 1.0);
  }

  template <typename Key>
  void Measure(const std::string& what, long own, std::size_t keys, const Key& key) {
    {
      const std::scoped_lock lock(mutex_);
      texts_.clear();
      waited_ = {};
    }
    Milliseconds longest{0};
    for (std::size_t i = 0; i < keys; ++i) longest = std::max(longest, key(i));
    const auto begin = std::chrono::steady_clock::now();
    while (std::chrono::steady_clock::now() - begin < kAfterwards) {
      longest = std::max(longest, Ask({}));
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    Tell(what, own, longest);
  }

  void Tell(const std::string& what, long own, Milliseconds longest) {
    const std::scoped_lock lock(mutex_);
    const bool within = longest <= kLimit;
    held_ = held_ && within;
    std::printf("%-52s %6zu %6ld %8.0f%s\n", what.c_str(), texts_.size(), own, longest.count(),
                within ? "" : "  PASSED");
    if (statements_)
      for (const std::string& text : texts_) std::printf("      %.150s\n", text.c_str());
    std::fflush(stdout);
  }

  std::thread::id window_ = std::this_thread::get_id();
  std::mutex mutex_;
  std::vector<std::string> texts_;  // of trips from the window's thread since the key was pressed
  Milliseconds waited_{0};          // for them
  bool statements_ = false;
  bool held_ = true;
};

}  // namespace bench
