#include "desktop/start/alert_board.h"

#include <algorithm>

#include "desktop/database/workspace.h"
#include "desktop/look/text.h"
#include "platform/host.h"

namespace desktop {
namespace {

std::vector<AlertFamily> AllFamilies() {
  std::vector<AlertFamily> families;
  for (const ListEntry& entry : AllLists())
    if (IsAlertList(entry)) families.push_back({.entry = &entry, .feed = {}, .counts = {}, .failure = {}});
  return families;
}

std::set<std::string> AllParts() {
  std::set<std::string> parts = {kStepsPart, kFeedPart};
  for (const ListEntry& entry : AllLists())
    if (IsAlertList(entry)) parts.insert(entry.key);
  return parts;
}

std::optional<ErrorText> Told(const std::exception_ptr& failure) {
  if (!failure) return {};
  try {
    std::rethrow_exception(failure);
  } catch (const std::exception& error) {
    return Describe(error);
  }
}

bool Meet(const store::TableNames& some, const store::TableNames& others) {
  return std::any_of(some.begin(), some.end(),
                     [&](const std::string& each) { return others.count(each) != 0; });
}

}  // namespace

AlertBoard::AlertBoard(QObject* parent) : QObject(parent), families_(AllFamilies()) {}

void AlertBoard::Watch(Workspace* workspace) {
  ticket_.GiveUp();
  busy_ = false;
  workspace_ = workspace;
  families_ = AllFamilies();
  feed_failure_.reset();
  steps_ = {setup::Step::kFill};
  tables_.clear();
  stale_ = AllParts();
  Q_EMIT Changed();
}

void AlertBoard::Refresh(bool with_feed) {
  if (workspace_ == nullptr) return;
  workspace_->TakeWritten();
  stale_ = AllParts();
  with_feed_ = with_feed;
  Ask();
}

void AlertBoard::RefreshChanged(bool with_feed) {
  if (workspace_ == nullptr) return;
  const store::TableNames written = workspace_->TakeWritten();
  if (platform::Today() != day_) stale_ = AllParts();
  for (const auto& [part, tables] : tables_)
    if (Meet(tables, written)) stale_.insert(part);
  with_feed_ = with_feed;
  Ask();
}

/// Has the parts found that are wanted; what was asked for before, and has not come, is among them.
void AlertBoard::Ask() {
  ticket_.GiveUp();
  busy_ = false;
  day_ = platform::Today();
  std::set<std::string> parts = stale_;
  if (!with_feed_) parts.erase(kFeedPart);
  if (parts.empty()) return;
  busy_ = true;
  ticket_ = workspace_->reader().Ask(
      this, [parts](const BackgroundReader::StoreRef& store) { return ReadAlerts(store, parts); },
      [this](const std::map<std::string, AlertPart>& found) { Take(found); },
      [this](const ErrorText& failure) { TakeFailure(failure); });
}

void AlertBoard::Finish() {
  if (workspace_ != nullptr) workspace_->reader().Finish();
}

std::optional<long> AlertBoard::Total() const {
  long total = 0;
  for (const AlertFamily& family : families_) {
    if (!family.counts) return {};
    total += family.counts->linhas;
  }
  return total;
}

/// What could not be read is tried again by the next request.
void AlertBoard::Take(const std::map<std::string, AlertPart>& found) {
  busy_ = false;
  for (const auto& [key, part] : found) {
    if (!part.failure) stale_.erase(key);
    if (key == kFeedPart) TakeFeed(part);
    if (key == kStepsPart && !part.failure) steps_ = part.steps;
    for (AlertFamily& family : families_) {
      if (key != family.entry->key) continue;
      family.has_very_soon = part.has_very_soon;
      family.handled = part.handled;
      family.failure = Told(part.failure);
      family.counts = part.failure ? std::nullopt : std::optional(part.counts);
    }
    tables_[key] = part.tables;
  }
  Q_EMIT Changed();
}

/// No connection could be made: nothing is known.
void AlertBoard::TakeFailure(const ErrorText& failure) {
  busy_ = false;
  for (AlertFamily& family : families_) {
    family.failure = failure;
    family.counts.reset();
  }
  Q_EMIT Changed();
}

void AlertBoard::TakeFeed(const AlertPart& part) {
  feed_failure_ = Told(part.failure);
  for (AlertFamily& family : families_) {
    const auto text = part.feed.find(family.entry->title);
    family.feed = text == part.feed.end() ? QString() : ToQt(text->second);
  }
}

QString AlertsCounted(long rows) {
  return Counted(rows, QStringLiteral("alerta"), QStringLiteral("alertas"));
}

}  // namespace desktop
