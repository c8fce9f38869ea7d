// The EPW reader of `qkdb import-epw` on arbitrary bytes. A bad file must end in a DataError naming
// the line; any other exception, a crash or a hang is a finding.

#include <cstddef>
#include <cstdint>
#include <string>

#include "text/CsvTable.h"
#include "import/epw/EpwFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    qkdb::EpwFile::Parse("fuzz.epw", std::string(reinterpret_cast<const char*>(data), size));
  } catch (const qkdb::DataError&) {
  }
  return 0;
}
