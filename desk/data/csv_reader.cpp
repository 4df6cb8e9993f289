#include "data/csv_reader.h"

#include <csv.h>

#include <algorithm>
#include <memory>

#include "data/desk_error.h"

namespace desk {
namespace {

struct Collector {
  std::vector<CsvLine> lines;
  CsvLine current{1, {}};
};

void on_field(void* pText, std::size_t nSize, void* pCollector) {
  static_cast<Collector*>(pCollector)->current.aFields.emplace_back(static_cast<const char*>(pText), nSize);
}

void on_line(int, void* pCollector) {
  auto& collector = *static_cast<Collector*>(pCollector);
  collector.lines.push_back(std::move(collector.current));
  collector.current = CsvLine{0, {}};
}

struct FreeParser {
  void operator()(csv_parser* pParser) const { csv_free(pParser); }
};

}  // namespace

std::vector<CsvLine> read_csv(std::string_view sCsv, const std::string& sName) {
  if (sCsv.starts_with("\xEF\xBB\xBF")) sCsv.remove_prefix(3);
  csv_parser parser;
  if (csv_init(&parser, CSV_STRICT | CSV_STRICT_FINI) != 0)
    throw DeskError(ErrorKind::Other, "There is not enough memory to read the file", sName);
  const std::unique_ptr<csv_parser, FreeParser> owner(&parser);
  Collector collector;
  std::size_t nLine = 1;
  const auto refuse = [&] {
    throw DeskError(ErrorKind::BadValue,
                    std::string("The file can't be read as CSV: ") + csv_strerror(csv_error(&parser)),
                    sName + ", line " + std::to_string(nLine), "Look at the quotes of this line");
  };
  // A physical line at a time, so that each record knows where it begins.
  while (!sCsv.empty()) {
    const std::size_t nSize = std::min(sCsv.find('\n'), sCsv.size() - 1) + 1;
    const std::size_t nBefore = collector.lines.size();
    if (parser.pstate == 0) collector.current.nLine = nLine;
    const std::size_t nRecordLine = collector.current.nLine;
    if (csv_parse(&parser, sCsv.data(), nSize, on_field, on_line, &collector) != nSize) refuse();
    if (collector.lines.size() > nBefore) collector.lines.back().nLine = nRecordLine;
    sCsv.remove_prefix(nSize);
    ++nLine;
  }
  nLine = collector.current.nLine;  // what isn't closed at the end began here
  if (csv_fini(&parser, on_field, on_line, &collector) != 0) refuse();
  return std::move(collector.lines);
}

}  // namespace desk
