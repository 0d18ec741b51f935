// The smallest program of the toolkit: an empty main window that ends when it has been painted.

#include <QApplication>
#include <QMainWindow>
#include <QTimer>

namespace {

class EmptyWindow : public QMainWindow {
 protected:
  void paintEvent(QPaintEvent*) override {
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
  }
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  EmptyWindow window;
  window.resize(1000, 640);
  window.show();
  return application.exec();
}
