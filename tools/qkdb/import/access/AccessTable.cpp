#include "import/access/AccessTable.h"

// glib first: mdbtools.h includes it inside its extern "C" block, where glib's C++ templates cannot be.
#include <glib.h>
#include <mdbtools.h>

#include <bit>
#include <utility>

#include "import/access/AccessValues.h"
#include "text/CsvTable.h"

namespace qkdb {

namespace {

// The low 13 bits of a row's offset on its page; the high bits are flags.
constexpr int kOffsetMask = 0x1fff;
// A memo or OLE field in the row is a 12-byte reference: the length with two flag bits, then the
// page and row of the first part when the value is stored elsewhere.
constexpr int kLongValueHeader = 12;
constexpr std::uint32_t kInline = 0x80000000u;
constexpr std::uint32_t kOnePage = 0x40000000u;
constexpr std::uint32_t kLengthMask = 0x3fffffffu;

std::uint64_t Little(const unsigned char* p, int bytes) {
  std::uint64_t v = 0;
  for (int i = bytes - 1; i >= 0; --i) v = (v << 8) | p[i];
  return v;
}

Affinity AffinityOf(int type) {
  switch (type) {
    case MDB_BOOL:
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
    case MDB_COMPLEX:  // an attachment or multi-valued field: the key of its values in a hidden table
      return Affinity::Integer;
    case MDB_FLOAT:
    case MDB_DOUBLE:
      return Affinity::Real;
    case MDB_MONEY:
    case MDB_NUMERIC:
      return Affinity::Numeric;
    case MDB_DATETIME:
    case MDB_TEXT:
    case MDB_MEMO:
    case MDB_REPID:
      return Affinity::Text;
    case MDB_BINARY:
    case MDB_OLE:
      return Affinity::Blob;
  }
  throw DataError("unknown type");
}

}  // namespace

AccessTable::AccessTable(S_MdbTableDef* table) : m_table(table), m_name(table->name) {
  for (unsigned i = 0; i < table->num_cols; ++i) {
    const auto* column = static_cast<const MdbColumn*>(g_ptr_array_index(table->columns, i));
    try {
      m_columns.push_back({column->name, AffinityOf(column->col_type)});
    } catch (const DataError&) {
      mdb_free_tabledef(table);
      throw DataError("table \"" + m_name + "\", column \"" + column->name + "\": an Access type (" +
                      std::to_string(column->col_type) + ") this import does not read");
    }
  }
}

AccessTable::~AccessTable() {
  if (m_table) mdb_free_tabledef(m_table);
}

std::int64_t AccessTable::RecordedRows() const { return m_table->num_rows; }

bool AccessTable::Next(std::vector<AccessValue>& row) {
  MdbHandle* mdb = m_table->entry->mdb;
  if (!mdb_fetch_row(m_table)) return false;
  // mdb_fetch_row reads the fields as text only into bound buffers, and gives an empty text for a
  // null field and an empty one alike. So the row it has just found (still in the page buffer, one
  // before its cursor) is split again here, into fields that say which are null, and each field is
  // read from its stored bytes.
  int start = 0;
  size_t size = 0;
  if (mdb_find_row(mdb, static_cast<int>(m_table->cur_row) - 1, &start, &size) != 0)
    Damaged(m_name, "a row outside its page");
  std::vector<MdbField> fields(m_columns.size());
  if (mdb_crack_row(m_table, start & kOffsetMask, size, fields.data()) != static_cast<int>(m_columns.size()))
    Damaged(m_name, "a row whose fields cannot be told apart");
  row.assign(m_columns.size(), AccessValue{});
  for (const MdbField& field : fields) {
    if (field.colnum < 0 || field.colnum >= static_cast<int>(m_columns.size()))
      Damaged(m_name, "a field of no column");
    row[field.colnum] = Field(field.colnum, field.start, field.siz, field.is_null);
  }
  return true;
}

AccessValue AccessTable::Field(int column, int start, int size, bool null) const {
  const auto* def = static_cast<const MdbColumn*>(g_ptr_array_index(m_table->columns, column));
  MdbHandle* mdb = m_table->entry->mdb;
  // A Yes/No field has no bytes: its null bit is its value (set = Yes), and it is never null.
  if (def->col_type == MDB_BOOL) return std::int64_t{null ? 0 : 1};
  if (null) return {};
  if (start < 0 || size < 0 || start + size > mdb->fmt->pg_size) Damaged(m_name, "a field outside its page");
  const unsigned char* p = mdb->pg_buf + start;
  const auto need = [&](int bytes) {
    if (size < bytes) Damaged(m_name, "a field shorter than its type");
  };
  switch (def->col_type) {
    case MDB_BYTE:
      need(1);
      return std::int64_t{p[0]};
    case MDB_INT:
      need(2);
      return std::int64_t{static_cast<std::int16_t>(Little(p, 2))};
    case MDB_LONGINT:
    case MDB_COMPLEX:
      need(4);
      return std::int64_t{static_cast<std::int32_t>(Little(p, 4))};
    case MDB_FLOAT:
      need(4);
      return SingleValue(static_cast<std::uint32_t>(Little(p, 4)));
    case MDB_DOUBLE:
      need(8);
      return std::bit_cast<double>(Little(p, 8));
    case MDB_MONEY:
      need(8);
      return CurrencyText(static_cast<std::int64_t>(Little(p, 8)));
    case MDB_NUMERIC: {
      need(17);  // a sign byte and a 128-bit magnitude
      char* text = mdb_numeric_to_string(mdb, start, def->col_scale, def->col_prec);
      std::string value = text;
      g_free(text);
      return value;
    }
    case MDB_DATETIME:
      need(8);
      return DateText(std::bit_cast<double>(Little(p, 8)), m_name);
    case MDB_REPID: {
      need(16);
      char* text = mdb_uuid_to_string(mdb->pg_buf, start);
      std::string value = text;
      g_free(text);
      return value;
    }
    case MDB_TEXT:
      return Text(reinterpret_cast<const char*>(p), size);
    case MDB_MEMO: {
      const std::string bytes = LongValue(start, size);
      return Text(bytes.data(), bytes.size());
    }
    case MDB_BINARY:
      return Bytes{std::string(reinterpret_cast<const char*>(p), size)};
    case MDB_OLE:
      return Bytes{LongValue(start, size)};
  }
  Damaged(m_name, "a field of no known type");
}

// The bytes of a memo or OLE value, whatever their length: stored in the row itself, in one row of
// another page, or in a chain of page rows each starting with the page and row of the next. Read here
// rather than by mdbtools, whose memo text stops at its bind size (16 KiB by default) and whose chain
// walk has no end when a damaged chain loops.
std::string AccessTable::LongValue(int start, int size) const {
  if (size == 0) return "";
  if (size < kLongValueHeader) Damaged(m_name, "a memo or OLE field shorter than its reference");
  MdbHandle* mdb = m_table->entry->mdb;
  const std::uint32_t header = static_cast<std::uint32_t>(Little(mdb->pg_buf + start, 4));
  const std::size_t length = header & kLengthMask;
  if (header & kInline)
    return std::string(reinterpret_cast<const char*>(mdb->pg_buf) + start + kLongValueHeader, size - kLongValueHeader);
  int pageRow = static_cast<int>(Little(mdb->pg_buf + start + 4, 4));
  std::string value;
  void* page = nullptr;
  int offset = 0;
  size_t part = 0;
  if (header & kOnePage) {
    if (mdb_find_pg_row(mdb, pageRow, &page, &offset, &part) != 0) Damaged(m_name, "a memo or OLE page missing");
    return std::string(static_cast<const char*>(page) + offset, part);
  }
  if (header & ~kLengthMask) Damaged(m_name, "a memo or OLE reference of unknown kind");
  // Each part carries at least one byte, so a chain that loops ends once the length is reached.
  while (value.size() < length) {
    if (pageRow == 0 || mdb_find_pg_row(mdb, pageRow, &page, &offset, &part) != 0 || part <= 4)
      Damaged(m_name, "a memo or OLE value cut short");
    const auto* bytes = static_cast<const unsigned char*>(page) + offset;
    pageRow = static_cast<int>(Little(bytes, 4));
    value.append(reinterpret_cast<const char*>(bytes) + 4, part - 4);
  }
  if (value.size() != length) Damaged(m_name, "a memo or OLE value longer than it says");
  return value;
}

// Jet 3 files keep text in a single-byte code page, which mdbtools converts to UTF-8 (AccessFile
// leaves MDBICONV unset); later files keep UTF-16, decoded by Utf16Text.
std::string AccessTable::Text(const char* bytes, std::size_t size) const {
  MdbHandle* mdb = m_table->entry->mdb;
  if (!IS_JET3(mdb)) return Utf16Text(reinterpret_cast<const unsigned char*>(bytes), size);
  // Each byte of a single-byte code page becomes at most three bytes of UTF-8.
  std::string text(3 * size + 1, '\0');
  const int length = mdb_unicode2ascii(mdb, bytes, size, text.data(), text.size());
  text.resize(length > 0 ? length : 0);
  return text;
}

}  // namespace qkdb
