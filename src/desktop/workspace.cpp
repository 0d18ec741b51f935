#include "desktop/workspace.h"

#include "console/demo.h"

namespace desktop {

Workspace::Workspace(const std::string& path) : database_(embedded::Database::Open(path)) {
  sistema_.ICrmSistema_AppOwnerWnd = &window_;
  sistema_.ICrmSistema_AppNome = "Gestão de frota";
  sistema_.ICrmSistema_ZorDataAccess = zorCrmParvel::DataAccessRef(database_);
}

void Workspace::FillDemo() {
  try {
    console::FillDemo(database_);
  } catch (const platform::RuntimeError& error) {
    if (error.number() != platform::kKeyInUse) throw;
  }
}

}  // namespace desktop
