// A list of a server: its rows are read away from the window's thread, and then bound as if it read them.
#include "desktop/database/late_reading.h"
#include "desktop/list/list_form.h"
#include "desktop/list/list_page.h"
#include "desktop/list/list_source.h"
#include "desktop/shell/message_page.h"
#include "due/handled.h"
#include "platform/host.h"
#include "store/foreseen.h"

namespace desktop {

/// Runs a list of its own, for its statements alone.
store::Foreseen ListPage::ReadAhead(const std::shared_ptr<zorCrmParvel::Store>& store,
                                    const std::string& key) {
  const auto recorded = std::make_shared<store::RecordedReads>(store);
  zorCrmParvel::Sistema sistema;
  sistema.ICrmSistema_ZorDataAccess = zorCrmParvel::DataAccessRef(recorded);
  ListForm form;
  const auto list = sistema.MostraListas(key);
  list->ICrmVwList_GridMaster(&form.master);
  list->ICrmVwList_GridDetail(&form.detail);
  list->ICrmVwList_ParentForm(&form);
  list->ICrmVwList_Iniciar();
  if (!due::AlertColumns(key).empty())
    due::HandlingsOf(sistema.ICrmSistema_ZorDataAccess, key, platform::Today());
  return recorded->Take();
}

void ListPage::Load() {
  failure_.reset();
  if (!workspace_.IsFar()) {
    ShowAfter([this] { list_->ICrmVwList_Iniciar(); });
    return RestoreOnce();
  }
  reading_.GiveUp();
  is_reading_ = true;
  ShowState();
  reading_ = workspace_.reader().Ask(
      this,
      [key = std::string(entry_.key)](const BackgroundReader::StoreRef& store) {
        return ReadAhead(store, key);
      },
      [this](store::Foreseen rows) { Take(std::move(rows)); },
      [this](const ErrorText& failure) {
        is_reading_ = false;
        then_ = [] {};
        failure_ = failure;
        ShowState();
      });
}

/// Binds the rows that have come. They answer the list as well when it reads them anew by itself, as it does
/// after its verbs: those that a verb changed come with the next reading.
void ListPage::Take(store::Foreseen rows) {
  rows_ = std::move(rows);
  workspace_.Foresee(rows_);
  ShowAfter([this] { list_->ICrmVwList_Iniciar(); });
  workspace_.Foresee({});
  RestoreOnce();
  own_stale_ = true;
  ReadOwn();
  std::exchange(then_, [] {})();
}

ListSource& ListPage::Source() const { return static_cast<ListSource&>(table_->grid().source()); }

/// The window's own columns of a server's list come after its rows, when one of them is shown.
void ListPage::ReadOwn() {
  if (!own_stale_ || !Source().ShowsOwn()) return;
  own_stale_ = false;
  reads_own_ = true;
  reading_own_.GiveUp();
  reading_own_ = workspace_.reader().Ask(
      this,
      [statement = Source().OwnStatement()](const BackgroundReader::StoreRef& store) {
        return ReadWhole(*store, statement);
      },
      [this](platform::RecordsetRef rows) {
        reads_own_ = false;
        Source().TakeOwn(std::move(rows));
        table_->Reorder([](RowOrder& order) { order.Rebuild(); });
        ShowState();
      },
      [this](const ErrorText& failure) {
        reads_own_ = false;
        Q_EMIT Told(failure.headline);
      });
}

/// For what is about to take the rows elsewhere, on paper or into a file.
void ListPage::FinishReading() {
  if (is_reading_ || reads_own_) workspace_.reader().Finish();
}

/// What the user had chosen of sort, search and widths, once there are columns.
void ListPage::RestoreOnce() {
  if (std::exchange(restored_, true)) return;
  memory_.Restore(*table_, IsEventList(entry_));
  table_->GoToTop();
  ShowState();
}

void ListPage::ShowReading() {
  message_->Show(QStringLiteral("A ler a lista…"), QStringLiteral("O servidor ainda não respondeu."),
                 QStringLiteral("&Deixar"), [this] { Q_EMIT PageWanted(QString::fromLatin1(kStartPage)); });
}

}  // namespace desktop
