#include "desktop/database/copy_keeper.h"

#include <QThread>
#include <QTimer>

#include "desktop/look/text.h"
#include "desktop/shell/message_box.h"

namespace desktop {
namespace {

constexpr char kFolder[] = "copias/pasta";
constexpr int kSoon = 3000;             // milliseconds: when the window has been painted
constexpr int kOften = 30 * 60 * 1000;  // for windows that stay open overnight

}  // namespace

CopyKeeper::CopyKeeper(QSettings& settings, QObject* parent) : QObject(parent), settings_(settings) {
  auto* often = new QTimer(this);
  connect(often, &QTimer::timeout, this, &CopyKeeper::Start);
  often->start(kOften);
}

CopyKeeper::~CopyKeeper() { Finish(); }

void CopyKeeper::Finish() {
  if (thread_ != nullptr) thread_->wait();
}

store::KeptCopies CopyKeeper::copies() const { return {database_, FromQt(ChosenFolder())}; }

QString CopyKeeper::ChosenFolder() const { return settings_.value(kFolder).toString(); }

void CopyKeeper::ChooseFolder(const QString& folder) {
  settings_.setValue(kFolder, folder);
  Watch(database_);
}

void CopyKeeper::Watch(const std::string& database) {
  Finish();
  database_ = database;
  Made({});
  if (IsWatching()) QTimer::singleShot(kSoon, this, &CopyKeeper::Start);
}

void CopyKeeper::Start() {
  if (!IsWatching() || (thread_ != nullptr && thread_->isRunning())) return;
  const auto work = [this, copies = copies()] {
    QString failure;
    try {
      copies.Keep(platform::SystemTime());
    } catch (const std::exception& error) {
      failure = Describe(error).headline;
    }
    QMetaObject::invokeMethod(
        this, [this, failure] { Made(failure); }, Qt::QueuedConnection);
  };
  thread_.reset(QThread::create(work));
  thread_->start(QThread::LowPriority);
}

void CopyKeeper::Made(const QString& failure) {
  last_.reset();
  if (IsWatching())
    if (const auto all = copies().All(); !all.empty()) last_ = all.front().day;
  Q_EMIT Changed();
  if (!failure.isEmpty()) Q_EMIT Failed(failure);
}

QString CopyKeeper::StateText() const {
  if (!IsWatching()) return {};
  if (!last_) return QStringLiteral("Sem cópia");
  if (*last_ == platform::SystemTime().DayOnly()) return QStringLiteral("Cópia de hoje");
  return QStringLiteral("Cópia de ") + ToQt(last_->ToText());
}

}  // namespace desktop
