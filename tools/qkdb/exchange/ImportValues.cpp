#include "exchange/ImportValues.h"

#include "mfc/CString.h"
#include "text/NearNames.h"

namespace qkdb {

std::string NameProblem(const std::string& name, const std::string& what) {
  if (name.empty()) return "the " + what + " has no name";
  if (name.find('"') != std::string::npos)
    return "the " + what + " name holds a double quote, which the library cannot look up";
  return "";
}

std::wstring NameKey(const std::string& name) { return Folded(CString::FromUtf8(name)); }

bool SameValue(const nlohmann::ordered_json& file, const tablekit::FieldValue& stored) {
  using Kind = tablekit::FieldValue::Kind;
  switch (stored.kind) {
    case Kind::Null:
      return file.is_null();
    case Kind::Text:
      return file.is_string() && stored.text.ToUtf8() == file.get<std::string>();
    case Kind::Integer:
      return file.is_number() && static_cast<double>(stored.integer) == file.get<double>();
    case Kind::Real:
      return file.is_number() && stored.real == file.get<double>();
    default:
      return false;
  }
}

tablekit::FieldValue ColumnValue(const nlohmann::ordered_json& file) {
  if (file.is_null()) return {};
  if (file.is_string()) return tablekit::FieldValue::Text(CString::FromUtf8(file.get<std::string>()));
  if (file.is_number_integer()) return tablekit::FieldValue::Int(file.get<long long>());
  return tablekit::FieldValue::Real(file.get<double>());
}

}  // namespace qkdb
