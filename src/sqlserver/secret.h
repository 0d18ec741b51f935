#pragma once

#include <cstring>
#include <string>

namespace sqlserver {

/// Overwrites a text that nobody may find in memory later.
template <typename Text>
void Wipe(Text& text) {
  explicit_bzero(text.data(), text.size() * sizeof(typename Text::value_type));
  text.clear();
}

/// A password: each copy is overwritten when it goes.
class Secret {
 public:
  Secret() = default;
  Secret(std::string text) : text_(text) { Wipe(text); }  // NOLINT(google-explicit-constructor)
  Secret(const char* text) : text_(text) {}               // NOLINT(google-explicit-constructor)
  ~Secret() { Wipe(text_); }
  Secret(const Secret&) = default;
  Secret& operator=(const Secret& other) {
    if (this != &other) Wipe(text_);
    text_ = other.text_;
    return *this;
  }

  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace sqlserver
