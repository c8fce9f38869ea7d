#include "AccessTable.h"

// glib first: mdbtools.h includes it inside its extern "C" block, where glib's C++ templates cannot be.
#include <glib.h>
#include <mdbtools.h>

#include <bit>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "CsvTable.h"

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

[[noreturn]] void Damaged(const std::string& table, const std::string& what) {
  throw DataError("table \"" + table + "\": " + what + " (the file is damaged)");
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

// Currency is a 64-bit count of ten-thousandths; its text is exact, without trailing zeros.
std::string CurrencyText(std::int64_t value) {
  const std::uint64_t magnitude = value < 0 ? 0 - static_cast<std::uint64_t>(value) : value;
  std::string text = (value < 0 ? "-" : "") + std::to_string(magnitude / 10000);
  if (const unsigned fraction = magnitude % 10000) {
    char digits[8];
    std::snprintf(digits, sizeof digits, ".%04u", fraction);
    std::string decimals = digits;
    decimals.erase(decimals.find_last_not_of('0') + 1);
    text += decimals;
  }
  return text;
}

// A Single as the double of its shortest decimal text: what Access shows, not the binary float's
// exact expansion.
double SingleValue(std::uint32_t bits) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text - 1, std::bit_cast<float>(bits)).ptr;
  *end = '\0';
  return std::strtod(text, nullptr);
}

// Access keeps a date as days since 1899-12-30 in a double: the whole part counts days (negative
// before that date) and the fraction, taken without its sign, is the time of day, so -1.25 is
// 1899-12-29 06:00. mdbtools' own formatting drops dates before 1899-12-30 and after about 2700, so
// the text is made here. Times round to the second; 23:59:59.6 becomes midnight of the next day.
std::string DateText(double value, const std::string& table) {
  // 0100-01-01 and the end of 9999-12-31: the dates Access can hold.
  if (!std::isfinite(value) || value < -657434.0 || value >= 2958466.0)
    Damaged(table, "a date outside the years 100 to 9999");
  const double whole = std::trunc(value);
  long long seconds = std::llround(std::fabs(value - whole) * 86400.0);
  long long day = static_cast<long long>(whole);
  if (seconds == 86400) {
    seconds = 0;
    ++day;
  }
  using namespace std::chrono;
  const year_month_day date{sys_days{year{1899} / December / 30} + days{day}};
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u %02lld:%02lld:%02lld", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()), seconds / 3600,
                seconds / 60 % 60, seconds % 60);
  return text;
}

void AppendUtf8(std::string& out, std::uint32_t code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xc0 | code >> 6);
    out += static_cast<char>(0x80 | (code & 0x3f));
  } else if (code < 0x10000) {
    out += static_cast<char>(0xe0 | code >> 12);
    out += static_cast<char>(0x80 | (code >> 6 & 0x3f));
    out += static_cast<char>(0x80 | (code & 0x3f));
  } else {
    out += static_cast<char>(0xf0 | code >> 18);
    out += static_cast<char>(0x80 | (code >> 12 & 0x3f));
    out += static_cast<char>(0x80 | (code >> 6 & 0x3f));
    out += static_cast<char>(0x80 | (code & 0x3f));
  }
}

// Jet 4 and later store text as UTF-16LE, or "compressed": after the marker FF FE, each byte is a
// character below U+0100 until a 00 byte switches to two-byte units (and the next 00 back). Decoded
// here rather than by mdbtools, whose UCS-2 conversion turns characters beyond U+FFFF (surrogate
// pairs, e.g. rarer Chinese characters) into '?'. An unpaired surrogate becomes U+FFFD.
std::string Utf16Text(const unsigned char* p, std::size_t size) {
  std::vector<std::uint16_t> units;
  if (size >= 2 && p[0] == 0xff && p[1] == 0xfe) {
    bool compressed = true;
    for (std::size_t i = 2; i < size;) {
      if (p[i] == 0) {
        compressed = !compressed;
        ++i;
      } else if (compressed) {
        units.push_back(p[i++]);
      } else if (i + 1 < size) {
        units.push_back(static_cast<std::uint16_t>(p[i] | p[i + 1] << 8));
        i += 2;
      } else {
        break;
      }
    }
  } else {
    for (std::size_t i = 0; i + 1 < size; i += 2) units.push_back(static_cast<std::uint16_t>(p[i] | p[i + 1] << 8));
  }
  std::string text;
  text.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    std::uint32_t code = units[i];
    if (code >= 0xd800 && code < 0xdc00 && i + 1 < units.size() && units[i + 1] >= 0xdc00 && units[i + 1] < 0xe000)
      code = 0x10000 + ((code - 0xd800) << 10) + (units[++i] - 0xdc00);
    else if (code >= 0xd800 && code < 0xe000)
      code = 0xfffd;
    AppendUtf8(text, code);
  }
  return text;
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

AccessTable::AccessTable(AccessTable&& other) noexcept
    : m_table(std::exchange(other.m_table, nullptr)),
      m_name(std::move(other.m_name)),
      m_columns(std::move(other.m_columns)) {}

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
