#include "desktop/database/late_reading.h"

#include "store/copied_rows.h"
#include "store/late_rows.h"

namespace desktop {

using platform::RecordsetRef;

RecordsetRef ReadWhole(zorCrmParvel::DataAccess& data, const std::string& statement) {
  RecordsetRef rows;
  data.AbrirLeitura("", statement.c_str(), rows);
  return platform::MakeRef<store::CopiedRows>(*rows);
}

bool ReadLate(BackgroundReader& reader, QObject* whom, const RecordsetRef& rows,
              const std::function<void()>& there, const BackgroundReader::Failed& failed) {
  const auto late = std::dynamic_pointer_cast<store::LateRows>(rows.shared());
  if (late == nullptr || !late->IsWaiting()) return false;
  reader.Ask(
      whom,
      [statement = late->statement()](const BackgroundReader::StoreRef& store) {
        return ReadWhole(*store, statement);
      },
      [late, there](const RecordsetRef& read) {
        late->Bring(*read);
        there();
      },
      failed);
  return true;
}

}  // namespace desktop
