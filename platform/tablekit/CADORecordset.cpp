#include "tablekit/CADORecordset.h"

#include <array>
#include <cstdint>
#include <limits>
#include <vector>

#include "tablekit/AccessDialect.h"
#include "tablekit/CADOConnection.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/reads/BoundSql.h"

using tablekit::FieldValue;

namespace {
constexpr const wchar_t* kKeyColumn = L"ID";
constexpr long long kInt32Min = std::numeric_limits<std::int32_t>::min();
constexpr long long kInt32Max = std::numeric_limits<std::int32_t>::max();
constexpr long long kUInt32Max = std::numeric_limits<std::uint32_t>::max();

wchar_t FoldAscii(wchar_t c) { return (c >= L'A' && c <= L'Z') ? c + (L'a' - L'A') : c; }

// FNV-1a over the name with ASCII letters folded to lower case: equal for names that SameName finds
// equal, so a column is looked up by comparing numbers and confirmed by one text comparison.
std::uint32_t ColumnKey(const wchar_t* name) {
  std::uint32_t h = 2166136261u;
  for (; *name; ++name) {
    h = (h ^ static_cast<std::uint32_t>(FoldAscii(*name))) * 16777619u;
  }
  return h;
}

// Whether column and name are equal ignoring ASCII case, the rule ColumnKey folds by.
bool SameName(const CString& column, const wchar_t* name) {
  const wchar_t* c = column.GetString();
  for (; *c && *name; ++c, ++name) {
    if (FoldAscii(*c) != FoldAscii(*name)) return false;
  }
  return *c == *name;
}
}  // namespace

struct CADORecordset::State {
  enum class Mode { None, Adding, Editing };

  CADOConnection* connection = nullptr;
  bool open = false;
  bool readOnly = false;
  tablekit::ResultSet result;
  std::size_t current = 0;
  Mode mode = Mode::None;
  std::vector<std::pair<int, FieldValue>> pending;  // column index, new value
  std::string lastError;
  std::vector<std::uint32_t> columnKeys;  // ColumnKey of each column, made when the result is read
  // Open addressing over columnKeys, built once per result: each slot holds a column index or -1. A
  // record reads its row by names, one lookup per item, so this is on every row's path; a result of
  // 77 columns read item by item would otherwise compare 77 × 77 / 2 keys per row.
  std::vector<int> slots;
  // The columns last found, by the address of the name asked for: a record asks with its string
  // constants, the same addresses row after row. A remembered column is taken only when its name
  // still equals the name asked for; it is then the first of that name, as the one first found was.
  struct Remembered {
    const wchar_t* name = nullptr;
    int index = -1;
  };
  mutable std::array<Remembered, 64> remembered{};

  void IndexColumns() {
    columnKeys.clear();
    for (const CString& column : result.columns) columnKeys.push_back(ColumnKey(column));
    std::size_t size = 4;
    while (size < 2 * columnKeys.size()) size *= 2;
    slots.assign(size, -1);
    remembered.fill(Remembered());
    // In column order, so that of two columns with one name the first sits earlier on the probe path.
    for (std::size_t i = 0; i < columnKeys.size(); ++i) {
      std::size_t slot = columnKeys[i] & (size - 1);
      while (slots[slot] >= 0) slot = (slot + 1) & (size - 1);
      slots[slot] = static_cast<int>(i);
    }
  }

  // The first column of that name, ignoring ASCII case; -1 for none.
  int Column(const wchar_t* name) const {
    if (name == nullptr || slots.empty()) return -1;
    Remembered& r = remembered[(reinterpret_cast<std::uintptr_t>(name) / sizeof(wchar_t)) % remembered.size()];
    if (r.name == name && SameName(result.columns[static_cast<std::size_t>(r.index)], name)) return r.index;
    const int found = Search(name);
    if (found >= 0) r = {name, found};
    return found;
  }

  // Column by the hash table.
  int Search(const wchar_t* name) const {
    const std::uint32_t key = ColumnKey(name);
    const std::size_t mask = slots.size() - 1;
    for (std::size_t slot = key & mask; slots[slot] >= 0; slot = (slot + 1) & mask) {
      const int i = slots[slot];
      if (columnKeys[static_cast<std::size_t>(i)] == key && SameName(result.columns[static_cast<std::size_t>(i)], name))
        return i;
    }
    return -1;
  }
  const FieldValue* Value(int index) const {
    if (!open || current >= result.rows.size() || index < 0 || index >= static_cast<int>(result.columns.size()))
      return nullptr;
    return &result.rows[current][static_cast<std::size_t>(index)];
  }
  bool Fail(std::string reason) {
    lastError = std::move(reason);
    return false;
  }
  bool Stage(const wchar_t* column, FieldValue value) {
    if (!open) return Fail("the record set is not open");
    if (readOnly) return Fail("the record set is read-only");
    int index = Column(column);
    if (index < 0) return Fail("no column " + CString(column).ToUtf8());
    if (mode == Mode::None) {
      if (current >= result.rows.size()) return Fail("no current row");
      mode = Mode::Editing;
    }
    lastError.clear();
    if (result.columns[static_cast<std::size_t>(index)].CompareNoCase(kKeyColumn) == 0) return true;
    for (auto& [i, v] : pending) {
      if (i == index) {
        v = std::move(value);
        return true;
      }
    }
    pending.emplace_back(index, std::move(value));
    return true;
  }
};

namespace {

template <class T>
int ReadInteger(const FieldValue* v, long long lo, long long hi, T& out) {
  long long i;
  if (!v || !v->AsInteger(lo, hi, i)) return 0;
  out = static_cast<T>(i);
  return 1;
}

}  // namespace

CADORecordset::CADORecordset() : m_state(std::make_unique<State>()) {}
CADORecordset::CADORecordset(CADODatabase* db) : m_state(std::make_unique<State>()), m_pDatabase(db) {}
CADORecordset::~CADORecordset() = default;

int CADORecordset::Open(const wchar_t* sql, const CADOOP& options) {
  if (m_pDatabase == nullptr || !m_pDatabase->IsOpen()) {
    Close();
    return m_state->Fail("the database is not open");
  }
  return Open(m_pDatabase->GetActiveConnection(), options, m_pDatabase->GetCurrentConnectType(), sql, 0);
}

int CADORecordset::Open(CADOConnection* connection, const CADOOP& options, int connectType, const wchar_t* sql, int) {
  Close();
  State& s = *m_state;
  if (connection == nullptr) return s.Fail("no connection");
  if (connection->GetConnectType() != connectType) return s.Fail("the connection is not of the kind given");
  std::string translated, error;
  const tablekit::SqlDialect dialect = connectType == CADODatabase::connectTypePostgreSQL
                                          ? tablekit::SqlDialect::PostgreSQL
                                          : tablekit::SqlDialect::SQLite;
  bool ran;
  if (connection->BindsLiterals()) {
    tablekit::BoundSql bound;
    ran = tablekit::TranslateAccessSqlBound(sql, bound, error) &&
          connection->QueryBound(bound.text, bound.values, s.result, error);
  } else {
    ran = tablekit::TranslateAccessSql(sql, translated, error, dialect) && connection->Query(translated, s.result, error);
  }
  if (!ran) {
    s.result = tablekit::ResultSet();
    return s.Fail(error);
  }
  s.IndexColumns();
  s.connection = connection;
  s.readOnly = options.nLockType == CADOOP::lockReadOnly;
  s.open = true;
  s.lastError.clear();
  return 1;
}

int CADORecordset::IsOpen() const { return m_state->open; }

void CADORecordset::Close() {
  State& s = *m_state;
  s.open = false;
  s.connection = nullptr;
  s.result = tablekit::ResultSet();
  s.columnKeys.clear();
  s.slots.clear();
  s.current = 0;
  s.mode = State::Mode::None;
  s.pending.clear();
}

unsigned long CADORecordset::GetRecordCount() const {
  return m_state->open ? static_cast<unsigned long>(m_state->result.rows.size()) : 0;
}

int CADORecordset::IsEOF() const { return !m_state->open || m_state->current >= m_state->result.rows.size(); }

// Rows are walked forward only, so the position is never before the first row unless there is none.
int CADORecordset::IsBOF() const { return !m_state->open || m_state->result.rows.empty(); }

void CADORecordset::MoveFirst() {
  CancelUpdate();
  m_state->current = 0;
}

void CADORecordset::MoveNext() {
  CancelUpdate();
  if (m_state->current < m_state->result.rows.size()) ++m_state->current;
}

int CADORecordset::GetFieldCount() const {
  return m_state->open ? static_cast<int>(m_state->result.columns.size()) : 0;
}

CString CADORecordset::GetFieldName(int index) const {
  if (index < 0 || index >= GetFieldCount()) return CString();
  return m_state->result.columns[static_cast<std::size_t>(index)];
}

int CADORecordset::GetFieldValue(const wchar_t* column, CString& value) const {
  return GetFieldValue(m_state->Column(column), value);
}
int CADORecordset::GetFieldValue(const wchar_t* column, double& value) const {
  return GetFieldValue(m_state->Column(column), value);
}
int CADORecordset::GetFieldValue(const wchar_t* column, bool& value) const {
  return GetFieldValue(m_state->Column(column), value);
}
int CADORecordset::GetFieldValue(const wchar_t* column, unsigned long& value) const {
  return GetFieldValue(m_state->Column(column), value);
}
int CADORecordset::GetFieldValue(const wchar_t* column, long& value) const {
  return GetFieldValue(m_state->Column(column), value);
}
int CADORecordset::GetFieldValue(const wchar_t* column, int& value) const {
  return GetFieldValue(m_state->Column(column), value);
}

int CADORecordset::GetFieldValue(int index, CString& value) const {
  const FieldValue* v = m_state->Value(index);
  return v && v->AsText(value);
}

int CADORecordset::GetFieldValue(int index, double& value) const {
  const FieldValue* v = m_state->Value(index);
  return v && v->AsDouble(value);
}

int CADORecordset::GetFieldValue(int index, bool& value) const {
  long long i = 0;
  if (!ReadInteger(m_state->Value(index), std::numeric_limits<long long>::min(),
                   std::numeric_limits<long long>::max(), i))
    return 0;
  value = i != 0;
  return 1;
}

int CADORecordset::GetFieldValue(int index, unsigned long& value) const {
  return ReadInteger(m_state->Value(index), 0, kUInt32Max, value);
}
int CADORecordset::GetFieldValue(int index, long& value) const {
  return ReadInteger(m_state->Value(index), kInt32Min, kInt32Max, value);
}
int CADORecordset::GetFieldValue(int index, int& value) const {
  return ReadInteger(m_state->Value(index), kInt32Min, kInt32Max, value);
}

int CADORecordset::SetFieldValue(const wchar_t* column, const CString& value) {
  return m_state->Stage(column, FieldValue::Text(value));
}
int CADORecordset::SetFieldValue(const wchar_t* column, const wchar_t* value) {
  return m_state->Stage(column, FieldValue::Text(CString(value)));
}
int CADORecordset::SetFieldValue(const wchar_t* column, double value) {
  return m_state->Stage(column, FieldValue::Real(value));
}
int CADORecordset::SetFieldValue(const wchar_t* column, bool value) {
  return m_state->Stage(column, FieldValue::Int(value ? 1 : 0));
}
int CADORecordset::SetFieldValue(const wchar_t* column, unsigned long value) {
  if (value > static_cast<unsigned long>(kUInt32Max)) return m_state->Fail("value outside 32 bits");
  return m_state->Stage(column, FieldValue::Int(static_cast<long long>(value)));
}
int CADORecordset::SetFieldValue(const wchar_t* column, long value) {
  if (value < kInt32Min || value > kInt32Max) return m_state->Fail("value outside 32 bits");
  return m_state->Stage(column, FieldValue::Int(value));
}
int CADORecordset::SetFieldValue(const wchar_t* column, int value) {
  return m_state->Stage(column, FieldValue::Int(value));
}

int CADORecordset::AddNew() {
  State& s = *m_state;
  if (!s.open) return s.Fail("the record set is not open");
  if (s.readOnly) return s.Fail("the record set is read-only");
  s.pending.clear();
  s.mode = State::Mode::Adding;
  return 1;
}

int CADORecordset::Edit() {
  State& s = *m_state;
  if (!s.open) return s.Fail("the record set is not open");
  if (s.readOnly) return s.Fail("the record set is read-only");
  if (s.current >= s.result.rows.size()) return s.Fail("no current row");
  if (s.mode != State::Mode::Editing) s.pending.clear();
  s.mode = State::Mode::Editing;
  return 1;
}

int CADORecordset::Update() {
  State& s = *m_state;
  if (!s.open) return s.Fail("the record set is not open");
  if (s.mode == State::Mode::None) return 1;
  if (s.result.table.empty()) return s.Fail("the rows do not come from one table and cannot be written");
  int key = s.Column(kKeyColumn);
  tablekit::ColumnValues values;
  for (const auto& [index, value] : s.pending) values.emplace_back(s.result.columns[static_cast<std::size_t>(index)].ToUtf8(), value);
  std::string error;
  if (s.mode == State::Mode::Adding) {
    long long newKey = 0;
    if (!s.connection->InsertRow(s.result.table, values, newKey, error)) return s.Fail(error);
    // The new row becomes the current one: the values written and its new key (columns not written
    // read as null here, whatever default the table gave them).
    std::vector<FieldValue> row(s.result.columns.size());
    for (const auto& [index, value] : s.pending) row[static_cast<std::size_t>(index)] = value;
    if (key >= 0) row[static_cast<std::size_t>(key)] = FieldValue::Int(newKey);
    s.result.rows.push_back(std::move(row));
    s.current = s.result.rows.size() - 1;
  } else {
    long long id;
    if (key < 0 || !s.result.rows[s.current][static_cast<std::size_t>(key)].AsInteger(
                       std::numeric_limits<long long>::min(), std::numeric_limits<long long>::max(), id))
      return s.Fail("the row has no key column \"ID\"");
    if (!s.connection->UpdateRow(s.result.table, s.result.columns[static_cast<std::size_t>(key)].ToUtf8(), id, values, error))
      return s.Fail(error);
    for (const auto& [index, value] : s.pending) s.result.rows[s.current][static_cast<std::size_t>(index)] = value;
  }
  s.pending.clear();
  s.mode = State::Mode::None;
  s.lastError.clear();
  return 1;
}

void CADORecordset::CancelUpdate() {
  m_state->pending.clear();
  m_state->mode = State::Mode::None;
}

CString CADORecordset::GetLastError() const { return CString::FromUtf8(m_state->lastError); }
