#include "data/sql_shapes.h"

#include <algorithm>
#include <set>

namespace desk {
namespace {

// The rules have some dozens of texts; lists of ids could make any number of shapes.
constexpr std::size_t kMostShapes = 256;

bool is_literal(const SqlToken& token) {
  return token.kind == SqlToken::Kind::Number || token.kind == SqlToken::Kind::String;
}

std::string name_of_shape(const std::vector<SqlToken>& tokens) {
  std::string sShape;
  for (const SqlToken& token : tokens) {
    // No word begins so, and no symbol is so.
    if (is_literal(token)) {
      sShape += token.kind == SqlToken::Kind::Number ? '0' : '\'';
    } else if (token.bQuoted) {
      sShape.append("[").append(token.sText).append("]");
    } else {
      sShape += token.sText;
    }
    sShape += ' ';
  }
  return sShape;
}

std::vector<std::pair<std::size_t, std::string>> kept_literals(const SqlBatch& batch,
                                                               const std::vector<SqlToken>& tokens) {
  std::set<std::size_t> lifted;
  for (const TranslatedStatement& statement : batch.aStatements) {
    for (const Parameter& parameter : statement.aParameters)
      if (const auto* pUse = std::get_if<LiteralUse>(&parameter)) lifted.insert(pUse->nToken);
  }
  std::vector<std::pair<std::size_t, std::string>> aKept;
  for (std::size_t i = 0; i < tokens.size(); ++i)
    if (is_literal(tokens[i]) && !lifted.contains(i)) aKept.emplace_back(i, tokens[i].sText);
  return aKept;
}

}  // namespace

bool SqlShapes::fits(const Shape& shape, const std::vector<SqlToken>& tokens) {
  return std::ranges::all_of(shape.aKept, [&](const auto& kept) { return tokens[kept.first].sText == kept.second; });
}

const SqlBatch& SqlShapes::translation(std::string_view sText, const std::vector<SqlToken>& tokens) {
  std::string sShape = name_of_shape(tokens);
  if (const auto found = shapes_.find(sShape); found != shapes_.end() && fits(found->second, tokens))
    return found->second.batch;
  SqlBatch batch = translate(sText, tokens);
  if (shapes_.size() >= kMostShapes) shapes_.clear();
  Shape shape{std::move(batch), {}};
  shape.aKept = kept_literals(shape.batch, tokens);
  return shapes_.insert_or_assign(std::move(sShape), std::move(shape)).first->second.batch;
}

}  // namespace desk
