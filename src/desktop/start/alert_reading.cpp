#include "desktop/start/alert_reading.h"

#include "alerts/alert_list.h"
#include "due/handled.h"
#include "host/sistema.h"
#include "platform/host.h"
#include "platform/screen/form.h"
#include "platform/screen/grid.h"

namespace desktop {
namespace {

using namespace zorCrmParvel;

void ReadFeed(Sistema& sistema, AlertPart& part) {
  const auto rows = platform::MakeRef<platform::MemoryRecordset>();
  for (const char* field : {"APLICACAO", "Entidade", "Texto"})
    rows->Append(field, platform::FieldType::kText, platform::kUnlimitedSize);
  rows->Open();
  RecordsetRef feed = rows;
  try {
    sistema.ICrmSistema_AlertasAdd(feed);
  } catch (const std::exception&) {
    part.failure = std::current_exception();
  }
  for (feed->MoveFirst(); !feed->Eof(); feed->MoveNext())
    part.feed[feed->Fields("Entidade").Value().ToText()] = feed->Fields("Texto").Value().ToText();
}

class GridForm : public platform::Form {
 public:
  platform::SGGrid grid{*this, "Grid"};
};

/// How many rows of a list were dealt with, or put off. The rows are read only when there can be any.
long CountHandled(Sistema& sistema, const std::string& key) {
  const due::Handlings handlings =
      due::HandlingsOf(sistema.ICrmSistema_ZorDataAccess, key, platform::Today());
  if (handlings.empty()) return 0;
  GridForm form;
  const std::unique_ptr<ICrmVwList> list = sistema.MostraListas(key);
  list->ICrmVwList_GridMaster(&form.grid);
  list->ICrmVwList_Iniciar();
  long handled = 0;
  for (long row = 0; row < form.grid.RowCount(); ++row) {
    std::vector<std::string> texts;
    for (const char* column : due::AlertColumns(key))
      texts.push_back(form.grid.CellText(row, form.grid.ColumnIndex(column)));
    handled += static_cast<long>(handlings.count(due::AlertOf(texts)));
  }
  list->ICrmVwList_Terminar();
  return handled;
}

void Read(const std::string& key, Sistema& sistema, AlertPart& part) {
  if (key == kFeedPart) return ReadFeed(sistema, part);
  if (key == kStepsPart) {
    part.steps = setup::StepsDone(sistema.ICrmSistema_ZorDataAccess);
    return;
  }
  const std::unique_ptr<ICrmVwList> list = sistema.MostraListas(key);
  auto& alerts = dynamic_cast<AlertList&>(*list);
  part.has_very_soon = alerts.TemFaixa(Tools::Faixa::kMuitoBreve);
  part.counts = alerts.Contar();
  part.handled = CountHandled(sistema, key);
}

}  // namespace

std::map<std::string, AlertPart> ReadAlerts(const std::shared_ptr<Store>& store,
                                            const std::set<std::string>& parts) {
  const auto watch = std::make_shared<store::TableWatch>(store);
  Sistema sistema;
  sistema.ICrmSistema_ZorDataAccess = DataAccessRef(watch);
  const Snapshot snapshot(sistema.ICrmSistema_ZorDataAccess);
  std::map<std::string, AlertPart> found;
  for (const std::string& key : parts) {
    AlertPart& part = found[key];
    try {
      Read(key, sistema, part);
    } catch (const std::exception&) {
      part.failure = std::current_exception();
    }
    part.tables = watch->TakeRead();
  }
  return found;
}

}  // namespace desktop
