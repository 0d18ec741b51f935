#include "desktop/ficha/input_view.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTextCursor>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "platform/regional.h"

namespace desktop {
namespace {

constexpr int kWidestField = 46;  // characters; longer texts scroll
constexpr int kNarrowestField = 4;
constexpr int kNarrowLongField = 24;  // the least that fields for longer texts show
constexpr int kNumberField = 10;
constexpr int kNoteLines = 3;

/// Several lines, which grow with the window from the few that they begin with.
class Notes : public QPlainTextEdit {
 public:
  using QPlainTextEdit::QPlainTextEdit;
  QSize sizeHint() const override {
    const int frame = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    return {QPlainTextEdit::sizeHint().width(), fontMetrics().lineSpacing() * kNoteLines + frame};
  }
};

/// A pasted text without the line breaks that a single line can't show.
QString OneLine(const QString& text) {
  if (!text.contains(QLatin1Char('\n')) && !text.contains(QChar::LineSeparator)) return text;
  QString line = WithLineBreaks(text).trimmed();
  line.replace(QLatin1Char('\n'), QLatin1Char(' '));
  return line.replace(QChar::LineSeparator, QLatin1Char(' '));
}

}  // namespace

InputView::InputView(platform::zor_input& field, UserActs& acts, QWidget* parent)
    : ControlView(field, acts), field_(field) {
  field.tipo_campo == 1 ? MakeNotes(parent) : MakeLine(parent);
}

void InputView::MakeLine(QWidget* parent) {
  line_ = new QLineEdit(parent);
  line_->setAcceptDrops(false);
  if (field_.Numeric()) {
    line_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    line_->installEventFilter(this);
  }
  if (field_.Numeric() && field_.maxlength == 0)
    line_->setFixedWidth(WidthFor(kNumberField, line_));
  else if (field_.maxlength > 0 && field_.maxlength <= kWidestField)
    line_->setFixedWidth(WidthFor(field_.maxlength, line_));
  else
    line_->setMinimumWidth(WidthFor(kNarrowLongField, line_));
  connect(line_, &QLineEdit::textEdited, this, &InputView::Typed);
  connect(line_, &QLineEdit::selectionChanged, this, &InputView::SelectionMoved);
  connect(line_, &QLineEdit::cursorPositionChanged, this, &InputView::SelectionMoved);
}

void InputView::MakeNotes(QWidget* parent) {
  notes_ = new Notes(parent);
  notes_->setAcceptDrops(false);
  notes_->setTabChangesFocus(true);
  notes_->setMinimumWidth(WidthFor(kNarrowLongField, notes_));
  notes_->setMinimumHeight(notes_->sizeHint().height());
  notes_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::MinimumExpanding);
  connect(notes_, &QPlainTextEdit::textChanged, this, [this] {
    if (!acts().IsSyncing()) Typed(notes_->toPlainText());
  });
}

bool InputView::eventFilter(QObject*, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  const bool mark = key.key() == Qt::Key_Period || key.key() == Qt::Key_Comma;
  if (!mark || !key.modifiers().testFlag(Qt::KeypadModifier)) return false;
  line_->insert(QString(QLatin1Char(platform::Regional::Current().decimal)));
  return true;
}

QWidget* InputView::widget() const {
  return line_ != nullptr ? static_cast<QWidget*>(line_) : static_cast<QWidget*>(notes_);
}

int InputView::WidthFor(int characters, const QWidget* widget) {
  const int shown = std::clamp(characters, kNarrowestField, kWidestField);
  const QFontMetrics metrics = widget->fontMetrics();
  // Codes are in capitals, names mostly aren't: the shorter a field, the wider its characters.
  const int wide = std::min(shown, 12);
  return wide * metrics.horizontalAdvance(QLatin1Char('D')) + (shown - wide) * metrics.averageCharWidth() +
         Em(widget);
}

void InputView::SyncContent() {
  const bool active = IsActive();
  ShowText(ShownText());
  ShowState(field_.Enabled);
  if (active && (!was_active_ || field_.SelStart != start_ || field_.SelLength != length_)) ShowSelection();
  was_active_ = active;
}

QString InputView::ShownText() const { return ToQt(IsActive() ? field_.Text : field_.DisplayText()); }

void InputView::ShowText(const QString& text) {
  if (line_ != nullptr && line_->text() != text) {
    line_->setText(text);
    if (!IsActive()) line_->setCursorPosition(0);
  }
  if (notes_ != nullptr && notes_->toPlainText() != text) {
    const QSignalBlocker blocker(notes_);
    notes_->setPlainText(text);
  }
}

void InputView::ShowSelection() {
  start_ = field_.SelStart;
  length_ = field_.SelLength;
  if (line_ == nullptr || start_ > line_->text().size()) return;
  const QSignalBlocker blocker(line_);
  if (length_ > 0)
    line_->setSelection(start_, length_);
  else if (!was_active_ && !line_->hasSelectedText())
    line_->selectAll();
}

void InputView::ShowState(bool editable) {
  QWidget* shown = widget();
  if (shown->isEnabled() == editable) return;
  shown->setEnabled(editable);
  SetLocked(shown, !editable);
}

void InputView::Typed(const QString& text) {
  const QString wanted = line_ != nullptr ? OneLine(text) : text;
  const qsizetype added = wanted.size() - ToQt(field_.Text).size();
  const int caret = line_ != nullptr ? line_->cursorPosition() : notes_->textCursor().position();
  bool accepted = true;
  acts().Act([&] { accepted = acts().form().UserTypes(field_, FromQt(wanted)); });
  if (!accepted) Refused(wanted, added, std::max(0, caret - static_cast<int>(added)));
}

void InputView::Refused(const QString& text, qsizetype added, int caret) {
  if (line_ != nullptr) line_->setCursorPosition(caret);
  if (notes_ != nullptr) {
    QTextCursor cursor = notes_->textCursor();
    cursor.setPosition(std::min(caret, static_cast<int>(notes_->toPlainText().size())));
    notes_->setTextCursor(cursor);
  }
  const QLocale portuguese(QLocale::Portuguese, QLocale::Portugal);
  QString notice = QStringLiteral("Máximo de %1 caracteres").arg(field_.maxlength);
  if (added > 1)
    notice += QStringLiteral(": o texto colado dava %1 e não foi aceite")
                  .arg(portuguese.toString(static_cast<qlonglong>(text.size())));
  acts().Notice(notice + QLatin1Char('.'));
}

void InputView::SelectionMoved() {
  if (acts().IsSyncing() || !IsActive()) return;
  start_ = field_.SelStart = line_->hasSelectedText() ? line_->selectionStart() : line_->cursorPosition();
  length_ = field_.SelLength = line_->hasSelectedText() ? static_cast<int>(line_->selectedText().size()) : 0;
}

}  // namespace desktop
