#include "desktop/start/alert_reading.h"

#include "alerts/alert_list.h"
#include "host/sistema.h"

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
