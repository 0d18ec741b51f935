#pragma once

namespace zorCrmParvel {

/// One of a family: `Base`, made with the table that tells this one from its like.
template <typename Base, const auto& tabela>
class MemberOf : public Base {
 public:
  MemberOf() : Base(tabela) {}
};

}  // namespace zorCrmParvel
