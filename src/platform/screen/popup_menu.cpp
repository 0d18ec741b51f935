#include "platform/screen/popup_menu.h"

namespace platform {

MenuItem& PopUpMenu::Add(long id, std::string caption) {
  items_.push_back({.id = id, .caption = std::move(caption), .toolTip = {}});
  return items_.back();
}

MenuItem* PopUpMenu::Find(long id) {
  for (MenuItem& item : items_)
    if (item.id == id) return &item;
  return nullptr;
}

const MenuItem* PopUpMenu::OfKey(int key) const {
  for (const MenuItem& item : items_)
    if (item.key == key && item.visible && item.enabled) return &item;
  return nullptr;
}

}  // namespace platform
