#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "store/store.h"

namespace store {

/// A database around another one: what is not overridden goes on to that one as it stands.
class ForwardingStore : public zorCrmParvel::Store {
 public:
  explicit ForwardingStore(std::shared_ptr<zorCrmParvel::Store> inner) : inner_(std::move(inner)) {}

  std::string Place() const override { return inner_->Place(); }
  std::function<std::shared_ptr<zorCrmParvel::Store>()> Opener() const override { return inner_->Opener(); }
  zorCrmParvel::Refusals Refused() override { return inner_->Refused(); }
  void BeginBatch() override { inner_->BeginBatch(); }
  void BeginLargeBatch() override { inner_->BeginLargeBatch(); }
  long NumberGiven(const std::string& table, long number) override {
    return inner_->NumberGiven(table, number);
  }
  void CommitBatch() override { inner_->CommitBatch(); }
  void AbandonBatch() override { inner_->AbandonBatch(); }
  void AddRows(const std::string& table, const std::vector<std::string>& columns,
               const std::vector<const zorCrmParvel::RowValues*>& rows) override {
    inner_->AddRows(table, columns, rows);
  }
  bool ObterLigacao(platform::Ref<platform::Connection>& connection) override {
    return inner_->ObterLigacao(connection);
  }
  void BeginSnapshot() override { inner_->BeginSnapshot(); }
  void EndSnapshot() noexcept override { inner_->EndSnapshot(); }

 protected:
  zorCrmParvel::Store& inner() const { return *inner_; }

  bool Execute(const std::string& statement) override { return inner_->ExecutarSql("", statement.c_str()); }
  zorCrmParvel::RecordsetRef OpenForEditing(const std::string& statement) override {
    zorCrmParvel::RecordsetRef rows;
    inner_->AbrirEdicao(statement.c_str(), rows);
    return rows;
  }
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override {
    zorCrmParvel::RecordsetRef rows;
    inner_->AbrirLeitura("", statement.c_str(), rows);
    return rows;
  }

 private:
  std::shared_ptr<zorCrmParvel::Store> inner_;
};

}  // namespace store
