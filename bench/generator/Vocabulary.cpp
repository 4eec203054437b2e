// Vocabulary: the word tables and the rules that make identifiers and sentences from them.
#include "Vocabulary.h"

#include <array>
#include <cctype>

namespace vbgen {
namespace {

constexpr std::array<std::string_view, 6> kCommonNouns = {"Customer", "Invoice", "Order",
                                                          "Account",  "Payment", "Product"};
constexpr std::array<std::string_view, 56> kNouns = {
    "Supplier", "Ledger",   "Journal",   "Receipt",  "Vendor",     "Stock",      "Warehouse",
    "Shipment", "Budget",   "Report",    "Employee", "Salary",     "Contract",   "Address",
    "Region",   "Branch",   "Credit",    "Debit",    "Deposit",    "Refund",     "Batch",
    "Voucher",  "Cheque",   "Statement", "Summary",  "Category",   "Department", "Discount",
    "Price",    "Quantity", "Tax",       "Article",  "Delivery",   "Reminder",   "Quote",
    "Project",  "Expense",  "Asset",     "Loan",     "Interest",   "Bank",       "Transfer",
    "Cashbook", "Fiscal",   "Audit",     "Carrier",  "Package",    "Contact",    "Country",
    "Terms",    "Season",   "Promotion", "Margin",   "Commission", "Agent",      "Store"};
// Qualifiers carry the variable prefix of the type a value of that kind has.
struct Qualified {
  std::string_view word;
  std::string_view prefix;
};
constexpr std::array<Qualified, 4> kCommonQualifiers = {
    {{"Total", "cur"}, {"Count", "lng"}, {"Amount", "cur"}, {"ID", "lng"}}};
constexpr std::array<Qualified, 22> kQualifiers = {
    {{"Name", "str"},    {"Code", "str"},   {"Date", "dtm"},    {"Rate", "dbl"},
     {"Balance", "cur"}, {"Number", "lng"}, {"Status", "int"},  {"Limit", "cur"},
     {"Type", "int"},    {"Index", "lng"},  {"Key", "str"},     {"Text", "str"},
     {"Value", "var"},   {"Level", "int"},  {"Period", "int"},  {"Flag", "bln"},
     {"Owner", "str"},   {"Source", "str"}, {"Percent", "dbl"}, {"Weight", "dbl"},
     {"Due", "dtm"},     {"Line", "lng"}}};
constexpr std::array<std::string_view, 30> kVerbs = {
    "Calculate", "Load",    "Save",     "Update",  "Validate", "Print",      "Post",    "Find",
    "Check",     "Apply",   "Build",    "Format",  "Export",   "Import",     "Refresh", "Close",
    "Open",      "Reset",   "Register", "Approve", "Cancel",   "Archive",    "Merge",   "Split",
    "Convert",   "Compute", "Fill",     "Show",    "Clear",    "Recalculate"};
constexpr std::array<VbType, 8> kTypes = {{{"lng", "Long"},
                                           {"cur", "Currency"},
                                           {"str", "String"},
                                           {"bln", "Boolean"},
                                           {"dtm", "Date"},
                                           {"dbl", "Double"},
                                           {"int", "Integer"},
                                           {"var", "Variant"}}};
constexpr std::array<std::string_view, 18> kSentenceParts = {
    "the customer total is recalculated",
    "the invoice count must not change",
    "payments are posted before the balance",
    "keep the order of the lines",
    "the account may be closed already",
    "a credit note reverses the amount",
    "rounding happens on the total only",
    "the product price includes tax",
    "the report shows every open item",
    "the supplier sends one statement a month",
    "this runs once per customer",
    "the count starts at one",
    "cancelled orders are skipped",
    "the ledger is locked during the export",
    "zero amounts are not printed",
    "the due date moves to the next working day",
    "stock levels are checked first",
    "an empty name is allowed here"};
constexpr std::array<std::string_view, 18> kMessages = {
    "Can't post the payment: the invoice is closed.",
    "The customer's credit limit is exceeded.",
    "Select a customer first, then click Post.",
    "If the total is wrong, End the batch and start again.",
    "Order doesn't exist or was deleted.",
    "Enter a valid amount (e.g. 1,250.00).",
    "Do you want to save the changes to this account?",
    "The supplier's statement isn't balanced.",
    "Type a product code; Select Case rules apply to codes.",
    "Error while loading the ledger - please check the file.",
    "The count of open items is too high for one report.",
    "Payment saved. Print the receipt now?",
    "The invoice can't be posted because the customer account is on hold.",
    "Some order lines have no product code; they were left out of the total.",
    "The exchange rate for this currency is missing. Enter it under Settings first.",
    "Another user has changed this customer record. Load it again before you save.",
    "The fiscal period is closed; post the entry to the next open period instead.",
    "Stock for this product is below the reorder level. Create a purchase order now?"};

}  // namespace

std::string_view Vocabulary::Noun() {
  if (rng_.Chance(40)) return rng_.Pick(kCommonNouns);
  return rng_.Pick(kNouns);
}

namespace {

const Qualified& PickQualified(Prng& rng) {
  if (rng.Chance(45)) return rng.Pick(kCommonQualifiers);
  return rng.Pick(kQualifiers);
}

}  // namespace

std::string_view Vocabulary::Qualifier() {
  return PickQualified(rng_).word;
}

Variable Vocabulary::Typed() {
  const Qualified& q = PickQualified(rng_);
  std::string name(Noun());
  // Some names qualify twice (CustomerInvoiceTotal), as long-lived business code tends to.
  if (rng_.Chance(35)) {
    std::string_view second = Noun();
    if (second != name) name += second;
  }
  name += q.word;
  return {name, &ByPrefix(q.prefix)};
}

Variable Vocabulary::Local() {
  const Qualified& q = PickQualified(rng_);
  const VbType* type = &ByPrefix(q.prefix);
  std::string name(type->prefix);
  name += Noun();
  if (rng_.Chance(30)) {
    std::string_view second = Noun();
    if (name.find(second) == std::string::npos) name += second;
  }
  if (rng_.Chance(70)) {
    name += q.word;
  } else {
    name.replace(0, 3, Type().prefix);
    type = &ByPrefix(std::string_view(name).substr(0, 3));
  }
  return {name, type};
}

std::string_view Vocabulary::Verb() {
  return rng_.Pick(kVerbs);
}

const VbType& Vocabulary::Type() {
  return rng_.Pick(kTypes);
}

const VbType& Vocabulary::ByPrefix(std::string_view prefix) {
  for (const VbType& type : kTypes) {
    if (type.prefix == prefix) return type;
  }
  return kTypes[0];
}

std::string Vocabulary::Compound() {
  std::string name(Noun());
  name += Qualifier();
  return name;
}

std::string Vocabulary::ProcedureName() {
  std::string name(Verb());
  name += Noun();
  if (rng_.Chance(50)) name += Qualifier();
  return name;
}

std::string Vocabulary::ConstantName() {
  std::string name = rng_.Chance(50) ? "MAX_" : "DEFAULT_";
  for (std::string_view word : {Noun(), Qualifier()}) {
    for (char c : word) name += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    name += '_';
  }
  name.pop_back();
  return name;
}

std::string Vocabulary::Sentence() {
  std::string_view first = rng_.Pick(kSentenceParts);
  std::string text(first);
  text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
  std::string_view second = rng_.Pick(kSentenceParts);
  if (second != first && rng_.Chance(65)) {
    text += "; ";
    text += second;
  }
  text += '.';
  return text;
}

std::string Vocabulary::Message() {
  std::string text(rng_.Pick(kMessages));
  // Quotes inside a VB string literal are doubled.
  std::string escaped;
  for (char c : text) {
    escaped += c;
    if (c == '"') escaped += '"';
  }
  return escaped;
}

}  // namespace vbgen
