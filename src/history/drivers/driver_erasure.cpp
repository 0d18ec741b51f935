#include "history/drivers/driver_erasure.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "drivers/motoristas.h"
#include "embedded/database.h"
#include "history/drivers/driver_history.h"
#include "history/drivers/driver_tables.h"
#include "history/drivers/personal_texts.h"
#include "history/retention.h"
#include "history/rows.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace history {
namespace {

using platform::RuntimeError;
using zorCrmParvel::RecordsetRef;

/// Entries under "Motorista" that stand for the driver, and what is below it.
bool ForgetLearned(nlohmann::ordered_json& json, const std::string& code) {
  bool changed = false;
  for (auto& [name, value] : json.items()) {
    if (!value.is_structured()) continue;
    if (name == "Motorista" && value.is_object())
      for (auto each = value.begin(); each != value.end();) {
        const bool his = each->is_string() && SameCode(each->get<std::string>(), code);
        changed = changed || his;
        each = his ? value.erase(each) : std::next(each);
      }
    changed = ForgetLearned(value, code) || changed;
  }
  return changed;
}

class Erasure {
 public:
  Erasure(KeepingStore& store, std::string code)
      : store_(store), bd_(store.inner()), code_(std::move(code)), new_(FreeCode()), texts_(new_) {}

  Erased Run() {
    const tsql::Table& drivers = store_.catalog().Get("zor_Funcionarios");
    const std::vector<Image> records = ReadDriverRows(store_, DriverTables().front(), code_);
    if (records.empty())
      throw RuntimeError(platform::kInvalidCall, "Motoristas",
                         "Não há motorista com o código «" + code_ + "».");
    code_ = KeyText(drivers, records.front());  // as the record spells it
    for (const Image& record : records) texts_.Learn(drivers, record);
    zorCrmParvel::Batch batch(*store_.inner());
    if (store_.HasHistory()) {
      DriverHistory past(store_, code_, new_);
      for (const Image& record : past.Records()) texts_.Learn(drivers, record);
      past.Erase();
    }
    ReplaceRows();
    ForgetInProfiles();
    RenameImportedRows();
    for (const tsql::Table& table : store_.catalog().tables()) ClearTexts(table);
    if (store_.HasHistory()) {
      ForgetUnneededDocuments(store_);
      // An operation of which nothing is kept: it can't be undone.
      store_.Note("Motoristas: dados pessoais apagados, " + new_, "", "");
    }
    batch.Commit();
    return {new_, places_, false};
  }

 private:
  std::string FreeCode() {
    for (int number = 1;; ++number) {
      std::string code = "Ex-" + std::to_string(number);
      if (OpenRows(store_, "SELECT Codigo FROM zor_Funcionarios WHERE Codigo = " + TextLiteral(code))->Eof())
        return code;
    }
  }

  void Run(const std::string& statement) { bd_->ExecutarSql("", statement.c_str()); }

  void ReplaceRows() {
    for (const DriverTable& each : DriverTables()) {
      std::string where = std::string(" WHERE ") + each.column + " = " + TextLiteral(code_);
      if (*each.condition != '\0') where += std::string(" AND ") + each.condition;
      Run(each.own ? "DELETE FROM " + Bracketed(each.table) + where
                   : "UPDATE " + Bracketed(each.table) + " SET " + each.column + " = " + TextLiteral(new_) +
                         where);
    }
    zorCrmParvel::clMotoristas nobody;
    nobody.bd = bd_;
    nobody.Codigo = new_;
    nobody.Inactivo = 1;
    nobody.Escrever();
  }

  /// What profiles learned to take for the driver.
  void ForgetInProfiles() {
    if (store_.catalog().Find("parvel_perfis") == nullptr) return;
    RecordsetRef rows;
    bd_->AbrirEdicao("SELECT Nome, Perfil FROM parvel_perfis", rows);
    for (; !rows->Eof(); rows->MoveNext()) {
      auto json = nlohmann::ordered_json::parse(TextIn(*rows, "Perfil"), nullptr, false);
      if (json.is_discarded() || !ForgetLearned(json, code_)) continue;
      rows->Fields("Perfil").SetValue(json.dump(2));
      rows->Update();
      ++places_;
    }
    rows->Close();
  }

  void RenameImportedRows() {
    if (store_.catalog().Find("parvel_importacoes_linhas") == nullptr) return;
    Run("UPDATE parvel_importacoes_linhas SET Chave = " + TextLiteral(new_) +
        " WHERE Tabela = N'zor_Funcionarios' AND Chave = " + TextLiteral(code_));
  }

  /// Texts of any table that name the person. Keys stay as they are, and so does whom other drivers' records
  /// name: what they share with him is theirs.
  void ClearTexts(const tsql::Table& table) {
    if (platform::EqualsIgnoringCase(table.name, "zor_Funcionarios") || table.primaryKey.empty()) return;
    std::vector<std::string> columns;
    for (const tsql::Column& column : table.columns)
      if (column.type.base == tsql::BaseType::kNVarChar && !IsKey(table, column))
        columns.push_back(column.name);
    if (columns.empty()) return;
    std::string keys;
    for (const std::string& key : table.primaryKey) keys.append(Bracketed(key)).append(", ");
    for (const std::string& text : texts_.all()) {
      std::string names;
      std::string condition;
      for (const std::string& column : columns) {
        const char* joint = names.empty() ? "" : " OR ";
        names.append(names.empty() ? "" : ", ").append(Bracketed(column));
        condition.append(joint).append(Bracketed(column)).append(" LIKE ").append(Anywhere(text));
      }
      std::string statement = "SELECT ";
      statement.append(keys).append(names).append(" FROM ").append(Bracketed(table.name));
      Clear(statement.append(" WHERE ").append(condition), columns);
    }
  }

  static bool IsKey(const tsql::Table& table, const tsql::Column& column) {
    return std::any_of(table.primaryKey.begin(), table.primaryKey.end(),
                       [&](const auto& key) { return table.Find(key) == &column; });
  }

  void Clear(const std::string& statement, const std::vector<std::string>& columns) {
    RecordsetRef rows;
    bd_->AbrirEdicao(statement.c_str(), rows);
    for (; !rows->Eof(); rows->MoveNext()) {
      bool changed = false;
      for (const std::string& column : columns) {
        auto field = rows->Fields(column);
        if (field.Value().IsNull()) continue;
        const std::string before = field.Value().ToText();
        const std::string after = texts_.Cleared(before);
        if (after == before) continue;
        field.SetValue(platform::Left(after, static_cast<std::size_t>(field.DefinedSize())));
        changed = true;
      }
      if (!changed) continue;
      rows->Update();
      ++places_;
    }
    rows->Close();
  }

  KeepingStore& store_;
  zorCrmParvel::DataAccessRef bd_;  // past the history
  std::string code_;
  std::string new_;
  PersonalTexts texts_;
  long places_ = 0;
};

}  // namespace

Erased EraseDriver(const std::shared_ptr<KeepingStore>& store, const std::string& code) {
  Erased erased = Erasure(*store, code).Run();
  if (store->file() != nullptr) erased.fromFile = store->file()->Compact();
  return erased;
}

}  // namespace history
