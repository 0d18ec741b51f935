#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <memory>

#include "desktop/shell/main_window.h"
#include "user.h"

namespace desktop_test {

/// The main window before the user, on an empty database.
class OpenWindow : public testing::Test {
 protected:
  OpenWindow() {
    window.Open(std::make_unique<desktop::Workspace>(":memory:"));
    desk.host.SetMainWindow(&window);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  const zorCrmParvel::DataAccessRef& bd() { return window.workspace()->sistema().ICrmSistema_ZorDataAccess; }

  Desk desk;
  desktop::MainWindow window{desk.settings};
};

}  // namespace desktop_test
