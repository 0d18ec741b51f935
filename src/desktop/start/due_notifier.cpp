#include "desktop/start/due_notifier.h"

#include <QTimer>
#include <chrono>

#include "desktop/database/workspace.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

using namespace std::chrono_literals;

constexpr auto kSoonAfterOpening = 5s;
constexpr auto kBetweenLooks = 10min;
constexpr std::int32_t kDaysAhead = 30;

}  // namespace

DueNotifier::DueNotifier(QObject* parent) : QObject(parent), timer_(new QTimer(this)) {
  connect(timer_, &QTimer::timeout, this, &DueNotifier::Look);
}

void DueNotifier::Watch(Workspace* workspace) {
  ticket_.GiveUp();
  timer_->stop();
  workspace_ = workspace;
  watch_ = {};
  if (workspace_ != nullptr) timer_->start(kSoonAfterOpening);
}

void DueNotifier::Look() {
  if (workspace_ == nullptr) return;
  timer_->start(kBetweenLooks);
  ticket_.GiveUp();
  ticket_ = workspace_->reader().Ask(
      this,
      [](const BackgroundReader::StoreRef& store) {
        return notice::DueDatesOf(
            zorCrmParvel::DataAccessRef(std::shared_ptr<zorCrmParvel::DataAccess>(store)), kDaysAhead);
      },
      [this](const std::vector<notice::DueDate>& dates) { Take(dates); }, [](const ErrorText&) {});
}

void DueNotifier::Take(const std::vector<notice::DueDate>& dates) {
  const std::vector<notice::DueDate> news = watch_.Look(dates);
  if (news.empty()) return;
  const notice::Announcement words = notice::Announce(news);
  Q_EMIT BecameDue(ToQt(words.title), ToQt(words.text));
}

}  // namespace desktop
