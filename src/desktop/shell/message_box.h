#pragma once

#include <QString>
#include <exception>
#include <functional>

class QMessageBox;
class QWidget;

namespace desktop {

/// Shows a box until it is answered, which keys that were typed ahead don't do.
void Run(QMessageBox& box);

/// A modal message box by the module's style bits; the answer by the module's numbers. Closing it, or Escape,
/// is the answer that declines.
int ShowMessage(QWidget* parent, const QString& text, int style, const QString& title);

/// An error as the user reads it: what went wrong and what to do, and apart from that number, words and
/// source.
struct ErrorText {
  QString headline;
  QString details;  // empty when the headline says all
};
ErrorText Describe(const std::exception& error);
/// Both, one below the other, for a place that has no button to show the details with.
QString WithDetails(const ErrorText& text);

/// Shows an error in a box of its own, with its details behind a button.
void ShowError(QWidget* parent, const ErrorText& text);
void ShowError(QWidget* parent, const std::exception& error);

/// The boundary of an event: runs what the user set off; an error is shown and goes no further. False when
/// there was one.
bool Guarded(QWidget* parent, const std::function<void()>& act);

}  // namespace desktop
