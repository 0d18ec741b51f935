#pragma once

#include <QString>
#include <string>

#include "desktop/list/list_catalog.h"
#include "store/store.h"

namespace desktop {

/// What the user may not do in the database that is open, each with the reason and what to do about it; where
/// nothing stands in the way the reason is empty.
class Rights {
 public:
  /// Everything may be done.
  Rights() = default;
  /// `file`: the database is a file, and not on a server.
  Rights(zorCrmParvel::Refusals refusals, bool file) : refusals_(std::move(refusals)), file_(file) {}

  QString WhyNot(zorCrmParvel::TableUse use, const std::string& table) const;
  /// Of the records of a list.
  QString WhyNot(zorCrmParvel::TableUse use, const ListEntry& list) const;
  /// Why a ficha can only be looked at.
  QString WhyNotConfirm(const std::string& ficha) const;
  /// Why no record at all can be made or changed.
  QString WhyNothing() const;

 private:
  bool Refuses(zorCrmParvel::TableUse use, const std::string& table) const;

  zorCrmParvel::Refusals refusals_;
  bool file_ = false;
};

}  // namespace desktop
