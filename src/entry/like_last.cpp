#include "entry/like_last.h"

#include <algorithm>

#include "entry/expense_fields.h"
#include "host/literal.h"
#include "platform/text.h"

namespace entry {
namespace {

using zorCrmParvel::Gastos;
using zorCrmParvel::InsideLiteral;
using zorCrmParvel::Statement;
using zorCrmParvel::value;

struct LastExpense {
  bool found = false;
  std::string type, driver, price;
};

/// The vehicle's last expense: of a type, if one is given, and of none of the others.
LastExpense Read(const zorCrmParvel::DataAccessRef& bd, const std::string& plate, const std::string& type,
                 const std::vector<std::string>& others) {
  Statement statement{"SELECT TOP 1 TipoGasto, Motorista, ValorUn FROM zor_PV_Gastos WHERE Matricula = N'",
                      value(InsideLiteral(plate)), "'"};
  if (!type.empty()) statement << " AND TipoGasto = N'" << value(InsideLiteral(type)) << "'";
  for (const std::string& other : others)
    statement << " AND TipoGasto <> N'" << value(InsideLiteral(other)) << "'";
  statement << " ORDER BY Data DESC, Gst_Id DESC";
  zorCrmParvel::RecordsetRef rows;
  bd->AbrirLeitura("", statement, rows);
  if (rows->Eof()) return {};
  const auto text = [&rows](std::size_t field) {
    const platform::Variant read = rows->Fields(field).Value();
    return read.IsNull() ? std::string() : read.ToText();
  };
  return {true, text(0), text(1), text(2)};
}

/// Types a text where something else stands, and goes on to another field. False when the ficha refuses it.
bool Fill(Gastos& ficha, int field, const std::string& text, int next) {
  platform::zor_input& input = ficha.Campo[field];
  if (text.empty() || input.Text == text) return true;
  return ficha.UserGoesTo(input) && ficha.UserTypes(input, text) && ficha.UserGoesTo(ficha.Campo[next]);
}

}  // namespace

bool TakesLikeLast(const platform::Form& form) {
  const auto* ficha = dynamic_cast<const Gastos*>(&form);
  return ficha != nullptr && ficha->Seg_Id == 0;
}

std::string LikeLast(platform::Form& form, TakenTypes& taken) {
  auto* ficha = dynamic_cast<Gastos*>(&form);
  if (ficha == nullptr) return {};
  if (ficha->Seg_Id != 0) return "Só num gasto novo.";
  const std::string plate = platform::Trim(ficha->Campo[kPlate].Text);
  if (plate.empty()) return "Escreva primeiro a matrícula.";
  const std::string type = platform::Trim(ficha->Campo[kType].Text);
  std::vector<std::string>& types = taken.types;
  const bool again = taken.plate == plate && std::find(types.begin(), types.end(), type) != types.end();
  if (!again) taken = {plate, {}};
  // Stepped back from, the quantity may be empty still.
  if (again && ficha->ActiveControl() == &ficha->Campo[kQuantity]) ficha->UserKey(platform::kKeyEscape);
  LastExpense last = Read(ficha->mybd, plate, again ? std::string() : type, types);
  if (!last.found && again) {
    types = {type};
    last = Read(ficha->mybd, plate, {}, types);
  }
  if (!last.found && again) last = Read(ficha->mybd, plate, type, {});
  if (!last.found) return "A viatura ainda não tem um gasto destes.";
  if (!Fill(*ficha, kType, last.type, kDriver) || !Fill(*ficha, kDriver, last.driver, kPrice) ||
      !Fill(*ficha, kPrice, last.price, kQuantity))
    return ficha->Notice();
  ficha->UserGoesTo(ficha->Campo[kQuantity]);
  types.push_back(platform::Trim(ficha->Campo[kType].Text));
  std::string said = "Como o último: " + last.type;
  if (!last.driver.empty()) said += ", motorista " + last.driver;
  return said + ", " + last.price +
         " por unidade. Falta a quantidade. Ctrl+D outra vez: o último de outro tipo.";
}

}  // namespace entry
