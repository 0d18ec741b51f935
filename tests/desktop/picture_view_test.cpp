#include "desktop/ficha/picture_view.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThreadPool>
#include <QTimer>
#include <random>

namespace desktop_test {
namespace {

using desktop::PictureFrame;

constexpr int kPatience = 30000;  // milliseconds

class PictureFrameTest : public testing::Test {
 protected:
  /// A photo that no compression makes small.
  QString Noise(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    std::minstd_rand dice(1);
    for (int y = 0; y < height; ++y) {
      auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
      for (int x = 0; x < width; ++x) line[x] = QRgb(dice() | 0xff000000U);
    }
    QString file = folder.filePath("grande.jpg");
    EXPECT_TRUE(image.save(file, "JPG", 100));
    return file;
  }
  QString Plain(const QString& name, const QColor& color) {
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(color);
    QString file = folder.filePath(name);
    EXPECT_TRUE(image.save(file));
    return file;
  }
  void WaitForThreads() {
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
  }

  QTemporaryDir folder;
  PictureFrame frame{nullptr};
};

TEST_F(PictureFrameTest, ALargePhotoIsDecodedBesideTheWindowsOwnWork) {
  const QString photo = Noise(5000, 4000);
  ASSERT_GT(QFile(photo).size(), 20'000'000);
  QSignalSpy loaded(&frame, &PictureFrame::Loaded);
  int ticks = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
  timer.start(1);
  QElapsedTimer clock;
  clock.start();
  frame.Load(photo);
  const qint64 returned = clock.elapsed();
  EXPECT_TRUE(frame.picture().isNull());
  EXPECT_EQ(frame.text(), "A abrir a imagem…");
  ASSERT_TRUE(loaded.wait(kPatience));
  EXPECT_LT(returned, clock.elapsed() / 4);
  EXPECT_GT(ticks, 10) << "in " << clock.elapsed() << " ms";
  EXPECT_EQ(frame.picture().size(), QSize(2048, 1638));
}

TEST_F(PictureFrameTest, OnlyTheLastPictureAskedForIsShown) {
  const QString slow = Noise(2500, 2000);
  const QString fast = Plain("a.png", Qt::green);
  QSignalSpy loaded(&frame, &PictureFrame::Loaded);
  frame.Load(slow);
  frame.Load(fast);
  WaitForThreads();
  EXPECT_EQ(frame.picture().size(), QSize(40, 30));
  EXPECT_EQ(loaded.size(), 1);
  frame.Load(slow);
  frame.Clear();
  WaitForThreads();
  EXPECT_TRUE(frame.picture().isNull());
  EXPECT_EQ(frame.text(), "Sem imagem");
  auto gone = std::make_unique<PictureFrame>(nullptr);
  gone->Load(slow);
  gone.reset();
  WaitForThreads();
}

TEST_F(PictureFrameTest, TheGroundShowsBesideAPictureThatDoesNotFillItsPlace) {
  frame.SetGround(Qt::white);
  frame.resize(400, 60);
  frame.Load(Plain("a.png", Qt::green));
  WaitForThreads();
  const QImage drawn = frame.grab().toImage();
  EXPECT_EQ(drawn.pixelColor(1, 1), QColor(Qt::white));
  EXPECT_EQ(drawn.pixelColor(drawn.rect().center()), QColor(Qt::green));
}

TEST_F(PictureFrameTest, WhatIsNoPictureIsSaidSo) {
  const QString text = folder.filePath("carta.jpg");
  QFile file(text);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("Exmo. Senhor,");
  file.close();
  const QString cut = Noise(300, 200);
  ASSERT_TRUE(QFile::resize(cut, 100));
  for (const auto& [path, said] : {std::pair<QString, const char*>{text, "não é uma imagem"},
                                   {cut, "danificado"},
                                   {folder.filePath("falta.jpg"), "Não foi possível ler"}}) {
    SCOPED_TRACE(path.toStdString());
    frame.Load(Plain("antes.png", Qt::red));
    frame.Load(path);
    WaitForThreads();
    EXPECT_TRUE(frame.picture().isNull());
    EXPECT_TRUE(frame.text().contains(said)) << frame.text().toStdString();
  }
}

}  // namespace
}  // namespace desktop_test
