#pragma once
// Real files nobody here wrote (Access databases from a public test-data set, a CSWD weather file),
// read where the workplace keeps them and never copied into the project: $QK_SAMPLES_DIR when set,
// else the shared data folder beside the checkout. A test whose file is absent is skipped.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

inline std::filesystem::path SampleFile(const std::string& name) {
  const char* dir = std::getenv("QK_SAMPLES_DIR");
  return std::filesystem::path(dir && *dir ? dir : QK_SAMPLES_DIR) / name;
}

// Skips the calling test when the sample at path is absent.
#define QK_NEED_SAMPLE(path) \
  if (!std::filesystem::exists(path)) GTEST_SKIP() << "no sample file at " << (path)
