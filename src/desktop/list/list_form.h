#pragma once

#include "desktop/list/list_page.h"

namespace desktop {

/// Where a list's grids live; never shown as a form.
class ListPage::ListForm : public platform::Form {
 public:
  platform::SGGrid master{*this, "GridMaster"};
  platform::SGGrid detail{*this, "GridDetail"};
};

}  // namespace desktop
