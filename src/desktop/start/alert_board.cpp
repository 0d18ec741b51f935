#include "desktop/start/alert_board.h"

#include "alerts/alert_list.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

using namespace zorCrmParvel;

std::vector<AlertFamily> AllFamilies() {
  std::vector<AlertFamily> families;
  for (const ListEntry& entry : AllLists())
    if (IsAlertList(entry)) families.push_back({.entry = &entry, .feed = {}, .counts = {}, .failure = {}});
  return families;
}

RecordsetRef EmptyFeed() {
  const auto feed = platform::MakeRef<platform::MemoryRecordset>();
  for (const char* field : {"APLICACAO", "Entidade", "Texto"})
    feed->Append(field, platform::FieldType::kText, platform::kUnlimitedSize);
  feed->Open();
  return feed;
}

template <typename F>
std::optional<ErrorText> FailureOf(const F& act) {
  try {
    act();
    return {};
  } catch (const std::exception& error) {
    return Describe(error);
  }
}

}  // namespace

AlertBoard::AlertBoard(QObject* parent) : QObject(parent), families_(AllFamilies()) {
  connect(&timer_, &QTimer::timeout, this, &AlertBoard::Step);
}

void AlertBoard::Watch(Sistema* sistema) {
  timer_.stop();
  sistema_ = sistema;
  families_ = AllFamilies();
  feed_failure_.reset();
  steps_ = {setup::Step::kFill};
  Q_EMIT Changed();
}

void AlertBoard::Refresh(bool with_feed) {
  if (sistema_ == nullptr) return;
  next_ = 0;
  with_feed_ = with_feed;
  timer_.start(0);
}

void AlertBoard::Finish() {
  while (IsBusy()) Step();
}

std::optional<long> AlertBoard::Total() const {
  long total = 0;
  for (const AlertFamily& family : families_) {
    if (!family.counts) return {};
    total += family.counts->linhas;
  }
  return total;
}

void AlertBoard::Step() {
  const std::size_t step = next_++;
  if (step < families_.size())
    Count(families_[step]);
  else if (step == families_.size())
    ReadSteps();
  else
    ReadFeed();
  if (next_ > families_.size() + (with_feed_ ? 1 : 0)) timer_.stop();
  Q_EMIT Changed();
}

/// What can't be read is told by the families.
void AlertBoard::ReadSteps() {
  FailureOf([this] { steps_ = setup::StepsDone(sistema_->ICrmSistema_ZorDataAccess); });
}

void AlertBoard::ReadFeed() {
  RecordsetRef feed = EmptyFeed();
  feed_failure_ = FailureOf([&] { sistema_->ICrmSistema_AlertasAdd(feed); });
  for (AlertFamily& family : families_) {
    family.feed.clear();
    for (feed->MoveFirst(); !feed->Eof(); feed->MoveNext())
      if (feed->Fields("Entidade").Value().ToText() == family.entry->title)
        family.feed = ToQt(feed->Fields("Texto").Value().ToText());
  }
}

void AlertBoard::Count(AlertFamily& family) {
  family.counts.reset();
  family.failure = FailureOf([&] {
    const std::unique_ptr<ICrmVwList> list = sistema_->MostraListas(family.entry->key);
    auto& alerts = dynamic_cast<AlertList&>(*list);
    family.has_very_soon = alerts.TemFaixa(Tools::Faixa::kMuitoBreve);
    family.counts = alerts.Contar();
  });
}

QString AlertsCounted(long rows) {
  return Counted(rows, QStringLiteral("alerta"), QStringLiteral("alertas"));
}

}  // namespace desktop
