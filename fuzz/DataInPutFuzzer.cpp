// DataInPut of every value class from arbitrary bytes: the first byte picks the class (by its index in
// kStreamValues, modulo their count), the rest is the stream. A damaged stream must give an error code
// or a value, then write that value back out, without a crash, a hang or an outsized allocation.
//
// The allocation bound is checked here, for each input, through the sanitizer's allocation hook: while
// the value reads, no single allocation may exceed kBytesPerInputByte times the stream's size plus
// kFixedBytes. A count read from the stream is what could break it (a string of 2^31 units, an array
// of 2^31 layers), and the stream's own checks must refuse such a count before anything is reserved.
// The factor covers what honest items cost: a text of n UTF-16 units (2n bytes) is held as n
// wchar_t (4n bytes) after an n-unit u16string; an array element read from at least 8 bytes may take
// up to about 100 bytes in memory, doubled by the array's growth. kFixedBytes covers the objects every
// read makes whatever the input. scripts/fuzz.sh also runs with -malloc_limit_mb, which catches any
// single allocation over that limit anywhere, including in the target itself.

#include <sanitizer/allocator_interface.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "StreamValues.h"

namespace {

constexpr std::size_t kBytesPerInputByte = 32;
constexpr std::size_t kFixedBytes = 64 * 1024;

bool g_watching = false;
std::size_t g_largest = 0;

void OnMalloc(const volatile void*, std::size_t size) {
  if (g_watching && size > g_largest) g_largest = size;
}
void OnFree(const volatile void*) {}

const int g_hooks = __sanitizer_install_malloc_and_free_hooks(&OnMalloc, &OnFree);

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0 || g_hooks == 0) return 0;
  const StreamValue& value = kStreamValues[data[0] % kStreamValueCount];
  CADataStream in(data + 1, size - 1);
  CADataStream out;
  g_largest = 0;
  g_watching = true;
  value.readThenWrite(in, out);
  g_watching = false;
  if (g_largest > kBytesPerInputByte * size + kFixedBytes) {
    std::fprintf(stderr, "%s: one allocation of %zu bytes for an input of %zu bytes\n", value.name, g_largest, size);
    std::abort();
  }
  return 0;
}
