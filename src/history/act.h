#pragma once

#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "history/keeping_store.h"
#include "platform/host.h"

namespace history {

/// One act of the user, from the press of a key or button until all that it set off is done: one operation of
/// the history, and one unit of what is written. One within another joins it. An error that leaves it keeps
/// what was written before it; a failure to keep that is told instead of it. `loads`: see
/// `KeepingStore::BeginAct`.
template <typename Work>
void Act(KeepingStore* store, const std::string& words, const Work& work, bool loads = true) {
  if (store == nullptr) return work();
  store->BeginAct(words, 0, loads);
  try {
    work();
  } catch (...) {
    store->EndAct();
    throw;
  }
  store->EndAct();
}

/// The same in the database that is open, if there is one that remembers: a window has one at a time.
template <typename Work>
void ActHere(const std::string& words, const Work& work, bool loads = true) {
  Act(OpenStores().empty() ? nullptr : OpenStores().back(), words, work, loads);
}

/// A host that holds nobody up while the user is asked: before a message or dialog comes to the screen, what
/// was written is kept. What a window does that opens above an act is acts of its own.
class PausingHost : public platform::Host {
 public:
  explicit PausingHost(platform::Host& host) : host_(host) {}

  int MsgBox(const std::string& text, int style, const std::string& title) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& initial) override;
  std::optional<std::string> OpenFile(const platform::FileDialog& dialog) override;
  void ShowModal(platform::Form& form, platform::Form* owner) override;
  std::string ShowLookup(platform::ListaPesquisa& list) override;
  void ShowReport(platform::MapaListagem& report) override;
  void OpenDocument(const std::string& path) override;
  std::string TemporaryFolder() override { return host_.TemporaryFolder(); }
  platform::Date Now() override { return host_.Now(); }

 private:
  platform::Host& host_;
};

}  // namespace history
