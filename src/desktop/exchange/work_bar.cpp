#include "desktop/exchange/work_bar.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>

#include "desktop/look/look.h"
#include "desktop/shell/message_box.h"

namespace desktop {
namespace {

constexpr int kSilent = 500;  // milliseconds
constexpr int kOften = 50;
constexpr int kParts = 1000;

}  // namespace

WorkBar::WorkBar(QWidget* parent) : QWidget(parent), name_(new QLabel(this)), bar_(new QProgressBar(this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(Gap(this));
  auto* cancel = new QPushButton(QStringLiteral("&Interromper"), this);
  cancel->setAutoDefault(false);
  bar_->setRange(0, kParts);
  bar_->setTextVisible(false);
  row->addWidget(name_);
  row->addWidget(bar_, 1);
  row->addWidget(cancel);
  connect(cancel, &QPushButton::clicked, this, &WorkBar::Cancel);
  hide();
}

QString WorkBar::Left(std::size_t done, std::size_t total) const {
  if (done == 0 || total <= done) return {};
  const auto rest =
      static_cast<double>(since_.elapsed()) * static_cast<double>(total - done) / static_cast<double>(done);
  const auto seconds = static_cast<qlonglong>(rest / 1000) + 1;
  return seconds < 90 ? QStringLiteral(", faltam %1 s").arg(seconds)
                      : QStringLiteral(", faltam %1 min").arg((seconds + 59) / 60);
}

bool WorkBar::Tick(std::size_t done, std::size_t total) {
  const qint64 now = since_.elapsed();
  if (now < kSilent || now - shown_ < kOften) return !cancelled_;
  if (shown_ == 0) {
    show();
    Q_EMIT Working(true);
  }
  shown_ = now;
  const QLocale locale;
  bar_->setValue(total == 0 ? 0 : static_cast<int>(done * kParts / total));
  name_->setText(QStringLiteral("%1: %2 de %3 linhas%4")
                     .arg(objectName(), locale.toString(static_cast<qulonglong>(done)),
                          locale.toString(static_cast<qulonglong>(total)), Left(done, total)));
  QCoreApplication::processEvents();
  return !cancelled_;
}

bool WorkBar::Run(const QString& name, const std::function<void(const exchange::Progress&)>& work) {
  setObjectName(name);
  since_.start();
  shown_ = 0;
  cancelled_ = false;
  busy_ = true;
  bool done = false;
  std::exception_ptr failure;
  try {
    work([this](std::size_t at, std::size_t total) { return Tick(at, total); });
    done = true;
  } catch (const exchange::Cancelled&) {
    done = false;  // the user knows
  } catch (const std::exception&) {
    failure = std::current_exception();
  }
  busy_ = false;
  hide();
  if (shown_ > 0) Q_EMIT Working(false);
  if (failure) Guarded(window(), [&] { std::rethrow_exception(failure); });
  return done;
}

}  // namespace desktop
