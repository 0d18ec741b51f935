#include "desktop/database/rights.h"

#include "desktop/look/text.h"
#include "history/view/table_names.h"

namespace desktop {
namespace {

using zorCrmParvel::TableUse;

/// The tables behind fichas and lists that aren't named after one.
constexpr std::pair<const char*, const char*> kOthers[] = {{"frmArquivo", "zor_ArquivoDigital"},
                                                           {"frm_Attach", "zor_PV_Attach"},
                                                           {"Tacografos", "zor_PV_Viaturas"},
                                                           {"Selo", "zor_PV_Viaturas"},
                                                           {"TacMot", "zor_Funcionarios"}};

std::string TableOf(const std::string& name) {
  for (const auto& [other, table] : kOthers)
    if (name == other) return table;
  for (const ListEntry& entry : AllLists())
    if (entry.ficha != nullptr && name == entry.ficha) return history::TableOfList(entry.key);
  return history::TableOfList(name);
}

}  // namespace

bool Rights::Refuses(TableUse use, const std::string& table) const {
  const auto refused = refusals_.find(table);
  return refused != refusals_.end() && refused->second.count(use) != 0;
}

QString Rights::WhyNot(TableUse use, const std::string& table) const {
  if (!Refuses(use, table)) return {};
  if (file_)
    return QStringLiteral(
        "O ficheiro da base de dados só permite leitura. Dê permissão de escrita no ficheiro e na sua "
        "pasta, e abra-o de novo.");
  const QString act = use == TableUse::kRead     ? QStringLiteral("ver")
                      : use == TableUse::kAdd    ? QStringLiteral("criar registos em")
                      : use == TableUse::kChange ? QStringLiteral("alterar registos em")
                                                 : QStringLiteral("remover registos em");
  return QStringLiteral("O seu utilizador não pode %1 «%2». Peça a permissão a quem administra o servidor.")
      .arg(act, ToQt(history::NameOfTable(table)));
}

QString Rights::WhyNot(TableUse use, const ListEntry& list) const { return WhyNot(use, TableOf(list.key)); }

QString Rights::WhyNotConfirm(const std::string& ficha) const {
  const std::string table = TableOf(ficha);
  return Refuses(TableUse::kAdd, table) ? WhyNot(TableUse::kChange, table) : QString();
}

QString Rights::WhyNothing() const {
  QString why;
  for (const ListEntry& entry : AllLists()) {
    if (entry.ficha == nullptr) continue;
    why = WhyNotConfirm(entry.ficha);
    if (why.isEmpty()) return {};
  }
  return file_ ? why
               : QStringLiteral(
                     "O seu utilizador só pode ver. Peça a permissão para gravar a quem administra o "
                     "servidor.");
}

}  // namespace desktop
