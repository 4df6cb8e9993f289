#include "data/engine.h"

namespace desk {

std::unique_ptr<Engine> Engine::of(const std::string& sAddress) {
  for (const std::string_view sScheme : {"postgresql://", "postgres://"})
    if (sAddress.starts_with(sScheme)) return make_postgres_engine(sAddress);
  return make_sqlite_engine(sAddress);
}

}  // namespace desk
