#pragma once
// CADataStream: the ordered data stream in which values write their items one after another and read
// them back in the same order. Host programs keep these bytes inside their project files.
//
// A stream is a light handle: copies share one buffer and one read position, so items written or
// read through a copy (values receive streams by value) land in, or advance, the caller's stream.
// Writes append at the end; reads go forward from the read position.
//
// Byte format, little-endian throughout:
//   int, long, unsigned long   4 bytes (long is carried as 32 bits whatever the platform's long is)
//   double                     8 bytes, IEEE 754
//   CString                    a 4-byte count of UTF-16 code units, then the units
//   raw block                  the bytes as given, no count
//   archive count              2 bytes; when they hold 0xFFFF, 4 more; when those hold 0xFFFFFFFF,
//                              8 more (the framework's archive count encoding)
// A failed read (past the end, a negative or oversized count, a truncated item) returns non-zero,
// leaves the target and the read position unchanged, and never allocates more than the bytes that
// remain. Not safe for concurrent use.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "QKExport.h"
#include "datakit/ADataDef.h"
#include "mfc/CString.h"

class QK_EXPORT CADataStream {
 public:
  // A new, empty stream.
  CADataStream();
  // A new stream holding a copy of those bytes, read from the start.
  CADataStream(const void* bytes, std::size_t size);
  CADataStream(const CADataStream&) = default;
  CADataStream& operator=(const CADataStream&) = default;
  ~CADataStream() = default;

  int WriteItem(int value);
  int WriteItem(long value);  // AD_OUTOFRANGE (still written, wrapped) outside the 32-bit range
  int WriteItem(unsigned long value);
  int WriteItem(double value);
  int WriteItem(const CString& value);
  int WriteItem(const wchar_t* value);  // null writes the empty string

  int ReadItem(int* value);
  int ReadItem(long* value);
  int ReadItem(unsigned long* value);
  int ReadItem(double* value);
  int ReadItem(CString* value);

  int WriteRaw(const void* bytes, std::size_t size);
  int ReadRaw(void* bytes, std::size_t size);

  int WriteCount(std::uint64_t count);
  // Reads an archive count; refuses (AD_BADCOUNT) a count whose elements, at minElementBytes each,
  // could not fit in the bytes that remain after it.
  int ReadCount(std::uint64_t* count, std::uint64_t minElementBytes = 1);

  // The whole buffer, as written.
  const std::vector<std::uint8_t>& GetBytes() const;
  std::size_t GetSize() const;
  std::size_t GetPosition() const;
  std::size_t GetRemaining() const;
  // Moves the read position; false (and no move) past the end.
  bool Seek(std::size_t position);

 private:
  struct Buffer;
  std::shared_ptr<Buffer> m_buffer;
};
