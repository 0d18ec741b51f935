// A list of a server: its rows are read away from the window's thread, and then bound as if it read them.
#include "desktop/list/list_form.h"
#include "desktop/list/list_page.h"
#include "desktop/shell/message_page.h"
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
      [this](store::Foreseen rows) {
        workspace_.Foresee(std::move(rows));
        ShowAfter([this] { list_->ICrmVwList_Iniciar(); });
        workspace_.Foresee({});
        RestoreOnce();
      },
      [this](const ErrorText& failure) {
        is_reading_ = false;
        failure_ = failure;
        ShowState();
      });
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
