#include "desktop/database/workspace.h"

#include "demo/demo.h"
#include "store/late_photos.h"
#include "store/late_rows.h"

namespace desktop {
namespace {

/// The history before a database whose file, if it is one, stands behind others.
std::shared_ptr<history::KeepingStore> Kept(const std::shared_ptr<zorCrmParvel::Store>& before,
                                            const std::shared_ptr<zorCrmParvel::Store>& past,
                                            const std::shared_ptr<zorCrmParvel::Store>& database) {
  history::Options options;
  options.past = past;
  options.file = std::dynamic_pointer_cast<embedded::Database>(database);
  return std::make_shared<history::KeepingStore>(before, std::move(options));
}

/// Where a statement waits for a server, lookups, reports and photos are read when they are shown. The
/// history keeps photos themselves: it stands below.
zorCrmParvel::DataAccessRef OfModule(std::shared_ptr<zorCrmParvel::Store> kept, bool far) {
  if (!far) return std::shared_ptr<zorCrmParvel::DataAccess>(std::move(kept));
  std::shared_ptr<zorCrmParvel::DataAccess> late =
      std::make_shared<store::LatePhotos>(std::make_shared<store::LateLookups>(std::move(kept)));
  return late;
}

}  // namespace

Workspace::Workspace(const std::string& path) : Workspace(embedded::Database::Open(path)) {}

Workspace::Workspace(std::shared_ptr<zorCrmParvel::Store> store)
    : store_(std::move(store)),
      watch_(std::make_shared<store::TableWatch>(store_)),
      foreseen_(std::make_shared<store::ForeseenStore>(watch_)),
      kept_(Kept(foreseen_, watch_, store_)),
      reader_(store_) {
  sistema_.ICrmSistema_AppOwnerWnd = &window_;
  sistema_.ICrmSistema_AppNome = "Gestão de frota";
  sistema_.ICrmSistema_ZorDataAccess = OfModule(kept_, IsFar());
}

void Workspace::FindRights(QObject* whom, const std::function<void()>& found) {
  reader_.Ask(
      whom, [](const BackgroundReader::StoreRef& store) { return store->Refused(); },
      [this, found](const zorCrmParvel::Refusals& refusals) {
        rights_ = Rights(refusals, file() != nullptr);
        found();
      },
      [](const ErrorText&) {});  // each act is refused when it comes
}

void Workspace::FillDemo() {
  try {
    demo::FillDemo(watch_);
  } catch (const platform::RuntimeError& error) {
    if (error.number() != platform::kKeyInUse) throw;
  }
}

}  // namespace desktop
