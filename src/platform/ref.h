#pragma once

#include <memory>
#include <utility>

#include "platform/runtime_error.h"

namespace platform {

/// A shared reference that may be unset. Using an unset one raises error 91, never undefined behaviour.
template <typename T>
class Ref {
 public:
  Ref() = default;
  Ref(std::nullptr_t) {}  // NOLINT(google-explicit-constructor): unset, as the language spells it
  template <typename U>
  Ref(std::shared_ptr<U> object) : object_(std::move(object)) {}  // NOLINT(google-explicit-constructor)
  template <typename U>
  Ref(const Ref<U>& other) : object_(other.shared()) {}  // NOLINT(google-explicit-constructor)

  T* operator->() const { return &Checked(); }
  T& operator*() const { return Checked(); }
  T* get() const { return object_.get(); }
  const std::shared_ptr<T>& shared() const { return object_; }
  void reset() { object_.reset(); }
  explicit operator bool() const { return object_ != nullptr; }
  friend bool operator==(const Ref& a, const Ref& b) { return a.object_ == b.object_; }

 private:
  T& Checked() const {
    if (!object_) throw RuntimeError(kObjectNotSet);
    return *object_;
  }

  std::shared_ptr<T> object_;
};

template <typename T, typename... Args>
Ref<T> MakeRef(Args&&... args) {
  return Ref<T>(std::make_shared<T>(std::forward<Args>(args)...));
}

}  // namespace platform
