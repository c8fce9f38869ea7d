#include "datakit/CADataStream.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <string>

#include "mfc/Utf.h"

using ADataDef::AD_BADCOUNT;
using ADataDef::AD_ENDOFSTREAM;
using ADataDef::AD_OK;
using ADataDef::AD_OUTOFRANGE;

struct CADataStream::Buffer {
  std::vector<std::uint8_t> bytes;
  std::size_t readPos = 0;
};

namespace {

// Fixed-size items are stored little-endian whatever the host's byte order.
template <class T>
void AppendLittleEndian(std::vector<std::uint8_t>& out, T value) {
  std::uint8_t raw[sizeof(T)];
  std::memcpy(raw, &value, sizeof(T));
  if constexpr (std::endian::native == std::endian::big) std::reverse(raw, raw + sizeof(T));
  out.insert(out.end(), raw, raw + sizeof(T));
}

template <class T>
T FromLittleEndian(const std::uint8_t* raw) {
  std::uint8_t copy[sizeof(T)];
  std::memcpy(copy, raw, sizeof(T));
  if constexpr (std::endian::native == std::endian::big) std::reverse(copy, copy + sizeof(T));
  T value;
  std::memcpy(&value, copy, sizeof(T));
  return value;
}

// Reads one fixed-size item at pos and advances pos; AD_ENDOFSTREAM, with nothing moved, when the
// bytes that remain are fewer than the item needs.
template <class T>
int TakeLittleEndian(const std::vector<std::uint8_t>& bytes, std::size_t& pos, T* out) {
  if (bytes.size() - pos < sizeof(T)) return AD_ENDOFSTREAM;
  *out = FromLittleEndian<T>(bytes.data() + pos);
  pos += sizeof(T);
  return AD_OK;
}

}  // namespace

CADataStream::CADataStream() : m_buffer(std::make_shared<Buffer>()) {}

CADataStream::CADataStream(const void* bytes, std::size_t size) : CADataStream() {
  if (bytes && size) {
    auto p = static_cast<const std::uint8_t*>(bytes);
    m_buffer->bytes.assign(p, p + size);
  }
}

int CADataStream::WriteItem(int value) {
  AppendLittleEndian<std::int32_t>(m_buffer->bytes, value);
  return AD_OK;
}

int CADataStream::WriteItem(long value) {
  AppendLittleEndian<std::int32_t>(m_buffer->bytes, static_cast<std::int32_t>(value));
  return value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max()
             ? AD_OUTOFRANGE
             : AD_OK;
}

int CADataStream::WriteItem(unsigned long value) {
  AppendLittleEndian<std::uint32_t>(m_buffer->bytes, static_cast<std::uint32_t>(value));
  return value > std::numeric_limits<std::uint32_t>::max() ? AD_OUTOFRANGE : AD_OK;
}

int CADataStream::WriteItem(double value) {
  AppendLittleEndian<double>(m_buffer->bytes, value);
  return AD_OK;
}

int CADataStream::WriteItem(const CString& value) {
  std::u16string units = qk::utf::ToUtf16(value.str());
  if (units.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) return AD_OUTOFRANGE;
  AppendLittleEndian<std::int32_t>(m_buffer->bytes, static_cast<std::int32_t>(units.size()));
  for (char16_t u : units) AppendLittleEndian<std::uint16_t>(m_buffer->bytes, u);
  return AD_OK;
}

int CADataStream::WriteItem(const wchar_t* value) { return WriteItem(CString(value)); }

int CADataStream::ReadItem(int* value) {
  std::int32_t v;
  int rc = TakeLittleEndian(m_buffer->bytes, m_buffer->readPos, &v);
  if (rc == AD_OK) *value = v;
  return rc;
}

int CADataStream::ReadItem(long* value) {
  int v;
  int rc = ReadItem(&v);
  if (rc == AD_OK) *value = v;
  return rc;
}

int CADataStream::ReadItem(unsigned long* value) {
  std::uint32_t v;
  int rc = TakeLittleEndian(m_buffer->bytes, m_buffer->readPos, &v);
  if (rc == AD_OK) *value = v;
  return rc;
}

int CADataStream::ReadItem(double* value) { return TakeLittleEndian(m_buffer->bytes, m_buffer->readPos, value); }

int CADataStream::ReadItem(CString* value) {
  if (GetRemaining() < 4) return AD_ENDOFSTREAM;
  const std::uint8_t* p = m_buffer->bytes.data() + m_buffer->readPos;
  std::int32_t count = FromLittleEndian<std::int32_t>(p);
  // Checked before anything is allocated: a hostile count cannot make us reserve memory.
  if (count < 0 || static_cast<std::uint64_t>(count) * 2 > GetRemaining() - 4) return AD_BADCOUNT;
  std::u16string units(static_cast<std::size_t>(count), u'\0');
  for (std::int32_t i = 0; i < count; ++i) units[i] = FromLittleEndian<std::uint16_t>(p + 4 + 2 * i);
  *value = CString(qk::utf::FromUtf16(units));
  m_buffer->readPos += 4 + 2 * static_cast<std::size_t>(count);
  return AD_OK;
}

int CADataStream::WriteRaw(const void* bytes, std::size_t size) {
  auto p = static_cast<const std::uint8_t*>(bytes);
  if (size) m_buffer->bytes.insert(m_buffer->bytes.end(), p, p + size);
  return AD_OK;
}

int CADataStream::ReadRaw(void* bytes, std::size_t size) {
  if (GetRemaining() < size) return AD_ENDOFSTREAM;
  if (size) std::memcpy(bytes, m_buffer->bytes.data() + m_buffer->readPos, size);
  m_buffer->readPos += size;
  return AD_OK;
}

int CADataStream::WriteCount(std::uint64_t count) {
  if (count < 0xFFFF) {
    AppendLittleEndian<std::uint16_t>(m_buffer->bytes, static_cast<std::uint16_t>(count));
  } else {
    AppendLittleEndian<std::uint16_t>(m_buffer->bytes, 0xFFFF);
    if (count < 0xFFFFFFFFu) {
      AppendLittleEndian<std::uint32_t>(m_buffer->bytes, static_cast<std::uint32_t>(count));
    } else {
      AppendLittleEndian<std::uint32_t>(m_buffer->bytes, 0xFFFFFFFFu);
      AppendLittleEndian<std::uint64_t>(m_buffer->bytes, count);
    }
  }
  return AD_OK;
}

int CADataStream::ReadCount(std::uint64_t* count, std::uint64_t minElementBytes) {
  std::size_t pos = m_buffer->readPos;  // committed only when the whole count is good
  const auto& bytes = m_buffer->bytes;
  std::uint16_t small = 0;
  std::uint32_t mid = 0;
  std::uint64_t value = 0;
  int rc = TakeLittleEndian(bytes, pos, &small);
  value = small;
  if (rc == AD_OK && small == 0xFFFF) {
    rc = TakeLittleEndian(bytes, pos, &mid);
    value = mid;
    if (rc == AD_OK && mid == 0xFFFFFFFFu) rc = TakeLittleEndian(bytes, pos, &value);
  }
  if (rc != AD_OK) return rc;
  if (minElementBytes > 0 && value > (bytes.size() - pos) / minElementBytes) return AD_BADCOUNT;
  m_buffer->readPos = pos;
  *count = value;
  return AD_OK;
}

const std::vector<std::uint8_t>& CADataStream::GetBytes() const { return m_buffer->bytes; }
std::size_t CADataStream::GetSize() const { return m_buffer->bytes.size(); }
std::size_t CADataStream::GetPosition() const { return m_buffer->readPos; }
std::size_t CADataStream::GetRemaining() const { return m_buffer->bytes.size() - m_buffer->readPos; }

bool CADataStream::Seek(std::size_t position) {
  if (position > m_buffer->bytes.size()) return false;
  m_buffer->readPos = position;
  return true;
}
