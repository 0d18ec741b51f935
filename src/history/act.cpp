#include "history/act.h"

namespace history {
namespace {

/// Puts the acts of all stores aside: what they wrote is kept, and what a timer reads meanwhile begins
/// nothing.
class AllAside {
 public:
  AllAside() {
    for (KeepingStore* store : OpenStores()) aside_.push_back(std::make_unique<KeepingStore::Aside>(*store));
  }

 private:
  std::vector<std::unique_ptr<KeepingStore::Aside>> aside_;
};

}  // namespace

int PausingHost::MsgBox(const std::string& text, int style, const std::string& title) {
  const AllAside aside;
  return host_.MsgBox(text, style, title);
}

std::string PausingHost::InputBox(const std::string& prompt, const std::string& title,
                                  const std::string& initial) {
  const AllAside aside;
  return host_.InputBox(prompt, title, initial);
}

std::optional<std::string> PausingHost::OpenFile(const platform::FileDialog& dialog) {
  const AllAside aside;
  return host_.OpenFile(dialog);
}

void PausingHost::ShowModal(platform::Form& form, platform::Form* owner) {
  const AllAside aside;
  host_.ShowModal(form, owner);
}

std::string PausingHost::ShowLookup(platform::ListaPesquisa& list) {
  const AllAside aside;
  return host_.ShowLookup(list);
}

void PausingHost::ShowReport(platform::MapaListagem& report) {
  const AllAside aside;
  host_.ShowReport(report);
}

void PausingHost::OpenDocument(const std::string& path) {
  const AllAside aside;
  host_.OpenDocument(path);
}

}  // namespace history
