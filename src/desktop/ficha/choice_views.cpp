#include "desktop/ficha/choice_views.h"

#include <QCheckBox>
#include <QComboBox>
#include <QTabBar>
#include <QTabWidget>

#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {

CheckBoxView::CheckBoxView(platform::CheckBox& box, UserActs& acts, QWidget* parent)
    : ControlView(box, acts), box_(box), shown_(new QCheckBox(parent)) {
  connect(shown_, &QCheckBox::clicked, this,
          [this] { this->acts().Act([this] { this->acts().form().UserToggles(box_); }); });
}

QWidget* CheckBoxView::widget() const { return shown_; }

void CheckBoxView::SyncContent() {
  const QString caption = ToQt(box_.Caption);
  if (shown_->text() != caption) shown_->setText(caption);
  shown_->setChecked(box_.Value == 1);
  shown_->setEnabled(box_.Enabled);
}

ComboBoxView::ComboBoxView(platform::ComboBox& combo, UserActs& acts, QWidget* parent)
    : ControlView(combo, acts), combo_(combo), shown_(new QComboBox(parent)) {
  shown_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  connect(shown_, &QComboBox::activated, this,
          [this](int index) { this->acts().Act([&] { this->acts().form().UserChooses(combo_, index); }); });
}

QWidget* ComboBoxView::widget() const { return shown_; }

void ComboBoxView::SyncContent() {
  QStringList entries;
  for (const std::string& entry : combo_.List) entries << ToQt(entry);
  QStringList shown;
  for (int i = 0; i < shown_->count(); ++i) shown << shown_->itemText(i);
  if (entries != shown) {
    shown_->clear();
    shown_->addItems(entries);
  }
  shown_->setCurrentIndex(combo_.ListIndex);
  if (shown_->isEnabled() == combo_.Enabled) return;
  shown_->setEnabled(combo_.Enabled);
  SetLocked(shown_, !combo_.Enabled);
}

TabView::TabView(platform::TabControl& tabs, UserActs& acts, QWidget* parent)
    : ControlView(tabs, acts), tabs_(tabs), shown_(new QTabWidget(parent)) {
  shown_->setDocumentMode(true);
  connect(shown_, &QTabWidget::currentChanged, this, [this](int index) {
    if (!this->acts().IsSyncing())
      this->acts().Act([&] { this->acts().form().UserSelectsTab(tabs_, index); });
  });
}

QWidget* TabView::widget() const { return shown_; }
QWidget* TabView::focusWidget() const { return shown_->tabBar(); }

void TabView::SyncContent() {
  for (int i = 0; i < shown_->count() && i < static_cast<int>(tabs_.Captions.size()); ++i) {
    const QString caption = ToQt(tabs_.Captions[static_cast<std::size_t>(i)]);
    if (shown_->tabText(i) != caption) shown_->setTabText(i, caption);
  }
  if (shown_->currentIndex() != tabs_.Tab) shown_->setCurrentIndex(tabs_.Tab);
  shown_->setEnabled(tabs_.Enabled);
}

}  // namespace desktop
