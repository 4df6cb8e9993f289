#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/sql_dialect.h"

namespace desk {

/// Translations that were made before, by the shape of their text: its tokens without the literals that became
/// parameters. The rules ask the same thing of row after row, and only the id differs.
class SqlShapes {
 public:
  /// The translation of the text, of which `tokens` are the tokens. It stands until the next call.
  const SqlBatch& translation(std::string_view sText, const std::vector<SqlToken>& tokens);
  std::size_t size() const { return shapes_.size(); }

 private:
  struct Shape {
    SqlBatch batch;
    std::vector<std::pair<std::size_t, std::string>> aKept;  // literals that stand in the statements, by their token
  };
  static bool fits(const Shape& shape, const std::vector<SqlToken>& tokens);

  std::unordered_map<std::string, Shape> shapes_;
};

}  // namespace desk
