#include <QAbstractButton>
#include <QBoxLayout>
#include <QEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "desktop/ficha/ficha_words.h"
#include "desktop/ficha/form_dialog.h"
#include "desktop/look/look.h"
#include "desktop/shell/message_box.h"
#include "entry/like_last.h"
#include "entry/new_event.h"

namespace desktop {
namespace {

/// The box in which a widget stands, and its place there.
std::pair<QBoxLayout*, int> BoxOf(QLayout* layout, QWidget* widget) {
  for (int i = 0; layout != nullptr && i < layout->count(); ++i) {
    if (layout->itemAt(i)->widget() == widget) return {qobject_cast<QBoxLayout*>(layout), i};
    const auto found = BoxOf(layout->itemAt(i)->layout(), widget);
    if (found.first != nullptr) return found;
  }
  return {nullptr, 0};
}

/// The button beside a field, which shows what can stand there; null for most.
platform::PushButton* ListBeside(const platform::Form& form, const platform::Control* field) {
  const platform::Layout& layout = form.layout;
  const auto in = [field](const platform::LayoutBlock& block) -> platform::PushButton* {
    for (const platform::LayoutRow& row : block.rows)
      for (const platform::LayoutField& one : row)
        if (one.field == field && one.list != nullptr) return one.list;
    return nullptr;
  };
  if (platform::PushButton* list = in(layout.head)) return list;
  for (const platform::LayoutBlock& page : layout.pages)
    if (platform::PushButton* list = in(page)) return list;
  return nullptr;
}

}  // namespace

/// What the history calls the act: "Gastos: Confirmar".
std::string FormDialog::ActWords() const {
  if (pressed_ == nullptr) return form_.Caption;
  std::string button = pressed_->Caption;
  std::erase(button, '&');
  return form_.Caption + ": " + button;
}

void FormDialog::Press(platform::PushButton& button) {
  Pressing(button, [&] { form_.UserPresses(button); });
}

/// What a button does, pressed by the pointer or by Enter.
void FormDialog::Pressing(platform::PushButton& button, const std::function<void()>& press) {
  pressed_ = &button;
  const bool confirms = &button == form_.layout.accent;
  if (confirms) aids_->BeforeButton();
  Act([&] {
    aids_->Spell();
    record_ = TitleOf(form_);
    press();
  });
  pressed_ = nullptr;
  if (!confirms || form_.IsClosed()) return;
  Guarded(this, [this] { aids_->AfterButton(record_); });
  aids_->Show();
}

/// Beside the button that opens an event of a tab, one that opens a new event.
void FormDialog::AddNewButtons() {
  for (const entry::EventButton& button : entry::EventButtonsOf(form_)) {
    QWidget* edit = WidgetOf(*button.edit);
    if (edit == nullptr || edit->parentWidget() == nullptr) continue;
    const auto [box, place] = BoxOf(edit->parentWidget()->layout(), edit);
    if (box == nullptr) continue;
    auto* add = new QPushButton(QStringLiteral("Novo"), edit->parentWidget());
    add->setAutoDefault(false);
    add->setFocusPolicy(Qt::NoFocus);  // the form's own order of fields stays; the key is Ctrl+N
    add->setToolTip(QStringLiteral("Novo registo neste separador (Ctrl+N)"));
    add->setAccessibleName(QStringLiteral("Novo registo neste separador"));
    connect(add, &QPushButton::clicked, this, &FormDialog::OpenNew);
    box->insertWidget(place, add);
  }
}

/// A new event of the kind that the tab in front shows.
void FormDialog::OpenNew() {
  for (const entry::EventButton& button : entry::EventButtonsOf(form_))
    if (form_.layout.tabs != nullptr && button.tab == form_.layout.tabs->Tab)
      Act([&] { entry::OpenNewEvent(form_, button); });
}

/// Keys of the window's own: Ctrl+D fills a new expense as the last one, Ctrl+N opens a new event, Alt+Down
/// presses the button beside the field.
bool FormDialog::AidKey(const QKeyEvent& event) {
  if (event.modifiers() == Qt::AltModifier && event.key() == Qt::Key_Down) {
    platform::PushButton* list = ListBeside(form_, form_.ActiveControl());
    if (list != nullptr && list->CanFocus()) Press(*list);
    return list != nullptr;
  }
  if (event.modifiers() != Qt::ControlModifier) return false;
  if (event.key() == Qt::Key_N && !entry::EventButtonsOf(form_).empty()) {
    OpenNew();
    return true;
  }
  if (event.key() != Qt::Key_D || !entry::TakesLikeLast(form_)) return false;
  const QString said = aids_->LikeLast();
  if (!said.isEmpty()) Notice(said);
  return true;
}

bool FormDialog::event(QEvent* event) {
  const bool handled = QDialog::event(event);
  if (event->type() == QEvent::LayoutRequest && isVisible()) MakeRoom();
  return handled;
}

/// The layout's own minimum doesn't know of texts that are broken into lines.
void FormDialog::MakeRoom() {
  if (!aids_->line()->isVisible()) {
    if (height() == grown_height_) resize(width(), plain_height_);
    plain_height_ = height();
    grown_height_ = 0;
    return;
  }
  const int most = RoomOnScreen(this).height();
  const int least = std::min(layout()->totalMinimumHeightForWidth(width()), most);
  if (height() < least || height() > most) resize(width(), std::clamp(height(), least, most));
  if (plain_height_ > 0 && height() > plain_height_) grown_height_ = height();
  const QRect room = screen()->availableGeometry();
  const int beyond = frameGeometry().bottom() - room.bottom();
  if (beyond > 0) move(x(), std::max(room.top(), y() - beyond));
}

void FormDialog::ShowOnly(const QString& why_not) {
  why_not_ = why_not;
  Sync();
  ShowNotice();
}

/// What confirms or removes the record.
bool FormDialog::IsDenied(const platform::Control* control) const {
  const std::vector<platform::PushButton*>& removing = form_.layout.destructive;
  return !why_not_.isEmpty() && control != nullptr &&
         (control == form_.layout.accent ||
          std::find(removing.begin(), removing.end(), control) != removing.end());
}

}  // namespace desktop
