#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QPushButton;

namespace desktop {

/// A text in the middle of a place that has nothing else to show, with a button that does something about it.
class MessagePage : public QWidget {
  Q_OBJECT

 public:
  explicit MessagePage(QWidget* parent);

  /// Without a text, the button is left out.
  void Show(const QString& headline, const QString& details, const QString& button,
            std::function<void()> act);
  QString Headline() const;
  QString Details() const;
  QPushButton* button() const { return button_; }

 private:
  QLabel* headline_;
  QLabel* details_;
  QPushButton* button_;
  std::function<void()> act_;
};

}  // namespace desktop
