// DataInPut of every value class from arbitrary bytes: the first byte picks the class (by its index in
// kStreamValues, modulo their count), the rest is the stream. A damaged stream must give an error code
// or a value, then write that value back out, without a crash, a hang or an outsized allocation.
//
// The allocation bound is checked here, for each input, through the sanitizer's allocation hook: while
// the value reads and writes itself back, no single allocation may exceed kBytesPerInputByte times the
// input's size plus kFixedBytes, and the hook stops at the first that does, with its stack. A count
// read from the stream is what could break it (a text of 2^31 units, an array of 2^31 layers): the
// stream and the classes must refuse such a count before reserving anything.
//
// The bound is linear rather than the input's size itself because an honest item can take more room
// in memory than in the stream. The largest ratio is a wall's layer name: 8 bytes in the stream (its
// ID and an empty text), 48 in memory (vtable, long, CString), in an array that may reserve up to
// twice the names it holds while it grows: 12 bytes per input byte. A text of n UTF-16 units (2n
// bytes) is held as n wchar_t (4n bytes). kFixedBytes covers what every read makes whatever the input.
// scripts/fuzz.sh also runs with -malloc_limit_mb=64, which stops any single larger allocation
// anywhere, in the target too.

#include <sanitizer/allocator_interface.h>
#include <sanitizer/common_interface_defs.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "StreamValues.h"

namespace {

constexpr std::size_t kBytesPerInputByte = 12;
constexpr std::size_t kFixedBytes = 4096;

const char* g_reading = nullptr;  // the class being read; null while nothing is watched
std::size_t g_limit = 0;

// Stops at the allocation itself, so that its stack shows who asked for it.
void OnMalloc(const volatile void*, std::size_t size) {
  if (g_reading == nullptr || size <= g_limit) return;
  const char* name = g_reading;
  g_reading = nullptr;
  std::fprintf(stderr, "%s: one allocation of %zu bytes, over the %zu allowed for this input\n", name, size, g_limit);
  __sanitizer_print_stack_trace();
  std::abort();
}
void OnFree(const volatile void*) {}

const int g_hooks = __sanitizer_install_malloc_and_free_hooks(&OnMalloc, &OnFree);

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (g_hooks == 0) {
    std::fprintf(stderr, "the allocation hook could not be installed: the bound would go unchecked\n");
    std::abort();
  }
  if (size == 0) return 0;
  const StreamValue& value = kStreamValues[data[0] % kStreamValueCount];
  CADataStream in(data + 1, size - 1);
  CADataStream out;
  g_limit = kBytesPerInputByte * size + kFixedBytes;
  g_reading = value.name;
  value.readThenWrite(in, out);
  g_reading = nullptr;
  return 0;
}
