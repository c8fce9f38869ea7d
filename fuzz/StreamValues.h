#pragma once
// The value classes that read themselves from an ordered stream (DataInPut), in a fixed order: the
// DataInPut fuzzer picks one by its index, and the seed generator writes one seed per index.
// Appending a class keeps the committed seeds valid; inserting one would shift them.

#include <cstddef>

#include "datakit/ADataDef.h"
#include "datakit/CADataStream.h"

struct StreamValue {
  const char* name;
  // Reads a fresh object from in, then writes what it read to out; the read's result.
  ADataDef::ErrorCode (*readThenWrite)(CADataStream in, CADataStream out);
  // Writes a default-constructed object to out.
  void (*writeDefault)(CADataStream out);
};

extern const StreamValue kStreamValues[];
extern const std::size_t kStreamValueCount;
