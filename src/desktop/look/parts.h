#pragma once

class QBoxLayout;
class QDialog;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QWidget;

namespace desktop {

/// The column in which a page of the window stands: no margins, and its title on top. The line of the title
/// is given back, for what stands at its other end.
QHBoxLayout* AddHeading(QBoxLayout& column, QLabel* title);

/// The last line of a dialog: "Cancelar", and the button that takes what was entered, which is the default.
void AddAnswers(QDialog& dialog, QBoxLayout& column, QPushButton* accept);

}  // namespace desktop
