#include <map>

#include "reading.h"

namespace tsql {
namespace {

std::string Joined(const std::vector<ExpressionPtr>& expressions) {
  std::string text;
  for (const ExpressionPtr& each : expressions) text += (text.empty() ? "" : ", ") + Bracketed(each);
  return text;
}

struct Writer {
  std::string operator()(const Literal& literal) const {
    if (literal.kind == Literal::Kind::kNull) return "NULL";
    return literal.value + "#" + std::to_string(literal.ordinal);
  }
  std::string operator()(const ColumnRef& column) const {
    return column.table.empty() ? column.name : column.table + "." + column.name;
  }
  std::string operator()(const Unary& unary) const {
    static const std::map<Unary::Kind, std::string> kBefore = {
        {Unary::Kind::kMinus, "-"}, {Unary::Kind::kPlus, "+"}, {Unary::Kind::kNot, "NOT "}};
    const std::string operand = Bracketed(unary.operand);
    const auto before = kBefore.find(unary.kind);
    if (before != kBefore.end()) return "(" + before->second + operand + ")";
    return "(" + operand + (unary.kind == Unary::Kind::kIsNull ? " IS NULL)" : " IS NOT NULL)");
  }
  std::string operator()(const Binary& binary) const {
    static const char* const kWords[] = {"+",  "-", "*",  "/",   "%",  "=",    "<>",      "<",
                                         "<=", ">", ">=", "AND", "OR", "LIKE", "NOT LIKE"};
    return "(" + Bracketed(binary.left) + " " + kWords[static_cast<int>(binary.op)] + " " +
           Bracketed(binary.right) + ")";
  }
  std::string operator()(const InList& in) const {
    return "(" + Bracketed(in.value) + (in.negated ? " NOT IN (" : " IN (") + Joined(in.items) + "))";
  }
  std::string operator()(const FunctionCall& call) const {
    const std::string part = call.datePart.empty() ? "" : call.datePart + "; ";
    return call.name + "(" + part + (call.star ? "*" : Joined(call.arguments)) + ")";
  }
  std::string operator()(const Cast& cast) const {
    const std::string style = cast.style ? " style " + std::to_string(*cast.style) : "";
    return "(" + Bracketed(cast.operand) + " as " + cast.type.ToText() + style + ")";
  }
  std::string operator()(const Case& choice) const {
    std::string text = "CASE";
    if (choice.operand) text += " " + Bracketed(choice.operand);
    for (const Case::Branch& branch : choice.branches) {
      text += " WHEN " + Bracketed(branch.when) + " THEN " + Bracketed(branch.then);
    }
    if (choice.otherwise) text += " ELSE " + Bracketed(choice.otherwise);
    return text + " END";
  }
};

}  // namespace

std::string Bracketed(const ExpressionPtr& expression) { return std::visit(Writer{}, expression->node); }

}  // namespace tsql
