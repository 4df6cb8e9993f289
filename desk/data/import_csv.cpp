#include "data/import_csv.h"

#include <QFile>
#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <span>

#include "data/csv_reader.h"
#include "frame/conversions.h"

namespace desk {
namespace {

enum Field { kNumber, kCustomer, kDate, kDueDate, kAmount, kFieldCount };

struct Synonyms {
  const char* sKey;
  std::array<std::string_view, 5> aHeaders;  // lower case, without blanks
};

constexpr std::array<Synonyms, kFieldCount> kSynonyms = {{
    {"number", {"invoicenumber", "invoiceno", "number", "billno", "发票号码"}},
    {"customer", {"customerid", "customer", "customernumber", "custid", "客户"}},
    {"date", {"invoicedate", "date", "billdate", "issuedate", "日期"}},
    {"duedate", {"duedate", "due", "paymentdue", "limitdate", "到期日"}},
    {"amount", {"invoiceamount", "amount", "total", "billamount", "金额"}},
}};

std::string header_key(std::string_view sHeader) {
  std::string sKey = arap::LowerCase(sHeader);
  std::erase_if(sKey, [](char c) { return c == ' ' || c == '\t'; });
  return sKey;
}

using Positions = std::array<std::size_t, kFieldCount>;

std::optional<std::size_t> find_header(const std::vector<std::string>& headers, std::string_view sWanted) {
  for (std::size_t i = 0; i < headers.size(); ++i)
    if (header_key(headers[i]) == sWanted) return i;
  return std::nullopt;
}

std::size_t find_field(const std::vector<std::string>& headers, const Synonyms& field, const ImportMapping& mapping,
                       const std::string& sName) {
  if (const auto mapped = mapping.find(field.sKey); mapped != mapping.end()) {
    if (const auto found = find_header(headers, header_key(mapped->second))) return *found;
    throw DeskError(ErrorKind::BadValue, "The file has no column \"" + mapped->second + "\"", sName + ", line 1",
                    std::string("The mapping names it for \"") + field.sKey + "\"");
  }
  for (const std::string_view sHeader : field.aHeaders)
    if (const auto found = find_header(headers, sHeader)) return *found;
  throw DeskError(ErrorKind::BadValue, std::string("No column for \"") + field.sKey + "\" was found",
                  sName + ", line 1", "Name the column in the mapping");
}

Positions find_fields(const CsvLine& header, const ImportMapping& mapping, const std::string& sName) {
  Positions positions{};
  for (std::size_t i = 0; i < kFieldCount; ++i) positions[i] = find_field(header.aFields, kSynonyms[i], mapping, sName);
  return positions;
}

/// Three whole numbers with one separator between them.
std::optional<std::array<int, 3>> three_numbers(std::string_view sText, char cSeparator) {
  std::array<int, 3> numbers{};
  const char* p = sText.data();
  const char* const pEnd = p + sText.size();
  for (std::size_t i = 0; i < 3; ++i) {
    if (i > 0 && (p == pEnd || *p++ != cSeparator)) return std::nullopt;
    const auto result = std::from_chars(p, pEnd, numbers[i]);
    if (result.ec != std::errc() || numbers[i] < 0) return std::nullopt;
    p = result.ptr;
  }
  return p == pEnd ? std::optional(numbers) : std::nullopt;
}

/// yyyy-mm-dd or m/d/yyyy, as yyyy-mm-dd; a day that the calendar lacks is refused.
std::string date_of(std::string_view sText) {
  int nYear = 0, nMonth = 0, nDay = 0;
  if (const auto iso = three_numbers(sText, '-')) {
    nYear = (*iso)[0], nMonth = (*iso)[1], nDay = (*iso)[2];
  } else if (const auto slashes = three_numbers(sText, '/')) {
    nMonth = (*slashes)[0], nDay = (*slashes)[1], nYear = (*slashes)[2];
  }
  if (nYear >= 1900 && nYear <= 9999 && nMonth >= 1 && nMonth <= 12 && nDay >= 1 && nDay <= 31) {
    const arap::Date date = arap::DateSerial(nYear, nMonth, nDay);
    if (arap::DayOf(date).nMonth == nMonth) return arap::TextOf(Value(date));
  }
  throw DeskError(ErrorKind::BadValue, "\"" + std::string(sText) + "\" is no date (yyyy-mm-dd or m/d/yyyy)", {});
}

struct Invoice {
  std::string sNumber;
  std::string sCustomer;
  std::string sDate;
  std::string sDueDate;
  Money amount;
};

Invoice read_invoice(const CsvLine& line, const Positions& positions) {
  const auto field = [&](Field which) {
    if (positions[which] >= line.aFields.size())
      throw DeskError(ErrorKind::BadValue, "the line has only " + std::to_string(line.aFields.size()) + " fields", {});
    return std::string(arap::Trim(line.aFields[positions[which]]));
  };
  Invoice invoice{field(kNumber), field(kCustomer), date_of(field(kDate)), date_of(field(kDueDate)),
                  Money::parse(field(kAmount))};
  if (invoice.sNumber.empty()) throw DeskError(ErrorKind::BadValue, "the invoice has no number", {});
  if (invoice.sCustomer.empty()) throw DeskError(ErrorKind::BadValue, "the invoice has no customer", {});
  if (invoice.amount.is_zero()) throw DeskError(ErrorKind::BadValue, "the amount is zero", {});
  return invoice;
}

class Importer {
 public:
  explicit Importer(Database& database) : database_(database) {}

  void add(const CsvLine& line, const Positions& positions) {
    std::optional<Invoice> invoice;
    try {
      invoice = read_invoice(line, positions);
    } catch (const DeskError& error) {
      const bool bPlace = !error.where().empty();
      result.aBad.push_back({line.nLine, error.problem() + (bPlace ? ": \"" + error.where() + "\"" : "")});
      return;
    }
    const Rows known = database_.query("SELECT FItemID FROM t_Organization WHERE FNumber = ?", {invoice->sCustomer});
    const std::int32_t nCustomer = known.empty() ? new_customer(invoice->sCustomer) : known.integer(0, "FItemID");
    if (!database_.query("SELECT 1 FROM ICSale WHERE FBillNo = ? AND FCustID = ?", {invoice->sNumber, nCustomer})
             .empty()) {
      result.aSkipped.push_back(
          {line.nLine, "invoice " + invoice->sNumber + " of " + invoice->sCustomer + " is in the book already"});
      return;
    }
    const Money total = result.total + invoice->amount;
    database_.exec(
        "INSERT INTO ICSale (FClassTypeID, FBillNo, FDate, FDueDate, FCustID, FCurrencyID, FExchangeRate, FAmountFor, "
        "FAmount) VALUES (1000002, ?, ?, ?, ?, 1, 1, ?, ?)",
        {invoice->sNumber, invoice->sDate, invoice->sDueDate, nCustomer, invoice->amount, invoice->amount});
    result.total = total;
    ++result.nImported;
  }

  ImportResult result;

 private:
  std::int32_t new_customer(const std::string& sNumber) {
    ++result.nNewPartners;
    return database_
        .query("INSERT INTO t_Organization (FNumber, FName) VALUES (?, ?) RETURNING FItemID", {sNumber, sNumber})
        .integer(0, "FItemID");
  }

  Database& database_;
};

}  // namespace

std::array<std::string_view, 5> import_keys() {
  std::array<std::string_view, kFieldCount> aKeys;
  std::ranges::transform(kSynonyms, aKeys.begin(), &Synonyms::sKey);
  return aKeys;
}

ImportResult import_invoices_text(Database& database, std::string_view sCsv, const std::string& sName,
                                  const ImportMapping& mapping) {
  const std::vector<CsvLine> lines = read_csv(sCsv, sName);
  if (lines.empty()) throw DeskError(ErrorKind::BadValue, "The file is empty", sName);
  const Positions positions = find_fields(lines.front(), mapping, sName);
  Transaction transaction(database);
  Importer importer(database);
  for (const CsvLine& line : std::span(lines).subspan(1)) importer.add(line, positions);
  transaction.commit();
  return std::move(importer.result);
}

ImportResult import_invoices(Database& database, const std::string& sPath, const ImportMapping& mapping) {
  QFile file(QString::fromStdString(sPath));
  if (!file.open(QIODevice::ReadOnly))
    throw DeskError(ErrorKind::MissingFile, "The file can't be read", sPath, file.errorString().toStdString());
  const QByteArray bytes = file.readAll();
  return import_invoices_text(database, {bytes.data(), static_cast<std::size_t>(bytes.size())}, sPath, mapping);
}

}  // namespace desk
