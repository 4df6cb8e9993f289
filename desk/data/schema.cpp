#include "data/schema.h"

namespace desk {

void create_schema(Database& database) {
  Transaction transaction(database);
  database.exec_script(table_script());
  database.exec_script(view_script());
  transaction.commit();
}

}  // namespace desk
