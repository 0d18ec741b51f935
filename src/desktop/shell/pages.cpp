#include "desktop/shell/pages.h"

#include <cstring>
#include <vector>

#include "desktop/history/history_page.h"
#include "desktop/list/list_page.h"
#include "desktop/reports/report_page.h"
#include "desktop/start/month_page.h"
#include "host/sistema.h"

namespace desktop {
namespace {

/// A page of the window's own, under the key that it has in the catalogue of the side bar.
struct OwnPage {
  const char* key;
  Page* (*make)(Workspace& workspace, QSettings& settings, QWidget* parent);
};

template <reports::TipoDeRelatorio report>
Page* MakeReport(Workspace& workspace, QSettings& settings, QWidget* parent) {
  return new ReportPage(workspace, settings, report, {}, parent);
}

const std::vector<OwnPage>& OwnPages() {
  using reports::TipoDeRelatorio;
  static const std::vector<OwnPage> pages = {
      {"Calendario",
       [](Workspace& workspace, QSettings&, QWidget* parent) -> Page* {
         return new MonthPage(workspace, parent);
       }},
      {"Historico",
       [](Workspace& workspace, QSettings&, QWidget* parent) -> Page* {
         return new HistoryPage(workspace, parent);
       }},
      {"RelConsumos", &MakeReport<TipoDeRelatorio::kConsumos>},
      {"RelCustos", &MakeReport<TipoDeRelatorio::kCustos>},
      {"RelTotal", &MakeReport<TipoDeRelatorio::kTotal>},
      {"RelQuilometros", &MakeReport<TipoDeRelatorio::kQuilometros>},
      {"RelExcepcoes", &MakeReport<TipoDeRelatorio::kExcepcoes>},
      {"RelMovimentos", &MakeReport<TipoDeRelatorio::kMovimentos>},
      {"RelEmissoes", &MakeReport<TipoDeRelatorio::kEmissoes>},
  };
  return pages;
}

const OwnPage* FindOwnPage(const char* key) {
  for (const OwnPage& page : OwnPages())
    if (std::strcmp(page.key, key) == 0) return &page;
  return nullptr;
}

}  // namespace

bool HasPage(const ListEntry& entry) {
  return FindOwnPage(entry.key) != nullptr || zorCrmParvel::Sistema::TemLista(entry.key);
}

Page* MakePage(const ListEntry& entry, Workspace& workspace, QSettings& settings, QWidget* parent) {
  if (const OwnPage* own = FindOwnPage(entry.key)) return own->make(workspace, settings, parent);
  return new ListPage(workspace, entry, settings, parent);
}

}  // namespace desktop
