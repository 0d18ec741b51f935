#include "desktop/ficha/form_dialog.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSettings>
#include <algorithm>

#include "desktop/ficha/ficha_words.h"
#include "desktop/ficha/form_layout.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/shell/message_box.h"
#include "history/act.h"
#include "platform/host.h"

namespace desktop {
namespace {

QString PlaceKey(const platform::Form& form) {
  return QStringLiteral("fichas/%1/lugar").arg(ToQt(form.Name));
}

/// The module's number of a key that the form wants to know of; 0 for all others.
int ModelKey(int key, const platform::Control* active) {
  const auto* grid = dynamic_cast<const platform::SGGrid*>(active);
  const auto command = [grid](int code) {
    return grid != nullptr && grid->CommandOf(code) != nullptr ? code : platform::kKeyNone;
  };
  switch (key) {
    case Qt::Key_Delete:
      return command(platform::kKeyDelete);
    case Qt::Key_F2:
      return command(platform::kKeyF2);
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return platform::kKeyTab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return platform::kKeyEnter;
    case Qt::Key_Escape:
      return platform::kKeyEscape;
    case Qt::Key_F3:
      return platform::kKeyF3;
    case Qt::Key_F4:
      return platform::kKeyF4;
    case Qt::Key_F7:
      return platform::kKeyF7;
    default:
      return platform::kKeyNone;
  }
}

/// The field in which a cell of a table is typed, and which ends that by itself.
bool IsCellEditor(const QWidget* widget) {
  const QWidget* viewport = widget != nullptr ? widget->parentWidget() : nullptr;
  return viewport != nullptr && qobject_cast<QAbstractItemView*>(viewport->parentWidget()) != nullptr;
}

}  // namespace

FormDialog::FormDialog(platform::Form& form, QSettings& settings, QWidget* parent, BackgroundReader* reader)
    : QDialog(parent),
      form_(form),
      settings_(settings),
      reader_(reader),
      notice_(new QLabel(this)),
      contents_(form),
      aids_(new FichaAids(
          form, this, [this](const std::function<void()>& act) { Act(act); }, reader)) {
  setObjectName(ToQt(form.Name));
  notice_->setTextFormat(Qt::PlainText);
  SetMuted(notice_);
  FormLayout layout(*this, this);
  layout.Build(notice_, aids_->line());
  views_ = layout.TakeViews();
  AddNewButtons();
  WatchWidgets();
  Sync();
  ShowNotice();
  contents_.Settle();
  aids_->Show();
  RestorePlace();
}

FormDialog::~FormDialog() {
  KeepPlace();
  // Views look at widgets that the base class takes down.
  views_.clear();
}

void FormDialog::Sync() {
  const bool outer = std::exchange(syncing_, true);
  setWindowTitle(ToQt(TitleOf(form_)));
  for (const auto& view : views_) {
    view->Sync();
    if (!IsDenied(&view->control())) continue;
    view->widget()->setEnabled(false);
    view->widget()->setToolTip(PlainToolTip(why_not_));
  }
  ShowFocus();
  syncing_ = outer;
}

QWidget* FormDialog::WidgetOf(const platform::Control& control) const {
  for (const auto& view : views_)
    if (&view->control() == &control) return view->focusWidget();
  return nullptr;
}

QString FormDialog::NoticeText() const { return notice_->text(); }

void FormDialog::reject() {
  if (!MayClose()) return;
  Act([this] { form_.UserCloses(); });
}

/// What was typed is lost with the window; "Sair" is the module's own way out and asks nothing.
bool FormDialog::MayClose() {
  if (IsSyncing() || form_.IsClosed() || !contents_.Changed() || !why_not_.isEmpty()) return true;
  return ShowMessage(this,
                     QStringLiteral("Há alterações que não foram confirmadas.\n\nFechar sem as guardar?"),
                     platform::kYesNo | platform::kQuestion | platform::kDefaultButton2,
                     windowTitle()) == platform::kYes;
}

void FormDialog::Act(const std::function<void()>& act) {
  if (IsSyncing() || form_.IsClosed()) return;
  acting_ = true;
  contents_.Before();
  const std::vector<platform::PushButton*>& writing = form_.layout.actions;
  const bool loads = std::find(writing.begin(), writing.end(), pressed_) == writing.end();
  Guarded(this, [&] { history::ActHere(ActWords(), act, loads); });
  acting_ = false;
  overwritten_.Written(this);
  if (form_.IsClosed()) return accept();
  if (contents_.After(pressed_)) overwritten_.Shown();
  ShowNotice();
  Guarded(this, [this] { Sync(); });
  aids_->Show();
}

void FormDialog::Notice(const QString& text) { notice_->setText(text); }

void FormDialog::ShowNotice() {
  if (!why_not_.isEmpty()) return Notice(why_not_);
  const std::string& notice = form_.Notice();
  Notice(ToQt(notice.empty() ? HintFor(form_.ActiveControl()) : notice));
}

void FormDialog::WatchWidgets() {
  for (const auto& view : views_) {
    Watch(*view->widget());
    for (QObject* child : view->widget()->findChildren<QWidget*>())
      if (ViewOf(child) == view.get()) Watch(*child);
  }
}

void FormDialog::Watch(QObject& object) { object.installEventFilter(this); }

ControlView* FormDialog::ViewOf(const QObject* object) const {
  for (; object != nullptr && object != this; object = object->parent())
    for (const auto& view : views_)
      if (view->widget() == object) return view.get();
  return nullptr;
}

bool FormDialog::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
      ControlView* view = ViewOf(watched);
      return view != nullptr && Pressed(*view);
    }
    case QEvent::KeyPress:
      return Key(*static_cast<QKeyEvent*>(event), ViewOf(watched));
    case QEvent::Wheel: {
      const ControlView* view = ViewOf(watched);
      const bool scrolls = view != nullptr && qobject_cast<QAbstractScrollArea*>(view->widget()) != nullptr;
      if (view == nullptr || scrolls || &view->control() == form_.ActiveControl()) return false;
      event->ignore();  // what the field stands in may scroll
      return true;
    }
    default:
      return false;
  }
}

/// A press into another control goes on only when the form lets the focus come. Buttons and tabs tell the
/// form themselves when they are released.
bool FormDialog::Pressed(ControlView& view) {
  platform::Control& control = view.control();
  if (&control == form_.ActiveControl() || !control.TakesFocus() || !control.Enabled) return false;
  if (dynamic_cast<platform::PushButton*>(&control) != nullptr) return false;
  if (dynamic_cast<platform::TabControl*>(&control) != nullptr) return false;
  bool came = false;
  Act([&] {
    aids_->Spell();
    came = form_.UserGoesTo(control);
  });
  return !came;
}

bool FormDialog::Key(const QKeyEvent& event, ControlView* view) {
  if (IsCellEditor(focusWidget())) return false;
  const int key = ModelKey(event.key(), form_.ActiveControl());
  const bool turns = event.key() == Qt::Key_PageDown || event.key() == Qt::Key_PageUp;
  if (turns && event.modifiers() == Qt::ControlModifier) return TurnPage(event.key() == Qt::Key_PageDown);
  if (AidKey(event)) return true;
  if (key == platform::kKeyNone || event.modifiers().testFlag(Qt::AltModifier)) return false;
  if (key == platform::kKeyEnter && event.modifiers().testFlag(Qt::ControlModifier)) {
    auto* notes = view != nullptr ? qobject_cast<QPlainTextEdit*>(view->widget()) : nullptr;
    if (notes != nullptr) notes->insertPlainText(QStringLiteral("\n"));
    return true;
  }
  platform::Control* active = form_.ActiveControl();
  if (key == platform::kKeyEnter && IsDenied(active)) return true;
  const bool shift = event.key() == Qt::Key_Backtab || event.modifiers().testFlag(Qt::ShiftModifier);
  const bool leaves = key == platform::kKeyTab || key == platform::kKeyEnter;
  const bool opens = key == platform::kKeyF4;
  auto* button = key == platform::kKeyEnter ? dynamic_cast<platform::PushButton*>(active) : nullptr;
  if (button != nullptr) {
    Pressing(*button, [&] { form_.UserKey(key, shift); });
    return true;
  }
  Act([&] {
    if (leaves) aids_->Spell();
    if (opens) aids_->BeforeCodeForm();
    form_.UserKey(key, shift);
    if (opens) aids_->AfterCodeForm();
  });
  if (leaves && !shift && !form_.IsClosed() && active != nullptr && form_.ActiveControl() == active) {
    aids_->Kept(*active);
    aids_->Show();
  }
  return true;
}

bool FormDialog::TurnPage(bool forward) {
  platform::TabControl* tabs = form_.layout.tabs;
  if (tabs == nullptr) return false;
  const int count = static_cast<int>(tabs->Captions.size());
  Act([&] { form_.UserSelectsTab(*tabs, (tabs->Tab + (forward ? 1 : count - 1)) % count); });
  return true;
}

void FormDialog::keyPressEvent(QKeyEvent* event) {
  if (!Key(*event, nullptr)) event->ignore();
}

/// The window is put in its place by its size, which is known once all that stands in it is laid out.
void FormDialog::showEvent(QShowEvent* event) {
  Sync();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  if (!testAttribute(Qt::WA_Resized)) resize(sizeHint());
  QDialog::showEvent(event);
  if (!aids_->line()->isVisible()) plain_height_ = height();
}

/// The focus moves by the form alone.
bool FormDialog::focusNextPrevChild(bool) { return true; }

void FormDialog::ShowFocus() {
  const platform::Control* active = form_.ActiveControl();
  if (active == nullptr) return;
  QWidget* widget = WidgetOf(*active);
  if (widget != nullptr && focusWidget() != widget) widget->setFocus(Qt::OtherFocusReason);
}

void FormDialog::RestorePlace() { restoreGeometry(settings_.value(PlaceKey(form_)).toByteArray()); }

void FormDialog::KeepPlace() { settings_.setValue(PlaceKey(form_), saveGeometry()); }

}  // namespace desktop
