#include "store/database_choice.h"

#include <stdexcept>
#include <utility>

#include "sqlserver/connection_text.h"
#include "store/near_store.h"
#include "store/password.h"
#include "store/paths.h"

namespace schema {
extern const char* const kTables;
}

namespace store {

std::shared_ptr<zorCrmParvel::Store> OpenStore(const DatabaseChoice& choice) {
  if (choice.IsServer()) return Near(OpenServer(choice));
  return OpenFile(choice);
}

std::shared_ptr<zorCrmParvel::Store> Near(std::shared_ptr<sqlserver::Database> server) {
  const std::shared_ptr<zorCrmParvel::Store> far = server;
  return std::make_shared<NearStore>(far, schema::kTables, NearStore::kMostRows,
                                     [server = std::move(server)](const sqlserver::TableChanges& changes) {
                                       return sqlserver::WriteChanges(server->session(), server->catalog(),
                                                                      changes);
                                     });
}

std::shared_ptr<sqlserver::Database> OpenServer(const DatabaseChoice& choice) {
  if (!choice.IsServer())
    throw std::runtime_error(
        "Falta o servidor: indique-o com --ligacao \"Driver=…;Server=…;Database=…;UID=…\".");
  const sqlserver::ConnectionText connection(choice.connection);
  sqlserver::OpenOptions options;
  options.connection = choice.connection;
  options.traffic = choice.traffic;
  options.limits.statement = std::chrono::seconds(choice.timeLimit);
  if (connection.NamesUser()) options.password = PasswordFor(connection.Place(), choice.passwordFile);
  return sqlserver::Database::Open(options);
}

std::string FileOf(const DatabaseChoice& choice) {
  if (choice.IsServer())
    throw std::runtime_error(
        "Uma cópia faz-se e repõe-se num ficheiro (--db). A de um servidor é o próprio servidor que a faz: "
        "peça-a ao seu administrador.");
  return choice.file.empty() ? DefaultDatabasePath() : DatabaseFileNamed(choice.file);
}

std::shared_ptr<embedded::Database> OpenFile(const DatabaseChoice& choice) {
  return embedded::Database::Open(FileOf(choice));
}

}  // namespace store
