#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "desktop/ficha/control_view.h"
#include "desktop/ficha/ficha_aids.h"
#include "desktop/ficha/ficha_contents.h"
#include "desktop/history/overwrite_watch.h"

class QKeyEvent;
class QLabel;
class QSettings;

namespace desktop {

/// Draws any form from its model and hands every act of the user to it. The model decides about focus,
/// buttons and closing; the dialog shows what came of it. An error that leaves a handler is shown, and the
/// dialog goes on.
class FormDialog : public QDialog, private UserActs {
  Q_OBJECT

 public:
  /// Size and place are kept in the settings under the form's name; without one the window opens over its
  /// parent. The reader reads what the window says beside the fields, see `FichaAids`.
  FormDialog(platform::Form& form, QSettings& settings, QWidget* parent, BackgroundReader* reader = nullptr);
  ~FormDialog() override;

  /// Shows what the form holds now.
  void Sync();
  /// The widget that shows a control; null for one that isn't drawn.
  QWidget* WidgetOf(const platform::Control& control) const;
  /// The text that the window shows without asking for an answer; while there is none, what the field with
  /// the keyboard wants.
  QString NoticeText() const;
  FichaAids& aids() const { return *aids_; }

  /// The record can only be looked at, for this reason; empty when it may be confirmed.
  void ShowOnly(const QString& why_not);

  /// Escape never gets here; the window's close button does. Asks when there is something unconfirmed.
  void reject() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  /// A line below the fields makes the window grow, within the screen; without it the window is as it was.
  bool event(QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  platform::Form& form() override { return form_; }
  void Act(const std::function<void()>& act) override;
  void Press(platform::PushButton& button) override;
  bool IsSyncing() const override { return syncing_ || acting_; }
  void Notice(const QString& text) override;
  BackgroundReader* Reader() const override { return reader_; }

  void Pressing(platform::PushButton& button, const std::function<void()>& press);
  void ShowNotice();
  void AddNewButtons();
  void OpenNew();
  bool IsDenied(const platform::Control* control) const;
  bool AidKey(const QKeyEvent& event);
  std::string ActWords() const;
  bool MayClose();
  void WatchWidgets();
  void Watch(QObject& object);
  ControlView* ViewOf(const QObject* object) const;
  bool Pressed(ControlView& view);
  bool Key(const QKeyEvent& event, ControlView* view);
  bool TurnPage(bool forward);
  void ShowFocus();
  void MakeRoom();
  void RestorePlace();
  void KeepPlace();

  platform::Form& form_;
  QSettings& settings_;
  BackgroundReader* reader_;
  QLabel* notice_;
  QString why_not_;
  std::vector<std::unique_ptr<ControlView>> views_;
  FichaContents contents_;
  FichaAids* aids_;
  OverwriteWatch overwritten_;
  const platform::PushButton* pressed_ = nullptr;  // by the act under way
  std::string record_;                             // what a button that is pressed is about
  int plain_height_ = 0;                           // without a line below the fields
  int grown_height_ = 0;                           // with it, when the window grew for it
  bool syncing_ = false;
  bool acting_ = false;
};

}  // namespace desktop
