#include "desktop/shell/message_box.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "desktop/look/text.h"
#include "host/error_text.h"
#include "platform/host.h"
#include "platform/runtime_error.h"

namespace desktop {
namespace {

struct BoxButton {
  int answer;
  const char* text;
  QMessageBox::ButtonRole role;
};

constexpr BoxButton kOkButton{platform::kOk, "OK", QMessageBox::AcceptRole};
constexpr BoxButton kCancelButton{platform::kCancel, "Cancelar", QMessageBox::RejectRole};
constexpr BoxButton kYesButton{platform::kYes, "&Sim", QMessageBox::YesRole};
constexpr BoxButton kNoButton{platform::kNo, "&Não", QMessageBox::NoRole};

/// The buttons by the lowest bits of a style; the last one declines.
std::vector<BoxButton> ButtonsOf(int style) {
  switch (style & 0xF) {
    case platform::kOkCancel:
      return {kOkButton, kCancelButton};
    case platform::kYesNoCancel:
      return {kYesButton, kNoButton, kCancelButton};
    case platform::kYesNo:
      return {kYesButton, kNoButton};
    default:
      return {kOkButton};
  }
}

QMessageBox::Icon IconOf(int style) {
  switch (style & 0xF0) {
    case platform::kQuestion:
      return QMessageBox::Question;
    case platform::kExclamation:
      return QMessageBox::Warning;
    case platform::kInformation:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

std::size_t DefaultOf(int style, std::size_t buttons) {
  const std::size_t wanted = style & platform::kDefaultButton3   ? 2
                             : style & platform::kDefaultButton2 ? 1
                                                                 : 0;
  return std::min(wanted, buttons - 1);
}

/// Lets a box be seen before a key can answer it: what was typed ahead, or is held down, was meant for the
/// window below.
class TypedAhead : public QObject {
 public:
  explicit TypedAhead(QMessageBox& box) {
    box.installEventFilter(this);
    for (QAbstractButton* button : box.buttons()) button->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    constexpr int kMoment = 500;  // milliseconds
    const QEvent::Type type = event->type();
    if (type == QEvent::Show) shown_.start();
    if (type != QEvent::KeyPress && type != QEvent::Shortcut) return false;
    const bool held = type == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->isAutoRepeat();
    return held || !shown_.hasExpired(kMoment);
  }

 private:
  QElapsedTimer shown_;
};

}  // namespace

void Run(QMessageBox& box) {
  const TypedAhead guard(box);
  box.exec();
}

int ShowMessage(QWidget* parent, const QString& text, int style, const QString& title) {
  QMessageBox box(parent);
  box.setWindowTitle(title);
  box.setTextFormat(Qt::PlainText);
  box.setText(WithLineBreaks(text));
  box.setIcon(IconOf(style));

  const std::vector<BoxButton> buttons = ButtonsOf(style);
  std::vector<QPushButton*> shown;
  shown.reserve(buttons.size());
  for (const BoxButton& button : buttons)
    shown.push_back(box.addButton(QString::fromUtf8(button.text), button.role));
  box.setDefaultButton(shown[DefaultOf(style, shown.size())]);
  box.setEscapeButton(shown.back());
  Run(box);
  for (std::size_t i = 0; i < shown.size(); ++i)
    if (box.clickedButton() == shown[i]) return buttons[i].answer;
  return buttons.back().answer;
}

ErrorText Describe(const std::exception& error) {
  if (const auto* known = dynamic_cast<const platform::RuntimeError*>(&error)) {
    const zorCrmParvel::ErrorText text = zorCrmParvel::TextOf(*known);
    return {WithLineBreaks(ToQt(text.message)), WithLineBreaks(ToQt(text.details))};
  }
  // The rooms around the module speak for themselves, and the system doesn't.
  const bool own = dynamic_cast<const std::runtime_error*>(&error) != nullptr &&
                   dynamic_cast<const std::system_error*>(&error) == nullptr;
  if (own) return {ToQt(error.what()), {}};
  return {QStringLiteral("A operação não foi concluída."), QStringLiteral("Erro: ") + ToQt(error.what())};
}

QString WithDetails(const ErrorText& text) {
  return text.details.isEmpty() ? text.headline
                                : text.headline + QStringLiteral("\n\nPormenores\n") + text.details;
}

void ShowError(QWidget* parent, const std::exception& error) { ShowError(parent, Describe(error)); }

void ShowError(QWidget* parent, const ErrorText& text) {
  QMessageBox box(parent);
  box.setWindowTitle(QStringLiteral("Erro"));
  box.setTextFormat(Qt::PlainText);
  box.setIcon(QMessageBox::Warning);
  box.setText(text.headline);
  box.setDetailedText(text.details);
  QPushButton* ok = box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
  box.setDefaultButton(ok);
  box.setEscapeButton(ok);
  Run(box);
}

bool Guarded(QWidget* parent, const std::function<void()>& act) {
  try {
    act();
    return true;
  } catch (const std::exception& error) {
    ShowError(parent, error);
    return false;
  }
}

}  // namespace desktop
