#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>

#include "desktop/look/house_style.h"
#include "desktop/look/portuguese.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setStyle(new desktop::HouseStyle);
  QApplication::setQuitOnLastWindowClosed(false);
  QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Portugal));
  desktop::SpeakPortuguese();
  return RUN_ALL_TESTS();
}
