#include "desktop/database/late_reading.h"

#include "store/copied_rows.h"
#include "store/late_rows.h"

namespace desktop {

using platform::RecordsetRef;

bool ReadLate(BackgroundReader& reader, QObject* whom, const RecordsetRef& rows,
              const std::function<void()>& there, const BackgroundReader::Failed& failed) {
  const auto late = std::dynamic_pointer_cast<store::LateRows>(rows.shared());
  if (late == nullptr || !late->IsWaiting()) return false;
  reader.Ask(
      whom,
      [statement = late->statement()](const BackgroundReader::StoreRef& store) {
        RecordsetRef read;
        store->AbrirLeitura("", statement.c_str(), read);
        return RecordsetRef(platform::MakeRef<store::CopiedRows>(*read));
      },
      [late, there](const RecordsetRef& read) {
        late->Bring(*read);
        there();
      },
      failed);
  return true;
}

}  // namespace desktop
