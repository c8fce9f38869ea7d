#include "answers/RowItems.h"

#include "answers/WeatherItems.h"
#include "tablekit/CADORecordset.h"
#include "tablekit/tagDBSTRUCT.h"

namespace qkdb {

std::vector<bool> NullColumns(tagDBSTRUCT& record, long rowId, const std::vector<CString>& columns) {
  CString sql = L"select ";
  for (std::size_t i = 0; i < columns.size(); ++i)
    sql += CString(i == 0 ? L"" : L", ") + L"case when [" + columns[i] + L"] is null then 1 else 0 end";
  CString where;
  where.Format(L" from [%s] where ID=%ld", record.GetTableName().GetString(), rowId);
  sql += where;
  CADORecordset rs;
  if (!record.ExecSql(sql, &rs, nullptr) || rs.IsEOF()) return {};
  std::vector<bool> nulls(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    int isNull = 0;
    rs.GetFieldValue(static_cast<int>(i), isNull);
    nulls[i] = isNull != 0;
  }
  return nulls;
}

bool RowItems(tagDBSTRUCT& record, CAData& value, nlohmann::ordered_json& items) {
  items = NamedItems(value);
  std::vector<CString> names;
  for (const auto& [name, item] : items.items()) names.push_back(CString::FromUtf8(name));
  const std::vector<bool> nulls = NullColumns(record, record.GetID(), names);
  if (nulls.size() != names.size()) return false;
  for (std::size_t i = 0; i < names.size(); ++i)
    if (nulls[i]) items[names[i].ToUtf8()] = nullptr;
  return true;
}

}  // namespace qkdb
