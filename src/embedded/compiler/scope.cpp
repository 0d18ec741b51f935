#include "embedded/compiler/scope.h"

#include "embedded/compiler/server_error.h"
#include "platform/text.h"

namespace embedded {

using platform::EqualsIgnoringCase;

void RefuseColumn(const std::string& name) {
  throw platform::RuntimeError(platform::kInvalidColumn, "", "Invalid column name '" + name + "'.");
}

Typed Source::ColumnAt(const tsql::Column& column) const {
  Typed value = ColumnValue(column, alias);
  value.nullable = value.nullable || outer;
  return value;
}

const Source& Scope::Add(const tsql::TableRef& table, bool outer) {
  const tsql::Table& found = catalog_.Get(table.name);
  for (const Source& source : sources_)
    if (EqualsIgnoringCase(source.qualifier, table.Qualifier()))
      Refuse("The objects \"" + source.qualifier + "\" and \"" + table.Qualifier() +
             "\" in the FROM clause have the same exposed names. Use correlation names to distinguish them.");
  sources_.push_back({&found, table.Qualifier(), "t" + std::to_string(sources_.size()), outer});
  return sources_.back();
}

const Source& Scope::FindSource(const std::string& qualifier, const std::string& name) const {
  for (const Source& source : sources_)
    if (EqualsIgnoringCase(source.qualifier, qualifier)) return source;
  Refuse("The multi-part identifier \"" + qualifier + "." + name + "\" could not be bound.");
}

Typed Scope::Resolve(const tsql::ColumnRef& reference) const {
  if (!reference.table.empty()) {
    const Source& source = FindSource(reference.table, reference.name);
    const tsql::Column* column = source.table->Find(reference.name);
    if (column == nullptr) RefuseColumn(reference.name);
    return source.ColumnAt(*column);
  }
  const Source* owner = nullptr;
  const tsql::Column* found = nullptr;
  for (const Source& source : sources_) {
    const tsql::Column* column = source.table->Find(reference.name);
    if (column == nullptr) continue;
    if (found != nullptr) Refuse("Ambiguous column name '" + reference.name + "'.");
    owner = &source;
    found = column;
  }
  if (found == nullptr) RefuseColumn(reference.name);
  return owner->ColumnAt(*found);
}

std::vector<const Source*> Scope::Stars(const std::string& qualifier) const {
  if (!qualifier.empty()) return {&FindSource(qualifier, "*")};
  if (sources_.empty()) Refuse("Must specify table to select from.");
  std::vector<const Source*> all;
  for (const Source& source : sources_) all.push_back(&source);
  return all;
}

}  // namespace embedded
