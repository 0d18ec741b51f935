// The smallest program of the toolkit: an empty main window that ends when it has been painted. It is as
// large as the program's own at its first start: most of what painting an empty window takes is the memory of
// its picture.

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
  window.resize(1368, 874);
  window.show();
  return application.exec();
}
